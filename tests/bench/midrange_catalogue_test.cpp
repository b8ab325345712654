// All 55 mid-range chips: sizes, device IDs, a blank chip, every location burnt and told, a whole chip
// programmed.
#include <gtest/gtest.h>

#include <set>

#include "bench/midrange_facts.h"
#include "midrange_driver.h"

namespace zelvo::bench {
namespace {

/// From the data sheets, apart from the rows that the chips are made of.
struct Expected {
  const char* name;
  unsigned deviceId;
  unsigned words;
  unsigned dataBytes;
  unsigned configWords;
};

constexpr Expected kExpected[] = {
    {"PIC12F609", 0x2240, 1024, 0, 1},    {"PIC12HV609", 0x2280, 1024, 0, 1},
    {"PIC12F615", 0x2180, 1024, 0, 1},    {"PIC12HV615", 0x21A0, 1024, 0, 1},
    {"PIC12F617", 0x1360, 2048, 0, 1},    {"PIC12F629", 0x0F80, 1024, 128, 1},
    {"PIC12F635", 0x0FA0, 1024, 128, 1},  {"PIC12F675", 0x0FC0, 1024, 128, 1},
    {"PIC12F683", 0x0460, 2048, 256, 1},  {"PIC16F610", 0x2260, 1024, 0, 1},
    {"PIC16HV610", 0x22A0, 1024, 0, 1},   {"PIC16F616", 0x1240, 2048, 0, 1},
    {"PIC16HV616", 0x1260, 2048, 0, 1},   {"PIC16F627", 0x07A0, 1024, 128, 1},
    {"PIC16F627A", 0x1040, 1024, 128, 1}, {"PIC16F628", 0x07C0, 2048, 128, 1},
    {"PIC16F628A", 0x1060, 2048, 128, 1}, {"PIC16F630", 0x10C0, 1024, 128, 1},
    {"PIC16F631", 0x1420, 1024, 128, 1},  {"PIC16F636/639", 0x10A0, 2048, 256, 1},
    {"PIC16F648A", 0x1100, 4096, 256, 1}, {"PIC16F676", 0x10E0, 1024, 128, 1},
    {"PIC16F677", 0x1440, 2048, 256, 1},  {"PIC16F684", 0x1080, 2048, 256, 1},
    {"PIC16F685", 0x04A0, 4096, 256, 1},  {"PIC16F687", 0x1320, 2048, 256, 1},
    {"PIC16F688", 0x1180, 4096, 256, 1},  {"PIC16F689", 0x1340, 4096, 256, 1},
    {"PIC16F690", 0x1400, 4096, 256, 1},  {"PIC16F818", 0x04C0, 1024, 128, 1},
    {"PIC16F819", 0x04E0, 2048, 256, 1},  {"PIC16F84A", 0x0560, 1024, 64, 1},
    {"PIC16F87", 0x0720, 4096, 256, 2},   {"PIC16F870", 0x0D00, 2048, 64, 1},
    {"PIC16F871", 0x0D20, 2048, 64, 1},   {"PIC16F872", 0x08E0, 2048, 64, 1},
    {"PIC16F873", 0x0960, 4096, 128, 1},  {"PIC16F873A", 0x0E40, 4096, 128, 1},
    {"PIC16F874", 0x0920, 4096, 128, 1},  {"PIC16F874A", 0x0E60, 4096, 128, 1},
    {"PIC16F876", 0x09E0, 8192, 256, 1},  {"PIC16F876A", 0x0E00, 8192, 256, 1},
    {"PIC16F877", 0x09A0, 8192, 256, 1},  {"PIC16F877A", 0x0E20, 8192, 256, 1},
    {"PIC16F88", 0x0760, 4096, 256, 2},   {"PIC16F882", 0x2000, 2048, 128, 2},
    {"PIC16F883", 0x2020, 4096, 256, 2},  {"PIC16F884", 0x2040, 4096, 256, 2},
    {"PIC16F886", 0x2060, 8192, 256, 2},  {"PIC16F887", 0x2080, 8192, 256, 2},
    {"PIC16F913", 0x13E0, 4096, 256, 1},  {"PIC16F914", 0x13C0, 4096, 256, 1},
    {"PIC16F916", 0x13A0, 8192, 256, 1},  {"PIC16F917", 0x1380, 8192, 256, 1},
    {"PIC16F946", 0x1460, 8192, 256, 1},
};
static_assert(std::size(kExpected) == 55);

std::string NameOf(const ::testing::TestParamInfo<Expected>& info) {
  std::string name = info.param.name;
  if (const auto slash = name.find('/'); slash != std::string::npos) name.replace(slash, 1, "_");
  return name;
}

unsigned Pattern(unsigned address) {
  return (address * 2654435761U) >> 18;
}

class EveryMidChip : public ::testing::TestWithParam<Expected> {
 protected:
  /// Erases the whole chip in its generation's way.
  static void EraseAll(MidDriver& chip, MidGeneration generation) {
    const Nanoseconds wait = 11 * MidDriver::Ms;
    const auto& facts = FactsOf(generation);
    chip.GoTo(0x2007);
    if (facts.eraseWaitsForBegin) {
      chip.Command(0x01);
      chip.Command(0x07);
      chip.Command(0x08, wait);
      chip.Command(0x01);
      chip.Command(0x07);
    } else if (facts.eraseTakesConfig) {
      chip.Command(0x09, wait);
      chip.Command(0x0B, wait);
    } else {
      chip.Command(0x1F, wait);
    }
    chip.Reenter();
  }
  /// Programs without an erase; the longest wait of all generations.
  static void Program(MidDriver& chip, MidGeneration generation) {
    const auto& facts = FactsOf(generation);
    const bool held = !facts.eraseTakesConfig && !facts.eraseWaitsForBegin;
    chip.Command(facts.eraseTakesConfig ? 0x08 : 0x18, 8 * MidDriver::Ms);
    if (held) chip.Command(0x17);
  }
};

TEST_P(EveryMidChip, HasItsSizesAndItsDeviceId) {
  const auto& expected = GetParam();
  MidDriver chip(expected.name);
  chip.Enter();
  EXPECT_EQ(chip.ReadAt(0x2006), expected.deviceId);
  EXPECT_TRUE(chip.Device().Burn(2 * expected.words - 1, 0x00));
  // Behind the largest memory the user IDs follow at once.
  EXPECT_EQ(chip.Device().Burn(2 * expected.words, 0x00), expected.words == 0x2000);
  EXPECT_EQ(chip.Device().Burn(0x4200, 0x00), expected.dataBytes != 0);
  EXPECT_EQ(chip.Device().Burn(0x4200 + 2 * expected.dataBytes - 1, 0x00), expected.dataBytes != 0);
  EXPECT_FALSE(chip.Device().Burn(0x4200 + 2 * expected.dataBytes, 0x00));
  EXPECT_TRUE(chip.Device().Burn(0x400F, 0x00));
  EXPECT_EQ(chip.Device().Burn(0x4010, 0x00), expected.configWords == 2);
  for (const std::uint32_t missing : {0x4008U, 0x400AU, 0x400CU, 0x4012U, 0x407EU, 0x10000U}) {
    EXPECT_FALSE(chip.Device().Burn(missing, 0x00)) << missing;
  }
}

TEST_P(EveryMidChip, ABlankOneHasNothingToTell) {
  EXPECT_TRUE(MakeChip(GetParam().name, std::nullopt)->Image().empty());
}

TEST_P(EveryMidChip, TellsEveryLocationThatWasBurnt) {
  const auto& expected = GetParam();
  MidDriver chip(expected.name);
  std::map<std::uint32_t, std::uint8_t> burnt;
  const auto burn = [&](std::uint32_t word, unsigned value) {
    chip.BurnWord(word, value);
    if (value == 0x3FFF) return;
    burnt[2 * word] = static_cast<std::uint8_t>(value & 0xFF);
    burnt[2 * word + 1] = static_cast<std::uint8_t>(value >> 8);
  };
  for (unsigned i = 0; i < expected.words; ++i) burn(i, Pattern(i));
  for (unsigned i = 0; i < 4; ++i) burn(0x2000 + i, Pattern(i + 0x77));
  for (unsigned i = 0; i < expected.dataBytes; ++i) {
    const unsigned value = Pattern(i) & 0xFF;
    chip.BurnData(i, value);
    if (value == 0xFF) continue;
    burnt[0x4200 + 2 * i] = static_cast<std::uint8_t>(value);
    burnt[0x4200 + 2 * i + 1] = 0;
  }
  auto image = chip.Device().Image();
  EXPECT_EQ(image, burnt);

  // Bits that a configuration word does not have stay as they are on a blank chip.
  for (unsigned i = 0; i < expected.configWords; ++i) chip.BurnWord(0x2007 + i, 0x0000);
  image = chip.Device().Image();
  EXPECT_EQ(image.size(), burnt.size() + 2 * expected.configWords);
  for (unsigned i = 0; i < expected.configWords; ++i) {
    const auto told = image.at(0x400E + 2 * i) | image.at(0x400F + 2 * i) << 8;
    chip.Enter();
    EXPECT_EQ(chip.ReadAt(0x2007 + i), static_cast<unsigned>(told));
  }
  // What was told makes the same chip of a blank one.
  const auto other = MakeChip(expected.name, std::nullopt);
  for (const auto& [address, value] : image) ASSERT_TRUE(other->Burn(address, value)) << address;
  EXPECT_EQ(other->Image(), image);
}

TEST_P(EveryMidChip, TakesAWholeProgramAndGivesItBackWithoutATimingFault) {
  const auto& expected = GetParam();
  const MidRow* row = FindMidRange(expected.name);
  ASSERT_NE(row, nullptr);
  MidDriver chip(expected.name);
  for (const std::uint32_t word : {0x1EU, 0x2002U, 0x2007U, 0x2100U}) chip.BurnWord(word, 0x0000);
  chip.Enter();
  EraseAll(chip, row->generation);
  // Only the unlock of the oldest generations leaves the user IDs.
  EXPECT_EQ(chip.Device().Image().size(), FactsOf(row->generation).eraseWaitsForBegin ? 2U : 0U);
  for (unsigned i = 0; i < expected.words; ++i) {
    chip.Load(Pattern(i));
    if ((i + 1) % row->latches == 0) Program(chip, row->generation);
    chip.Advance();
  }
  for (unsigned i = 0; i < expected.words; ++i) {
    ASSERT_EQ(chip.Read(), Pattern(i)) << i;
    chip.Advance();
  }
  for (unsigned i = 0; i < expected.dataBytes; ++i) {
    chip.LoadData(Pattern(i));
    Program(chip, row->generation);
    ASSERT_EQ(chip.ReadData(), Pattern(i) & 0xFF) << i;
    chip.Advance();
  }
  EXPECT_TRUE(chip.Device().Timing().empty());
}

INSTANTIATE_TEST_SUITE_P(MidRange, EveryMidChip, ::testing::ValuesIn(kExpected), NameOf);

TEST(MidRangeCatalogue, HasFiftyFiveChipsWithNamesAndIdsOfTheirOwn) {
  std::set<std::string_view> names;
  std::set<int> ids;
  for (const auto& row : MidRangeCatalogue()) {
    names.insert(row.name);
    ids.insert(row.deviceId);
    EXPECT_EQ(row.deviceId & 0x1F, 0) << row.name;
  }
  EXPECT_EQ(names.size(), 55U);
  EXPECT_EQ(ids.size(), 55U);
}

TEST(MidRangeCatalogue, HasRowsThatAgreeWithThemselves) {
  for (const auto& row : MidRangeCatalogue()) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(row.programWords & (row.programWords - 1), 0);
    EXPECT_EQ(row.dataBytes & (row.dataBytes - 1), 0);
    EXPECT_TRUE(row.latches == 1 || row.latches == 4 || row.latches == 8);
    const auto& config = *row.config;
    EXPECT_EQ(config.bits & config.ones, 0);
    EXPECT_EQ(config.bits2 & config.ones2, 0);
    EXPECT_EQ(config.protectsProgram & ~config.bits, 0);
    EXPECT_EQ(config.protectsData & ~config.bits, 0);
    EXPECT_EQ(config.protectsData == 0, row.dataBytes == 0);
    EXPECT_TRUE(config.bits2 == 0 || row.calibration.count == 0 || row.calibration.first == 0x2009);
    EXPECT_EQ(FactsOf(row.generation).generation, row.generation);
  }
}

}  // namespace
}  // namespace zelvo::bench
