// What the editors take for a number and what they refuse with which words: the rules as plain functions.
#include "ui/number_entry.h"

#include <gtest/gtest.h>

#include <bitset>
#include <cstdio>
#include <initializer_list>
#include <string>

namespace zelvo::ui {
namespace {

constexpr const char* BadWordDigits = "Nem megfelelő formátum. 0-9, A-F,(XXXX)";
constexpr const char* BadByteDigits = "Nem megfelelő formátum. 0-9, A-F,(XX)";
constexpr const char* NoNumber = "Nem adtál meg számot!";
constexpr const char* BadBits = "A megfelelő formátum 1-ekből és 0-ákból állhat.";
constexpr const char* BadCharacter = "Hibás karakter bevitel!";
constexpr const char* OneCharacterOnly = "Csak egy karakter hoszzúságú lehet a bevitel!";
constexpr const char* TwoDigitsOnly = "A hexa szám két karakteres kell legyen!";
constexpr const char* FourDigitsOnly = "A hexa szám max 4 karakteres lehet!";
constexpr const char* MidIdRange = "Helyes Tartomány: 0 és 3FFFh között.";
constexpr const char* NoFraction = "A bevitel nem lehet törtszám!";

struct Accepted {
  const char* text;
  int value;
};

template <class Read>
void ExpectAccepted(const Read& read, std::initializer_list<Accepted> cases) {
  for (const auto& [text, value] : cases) {
    const Entry entry = read(text);
    EXPECT_EQ(entry.value, value) << '\'' << text << '\'';
    EXPECT_EQ(entry.refusal, "") << '\'' << text << '\'';
  }
}

template <class Read>
void ExpectRefused(const Read& read, const std::string& message, std::initializer_list<const char*> texts) {
  for (const char* text : texts) {
    const Entry entry = read(text);
    EXPECT_FALSE(entry.value) << '\'' << text << '\'';
    EXPECT_EQ(entry.refusal, message) << '\'' << text << '\'';
  }
}

auto HexOf(const CellRules& rules) {
  return [&rules](const char* text) { return ReadCellHex(text, rules); };
}
auto DecimalOf(const CellRules& rules) {
  return [&rules](const char* text) { return ReadCellDecimal(text, rules); };
}
auto BinaryOf(const CellRules& rules) {
  return [&rules](const char* text) { return ReadCellBinary(text, rules); };
}

TEST(CellHex, IsPaddedToTheWidthOfItsMemory) {
  ExpectAccepted(HexOf(Pic18FlashRules()), {{"", 0}, {"0", 0}, {"1F", 31}, {"ABC", 2748}, {"001F", 31}});
  ExpectAccepted(HexOf(MidRangeFlashRules()), {{"", 0}, {"1F", 31}, {"FFF", 4095}});
  ExpectAccepted(HexOf(EepromRules()), {{"", 0}, {"5", 5}, {"F", 15}, {"0A", 10}});
}

TEST(CellHex, PassesUpToTheLimitOfItsMemory) {
  ExpectAccepted(HexOf(Pic18FlashRules()), {{"3FFF", 16383}, {"4000", 16384}, {"FFFF", 65535}});
  ExpectAccepted(HexOf(MidRangeFlashRules()), {{"3FFF", 16383}, {"3FFE", 16382}});
  ExpectAccepted(HexOf(EepromRules()), {{"7F", 127}, {"80", 128}, {"FF", 255}});
}

TEST(CellHex, AboveTheLimitTellsTheRangeInHexadecimal) {
  ExpectRefused(HexOf(MidRangeFlashRules()), "Helyes Tartomány: 0 és 3FFF között.",
                {"4000", "8000", "FFFF", "03FFF", "12345"});
}

TEST(CellHex, OfAnotherLengthTellsTheRangeWhateverItsValue) {
  ExpectRefused(HexOf(Pic18FlashRules()), "Helyes Tartomány: 0 és FFFF között.",
                {"00000", "12345", "1234G", "0000000001", "1234 ", "1234é"});
  ExpectRefused(HexOf(EepromRules()), "Helyes Tartomány: 0 és FF között.",
                {"000", "100", "123", "12G", "12é"});
}

TEST(CellHex, WithABadDigitAmongTheFirstTellsTheFormat) {
  const std::initializer_list<const char*> texts = {"G",    "g",    "1f",   "abcd", "12 ",  " 12", "1G00",
                                                    "123G", "G000", "-1",   "+1",   "1.5",  "&H1", "1h",
                                                    "é",    "12é",  "éééé", "12:4", "@123", "/",   "GGGGG"};
  ExpectRefused(HexOf(Pic18FlashRules()), BadWordDigits, texts);
  ExpectRefused(HexOf(MidRangeFlashRules()), BadWordDigits, texts);
  ExpectRefused(HexOf(EepromRules()), BadByteDigits,
                {"G", "f", "fF", "Ff", " 1", "1 ", "-1", "1G", "é", "G12"});
}

TEST(CellHex, TakesEveryWordAsItsFourDigitsGiveIt) {
  char text[5];
  for (int value = 0; value <= 0xFFFF; ++value) {
    std::snprintf(text, sizeof text, "%04X", static_cast<unsigned>(value));
    ASSERT_EQ(ReadCellHex(text, Pic18FlashRules()).value, value);
    ASSERT_EQ(ReadCellHex(text, MidRangeFlashRules()).value.has_value(), value <= 0x3FFF) << text;
  }
}

TEST(CellDecimal, PassesUpToTheLimitOfItsMemory) {
  ExpectAccepted(DecimalOf(Pic18FlashRules()), {{"0", 0}, {"16384", 16384}, {"65535", 65535}, {"007", 7}});
  ExpectAccepted(DecimalOf(MidRangeFlashRules()), {{"0", 0}, {"16383", 16383}});
  ExpectAccepted(DecimalOf(EepromRules()), {{"0", 0}, {"255", 255}, {" 12 ", 12}, {"+5", 5}});
}

TEST(CellDecimal, BeyondTheLimitTellsTheRangeInDecimal) {
  ExpectRefused(DecimalOf(Pic18FlashRules()), "Helyes Tartomány: 0 és 65535 között.",
                {"-1", "65536", "65535.5", "1e9", "-0.25"});
  ExpectRefused(DecimalOf(MidRangeFlashRules()), "Helyes Tartomány: 0 és 16383 között.",
                {"-1", "16384", "16383.25", "65535"});
}

TEST(CellDecimal, RangeOfTheEepromHasNoFinalPoint) {
  ExpectRefused(DecimalOf(EepromRules()), "Helyes Tartomány: 0 és 255 között",
                {"-1", "256", "255.5", "1000000"});
}

TEST(CellDecimal, ThatIsNoNumberTellsSo) {
  const std::initializer_list<const char*> texts = {"",    " ",   "x",   "12x", "1F",   "1 2", "--1",
                                                    "+-1", "nan", "inf", "é",   "1..2", ",",   "."};
  for (const CellRules* rules : {&Pic18FlashRules(), &MidRangeFlashRules(), &EepromRules()})
    ExpectRefused(DecimalOf(*rules), NoNumber, texts);
}

TEST(CellDecimal, RoundsAFractionHalvesToTheEvenNeighbour) {
  ExpectAccepted(DecimalOf(EepromRules()),
                 {{"12.4", 12}, {"12.5", 12}, {"13.5", 14}, {"12,6", 13}, {"0.5", 0}, {"254.75", 255}});
}

TEST(CellBinary, MayHaveBlanksAnywhere) {
  ExpectAccepted(BinaryOf(Pic18FlashRules()), {{"0", 0},
                                               {"1", 1},
                                               {"1010", 10},
                                               {" 1 0 1 0 ", 10},
                                               {"0011 1111 1111 1111", 16383},
                                               {"1111 1111 1111 1111", 65535},
                                               {"1000000000000000", 32768}});
  ExpectAccepted(BinaryOf(MidRangeFlashRules()), {{"0011 1111 1111 1111", 16383}, {"1 1", 3}});
  ExpectAccepted(BinaryOf(EepromRules()), {{"1111 1111", 255}, {"0000 1000", 8}});
}

TEST(CellBinary, CountsItsValueAndNotItsLength) {
  ExpectAccepted(BinaryOf(EepromRules()), {{"0 0000 0001", 1}, {"00000000000000000000000011111111", 255}});
  ExpectAccepted(BinaryOf(Pic18FlashRules()), {{"0000 0000 0000 0000 0000 0001", 1}});
}

TEST(CellBinary, BeyondTheLimitTellsTheRangeOfItsMemory) {
  ExpectRefused(BinaryOf(Pic18FlashRules()), "Helyes Tartomány: 0 és 1111 1111 1111 1111 között.",
                {"1 0000 0000 0000 0000", "11111111111111111",
                 "100000000000000000000000000000000000000000000000000000000000000000000000"});
  ExpectRefused(BinaryOf(MidRangeFlashRules()), "Helyes Tartomány: 0 és 0011 1111 1111 1111 között.",
                {"0100 0000 0000 0000", "1111 1111 1111 1111", "11111111111111111"});
  ExpectRefused(BinaryOf(EepromRules()), "Helyes tartomány: 0 és 1111 1111 között.",
                {"1 0000 0000", "1111 1111 1", "1000000000000000000000000000000000"});
}

TEST(CellBinary, OfNothingIsNoNumber) {
  for (const CellRules* rules : {&Pic18FlashRules(), &MidRangeFlashRules(), &EepromRules()})
    ExpectRefused(BinaryOf(*rules), NoNumber, {"", " ", "     "});
}

TEST(CellBinary, WithAnotherCharacterTellsTheFormatEvenWhenItIsTooLong) {
  for (const CellRules* rules : {&Pic18FlashRules(), &MidRangeFlashRules(), &EepromRules()})
    ExpectRefused(BinaryOf(*rules), BadBits,
                  {"2", "12", "1x", "-1", "O", "l", "é", "0.1", "1111 1111 1111 1111 11112", "\t1"});
}

TEST(Bits, StandInGroupsOfFour) {
  EXPECT_EQ(ShowBits("3FFF"), "0011 1111 1111 1111");
  EXPECT_EQ(ShowBits("0000"), "0000 0000 0000 0000");
  EXPECT_EQ(ShowBits("A5"), "1010 0101");
  char hex[5];
  for (unsigned value = 0; value <= 0xFFFF; ++value) {
    std::snprintf(hex, sizeof hex, "%04X", value);
    std::string bits = std::bitset<16>(value).to_string();
    for (const std::size_t at : {12u, 8u, 4u}) bits.insert(at, " ");
    ASSERT_EQ(ShowBits(hex), bits);
  }
}

TEST(IdCharacter, IsAnySingleCharacterByItsCodeInTheCodePage) {
  ExpectAccepted(ReadIdCharacter, {{"A", 0x41},
                                   {"a", 0x61},
                                   {"0", 0x30},
                                   {" ", 0x20},
                                   {"~", 0x7E},
                                   {"Á", 0xC1},
                                   {"é", 0xE9},
                                   {"Ő", 0xD5},
                                   {"ő", 0xF5},
                                   {"Ű", 0xDB},
                                   {"ű", 0xFB},
                                   {"ß", 0xDF},
                                   {"đ", 0xF0},
                                   {"€", 0x80},
                                   {"„", 0x84},
                                   {"™", 0x99},
                                   {"Ż", 0xAF},
                                   {"÷", 0xF7},
                                   {"˙", 0xFF}});
}

TEST(IdCharacter, ThatTheCodePageDoesNotHaveBecomesAQuestionMark) {
  ExpectAccepted(ReadIdCharacter, {{"Ж", 0x3F}, {"õ", 0x3F}, {"漢", 0x3F}, {"😀", 0x3F}});
}

TEST(IdCharacter, OfAnyOtherLengthIsRefused) {
  ExpectRefused(ReadIdCharacter, OneCharacterOnly, {"", "AB", "ÁÉ", "  ", "Á ", "A longer text", "😀A"});
}

TEST(IdHex, TakesOneOrTwoDigitsOfEitherCase) {
  ExpectAccepted(ReadIdHex,
                 {{"5", 5}, {"f", 15}, {"00", 0}, {"ab", 171}, {"Ab", 171}, {"aB", 171}, {"FF", 255}});
}

TEST(IdHex, OfAnotherLengthTellsTheLengthBeforeItLooksAtTheDigits) {
  ExpectRefused(ReadIdHex, TwoDigitsOnly, {"", "123", "000", "XYZ", " 12", "12 ", "ééé", "&H12"});
}

TEST(IdHex, WithABadDigitTellsSo) {
  ExpectRefused(ReadIdHex, BadCharacter,
                {"G", "g0", "0g", "1 ", " 1", "-1", "é", "é1", "1é", "éé", "x", "@A"});
}

TEST(MidIdHex, TakesUpToFourDigitsOfEitherCaseWithBlanksAnywhere) {
  ExpectAccepted(ReadMidIdHex, {{"0", 0},
                                {"5", 5},
                                {"3fff", 16383},
                                {"3FFF", 16383},
                                {"0041", 65},
                                {" 3 F F F ", 16383},
                                {"1  2", 18},
                                {"aB", 171}});
}

TEST(MidIdHex, AboveFourteenBitsTellsTheRangeWhateverItsSignWouldBe) {
  ExpectRefused(ReadMidIdHex, MidIdRange, {"4000", "7fff", "8000", "FFFF", "4 0 0 0"});
}

TEST(MidIdHex, OfFiveDigitsTellsTheLengthFirst) {
  ExpectRefused(ReadMidIdHex, FourDigitsOnly, {"00000", "12345", "FFFFF", "xxxxx", "0 0 0 0 0", "ééééé"});
}

TEST(MidIdHex, WithABadDigitOrNoneTellsSo) {
  ExpectRefused(ReadMidIdHex, BadCharacter,
                {"", "   ", "g", "3FFG", "-1", "1.5", "é", "éééé", "FFFx", "&H1"});
}

TEST(IdDecimal, IsAWholeNumberOfAByte) {
  ExpectAccepted(ReadIdDecimal, {{"0", 0}, {"7", 7}, {"255", 255}, {"012", 12}, {" 9 ", 9}, {"12.0", 12}});
}

TEST(IdDecimal, OutOfItsRangeTellsTheRangeBeforeTheFraction) {
  ExpectRefused(ReadIdDecimal, "A bevitel 0 - 255 lehet!", {"-1", "256", "255.5", "-0.5", "300.5", "65536"});
}

TEST(IdDecimal, ThatIsNoNumberIsOutOfRange) {
  ExpectRefused(ReadIdDecimal, "A bevitel 0 - 255 lehet!", {"", "x", "FF", "1 2", "é"});
  ExpectRefused(ReadMidIdDecimal, "A bevitel 0 - 16383 lehet!", {"", "x", "3FFF"});
}

TEST(IdDecimal, WithAFractionTellsSo) {
  ExpectRefused(ReadIdDecimal, NoFraction, {"12.5", "0.1", "254,5", "1.0001"});
  ExpectRefused(ReadMidIdDecimal, NoFraction, {"12.5", "16382.5", "300,1"});
}

TEST(MidIdDecimal, IsAWholeNumberOfFourteenBits) {
  ExpectAccepted(ReadMidIdDecimal, {{"0", 0}, {"256", 256}, {"16383", 16383}});
  ExpectRefused(ReadMidIdDecimal, "A bevitel 0 - 16383 lehet!", {"-1", "16384", "16383.5", "65535"});
}

TEST(Characters, AreCountedAndNotTheirBytes) {
  EXPECT_EQ(CharacterCount(""), 0u);
  EXPECT_EQ(CharacterCount("ABC"), 3u);
  EXPECT_EQ(CharacterCount("őŰ€"), 3u);
  EXPECT_EQ(CharacterCount("😀"), 1u);
}

}  // namespace
}  // namespace zelvo::ui
