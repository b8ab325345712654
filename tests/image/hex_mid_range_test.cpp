// The mid-range parser, record by record. Address fields are byte addresses, twice the word address.
#include "hex_desk.h"
#include "image/buffers.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

using image::ConfigWord1Bits;
using image::ConfigWord1Raw;
using image::ConfigWord2Bits;
using image::ConfigWord2Raw;
using image::MidIdWords;
using panel::Form1;

constexpr int UserIds = 0x2000 * 2;
constexpr int Config1 = 0x2007 * 2;
constexpr int Config2 = 0x2008 * 2;
constexpr int Eeprom = 0x2100 * 2;

std::vector<int> Ids() {
  return {MidIdWords[1], MidIdWords[2], MidIdWords[3], MidIdWords[4]};
}

TEST(MidRangeHex, AFlashWordIsStoredHighByteFirstInBufferAndGrid) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(desk.Load(Rec(0, 0, "8A01") + Rec(0x3FFE, 0, "FF3F") + Rec(0x1E, 0, "01000200")), Lines{});
  EXPECT_EQ(desk.Word(0), "018A");
  EXPECT_EQ(desk.GridWord(0), "018A");
  EXPECT_EQ(desk.Word(8191), "3FFF");
  EXPECT_EQ(image::MainBuffer(8, 2), "0001");
  EXPECT_EQ(image::MainBuffer(1, 3), "0002");
  EXPECT_TRUE(desk.CellsAreSound());
}

TEST(MidRangeHex, AnExtendedAddressRecordStoresItsOwnDataAsAWord) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(desk.Load(":020000040000FA\r\n:00000001FF\r\n"), Lines{});
  EXPECT_EQ(desk.Word(0), "0000");
  EXPECT_EQ(desk.GridWord(0), "0000");
  EXPECT_EQ(desk.Word(1), "3FFF");
}

TEST(MidRangeHex, ALaterRecordOverwritesTheWordOfTheExtendedAddressRecord) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(desk.Load(Ela(0) + Rec(0, 0, "8A01") + EndRecord), Lines{});
  EXPECT_EQ(desk.Word(0), "018A");
}

TEST(MidRangeHex, TheEndRecordEndsNothing) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(desk.Load(EndRecord + Rec(2, 0, "8A01") + EndRecord), Lines{});
  EXPECT_EQ(desk.Word(1), "018A");
}

TEST(MidRangeHex, AnExtendedLinearAddressOverflowsAndResetsTheImage) {
  HexDesk desk("PIC16F877");
  for (const int upper : {0x0001, 0x7FFF, 0x8000, 0xFFFF}) {
    EXPECT_EQ(desk.Load(Rec(0, 0, "8A01") + Ela(upper) + Rec(2, 0, "8B01")), Lines{NotForThisChip});
    EXPECT_TRUE(desk.IsErased());
  }
}

TEST(MidRangeHex, ASegmentAddressOf1000hOrMoreOverflows) {
  HexDesk desk("PIC16F877");
  for (const int segment : {0x1000, 0x7FFF, 0xFFFF}) {
    EXPECT_EQ(desk.Load(Rec(0, 0, "8A01") + Esa(segment) + Rec(2, 0, "8B01")), Lines{NotForThisChip});
    EXPECT_TRUE(desk.IsErased());
  }
}

TEST(MidRangeHex, ASmallSegmentCountsHalfForTheWordAndWholeForTheMemory) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(desk.Load(Esa(0x10) + Rec(2, 0, "8A01")), Lines{});
  EXPECT_EQ(desk.Word(0x80), "1000") << "the record's own data, at its own segment";
  EXPECT_EQ(desk.Word(0x81), "018A");
  // 2000h words of segment and address together are the first user ID word.
  EXPECT_EQ(desk.Load(Esa(0x10) + Rec(2 * 0x1F00, 0, "0500")), Lines{});
  EXPECT_EQ(MidIdWords[1], 5);
}

TEST(MidRangeHex, AWordBeyondTheChipIsToldAndResetsTheImage) {
  HexDesk desk("PIC16F627");
  desk.MarkBeyond();
  EXPECT_EQ(desk.Load(Rec(0x7FE, 0, "8A01")), Lines{});
  EXPECT_EQ(desk.Word(1023), "018A");
  for (const std::string& record : {Rec(0x7FE, 0, "01020304"), Rec(0x800, 0, "0102"), Rec(0x3FFE, 0, "01")}) {
    EXPECT_EQ(desk.Load(Rec(0, 0, "8A01") + record + Rec(2, 0, "8B01")), Lines{NotForThisChip});
    EXPECT_TRUE(desk.IsErased());
    EXPECT_TRUE(desk.BeyondIsUntouched());
  }
}

TEST(MidRangeHex, AnAddressFieldFrom8000hIsNegativeAndDoesNotFit) {
  HexDesk desk("PIC16F877");
  for (const int address : {0x8000, 0xC000, 0xFFFE}) {
    EXPECT_EQ(desk.Load(Rec(0, 0, "8A01") + Rec(address, 0, "8B01")), Lines{NotForThisChip});
    EXPECT_TRUE(desk.IsErased());
  }
}

TEST(MidRangeHex, UserIdWordsAreStoredAndShown) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(desk.Load(Rec(UserIds, 0, "0100F53F0A000000")), Lines{});
  EXPECT_EQ(Ids(), (std::vector<int>{1, 0x3FF5, 10, 0}));
  EXPECT_EQ(Form1.List7.Lines(), Lines{"1h, 1dec"});
  EXPECT_EQ(Form1.List8.Lines(), Lines{"3FF5h, 16373dec"});
  EXPECT_EQ(Form1.List9.Lines(), Lines{"Ah, 10dec"});
  EXPECT_EQ(Form1.List10.Lines(), Lines{"0h, 0dec"});
}

TEST(MidRangeHex, AUserIdRecordBeginsAtItsWord) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(desk.Load(Rec(UserIds + 2, 0, "0100") + Rec(UserIds + 6, 0, "020003")), Lines{});
  EXPECT_EQ(Ids(), (std::vector<int>{16383, 1, 16383, 2}));
  EXPECT_EQ(Form1.List7.Lines(), Lines{"3FFFh, 16383dec"});
  EXPECT_EQ(Form1.List8.Lines(), Lines{"1h, 1dec"});
}

TEST(MidRangeHex, AUserIdWordFrom8000hIsNegative) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(desk.Load(Rec(UserIds, 0, "FFFF")), Lines{});
  EXPECT_EQ(MidIdWords[1], -1);
  EXPECT_EQ(Form1.List7.Lines(), Lines{"FFFFh, -1dec"});
}

TEST(MidRangeHex, AFifthUserIdWordDoesNotFitButTheFirstFourStay) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(desk.Load(Rec(0, 0, "8A01") + Rec(UserIds, 0, "01000200030004000500")), Lines{NotForThisChip});
  EXPECT_TRUE(desk.IsErased());
  EXPECT_EQ(Ids(), (std::vector<int>{1, 2, 3, 4}));
}

TEST(MidRangeHex, AnOddAddressGoesToTheEvenWord) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(desk.Load(Rec(UserIds + 1, 0, "0100") + Rec(UserIds + 3, 0, "0300")), Lines{});
  EXPECT_EQ(Ids(), (std::vector<int>{1, 16383, 3, 16383}));
}

TEST(MidRangeHex, TheConfigurationWordIsStoredAsBitsAndShown) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(desk.Load(Rec(Config1, 0, "723F")), Lines{});
  EXPECT_EQ(ConfigWord1Raw, "0011111101110010");
  EXPECT_EQ(ConfigWord1Bits, "11111101110010");
  EXPECT_EQ(Form1.List6.Lines(), Lines{"  3F72h  ( 0 0 1 1 1 1 1 1 0 1 1 1 0 0 1 0)bin"});
  EXPECT_EQ(ConfigWord2Bits, "11111111111111");
  EXPECT_EQ(Form1.List12.Lines(), Lines{" 3FFFh, (1 1 1 1 1 1 1 1 1 1 1 1 1 1)bin"});
}

TEST(MidRangeHex, ALongerConfigurationRecordBringsTheSecondWordFromOnePositionLower) {
  HexDesk desk("PIC16F887");
  // Data digits 723F C03E at positions 10 to 17: word 2 is made of 15, 16 and 13, 14, so of 03 and FC.
  EXPECT_EQ(desk.Load(Rec(Config1, 0, "723FC03E")), Lines{});
  EXPECT_EQ(ConfigWord1Bits, "11111101110010");
  EXPECT_EQ(ConfigWord2Raw, "0000001111111100");
  EXPECT_EQ(ConfigWord2Bits, "00001111111100");
  EXPECT_EQ(Form1.List12.Lines(), Lines{"  03FCh  ( 0 0 0 0 0 0 1 1 1 1 1 1 1 1 0 0)bin"});
}

TEST(MidRangeHex, ARecordAtTheSecondWordBringsItFromTheSamePositions) {
  HexDesk desk("PIC16F887");
  EXPECT_EQ(desk.Load(Rec(Config2, 0, "1234A5B6")), Lines{});
  // Digits 1234A5B6 from position 10: 15, 16 are 5 and B, 13, 14 are 4 and A.
  EXPECT_EQ(ConfigWord2Raw, "0101101101001010");
  EXPECT_EQ(ConfigWord2Bits, "01101101001010");
  EXPECT_EQ(ConfigWord1Bits, "11111111111111");
}

TEST(MidRangeHex, AShortRecordAtTheSecondWordReadsItsChecksumToo) {
  HexDesk desk("PIC16F887");
  // ":02401000C03EB0": positions 13, 14 are E and B, position 15 is 0, and there is no position 16.
  ASSERT_EQ(Rec(Config2, 0, "C03E"), ":02401000C03EB0\r\n");
  EXPECT_EQ(desk.Load(Rec(Config2, 0, "C03E")), Lines{});
  EXPECT_EQ(ConfigWord2Raw, "000011101011");
  EXPECT_EQ(ConfigWord2Bits, "0011101011");
  EXPECT_EQ(Form1.List12.Lines(), Lines{"  0EBh  ( 0 0 0 0 1 1 1 0 1 0 1 1)bin"});
}

TEST(MidRangeHex, DigitsInLowerCaseAreStoredInUpperCase) {
  HexDesk desk("PIC16F887");
  EXPECT_EQ(desk.Load(":020000008a3f35\r\n:04400e00ab3fcdefcc\r\n:02420000be00fe\r\n:02400000fa2f95\r\n"),
            Lines{});
  EXPECT_EQ(desk.Word(0), "3F8A");
  EXPECT_EQ(ConfigWord1Raw, "0011111110101011");
  EXPECT_EQ(Form1.List6.Lines(), Lines{"  3FABh  ( 0 0 1 1 1 1 1 1 1 0 1 0 1 0 1 1)bin"});
  // Digits ab3fcdef from position 10: 15, 16 are d and e, 13, 14 are f and c.
  EXPECT_EQ(ConfigWord2Raw, "1101111011111100");
  EXPECT_EQ(Form1.List12.Lines(), Lines{"  DEFCh  ( 1 1 0 1 1 1 1 0 1 1 1 1 1 1 0 0)bin"});
  EXPECT_EQ(desk.Byte(0), "BE");
  EXPECT_EQ(MidIdWords[1], 0x2FFA);
}

TEST(MidRangeHex, AnEepromByteIsTheLowByteOfItsWord) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(desk.Load(Rec(Eeprom, 0, "1100223433FF") + Rec(Eeprom + 14, 0, "44005500") +
                      Rec(Eeprom + 2 * 255, 0, "6600")),
            Lines{});
  EXPECT_EQ(desk.Byte(0), "11");
  EXPECT_EQ(desk.Byte(1), "22");
  EXPECT_EQ(desk.Byte(2), "33");
  EXPECT_EQ(image::EepromBuffer(8, 1), "44");
  EXPECT_EQ(image::EepromBuffer(1, 2), "55");
  EXPECT_EQ(image::EepromBuffer(8, 32), "66");
  EXPECT_EQ(Form1.MSFlexGrid3.Text(1, 1), "11");
  EXPECT_EQ(Form1.MSFlexGrid3.Text(32, 8), "66");
}

TEST(MidRangeHex, TheEepromIndexIsTheLowByteOfTheWordAddress) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(desk.Load(Rec(2 * 0x2203, 0, "1100")), Lines{});
  EXPECT_EQ(desk.Byte(3), "11");
}

TEST(MidRangeHex, AnOddLastByteOfAnEepromRecordIsDropped) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(desk.Load(Rec(Eeprom, 0, "110022")), Lines{});
  EXPECT_EQ(desk.Byte(0), "11");
  EXPECT_EQ(desk.Byte(1), "FF");
}

TEST(MidRangeHex, AnEepromByteBeyondTheChipIsToldAndResetsTheImage) {
  HexDesk desk("PIC16F84A");
  desk.MarkBeyond();
  EXPECT_EQ(desk.Load(Rec(Eeprom + 2 * 63, 0, "1100")), Lines{});
  EXPECT_EQ(desk.Byte(63), "11");
  EXPECT_EQ(desk.Load(Rec(0, 0, "8A01") + Rec(Eeprom + 2 * 63, 0, "11002200")), Lines{NotForThisChip});
  EXPECT_TRUE(desk.IsErased());
  EXPECT_TRUE(desk.BeyondIsUntouched());
}

TEST(MidRangeHex, AChipWithoutEepromTakesNoEepromByte) {
  HexDesk desk("PIC16F616");
  EXPECT_EQ(desk.Load(Rec(Eeprom, 0, "1100")), Lines{NotForThisChip});
  EXPECT_EQ(Form1.MSFlexGrid3.Rows(), 1);
}

TEST(MidRangeHex, PlacesBetweenTheMemoriesAreDroppedInSilence) {
  HexDesk desk("PIC16F887");
  std::string text;
  for (const int word : {0x2004, 0x2005, 0x2006, 0x2009, 0x20FF}) text += Rec(2 * word, 0, "1122");
  EXPECT_EQ(desk.Load(text), Lines{});
  EXPECT_TRUE(desk.IsErased());
  EXPECT_EQ(Ids(), std::vector<int>(4, 16383));
  EXPECT_EQ(ConfigWord1Bits, "11111111111111");
  EXPECT_EQ(ConfigWord2Bits, "11111111111111");
}

TEST(MidRangeHex, AfterARecordBeyondTheChipConfigurationAndIdsStay) {
  HexDesk desk("PIC16F627");
  EXPECT_EQ(desk.Load(Rec(UserIds, 0, "0100") + Rec(Config1, 0, "723F") + Rec(0x800, 0, "0102")),
            Lines{NotForThisChip});
  EXPECT_EQ(MidIdWords[1], 1);
  EXPECT_EQ(Form1.List7.Lines(), Lines{"1h, 1dec"});
  EXPECT_EQ(ConfigWord1Bits, "11111101110010");
}

TEST(MidRangeHex, AMalformedRecordIsToldAndResetsTheImage) {
  HexDesk desk("PIC16F877");
  for (const char* line :
       {":", ":0", ":00000001F", ":GG00000000", ":02zz00008A0173", ":02000000ZZ0173", ":020000008A01Z3",
        ":0200000400", ":02400E0072", ":10000000341200", ":02400000Z100BD"}) {
    EXPECT_EQ(desk.Load(Rec(2, 0, "8A01") + line + "\r\n" + Rec(4, 0, "8B01")), Lines{NotForThisChip})
        << line;
    EXPECT_TRUE(desk.IsErased()) << line;
  }
}

}  // namespace
}  // namespace zelvo::test
