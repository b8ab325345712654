// The check before every operation: which questions come, with which words, and what a No leaves behind.
#include <gtest/gtest.h>

#include <algorithm>

#include "devices/identification.h"
#include "devices/selection.h"
#include "icsp/conversions.h"
#include "image/buffers.h"
#include "link/delays.h"
#include "link/run_state.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using panel::Form1;

struct Verb {
  const char* name;
  const char* button;
  const char* ending;
  const char* firstLine;  ///< of the operation in the event list
};

std::ostream& operator<<(std::ostream& out, const Verb& verb) {
  return out << verb.name;
}

constexpr Verb Verbs[] = {
    {"Read", "FlashOl", " Folytatod az olvasást?", ":  Flash Beolvasása Indult."},
    {"Write", "FlashÍr", " Folytatod az égetést?", ":  Flash Memória Irása Indult."},
    {"Erase", "PICTörlés", " Folytatod az törlést?", ":  Teljes Memória törlés indult."},
};

class Preflight : public testing::TestWithParam<Verb> {
 protected:
  void SetUp() override { session.Do({"board lpt", "start", "tab 2"}); }
  /// The lines of a click on the operation's button.
  Lines Click() { return session.WireOf(std::string("click ") + GetParam().button); }
  [[nodiscard]] static bool Ran(const Lines& log) {
    return std::any_of(log.begin(), log.end(), [](const std::string& line) {
      return line.starts_with("L List1") && line.ends_with(GetParam().firstLine);
    });
  }
  [[nodiscard]] std::string Question(const char* what) const { return std::string(what) + GetParam().ending; }

  BenchSession session;
};

TEST_P(Preflight, WithoutAChipSelectedNothingTouchesThePort) {
  session.Do("socket PIC18F452");
  const std::string text = "ok ok Nincs PIC kiválasztva!";
  EXPECT_EQ(Click(), Lines{"M " + text});
  EXPECT_EQ(session.Look("messages"), Lines{text});
  EXPECT_EQ(icsp::LoadFailed, std::string(GetParam().name) == "Erase" ? 1 : 0);
}

TEST_P(Preflight, TheChipThatIsSelectedRaisesNoQuestion) {
  session.Do({"socket PIC18F1220", "choose Combo1 PIC18F1220"});
  const Lines log = Click();
  EXPECT_TRUE(Ran(log));
  EXPECT_EQ(session.Look("messages"), Lines{});
  EXPECT_EQ(devices::SelectedName, "PIC18F1220");
  EXPECT_EQ(devices::DetectedName, "PIC18F1220");
  EXPECT_FALSE(devices::SilentIdentify);
  EXPECT_FALSE(panel::PICAzonos.Loaded()) << "the identification shows no window of its own";
}

TEST_P(Preflight, TheIdentificationStandsBeforeTheOperationAndLogsNothing) {
  session.Do({"socket PIC18F1220", "choose Combo1 PIC18F1220"});
  const Lines log = Click();
  const auto firstLine =
      std::find_if(log.begin(), log.end(), [](const std::string& line) { return line[0] == 'L'; });
  ASSERT_NE(firstLine, log.end());
  EXPECT_TRUE(firstLine->ends_with(GetParam().firstLine));
  // Entries: the supply rises alone once in each.
  EXPECT_EQ(std::count(log.begin(), firstLine, "W 0378 04"), std::string(GetParam().name) == "Write" ? 3 : 2)
      << "the identification, the write's own erase, the operation";
}

struct Situation {
  const char* socket;
  const char* question;
  const char* detected;
};

constexpr Situation Situations[] = {
    {"socket none", "Nem érzékelek PIC-et!", "PIC Kiválasztása"},
    {"socket PIC18F1220 id=0000", "Nem érzékelek PIC-et!", "PIC Kiválasztása"},
    {"socket PIC18F1220 id=FFFF", "Nem érzékelek PIC-et!", "PIC Kiválasztása"},
    {"socket PIC18F1220 id=3FE0", "Ismeretlen_PIC!", "Ismeretlen_PIC"},
    {"socket PIC18F1320", "A detektált PIC nem azonos a kiválasztottal!", "PIC18F1320"},
};

TEST_P(Preflight, ANoBringsTheLinesToIdleAndLeavesNoLogLine) {
  session.Do("choose Combo1 PIC18F1220");
  image::VerifyBuffer(1, 1) = "1234";
  for (const Situation& it : Situations) {
    session.Do(it.socket);
    const Lines log = Click();
    EXPECT_FALSE(Ran(log)) << it.socket;
    EXPECT_FALSE(std::any_of(log.begin(), log.end(), [](const auto& line) { return line[0] == 'L'; }));
    const std::string message = "yesno no " + Question(it.question);
    ASSERT_GE(log.size(), 3U);
    EXPECT_EQ(Lines(log.end() - 3, log.end()), (Lines{"M " + message, "R 0378 00", "W 0378 00"}))
        << it.socket;
    EXPECT_EQ(session.Look("messages"), Lines{message});
    EXPECT_EQ(session.Ask("var DetectedName"), it.detected);
    EXPECT_EQ(image::VerifyBuffer(1, 1), "1234") << "the verify buffer stays";
  }
}

TEST_P(Preflight, AYesGoesOnAndNoSecondQuestionComes) {
  session.Do("choose Combo1 PIC18F1220");
  for (const Situation& it : Situations) {
    session.Do({it.socket, "answer yes"});
    const Lines log = Click();
    EXPECT_TRUE(Ran(log)) << it.socket;
    EXPECT_EQ(session.Look("messages"), Lines{"yesno yes " + Question(it.question)}) << it.socket;
  }
}

TEST_P(Preflight, AnotherRevisionOfTheChipIsTheSameChip) {
  session.Do({"socket PIC18F1220 id=07FF", "choose Combo1 PIC18F1220"});
  EXPECT_TRUE(Ran(Click()));
  EXPECT_EQ(session.Look("messages"), Lines{});
}

TEST_P(Preflight, TheNameIsThatOfTheComboAtTheClick) {
  session.Do({"socket PIC18F1220", "choose Combo1 PIC18F1220", "choose Combo1 PIC18F12X0"});
  EXPECT_FALSE(Ran(Click()));
  EXPECT_EQ(devices::SelectedName, "PIC18F12X0");
  EXPECT_EQ(session.Look("messages"),
            Lines{"yesno no " + Question("A detektált PIC nem azonos a kiválasztottal!")});
}

INSTANTIATE_TEST_SUITE_P(For, Preflight, testing::ValuesIn(Verbs),
                         [](const auto& verb) { return std::string(verb.param.name); });

class Buttons : public testing::Test {
 protected:
  void SetUp() override {
    session.Do({"board lpt", "start", "tab 2", "socket PIC18F1220", "choose Combo1 PIC18F1220"});
  }
  BenchSession session;
};

TEST_F(Buttons, AFlashWriteTakesTheSpeedSettingBeforeItsQuestions) {
  link::SpeedSetting = 30;
  link::WaitCount = 5;
  const Lines log = session.WireOf("click FlashÍr");
  for (const std::string& line : log) {
    if (line.starts_with("P ")) {
      ASSERT_EQ(line, "P 30");
    }
  }
}

TEST_F(Buttons, AReadsIdentificationRunsAtTheSpeedInForce) {
  link::SpeedSetting = 30;
  link::WaitCount = 5;
  const Lines log = session.WireOf("click FlashOl");
  const auto wait = std::find_if(log.begin(), log.end(), [](const auto& line) { return line[0] == 'P'; });
  ASSERT_NE(wait, log.end());
  EXPECT_EQ(*wait, "P 5");
}

TEST_F(Buttons, InAWholeChipRunTheFlashWriteAsksNothing) {
  session.Do("socket none");
  link::WholeChipRun = true;
  link::WaitCount = 5;
  link::SpeedSetting = 20;
  const Lines log = session.WireOf("click FlashÍr");
  EXPECT_EQ(session.Look("messages"), Lines{});
  EXPECT_EQ(link::WaitCount, 20);
  EXPECT_TRUE(std::any_of(log.begin(), log.end(),
                          [](const auto& line) { return line.ends_with(":  Flash Írása Kész."); }));
  EXPECT_EQ(std::count(log.begin(), log.end(), "W 0378 04"), 2) << "no identification";
}

TEST_F(Buttons, InAWholeChipRunTheFlashWriteStillWantsAChip) {
  session.Do({"tab 1", "tab 2"});
  link::WholeChipRun = true;
  EXPECT_EQ(session.WireOf("click FlashÍr"), Lines{"M ok ok Nincs PIC kiválasztva!"});
}

TEST_F(Buttons, TheEraseResetsTheVerifyBufferWholeAndWithoutALogLine) {
  image::VerifyBuffer(1, 1) = "1234";
  image::VerifyBuffer(8, 66000) = "5678";
  session.Do("click PICTörlés");
  EXPECT_EQ(image::VerifyBuffer(1, 1), "FFFF");
  EXPECT_EQ(image::VerifyBuffer(8, 66000), "FFFF");
  EXPECT_TRUE(session.Look("list List1").front().ends_with(":  PIC Törlése kész."));
}

TEST_F(Buttons, TheOperationsOfThePic18PageLogThereOnly) {
  const Lines other = session.Look("list List4");
  for (const char* button : {"click PICTörlés", "click FlashÍr", "click FlashOl"}) session.Do(button);
  EXPECT_EQ(session.Look("list List4"), other);
  EXPECT_GT(session.Look("list List1").size(), other.size() + 5);
}

}  // namespace
}  // namespace zelvo::test
