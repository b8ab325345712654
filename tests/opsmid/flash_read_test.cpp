// Reading the Flash of a mid-range chip: every event on the wire, every bit of a word on every board, the
// button, Cancel, and clicks inside a run.
#include "link/port.h"
#include "mid_desk.h"
#include "opsmid/flash.h"

namespace zelvo::test {
namespace {

using image::ReadBackBytes;

/// A pattern that shows each bit of a word in both states, neighbours different.
Values Pattern() {
  Values words;
  for (int i = 0; i < CutWords; ++i) words.push_back((i * 0x1A53 + 0x0137) & 0x3FFF);
  words[3] = 0x0001;
  words[4] = 0x2000;
  words[5] = 0x0000;
  words[6] = 0x3FFF;
  return words;
}

class FlashReadOn : public testing::TestWithParam<BoardKind> {
 protected:
  FlashReadOn() : desk(GetParam()) {}
  MidDesk desk;
};
INSTANTIATE_TEST_SUITE_P(Board, FlashReadOn, testing::ValuesIn(BoardKinds()), BoardName);

TEST_P(FlashReadOn, EachWordComesInAFrameLeastSignificantBitFirst) {
  desk.Choose(MidChipOf("16F84A"));
  AnsweringChip& chip = PutAnsweringChip(desk.session);
  for (const int word : Pattern()) chip.Word(word);
  MidWire model = desk.Model();
  model.ReadFlash(Pattern());
  EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::ReadMidFlash)));
  EXPECT_EQ(chip.Left(), 0U);
  for (std::size_t i = 0; i < Pattern().size(); ++i) {
    EXPECT_EQ(ReadBackBytes[2 * i + 1], Pattern()[i] / 256) << "the high byte first";
    EXPECT_EQ(ReadBackBytes[2 * i + 2], Pattern()[i] % 256);
    EXPECT_EQ(image::FlashReadBuffer(static_cast<int>(i % 8) + 1, static_cast<int>(i / 8) + 1),
              HexDigits(Pattern()[i], 4));
  }
  EXPECT_EQ(image::ReadIndex, 2 * CutWords + 1);
}

class FlashRead : public testing::Test {
 protected:
  void Choose(const char* number = "16F84A", int words = CutWords) { desk.Choose(MidChipOf(number), words); }
  MidDesk desk;
};

TEST_F(FlashRead, TheButtonIdentifiesAsksAndReadsOnANewEntry) {
  Choose();
  desk.session.Do("answer yes");
  MidWire model = desk.Model();
  model.PowerOn();
  model.Identify(ErasedMid);
  model.Ask(true, "Nem érzékelek PIC-et! Folytatod az olvasást?");
  model.PowerOn();
  model.ReadFlash(Floating(CutWords));
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command8")));
}

TEST_F(FlashRead, TheChosenChipRaisesNoQuestion) {
  Choose();
  AnsweringChip& chip = PutAnsweringChip(desk.session);
  chip.Word(0x0560 | 3);
  for (const int word : Pattern()) chip.Word(word);
  MidWire model = desk.Model();
  model.PowerOn();
  model.Identify(0x0563);
  model.PowerOn();
  model.ReadFlash(Pattern());
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command8")));
  EXPECT_EQ(image::FlashReadBuffer(1, 1), "0137");
}

TEST_F(FlashRead, AReviewThatStandsIsOpenedAnew) {
  Choose();
  MidWire model = desk.Model();
  for (int run = 0; run < 2; ++run) model.ReadFlash(Floating(CutWords));
  EXPECT_TRUE(SameLog(model.Log(), desk.WireOf([] {
    opsmid::ReadMidFlash();
    opsmid::ReadMidFlash();
  })));
  EXPECT_EQ(Count(model.Log(), "- FlashOlv"), 1);
}

TEST_F(FlashRead, OfAWholeChipReadsEveryWord) {
  desk.session.Do("choose Combo2 PIC16F886");
  link::SpeedSetting = 0;
  const Lines log = desk.WireOf(opsmid::ReadMidFlash);
  const Lines bars = Only(log, "B");
  ASSERT_EQ(bars.size(), 8192U);
  EXPECT_EQ(bars.front(), "B Állapot 1");
  EXPECT_EQ(bars.back(), "B Állapot 8192");
  EXPECT_EQ(image::ReadIndex, 16385);
  EXPECT_EQ(ReadBackBytes[16383], 0x3F);
  EXPECT_EQ(ReadBackBytes[16384], 0xFF);
  EXPECT_EQ(image::FlashReadBuffer(8, 1024), "3FFF");
}

TEST_F(FlashRead, RunsAtTheSpeedSettingAndLeavesItInForce) {
  Choose();
  link::SpeedSetting = 3;
  link::WaitCount = 50;
  const Lines log = desk.WireOf(opsmid::ReadMidFlash);
  EXPECT_EQ(Only(log, "P"), Lines(CutWords * (2 * 6 + 2 + 1 + 2 * 14 + 2 + 2 * 6), "P 3"));
  EXPECT_EQ(link::WaitCount, 3);
}

TEST_F(FlashRead, CancelEndsItBehindTheWordInHandWithoutAReview) {
  for (const int word : {0, 1, 7, 8, 15}) {
    MidDesk::Rest();
    Choose();
    desk.session.Do("at progress Állapot " + std::to_string(word + 1) + " click Állapot.Command1");
    MidWire model = desk.Model();
    model.Log(":  Flash Beolvasása Indult.");
    model.Line("+ Állapot");
    for (int i = 0; i <= word; ++i) {
      model.Line("B Állapot " + std::to_string(i + 1));
      model.ReadFrame("000100", ErasedMid);
      model.Increments(1);
    }
    model.Line("- Állapot");
    model.Log(":  Felhasználói megszakítás!");
    EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::ReadMidFlash))) << word;
    EXPECT_EQ(image::ReadIndex, 2 * (word + 1) + 1);
    EXPECT_TRUE(link::UserAbort) << "the read clears nothing";
    EXPECT_EQ(opsmid::WordCounter, word + 1);
  }
}

TEST_F(FlashRead, AfterACancelTheLinesGoToIdleAndTheNextReadIsWhole) {
  Choose();
  desk.session.Do({"answer yes yes", "at progress Állapot 5 click Állapot.Command1"});
  const Lines cancelled = desk.Click("Command8");
  EXPECT_EQ(Lines(cancelled.end() - 2, cancelled.end()), (Lines{"R 0378 0C", "W 0378 00"}));
  const Lines whole = desk.Click("Command8");
  EXPECT_EQ(Only(whole, "B").size(), static_cast<std::size_t>(CutWords));
  EXPECT_EQ(Count(whole, "+ FlashOlv"), 1);
}

TEST_F(FlashRead, AReadClickedInsideDoesNotCutItShort) {
  Choose();
  desk.session.Do({"answer yes yes", "at progress Állapot 5 click Command8"});
  const Lines bars = Only(desk.Click("Command8"), "B");
  Lines expected;
  const auto add = [&expected](int first, int last) {
    for (int i = first; i <= last; ++i) expected.push_back("B Állapot " + std::to_string(i));
  };
  add(1, 5);
  add(1, CutWords);
  add(6, CutWords);
  EXPECT_EQ(bars, expected);
}

TEST_F(FlashRead, APageOrChipChosenInsideDoesNotCutItShort) {
  for (const char* inside : {"tab 2", "choose Combo2 PIC12F609"}) {
    MidDesk::Rest();
    desk.session.Do("tab 1");
    Choose();
    desk.session.Do(std::string("at progress Állapot 5 ") + inside);
    EXPECT_EQ(Only(desk.WireOf(opsmid::ReadMidFlash), "B").size(), static_cast<std::size_t>(CutWords))
        << inside;
  }
}

TEST_F(FlashRead, ClosingTheProgramEndsItWhereItStandsWithTheLinesAtIdle) {
  Choose();
  desk.session.Do({"answer yes", "at progress Állapot 5 stop"});
  const Lines log = desk.Click("Command8");
  const auto bar = std::ranges::find(log, "B Állapot 5");
  ASSERT_NE(bar, log.end());
  EXPECT_EQ(Lines(bar + 1, bar + 3), (Lines{"R 0378 0C", "W 0378 00"}));
  EXPECT_EQ(Only(Lines(bar + 3, log.end()), "WRPDL"), Lines{}) << "no line moves any more";
}

TEST_F(FlashRead, WithoutAnInterfaceRunsThroughWithoutATouchOfAPort) {
  Choose();
  link::LptMode = false;
  const Lines log = desk.WireOf(opsmid::ReadMidFlash);
  EXPECT_EQ(Only(log, "WRP"), Lines{});
  EXPECT_EQ(Only(log, "B").size(), static_cast<std::size_t>(CutWords));
  EXPECT_EQ(ReadBackBytes[1], 0);
}

}  // namespace
}  // namespace zelvo::test
