// The delays of the link: edge waits, programming holds and held delays.
#include "link/delays.h"

#include <gtest/gtest.h>

#include "panel/form1.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using namespace link;  // NOLINT: the tests speak in the terms of the link
using panel::Form1;

struct EdgeRow {
  double waitCount;
  bool slow, tenfold;
  const char* expected;
};

TEST(EdgeWait, PumpsWaitCountTimesAHundredfoldSlowATenthWithTheTenfoldTick) {
  const EdgeRow rows[] = {
      {10, false, false, "P 10"},    {1000, false, false, "P 1000"}, {100000, false, false, "P 100000"},
      {10, false, true, "P 1"},      {1000, false, true, "P 100"},   {19, false, true, "P 1"},
      {5, false, true, "P 0"},       {0, false, false, "P 0"},       {1, false, false, "P 1"},
      {100, true, false, "P 10000"}, {5, true, true, "P 50"},        {100, true, true, "P 1000"},
      {12.9, false, false, "P 12"},  {0.5, true, false, "P 50"},     {0.99, false, false, "P 0"},
  };
  BenchSession session;
  for (const EdgeRow& row : rows) {
    WaitCount = row.waitCount;
    Form1.Check10.Value = row.slow;
    Form1.Check7.Value = row.tenfold;
    session.BeginWire();
    Vár_Ír();
    EXPECT_EQ(session.EndWire(), Lines{row.expected}) << "WaitCount " << row.waitCount;
  }
}

TEST(EdgeWait, LooksOnlyAtTheTickBoxesCheck10AndCheck7) {
  BenchSession session;
  WaitCount = 40;
  Form1.Check9.Value = true;
  Form1.Check11.Value = true;
  session.BeginWire();
  Vár_Ír();
  EXPECT_EQ(session.EndWire(), Lines{"P 40"});
}

TEST(EdgeWait, ReadsTheTickBoxesAnewAtEveryCall) {
  BenchSession session;
  session.Do({"start", "tab 2"});  // where a tick of Check7 scales nothing
  WaitCount = 50;
  session.Do({"at pump 20 tick Check10", "at pump 51 tick Check7"});
  session.BeginWire();
  Vár_Ír(3);
  EXPECT_EQ(session.EndWire(), (Lines{"P 50", "P 5000", "P 500"}));
}

TEST(EdgeWait, ServesTheOperatorInsideItsPasses) {
  BenchSession session;
  session.Do({"start", "at pump 7 mark served"});
  WaitCount = 7;
  session.BeginWire();
  Vár_Ír();
  Vár_Ír();
  EXPECT_EQ(session.EndWire(), (Lines{"P 7", "# served", "P 7"}));
}

TEST(EdgeWait, LastsAMicrosecondAPass) {
  BenchSession session;
  session.Do("start");
  const long long before = std::stoll(session.Ask("time"));
  WaitCount = 1234;
  Vár_Ír();
  EXPECT_EQ(std::stoll(session.Ask("time")) - before, 1234);
}

TEST(ProgrammingHolds, WaitForATickOfTheirTimer) {
  BenchSession session;
  session.Do("start");
  const long long before = std::stoll(session.Ask("time"));
  session.BeginWire();
  SleepP9();
  const long long between = std::stoll(session.Ask("time"));
  SleepP11();
  EXPECT_EQ(session.EndWire(), (Lines{"S9", "S11"})) << "no edge wait belongs to a hold";
  EXPECT_EQ(between - before, 1000);
  EXPECT_EQ(std::stoll(session.Ask("time")) - between, 6000);
  EXPECT_TRUE(P9Flag);
  EXPECT_TRUE(P11Flag);
}

TEST(ProgrammingHolds, ClearAFlagThatStandsFromBefore) {
  BenchSession session;
  session.Do("start");
  P9Flag = true;
  const long long before = std::stoll(session.Ask("time"));
  SleepP9();
  EXPECT_EQ(std::stoll(session.Ask("time")) - before, 1000);
}

TEST(ProgrammingHolds, DoNotDependOnTheSpeed) {
  BenchSession session;
  session.Do("start");
  WaitCount = 100000;
  Form1.Check10.Value = true;
  const long long before = std::stoll(session.Ask("time"));
  SleepP9();
  EXPECT_EQ(std::stoll(session.Ask("time")) - before, 1000);
}

TEST(ProgrammingHolds, ServeTheOperatorAndLeaveTheirTimerDisabled) {
  struct NotedTimers : platform::Timers {
    void Enable(platform::HoldTimer timer, bool& flag) override {
      calls += timer == platform::HoldTimer::P9 ? "on9 " : "on11 ";
      before = flag;
      flag = true;
    }
    void Disable(platform::HoldTimer timer) override {
      calls += timer == platform::HoldTimer::P9 ? "off9 " : "off11 ";
    }
    std::string calls;
    bool before = true;
  } timers;
  BenchSession session;
  platform::seams.timers = &timers;
  SleepP9();
  EXPECT_FALSE(timers.before) << "the flag is cleared before the timer runs";
  SleepP11();
  EXPECT_EQ(timers.calls, "on9 off9 on11 off11 ");
}

TEST(ProgrammingHolds, LetACommandOfTheOperatorRunInside) {
  BenchSession session;
  session.Do({"start", "at pump 500 mark served"});
  session.BeginWire();
  SleepP9();
  SleepP11();
  EXPECT_EQ(session.EndWire(), (Lines{"S9", "# served", "S11"}));
}

TEST(HeldDelays, LastAsLongAsTheirCountsOfPassesAndServeNoEvent) {
  BenchSession session;
  session.Do({"start", "at pump 1 mark served"});
  const auto lasts = [&session](void (*delay)()) {
    const long long before = std::stoll(session.Ask("time"));
    delay();
    return std::stoll(session.Ask("time")) - before;
  };
  WaitCount = 1000;
  session.BeginWire();
  const long long settle = lasts(SettleDelay);
  const long long cycle = lasts(PowerCycleDelay);
  const long long pause = lasts(Szün);
  WaitCount = 250;
  const long long quickCycle = lasts(PowerCycleDelay);
  EXPECT_EQ(session.EndWire(), (Lines{"D settle", "D cycle 1000", "D szün", "D cycle 250"}));
  EXPECT_EQ(settle, 30000) << "3 000 000 passes of 10 ns";
  EXPECT_EQ(cycle, 32500) << "1 300 000 passes of 25 ns";
  EXPECT_EQ(quickCycle, 13750) << "550 000 passes of 25 ns";
  EXPECT_EQ(pause, 20) << "2000 passes of 10 ns";
}

}  // namespace
}  // namespace zelvo::test
