// The controls of both pages: their names, captions and kinds.
#include <gtest/gtest.h>

#include <algorithm>

#include "panel/form1.h"
#include "panel/window.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

struct Captioned {
  const char* name;
  const char* caption;
};

constexpr Captioned Pic18Page[] = {
    {"FájlBetölt", "Fájl Beolvasása"},
    {"Frissites", "Frissítés"},
    {"fájlment", "Fájlba Mentés"},
    {"IDazonosít", "PIC azonosítás"},
    {"FlashOl", "Flash Beolvasása"},
    {"FlashÍr", "Flash Írása"},
    {"EEPROMOlvas", "EEPROM Olvasás"},
    {"EEPROMÍr", "EEPROM Írása"},
    {"ConfigOlvas", "Config Beolvasása"},
    {"CinfigÍr", "Config Írása"},
    {"IDLocOlvas", "ID Loc Olvasása"},
    {"IDLocÍr", "ID Loc Írása"},
    {"ConfRészlEdit", " Config Részletek, Szerkesztés"},
    {"IDMod", "User ID Szerkesztés"},
    {"PICTörlés", "PIC  Törlése"},
    {"PICÍrás", "PIC   Írása"},
    {"PICOlvas", "PIC Beolvasása"},
    {"ProgFut", "Vdd(+5V) On"},
    {"Command1", "Portcím Beállítás"},
    {"Command2", "Verify Puffer Törlése FFFF"},
    {"Command3", "Verify Mód Segítség"},
    {"Command4", "Port Check"},
    {"Command5", "Port Beállítás"},
    {"Command6", "Port Kiválasztása"},
    {"Névjegy", "Névjegy"},
    {"ZLV_info", "ZLV_Infók html"},
    {"Check1", "Automata Ellenőrzés Engedélyezése"},
    {"Check2", "Automatikus Pufferbe Töltés"},
    {"Check3", "Verify Flash Írás Mód Engedély"},
    {"Check9", "10x Speed"},
    {"Check10", "Szuper lassú"},
};

constexpr Captioned MidRangePage[] = {
    {"Command7", "Fájl Beolvasása"},
    {"Command22", "Frissítés"},
    {"Command23", "Fájlba Mentés"},
    {"Command9", "PIC azonosítás"},
    {"Command8", "Flash Beolvasása"},
    {"Command11", "       Flash,          Config és       User ID Loc    Írása"},
    {"Command17", "EEPROM Olvasás"},
    {"Command18", "EEPROM Írása"},
    {"Command13", "Config Beolvasása"},
    {"Command15", "ID Loc Olvasása"},
    {"ConfRészlEdit_F16", " Config Részletek, Szerkesztés"},
    {"IDMod_F16", "User ID Szerkesztés"},
    {"Command12", "PIC  Törlése"},
    {"Command21", "PIC   Írása"},
    {"Command19", "PIC Beolvasása"},
    {"Command26", "Portcím Beállítás"},
    {"Command20", "Port Check"},
    {"Command16", "Port Beállítás"},
    {"Command14", "Port Kiválasztása"},
    {"Command24", "Névjegy"},
    {"Command25", "ZLV_Infók html"},
    {"Check4", "Automata Ellenőrzés Engedélyezése"},
    {"Check5", "Automatikus Pufferbe Töltés"},
    {"Check6", "Elsődleges Flash ellenőrzés védett Flash esetén (Config CP=0)"},
    {"Check7", "10x Speed"},
    {"Check8", "ZLPT_mini használata"},
    {"Check11", "Szuper lassú"},
};

class Controls : public testing::Test {
 protected:
  void SetUp() override { session.Do({"board lpt", "start"}); }
  /// The caption of a button or of a tick box.
  static std::string Caption(const char* name) {
    const panel::Control* control = panel::Form1.Find(name);
    if (const auto* button = dynamic_cast<const panel::CommandButton*>(control)) return button->Caption;
    if (const auto* box = dynamic_cast<const panel::CheckBox*>(control)) return box->Caption;
    return "no control with a caption";
  }
  BenchSession session;
};

TEST_F(Controls, BearTheirCaptionsOnBothPages) {
  EXPECT_EQ(std::size(Pic18Page), 31U);
  EXPECT_EQ(std::size(MidRangePage), 27U);
  for (const Captioned& it : Pic18Page) EXPECT_EQ(Caption(it.name), it.caption) << it.name;
  for (const Captioned& it : MidRangePage) EXPECT_EQ(Caption(it.name), it.caption) << it.name;
}

TEST_F(Controls, TheSupplyButtonsOfBothPagesShareACaption) {
  EXPECT_EQ(Caption("ProgFut"), "Vdd(+5V) On");
  EXPECT_EQ(Caption("Command10"), "Vdd(+5V) On");
  session.Do("click Command10");
  EXPECT_EQ(Caption("ProgFut"), "Vdd(+5V) Off");
  EXPECT_EQ(Caption("Command10"), "Vdd(+5V) Off");
}

TEST_F(Controls, TheEraseButtonTellsThatItTakesAllContents) {
  EXPECT_EQ(panel::Form1.PICTörlés.ToolTip.Get(), "Teljes PIC tartalom Törlése");
}

TEST_F(Controls, ListsBarsAndGridsStandOnBothPages) {
  for (const char* name : {"Combo1", "Combo2"}) {
    EXPECT_NE(dynamic_cast<panel::ComboBox*>(panel::Form1.Find(name)), nullptr) << name;
  }
  for (const char* name : {"ÁSeb", "HScroll1"}) {
    EXPECT_NE(dynamic_cast<panel::ScrollBar*>(panel::Form1.Find(name)), nullptr) << name;
  }
  for (const char* name : {"List1", "List3", "List4", "List11"}) {
    EXPECT_NE(dynamic_cast<panel::ListBox*>(panel::Form1.Find(name)), nullptr) << name;
  }
  for (const char* name : {"Text1", "Text2"}) {
    EXPECT_NE(dynamic_cast<panel::TextBox*>(panel::Form1.Find(name)), nullptr) << name;
  }
  for (const char* name : {"Shape1", "Shape2", "Shape3", "Shape4"}) {
    EXPECT_NE(dynamic_cast<panel::Shape*>(panel::Form1.Find(name)), nullptr) << name;
  }
  for (const char* name : {"MSFlexGrid1", "MSFlexGrid2", "MSFlexGrid3", "MSFlexGrid4"}) {
    EXPECT_NE(dynamic_cast<panel::Grid*>(panel::Form1.Find(name)), nullptr) << name;
  }
}

TEST_F(Controls, TheIndicatorsAndTheEventListsAreLabelledOnBothPages) {
  const auto count = [](std::string_view caption) {
    return std::count_if(panel::Form1.Controls().begin(), panel::Form1.Controls().end(),
                         [caption](const panel::Control* control) {
                           const auto* label = dynamic_cast<const panel::Label*>(control);
                           return label != nullptr && label->Caption.Get() == caption;
                         });
  };
  EXPECT_EQ(count("Vpp:"), 2);
  EXPECT_EQ(count("In"), 2);
  EXPECT_EQ(count("Esemény lista"), 2);
}

TEST_F(Controls, EveryTickBoxIsClearAtFirst) {
  for (const panel::Control* control : panel::Form1.Controls()) {
    if (const auto* box = dynamic_cast<const panel::CheckBox*>(control)) {
      EXPECT_FALSE(box->Value) << box->Name();
    }
  }
}

}  // namespace
}  // namespace zelvo::test
