// What the wire log has to hold, worked out line by line from how the board and the chips are driven: the
// lines' registers as a person would write them down, with nothing in common with the program's own engine.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/bench_session.h"
#include "support/board_kind.h"

namespace zelvo::test {

/// A time of day in a log line, where the model cannot know it.
[[nodiscard]] Lines WithoutTimes(Lines log);

class WireModel {
 public:
  /// `passes` of one edge's wait; the lines begin at idle.
  WireModel(const BoardKind& kind, long long passes) : kind_(kind), passes_(passes) { Idle(); }

  [[nodiscard]] const Lines& Log() const { return log_; }
  /// Passes of one edge's wait from here on.
  void Passes(long long passes) { passes_ = passes; }
  /// Bench time that the log so far has taken up; the holds of timers and of the supply count nothing.
  [[nodiscard]] long long Microseconds() const { return microseconds_; }

  // Lines of the log that are no port access.
  void Line(std::string line);
  void Event(int number, std::string_view text, std::string_view list = "List1");
  void Wait(int count = 1);

  // The board.
  void PowerOff();
  void PowerOn();
  void ClockAndDataToRest();

  // The engine. Texts have the first bit at their right end.
  void Out(std::string_view bits);
  void OutByte(int value);
  void Frame(std::string_view command, int payload);
  /// Table read with post-increment of a byte that the chip has: command, wait, dummy clocks, the byte.
  void ReadByte(int value);
  /// `bits` clocks in which the chip drives the data line, bit 0 first.
  void In(int value, int bits);
  void InByte(int value) { In(value, 8); }
  void Pulse();

  // Runs of transactions.
  void Core(std::initializer_list<int> words);
  /// The same with a short held pause behind each command and byte.
  void HeldCore(std::initializer_list<int> words);
  void SetPointer(int address);        ///< six instructions, no pauses
  void SetPointerSlowly(int address);  ///< three waits behind each command and byte
  void CodeAccess() { Core({0x8EA6, 0x9CA6}); }

 private:
  void Idle();
  void Write(int offset, int value);
  void Read(int offset);
  void ReadInput(bool high);
  void SetBit(int& reg, int bit, bool level, bool inverted) const;
  void Data(bool level);
  void Clock(bool level);
  [[nodiscard]] int OutputOffset() const { return kind_.com ? 4 : 0; }
  [[nodiscard]] int& Output() { return kind_.com ? modem_ : data_; }

  BoardKind kind_;
  long long passes_;
  long long microseconds_ = 0;
  Lines log_;
  int data_ = 0;   // printer port, base+0
  int line_ = 0;   // serial port, base+3
  int modem_ = 0;  // serial port, base+4
};

}  // namespace zelvo::test
