// The mid-range chips from an assembler's file: one click writes all memories, another reads them back. What
// a chip should hold is asked of the chip itself: a second one of the kind is filled from the same file as a
// device programmer would.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "devices/catalogue.h"
#include "job.h"

namespace zelvo::test {
namespace {

// Byte addresses of a file: twice the word's.
constexpr std::uint32_t Ids = 2 * 0x2000;
constexpr std::uint32_t Config2 = 2 * 0x2008;
constexpr std::uint32_t Eeprom = 2 * 0x2100;

bool OneOf(const std::string& chip, std::initializer_list<const char*> names) {
  return std::ranges::any_of(names, [&chip](const char* name) { return chip == std::string("PIC") + name; });
}

/// Word by word, each programming takes the three neighbours of its row along.
bool LosesNeighbours(const std::string& chip) {
  return OneOf(chip, {"16F818", "16F819", "16F87", "16F88"});
}
/// They take four words at a time and are sent eight.
bool HasRowsOfFour(const std::string& chip) {
  return OneOf(chip, {"16F882", "16F883", "16F884", "16F913", "16F914"});
}
/// Their user ID words are one row of the latches, of which the last word's load is left.
bool LosesUserIds(const std::string& chip) {
  return OneOf(chip, {"16F873A", "16F874A", "16F876A", "16F877A"}) || LosesNeighbours(chip);
}
bool HasTwoWords(const std::string& chip) {
  return OneOf(chip, {"16F882", "16F883", "16F884", "16F886", "16F887", "16F87", "16F88"});
}
/// A sound chip in the socket that the identification takes for another one, or for none that it knows.
bool IsAskedAbout(const std::string& chip) {
  return OneOf(chip, {"12F635", "12F683", "16F818", "16F819", "16F87", "16F88", "16F873A", "16F874A",
                      "16F876A", "16F877A", "16F913", "16F914", "16F916", "16F917", "16F946"});
}
/// The step behind the erase command comes before the chip can have erased.
bool ErasesInHaste(const std::string& chip) {
  return OneOf(chip, {"16F627A", "16F628A", "16F648A", "16F873A", "16F874A", "16F876A", "16F877A"});
}
bool IsExceptional(const std::string& chip) {
  return LosesUserIds(chip) || HasRowsOfFour(chip) || HasTwoWords(chip);
}

std::vector<std::string> AllMidRange() {
  std::vector<std::string> chips;
  for (const devices::MidRangeEntry& entry : devices::MidRangeCatalogue) chips.emplace_back(entry.name);
  return chips;
}
std::vector<std::string> SoundOnes() {
  std::vector<std::string> chips = AllMidRange();
  std::erase_if(chips, IsExceptional);
  return chips;
}

/// The program on the mid-range page with a chip in the socket and chosen.
class MidJob {
 public:
  MidJob(const BoardKind& kind, const std::string& chip) : job(kind), chip_(chip) {
    job.Do({"tab 1", "socket " + chip, "choose Combo2 " + chip});
  }

  /// Assembles a program with scattered words, user IDs, EEPROM and configuration, and loads it. Two
  /// configuration words stand in one record, as the assembler writes them.
  std::string LoadProgram() {
    const devices::MidRangeEntry& entry = *devices::FindMidRange(chip_);
    std::string processor = chip_.substr(3, chip_.find('/') - 3);
    std::ranges::transform(processor, processor.begin(),
                           [](char c) { return static_cast<char>(std::tolower(c)); });
    const TemporaryFolder& folder = job.session.Folder();
    std::ofstream source(folder.File("program.asm"));
    source << " list p=" << processor << "\n radix hex\n" << std::hex;
    for (const auto& [first, count] :
         {std::pair{0, 1}, std::pair{4, 9}, std::pair{0x20, 8}, std::pair{entry.flashWordMax - 40, 20}}) {
      source << " org 0x" << first << "\n";
      for (int word = first; word < first + count; ++word)
        source << " dw 0x" << ((word * 0x2F53 + 0x1234) & 0x3FFE) << "\n";
    }
    if (entry.eepromMax != 0) {
      source << " org 0x2100\n de 0x11,0x22,0xFF,0x44\n org 0x" << 0x2100 + entry.eepromMax - 1
             << "\n de 0x55,0x66\n";
    }
    source << (entry.configWords == 2 ? " __config 0x2007, 0x3FF4\n __config 0x2008, 0x3EFF\n"
                                      : " __config 0x3FF4\n");
    source << " __idlocs 0x1A5C\n end\n";
    source.close();
    const std::string command =
        "cd '" + folder.Path() + "' && gpasm -w 2 -o program.hex program.asm >words.txt 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << folder.Read("words.txt");
    job.Do({"file " + folder.File("program.hex"), "click Command7"});
    return folder.File("program.hex");
  }

  /// Questions that this chip's identification brings are answered with Yes.
  void Click(const std::string& button) {
    if (IsAskedAbout(chip_)) job.Do("answer yes");
    job.Click(button);
    EXPECT_EQ(job.Messages().size(), IsAskedAbout(chip_) ? 1U : 0U) << button;
  }

  HexImage Filled(const std::string& path) {
    job.Do({"socket none", "socket " + chip_, "burn " + path});
    return job.Chip();
  }

  Job job;

 private:
  std::string chip_;
};

HexImage Without(HexImage image, std::uint32_t first, std::uint32_t last) {
  std::erase_if(image, [=](const auto& byte) { return byte.first >= first && byte.first <= last; });
  return image;
}

class MidRange : public testing::TestWithParam<std::string> {
 protected:
  static void WriteAndReadBack(const BoardKind& kind) {
    MidJob it(kind, GetParam());
    const std::string path = it.LoadProgram();
    it.Click("Command21");
    const HexImage held = it.job.Chip();
    if (!ErasesInHaste(GetParam())) {
      EXPECT_EQ(it.job.Timing(), Lines{});
    }
    it.Click("Command19");
    EXPECT_EQ(it.job.Review(), EqualText);
    EXPECT_EQ(it.job.session.Ask("list IDLoc_F16.eredmény"), " A két tartalom azonos!");
    if (devices::FindMidRange(GetParam())->eepromMax != 0) {
      EXPECT_EQ(it.job.session.Ask("list EEPROM_Beolvas.List1"), "Egyforma a két tartalom!");
    }
    it.job.Click("Összes_Bezárása.Command1");
    EXPECT_EQ(it.job.session.Look("windows"), (Lines{"MDIForm1", "Form1"}));
    EXPECT_EQ(FirstDifference(held, it.job.Chip()), "") << "reading changes nothing";
    EXPECT_EQ(FirstDifference(it.Filled(path), held), "");
  }
};

TEST_P(MidRange, HoldsTheAssembledFileAndGivesItBackOnThePrinterPort) {
  WriteAndReadBack(ShippedBoard());
}

TEST_P(MidRange, HoldsTheAssembledFileAndGivesItBackOnTheSerialPort) {
  WriteAndReadBack(SerialBoard());
}

std::string TestName(const testing::TestParamInfo<std::string>& chip) {
  std::string name = chip.param;
  std::ranges::replace(name, '/', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Chip, MidRange, testing::ValuesIn(SoundOnes()), TestName);

class EveryMidRange : public testing::TestWithParam<std::string> {};

TEST_P(EveryMidRange, IsEmptyBehindItsErase) {
  MidJob it(ShippedBoard(), GetParam());
  const std::string path = it.LoadProgram();
  it.job.Do("burn " + path);
  it.Click("Command12");
  const HexImage left = it.job.Chip();
  EXPECT_EQ(Between(left, 0, Ids - 1), HexImage{}) << "program memory";
  EXPECT_EQ(Between(left, Eeprom, Eeprom + 0x1FF), HexImage{}) << "EEPROM";
}

INSTANTIATE_TEST_SUITE_P(Chip, EveryMidRange, testing::ValuesIn(AllMidRange()), TestName);

// Exceptions.

class SecondConfigWord : public testing::TestWithParam<std::string> {};

TEST_P(SecondConfigWord, OfAnAssemblersRecordIsNotTheOneThatIsWritten) {
  MidJob it(ShippedBoard(), GetParam());
  const std::string path = it.LoadProgram();
  it.Click("Command21");
  const HexImage held = it.job.Chip();
  const HexImage wanted = it.Filled(path);
  EXPECT_NE(Between(wanted, Config2, Config2 + 1), Between(held, Config2, Config2 + 1));
  EXPECT_EQ(FirstDifference(Without(wanted, Config2, Config2 + 1), Without(held, Config2, Config2 + 1)), "")
      << "everything else is right";
}

INSTANTIATE_TEST_SUITE_P(Chip, SecondConfigWord, testing::Values("PIC16F886", "PIC16F887"), TestName);

class UserIdsInOneRow : public testing::TestWithParam<std::string> {};

TEST_P(UserIdsInOneRow, KeepTheLastWordOnly) {
  MidJob it(ShippedBoard(), GetParam());
  const std::string path = it.LoadProgram();
  it.Click("Command21");
  const HexImage held = it.job.Chip();
  const HexImage wanted = it.Filled(path);
  EXPECT_EQ(Between(held, Ids, Ids + 5), HexImage{});
  EXPECT_EQ(FirstDifference(Without(wanted, Ids, Ids + 5), held), "") << "everything else is right";
}

INSTANTIATE_TEST_SUITE_P(Chip, UserIdsInOneRow,
                         testing::Values("PIC16F873A", "PIC16F874A", "PIC16F876A", "PIC16F877A"), TestName);

class RowsOfFour : public testing::TestWithParam<std::string> {};

TEST_P(RowsOfFour, KeepTheSecondHalfOfEachEightWords) {
  MidJob it(ShippedBoard(), GetParam());
  const std::string path = it.LoadProgram();
  it.Click("Command21");
  const HexImage held = it.job.Chip();
  const HexImage wanted = it.Filled(path);
  EXPECT_EQ(Between(held, 0, 1), HexImage{}) << "word 0 is loaded over";
  EXPECT_EQ(Between(held, 8, 15), Between(wanted, 8, 15)) << "words 4 to 7 are the last that were loaded";
  EXPECT_EQ(FirstDifference(Between(wanted, Eeprom, Eeprom + 0x1FF), Between(held, Eeprom, Eeprom + 0x1FF)),
            "");
  EXPECT_EQ(FirstDifference(Between(wanted, Ids, Ids + 15), Between(held, Ids, Ids + 15)), "")
      << "IDs, configuration";
}

INSTANTIATE_TEST_SUITE_P(Chip, RowsOfFour,
                         testing::Values("PIC16F882", "PIC16F883", "PIC16F884", "PIC16F913", "PIC16F914"),
                         TestName);

class WordsOfARow : public testing::TestWithParam<std::string> {};

TEST_P(WordsOfARow, ProgrammedOneByOneAreLostButForTheLast) {
  MidJob it(ShippedBoard(), GetParam());
  const std::string path = it.LoadProgram();
  it.Click("Command21");
  const HexImage held = it.job.Chip();
  it.Click("Command8");
  EXPECT_EQ(it.job.Review(), DifferentText) << "the read-back tells";
  const HexImage wanted = it.Filled(path);
  EXPECT_NE(Between(held, 8, 15), Between(wanted, 8, 15));
  EXPECT_EQ(FirstDifference(Between(wanted, Eeprom, Eeprom + 0x1FF), Between(held, Eeprom, Eeprom + 0x1FF)),
            "")
      << "the EEPROM is right";
}

INSTANTIATE_TEST_SUITE_P(Chip, WordsOfARow, testing::Values("PIC16F818", "PIC16F819", "PIC16F87", "PIC16F88"),
                         TestName);

class TakenForAnother : public testing::TestWithParam<std::string> {};

TEST_P(TakenForAnother, ASoundChipBringsAQuestionAndANoLeavesItAlone) {
  MidJob it(ShippedBoard(), GetParam());
  it.LoadProgram();
  it.job.Click("Command21");
  const Lines told = it.job.Messages();
  ASSERT_EQ(told.size(), 1U);
  EXPECT_TRUE(told.front().starts_with("yesno no "));
  EXPECT_EQ(it.job.Chip(), HexImage{});
}

INSTANTIATE_TEST_SUITE_P(Chip, TakenForAnother,
                         testing::Values("PIC12F635", "PIC12F683", "PIC16F818", "PIC16F819", "PIC16F87",
                                         "PIC16F88", "PIC16F873A", "PIC16F874A", "PIC16F876A", "PIC16F877A",
                                         "PIC16F913", "PIC16F914", "PIC16F916", "PIC16F917", "PIC16F946"),
                         TestName);

void LoadRecords(MidJob& it, const std::string& records) {
  const std::string path = it.job.session.Folder().File("records.hex");
  std::ofstream(path, std::ios::binary) << records << ":00000001FF\r\n";
  it.job.Do({"file " + path, "click Command7"});
}

TEST(MidRangeFiles, AnExtendedAddressRecordIsTakenForAWordAtZero) {
  MidJob it(ShippedBoard(), "PIC16F628");
  LoadRecords(it, ":020000040000FA\r\n:02001000341B9F\r\n");
  it.Click("Command21");
  EXPECT_EQ(Between(it.job.Chip(), 0, Ids - 1), (HexImage{{0, 0x00}, {1, 0x00}, {16, 0x34}, {17, 0x1B}}));
}

TEST(MidRangeFiles, AWordOfMoreThanFourteenBitsLosesThemInItsFrame) {
  MidJob it(ShippedBoard(), "PIC16F628");
  LoadRecords(it, ":02001000347B3F\r\n");
  it.Click("Command21");
  EXPECT_EQ(Between(it.job.Chip(), 0, Ids - 1), (HexImage{{16, 0x34}, {17, 0x3B}}));
}

class LargerThanTheList : public testing::TestWithParam<std::pair<std::string, int>> {};

TEST_P(LargerThanTheList, RefusesWordsThatOnlyTheChipHas) {
  const auto& [chip, words] = GetParam();
  MidJob it(ShippedBoard(), chip);
  EXPECT_EQ(it.job.session.Ask("var FlashWordMax"), std::to_string(words - 1));
  it.job.Do("burn " + [&] {
    const std::string path = it.job.session.Folder().File("beyond.hex");
    std::ofstream(path, std::ios::binary)
        << (words == 1024 ? ":02080000341BA7\r\n" : ":02100000341B9F\r\n") << ":00000001FF\r\n";
    return path;
  }());
  EXPECT_EQ(it.job.Chip().size(), 2U) << "the chip has the word";
  it.job.Do({"file " + it.job.session.Folder().File("beyond.hex"), "click Command7"});
  EXPECT_EQ(it.job.Messages(), Lines{"ok ok A fájl nem kompatibilis a kiválasztott PIC-el!"});
}

INSTANTIATE_TEST_SUITE_P(Chip, LargerThanTheList,
                         testing::Values(std::pair{std::string("PIC16F873A"), 1024},
                                         std::pair{std::string("PIC16F874A"), 1024},
                                         std::pair{std::string("PIC16F876A"), 1024},
                                         std::pair{std::string("PIC16F877A"), 2048}),
                         [](const auto& chip) { return chip.param.first; });

class OscillatorCalibration : public testing::TestWithParam<std::string> {};

/// The word stands in the image like any other: take it over with a read before, and the write puts it back.
TEST_P(OscillatorCalibration, IsLostByAnEraseAndComesBackWithAnImageThatWasReadBefore) {
  MidJob it(ShippedBoard(), GetParam());
  const auto word = [&it] {
    it.Click("Command8");
    return it.job.session.Ask("var FlashReadBuffer(8,128)");
  };
  EXPECT_EQ(word(), "3480") << "as the chip left the factory";
  it.job.Click("FlashOlv.FlashPuff");
  it.Click("Command12");
  EXPECT_EQ(word(), "3FFF");
  it.Click("Command11");
  EXPECT_EQ(word(), "3480");
}

INSTANTIATE_TEST_SUITE_P(Chip, OscillatorCalibration,
                         testing::Values("PIC12F629", "PIC12F675", "PIC16F630", "PIC16F676"), TestName);

TEST(MidRangeIdentification, ANameThatTheListDoesNotHaveIsAskedAboutBeforeEveryOperation) {
  Job job;
  job.Do({"tab 1", "socket PIC12F683", "choose Combo2 PIC16F887", "click Command9"});
  EXPECT_EQ(job.session.Ask("get Combo2"), "PIC16F683");
  for (const auto& [button, words] : {std::pair{"Command8", "olvasást?"}, std::pair{"Command11", "égetést?"},
                                      std::pair{"Command12", "törlést?"}}) {
    job.Click(button);
    const Lines told = job.Messages();
    ASSERT_EQ(told.size(), 1U) << button;
    EXPECT_TRUE(told.front().starts_with("yesno no A detektált PIC nem azonos")) << told.front();
    EXPECT_TRUE(told.front().ends_with(words)) << told.front();
  }
}

TEST(MidRangeManualBoard, IsWrittenByTheOperatorsHandsOnItsSwitches) {
  Job job;
  job.Do({"board lpt manual inverted=clock,data,input", "tab 1", "socket PIC16F628",
          "choose Combo2 PIC16F628", "tick Check8"});
  const HexImage words = {{0, 0x34}, {1, 0x12}, {2, 0x78}, {3, 0x16}};
  const std::string path = job.session.Folder().File("hand.hex");
  std::ofstream(path, std::ios::binary) << ":040000003412781628\r\n:00000001FF\r\n";
  job.Do({"file " + path, "click Command7", "click Command11"});
  EXPECT_EQ(Between(job.Chip(), 0, Ids - 1), words);
  EXPECT_EQ(job.Messages(),
            (Lines{"ok ok Kapcsold Be a Vdd-t és a Vpp-t, majd OK!", "ok ok Kapcsold Ki-Be a Vpp-t, majd OK!",
                   "ok ok Kapcsold Ki-Be a Vpp-t, majd OK!", "ok ok Kapcsold Ki a Vdd-t és a Vpp-t!"}));
  job.Click("Command8");
  EXPECT_EQ(job.Review(), EqualText);
  for (const char* whole : {"Command19", "Command21"})
    EXPECT_EQ(job.session.Refused(std::string("click ") + whole), "disabled");
}

}  // namespace
}  // namespace zelvo::test
