// The main job with real files: what an assembler wrote ends up in the chip, on every chip of the catalogue
// and either interface.
#include <gtest/gtest.h>

#include "job.h"
#include "support/assembler.h"

namespace zelvo::test {
namespace {

constexpr std::uint32_t CodeEnd = 0x1FFFFF;

/// PIC18F8680 takes half its memory.
std::uint32_t ProgrammableBytes(const std::string& chip) {
  return chip == "PIC18F8680" ? 0x8000 : CodeBytes(chip);
}

ProgramPlan PlanFor(const std::string& chip) {
  ProgramPlan plan;
  plan.chip = chip;
  plan.codeBytes = ProgrammableBytes(chip);
  plan.eepromBytes = EepromBytes(chip);
  return plan;
}

HexImage CodeOf(const std::string& path) {
  return WithoutErased(Between(ReadHexImage(path), 0, CodeEnd));
}

/// On these four the verify-write mode's row erase ends early: a test of its own tells.
bool EndsRowEraseEarly(const std::string& chip) {
  return chip == "PIC18F2221" || chip == "PIC18F2321" || chip == "PIC18F4221" || chip == "PIC18F4321";
}

/// Two chips cannot be chosen by their name alone; tests of their own tell.
std::vector<std::string> ChoosableChips() {
  std::vector<std::string> chips = AllChips();
  std::erase(chips, "PIC18F258");
  std::erase(chips, "PIC18F6520");
  return chips;
}

/// Erase, full write, read-back, another revision in verify mode, read-back; `job` has begun with the chip.
void RunWholeJob(Job& job, ProgramPlan plan) {
  const std::string folder = job.session.Folder().Path();
  const AssembledProgram first = Assemble(plan, folder, "first");
  plan.revision = 1;
  const AssembledProgram second = Assemble(plan, folder, "second");
  // The chip comes used: something in its code, ID locations and EEPROM.
  plan.revision = 7;
  plan.full = !plan.full;
  job.Do("burn " + Assemble(plan, folder, "before").hexPath);

  job.Load(first.hexPath);
  job.Click("PICTörlés");
  EXPECT_EQ(job.Chip(), HexImage{}) << "the erase leaves nothing";
  job.Click("FlashÍr");
  EXPECT_EQ(FirstDifference(CodeOf(first.hexPath), job.Chip()), "") << "after the full write";
  EXPECT_EQ(job.Timing(), Lines{});

  job.Load(second.hexPath);
  job.Do("tick Check3");
  job.Click("FlashÍr");
  EXPECT_EQ(FirstDifference(CodeOf(second.hexPath), job.Chip()), "") << "after the verify write";
  job.Click("FlashOl");
  EXPECT_EQ(job.Review(), EqualText);
  if (!EndsRowEraseEarly(plan.chip)) {
    EXPECT_EQ(job.Timing(), Lines{});
  }
  EXPECT_EQ(job.Messages(), Lines{});
}

std::string ChipName(const testing::TestParamInfo<std::string>& info) {
  return info.param;
}

class WholeJob : public testing::TestWithParam<std::string> {};

TEST_P(WholeJob, AnAssembledProgramEndsUpInTheChipOnThePrinterPort) {
  Job job(ShippedBoard());
  job.Begin(GetParam());
  RunWholeJob(job, PlanFor(GetParam()));
}

TEST_P(WholeJob, AnAssembledProgramEndsUpInTheChipOnTheSerialPort) {
  Job job(SerialBoard());
  job.Begin(GetParam());
  RunWholeJob(job, PlanFor(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Chip, WholeJob, testing::ValuesIn(ChoosableChips()), ChipName);

class WholeJobOn : public testing::TestWithParam<BoardKind> {};

TEST_P(WholeJobOn, EachSizeOfWriteBufferIsWrittenOnThisBoard) {
  Job job(GetParam(), "10,0");
  for (const char* chip : {"PIC18F1320", "PIC18F2321", "PIC18F2455", "PIC18F4525"}) {
    SCOPED_TRACE(chip);
    job.Do("untick Check3");
    job.Begin(chip);
    RunWholeJob(job, PlanFor(chip));
  }
}

INSTANTIATE_TEST_SUITE_P(Board, WholeJobOn, testing::ValuesIn(BoardKinds()),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST(WholeJobOfOtherFiles, EveryByteThatAFileCanReachIsWritten) {
  Job job;
  for (const char* chip : {"PIC18F452", "PIC18F4550", "PIC18F6720", "PIC18F8722"}) {
    SCOPED_TRACE(chip);
    job.Do("untick Check3");
    job.Begin(chip);
    ProgramPlan plan = PlanFor(chip);
    plan.full = true;
    RunWholeJob(job, plan);
  }
}

TEST(WholeJobOfOtherFiles, RecordsOfOddLengthKeepTheBytesBehindThemErased) {
  Job job;
  for (const char* chip : {"PIC18F1220", "PIC18F2520", "PIC18F6627"}) {
    SCOPED_TRACE(chip);
    job.Do("untick Check3");
    job.Begin(chip);
    ProgramPlan plan = PlanFor(chip);
    plan.relocatable = true;
    RunWholeJob(job, plan);
  }
}

TEST(WholeJobOfOtherFiles, TheExampleProgramRunsThroughTheRecognisedChip) {
  Job job;
  job.Do({"socket PIC18F452", "click IDazonosít"});
  EXPECT_EQ(job.session.Ask("get Combo1"), "PIC18F452");
  const std::string path = std::string(ZELVO_SOURCE_DIR) + "/examples/blinker.hex";
  job.Load(path);
  job.Click("PICTörlés");
  job.Click("FlashÍr");
  job.Click("FlashOl");
  EXPECT_EQ(job.Review(), EqualText);
  EXPECT_EQ(FirstDifference(CodeOf(path), job.Chip()), "");
}

// Exceptions that the list of chips brings with it.

TEST(ExceptionsOfTheCatalogue, Pic18F258AndPic18F6520CannotBeSelectedByTheirOwnName) {
  Job job;
  for (const char* chip : {"PIC18F258", "PIC18F6520"}) {
    SCOPED_TRACE(chip);
    job.Do({std::string("socket ") + chip, "tab 1", "tab 2", std::string("choose Combo1 ") + chip});
    for (const char* button : {"FlashOl", "FlashÍr", "PICTörlés"}) job.Click(button);
    const std::string none = "ok ok Nincs PIC kiválasztva!";
    EXPECT_EQ(job.Messages(), (Lines{none, none, none}));
    job.Click("IDazonosít");
    EXPECT_EQ(job.session.Ask("get Combo1"), chip) << "it is recognised all the same";
    job.Click("FlashOl");
    EXPECT_EQ(job.Messages(), Lines{none});
  }
}

class ExceptionsOn : public testing::TestWithParam<BoardKind> {};

TEST_P(ExceptionsOn, BothAreWrittenWhenAChipOfTheirSizeIsChosenBefore) {
  Job job(GetParam());
  for (const char* chip : {"PIC18F258", "PIC18F6520"}) {
    SCOPED_TRACE(chip);
    job.Do("untick Check3");
    job.Begin(chip);
    RunWholeJob(job, PlanFor(chip));
  }
}

INSTANTIATE_TEST_SUITE_P(Board, ExceptionsOn, testing::Values(ShippedBoard(), SerialBoard()),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST(ExceptionsOfTheCatalogue, Pic18F8680IsWrittenAndComparedInItsLowerHalfOnly) {
  Job job;
  job.Begin("PIC18F8680");
  EXPECT_EQ(job.session.Ask("var FlashWordMax"), "16383");
  const HexImage low = Bytes(0, 64, 1);
  const HexImage high = Bytes(0x8000, 0x8000, 2);
  job.Burn(high);
  job.Load(low);
  job.Do("tick Check3");
  job.Click("FlashÍr");
  job.Click("FlashOl");
  EXPECT_EQ(job.Review(), EqualText) << "what stands above is not looked at";
  EXPECT_EQ(FirstDifference(With(high, low), job.Code()), "");
  job.Click("PICTörlés");
  EXPECT_EQ(job.Code(), HexImage{}) << "the erase takes both halves";
}

TEST(ExceptionsOfTheCatalogue, ARecordAt8000hOrAboveCannotBeLoaded) {
  Job job;
  job.Begin("PIC18F4620");
  job.Load(Bytes(0x7FF0, 16, 1));
  EXPECT_EQ(job.Messages(), Lines{});
  EXPECT_NE(job.session.Ask("cell MSFlexGrid1 2048 8"), "FFFF");
  job.Load(With(Bytes(0, 16, 1), Bytes(0x8000, 16, 1)));
  EXPECT_EQ(job.Messages(), Lines{"ok ok A fájl nem kompatibilis a kiválasztott PIC-el!"});
  EXPECT_EQ(job.session.Ask("cell MSFlexGrid1 1 1"), "FFFF") << "the image is erased again";
  EXPECT_EQ(job.session.Ask("cell MSFlexGrid1 2048 8"), "FFFF");
}

TEST(ExceptionsOfTheCatalogue, ARecordAt18000hLandsAt8000h) {
  Job job;
  job.Begin("PIC18F8722");
  const HexImage upper = Bytes(0x18000, 16, 4);
  job.Load(upper);
  EXPECT_EQ(job.Messages(), Lines{}) << "nothing is told";
  job.Click("FlashÍr");
  HexImage lower;
  for (const auto& [address, value] : upper) lower[address - 0x10000] = value;
  EXPECT_EQ(FirstDifference(lower, job.Chip()), "");
}

TEST(ExceptionsOfTheCatalogue, MemoryThatNoFileReachesIsCopiedFromAnotherChip) {
  Job job;
  job.Begin("PIC18F8722");
  const HexImage all = Bytes(0, 0x20000, 9);
  job.Burn(all);
  job.Click("FlashOl");
  EXPECT_EQ(job.Review(), DifferentText);
  job.Click("FlashOlv.FlashPuff");
  job.Do("socket PIC18F8722");
  job.Click("FlashÍr");
  EXPECT_EQ(FirstDifference(WithoutErased(all), job.Chip()), "");
  job.Click("FlashOl");
  EXPECT_EQ(job.Review(), EqualText);
  EXPECT_EQ(job.Timing(), Lines{});
}

}  // namespace
}  // namespace zelvo::test
