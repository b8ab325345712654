// The review of an EEPROM read: what is shown, compared, taken over or left, on both pages.
#include <gtest/gtest.h>

#include "image/buffers.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using image::EepromBuffer;
using image::EepromReadBuffer;
using panel::EEPROM_Beolvas;
using panel::Form1;

constexpr int RedCell = 0xC0C0FF;
constexpr const char* EqualText = "Egyforma a két tartalom!";
constexpr const char* DifferentText = " Nem egyforma a két tartalom!";
constexpr const char* Taken = ":  EEPROM tartalom Pufferbe áttölve.";
constexpr const char* Left = ":  EEPROM tartalom Nem lett Pufferbe áttölve.";

/// One of the two pages with a chip of `rows` rows of EEPROM.
struct Page {
  const char* name;
  const char* tab;
  const char* choice;
  int rows;
  const char* grid;  ///< of the main window
  const char* log;
  const char* otherLog;
};

class EepromReview : public testing::TestWithParam<Page> {
 protected:
  void SetUp() override {
    session.Do({"board lpt", "start", std::string("tab ") + GetParam().tab,
                std::string("choose ") + GetParam().choice});
    for (int row = 1; row <= GetParam().rows; ++row) {
      for (int col = 1; col <= 8; ++col) EepromReadBuffer(col, row) = "FF";
    }
  }
  std::string Cell(int row, int col) {
    return session.Ask("cell EEPROM_Beolvas.MSFlexGrid2 " + std::to_string(row) + ' ' + std::to_string(col));
  }
  std::string PageCell(int row, int col) {
    return session.Ask("cell " + std::string(GetParam().grid) + ' ' + std::to_string(row) + ' ' +
                       std::to_string(col));
  }
  int RedCells() const {
    int red = 0;
    for (int row = 1; row <= GetParam().rows; ++row) {
      for (int col = 1; col <= 8; ++col) {
        if (EEPROM_Beolvas.MSFlexGrid2.CellBackColor(row, col) == RedCell) ++red;
      }
    }
    return red;
  }
  /// The newest line of the page's own log; the other log must have stayed as it was at the set-up.
  std::string NewestEvent() {
    const std::string line = session.Look(std::string("list ") + GetParam().log).front();
    return line.substr(line.find(":  ") + 11);
  }
  Lines OtherLog() { return session.Look(std::string("list ") + GetParam().otherLog); }
  BenchSession session;
};

TEST_P(EepromReview, BearsItsCaptionAndStaysOnTop) {
  EEPROM_Beolvas.Load();
  EXPECT_EQ(session.Ask("get EEPROM_Beolvas.Mégse"), "Kilépés");
  EXPECT_TRUE(EEPROM_Beolvas.OnTop);
}

TEST_P(EepromReview, TheGridIsLaidOutLikeTheMainEepromGrid) {
  EEPROM_Beolvas.Load();
  const int rows = GetParam().rows;
  EXPECT_EQ(session.Ask("rows EEPROM_Beolvas.MSFlexGrid2"), std::to_string(rows + 1));
  EXPECT_EQ(Cell(0, 0), "EE cím");
  const char* const headings[] = {" 0/8", " 1/9", " 2/A", " 3/B", " 4/C", " 5/D", " 6/E", " 7/F"};
  for (int col = 1; col <= 8; ++col) EXPECT_EQ(Cell(0, col), headings[col - 1]);
  EXPECT_EQ(Cell(1, 0), "00");
  EXPECT_EQ(Cell(2, 0), "08");
  EXPECT_EQ(Cell(rows, 0), rows == 32 ? "F8" : rows == 128 ? "3F8" : "38");
  EXPECT_EQ(EEPROM_Beolvas.MSFlexGrid2.ColWidth(0), 640);
  for (int col = 1; col <= 8; ++col) {
    EXPECT_EQ(EEPROM_Beolvas.MSFlexGrid2.ColWidth(col), 500);
    EXPECT_EQ(EEPROM_Beolvas.MSFlexGrid2.ColAlignment(col), 5);
  }
}

TEST_P(EepromReview, ShowsTwoBlanksAndTheDigitsOfEachByte) {
  const int last = GetParam().rows;
  EepromReadBuffer(1, 1) = "00";
  EepromReadBuffer(8, 1) = "0A";
  EepromReadBuffer(1, 2) = "12";
  EepromReadBuffer(8, last) = "C3";
  EEPROM_Beolvas.Load();
  EXPECT_EQ(Cell(1, 1), "  00");
  EXPECT_EQ(Cell(1, 8), "  0A");
  EXPECT_EQ(Cell(2, 1), "  12");
  EXPECT_EQ(Cell(last, 8), "  C3");
  EXPECT_EQ(Cell(3, 3), "  FF");
}

TEST_P(EepromReview, EqualContentsGiveNoColouredCellAndTheEqualLine) {
  EEPROM_Beolvas.Load();
  EXPECT_EQ(session.Look("list EEPROM_Beolvas.List1"), Lines{EqualText});
  EXPECT_EQ(RedCells(), 0);
}

TEST_P(EepromReview, CellsThatDifferAreRedAndTheOthersAreNot) {
  const int last = GetParam().rows;
  EepromReadBuffer(2, 3) = "00";
  EepromBuffer(8, last) = "00";
  EEPROM_Beolvas.Load();
  EXPECT_EQ(session.Look("list EEPROM_Beolvas.List1"), Lines{DifferentText});
  EXPECT_EQ(RedCells(), 2);
  EXPECT_EQ(session.Ask("color EEPROM_Beolvas.MSFlexGrid2 3 2"), std::to_string(RedCell));
  EXPECT_EQ(session.Ask("color EEPROM_Beolvas.MSFlexGrid2 " + std::to_string(last) + " 8"),
            std::to_string(RedCell));
}

TEST_P(EepromReview, TheTextsAreComparedNotTheirValues) {
  EepromReadBuffer(1, 1) = "AB";
  EepromBuffer(1, 1) = "ab";
  EEPROM_Beolvas.Load();
  EXPECT_EQ(RedCells(), 1);
}

TEST_P(EepromReview, WhatLiesBehindTheChipIsNeitherComparedNorTaken) {
  const int behind = GetParam().rows + 1;
  EepromBuffer(1, behind) = "00";
  EepromReadBuffer(1, behind) = "11";
  EEPROM_Beolvas.Load();
  EXPECT_EQ(session.Look("list EEPROM_Beolvas.List1"), Lines{EqualText});
  session.Do("click EEPROM_Beolvas.Áttöltés");
  EXPECT_EQ(EepromBuffer(1, behind), "00");
}

TEST_P(EepromReview, OpeningAgainForgetsTheOldColours) {
  EepromBuffer(1, 1) = "00";
  EEPROM_Beolvas.Load();
  EXPECT_EQ(RedCells(), 1);
  EEPROM_Beolvas.Unload();
  EepromBuffer(1, 1) = "FF";
  EEPROM_Beolvas.Load();
  EXPECT_EQ(RedCells(), 0);
  EXPECT_EQ(session.Look("list EEPROM_Beolvas.List1"), Lines{EqualText});
}

TEST_P(EepromReview, ÁttöltésTakesTheReadOverOnItsPageAndClosesTheWindow) {
  const int last = GetParam().rows;
  EepromReadBuffer(1, 1) = "12";
  EepromReadBuffer(8, last) = "34";
  EEPROM_Beolvas.Load();
  const Lines other = OtherLog();
  session.Do("click EEPROM_Beolvas.Áttöltés");
  EXPECT_EQ(EepromBuffer(1, 1), "12");
  EXPECT_EQ(EepromBuffer(8, last), "34");
  EXPECT_EQ(EepromBuffer(2, 1), "FF");
  EXPECT_EQ(PageCell(1, 1), "12");
  EXPECT_EQ(PageCell(last, 8), "34");
  EXPECT_EQ(NewestEvent(), Taken);
  EXPECT_EQ(OtherLog(), other);
  EXPECT_FALSE(EEPROM_Beolvas.Loaded());
}

TEST_P(EepromReview, MégseLeavesEverythingAndSaysSo) {
  EepromReadBuffer(1, 1) = "12";
  EEPROM_Beolvas.Load();
  const Lines other = OtherLog();
  session.Do("click EEPROM_Beolvas.Mégse");
  EXPECT_EQ(EepromBuffer(1, 1), "FF");
  EXPECT_EQ(PageCell(1, 1), "FF");
  EXPECT_EQ(NewestEvent(), Left);
  EXPECT_EQ(OtherLog(), other);
  EXPECT_FALSE(EEPROM_Beolvas.Loaded());
}

TEST_P(EepromReview, ClosingItByItsFrameLogsNothing) {
  EEPROM_Beolvas.Load();
  EXPECT_EQ(session.WireOf("close EEPROM_Beolvas"), Lines{"- EEPROM_Beolvas"});
}

TEST_P(EepromReview, WithEitherAutomaticTickTheTakeOverComesAtOnce) {
  for (panel::CheckBox* box : {&Form1.Check2, &Form1.Check5}) {
    Form1.Check2.Value = Form1.Check5.Value = false;
    box->Value = true;
    EepromBuffer(1, 1) = "00";
    session.BeginWire();
    EEPROM_Beolvas.Load();
    const Lines log = session.EndWire();
    ASSERT_EQ(log.size(), 3U) << box->Name();
    EXPECT_EQ(log[0], "+ EEPROM_Beolvas");
    EXPECT_TRUE(log[1].starts_with(std::string("L ") + GetParam().log)) << log[1];
    EXPECT_TRUE(log[1].ends_with(Taken)) << log[1];
    EXPECT_EQ(log[2], "- EEPROM_Beolvas");
    EXPECT_EQ(EepromBuffer(1, 1), "FF") << box->Name();
    EXPECT_FALSE(EEPROM_Beolvas.Loaded());
  }
}

INSTANTIATE_TEST_SUITE_P(
    Page, EepromReview,
    testing::Values(Page{"Pic18", "2", "Combo1 PIC18F452", 32, "MSFlexGrid2", "List1", "List4"},
                    Page{"LargePic18", "2", "Combo1 PIC18F8720", 128, "MSFlexGrid2", "List1", "List4"},
                    Page{"MidRange", "1", "Combo2 PIC16F84A", 8, "MSFlexGrid3", "List4", "List1"}),
    [](const auto& page) { return std::string(page.param.name); });

TEST(EepromReviewOfNothing, ShowsTheHeadingAloneAndEqualContents) {
  BenchSession session;
  session.Do({"board lpt", "start", "tab 2", "choose Combo1 PIC18F2410"});
  EEPROM_Beolvas.Load();
  EXPECT_EQ(session.Ask("rows EEPROM_Beolvas.MSFlexGrid2"), "1");
  EXPECT_EQ(session.Look("list EEPROM_Beolvas.List1"), Lines{EqualText});
}

/// The window stays open while the operator goes on; what he takes over then is what was read and is there.
class EepromReviewLeftOpen : public testing::Test {
 protected:
  void SetUp() override {
    session.Do({"board lpt", "start", "tab 2", "choose Combo1 PIC18F452"});
    for (int row = 1; row <= 32; ++row) {
      for (int col = 1; col <= 8; ++col) EepromReadBuffer(col, row) = "5A";
    }
    EEPROM_Beolvas.Load();
  }
  BenchSession session;
};

TEST_F(EepromReviewLeftOpen, OnAPageWithASmallerGridTheBufferIsFilledAndTheWindowClosesAllTheSame) {
  session.Do({"tab 1", "click EEPROM_Beolvas.Áttöltés"});
  EXPECT_EQ(EepromBuffer(1, 1), "5A");
  EXPECT_EQ(EepromBuffer(8, 32), "5A");
  EXPECT_TRUE(session.Look("list List4").front().ends_with(Taken));
  EXPECT_FALSE(EEPROM_Beolvas.Loaded());
}

TEST_F(EepromReviewLeftOpen, ForASmallerChipFillsThatChipOnly) {
  session.Do({"tab 1", "choose Combo2 PIC16F84A", "click EEPROM_Beolvas.Áttöltés"});
  EXPECT_EQ(session.Ask("cell MSFlexGrid3 8 8"), "5A");
  EXPECT_EQ(EepromBuffer(8, 8), "5A");
  EXPECT_NE(EepromBuffer(1, 9), "5A");
}

TEST_F(EepromReviewLeftOpen, ForALargerChipFillsWhatWasRead) {
  session.Do({"choose Combo1 PIC18F8720", "click EEPROM_Beolvas.Áttöltés"});
  EXPECT_EQ(EepromBuffer(8, 32), "5A");
  EXPECT_EQ(EepromBuffer(1, 33), "FF");
}

TEST(EepromReviewOfARead, StandsOpenBehindTheButtonAndGoesByItselfWithTheTick) {
  BenchSession session;
  session.Do(
      {"board lpt", "start", "tab 2", "choose Combo1 PIC18F452", "socket PIC18F452", "click EEPROMOlvas"});
  EXPECT_EQ(session.Look("windows"), (Lines{"MDIForm1", "Form1", "EEPROM_Beolvas"}));
  EXPECT_EQ(session.Look("list EEPROM_Beolvas.List1"), Lines{EqualText});
  session.Do({"tick Check2", "click EEPROMOlvas"});
  EXPECT_EQ(session.Look("windows"), (Lines{"MDIForm1", "Form1"}));
}

}  // namespace
}  // namespace zelvo::test
