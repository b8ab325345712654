// The names over the boxes of the mid-range configuration editor: every bit of all 55 chips.
#include <set>

#include "devices/catalogue.h"
#include "mid_config_desk.h"
#include "mid_config_name_tables.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

using image::ConfigWord1Names;
using image::ConfigWord1Used;
using image::ConfigWord2Names;
using image::ConfigWord2Used;
using panel::ConfEdit_F16;

class MidConfigNames : public MidConfigEditor {
 protected:
  static void ExpectWord(const std::array<std::string, 16>& names, const std::array<bool, 16>& used,
                         std::string_view listed) {
    const MidBitNames expected = NamesOfWord(listed);
    for (std::size_t bit = 0; bit < 14; ++bit) {
      EXPECT_EQ(names.at(14 - bit), expected.at(bit)) << bit;
      EXPECT_EQ(used.at(14 - bit), expected.at(bit) != "X") << bit;
    }
  }
  void ExpectLabels(int word, std::string_view listed) {
    const MidBitNames expected = NamesOfWord(listed);
    for (int bit = 0; bit < 14; ++bit) {
      EXPECT_EQ(session.Ask("get " + Element("Label1", word, bit)),
                expected.at(static_cast<std::size_t>(bit)))
          << bit;
    }
  }
};

TEST_F(MidConfigNames, StandForEveryChipOfTheCatalogue) {
  std::set<std::string> chips;
  for (const MidChipNames& one : MidChipsWithNames()) chips.insert(one.chip);
  EXPECT_EQ(chips.size(), 55U);
  for (const devices::MidRangeEntry& entry : devices::MidRangeCatalogue) {
    EXPECT_TRUE(chips.contains(std::string(entry.name))) << entry.name;
  }
}

TEST_F(MidConfigNames, AreThoseOfTheChipAndTheBitsWithoutFunctionAreNotUsed) {
  for (const MidChipNames& one : MidChipsWithNames()) {
    SCOPED_TRACE(one.chip);
    Open(one.chip);
    ExpectWord(ConfigWord1Names, ConfigWord1Used, one.word1);
    ExpectWord(ConfigWord2Names, ConfigWord2Used, one.word2);
    ExpectLabels(1, one.word1);
    if (!one.word2.empty()) ExpectLabels(2, one.word2);
  }
}

TEST_F(MidConfigNames, OfOneChipLeaveNothingBehindForTheNext) {
  // From the table's end to its start, so that each follows another chip than above.
  const auto& table = MidChipsWithNames();
  for (auto one = table.rbegin(); one != table.rend(); ++one) {
    SCOPED_TRACE(one->chip);
    Open("PIC16F887");
    Open(one->chip);
    ExpectWord(ConfigWord1Names, ConfigWord1Used, one->word1);
    ExpectWord(ConfigWord2Names, ConfigWord2Used, one->word2);
  }
}

TEST_F(MidConfigNames, AreReadyBeforeTheWindowLoads) {
  struct AtLoad : panel::Witness {
    void WindowLoaded(panel::Window& window) override {
      if (&window == &ConfEdit_F16) name = ConfigWord1Names[1];
    }
    std::string name;
  } atLoad;
  session.Do("choose Combo2 PIC12F629");
  panel::witnesses.push_back(&atLoad);
  session.Do("click ConfRészlEdit_F16");
  panel::witnesses.pop_back();
  EXPECT_EQ(atLoad.name, "BG1");
}

TEST_F(MidConfigNames, KeepTheirOwnSpelling) {
  const struct {
    const char* chip;
    int word, bit;
    const char* name;
  } oddities[] = {
      {"PIC16F88", 2, 0, "FCMEM"},    {"PIC16F887", 1, 11, "FCMEN"},   {"PIC16F84A", 1, 13, "CP"},
      {"PIC16F84A", 1, 4, "CP"},      {"PIC16F877", 1, 13, "CP1"},     {"PIC16F877", 1, 5, "CP1"},
      {"PIC16F877", 1, 11, "RESV"},   {"PIC12F617", 1, 7, "IOSFS"},    {"PIC16F887", 1, 3, "WDTEN"},
      {"PIC16F877A", 1, 3, "PWRTEN"}, {"PIC16F628", 1, 11, "CP1"},     {"PIC16F877A", 1, 2, "WDTEN"},
      {"PIC16F877", 1, 2, "WDTE"},    {"PIC16F636/639", 1, 12, "WURE"}};
  for (const auto& [chip, word, bit, name] : oddities) {
    Open(chip);
    EXPECT_EQ(session.Ask("get " + Element("Label1", word, bit)), name) << chip << ' ' << bit;
  }
}

TEST_F(MidConfigNames, OfAChipInNoGroupAreAllX) {
  Open("PIC16F887");
  for (const char* chip : {"PIC16F999", "PIC16F636", "PIC16F639", "PIC16F88 ", "16F88", "pic16f88"}) {
    SCOPED_TRACE(chip);
    panel::Form1.Combo2.Text = chip;
    session.Do("click ConfRészlEdit_F16");
    ExpectWord(ConfigWord1Names, ConfigWord1Used, "");
    ExpectWord(ConfigWord2Names, ConfigWord2Used, "");
    ExpectLabels(1, "");
  }
}

}  // namespace
}  // namespace zelvo::test
