// The one-second test of the port check: its pulses on the wire, pass by pass, and what the operator does to
// it meanwhile. A pass of the bench's pump takes a microsecond; at the desk's speed one wait of the test is
// 10 passes of an edge and one more.
#include <gtest/gtest.h>

#include <algorithm>

#include "link/delays.h"
#include "link/port.h"
#include "panel/secondary_windows.h"
#include "platform/seams.h"
#include "ui/port_check.h"
#include "ui/port_check_desk.h"

namespace zelvo::test {
namespace {

constexpr long long Waits = 50000;  // of a half period
constexpr long long HalfPeriod = 11 * Waits;
constexpr long long Period = 2 * HalfPeriod + 1;  // one pass more between two pulses
constexpr const char* HalfSecond = "P 10 x 50000";

/// The desk with commands at passes of the test.
struct Pulses : PortCheckDesk, testing::Test {
  Pulses() = default;
  Pulses(const Settings& settings, std::string_view board) : PortCheckDesk(settings, board) {}
  /// `command` runs inside the `pass`-th pass of the test.
  void At(long long pass, const std::string& command) {
    session.Do("at pump " + std::to_string(pass) + " " + command);
  }
  Lines Run() { return WireOfTick("Check5"); }
  /// The test's log when it stops behind its first pulse.
  Lines RunOnce() {
    Tick("Check6");
    return Run();
  }
};
struct PulsesCom : Pulses {
  PulsesCom() : Pulses(SerialPort(), "board com") {}
};
struct PulsesShipped : Pulses {
  static Settings Files() {
    Settings settings;
    settings.invert = "28";
    return settings;
  }
  PulsesShipped() : Pulses(Files(), "board lpt inverted=clock,data,input") {}
};

Lines OnePulse(const std::string& read, const std::string& up, const std::string& down,
               const std::string& half = HalfSecond) {
  return {read, up, half, down, half};
}

TEST_F(Pulses, ReadTheRegisterOnceAndMoveTheClockAloneOnIt) {
  platform::seams.ports->Out32(0x378, 0xFD);
  EXPECT_TRUE(SameLog(OnePulse("R 0378 FD", "W 0378 FF", "W 0378 FD"), RunOnce()));
}

TEST_F(PulsesCom, MoveRtsOfTheModemControlRegister) {
  platform::seams.ports->Out32(0x3FC, 0xF9);
  EXPECT_TRUE(SameLog(OnePulse("R 03FC F9", "W 03FC FB", "W 03FC F9"), RunOnce()));
}

TEST_F(Pulses, UseTheClocksOwnBit) {
  link::ClockSetMask = 64;
  link::ClockClearMask = 191;
  EXPECT_TRUE(SameLog(OnePulse("R 0378 00", "W 0378 40", "W 0378 00"), RunOnce()));
}

TEST_F(PulsesShipped, TakeNoNoticeOfAnInvertedClock) {
  EXPECT_TRUE(SameLog(OnePulse("R 0378 03", "W 0378 03", "W 0378 01"), RunOnce()));
}

TEST_F(PulsesCom, TakeNoNoticeOfAnInvertedClockThereEither) {
  link::ComPgcInverted = true;
  EXPECT_TRUE(SameLog(OnePulse("R 03FC 00", "W 03FC 02", "W 03FC 00"), RunOnce()));
}

TEST_F(Pulses, LastTwoTimesFiftyThousandWaitsAndOnePassMore) {
  Tick("Check6");
  const long long before = std::stoll(session.Ask("time"));
  Tick("Check5");
  EXPECT_EQ(std::stoll(session.Ask("time")) - before, 3 + Period) << "three accesses take 3 us";
}

TEST_F(Pulses, GoOnUntilTheStopBoxIsTickedAndThenFinishTheirPulse) {
  At(2 * Period + 5, "tick " + Name("Check6"));
  Lines expected{"R 0378 00"};
  for (int pulse = 0; pulse < 3; ++pulse) {
    const Lines one = OnePulse("", "W 0378 02", "W 0378 00");
    expected.insert(expected.end(), one.begin() + 1, one.end());
  }
  EXPECT_TRUE(SameLog(expected, Run()));
  EXPECT_EQ(Boxes(), "000000") << "both boxes are clear behind it";
  EXPECT_TRUE(IsOpen());
}

TEST_F(Pulses, EndBehindTheFirstWhenTheStopBoxWasTickedBefore) {
  EXPECT_EQ(WireOfTick("Check6"), Lines{});
  EXPECT_EQ(Boxes(), "000001") << "no effect without a test";
  EXPECT_TRUE(SameLog(OnePulse("R 0378 00", "W 0378 02", "W 0378 00"), Run()));
  EXPECT_EQ(Boxes(), "000000");
  EXPECT_EQ(Var("PortCheckOpen"), "1");
  EXPECT_TRUE(IsOpen());
}

TEST_F(Pulses, EndByTheStopBoxInThePassBetweenTwoPulses) {
  At(Period, "tick " + Name("Check6"));
  EXPECT_TRUE(SameLog(OnePulse("R 0378 00", "W 0378 02", "W 0378 00"), Run()));
}

TEST_F(Pulses, StartAgainBehindAnEndedTestWithTheRegisterReadAnew) {
  static_cast<void>(RunOnce());
  platform::seams.ports->Out32(0x378, 0x08);
  EXPECT_TRUE(SameLog(OnePulse("R 0378 08", "W 0378 0A", "W 0378 08"), RunOnce()));
}

TEST_F(Pulses, LightTheLampGreenWhileTheClockIsUpAndWhiteBehind) {
  EXPECT_NE(Colour("Label1"), "65280");
  for (const long long pass : {1LL, HalfPeriod, HalfPeriod + 1, Period, Period + 1, Period + HalfPeriod + 1})
    At(pass, "color " + Name("Label1"));
  At(Period + 2, "tick " + Name("Check6"));
  Lines answers = session.Run("tick " + Name("Check5"));
  std::erase(answers, "ok");
  EXPECT_EQ(answers, (Lines{"| 65280", "| 65280", "| 16777215", "| 16777215", "| 65280", "| 16777215"}));
  EXPECT_EQ(Colour("Label1"), "16777215");
}

// The pace.

TEST_F(Pulses, TakeTheStoredSpeedOverForTheWait) {
  link::SpeedSetting = 30;
  link::WaitCount = 4;
  EXPECT_TRUE(SameLog(OnePulse("R 0378 00", "W 0378 02", "W 0378 00", "P 30 x 50000"), RunOnce()));
  EXPECT_EQ(Var("WaitCount"), "30");
}

TEST_F(Pulses, GoTenTimesFasterOrAHundredTimesSlowerByTheBoxesOfTheSpeed) {
  struct Pace {
    const char* box;
    double setting;
    const char* half;
  };
  // The tenfold box of the page in view multiplies the setting itself.
  constexpr Pace paces[] = {
      {"Check7", 10, "P 1 x 50000"}, {"Check7", 1, "P 0 x 50000"}, {"Check10", 20, "P 2000 x 50000"}};
  for (const Pace& pace : paces) {
    session.Do("tick " + std::string(pace.box));
    link::SpeedSetting = pace.setting;
    EXPECT_TRUE(SameLog(OnePulse("R 0378 00", "W 0378 02", "W 0378 00", pace.half), RunOnce()));
    session.Do("untick " + std::string(pace.box));
  }
}

TEST_F(Pulses, FollowTheSpeedBarFromTheNextWait) {
  At(5, "scroll ÁSeb 3");
  EXPECT_EQ(RunOnce(),
            (Lines{"R 0378 00", "W 0378 02", "P 10", "P 30 x 49999", "W 0378 00", "P 30 x 50000"}));
}

// Closing in the middle.

TEST_F(Pulses, EndAtTheNextWaitWhenTheWindowsButtonIsClickedWhileTheClockIsUp) {
  At(5, "click " + Name("Command1"));
  At(5, "windows");
  BenchSession& bench = session;
  bench.BeginWire();
  const Lines answers = bench.Run("tick " + Name("Check5"));
  EXPECT_EQ(answers, (Lines{"ok", "| MDIForm1", "| Form1", "| LPT_Port_Check", "ok", "ok"})) << "not at once";
  EXPECT_EQ(Packed(bench.EndWire()),
            (Lines{"R 0378 00", "W 0378 02", "P 10", "W 0378 00", "P 10", "- LPT_Port_Check"}));
  EXPECT_EQ(Var("PortCheckOpen"), "0");
  EXPECT_EQ(Var("PortCheckLoaded"), "0");
  EXPECT_FALSE(IsOpen());
}

TEST_F(Pulses, EndAtTheWaitInWhoseOwnPassTheButtonIsClicked) {
  At(11, "click " + Name("Command1"));
  EXPECT_EQ(Run(), (Lines{"R 0378 00", "W 0378 02", "P 10", "W 0378 00", "P 10", "- LPT_Port_Check"}));
}

TEST_F(Pulses, EndAtTheNextWaitWhenTheButtonIsClickedWhileTheClockIsDown) {
  At(HalfPeriod + 12, "click " + Name("Command1"));
  EXPECT_EQ(Run(),
            (Lines{"R 0378 00", "W 0378 02", HalfSecond, "W 0378 00", "P 10 x 2", "- LPT_Port_Check"}));
}

TEST_F(Pulses, MakeAShortPulseMoreWhenTheButtonIsClickedBetweenTwo) {
  At(Period, "click " + Name("Command1"));
  EXPECT_EQ(Run(), (Lines{"R 0378 00", "W 0378 02", HalfSecond, "W 0378 00", HalfSecond, "W 0378 02", "P 10",
                          "W 0378 00", "P 10", "- LPT_Port_Check"}));
}

TEST_F(Pulses, CloseTheWindowOnceAndForgetTheRequest) {
  At(5, "click " + Name("Command1"));
  At(6, "click " + Name("Command1"));
  static_cast<void>(Run());
  EXPECT_FALSE(panel::LPT_Port_Check.StopRequested);
  session.Do("click Command20");
  EXPECT_EQ(Boxes(), "000000");
  EXPECT_TRUE(SameLog(OnePulse("R 0378 00", "W 0378 02", "W 0378 00"), RunOnce()))
      << "a new test is not stopped by the old request";
  EXPECT_TRUE(IsOpen());
}

TEST_F(Pulses, HandNoRequestToClosePastAFrameThatWasQuicker) {
  At(5, "click " + Name("Command1"));
  At(6, "close LPT_Port_Check");
  EXPECT_EQ(Run(), (Lines{"R 0378 00", "W 0378 02", "P 10", "- LPT_Port_Check", "R 0378 02", "W 0378 00"}));
  session.Do("click Command4");
  EXPECT_TRUE(SameLog(OnePulse("R 0378 00", "W 0378 02", "W 0378 00"), RunOnce()));
  EXPECT_TRUE(IsOpen());
}

TEST_F(Pulses, EndAtTheNextWaitWithTheClockAtRestWhenTheFrameIsClosed) {
  At(16, "close LPT_Port_Check");
  EXPECT_EQ(Run(),
            (Lines{"R 0378 00", "W 0378 02", "P 10 x 2", "- LPT_Port_Check", "R 0378 02", "W 0378 00"}));
  EXPECT_EQ(Var("PortCheckOpen"), "1") << "only the button forgets it";
  EXPECT_EQ(Var("PortCheckLoaded"), "0");
}

TEST_F(PulsesShipped, BringAnInvertedClockToItsOwnRestWhenTheFrameIsClosed) {
  At(HalfPeriod + 5, "close LPT_Port_Check");
  At(HalfPeriod + 12, "mark a pass too many");
  EXPECT_EQ(Run(), (Lines{"R 0378 03", "W 0378 03", HalfSecond, "W 0378 01", "P 10", "- LPT_Port_Check",
                          "R 0378 01", "W 0378 03"}));
}

TEST_F(PulsesCom, EndWithTheClockAtRestWhenTheFrameIsClosedBetweenTwo) {
  At(Period, "close LPT_Port_Check");
  EXPECT_EQ(Run(), (Lines{"R 03FC 00", "W 03FC 02", HalfSecond, "W 03FC 00", HalfSecond, "- LPT_Port_Check",
                          "R 03FC 00", "W 03FC 00"}));
}

TEST_F(Pulses, EndWhenTheWiringIsOpenedWithEveryLineAtRest) {
  Tick("Check2");
  At(5, "click Command5");
  EXPECT_EQ(Run(), (Lines{"R 0378 08", "W 0378 0A", "P 10", "+ Adat_él_Beállít_H",    //
                          "R 0378 0A", "W 0378 02", "R 0379 40", "- LPT_Port_Check",  // its boxes go
                          "R 0378 02", "W 0378 00"}));
  EXPECT_EQ(Var("PortCheckOpen"), "1");
}

TEST_F(Pulses, LeaveANewWindowFreeForATestOfItsOwn) {
  At(3, "close LPT_Port_Check");
  At(4, "click Command4");
  At(5, "tick " + Name("Check6"));
  At(6, "tick " + Name("Check5"));
  EXPECT_EQ(Run(), (Lines{"R 0378 00", "W 0378 02", "P 10", "- LPT_Port_Check", "+ LPT_Port_Check",  //
                          "R 0378 02", "W 0378 02", HalfSecond, "W 0378 00", HalfSecond,             //
                          "R 0378 00", "W 0378 00"}));
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(Boxes(), "000000");
  EXPECT_TRUE(SameLog(OnePulse("R 0378 00", "W 0378 02", "W 0378 00"), RunOnce()));
}

TEST_F(Pulses, EndWithTheProgramAndMoveNothingBehindItsRest) {
  Tick("Check2");
  At(5, "stop");
  const Lines log = Run();
  const Lines begin{"R 0378 08", "W 0378 0A", "P 10", "R 0378 0A", "W 0378 00", "- LPT_Port_Check"};
  ASSERT_GE(log.size(), begin.size());
  EXPECT_TRUE(SameLog(begin, Lines(log.begin(), log.begin() + static_cast<std::ptrdiff_t>(begin.size()))));
  EXPECT_TRUE(std::none_of(log.begin() + static_cast<std::ptrdiff_t>(begin.size()), log.end(),
                           [](const std::string& line) { return line[0] == 'W' || line[0] == 'P'; }));
}

// The rest of the program during the test.

TEST_F(Pulses, AreMadeByOneTestHoweverOftenItsBoxIsTicked) {
  At(5, "untick " + Name("Check5"));
  At(15, "tick " + Name("Check5"));
  At(Period + 5, "tick " + Name("Check6"));
  EXPECT_EQ(Run(), (Lines{"R 0378 00", "W 0378 02", HalfSecond, "W 0378 00", HalfSecond, "W 0378 02",
                          HalfSecond, "W 0378 00", HalfSecond}));
  EXPECT_EQ(Boxes(), "000000");
}

TEST_F(Pulses, GoOnWithTheirBoxCleared) {
  At(5, "untick " + Name("Check5"));
  At(Period + 5, "tick " + Name("Check6"));
  EXPECT_EQ(Run().size(), 9u) << "two pulses";
}

TEST_F(Pulses, EndWithAWindowThatIsClosedAtOnceBecauseTheirBoxIsClear) {
  At(5, "untick " + Name("Check5"));
  At(7, "click " + Name("Command1"));
  EXPECT_EQ(Run(), (Lines{"R 0378 00", "W 0378 02", "P 10", "- LPT_Port_Check", "R 0378 02", "W 0378 00"}));
  EXPECT_EQ(Var("PortCheckOpen"), "0");
}

TEST_F(Pulses, KeepALineThatABoxMovesMeanwhile) {
  At(5, "tick " + Name("Check2"));
  EXPECT_EQ(RunOnce(), (Lines{"R 0378 00", "W 0378 02", "P 10", "R 0378 02", "W 0378 0A", "R 0379 40",
                              "P 10 x 49999", "R 0378 0A", "W 0378 08", HalfSecond}));
  EXPECT_EQ(Boxes(), "010000");
}

TEST_F(PulsesCom, KeepTheLinesThatTheMainWindowMovesMeanwhile) {
  At(5, "click ProgFut");
  EXPECT_EQ(RunOnce(),
            (Lines{"R 03FC 00", "W 03FC 02", "P 10", "R 03FC 02", "W 03FC 03", "R 03FC 03", "W 03FC 03",
                   "R 03FE 10", "P 10 x 49999", "R 03FC 03", "W 03FC 01", HalfSecond}));
}

TEST_F(Pulses, StandStillForAnOperationAndGoOnBehindItOnTheLinesThatItLeft) {
  session.Do({"tab 2", "choose Combo1 PIC18F252", "socket PIC18F252"});
  At(5, "click IDazonosít");
  const Lines log = RunOnce();
  EXPECT_EQ(Var("DetectedName"), "PIC18F252");
  ASSERT_GE(log.size(), 4u);
  EXPECT_EQ(Lines(log.end() - 4, log.end()), (Lines{"P 10 x 49999", "R 0378 00", "W 0378 00", HalfSecond}));
  EXPECT_EQ(Boxes(), "000000");
}

TEST_F(Pulses, ReadTheRegisterOfAnotherAddressBeforeTheyMoveIt) {
  At(5, "click Command1");
  At(6, "choose LPT_Port_Set.Combo1 &H278");
  At(7, "click LPT_Port_Set.Command1");
  const Lines log = RunOnce();
  ASSERT_GE(log.size(), 4u);
  // No board is there: every bit reads as 1.
  EXPECT_EQ(Lines(log.end() - 4, log.end()), (Lines{"P 10 x 49999", "R 0278 FF", "W 0278 FD", HalfSecond}));
}

TEST_F(Pulses, ReadTheRegisterOfTheOtherInterfaceBeforeTheyMoveIt) {
  At(5, "click Command6");
  At(6, "click LPT_COM_select.COM_Radio");
  At(7, "click LPT_COM_select.Command1");
  const Lines log = RunOnce();
  ASSERT_GE(log.size(), 4u);
  EXPECT_EQ(Lines(log.end() - 4, log.end()), (Lines{"P 10 x 49999", "R 037C FF", "W 037C FD", HalfSecond}));
}

TEST(PulsesWithoutAnInterface, OnlyWait) {
  Settings settings;
  settings.port = "&H378,USB";
  PortCheckDesk desk(settings);
  desk.Tick("Check6");
  EXPECT_EQ(desk.WireOfTick("Check5"), Lines{"P 10 x 100000"});
  EXPECT_EQ(desk.Boxes(), "000000");
}

}  // namespace
}  // namespace zelvo::test
