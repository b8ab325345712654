// Writing a PIC18's program memory, full and in verify-write mode: every transaction of every chip, and what
// the operator sees.
#include "ops18/flash_write.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "devices/selection.h"
#include "image/buffers.h"
#include "image/fills.h"
#include "link/delays.h"
#include "link/run_state.h"
#include "operations.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "write_model.h"

namespace zelvo::test {
namespace {

using panel::Form1;

const ChipRow& Row(std::string_view number) {
  return *std::find_if(std::begin(ChipRows), std::end(ChipRows),
                       [number](const ChipRow& row) { return row.number == number; });
}

/// Puts a chip's name into the combo without choosing it, with an image of `words` words.
void Take(const ChipRow& chip, const Words& words) {
  Form1.Combo1.Text = chip.Name();
  Operations::ShrinkTo(static_cast<int>(words.size()));
  Operations::FillMain(words);
}

int NextEvent(Operations& it) {
  return std::stoi(it.session.Ask("var EventCounter"));
}

/// Three blocks of 64 bytes: blank words at the places where groups of 4, 16 and 32 words begin and end.
Words Mixed() {
  Words words = Pattern(96);
  for (int i = 4; i < 8; ++i) words[static_cast<std::size_t>(i)] = ErasedWord;    // one group of 4
  for (int i = 9; i < 12; ++i) words[static_cast<std::size_t>(i)] = ErasedWord;   // not a whole one
  for (int i = 16; i < 32; ++i) words[static_cast<std::size_t>(i)] = ErasedWord;  // one group of 16
  for (int i = 32; i < 64; ++i) words[static_cast<std::size_t>(i)] = ErasedWord;  // one group of 32
  for (int i = 65; i < 96; ++i) words[static_cast<std::size_t>(i)] = ErasedWord;  // all but one of 32
  return words;
}

int Count(const Lines& log, std::string_view line) {
  return static_cast<int>(std::count(log.begin(), log.end(), line));
}

TEST(FlashWriteOnEveryChip, AFullWriteErasesTheBlocksAndWritesTheGroupsThatAreNotBlank) {
  Operations it;
  const Words words = Mixed();
  for (const ChipRow& chip : ChipRows) {
    Take(chip, words);
    const Lines expected = FlashWriteLog(BoardKinds().front(), 10, NextEvent(it), chip, words, nullptr);
    ASSERT_TRUE(SameLog(expected, it.WireOf(ops18::WriteFlash))) << chip.number;
  }
}

TEST(FlashWriteOnEveryChip, AVerifyWriteErasesAndWritesTheBlocksThatDifferBlankPanelsToo) {
  Operations it;
  it.session.Do("tick Check3");
  const Words words = Mixed();
  Words held = words;
  held[31] = 0x1234;  // the last word of the first block
  held[64] = 0x4321;  // the first of the third
  for (const ChipRow& chip : ChipRows) {
    Take(chip, words);
    Operations::FillVerify(held);
    const Lines expected = FlashWriteLog(BoardKinds().front(), 10, NextEvent(it), chip, words, &held);
    ASSERT_TRUE(SameLog(expected, it.WireOf(ops18::WriteFlash))) << chip.number;
  }
}

class FlashWriteOn : public testing::TestWithParam<BoardKind> {};

TEST_P(FlashWriteOn, BothModesMoveTheBoardsOwnLines) {
  Operations it(GetParam());
  const Words words = Mixed();
  const Words held(96, ErasedWord);
  for (const std::string_view number : {"1220", "2221", "4550", "8722"}) {
    for (const Words* compare : {static_cast<const Words*>(nullptr), &held}) {
      Take(Row(number), words);
      it.session.Do(compare == nullptr ? "untick Check3" : "tick Check3");
      Operations::FillVerify(held);
      const Lines expected = FlashWriteLog(GetParam(), 10, NextEvent(it), Row(number), words, compare);
      ASSERT_TRUE(SameLog(expected, it.WireOf(ops18::WriteFlash))) << number;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Board, FlashWriteOn, testing::ValuesIn(BoardKinds()),
                         [](const auto& kind) { return std::string(kind.param.name); });

class FlashWrite : public testing::Test {
 protected:
  Operations it;
};

TEST_F(FlashWrite, ABlankImageIsErasedAndWritesNoPanel) {
  for (const std::string_view number : {"452", "4550", "8722"}) {
    Take(Row(number), Words(96, ErasedWord));
    const int event = NextEvent(it);
    const Lines log = it.WireOf(ops18::WriteFlash);
    WireModel model(BoardKinds().front(), 10);
    AddCodeErase(model, Row(number));
    model.PowerOn();
    model.Event(event, ":  Flash Memória Irása Indult.");
    if (Row(number).buffer == 8) model.CodeAccess();
    model.Line("+ FlashÍrÁllapot");
    for (int row = 1; row <= 12; row += std::max(1, Row(number).buffer / 16)) {
      model.Line("B FlashÍrÁllapot " + std::to_string(row));
    }
    model.Line("- FlashÍrÁllapot");
    model.Event(event + 1, ":  Flash Írása Kész.");
    model.Event(event + 2, ":  Verify Puffer feltöltve");
    model.PowerOff();
    EXPECT_TRUE(SameLog(model.Log(), log)) << number;
    EXPECT_EQ(Count(log, "S9"), 0) << number;
  }
}

TEST_F(FlashWrite, InVerifyModeEqualBuffersMoveNothingButEntryAndSetUp) {
  it.session.Do("tick Check3");
  const Words words = Pattern(96);
  Operations::FillVerify(words);
  for (const std::string_view number : {"452", "4550", "8722"}) {
    Take(Row(number), words);
    const int event = NextEvent(it);
    const Lines log = it.WireOf(ops18::WriteFlash);
    WireModel model(BoardKinds().front(), 10);
    model.PowerOn();
    model.Event(event, ":  Flash Memória Irása Indult.");
    if (Row(number).buffer == 8) {
      model.Core({0x8EA6, 0x8CA6});
      model.SetPointer(0x3C0006);
      model.Frame("1100", 0);
    }
    model.CodeAccess();
    model.Line("+ FlashÍrÁllapot");
    for (const int row : {1, 5, 9}) model.Line("B FlashÍrÁllapot " + std::to_string(row));
    model.Line("- FlashÍrÁllapot");
    if (Row(number).buffer != 8) model.Core({0x94A6});
    model.Event(event + 1, ":  Flash Írása Kész.");
    model.Event(event + 2, ":  Verify Puffer feltöltve");
    model.PowerOff();
    EXPECT_TRUE(SameLog(model.Log(), log)) << number;
  }
}

TEST_F(FlashWrite, OneChangedWordRewritesItsBlockOfSixtyFourBytesAndNoOther) {
  it.session.Do("tick Check3");
  struct Case {
    std::string_view number;
    int pulses;  // bursts, and the row erase of the chips that time it by the pulse
  };
  for (const Case& chip : {Case{"452", 8}, Case{"4550", 1 + 2}, Case{"8722", 1 + 1}}) {
    Words words = Pattern(96);
    Take(Row(chip.number), words);
    Operations::FillVerify(words);
    words[7] ^= 1;
    Operations::FillMain(words);
    const Lines log = it.WireOf(ops18::WriteFlash);
    EXPECT_EQ(Count(log, "S9"), 3 * chip.pulses) << chip.number;
    EXPECT_EQ(Count(log, "S11"), chip.number == "452" ? 1 : 0) << chip.number;
  }
}

TEST_F(FlashWrite, AnyOfTheThirtyTwoWordsMarksTheBlock) {
  it.session.Do("tick Check3");
  for (int changed = 0; changed < 32; ++changed) {
    Words words = Pattern(64);
    Take(Row("8722"), words);
    Operations::FillVerify(words);
    words[static_cast<std::size_t>(32 + changed)] ^= 0x100;
    Operations::FillMain(words);
    EXPECT_EQ(Count(it.WireOf(ops18::WriteFlash), "S9"), 6) << "word " << changed;
  }
}

TEST_F(FlashWrite, ThePulseComesOnceForEachBurst) {
  struct Case {
    std::string_view number;
    int bursts;
  };
  for (const Case& chip : {Case{"452", 32}, Case{"2221", 32}, Case{"4550", 8}, Case{"8722", 4}}) {
    Take(Row(chip.number), Pattern(128));
    const Lines log = it.WireOf(ops18::WriteFlash);
    EXPECT_EQ(Count(log, "S9"), 3 * chip.bursts) << chip.number;
  }
}

TEST_F(FlashWrite, TheAddressReachesTheUpperByteOfThePointer) {
  for (const bool verify : {false, true}) {
    for (const std::string_view number : {"6720", "8722"}) {
      Words words(65536, ErasedWord);
      for (const std::size_t at : {0x7FE0U, 0x8000U, 0xFFFFU}) words[at] = 0x2BCD;
      const Words held(65536, ErasedWord);
      Take(Row(number), words);
      Operations::FillVerify(held);
      it.session.Do(verify ? "tick Check3" : "untick Check3");
      const Lines expected = FlashWriteLog(BoardKinds().front(), 10, NextEvent(it), Row(number), words,
                                           verify ? &held : nullptr);
      EXPECT_TRUE(SameLog(expected, it.WireOf(ops18::WriteFlash))) << number;
    }
  }
}

TEST_F(FlashWrite, TheSpeedInForceIsThatOfTheCallerExceptOnPic18F242) {
  for (const std::string_view number : {"242", "252"}) {
    Take(Row(number), Pattern(32));
    it.session.Do("tick Check3");
    Operations::FillVerify(Pattern(32));
    link::SpeedSetting = 20;
    link::WaitCount = 30;
    const Lines log = it.WireOf(ops18::WriteFlash);
    EXPECT_EQ(Count(log, number == "242" ? "P 30" : "P 20"), 0) << number;
    EXPECT_GT(Count(log, number == "242" ? "P 20" : "P 30"), 0) << number;
  }
}

TEST_F(FlashWrite, ANameInNoRowWritesNothingAndGoesOn) {
  Take(Row("452"), Pattern(32));
  Form1.Combo1.Text = std::string("PIC18F45K20");
  const int event = NextEvent(it);
  WireModel model(BoardKinds().front(), 10);
  model.PowerOn();
  model.Line("D settle");
  model.PowerOff();
  model.PowerOn();
  model.Event(event, ":  Flash Memória Irása Indult.");
  model.Event(event + 1, ":  Flash Írása Kész.");
  model.Event(event + 2, ":  Verify Puffer feltöltve");
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::WriteFlash)));
  EXPECT_EQ(image::VerifyBuffer(1, 1), "1234") << "the copy is made all the same";
}

TEST_F(FlashWrite, TheWholeMainBufferGoesIntoTheVerifyBuffer) {
  Take(Row("452"), Pattern(32));
  image::MainBuffer(8, 66000) = "ABCD";
  ops18::WriteFlash();
  EXPECT_EQ(image::VerifyBuffer(1, 1), image::MainBuffer(1, 1));
  EXPECT_EQ(image::VerifyBuffer(8, 4), image::MainBuffer(8, 4));
  EXPECT_EQ(image::VerifyBuffer(8, 66000), "ABCD");
}

TEST_F(FlashWrite, ARowAboveSixtySixThousandIsAFault) {
  EXPECT_NO_THROW(image::MainBuffer(8, 66000) = "FFFF");
  EXPECT_THROW(image::MainBuffer(1, 66001) = "FFFF", std::out_of_range);
}

TEST_F(FlashWrite, AfterALoadEveryBlockWithDataCountsAsDifferent) {
  it.Choose("PIC18F4550");
  it.session.Do("tick Check3");
  Words words(96, ErasedWord);
  words[40] = 0x0123;
  Operations::FillMain(words);
  Operations::ShrinkTo(96);
  EXPECT_EQ(Count(it.WireOf(ops18::WriteFlash), "S9"), 3 * (1 + 2)) << "the second block only";
  EXPECT_EQ(Count(it.WireOf(ops18::WriteFlash), "S9"), 0) << "now the chip is believed to hold it";
}

TEST_F(FlashWrite, CancelIsIgnored) {
  Take(Row("452"), Pattern(96));
  const int event = NextEvent(it);
  const Lines expected = FlashWriteLog(BoardKinds().front(), 10, event, Row("452"), Pattern(96), nullptr);
  it.session.Do("at progress FlashÍrÁllapot 2 click FlashÍrÁllapot.Command1");
  EXPECT_TRUE(SameLog(expected, it.WireOf(ops18::WriteFlash)));
  EXPECT_TRUE(link::UserAbort) << "until the next progress window opens";
  panel::Állapot.Load();
  EXPECT_FALSE(link::UserAbort);
}

TEST_F(FlashWrite, CancelIsIgnoredInVerifyModeToo) {
  Take(Row("8722"), Pattern(96));
  it.session.Do("tick Check3");
  const Words held(96, ErasedWord);
  Operations::FillVerify(held);
  const Lines expected =
      FlashWriteLog(BoardKinds().front(), 10, NextEvent(it), Row("8722"), Pattern(96), &held);
  it.session.Do("at progress FlashÍrÁllapot 1 at pump 40 click FlashÍrÁllapot.Command1");
  EXPECT_TRUE(SameLog(expected, it.WireOf(ops18::WriteFlash)));
}

TEST_F(FlashWrite, TheProgressWindowCountsRows) {
  EXPECT_EQ(panel::FlashÍrÁllapot.Caption, "Flash Írás Állapota");
  it.Choose("PIC18F452");
  link::UserAbort = true;
  panel::FlashÍrÁllapot.Load();
  EXPECT_FALSE(link::UserAbort);
  EXPECT_EQ(panel::FlashÍrÁllapot.ProgressBar1.Max.Get(), 2048);
  EXPECT_EQ(panel::FlashÍrÁllapot.ProgressBar1.Value.Get(), panel::FlashÍrÁllapot.ProgressBar1.Min.Get());
  EXPECT_EQ(panel::FlashÍrÁllapot.Command1.Caption.Get(), "Cancel");
  EXPECT_TRUE(panel::FlashÍrÁllapot.OnTop);
}

TEST_F(FlashWrite, AnUpdateOfTheBarPumpsOnce) {
  Take(Row("452"), Words(32, ErasedWord));
  it.session.Do("at progress FlashÍrÁllapot 2 at pump 1 mark in the update");
  const Lines log = it.WireOf(ops18::WriteFlash);
  const auto update = std::find(log.begin(), log.end(), "B FlashÍrÁllapot 2");
  ASSERT_LT(update, log.end() - 1);
  EXPECT_EQ(*(update + 1), "# in the update");
}

TEST_F(FlashWrite, WithTheAutomaticCheckAReadFollowsWhenThePowerIsOff) {
  it.Choose("PIC18F1220");
  Operations::FillMain(Pattern(32));
  it.session.Do("tick Check1");
  Operations::ShrinkTo(32);
  const int event = NextEvent(it);
  const Lines log = it.WireOf(ops18::WriteFlash);
  Lines texts;
  for (const std::string& line : log) {
    if (line.starts_with("L ") || line.starts_with("+") || line.starts_with("-")) texts.push_back(line);
  }
  const auto line = [](int number, const std::string& text) {
    return "L List1 " + std::to_string(number) + ":  TIME" + text;
  };
  EXPECT_EQ(texts,
            (Lines{line(event, ":  Flash Memória Irása Indult."), "+ FlashÍrÁllapot", "- FlashÍrÁllapot",
                   line(event + 1, ":  Flash Írása Kész."), line(event + 2, ":  Verify Puffer feltöltve"),
                   line(event + 3, ":  Flash Beolvasása Indult."), "+ Állapot", "- Állapot",
                   line(event + 4, ":  Flash beolvasás kész."), "+ FlashOlv"}));
}

}  // namespace
}  // namespace zelvo::test
