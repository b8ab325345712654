// The reviews of a Flash and an EEPROM read on the mid-range page: words of fourteen bits, the page's grids
// and log, and no Verify buffer.
#include <gtest/gtest.h>

#include <algorithm>

#include "devices/selection.h"
#include "image/buffers.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using image::EepromBuffer;
using image::EepromReadBuffer;
using image::FlashReadBuffer;
using image::MainBuffer;
using image::ReadBackBytes;
using image::VerifyBuffer;
using panel::EEPROM_Beolvas;
using panel::FlashOlv;
using panel::Form1;

constexpr const char* RedCell = "12632319";  // C0C0FFh
constexpr int Rows = 1024;                   // 8192 words
constexpr int EepromRows = 32;

/// A blank chip of 8192 words and 256 bytes of EEPROM was read.
class MidMemoryReview : public testing::Test {
 protected:
  void SetUp() override {
    session.Do({"board lpt", "start", "tab 1", "choose Combo2 PIC16F887"});
    for (int word = 0; word < 8 * Rows; ++word) PutWord(word, 0x3F, 0xFF);
    for (int row = 1; row <= EepromRows; ++row) {
      for (int col = 1; col <= 8; ++col) EepromReadBuffer(col, row) = "FF";
    }
  }
  /// Puts a word as a read does, high byte first.
  static void PutWord(int address, int high, int low) {
    ReadBackBytes.at(static_cast<std::size_t>(2 * address + 1)) = high;
    ReadBackBytes.at(static_cast<std::size_t>(2 * address + 2)) = low;
  }
  std::string FlashCell(int row, int col) {
    return session.Ask("cell FlashOlv.MSFlexGrid1 " + Place(row, col));
  }
  static std::string Place(int row, int col) { return std::to_string(row) + " " + std::to_string(col); }
  std::string Newest(const char* list = "List4") {
    const std::string line = session.Look(std::string("list ") + list).front();
    return line.substr(line.find(":  ") + 11);
  }
  BenchSession session;
};

TEST_F(MidMemoryReview, ShowsEveryWordOfTheChipAndABlankOneEqualsABlankImage) {
  PutWord(3, 0x00, 0x05);
  MainBuffer(4, 1) = "0005";
  FlashOlv.Load();
  EXPECT_EQ(session.Ask("rows FlashOlv.MSFlexGrid1"), std::to_string(Rows + 1));
  EXPECT_EQ(FlashCell(0, 0), "Flash cím");
  EXPECT_EQ(FlashCell(Rows, 0), "1FF8");
  EXPECT_EQ(FlashCell(1, 1), "  3FFF  ");
  EXPECT_EQ(FlashCell(1, 4), "  0005  ");
  EXPECT_EQ(FlashCell(Rows, 8), "  3FFF  ");
  EXPECT_EQ(FlashReadBuffer(4, 1), "0005");
  EXPECT_EQ(session.Look("list FlashOlv.List1"), Lines{"Egyforma a Buffer és a beolvasott tartalom!"});
}

TEST_F(MidMemoryReview, MarksTheWordsThatDifferUpToTheLast) {
  PutWord(0, 0x28, 0x05);
  PutWord(8 * Rows - 1, 0x34, 0x00);
  FlashOlv.Load();
  for (const auto& [row, col] : {std::pair{1, 1}, {Rows, 8}}) {
    EXPECT_EQ(session.Ask("color FlashOlv.MSFlexGrid1 " + Place(row, col)), RedCell);
  }
  EXPECT_NE(session.Ask("color FlashOlv.MSFlexGrid1 1 2"), RedCell);
  EXPECT_EQ(session.Look("list FlashOlv.List1"), Lines{" Nem egyforma Buffer és a beolvasott tartalom!"});
}

TEST_F(MidMemoryReview, CannotReachTheVerifyBuffer) {
  PutWord(0, 0x28, 0x05);
  const std::string before(VerifyBuffer(1, 1).View());
  FlashOlv.Load();
  EXPECT_EQ(session.Refused("click FlashOlv.Command1"), "hidden");
  session.Do("click FlashOlv.FlashPuff");
  EXPECT_EQ(MainBuffer(1, 1), "2805");
  EXPECT_EQ(VerifyBuffer(1, 1), before);
}

TEST_F(MidMemoryReview, FlashPuffFillsImageAndGridOfThisPageOnly) {
  PutWord(0, 0x28, 0x05);
  PutWord(8 * Rows - 1, 0x34, 0x00);
  const Lines other = Form1.List1.Lines();
  FlashOlv.Load();
  session.Do("click FlashOlv.FlashPuff");
  EXPECT_EQ(MainBuffer(8, Rows), "3400");
  EXPECT_EQ(session.Ask("cell MSFlexGrid4 1 1"), "2805");
  EXPECT_EQ(session.Ask("cell MSFlexGrid4 " + Place(Rows, 8)), "3400");
  EXPECT_EQ(Newest(), ":  A beolvasott Flash a Pufferbe áttölve.");
  EXPECT_EQ(Form1.List1.Lines(), other);
}

TEST_F(MidMemoryReview, TheTickTakesFlashAndEepromOverAtOnce) {
  PutWord(0, 0x28, 0x05);
  EepromReadBuffer(1, 1) = "A5";
  session.Do("tick Check5");
  FlashOlv.Load();
  EXPECT_EQ(Newest(), ":  A beolvasott Flash a Pufferbe áttölve.");
  EEPROM_Beolvas.Load();
  EXPECT_EQ(Newest(), ":  EEPROM tartalom Pufferbe áttölve.");
  EXPECT_EQ(session.Look("windows"), (Lines{"MDIForm1", "Form1"}));
  EXPECT_EQ(MainBuffer(1, 1), "2805");
  EXPECT_EQ(EepromBuffer(1, 1), "A5");
}

TEST_F(MidMemoryReview, OfTheEepromComparesAndFillsThisPagesGrid) {
  EepromReadBuffer(8, EepromRows) = "5A";
  EEPROM_Beolvas.Load();
  EXPECT_EQ(session.Ask("rows EEPROM_Beolvas.MSFlexGrid2"), std::to_string(EepromRows + 1));
  EXPECT_EQ(session.Ask("cell EEPROM_Beolvas.MSFlexGrid2 0 0"), "EE cím");
  EXPECT_EQ(session.Ask("cell EEPROM_Beolvas.MSFlexGrid2 0 8"), " 7/F");
  EXPECT_EQ(session.Ask("cell EEPROM_Beolvas.MSFlexGrid2 1 1"), "  FF");
  EXPECT_EQ(session.Ask("color EEPROM_Beolvas.MSFlexGrid2 32 8"), RedCell);
  EXPECT_EQ(session.Look("list EEPROM_Beolvas.List1"), Lines{" Nem egyforma a két tartalom!"});
  session.Do("click EEPROM_Beolvas.Áttöltés");
  EXPECT_EQ(session.Ask("cell MSFlexGrid3 32 8"), "5A");
  EXPECT_EQ(Newest(), ":  EEPROM tartalom Pufferbe áttölve.");
}

}  // namespace
}  // namespace zelvo::test
