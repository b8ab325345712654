// Clicks that are served during a run: Cancel, other buttons, tabs, the chip list, and the end of the
// program.
#include <gtest/gtest.h>

#include <algorithm>

#include "job.h"

namespace zelvo::test {
namespace {

class Reentrance : public testing::Test {
 protected:
  /// Lines of the log that are no port access and no wait.
  [[nodiscard]] static Lines Course(const Lines& log) {
    Lines course;
    for (const std::string& line : log) {
      const char kind = line[0];
      if (kind != 'W' && kind != 'R' && kind != 'P' && kind != 'S' && kind != 'D' && kind != 'B') {
        course.push_back(line);
      }
    }
    return course;
  }
  Job job;
};

TEST_F(Reentrance, CancelEndsAReadAtTheWordAndTheNextRunIsWhole) {
  job.Begin("PIC18F1220");
  job.Burn(Bytes(0, 4096, 1));
  job.Do("at progress Állapot 7 click Állapot.Command1");
  job.Click("FlashOl");
  EXPECT_EQ(job.LastEvent(), ":  Felhasználói megszakítás");
  EXPECT_EQ(job.session.Look("windows"), (Lines{"MDIForm1", "Form1"}));
  EXPECT_EQ(job.session.Ask("var ReadIndex"), "15");
  job.Click("FlashOl");
  EXPECT_EQ(job.LastEvent(), ":  Flash beolvasás kész.");
  EXPECT_EQ(job.session.Ask("var ReadIndex"), "4097");
}

TEST_F(Reentrance, CancelInAWriteIsIgnored) {
  for (const bool verify : {false, true}) {
    job.Do("untick Check3");
    job.Begin("PIC18F452");
    job.Click("PICTörlés");
    job.Load(Bytes(0, 512, 1));
    if (verify) job.Do("tick Check3");
    job.Do("at progress FlashÍrÁllapot 5 click FlashÍrÁllapot.Command1");
    job.Click("FlashÍr");
    EXPECT_EQ(job.Code(), Bytes(0, 512, 1));
    EXPECT_EQ(job.LastEvent(), ":  Verify Puffer feltöltve");
  }
}

TEST_F(Reentrance, CancelInAWriteDoesNotCancelTheReadThatChecksIt) {
  job.Begin("PIC18F452");
  job.Load(Bytes(0, 512, 1));
  job.Do({"tick Check1", "at progress FlashÍrÁllapot 5 click FlashÍrÁllapot.Command1"});
  job.Click("FlashÍr");
  EXPECT_EQ(job.Review(), EqualText);
}

TEST_F(Reentrance, AReadClickedDuringAWriteRunsToItsEndInsideAndTheRestOfTheWriteIsLost) {
  job.Begin("PIC18F4520");
  const HexImage image = Bytes(0, 512, 1);
  job.Load(image);
  job.Do("at progress FlashÍrÁllapot 17 click FlashOl");
  job.Click("FlashÍr");
  EXPECT_EQ(job.Code(), Between(image, 0, 16 * 16 - 1)) << "the read left the chip without power";
  const Lines log = job.session.Look("list List1");
  ASSERT_GT(log.size(), 5U);
  EXPECT_TRUE(log[0].ends_with(":  Verify Puffer feltöltve"));
  EXPECT_TRUE(log[1].ends_with(":  Flash Írása Kész."));
  EXPECT_TRUE(log[2].ends_with(":  Flash beolvasás kész."));
  EXPECT_TRUE(log[3].ends_with(":  Flash Beolvasása Indult."));
  EXPECT_TRUE(log[4].ends_with(":  Flash Memória Irása Indult."));
  EXPECT_EQ(job.Review(), DifferentText);
}

TEST_F(Reentrance, AnEraseClickedDuringAWriteLeavesABlankChipThatCountsAsWritten) {
  for (const char* chip : {"PIC18F452", "PIC18F4520"}) {
    job.Begin(chip);
    job.Load(Bytes(0, 512, 1));
    job.Do("at progress FlashÍrÁllapot 17 click PICTörlés");
    job.Click("FlashÍr");
    EXPECT_EQ(job.Code(), HexImage{}) << chip;
    EXPECT_EQ(job.LastEvent(), ":  Verify Puffer feltöltve");
    EXPECT_NE(job.session.Ask("var VerifyBuffer(1,1)"), "FFFF");
  }
}

TEST_F(Reentrance, AWriteClickedDuringAWriteWritesAllInside) {
  job.Begin("PIC18F4520");
  const HexImage image = Bytes(0, 512, 1);
  job.Load(image);
  job.Do("at progress FlashÍrÁllapot 9 click FlashÍr");
  job.Click("FlashÍr");
  EXPECT_EQ(job.Code(), image);
  EXPECT_EQ(job.session.Look("windows"), (Lines{"MDIForm1", "Form1"}));
}

TEST_F(Reentrance, AWriteClickedInsideTheHoldOfAnotherEndsBoth) {
  job.Begin("PIC18F4520");
  const HexImage image = Bytes(0, 128, 1);
  job.Load(image);
  // 969 waits of 70 passes lead to the burst's hold, which lasts 2000.
  job.Do("at progress FlashÍrÁllapot 3 at pump 68500 click FlashÍr");
  job.session.BeginWire();
  job.Click("FlashÍr");
  const Lines log = job.session.EndWire();
  EXPECT_EQ(job.Code(), image);
  EXPECT_EQ(std::count(log.begin(), log.end(), "+ FlashÍrÁllapot"), 1) << "one window for both";
}

TEST_F(Reentrance, AReadInsideAReadLeavesTheReviewOfTheInnerOne) {
  job.Begin("PIC18F1220");
  job.Burn(Bytes(0, 4096, 1));
  job.Do("at progress Állapot 100 click FlashOl");
  job.Click("FlashOl");
  EXPECT_EQ(job.session.Ask("var ReadIndex"), std::to_string(4097 + 2 * 1949))
      << "the outer one went on behind the inner one's bytes";
  const HexImage chip = job.Chip();
  char word[16];
  std::snprintf(word, sizeof word, "  %02X%02X  ", chip.at(1), chip.at(0));
  EXPECT_EQ(job.session.Ask("cell FlashOlv.MSFlexGrid1 1 1"), word);
}

TEST_F(Reentrance, AReadInsideAReadOfTheLargestChipsRunsBeyondTheBytesAndIsAFault) {
  job.Begin("PIC18F8722");
  job.Do("at progress Állapot 2 click FlashOl");
  job.session.BeginWire();
  job.Click("FlashOl");
  job.session.EndWire();
  EXPECT_EQ(job.session.Ask("var ReadIndex"), "140001");
  EXPECT_EQ(job.Messages(), Lines{}) << "no fault reaches the operator";
  EXPECT_EQ(job.session.Ask("color Shape2"), "14737632") << "and no chip is left powered";
  job.Click("FlashOl");
  EXPECT_EQ(job.LastEvent(), ":  Flash beolvasás kész.") << "and the program works on";
}

TEST_F(Reentrance, Form1ClosedDuringAReadEndsItAndLeavesNoWindowBehind) {
  job.Begin("PIC18F1220");
  job.Do("at progress Állapot 100 close Form1");
  job.Click("FlashOl");
  EXPECT_EQ(job.session.Look("windows"), Lines{"MDIForm1"});
  job.session.BeginWire();
  job.Do("stop");
  EXPECT_EQ(job.session.EndWire(), Lines{"- MDIForm1"}) << "and no port is touched again";
}

TEST_F(Reentrance, ATabClickedDuringAReadDeselectsTheChipAndTheReadGoesOnToItsEnd) {
  job.Begin("PIC18F1220");
  job.Burn(Bytes(0, 4096, 1));
  job.Do("at progress Állapot 100 tab 1");
  job.Click("FlashOl");
  EXPECT_EQ(job.session.Ask("var ReadIndex"), "4097");
  EXPECT_EQ(job.session.Ask("rows FlashOlv.MSFlexGrid1"), "1") << "no chip, no rows";
  EXPECT_EQ(job.session.Ask("visible FlashOlv.Command1"), "0") << "the page is the mid-range one";
  job.Click("FlashOl");
  EXPECT_EQ(job.Messages(), Lines{"ok ok Nincs PIC kiválasztva!"});
}

TEST_F(Reentrance, ATabClickedDuringAWriteDoesNotShortenIt) {
  for (const bool verify : {false, true}) {
    job.Do({"tab 2", "untick Check3"});
    job.Begin("PIC18F4520");
    job.Click("PICTörlés");
    job.Load(Bytes(0, 512, 1));
    if (verify) job.Do("tick Check3");
    job.Do("at progress FlashÍrÁllapot 9 tab 1");
    job.Click("FlashÍr");
    EXPECT_EQ(job.Code(), Bytes(0, 512, 1));
    EXPECT_EQ(job.session.Ask("var FlashWordMax"), "0");
  }
}

TEST_F(Reentrance, AChipChosenDuringAWriteErasesTheImageUnderIt) {
  job.Begin("PIC18F4520");
  const HexImage image = Bytes(0, 512, 1);
  job.Load(image);
  job.Do("at progress FlashÍrÁllapot 17 choose Combo1 PIC18F4520");
  job.Click("FlashÍr");
  EXPECT_EQ(job.Code(), Between(image, 0, 16 * 16 - 1));
}

TEST_F(Reentrance, ClosingTheProgressWindowByItsFrameChangesNothing) {
  job.Begin("PIC18F1220");
  job.Burn(Bytes(0, 4096, 1));
  job.Do("at progress Állapot 100 close Állapot");
  job.Click("FlashOl");
  EXPECT_EQ(job.session.Ask("var ReadIndex"), "4097");
}

// The end of the program inside a run.

struct End {
  const char* name;
  const char* button;
  const char* when;  ///< of the bench's script
};

std::ostream& operator<<(std::ostream& out, const End& end) {
  return out << end.name;
}

// Waits of 70 passes: 969 lead from the update of the bar to the hold of a burst, 376 through an
// identification and 743 more to the hold of the whole-chip erase.
constexpr End Ends[] = {
    {"InARead", "FlashOl", "at progress Állapot 50 at pump 77 stop"},
    {"InTheUpdateOfTheBar", "FlashOl", "at progress Állapot 50 at pump 1 stop"},
    {"InTheEraseOfAWrite", "FlashÍr", "at pump 60000 stop"},
    {"InABurst", "FlashÍr", "at progress FlashÍrÁllapot 3 at pump 5000 stop"},
    {"InTheHoldOfABurst", "FlashÍr", "at progress FlashÍrÁllapot 3 at pump 68500 stop"},
    {"InTheHoldOfAnErase", "PICTörlés", "at pump 85000 stop"},
    {"InTheIdentification", "PICTörlés", "at pump 700 stop"},
};

class ProgramEnd : public testing::TestWithParam<std::tuple<BoardKind, End>> {};

TEST_P(ProgramEnd, BringsTheLinesToIdleAndTouchesNoPortAfterwards) {
  const auto& [kind, end] = GetParam();
  Job job(kind);
  job.Begin("PIC18F4520");
  job.Load(Bytes(0, 512, 1));
  job.Do(end.when);
  job.session.BeginWire();
  job.Click(end.button);
  const Lines log = job.session.EndWire();
  ASSERT_FALSE(log.empty());
  EXPECT_EQ(log.back(), "- MDIForm1");
  // The last port accesses are those of the idle state, in the middle of nothing else.
  const auto lastAccess = std::find_if(
      log.rbegin(), log.rend(), [](const std::string& line) { return line[0] == 'W' || line[0] == 'R'; });
  const std::size_t last = static_cast<std::size_t>(log.rend() - lastAccess);  // lines up to it
  if (kind.com) {
    ASSERT_GE(last, 6U);
    EXPECT_TRUE(log[last - 6].starts_with("R 03FC"));
    EXPECT_TRUE(log[last - 5].starts_with("W 03FC"));
    EXPECT_TRUE(log[last - 4].starts_with("R 03FC"));
    EXPECT_EQ(log[last - 3], "W 03FC 00");
    EXPECT_TRUE(log[last - 2].starts_with("R 03FB"));
    EXPECT_EQ(log[last - 1], "W 03FB 00");
  } else {
    EXPECT_TRUE(log[last - 2].starts_with("R 0378"));
    EXPECT_EQ(log[last - 1], "W 0378 03") << "clock and data are active low on this board";
  }
  for (std::size_t i = last; i < log.size(); ++i) EXPECT_TRUE(log[i].starts_with("- ")) << log[i];
  EXPECT_EQ(job.session.Look("windows"), Lines{});
  EXPECT_EQ(job.session.Refused("click FlashOl"), "the program has ended");
}

INSTANTIATE_TEST_SUITE_P(Run, ProgramEnd,
                         testing::Combine(testing::Values(ShippedBoard(), SerialBoard()),
                                          testing::ValuesIn(Ends)),
                         [](const auto& run) {
                           return std::string(std::get<0>(run.param).name) + std::get<1>(run.param).name;
                         });

TEST_F(Reentrance, TheProgramEndsOutOfARunInsideARun) {
  job.Begin("PIC18F4520");
  job.Load(Bytes(0, 512, 1));
  job.Do({"at progress FlashÍrÁllapot 9 click FlashOl", "at progress Állapot 20 stop"});
  job.session.BeginWire();
  job.Click("FlashÍr");
  const Lines log = job.session.EndWire();
  EXPECT_EQ(log.back(), "- MDIForm1");
  const Lines course = Course(log);
  ASSERT_GE(course.size(), 4U);
  EXPECT_EQ(Lines(course.end() - 4, course.end()),
            (Lines{"- Állapot", "- FlashÍrÁllapot", "- Form1", "- MDIForm1"}));
}

TEST_F(Reentrance, AWriteThatWasCutOffIsWholeAfterAnEraseAndANewWrite) {
  // A fresh start of the program needs another process: the chip alone shows what was left.
  job.Begin("PIC18F4520");
  const HexImage image = Bytes(0, 512, 1);
  job.Load(image);
  job.Do("at progress FlashÍrÁllapot 9 stop");
  job.Click("FlashÍr");
  EXPECT_EQ(job.Code(), Between(image, 0, 8 * 16 - 1));
}

}  // namespace
}  // namespace zelvo::test
