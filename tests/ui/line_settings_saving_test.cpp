// The printer port's wiring: what each box and option sets, logs and saves.
#include <gtest/gtest.h>

#include <array>

#include "line_settings_desk.h"
#include "panel/secondary_windows.h"

namespace zelvo::test {
namespace {

using panel::Adat_él_Beállít_H;

// LineBoxes.

TEST_F(LineSettings, EachBoxSetsItsFlagIsLoggedToBothListsAndSaved) {
  Open();
  for (const LineBox& box : LineBoxes) {
    for (const bool tick : {true, false}) {
      const int number = link::EventCounter;
      const Lines log =
          session.WireOf((tick ? "tick " : "untick ") + std::string(LineWindow) + "." + box.name);
      ASSERT_GE(log.size(), 2U);
      EXPECT_EQ(Lines(log.begin(), log.begin() + 2), Entry(number, tick ? box.ticked : box.unticked));
      EXPECT_EQ(link::EventCounter, number + 1);
      EXPECT_EQ(Polarities(), std::to_string(tick ? box.bit : 0) + "\r\n");
      for (const LineBox& other : LineBoxes)
        EXPECT_EQ(Var(other.flag), tick && other.flag == box.flag ? "1" : "0") << other.flag;
    }
  }
  EXPECT_EQ(session.Look("messages"), Lines{});
}

TEST_F(LineSettings, TheInputsBoxSaysAckForBusyTooAndMovesNoLine) {
  Open();
  session.Do("click Adat_él_Beállít_H.BUSY_Radio");
  const int number = link::EventCounter;
  EXPECT_TRUE(
      SameLog(Entry(number, ":  Ack Bemenet Inverz"), session.WireOf("tick Adat_él_Beállít_H.Check5")));
  EXPECT_TRUE(SameLog(Entry(number + 1, ":  Ack Bemenet Nem Inverz"),
                      session.WireOf("untick Adat_él_Beállít_H.Check5")));
}

TEST_F(LineSettings, TheFileHoldsTheSumOfTheTickedBoxesForEveryCombination) {
  Open();
  for (int step = 1; step < 32; ++step) {
    const int number = step ^ (step >> 1);  // one box after the other
    for (const LineBox& box : LineBoxes) {
      if (Ticked(box.name) != ((number & box.bit) != 0))
        session.Do(std::string("click ") + LineWindow + "." + box.name);
    }
    EXPECT_EQ(Polarities(), std::to_string(number) + "\r\n");
  }
}

TEST_F(LineSettings, TheBoxesBitsAreWhatTheNextStartReads) {
  Open();
  session.Do({"tick Adat_él_Beállít_H.Check2", "tick Adat_él_Beállít_H.Check3",
              "tick Adat_él_Beállít_H.Check5", "click Adat_él_Beállít_H.BUSY_Radio"});
  EXPECT_EQ(
      Restarted(session.Folder(), {"start", "var VddInverted", "var VppInverted", "var ClockInverted",
                                   "var DataInverted", "var InputInverted", "var InputSelect", "messages"}),
      (Lines{"0", "1", "1", "0", "1", "0"}));
}

// Options.

TEST_F(LineSettings, EachOptionSetsItsLinesMasksAndIsSavedWithoutALine) {
  Open();
  for (const LineGroup& group : LineGroups) {
    std::array<std::string, 4> fields{"4", "8", "1", "2"};
    for (int option = 7; option >= 0; --option) {
      const int bit = BitOfOption.at(static_cast<std::size_t>(option));
      EXPECT_EQ(session.WireOf("click " + std::string(LineWindow) + "." + OptionName(group, option)),
                Lines{});
      EXPECT_EQ(Selected(group), std::vector{bit});
      EXPECT_EQ(Var(std::string(group.line) + "SetMask"), std::to_string(bit));
      EXPECT_EQ(Var(std::string(group.line) + "ClearMask"), std::to_string(255 - bit));
      fields.at(group.field) = std::to_string(bit);
      EXPECT_EQ(Pins(), fields[0] + "," + fields[1] + "," + fields[2] + "," + fields[3] + ",1\r\n");
    }
    // Back to what the others expect.
    const int usual = group.field == 0 ? 5 : group.field == 1 ? 4 : group.field == 2 ? 7 : 6;
    session.Do("click " + std::string(LineWindow) + "." + OptionName(group, usual));
  }
  EXPECT_EQ(Pins(), "4,8,1,2,1\r\n");
}

TEST_F(LineSettings, AnOptionLeavesTheOtherGroupsAsTheyAre) {
  Open();
  session.Do("click Adat_él_Beállít_H.Option1");
  EXPECT_EQ(Selected(LineGroups[0]), std::vector{128});
  EXPECT_EQ(Selected(LineGroups[1]), std::vector{8});
  EXPECT_EQ(Selected(LineGroups[2]), std::vector{2});
  EXPECT_EQ(Selected(LineGroups[3]), std::vector{1});
  EXPECT_TRUE(Ticked("ACK_Radio"));
}

TEST_F(LineSettings, AGroupWithNothingSelectedHasTheMasksZeroAnd255) {
  Open();
  for (const LineGroup& group : LineGroups) {
    for (int option = 0; option < 8; ++option) {
      auto* button = dynamic_cast<panel::OptionButton*>(Adat_él_Beállít_H.Find(OptionName(group, option)));
      ASSERT_NE(button, nullptr);
      button->Value = false;
    }
    EXPECT_EQ(Var(std::string(group.line) + "SetMask"), "0");
    EXPECT_EQ(Var(std::string(group.line) + "ClearMask"), "255");
  }
  EXPECT_EQ(Pins(), "0,0,0,0,1\r\n");
}

TEST_F(LineSettings, TheInputsRadioButtonsSelectTheInputAndAreSavedWithoutALine) {
  Open();
  EXPECT_EQ(session.WireOf("click Adat_él_Beállít_H.BUSY_Radio"), Lines{});
  EXPECT_EQ(Var("InputSelect"), "0");
  EXPECT_EQ(Pins(), "4,8,1,2,0\r\n");
  EXPECT_EQ(session.WireOf("click Adat_él_Beállít_H.ACK_Radio"), Lines{});
  EXPECT_EQ(Var("InputSelect"), "1");
  EXPECT_EQ(Pins(), "4,8,1,2,1\r\n");
}

TEST_F(LineSettings, TheSelectedBitsAreWhatTheNextStartReads) {
  Open();
  session.Do({"click Adat_él_Beállít_H.Option1", "click Adat_él_Beállít_H.Option12",
              "click Adat_él_Beállít_H.Option23", "click Adat_él_Beállít_H.Option34",
              "click Adat_él_Beállít_H.BUSY_Radio"});
  EXPECT_EQ(Pins(), "128,64,16,32,0\r\n");
  EXPECT_EQ(
      Restarted(session.Folder(), {"start", "var VddSetMask", "var VppSetMask", "var ClockSetMask",
                                   "var DataSetMask", "var DataClearMask", "var InputSelect", "messages"}),
      (Lines{"128", "64", "32", "16", "239", "0"}));
}

TEST_F(LineSettings, TheFileTakesWhatIsShownWhenTheSerialPortsMasksAreInForceMeanwhile) {
  Open();
  session.Do({"click Command6", "tick LPT_COM_select.COM_Radio", "click LPT_COM_select.Command1",
              "choose LPT_Port_Set.Combo1 &H3F8", "click LPT_Port_Set.Command1", "click Command5",
              "tick Adat_él_Beállít_COM.Check4_Vpp", "close Adat_él_Beállít_COM"});
  ASSERT_EQ(Var("VppSetMask"), "64") << "the break bit";
  session.Do("click Adat_él_Beállít_H.BUSY_Radio");
  EXPECT_EQ(Pins(), "4,8,1,2,0\r\n");
  session.Do("click Adat_él_Beállít_H.Option22");
  EXPECT_EQ(Pins(), "4,8,1,64,0\r\n");
}

// Closing.

TEST_F(LineSettings, ClosingLogsTheInputThatIsSelected) {
  Open();
  int number = link::EventCounter;
  EXPECT_TRUE(SameLog(Joined({Entry(number, ":  Ack Bemenetnek kiválasztva."), {"- Adat_él_Beállít_H"}}),
                      session.WireOf("close Adat_él_Beállít_H")));
  Open();
  session.Do("click Adat_él_Beállít_H.BUSY_Radio");
  number = link::EventCounter;
  EXPECT_TRUE(SameLog(Joined({Entry(number, ":  Busy Bemenetnek kiválasztva."), {"- Adat_él_Beállít_H"}}),
                      session.WireOf("close Adat_él_Beállít_H")));
  EXPECT_EQ(Pins(), "4,8,1,2,0\r\n");
}

// Files.

TEST_F(LineSettings, WhatCannotBeKeptIsToldLeavesTheOldFileWholeAndIsInForceForThisRun) {
  Open();
  for (const LineBox& box : LineBoxes) {
    const std::string name = std::string(LineWindow) + "." + box.name;
    ExpectRefusedWrites(session, "invert.ini", "tick " + name, "untick " + name);
    session.Do("tick " + name);
    EXPECT_EQ(Var(box.flag), "1");
  }
  EXPECT_EQ(Polarities(), "31\r\n") << "with room again the file is written";
  for (const LineGroup& group : LineGroups) {
    ExpectRefusedWrites(session, "LPT_Kiosztas.ini",
                        "click " + std::string(LineWindow) + "." + OptionName(group, 0),
                        "click " + std::string(LineWindow) + "." + OptionName(group, 1));
    EXPECT_EQ(Var(std::string(group.line) + "SetMask"), "64");
  }
  ExpectRefusedWrites(session, "LPT_Kiosztas.ini", "click Adat_él_Beállít_H.BUSY_Radio",
                      "click Adat_él_Beállít_H.ACK_Radio");
  EXPECT_EQ(Pins(), "4,8,1,2,1\r\n");
}

TEST_F(LineSettings, AKillWhileAFileIsWrittenLeavesOneOfBoth) {
  Open();
  ExpectWholeAfterAKill(session.Folder(), "invert.ini", {"0\r\n", "16\r\n"},
                        [this] { session.Do("click Adat_él_Beállít_H.Check5"); });
  ExpectReplacedAsAWhole(session.Folder(), "invert.ini",
                         [this] { session.Do("tick Adat_él_Beállít_H.Check1"); });
  ExpectWholeAfterAKill(session.Folder(), "LPT_Kiosztas.ini", {"4,8,1,2,1\r\n", "4,8,1,2,0\r\n"}, [this] {
    session.Do({"click Adat_él_Beállít_H.BUSY_Radio", "click Adat_él_Beállít_H.ACK_Radio"});
  });
  ExpectReplacedAsAWhole(session.Folder(), "LPT_Kiosztas.ini",
                         [this] { session.Do("click Adat_él_Beállít_H.Option1"); });
}

}  // namespace
}  // namespace zelvo::test
