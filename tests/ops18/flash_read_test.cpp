// Reading a PIC18's program memory: what moves on the wire, what lands where, and how a Cancel ends it.
#include "ops18/flash_read.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "devices/selection.h"
#include "image/buffers.h"
#include "link/delays.h"
#include "link/run_state.h"
#include "operations.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"

namespace zelvo::test {
namespace {

using image::ReadBackBytes;
using image::ReadIndex;
using panel::Form1;

constexpr const char* SmallChip = "PIC18F1220";  // 2048 words
constexpr int SmallWords = 2048;

/// The log of a read from its beginning to the end of word `words`.
WireModel ReadModel(const BoardKind& kind, long long passes, int event, const Words& words) {
  WireModel model(kind, passes);
  model.PowerOn();
  model.Event(event, ":  Flash Beolvasása Indult.");
  model.SetPointerSlowly(0);
  model.Line("+ Állapot");
  for (std::size_t i = 0; i < words.size(); ++i) {
    model.Line("B Állapot " + std::to_string(i + 1));
    model.ReadByte(words[i] & 0xFF);
    model.ReadByte(words[i] >> 8);
  }
  model.Line("- Állapot");
  return model;
}

class FlashRead : public testing::TestWithParam<BoardKind> {};

TEST_P(FlashRead, MovesTheLinesOfTwoTableReadsForEachWord) {
  Operations it(GetParam());
  it.Choose(SmallChip);
  it.Socket(SmallChip, Pattern(8));
  it.ShrinkTo(8);
  const int event = std::stoi(it.session.Ask("var EventCounter"));
  WireModel model = ReadModel(GetParam(), 1, event, Pattern(8));
  model.Event(event + 1, ":  Flash beolvasás kész.");
  model.PowerOff();
  model.Line("+ FlashOlv");
  EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::ReadFlash)));
}

TEST_P(FlashRead, EndsAtTheEndOfTheWordInWhichCancelWasClicked) {
  Operations it(GetParam());
  it.Choose(SmallChip);
  it.Socket(SmallChip, Pattern(8));
  const int event = std::stoi(it.session.Ask("var EventCounter"));
  it.session.Do("at progress Állapot 3 click Állapot.Command1");
  WireModel model = ReadModel(GetParam(), 1, event, {Pattern(3)});
  model.Event(event + 1, ":  Felhasználói megszakítás");
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::ReadFlash)));
}

INSTANTIATE_TEST_SUITE_P(On, FlashRead, testing::ValuesIn(BoardKinds()),
                         [](const auto& kind) { return std::string(kind.param.name); });

class FlashReadCourse : public testing::Test {
 protected:
  void SetUp() override {
    it.Choose(SmallChip);
    it.Socket(SmallChip, Pattern(SmallWords));
  }
  Operations it;
};

TEST_F(FlashReadCourse, TheHighByteLiesAtTheLowerIndexFromIndexOneOn) {
  ReadBackBytes[0] = -1;
  ops18::ReadFlash();
  const Words words = Pattern(SmallWords);
  for (std::size_t i = 0; i < words.size(); ++i) {
    ASSERT_EQ(ReadBackBytes[2 * i + 1], words[i] >> 8) << "word " << i;
    ASSERT_EQ(ReadBackBytes[2 * i + 2], words[i] & 0xFF) << "word " << i;
  }
  EXPECT_EQ(ReadBackBytes[0], -1) << "index 1 is the first used";
  EXPECT_EQ(ReadIndex, 2 * SmallWords + 1) << "the next free element";
  EXPECT_EQ(ReadBackBytes[2 * SmallWords + 1], 0) << "behind the last word";
}

TEST_F(FlashReadCourse, SixteenThousandWordsFillTheElementsToThirtyTwoThousand) {
  it.Choose("PIC18F452");
  it.Socket("PIC18F452", Pattern(16384, 3));
  ops18::ReadFlash();
  EXPECT_EQ(ReadIndex, 32769);
  EXPECT_EQ(ReadBackBytes[32767], Pattern(16384, 3)[16383] >> 8);
  EXPECT_EQ(ReadBackBytes[32768], Pattern(16384, 3)[16383] & 0xFF);
  EXPECT_EQ(ReadBackBytes[32769], 0);
}

TEST_F(FlashReadCourse, TheUpperByteOfTheChipsPointerCountsOnTheLargestChips) {
  it.Choose("PIC18F8722");
  it.Socket("PIC18F8722", Pattern(65536, 5));
  ops18::ReadFlash();
  EXPECT_EQ(ReadIndex, 131073);
  for (const int word : {0x7FFF, 0x8000, 0xFFFF}) {
    EXPECT_EQ(ReadBackBytes[static_cast<std::size_t>(2 * word + 1)],
              Pattern(65536, 5)[static_cast<std::size_t>(word)] >> 8);
  }
}

TEST_F(FlashReadCourse, RunsAtAnEighthOfTheSettingsWaitsRoundedDown) {
  struct Case {
    double setting;
    const char* wait;  // "P 0" below 8: a wait that pumps nothing
  };
  it.ShrinkTo(8);
  for (const Case& speed : {Case{7, "P 0"}, Case{8, "P 1"}, Case{10, "P 1"}, Case{70, "P 8"}, Case{79, "P 9"},
                            Case{100000, "P 12500"}}) {
    link::SpeedSetting = speed.setting;
    link::WaitCount = 3;
    const Lines log = it.WireOf(ops18::ReadFlash);
    int waits = 0;
    for (const std::string& line : log) {
      if (!line.starts_with("P ")) continue;
      ++waits;
      ASSERT_EQ(line, speed.wait);
    }
    // Pointer: 6 instructions of 20 bits at two waits a bit, three elements at three waits each.
    EXPECT_EQ(waits, 6 * (20 * 2 + 9) + 16 * (1 + 12 * 2 + 1 + 8 * 2));
    EXPECT_EQ(link::WaitCount, speed.setting) << "put back at the end";
  }
}

TEST_F(FlashReadCourse, TheWaitIsPutBackAfterACancelToo) {
  link::SpeedSetting = 40;
  it.session.Do("at progress Állapot 2 click Állapot.Command1");
  it.session.Do("at progress Állapot 2 mark in the run");
  ops18::ReadFlash();
  EXPECT_EQ(link::WaitCount, 40);
}

TEST_F(FlashReadCourse, CancelKeepsWhatWasReadAndOpensNoReview) {
  std::fill(ReadBackBytes.begin(), ReadBackBytes.end(), -1);
  it.session.Do("at progress Állapot 5 click Állapot.Command1");
  ops18::ReadFlash();
  EXPECT_EQ(ReadIndex, 11);
  EXPECT_EQ(ReadBackBytes[9], Pattern(5)[4] >> 8);
  EXPECT_EQ(ReadBackBytes[11], -1);
  EXPECT_FALSE(panel::FlashOlv.Loaded());
  EXPECT_FALSE(panel::Állapot.Loaded());
  EXPECT_FALSE(link::UserAbort) << "the next run begins afresh";
  EXPECT_TRUE(Form1.List1.Lines().front().ends_with(":  Felhasználói megszakítás"));
}

TEST_F(FlashReadCourse, CancelDuringTheLastWordStillCounts) {
  it.session.Do("at progress Állapot 2048 click Állapot.Command1");
  ops18::ReadFlash();
  EXPECT_EQ(ReadIndex, 2 * SmallWords + 1) << "the word was read to its end";
  EXPECT_FALSE(panel::FlashOlv.Loaded());
  EXPECT_TRUE(Form1.List1.Lines().front().ends_with(":  Felhasználói megszakítás"));
}

TEST_F(FlashReadCourse, CancelIsServedInsideTheWaitsOfABit) {
  // Passes from the first update on: the update's own, then those of the bits. Word 1 has 2 bytes of 42
  // waits.
  it.session.Do("at progress Állapot 1 at pump 50 click Állapot.Command1");
  ops18::ReadFlash();
  EXPECT_EQ(ReadIndex, 3);
}

TEST_F(FlashReadCourse, AStaleReviewGoesAwayInAnyCase) {
  ops18::ReadFlash();
  ASSERT_TRUE(panel::FlashOlv.Loaded());
  const Lines again = it.WireOf(ops18::ReadFlash);
  ASSERT_GT(again.size(), 2U);
  EXPECT_EQ(again[again.size() - 2], "- FlashOlv");
  EXPECT_EQ(again.back(), "+ FlashOlv");
  it.session.Do("at progress Állapot 2 click Állapot.Command1");
  EXPECT_EQ(it.WireOf(ops18::ReadFlash).back(), "- FlashOlv");
  EXPECT_FALSE(panel::FlashOlv.Loaded());
}

TEST_F(FlashReadCourse, ACancelFromBeforeTheRunIsForgotten) {
  link::UserAbort = true;
  ops18::ReadFlash();
  EXPECT_EQ(ReadIndex, 2 * SmallWords + 1);
  EXPECT_TRUE(panel::FlashOlv.Loaded());
}

TEST_F(FlashReadCourse, TheProgressWindowCountsWords) {
  EXPECT_EQ(panel::Állapot.Caption, "Flash Olvasás állapota");
  it.session.Do({"at progress Állapot 1 get Állapot.Command1", "at progress Állapot 1000 windows"});
  panel::Állapot.ProgressBar1.Value = 77;
  int min = -1, max = -1, first = -1;
  panel::Állapot.Command1.DblClick = [&] {
    min = panel::Állapot.ProgressBar1.Min;
    max = panel::Állapot.ProgressBar1.Max;
    first = panel::Állapot.ProgressBar1.Value;
  };
  it.session.Do("at progress Állapot 1 dblclick Állapot.Command1");
  ops18::ReadFlash();
  EXPECT_EQ(max, SmallWords);
  EXPECT_EQ(min, 0);
  EXPECT_EQ(first, 1);
  EXPECT_EQ(panel::Állapot.Command1.Caption.Get(), "Cancel");
  EXPECT_TRUE(panel::Állapot.OnTop);
}

TEST_F(FlashReadCourse, LoadingTheProgressWindowSetsTheBarToItsMinimum) {
  link::UserAbort = true;
  panel::Állapot.Load();
  EXPECT_FALSE(link::UserAbort);
  EXPECT_EQ(panel::Állapot.ProgressBar1.Value.Get(), panel::Állapot.ProgressBar1.Min.Get());
  EXPECT_EQ(panel::Állapot.ProgressBar1.Max.Get(), SmallWords);
}

TEST_F(FlashReadCourse, AnUpdateOfTheBarPumpsOnceWithoutAWait) {
  it.ShrinkTo(8);
  it.session.Do("at progress Állapot 2 at pump 1 mark in the update");
  const Lines log = it.WireOf(ops18::ReadFlash);
  const auto update = std::find(log.begin(), log.end(), "B Állapot 2");
  ASSERT_LT(update, log.end() - 1);
  EXPECT_EQ(*(update + 1), "# in the update");
}

TEST_F(FlashReadCourse, ASilentSocketIsReadToTheEndAndGivesAUniformValue) {
  it.session.Do("socket none");
  ops18::ReadFlash();
  for (int i = 1; i <= 2 * SmallWords; ++i) ASSERT_EQ(ReadBackBytes[static_cast<std::size_t>(i)], 255) << i;
  EXPECT_TRUE(panel::FlashOlv.Loaded());
}

TEST_F(FlashReadCourse, AByteMovesTheIndexByOneAndAWordByTwo) {
  link::WaitCount = 1;
  ReadIndex = 10;
  const Lines byte = it.WireOf(ops18::ReadFlashByte);
  EXPECT_EQ(ReadIndex, 11);
  const Lines word = it.WireOf(ops18::MEMolvasLH);
  EXPECT_EQ(ReadIndex, 13);
  EXPECT_EQ(word.size(), 2 * byte.size());
}

TEST_F(FlashReadCourse, AByteIsStoredAtTheIndexItself) {
  // An empty socket floats high.
  it.session.Do("socket none");
  ReadBackBytes[20] = ReadBackBytes[21] = -1;
  ReadIndex = 20;
  ops18::ReadFlashByte();
  EXPECT_EQ(ReadBackBytes[20], 255);
  EXPECT_EQ(ReadBackBytes[21], -1);
}

TEST_F(FlashReadCourse, AnIndexAboveTheBoundIsAFault) {
  EXPECT_EQ(ReadBackBytes.size(), 140001U);
  ReadIndex = 140000;
  EXPECT_THROW(ops18::MEMolvasLH(), std::out_of_range);
  ReadIndex = 139999;
  EXPECT_NO_THROW(ops18::MEMolvasLH());
}

}  // namespace
}  // namespace zelvo::test
