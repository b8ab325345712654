// The review of a Flash read: what is shown, compared, taken over or left.
#include <gtest/gtest.h>

#include <algorithm>

#include "devices/selection.h"
#include "image/buffers.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using image::FlashReadBuffer;
using image::MainBuffer;
using image::ReadBackBytes;
using image::VerifyBuffer;
using panel::FlashOlv;
using panel::Form1;

constexpr int RedCell = 0xC0C0FF;
constexpr const char* EqualText = "Egyforma a Buffer és a beolvasott tartalom!";
constexpr const char* DifferentText = " Nem egyforma Buffer és a beolvasott tartalom!";

/// A chip of 2048 words, and bytes as a read leaves them.
class FlashReview : public testing::Test {
 protected:
  void SetUp() override {
    session.Do({"board lpt", "start", "tab 2", "choose Combo1 PIC18F1220"});
    std::fill(ReadBackBytes.begin(), ReadBackBytes.end(), 255);
  }
  /// Puts a word at an index, high byte first.
  static void PutWord(int index, int high, int low) {
    ReadBackBytes[static_cast<std::size_t>(2 * index + 1)] = high;
    ReadBackBytes[static_cast<std::size_t>(2 * index + 2)] = low;
  }
  std::string Cell(const std::string& place) { return session.Ask("cell FlashOlv.MSFlexGrid1 " + place); }
  int Color(const std::string& place) {
    return std::stoi(session.Ask("color FlashOlv.MSFlexGrid1 " + place));
  }
  std::string NewestEvent(const char* list = "List1") {
    const std::string line = session.Look(std::string("list ") + list).front();
    return line.substr(line.find(":  ") + 11);
  }
  BenchSession session;
};

TEST_F(FlashReview, BearsItsCaptions) {
  FlashOlv.Load();
  EXPECT_EQ(session.Ask("get FlashOlv.Command1"), "Verify Puffer Feltöltése");
  EXPECT_EQ(session.Ask("get FlashOlv.Mégse"), "Kilépés");
  EXPECT_FALSE(FlashOlv.Command1.ToolTip.Get().empty());
  EXPECT_TRUE(FlashOlv.OnTop);
}

TEST_F(FlashReview, OfASmallerChipChosenBeforeLeavesTheRestOfTheImageErased) {
  PutWord(0, 0x12, 0x34);
  FlashOlv.Load();
  session.Do({"choose Combo1 PIC18F1320", "click FlashOlv.FlashPuff"});
  EXPECT_EQ(session.Ask("var MainBuffer(1,1)"), "1234");
  EXPECT_EQ(session.Ask("var MainBuffer(1,257)"), "FFFF") << "the first word that was not read";
  EXPECT_EQ(session.Ask("var MainBuffer(8,512)"), "FFFF");
}

TEST_F(FlashReview, OfALargerChipChosenBeforeFillsTheSmallerOnly) {
  session.Do({"choose Combo1 PIC18F1320"});
  FlashOlv.Load();
  PutWord(0, 0xFF, 0xFF);
  session.Do({"choose Combo1 PIC18F1220", "click FlashOlv.FlashPuff"});
  EXPECT_EQ(session.Ask("rows MSFlexGrid1"), "257");
  EXPECT_FALSE(FlashOlv.Loaded());
}

TEST_F(FlashReview, ShowsWordsHighByteFirstWithTwoBlanksOnEitherSide) {
  PutWord(0, 0x12, 0x0A);
  PutWord(7, 0x00, 0x00);
  PutWord(8, 0x0F, 0xA0);
  PutWord(2047, 0xAB, 0xCD);
  FlashOlv.Load();
  EXPECT_EQ(Cell("1 1"), "  120A  ");
  EXPECT_EQ(Cell("1 8"), "  0000  ");
  EXPECT_EQ(Cell("2 1"), "  0FA0  ");
  EXPECT_EQ(Cell("256 8"), "  ABCD  ");
  EXPECT_EQ(Cell("3 3"), "  FFFF  ");
  EXPECT_EQ(FlashReadBuffer(1, 1), "120A") << "without blanks";
  EXPECT_EQ(FlashReadBuffer(8, 256), "ABCD");
}

TEST_F(FlashReview, TheGridIsLaidOutLikeTheMainFlashGrid) {
  FlashOlv.Load();
  EXPECT_EQ(session.Ask("rows FlashOlv.MSFlexGrid1"), "257");
  EXPECT_EQ(Cell("0 0"), "Flash cím");
  const char* headings[] = {" 0 / 8", " 1 / 9", " 2 / A", " 3 / B", " 4 / C", " 5 / D", " 6 / E", " 7 / F"};
  for (int col = 1; col <= 8; ++col) {
    EXPECT_EQ(Cell("0 " + std::to_string(col)), headings[col - 1]);
    EXPECT_EQ(Cell("0 " + std::to_string(col)), session.Ask("cell MSFlexGrid1 0 " + std::to_string(col)));
  }
  EXPECT_EQ(Cell("1 0"), "0000");
  EXPECT_EQ(Cell("2 0"), "0008");
  EXPECT_EQ(Cell("256 0"), "07F8");
  for (int col = 0; col <= 8; ++col) {
    EXPECT_EQ(FlashOlv.MSFlexGrid1.ColWidth(col), Form1.MSFlexGrid1.ColWidth(col));
    EXPECT_EQ(FlashOlv.MSFlexGrid1.ColAlignment(col), panel::Grid::AlignCentre);
  }
}

TEST_F(FlashReview, EqualContentsGiveNoColouredCellAndTheEqualLine) {
  FlashOlv.Load();
  EXPECT_EQ(session.Look("list FlashOlv.List1"), Lines{EqualText});
  for (int row = 1; row <= 256; ++row) {
    for (int col = 1; col <= 8; ++col) {
      ASSERT_NE(FlashOlv.MSFlexGrid1.CellBackColor(row, col), RedCell) << row << " " << col;
    }
  }
}

TEST_F(FlashReview, CellsThatDifferAreRedAndTheOthersAreNot) {
  PutWord(9, 0x12, 0x34);
  MainBuffer(8, 256) = "0000";
  FlashOlv.Load();
  EXPECT_EQ(session.Look("list FlashOlv.List1"), Lines{DifferentText});
  EXPECT_EQ(Color("2 2"), RedCell);
  EXPECT_EQ(Color("256 8"), RedCell);
  int red = 0;
  for (int row = 1; row <= 256; ++row) {
    for (int col = 1; col <= 8; ++col) red += FlashOlv.MSFlexGrid1.CellBackColor(row, col) == RedCell ? 1 : 0;
  }
  EXPECT_EQ(red, 2);
}

TEST_F(FlashReview, WhatLiesBehindTheChipIsNotCompared) {
  MainBuffer(1, 257) = "0000";
  FlashOlv.Load();
  EXPECT_EQ(session.Look("list FlashOlv.List1"), Lines{EqualText});
}

TEST_F(FlashReview, TheTextsAreComparedNotTheirValues) {
  PutWord(0, 0xAB, 0xCD);
  MainBuffer(1, 1) = "abcd";
  FlashOlv.Load();
  EXPECT_EQ(Color("1 1"), RedCell);
}

TEST_F(FlashReview, OpeningAgainForgetsTheOldColours) {
  MainBuffer(1, 1) = "0000";
  FlashOlv.Load();
  EXPECT_EQ(Color("1 1"), RedCell);
  FlashOlv.Unload();
  MainBuffer(1, 1) = "FFFF";
  FlashOlv.Load();
  EXPECT_NE(Color("1 1"), RedCell);
  EXPECT_EQ(session.Look("list FlashOlv.List1"), Lines{EqualText});
}

TEST_F(FlashReview, FlashPuffTakesTheReadOverAndClosesTheWindow) {
  PutWord(0, 0x12, 0x34);
  PutWord(2047, 0x56, 0x78);
  MainBuffer(1, 257) = "0000";
  FlashOlv.Load();
  session.Do("click FlashOlv.FlashPuff");
  EXPECT_EQ(MainBuffer(1, 1), "1234");
  EXPECT_EQ(MainBuffer(8, 256), "5678");
  EXPECT_EQ(MainBuffer(1, 257), "0000") << "behind the chip";
  EXPECT_EQ(session.Ask("cell MSFlexGrid1 1 1"), "1234");
  EXPECT_EQ(session.Ask("cell MSFlexGrid1 256 8"), "5678");
  EXPECT_EQ(NewestEvent(), ":  A beolvasott Flash a Pufferbe áttölve.");
  EXPECT_FALSE(FlashOlv.Loaded());
}

TEST_F(FlashReview, Command1FillsTheVerifyBufferAndTheWindowStays) {
  PutWord(0, 0x12, 0x34);
  FlashReadBuffer(8, 66000) = "4321";
  FlashOlv.Load();
  session.Do("click FlashOlv.Command1");
  EXPECT_EQ(VerifyBuffer(1, 1), "1234");
  EXPECT_EQ(VerifyBuffer(8, 66000), "4321") << "the whole buffer is copied";
  EXPECT_EQ(MainBuffer(1, 1), "FFFF");
  EXPECT_EQ(NewestEvent(), ":  A Beolvasott Flash Bájtok Verify Pufferbe Betöltve.");
  EXPECT_TRUE(FlashOlv.Loaded());
}

TEST_F(FlashReview, MégseLeavesEverythingAndSaysSo) {
  PutWord(0, 0x12, 0x34);
  FlashOlv.Load();
  session.Do("click FlashOlv.Mégse");
  EXPECT_EQ(MainBuffer(1, 1), "FFFF");
  EXPECT_EQ(NewestEvent(), ":  A beolvasott Flash tartalom Nem lett Pufferbe áttölve.");
  EXPECT_FALSE(FlashOlv.Loaded());
}

TEST_F(FlashReview, ClosingItByItsFrameLogsNothing) {
  FlashOlv.Load();
  EXPECT_EQ(session.WireOf("close FlashOlv"), Lines{"- FlashOlv"});
}

TEST_F(FlashReview, WithEitherAutomaticTickTheTakeOverComesAtOnce) {
  for (const char* box : {"Check2", "Check5"}) {
    Form1.Check2.Value = Form1.Check5.Value = false;
    dynamic_cast<panel::CheckBox*>(Form1.Find(box))->Value = true;
    MainBuffer(1, 1) = "0000";
    session.BeginWire();
    FlashOlv.Load();
    const Lines log = session.EndWire();
    ASSERT_EQ(log.size(), 3U) << box;
    EXPECT_EQ(log[0], "+ FlashOlv");
    EXPECT_TRUE(log[1].ends_with(":  A beolvasott Flash a Pufferbe áttölve."));
    EXPECT_EQ(log[2], "- FlashOlv");
    EXPECT_EQ(MainBuffer(1, 1), "FFFF") << box;
    EXPECT_FALSE(FlashOlv.Loaded());
  }
}

TEST_F(FlashReview, OnTheMidRangePageTheVerifyBufferCannotBeFilled) {
  session.Do({"tab 1", "choose Combo2 PIC16F84A"});
  PutWord(0, 0x12, 0x34);
  FlashOlv.Load();
  EXPECT_EQ(session.Ask("visible FlashOlv.Command1"), "0");
  EXPECT_EQ(session.Refused("click FlashOlv.Command1"), "hidden");
  FlashOlv.Unload();
  session.Do({"tab 2", "choose Combo1 PIC18F1220"});
  FlashOlv.Load();
  EXPECT_EQ(session.Ask("visible FlashOlv.Command1"), "1");
}

TEST_F(FlashReview, OnTheMidRangePageItServesThatPagesGridAndList) {
  session.Do({"tab 1", "choose Combo2 PIC16F84A"});
  PutWord(0, 0x12, 0x34);
  FlashOlv.Load();
  const std::string before = session.Look("list List1").front();
  session.Do("click FlashOlv.FlashPuff");
  EXPECT_EQ(session.Ask("cell MSFlexGrid4 1 1"), "1234");
  EXPECT_EQ(NewestEvent("List4"), ":  A beolvasott Flash a Pufferbe áttölve.");
  EXPECT_EQ(session.Look("list List1").front(), before);
  FlashOlv.Load();
  session.Do("click FlashOlv.Mégse");
  EXPECT_EQ(NewestEvent("List4"), ":  A beolvasott Flash tartalom Nem lett Pufferbe áttölve.");
}

TEST_F(FlashReview, AReadEndsInIt) {
  session.Do({"socket PIC18F1220", "click FlashOl"});
  EXPECT_EQ(session.Look("windows"), (Lines{"MDIForm1", "Form1", "FlashOlv"}));
  EXPECT_EQ(session.Look("list FlashOlv.List1"), Lines{EqualText});
}

TEST_F(FlashReview, WithTheTickAReadGoesIntoTheImageBeforeTheOperatorCanAct) {
  session.Do({"socket PIC18F1220", "tick Check2", "click FlashOl"});
  EXPECT_EQ(session.Look("windows"), (Lines{"MDIForm1", "Form1"}));
  EXPECT_EQ(NewestEvent(), ":  A beolvasott Flash a Pufferbe áttölve.");
}

}  // namespace
}  // namespace zelvo::test
