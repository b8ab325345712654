// Programming of the simulated mid-range chips: latches, the two kinds of timing, data memory.
#include <gtest/gtest.h>

#include "midrange_driver.h"

namespace zelvo::bench {
namespace {

constexpr Nanoseconds kMs = MidDriver::Ms;
constexpr Nanoseconds kUs = MidDriver::Us;

/// How a generation starts programming: 08h by the chip's own timer, or 18h until the end command.
struct Way {
  const char* name;
  int latches;
  bool rewrites;     // 08h erases before it programs
  bool heldBy18;     // 18h wants an end command
  unsigned end = 0;  // that command
};

constexpr Way kWays[] = {
    {"PIC16F84A", 1, true, false},       {"PIC16F628", 1, true, false},
    {"PIC16F877", 1, true, false},       {"PIC16F877A", 8, true, true, 0x17},
    {"PIC16F819", 4, true, true, 0x17},  {"PIC16F88", 4, true, true, 0x17},
    {"PIC16F648A", 1, false, false},     {"PIC12F675", 1, false, true, 0x0A},
    {"PIC16F690", 4, false, true, 0x0A}, {"PIC16F616", 4, false, true, 0x0A},
    {"PIC16F914", 4, false, true, 0x0A}, {"PIC16F917", 8, false, true, 0x0A},
    {"PIC16F882", 4, false, true, 0x0A}, {"PIC16F887", 8, false, true, 0x0A},
};

std::string NameOf(const ::testing::TestParamInfo<Way>& info) {
  return info.param.name;
}

class EveryWay : public ::testing::TestWithParam<Way> {
 protected:
  EveryWay() { chip.Enter(); }
  /// Programs without an erase before, as the generation does it.
  void Program() {
    chip.Command(GetParam().rewrites ? 0x18 : 0x08, 6 * kMs);
    if (GetParam().rewrites && GetParam().heldBy18) chip.Command(GetParam().end);
  }
  MidDriver chip{GetParam().name};
};

TEST_P(EveryWay, ARowTakesItsLatchesAtOnce) {
  const int latches = GetParam().latches;
  chip.Advance(latches);
  for (int i = 0; i < latches; ++i) {
    chip.Load(0x1100U + static_cast<unsigned>(i));
    if (i + 1 < latches) chip.Advance();
  }
  Program();
  const auto first = static_cast<unsigned>(latches);
  for (unsigned i = 0; i < first; ++i) EXPECT_EQ(chip.ReadAt(first + i), 0x1100 + i);
  EXPECT_EQ(chip.ReadAt(first - 1), 0x3FFFU);
  EXPECT_EQ(chip.ReadAt(2 * first), 0x3FFFU);
  EXPECT_TRUE(chip.Device().Timing().empty());
}

TEST_P(EveryWay, ARowIsProgrammedWhereItsLoadsWereMade) {
  const int latches = GetParam().latches;
  for (int i = 0; i < latches; ++i) {
    chip.Load(0x2200U + static_cast<unsigned>(i));
    chip.Advance();
  }
  Program();  // the counter is in the next row already
  for (unsigned i = 0; i < static_cast<unsigned>(latches); ++i) EXPECT_EQ(chip.ReadAt(i), 0x2200 + i);
  EXPECT_EQ(chip.ReadAt(static_cast<unsigned>(latches)), 0x3FFFU);
}

TEST_P(EveryWay, ALatchThatWasNotLoadedLeavesItsWordAlone) {
  for (std::uint32_t i = 0; i < 8; ++i) chip.BurnWord(i, 0x0F0F);
  chip.Advance(1);
  chip.Load(0x00FF);
  Program();
  EXPECT_EQ(chip.ReadAt(1), 0x000FU);
  for (unsigned i : {0U, 2U, 3U, 7U}) EXPECT_EQ(chip.ReadAt(i), 0x0F0FU) << i;
}

TEST_P(EveryWay, LatchesAreEmptyBehindProgramming) {
  chip.Load(0x0000);
  Program();
  chip.Advance(GetParam().latches);
  Program();
  EXPECT_EQ(chip.ReadAt(static_cast<unsigned>(GetParam().latches)), 0x3FFFU);
}

TEST_P(EveryWay, Command08ErasesBeforeOnTheOlderChipsOnly) {
  chip.BurnWord(0, 0x00FF);
  chip.Load(0x0FF0);
  chip.Command(0x08, 10 * kMs);
  EXPECT_EQ(chip.Read(), GetParam().rewrites ? 0x0FF0U : 0x00F0U);
}

TEST_P(EveryWay, ProgramsUserIdsAndTheConfigurationWord) {
  chip.LoadConfig(0x0011);
  Program();
  for (unsigned i = 1; i < 4; ++i) {
    chip.Advance();
    chip.Load(0x0011 * (i + 1));
    Program();
  }
  chip.Advance(4);
  chip.Load(0x3FFC);
  Program();
  chip.LoadConfig();
  for (unsigned i = 0; i < 4; ++i) {
    EXPECT_EQ(chip.Read(), 0x0011 * (i + 1));
    chip.Advance();
  }
  chip.Advance(3);
  EXPECT_EQ(chip.Read() & 3U, 0U);
}

TEST_P(EveryWay, TheConfigurationWordIsWrittenWithoutTheUserIds) {
  chip.LoadConfig(0x0000);
  chip.Advance(7);
  chip.Load(0x3FFD);
  Program();
  EXPECT_EQ(chip.ReadAt(0x2007) & 3U, 1U);
  for (unsigned i = 0; i < 4; ++i) EXPECT_EQ(chip.ReadAt(0x2000 + i), 0x3FFFU) << i;
}

TEST_P(EveryWay, TheWordOfLoadConfigurationGoesAlongWithTheCounterOfAChipWithOneLatch) {
  chip.LoadConfig(0x3FFD);
  chip.Advance(7);
  Program();
  EXPECT_EQ(chip.ReadAt(0x2007) & 3U, GetParam().latches == 1 ? 1U : 3U);
}

TEST_P(EveryWay, TimedFromOutsideTheChipHearsTheEndOnly) {
  if (!GetParam().heldBy18) {
    chip.Load(0x0123);
    chip.Command(0x18, 10 * kMs);  // ends by itself, or is the same as 08h
    EXPECT_EQ(chip.Read(), 0x0123U);
    return;
  }
  chip.Load(0x0123);
  chip.Command(0x18, 3 * kMs);
  chip.Advance();
  EXPECT_EQ(chip.Read(), 0x3FFFU);  // the line floats
  chip.Command(GetParam().end);
  EXPECT_EQ(chip.Read(), 0x0123U);
  EXPECT_TRUE(chip.Device().Timing().empty());
}

TEST_P(EveryWay, ACommandThatComesTooEarlyIsNotExecutedAndTold) {
  chip.Load(0x0123);
  chip.Command(0x08, 100 * kUs);
  chip.Advance();
  EXPECT_EQ(chip.Read(), 0x3FFFU);
  chip.Wait(10 * kMs);
  EXPECT_EQ(chip.Read(), 0x0123U);  // it did not advance
  const auto fault = chip.Fault("Tprog");
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->count, 2U);
  EXPECT_EQ(fault->minimum, GetParam().rewrites ? 8 * kMs : 2'500 * kUs);
}

TEST_P(EveryWay, AHoldThatIsTooShortIsToldAndTheCellsAreProgrammed) {
  if (!GetParam().heldBy18) return;
  chip.Load(0x0123);
  chip.Command(0x18, 900 * kUs);
  chip.Command(GetParam().end);
  EXPECT_EQ(chip.Read(), 0x0123U);
  const auto fault = chip.Fault("Tprog2");
  ASSERT_TRUE(fault.has_value());
  EXPECT_GE(fault->shortest, 900 * kUs);
  EXPECT_LT(fault->shortest, 910 * kUs);
  EXPECT_EQ(fault->minimum, GetParam().end == 0x17 ? 1 * kMs : 2 * kMs);
}

TEST_P(EveryWay, WhatRunsWhenThePowerGoesStaysErasedOrAsItWas) {
  chip.BurnWord(0, 0x00FF);
  chip.Load(0x0FF0);
  chip.Command(0x08, 100 * kUs);
  EXPECT_EQ(chip.ReadAt(0), GetParam().rewrites ? 0x3FFFU : 0x00FFU);
  EXPECT_TRUE(chip.Fault("Tprog").has_value());
}

INSTANTIATE_TEST_SUITE_P(MidRange, EveryWay, ::testing::ValuesIn(kWays), NameOf);

class EveryDataMemory : public EveryWay {};

TEST_P(EveryDataMemory, TakesABytePerProgramming) {
  for (unsigned i = 0; i < 3; ++i) {
    chip.LoadData(0x3F00 | (0x10 + i));  // only eight bits are there
    chip.Command(0x08, 10 * kMs);
    chip.Advance();
  }
  for (unsigned i = 0; i < 3; ++i) EXPECT_EQ(chip.DataAt(i), 0x10 + i);
  EXPECT_EQ(chip.DataAt(3), 0xFFU);
  EXPECT_EQ(chip.ReadAt(0), 0x3FFFU);
  EXPECT_TRUE(chip.Device().Timing().empty());
}

TEST_P(EveryDataMemory, ItsByteIsErasedBeforeBy08AndByAllCommandsOfTheNewerChips) {
  chip.BurnData(0, 0x0F);
  chip.BurnData(1, 0x0F);
  chip.LoadData(0x3C);
  chip.Command(0x08, 10 * kMs);
  EXPECT_EQ(chip.ReadData(), 0x3CU);
  chip.Advance();
  chip.LoadData(0x3C);
  chip.Command(0x18, 10 * kMs);
  if (GetParam().heldBy18) chip.Command(GetParam().end);
  EXPECT_EQ(chip.ReadData(), GetParam().rewrites ? 0x0CU : 0x3CU);
}

TEST_P(EveryDataMemory, WrapsAtItsSizeAndFollowsTheCounterInConfigurationSpace) {
  chip.BurnData(1, 0x77);
  EXPECT_EQ(chip.DataAt(1), 0x77U);
  EXPECT_EQ(chip.DataAt(257), 0x77U);
  EXPECT_EQ(chip.DataAt(0x2001), 0x77U);
}

TEST_P(EveryDataMemory, ItsProgrammingTimeIsItsOwn) {
  chip.LoadData(0x00);
  chip.Command(0x08, 3 * kMs);
  chip.Advance();
  const auto fault = chip.Fault("Tdprog");
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->minimum, GetParam().rewrites ? 8 * kMs : 6 * kMs);
}

INSTANTIATE_TEST_SUITE_P(MidRange, EveryDataMemory, ::testing::ValuesIn([] {
                           std::vector<Way> ways;
                           for (const auto& way : kWays) {
                             if (std::string(way.name) != "PIC16F616") ways.push_back(way);
                           }
                           return ways;
                         }()),
                         NameOf);

TEST(MidRangeProgram, AChipWithoutDataMemoryReadsZerosThere) {
  MidDriver chip("PIC16F616");
  chip.Enter();
  EXPECT_EQ(chip.ReadData(), 0U);
  chip.LoadData(0x55);
  chip.Command(0x08, 10 * kMs);
  EXPECT_EQ(chip.ReadData(), 0U);
  EXPECT_TRUE(chip.Device().Image().empty());
}

TEST(MidRangeProgram, TheSecondConfigurationWordIsAWordOfItsOwn) {
  for (const char* name : {"PIC16F87", "PIC16F88", "PIC16F886"}) {
    MidDriver chip(name);
    chip.Enter();
    const bool newer = std::string(name) == "PIC16F886";
    const unsigned blank = chip.ReadAt(0x2008);
    EXPECT_EQ(blank, 0x3FFFU);
    chip.Load(0x0000);
    chip.Command(0x08, 10 * kMs);
    EXPECT_EQ(chip.ReadAt(0x2008), newer ? 0x38FFU : 0x3FFCU) << name;
    EXPECT_EQ(chip.ReadAt(0x2007), 0x3FFFU) << name;
  }
}

TEST(MidRangeProgram, FactoryWordsCannotBeProgrammed) {
  MidDriver chip("PIC16F690");
  chip.Enter();
  for (const unsigned address : {0x2006U, 0x2008U}) {
    const unsigned before = chip.ReadAt(address);
    chip.Load(0x0000);
    chip.Command(0x08, 10 * kMs);
    EXPECT_EQ(chip.Read(), before) << address;
  }
}

TEST(MidRangeProgram, TheFirstClockAndTheNextFrameKeepTheirDistance) {
  MidDriver chip("PIC16F628A");
  chip.Drive({});
  chip.Drive({.vdd = true});
  chip.Drive({.vdd = true, .vpp = true});
  (void)chip.Read();
  ASSERT_TRUE(chip.Fault("Thld0").has_value());
  EXPECT_EQ(chip.Fault("Thld0")->minimum, 5 * kUs);
  EXPECT_FALSE(chip.Fault("Tdly2").has_value());
  chip.Wait(-1900);
  (void)chip.Read();
  ASSERT_TRUE(chip.Fault("Tdly2").has_value());
  EXPECT_EQ(chip.Fault("Tdly2")->shortest, 100);
}

TEST(MidRangeProgram, TheClockKeepsItsLevels) {
  MidDriver chip("PIC16F628A");
  chip.Enter();
  chip.Set(&LineLevels::pgc, true);
  chip.Wait(-950);
  chip.Set(&LineLevels::pgc, false);
  chip.Wait(-960);
  chip.Set(&LineLevels::pgc, true);
  EXPECT_EQ(chip.Fault("P2B")->shortest, 50);
  EXPECT_EQ(chip.Fault("P2A")->shortest, 40);
}

}  // namespace
}  // namespace zelvo::bench
