// The polarity files of both interfaces, the lines they log, and the set-up of the serial port.
#include <gtest/gtest.h>

#include "link/event_log.h"
#include "link/lines.h"
#include "link/settings.h"
#include "link/settings_files.h"
#include "panel/form1.h"
#include "support/line_model.h"

namespace zelvo::test {
namespace {

using namespace link;  // NOLINT: the tests speak in the terms of the link
using panel::Form1;

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
