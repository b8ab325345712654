// The printer port's wiring and the port check beside it: labels, readout, and its closing.
#include <gtest/gtest.h>

#include "line_settings_wire.h"
#include "link/event_log.h"
#include "panel/secondary_windows.h"

namespace zelvo::test {
namespace {

using panel::LPT_Port_Check;

/// A readout of the input and the data register, as a line of the port check.
std::string RegisterLine(int value, const char* bits) {
  return "H Című LPT Port Értéke. - Dec:888" + std::to_string(value) + " - Bin: " + bits;
}

TEST_F(LptWire, AnOpenPortCheckIsClosedWhenTheWindowOpens) {
  session.Do("click Command4");
  EXPECT_EQ(session.WireOf("click Command5"), (Lines{"+ Adat_él_Beállít_H", "- LPT_Port_Check"}));
  EXPECT_EQ(session.Ask("var PortCheckOpen"), "1") << "as after a close by its frame";
}

TEST_F(LptWire, ClosingThePortCheckSwitchesItsLinesOffInTheirOrder) {
  session.Do({"click Command4", "tick LPT_Port_Check.Check1", "tick LPT_Port_Check.Check2",
              "tick LPT_Port_Check.Check3", "tick LPT_Port_Check.Check4"});
  EXPECT_EQ(DataRegister(), 0x0F);
  EXPECT_EQ(session.WireOf("click Command5"), Joined({{"+ Adat_él_Beállít_H"},
                                                      OneCycle(0x0F, 0x0B),
                                                      {Ack},
                                                      OneCycle(0x0B, 0x03),
                                                      {Ack},
                                                      OneCycle(0x03, 0x02),
                                                      {Ack},
                                                      OneCycle(0x02, 0x00),
                                                      {Ack},
                                                      {"- LPT_Port_Check"}}));
  EXPECT_EQ(session.Ask("get ProgFut"), "Vdd(+5V) On");
  EXPECT_EQ(session.Ask("var VddOnFlag"), "0");
}

TEST_F(OpeningWithEveryBox, WithAnOpenPortCheckReadsOutAndClosesItWithTheFirst) {
  session.Do("click Command4");
  const Lines rest = Joined({OneCycle(15, 15), {Ack}});
  EXPECT_EQ(session.WireOf("click Command5"),
            Joined({{"+ Adat_él_Beállít_H"}, rest, {"- LPT_Port_Check"}, rest, rest, rest}));
}

TEST_F(LptWire, ABoxLabelsAnOpenPortCheckReadsOutTheLinesAndClosesIt) {
  struct Label {
    const char* box;
    panel::Label* label;
    int idle;
    const char* bits;
  };
  Open();
  for (const Label& one : {Label{"Check1", &LPT_Port_Check.Vdd_Él_Lab, 4, " 0 0 0 0 0 1 0 0"},
                           {"Check2", &LPT_Port_Check.Vpp_Él_Lab, 8, " 0 0 0 0 1 0 0 0"},
                           {"Check3", &LPT_Port_Check.CLK_Él_Lab, 2, " 0 0 0 0 0 0 1 0"},
                           {"Check4", &LPT_Port_Check.Data_Él_Lab, 1, " 0 0 0 0 0 0 0 1"}}) {
    session.Do("click Command4");
    EXPECT_EQ(one.label->Caption.Get(), "Nem Inverz");
    const int number = link::EventCounter;
    const Lines log = Click(one.box);
    EXPECT_EQ(Lines(log.begin() + 2, log.end()), Joined({OneCycle(0, one.idle), {Ack}, {"- LPT_Port_Check"}}))
        << one.box;
    EXPECT_EQ(one.label->Caption.Get(), "Inverz    ") << one.box;
    EXPECT_EQ(LPT_Port_Check.List1.Lines(),
              (Lines{"H Című LPT Port Ack Bit Értéke: 1", RegisterLine(one.idle, one.bits)}))
        << one.box;
    EXPECT_EQ(link::EventCounter, number + 1);
    session.Do("click Command4");
    EXPECT_EQ(one.label->Caption.Get(), "Inverz    ");
    static_cast<void>(Click(one.box));
    EXPECT_EQ(one.label->Caption.Get(), "Nem Inverz") << one.box;
  }
}

TEST_F(LptWire, WithoutAPortCheckNothingIsReadOut) {
  Open();
  EXPECT_EQ(Traffic(Click("Check1")), OneCycle(0, 4));
  EXPECT_EQ(LPT_Port_Check.List1.Lines(), Lines{});
  EXPECT_EQ(LPT_Port_Check.Vdd_Él_Lab.Caption.Get(), "");
}

TEST_F(LptWire, AReadoutAfterTheFramesCloseStillTells) {
  session.Do({"click Command4", "close LPT_Port_Check"});
  Open();
  EXPECT_EQ(Traffic(Click("Check2")), Joined({OneCycle(0, 8), {Ack}}));
  session.Do({"click Command4", "click LPT_Port_Check.Command1"});
  EXPECT_EQ(Traffic(Click("Check2")), OneCycle(8, 0)) << "closed by its own button";
}

TEST_F(LptWireOfBusy, TheReadoutSaysAckForEitherInput) {
  Open();
  session.Do({"click Command4", "tick Adat_él_Beállít_H.Check1"});
  EXPECT_EQ(LPT_Port_Check.List1.Lines().at(0), "H Című LPT Port Ack Bit Értéke: 0");
  session.Do({"click Adat_él_Beállít_H.BUSY_Radio", "click Command4", "untick Adat_él_Beállít_H.Check1"});
  EXPECT_EQ(LPT_Port_Check.List1.Lines().at(0), "H Című LPT Port Ack Bit Értéke: 0") << "high reads 0";
  session.Do({"board lpt input=busy inverted=input", "click Command4", "tick Adat_él_Beállít_H.Check1"});
  EXPECT_EQ(LPT_Port_Check.List1.Lines().at(0), "H Című LPT Port Ack Bit Értéke: 1");
}

TEST_F(LptWire, TheInputsBoxLeavesThePortCheckOpen) {
  Open();
  session.Do("click Command4");
  EXPECT_EQ(Traffic(Click("Check5")), Lines{});
  EXPECT_TRUE(LPT_Port_Check.Loaded());
  EXPECT_EQ(LPT_Port_Check.List1.Lines(), Lines{});
}

TEST_F(LptWire, ABoxOfAnInvertedLineBringsThePortChecksSwitchedLinesToTheNewRest) {
  Open();
  session.Do({"click Command4", "tick LPT_Port_Check.Check1", "tick LPT_Port_Check.Check4"});
  const Lines log = Click("Check1");
  EXPECT_EQ(Lines(log.begin() + 2, log.end()), Joined({OneCycle(0x06, 0x04),
                                                       {Ack},  // all four to rest, Vdd's new one
                                                       OneCycle(0x04, 0x04),
                                                       {Ack},  // the box of Vdd unticked
                                                       OneCycle(0x04, 0x04),
                                                       {Ack},  // and that of the clock
                                                       {"- LPT_Port_Check"}}));
}

}  // namespace
}  // namespace zelvo::test
