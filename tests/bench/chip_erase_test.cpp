// Bulk erase and row erase.
#include <gtest/gtest.h>

#include <vector>

#include "bench/pic18_facts.h"
#include "chip_driver.h"

namespace zelvo::bench {
namespace {

void Fill(ChipDriver& chip, const std::string& name) {
  const auto* row = FindPic18(name);
  for (std::uint32_t i = 0; i < row->codeSize; ++i) ASSERT_TRUE(chip.Device().Burn(i, 0));
  for (std::uint32_t i = 0; i < row->eeprom; ++i) ASSERT_TRUE(chip.Device().Burn(0xF00000 + i, 0));
  for (std::uint32_t i = 0; i < 8; ++i) ASSERT_TRUE(chip.Device().Burn(0x200000 + i, 0));
  for (std::uint32_t i = 0; i < 14; ++i) ASSERT_TRUE(chip.Device().Burn(0x300000 + i, 0));
}

/// First and last erased code address, when all between them is erased as well.
struct Erased {
  std::uint32_t begin, end;
  bool operator==(const Erased&) const = default;
};
std::vector<Erased> ErasedCode(ChipDriver& chip, const std::string& name) {
  const auto image = chip.Device().Image();
  std::vector<Erased> ranges;
  for (std::uint32_t i = 0; i < FindPic18(name)->codeSize; ++i) {
    if (image.contains(i)) continue;
    if (ranges.empty() || ranges.back().end + 1 != i) ranges.push_back({i, i});
    ranges.back().end = i;
  }
  return ranges;
}
bool HasEeprom(ChipDriver& chip) {
  return chip.Device().Image().contains(0xF00000);
}
bool HasId(ChipDriver& chip) {
  return chip.Device().Image().contains(0x200000);
}
bool HasConfig(ChipDriver& chip) {
  return chip.Device().Image().contains(0x300003);
}

struct Filled : ChipDriver {
  explicit Filled(const std::string& name) : ChipDriver(name) {
    Fill(*this, name);
    Enter();
  }
};

TEST(ChipErase, Code80hErasesTheWholeOldChip) {
  Filled chip("PIC18F452");
  chip.EraseKey(0x80);
  chip.AwaitErase();
  EXPECT_TRUE(chip.Device().Image().empty());
  EXPECT_TRUE(chip.Device().Timing().empty());
}

TEST(ChipErase, OldChipsEraseEepromBootBlockAndBlocksByTheirCodes) {
  Filled chip("PIC18F452");
  chip.EraseKey(0x81);
  chip.AwaitErase();
  EXPECT_FALSE(HasEeprom(chip));
  EXPECT_TRUE(ErasedCode(chip, "PIC18F452").empty());
  chip.EraseKey(0x83);
  chip.AwaitErase();
  EXPECT_EQ(ErasedCode(chip, "PIC18F452"), (std::vector<Erased>{{0, 0x1FF}}));
  chip.EraseKey(0x8A);
  chip.AwaitErase();
  EXPECT_EQ(ErasedCode(chip, "PIC18F452"), (std::vector<Erased>{{0, 0x1FF}, {0x4000, 0x5FFF}}));
  chip.EraseKey(0x88);
  chip.AwaitErase();
  EXPECT_EQ(ErasedCode(chip, "PIC18F452"), (std::vector<Erased>{{0, 0x1FFF}, {0x4000, 0x5FFF}}));
  EXPECT_TRUE(HasId(chip));
  EXPECT_TRUE(HasConfig(chip));
}

TEST(ChipErase, ABlockThatTheChipDoesNotHaveIsNotErased) {
  Filled chip("PIC18F242");
  chip.EraseKey(0x8A);
  chip.AwaitErase();
  EXPECT_TRUE(ErasedCode(chip, "PIC18F242").empty());
}

TEST(ChipErase, AnErasedBlockLosesItsProtection) {
  Filled chip("PIC18F452");
  chip.EraseKey(0x89);
  chip.AwaitErase();
  EXPECT_EQ(chip.ReadAt(0x300008), 0x02U);
  EXPECT_EQ(chip.ReadAt(0x30000A), 0x02U);
  EXPECT_EQ(chip.ReadAt(0x30000C), 0x02U);
  EXPECT_EQ(chip.ReadAt(0x300009), 0x00U);
}

TEST(ChipErase, TheBlocksOfThe8720HaveSixteenKilobytes) {
  Filled chip("PIC18F8720");
  chip.EraseKey(0x8F);
  chip.AwaitErase();
  EXPECT_EQ(ErasedCode(chip, "PIC18F8720"), (std::vector<Erased>{{0x1C000, 0x1FFFF}}));
}

TEST(ChipErase, TheKeyPairErasesTheWholeNewChip) {
  for (const auto& [name, high, low] :
       {std::tuple{"PIC18F4520", 0x3FU, 0x8FU}, std::tuple{"PIC18F4520", 0x0FU, 0x87U},
        std::tuple{"PIC18F8722", 0xFFU, 0x87U}}) {
    Filled chip(name);
    chip.EraseKeys(high, low);
    chip.AwaitErase();
    EXPECT_TRUE(chip.Device().Image().empty()) << name;
  }
}

TEST(ChipErase, NewChipsEraseWhatTheBitsOfTheirKeysSelect) {
  const std::string name = "PIC18F4520";
  Filled chip(name);
  chip.EraseKeys(0x00, 0x84);
  chip.AwaitErase();
  EXPECT_FALSE(HasEeprom(chip));
  EXPECT_TRUE(ErasedCode(chip, name).empty());
  chip.EraseKeys(0x00, 0x81);
  chip.AwaitErase();
  EXPECT_EQ(ErasedCode(chip, name), (std::vector<Erased>{{0, 0x7FF}}));
  chip.EraseKeys(0x0C, 0x80);
  chip.AwaitErase();
  EXPECT_EQ(ErasedCode(chip, name), (std::vector<Erased>{{0, 0x7FF}, {0x4000, 0x7FFF}}));
  EXPECT_TRUE(HasConfig(chip));
  chip.EraseKeys(0x00, 0x82);
  chip.AwaitErase();
  EXPECT_FALSE(HasConfig(chip));
  EXPECT_TRUE(HasId(chip));
}

TEST(ChipErase, ANewChipDoesNotObeyTheOldCodeAlone) {
  Filled chip("PIC18F4520");
  chip.EraseKey(0x80);
  chip.AwaitErase();
  EXPECT_TRUE(ErasedCode(chip, "PIC18F4520").empty());
}

TEST(ChipErase, TheBootBlockIsAsLargeAsBbsizSays) {
  Filled chip("PIC18F8722");
  ASSERT_TRUE(chip.Device().Burn(0x300006, 0x20));
  chip.EraseKeys(0x00, 0x81);
  chip.AwaitErase();
  EXPECT_EQ(ErasedCode(chip, "PIC18F8722"), (std::vector<Erased>{{0, 0x1FFF}}));
}

TEST(ChipErase, NothingIsErasedBeforeTheFourthClockBehindTheKey) {
  Filled chip("PIC18F452");
  chip.EraseKey(0x80);
  chip.Bits(0, 3);
  chip.Leave();
  EXPECT_TRUE(HasEeprom(chip));
  EXPECT_TRUE(chip.Device().Timing().empty());
}

TEST(ChipErase, TheWaitRunsFromTheFirstNopToTheNextRealFrame) {
  Filled chip("PIC18F452");
  chip.EraseKey(0x80);
  chip.Bits(0, 4);
  const auto start = chip.Now() - kUs;  // the fourth falling edge
  chip.Bits(0, 16);
  chip.Wait(3 * kMs);
  chip.Core({0x0000});  // a NOP with PGD low may come at any time
  const auto next = chip.Now() + kUs;
  chip.Core({0x0E11});
  const auto fault = chip.Fault("P11");
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->shortest, next - start);
  EXPECT_EQ(fault->minimum, 5 * kMs);
  EXPECT_EQ(fault->count, 1U);
}

TEST(ChipErase, ACommandInPlaceOfTheNopStartsTheEraseAndIsLost) {
  Filled chip("PIC18F452");
  chip.Core({0x0E77, 0x6EF5});
  chip.EraseKey(0x80);
  chip.Core({0x0E11});
  chip.Wait(6 * kMs);
  chip.Core({0x50E8, 0x6EF5});
  EXPECT_NE(chip.ReadByte(0x2), 0x11U);
  EXPECT_TRUE(chip.Device().Image().empty());
  const auto fault = chip.Fault("P11");
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->shortest, 0);
}

TEST(ChipErase, CommandsAreNotExecutedWhileTheEraseRunsButTheBeatGoesOn) {
  Filled chip("PIC18F452");
  chip.Core({0x0E77, 0x6EF5});
  chip.EraseKey(0x81);
  chip.Core({0x0000});
  chip.Core({0x0E11, 0x6EF5});
  chip.Wait(6 * kMs);
  EXPECT_EQ(chip.ReadByte(0x2), 0x77U);
  EXPECT_FALSE(HasEeprom(chip));
}

TEST(ChipErase, AnEraseThatLosesItsSupplyIsNotDone) {
  Filled chip("PIC18F452");
  chip.EraseKey(0x80);
  chip.AwaitErase(2 * kMs);
  chip.Leave();
  EXPECT_TRUE(HasEeprom(chip));
  ASSERT_TRUE(chip.Fault("P11").has_value());
}

TEST(ChipErase, ContentsAreToldAsErasedWhileAnEraseRuns) {
  Filled chip("PIC18F452");
  chip.EraseKey(0x80);
  chip.Bits(0, 4);
  EXPECT_TRUE(chip.Device().Image().empty());
}

TEST(ChipRowErase, ANewChipErasesARowWithoutUnlockWhileTheClockIsHeld) {
  const std::string name = "PIC18F4520";
  Filled chip(name);
  chip.AccessCode();
  chip.Pointer(0x1055);
  chip.Core({0x88A6, 0x82A6});
  EXPECT_TRUE(ErasedCode(chip, name).empty());
  chip.HeldNop(kMs, 200 * kUs);
  EXPECT_EQ(ErasedCode(chip, name), (std::vector<Erased>{{0x1040, 0x107F}}));
  EXPECT_EQ(chip.Eecon1(), 0x84U) << "FREE and WR clear themselves";
  EXPECT_TRUE(chip.Device().Timing().empty());
}

TEST(ChipRowErase, ANewChipTakesTheUnlockSequenceAsWell) {
  const std::string name = "PIC18F4520";
  Filled chip(name);
  chip.AccessCode();
  chip.Pointer(0x1000);
  chip.Core({0x88A6});
  chip.Unlock();
  chip.Core({0x82A6});
  chip.HeldNop(500 * kUs, 200 * kUs);
  EXPECT_EQ(ErasedCode(chip, name), (std::vector<Erased>{{0x1000, 0x103F}}));
  EXPECT_TRUE(chip.Fault("P9 row").has_value());
}

TEST(ChipRowErase, AnOldChipErasesByItselfBehindTheUnlockSequenceAndTakesItsTime) {
  const std::string name = "PIC18F2320";
  Filled chip(name);
  chip.AccessCode();
  chip.Pointer(0x0100);
  chip.Core({0x88A6});
  chip.Unlock();
  chip.Core({0x82A6});
  EXPECT_EQ(chip.Eecon1(), 0x96U);
  chip.Wait(5 * kMs);
  EXPECT_EQ(chip.Eecon1(), 0x84U);
  EXPECT_EQ(ErasedCode(chip, name), (std::vector<Erased>{{0x0100, 0x013F}}));
  EXPECT_TRUE(chip.Device().Timing().empty());
}

TEST(ChipRowErase, AnOldChipErasesNothingWithoutTheUnlockSequence) {
  const std::string name = "PIC18F2320";
  Filled chip(name);
  chip.AccessCode();
  chip.Pointer(0x0100);
  chip.Core({0x88A6, 0x82A6});
  EXPECT_EQ(chip.Eecon1(), 0x94U);
  chip.HeldNop(6 * kMs, kMs);
  EXPECT_TRUE(ErasedCode(chip, name).empty());
}

TEST(ChipRowErase, TheUnlockSequenceMustNotBeInterrupted) {
  const std::string name = "PIC18F2320";
  Filled chip(name);
  chip.AccessCode();
  chip.Core({0x88A6});
  chip.Unlock();
  chip.Core({0x0000, 0x82A6});
  chip.Wait(6 * kMs);
  EXPECT_TRUE(ErasedCode(chip, name).empty());
}

TEST(ChipRowErase, AnOldChipErasesARowByTableWriteWithFreeSet) {
  const std::string name = "PIC18F452";
  Filled chip(name);
  chip.AccessCode();
  chip.Pointer(0x2040);
  chip.Core({0x88A6});
  chip.Command(0xF, 0x0000);
  chip.HeldNop(kMs, 10 * kUs);
  EXPECT_EQ(ErasedCode(chip, name), (std::vector<Erased>{{0x2040, 0x207F}}));
}

TEST(ChipRowErase, AnOldChipErasesTheRowOfEveryPanelInMultiPanelMode) {
  const std::string name = "PIC18F252";
  Filled chip(name);
  chip.AccessCode();
  chip.Panels(true);
  chip.Pointer(0x0040);
  chip.Core({0x88A6});
  chip.Command(0xF, 0x0000);
  chip.HeldNop(kMs, 10 * kUs);
  EXPECT_EQ(ErasedCode(chip, name),
            (std::vector<Erased>{{0x0040, 0x007F}, {0x2040, 0x207F}, {0x4040, 0x407F}, {0x6040, 0x607F}}));
}

TEST(ChipRowErase, AProgrammingStartedBeforeTheRowIsErasedIsLostAndTold) {
  Filled chip("PIC18F2320");
  chip.AccessCode();
  chip.Pointer(0x0100);
  chip.Core({0x88A6});
  chip.Unlock();
  chip.Core({0x82A6, 0x98A6});
  chip.WriteEight(0x0100, 0x12);
  chip.Wait(5 * kMs);
  EXPECT_EQ(chip.ReadAt(0x0100), 0xFFU);
  ASSERT_TRUE(chip.Fault("P11 row").has_value());
}

TEST(ChipRowErase, ErasesTheIdLocationsAtTheirAddress) {
  Filled chip("PIC18F4520");
  chip.AccessCode();
  chip.Pointer(0x200000);
  chip.Core({0x88A6, 0x82A6});
  chip.HeldNop(kMs, 200 * kUs);
  EXPECT_FALSE(HasId(chip));
  EXPECT_TRUE(ErasedCode(chip, "PIC18F4520").empty());
}

}  // namespace
}  // namespace zelvo::bench
