// The configuration masks: which bits a chip has, as shown until a file or a read brings the bytes.
#include "devices/config_masks.h"

#include <algorithm>
#include <set>

#include "devices/selection.h"
#include "expectations.h"
#include "image/buffers.h"
#include "image/fills.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

using panel::Form1;

/// The set that a file with configuration bytes brings; four chips have another one there than when chosen.
std::string_view ReappliedSet(const Pic18Row& row) {
  if (row.name == "PIC18F258" || row.name == "PIC18F458") return "248";
  if (row.name == "PIC18F8680") return "8680";
  if (row.name == "PIC18F6520") return "6520";
  return row.maskSet;
}

TEST(ConfigMasks, EverySetShowsItsLinesAndFlagsForEveryChipThatUsesIt) {
  std::set<std::string_view> used;
  for (const Pic18Row& row : Pic18Rows) {
    const std::string_view set = ReappliedSet(row);
    SCOPED_TRACE(row.name);
    used.insert(set);
    Form1.Combo1.Text = std::string(row.name);
    for (panel::ListBox* list : Form1.ConfigLists) list->AddItem("left over");
    devices::LoadMaskSet(set);
    EXPECT_EQ(ShownMaskLines(), MaskLines(set, row.name));
    EXPECT_EQ(ShownFlags(), MaskFlags(set, row.name));
  }
  EXPECT_EQ(used.size(), MaskRows.size()) << "every set has a chip";
}

TEST(ConfigMasks, AnUnknownSetChangesNothing) {
  Form1.Combo1.Text = "PIC18F452";
  devices::LoadMaskSet("242");
  devices::LoadMaskSet("243");
  devices::LoadMaskSet("");
  EXPECT_EQ(ShownMaskLines(), MaskLines("242", "PIC18F452"));
  EXPECT_EQ(ShownFlags(), "NIIINIINIIIIII");
}

TEST(ConfigMasks, ReapplyingUsesItsOwnTableOfSets) {
  for (const Pic18Row& row : Pic18Rows) {
    SCOPED_TRACE(row.name);
    Form1.Combo1.Text = std::string(row.name);
    image::ConfigBuffer.fill("00");
    image::ConfigBitStrings.fill("00000000");
    image::ApplyMaskSet();
    EXPECT_EQ(ShownMaskLines(), MaskLines(ReappliedSet(row), row.name));
    EXPECT_EQ(ShownFlags(), MaskFlags(ReappliedSet(row), row.name));
    for (std::size_t k = 1; k <= 14; ++k) {
      EXPECT_EQ(image::ConfigBuffer[k], "FF");
      EXPECT_EQ(image::ConfigBitStrings[k], "11111111");
    }
  }
}

TEST(ConfigMasks, ReapplyingTouchesNoLimitAndNoOtherBuffer) {
  Form1.Combo1.Text = "PIC18F8680";
  devices::FlashWordMax = 16383;
  devices::EepromMax = 255;
  image::MainBuffer(1, 1) = "1234";
  image::EepromBuffer(1, 1) = "5A";
  image::IdBuffer[1] = "41";
  image::ApplyMaskSet();
  EXPECT_EQ(devices::FlashWordMax, 16383);
  EXPECT_EQ(devices::EepromMax, 255);
  EXPECT_EQ(image::MainBuffer(1, 1), "1234");
  EXPECT_EQ(image::EepromBuffer(1, 1), "5A");
  EXPECT_EQ(image::IdBuffer[1], "41");
}

TEST(ConfigMasks, AfterChoosingAChipOfSet242TheFirstListHasAMaskButTheByteIsNotThere) {
  BenchSession session;
  session.Do({"start", "tab 2", "choose Combo1 PIC18F252"});
  EXPECT_EQ(session.Look("list Bconfig1L"), Lines{"   x x x x x x x x "});
  EXPECT_EQ(session.Ask("var ConfigFlags(1)"), "N");
  EXPECT_EQ(session.Ask("var ConfigFlags(6)"), "I");
}

TEST(ConfigMasks, Set248HasNoSixthByteUnlikeSet242) {
  BenchSession session;
  session.Do({"start", "tab 2", "choose Combo1 PIC18F248"});
  EXPECT_EQ(session.Ask("var ConfigFlags(6)"), "N");
}

TEST(ConfigMasks, OnlySets2455And2550HaveTheFirstByte) {
  for (const devices::MaskSet& set : devices::MaskSets) {
    EXPECT_EQ(set.flags[0] == 'I', set.name == "2455" || set.name == "2550") << set.name;
  }
}

TEST(ConfigMasks, EveryRowOfTheTableIsComplete) {
  for (const devices::MaskSet& set : devices::MaskSets) {
    EXPECT_EQ(set.flags.size(), 14u) << set.name;
    EXPECT_EQ(set.flags.find_first_not_of("IN"), std::string_view::npos) << set.name;
    for (const std::string_view mask : set.masks) {
      EXPECT_EQ(mask.size(), 8u) << set.name;
      EXPECT_EQ(mask.find_first_not_of("x?"), std::string_view::npos) << set.name;
    }
    EXPECT_EQ(devices::FindMaskSet(set.name), &set) << set.name << " stands in the table twice";
  }
}

TEST(ConfigMasks, TheChipWithTheEightTakesTheFirstMasksAndHasTheFifthByte) {
  struct Row {
    const char *set, *eight, *six;
  };
  for (const Row& row : {Row{"8722", "PIC18F8722", "PIC18F6722"}, Row{"8627", "PIC18F8627", "PIC18F6627"},
                         Row{"8622", "PIC18F8622", "PIC18F6622"}, Row{"8527", "PIC18F8527", "PIC18F6527"}}) {
    Form1.Combo1.Text = row.eight;
    devices::LoadMaskSet(row.set);
    EXPECT_EQ(ShownMaskLines()[4], "   ? ? ? ? x x ? ? ");
    EXPECT_EQ(ShownMaskLines()[5], "   ? x x x x ? ? ? ");
    EXPECT_EQ(devices::ConfigFlags[5], "I");
    Form1.Combo1.Text = row.six;
    devices::LoadMaskSet(row.set);
    EXPECT_EQ(ShownMaskLines()[4], "   x x x x x x x x ");
    EXPECT_EQ(ShownMaskLines()[5], "   ? x x x x ? x ? ");
    EXPECT_EQ(devices::ConfigFlags[5], "N");
  }
}

TEST(ConfigMasks, ChipsOf32KWordsInSet2525HaveOneCodeBlockLessInTheirMasks) {
  for (const char* chip : {"PIC18F4620", "PIC18F2620", "PIC18F4525", "PIC18F2525"}) {
    const bool first = std::string_view(chip).ends_with("620");
    Form1.Combo1.Text = chip;
    devices::LoadMaskSet("2525");
    for (const std::size_t k : {8u, 10u, 12u}) {
      EXPECT_EQ(ShownMaskLines()[k], first ? "   x x x x ? ? ? ? " : "   x x x x x ? ? ? ") << chip;
    }
  }
}

}  // namespace
}  // namespace zelvo::test
