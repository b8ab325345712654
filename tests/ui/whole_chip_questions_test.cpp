// The buttons of the EEPROM and of the whole chip on the PIC18 page: what they ask first, and what a No
// leaves behind.
#include <gtest/gtest.h>

#include <algorithm>

#include "devices/identification.h"
#include "devices/selection.h"
#include "link/run_state.h"
#include "panel/secondary_windows.h"
#include "pic18_page.h"

namespace zelvo::test {
namespace {

struct Button {
  const char* name;
  bool read;
  bool wantsChip;
  const char* firstLine;
};
std::ostream& operator<<(std::ostream& out, const Button& button) {
  return out << button.name;
}

class Questions : public Pic18Page, public testing::WithParamInterface<Button> {
 protected:
  Lines Click() { return session.WireOf(std::string("click ") + GetParam().name); }
  [[nodiscard]] static bool Ran(const Lines& log) {
    return std::ranges::any_of(
        log, [](const auto& line) { return line[0] == 'L' && EventText(line) == GetParam().firstLine; });
  }
  [[nodiscard]] static std::string Question(const char* what) {
    return std::string(what) + (GetParam().read ? " Folytatod az olvasást?" : " Folytatod az égetést?");
  }
};

struct Situation {
  const char* socket;
  const char* question;
};
constexpr Situation Situations[] = {
    {"socket none", "Nem érzékelek PIC-et!"},
    {"socket PIC18F1220 id=3FE0", "Ismeretlen_PIC!"},
    {"socket PIC18F1320", "A detektált PIC nem azonos a kiválasztottal!"},
};

TEST_P(Questions, WithNoChipSelectedAllButTheWholeWriteRefuseAndTouchNothing) {
  session.Do("socket none");
  const Lines log = Click();
  if (GetParam().wantsChip) {
    EXPECT_EQ(log, Lines{"M ok ok Nincs PIC kiválasztva!"});
  } else {
    EXPECT_EQ(session.Look("messages"), Lines{"yesno no " + Question("Nem érzékelek PIC-et!")});
  }
}

TEST_P(Questions, TheChosenChipRaisesNone) {
  Take("PIC18F1220");
  const Lines log = Click();
  EXPECT_TRUE(Ran(log));
  EXPECT_EQ(session.Look("messages"), Lines{});
  EXPECT_EQ(devices::SelectedName, "PIC18F1220");
  EXPECT_EQ(devices::DetectedName, "PIC18F1220");
  EXPECT_FALSE(devices::SilentIdentify);
  EXPECT_FALSE(panel::PICAzonos.Loaded());
}

TEST_P(Questions, ANoBringsTheLinesToIdleAndLeavesNoLogLine) {
  Take("PIC18F1220");
  for (const Situation& it : Situations) {
    session.Do(it.socket);
    const Lines log = Click();
    const std::string message = "yesno no " + Question(it.question);
    EXPECT_EQ(Course(log), Lines{"M " + message}) << it.socket;
    ASSERT_GE(log.size(), 2U);
    EXPECT_EQ(Lines(log.end() - 2, log.end()), (Lines{"R 0378 00", "W 0378 00"})) << it.socket;
    EXPECT_EQ(Count(log, VddAlone), 1) << "the identification alone";
    EXPECT_EQ(session.Look("messages"), Lines{message});
    EXPECT_FALSE(link::WholeChipRun);
    EXPECT_EQ(session.Look("windows"), (Lines{"MDIForm1", "Form1"}));
  }
}

TEST_P(Questions, AYesGoesOnAndNoSecondQuestionComes) {
  Take("PIC18F1220");
  for (const Situation& it : Situations) {
    session.Do({it.socket, "answer yes"});
    EXPECT_TRUE(Ran(Click())) << it.socket;
    EXPECT_EQ(session.Look("messages"), Lines{"yesno yes " + Question(it.question)});
  }
}

INSTANTIATE_TEST_SUITE_P(Of, Questions,
                         testing::Values(Button{"EEPROMOlvas", true, true, ":  EEPROM Beolvasása Indult."},
                                         Button{"EEPROMÍr", false, true, ":  EEPROM Írása Indult."},
                                         Button{"PICOlvas", true, true, ":  Flash Beolvasása Indult."},
                                         Button{"PICÍrás", false, false, ":  Flash Memória Irása Indult."}),
                         [](const auto& button) {
                           return button.index == 0   ? "EepromRead"
                                  : button.index == 1 ? "EepromWrite"
                                  : button.index == 2 ? "WholeRead"
                                                      : "WholeWrite";
                         });

using EepromButtons = Pic18Page;

TEST_F(EepromButtons, InAWholeChipRunTheWriteAsksNothingAndDoesNotIdentifyButStillWantsAChip) {
  Take("PIC18F1220");
  session.Do("socket none");
  link::WholeChipRun = true;
  const Lines log = session.WireOf("click EEPROMÍr");
  EXPECT_EQ(Course(log), EepromWriteSteps);
  EXPECT_EQ(Count(log, VddAlone), 2) << "the erase and the write";
  session.Do({"tab 1", "tab 2"});
  EXPECT_EQ(session.WireOf("click EEPROMÍr"), Lines{"M ok ok Nincs PIC kiválasztva!"});
}

TEST_F(EepromButtons, InAWholeChipRunTheReadAsksAllTheSame) {
  Take("PIC18F1220");
  session.Do("socket none");
  link::WholeChipRun = true;
  session.Do("click EEPROMOlvas");
  EXPECT_EQ(session.Look("messages"), Lines{"yesno no Nem érzékelek PIC-et! Folytatod az olvasást?"});
}

TEST_F(EepromButtons, AChipWithoutEepromIsIdentifiedFirst) {
  Take("PIC18F2410");
  EXPECT_EQ(Course(session.WireOf("click EEPROMOlvas")),
            (Lines{":  EEPROM Beolvasása Indult.", "M ok ok Ebben a PIC-ben nincs EEPROM!"}));
  EXPECT_EQ(Course(session.WireOf("click EEPROMÍr")),
            (Lines{":  EEPROM Írása Indult.", "M ok ok Ebben a PIC-ben nincs EEPROM!"}));
}

}  // namespace
}  // namespace zelvo::test
