// How lines of a script are read and answered.
#include <gtest/gtest.h>

#include "panel/form1.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

TEST(ScriptLines, EmptyLinesAndCommentsAnswerNothing) {
  BenchSession session;
  for (const char* line : {"", "   ", "\t", "# a comment", "  # a comment behind blanks", "\r", "#"}) {
    EXPECT_EQ(session.Run(line), Lines{}) << line;
  }
  EXPECT_TRUE(session.TheBench().AllOk());
}

TEST(ScriptLines, AnswersStandBehindABarAndEndWithOneOk) {
  BenchSession session;
  EXPECT_EQ(session.Run("get FlashOl"), (Lines{"| Flash Beolvasása", "ok"}));
  EXPECT_EQ(session.Run("get ConfRészlEdit"), (Lines{"|  Config Részletek, Szerkesztés", "ok"}));
  EXPECT_EQ(session.Run("time"), (Lines{"| 0", "ok"}));
  EXPECT_EQ(session.Run("windows"), Lines{"ok"});
}

TEST(ScriptLines, WordsAreSeparatedByAnyNumberOfBlanks) {
  BenchSession session;
  EXPECT_EQ(session.Run("   color \t MSFlexGrid1   0  1  "), (Lines{"| 16777215", "ok"}));
  EXPECT_EQ(session.Run("get FlashOl\r"), (Lines{"| Flash Beolvasása", "ok"}));
}

TEST(ScriptLines, AnUnknownCommandIsAnError) {
  BenchSession session;
  EXPECT_EQ(session.Refused("clik FlashOl"), "unknown command clik");
  EXPECT_EQ(session.Refused("GET FlashOl"), "unknown command GET");
  EXPECT_FALSE(session.TheBench().AllOk());
}

TEST(ScriptLines, AnErrorStaysKnownWhenLaterCommandsAreOk) {
  BenchSession session;
  EXPECT_EQ(session.Refused("bogus"), "unknown command bogus");
  session.Do("time");
  EXPECT_FALSE(session.TheBench().AllOk());
}

TEST(ScriptLines, EachCommandTellsItsArgumentsWhenItGetsOthers) {
  BenchSession session;
  session.Do("start");
  const std::pair<const char*, const char*> cases[] = {
      {"board", "usage: board lpt|com|none [KEY=VALUE ...]"},
      {"socket", "usage: socket CHIP|none [id=HEX]"},
      {"burn", "usage: burn FILE"},
      {"dump  ", "usage: dump FILE"},
      {"timing now", "usage: timing"},
      {"start now", "usage: start"},
      {"stop now", "usage: stop"},
      {"tab", "usage: tab N"},
      {"tab 1 2", "usage: tab N"},
      {"choose Combo1", "usage: choose NAME TEXT"},
      {"click", "usage: click NAME [ROW COL]"},
      {"click MSFlexGrid1 1", "usage: click NAME [ROW COL]"},
      {"click MSFlexGrid1 1 1 1", "usage: click NAME [ROW COL]"},
      {"dblclick MSFlexGrid1 1", "usage: dblclick NAME [ROW COL]"},
      {"tick", "usage: tick NAME"},
      {"untick Check1 now", "usage: untick NAME"},
      {"scroll ÁSeb", "usage: scroll NAME VALUE"},
      {"type", "usage: type NAME [TEXT]"},
      {"key Text1", "usage: key NAME Enter|Escape"},
      {"leave", "usage: leave NAME"},
      {"close", "usage: close WINDOW"},
      {"answer", "usage: answer yes|no ..."},
      {"file ", "usage: file PATH|cancel"},
      {"at", "usage: at pump N COMMAND | at progress WINDOW N COMMAND"},
      {"at noon stop", "usage: at pump N COMMAND | at progress WINDOW N COMMAND"},
      {"at pump 5", "usage: at pump N COMMAND | at progress WINDOW N COMMAND"},
      {"at progress Állapot 5 ", "usage: at pump N COMMAND | at progress WINDOW N COMMAND"},
      {"pump", "usage: pump N"},
      {"wire", "usage: wire FILE|off"},
      {"mark", "usage: mark TEXT"},
      {"get", "usage: get NAME"},
      {"get FlashOl FlashÍr", "usage: get NAME"},
      {"list", "usage: list NAME"},
      {"rows", "usage: rows NAME"},
      {"cell MSFlexGrid1 0", "usage: cell NAME ROW COL"},
      {"color MSFlexGrid1 0", "usage: color NAME [ROW COL]"},
      {"enabled", "usage: enabled NAME"},
      {"visible", "usage: visible NAME"},
      {"windows all", "usage: windows"},
      {"messages all", "usage: messages"},
      {"var", "usage: var NAME"},
      {"time now", "usage: time"},
  };
  for (const auto& [command, usage] : cases) EXPECT_EQ(session.Refused(command), usage) << command;
}

TEST(ScriptLines, ATextKeepsAllBlanksBehindTheFirst) {
  BenchSession session;
  session.Do("start");
  panel::Form1.Text1.Visible = true;
  session.Do("type Text1  a b  c ");
  EXPECT_EQ(panel::Form1.Text1.Text.Get(), " a b  c ");
}

TEST(ScriptLines, LineBreaksOfAnAnswerBecomeBlanks) {
  BenchSession session;
  session.Do("start");
  panel::Form1.FlashOl.Caption = "one\r\ntwo\nthree\rfour";
  EXPECT_EQ(session.Run("get FlashOl"), (Lines{"| one two three four", "ok"}));
}

}  // namespace
}  // namespace zelvo::test
