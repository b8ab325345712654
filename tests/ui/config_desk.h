// A desk with the configuration editor at hand: a PIC18 is chosen, and the editor's cells, bits and box are
// reached by byte (1..14) and column (1..8).
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "image/buffers.h"
#include "link/event_log.h"
#include "panel/secondary_windows.h"
#include "support/bench_session.h"

namespace zelvo::test {

inline constexpr const char* Bytes[] = {"1L", "1H", "2L", "2H", "3L", "3H", "4L",
                                        "4H", "5L", "5H", "6L", "6H", "7L", "7H"};
inline constexpr const char* NotUsed = "ok ok  Ez a bit nincs használva!";
inline constexpr const char* OnlyOneOrZero = "ok ok A bevitel csak 1 vagy 0 lehet! ";
inline constexpr const char* AllOnes = " 1 1 1 1 1 1 1 1";
inline constexpr const char* AllZeros = " 0 0 0 0 0 0 0 0";
inline constexpr const char* NoSuchChip = "PIC18F0";

/// The eight bits of a value, each behind a blank.
inline std::string Spaced(int value) {
  std::string text;
  for (int bit = 7; bit >= 0; --bit) text += (value >> bit & 1) != 0 ? " 1" : " 0";
  return text;
}

class ConfigEditor : public testing::Test {
 protected:
  void SetUp() override {
    session.Do({"start", "tab 2"});
    Choose("PIC18F452");
  }
  void Choose(const std::string& chip) { session.Do("choose Combo1 " + chip); }
  /// Opens the editor for a name that stands in no group, so that nothing is filled.
  void OpenUnfilled() {
    Choose(NoSuchChip);
    session.Do("click ConfRészlEdit");
  }
  /// Opens the editor for `chip` with every byte of the image at `bits`.
  void Open(const std::string& chip, const std::string& bits) {
    Choose(chip);
    image::ConfigBitStrings.fill(bits);
    session.Do({"click ConfRészlEdit", "messages"});
  }
  static std::string GridName(int byte) { return std::string("ConfEdit.Conf") + Bytes[byte - 1]; }
  void DblClick(int byte, int row, int column) {
    session.Do("dblclick " + GridName(byte) + " " + std::to_string(row) + " " + std::to_string(column));
  }
  void Click(int byte, int row, int column) {
    session.Do("click " + GridName(byte) + " " + std::to_string(row) + " " + std::to_string(column));
  }
  void TypeAndEnter(const std::string& text) {
    session.Do({"type ConfEdit.Text1 " + text, "key ConfEdit.Text1 Enter"});
  }
  void Edit(int byte, int column, const std::string& text) {
    DblClick(byte, 1, column);
    TypeAndEnter(text);
  }
  static std::string State(int byte, int column) {
    return panel::ConfEdit.Grids.at(static_cast<std::size_t>(byte - 1)).Text(1, column);
  }
  static std::string Bit(int byte, int column) {
    return image::ConfigEditBits.at(static_cast<std::size_t>(byte)).at(static_cast<std::size_t>(column));
  }
  static std::string BoxText() { return panel::ConfEdit.Text1.Text; }
  static bool BoxShown() { return panel::ConfEdit.Text1.Visible; }
  /// The log line with the number that comes next plus `ahead`.
  static std::string Line(const std::string& text, int ahead = 0) {
    return std::to_string(link::EventCounter + ahead) + ":  12:00:00" + text;
  }
  BenchSession session;
};

}  // namespace zelvo::test
