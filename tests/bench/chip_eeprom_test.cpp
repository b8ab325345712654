// Data EEPROM through EECON1.
#include <gtest/gtest.h>

#include "chip_driver.h"

namespace zelvo::bench {
namespace {

TEST(ChipEeprom, ReadsAtOnce) {
  ChipDriver chip("PIC18F8722");
  ASSERT_TRUE(chip.Device().Burn(0xF003A7, 0x5A));
  chip.Enter();
  EXPECT_EQ(chip.ReadEeprom(0x3A7), 0x5AU);
  EXPECT_EQ(chip.ReadEeprom(0x2A7), 0xFFU);
}

TEST(ChipEeprom, WritesInFourMillisecondsAndShowsItInWr) {
  ChipDriver chip("PIC18F4520");
  chip.Enter();
  chip.AccessEeprom();
  chip.SetEeprom(0x10, 0x3C);
  chip.Core({0x82A6});
  const auto start = chip.Now();
  while ((chip.Eecon1() & 0x02U) != 0) ASSERT_LT(chip.Now() - start, 10 * kMs);
  EXPECT_GE(chip.Now() - start, 4 * kMs);
  EXPECT_LT(chip.Now() - start, 5 * kMs);
  EXPECT_EQ(chip.ReadEeprom(0x10), 0x3CU);
  EXPECT_TRUE(chip.Device().Timing().empty());
}

TEST(ChipEeprom, SetsBitsAgainBecauseAWriteErasesTheByteFirst) {
  ChipDriver chip("PIC18F4520");
  ASSERT_TRUE(chip.Device().Burn(0xF00010, 0x00));
  chip.Enter();
  chip.AccessEeprom();
  chip.SetEeprom(0x10, 0xA5);
  chip.Core({0x82A6});
  chip.Wait(5 * kMs);
  EXPECT_EQ(chip.ReadEeprom(0x10), 0xA5U);
}

TEST(ChipEeprom, AnOldChipWantsTheUnlockSequence) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.AccessEeprom();
  chip.SetEeprom(0x10, 0x3C);
  chip.Core({0x82A6});
  chip.Wait(5 * kMs);
  EXPECT_EQ(chip.ReadEeprom(0x10), 0xFFU);
  chip.SetEeprom(0x10, 0x3C);
  chip.Core({0x84A6});
  chip.Unlock();
  chip.Core({0x82A6});
  chip.Wait(5 * kMs);
  EXPECT_EQ(chip.ReadEeprom(0x10), 0x3CU);
}

TEST(ChipEeprom, AWriteStartedWhileAnotherRunsIsLostAndTold) {
  ChipDriver chip("PIC18F4520");
  chip.Enter();
  chip.AccessEeprom();
  chip.SetEeprom(0x10, 0x11);
  chip.Core({0x82A6});
  chip.Wait(2 * kMs);
  chip.SetEeprom(0x11, 0x22);
  chip.Core({0x82A6});
  chip.Wait(5 * kMs);
  EXPECT_EQ(chip.ReadEeprom(0x10), 0x11U);
  EXPECT_EQ(chip.ReadEeprom(0x11), 0xFFU);
  const auto fault = chip.Fault("EEPROM");
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->minimum, 4 * kMs);
  EXPECT_EQ(fault->count, 1U);
  EXPECT_GT(fault->shortest, 2 * kMs);
}

TEST(ChipEeprom, AWriteThatLosesItsSupplyLeavesTheByteErased) {
  ChipDriver chip("PIC18F4520");
  ASSERT_TRUE(chip.Device().Burn(0xF00010, 0x00));
  chip.Enter();
  chip.AccessEeprom();
  chip.SetEeprom(0x10, 0x12);
  chip.Core({0x82A6});
  chip.Wait(kMs);
  chip.Leave();
  EXPECT_TRUE(chip.Device().Image().empty());
  EXPECT_TRUE(chip.Fault("EEPROM").has_value());
}

TEST(ChipEeprom, OneKilobyteNeedsTheHighAddressByte) {
  ChipDriver chip("PIC18F6620");
  chip.Enter();
  chip.AccessEeprom();
  chip.SetEeprom(0x234, 0x66);
  chip.Unlock();
  chip.Core({0x82A6});
  chip.Wait(5 * kMs);
  const auto image = chip.Device().Image();
  ASSERT_EQ(image.size(), 1U);
  EXPECT_EQ(image.begin()->first, 0xF00234U);
}

TEST(ChipEeprom, AChipWithoutEepromHasNothingToReadOrBurn) {
  ChipDriver chip("PIC18F4610");
  EXPECT_FALSE(chip.Device().Burn(0xF00000, 1));
  chip.Enter();
  chip.AccessEeprom();
  chip.Core({0x82A6});
  EXPECT_EQ(chip.Eecon1() & 0x02U, 0U);
  EXPECT_EQ(chip.ReadEeprom(0), 0U);
}

}  // namespace
}  // namespace zelvo::bench
