// The wire log line by line, and the waveform file.
#include <gtest/gtest.h>

#include <filesystem>

#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "platform/seams.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using platform::HeldDelay;
using platform::HoldTimer;
using platform::seams;

TEST(WireLog, PortAccessesAreFourAndTwoUpperCaseDigits) {
  BenchSession session;
  session.Do("board none");
  session.BeginWire();
  seams.ports->Out32(0x378, 5);
  seams.ports->Out32(0xABCD, 0xEF);
  EXPECT_EQ(seams.ports->Inp32(0x379), 0xFF);
  EXPECT_EQ(session.EndWire(), (Lines{"W 0378 05", "W ABCD EF", "R 0379 FF"}));
}

TEST(WireLog, EveryEdgeWaitIsALineEvenOfNoPass) {
  BenchSession session;
  session.BeginWire();
  seams.pump->EdgeWait(0);
  seams.pump->EdgeWait(1000);
  seams.pump->Once();
  EXPECT_EQ(session.EndWire(), (Lines{"P 0", "P 1000"}));
}

TEST(WireLog, TheEdgeWaitStandsBeforeItsPasses) {
  BenchSession session;
  session.Do("at pump 1 mark inside");
  session.BeginWire();
  seams.pump->EdgeWait(7);
  EXPECT_EQ(session.EndWire(), (Lines{"P 7", "# inside"}));
}

TEST(WireLog, HoldsAndHeldDelays) {
  BenchSession session;
  session.BeginWire();
  bool flag = false;
  seams.timers->Enable(HoldTimer::P9, flag);
  seams.timers->Disable(HoldTimer::P9);
  seams.timers->Enable(HoldTimer::P11, flag);
  seams.timers->Disable(HoldTimer::P11);
  seams.delays->Hold(HeldDelay::Settle, 1000, 75000);
  seams.delays->Hold(HeldDelay::PowerCycle, 1000, 32500);
  seams.delays->Hold(HeldDelay::PowerCycle, 100000, 32500);
  seams.delays->Hold(HeldDelay::PowerCycle, 12.5, 32500);
  seams.delays->Hold(HeldDelay::Szün, 1000, 50);
  EXPECT_EQ(session.EndWire(),
            (Lines{"S9", "S11", "D settle", "D cycle 1000", "D cycle 100000", "D cycle 12.5", "D szün"}));
}

TEST(WireLog, HeldDelaysTakeTheirTime) {
  BenchSession session;
  session.Do("start");
  const long long before = std::stoll(session.Ask("time"));
  seams.delays->Hold(HeldDelay::Settle, 0, 75000);
  seams.delays->Hold(HeldDelay::Szün, 0, 0.5);
  seams.delays->Hold(HeldDelay::Szün, 0, 0.5);
  EXPECT_EQ(std::stoll(session.Ask("time")), before + 75001);
}

TEST(WireLog, BarsWindowsListsBoxesAndMarks) {
  BenchSession session;
  panel::FlashOlv.OnLoad = nullptr;
  session.BeginWire();
  panel::Állapot.Load();
  panel::Állapot.ProgressBar1.Step(17);
  panel::Állapot.Unload();
  panel::Állapot.Unload();
  panel::FlashOlv.Load();
  panel::FlashOlv.Load();
  panel::FlashOlv.Unload();
  for (panel::Witness* witness : panel::witnesses) {
    witness->LineLogged(panel::Form1.List1, "3:  12:00:00:  Flash\nOlvasás");
  }
  static_cast<void>(seams.dialogs->AskYesNo("Ismeretlen_PIC! Folytatod az olvasást?"));
  seams.dialogs->Message("Nincs PIC kiválasztva!");
  session.Do("mark  árvíztűrő ");
  EXPECT_EQ(session.EndWire(), (Lines{"+ Állapot", "B Állapot 17", "- Állapot", "+ FlashOlv", "- FlashOlv",
                                      "L List1 3:  12:00:00:  Flash Olvasás",
                                      "M yesno no Ismeretlen_PIC! Folytatod az olvasást?",
                                      "M ok ok Nincs PIC kiválasztva!", "#  árvíztűrő "}));
}

TEST(WireLog, MarksWithoutALogGoNowhere) {
  BenchSession session;
  session.Do({"mark nobody", "wire off", "wire off"});
}

TEST(WireLog, ANewLogEndsTheOneBefore) {
  BenchSession session;
  const std::string first = session.Folder().File("first"), second = session.Folder().File("second");
  session.Do({"wire " + first, "mark one", "wire " + second, "mark two", "wire " + second, "mark three",
              "wire off", "mark four"});
  EXPECT_EQ(session.Folder().Read("first"), "# one\n");
  EXPECT_EQ(session.Folder().Read("second"), "# three\n");
}

TEST(WireLog, ALogThatCannotBeWrittenLeavesTheOneBefore) {
  BenchSession session;
  const std::string good = session.Folder().File("good"), bad = session.Folder().Path();
  session.Do({"wire " + good, "mark one"});
  EXPECT_EQ(session.Refused("wire " + bad), "cannot write " + bad);
  session.Do({"mark two", "wire off"});
  EXPECT_EQ(session.Folder().Read("good"), "# one\n# two\n");
}

TEST(WireLog, AFullDiskIsToldAtTheEnd) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP();
  BenchSession session;
  session.Do({"wire /dev/full", "mark lost"});
  EXPECT_EQ(session.Refused("wire off"), "the log could not be written to its end");
}

TEST(WireLog, WorksBeforeTheStartAndAfterTheEndOfTheProgram) {
  BenchSession session;
  session.BeginWire();
  session.Do({"mark before", "start", "stop", "mark after"});
  const Lines log = session.EndWire();
  EXPECT_EQ(log.front(), "# before");
  EXPECT_EQ(log.back(), "# after");
}

TEST(WireLog, LongLogsAreWhole) {
  BenchSession session;
  session.BeginWire();
  constexpr int Lines = 300'000;  // more than one buffer
  for (int i = 0; i < Lines; ++i) seams.ports->Out32(0x378, i & 0xFF);
  const auto log = session.EndWire();
  ASSERT_EQ(log.size(), static_cast<std::size_t>(Lines));
  EXPECT_EQ(log[0], "W 0378 00");
  EXPECT_EQ(log[Lines - 1], "W 0378 DF");
  session.Do("wire " + session.Folder().File("marks"));
  const std::string text(10'000, 'x');
  session.Do("mark " + text);
  session.Do("wire off");
  EXPECT_EQ(session.Folder().Read("marks"), "# " + text + '\n');
}

TEST(WireVcd, TellsTheFiveLinesInNanoseconds) {
  BenchSession session;
  session.Do("board lpt");
  auto& machine = session.TheBench().machine;
  ASSERT_TRUE(machine.BeginVcd(session.Folder().File("lines.vcd")));
  seams.ports->Out32(0x378, 4);   // vdd
  seams.ports->Out32(0x378, 4);   // no change, no line
  seams.ports->Out32(0x378, 14);  // vpp and pgc
  seams.pump->EdgeWait(7);
  ASSERT_TRUE(machine.EndVcd());
  const Lines vcd = SplitLines(session.Folder().Read("lines.vcd"));
  const Lines expected{"$timescale 1ns $end",
                       "$scope module socket $end",
                       "$var wire 1 ! vdd $end",
                       "$var wire 1 \" vpp $end",
                       "$var wire 1 # pgc $end",
                       "$var wire 1 $ pgd $end",
                       "$var wire 1 % data $end",
                       "$upscope $end",
                       "$enddefinitions $end",
                       "#0",
                       "$dumpvars",
                       "0!",
                       "0\"",
                       "0#",
                       "0$",
                       "1%",
                       "$end",
                       "#1000",
                       "1!",
                       "#3000",
                       "1\"",
                       "1#",
                       "#10000"};
  EXPECT_TRUE(SameLog(expected, vcd));
}

TEST(WireCompare, ADifferenceIsShownWithItsNeighbours) {
  const Lines expected{"a", "b", "c", "d", "e", "f", "g"};
  Lines actual = expected;
  EXPECT_TRUE(SameLog(expected, actual));
  actual[5] = "x";
  const testing::AssertionResult result = SameLog(expected, actual);
  EXPECT_FALSE(result);
  EXPECT_STREQ(result.message(),
               "line 6 of 7 expected and 7 actual lines\nexpected:\n  b\n  c\n  d\n  e\n> f\n  g\n"
               "actual:\n  b\n  c\n  d\n  e\n> x\n  g");
  EXPECT_FALSE(SameLog(expected, {"a", "b"}));
}

}  // namespace
}  // namespace zelvo::test
