// Power to the target, programming entry, and the operator's own switch.
#include <gtest/gtest.h>

#include "link/delays.h"
#include "link/lines.h"
#include "link/run_state.h"
#include "link/target_power.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "support/line_model.h"

namespace zelvo::test {
namespace {

using namespace link;  // NOLINT: the tests speak in the terms of the link
using panel::Form1;

constexpr panel::Colour VppOff = 14737632;
constexpr panel::Colour VppOn = 255;

class TargetPower : public EveryPolarity {};
INSTANTIATE_TEST_SUITE_P(Bits, TargetPower, testing::Range(0, 48), PolarityName);

TEST_P(TargetPower, TheEntryRaisesVddThenVppWithClockAndDataLowAndTheExitIdlesAllLines) {
  LineModel model = Model();
  LineSession session(model);
  session.BeginWire();
  TargetPowerOn();
  model.PowerOn();
  EXPECT_EQ(Form1.Shape1.FillColor.Get(), VppOn);
  EXPECT_EQ(Form1.Shape2.FillColor.Get(), VppOn);
  TargetPowerOff();
  model.PowerOff();
  EXPECT_EQ(Form1.Shape1.FillColor.Get(), VppOff);
  EXPECT_EQ(Form1.Shape2.FillColor.Get(), VppOff);
  EXPECT_TRUE(SameLog(model.Take(), session.EndWire()));
}

TEST_P(TargetPower, RestIdlesClockAndDataAndLeavesThePowerOn) {
  LineModel model = Model();
  LineSession session(model);
  session.BeginWire();
  TargetPowerOn();
  model.PowerOn();
  // Both lines up, as the middle of an operation may leave them.
  AddressOutput();
  PortRead();
  model.ReadOut(LineModel::Data);
  ShapePgd(true);
  PortWrite();
  model.Move(LineModel::Data, true);
  ShapePgc(true);
  PortWrite();
  model.Move(LineModel::Clock, true);
  ClockAndDataToRest();
  model.ReadOut(LineModel::Data);
  Lines expected = model.Take();
  model.Move(LineModel::Data, false);
  if (ComMode) {
    model.ReadOut(LineModel::Clock);
  } else {
    static_cast<void>(model.Take());  // both in one write
  }
  model.Move(LineModel::Clock, false);
  for (const std::string& line : model.Take()) expected.push_back(line);
  EXPECT_TRUE(SameLog(expected, session.EndWire()));
  EXPECT_EQ(Form1.Shape1.FillColor.Get(), VppOn);
  EXPECT_EQ(Form1.Shape2.FillColor.Get(), VppOn);
}

TEST(TargetRest, MovesNothingWithoutAnInterface) {
  Settings settings;
  settings.port = "&H378,USB";
  BenchSession session(settings);
  session.Do({"board lpt", "start"});
  session.BeginWire();
  ClockAndDataToRest();
  EXPECT_EQ(session.EndWire(), Lines{});
}

TEST_P(TargetPower, TheOperatorsSwitchMovesVddAlone) {
  LineModel model = Model();
  LineSession session(model);
  for (const char* button : {"ProgFut", "Command10"}) {
    for (const bool on : {true, false}) {
      session.BeginWire();
      session.Do("click " + std::string(button));
      model.ReadOut(LineModel::Vdd);
      model.Move(LineModel::Vdd, on);
      EXPECT_TRUE(SameLog(model.Take(), session.EndWire()));
      const char* const caption = on ? "Vdd(+5V) Off" : "Vdd(+5V) On";
      EXPECT_EQ(session.Ask("get ProgFut"), caption);
      EXPECT_EQ(session.Ask("get Command10"), caption);
      EXPECT_EQ(VddOnFlag, on ? 1 : 0);
    }
  }
}

TEST(LptPower, WithVddInvertedTheEntryClearsItsBitAndTheExitSetsIt) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 1));
  session.BeginWire();
  TargetPowerOn();
  TargetPowerOff();
  EXPECT_EQ(session.EndWire(), (Lines{"R 0378 04", "W 0378 04", "D settle", "R 0378 04", "W 0378 00",
                                      "D settle", "W 0378 08", "D settle", "R 0378 08", "W 0378 04"}));
}

TEST(LptPower, AllFourLinesGoToIdleInOnePortCycle) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 28));
  platform::seams.ports->Out32(0x378, 0xFC);
  EXPECT_EQ(session.LogOf(TargetPowerOff), (Lines{"R 0378 FC", "W 0378 F3"}));
}

TEST(ComPower, DtrIsActiveThenIdleAndStaysIdleWhileOnlyTheBreakBitStaysOn) {
  LineSession session(LineModel(LineModel::Kind::Com, 0));
  EXPECT_EQ(session.LogOf(TargetPowerOn),
            (Lines{"R 03FC 00", "W 03FC 00", "R 03FC 00", "W 03FC 00", "R 03FB 00", "W 03FB 00", "D settle",
                   "R 03FC 00", "W 03FC 01", "D settle",  // DTR charges the board
                   "R 03FC 01", "W 03FC 00", "R 03FC 00", "W 03FC 00", "R 03FB 00", "W 03FB 00", "R 03FB 00",
                   "W 03FB 40", "D settle"}));
}

TEST(ComPower, TheOtherBitsOfTheUartsRegistersStay) {
  LineSession session(LineModel(LineModel::Kind::Com, 0));
  platform::seams.ports->Out32(0x3FC, 0x0B);
  platform::seams.ports->Out32(0x3FB, 0x43);
  EXPECT_EQ(session.LogOf(TargetPowerOff),
            (Lines{"R 03FC 0B", "W 03FC 0A", "R 03FC 0A", "W 03FC 08", "R 03FB 43", "W 03FB 03"}));
}

TEST(PowerCaptions, TheExitChangesNoCaptionAndNoFlag) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  session.Do("click Command10");
  TargetPowerOff();
  EXPECT_EQ(session.Ask("get ProgFut"), "Vdd(+5V) Off");
  EXPECT_EQ(session.Ask("get Command10"), "Vdd(+5V) Off");
  EXPECT_EQ(VddOnFlag, 1);
  session.BeginWire();
  session.Do("click ProgFut");
  EXPECT_EQ(session.EndWire(), (Lines{"R 0378 00", "W 0378 00"}))
      << "button and supply disagree: this is an Off";
}

TEST(PowerCaptions, TheEntrySetsTheFirstButtonsCaptionAndTheFlagOnly) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  session.Do("click ProgFut");
  TargetPowerOn();
  EXPECT_EQ(session.Ask("get ProgFut"), "Vdd(+5V) On");
  EXPECT_EQ(session.Ask("get Command10"), "Vdd(+5V) Off");
  EXPECT_EQ(VddOnFlag, 0);
}

TEST(PowerCaptions, TheEntryOfTheSerialPortSetsThemToo) {
  LineSession session(LineModel(LineModel::Kind::Com, 0));
  session.Do("click Command10");
  TargetPowerOn();
  EXPECT_EQ(session.Ask("get ProgFut"), "Vdd(+5V) On");
  EXPECT_EQ(session.Ask("get Command10"), "Vdd(+5V) Off");
  EXPECT_EQ(VddOnFlag, 0);
}

TEST(PowerCaptions, TheSwitchTicksTheBoxOfThePortCheckWindowWhileThatIsOpen) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  session.Do("click ProgFut");
  EXPECT_FALSE(panel::LPT_Port_Check.Check1.Value);
  session.Do("click ProgFut");
  PortCheckOpen = true;
  session.Do("click ProgFut");
  EXPECT_TRUE(panel::LPT_Port_Check.Check1.Value);
  session.Do("click Command10");
  EXPECT_FALSE(panel::LPT_Port_Check.Check1.Value);
}

TEST(PowerSettling, ServesNoEvent) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  session.Do("at pump 1 mark served");
  const Lines log = session.LogOf(TargetPowerOn);
  EXPECT_EQ(log.size(), 8u);
  for (const std::string& line : log) EXPECT_NE(line, "# served");
}

TEST(AfterTheStart, TheVppIndicatorsAreGreyAndTheButtonsOfferOn) {
  LineSession session(LineModel(LineModel::Kind::Com, 15));
  EXPECT_EQ(session.Ask("color Shape1"), "14737632");
  EXPECT_EQ(session.Ask("color Shape2"), "14737632");
  EXPECT_EQ(session.Ask("get ProgFut"), "Vdd(+5V) On");
  EXPECT_EQ(session.Ask("get Command10"), "Vdd(+5V) On");
  EXPECT_EQ(session.Ask("var VddOnFlag"), "0");
}

class ManualBoard : public testing::Test {
 protected:
  ManualBoard() { session.Do("start"); }
  BenchSession session;
};

TEST_F(ManualBoard, ItsTickKeepsTheWholeChipButtonsFromBeingClicked) {
  for (const char* button : {"Command19", "Command21"})
    EXPECT_EQ(session.Ask("enabled " + std::string(button)), "1");
  session.Do("tick Check8");
  for (const char* button : {"Command19", "Command21"}) {
    EXPECT_EQ(session.Ask("enabled " + std::string(button)), "0");
    EXPECT_EQ(session.Refused("click " + std::string(button)), "disabled");
  }
  session.Do("untick Check8");
  for (const char* button : {"Command19", "Command21"})
    EXPECT_EQ(session.Ask("enabled " + std::string(button)), "1");
}

TEST_F(ManualBoard, ItsClickClearsTheVerifyTicksEitherWay) {
  session.Do({"tick Check4", "tick Check6", "tick Check8"});
  EXPECT_EQ(session.Ask("get Check4"), "0");
  EXPECT_EQ(session.Ask("get Check6"), "0");
  EXPECT_EQ(session.Look("messages"), Lines{});
}

TEST_F(ManualBoard, TakesAVerifyTickBackAtOnce) {
  session.Do("tick Check8");
  for (const char* box : {"Check4", "Check6"}) {
    session.Do("tick " + std::string(box));
    EXPECT_EQ(session.Ask("get " + std::string(box)), "0");
    EXPECT_EQ(session.Look("messages"), Lines{"ok ok ZLPT_mini használatánál ez a funkció nem érhető el."});
  }
  session.Do({"untick Check8", "tick Check4", "tick Check6"});
  EXPECT_EQ(session.Look("messages"), Lines{});
  EXPECT_EQ(session.Ask("get Check4"), "1");
}

}  // namespace
}  // namespace zelvo::test
