// Honest silicon, writes: what a Flash write does not do, what the verify-write mode takes on trust, and what
// a disturbed run leaves behind.
#include <gtest/gtest.h>

#include <algorithm>

#include "job.h"

namespace zelvo::test {
namespace {

constexpr const char* ShortHoldChips[] = {"PIC18F2221", "PIC18F2321", "PIC18F4221", "PIC18F4321"};

std::string Kind(const std::string& told) {
  return told.substr(0, told.find_last_of(' ', told.find("us <")));
}

/// The kinds of waits that were told.
Lines Kinds(const Lines& told) {
  Lines kinds;
  for (const std::string& line : told) kinds.push_back(Kind(line));
  return kinds;
}

/// Writes one image, then another by the verify mode.
void VerifyWriteOnce(Job& job, const std::string& chip) {
  job.Do("untick Check3");
  job.Begin(chip);
  job.Load(Bytes(0, 192, 1));
  job.Click("PICTörlés");
  job.Click("FlashÍr");
  EXPECT_EQ(job.Timing(), Lines{}) << chip;
  job.Load(With(Bytes(0, 192, 1), Bytes(70, 4, 2)));
  job.Do("tick Check3");
  job.Click("FlashÍr");
}

class HonestHoldOn : public testing::TestWithParam<BoardKind> {};

TEST_P(HonestHoldOn, FourChipsGetTheirRowErasesHoldAndLowTimeCutShortInVerifyMode) {
  Job job(GetParam());
  for (const char* chip : ShortHoldChips) {
    VerifyWriteOnce(job, chip);
    EXPECT_EQ(Kinds(job.Timing()), (Lines{"P9 row", "P10"})) << chip;
  }
}

TEST_P(HonestHoldOn, AtAHundredTheSameFourChipsGetTheirTime) {
  Job job(GetParam(), "99,0");
  VerifyWriteOnce(job, "PIC18F2221");
  EXPECT_EQ(Kinds(job.Timing()), (Lines{"P9 row"}));
  job.Do("scroll ÁSeb 100");
  for (const char* chip : ShortHoldChips) {
    VerifyWriteOnce(job, chip);
    EXPECT_EQ(job.Timing(), Lines{}) << chip;
    EXPECT_EQ(FirstDifference(With(Bytes(0, 192, 1), Bytes(70, 4, 2)), job.Code()), "") << chip;
  }
}

TEST_P(HonestHoldOn, TheOther68ChipsKeepEveryTimeInVerifyModeEvenAtTheFastestSpeed) {
  Job job(GetParam(), "1,0");
  job.Do("tick Check3");
  for (const std::string& chip : AllChips()) {
    if (std::count(std::begin(ShortHoldChips), std::end(ShortHoldChips), chip) != 0) continue;
    job.Begin(chip);
    job.Burn(Bytes(0, 512, 3));
    job.Click("PICTörlés");
    for (const int revision : {1, 2}) {
      const HexImage image = With(Bytes(0, 192, 1), Bytes(70, 4, revision));
      job.Load(image);
      job.Click("FlashÍr");
      EXPECT_EQ(FirstDifference(image, job.Code()), "") << chip;
    }
    EXPECT_EQ(job.Timing(), Lines{}) << chip;
  }
}

INSTANTIATE_TEST_SUITE_P(Port, HonestHoldOn, testing::Values(ShippedBoard(), SerialBoard()),
                         [](const auto& kind) { return std::string(kind.param.name); });

class HonestWrite : public testing::Test {
 protected:
  Job job;
};

TEST_F(HonestWrite, IdConfigurationAndEepromOfTheFileAreNotWrittenByAFlashWrite) {
  for (const char* chip : {"PIC18F452", "PIC18F4550", "PIC18F8722"}) {
    job.Begin(chip);
    const HexImage code = Bytes(0, 16, 1);
    job.Load(With(code, {{0x200000, 0x05}, {0x300003, 0x00}, {0xF00000, 0x77}}));
    EXPECT_EQ(job.session.Ask("var IdBuffer(1)"), "05");
    EXPECT_EQ(job.session.Ask("var ConfigBuffer(4)"), "00");
    EXPECT_EQ(job.session.Ask("var EepromBuffer(1,1)"), "77");
    job.Click("PICTörlés");
    job.Click("FlashÍr");
    EXPECT_EQ(job.Chip(), code) << chip << ": the configuration is the erased one";
    job.Click("FlashOl");
    EXPECT_EQ(job.Review(), EqualText) << "which compares the program memory only";
  }
}

// The verify buffer is what the chip is believed to hold.

TEST_F(HonestWrite, InVerifyModeAnotherBlankChipInTheSocketStaysBlank) {
  job.Begin("PIC18F452");
  job.Load(Bytes(0, 256, 1));
  job.Click("FlashÍr");
  job.Do({"socket PIC18F452", "tick Check3"});
  job.Click("FlashÍr");
  EXPECT_EQ(job.Code(), HexImage{});
  EXPECT_EQ(job.LastEvent(), ":  Verify Puffer feltöltve") << "and says done";
  // The erase of the chip tells the buffer too.
  job.Click("PICTörlés");
  job.Click("FlashÍr");
  EXPECT_EQ(job.Code(), Bytes(0, 256, 1));
}

TEST_F(HonestWrite, InVerifyModeOldContentsStayWhereTheImageIsBlank) {
  for (const char* chip : {"PIC18F452", "PIC18F4550", "PIC18F8722"}) {
    job.Do("untick Check3");
    job.Begin(chip);
    job.Click("PICTörlés");
    const HexImage old = Bytes(0, 512, 1);
    job.Burn(old);
    const HexImage fresh = Bytes(0, 64, 2);
    job.Load(fresh);
    job.Do("tick Check3");
    job.Click("FlashÍr");
    EXPECT_EQ(job.Code(), With(old, fresh)) << chip;
  }
}

TEST_F(HonestWrite, AVerifyBufferFromTheChipItselfMakesTheVerifyModeRight) {
  for (const char* chip : {"PIC18F452", "PIC18F4550", "PIC18F8722"}) {
    job.Do("untick Check3");
    job.Begin(chip);
    job.Click("PICTörlés");
    job.Burn(Bytes(0, 512, 1));
    const HexImage fresh = Bytes(32, 64, 2);
    job.Load(fresh);
    job.Click("FlashOl");
    job.Click("FlashOlv.Command1");
    job.Do("tick Check3");
    job.Click("FlashÍr");
    EXPECT_EQ(job.Code(), fresh) << chip;
  }
}

TEST_F(HonestWrite, AWriteIntoAnEmptySocketLeavesAVerifyBufferThatIsWrong) {
  job.Begin("PIC18F452");
  job.Load(Bytes(0, 128, 1));
  job.Do({"socket none", "answer yes"});
  job.Click("FlashÍr");
  EXPECT_EQ(job.Messages(), Lines{"yesno yes Nem érzékelek PIC-et! Folytatod az égetést?"});
  job.Do({"socket PIC18F452", "tick Check3"});
  job.Click("FlashÍr");
  EXPECT_EQ(job.Code(), HexImage{});
}

TEST_F(HonestWrite, ChoosingAnotherChipKeepsTheVerifyBufferOfTheFirst) {
  job.Begin("PIC18F452");
  const HexImage image = Bytes(0, 128, 1);
  job.Load(image);
  job.Click("FlashÍr");
  job.Begin("PIC18F4520");
  job.Load(image);
  job.Do("tick Check3");
  job.Click("FlashÍr");
  EXPECT_EQ(job.Code(), HexImage{});
}

TEST_F(HonestWrite, AFullWriteNeedsNoVerifyBuffer) {
  job.Begin("PIC18F4520");
  job.Load(Bytes(0, 128, 1));
  job.Click("FlashÍr");
  job.Do("socket PIC18F4520");
  job.Click("FlashÍr");
  EXPECT_EQ(job.Code(), Bytes(0, 128, 1));
}

// The check after a write.

TEST_F(HonestWrite, TheAutomaticCheckTellsAChipThatDoesNotHoldTheImage) {
  job.Begin("PIC18F452");
  job.Load(Bytes(0, 128, 1));
  job.Do({"tick Check1", "at progress FlashÍrÁllapot 4 socket PIC18F452"});
  job.Click("FlashÍr");
  EXPECT_EQ(job.Review(), DifferentText);
  EXPECT_EQ(job.session.Ask("color FlashOlv.MSFlexGrid1 1 1"), std::to_string(0xC0C0FF));
}

TEST_F(HonestWrite, WithTheAutomaticTakeOverTheCheckChecksNothingAndReplacesTheImage) {
  for (const char* box : {"Check2", "Check5"}) {
    job.Begin("PIC18F452");
    job.Load(Bytes(0, 128, 1));
    job.Do({"tick Check1", std::string("tick ") + box, "at progress FlashÍrÁllapot 1 socket PIC18F452"});
    job.Click("FlashÍr");
    EXPECT_EQ(job.session.Look("windows"), (Lines{"MDIForm1", "Form1"})) << "the review is gone at once";
    EXPECT_EQ(job.LastEvent(), ":  A beolvasott Flash a Pufferbe áttölve.");
    EXPECT_EQ(job.session.Ask("var MainBuffer(1,1)"), "FFFF") << "the image is what the blank chip held";
    job.Do(std::string("untick ") + box);
  }
}

// A chip that comes or goes.

TEST_F(HonestWrite, AChipPulledDuringAWriteIsToldByNobodyAndTheVerifyModeTrustsIt) {
  job.Begin("PIC18F4520");
  job.Load(Bytes(0, 512, 1));
  job.Do("at progress FlashÍrÁllapot 9 socket none");
  job.Click("FlashÍr");
  EXPECT_EQ(job.LastEvent(), ":  Verify Puffer feltöltve");
  EXPECT_EQ(job.Messages(), Lines{});
  job.Do({"socket PIC18F4520", "tick Check3"});
  job.Click("FlashÍr");
  EXPECT_EQ(job.Code(), HexImage{});
}

TEST_F(HonestWrite, AChipPutInDuringAWriteTakesNothing) {
  for (const char* chip : {"PIC18F452", "PIC18F4520"}) {
    job.Begin(chip);
    job.Load(Bytes(0, 512, 1));
    job.Do(std::string("at progress FlashÍrÁllapot 9 socket ") + chip);
    job.Click("FlashÍr");
    EXPECT_EQ(job.Code(), HexImage{}) << chip << ": it never entered programming mode";
  }
}

TEST_F(HonestWrite, AChipPulledDuringAReadGivesEqualBytesForTheRest) {
  job.Begin("PIC18F1220");
  job.Burn(Bytes(0, 4096, 1));
  job.Do("at progress Állapot 1001 socket none");
  job.Click("FlashOl");
  EXPECT_NE(job.session.Ask("cell FlashOlv.MSFlexGrid1 125 8"), "  FFFF  ");
  for (const char* cell : {"cell FlashOlv.MSFlexGrid1 126 1", "cell FlashOlv.MSFlexGrid1 256 8"}) {
    EXPECT_EQ(job.session.Ask(cell), "  FFFF  ");
  }
}

// The manual supply button.

TEST_F(HonestWrite, ASupplyLeftOnByHandDoesNotHinderTheEntry) {
  job.Begin("PIC18F452");
  job.Load(Bytes(0, 64, 1));
  job.Click("ProgFut");
  EXPECT_EQ(job.session.Ask("get ProgFut"), "Vdd(+5V) Off");
  job.Click("FlashÍr");
  EXPECT_EQ(job.Code(), Bytes(0, 64, 1));
  EXPECT_EQ(job.session.Ask("get ProgFut"), "Vdd(+5V) On");
  EXPECT_EQ(job.session.Ask("get Command10"), "Vdd(+5V) Off") << "the other page's button still says so";
}

TEST_F(HonestWrite, TheSecondClickOnTheSupplyButtonDuringAWriteEndsItForTheChip) {
  job.Begin("PIC18F4520");
  const HexImage image = Bytes(0, 512, 1);
  job.Load(image);
  job.Do({"at progress FlashÍrÁllapot 9 click ProgFut", "at progress FlashÍrÁllapot 17 click ProgFut"});
  job.Click("FlashÍr");
  // The bar shows rows of 16 bytes.
  EXPECT_EQ(job.Code(), Between(image, 0, 16 * 16 - 1)) << "the first click switched on what was on";
  EXPECT_EQ(job.LastEvent(), ":  Verify Puffer feltöltve");
}

TEST(HonestWriteOnTheSerialPort, TheSupplyButtonMovesTheDataLineInTheMiddleOfABit) {
  Job job(SerialBoard());
  job.Begin("PIC18F4520");
  HexImage image;
  for (std::uint32_t at = 0; at < 512; ++at) image[at] = 0;
  job.Load(image);
  // In row 9: the update, 8 transactions of 20 bits of 140 passes, 4 bits of command, then the high half of
  // the first data bit.
  job.Do("at progress FlashÍrÁllapot 9 at pump 22991 click ProgFut");
  job.Click("FlashÍr");
  image[9 * 16 - 16] = 0x01;
  EXPECT_EQ(FirstDifference(image, job.Code()), "");
}

// The speed bar.

TEST_F(HonestWrite, MovingTheSpeedBarDuringAReadTakesItOutOfItsEighth) {
  job.Begin("PIC18F1220");
  job.Do({"at progress Állapot 2 scroll ÁSeb 9", "at progress Állapot 3 var WaitCount"});
  const Lines printed = job.session.Run("click FlashOl");
  EXPECT_EQ(printed, (Lines{"ok", "| 90", "ok", "ok"}));
}

}  // namespace
}  // namespace zelvo::test
