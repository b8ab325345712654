// The erases of the PIC18: which codes each chip takes, in which order and with how much time.
#include "ops18/erase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "icsp/conversions.h"
#include "icsp/scripts.h"
#include "operations.h"
#include "ops18/flash_write.h"
#include "panel/form1.h"
#include "write_model.h"

namespace zelvo::test {
namespace {

using panel::Form1;

int NextEvent(Operations& it) {
  return std::stoi(it.session.Ask("var EventCounter"));
}

/// The whole-chip erase of an older chip: no pause between the transactions, two ticks of hold.
void AddOneKeyErase(WireModel& model) {
  model.SetPointer(0x3C0004);
  model.Frame("1100", 0x0080);
  model.Frame("0000", 0);
  model.Out("0000");
  model.Line("S11");
  model.Line("S11");
  model.OutByte(0);
  model.OutByte(0);
}

Lines WholeEraseLog(const BoardKind& kind, int event, const ChipRow& chip) {
  WireModel model(kind, 10);
  model.PowerOn();
  model.Event(event, ":  Teljes Memória törlés indult.");
  if (chip.OneKey()) {
    AddOneKeyErase(model);
  } else {
    AddTwoKeyErase(model, 0xFF, 0x87);
  }
  model.PowerOff();
  model.Event(event + 1, ":  PIC Törlése kész.");
  return model.Log();
}

TEST(WholeChipErase, IsOneCodeOn32ChipsAndTwoOnTheOther40) {
  Operations it;
  std::map<std::string_view, int> chips;
  for (const ChipRow& chip : ChipRows) {
    Form1.Combo1.Text = chip.Name();
    ++chips[chip.whole];
    const Lines expected = WholeEraseLog(BoardKinds().front(), NextEvent(it), chip);
    ASSERT_TRUE(SameLog(expected, it.WireOf(ops18::EraseWholeChip))) << chip.number;
  }
  EXPECT_EQ(chips, (std::map<std::string_view, int>{{"80", 32}, {"FF/87", 40}}));
}

TEST(CodeBlockErase, SendsEveryChipsCodesInOrderAndLogsNothing) {
  Operations it;
  for (const ChipRow& chip : ChipRows) {
    Form1.Combo1.Text = chip.Name();
    WireModel model(BoardKinds().front(), 10);
    AddCodeErase(model, chip);
    const int event = NextEvent(it);
    ASSERT_TRUE(SameLog(model.Log(), it.WireOf(ops18::EraseCodeBlocks))) << chip.number;
    ASSERT_EQ(NextEvent(it), event) << chip.number;
  }
}

TEST(EraseTables, HoldEveryChipOfTheCatalogueExactlyOnce) {
  Operations it;
  const Lines chips = it.session.Look("list Combo1");
  ASSERT_EQ(chips.size(), 72U);
  for (const std::string& chip : chips) {
    EXPECT_NE(ops18::IsOneKeyChip(chip), ops18::IsTwoKeyChip(chip)) << chip;
    EXPECT_FALSE(ops18::BlockKeys(chip).empty()) << chip;
    EXPECT_NE(ops18::FindWriteRow(chip), nullptr) << chip;
    EXPECT_EQ(std::count_if(std::begin(ChipRows), std::end(ChipRows),
                            [&chip](const ChipRow& row) { return row.Name() == chip; }),
              1)
        << chip;
  }
}

class EraseOn : public testing::TestWithParam<BoardKind> {};

TEST_P(EraseOn, BothErasesMoveTheBoardsOwnLines) {
  Operations it(GetParam());
  for (const std::string_view number : {"242", "2410"}) {
    const ChipRow& chip = *std::find_if(std::begin(ChipRows), std::end(ChipRows),
                                        [number](const ChipRow& row) { return row.number == number; });
    Form1.Combo1.Text = chip.Name();
    const Lines whole = WholeEraseLog(GetParam(), NextEvent(it), chip);
    EXPECT_TRUE(SameLog(whole, it.WireOf(ops18::EraseWholeChip))) << number;
    WireModel blocks(GetParam(), 10);
    AddCodeErase(blocks, chip);
    EXPECT_TRUE(SameLog(blocks.Log(), it.WireOf(ops18::EraseCodeBlocks))) << number;
  }
}

INSTANTIATE_TEST_SUITE_P(Board, EraseOn, testing::ValuesIn(BoardKinds()),
                         [](const auto& kind) { return std::string(kind.param.name); });

class Erase : public testing::Test {
 protected:
  [[nodiscard]] static long long Count(const Lines& log, std::string_view line) {
    return std::count(log.begin(), log.end(), line);
  }
  Operations it;
};

TEST_F(Erase, ThreeKeysOfPic18F242GetTwentyFourZeroBitsEachAndNoHold) {
  Form1.Combo1.Text = std::string("PIC18F242");
  const Lines log = it.WireOf(ops18::EraseCodeBlocks);
  EXPECT_EQ(Count(log, "S11"), 0);
  EXPECT_EQ(Count(log, "S9"), 0);
  // 8 transactions of 20 bits and 24 bits more for each key, two waits a bit, one wait behind each of the 27
  // texts.
  EXPECT_EQ(Count(log, "P 10"), 3 * ((8 * 20 + 24) * 2 + 27));
}

TEST_F(Erase, ThreePairsOfPic18F2410GetTwoHoldsEach) {
  Form1.Combo1.Text = std::string("PIC18F2410");
  EXPECT_EQ(Count(it.WireOf(ops18::EraseCodeBlocks), "S11"), 3 * 2);
}

TEST_F(Erase, ANameOutsideTheTablesErasesNothingAndStillSaysDone) {
  Form1.Combo1.Text = std::string("PIC18F45K20");
  const int event = NextEvent(it);
  WireModel whole(BoardKinds().front(), 10);
  whole.PowerOn();
  whole.Event(event, ":  Teljes Memória törlés indult.");
  whole.PowerOff();
  whole.Event(event + 1, ":  PIC Törlése kész.");
  EXPECT_TRUE(SameLog(whole.Log(), it.WireOf(ops18::EraseWholeChip)));

  WireModel blocks(BoardKinds().front(), 10);
  blocks.PowerOn();
  blocks.Line("D settle");
  blocks.PowerOff();
  EXPECT_TRUE(SameLog(blocks.Log(), it.WireOf(ops18::EraseCodeBlocks)));
}

TEST_F(Erase, TheTwoCodesLastUsedAreKept) {
  Form1.Combo1.Text = std::string("PIC18F6722");
  ops18::EraseWholeChip();
  EXPECT_EQ(icsp::EraseKey1, "FF");
  EXPECT_EQ(icsp::EraseKey2, "87");
  ops18::EraseCodeBlocks();
  EXPECT_EQ(icsp::EraseKey1, "80");
  EXPECT_EQ(icsp::EraseKey2, "80");
}

TEST_F(Erase, TheClosingTextsOfTheOneKeyScriptLeaveTheMarkOfABadDigit) {
  icsp::LoadFailed = 0;
  Form1.Combo1.Text = std::string("PIC18F2410");
  ops18::EraseCodeBlocks();
  EXPECT_EQ(icsp::LoadFailed, 0);
  Form1.Combo1.Text = std::string("PIC18F452");
  ops18::EraseWholeChip();
  EXPECT_EQ(icsp::LoadFailed, 0) << "the bulk erase stops at the end mark";
  ops18::EraseCodeBlocks();
  EXPECT_EQ(icsp::LoadFailed, 2);
}

TEST_F(Erase, NoProgressWindowAndNoCancelBelongToIt) {
  Form1.Combo1.Text = std::string("PIC18F452");
  for (const std::string& line : it.WireOf(ops18::EraseWholeChip)) {
    EXPECT_FALSE(line.starts_with("+ ") || line.starts_with("B ")) << line;
  }
}

}  // namespace
}  // namespace zelvo::test
