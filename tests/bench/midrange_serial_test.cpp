// Programming mode, commands, words and the address counter of the simulated mid-range chips.
#include <gtest/gtest.h>

#include <array>

#include "midrange_driver.h"

namespace zelvo::bench {
namespace {

constexpr const char* kOneOfEachGeneration[] = {"PIC16F84A", "PIC16F628", "PIC16F877",  "PIC16F877A",
                                                "PIC16F819", "PIC16F88",  "PIC16F648A", "PIC12F675",
                                                "PIC16F690", "PIC16F616", "PIC16F917",  "PIC16F887"};

/// A word that is not erased, for telling whether the chip answers.
bool Answers(MidDriver& chip) {
  chip.LoadConfig();
  chip.Advance(6);
  return chip.Read() != 0x3FFF;
}

TEST(MidRangeSerial, EitherVoltageMayComeFirst) {
  for (const char* name : kOneOfEachGeneration) {
    SCOPED_TRACE(name);
    MidDriver vddFirst(name);
    vddFirst.Enter();
    EXPECT_TRUE(Answers(vddFirst));
    MidDriver vppFirst(name);
    vppFirst.Set(&LineLevels::vpp, true);
    vppFirst.Set(&LineLevels::vdd, true);
    EXPECT_TRUE(Answers(vppFirst));
  }
}

TEST(MidRangeSerial, DoesNotEnterWhileClockOrDataIsHigh) {
  for (auto line : {&LineLevels::pgc, &LineLevels::pgd}) {
    MidDriver chip("PIC16F877");
    chip.Set(line, true);
    chip.Set(&LineLevels::vdd, true);
    chip.Set(&LineLevels::vpp, true);
    chip.Set(line, false);
    EXPECT_FALSE(Answers(chip));
  }
}

TEST(MidRangeSerial, SaysNothingWithoutBothVoltages) {
  for (auto line : {&LineLevels::vdd, &LineLevels::vpp}) {
    MidDriver chip("PIC16F84A");
    chip.Set(line, true);
    EXPECT_FALSE(Answers(chip));
    chip.Enter();
    chip.Set(line, false);
    EXPECT_FALSE(Answers(chip));
  }
}

TEST(MidRangeSerial, APowerCycleBringsTheCounterBackToAddressZero) {
  MidDriver chip("PIC16F84A");
  chip.BurnWord(0, 0x1234);
  chip.Enter();
  chip.LoadConfig();
  chip.Bits(0x3, 3);  // half a command is forgotten too
  chip.Reenter();
  EXPECT_EQ(chip.Read(), 0x1234U);
}

TEST(MidRangeSerial, ShiftsAWordOutFromTheSecondRisingEdgeToTheSixteenth) {
  MidDriver chip("PIC16F84A");
  chip.BurnWord(0, 0x2001);
  chip.Enter();
  chip.Command(0x04);
  EXPECT_EQ(chip.Data(), std::nullopt);
  for (int clock = 1; clock <= 16; ++clock) {
    chip.Set(&LineLevels::pgc, true);
    if (clock == 1 || clock == 16) {
      EXPECT_EQ(chip.Data(), std::nullopt) << clock;
    } else {
      EXPECT_EQ(chip.Data(), clock == 2 || clock == 15) << clock;
    }
    const auto high = chip.Data();
    chip.Set(&LineLevels::pgc, false);
    EXPECT_EQ(chip.Data(), high) << clock;
  }
}

TEST(MidRangeSerial, TakesDataAsItStoodBeforeTheFallingEdge) {
  MidDriver chip("PIC16F628A");
  chip.Enter();
  chip.Command(0x02);
  for (int i = 0; i < 16; ++i) {
    chip.Set(&LineLevels::pgd, true);
    chip.Set(&LineLevels::pgc, true);
    chip.Set(&LineLevels::pgd, i % 2 == 0);  // may change while the clock is high
    chip.Drive({.vdd = true, .vpp = true, .pgc = false, .pgd = i % 2 != 0});
  }
  chip.Command(0x08, 3 * MidDriver::Ms);
  // Clocks 2 to 15 are the word: odd ones of them zero.
  EXPECT_EQ(chip.Read(), 0x2AAAU);
}

TEST(MidRangeSerial, StartAndStopBitMeanNothing) {
  for (const char* name : kOneOfEachGeneration) {
    SCOPED_TRACE(name);
    MidDriver chip(name);
    chip.Enter();
    chip.Send(0x03, 0x00, true);
    chip.Send(0x02, 0x1555, true);
    const bool held = chip.Fault("Tprog").has_value();
    EXPECT_FALSE(held);
    chip.Command(0x08, 10 * MidDriver::Ms);
    EXPECT_EQ(chip.Read(), 0x1555U);
  }
}

TEST(MidRangeSerial, TheCounterWrapsInProgramMemory) {
  const std::pair<const char*, int> sizes[] = {
      {"PIC16F84A", 1024}, {"PIC16F628", 2048}, {"PIC16F690", 4096}, {"PIC16F877", 8192}};
  for (const auto& [name, words] : sizes) {
    SCOPED_TRACE(name);
    MidDriver chip(name);
    chip.BurnWord(0, 0x0AAA);
    chip.BurnWord(static_cast<unsigned>(words) - 1, 0x0555);
    chip.Enter();
    chip.Advance(words - 1);
    EXPECT_EQ(chip.Read(), 0x0555U);
    chip.Advance();
    EXPECT_EQ(chip.Read(), 0x0AAAU);
  }
}

TEST(MidRangeSerial, TheCounterWrapsInConfigurationSpaceAndDoesNotLeaveIt) {
  for (const char* name : kOneOfEachGeneration) {
    SCOPED_TRACE(name);
    MidDriver chip(name);
    chip.BurnWord(0, 0x0AAA);
    chip.BurnWord(0x2000, 0x0123);
    chip.Enter();
    chip.LoadConfig();
    EXPECT_EQ(chip.Read(), 0x0123U);
    chip.Advance(0x3F);
    EXPECT_EQ(chip.Read(), 0x3FFFU);
    chip.Advance();
    EXPECT_EQ(chip.Read(), 0x0123U);
  }
}

TEST(MidRangeSerial, ConfigurationSpaceHoldsIdsDeviceIdAndConfigurationWords) {
  MidDriver chip("PIC16F887");
  for (unsigned i = 0; i < 4; ++i) chip.BurnWord(0x2000 + i, 0x3F80 + i);
  chip.BurnWord(0x2007, 0x2FC2);
  chip.BurnWord(0x2008, 0x0000);
  chip.Enter();
  chip.LoadConfig();
  const std::array<unsigned, 10> expected{0x3F80, 0x3F81, 0x3F82, 0x3F83, 0x3FFF,
                                          0x3FFF, 0x2080, 0x2FC2, 0x38FF, 0x15A6};
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(chip.Read(), expected[i]) << i;
    chip.Advance();
  }
}

TEST(MidRangeSerial, TheDeviceIdCanBeAnotherOne) {
  MidDriver chip("PIC16F887", 0x2085);
  chip.Enter();
  EXPECT_EQ(chip.ReadAt(0x2006), 0x2085U);
  MidDriver wide("PIC16F887", 0xFFFF);
  wide.Enter();
  EXPECT_EQ(wide.ReadAt(0x2006), 0x3FFFU);
}

TEST(MidRangeSerial, UpperCommandBitsMatterOnTheOldestChipsOnly) {
  struct Case {
    const char* name;
    unsigned code;
    bool reads;
  };
  const Case cases[] = {{"PIC16F84A", 0x24, false}, {"PIC16F628", 0x14, false}, {"PIC16F877", 0x34, false},
                        {"PIC16F877A", 0x34, true}, {"PIC16F819", 0x24, true},  {"PIC16F88", 0x14, true},
                        {"PIC16F648A", 0x34, true}, {"PIC12F675", 0x34, true},  {"PIC16F690", 0x34, true},
                        {"PIC16F616", 0x34, true},  {"PIC16F917", 0x34, true},  {"PIC16F887", 0x34, true}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    MidDriver chip(c.name);
    chip.BurnWord(0, 0x0000);
    chip.Enter();
    chip.Command(c.code);
    chip.Clock(false);
    chip.Clock(false);
    EXPECT_EQ(chip.Data().has_value(), c.reads);
  }
}

TEST(MidRangeSerial, AnUnknownCommandIsSixClocksAndNothingElse) {
  for (const char* name : kOneOfEachGeneration) {
    SCOPED_TRACE(name);
    MidDriver chip(name);
    chip.BurnWord(0, 0x0AAA);
    chip.Enter();
    chip.Command(0x0D);
    chip.Command(0x2E);
    EXPECT_EQ(chip.Read(), 0x0AAAU);
  }
}

TEST(MidRangeSerial, AFrameOfFourteenClocksPutsEverythingBehindItOutOfStep) {
  MidDriver chip("PIC16F628A");
  chip.BurnWord(0, 0x0AAA);
  chip.Enter();
  chip.Command(0x02);
  chip.Bits(0x3FFF, 14);
  EXPECT_NE(chip.Read(), 0x0AAAU);
  chip.Reenter();
  EXPECT_EQ(chip.Read(), 0x0AAAU);
}

}  // namespace
}  // namespace zelvo::bench
