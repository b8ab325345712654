// Every chip of the catalogue, by its own rows.
#include <gtest/gtest.h>

#include <bit>
#include <set>

#include "bench/pic18_facts.h"
#include "chip_driver.h"

namespace zelvo::bench {
namespace {

std::string NameOf(const ::testing::TestParamInfo<Pic18Row>& info) {
  return std::string(info.param.name);
}

class EveryChip : public ::testing::TestWithParam<Pic18Row> {
 protected:
  [[nodiscard]] static std::uint8_t Pattern(std::uint32_t address) {
    return static_cast<std::uint8_t>((address * 2654435761U) >> 24);
  }
  [[nodiscard]] bool OneKey() const { return FactsOf(GetParam().family).oneKey; }
  void EraseChip(ChipDriver& chip) const {
    if (OneKey()) {
      chip.EraseKey(0x80);
    } else {
      chip.EraseKeys(0xFF, 0x8F);
    }
    chip.AwaitErase();
  }
  void WriteCode(ChipDriver& chip) const {
    const auto& row = GetParam();
    chip.AccessCode();
    for (std::uint32_t start = 0; start < row.codeSize; start += row.latches) {
      chip.Pointer(start);
      for (std::uint32_t i = 0; i < row.latches; i += 2) {
        const unsigned word = Pattern(start + i) | static_cast<unsigned>(Pattern(start + i + 1)) << 8;
        chip.Command(i + 2U < row.latches ? 0xD : 0xF, word);
      }
      chip.HeldNop(kMs, 200 * kUs);
    }
  }
};

TEST_P(EveryChip, TakesAWholeProgramAndGivesItBackWithoutATimingFault) {
  const auto& row = GetParam();
  ChipDriver chip{std::string(row.name)};
  ASSERT_TRUE(chip.Device().Burn(0x123, 0x00));
  chip.Enter();
  EraseChip(chip);
  ASSERT_TRUE(chip.Device().Image().empty());
  WriteCode(chip);
  chip.Pointer(0);
  for (std::uint32_t i = 0; i < row.codeSize; ++i) ASSERT_EQ(chip.ReadByte(0x9), Pattern(i)) << i;
  chip.Leave();
  for (const auto& [address, value] : chip.Device().Image()) ASSERT_EQ(value, Pattern(address));
  EXPECT_TRUE(chip.Device().Timing().empty());
}

INSTANTIATE_TEST_SUITE_P(Pic18, EveryChip,
                         ::testing::ValuesIn(Pic18Catalogue().begin(), Pic18Catalogue().end()), NameOf);

TEST(ChipCatalogue, HasSeventyTwoChipsWithNamesAndIdsOfTheirOwn) {
  std::set<std::string> names;
  std::set<int> ids;
  for (const auto& row : Pic18Catalogue()) {
    names.emplace(row.name);
    ids.insert(row.deviceId);
  }
  EXPECT_EQ(names.size(), 72U);
  EXPECT_EQ(ids.size(), 72U);
  EXPECT_EQ(ChipNames().size(), 72U + 55U);
}

TEST(ChipCatalogue, HasRowsThatAgreeWithThemselves) {
  for (const auto& row : Pic18Catalogue()) {
    SCOPED_TRACE(row.name);
    const auto blocks = row.codeSize / row.blocks->block;
    EXPECT_EQ(row.codeSize % row.blocks->block, 0U);
    EXPECT_LE(blocks, 8U);
    EXPECT_GE(std::bit_width(row.config->blockCells), static_cast<int>(blocks));
    for (const auto boot : row.blocks->boot) EXPECT_LE(boot, row.blocks->block);
    EXPECT_TRUE(row.latches == 8 || row.latches == 32 || row.latches == 64);
    EXPECT_TRUE(row.eeprom == 0 || row.eeprom == 256 || row.eeprom == 1024);
    EXPECT_EQ(row.deviceId & 0x1F, 0);
    for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(row.config->erased[i] & ~row.config->implemented[i], 0);
  }
}

TEST(ChipCatalogue, MakesNothingForAnUnknownName) {
  EXPECT_EQ(MakeChip("PIC18F9999", std::nullopt), nullptr);
}

TEST(ChipCatalogue, ABlankChipHasNothingToTell) {
  for (const auto& name : ChipNames()) EXPECT_TRUE(MakeChip(name, std::nullopt)->Image().empty()) << name;
}

}  // namespace
}  // namespace zelvo::bench
