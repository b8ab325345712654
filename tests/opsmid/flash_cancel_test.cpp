// Cancel in a mid-range Flash write: where each loop ends, what is told, and what is not written any more.
#include "flash_write_desk.h"
#include "opsmid/flash.h"

namespace zelvo::test {
namespace {

using FlashCancel = FlashWrite;

TEST_F(FlashCancel, CancelEndsTheLoopBehindTheWordInHand) {
  for (const Loop loop : {Loop::Word, Loop::WordEnd, Loop::FourEnd, Loop::Eight, Loop::Four}) {
    for (int word = 0; word < CutWords; ++word) {
      const MidChip& chip = MidChipOf(LoopChips[static_cast<int>(loop)]);
      FlashJob job = MixedJob();
      job.cancelled = word;
      Begin(chip, job);
      MidWire model = desk.Model();
      model.WriteFlash(chip, job);
      desk.session.Do("at pump " + std::to_string(model.CancelPass) + " click FlashÍrÁllapot.Command1");
      ASSERT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::WriteMidFlash)))
          << LoopNames[static_cast<int>(loop)] << ", word " << word;
    }
  }
}

TEST_F(FlashCancel, CancelIsToldByTwoLoopsOnly) {
  for (const Loop loop : {Loop::Word, Loop::WordEnd, Loop::FourEnd, Loop::Eight, Loop::Four}) {
    Begin(MidChipOf(LoopChips[static_cast<int>(loop)]), MixedJob());
    desk.session.Do("at progress FlashÍrÁllapot 1 click FlashÍrÁllapot.Command1");
    const int number = link::EventCounter;
    Lines expected{"L List4 " + std::to_string(number) + ":  TIME:  Flash Memória Irása Indult."};
    if (loop == Loop::Word || loop == Loop::Eight) {
      expected.push_back("L List4 " + std::to_string(number + 1) + ":  TIME:  Felhasználói megszakítás.");
    }
    EXPECT_EQ(Only(desk.WireOf(opsmid::WriteMidFlash), "L"), expected) << LoopNames[static_cast<int>(loop)];
  }
}

TEST_F(FlashCancel, ACancelThatAnEarlierRunLeftIsToldBeforeTheLoopOfFoursAndForgottenByItsWindow) {
  for (const Loop loop : {Loop::Word, Loop::WordEnd, Loop::FourEnd, Loop::Eight, Loop::Four}) {
    const MidChip& chip = MidChipOf(LoopChips[static_cast<int>(loop)]);
    const FlashJob job = MixedJob();
    Begin(chip, job);
    link::UserAbort = true;
    const Lines log = desk.WireOf(opsmid::WriteMidFlash);
    const auto told = std::ranges::find_if(
        log, [](const std::string& line) { return line.ends_with(":  Felhasználói megszakítás."); });
    EXPECT_EQ(told != log.end(), loop == Loop::Four) << LoopNames[static_cast<int>(loop)];
    if (told != log.end()) {
      EXPECT_EQ(*(told + 1), "+ FlashÍrÁllapot");
    }
    EXPECT_EQ(Only(log, "B").size(), static_cast<std::size_t>(CutWords));
    EXPECT_FALSE(link::UserAbort);
  }
}

TEST_F(FlashCancel, ACancelBetweenTwoRowsOfEightLetsTheNextWordPass) {
  const MidChip& chip = MidChipOf("16F886");
  FlashJob job = MixedJob();
  Begin(chip, job);
  job.cancelled = 8;  // the first word of the second row
  MidWire model = desk.Model();
  model.WriteFlash(chip, job);
  // In the row's programming command, six bits of twice two passes before the next word's step.
  desk.session.Do("at pump " + std::to_string(model.CancelPass - 6) + " click FlashÍrÁllapot.Command1");
  EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::WriteMidFlash)));
}

TEST_F(FlashCancel, ACancelOfTheFirstOfTwoLoopsEndsThatLoopAndKeepsTheConfigurationUnwritten) {
  for (const char* number : {"16F87", "16F88"}) {
    const MidChip& chip = MidChipOf(number);
    FlashJob job = MixedJob();
    job.cancelled = 5;
    Begin(chip, job);
    MidWire model = desk.Model();
    model.WriteFlash(chip, job);
    desk.session.Do("at pump " + std::to_string(model.CancelPass) + " click FlashÍrÁllapot.Command1");
    EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::WriteMidFlash))) << number;
  }
}

TEST_F(FlashCancel, AfterACancelNoConfigurationIsWrittenWhicheverChecksAreTicked) {
  for (const bool check4 : {false, true}) {
    for (const bool check6 : {false, true}) {
      const MidChip& chip = MidChipOf("16F84A");
      FlashJob job = MixedJob();
      job.check4 = check4;
      job.check6 = check6;
      job.cancelled = 10;
      Begin(chip, job);
      MidWire model = desk.Model();
      model.WriteFlash(chip, job);
      desk.session.Do("at pump " + std::to_string(model.CancelPass) + " click FlashÍrÁllapot.Command1");
      EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::WriteMidFlash))) << check4 << check6;
    }
  }
}

TEST_F(FlashCancel, ACancelOfTheFirstCheckKeepsTheConfigurationUnwritten) {
  FlashJob job = MixedJob();
  job.check6 = true;
  Begin(MidChipOf("16F84A"), job);
  desk.session.Do("at progress Állapot 3 click Állapot.Command1");
  const Lines log = desk.WireOf(opsmid::WriteMidFlash);
  EXPECT_EQ(std::ranges::count_if(log, [](const auto& line) { return line.ends_with("Írása Indult."); }), 0);
  EXPECT_EQ(Count(log, "+ FlashOlv"), 0);
}

TEST_F(FlashCancel, TheButtonClearsACancelAtItsEnd) {
  Begin(MidChipOf("16F690"), MixedJob());
  desk.session.Do({"answer yes", "at progress FlashÍrÁllapot 0 click FlashÍrÁllapot.Command1"});
  desk.Click("Command11");
  EXPECT_FALSE(link::UserAbort);
  EXPECT_FALSE(link::WholeChipRun);
}

}  // namespace
}  // namespace zelvo::test
