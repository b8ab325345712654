// Reading and writing a whole mid-range chip with one button: the order of the steps, the checks, Cancel,
// and the chips without EEPROM.
#include "mid_desk.h"

namespace zelvo::test {
namespace {

constexpr const char* NoChip = "Nem érzékelek PIC-et!";

class MidWholeChip : public testing::Test {
 protected:
  void Begin(const MidChip& chip) {
    MidDesk::Rest();
    desk.Choose(chip);
    MidDesk::Take(job);
    if (chip.eeprom) MidDesk::FillEeprom(bytes);
    desk.session.Do("answer yes");
  }
  MidWire Asked(const char* ending) {
    MidWire model = desk.Model();
    model.PowerOn();
    model.Identify(ErasedMid);
    model.Ask(true, std::string(NoChip) + ending);
    return model;
  }
  /// The course of a write: events, windows, messages.
  static Lines Course(const Lines& log) {
    Lines course;
    for (const std::string& line : Only(log, "L+-M")) {
      const std::size_t time = line.find("TIME");
      course.push_back(line[0] == 'L' ? line.substr(time + 4) : line);
    }
    return course;
  }
  FlashJob job = MixedJob();
  Values bytes = {0x12, 0xFF, 0xFF, 0x34, 0x00, 0xFE, 0xFF, 0x56};
  MidDesk desk;
};

TEST_F(MidWholeChip, AReadTakesFlashEepromConfigurationAndIdsEachOnANewEntry) {
  for (const char* number : {"12F609", "16F84A", "16F88", "16F887"}) {
    const MidChip& chip = MidChipOf(number);
    Begin(chip);
    MidWire model = Asked(" Folytatod az olvasást?");
    model.PowerOn();
    model.ReadFlash(Floating(CutWords));
    if (chip.eeprom) {
      model.PowerOn();
      model.ReadEeprom(Floating(CutBytes, 0xFF));
    }
    model.PowerOn();
    model.ReadConfig(chip, ErasedMid, ErasedMid, false);
    model.PowerOn();
    model.ReadIds({ErasedMid, ErasedMid, ErasedMid, ErasedMid}, false);
    model.PowerOff();
    model.Line("+ Összes_Bezárása");
    EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command19"))) << number;
    EXPECT_FALSE(link::WholeChipRun);
  }
}

TEST_F(MidWholeChip, AWriteTakesFlashWithItsConfigurationAndThenTheEeprom) {
  for (const char* number : {"12F609", "12F617", "16F84A", "16F818", "16F88", "16F887"}) {
    for (const bool check4 : {false, true}) {
      for (const bool check6 : {false, true}) {
        const MidChip& chip = MidChipOf(number);
        Begin(chip);
        job.check4 = check4;
        job.check6 = check6;
        desk.session.Do(check4 ? "tick Check4" : "untick Check4");
        desk.session.Do(check6 ? "tick Check6" : "untick Check6");
        MidWire model = Asked(" Folytatod az égetést?");
        model.WriteFlash(chip, job);
        if (chip.eeprom) {
          model.PowerOn();
          model.WriteEeprom(chip, bytes);
          if (check4) {
            model.PowerOn();
            model.ReadEeprom(Floating(CutBytes, 0xFF));
          }
        }
        model.PowerOff();
        if (check4) model.Line("+ Összes_Bezárása");
        EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command21"))) << number << check4 << check6;
        EXPECT_FALSE(link::WholeChipRun);
        EXPECT_FALSE(link::UserAbort);
      }
    }
  }
}

TEST_F(MidWholeChip, TheStepsOfAWriteAreToldInTheirOrder) {
  Begin(MidChipOf("16F84A"));
  EXPECT_EQ(Course(desk.Click("Command21")),
            (Lines{":  PIC Azonosítás indult.", ": PIC ID: 511",
                   "M yesno yes Nem érzékelek PIC-et! Folytatod az égetést?",
                   ":  Flash Memória Irása Indult.", "+ FlashÍrÁllapot", "- FlashÍrÁllapot",
                   ":  Flash Írása Kész.", ":  User ID Szavak Írása Indult.", ":  User ID Szavak Írása Kész.",
                   ":  Config Szó Írása Indult.", ":  Config Szó Írása Kész.", ":  EEPROM Írása Indult.",
                   "+ EEE_Ír_Állapot", ":  EEPROM Írása kész.", "- EEE_Ír_Állapot"}));
}

TEST_F(MidWholeChip, WithoutAChipBothRefuseAndTouchNothing) {
  for (const char* button : {"Command19", "Command21"})
    EXPECT_EQ(desk.Click(button), Lines{"M ok ok Nincs PIC kiválasztva!"}) << button;
}

TEST_F(MidWholeChip, AChipWithoutEepromHasNoEepromStepInEither) {
  for (const MidChip& chip : MidChips()) {
    if (chip.eeprom) continue;
    for (const char* button : {"Command19", "Command21"}) {
      Begin(chip);
      const Lines log = desk.Click(button);
      EXPECT_EQ(std::ranges::count_if(
                    log, [](const auto& line) { return line.find("EEPROM") != std::string::npos; }),
                0)
          << chip.number << button;
    }
  }
}

TEST_F(MidWholeChip, ACancelInTheFlashOfAWriteLeavesConfigurationAndEepromAlone) {
  const MidChip& chip = MidChipOf("16F84A");
  Begin(chip);
  job.cancelled = 6;
  MidWire model = Asked(" Folytatod az égetést?");
  model.WriteFlash(chip, job);
  model.PowerOn();  // for the EEPROM, which then stops before its first log line
  model.PowerOff();
  desk.session.Do("at pump " + std::to_string(model.CancelPass) + " click FlashÍrÁllapot.Command1");
  EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command21")));
  EXPECT_FALSE(link::UserAbort) << "cleared at the end";
  EXPECT_FALSE(link::WholeChipRun);
}

TEST_F(MidWholeChip, ACancelInTheFlashOfAWriteLeavesTheEepromAloneBehindAReadBackToo) {
  for (const char* check : {"Check4", "Check6"}) {
    Begin(MidChipOf("16F84A"));
    const std::string tick = std::string("tick ") + check;
    desk.session.Do({"untick Check4", "untick Check6", tick, "answer yes",
                     "at progress FlashÍrÁllapot 1 click FlashÍrÁllapot.Command1"});
    const Lines log = desk.Click("Command21");
    EXPECT_EQ(
        std::ranges::count_if(log, [](const auto& line) { return line.ends_with("EEPROM Írása Indult."); }),
        0)
        << check;
    EXPECT_FALSE(link::UserAbort);
  }
}

TEST_F(MidWholeChip, ACancelThatAnEarlierRunLeftDoesNotStopAWrite) {
  for (const char* number : {"16F84A", "16F690"}) {
    const MidChip& chip = MidChipOf(number);
    Begin(chip);
    link::UserAbort = true;
    MidWire model = Asked(" Folytatod az égetést?");
    model.WriteFlash(chip, job);
    model.PowerOn();
    model.WriteEeprom(chip, bytes);
    model.PowerOff();
    EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command21"))) << number;
  }
}

TEST_F(MidWholeChip, ACancelInTheFlashOfAReadGoesOnWithTheOtherMemories) {
  const MidChip& chip = MidChipOf("16F84A");
  Begin(chip);
  desk.session.Do("at progress Állapot 3 click Állapot.Command1");
  EXPECT_EQ(Course(desk.Click("Command19")),
            (Lines{":  PIC Azonosítás indult.",
                   ": PIC ID: 511",
                   "M yesno yes Nem érzékelek PIC-et! Folytatod az olvasást?",
                   ":  Flash Beolvasása Indult.",
                   "+ Állapot",
                   "- Állapot",
                   ":  Felhasználói megszakítás!",
                   ":  EEPROM Beolvasása Indult.",
                   "+ EEE_Olv_Állapot",
                   ":  EEPROM beolvasás kész.",
                   "- EEE_Olv_Állapot",
                   "+ EEPROM_Beolvas",
                   ":  Config szó beolvasása Indult.",
                   "+ Config_Beolvas_F16",
                   ":  Nem egyforma a Puffer és a Beolvasott Config tartalma.",
                   ":  Config szó beolvasása Kész.",
                   ":  User ID Location bájtok beolvasása indult.",
                   ":  User ID Location bájtok beolvasása Kész.",
                   "+ IDLoc_F16",
                   ":  Nem egyforma a Puffer és a Beolvasott ID Loc tartalma.",
                   "+ Összes_Bezárása"}));
}

TEST_F(MidWholeChip, WaitsStretchWithTheSpeedSettingThatEveryStepTakesAnew) {
  Begin(MidChipOf("16F84A"));
  link::SpeedSetting = 4;
  link::WaitCount = 1;
  const Lines log = desk.Click("Command21");
  EXPECT_EQ(Count(log, "P 4"), static_cast<int>(Only(log, "P").size()));
  for (const std::string& line : Only(log, "D"))
    EXPECT_TRUE(line == "D cycle 4" || line == "D settle") << line;
  EXPECT_EQ(link::WaitCount, 4);
}

TEST_F(MidWholeChip, ClosingTheProgramInAWriteLeavesTheLinesAtIdle) {
  Begin(MidChipOf("16F84A"));
  desk.session.Do("at progress EEE_Ír_Állapot 2 stop");
  const Lines log = desk.Click("Command21");
  const auto bar = std::ranges::find(log, "B EEE_Ír_Állapot 2");
  ASSERT_NE(bar, log.end());
  EXPECT_EQ(Lines(bar + 1, bar + 3), (Lines{"R 0378 0C", "W 0378 00"}));
  EXPECT_EQ(Only(Lines(bar + 3, log.end()), "WRPDL"), Lines{});
}

class MidWholeChipOn : public testing::TestWithParam<BoardKind> {};
INSTANTIATE_TEST_SUITE_P(Board, MidWholeChipOn, testing::ValuesIn(BoardKinds()), BoardName);

TEST_P(MidWholeChipOn, AWriteAndAReadRunOnEveryBoard) {
  MidDesk desk(GetParam());
  const MidChip& chip = MidChipOf("16F887");
  const FlashJob job = MixedJob();
  const Values bytes = {0x12, 0xFF, 0x34, 0x00, 0xFE, 0xFF, 0x56, 0x80};
  desk.Choose(chip);
  MidDesk::Take(job);
  MidDesk::FillEeprom(bytes);
  AnsweringChip& answers = PutAnsweringChip(desk.session);
  MidWire model = desk.Model();

  answers.Word(0x2081);
  model.PowerOn();
  model.Identify(0x2081);
  model.WriteFlash(chip, job);
  model.PowerOn();
  model.WriteEeprom(chip, bytes);
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command21")));

  MidWire read = desk.Model();
  answers.Word(0x2081);
  for (const int word : job.words) answers.Word(word);
  for (const int byte : bytes) answers.Word(byte | 0x3F00);
  for (const int word : {job.config1, job.config2}) answers.Word(word);
  for (const int word : job.ids) answers.Word(word);
  read.PowerOn();
  read.Identify(0x2081);
  read.PowerOn();
  read.ReadFlash(job.words);
  read.PowerOn();
  read.ReadEeprom(bytes);
  read.PowerOn();
  read.ReadConfig(chip, job.config1, job.config2, true);
  read.PowerOn();
  read.ReadIds(job.ids, true);
  read.PowerOff();
  read.Line("+ Összes_Bezárása");
  EXPECT_TRUE(SameLog(read.Log(), desk.Click("Command19")));
  EXPECT_EQ(desk.session.Look("list FlashOlv.List1"), Lines{"Egyforma a Buffer és a beolvasott tartalom!"});
  EXPECT_EQ(desk.session.Look("list EEPROM_Beolvas.List1"), Lines{"Egyforma a két tartalom!"});
}

}  // namespace
}  // namespace zelvo::test
