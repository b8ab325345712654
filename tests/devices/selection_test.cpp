// Choosing a chip: the lists, the limits, what is told, and what is left as it was.
#include "devices/selection.h"

#include <algorithm>

#include "devices/catalogue.h"
#include "expectations.h"
#include "image/buffers.h"
#include "link/event_log.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

using devices::EepromMax;
using devices::FlashWordMax;
using devices::SelectedName;
using panel::Form1;

constexpr const char* NoChip = "PIC Kiválasztása";
constexpr const char* NoChipRefusal = "ok ok Nincs PIC kiválasztva!";

/// The program after its start, on one of its pages.
class Selection : public testing::Test {
 protected:
  Selection() { session.Do({"start", "messages"}); }

  void GoTo(int tab) { session.Do("tab " + std::to_string(tab)); }
  void Choose18(std::string_view chip) { session.Do("choose Combo1 " + std::string(chip)); }
  void ChooseMid(std::string_view chip) { session.Do("choose Combo2 " + std::string(chip)); }

  BenchSession session;
};

template <class Rows>
Lines Names(const Rows& rows) {
  Lines names;
  for (const auto& row : rows) names.emplace_back(row.name);
  return names;
}

TEST_F(Selection, TheChipListsHoldTheirChipsInOrderBelowAnInitialText) {
  EXPECT_EQ(session.Look("list Combo1"), Names(Pic18Rows));
  EXPECT_EQ(session.Look("list Combo2"), Names(MidRangeRows));
  EXPECT_EQ(session.Ask("get Combo1"), NoChip);
  EXPECT_EQ(session.Ask("get Combo2"), NoChip);
}

TEST_F(Selection, NoChipIsChosenAtTheStart) {
  EXPECT_EQ(FlashWordMax, 0);
  EXPECT_EQ(EepromMax, 0);
  for (const char* button : {"FájlBetölt", "Frissites", "FlashOl", "FlashÍr", "PICTörlés"}) {
    session.Do(std::string("click ") + button);
    EXPECT_EQ(session.Look("messages"), Lines{NoChipRefusal}) << button;
  }
}

/// The log text of a selection. Two chips announce themselves under the name of the chip before them.
std::string AnnouncedAs(std::string_view chip) {
  if (chip == "PIC18F458") return ":  PIC18F258 Kiválaszva.";
  if (chip == "PIC18F8680") return ":  PIC18F6520 Kiválaszva.";
  return ":  " + std::string(chip) + " Kiválaszva.";
}

TEST_F(Selection, EveryPic18ChipSetsItsLimitsMasksAndTexts) {
  GoTo(2);
  for (const Pic18Row& row : Pic18Rows) {
    if (row.maskSet.empty()) continue;
    SCOPED_TRACE(row.name);
    const int counter = link::EventCounter;
    const std::size_t lines = Form1.List1.Lines().size();
    const Lines otherLog = Form1.List4.Lines();
    Choose18(row.name);
    EXPECT_EQ(FlashWordMax, row.flashWordMax);
    EXPECT_EQ(EepromMax, row.eepromMax);
    EXPECT_EQ(SelectedName, row.name);
    EXPECT_EQ(ShownMaskLines(), MaskLines(row.maskSet, row.name));
    EXPECT_EQ(ShownFlags(), MaskFlags(row.maskSet, row.name));
    EXPECT_EQ(Form1.List2.Lines(), Lines{Summary(row.flashWordMax, row.eepromMax)});
    ASSERT_EQ(Form1.List1.Lines().size(), lines + 1);
    EXPECT_EQ(EventText(Form1.List1.Lines().front()), AnnouncedAs(row.name));
    EXPECT_EQ(EventNumber(Form1.List1.Lines().front()), counter);
    EXPECT_EQ(link::EventCounter, counter + 1);
    EXPECT_EQ(Form1.List4.Lines(), otherLog);
    EXPECT_EQ(Form1.MSFlexGrid1.Rows(), (row.flashWordMax + 1) / 8 + 1);
    EXPECT_EQ(Form1.MSFlexGrid2.Rows(), (row.eepromMax + 1) / 8 + 1);
  }
}

TEST_F(Selection, EveryMidRangeChipSetsItsLimitsAndTexts) {
  GoTo(1);
  for (const MidRangeRow& row : MidRangeRows) {
    SCOPED_TRACE(row.name);
    const int counter = link::EventCounter;
    const std::size_t lines = Form1.List4.Lines().size();
    const Lines otherLog = Form1.List1.Lines();
    ChooseMid(row.name);
    EXPECT_EQ(FlashWordMax, row.flashWordMax);
    EXPECT_EQ(EepromMax, row.eepromMax);
    EXPECT_EQ(Form1.List5.Lines(), Lines{Summary(row.flashWordMax, row.eepromMax)});
    ASSERT_EQ(Form1.List4.Lines().size(), lines + 1);
    EXPECT_EQ(EventText(Form1.List4.Lines().front()), ":  " + std::string(row.name) + " Kiválaszva.");
    EXPECT_EQ(EventNumber(Form1.List4.Lines().front()), counter);
    EXPECT_EQ(link::EventCounter, counter + 1);
    EXPECT_EQ(Form1.List1.Lines(), otherLog);
    EXPECT_EQ(session.Ask("visible Label43"), row.configWords == 2 ? "1" : "0");
    EXPECT_EQ(session.Ask("visible List12"), row.configWords == 2 ? "1" : "0");
    EXPECT_EQ(Form1.MSFlexGrid4.Rows(), (row.flashWordMax + 1) / 8 + 1);
    EXPECT_EQ(Form1.MSFlexGrid3.Rows(), (row.eepromMax + 1) / 8 + 1);
  }
}

TEST_F(Selection, TheSecondConfigurationWordIsShownForSevenChips) {
  EXPECT_EQ(std::count_if(MidRangeRows.begin(), MidRangeRows.end(),
                          [](const MidRangeRow& row) { return row.configWords == 2; }),
            7);
}

TEST_F(Selection, TheSummaryReadsWordForWord) {
  GoTo(1);
  ChooseMid("PIC16F628A");
  EXPECT_EQ(Form1.List5.Lines(), Lines{" Szavak: (0- 2047),  0-7FF,   EEPROM: (0- 127),  0-7F"});
  ChooseMid("PIC12F609");
  EXPECT_EQ(Form1.List5.Lines(), Lines{" Szavak: (0- 1023),  0-3FF,   EEPROM: (0- 0),  0-0"});
}

TEST_F(Selection, TheLogLineReadsWordForWord) {
  GoTo(1);
  link::EventCounter = 17;
  ChooseMid("PIC16F628A");
  EXPECT_EQ(Form1.List4.Lines().front(), "17:  12:00:00:  PIC16F628A Kiválaszva.");
}

TEST_F(Selection, AMidRangeSelectionLeavesTheTextOfThePic18ComboAsTheName) {
  GoTo(1);
  ChooseMid("PIC16F628A");
  EXPECT_EQ(SelectedName, NoChip);
  GoTo(2);
  Choose18("PIC18F452");
  GoTo(1);
  ChooseMid("PIC16F628A");
  EXPECT_EQ(SelectedName, "PIC18F452");
}

TEST_F(Selection, Pic18F8680GetsTheLimitsOfHalfItsMemory) {
  GoTo(2);
  Choose18("PIC18F8680");
  EXPECT_EQ(FlashWordMax + 1, 16384);
  EXPECT_EQ(EventText(Form1.List1.Lines().front()), ":  PIC18F6520 Kiválaszva.");
}

TEST_F(Selection, ChoosingPic18F258RightAfterTheStartSelectsNothing) {
  GoTo(2);
  for (const char* chip : {"PIC18F258", "PIC18F6520"}) {
    const Lines log = Form1.List1.Lines();
    Choose18(chip);
    EXPECT_EQ(FlashWordMax, 0);
    EXPECT_EQ(Form1.List2.Lines(), Lines{" Szavak: (0- 0),  0-0,   EEPROM: (0- 0),  0-0"});
    EXPECT_EQ(Form1.List1.Lines(), log);
    EXPECT_EQ(SelectedName, chip);
    session.Do("click FlashOl");
    EXPECT_EQ(session.Look("messages"), Lines{NoChipRefusal});
  }
}

TEST_F(Selection, ChoosingPic18F258KeepsTheLimitsMasksAndBuffersOfTheChipBefore) {
  GoTo(2);
  for (const char* chip : {"PIC18F258", "PIC18F6520"}) {
    Choose18("PIC18F452");
    image::MainBuffer(1, 1) = "1234";
    image::EepromBuffer(1, 1) = "5A";
    image::ConfigBuffer[2] = "22";
    image::IdBuffer[1] = "41";
    Form1.MSFlexGrid1.SetText(1, 1, "1234");
    const int counter = link::EventCounter;
    Choose18(chip);
    EXPECT_EQ(FlashWordMax, 16383);
    EXPECT_EQ(EepromMax, 255);
    EXPECT_EQ(ShownMaskLines(), MaskLines("242", "PIC18F452"));
    EXPECT_EQ(image::MainBuffer(1, 1), "1234");
    EXPECT_EQ(image::EepromBuffer(1, 1), "5A");
    EXPECT_EQ(image::ConfigBuffer[2], "22");
    EXPECT_EQ(image::IdBuffer[1], "41");
    EXPECT_EQ(Form1.MSFlexGrid1.Text(1, 1), "FFFF") << "the grids are rebuilt all the same";
    EXPECT_EQ(Form1.List2.Lines(), Lines{Summary(16383, 255)});
    EXPECT_EQ(SelectedName, chip);
    EXPECT_EQ(link::EventCounter, counter);
  }
}

TEST_F(Selection, ASelectionDiscardsTheImageOfTheChipBefore) {
  GoTo(2);
  Choose18("PIC18F452");
  image::MainBuffer(1, 1) = "1234";
  image::EepromBuffer(1, 1) = "5A";
  image::ConfigBuffer[2] = "22";
  image::IdBuffer[1] = "41";
  image::VerifyBuffer(1, 1) = "1234";
  Choose18("PIC18F252");
  EXPECT_EQ(image::MainBuffer(1, 1), "FFFF");
  EXPECT_EQ(image::EepromBuffer(1, 1), "FF");
  EXPECT_EQ(image::ConfigBuffer[2], "FF");
  EXPECT_EQ(image::IdBuffer[1], "FF");
  EXPECT_EQ(image::VerifyBuffer(1, 1), "1234");
}

TEST_F(Selection, ATextThatNamesNoChipKeepsEverythingOnThePic18Page) {
  GoTo(2);
  Choose18("PIC18F452");
  image::MainBuffer(1, 1) = "1234";
  const int counter = link::EventCounter;
  for (const char* text : {NoChip, "", "pic18f452", "PIC18F452 ", "PIC18F45"}) {
    Form1.Combo1.Text = text;
    devices::SelectChip();
    EXPECT_EQ(FlashWordMax, 16383);
    EXPECT_EQ(EepromMax, 255);
    EXPECT_EQ(image::MainBuffer(1, 1), "1234");
    EXPECT_EQ(link::EventCounter, counter);
    EXPECT_EQ(SelectedName, text);
    EXPECT_EQ(Form1.List2.Lines(), Lines{Summary(16383, 255)});
  }
}

TEST_F(Selection, ATextThatNamesNoChipKeepsTheLimitsOnTheMidRangePageAndErasesAllTheSame) {
  GoTo(1);
  ChooseMid("PIC16F628A");
  image::MainBuffer(1, 1) = "1234";
  Form1.Combo2.Text = "PIC16F636";
  devices::SelectChip();
  EXPECT_EQ(FlashWordMax, 2047);
  EXPECT_EQ(EepromMax, 127);
  EXPECT_EQ(image::MainBuffer(1, 1), "3FFF");
  EXPECT_EQ(EventText(Form1.List4.Lines().front()), ":  PIC16F636 Kiválaszva.");
  EXPECT_EQ(Form1.List5.Lines(), Lines{Summary(2047, 127)});
}

TEST_F(Selection, TheText26SelectsTheWholePic18F8680) {
  GoTo(2);
  Form1.Combo1.Text = "26";
  devices::SelectChip();
  EXPECT_EQ(FlashWordMax, 32767);
  EXPECT_EQ(EepromMax, 1023);
  EXPECT_EQ(ShownFlags(), MaskFlags("8680", "PIC18F8680"));
  EXPECT_EQ(EventText(Form1.List1.Lines().front()), ":  PIC18F8680 Kiválaszva.");
}

TEST_F(Selection, ATabChangeDeselectsTheChipAndChangesNothingElse) {
  GoTo(2);
  Choose18("PIC18F452");
  image::MainBuffer(1, 1) = "1234";
  GoTo(1);
  EXPECT_EQ(FlashWordMax, 0);
  EXPECT_EQ(EepromMax, 255);
  GoTo(2);
  EXPECT_EQ(FlashWordMax, 0);
  EXPECT_EQ(session.Ask("get Combo1"), "PIC18F452");
  EXPECT_EQ(SelectedName, "PIC18F452");
  EXPECT_EQ(image::MainBuffer(1, 1), "1234");
  EXPECT_EQ(Form1.List2.Lines(), Lines{Summary(16383, 255)});
  EXPECT_EQ(Form1.MSFlexGrid1.Rows(), 2049);
  session.Do("click FlashOl");
  EXPECT_EQ(session.Look("messages"), Lines{NoChipRefusal});
}

TEST_F(Selection, EveryNameOfTheCatalogueStandsInItOnce) {
  for (const Pic18Row& row : Pic18Rows) {
    const devices::Pic18Entry* entry = devices::FindPic18(row.name);
    ASSERT_NE(entry, nullptr) << row.name;
    EXPECT_EQ(devices::FindMidRange(row.name), nullptr);
    EXPECT_EQ(std::count_if(Pic18Rows.begin(), Pic18Rows.end(),
                            [&](const Pic18Row& other) { return other.name == row.name; }),
              1);
  }
  for (const MidRangeRow& row : MidRangeRows) {
    EXPECT_NE(devices::FindMidRange(row.name), nullptr) << row.name;
    EXPECT_EQ(devices::FindPic18(row.name), nullptr);
  }
}

}  // namespace
}  // namespace zelvo::test
