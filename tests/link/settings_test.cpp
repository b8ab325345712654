// The files of the port, the pins and the speed: what a good one sets, and the recovery of a missing or bad
// one.
#include "link/settings.h"

#include <gtest/gtest.h>

#include "link/delays.h"
#include "link/port.h"
#include "link/settings_files.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

using namespace link;  // NOLINT: the tests speak in the terms of the link

struct PortRow {
  const char* text;
  int base;
  bool lpt, com;
};

TEST(PortFile, GivesTheAddressAndTheKind) {
  const PortRow rows[] = {
      {"&H378,LPT\r\n", 888, true, false},   {"&H378,LPT", 888, true, false},
      {"&H2F8,COM\r\n", 760, false, true},   {"&H278,LPT\n", 632, true, false},
      {"888,LPT\r\n", 888, true, false},     {"1016,COM\r\n", 1016, false, true},
      {"&h3bc,LPT\r\n", 956, true, false},   {"&HD010,LPT\r\n", 0xD010 - 65536, true, false},
      {"&H3F8,COM9\r\n", 1016, false, true}, {"&H3F8,COM,LPT\r\n", 1016, false, true},
  };
  BenchSession session;
  for (const PortRow& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(ReadFound(session, "port.ini", row.text, ReadPortFile), Lines{});
    EXPECT_EQ(PortBase, row.base);
    EXPECT_EQ(PortAddress, row.base);
    EXPECT_EQ(LptMode, row.lpt);
    EXPECT_EQ(ComMode, row.com);
    EXPECT_EQ(session.Folder().Read("port.ini"), row.text) << "a good file is left alone";
  }
}

TEST(PortFile, AnotherKindIsNoErrorAndSetsNoMode) {
  BenchSession session;
  for (const char* text :
       {"&H378,USB\r\n", "&H378,lpt\r\n", "&H378,\r\n", "&H378, LPT\r\n", "&H378,LP\r\n"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(ReadFound(session, "port.ini", text, ReadPortFile), Lines{});
    EXPECT_FALSE(LptMode);
    EXPECT_FALSE(ComMode);
    EXPECT_EQ(PortBase, 888);
    EXPECT_EQ(session.Folder().Read("port.ini"), text);
  }
}

TEST(PortFile, AMissingOrBadOneIsToldAndWrittenAnewAndLeavesNoMode) {
  ExpectRecovery("port.ini", ReadPortFile, PortMessage, "&H378,LPT",
                 {std::nullopt, "", "\r\n", "LPT", "&H378", "&H378LPT", ",LPT", "&HXYZ,LPT", "&H,LPT",
                  "hello,COM", "&H12345,COM", "40000,LPT"},
                 [] {
                   EXPECT_EQ(PortBase, 888);
                   EXPECT_FALSE(LptMode);
                   EXPECT_FALSE(ComMode);
                 });
}

TEST(PortFile, AfterABadOneTheProgramStaysUpWithoutAModeUntilTheRestart) {
  Settings settings;
  settings.port = "nonsense";
  BenchSession session(settings);
  session.BeginWire();
  session.Do({"board lpt", "start"});
  const Lines log = session.EndWire();
  EXPECT_TRUE(SameLog({"+ MDIForm1", "+ Form1", std::string("M ") + PortMessage}, log))
      << "no line in the log, no access to a port, the polarity unread";
  EXPECT_EQ(session.Look("list List1"), Lines{});
  EXPECT_EQ(session.Ask("var LptMode"), "0");
  EXPECT_EQ(session.Ask("var ComMode"), "0");
}

// --------------------------------------------------------------------------------------- LPT_Kiosztas.ini

TEST(PinFile, GivesTheMasksInTheOrderVddVppDataClock) {
  BenchSession session;
  EXPECT_EQ(ReadFound(session, "LPT_Kiosztas.ini", "128,64,32,16,0\r\n", ReadPinFile), Lines{});
  EXPECT_EQ(VddSetMask, 128);
  EXPECT_EQ(VddClearMask, 127);
  EXPECT_EQ(VppSetMask, 64);
  EXPECT_EQ(VppClearMask, 191);
  EXPECT_EQ(DataSetMask, 32);
  EXPECT_EQ(DataClearMask, 223);
  EXPECT_EQ(ClockSetMask, 16);
  EXPECT_EQ(ClockClearMask, 239);
  EXPECT_EQ(InputSelect, 0);
}

TEST(PinFile, EveryBitOfTheDataRegisterCanCarryEveryLine) {
  BenchSession session;
  for (int bit = 1; bit <= 128; bit *= 2) {
    const std::string b = std::to_string(bit);
    EXPECT_EQ(ReadFound(session, "LPT_Kiosztas.ini", b + ',' + b + ',' + b + ',' + b + ",1\r\n", ReadPinFile),
              Lines{});
    EXPECT_EQ(VddSetMask, bit);
    EXPECT_EQ(VppClearMask, 255 - bit);
    EXPECT_EQ(DataSetMask, bit);
    EXPECT_EQ(ClockClearMask, 255 - bit);
    EXPECT_EQ(InputSelect, 1);
  }
}

TEST(PinFile, AMissingOrBadOneIsToldAndTheDefaultsAreInForceAtOnce) {
  ExpectRecovery("LPT_Kiosztas.ini", ReadPinFile, PinMessage, "4,8,1,2,1",
                 {std::nullopt, "", "4,8,1,2", "4,8,1,2,2", "4,8,1,2,-1", "4,8,1,2,", "4,8,1,x,1",
                  "64,32,16,8,7", "3,8,1,2,1", "256,8,1,2,1", "0,8,1,2,1", "128;64;32;16;0"},
                 [] {
                   EXPECT_EQ(VddSetMask, 4);
                   EXPECT_EQ(VddClearMask, 251);
                   EXPECT_EQ(VppSetMask, 8);
                   EXPECT_EQ(VppClearMask, 247);
                   EXPECT_EQ(DataSetMask, 1);
                   EXPECT_EQ(DataClearMask, 254);
                   EXPECT_EQ(ClockSetMask, 2);
                   EXPECT_EQ(ClockClearMask, 253);
                   EXPECT_EQ(InputSelect, 1);
                   VddSetMask = VppSetMask = DataSetMask = ClockSetMask = 0;
                   InputSelect = 0;
                 });
}

// ---------------------------------------------------------------------------------------------- speed.ini

struct SpeedRow {
  const char* text;
  int value;
  bool tenfold;
};

void PrintTo(const SpeedRow& row, std::ostream* out) {
  *out << row.value << (row.tenfold ? " tenfold" : "");
}

class SpeedFile : public testing::TestWithParam<SpeedRow> {};
INSTANTIATE_TEST_SUITE_P(Texts, SpeedFile,
                         testing::Values(SpeedRow{"1,0\r\n", 1, false}, SpeedRow{"1,1\r\n", 1, true},
                                         SpeedRow{"100,0\n", 100, false}, SpeedRow{"10000,1", 10000, true},
                                         SpeedRow{"10000,0", 10000, false}, SpeedRow{"250,12\r\n", 250, true},
                                         SpeedRow{"250,2\r\n", 250, false},
                                         SpeedRow{" 77 ,1\r\n", 77, true}));

TEST_P(SpeedFile, GivesThePositionOfBothBarsAndTheTenfoldTickWithoutScalingTwice) {
  const SpeedRow& row = GetParam();
  Settings settings;
  settings.speed = std::nullopt;
  BenchSession session(settings);
  session.Folder().Write("speed.ini", row.text);
  session.Do("start");
  const std::string value = std::to_string(row.value);
  EXPECT_EQ(session.Ask("get ÁSeb"), value);
  EXPECT_EQ(session.Ask("get HScroll1"), value);
  EXPECT_EQ(session.Look("list List3"), Lines{"  " + value + "  "});
  EXPECT_EQ(session.Look("list List11"), Lines{"  " + value + "  "});
  EXPECT_EQ(session.Ask("get Check7"), row.tenfold ? "1" : "0");
  EXPECT_EQ(session.Ask("get Check9"), row.tenfold ? "1" : "0");
  EXPECT_EQ(SpeedSetting, 10.0 * row.value);
  EXPECT_EQ(WaitCount, 10.0 * row.value);
  EXPECT_FALSE(SpeedLoading);
  EXPECT_EQ(session.Folder().Read("speed.ini"), row.text) << "reading writes nothing";
  EXPECT_EQ(session.Look("messages"), Lines{});
}

TEST(SpeedFileRecovery, IsToldAndWrittenAs100WhileTheBarStandsAt10) {
  BenchSession session;
  session.Do("start");
  for (const Found& found :
       std::vector<Found>{std::nullopt, "", "100", "0,1", "10001,0", "-5,1", "x,1", "1500;1"}) {
    SCOPED_TRACE(found.value_or("missing"));
    session.Do("scroll ÁSeb 345");
    EXPECT_EQ(ReadFound(session, "speed.ini", found, ReadSpeedFile), Lines{SpeedMessage});
    EXPECT_EQ(session.Folder().Read("speed.ini"), "100,0\r\n") << "the bar's move to 10 must not replace it";
    EXPECT_EQ(session.Ask("get ÁSeb"), "10");
    EXPECT_EQ(session.Ask("get HScroll1"), "10");
    EXPECT_EQ(session.Look("list List3"), Lines{"  10  "});
    EXPECT_EQ(session.Ask("get Check7"), "0") << "nothing survives of the failed file";
    EXPECT_EQ(session.Ask("get Check9"), "0");
    EXPECT_EQ(SpeedSetting, 100);
    EXPECT_EQ(WaitCount, 100);
    EXPECT_FALSE(SpeedLoading);
  }
}

TEST(SpeedFileRecovery, InComModeTheMessageStandsOnceSinceTheSecondReadingFindsTheNewFile) {
  Settings settings;
  settings.port = "&H3F8,COM";
  settings.speed = std::nullopt;
  BenchSession session(settings);
  session.Do({"board com", "start"});
  EXPECT_EQ(session.Look("messages"), Lines{SpeedMessage});
  EXPECT_EQ(session.Ask("get ÁSeb"), "100") << "the second reading takes what the first has written";
  EXPECT_EQ(SpeedSetting, 1000);
  EXPECT_EQ(session.Folder().Read("speed.ini"), "100,0\r\n");
}

TEST(SettingsFolder, OneThatIsNotThereStillEndsInTheFilesOwnMessages) {
  BenchSession session;
  platform::programFolder = session.Folder().File("gone");
  session.Do("start");
  EXPECT_EQ(session.Look("messages"), (Lines{PortMessage, SpeedMessage}));
  EXPECT_EQ(SpeedSetting, 100);
  EXPECT_FALSE(std::filesystem::exists(session.Folder().File("gone")));
}

TEST(SettingsFolder, ADirectoryInAFilesPlaceIsToldAndLeftAlone) {
  BenchSession session;
  const std::string path = session.Folder().File("port.ini");
  std::filesystem::remove(path);
  std::filesystem::create_directory(path);
  ReadPortFile();
  EXPECT_EQ(session.Look("messages"), Lines{PortMessage});
  EXPECT_TRUE(std::filesystem::is_directory(path));
  EXPECT_EQ(PortBase, 888);
  EXPECT_FALSE(LptMode || ComMode);
}

TEST(SettingsFolder, ASpeedThatCannotBeSavedIsToldOnceARunAndStaysInForce) {
  BenchSession session;
  session.Do("start");
  platform::programFolder = session.Folder().File("gone");
  session.Do({"scroll ÁSeb 40", "scroll ÁSeb 50", "scroll HScroll1 60"});
  EXPECT_EQ(session.Look("messages"), Lines{"ok ok Ismeretlen Fájl hiba!"});
  EXPECT_EQ(SpeedSetting, 600);
}

}  // namespace
}  // namespace zelvo::test
