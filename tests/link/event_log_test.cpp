// The event log and the numbers of the settings files.
#include "link/event_log.h"

#include <gtest/gtest.h>

#include "link/numbers.h"
#include "panel/form1.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using namespace link;  // NOLINT: the tests speak in the terms of the link
using panel::Form1;

TEST(EventLog, TheNewestLineStandsOnTopAndTheCounterGrowsByOne) {
  BenchSession session;
  LogEvent(Form1.List1, ":  első");
  LogEvent(Form1.List1, ":  második");
  EXPECT_EQ(Form1.List1.Lines(), (Lines{"2:  12:00:00:  második", "1:  12:00:00:  első"}));
  EXPECT_EQ(Form1.List4.Lines(), Lines{});
  EXPECT_EQ(EventCounter, 3);
}

TEST(EventLog, OneCounterServesBothListsAndALineInBothHasOneNumber) {
  BenchSession session;
  session.BeginWire();
  LogEvent(Form1.List4, ":  a");
  LogToBoth(":  b");
  LogEvent(Form1.List1, ":  c");
  EXPECT_EQ(session.EndWire(), (Lines{"L List4 1:  12:00:00:  a", "L List1 2:  12:00:00:  b",
                                      "L List4 2:  12:00:00:  b", "L List1 3:  12:00:00:  c"}));
}

TEST(EventLog, ThePageInViewHasItsOwnList) {
  BenchSession session;
  session.Do({"start", "tab 2"});
  EXPECT_EQ(&PageLog(), &Form1.List1);
  session.Do("tab 1");
  EXPECT_EQ(&PageLog(), &Form1.List4);
}

TEST(Numbers, AnAddressIsHexadecimalBehindItsPrefixOrDecimal) {
  EXPECT_EQ(ReadAddress("&H378"), 888);
  EXPECT_EQ(ReadAddress(" &h2f8 "), 760);
  EXPECT_EQ(ReadAddress("888"), 888);
  EXPECT_EQ(ReadAddress("&HFFFF"), -1);
  for (const char* bad : {"", "&H", "&H12345", "&HG", "70000", "378h", "0x378"}) {
    EXPECT_EQ(ReadAddress(bad), std::nullopt) << bad;
  }
}

TEST(Numbers, WholeAndDecimalTexts) {
  EXPECT_EQ(ReadWhole(" 28\r\n"), 28);
  EXPECT_EQ(ReadWhole("+5"), 5);
  EXPECT_EQ(ReadWhole("-5"), -5);
  for (const char* bad : {"", " ", "5x", "5 5", "+-5"}) {
    EXPECT_EQ(ReadWhole(bad), std::nullopt) << bad;
    EXPECT_EQ(ReadNumber(bad), std::nullopt) << bad;
  }
  EXPECT_EQ(ReadWhole("99999999999999999999"), std::nullopt);
  EXPECT_EQ(ReadNumber("2.5"), 2.5);
  EXPECT_EQ(ReadNumber("2,5"), 2.5);
}

TEST(Numbers, HexTextsOfFourDigitsAreSignedSixteenBits) {
  EXPECT_EQ(ReadHex("FFFF"), -1);
  EXPECT_EQ(ReadHex("FFFE0"), 0xFFFE0);
  EXPECT_EQ(ReadHex("FFFFFFFF"), -1);
  EXPECT_EQ(ReadHex("123456789"), std::nullopt);
  EXPECT_EQ(HexText(0x3F8), "3F8");
  EXPECT_EQ(HexText(0), "0");
}

TEST(Numbers, AreWrittenWithoutDecimalsWhenWhole) {
  EXPECT_EQ(NumberText(1500), "1500");
  EXPECT_EQ(NumberText(1.5), "1.5");
}

TEST(Numbers, HalvesGoToTheEvenNeighbour) {
  EXPECT_EQ(RoundHalfEven(0.5), 0);
  EXPECT_EQ(RoundHalfEven(1.5), 2);
  EXPECT_EQ(RoundHalfEven(2.5), 2);
  EXPECT_EQ(RoundHalfEven(12.7), 13);
}

}  // namespace
}  // namespace zelvo::test
