// Start-up in its order, the event lists, the pages behind the tabs, and the closing order.
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

#include "icsp/scripts.h"
#include "image/buffers.h"
#include "link/event_log.h"
#include "link/run_state.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using panel::Form1;

Settings Serial(const char* port = "&H3F8,COM") {
  Settings settings;
  settings.port = port;
  return settings;
}

/// A log without times of day.
Lines Timeless(Lines log) {
  static const std::regex time("^((?:L \\w+ )?\\d+:  )\\d\\d:\\d\\d:\\d\\d(:  )");
  for (std::string& line : log) line = std::regex_replace(line, time, "$1TIME$2");
  return log;
}

/// The two log lines that one entry in both lists makes.
void AddBoth(Lines& log, int number, const std::string& text) {
  for (const char* list : {"List1", "List4"}) {
    log.push_back("L " + std::string(list) + " " + std::to_string(number) + ":  TIME" + text);
  }
}

TEST(StartUpOnThePrinterPort, LogsThenReadsThePinsThenThePolarityAndEndsAtIdle) {
  BenchSession session;
  session.Do("board lpt");
  Lines expected = {"+ MDIForm1", "+ Form1"};
  int number = 0;
  for (const char* text :
       {":  Start.", ":  LPT port van kiválasztva.", ":  Címe:378h", ":  Vdd Kimenet Nem Inverz",
        ":  Vpp Kimenet Nem Inverz", ":  CLK Kimenet Nem Inverz", ":  ADAT Kimenet Nem Inverz",
        ":  Ack Bemenet Nem Inverz"}) {
    AddBoth(expected, ++number, text);
  }
  expected.insert(expected.end(), {"R 0378 00", "W 0378 00"});
  EXPECT_TRUE(SameLog(expected, Timeless(session.WireOf("start"))));
}

TEST(StartUpOnThePrinterPort, BringsActiveLowLinesToTheirIdleLevel) {
  Settings settings;
  settings.invert = "28";
  BenchSession session(settings);
  session.Do("board lpt inverted=clock,data,input");
  const Lines log = session.WireOf("start");
  ASSERT_GE(log.size(), 2U);
  EXPECT_EQ(log[log.size() - 2], "R 0378 00");
  EXPECT_EQ(log.back(), "W 0378 03");
}

TEST(StartUpOnTheSerialPort, LogsThenSetsThePortUpAndEndsAtIdle) {
  BenchSession session(Serial());
  session.Do("board com");
  Lines expected = {"+ MDIForm1", "+ Form1"};
  AddBoth(expected, 1, ":  Start.");
  AddBoth(expected, 2, ":  COM port van kiválasztva.");
  AddBoth(expected, 3, ":  Címe:3F8h");
  expected.insert(expected.end(), {"R 03FC 00", "W 03FC 00"});
  int number = 3;
  for (const char* text :
       {":  PGD nem inverz.", ":  PGC nem inverz.", ":  AdatBe nem inverz.", ":  Vpp nem inverz."}) {
    AddBoth(expected, ++number, text);
  }
  expected.insert(expected.end(),
                  {"R 03FC 00", "W 03FC 00", "R 03FC 00", "W 03FC 00", "R 03FB 00", "W 03FB 00"});
  EXPECT_TRUE(SameLog(expected, Timeless(session.WireOf("start"))));
  EXPECT_EQ(session.TheBench().serial.Claims, 1);
}

TEST(StartUp, TellsTheAddressInUpperCaseWithoutLeadingZeros) {
  BenchSession session(Serial("&H2F8,COM"));
  session.Do({"board com base=2F8", "start"});
  const Lines log = session.Look("list List4");
  EXPECT_TRUE(std::any_of(log.begin(), log.end(),
                          [](const std::string& line) { return line.ends_with(":  Címe:2F8h"); }));
}

TEST(StartUp, WithoutAModeItLogsNothingAndTouchesNoPort) {
  Settings settings;
  settings.port = "&H378,USB";
  BenchSession session(settings);
  session.Do("board lpt");
  EXPECT_EQ(session.WireOf("start"), (Lines{"+ MDIForm1", "+ Form1"}));
  EXPECT_EQ(session.Look("list List1"), Lines{});
  EXPECT_EQ(session.Look("messages"), Lines{});
  EXPECT_EQ(session.Ask("var EventCounter"), "1");
  EXPECT_EQ(session.Ask("var LptMode"), "0");
  EXPECT_EQ(session.Ask("var ComMode"), "0");
  // The operations have no port to talk to; what they count as silence is the first question.
  session.Do({"tab 2", "socket PIC18F452", "choose Combo1 PIC18F452"});
  for (const std::string& line : session.WireOf("click FlashOl")) {
    EXPECT_FALSE(line.starts_with("W ") || line.starts_with("R ")) << line;
  }
  EXPECT_EQ(session.Look("messages"), Lines{"yesno no Nem érzékelek PIC-et! Folytatod az olvasást?"});
}

TEST(StartUp, AnUnusablePortFileIsToldAndNothingIsLogged) {
  Settings settings;
  settings.port.reset();
  BenchSession session(settings);
  session.Do("start");
  EXPECT_EQ(session.Look("list List1"), Lines{});
  EXPECT_EQ(session.Look("list List4"), Lines{});
  EXPECT_EQ(session.Look("messages").size(), 1U);
}

class Started : public testing::Test {
 protected:
  void SetUp() override {
    link::UserAbort = link::WholeChipRun = true;
    link::VddOnFlag = 1;
    session.Do({"board lpt", "start"});
  }
  BenchSession session;
};

TEST_F(Started, ScriptsBuffersAndListsAreFilled) {
  EXPECT_EQ(icsp::ScriptElement(1), "0000");
  EXPECT_EQ(icsp::ScriptElement(1339), "94");
  EXPECT_EQ(image::VerifyBuffer(1, 1), "FFFF");
  EXPECT_EQ(image::VerifyBuffer(8, 66000), "FFFF");
  EXPECT_EQ(session.Look("list Combo1").size(), 72U);
  EXPECT_EQ(session.Look("list Combo2").size(), 55U);
}

TEST_F(Started, TheFourGridsHaveNineCentredColumns) {
  for (const panel::Grid* grid :
       {&Form1.MSFlexGrid1, &Form1.MSFlexGrid2, &Form1.MSFlexGrid3, &Form1.MSFlexGrid4}) {
    EXPECT_EQ(grid->Cols(), 9);
    for (int col = 0; col <= 8; ++col) {
      EXPECT_EQ(grid->ColAlignment(col), panel::Grid::AlignCentre) << grid->Name() << " " << col;
    }
  }
}

TEST_F(Started, AllFlagsAreCleared) {
  EXPECT_EQ(session.Ask("var VddOnFlag"), "0");
  for (const char* flag : {"var SilentIdentify", "var WholeChipRun", "var UserAbort"}) {
    EXPECT_EQ(session.Ask(flag), "0") << flag;
  }
  EXPECT_EQ(session.Ask("var FlashWordMax"), "0");
}

TEST_F(Started, TheMidRangePageIsInFront) {
  EXPECT_EQ(Form1.TabStrip1.SelectedItem, 1);
  EXPECT_TRUE(Form1.Frame1.InFront);
  EXPECT_FALSE(Form1.Frame0.InFront);
}

TEST_F(Started, TheFrameAndItsTabsBearTheirCaptions) {
  EXPECT_EQ(panel::MDIForm1.Caption, "Zelvo F18 & F16 & F12 ");
  EXPECT_EQ(Form1.TabStrip1.Captions, (Lines{"            12F & 16F", "              18F"}));
}

TEST_F(Started, TheWholeChipButtonsOfTheMidRangePageFollowTheManualBoard) {
  for (const char* button : {"enabled Command19", "enabled Command21"}) EXPECT_EQ(session.Ask(button), "1");
  session.Do("tick Check8");
  for (const char* button : {"enabled Command19", "enabled Command21"}) EXPECT_EQ(session.Ask(button), "0");
  EXPECT_EQ(session.Refused("click Command19"), "disabled");
  EXPECT_EQ(session.Refused("click Command21"), "disabled");
  session.Do("untick Check8");
  for (const char* button : {"enabled Command19", "enabled Command21"}) EXPECT_EQ(session.Ask(button), "1");
}

// The event lists.

TEST_F(Started, TheNewestLineStandsOnTopWithTheSameNumberInBoth) {
  const Lines first = session.Look("list List1");
  EXPECT_EQ(first, session.Look("list List4"));
  for (std::size_t i = 0; i < first.size(); ++i) {
    EXPECT_TRUE(first[i].starts_with(std::to_string(first.size() - i) + ":  ")) << first[i];
  }
  EXPECT_EQ(session.Ask("var EventCounter"), std::to_string(first.size() + 1));
}

TEST_F(Started, AnEventLineIsNumberTimeAndText) {
  link::EventCounter = 41;
  session.Do("pump 3600000000");
  link::LogEvent(Form1.List1, ":  Próba.");
  EXPECT_EQ(Form1.List1.Lines().front(), "41:  13:00:00:  Próba.");
  EXPECT_EQ(link::EventCounter, 42);
  EXPECT_FALSE(Form1.List4.Lines().front().ends_with("Próba."));
}

TEST_F(Started, OneCounterServesBothLists) {
  link::EventCounter = 7;
  link::LogEvent(Form1.List4, ":  a");
  link::LogToBoth(":  b");
  link::LogEvent(Form1.List1, ":  c");
  EXPECT_TRUE(Form1.List4.Lines()[1].starts_with("7:  "));
  EXPECT_TRUE(Form1.List4.Lines()[0].starts_with("8:  "));
  EXPECT_TRUE(Form1.List1.Lines()[1].starts_with("8:  "));
  EXPECT_TRUE(Form1.List1.Lines()[0].starts_with("9:  "));
}

TEST_F(Started, TheCounterIsNotResetByAChangeOfPage) {
  const std::string before = session.Ask("var EventCounter");
  session.Do({"tab 2", "tab 1"});
  EXPECT_EQ(session.Ask("var EventCounter"), before);
}

// The pages.

TEST_F(Started, ATabBringsItsPageToTheFrontAndDeselectsTheChip) {
  session.Do({"tab 2", "choose Combo1 PIC18F452"});
  EXPECT_TRUE(Form1.Frame0.InFront);
  EXPECT_FALSE(Form1.Frame1.InFront);
  EXPECT_EQ(session.Ask("var FlashWordMax"), "16383");
  session.Do("tab 1");
  EXPECT_TRUE(Form1.Frame1.InFront);
  EXPECT_FALSE(Form1.Frame0.InFront);
  EXPECT_EQ(session.Ask("var FlashWordMax"), "0");
}

TEST_F(Started, AClickOnTheSelectedTabDeselectsTheChipToo) {
  session.Do({"tab 2", "choose Combo1 PIC18F452", "tab 2"});
  EXPECT_EQ(session.Ask("var FlashWordMax"), "0");
}

TEST_F(Started, AnyOtherTabLeavesAtOnce) {
  session.Do({"tab 2", "choose Combo1 PIC18F452", "tab 3"});
  EXPECT_EQ(session.Ask("var FlashWordMax"), "16383");
  EXPECT_TRUE(Form1.Frame0.InFront);
}

TEST_F(Started, ATabTouchesNeitherBuffersNorLines) {
  session.Do({"tab 2", "choose Combo1 PIC18F452"});
  image::MainBuffer(1, 1) = "1234";
  image::VerifyBuffer(1, 1) = "5678";
  EXPECT_EQ(session.WireOf("tab 1"), Lines{});
  EXPECT_EQ(session.WireOf("tab 2"), Lines{});
  EXPECT_EQ(image::MainBuffer(1, 1), "1234");
  EXPECT_EQ(image::VerifyBuffer(1, 1), "5678");
}

TEST_F(Started, AfterAChangeOfTabEveryOperationAsksForAChip) {
  session.Do({"tab 2", "choose Combo1 PIC18F452", "tab 1", "tab 2"});
  const std::string none = "ok ok Nincs PIC kiválasztva!";
  for (const char* button : {"FlashOl", "FlashÍr", "PICTörlés", "FájlBetölt", "Frissites"}) {
    const Lines log = session.WireOf(std::string("click ") + button);
    EXPECT_EQ(log, Lines{"M " + none}) << button;
    EXPECT_EQ(session.Look("messages"), Lines{none}) << button;
  }
}

TEST_F(Started, Command23DoesNothing) {
  session.Do("file " + session.Folder().File("saved.hex"));
  EXPECT_EQ(session.WireOf("click Command23"), Lines{});
  EXPECT_EQ(session.Look("messages"), Lines{});
}

// The end.

TEST_F(Started, ClosingPutsTheLinesToIdleThenUnloadsEveryOtherWindow) {
  session.Do({"tab 2", "click ProgFut"});
  panel::Állapot.Load();
  panel::FlashOlv.Load();
  panel::PICAzonos.Load();
  Lines log = session.WireOf("stop");
  ASSERT_EQ(log.size(), 7U);
  EXPECT_EQ(log[0], "R 0378 04");
  EXPECT_EQ(log[1], "W 0378 00");
  std::sort(log.begin() + 2, log.begin() + 5);
  EXPECT_EQ(Lines(log.begin() + 2, log.end()),
            (Lines{"- FlashOlv", "- PICAzonos", "- Állapot", "- Form1", "- MDIForm1"}));
}

TEST_F(Started, ClosingForm1ItselfDoesTheSame) {
  panel::FlashOlv.Load();
  session.Do({"tab 2", "click ProgFut"});
  EXPECT_EQ(session.WireOf("close Form1"), (Lines{"R 0378 04", "W 0378 00", "- FlashOlv", "- Form1"}));
}

TEST(ClosingOnTheSerialPort, GivesThePortBack) {
  BenchSession session(Serial());
  session.Do({"board com", "start"});
  EXPECT_TRUE(session.TheBench().serial.IsOpen());
  session.Do("stop");
  EXPECT_FALSE(session.TheBench().serial.IsOpen());
}

}  // namespace
}  // namespace zelvo::test
