// The PIC18 parser, record by record: where a parse ends, Flash, EEPROM, and what lies beyond the chip.
#include "hex_desk.h"
#include "icsp/conversions.h"
#include "image/buffers.h"
#include "image/hex_lines.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

using image::ConfigBuffer;
using panel::Form1;

const std::string IdPage = Ela(0x20);
const std::string ConfigPage = Ela(0x30);
const std::string EepromPage = Ela(0xF0);

// Where a parse ends.

TEST(HexLoading, TheEndRecordEndsThePic18Parse) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + EndRecord + Rec(2, 0, "7856") + "junk\r\n"), Lines{});
  EXPECT_EQ(desk.Word(0), "1234");
  EXPECT_EQ(desk.Word(1), "FFFF");
  EXPECT_EQ(image::HexLineIndex, 1);
}

TEST(HexLoading, AnEndRecordInLowerCaseDoesNotEndThePic18Parse) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(":00000001ff\r\n" + Rec(2, 0, "7856") + EndRecord), Lines{});
  EXPECT_EQ(desk.Word(0), "FFFF");
  EXPECT_EQ(desk.Word(1), "5678");
}

TEST(HexLoading, AnEndRecordOfAnotherFormHasNoEffect) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(":00123401B9\r\n" + Rec(2, 0, "7856") + EndRecord), Lines{});
  EXPECT_EQ(desk.Word(1), "5678");
}

TEST(HexLoading, ALineWithoutAColonEndsTheParseAndKeepsWhatCameBefore) {
  HexDesk desk("PIC18F452");
  for (const char* chip : {"PIC18F452", "PIC16F877"}) {
    desk.Choose(chip);
    for (const char* line : {"", " :0200000034124C", "x", "0200000034124C", "\xEF\xBB\xBF:00000001FF"}) {
      EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + line + "\r\n" + Rec(2, 0, "7856") + EndRecord),
                Lines{NotHexFormat})
          << chip << " '" << line << "'";
      EXPECT_EQ(desk.Word(0), "1234");
      EXPECT_EQ(desk.Word(1), chip == std::string("PIC18F452") ? "FFFF" : "3FFF");
    }
  }
}

TEST(HexLoading, AWrongChecksumHasNoEffect) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(":020000003412FF\r\n:00000001FF\r\n"), Lines{});
  EXPECT_EQ(desk.Word(0), "1234");
  desk.Choose("PIC16F877");
  EXPECT_EQ(desk.Load(":020000003412FF\r\n"), Lines{});
  EXPECT_EQ(desk.Word(0), "1234");
}

// Flash.

TEST(HexLoading, AFlashWordIsStoredHighByteFirstInBufferAndGrid) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(Rec(0x10, 0, "00EF12F0") + EndRecord), Lines{});
  EXPECT_EQ(desk.Word(8), "EF00");
  EXPECT_EQ(desk.GridWord(8), "EF00");
  EXPECT_EQ(desk.Word(9), "F012");
  EXPECT_EQ(desk.GridWord(9), "F012");
  EXPECT_EQ(desk.Word(7), "FFFF");
  EXPECT_EQ(desk.Word(10), "FFFF");
  EXPECT_TRUE(desk.CellsAreSound());
}

TEST(HexLoading, AFlashRecordRunsOnIntoTheNextRow) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(Rec(0x0E, 0, "010002000300") + EndRecord), Lines{});
  EXPECT_EQ(image::MainBuffer(8, 1), "0001");
  EXPECT_EQ(image::MainBuffer(1, 2), "0002");
  EXPECT_EQ(image::MainBuffer(2, 2), "0003");
}

TEST(HexLoading, ARecordOfOddLengthEndsWithAWordWhoseHighByteIsFF) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(Rec(0, 0, "112233") + Rec(8, 0, "44") + EndRecord), Lines{});
  EXPECT_EQ(desk.Word(0), "2211");
  EXPECT_EQ(desk.Word(1), "FF33");
  EXPECT_EQ(desk.Word(4), "FF44");
  desk.Choose("PIC16F877");
  EXPECT_EQ(desk.Load(Rec(0, 0, "112233") + Rec(8, 0, "44")), Lines{});
  EXPECT_EQ(desk.Word(0), "2211");
  EXPECT_EQ(desk.Word(1), "FF33");
  EXPECT_EQ(desk.Word(4), "FF44");
}

TEST(HexLoading, DigitsInLowerCaseAreStoredInUpperCase) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(":02000000abcd86\r\n:020000040020da\r\n:0200000041fabd\r\n:020000040030ca\r\n"
                      ":0200000000afa0\r\n:0200000400f00a\r\n:01000000be41\r\n:00000001FF\r\n"),
            Lines{});
  EXPECT_EQ(desk.Word(0), "CDAB");
  EXPECT_EQ(desk.GridWord(0), "CDAB");
  EXPECT_EQ(AllIds(), "41FAFFFFFFFFFFFF");
  EXPECT_EQ(ConfigBuffer[2], "AF");
  EXPECT_EQ(desk.Byte(0), "BE");
  EXPECT_EQ(icsp::LoadFailed, 0);
}

TEST(HexLoading, AnExtendedLinearAddressOfOneBeginsThe32768thWord) {
  HexDesk desk("PIC18F8722");
  EXPECT_EQ(
      desk.Load(Ela(1) + Rec(0, 0, "3412") + Rec(0x7FFE, 0, "7856") + Ela(0) + Rec(0, 0, "BC9A") + EndRecord),
      Lines{});
  EXPECT_EQ(desk.Word(0x8000), "1234");
  EXPECT_EQ(desk.Word(0xBFFF), "5678");
  EXPECT_EQ(desk.Word(0), "9ABC");
}

TEST(HexLoading, AnAddressFieldFrom8000hIsNegativeAndLandsASegmentLower) {
  HexDesk desk("PIC18F8722");
  EXPECT_EQ(desk.Load(Ela(1) + Rec(0x8000, 0, "3412") + Rec(0xFFFE, 0, "7856") + EndRecord), Lines{});
  EXPECT_EQ(desk.Word(0xC000), "FFFF");
  EXPECT_EQ(desk.Word(0x4000), "1234");
  EXPECT_EQ(desk.Word(0x7FFF), "5678");
}

TEST(HexLoading, AnAddressFieldFrom8000hWithoutAnExtendedAddressDoesNotFitAnyChip) {
  HexDesk desk("PIC18F8722");
  for (const int address : {0x8000, 0xC000, 0xFFFE}) {
    EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + Rec(address, 0, "7856") + EndRecord), Lines{NotForThisChip});
    EXPECT_TRUE(desk.IsErased());
  }
}

TEST(HexLoading, ASegmentAddressMovesByItsSixteenfold) {
  HexDesk desk("PIC18F8722");
  EXPECT_EQ(desk.Load(Esa(0x1000) + Rec(0, 0, "3412") + Esa(0x0800) + Rec(2, 0, "7856") + EndRecord),
            Lines{});
  EXPECT_EQ(desk.Word(0x8000), "1234");
  EXPECT_EQ(desk.Word(0x4001), "5678");
}

TEST(HexLoading, LinearAndSegmentAddressesAddUpAndNeitherResetsTheOther) {
  HexDesk desk("PIC18F8722");
  EXPECT_EQ(desk.Load(Ela(1) + Esa(0x0400) + Rec(0, 0, "3412") + Ela(0) + Rec(2, 0, "7856") + Esa(0) +
                      Rec(4, 0, "BC9A") + EndRecord),
            Lines{});
  EXPECT_EQ(desk.Word(0x8000 + 0x2000), "1234");
  EXPECT_EQ(desk.Word(0x2001), "5678");
  EXPECT_EQ(desk.Word(2), "9ABC");
}

TEST(HexLoading, ThePic18AddressRecordsStoreNoDataOfTheirOwn) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(Ela(0) + Esa(0) + EndRecord), Lines{});
  EXPECT_TRUE(desk.IsErased());
}

TEST(HexLoading, AnyOtherRecordTypeIsTreatedAsData) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(Rec(0, 0x03, "0102") + Rec(4, 0x05, "0304") + Rec(8, 0x01, "0506") + EndRecord),
            Lines{});
  EXPECT_EQ(desk.Word(0), "0201");
  EXPECT_EQ(desk.Word(2), "0403");
  EXPECT_EQ(desk.Word(4), "0605");
}

TEST(HexLoading, ARecordOfNoBytesHasNoEffectWhereverItPoints) {
  HexDesk desk("PIC18F452");
  image::IdEdited = 1;
  image::ConfigEdited = 1;
  const std::string none =
      ":00000000"
      "00\r\n";
  EXPECT_EQ(
      desk.Load(none + IdPage + none + ConfigPage + none + EepromPage + none + Ela(1) + none + EndRecord),
      Lines{});
  EXPECT_TRUE(desk.IsErased());
  EXPECT_EQ(image::IdEdited, 1);
  EXPECT_EQ(image::ConfigEdited, 1);
}

// Beyond the chip.

TEST(HexLoading, AWordBeyondThePic18IsToldAndResetsTheImage) {
  HexDesk desk("PIC18F242");
  desk.MarkBeyond();
  EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + Rec(0x3FFE, 0, "7856") + EndRecord), Lines{});
  EXPECT_EQ(desk.Word(8191), "5678");
  for (const std::string& record :
       {Rec(0x4000, 0, "0102"), Rec(0x3FFE, 0, "01020304"), Ela(1) + Rec(0, 0, "01"),
        Ela(0x1F) + Rec(0x7FFE, 0, "01"), Esa(0xFFFF) + Rec(0, 0, "01")}) {
    EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + record + Rec(2, 0, "7856") + EndRecord), Lines{NotForThisChip});
    EXPECT_TRUE(desk.IsErased());
    EXPECT_TRUE(desk.BeyondIsUntouched());
  }
}

TEST(HexLoading, AfterARecordBeyondTheChipConfigurationAndIdsStay) {
  HexDesk desk("PIC18F242");
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "4142") + ConfigPage + Rec(0, 0, "0022") + Ela(0) +
                      Rec(0x4000, 0, "0102") + IdPage + Rec(0, 0, "4344") + EndRecord),
            Lines{NotForThisChip});
  EXPECT_EQ(AllIds(), "4142FFFFFFFFFFFF");
  EXPECT_EQ(ConfigBuffer[2], "22");
}

TEST(HexLoading, AnEepromByteBeyondThePic18IsToldAndResetsTheImage) {
  HexDesk desk("PIC18F452");
  desk.MarkBeyond();
  for (const std::string& record : {Rec(0x00FF, 0, "0102"), Rec(0x0100, 0, "01"), Rec(0x7FFF, 0, "01")}) {
    EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + EepromPage + Rec(0, 0, "55") + record + EndRecord),
              Lines{NotForThisChip});
    EXPECT_TRUE(desk.IsErased());
    EXPECT_TRUE(desk.BeyondIsUntouched());
  }
}

TEST(HexLoading, AChipWithoutEepromTakesNoEepromByte) {
  HexDesk desk("PIC18F2410");
  EXPECT_EQ(desk.Load(EepromPage + Rec(0, 0, "01") + EndRecord), Lines{NotForThisChip});
  EXPECT_EQ(Form1.MSFlexGrid2.Rows(), 1);
}

TEST(HexLoading, AMalformedRecordIsToldAndResetsTheImage) {
  HexDesk desk("PIC18F452");
  for (const char* line : {":", ":0", ":00", ":0000", ":00000001F", ":GG00000000", ":0 000000FF",
                           ":02zz00003412B8", ":02000000341", ":020000003412Z8", ":0200000034G2B8",
                           ":02000000-412B8", ":0200000400", ":02000004000", ":02000004zzzzFA", ":020000020",
                           ":10000000341200", ":0200000034 2B8", ":FF0000000102"}) {
    EXPECT_EQ(desk.Load(Rec(2, 0, "7856") + line + "\r\n" + Rec(4, 0, "BC9A") + EndRecord),
              Lines{NotForThisChip})
        << line;
    EXPECT_TRUE(desk.IsErased()) << line;
  }
}

TEST(HexLoading, PlacesBetweenTheMemoriesAreDroppedInSilence) {
  HexDesk desk("PIC18F452");
  const std::string data = "0102";
  EXPECT_EQ(desk.Load(Ela(0x20) + Rec(0x10, 0, data) + Ela(0x2F) + Rec(0x7FFE, 0, data) + Ela(0x30) +
                      Rec(0x1C, 0, data) + Ela(0x3F) + Rec(0x7FFE, 0, data) + Ela(0xEF) +
                      Rec(0x7FFE, 0, data) + Ela(0xF0) + Rec(0x8000, 0, data) + EndRecord),
            Lines{});
  EXPECT_TRUE(desk.IsErased());
  EXPECT_EQ(AllIds(), "FFFFFFFFFFFFFFFF");
  EXPECT_EQ(AllConfigs(), std::string(28, 'F'));
}

// EEPROM.

TEST(HexLoading, Pic18EepromBytesAreShownBehindTwoBlanks) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(EepromPage + Rec(6, 0, "0A0B0C") + Rec(0xFF, 0, "0D") + EndRecord), Lines{});
  EXPECT_EQ(image::EepromBuffer(7, 1), "0A");
  EXPECT_EQ(image::EepromBuffer(8, 1), "0B");
  EXPECT_EQ(image::EepromBuffer(1, 2), "0C");
  EXPECT_EQ(image::EepromBuffer(8, 32), "0D");
  EXPECT_EQ(Form1.MSFlexGrid2.Text(1, 7), "  0A");
  EXPECT_EQ(Form1.MSFlexGrid2.Text(2, 1), "  0C");
  EXPECT_EQ(Form1.MSFlexGrid2.Text(32, 8), "  0D");
  EXPECT_EQ(desk.Byte(5), "FF");
}

TEST(HexLoading, TheEepromIndexIsTheLowHalfOfTheByteAddress) {
  HexDesk desk("PIC18F2525");
  EXPECT_EQ(desk.Load(Ela(0x1234) + Rec(0x3FF, 0, "0A") + EndRecord), Lines{});
  EXPECT_EQ(desk.Byte(1023), "0A");
}

TEST(HexLoading, ExtendedAddressesWhoseSumPasses32BitsStillGiveAnEepromIndex) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(Ela(0x7FFF) + Esa(0xF001) + Rec(2, 0, "0A") + EndRecord), Lines{});
  EXPECT_EQ(desk.Byte(0x12), "0A");
}

}  // namespace
}  // namespace zelvo::test
