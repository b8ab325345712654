// What the tests take as real input is checked first: the assembler knows every PIC18 chip, and its files
// hold what the source says.
#include "support/assembler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "devices/catalogue.h"

namespace zelvo::test {
namespace {

/// Two chips of the catalogue select nothing and so have no sizes there; both have at least 32 KB.
ProgramPlan PlanFor(const devices::Pic18Entry& chip) {
  ProgramPlan plan;
  plan.chip = chip.name;
  plan.codeBytes = chip.flashWordMax > 0 ? (static_cast<std::uint32_t>(chip.flashWordMax) + 1) * 2 : 0x8000;
  plan.eepromBytes = chip.eepromMax > 0 ? static_cast<std::uint32_t>(chip.eepromMax) + 1 : 0;
  return plan;
}

HexImage WithoutConfiguration(HexImage image) {
  image.erase(image.lower_bound(0x300000), image.upper_bound(0x30000D));
  return image;
}

std::string Text(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

class Assembler : public testing::TestWithParam<devices::Pic18Entry> {};

TEST_P(Assembler, MakesAFileThatHoldsWhatTheSourceSays) {
  ProgramPlan plan = PlanFor(GetParam());
  for (const bool full : {false, true}) {
    plan.full = full;
    const AssembledProgram program = Assemble(plan, ScratchFolder(), full ? "full" : "scattered");
    const HexImage file = ReadHexImage(program.hexPath);
    EXPECT_EQ(FirstDifference(program.bytes, WithoutConfiguration(file)), "");
    EXPECT_GE(Between(file, 0x300000, 0x30000D).size(), 10U) << "configuration bytes";
  }
}

TEST_P(Assembler, LinksAFileWithOddRecordsAndWithoutConfiguration) {
  ProgramPlan plan = PlanFor(GetParam());
  plan.relocatable = true;
  const AssembledProgram program = Assemble(plan, ScratchFolder(), "linked");
  EXPECT_EQ(FirstDifference(program.bytes, ReadHexImage(program.hexPath)), "");
  EXPECT_NE(Text(program.hexPath).find("\n:07010000"), std::string::npos);
}

TEST_P(Assembler, MakesAnotherRevisionThatDiffersInPlaces) {
  ProgramPlan plan = PlanFor(GetParam());
  const AssembledProgram first = Assemble(plan, ScratchFolder(), "first");
  plan.revision = 1;
  const AssembledProgram second = Assemble(plan, ScratchFolder(), "second");
  const auto changed = std::ranges::count_if(
      second.bytes, [&](const auto& byte) { return first.bytes.at(byte.first) != byte.second; });
  EXPECT_GT(changed, 20);
  EXPECT_LT(changed, static_cast<long>(second.bytes.size()) * 3 / 4);
  EXPECT_NE(Between(ReadHexImage(first.hexPath), 0x300000, 0x30000D),
            Between(ReadHexImage(second.hexPath), 0x300000, 0x30000D));
}

INSTANTIATE_TEST_SUITE_P(Pic18, Assembler, testing::ValuesIn(devices::Pic18Catalogue),
                         [](const auto& chip) { return std::string(chip.param.name); });

TEST(AssemblerFile, HasLfLineEndsShortRecordsAndExtendedAddresses) {
  const ProgramPlan plan{.chip = "PIC18F8722", .codeBytes = 0x20000, .eepromBytes = 1024};
  const std::string text = Text(Assemble(plan, ScratchFolder(), "forms").hexPath);
  EXPECT_EQ(text.find('\r'), std::string::npos);
  EXPECT_NE(text.find("\n:05000000"), std::string::npos) << "five ID bytes";
  for (const char* upper : {":020000040000FA\n", ":020000040001F9\n", ":020000040020DA\n",
                            ":020000040030CA\n", ":0200000400F00A\n", ":00000001FF\n"}) {
    EXPECT_NE(text.find(upper), std::string::npos) << upper;
  }
}

TEST(AssemblerFile, IsRefusedWithTheAssemblersWordsForAnUnknownChip) {
  const ProgramPlan plan{.chip = "PIC18F1", .codeBytes = 0x1000};
  try {
    static_cast<void>(Assemble(plan, ScratchFolder(), "unknown"));
    FAIL() << "assembled";
  } catch (const std::runtime_error& error) {
    EXPECT_NE(std::string(error.what()).find("18f1"), std::string::npos) << error.what();
  }
}

class HexReader : public testing::Test {
 protected:
  [[nodiscard]] static HexImage Read(const std::string& text) {
    const std::string path = ScratchFolder() + "/reader.hex";
    std::ofstream(path, std::ios::binary) << text;
    return ReadHexImage(path);
  }
};

TEST_F(HexReader, FollowsSegmentAndLinearAddresses) {
  const HexImage image =
      Read(":020000021000EC\r\n:0100000011EE\r\n:020000040030CA\n:0200010022FFDC\n:00000001FF\n");
  EXPECT_EQ(image, (HexImage{{0x10000, 0x11}, {0x300001, 0x22}, {0x300002, 0xFF}}));
  EXPECT_EQ(WithoutErased(image).size(), 2U);
}

TEST_F(HexReader, RefusesWhatIsNotWhole) {
  EXPECT_THROW((void)Read(":0100000011EF\n:00000001FF\n"), std::runtime_error) << "checksum";
  EXPECT_THROW((void)Read(":0100000011EE\n"), std::runtime_error) << "end record";
  EXPECT_THROW((void)Read(":0200000011EE\n:00000001FF\n"), std::runtime_error) << "length";
  EXPECT_THROW((void)Read("0100000011EE\n:00000001FF\n"), std::runtime_error) << "colon";
}

TEST_F(HexReader, TellsTheFirstDifference) {
  EXPECT_EQ(FirstDifference({{1, 2}}, {{1, 2}}), "");
  EXPECT_EQ(FirstDifference({{1, 2}, {16, 3}}, {{1, 2}}), "at 10h: expected 3h, found nothing");
  EXPECT_EQ(FirstDifference({{1, 2}}, {{0, 9}, {1, 2}}), "at 0h: expected nothing, found 9h");
  EXPECT_EQ(FirstDifference({{1, 2}}, {{1, 10}}), "at 1h: expected 2h, found Ah");
}

}  // namespace
}  // namespace zelvo::test
