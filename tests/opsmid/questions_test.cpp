// What the buttons of the mid-range page ask before they run, and what a No leaves behind.
#include "devices/identification.h"
#include "devices/mid_range_identification.h"
#include "mid_desk.h"
#include "opsmid/eeprom.h"

namespace zelvo::test {
namespace {

using devices::MidEraseRun;

/// The kinds of questions: of a read, a write, an erase, an EEPROM write.
enum class Kind { Read, Write, Erase, EepromWrite };

struct Button {
  const char* name;
  Kind kind;
  const char* firstLine;  ///< of the operation
};
std::ostream& operator<<(std::ostream& out, const Button& button) {
  return out << button.name;
}
const Button Buttons[] = {
    {"Command8", Kind::Read, ":  Flash Beolvasása Indult."},
    {"Command13", Kind::Read, ":  Config szó beolvasása Indult."},
    {"Command15", Kind::Read, ":  User ID Location bájtok beolvasása indult."},
    {"Command17", Kind::Read, ":  EEPROM Beolvasása Indult."},
    {"Command19", Kind::Read, ":  Flash Beolvasása Indult."},
    {"Command11", Kind::Write, ":  Flash Memória Irása Indult."},
    {"Command21", Kind::Write, ":  Flash Memória Irása Indult."},
    {"Command12", Kind::Erase, ":  PIC Törlése Indult."},
    {"Command18", Kind::EepromWrite, ":  EEPROM Írása Indult."},
};

/// The word at 2006h and the question that it raises when PIC16F84A is chosen.
struct Situation {
  int word;
  int question;  ///< 0 to 2
};
// Line low, line high, a value in no table, another chip.
const Situation Situations[] = {{0x0000, 0}, {0x3FFF, 0}, {300 << 5, 1}, {0x07C0, 2}};

const char* const Questions[4][3] = {
    {"Nem érzékelek PIC-et! Folytatod az olvasást?", "Ismeretlen_PIC! Folytatod az olvasást?",
     "A detektált PIC nem azonos a kiválasztottal! Folytatod az olvasást?"},
    {"Nem érzékelek PIC-et! Folytatod az égetést?", "Ismeretlen_PIC! Folytatod az égetést?",
     "A detektált PIC nem azonos a kiválasztottal! Folytatod az égetést?"},
    {"Nem érzékelek PIC-et! Folytatod a törlést?", "Ismeretlen_PIC! Folytatod az olvasást?",
     "A detektált PIC nem azonos a kiválasztottal! Folytatod a törlést?"},
    {"Nem érzékelek PIC-et! Folytatod az égetést?", "Ismeretlen_PIC! Folytatod az olvasást?",
     "A detektált PIC nem azonos a kiválasztottal! Folytatod az égetést?"},
};

class MidQuestions : public testing::TestWithParam<Button> {
 protected:
  MidQuestions() : chip(PutAnsweringChip(desk.session)) { desk.Choose(MidChipOf("16F84A")); }

  /// The run up to the question's answer.
  MidWire Identified(int word) {
    MidWire model = desk.Model();
    model.PowerOn();
    // An erase is already marked as running: the identification stays on the entry that stands.
    model.Identify(word, GetParam().kind != Kind::Erase);
    return model;
  }
  [[nodiscard]] static std::string Question(const Situation& it) {
    return Questions[static_cast<int>(GetParam().kind)][it.question];
  }
  [[nodiscard]] static bool Ran(const Lines& log) {
    return std::ranges::any_of(
        log, [](const auto& line) { return line[0] == 'L' && line.ends_with(GetParam().firstLine); });
  }

  MidDesk desk;
  AnsweringChip& chip;
};
INSTANTIATE_TEST_SUITE_P(Buttons, MidQuestions, testing::ValuesIn(Buttons),
                         [](const auto& button) { return std::string(button.param.name); });

TEST_P(MidQuestions, ANoEndsTheOperationWithTheLinesAtIdle) {
  for (const Situation& it : Situations) {
    chip.Word(it.word);
    MidWire model = Identified(it.word);
    model.Ask(false, Question(it));
    model.PowerOff();
    // A No to the second question of an EEPROM write idles the lines, and the button does so once more.
    if (GetParam().kind == Kind::EepromWrite && it.question == 1) model.PowerOff();
    EXPECT_TRUE(SameLog(model.Log(), desk.Click(GetParam().name))) << it.word;
    EXPECT_EQ(MidEraseRun, GetParam().kind == Kind::Erase);
    EXPECT_FALSE(link::WholeChipRun);
    EXPECT_FALSE(devices::SilentIdentify);
    EXPECT_EQ(desk.session.Look("windows"), (Lines{"MDIForm1", "Form1"}));
  }
}

TEST_P(MidQuestions, AYesGoesOnAndNoSecondQuestionComes) {
  for (const Situation& it : Situations) {
    MidDesk::Rest();
    MidEraseRun = false;
    chip.Word(it.word);
    desk.session.Do({"answer yes", "messages"});
    EXPECT_TRUE(Ran(desk.Click(GetParam().name))) << it.word;
    EXPECT_EQ(desk.session.Look("messages"), Lines{"yesno yes " + Question(it)});
    EXPECT_FALSE(MidEraseRun);
  }
}

TEST_P(MidQuestions, TheChosenChipOfAnyRevisionRaisesNone) {
  for (int revision = 0; revision < 32; revision += 31) {
    MidDesk::Rest();
    chip.Word(0x0560 + revision);
    EXPECT_TRUE(Ran(desk.Click(GetParam().name)));
    EXPECT_EQ(desk.session.Look("messages"), Lines{});
    EXPECT_EQ(devices::DetectedName, "PIC16F84A");
    EXPECT_EQ(devices::SelectedName, "PIC16F84A");
    EXPECT_FALSE(panel::PICAzonos.Loaded());
  }
}

TEST_P(MidQuestions, ThePic12F683IsAlwaysTakenForAnother) {
  desk.Choose(MidChipOf("12F683"));
  chip.Word(0x0460);
  desk.Click(GetParam().name);
  EXPECT_EQ(devices::DetectedName, "PIC16F683");
  EXPECT_EQ(desk.session.Look("messages"),
            Lines{"yesno no " + std::string(Questions[static_cast<int>(GetParam().kind)][2])});
}

TEST_P(MidQuestions, WithoutAChipSelectedNothingTouchesThePort) {
  desk.session.Do("tab 1");
  EXPECT_EQ(desk.Click(GetParam().name), Lines{"M ok ok Nincs PIC kiválasztva!"});
}

TEST_P(MidQuestions, TheChipListsTextIsTakenOverAfterTheSelectionLeftTheOtherLists) {
  ASSERT_EQ(devices::SelectedName, "PIC Kiválasztása") << "of the PIC18 page's list";
  chip.Word(0x0560);
  desk.Click(GetParam().name);
  EXPECT_EQ(devices::SelectedName, "PIC16F84A");
}

class EepromWriteQuestions : public testing::Test {
 protected:
  MidDesk desk;
};

TEST_F(EepromWriteQuestions, ANoToTheFirstOrThirdLeavesTheLinesAsTheyAreAndToTheSecondIdlesThem) {
  AnsweringChip& chip = PutAnsweringChip(desk.session);
  desk.Choose(MidChipOf("16F84A"));
  for (const Situation& it : Situations) {
    MidDesk::Rest();
    chip.Word(it.word);
    MidWire model = desk.Model();
    model.PowerOn();
    model.Identify(it.word);
    model.Ask(false, Questions[static_cast<int>(Kind::EepromWrite)][it.question]);
    if (it.question == 1) model.PowerOff();
    EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::WriteMidEeprom))) << it.word;
    EXPECT_EQ(desk.session.Ask("color Shape1"), it.question == 1 ? "14737632" : "255");
  }
}

class MidQuestionsOn : public testing::TestWithParam<BoardKind> {};
INSTANTIATE_TEST_SUITE_P(Board, MidQuestionsOn, testing::ValuesIn(BoardKinds()), BoardName);

TEST_P(MidQuestionsOn, ANoBringsTheLinesOfEveryBoardToIdle) {
  MidDesk desk(GetParam());
  desk.Choose(MidChipOf("16F84A"));
  MidWire model = desk.Model();
  model.PowerOn();
  model.Identify(ErasedMid);
  model.Ask(false, "Nem érzékelek PIC-et! Folytatod az olvasást?");
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command19")));
}

}  // namespace
}  // namespace zelvo::test
