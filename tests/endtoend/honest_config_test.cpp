// What the configuration editor makes of a chip's configuration, seen at the chip. Operators are told of
// each.
#include <gtest/gtest.h>

#include "job.h"

namespace zelvo::test {
namespace {

constexpr std::uint32_t Config = 0x300000;
constexpr std::uint32_t Config5H = Config + 9;
constexpr std::uint32_t Config6H = Config + 11;

/// A file that leaves every configuration bit as it is on a blank chip.
HexImage AllOnes() {
  HexImage image = Bytes(0, 16, 1);
  for (std::uint32_t i = 0; i < 14; ++i) image[Config + i] = 0xFF;
  return image;
}

void AcceptUnchanged(Job& job) {
  job.Click("ConfRészlEdit");
  job.Click("ConfEdit.BetPufferbe");
  job.Click("CinfigÍr");
}

int At(const HexImage& image, std::uint32_t address) {
  const auto byte = image.find(address);
  return byte == image.end() ? -1 : byte->second;
}

class WriteProtectedEeprom : public testing::TestWithParam<std::string> {};

TEST_P(WriteProtectedEeprom, ComesOfAcceptingTheEditorUnchanged) {
  Job job;
  job.Begin(GetParam());
  job.Load(AllOnes());
  AcceptUnchanged(job);
  EXPECT_EQ(At(job.Chip(), Config6H) & 0x80, 0) << "WRTD, which the editor calls not used";
  EXPECT_EQ(At(job.Chip(), Config5H), -1) << "CPD and CPB are as on a blank chip";
}

INSTANTIATE_TEST_SUITE_P(Chip, WriteProtectedEeprom,
                         testing::Values("PIC18F2420", "PIC18F2520", "PIC18F4420", "PIC18F4520", "PIC18F2525",
                                         "PIC18F2620", "PIC18F4525", "PIC18F4620"),
                         [](const auto& chip) { return chip.param; });

TEST(ConfigEditor, OpenedBeforeAnyFileOrReadProtectsTheWholeChip) {
  Job job;
  job.Begin("PIC18F452");
  AcceptUnchanged(job);
  const HexImage chip = job.Chip();
  EXPECT_EQ(At(chip, Config + 8), 0) << "code protection of every block";
  EXPECT_EQ(At(chip, Config5H), 0);
  EXPECT_EQ(At(chip, Config6H), 0);
}

TEST(ConfigEditor, OpenedBehindAReadAndATakeOverKeepsWhatTheChipHolds) {
  Job job;
  job.Begin("PIC18F452");
  const HexImage held = {{Config + 1, 0x22}, {Config + 3, 0x0E}, {Config + 8, 0x0E}};
  job.Burn(held);
  job.Click("ConfigOlvas");
  job.Click("Config_Beolvas.Igen");
  AcceptUnchanged(job);
  EXPECT_EQ(FirstDifference(held, job.Chip()), "");
}

TEST(ConfigEditor, OpenedBehindAnotherChoiceShowsTheBitsOfTheFileBefore) {
  Job job;
  job.Begin("PIC18F452");
  HexImage image = AllOnes();
  image[Config + 3] = 0x00;
  job.Load(image);
  job.Begin("PIC18F442");
  EXPECT_EQ(job.session.Ask("var ConfigBuffer(4)"), "FF");
  job.Click("ConfRészlEdit");
  EXPECT_EQ(job.session.Ask("cell ConfEdit.Conf2H 1 8"), "0");
}

TEST(ConfigEditor, AChangedBitGoesIntoTheChipAndComesBack) {
  Job job;
  job.Begin("PIC18F4550");
  job.Load(AllOnes());
  job.Do({"click ConfRészlEdit", "dblclick ConfEdit.Conf2H 1 8", "type ConfEdit.Text1 0",
          "key ConfEdit.Text1 Enter"});
  job.Click("ConfEdit.BetPufferbe");
  job.Click("CinfigÍr");
  EXPECT_EQ(At(job.Chip(), Config + 3), 0x1E) << "the watchdog alone is off";
  job.Click("ConfigOlvas");
  EXPECT_EQ(job.session.Ask("list Config_Beolvas.Bconfig2H"), " 0 0 0 1 1 1 1 0 ");
}

}  // namespace
}  // namespace zelvo::test
