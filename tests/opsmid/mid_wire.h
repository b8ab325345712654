// What the wire log of a mid-range operation has to hold, from what the chips are to be told: commands,
// frames, waits, log lines and windows.
#pragma once

#include <array>
#include <initializer_list>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "mid_chips.h"
#include "support/wire_model.h"

namespace zelvo::test {

/// The twelve erases.
enum class Piece {
  ProgramMemory,
  ProgramSetup,
  DataMemory,
  DataOldStyle,
  ChipFull,
  ProgramAndEnd,
  DataAndEnd,
  DataPlain,
  ProgramPlain,
  BlankUserIds,
  ProtectedOldStyle,
  FromConfigSpace
};
using Pieces = std::vector<Piece>;
/// Of the whole chip, and before a Flash write.
[[nodiscard]] Pieces WholePieces(const MidChip& chip);
[[nodiscard]] Pieces FlashPieces(const MidChip& chip);
/// Before an EEPROM write; none for some.
[[nodiscard]] Pieces EepromPieces(const MidChip& chip);

/// Words or bytes by index.
using Values = std::vector<int>;
constexpr int ErasedMid = 0x3FFF;
constexpr int NoCancel = -1;

/// What a write of Flash, user IDs and configuration is made of.
struct FlashJob {
  Values words;
  std::array<int, 4> ids{};
  int config1 = 0, config2 = 0;
  bool check4 = false, check6 = false;
  bool manual = false;
  int cancelled = NoCancel;  ///< the word in hand when the operator cancels, in the first loop
};

class MidWire : public WireModel {
 public:
  /// `firstEvent`: number of the next line of the event list.
  MidWire(const BoardKind& kind, long long passes, int firstEvent)
      : WireModel(kind, passes), passes_(passes), event_(firstEvent) {}

  using WireModel::Log;
  /// A line of the page's event list.
  void Log(std::string_view text) { Event(event_++, text, "List4"); }
  void Tell(std::string_view text) { Line("M ok ok " + std::string(text)); }
  void Ask(bool yes, std::string_view text) {
    Line(std::string("M yesno ") + (yes ? "yes " : "no ") + std::string(text));
  }
  void Commands(std::initializer_list<std::string_view> texts);
  void Increments(int count);
  /// `PowerCycleDelay`
  void Cycle(int count);
  void ToConfigSpace() { Commands({"000000", "0000000000000000"}); }
  void ReadFrame(std::string_view command, int value);
  /// A review or another window that opens anew.
  void Review(const std::string& window);
  void Close(const std::string& window);
  /// Passes of the event pump so far.
  [[nodiscard]] long long Pumped() const;

  /// `word` at 2006h.
  void Identify(int word, bool powers = true);
  void Erase(Piece piece, const MidChip& chip);
  void Erase(const Pieces& pieces, const MidChip& chip);
  /// One load of a Flash word.
  void Load(int word);
  /// A write loop with its window. `cancelled`: the word in hand when the operator cancels.
  void WriteLoop(Loop loop, const Values& words, int cancelled = NoCancel);
  void WriteConfig(const MidChip& chip, const FlashJob& job);
  void WriteFlash(const MidChip& chip, const FlashJob& job);
  /// A write from its first log line on; `cancelled` as above.
  void WriteEeprom(const MidChip& chip, const Values& bytes, int cancelled = NoCancel);

  void ReadFlash(const Values& words, bool manual = false);
  void ReadEeprom(const Values& bytes, bool manual = false);
  /// `equal`: the image holds the same.
  void ReadConfig(const MidChip& chip, int word1, int word2, bool equal, bool manual = false);
  void ReadIds(const std::array<int, 4>& words, bool equal, bool manual = false);

  /// The pass in which a run with a cancelled word is to be cancelled.
  long long CancelPass = 0;

 private:
  void WriteUserId(ConfigKind kind, int word);
  void ProgramConfig(ConfigKind kind);
  void ConfigFrame(int word);
  void Programme(Loop loop);

  long long passes_;
  int event_;
  std::set<std::string> open_;
};

/// What the line floating high reads as.
[[nodiscard]] inline Values Floating(int count, int value = ErasedMid) {
  return Values(static_cast<std::size_t>(count), value);
}

}  // namespace zelvo::test
