// The table of the command scripts, and the runner that clocks its stretches.
#include "icsp/scripts.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <sstream>

#include "icsp/conversions.h"
#include "icsp/pic18_engine.h"
#include "support/line_model.h"

namespace zelvo::test {
namespace {

using namespace icsp;  // NOLINT: the tests speak in the terms of the engine

struct Stretch {
  int first, last;       ///< index of the first and the last element
  const char* elements;  ///< transactions parted by a slash
};

const Stretch Scripts[] = {
    // Set the table pointer
    {1, 18, "0000 TCU 0E / 0000 F8 6E / 0000 TCH 0E / 0000 F7 6E / 0000 TCL 0E / 0000 F6 6E"},
    // Row erase of 64 bytes, with the unlock sequence
    {51, 98,
     "0000 A6 8E / 0000 A6 9C / 0000 TCU 0E / 0000 F8 6E / 0000 TCH 0E / 0000 F7 6E / "
     "0000 TCL 0E / 0000 F6 6E / 0000 A6 84 / 0000 A6 88 / 0000 55 0E / 0000 A7 6E / 0000 AA 0E / "
     "0000 A7 6E / 0000 A6 82 / 0000 00 00"},
    // ID write with a row erase before it
    {101, 178,
     "0000 A6 8E / 0000 A6 9C / 0000 TCU 0E / 0000 F8 6E / 0000 TCH 0E / 0000 F7 6E / "
     "0000 TCL 0E / 0000 F6 6E / 0000 A6 84 / 0000 A6 88 / 0000 55 0E / 0000 A7 6E / 0000 AA 0E / "
     "0000 A7 6E / 0000 A6 82 / 0000 00 00 / 0000 A6 94 / 0000 TCH 0E / 0000 F7 6E / "
     "0000 TCL 0E / 0000 F6 6E / 1101 DA1 DA0 / 1101 DA3 DA2 / 1101 DA5 DA4 / 1111 DA7 DA6 / "
     "NOP L L"},
    // Configuration write, starting at 300000h
    {201, 353,
     "0000 A6 8E / 0000 A6 8C / 0000 00 EF / 0000 00 F8 / 0000 30 0E / 0000 F8 6E / 0000 00 0E / "
     "0000 F7 6E / 0000 00 0E / 0000 F6 6E / 1111 C1L C1L / 0000 00 00 / 0000 F6 2A / "
     "1111 C1H C1H / 0000 00 00 / 0000 F6 2A / 1111 C2L C2L / 0000 00 00 / 0000 F6 2A / "
     "1111 C2H C2H / 0000 00 00 / 0000 F6 2A / 1111 C3L C3L / 0000 00 00 / 0000 F6 2A / "
     "1111 C3H C3H / 0000 00 00 / 0000 F6 2A / 1111 C4L C4L / 0000 00 00 / 0000 F6 2A / "
     "1111 C4H C4H / 0000 00 00 / 0000 F6 2A / 1111 C5L C5L / 0000 00 00 / 0000 F6 2A / "
     "1111 C5H C5H / 0000 00 00 / 0000 F6 2A / 1111 C6L C6L / 0000 00 00 / 0000 F6 2A / "
     "1111 C6H C6H / 0000 00 00 / 0000 F6 2A / 1111 C7L C7L / 0000 00 00 / 0000 F6 2A / "
     "1111 C7H C7H / NOP H L"},
    // Bulk erase, one code, at 3C0004h
    {401, 427,
     "0000 3C 0E / 0000 F8 6E / 0000 00 0E / 0000 F7 6E / 0000 04 0E / 0000 F6 6E / 1100 COD 00 / "
     "0000 00 00 / NOP L L"},
    // Single-panel write mode: 0 to 3C0006h
    {451, 477,
     "0000 A6 8E / 0000 A6 8C / 0000 3C 0E / 0000 F8 6E / 0000 00 0E / 0000 F7 6E / 0000 06 0E / "
     "0000 F6 6E / 1100 00 00"},
    // EEPROM write, low address only
    {501, 542,
     "0000 A6 9E / 0000 A6 9C / 0000 ECM 0E / 0000 A9 6E / 0000 EDA 0E / 0000 A8 6E / "
     "0000 A6 84 / 0000 55 0E / 0000 A7 6E / 0000 AA 0E / 0000 A7 6E / 0000 A6 82 / 0000 A6 50 / "
     "0000 F5 6E"},
    // EEPROM write, low address only
    {544, 546, "0000 A6 94"},
    // EEPROM read, low address only
    {551, 574,
     "0000 A6 9E / 0000 A6 9C / 0000 ECM 0E / 0000 A9 6E / 0000 A6 80 / 0000 A8 50 / 0000 F5 6E / "
     "0000 00 00"},
    // EEPROM read, both address bytes
    {601, 630,
     "0000 A6 9E / 0000 A6 9C / 0000 ECM 0E / 0000 A9 6E / 0000 ECH 0E / 0000 AA 6E / "
     "0000 A6 80 / 0000 A8 50 / 0000 F5 6E / 0000 00 00"},
    // EEPROM write, both address bytes
    {701, 751,
     "0000 A6 9E / 0000 A6 9C / 0000 ECM 0E / 0000 A9 6E / 0000 ECH 0E / 0000 AA 6E / "
     "0000 EDA 0E / 0000 A8 6E / 0000 A6 84 / 0000 55 0E / 0000 A7 6E / 0000 AA 0E / 0000 A7 6E / "
     "0000 A6 82 / 0000 A6 50 / 0000 F5 6E / 0000 A6 94"},
    // Flash panel: access and table pointer
    {801, 824,
     "0000 A6 8E / 0000 A6 9C / 0000 TCU 0E / 0000 F8 6E / 0000 TCH 0E / 0000 F7 6E / "
     "0000 TCL 0E / 0000 F6 6E"},
    // Direct Flash write: run by no operation
    {851, 856, "0000 A6 9C / 0000 A6 84"},
    // EEPROM write without unlock
    {901, 930,
     "0000 A6 9E / 0000 A6 9C / 0000 ECM 0E / 0000 A9 6E / 0000 ECH 0E / 0000 AA 6E / "
     "0000 EDA 0E / 0000 A8 6E / 0000 A6 84 / 0000 A6 82"},
    // EEPROM write without unlock
    {943, 954, "0000 A6 50 / 0000 F5 6E / 0000 00 00 / 0000 A6 94"},
    // Bulk erase, two codes, at 3C0005h and 3C0004h
    {1001, 1048,
     "0000 3C 0E / 0000 F8 6E / 0000 00 0E / 0000 F7 6E / 0000 05 0E / 0000 F6 6E / "
     "1100 CO1 CO1 / 0000 3C 0E / 0000 F8 6E / 0000 00 0E / 0000 F7 6E / 0000 04 0E / "
     "0000 F6 6E / 1100 CO2 CO2 / 0000 00 00 / NOP L L"},
    // Row erase without unlock: stored, run by no operation
    {1101, 1136,
     "0000 A6 8E / 0000 A6 9C / 0000 TCU 0E / 0000 F8 6E / 0000 TCH 0E / 0000 F7 6E / "
     "0000 TCL 0E / 0000 F6 6E / 0000 A6 84 / 0000 A6 88 / 0000 A6 82 / 0000 00 00"},
    // ID write with row erase, without unlock
    {1201, 1266,
     "0000 A6 8E / 0000 A6 9C / 0000 TCU 0E / 0000 F8 6E / 0000 TCH 0E / 0000 F7 6E / "
     "0000 TCL 0E / 0000 F6 6E / 0000 A6 84 / 0000 A6 88 / 0000 A6 82 / NOP H L / 0000 TCH 0E / "
     "0000 F7 6E / 0000 TCL 0E / 0000 F6 6E / 1101 DA1 DA0 / 1101 DA3 DA2 / 1101 DA5 DA4 / "
     "1111 DA7 DA6 / NOP H L / 0000 A6 94"},
    // Row erase without unlock, ended by the pulse
    {1301, 1339,
     "0000 A6 8E / 0000 A6 9C / 0000 TCU 0E / 0000 F8 6E / 0000 TCH 0E / 0000 F7 6E / "
     "0000 TCL 0E / 0000 F6 6E / 0000 A6 84 / 0000 A6 88 / 0000 A6 82 / NOP H L / 0000 A6 94"},
};

/// What each element should hold.
std::array<std::string, ScriptElements> ExpectedTable() {
  std::array<std::string, ScriptElements> table;
  for (const Stretch& script : Scripts) {
    std::istringstream words(script.elements);
    auto index = static_cast<std::size_t>(script.first);
    for (std::string word; words >> word;) {
      if (word != "/") table.at(index++) = word;
    }
    EXPECT_EQ(index, static_cast<std::size_t>(script.last) + 1) << "the row at " << script.first;
  }
  return table;
}

TEST(ScriptTable, HoldsEachScriptAtItsPlaceAndNothingBetween) {
  FillScriptTable();
  const auto expected = ExpectedTable();
  for (int index = 0; index < ScriptElements; ++index) {
    EXPECT_EQ(ScriptElement(index), expected[static_cast<std::size_t>(index)]) << "element " << index;
  }
}

TEST(ScriptTable, IsEmptyAtZeroAndAbove1339) {
  FillScriptTable();
  EXPECT_EQ(ScriptElement(0), "");
  EXPECT_EQ(ScriptElement(1339), "94");
  for (int index = 1340; index <= 2000; ++index) EXPECT_EQ(ScriptElement(index), "") << index;
}

TEST(ScriptTable, AnIndexBeyond2000IsAFault) {
  FillScriptTable();
  EXPECT_THROW(static_cast<void>(ScriptElement(2001)), std::out_of_range);
  EXPECT_THROW(static_cast<void>(ScriptElement(-1)), std::out_of_range);
  EXPECT_THROW(RunScript(2000, 1, 1, 0, nullptr), std::out_of_range);
}

TEST(ScriptTable, EveryElementIsACommandAHexPairAPlaceholderOrTheEnd) {
  FillScriptTable();
  const std::set<std::string_view> others{"",    "0000", "1100", "1101", "1111", "TCU", "TCH", "TCL", "CO1",
                                          "CO2", "COD",  "ECM",  "ECH",  "EDA",  "NOP", "L",   "H"};
  for (int index = 0; index < ScriptElements; ++index) {
    const std::string_view element = ScriptElement(index);
    const bool pair = element.size() == 2 && DigitValue(element[0]) >= 0 && DigitValue(element[1]) >= 0;
    const bool panel =
        element.size() == 3 && element.starts_with("DA") && element[2] >= '0' && element[2] <= '7';
    const bool config = element.size() == 3 && element[0] == 'C' && element[1] >= '1' && element[1] <= '7' &&
                        (element[2] == 'L' || element[2] == 'H');
    EXPECT_TRUE(pair || panel || config || others.contains(element)) << index << ": " << element;
  }
}

TEST(ScriptTable, IsFilledByTheStart) {
  BenchSession session;
  EXPECT_EQ(session.Ask("var ScriptTable(1)"), "");
  session.Do("start");
  EXPECT_EQ(session.Ask("var ScriptTable(1)"), "0000");
  EXPECT_EQ(session.Ask("var ScriptTable(2)"), "TCU");
}

/// The bits of a hexadecimal pair.
std::string Bits(const std::string& pair) {
  const int value = std::stoi(pair, nullptr, 16);
  std::string bits;
  for (int i = 7; i >= 0; --i) bits += (value >> i & 1) != 0 ? '1' : '0';
  return bits;
}

class Runner : public testing::Test {
 protected:
  /// The model clocks out elements parted by blanks, each with `pause` waits behind it.
  void Expect(const std::string& elements, int pause) {
    std::istringstream words(elements);
    for (std::string word; words >> word;) {
      if (word == "/") continue;
      model.ClockOut(word.size() == 4 ? word : Bits(word));
      for (int i = 0; i < pause; ++i) model.Wait();
    }
  }
  LineModel model{LineModel::Kind::Lpt, 0};
  LineSession session{model};
};

/// No element is replaced.
const Placeholder Unfilled = [](std::string_view element) { return element; };

TEST_F(Runner, SetsTheTablePointerFromItsThreeTextsWithThreeWaitsBehindEachElement) {
  Expect("0000 1F 0E / 0000 F8 6E / 0000 A2 0E / 0000 F7 6E / 0000 C0 0E / 0000 F6 6E", 3);
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf([] { SetTablePointer("1F", "A2", "C0"); })));
}

TEST_F(Runner, TheTablePointersOwnTextsAreLeftAlone) {
  TablePointerU = "01";
  SetTablePointer("30", "00", "0D");
  EXPECT_EQ(TablePointerU, "01");
}

TEST_F(Runner, SetsThePanelModeWithoutPauses) {
  Expect(
      "0000 A6 8E / 0000 A6 8C / 0000 3C 0E / 0000 F8 6E / 0000 00 0E / 0000 F7 6E / 0000 06 0E / "
      "0000 F6 6E / 1100 00 00",
      0);
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf(SinglePanelMode)));
}

TEST_F(Runner, ClocksAStretchOfAScriptWithTheRunningTablePointer) {
  TablePointerU = "00";
  TablePointerH = "12";
  TablePointerL = "40";
  Expect(
      "0000 A6 8E / 0000 A6 9C / 0000 00 0E / 0000 F8 6E / 0000 12 0E / 0000 F7 6E / 0000 40 0E / 0000 F6 6E",
      0);
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf([] {
    RunScript(base::FlashPanel, 1, 6, 0, TablePointerText);
    RunScript(base::FlashPanel, 7, 24, 0, TablePointerText);
  })));
}

TEST_F(Runner, StopsAtTheEndMarkAndNeverClocksWhatStandsBehindIt) {
  Expect(
      "0000 3C 0E / 0000 F8 6E / 0000 00 0E / 0000 F7 6E / 0000 04 0E / 0000 F6 6E / 1100 80 00 / 0000 00 00",
      1);
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf([] {
    RunScript(base::BulkEraseOneKey, 1, 27, 1, [](std::string_view element) {
      EXPECT_NE(element, "L");
      return element == "COD" ? std::string_view("80") : element;
    });
  })));
}

TEST_F(Runner, StopsAtTheFirstEndMarkOfAScriptThatHasTwo) {
  const Lines log = session.LogOf([] { RunScript(base::IdWriteNoUnlock, 31, 66, 2, Unfilled); });
  Expect("0000 A6 82", 2);
  EXPECT_TRUE(SameLog(model.Take(), log));
}

TEST_F(Runner, APlaceholderLeftUnfilledProducesNoBitsButKeepsItsPause) {
  model.ClockOut("0000");
  model.Wait();
  model.Wait();
  Expect("0E", 1);
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf([] { RunScript(base::TablePointer, 1, 3, 1, nullptr); })));
}

TEST_F(Runner, TheEmptyElementsInsideTheEepromWritesClockNothing) {
  Expect("0000 F5 6E / 0000 A6 94", 0);
  EXPECT_TRUE(
      SameLog(model.Take(), session.LogOf([] { RunScript(base::EepromWriteLow, 40, 46, 0, Unfilled); })));
  Expect("0000 A6 82 / 0000 A6 50", 0);
  EXPECT_TRUE(SameLog(model.Take(),
                      session.LogOf([] { RunScript(base::EepromWriteNoUnlock, 28, 45, 0, Unfilled); })));
}

TEST_F(Runner, AnIndexAboveTheScriptsMovesNoLine) {
  EXPECT_EQ(session.LogOf([] { RunScript(0, 1340, 2000, 0, nullptr); }), Lines{});
}

TEST_F(Runner, AWholeTransactionIsTheCommandThenTheLowThenTheHighByte) {
  Expect("1101 34 12", 0);
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf([] { ClockTransaction("1101", "34", "12"); })));
}

TEST_F(Runner, BothPayloadSlotsOfAConfigurationByteCarryTheSameByte) {
  Expect("1111 2A 2A / 0000 00 00 / 0000 F6 2A", 0);
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf([] {
    RunScript(base::ConfigWrite, 31, 39, 0,
              [](std::string_view element) { return element == "C1L" ? std::string_view("2A") : element; });
  })));
}

TEST(RunnerOnTheSerialPort, ClocksTheSameBitsInTheSameOrder) {
  LineModel model(LineModel::Kind::Com, 15);
  LineSession session(model);
  for (const char* element : {"0000", "00", "0E", "0000", "F8", "6E", "0000", "AB", "0E", "0000", "F7", "6E",
                              "0000", "CD", "0E", "0000", "F6", "6E"}) {
    model.ClockOut(std::string(element).size() == 4 ? element : Bits(element));
    for (int i = 0; i < 3; ++i) model.Wait();
  }
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf([] { SetTablePointer("00", "AB", "CD"); })));
}

}  // namespace
}  // namespace zelvo::test
