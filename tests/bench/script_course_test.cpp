// The course of a script: queued outcomes, passes, and commands that run inside an operation.
#include <gtest/gtest.h>

#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "platform/seams.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using panel::Form1;
using platform::seams;

class ScriptCourse : public testing::Test {
 protected:
  void SetUp() override { session.Do("start"); }
  BenchSession session;
};

TEST_F(ScriptCourse, AnswersAreTakenInOrderByQuestionsOnly) {
  session.Do({"answer yes no", "answer yes"});
  seams.dialogs->Message("only Ok");
  EXPECT_TRUE(seams.dialogs->AskYesNo("1"));
  EXPECT_FALSE(seams.dialogs->AskYesNo("2"));
  EXPECT_TRUE(seams.dialogs->AskYesNo("3"));
  EXPECT_FALSE(seams.dialogs->AskYesNo("4"));
}

TEST_F(ScriptCourse, ABadAnswerQueuesNone) {
  EXPECT_EQ(session.Refused("answer yes maybe"), "no answer maybe");
  EXPECT_FALSE(seams.dialogs->AskYesNo("?"));
}

TEST_F(ScriptCourse, FileDialogsTakeTheQueue) {
  session.Do({"file /a path/with blanks.hex", "file cancel", "file b.hex "});
  EXPECT_EQ(seams.dialogs->OpenFile({}), "/a path/with blanks.hex");
  EXPECT_EQ(seams.dialogs->SaveFile({}), std::nullopt);
  EXPECT_EQ(seams.dialogs->SaveFile({}), "b.hex");
  EXPECT_EQ(seams.dialogs->OpenFile({}), std::nullopt);
}

TEST_F(ScriptCourse, ACommandRunsInsideItsPass) {
  session.Do({"at pump 3 mark third", "at pump 1 mark first", "at pump 3 mark third again"});
  session.BeginWire();
  for (int i = 0; i < 3; ++i) {
    seams.pump->EdgeWait(1);
    session.Do("mark between");
  }
  EXPECT_EQ(session.EndWire(), (Lines{"P 1", "# first", "# between", "P 1", "# between", "P 1", "# third",
                                      "# third again", "# between"}));
}

TEST_F(ScriptCourse, AnswersOfScriptedCommandsStandBeforeThoseAroundThem) {
  Form1.FlashOl.Click = [] { seams.pump->EdgeWait(10); };
  session.Do("at pump 5 get FlashÍr");
  EXPECT_EQ(session.Run("click FlashOl"), (Lines{"| Flash Írása", "ok", "ok"}));
}

TEST_F(ScriptCourse, AScriptedErrorCountsAndTheOperationGoesOn) {
  bool finished = false;
  Form1.FlashOl.Click = [&] {
    seams.pump->EdgeWait(10);
    finished = true;
  };
  session.Do("at pump 5 click Nothing");
  EXPECT_EQ(session.Run("click FlashOl"), (Lines{"error: no control Nothing", "ok"}));
  EXPECT_TRUE(finished);
  EXPECT_FALSE(session.TheBench().AllOk());
}

TEST_F(ScriptCourse, AnOperationCanRunInsideAnother) {
  Form1.FlashOl.Click = [] {
    seams.pump->EdgeWait(10);
    seams.ports->Out32(0x378, 1);
  };
  Form1.FlashÍr.Click = [] {
    seams.pump->EdgeWait(20);
    seams.ports->Out32(0x378, 2);
  };
  session.Do({"at pump 5 click FlashÍr", "at pump 7 mark seventh"});
  const std::string before = session.Ask("time");
  EXPECT_EQ(session.WireOf("click FlashOl"), (Lines{"P 10", "P 20", "# seventh", "W 0378 02", "W 0378 01"}));
  EXPECT_EQ(std::stoll(session.Ask("time")), std::stoll(before) + 32);
}

TEST_F(ScriptCourse, ACommandForTheSamePassWaitsOnlyForTheOneBeforeIt) {
  Form1.FlashOl.Click = [] { seams.pump->EdgeWait(1); };
  session.Do({"at pump 2 click FlashOl", "at pump 2 mark second", "at pump 2 mark third"});
  EXPECT_EQ(session.WireOf("pump 2"), (Lines{"P 1", "# second", "# third"}));
}

TEST_F(ScriptCourse, ScriptedCommandsMayQueueMore) {
  session.Do("at pump 2 at pump 2 mark fourth");
  session.BeginWire();
  session.Do("pump 3");
  session.Do("mark three passed");
  session.Do("pump 1");
  EXPECT_EQ(session.EndWire(), (Lines{"# three passed", "# fourth"}));
}

TEST_F(ScriptCourse, ClosingTheProgramEndsTheRunningOperation) {
  bool wentOn = false;
  Form1.FlashOl.Click = [&] {
    seams.pump->EdgeWait(10);
    wentOn = true;
  };
  session.Do("at pump 5 stop");
  EXPECT_EQ(session.Run("click FlashOl"), (Lines{"ok", "ok"}));
  EXPECT_FALSE(wentOn);
  EXPECT_TRUE(platform::programEnded);
}

TEST_F(ScriptCourse, ClosingTheProgramEndsNestedOperationsWholly) {
  int wentOn = 0;
  Form1.FlashOl.Click = [&] {
    seams.pump->EdgeWait(10);
    ++wentOn;
  };
  Form1.FlashÍr.Click = Form1.FlashOl.Click;
  session.Do({"at pump 5 click FlashÍr", "at pump 7 stop"});
  EXPECT_EQ(session.Run("click FlashOl"), (Lines{"ok", "ok", "ok"}));
  EXPECT_EQ(wentOn, 0);
}

TEST_F(ScriptCourse, EveryKindOfPassEndsAfterTheProgram) {
  session.Do("stop");
  bool never = false;
  EXPECT_THROW(seams.pump->EdgeWait(1), platform::ProgramEnded);
  EXPECT_THROW(seams.pump->Once(), platform::ProgramEnded);
  EXPECT_THROW(seams.pump->Until(never), platform::ProgramEnded);
  EXPECT_NO_THROW(seams.pump->EdgeWait(0));
  session.Do("pump 5");
}

TEST_F(ScriptCourse, PumpLetsPassesHappenWithoutALine) {
  EXPECT_EQ(session.WireOf("pump 1000"), Lines{});
  for (const char* passes : {"-1", "many", "1.5", "1000000000001", "99999999999999999999"}) {
    EXPECT_EQ(session.Refused(std::string("pump ") + passes), std::string("no number of passes ") + passes);
  }
  session.Do("pump 0");
}

TEST_F(ScriptCourse, AHundredMillionPassesCostNothing) {
  const long long before = std::stoll(session.Ask("time"));
  for (int i = 0; i < 1000; ++i) session.Do("pump 100000000");
  EXPECT_EQ(std::stoll(session.Ask("time")), before + 100'000'000'000);
}

TEST_F(ScriptCourse, CommandsForLaterAreCheckedAtOnce) {
  EXPECT_EQ(session.Refused("at pump 0 stop"), "no number of a pass 0");
  EXPECT_EQ(session.Refused("at pump x stop"), "no number of a pass x");
  EXPECT_EQ(session.Refused("at pump 5 clik FlashOl"), "unknown command clik");
  EXPECT_EQ(session.Refused("at progress Nowhere 5 stop"), "no window Nowhere");
  EXPECT_EQ(session.Refused("at progress FlashOlv 5 stop"), "no bar in FlashOlv");
  EXPECT_EQ(session.Refused("at progress Állapot x stop"), "no value of a bar x");
  EXPECT_EQ(session.Refused("at progress Állapot 5 clik"), "unknown command clik");
}

TEST_F(ScriptCourse, ACommandRunsWhenABarShowsItsValueOnce) {
  panel::Állapot.Load();
  panel::FlashÍrÁllapot.Load();
  session.Do({"at progress Állapot 2 mark two", "at progress Állapot 2 mark two again"});
  session.BeginWire();
  panel::FlashÍrÁllapot.ProgressBar1.Step(2);
  for (const int value : {1, 2, 2, 3}) panel::Állapot.ProgressBar1.Step(value);
  EXPECT_EQ(session.EndWire(), (Lines{"B FlashÍrÁllapot 2", "B Állapot 1", "B Állapot 2", "# two",
                                      "# two again", "B Állapot 2", "B Állapot 3"}));
}

TEST_F(ScriptCourse, TimersTickInPassesOfThePump) {
  bool ticked = false;
  seams.timers->Enable(platform::HoldTimer::P9, ticked);
  session.Do("pump 999");
  EXPECT_FALSE(ticked);
  session.Do("pump 1");
  EXPECT_TRUE(ticked);
  ticked = false;
  session.Do("pump 1000");
  EXPECT_TRUE(ticked) << "the timer goes on until it is disabled";
  ticked = false;
  seams.timers->Disable(platform::HoldTimer::P9);
  session.Do("pump 100000");
  EXPECT_FALSE(ticked);
}

TEST_F(ScriptCourse, WaitingForATimerTakesItsInterval) {
  const std::pair<platform::HoldTimer, long long> timers[] = {{platform::HoldTimer::P9, 1000},
                                                              {platform::HoldTimer::P11, 6000}};
  for (const auto& [timer, interval] : timers) {
    const long long before = std::stoll(session.Ask("time"));
    bool ticked = false;
    seams.timers->Enable(timer, ticked);
    seams.pump->Until(ticked);
    seams.timers->Disable(timer);
    EXPECT_EQ(std::stoll(session.Ask("time")), before + interval);
  }
}

TEST_F(ScriptCourse, ScriptedCommandsRunInsideAHold) {
  session.Do("at pump 500 mark in the hold");
  session.BeginWire();
  bool ticked = false;
  seams.timers->Enable(platform::HoldTimer::P9, ticked);
  seams.pump->Until(ticked);
  seams.timers->Disable(platform::HoldTimer::P9);
  session.Do("mark behind");
  EXPECT_EQ(session.EndWire(), (Lines{"S9", "# in the hold", "# behind"}));
}

TEST_F(ScriptCourse, LocalTimeFollowsTheBenchClock) {
  const long long now = std::stoll(session.Ask("time"));
  session.Do("pump " + std::to_string(3'661'000'000 - now));
  EXPECT_EQ(seams.clock->LocalTime(), "13:01:01");
  session.Do("pump 43200000000");
  EXPECT_EQ(seams.clock->LocalTime(), "01:01:01");
}

TEST_F(ScriptCourse, TheSerialPortCanAlwaysBeClaimed) {
  EXPECT_FALSE(seams.serial->IsOpen());
  EXPECT_TRUE(seams.serial->Open(2, "9600,N,8,1"));
  EXPECT_TRUE(seams.serial->IsOpen());
  seams.serial->Close();
  EXPECT_FALSE(seams.serial->IsOpen());
  EXPECT_EQ(session.TheBench().serial.Claims, 1);
  EXPECT_EQ(session.TheBench().serial.LastNumber, 2);
}

}  // namespace
}  // namespace zelvo::test
