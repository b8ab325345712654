// A desk with the program started and a chip chosen, at which HEX texts are loaded and what they left is
// looked at.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/bench_session.h"

namespace zelvo::test {

inline constexpr const char* EndRecord = ":00000001FF\r\n";
inline constexpr const char* NotHexFormat = "ok ok A nem IntelHex Formátumú";
inline constexpr const char* NotForThisChip = "ok ok A fájl nem kompatibilis a kiválasztott PIC-el!";
inline constexpr const char* UnknownFileFault = "ok ok Ismeretlen Fájl hiba!";

/// A record with its checksum and CRLF. `data` is its digits.
[[nodiscard]] std::string Rec(int address, int type, std::string_view data);
/// An extended linear address record.
[[nodiscard]] std::string Ela(int upperWord);
/// An extended segment address record.
[[nodiscard]] std::string Esa(int segment);

/// The 8 ID bytes and the 14 configuration bytes of the PIC18 page, each in a row.
[[nodiscard]] std::string AllIds();
[[nodiscard]] std::string AllConfigs();

class HexDesk {
 public:
  /// Starts the program and chooses `chip` on the page of its family.
  explicit HexDesk(std::string_view chip);

  /// Goes to the page of the chip's family and chooses it there.
  void Choose(std::string_view chip);

  /// Loads a file of this text by the button of the page. Gives the message boxes that it led to.
  Lines Load(std::string_view text);
  /// Lets the dialog choose `path`.
  Lines LoadPath(const std::string& path);
  /// Puts another text into the file last loaded, and reloads it by the button of the page.
  Lines Reload(std::string_view text);
  Lines Reload();

  // Cells by 0-based index.
  [[nodiscard]] std::string Word(int index) const;
  [[nodiscard]] std::string Byte(int index) const;
  /// A cell of the page's own Flash grid.
  [[nodiscard]] std::string GridWord(int index) const;

  /// True when all Flash and EEPROM cells of the chip and of the page's grids are erased.
  [[nodiscard]] testing::AssertionResult IsErased() const;
  /// Every cell within the chip has its width of upper-case digits, and the grids show the same.
  [[nodiscard]] testing::AssertionResult CellsAreSound() const;
  /// Marks every cell beyond the chip, so that `BeyondIsUntouched` can tell whether one was written.
  void MarkBeyond();
  [[nodiscard]] testing::AssertionResult BeyondIsUntouched() const;

  BenchSession session;

 private:
  [[nodiscard]] testing::AssertionResult ForEachCell(bool erased) const;
  bool midRange_ = false;
};

}  // namespace zelvo::test
