// Honest silicon, erases: what the chips make of the erases that are sent to them.
#include <gtest/gtest.h>

#include <algorithm>

#include "job.h"

namespace zelvo::test {
namespace {

/// Boot block of a one-key chip (data sheets: 512 bytes, 2 KB on the families from 6520 and 6525 on).
std::uint32_t BootBytes(const std::string& chip) {
  constexpr std::string_view Large[] = {"6520", "8520", "6525", "6621", "8525",
                                        "8621", "6585", "6680", "8585", "8680"};
  return std::count(std::begin(Large), std::end(Large), chip.substr(6)) != 0 ? 0x800 : 0x200;
}

/// Words of the limits that the chip is chosen with.
std::uint32_t LimitBytes(const std::string& chip) {
  return chip == "PIC18F8680" ? 0x8000 : CodeBytes(chip);
}

/// A new program that reaches into the boot block, every 8 KB behind it, and leaves blank groups between.
HexImage NewProgram(const std::string& chip) {
  HexImage image = Bytes(0, 96, 5);
  const std::uint32_t end = std::min<std::uint32_t>(LimitBytes(chip), 0x8000);
  for (std::uint32_t at = 0x0C00; at < end; at += 0x2000) image = With(image, Bytes(at, 72, 5));
  if (LimitBytes(chip) > 0x10000) image = With(image, Bytes(0x11000, 72, 5));
  return image;
}

/// What remains of the chip's old contents when the boot block is erased.
HexImage BehindBoot(const std::string& chip, const HexImage& old) {
  HexImage rest = Between(old, BootBytes(chip), 0x1FFFFF);
  // Nine codes: the beat slips by 4 bits with each, so the sixth, for the block from 10000h, is in step
  // again.
  if (chip == "PIC18F6720" || chip == "PIC18F8720") {
    rest.erase(rest.lower_bound(0x10000), rest.upper_bound(0x13FFF));
  }
  return rest;
}

TEST(HonestErase, OnOneKeyChipsTheCodeBlockEraseLosesItsBeatAfterTheFirstKeySoOldAndNewMix) {
  Job job;
  int chips = 0;
  for (const std::string& chip : AllChips()) {
    if (!HasOneKey(chip)) continue;
    ++chips;
    job.Begin(chip);
    const HexImage old = Bytes(0, CodeBytes(chip), 1);
    job.Burn(old);
    const HexImage fresh = NewProgram(chip);
    job.Load(fresh);
    job.Click("FlashÍr");
    const HexImage mixed = ProgrammedOver(BehindBoot(chip, old), fresh);
    EXPECT_EQ(FirstDifference(WithoutErased(mixed), job.Code()), "") << chip;
    EXPECT_NE(mixed, fresh);
    EXPECT_EQ(job.Timing(), Lines{}) << chip << ": no wait tells of it";
  }
  EXPECT_EQ(chips, 32);
}

TEST(HonestErase, OnOneKeyChipsAllIsRightWhenTheWholeChipIsErasedBefore) {
  Job job;
  for (const std::string& chip : AllChips()) {
    if (!HasOneKey(chip)) continue;
    job.Begin(chip);
    job.Burn(Bytes(0, CodeBytes(chip), 1));
    const HexImage fresh = NewProgram(chip);
    job.Load(fresh);
    job.Click("PICTörlés");
    job.Click("FlashÍr");
    EXPECT_EQ(FirstDifference(fresh, job.Code()), "") << chip;
  }
}

TEST(HonestErase, OnTwoKeyChipsAFullWriteOverOldContentsIsRightByItself) {
  Job job(SerialBoard());
  int chips = 0;
  for (const std::string& chip : AllChips()) {
    if (HasOneKey(chip)) continue;
    ++chips;
    job.Begin(chip);
    job.Burn(Bytes(0, CodeBytes(chip), 1));
    const HexImage fresh = NewProgram(chip);
    job.Load(fresh);
    job.Click("FlashÍr");
    EXPECT_EQ(FirstDifference(fresh, job.Code()), "") << chip;
  }
  EXPECT_EQ(chips, 40);
}

TEST(HonestErase, TheMixIsToldByTheAutomaticCheckOnly) {
  Job job;
  job.Begin("PIC18F452");
  job.Burn(Bytes(0, 0x8000, 1));
  job.Load(NewProgram("PIC18F452"));
  job.Click("FlashÍr");
  EXPECT_EQ(job.LastEvent(), ":  Verify Puffer feltöltve") << "without the check all looks well";
  EXPECT_EQ(job.Messages(), Lines{});
  job.Do("tick Check1");
  job.Click("FlashÍr");
  EXPECT_EQ(job.Review(), DifferentText);
}

TEST(HonestErase, AVerifyWriteBehindAMixedOneDoesNotMendIt) {
  Job job;
  job.Begin("PIC18F452");
  job.Burn(Bytes(0, 0x8000, 1));
  const HexImage fresh = NewProgram("PIC18F452");
  job.Load(fresh);
  job.Click("FlashÍr");
  const HexImage mixed = job.Code();
  job.Do("tick Check3");
  job.Click("FlashÍr");
  EXPECT_EQ(job.Code(), mixed) << "the verify buffer takes the chip for written";
  // What mends it: take the verify buffer from the chip itself.
  job.Click("FlashOl");
  job.Click("FlashOlv.Command1");
  job.Click("FlashÍr");
  EXPECT_EQ(FirstDifference(fresh, job.Code()), "");
}

TEST(HonestErase, TheEraseOfTheOtherKindOfChipErasesNothingAndSaysDone) {
  Job job;
  struct Case {
    const char* chosen;
    const char* inSocket;
  };
  for (const Case& it : {Case{"PIC18F452", "PIC18F4520"}, Case{"PIC18F4520", "PIC18F452"}}) {
    job.Do({std::string("choose Combo1 ") + it.chosen, std::string("socket ") + it.inSocket});
    const HexImage old = Bytes(0, 64, 1);
    job.Burn(old);
    job.Do("answer yes");
    job.Click("PICTörlés");
    EXPECT_EQ(job.Messages(),
              Lines{"yesno yes A detektált PIC nem azonos a kiválasztottal! Folytatod az törlést?"});
    EXPECT_EQ(job.Code(), old) << it.inSocket;
    EXPECT_EQ(job.LastEvent(), ":  PIC Törlése kész.");
    EXPECT_EQ(job.session.Ask("var VerifyBuffer(1,1)"), "FFFF");
  }
}

TEST(HonestErase, AnEmptySocketIsErasedJustTheSame) {
  Job job;
  job.Begin("PIC18F452");
  job.Do({"socket none", "answer yes"});
  job.Click("PICTörlés");
  EXPECT_EQ(job.LastEvent(), ":  PIC Törlése kész.");
}

TEST(HonestErase, TheWholeChipEraseTakesConfigurationIdAndEepromToo) {
  Job job;
  for (const char* chip : {"PIC18F452", "PIC18F4550", "PIC18F8722"}) {
    job.Begin(chip);
    job.Burn({{0, 0}, {0x200000, 1}, {0x300003, 0}, {0xF00000, 5}});
    EXPECT_EQ(job.Chip().size(), 4U);
    job.Click("PICTörlés");
    EXPECT_EQ(job.Chip(), HexImage{}) << chip;
  }
}

TEST(HonestErase, TheFullWritesOwnEraseLeavesThemAlone) {
  Job job;
  for (const char* chip : {"PIC18F452", "PIC18F4550", "PIC18F8722"}) {
    job.Begin(chip);
    const HexImage rest = {{0x200000, 1}, {0x300003, 0}, {0xF00000, 5}};
    job.Burn(rest);
    job.Load(HexImage{{0, 0x12}, {1, 0x34}});
    job.Click("FlashÍr");
    EXPECT_EQ(job.Chip(), With({{0, 0x12}, {1, 0x34}}, rest)) << chip;
  }
}

}  // namespace
}  // namespace zelvo::test
