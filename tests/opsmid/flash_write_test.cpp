// Writing Flash, user IDs and configuration of the mid-range chips: five loops on every board, which chip
// runs which, skipped words, the checks, and clicks inside a run.
#include "flash_write_desk.h"
#include "opsmid/flash.h"

namespace zelvo::test {
namespace {

class WriteLoopsOn : public testing::TestWithParam<BoardKind> {
 protected:
  WriteLoopsOn() : desk(GetParam()) {}
  MidDesk desk;
};
INSTANTIATE_TEST_SUITE_P(Board, WriteLoopsOn, testing::ValuesIn(BoardKinds()), BoardName);

TEST_P(WriteLoopsOn, EachLoopIsSentEventByEvent) {
  for (const Loop loop : {Loop::Word, Loop::WordEnd, Loop::FourEnd, Loop::Eight, Loop::Four}) {
    MidDesk::Rest();
    const MidChip& chip = MidChipOf(LoopChips[static_cast<int>(loop)]);
    ASSERT_EQ(chip.loop, loop);
    desk.Choose(chip);
    FlashJob job = MixedJob();
    MidDesk::Take(job);
    MidWire model = desk.Model();
    model.WriteFlash(chip, job);
    ASSERT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::WriteMidFlash)))
        << LoopNames[static_cast<int>(loop)];
    EXPECT_FALSE(link::WholeChipRun);
  }
}

class EveryChipWritten : public testing::TestWithParam<MidChip> {};
INSTANTIATE_TEST_SUITE_P(Chip, EveryChipWritten, testing::ValuesIn(MidChips().begin(), MidChips().end()),
                         ChipName);

TEST_P(EveryChipWritten, TakesItsErasesItsLoopsAndItsConfigurationRoutine) {
  MidDesk desk;
  desk.Choose(GetParam());
  const FlashJob job = MixedJob();
  MidDesk::Take(job);
  MidWire model = desk.Model();
  model.WriteFlash(GetParam(), job);
  EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::WriteMidFlash)));
}

TEST_F(FlashWrite, TwoChipsRunTwoLoopsWithoutAResetBetween) {
  for (const char* number : {"16F87", "16F88"}) {
    const FlashJob job = MixedJob();
    Begin(MidChipOf(number), job);
    const Lines log = desk.WireOf(opsmid::WriteMidFlash);
    EXPECT_EQ(Only(log, "+-"),
              (Lines{"+ FlashÍrÁllapot", "- FlashÍrÁllapot", "+ FlashÍrÁllapot", "- FlashÍrÁllapot"}));
    const auto first = std::ranges::find(log, "- FlashÍrÁllapot");
    ASSERT_NE(first, log.end());
    EXPECT_EQ(*(first + 1), "+ FlashÍrÁllapot") << number;
  }
}

TEST_F(FlashWrite, AnErasedWordIsOnlyIncrementedOver) {
  MidWire model = desk.Model();
  for (const Loop loop : {Loop::Word, Loop::WordEnd}) {
    FlashJob job = MixedJob();
    job.words = Floating(CutWords);
    Begin(MidChipOf(LoopChips[static_cast<int>(loop)]), job);
    const Lines log = desk.WireOf(opsmid::WriteMidFlash);
    const auto begin = std::ranges::find(log, "+ FlashÍrÁllapot");
    const auto end = std::ranges::find(log, "- FlashÍrÁllapot");
    const Lines inside(begin, end);
    EXPECT_EQ(Only(inside, "D"), Lines{});
    EXPECT_EQ(Only(inside, "P").size(), static_cast<std::size_t>(CutWords * 2 * 6)) << "six bits a word";
  }
}

TEST_F(FlashWrite, InGroupsAnErasedImageIsProgrammedAllTheSame) {
  const std::pair<Loop, int> groups[] = {{Loop::Eight, 2}, {Loop::Four, 4}, {Loop::FourEnd, 4}};
  for (const auto& [loop, commands] : groups) {
    FlashJob job = MixedJob();
    job.words = Floating(CutWords);
    const MidChip& chip = MidChipOf(LoopChips[static_cast<int>(loop)]);
    Begin(chip, job);
    MidWire model = desk.Model();
    model.WriteFlash(chip, job);
    const Lines log = desk.WireOf(opsmid::WriteMidFlash);
    EXPECT_TRUE(SameLog(model.Log(), log));
    const Lines inside(std::ranges::find(log, "+ FlashÍrÁllapot"),
                       std::ranges::find(log, "- FlashÍrÁllapot"));
    EXPECT_EQ(Only(inside, "D"), Lines(static_cast<std::size_t>(commands), "D cycle 2"));
  }
}

/// The bits behind the first load command of the write, first bit at the left.
std::string FirstFrame(const Lines& log) {
  std::string bits;
  int previous = 0;
  for (auto line = std::ranges::find(log, "+ FlashÍrÁllapot"); line != log.end() && bits.size() < 22;
       ++line) {
    if ((*line)[0] != 'W') continue;
    const int value = std::stoi(line->substr(7), nullptr, 16);
    if ((value & 2) != 0 && (previous & 2) == 0) bits += (value & 1) != 0 ? '1' : '0';
    previous = value;
  }
  return bits.substr(6);
}

TEST_F(FlashWrite, AFrameIsAStartBitFourteenBitsAndBit14AsTheStopBit) {
  struct Case {
    const char* digits;
    const char* frame;  ///< first bit at the left
  };
  const Case cases[] = {{"0000", "0000000000000000"}, {"1234", "0001011000100100"},
                        {"7FFF", "0111111111111111"}, {"4000", "0000000000000001"},
                        {"3FFE", "0011111111111110"}, {"FFFF", "0111111111111111"},
                        {"8001", "0100000000000000"}, {"BFFF", "0111111111111110"}};
  for (const Case& it : cases) {
    Begin(MidChipOf("16F84A"), MixedJob());
    image::MainBuffer(1, 1) = it.digits;
    EXPECT_EQ(FirstFrame(desk.WireOf(opsmid::WriteMidFlash)), it.frame) << it.digits;
  }
}

TEST_F(FlashWrite, ADigitThatIsNoneGoesOutAsTheOneBeforeIt) {
  const std::pair<const char*, const char*> cases[] = {{"1Z34", "1134"}, {"2x0g", "2200"}};
  for (const auto& [digits, sent] : cases) {
    Lines logs[2];
    for (const bool plain : {false, true}) {
      Begin(MidChipOf("16F84A"), MixedJob());
      image::MainBuffer(1, 1) = plain ? sent : digits;
      logs[plain ? 1 : 0] = Only(desk.WireOf(opsmid::WriteMidFlash), "WRPD");
    }
    EXPECT_TRUE(SameLog(logs[1], logs[0])) << digits;
  }
}

TEST_F(FlashWrite, OfA1024WordChipRuns128Rows) {
  desk.session.Do("choose Combo2 PIC16F84A");
  link::SpeedSetting = 0;
  const Lines bars = Only(desk.WireOf(opsmid::WriteMidFlash), "B");
  ASSERT_EQ(bars.size(), 1024U);
  EXPECT_EQ(bars[0], "B FlashÍrÁllapot 0");
  EXPECT_EQ(bars[6], "B FlashÍrÁllapot 0");
  EXPECT_EQ(bars[7], "B FlashÍrÁllapot 1") << "a row of eight is one";
  EXPECT_EQ(bars.back(), "B FlashÍrÁllapot 128");
  EXPECT_EQ(opsmid::WriteProgress, 128);
}

TEST_F(FlashWrite, RunsAtTheSpeedSetting) {
  Begin(MidChipOf("16F84A"), MixedJob());
  link::SpeedSetting = 5;
  link::WaitCount = 40;
  const Lines log = desk.WireOf(opsmid::WriteMidFlash);
  EXPECT_EQ(Count(log, "P 5"), static_cast<int>(Only(log, "P").size()));
  EXPECT_EQ(link::WaitCount, 5);
  // The four ID words twice, program memory, eight words, four ID words and the configuration word.
  EXPECT_EQ(Count(log, "D cycle 5"), 2 * 4 * 2 + 4 + 8 * 1 + 5 * 4);
}

TEST_F(FlashWrite, TheChecksReadBackOnceBeforeTheConfigurationOrBehindIt) {
  for (const char* number : {"16F84A", "12F615", "16F887", "16F88"}) {
    for (const bool check4 : {false, true}) {
      for (const bool check6 : {false, true}) {
        const MidChip& chip = MidChipOf(number);
        FlashJob job = MixedJob();
        job.check4 = check4;
        job.check6 = check6;
        Begin(chip, job);
        MidWire model = desk.Model();
        model.WriteFlash(chip, job);
        const Lines log = desk.WireOf(opsmid::WriteMidFlash);
        EXPECT_TRUE(SameLog(model.Log(), log)) << number << check4 << check6;
        EXPECT_EQ(Count(log, "+ FlashOlv"), check4 || check6 ? 1 : 0);
      }
    }
  }
}

TEST_F(FlashWrite, TheButtonIdentifiesAsksWritesAndGoesToIdle) {
  const MidChip& chip = MidChipOf("16F690");
  for (const bool check4 : {false, true}) {
    FlashJob job = MixedJob();
    job.check4 = check4;
    Begin(chip, job);
    desk.session.Do("answer yes");
    MidWire model = desk.Model();
    model.PowerOn();
    model.Identify(ErasedMid);
    model.Ask(true, "Nem érzékelek PIC-et! Folytatod az égetést?");
    model.WriteFlash(chip, job);
    model.PowerOff();
    if (check4) model.Line("+ Összes_Bezárása");
    EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command11")));
    EXPECT_FALSE(link::UserAbort);
  }
}

TEST_F(FlashWrite, InsideAWholeChipWriteTheButtonAsksNothing) {
  const MidChip& chip = MidChipOf("16F84A");
  const FlashJob job = MixedJob();
  Begin(chip, job);
  link::WholeChipRun = true;
  MidWire model = desk.Model();
  model.WriteFlash(chip, job);
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command11")));
}

TEST_F(FlashWrite, APageOrChipChosenInsideDoesNotCutItShortNorChangeItsWay) {
  for (const char* inside : {"tab 2", "choose Combo2 PIC12F609"}) {
    desk.session.Do("tab 1");
    Begin(MidChipOf("16F84A"), MixedJob());
    desk.session.Do(std::string("at progress FlashÍrÁllapot 1 ") + inside);
    const Lines log = desk.WireOf(opsmid::WriteMidFlash);
    EXPECT_EQ(Only(log, "B").size(), static_cast<std::size_t>(CutWords)) << inside;
    EXPECT_EQ(
        std::ranges::count_if(log, [](const auto& line) { return line.ends_with("Config Szó Írása Kész."); }),
        1);
  }
}

TEST_F(FlashWrite, AReadClickedInsideDoesNotCutItShort) {
  Begin(MidChipOf("16F84A"), MixedJob());
  desk.session.Do({"answer yes", "at progress FlashÍrÁllapot 1 click Command8"});
  const Lines log = desk.WireOf(opsmid::WriteMidFlash);
  const Lines bars = Only(log, "B");
  EXPECT_EQ(bars.size(), static_cast<std::size_t>(2 * CutWords));
  EXPECT_EQ(bars.back(), "B FlashÍrÁllapot 2");
}

TEST_F(FlashWrite, ClosingTheProgramEndsItWhereItStandsWithTheLinesAtIdle) {
  Begin(MidChipOf("16F84A"), MixedJob());
  desk.session.Do({"answer yes", "at progress FlashÍrÁllapot 1 stop"});
  const Lines log = desk.Click("Command11");
  const auto bar = std::ranges::find(log, "B FlashÍrÁllapot 1");
  ASSERT_NE(bar, log.end());
  EXPECT_EQ(Lines(bar + 1, bar + 3), (Lines{"R 0378 0C", "W 0378 00"}));
  EXPECT_EQ(Only(Lines(bar + 3, log.end()), "WRPDL"), Lines{});
}

}  // namespace
}  // namespace zelvo::test
