// Configuration memory of the mid-range chips: user ID words and configuration words, read and written event
// by event on every board, and which chip takes them in which way.
#include "opsmid/config_id.h"

#include "mid_desk.h"

namespace zelvo::test {
namespace {

using image::ConfigWord1Raw;
using image::ConfigWord2Raw;
using image::MidIdReadWords;
using opsmid::MidConfigValue1;
using opsmid::MidConfigValue2;

constexpr std::array<int, 4> Ids = {0x0001, 0x3FFE, 0x1234, 0x2A55};

/// One chip for each routine.
const char* const RoutineChips[] = {"16F84A", "16HV616", "16F887", "16F88"};

class ConfigIdOn : public testing::TestWithParam<BoardKind> {
 protected:
  ConfigIdOn() : desk(GetParam()) {}
  MidDesk desk;
};
INSTANTIATE_TEST_SUITE_P(Board, ConfigIdOn, testing::ValuesIn(BoardKinds()), BoardName);

TEST_P(ConfigIdOn, EachRoutineIsSentEventByEvent) {
  for (const char* number : RoutineChips) {
    const MidChip& chip = MidChipOf(number);
    desk.Choose(chip);
    const FlashJob job = MixedJob();
    MidDesk::Take(job);
    MidWire model = desk.Model();
    model.WriteConfig(chip, job);
    EXPECT_TRUE(SameLog(model.Log(), desk.WireOf([&] { opsmid::WriteConfigAndIds(chip.Name()); }))) << number;
    MidDesk::Rest();
  }
}

TEST_P(ConfigIdOn, AConfigurationWordIsReadAtTheSeventhWordOfItsMemory) {
  desk.Choose(MidChipOf("16F84A"));
  AnsweringChip& answers = PutAnsweringChip(desk.session);
  answers.Word(0x2A57);
  ConfigWord2Raw = "left alone";
  MidWire model = desk.Model();
  model.ReadConfig(MidChipOf("16F84A"), 0x2A57, 0, false);
  EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::ReadMidConfig)));
  EXPECT_EQ(MidConfigValue1, 0x2A57);
  EXPECT_EQ(ConfigWord1Raw, "0010101001010111");
  EXPECT_EQ(ConfigWord2Raw, "left alone");
}

TEST_P(ConfigIdOn, TheSecondWordIsReadByTheSameSevenStepsWithoutANewEntry) {
  desk.Choose(MidChipOf("16F886"));
  AnsweringChip& answers = PutAnsweringChip(desk.session);
  answers.Word(0x0001);
  answers.Word(0x2000);
  MidWire model = desk.Model();
  model.ReadConfig(MidChipOf("16F886"), 0x0001, 0x2000, false);
  const Lines log = desk.WireOf(opsmid::ReadMidConfig);
  EXPECT_TRUE(SameLog(model.Log(), log));
  EXPECT_EQ(Only(log, "D"), Lines{}) << "the supply does not settle anew";
  EXPECT_EQ(MidConfigValue1, 0x0001);
  EXPECT_EQ(MidConfigValue2, 0x2000);
  EXPECT_EQ(ConfigWord1Raw, "0000000000000001");
  EXPECT_EQ(ConfigWord2Raw, "0010000000000000");
}

TEST_P(ConfigIdOn, FourUserIdWordsAreReadOneBehindTheOther) {
  desk.Choose(MidChipOf("16F84A"));
  AnsweringChip& answers = PutAnsweringChip(desk.session);
  for (const int word : Ids) answers.Word(word);
  MidWire model = desk.Model();
  model.ReadIds(Ids, false);
  EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::ReadMidUserIds)));
  for (std::size_t i = 0; i < Ids.size(); ++i) EXPECT_EQ(MidIdReadWords[i + 1], Ids[i]);
}

class ConfigOfChip : public testing::TestWithParam<MidChip> {};
INSTANTIATE_TEST_SUITE_P(Chip, ConfigOfChip, testing::ValuesIn(MidChips().begin(), MidChips().end()),
                         ChipName);

TEST_P(ConfigOfChip, IsWrittenInItsOwnWay) {
  MidDesk desk;
  desk.Choose(GetParam());
  const FlashJob job = MixedJob();
  MidDesk::Take(job);
  if (!GetParam().TwoWords()) image::ConfigWord2Bits = "none of this goes out";
  MidWire model = desk.Model();
  model.WriteConfig(GetParam(), job);
  EXPECT_TRUE(SameLog(model.Log(), desk.WireOf([] { opsmid::WriteConfigAndIds(GetParam().Name()); })));
}

TEST_P(ConfigOfChip, IsReadInOneWordOrTwo) {
  MidDesk desk;
  desk.Choose(GetParam());
  EXPECT_EQ(opsmid::HasTwoConfigWords(GetParam().Name()), GetParam().TwoWords());
  MidWire model = desk.Model();
  model.ReadConfig(GetParam(), ErasedMid, ErasedMid, true);
  EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::ReadMidConfig)));
}

class ConfigId : public testing::Test {
 protected:
  MidDesk desk;
};

TEST_F(ConfigId, SevenChipsHaveTwoWords) {
  Lines two;
  for (const MidChip& chip : MidChips()) {
    if (opsmid::HasTwoConfigWords(chip.Name())) two.emplace_back(chip.number);
  }
  EXPECT_EQ(two, (Lines{"16F87", "16F88", "16F882", "16F883", "16F884", "16F886", "16F887"}));
  EXPECT_FALSE(opsmid::HasTwoConfigWords("PIC Kiválasztása"));
}

/// All bits of a log in the order of time.
std::string Clocked(const Lines& log) {
  std::string bits;
  int previous = 0;
  for (const std::string& line : log) {
    if (line[0] != 'W') continue;
    const int value = std::stoi(line.substr(7), nullptr, 16);
    if ((value & 2) != 0 && (previous & 2) == 0) bits += (value & 1) != 0 ? '1' : '0';
    previous = value;
  }
  return bits;
}

TEST_F(ConfigId, AUserIdGoesOutAsFourteenBitsAndLosesThoseAbove) {
  struct Case {
    int word;
    const char* frame;  ///< first bit at the left, start and stop bit included
  };
  const Case cases[] = {{0x00FF, "0111111110000000"}, {0x3FFF, "0111111111111110"},
                        {0x0000, "0000000000000000"}, {0x7FFF, "0111111111111110"},
                        {0x4001, "0100000000000000"}, {-0x8000 + 0x2002, "0010000000000010"},
                        {-1, "0111111111111110"}};
  desk.Choose(MidChipOf("16F84A"));
  for (const Case& it : cases) {
    image::MidIdWords[1] = static_cast<std::int16_t>(it.word);
    const Lines log = desk.WireOf([] { opsmid::WriteConfigAndIds("PIC16F84A"); });
    // Behind Load Configuration with its word and Load Data.
    EXPECT_EQ(Clocked(log).substr(6 + 16 + 6, 16), it.frame) << it.word;
    MidDesk::Rest();
  }
}

TEST_F(ConfigId, SevenIncrementsReachTheConfigurationWordInEveryRoutine) {
  for (const char* number : RoutineChips) {
    const MidChip& chip = MidChipOf(number);
    desk.Choose(chip);
    MidDesk::Take(MixedJob());
    const Lines log = desk.WireOf([&] { opsmid::WriteConfigAndIds(chip.Name()); });
    const auto config = std::ranges::find_if(
        log, [](const std::string& line) { return line.ends_with(":  Config Szó Írása Indult."); });
    ASSERT_NE(config, log.end());
    // Load Configuration and its word, then four times a load with its frame, an increment, the programming
    // (and its end).
    const bool ended = chip.config == ConfigKind::End || chip.config == ConfigKind::Latched;
    const std::size_t ids = 6 + 16 + 4 * (6 + 16 + 6 + 6 + (ended ? 6U : 0U));
    EXPECT_EQ(Clocked(Lines(log.begin(), config)).size(), ids) << number;
    EXPECT_EQ(Clocked(Lines(config, log.end())).substr(0, 24), "011000011000011000010000") << number;
    MidDesk::Rest();
  }
}

TEST_F(ConfigId, EachWordIsProgrammedForFourWaits) {
  for (const char* number : RoutineChips) {
    const MidChip& chip = MidChipOf(number);
    desk.Choose(chip);
    link::SpeedSetting = 3;
    link::WaitCount = 9;
    const Lines log = desk.WireOf([&] { opsmid::WriteConfigAndIds(chip.Name()); });
    EXPECT_EQ(Only(log, "D"), Lines(chip.TwoWords() ? 24U : 20U, "D cycle 3")) << number;
    EXPECT_EQ(link::WaitCount, 3);
  }
}

TEST_F(ConfigId, AnUnknownNameIsWrittenNothing) {
  for (const char* name : {"PIC Kiválasztása", "PIC16F683", "16F84A"})
    EXPECT_EQ(desk.WireOf([&] { opsmid::WriteConfigAndIds(name); }), Lines{}) << name;
}

TEST_F(ConfigId, WritingChangesNothingOfTheImage) {
  desk.Choose(MidChipOf("16F887"));
  MidDesk::Take(MixedJob());
  const auto ids = image::MidIdWords;
  const std::string word1 = image::ConfigWord1Bits;
  const std::string word2 = image::ConfigWord2Bits;
  opsmid::WriteConfigAndIds("PIC16F887");
  EXPECT_EQ(image::MidIdWords, ids);
  EXPECT_EQ(image::ConfigWord1Bits, word1);
  EXPECT_EQ(image::ConfigWord2Bits, word2);
}

TEST_F(ConfigId, WithCheckBothAreReadBackBehindTheWrite) {
  for (const char* number : RoutineChips) {
    const MidChip& chip = MidChipOf(number);
    desk.Choose(chip);
    desk.session.Do("tick Check4");
    FlashJob job = MixedJob();
    job.check4 = true;
    MidDesk::Take(job);
    MidWire model = desk.Model();
    model.WriteConfig(chip, job);
    EXPECT_TRUE(SameLog(model.Log(), desk.WireOf([&] { opsmid::WriteConfigAndIds(chip.Name()); }))) << number;
    MidDesk::Rest();
  }
}

TEST_F(ConfigId, AReviewThatStandsIsOpenedAnewWithTheNewWords) {
  for (const char* number : {"16F84A", "16F88"}) {
    const MidChip& chip = MidChipOf(number);
    desk.Choose(chip);
    AnsweringChip& answers = PutAnsweringChip(desk.session);
    for (const int word : {0x1111, 0x0222, 0x3333, 0x0444}) answers.Word(word);
    MidWire model = desk.Model();
    const bool two = chip.TwoWords();
    model.ReadConfig(chip, 0x1111, 0x0222, false);
    model.ReadConfig(chip, two ? 0x3333 : 0x0222, 0x0444, false);
    EXPECT_TRUE(SameLog(model.Log(), desk.WireOf([] {
      opsmid::ReadMidConfig();
      opsmid::ReadMidConfig();
    }))) << number;
    EXPECT_EQ(desk.session.Look(two ? "list Config_2008_Olv_F16.List2" : "list Config_Beolvas_F16.List2"),
              Lines{two ? "3333h" : "0222"});
    MidDesk::Rest();
  }
}

TEST_F(ConfigId, TheWordsOfAnEarlierReadAreForgotten) {
  desk.Choose(MidChipOf("16F84A"));
  MidIdReadWords.fill(77);
  MidConfigValue1 = 77;
  AnsweringChip& answers = PutAnsweringChip(desk.session);
  for (int word = 0; word < 5; ++word) answers.Word(0);
  opsmid::ReadMidUserIds();
  opsmid::ReadMidConfig();
  for (std::size_t i = 1; i <= 4; ++i) EXPECT_EQ(MidIdReadWords[i], 0);
  EXPECT_EQ(MidConfigValue1, 0);
  EXPECT_EQ(ConfigWord1Raw, "0000000000000000");
}

TEST_F(ConfigId, ReadsRunAtTheSpeedSetting) {
  desk.Choose(MidChipOf("16F887"));
  for (void (*read)() : {opsmid::ReadMidConfig, opsmid::ReadMidUserIds}) {
    link::SpeedSetting = 3;
    link::WaitCount = 9;
    const Lines log = desk.WireOf(read);
    EXPECT_EQ(Count(log, "P 3"), static_cast<int>(Only(log, "P").size()));
    EXPECT_EQ(link::WaitCount, 3);
  }
}

TEST_F(ConfigId, TheButtonsIdentifyAskAndReadOnANewEntry) {
  for (const bool ids : {false, true}) {
    MidDesk::Rest();
    const MidChip& chip = MidChipOf("16F887");
    desk.Choose(chip);
    desk.session.Do("answer yes");
    MidWire model = desk.Model();
    model.PowerOn();
    model.Identify(ErasedMid);
    model.Ask(true, "Nem érzékelek PIC-et! Folytatod az olvasást?");
    model.PowerOn();
    if (ids) {
      model.ReadIds({ErasedMid, ErasedMid, ErasedMid, ErasedMid}, true);
    } else {
      model.ReadConfig(chip, ErasedMid, ErasedMid, true);
    }
    model.PowerOff();
    EXPECT_TRUE(SameLog(model.Log(), desk.Click(ids ? "Command15" : "Command13")));
  }
}

}  // namespace
}  // namespace zelvo::test
