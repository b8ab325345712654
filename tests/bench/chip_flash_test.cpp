// Write latches, programming and configuration.
#include <gtest/gtest.h>

#include "bench/pic18_facts.h"
#include "chip_driver.h"

namespace zelvo::bench {
namespace {

TEST(ChipFlash, ProgramsEightBytesOfOnePanelOfAnOldChip) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.AccessCode();
  chip.Panels(false);
  chip.WriteEight(0x2100, 0x12);
  EXPECT_EQ(chip.ReadAt(0x20FF), 0xFFU);
  for (int i = 0; i < 8; ++i) EXPECT_EQ(chip.ReadByte(0x9), 0x12U);
  EXPECT_EQ(chip.ReadByte(0x9), 0xFFU);
  EXPECT_TRUE(chip.Device().Timing().empty());
}

TEST(ChipFlash, ProgramsAllPanelsTogetherInMultiPanelMode) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.AccessCode();
  chip.Panels(true);
  for (unsigned panel = 0; panel < 4; ++panel) {
    chip.Pointer(panel * 0x2000 + 0x40);
    for (int i = 0; i < 3; ++i) chip.Command(0xD, panel * 0x101);
    chip.Command(panel == 3 ? 0xF : 0xC, panel * 0x101);
  }
  chip.HeldNop(kMs, 10 * kUs);
  for (unsigned panel = 0; panel < 4; ++panel) {
    for (unsigned i = 0; i < 8; ++i) EXPECT_EQ(chip.ReadAt(panel * 0x2000 + 0x40 + i), panel);
  }
}

TEST(ChipFlash, LeavesPanelsAloneWhoseLatchesWereNotLoadedInMultiPanelMode) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.AccessCode();
  chip.Panels(true);
  chip.WriteEight(0x2000, 0x00);
  EXPECT_EQ(chip.ReadAt(0x0000), 0xFFU);
  EXPECT_EQ(chip.ReadAt(0x2000), 0x00U);
}

TEST(ChipFlash, ProgrammingOnlyClearsBitsSoASecondWriteOverOldContentsLeavesTheirAnd) {
  for (const auto* name : {"PIC18F452", "PIC18F2221"}) {
    ChipDriver chip(name);
    chip.Enter();
    chip.AccessCode();
    chip.WriteEight(0x40, 0x0F);
    chip.WriteEight(0x40, 0x3C);
    EXPECT_EQ(chip.ReadAt(0x40), 0x0CU) << name;
  }
}

TEST(ChipFlash, ResetsTheLatchesAfterProgramming) {
  ChipDriver chip("PIC18F2321");
  chip.Enter();
  chip.AccessCode();
  chip.WriteEight(0x40, 0x00);
  chip.Pointer(0x48);
  chip.Command(0xF, 0x1234);
  chip.HeldNop(kMs, 200 * kUs);
  EXPECT_EQ(chip.ReadAt(0x48), 0x34U);
  EXPECT_EQ(chip.ReadByte(0x9), 0x12U);
  EXPECT_EQ(chip.ReadByte(0x9), 0xFFU);
}

TEST(ChipFlash, WritesAWholeBufferWhateverPlaceInItThePointerHas) {
  ChipDriver chip("PIC18F4620");
  chip.Enter();
  chip.AccessCode();
  chip.Pointer(0x1000);
  for (unsigned i = 0; i < 31; ++i) chip.Command(0xD, i * 0x101);
  chip.Command(0xF, 31 * 0x101);
  chip.HeldNop(kMs, 200 * kUs);
  for (unsigned i = 0; i < 64; ++i) EXPECT_EQ(chip.ReadAt(0x1000 + i), i / 2);
}

TEST(ChipFlash, KeepsTheLastLoadWhenMoreBytesAreLoadedThanTheBufferHolds) {
  ChipDriver chip("PIC18F4520");
  chip.Enter();
  chip.AccessCode();
  chip.Pointer(0x1000);
  for (unsigned i = 0; i < 31; ++i) chip.Command(0xD, i * 0x101);
  chip.Command(0xF, 31 * 0x101);
  chip.HeldNop(kMs, 200 * kUs);
  EXPECT_EQ(chip.ReadAt(0x1000), 0xFFU);
  EXPECT_EQ(chip.ReadAt(0x1020), 16U);
}

TEST(ChipFlash, StartsProgrammingAndMovesOnWithCommand1110OfANewChip) {
  ChipDriver chip("PIC18F2221");
  chip.Enter();
  chip.AccessCode();
  chip.Pointer(0x40);
  for (const unsigned value : {0x1111U, 0x2222U}) {
    for (int i = 0; i < 3; ++i) chip.Command(0xD, value);
    chip.Command(0xE, value);
    chip.HeldNop(kMs, 200 * kUs);
  }
  EXPECT_EQ(chip.ReadAt(0x47), 0x11U);
  EXPECT_EQ(chip.ReadByte(0x9), 0x22U);
}

TEST(ChipFlash, MovesTwoBackWithCommand1110OfAnOldChip) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.AccessCode();
  chip.Pointer(0x46);
  for (int i = 0; i < 3; ++i) chip.Command(0xE, 0x3333);
  chip.Command(0xF, 0x3333);
  chip.HeldNop(kMs, 10 * kUs);
  EXPECT_EQ(chip.ReadAt(0x40), 0x33U);
  EXPECT_EQ(chip.ReadAt(0x47), 0x33U);
}

TEST(ChipFlash, DoesNotProgramCodeWithoutAccessToIt) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.AccessConfig();
  chip.WriteEight(0x40, 0x00);
  chip.AccessEeprom();
  chip.WriteEight(0x40, 0x00);
  EXPECT_EQ(chip.ReadAt(0x40), 0xFFU);
}

TEST(ChipFlash, StartsProgrammingAtTheFourthClockWhateverCommandFollows) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.AccessCode();
  chip.Pointer(0x40);
  chip.Command(0xF, 0x0000);
  EXPECT_EQ(chip.ReadByte(0x9), 0x00U);
  const auto fault = chip.Fault("P9");
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->shortest, kUs);
  EXPECT_EQ(fault->minimum, kMs);
  EXPECT_EQ(fault->count, 1U);
}

TEST(ChipFlash, WritesIdLocationsWithSinglePanelWritesOnly) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.AccessCode();
  chip.Panels(true);
  chip.WriteEight(0x200000, 0x12);
  EXPECT_EQ(chip.ReadAt(0x200000), 0xFFU);
  chip.Panels(false);
  chip.WriteEight(0x200000, 0x12);
  EXPECT_EQ(chip.ReadAt(0x200000), 0x12U);
  EXPECT_EQ(chip.ReadAt(0x200007), 0x12U);
}

TEST(ChipFlash, WritesIdLocationsOfANewChip) {
  ChipDriver chip("PIC18F8722");
  chip.Enter();
  chip.AccessCode();
  chip.WriteEight(0x200000, 0x34);
  EXPECT_EQ(chip.Device().Image().size(), 8U);
  EXPECT_EQ(chip.ReadAt(0x200007), 0x34U);
}

TEST(ChipConfig, TakesTheByteOfThePayloadThatThePointersParitySays) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.AccessConfig();
  chip.WriteConfig(0x300002, 0x0A);
  chip.WriteConfig(0x300003, 0x05);
  EXPECT_EQ(chip.ReadAt(0x300002), 0x0AU);
  EXPECT_EQ(chip.ReadAt(0x300003), 0x05U);
  EXPECT_TRUE(chip.Device().Timing().empty());
}

TEST(ChipConfig, ReadsUnimplementedBitsAsZero) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.AccessConfig();
  chip.WriteConfig(0x300001, 0xFF);
  chip.WriteConfig(0x300004, 0xFF);
  EXPECT_EQ(chip.ReadAt(0x300001), 0x27U);
  EXPECT_EQ(chip.ReadAt(0x300004), 0x00U);
}

TEST(ChipConfig, TurnsAFeatureBitOnAgainButNotAProtectionBit) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.AccessConfig();
  chip.WriteConfig(0x300003, 0x00);
  chip.WriteConfig(0x300003, 0x0F);
  EXPECT_EQ(chip.ReadAt(0x300003), 0x0FU);
  chip.WriteConfig(0x300008, 0x00);
  chip.WriteConfig(0x300008, 0x0F);
  EXPECT_EQ(chip.ReadAt(0x300008), 0x00U);
}

TEST(ChipConfig, IsNotWrittenWithoutAccessToIt) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.AccessCode();
  chip.WriteConfig(0x300003, 0x00);
  EXPECT_EQ(chip.ReadAt(0x300003), 0x0FU);
}

TEST(ChipConfig, WantsALongerHoldOnAnOldChip) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.AccessConfig();
  chip.WriteConfig(0x300003, 0x00, kMs);
  const auto fault = chip.Fault("P9 config");
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->shortest, kMs);
  EXPECT_EQ(fault->minimum, 5 * kMs);
  EXPECT_EQ(chip.ReadAt(0x300003), 0x00U);
}

TEST(ChipConfig, DeviceIdIsReadOnly) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.AccessConfig();
  chip.WriteConfig(0x3FFFFE, 0x00);
  EXPECT_EQ(chip.ReadAt(0x3FFFFE), 0x20U);
  EXPECT_FALSE(chip.Device().Burn(0x3FFFFE, 0));
}

TEST(ChipTiming, TellsAHoldAndADischargeThatWereTooShort) {
  ChipDriver chip("PIC18F4520");
  chip.Enter();
  chip.AccessCode();
  chip.Pointer(0x40);
  chip.Command(0xF, 0x0000);
  chip.HeldNop(950 * kUs, 40 * kUs);
  chip.Command(0xF, 0x0000);
  chip.HeldNop(900 * kUs, 200 * kUs);
  const auto hold = chip.Fault("P9");
  ASSERT_TRUE(hold.has_value());
  EXPECT_EQ(hold->shortest, 900 * kUs);
  EXPECT_EQ(hold->count, 2U);
  const auto discharge = chip.Fault("P10");
  ASSERT_TRUE(discharge.has_value());
  EXPECT_EQ(discharge->minimum, 100 * kUs);
  EXPECT_EQ(discharge->count, 1U);
}

TEST(ChipTiming, TellsClocksFasterThanTheChipFollows) {
  auto chip = MakeChip("PIC18F452", std::nullopt);
  Nanoseconds now = 0;
  LineLevels lines;
  for (auto line : {&LineLevels::vdd, &LineLevels::vpp}) {
    lines.*line = true;
    chip->Drive(lines, now += kMs);
  }
  now += kMs;
  for (const Nanoseconds edge : {100, 30, 35}) {
    lines.pgc = !lines.pgc;
    chip->Drive(lines, now += edge);
  }
  const auto faults = chip->Timing();
  ASSERT_EQ(faults.size(), 2U);
  EXPECT_EQ(faults[0].kind, "P2A");
  EXPECT_EQ(faults[0].shortest, 35);
  EXPECT_EQ(faults[1].kind, "P2B");
  EXPECT_EQ(faults[1].shortest, 30);
}

}  // namespace
}  // namespace zelvo::bench
