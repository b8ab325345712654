// Reading and writing a whole PIC18: the order of the steps, and what a Cancel, another click, a fault or the
// end of the program leaves behind.
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "image/buffers.h"
#include "link/delays.h"
#include "link/run_state.h"
#include "panel/secondary_windows.h"
#include "pic18_page.h"

namespace zelvo::test {
namespace {

const Lines FlashReadSteps = {":  Flash Beolvasása Indult.", "+ Állapot", "- Állapot",
                              ":  Flash beolvasás kész.", "+ FlashOlv"};
const Lines EepromReadSteps = {":  EEPROM Beolvasása Indult.", "+ EEE_Olv_Állapot", "- EEE_Olv_Állapot",
                               "+ EEPROM_Beolvas", ":  EEPROM beolvasás kész."};
const Lines IdReadSteps = {":  ID Location bájtok beolvasása indult.", ":  ID Location kiolvasása kész.",
                           "+ IDLocO"};
const Lines ConfigReadSteps = {":  Configbájtok beolvasása Indult.", "+ Config_Beolvas",
                               ":  Configbájtok beolvasása Kész."};
const Lines FlashWriteSteps = {":  Flash Memória Irása Indult.", "+ FlashÍrÁllapot", "- FlashÍrÁllapot",
                               ":  Flash Írása Kész.", ":  Verify Puffer feltöltve"};
const Lines IdWriteSteps = {":  ID Location bájtok Írása indult.", ":  ID Location bájtok Írása Kész."};
const Lines ConfigWriteSteps = {":  Config Bájtok Irása Indult.", ":  Config Bájtok Irása Kész."};
const Lines WriteSteps = FlashWriteSteps + EepromWriteSteps + IdWriteSteps + ConfigWriteSteps;

using WholeChip = Pic18Page;

TEST_F(WholeChip, AReadGoesThroughAllMemoriesAndOffersToCloseTheReviews) {
  const Lines steps =
      FlashReadSteps + EepromReadSteps + IdReadSteps + ConfigReadSteps + Lines{"+ Összes_Bezárása"};
  for (const char* chip : {"PIC18F1220", "PIC18F452", "PIC18F4550"}) {
    Take(chip);
    const Lines log = session.WireOf("click PICOlvas");
    EXPECT_EQ(Course(log), steps) << chip;
    EXPECT_EQ(Count(log, VddAlone), 5) << "identification and four steps";
    EXPECT_TRUE(panel::Összes_Bezárása.Loaded());
    EXPECT_FALSE(link::WholeChipRun);
    EXPECT_EQ(link::WaitCount, 2);
    session.Do("click Összes_Bezárása.Command1");
  }
}

TEST_F(WholeChip, AWriteEndsWithTheConfigurationAndErasesTheCodeFirst) {
  struct Case {
    const char* chip;
    int holds;        // of 6 ms, in a full write
    int verifyHolds;  // and in verify mode
  };
  // Two for each code block, two for the EEPROM and two for the configuration; the older chips have none.
  for (const Case& it : {Case{"PIC18F1220", 0, 0}, Case{"PIC18F452", 0, 0}, Case{"PIC18F4550", 10 + 4, 4}}) {
    for (const bool verify : {false, true}) {
      session.Do(verify ? "tick Check3" : "untick Check3");
      Take(it.chip);
      image::EepromBuffer(1, 1) = "12";
      const Lines log = session.WireOf("click PICÍrás");
      EXPECT_EQ(Course(log), WriteSteps) << it.chip;
      EXPECT_EQ(Count(log, VddAlone), verify ? 6 : 7)
          << "identification, code erase, Flash, EEPROM erase, EEPROM, ID, configuration";
      EXPECT_EQ(Count(log, "S11"), verify ? it.verifyHolds : it.holds) << it.chip;
      EXPECT_FALSE(panel::Összes_Bezárása.Loaded());
      EXPECT_EQ(link::WaitCount, 2);
    }
  }
}

TEST_F(WholeChip, WithTheAutomaticCheckEachStepIsReadBackAtOnce) {
  Take("PIC18F452");
  session.Do("tick Check1");
  EXPECT_EQ(Course(session.WireOf("click PICÍrás")), FlashWriteSteps + FlashReadSteps + EepromWriteSteps +
                                                         EepromReadSteps + IdWriteSteps + IdReadSteps +
                                                         ConfigWriteSteps + ConfigReadSteps);
}

TEST_F(WholeChip, TheEightChipsWithoutEepromGetNoEepromStep) {
  for (const char* number : {"2410", "2510", "4410", "4510", "2515", "2610", "4515", "4610"}) {
    Take(std::string("PIC18F") + number);
    image::EepromBuffer(1, 1) = "12";
    const Lines read = session.WireOf("click PICOlvas");
    EXPECT_EQ(Course(read), FlashReadSteps + IdReadSteps + ConfigReadSteps + Lines{"+ Összes_Bezárása"});
    EXPECT_EQ(Mentions(read, "EEPROM"), 0) << number;
    EXPECT_EQ(Count(read, VddAlone), 4) << number;
    const Lines write = session.WireOf("click PICÍrás");
    EXPECT_EQ(Mentions(write, "EEPROM"), 0) << number;
    EXPECT_EQ(Mentions(write, "EEE"), 0) << number;
    EXPECT_EQ(Count(write, VddAlone), 5) << number;
    EXPECT_EQ(session.Look("messages"), Lines{});
    session.Do("click Összes_Bezárása.Command1");
  }
}

/// Notes whether a whole-chip write counts as running when a line is logged.
class FlagWitness : public panel::Witness {
 public:
  FlagWitness() { panel::witnesses.push_back(this); }
  FlagWitness(const FlagWitness&) = delete;
  FlagWitness& operator=(const FlagWitness&) = delete;
  ~FlagWitness() override { std::erase(panel::witnesses, static_cast<panel::Witness*>(this)); }
  void LineLogged(panel::ListBox&, const std::string&) override { Flags.push_back(link::WholeChipRun); }
  std::vector<bool> Flags;
};

TEST_F(WholeChip, TheFlagStandsThroughoutAWriteAndNeverInARead) {
  Take("PIC18F452");
  FlagWitness witness;
  session.Do("click PICÍrás");
  EXPECT_EQ(witness.Flags, std::vector<bool>(9, true));
  EXPECT_FALSE(link::WholeChipRun);
  witness.Flags.clear();
  session.Do("click PICOlvas");
  EXPECT_EQ(witness.Flags, std::vector<bool>(witness.Flags.size(), false));
  EXPECT_GE(witness.Flags.size(), 8U);
}

TEST_F(WholeChip, TheFlagIsNotSetYetWhileTheQuestionsAreAsked) {
  Take("PIC18F452");
  session.Do("at pump 10 var WholeChipRun");
  const Lines answers = session.Run("click PICÍrás");
  ASSERT_GE(answers.size(), 2U);
  EXPECT_EQ(answers[0], "| 0") << "inside the identification";
}

TEST_F(WholeChip, WithNoChipChosenAYesRunsEveryStepOfAWrite) {
  session.Do({"socket none", "answer yes"});
  const Lines log = session.WireOf("click PICÍrás");
  EXPECT_EQ(Mentions(log, "Nincs PIC kiválasztva!"), 0);
  EXPECT_EQ(Mentions(log, ":  Flash Memória Irása Indult."), 1);
  EXPECT_EQ(Mentions(log, ":  EEPROM Írása kész."), 1);
  EXPECT_EQ(Mentions(log, ":  ID Location bájtok Írása Kész."), 1);
  EXPECT_EQ(Mentions(log, ":  Config Bájtok Irása Kész."), 1);
  EXPECT_FALSE(link::WholeChipRun);
}

TEST_F(WholeChip, AChipNameThatATabLeftInTheListIsEnoughForAWriteButNotForARead) {
  Take("PIC18F452");
  session.Do({"tab 1", "tab 2"});
  EXPECT_EQ(session.WireOf("click PICOlvas"), Lines{"M ok ok Nincs PIC kiválasztva!"});
  session.Look("messages");
  const Lines log = session.WireOf("click PICÍrás");
  EXPECT_EQ(session.Look("messages"), Lines{});
  EXPECT_EQ(Course(log), WriteSteps);
}

TEST_F(WholeChip, ACancelOfOneReadLeavesTheStepsBehindIt) {
  Take("PIC18F452");
  session.Do("at progress Állapot 3 click Állapot.Command1");
  const Lines flash = {":  Flash Beolvasása Indult.", "+ Állapot", "- Állapot",
                       ":  Felhasználói megszakítás"};
  const Lines last = {"+ Összes_Bezárása"};
  EXPECT_EQ(Course(session.WireOf("click PICOlvas")),
            flash + EepromReadSteps + IdReadSteps + ConfigReadSteps + last);
  session.Do(
      {"click Összes_Bezárása.Command1", "at progress EEE_Olv_Állapot 0 click EEE_Olv_Állapot.Command1"});
  const Lines eeprom = {":  EEPROM Beolvasása Indult.", "+ EEE_Olv_Állapot", "- EEE_Olv_Állapot",
                        ":  Felhasználói megszakítás!"};
  EXPECT_EQ(Course(session.WireOf("click PICOlvas")),
            FlashReadSteps + eeprom + IdReadSteps + ConfigReadSteps + last);
}

TEST_F(WholeChip, ATabClickedDuringAReadCostsTheConfigurationAlone) {
  Take("PIC18F452");
  session.Do({"at progress EEE_Olv_Állapot 3 tab 1", "at progress EEE_Olv_Állapot 4 tab 2"});
  const Lines last = {"M ok ok Nincs PIC kiválasztva!", "+ Összes_Bezárása"};
  EXPECT_EQ(Course(session.WireOf("click PICOlvas")), FlashReadSteps + EepromReadSteps + IdReadSteps + last);
}

TEST_F(WholeChip, ClosingTheProgramEndsTheSequenceWithTheLinesAtIdle) {
  Take("PIC18F452");
  session.Do("at progress EEE_Ír_Állapot 2 stop");
  const Lines log = session.WireOf("click PICÍrás");
  const auto idle = std::find(log.rbegin(), log.rend(), "W 0378 00");
  ASSERT_NE(idle, log.rend());
  EXPECT_EQ(Lines(idle.base(), log.end()), (Lines{"- EEE_Ír_Állapot", "- Form1", "- MDIForm1"}));
  EXPECT_EQ(Mentions(log, "ID Location"), 0);
}

/// Fails, as a fault of the program would, when a certain line is logged.
class FaultWitness : public panel::Witness {
 public:
  FaultWitness() { panel::witnesses.push_back(this); }
  FaultWitness(const FaultWitness&) = delete;
  FaultWitness& operator=(const FaultWitness&) = delete;
  ~FaultWitness() override { std::erase(panel::witnesses, static_cast<panel::Witness*>(this)); }
  void BarStepped(panel::ProgressBar& bar, int) override {
    if (&bar.Owner() == &panel::EEE_Ír_Állapot) throw std::out_of_range("a fault");
  }
};

TEST_F(WholeChip, AFaultInAStepLeavesTheLinesAtIdleAndNoRunBehind) {
  Take("PIC18F452");
  FaultWitness witness;
  testing::internal::CaptureStderr();
  const Lines log = session.WireOf("click PICÍrás");
  EXPECT_NE(testing::internal::GetCapturedStderr().find("a fault"), std::string::npos);
  EXPECT_FALSE(link::WholeChipRun);
  EXPECT_EQ(link::WaitCount, 2);
  EXPECT_FALSE(panel::EEE_Ír_Állapot.Loaded());
  EXPECT_EQ(Mentions(log, "ID Location"), 0);
  const auto idle = std::find_if(log.rbegin(), log.rend(), [](const auto& line) { return line[0] == 'W'; });
  EXPECT_EQ(*idle, "W 0378 00");
}

}  // namespace
}  // namespace zelvo::test
