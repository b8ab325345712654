// The port check: its controls, how it opens and closes, and what it shares with the main window and the
// wiring's settings.
#include "ui/port_check.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "panel/secondary_windows.h"
#include "ui/port_check_desk.h"

namespace zelvo::test {
namespace {

using panel::LPT_Port_Check;

TEST(PortCheck, HasTheBoxesLabelsAndTheButtonOfItsPlan) {
  PortCheckDesk desk;
  EXPECT_EQ(LPT_Port_Check.Caption, "Port Check");
  constexpr std::array<std::pair<const char*, const char*>, 8> captions{{
      {"Check1", "Vdd (+5V) "},
      {"Check2", "Vpp (+13V) "},
      {"Check3", "DATA (RB7/PGD)"},
      {"Check4", "CLOCK (RB6/PGC) "},
      {"Check5", "1 sec teszt(PGC)"},
      {"Check6", "Teszt STOP"},
      {"Command1", " X "},
      {"Label2", "DATA In belső logikai szintje"},
  }};
  for (const auto& [name, caption] : captions) {
    auto* control = LPT_Port_Check.Find(name);
    ASSERT_NE(control, nullptr) << name;
    if (auto* box = dynamic_cast<panel::CheckBox*>(control)) {
      EXPECT_EQ(box->Caption.Get(), caption);
    } else {
      EXPECT_EQ(desk.Get(name), caption);
    }
  }
  EXPECT_EQ(desk.Get("Label1"), "") << "a lamp";
  EXPECT_TRUE(LPT_Port_Check.OnTop);
}

TEST(PortCheckOpening, ShowsNothingAndMovesNothingWhileVddIsOff) {
  BenchSession session;
  session.Do({"board lpt", "start"});
  for (const char* button : {"Command4", "Command20"}) {
    EXPECT_EQ(session.Ask("var PortCheckLoaded"), "0");
    EXPECT_EQ(session.WireOf("click " + std::string(button)), Lines{"+ LPT_Port_Check"});
    EXPECT_EQ(session.Ask("var PortCheckOpen"), "1");
    EXPECT_EQ(session.Ask("var PortCheckLoaded"), "1");
    EXPECT_EQ(session.Look("list LPT_Port_Check.List1"), Lines{});
    EXPECT_EQ(session.Ask("get LPT_Port_Check.Label2"), "DATA In belső logikai szintje");
    session.Do("close LPT_Port_Check");
  }
}

TEST(PortCheckOpening, TicksTheVddBoxAndSwitchesTheLineAgainWhileVddIsOn) {
  BenchSession session;
  session.Do({"board lpt", "start", "click ProgFut"});
  EXPECT_EQ(session.WireOf("click Command4"),
            (Lines{"+ LPT_Port_Check", "R 0378 04", "W 0378 04", "R 0379 40"}));
  EXPECT_EQ(session.Ask("get LPT_Port_Check.Check1"), "1");
  EXPECT_EQ(session.Ask("get LPT_Port_Check.Label2"), High);
  EXPECT_EQ(session.Ask("get ProgFut"), "Vdd(+5V) Off");
  EXPECT_EQ(session.Ask("var VddState"), "1");
}

TEST(PortCheckOpening, RaisesDtrAgainOnTheSerialPortWhileVddIsOn) {
  BenchSession session(SerialPort());
  session.Do({"board com", "start", "click Command10"});
  EXPECT_EQ(session.WireOf("click Command20"),
            (Lines{"+ LPT_Port_Check", "R 03FC 01", "W 03FC 01", "R 03FE 10"}));
  EXPECT_EQ(session.Ask("get LPT_Port_Check.Check1"), "1");
}

TEST(PortCheckOpening, ASecondOrderShowsTheSameWindow) {
  PortCheckDesk desk;
  desk.Tick("Check2");
  for (const char* button : {"click Command4", "click Command20"})
    EXPECT_EQ(desk.session.WireOf(button), Lines{});
  EXPECT_TRUE(desk.IsOpen());
  EXPECT_EQ(desk.Boxes(), "010000");
}

TEST(PortCheckOpening, AllBoxesButThatOfVddOpenClearWhateverTheLinesAre) {
  PortCheckDesk desk;
  for (const char* box : {"Check1", "Check2", "Check3", "Check4"}) desk.Tick(box);
  EXPECT_EQ(desk.session.WireOf("click " + desk.Name("Command1")), Lines{"- LPT_Port_Check"})
      << "the lines stay as they are";
  EXPECT_EQ(desk.session.WireOf("click Command4"),
            (Lines{"+ LPT_Port_Check", "R 0378 0F", "W 0378 0F", "R 0379 40"}));
  EXPECT_EQ(desk.Boxes(), "100000");
}

struct VddCoupling : testing::TestWithParam<bool> {
  Settings Files() { return GetParam() ? SerialPort() : Settings{}; }
  const char* Board() { return GetParam() ? "board com" : "board lpt"; }
};
INSTANTIATE_TEST_SUITE_P(Interfaces, VddCoupling, testing::Bool(),
                         [](const auto& one) { return one.param ? "Com" : "Lpt"; });

TEST_P(VddCoupling, TheBoxSetsTheCaptionsOfBothPagesAndTheState) {
  PortCheckDesk desk(Files(), Board());
  for (const bool on : {true, false}) {
    on ? desk.Tick("Check1") : desk.Untick("Check1");
    for (const char* button : {"ProgFut", "Command10"})
      EXPECT_EQ(desk.session.Ask("get " + std::string(button)), on ? "Vdd(+5V) Off" : "Vdd(+5V) On");
    EXPECT_EQ(desk.Var("VddState"), on ? "1" : "0");
    EXPECT_EQ(desk.Var("VddOnFlag"), on ? "1" : "0");
  }
}

TEST_P(VddCoupling, TheOtherBoxesLeaveCaptionsAndState) {
  PortCheckDesk desk(Files(), Board());
  for (const char* box : {"Check2", "Check3", "Check4"}) desk.Tick(box);
  EXPECT_EQ(desk.session.Ask("get ProgFut"), "Vdd(+5V) On");
  EXPECT_EQ(desk.Var("VddState"), "0");
}

TEST_P(VddCoupling, TheMainWindowsButtonsMoveTheBoxWhichSwitchesTheLineOnceMore) {
  PortCheckDesk desk(Files(), Board());
  const int address = GetParam() ? 0x3FC : 0x378;
  const int vdd = GetParam() ? 1 : 4;
  const std::string input = GetParam() ? "R 03FE 10" : "R 0379 40";
  for (const char* button : {"click ProgFut", "click Command10"}) {
    for (const bool on : {true, false}) {
      const int before = on ? 0 : vdd, after = on ? vdd : 0;
      EXPECT_EQ(desk.session.WireOf(button),
                (Lines{Access('R', address, before), Access('W', address, after), Access('R', address, after),
                       Access('W', address, after), input}));
      EXPECT_EQ(desk.Get("Check1"), on ? "1" : "0");
      EXPECT_EQ(desk.Get("Label2"), High);
      EXPECT_EQ(desk.session.Ask("get ProgFut"), on ? "Vdd(+5V) Off" : "Vdd(+5V) On");
    }
  }
}

TEST_P(VddCoupling, AButtonFinishesWhatTheBoxBegan) {
  PortCheckDesk desk(Files(), Board());
  desk.Tick("Check1");
  desk.session.Do("click Command10");
  EXPECT_EQ(desk.Get("Check1"), "0");
  EXPECT_EQ(desk.Var("VddState"), "0");
  desk.session.Do("click ProgFut");
  desk.Untick("Check1");
  EXPECT_EQ(desk.session.Ask("get Command10"), "Vdd(+5V) On");
}

TEST(VddCouplingCom, DtrStaysForTheDataBoxWhenTheButtonSwitchesVddOff) {
  PortCheckDesk desk(SerialPort(), "board com");
  desk.Tick("Check1");
  desk.Tick("Check3");
  EXPECT_EQ(desk.session.WireOf("click ProgFut"),
            (Lines{"R 03FC 01", "W 03FC 00", "R 03FC 00", "W 03FC 01", "R 03FE 10"}));
  EXPECT_EQ(desk.Boxes(), "001000");
  EXPECT_EQ(desk.Var("VddState"), "0");
  EXPECT_EQ(desk.session.Ask("get ProgFut"), "Vdd(+5V) On");
}

TEST(PortCheckClosing, ByItsButtonForgetsThatItWasOpen) {
  PortCheckDesk desk;
  EXPECT_EQ(desk.session.WireOf("click " + desk.Name("Command1")), Lines{"- LPT_Port_Check"});
  EXPECT_EQ(desk.Var("PortCheckOpen"), "0");
  EXPECT_EQ(desk.Var("PortCheckLoaded"), "0");
  EXPECT_EQ(desk.session.WireOf("click ProgFut"), (Lines{"R 0378 00", "W 0378 04"}));
}

TEST(PortCheckClosing, ByItsFrameLeavesItMarkedAsOpenAndTheLinesAsTheyAre) {
  PortCheckDesk desk;
  desk.Tick("Check2");
  EXPECT_EQ(desk.session.WireOf("close LPT_Port_Check"), Lines{"- LPT_Port_Check"});
  EXPECT_EQ(desk.Var("PortCheckOpen"), "1");
  EXPECT_EQ(desk.Var("PortCheckLoaded"), "0");
  EXPECT_EQ(desk.session.WireOf("click ProgFut"), (Lines{"R 0378 08", "W 0378 0C"}))
      << "a box that is not there moves nothing";
  EXPECT_FALSE(desk.IsOpen());
  desk.session.Do("click Command20");
  EXPECT_EQ(desk.Boxes(), "100000");
}

TEST(PortCheckClosing, FromOutsideUnticksTheLinesInTheirOrder) {
  PortCheckDesk desk;
  for (const char* box : {"Check4", "Check3", "Check2", "Check1"}) desk.Tick(box);
  desk.session.BeginWire();
  ui::ClosePortCheck();
  EXPECT_EQ(desk.session.EndWire(),
            (Lines{"R 0378 0F", "W 0378 0B", "R 0379 40", "R 0378 0B", "W 0378 03", "R 0379 40", "R 0378 03",
                   "W 0378 02", "R 0379 40", "R 0378 02", "W 0378 00", "R 0379 40", "- LPT_Port_Check"}));
  EXPECT_EQ(desk.Var("VddState"), "0");
  EXPECT_EQ(desk.session.Ask("get ProgFut"), "Vdd(+5V) On");
  EXPECT_EQ(desk.Var("PortCheckOpen"), "1");
  desk.session.BeginWire();
  ui::ClosePortCheck();
  EXPECT_EQ(desk.session.EndWire(), Lines{}) << "nothing is open";
}

TEST(PortCheckClosing, FromOutsideLetsGoOfDtrWithTheLastOfItsBoxes) {
  PortCheckDesk desk(SerialPort(), "board com");
  for (const char* box : {"Check1", "Check2", "Check3"}) desk.Tick(box);
  desk.session.BeginWire();
  ui::ClosePortCheck();
  EXPECT_EQ(desk.session.EndWire(),
            (Lines{"R 03FC 01", "W 03FC 01", "R 03FE 10", "R 03FB 40", "W 03FB 00", "R 03FE 10", "R 03FC 01",
                   "W 03FC 00", "R 03FE 10", "- LPT_Port_Check"}));
}

TEST(PortCheckAndItsSettings, OpeningTheWiringClosesItAndAnInversionIsToldToItFirst) {
  PortCheckDesk desk;
  desk.Tick("Check2");
  EXPECT_EQ(desk.session.WireOf("click Command5"),
            (Lines{"+ Adat_él_Beállít_H", "R 0378 08", "W 0378 00", "R 0379 40", "- LPT_Port_Check"}));
  desk.session.Do("click Command4");
  desk.Tick("Check1");
  Lines log = desk.session.WireOf("tick Adat_él_Beállít_H.Check1");
  std::erase_if(log, [](const std::string& line) { return line.starts_with("L "); });
  EXPECT_EQ(log, (Lines{"R 0378 04", "W 0378 04", "R 0379 40",  // to idle, with the input told
                        "R 0378 04", "W 0378 04", "R 0379 40",  // its box goes
                        "- LPT_Port_Check"}));
  EXPECT_EQ(desk.Var("VddState"), "0");
  desk.session.Do("click Command4");
  EXPECT_EQ(desk.Get("Vdd_Él_Lab"), Inverted);
}

}  // namespace
}  // namespace zelvo::test
