// Reading, erasing and writing the data EEPROM of a PIC18: every event on the wire, on every board, and which
// chip is treated in which way.
#include "ops18/eeprom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "devices/selection.h"
#include "eeprom_model.h"
#include "icsp/conversions.h"
#include "icsp/scripts.h"
#include "image/buffers.h"
#include "image/eeprom_walk.h"
#include "link/delays.h"
#include "link/run_state.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"

namespace zelvo::test {
namespace {

using enum EepromGroup;
using panel::Form1;

// At this setting an edge of a write waits 8 passes: the chip's 4 ms last for several polls.
constexpr double Brisk = 2;

constexpr const char* NoEeprom = "Ebben a PIC-ben nincs EEPROM!";

/// Two rows: bytes at the ends of a row, blank ones between, two neighbours.
const EepromBytes Mixed = {0x12, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0xA5,
                           0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F};

class EepromOn : public testing::TestWithParam<BoardKind> {
 protected:
  EepromOn() : it(GetParam()) { link::SpeedSetting = link::WaitCount = Brisk; }
  Operations it;
};

TEST_P(EepromOn, AReadClocksTheInstructionsOfEachByteAndShiftsTablatOut) {
  link::SpeedSetting = 17;  // an eighth is 2 passes and a fraction
  for (const char* name : {"PIC18F1220", "PIC18F452", "PIC18F4550"}) {
    const EepromGroup group = name == std::string("PIC18F1220") ? Small : Panel;
    TakeEeprom(name, EepromBytes(16, ErasedByte));
    SocketEeprom(it.session, name, Mixed);
    panel::EEPROM_Beolvas.Unload();
    WireModel model(GetParam(), 2);
    AddEepromRead(model, group, NextEvent(it.session), Mixed);
    ASSERT_TRUE(SameLog(model.Log(), it.WireOf(ops18::ReadEeprom))) << name;
    EXPECT_EQ(image::EepromReadBuffer(1, 1), "12") << name;
    EXPECT_EQ(image::EepromReadBuffer(7, 1), "00") << name;
    EXPECT_EQ(image::EepromReadBuffer(8, 2), "7F") << name;
  }
}

TEST_P(EepromOn, AnEraseSendsTheKeysOfTheEepromAlone) {
  for (const auto& [name, group] :
       {std::pair{"PIC18F1220", Small}, std::pair{"PIC18F452", Panel}, std::pair{"PIC18F4550", Newer}}) {
    TakeEeprom(name, Mixed);
    SocketEeprom(it.session, name, Mixed);
    WireModel model(GetParam(), 2);
    AddEepromErase(model, group);
    ASSERT_TRUE(SameLog(model.Log(), it.WireOf(ops18::EraseEeprom))) << name;
  }
}

TEST_P(EepromOn, AWriteErasesAndSendsEachByteThatIsNotBlankAndPollsBehindIt) {
  for (const auto& [name, group] :
       {std::pair{"PIC18F1220", Small}, std::pair{"PIC18F452", Panel}, std::pair{"PIC18F4550", Newer}}) {
    // One byte a row: on a plain printer port the poll ends while the chip still writes.
    EepromBytes bytes = EepromBytes(16, ErasedByte);
    bytes[0] = 0x12;
    if (GetParam().com || GetParam().input) bytes = Mixed;
    TakeEeprom(name, bytes);
    SocketEeprom(it.session, name, EepromBytes(16, 0x55));
    WireModel model(GetParam(), 0);
    AddEepromWrite(model, GetParam(), group, static_cast<long long>(Brisk), NextEvent(it.session), bytes,
                   WritingChip);
    ASSERT_TRUE(SameLog(model.Log(), it.WireOf(ops18::WriteEeprom))) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(Board, EepromOn, testing::ValuesIn(BoardKinds()),
                         [](const auto& kind) { return std::string(kind.param.name); });

class EepromOfEveryChip : public testing::Test {
 protected:
  EepromOfEveryChip() { link::SpeedSetting = link::WaitCount = Brisk; }

  /// The log of a refused chip: it is powered, and nothing is sent.
  WireModel Refused(const char* logLine, bool write) {
    WireModel model(BoardKinds().front(), 0);
    if (write) {
      model.PowerOn();
      model.PowerOff();
      model.Line("D szün");
    }
    model.PowerOn();
    model.Event(NextEvent(it.session), logLine);
    model.Line(std::string("M ok ok ") + NoEeprom);
    model.PowerOff();
    return model;
  }
  Operations it;
};

TEST_F(EepromOfEveryChip, TheTableHereNamesEachChipOfTheCatalogueOnce) {
  Lines names;
  std::map<EepromGroup, int> groups;
  for (const EepromChip& chip : EepromChips()) {
    names.push_back(chip.Name());
    ++groups[chip.group];
  }
  Lines catalogue = it.session.Look("list Combo1");
  std::ranges::sort(names);
  std::ranges::sort(catalogue);
  EXPECT_EQ(names, catalogue);
  EXPECT_EQ(groups, (std::map<EepromGroup, int>{{Small, 6}, {Panel, 26}, {Newer, 32}, {None, 8}}));
  for (const EepromChip& chip : EepromChips())
    EXPECT_EQ(ops18::HasNoEeprom(chip.Name()), chip.group == None) << chip.number;
}

TEST_F(EepromOfEveryChip, ReadsWithOneOrTwoAddressBytesOrIsRefused) {
  const EepromBytes floating(8, 0xFF);
  for (const EepromChip& chip : EepromChips()) {
    TakeEeprom(chip.Name(), floating);
    panel::EEPROM_Beolvas.Unload();
    WireModel model(BoardKinds().front(), 0);
    if (chip.group == None) {
      model = Refused(":  EEPROM Beolvasása Indult.", false);
    } else {
      AddEepromRead(model, chip.group, NextEvent(it.session), floating);
    }
    ASSERT_TRUE(SameLog(model.Log(), it.WireOf(ops18::ReadEeprom))) << chip.number;
  }
}

TEST_F(EepromOfEveryChip, IsErasedByOneKeyOrTwoOrNotAtAll) {
  for (const EepromChip& chip : EepromChips()) {
    TakeEeprom(chip.Name(), EepromBytes(8, ErasedByte));
    WireModel model(BoardKinds().front(), 2);
    AddEepromErase(model, chip.group);
    ASSERT_TRUE(SameLog(model.Log(), it.WireOf(ops18::EraseEeprom))) << chip.number;
  }
}

TEST_F(EepromOfEveryChip, IsWrittenInItsOwnWayOrRefused) {
  const EepromBytes bytes = {0xFF, 0x3C, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x81};
  for (const EepromChip& chip : EepromChips()) {
    TakeEeprom(chip.Name(), bytes);
    WireModel model(BoardKinds().front(), 0);
    if (chip.group == None) {
      model = Refused(":  EEPROM Írása Indult.", true);
    } else {
      AddEepromWrite(model, BoardKinds().front(), chip.group, static_cast<long long>(Brisk),
                     NextEvent(it.session), bytes, EmptySocket);
    }
    ASSERT_TRUE(SameLog(model.Log(), it.WireOf(ops18::WriteEeprom))) << chip.number;
    EXPECT_EQ(link::WaitCount, Brisk) << chip.number;
  }
}

TEST_F(EepromOfEveryChip, TheEightWithoutEepromAreToldOnceAndWithTheAutomaticCheckTwice) {
  for (const EepromChip& chip : EepromChips()) {
    if (chip.group != None) continue;
    Form1.Check1.Value = false;
    it.Choose(chip.Name());
    image::EepromBuffer(1, 1) = "3C";
    image::EepromReadBuffer(1, 1) = "99";
    const std::size_t before = Form1.List1.Lines().size();
    ops18::WriteEeprom();
    EXPECT_EQ(it.session.Look("messages"), Lines{std::string("ok ok ") + NoEeprom}) << chip.number;
    EXPECT_EQ(Form1.List1.Lines().size(), before + 1) << "no closing line";
    EXPECT_TRUE(Form1.List1.Lines().front().ends_with(":  EEPROM Írása Indult."));
    ops18::ReadEeprom();
    EXPECT_EQ(it.session.Look("messages"), Lines{std::string("ok ok ") + NoEeprom}) << chip.number;
    EXPECT_EQ(Form1.List1.Lines().size(), before + 2) << "no closing line";
    EXPECT_TRUE(Form1.List1.Lines().front().ends_with(":  EEPROM Beolvasása Indult."));
    Form1.Check1.Value = true;
    ops18::WriteEeprom();
    EXPECT_EQ(it.session.Look("messages"), Lines(2, std::string("ok ok ") + NoEeprom)) << chip.number;
    EXPECT_EQ(Form1.List1.Lines().size(), before + 4);
    EXPECT_EQ(image::EepromBuffer(1, 1), "3C") << "neither buffer is touched";
    EXPECT_EQ(image::EepromReadBuffer(1, 1), "99");
    EXPECT_FALSE(panel::EEPROM_Beolvas.Loaded());
    EXPECT_FALSE(panel::EEE_Ír_Állapot.Loaded());
  }
}

TEST_F(EepromOfEveryChip, ANameInNoRowSendsNothingAndIsReportedAsUsual) {
  TakeEeprom("PIC18F45K20", EepromBytes(8, 0x11));
  const int event = NextEvent(it.session);
  WireModel model(BoardKinds().front(), 0);
  model.PowerOn();
  model.Line("D settle");
  model.PowerOff();
  model.Line("D szün");
  model.PowerOn();
  model.Event(event, ":  EEPROM Írása Indult.");
  model.Event(event + 1, ":  EEPROM Írása kész.");
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::WriteEeprom)));
}

class EepromTraffic : public testing::Test {
 protected:
  EepromTraffic() { link::SpeedSetting = link::WaitCount = Brisk; }
  Operations it;
};

TEST_F(EepromTraffic, ABlankBufferErasesTheEepromAndSendsThePrefixOnly) {
  for (const EepromChip& chip : {EepromChips()[0], EepromChips()[9], EepromChips()[35]}) {
    const EepromBytes blank(256, ErasedByte);
    TakeEeprom(chip.Name(), blank);
    const int event = NextEvent(it.session);
    WireModel model(BoardKinds().front(), 2);
    AddEepromErase(model, chip.group);
    model.Line("D szün");
    model.PowerOn();
    model.Event(event, ":  EEPROM Írása Indult.");
    model.Passes(8);
    model.HeldCore({0x9EA6, 0x9CA6});
    model.ClockAndDataToRest();
    model.Line("+ EEE_Ír_Állapot");
    for (int address = 0; address < 256; ++address) {
      model.Line("B EEE_Ír_Állapot " + std::to_string(address));
    }
    model.Line("- EEE_Ír_Állapot");
    model.Event(event + 1, ":  EEPROM Írása kész.");
    model.PowerOff();
    EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::WriteEeprom))) << chip.number;
  }
}

TEST_F(EepromTraffic, OnlyTheUpperCaseTextCountsAsBlank) {
  TakeEeprom("PIC18F452", EepromBytes(8, ErasedByte));
  for (const char* text : {"ff", "fF", "Ff", "F", "FE", ""}) {
    image::EepromBuffer(3, 1) = text;
    const Lines log = it.WireOf(ops18::WriteEeprom);
    EXPECT_GT(Count(log, "R 0379 40"), 0) << "a poll follows '" << text << "'";
  }
  image::EepromBuffer(3, 1) = "FF";
  EXPECT_EQ(Count(it.WireOf(ops18::WriteEeprom), "R 0379 40"), 0);
}

TEST_F(EepromTraffic, TheHighAddressByteCountsFromTheTwoHundredAndFiftySeventhByteOn) {
  EepromBytes bytes(1024, ErasedByte);
  for (const std::size_t at : {0x000U, 0x0FFU, 0x100U, 0x1FFU, 0x3A7U, 0x3FFU}) bytes[at] = 0x5A;
  for (const char* name : {"PIC18F8720", "PIC18F8722"}) {
    const EepromGroup group = name == std::string("PIC18F8720") ? Panel : Newer;
    TakeEeprom(name, bytes);
    WireModel write(BoardKinds().front(), 0);
    AddEepromWrite(write, BoardKinds().front(), group, 2, NextEvent(it.session), bytes, EmptySocket);
    EXPECT_TRUE(SameLog(write.Log(), it.WireOf(ops18::WriteEeprom))) << name;

    SocketEeprom(it.session, name, bytes);
    panel::EEPROM_Beolvas.Unload();
    WireModel read(BoardKinds().front(), 0);
    AddEepromRead(read, group, NextEvent(it.session), bytes);
    EXPECT_TRUE(SameLog(read.Log(), it.WireOf(ops18::ReadEeprom))) << name;
    EXPECT_EQ(image::EepromReadBuffer(8, 32), "5A") << "FFh";
    EXPECT_EQ(image::EepromReadBuffer(1, 33), "5A") << "100h";
    EXPECT_EQ(image::EepromReadBuffer(8, 128), "5A") << "3FFh";
    it.session.Do("socket none");
  }
}

TEST_F(EepromTraffic, AReadWaitsAnEighthOfTheSettingRoundedDownAndPutsItBack) {
  struct Case {
    double setting;
    long long passes;
  };
  TakeEeprom("PIC18F452", EepromBytes(8, ErasedByte));
  for (const Case& speed : {Case{7, 0}, Case{8, 1}, Case{10, 1}, Case{79, 9}, Case{100000, 12500}}) {
    link::SpeedSetting = speed.setting;
    link::WaitCount = 3;
    panel::EEPROM_Beolvas.Unload();
    WireModel model(BoardKinds().front(), speed.passes);
    AddEepromRead(model, Panel, NextEvent(it.session), EepromBytes(8, 0xFF));
    EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::ReadEeprom))) << speed.setting;
    EXPECT_EQ(link::WaitCount, speed.setting);
  }
}

TEST_F(EepromTraffic, AWriteWaitsFourTimesTheSettingAndItsEraseAsLongAsTheCaller) {
  TakeEeprom("PIC18F452", EepromBytes(8, 0x21));
  for (const double setting : {10.0, 2.6}) {
    link::SpeedSetting = setting;
    link::WaitCount = 3;
    const Lines log = it.WireOf(ops18::WriteEeprom);
    const auto begin =
        std::ranges::find_if(log, [](const auto& line) { return line.ends_with("EEPROM Írása Indult."); });
    EXPECT_EQ(std::count(log.begin(), begin, "P 3"), 3 * 27 + 2 * (8 * 20 + 24));
    const std::string write = setting == 10 ? "P 40" : "P 10";
    EXPECT_EQ(std::count_if(begin, log.end(),
                            [&write](const auto& line) { return line[0] == 'P' && line != write; }),
              0);
    EXPECT_EQ(link::WaitCount, setting);
  }
}

TEST_F(EepromTraffic, TheKeysOfTheNewerChipsAreKept) {
  icsp::EraseKey1 = "FF";
  icsp::EraseKey2 = "87";
  TakeEeprom("PIC18F452", EepromBytes(8, ErasedByte));
  ops18::EraseEeprom();
  EXPECT_EQ(icsp::EraseKey1 + icsp::EraseKey2, "FF87");
  TakeEeprom("PIC18F8722", EepromBytes(8, ErasedByte));
  ops18::EraseEeprom();
  EXPECT_EQ(icsp::EraseKey1 + icsp::EraseKey2, "0084");
}

TEST_F(EepromTraffic, TheEndMarkOfTheOneKeyScriptGoesOutAsZerosAfterAnyConversion) {
  TakeEeprom("PIC18F452", EepromBytes(8, ErasedByte));
  for (const char* before : {"FF", "A5", "0F"}) {
    icsp::HexPairToBits(before);
    icsp::LoadFailed = 0;
    WireModel model(BoardKinds().front(), 2);
    AddEepromErase(model, Panel);
    EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::EraseEeprom))) << before;
    EXPECT_EQ(icsp::LoadFailed, 2);
  }
}

TEST_F(EepromTraffic, TwoHundredAndFiftySixBytesFillThirtyTwoRowsOfEight) {
  EepromBytes bytes;
  for (int i = 0; i < 256; ++i) bytes.push_back(i * 7 & 0xFF);
  it.Choose("PIC18F1220");
  SocketEeprom(it.session, "PIC18F1220", bytes);
  image::EepromReadBuffer(1, 33) = "??";
  ops18::ReadEeprom();
  for (int i = 0; i < 256; ++i) {
    char text[4];
    std::snprintf(text, sizeof text, "%02X", static_cast<unsigned>(bytes[static_cast<std::size_t>(i)]));
    ASSERT_EQ(image::EepromReadBuffer(i % 8 + 1, i / 8 + 1), text) << i;
  }
  EXPECT_EQ(image::EepromReadBuffer(1, 33), "??");
  EXPECT_EQ(image::EepromAddress, 256);
  EXPECT_EQ(panel::EEPROM_Beolvas.MSFlexGrid2.Rows(), 33);
}

}  // namespace
}  // namespace zelvo::test
