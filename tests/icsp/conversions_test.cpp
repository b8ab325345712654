// Conversions between hexadecimal digits, numbers and bit texts.
#include "icsp/conversions.h"

#include <gtest/gtest.h>

#include <string>

namespace zelvo::test {
namespace {

using namespace icsp;  // NOLINT: the tests speak in the terms of the engine

constexpr const char* Digits[16][3] = {
    {"0", "0000", " 0 0 0 0"}, {"1", "0001", " 0 0 0 1"}, {"2", "0010", " 0 0 1 0"},
    {"3", "0011", " 0 0 1 1"}, {"4", "0100", " 0 1 0 0"}, {"5", "0101", " 0 1 0 1"},
    {"6", "0110", " 0 1 1 0"}, {"7", "0111", " 0 1 1 1"}, {"8", "1000", " 1 0 0 0"},
    {"9", "1001", " 1 0 0 1"}, {"A", "1010", " 1 0 1 0"}, {"B", "1011", " 1 0 1 1"},
    {"C", "1100", " 1 1 0 0"}, {"D", "1101", " 1 1 0 1"}, {"E", "1110", " 1 1 1 0"},
    {"F", "1111", " 1 1 1 1"}};

TEST(Conversions, EachDigitHasItsFourBits) {
  for (const auto& [digit, bits, spaced] : Digits) {
    HexDigitToBits(digit[0]);
    EXPECT_EQ(ConvertedBits, bits);
    EXPECT_EQ(HexDigitToNibble(digit[0]), bits);
    EXPECT_EQ(HexDigitToSpacedBits(digit[0]), spaced);
    EXPECT_EQ(BitsToHexDigit(bits), digit[0]);
  }
  EXPECT_EQ(LoadFailed, 0);
}

TEST(Conversions, EveryPairHasItsEightBitsMostSignificantFirst) {
  for (const auto& high : Digits) {
    for (const auto& low : Digits) {
      const std::string pair = std::string(high[0]) + low[0];
      HexPairToBits(pair);
      EXPECT_EQ(ConvertedBits, std::string(high[1]) + low[1]) << pair;
      EXPECT_EQ(HexPair, pair);
      int value = -1;
      HexPairToValue(pair, value);
      EXPECT_EQ(value, std::stoi(pair, nullptr, 16));
      ByteToSpacedBits(value);
      EXPECT_EQ(ConvertedBits, std::string(high[2]) + low[2]);
    }
  }
  EXPECT_EQ(LoadFailed, 0);
}

TEST(Conversions, TheSingleDigitAGives00001010) {
  HexPairToBits("A");
  EXPECT_EQ(ConvertedBits, "00001010");
  EXPECT_EQ(LoadFailed, 0);
}

TEST(Conversions, ACharacterThatIsNoUpperCaseDigitYieldsNoTextAndMarksTheFailure) {
  for (const char bad : {'a', 'f', 'G', ' ', ':', '/', '@', '-', '\xC3'}) {
    LoadFailed = 0;
    HexDigitToBits(bad);
    EXPECT_EQ(ConvertedBits, "");
    EXPECT_EQ(LoadFailed, 2) << bad;
    LoadFailed = 0;
    EXPECT_EQ(HexDigitToNibble(bad), "");
    EXPECT_EQ(LoadFailed, 2) << bad;
    LoadFailed = 0;
    EXPECT_EQ(HexDigitToSpacedBits(bad), "");
    EXPECT_EQ(LoadFailed, 2) << bad;
    LoadFailed = 0;
    HexPairToBits(std::string(1, bad) + "F");
    EXPECT_EQ(ConvertedBits, "1111") << "the good digit alone";
    EXPECT_EQ(LoadFailed, 2) << bad;
    LoadFailed = 0;
    int value = -1;
    HexPairToValue(std::string("1") + bad, value);
    EXPECT_EQ(value, 16);
    EXPECT_EQ(LoadFailed, 2) << bad;
  }
}

TEST(Conversions, ATextThatIsNoFourBitsYieldsNoDigit) {
  for (const char* bad : {"", "000", "00000", "0002", "abcd"}) {
    LoadFailed = 0;
    EXPECT_EQ(BitsToHexDigit(bad), '\0');
    EXPECT_EQ(LoadFailed, 2) << bad;
  }
}

TEST(Conversions, APlaceholderThatWasNotFilledYieldsNoBits) {
  for (const char* placeholder : {"TCU", "COD", "DA0", "C1L", "ECM", "EDA", "CO1"}) {
    LoadFailed = 0;
    ConvertedBits = "1";
    HexPairToBits(placeholder);
    EXPECT_EQ(ConvertedBits, "") << placeholder;
    EXPECT_EQ(LoadFailed, 2);
  }
}

TEST(Conversions, AnEmptyTextYieldsNoBitsAndIsNoFailure) {
  ConvertedBits = "1";
  HexPairToBits("");
  EXPECT_EQ(ConvertedBits, "");
  EXPECT_EQ(LoadFailed, 0);
}

struct Padded {
  const char *text, *two, *four, *six;
};

TEST(Conversions, PaddingFillsUpWithZerosOnTheLeft) {
  const Padded rows[] = {{"", "00", "0000", "000000"},
                         {"A", "0A", "000A", "00000A"},
                         {"3F", "3F", "003F", "00003F"},
                         {"123", "123", "0123", "000123"},
                         {"BEEF", "BEEF", "BEEF", "00BEEF"},
                         {"300000", "300000", "300000", "300000"},
                         {"1234567", "1234567", "1234567", "1234567"}};
  for (const Padded& row : rows) {
    std::string two = row.text, four = row.text, six = row.text;
    PadHex2(two);
    PadHex4(four);
    PadHex6(six);
    EXPECT_EQ(two, row.two);
    EXPECT_EQ(four, row.four);
    EXPECT_EQ(six, row.six);
  }
}

TEST(Conversions, NumbersAreWrittenInUpperCaseAndPadded) {
  EXPECT_EQ(HexPadded(0, 6), "000000");
  EXPECT_EQ(HexPadded(0x1FFC0, 6), "01FFC0");
  EXPECT_EQ(HexPadded(0xABCDEF12, 4), "ABCDEF12");
  EXPECT_EQ(HexPadded(0, 0), "0");
}

TEST(HeldDigits, GoodDigitsStayAndASingleOneIsPadded) {
  for (const char* pair : {"00", "5A", "FF", "84"}) {
    HexPairToBits("C3");
    EXPECT_EQ(WithHeldDigits(pair), pair);
  }
  EXPECT_EQ(WithHeldDigits("7"), "07");
  EXPECT_EQ(LoadFailed, 0);
}

TEST(HeldDigits, ABadDigitTakesTheOneThatTheLastConversionEndedWith) {
  struct Row {
    const char *before, *pair, *digits;
    int failed;
  };
  const Row rows[] = {{"C3", "NO", "33", 2}, {"00", "NOP", "00", 2}, {"0F", "ff", "FF", 2},
                      {"A0", "G5", "05", 2}, {"12", "4G", "44", 2},  {"C3", "ECM", "EC", 0},
                      {"8", "xy", "88", 2}};
  for (const Row& row : rows) {
    HexPairToBits(row.before);
    LoadFailed = 0;
    EXPECT_EQ(WithHeldDigits(row.pair), row.digits) << row.pair << " behind " << row.before;
    EXPECT_EQ(LoadFailed, row.failed) << row.pair;
  }
}

TEST(HeldDigits, ALoneBadCharacterTakesTheZeroThatPadsIt) {
  for (const char* text : {"L", "H", "-"}) {
    HexPairToBits("FF");
    LoadFailed = 0;
    EXPECT_EQ(WithHeldDigits(text), "00") << text;
    EXPECT_EQ(LoadFailed, 2);
  }
}

TEST(HeldDigits, TheConversionOfOneDigitIsHeldToo) {
  HexDigitToBits('9');
  EXPECT_EQ(WithHeldDigits("--"), "99");
}

TEST(HeldDigits, BeforeAnyConversionTheDigitIsZero) {
  ConvertedBits.clear();
  EXPECT_EQ(WithHeldDigits("zz"), "00");
}

TEST(HeldDigits, OnlyTwoCharactersCountAndAnEmptyTextStaysEmpty) {
  EXPECT_EQ(WithHeldDigits("123"), "12");
  EXPECT_EQ(WithHeldDigits(""), "");
  EXPECT_EQ(LoadFailed, 0);
}

TEST(HeldDigits, TheConversionSlotsStayAsTheyWere) {
  HexPairToBits("C3");
  static_cast<void>(WithHeldDigits("x1"));
  EXPECT_EQ(ConvertedBits, "11000011");
  EXPECT_EQ(HexPair, "C3");
}

}  // namespace
}  // namespace zelvo::test
