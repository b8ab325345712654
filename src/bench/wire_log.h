// The wire log: everything that happens between the program, the board and the operator's screen, one event a
// line, in the order in which it happens.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "bench/buffered_file.h"
#include "panel/window.h"
#include "platform/seams.h"

namespace zelvo::bench {

class WireLog {
 public:
  explicit WireLog(std::unique_ptr<BufferedFile> file) : file_(std::move(file)) {}

  void PortWrite(int address, int value) { Access('W', address, value); }  ///< `W 0378 05`
  void PortRead(int address, int value) { Access('R', address, value); }   ///< `R 0379 40`
  void Passes(long long passes);                                           ///< `P 1000`
  void Hold(platform::HoldTimer timer);                                    ///< `S9`, `S11`
  void Delay(platform::HeldDelay kind, double waitCount);                  ///< `D cycle 1000`
  void Bar(std::string_view window, int value);                            ///< `B Állapot 17`
  void Line(std::string_view list, std::string_view line);                 ///< `L List1 TEXT`
  void Message(std::string_view message);                                  ///< `M yesno no TEXT`
  void Loaded(std::string_view window);                                    ///< `+ FlashOlv`
  void Unloaded(std::string_view window);                                  ///< `- FlashOlv`
  void Mark(std::string_view text);                                        ///< `# TEXT`

  void Flush() { file_->Flush(); }
  [[nodiscard]] bool Whole() const { return file_->Whole(); }

 private:
  void Access(char kind, int address, int value);
  void Words(std::string_view kind, std::string_view first, std::string_view rest);

  std::unique_ptr<BufferedFile> file_;
};

inline void WireLog::Access(char kind, int address, int value) {
  constexpr char Digits[] = "0123456789ABCDEF";
  char* p = file_->Reserve(10);
  p[0] = kind;
  p[1] = ' ';
  p[2] = Digits[(address >> 12) & 15];
  p[3] = Digits[(address >> 8) & 15];
  p[4] = Digits[(address >> 4) & 15];
  p[5] = Digits[address & 15];
  p[6] = ' ';
  p[7] = Digits[(value >> 4) & 15];
  p[8] = Digits[value & 15];
  p[9] = '\n';
  file_->Commit(p + 10);
}

}  // namespace zelvo::bench
