// The five settings files: what a good one sets, and the recovery of a missing or bad one.
#include "link/settings.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "link/delays.h"
#include "link/event_log.h"
#include "link/lines.h"
#include "panel/form1.h"
#include "support/line_model.h"

namespace zelvo::test {
namespace {

using namespace link;  // NOLINT: the tests speak in the terms of the link
using panel::Form1;

constexpr const char* PortMessage =
    "ok ok Hiba a PortCím betöltésénél! Ellenőrizd a Címet! Új Fájl létrehozva alapértelmezett értékekkel "
    "(&H378,LPT). Indítsd újra a programot!";
constexpr const char* PinMessage =
    "ok ok Hiba az LPT_Port Lábkiosztás betöltésénél! Ellenőrizd a kiosztást! Új Fájl létrehozva "
    "alapértelmezett "
    "értékekkel (ZLV_F18). Indítsd újra a programot!";
constexpr const char* InvertMessage =
    "ok ok Hiba a Port Él(invert) adatok betöltésénél! Ellenőrizd az Él beállításokat! Új Fájl létrehozva "
    "alapértelmezett értékekkel (ZLV_F18)";
constexpr const char* ComInvertMessage =
    "ok ok Hiba az invert_com.ini betöltésénél! Ellenőrizd az éleket! Új Fájl létrehozva alapértelmezett "
    "értékekkel. Indítsd újra a programot!";
constexpr const char* SpeedMessage =
    "ok ok Hiba az Írás sebesség fájl betöltésénél! Ellenőrizd a Sebességet! Új Fájl létrehozva "
    "alapértelmezett "
    "értékekkel (1500), Indítsd újra a programot!";
constexpr const char* ComMessage = "ok ok A COM port betöltése közben hiba keletkezett, ellenőrizd a címe!";

/// A file as it can be found in the program's folder; nothing for a missing one.
using Found = std::optional<std::string>;

/// Puts `found` into the folder, reads it by `reader` and gives the messages.
Lines ReadFound(BenchSession& session, const char* name, const Found& found, void (*reader)()) {
  std::filesystem::remove(session.Folder().File(name));
  if (found) session.Folder().Write(name, *found);
  reader();
  return session.Look("messages");
}

void ExpectRecovery(const char* name, void (*reader)(), const char* message, const char* written,
                    const std::vector<Found>& bad, const std::function<void()>& inMemory) {
  BenchSession session;
  for (const Found& found : bad) {
    SCOPED_TRACE(found ? "holds \"" + *found + '"' : "missing");
    EXPECT_EQ(ReadFound(session, name, found, reader), Lines{message});
    EXPECT_EQ(session.Folder().Read(name), written + std::string("\r\n"));
    inMemory();
  }
}

// ---------------------------------------------------------------------------------------------- port.ini

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

// --------------------------------------------------------------------------------------------- invert.ini

/// The event texts of the bits in order; the first of each pair stands when the bit is set.
using BitTexts = std::vector<std::pair<const char*, const char*>>;

const BitTexts LptTexts = {{":  Vdd Kimenet Inverz", ":  Vdd Kimenet Nem Inverz"},
                           {":  Vpp Kimenet Inverz", ":  Vpp Kimenet Nem Inverz"},
                           {":  CLK Kimenet Inverz", ":  CLK Kimenet Nem Inverz"},
                           {":  ADAT Kimenet Inverz", ":  ADAT Kimenet Nem Inverz"},
                           {":  Ack Bemenet Inverz", ":  Ack Bemenet Nem Inverz"}};
const BitTexts ComTexts = {{":  PGD inverz.", ":  PGD nem inverz."},
                           {":  PGC inverz.", ":  PGC nem inverz."},
                           {":  AdatBe inverz.", ":  AdatBe nem inverz."},
                           {":  Vpp inverz.", ":  Vpp nem inverz."}};

/// Wire lines of the texts that `bits` gives, in both lists, numbered from `first`.
Lines LoggedBits(const BitTexts& texts, int bits, int first) {
  Lines lines;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const std::string line = std::to_string(first + static_cast<int>(i)) + ":  12:00:00" +
                             ((bits >> i & 1) != 0 ? texts[i].first : texts[i].second);
    lines.push_back("L List1 " + line);
    lines.push_back("L List4 " + line);
  }
  return lines;
}

Lines operator+(Lines a, const Lines& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

Lines LoggedStart(const char* kind, const char* address) {
  Lines lines;
  int number = 0;
  for (const std::string& text :
       {std::string(":  Start."), std::string(":  ") + kind + " port van kiválasztva.",
        ":  Címe:" + std::string(address) + "h"}) {
    const std::string line = std::to_string(++number) + ":  12:00:00" + text;
    lines.push_back("L List1 " + line);
    lines.push_back("L List4 " + line);
  }
  return lines;
}

class PolarityFiles : public EveryPolarity {};
INSTANTIATE_TEST_SUITE_P(Bits, PolarityFiles, testing::Range(0, 48), PolarityName);

TEST_P(PolarityFiles, TheStartLogsEachBitInBothListsSetsItsFlagAndPutsTheLinesToIdle) {
  const bool com = GetParam() >= 32;
  const int bits = com ? GetParam() - 32 : GetParam();
  LineModel model = Model();
  BenchSession session(model.Files());
  session.Do(model.Board());
  session.BeginWire();
  session.Do("start");
  Lines expected{"+ MDIForm1", "+ Form1"};
  // A board that was just switched on has all registers clear.
  for (const LineModel::Line line : {LineModel::Vdd, LineModel::Vpp}) model.Preset(line, 0);
  if (com) {
    expected = expected + LoggedStart("COM", "3F8") + Lines{"R 03FC 00", "W 03FC 00"} +
               LoggedBits(ComTexts, bits, 4);
  } else {
    expected = expected + LoggedStart("LPT", "378") + LoggedBits(LptTexts, bits, 4);
  }
  model.PowerOff();
  EXPECT_TRUE(SameLog(expected + model.Take(), session.EndWire()));

  const auto is = [bits](int value) { return (bits & value) != 0; };
  EXPECT_EQ(VddInverted, !com && is(1));
  EXPECT_EQ(VppInverted, !com && is(2));
  EXPECT_EQ(ClockInverted, !com && is(4));
  EXPECT_EQ(DataInverted, !com && is(8));
  EXPECT_EQ(InputInverted, !com && is(16));
  EXPECT_EQ(ComPgdInverted, com && is(1));
  EXPECT_EQ(ComPgcInverted, com && is(2));
  EXPECT_EQ(ComInputInverted, com && is(4));
  EXPECT_EQ(ComVppInverted, com && is(8));
  EXPECT_EQ(session.Look("messages"), Lines{});
}

TEST(InvertFile, NamesTheInputThatThePinFileChose) {
  for (const bool inverted : {true, false}) {
    Settings settings;
    settings.pins = "4,8,1,2,0";
    settings.invert = inverted ? "16" : "0";
    BenchSession session(settings);
    LptMode = true;
    ReadPinFile();
    ReadInvertFile();
    EXPECT_TRUE(Form1.List1.Lines().front().ends_with(inverted ? ":  Busy Bemenet Inverz"
                                                               : ":  Busy Bemenet Nem Inverz"));
    EXPECT_EQ(Form1.List1.Lines().front(), Form1.List4.Lines().front());
  }
}

TEST(InvertFile, BitsBeyondTheFiveLinesMeanNothing) {
  BenchSession session;
  EXPECT_EQ(ReadFound(session, "invert.ini", " 34 \r\n", ReadInvertFile), Lines{});
  EXPECT_FALSE(VddInverted);
  EXPECT_TRUE(VppInverted);
  EXPECT_FALSE(ClockInverted || DataInverted || InputInverted);
  EXPECT_EQ(EventCounter, 6);
}

TEST(InvertFile, AMissingOrBadOneStores28WhileVddAndVppAreInvertedForThisRun) {
  ExpectRecovery("invert.ini", ReadInvertFile, InvertMessage, "28",
                 {std::nullopt, "", "\r\n", "x", "3;", "&H3"}, [] {
                   EXPECT_TRUE(VddInverted);
                   EXPECT_TRUE(VppInverted);
                   EXPECT_FALSE(ClockInverted || DataInverted || InputInverted);
                   ClockInverted = DataInverted = InputInverted = true;
                   VddInverted = VppInverted = false;
                 });
}

TEST(InvertFile, TheRecoveryLogsTheBitsInForceAndBringsTheLinesToTheirIdleLevel) {
  Settings settings;
  settings.invert = std::nullopt;
  BenchSession session(settings);
  session.Do("board lpt");
  session.BeginWire();
  session.Do("start");
  const Lines expected = Lines{"+ MDIForm1", "+ Form1"} + LoggedStart("LPT", "378") +
                         Lines{std::string("M ") + InvertMessage} + LoggedBits(LptTexts, 3, 4) +
                         Lines{"R 0378 00", "W 0378 0C"};
  EXPECT_TRUE(SameLog(expected, session.EndWire()));
}

TEST(InvertFile, TheStoredRecoveryInvertsClockDataAndInputAtTheNextStart) {
  BenchSession session;
  static_cast<void>(ReadFound(session, "invert.ini", std::nullopt, ReadInvertFile));
  ReadInvertFile();
  EXPECT_FALSE(VddInverted || VppInverted);
  EXPECT_TRUE(ClockInverted && DataInverted && InputInverted);
}

// ----------------------------------------------------------------------------------------- invert_com.ini

TEST(ComInvertFile, AMissingOrBadOneStores6WhileAllFourFlagsStayFalse) {
  ExpectRecovery("invert_com.ini", ReadComInvertFile, ComInvertMessage, "6", {std::nullopt, "", "abc", "6;"},
                 [] {
                   EXPECT_FALSE(ComPgdInverted || ComPgcInverted || ComInputInverted || ComVppInverted);
                   EXPECT_EQ(EventCounter, 1) << "nothing is logged";
                   ComPgdInverted = ComPgcInverted = ComInputInverted = ComVppInverted = true;
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

// --------------------------------------------------------------------------------------------- COM set-up

TEST(ComSetUp, DerivesThePortNumberFromTheBaseAddress) {
  const std::pair<const char*, int> rows[] = {{"&H3F8,COM", 1}, {"&H2F8,COM", 2}, {"&H3E8,COM", 3},
                                              {"&H2E8,COM", 4}, {"&H3E0,COM", 4}, {"1016,COM", 1},
                                              {"&H3E0,COM", 1}};
  BenchSession session;
  for (const auto& [text, number] : rows) {
    session.Folder().Write("port.ini", text);
    ReadPortFile();
    SetUpCom();
    EXPECT_EQ(ComPortNumber, number) << text << ": another address leaves the number that was";
    EXPECT_EQ(session.TheBench().serial.LastNumber, number);
    EXPECT_EQ(session.TheBench().serial.LastSettings, "9600,N,8,1");
  }
  EXPECT_EQ(session.TheBench().serial.Claims, 7);
  EXPECT_TRUE(session.TheBench().serial.IsOpen());
}

TEST(ComSetUp, APortFileOfComTwoGivesItsAddressAndNumber) {
  Settings settings;
  settings.port = "&H2F8,COM";
  BenchSession session(settings);
  session.Do({"board com base=2F8", "start"});
  EXPECT_EQ(session.Ask("var ComMode"), "1");
  EXPECT_EQ(session.Ask("var LptMode"), "0");
  EXPECT_EQ(session.Ask("var PortBase"), "760");
  EXPECT_EQ(session.Ask("var ComPortNumber"), "2");
  EXPECT_TRUE(Form1.List1.Lines()[Form1.List1.Lines().size() - 3].ends_with(":  Címe:2F8h"));
}

TEST(ComSetUp, ClosesThePortThatIsOpenBeforeItOpensTheNewOne) {
  struct Device : platform::SerialClaim {
    [[nodiscard]] bool IsOpen() const override { return open; }
    void Close() override {
      calls += "close ";
      open = false;
    }
    [[nodiscard]] bool Open(int number, const std::string&) override {
      calls += "open" + std::to_string(number) + ' ';
      return open = true;
    }
    std::string calls;
    bool open = false;
  } device;
  BenchSession session;
  platform::seams.serial = &device;
  PortBase = 760;
  SetUpCom();
  PortBase = 744;
  SetUpCom();
  EXPECT_EQ(device.calls, "open2 close open4 ");
}

TEST(ComSetUp, AFailureIsToldAndTheSetUpGoesOn) {
  struct Refusing : platform::SerialClaim {
    [[nodiscard]] bool IsOpen() const override { return false; }
    void Close() override {}
    [[nodiscard]] bool Open(int, const std::string&) override { return false; }
  } refusing;
  LineModel model(LineModel::Kind::Com, 9);
  BenchSession session(model.Files());
  session.Do(model.Board());
  platform::seams.serial = &refusing;
  session.BeginWire();
  session.Do("start");
  const Lines expected = Lines{"+ MDIForm1", "+ Form1"} + LoggedStart("COM", "3F8") +
                         Lines{std::string("M ") + ComMessage, "R 03FC 00", "W 03FC 00"} +
                         LoggedBits(ComTexts, 9, 4) +
                         Lines{"R 03FC 00", "W 03FC 01", "R 03FC 01", "W 03FC 01", "R 03FB 00", "W 03FB 40"};
  EXPECT_TRUE(SameLog(expected, session.EndWire()));
  EXPECT_EQ(VppSetMask, 64);
}

TEST(ComSetUp, TheDtrOffMovesTheModemLineWhateverThePrinterPortsMasksWere) {
  BenchSession session;
  session.Do("board com");
  ComMode = true;
  PortBase = 1016;
  VddSetMask = 4;
  VddClearMask = 251;
  platform::seams.ports->Out32(0x3FC, 0x0F);
  session.BeginWire();
  SetUpCom();
  Lines log = session.EndWire();
  ASSERT_GE(log.size(), 2u);
  log.resize(2);
  EXPECT_EQ(log, (Lines{"R 03FC 0F", "W 03FC 0E"}));
}

TEST(ComSetUp, CountsTheManualSupplyAsOff) {
  BenchSession session(LineModel(LineModel::Kind::Com, 0).Files());
  session.Do({"board com", "start", "click ProgFut"});
  EXPECT_EQ(session.Ask("var VddOnFlag"), "1");
  SetUpCom();
  EXPECT_EQ(session.Ask("var VddOnFlag"), "0");
  EXPECT_EQ(session.Ask("get ProgFut"), "Vdd(+5V) On");
  EXPECT_EQ(session.Ask("get Command10"), "Vdd(+5V) Off") << "only the first button's caption is set";
}

TEST(ComSetUp, ASecondInvertReadingClearsTheFlagsOfTheFirst) {
  BenchSession session;
  session.Folder().Write("invert_com.ini", "15\r\n");
  ReadComInvertFile();
  EXPECT_TRUE(ComPgdInverted && ComPgcInverted && ComInputInverted && ComVppInverted);
  session.Folder().Write("invert_com.ini", "4\r\n");
  ReadComInvertFile();
  EXPECT_FALSE(ComPgdInverted || ComPgcInverted || ComVppInverted);
  EXPECT_TRUE(ComInputInverted);
}

}  // namespace
}  // namespace zelvo::test
