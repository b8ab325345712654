#include "hex_desk.h"

#include <cstdio>

#include "devices/selection.h"
#include "image/buffers.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

using image::EepromBuffer;
using image::MainBuffer;
using panel::Form1;

constexpr int FlashRows = 66000;
constexpr int EepromRows = 2000;
constexpr std::string_view BeyondMark = "kívül";

std::string Hex(unsigned value, int digits) {
  char text[16];
  std::snprintf(text, sizeof text, "%0*X", digits, value);
  return text;
}

bool IsDigits(std::string_view text, std::size_t width) {
  return text.size() == width && text.find_first_not_of("0123456789ABCDEF") == std::string_view::npos;
}

}  // namespace

std::string Rec(int address, int type, std::string_view data) {
  std::string body = Hex(static_cast<unsigned>(data.size() / 2), 2) + Hex(static_cast<unsigned>(address), 4) +
                     Hex(static_cast<unsigned>(type), 2) + std::string(data);
  unsigned sum = 0;
  for (std::size_t i = 0; i < body.size(); i += 2) {
    sum += static_cast<unsigned>(std::stoul(body.substr(i, 2), nullptr, 16));
  }
  return ":" + body + Hex((0x100 - (sum & 0xFF)) & 0xFF, 2) + "\r\n";
}

std::string Ela(int upperWord) {
  return Rec(0, 4, Hex(static_cast<unsigned>(upperWord), 4));
}
std::string Esa(int segment) {
  return Rec(0, 2, Hex(static_cast<unsigned>(segment), 4));
}

std::string AllIds() {
  std::string all;
  for (std::size_t k = 1; k <= 8; ++k) all += image::IdBuffer[k];
  return all;
}

std::string AllConfigs() {
  std::string all;
  for (std::size_t k = 1; k <= 14; ++k) all += image::ConfigBuffer[k];
  return all;
}

HexDesk::HexDesk(std::string_view chip) {
  session.Do("start");
  Choose(chip);
}

void HexDesk::Choose(std::string_view chip) {
  midRange_ = !chip.starts_with("PIC18");
  session.Do(midRange_ ? "tab 1" : "tab 2");
  session.Do((midRange_ ? "choose Combo2 " : "choose Combo1 ") + std::string(chip));
  session.Do("messages");
}

Lines HexDesk::Load(std::string_view text) {
  session.Folder().Write("image.hex", text);
  return LoadPath(session.Folder().File("image.hex"));
}

Lines HexDesk::LoadPath(const std::string& path) {
  session.Do("file " + path);
  session.Do(midRange_ ? "click Command7" : "click FájlBetölt");
  return session.Look("messages");
}

Lines HexDesk::Reload(std::string_view text) {
  session.Folder().Write("image.hex", text);
  return Reload();
}

Lines HexDesk::Reload() {
  session.Do(midRange_ ? "click Command22" : "click Frissites");
  return session.Look("messages");
}

std::string HexDesk::Word(int index) const {
  return std::string(MainBuffer(index % 8 + 1, index / 8 + 1).View());
}
std::string HexDesk::Byte(int index) const {
  return std::string(EepromBuffer(index % 8 + 1, index / 8 + 1).View());
}
std::string HexDesk::GridWord(int index) const {
  return (midRange_ ? Form1.MSFlexGrid4 : Form1.MSFlexGrid1).Text(index / 8 + 1, index % 8 + 1);
}

testing::AssertionResult HexDesk::ForEachCell(bool erased) const {
  const std::string_view blank = midRange_ ? "3FFF" : "FFFF";
  const panel::Grid& flashGrid = midRange_ ? Form1.MSFlexGrid4 : Form1.MSFlexGrid1;
  for (int i = 0; i <= devices::FlashWordMax; ++i) {
    const std::string_view word = MainBuffer(i % 8 + 1, i / 8 + 1).View();
    const std::string_view shown = flashGrid.Text(i / 8 + 1, i % 8 + 1);
    if (!IsDigits(word, 4) || word != shown || (erased && word != blank)) {
      return testing::AssertionFailure()
             << "word " << i << " is '" << word << "', its grid cell '" << shown << "'";
    }
  }
  const panel::Grid& eepromGrid = midRange_ ? Form1.MSFlexGrid3 : Form1.MSFlexGrid2;
  for (int i = 0; devices::EepromMax > 0 && i <= devices::EepromMax; ++i) {
    const std::string_view byte = EepromBuffer(i % 8 + 1, i / 8 + 1).View();
    const std::string_view shown = eepromGrid.Text(i / 8 + 1, i % 8 + 1);
    // A byte from a PIC18 file stands behind two blanks.
    const bool same = shown == byte || (shown.starts_with("  ") && shown.substr(2) == byte);
    if (!IsDigits(byte, 2) || !same || (erased && byte != "FF")) {
      return testing::AssertionFailure()
             << "EEPROM byte " << i << " is '" << byte << "', its grid cell '" << shown << "'";
    }
  }
  return testing::AssertionSuccess();
}

testing::AssertionResult HexDesk::IsErased() const {
  return ForEachCell(true);
}
testing::AssertionResult HexDesk::CellsAreSound() const {
  return ForEachCell(false);
}

void HexDesk::MarkBeyond() {
  for (int row = (devices::FlashWordMax + 1) / 8 + 1; row <= FlashRows; ++row) {
    for (int column = 1; column <= 8; ++column) MainBuffer(column, row) = BeyondMark;
  }
  for (int row = (devices::EepromMax + 1) / 8 + 1; row <= EepromRows; ++row) {
    for (int column = 1; column <= 8; ++column) EepromBuffer(column, row) = BeyondMark;
  }
}

testing::AssertionResult HexDesk::BeyondIsUntouched() const {
  for (int row = (devices::FlashWordMax + 1) / 8 + 1; row <= FlashRows; ++row) {
    for (int column = 1; column <= 8; ++column) {
      if (MainBuffer(column, row) != BeyondMark) {
        return testing::AssertionFailure() << "MainBuffer(" << column << "," << row << ") was written";
      }
    }
  }
  for (int row = (devices::EepromMax + 1) / 8 + 1; row <= EepromRows; ++row) {
    for (int column = 1; column <= 8; ++column) {
      if (EepromBuffer(column, row) != BeyondMark) {
        return testing::AssertionFailure() << "EepromBuffer(" << column << "," << row << ") was written";
      }
    }
  }
  return testing::AssertionSuccess();
}

}  // namespace zelvo::test
