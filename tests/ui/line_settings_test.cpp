// The window of the printer port's wiring: its controls, and what it shows of its files when it opens.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "line_settings_desk.h"
#include "link/port.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"

namespace zelvo::test {
namespace {

using panel::Adat_él_Beállít_H;

class LineSettingsOnCom : public LineSettings {
 protected:
  LineSettingsOnCom() : LineSettings(SerialPort()) {}
};

// The window.

TEST_F(LineSettings, TheWindowAndItsControlsBearTheirNamesAndCaptions) {
  EXPECT_EQ(Adat_él_Beállít_H.Name(), LineWindow);
  EXPECT_EQ(Adat_él_Beállít_H.Caption, "LPT port Adatél Beállítás");
  ExpectCaptions(Adat_él_Beállít_H, {{"Label9", "LPT Port bitek beállítása"},
                                     {"Label10", "LPT láb:"},
                                     {"Frame5", "Bemenet kiválasztása"},
                                     {"ACK_Radio", "ACK  (10. láb)"},
                                     {"BUSY_Radio", "BUSY (11. láb)"},
                                     {"Check1", "Vdd(+5V) Inverz"},
                                     {"Check2", "Vpp (+13V) Inverz"},
                                     {"Check3", "Órajel (PGC/RB6) Inverz"},
                                     {"Check4", "Adat (PGD/RB7) Inverz"},
                                     {"Check5", "Adat_Be (ACK/Busy) Inverz"}});
  for (const LineGroup& group : LineGroups)
    EXPECT_EQ(CaptionOf(Adat_él_Beállít_H, group.frame), group.caption);
}

TEST_F(LineSettings, TheColumnsAreHeadedByBitsFromD7AndPinsFromNineDown) {
  const std::array<const char*, 8> bits{"D7", "D6", "D5", "D4", "D3", "D2", "D1", "D0"};
  const std::array<const char*, 8> pins{" 9.", " 8.", " 7.", " 6.", " 5.", " 4.", " 3.", " 2."};
  for (std::size_t column = 0; column < 8; ++column) {
    EXPECT_EQ(Adat_él_Beállít_H.BitLabels.at(column).Caption.Get(), bits.at(column));
    EXPECT_EQ(Adat_él_Beállít_H.PinLabels.at(column).Caption.Get(), pins.at(column));
  }
}

TEST_F(LineSettings, EightOptionsStandInTheFrameOfTheirLineAndTwoInThatOfTheInput) {
  const auto frameOf = [](const std::string& name) {
    const auto* option = dynamic_cast<const panel::OptionButton*>(Adat_él_Beállít_H.Find(name));
    return option != nullptr && option->Group() != nullptr ? option->Group()->Name() : "(none)";
  };
  for (const LineGroup& group : LineGroups) {
    for (int option = 0; option < 8; ++option) EXPECT_EQ(frameOf(OptionName(group, option)), group.frame);
  }
  EXPECT_EQ(frameOf("ACK_Radio"), "Frame5");
  EXPECT_EQ(frameOf("BUSY_Radio"), "Frame5");
  for (const char* none : {"Option9", "Option10", "Option19", "Option20", "Option29", "Option30", "Option39"})
    EXPECT_EQ(Adat_él_Beállít_H.Find(none), nullptr) << none;
}

TEST_F(LineSettings, BothPagesOpenIt) {
  for (const char* button : {"Command5", "Command16"}) {
    EXPECT_EQ(CaptionOf(panel::Form1, button), "Port Beállítás") << button;
    EXPECT_EQ(session.WireOf(std::string("click ") + button), Lines{std::string("+ ") + LineWindow});
    Close();
  }
}

TEST_F(LineSettingsOnCom, IsNotTheWindowOfTheSerialPort) {
  for (const char* button : {"Command5", "Command16"}) {
    EXPECT_EQ(session.WireOf(std::string("click ") + button), Lines{"+ Adat_él_Beállít_COM"});
    session.Do("close Adat_él_Beállít_COM");
  }
}

TEST(LineSettingsWithoutAnInterface, NeitherWindowOpens) {
  Settings settings;
  settings.port = "&H378,USB";
  BenchSession session(settings);
  session.Do("start");
  EXPECT_EQ(session.WireOf("click Command5"), Lines{});
  EXPECT_EQ(session.WireOf("click Command16"), Lines{});
}

// Opening.

TEST_F(LineSettings, OpeningTicksTheBitsOfThePolarityFileAndLogsAndSavesNothing) {
  for (int number = 0; number < 32; ++number) {
    // Without a line end: a file that is written again gets one.
    session.Folder().Write("invert.ini", std::to_string(number));
    const int counter = link::EventCounter;
    Open();
    EXPECT_EQ(Shown(), number);
    EXPECT_EQ(Polarities(), std::to_string(number));
    EXPECT_EQ(link::EventCounter, counter);
    Close();
  }
  EXPECT_EQ(session.Look("messages"), Lines{});
}

TEST_F(LineSettings, WhatOpeningTicksIsInForceAndWhatItDoesNotTickStays) {
  session.Folder().Write("invert.ini", "9");
  link::VppInverted = true;
  Open();
  for (const LineBox& box : LineBoxes) {
    const bool inForce = (box.bit & (9 | 2)) != 0;
    EXPECT_EQ(Var(box.flag), inForce ? "1" : "0") << box.flag;
  }
}

TEST_F(LineSettings, BitsBeyondTheFiveLinesTickNothing) {
  session.Folder().Write("invert.ini", "96\r\n");
  Open();
  EXPECT_EQ(Shown(), 0);
  session.Do({"tick Adat_él_Beállít_H.Check2"});
  EXPECT_EQ(Polarities(), "2\r\n");
}

TEST_F(LineSettings, AMissingOrBadPolarityFileIsToldWrittenAnewAndShownAsWritten) {
  for (const char* bad : {"", "x", "1,2", "0x1C"}) {
    session.Folder().Write("invert.ini", bad);
    EXPECT_EQ(session.WireOf("click Command5")[1],
              "M ok ok Hiba a Port Él(invert) adatok betöltésénél! Ellenőrizd az Él beállításokat! Új Fájl "
              "létrehozva alapértelmezett értékekkel (ZLV_F18)")
        << bad;
    EXPECT_EQ(Polarities(), "28\r\n");
    EXPECT_EQ(Shown(), 28);
    Close();
  }
  std::filesystem::remove(session.Folder().File("invert.ini"));
  Open();
  EXPECT_EQ(session.Look("messages").size(), 5U);
  EXPECT_EQ(Shown(), 28);
}

TEST_F(LineSettings, OpeningSelectsTheOptionsOfThePinFileAndPutsThemInForce) {
  for (const LineGroup& group : LineGroups) {
    for (std::size_t option = 0; option < 8; ++option) {
      std::array<int, 4> fields{4, 8, 1, 2};
      fields.at(group.field) = BitOfOption.at(option);
      const std::string content = std::to_string(fields[0]) + "," + std::to_string(fields[1]) + "," +
                                  std::to_string(fields[2]) + "," + std::to_string(fields[3]) +
                                  (option % 2 == 0 ? ",1" : ",0");
      session.Folder().Write("LPT_Kiosztas.ini", content);
      Open();
      for (const LineGroup& shown : LineGroups)
        EXPECT_EQ(Selected(shown), std::vector{fields.at(shown.field)});
      EXPECT_EQ(Ticked("ACK_Radio"), option % 2 == 0);
      EXPECT_EQ(Ticked("BUSY_Radio"), option % 2 == 1);
      EXPECT_EQ(Var("InputSelect"), option % 2 == 0 ? "1" : "0");
      EXPECT_EQ(Var(std::string(group.line) + "SetMask"), std::to_string(BitOfOption.at(option)));
      EXPECT_EQ(Var(std::string(group.line) + "ClearMask"), std::to_string(255 - BitOfOption.at(option)));
      EXPECT_EQ(Pins(), content) << "nothing to save";
      Close();
    }
  }
}

TEST_F(LineSettings, AMissingShortOrBadPinFileLeavesUnselectedWhatItCannotMatchAndTellsNothing) {
  struct Case {
    const char* content;
    std::array<int, 4> selected;  ///< in the order of the fields; 0 for none
    int input;                    ///< -1 for none
  };
  for (const Case& one : {Case{"", {0, 0, 0, 0}, -1},
                          {"4,8", {4, 8, 0, 0}, -1},
                          {"4,8,1,2", {4, 8, 1, 2}, -1},
                          {"4,8,1,2,2", {4, 8, 1, 2}, -1},
                          {"4,x,1,,0", {4, 0, 1, 0}, 0},
                          {"3,0,256,-1,1", {0, 0, 0, 0}, 1},
                          {"4,8,1,2,1,7", {4, 8, 1, 2}, 1}}) {
    session.Folder().Write("LPT_Kiosztas.ini", one.content);
    Open();
    for (const LineGroup& group : LineGroups) {
      const int bit = one.selected.at(group.field);
      EXPECT_EQ(Selected(group), bit == 0 ? std::vector<int>{} : std::vector{bit}) << one.content;
    }
    EXPECT_EQ(Ticked("ACK_Radio"), one.input == 1) << one.content;
    EXPECT_EQ(Ticked("BUSY_Radio"), one.input == 0) << one.content;
    EXPECT_EQ(Pins(), one.content);
    Close();
  }
  std::filesystem::remove(session.Folder().File("LPT_Kiosztas.ini"));
  Open();
  for (const LineGroup& group : LineGroups) EXPECT_EQ(Selected(group), std::vector<int>{});
  EXPECT_FALSE(std::filesystem::exists(session.Folder().File("LPT_Kiosztas.ini")));
  EXPECT_EQ(session.Look("messages"), Lines{});
  EXPECT_EQ(Var("VddSetMask"), "4") << "the masks stay in force";
  EXPECT_EQ(Var("InputSelect"), "1") << "and so does the input";
}

}  // namespace
}  // namespace zelvo::test
