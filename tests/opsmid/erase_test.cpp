// The erases of the mid-range chips: twelve fixed sequences on every board, which chip takes which, and the
// button that erases a whole chip.
#include "opsmid/erase.h"

#include <map>
#include <set>

#include "devices/mid_range_identification.h"
#include "icsp/conversions.h"
#include "mid_desk.h"

namespace zelvo::test {
namespace {

using devices::MidEraseRun;

TEST(MidChipTable, NamesEachChipOfTheListOnceAndInItsOrder) {
  MidDesk desk;
  Lines names;
  for (const MidChip& chip : MidChips()) names.push_back(chip.Name());
  EXPECT_EQ(names, desk.session.Look("list Combo2"));
  EXPECT_EQ(names.size(), 55U);
}

TEST(MidChipTable, HasTheGroupsInTheirSizes) {
  std::map<char, int> groups;
  std::map<EepromErase, int> eeproms;
  for (const MidChip& chip : MidChips()) {
    ++groups[chip.group];
    ++eeproms[chip.eepromErase];
  }
  EXPECT_EQ(groups, (std::map<char, int>{{'A', 3}, {'B', 7}, {'C', 7}, {'D', 2}, {'E', 36}}));
  EXPECT_EQ(eeproms, (std::map<EepromErase, int>{{EepromErase::None, 15},
                                                 {EepromErase::DataMemory, 10},
                                                 {EepromErase::DataOldStyle, 7},
                                                 {EepromErase::DataAndEnd, 2},
                                                 {EepromErase::DataPlain, 21}}));
}

/// Powered pieces stay quiet inside an erase.
class ErasePieces : public testing::TestWithParam<BoardKind> {
 protected:
  ErasePieces() : desk(GetParam()) { MidEraseRun = true; }

  /// The pieces of `number` by `erase`, event by event.
  void Expect(std::string_view number, void (*erase)(std::string_view), const Pieces& pieces) {
    const MidChip& chip = MidChipOf(number);
    devices::EepromMax = chip.eeprom ? 127 : 0;
    MidWire model = desk.Model();
    model.Erase(pieces, chip);
    EXPECT_TRUE(SameLog(model.Log(), desk.WireOf([&] { erase(chip.Name()); }))) << number;
  }
  MidDesk desk;
};
INSTANTIATE_TEST_SUITE_P(Board, ErasePieces, testing::ValuesIn(BoardKinds()), BoardName);

TEST_P(ErasePieces, AreSentBitByBitOnEveryBoard) {
  using enum Piece;
  Expect("16F628", opsmid::EraseWholeChip,
         {BlankUserIds, FromConfigSpace, BlankUserIds, ProgramMemory, DataMemory});
  Expect("16F873A", opsmid::EraseWholeChip, {BlankUserIds, ProgramMemory, DataMemory});
  Expect("16F877", opsmid::EraseWholeChip, {ProtectedOldStyle, ProgramSetup, DataOldStyle});
  Expect("16F818", opsmid::EraseWholeChip, {ChipFull});
  Expect("16F818", opsmid::EraseForFlashWrite, {ProgramAndEnd});
  Expect("16F819", opsmid::EraseForEepromWrite, {DataAndEnd});
  Expect("16F690", opsmid::EraseWholeChip, {ProgramPlain, DataPlain});
}

/// What a piece clocks, read back out of the log as bits in the order of time: a rise of the clock takes the
/// data line's level. Held waits stand between as "w".
std::string Clocked(const Lines& log) {
  std::string text;
  int previous = 0;
  for (const std::string& line : log) {
    if (line.starts_with("D cycle")) text += 'w';
    if (line[0] != 'W') continue;
    const int value = std::stoi(line.substr(7), nullptr, 16);
    if ((value & 2) != 0 && (previous & 2) == 0) text += (value & 1) != 0 ? '1' : '0';
    previous = value;
  }
  return text;
}

struct ByHand {
  const char* number;
  void (*erase)(std::string_view);
  const char* clocked;  ///< first bit at the left, blanks for the reader
};
// Commands least significant bit first: 02h is 010000, 09h 100100, 08h 000100, 01h 100000, 07h 111000.
const ByHand Hands[] = {
    {"16F690", opsmid::EraseForFlashWrite, "100100 ww 000000 1111111111111100 100100 ww"},
    {"16F690", opsmid::EraseForEepromWrite, "110100 ww"},
    {"16F628A", opsmid::EraseForEepromWrite, "110100 wwwwwwww"},
    {"16F84A", opsmid::EraseForEepromWrite, "110000 0111111111111110 110100 000100 wwwwwwww"},
    {"16F877", opsmid::EraseForEepromWrite, "110000 1111111111111100 100000 111000 000100 ww 100000 111000"},
    {"16F818", opsmid::EraseForFlashWrite, "100100 ww 111010"},
    {"16F818", opsmid::EraseForEepromWrite, "110100 ww 111010"},
    {"16F818", opsmid::EraseWholeChip, "111110 ww"},
    {"16F877", opsmid::EraseForFlashWrite,
     "000000 1111111111111100 011000 011000 011000 011000 011000 011000 011000 "
     "100000 111000 000100 ww 100000 111000 "
     "010000 0111111111111110 100000 111000 000100 ww 100000 111000"},
    {"16F628A", opsmid::EraseForFlashWrite,
     "000000 0000000000000000 010000 0111111111111110 000100 ww 011000 "
     "000000 0000000000000000 010000 0111111111111110 000100 ww 011000 "
     "000000 0000000000000000 010000 0111111111111110 000100 ww 011000 "
     "000000 0000000000000000 010000 0111111111111110 000100 ww 011000 "
     "010000 1111111111111100 100100 000100 wwww"},
};

TEST(PiecesByHand, ClockTheseBitsInTheOrderOfTime) {
  MidDesk desk;
  MidEraseRun = true;
  for (const ByHand& hand : Hands) {
    std::string expected = hand.clocked;
    std::erase(expected, ' ');
    const std::string chip = "PIC" + std::string(hand.number);
    EXPECT_EQ(Clocked(desk.WireOf([&] { hand.erase(chip); })), expected) << hand.number;
  }
}

class EveryChipErased : public testing::Test {
 protected:
  void ExpectAll(void (*erase)(std::string_view), Pieces (*pieces)(const MidChip&)) {
    MidEraseRun = true;
    for (const MidChip& chip : MidChips()) {
      devices::EepromMax = chip.eeprom ? 127 : 0;
      MidWire model = desk.Model();
      model.Erase(pieces(chip), chip);
      ASSERT_TRUE(SameLog(model.Log(), desk.WireOf([&] { erase(chip.Name()); }))) << chip.number;
    }
  }
  MidDesk desk;
};

TEST_F(EveryChipErased, WholeByThePiecesOfItsGroup) {
  ExpectAll(opsmid::EraseWholeChip, WholePieces);
}
TEST_F(EveryChipErased, BeforeAFlashWriteByThoseWithoutTheDataMemory) {
  ExpectAll(opsmid::EraseForFlashWrite, FlashPieces);
}
TEST_F(EveryChipErased, BeforeAnEepromWriteByItsDataPieceOrNotAtAll) {
  ExpectAll(opsmid::EraseForEepromWrite, EepromPieces);
}

TEST_F(EveryChipErased, AnUnknownNameIsSentNothing) {
  for (void (*erase)(std::string_view) :
       {opsmid::EraseWholeChip, opsmid::EraseForFlashWrite, opsmid::EraseForEepromWrite}) {
    for (const char* name : {"PIC16F683", "PIC Kiválasztása", "16F84A", "PIC16F8", ""})
      EXPECT_EQ(desk.WireOf([&] { erase(name); }), Lines{}) << name;
  }
}

TEST_F(EveryChipErased, TheSixteenF84AHasNoEraseFromConfigurationSpace) {
  MidEraseRun = true;
  const Lines log = desk.WireOf([] { opsmid::EraseWholeChip("PIC16F84A"); });
  EXPECT_EQ(Count(log, "D cycle 2"), 4 * 2 + 4 * 2 + 4 + 8) << "the four ID words twice, Flash, EEPROM";
}

TEST_F(EveryChipErased, OfTheLastGroupWithoutEepromNoneIsSentTheEraseOfDataMemory) {
  for (const MidChip& chip : MidChips()) {
    if (chip.group != 'E') continue;
    for (const int highest : {0, 127}) {
      devices::EepromMax = highest;
      const Lines log = desk.WireOf([&] { opsmid::EraseWholeChip(chip.Name()); });
      EXPECT_EQ(Count(log, "D cycle 2"), highest == 0 ? 4 : 6) << chip.number;
    }
  }
}

TEST_F(EveryChipErased, AtTheSpeedThatIsSetNow) {
  for (const double inForce : {1.0, 5.0}) {
    link::WaitCount = inForce;
    link::SpeedSetting = 7;
    const Lines log = desk.WireOf([] { opsmid::EraseForEepromWrite("PIC16F690"); });
    EXPECT_EQ(link::WaitCount, 7);
    EXPECT_EQ(Count(log, "P 7"), 12);
    EXPECT_EQ(Count(log, "D cycle 7"), 2);
  }
}

struct Powered {
  const char* number;
  Pieces pieces;
  std::set<std::size_t> powering;  ///< indices of those that power the target
};

TEST_F(EveryChipErased, TwoPiecesPowerTheTargetUnlessAnEraseOrAWriteRuns) {
  using enum Piece;
  const Powered cases[] = {{"16F84A", {BlankUserIds, BlankUserIds, ProgramMemory}, {0, 1}},
                           {"16F628", {BlankUserIds, FromConfigSpace, BlankUserIds, ProgramMemory}, {0, 2}},
                           {"16F648A", {BlankUserIds, ProgramMemory}, {0}},
                           {"16F870", {ProtectedOldStyle, ProgramSetup}, {0}}};
  for (const Powered& it : cases) {
    for (const bool erase : {false, true}) {
      for (const bool write : {false, true}) {
        MidDesk::Rest();
        MidEraseRun = erase;
        link::WholeChipRun = write;
        MidWire model = desk.Model();
        for (std::size_t i = 0; i < it.pieces.size(); ++i) {
          if (!erase && !write && it.powering.contains(i)) model.PowerOn();
          model.Erase(it.pieces[i], MidChipOf(it.number));
        }
        const std::string chip = "PIC" + std::string(it.number);
        EXPECT_TRUE(SameLog(model.Log(), desk.WireOf([&] { opsmid::EraseForFlashWrite(chip); })))
            << it.number << erase << write;
      }
    }
  }
}

class EraseButton : public testing::Test {
 protected:
  static constexpr const char* NoChip = "Nem érzékelek PIC-et! Folytatod a törlést?";

  MidWire Begun(bool yes) {
    MidWire model = desk.Model();
    model.PowerOn();
    model.Identify(ErasedMid, false);
    model.Ask(yes, NoChip);
    return model;
  }
  MidDesk desk;
};

TEST_F(EraseButton, IdentifiesOnThePowerOfItsOwnEntryAsksAndErases) {
  for (const char* number : {"16F628", "16F627A", "16F873", "16F819", "12F609", "16F887"}) {
    MidDesk::Rest();
    const MidChip& chip = MidChipOf(number);
    desk.Choose(chip);
    desk.session.Do("answer yes");
    MidWire model = Begun(true);
    model.Log(":  PIC Törlése Indult.");
    model.PowerOn();
    model.Erase(WholePieces(chip), chip);
    model.Log(":  PIC Törlése Kész.");
    model.PowerOff();
    ASSERT_TRUE(SameLog(model.Log(), desk.Click("Command12"))) << number;
    EXPECT_FALSE(MidEraseRun);
    EXPECT_FALSE(panel::Összes_Bezárása.Loaded());
  }
}

TEST_F(EraseButton, WithCheckReadsConfigurationIdsFlashAndEepromBackEachOnANewEntry) {
  for (const char* number : {"12F609", "16F84A", "16F88"}) {
    MidDesk::Rest();
    const MidChip& chip = MidChipOf(number);
    desk.Choose(chip);
    desk.session.Do({"tick Check4", "answer yes"});
    MidWire model = Begun(true);
    model.Log(":  PIC Törlése Indult.");
    model.PowerOn();
    model.Erase(WholePieces(chip), chip);
    model.Log(":  PIC Törlése Kész.");
    model.PowerOn();
    model.ReadConfig(chip, ErasedMid, ErasedMid, true);
    model.PowerOn();
    model.ReadIds({ErasedMid, ErasedMid, ErasedMid, ErasedMid}, true);
    model.PowerOn();
    model.ReadFlash(Floating(CutWords));
    model.PowerOn();
    model.ReadEeprom(chip.eeprom ? Floating(CutBytes, 0xFF) : Values{});
    model.PowerOff();
    model.Line("+ Összes_Bezárása");
    ASSERT_TRUE(SameLog(model.Log(), desk.Click("Command12"))) << number;
    EXPECT_FALSE(MidEraseRun);
  }
}

TEST_F(EraseButton, ChangesNothingOfTheImage) {
  desk.Choose(MidChipOf("16F84A"));
  MidDesk::Fill(MixedWords());
  image::EepromBuffer(3, 1) = "12";
  desk.session.Do("answer yes");
  desk.Click("Command12");
  EXPECT_EQ(image::MainBuffer(2, 1), "1234");
  EXPECT_EQ(image::EepromBuffer(3, 1), "12");
  EXPECT_EQ(image::VerifyBuffer(1, 1), "FFFF");
}

TEST_F(EraseButton, WithoutAChipTellsSoMarksALoadAsFailedAndLeavesTheRunMarkSet) {
  icsp::LoadFailed = 0;
  EXPECT_EQ(desk.Click("Command12"), Lines{"M ok ok Nincs PIC kiválasztva!"});
  EXPECT_EQ(icsp::LoadFailed, 1);
  EXPECT_TRUE(MidEraseRun);
}

TEST_F(EraseButton, RefusedLeavesTheRunMarkSetAndALaterIdentificationOnItsCallersEntry) {
  desk.Choose(MidChipOf("16F84A"));
  MidWire model = Begun(false);
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command12")));
  EXPECT_TRUE(MidEraseRun);

  MidWire read = desk.Model();
  read.PowerOn();
  read.Identify(ErasedMid, false);
  read.Ask(false, "Nem érzékelek PIC-et! Folytatod az olvasást?");
  read.PowerOff();
  EXPECT_TRUE(SameLog(read.Log(), desk.Click("Command8")));
  EXPECT_TRUE(MidEraseRun) << "a read does not clear it";

  desk.session.Do("answer yes");
  desk.Click("Command12");
  EXPECT_FALSE(MidEraseRun) << "a complete erase does";
}

}  // namespace
}  // namespace zelvo::test
