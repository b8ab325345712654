// The PIC18 parser, record by record.
#include "hex_desk.h"
#include "icsp/conversions.h"
#include "image/buffers.h"
#include "image/hex_lines.h"
#include "link/event_log.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

using image::ConfigBitStrings;
using image::ConfigBuffer;
using image::IdBuffer;
using panel::Form1;

const std::string IdPage = Ela(0x20);
const std::string ConfigPage = Ela(0x30);
const std::string EepromPage = Ela(0xF0);

/// Elements 1 to 8 in a row.
std::string Ids() {
  std::string all;
  for (std::size_t k = 1; k <= 8; ++k) all += IdBuffer[k];
  return all;
}

/// Elements 1 to 14 in a row.
std::string Configs() {
  std::string all;
  for (std::size_t k = 1; k <= 14; ++k) all += ConfigBuffer[k];
  return all;
}

Lines ConfigLists() {
  Lines all;
  for (const panel::ListBox* list : Form1.ConfigLists) {
    EXPECT_EQ(list->Lines().size(), 1u) << list->Name();
    all.push_back(list->Lines().empty() ? "" : list->Lines().front());
  }
  return all;
}

Lines IdLists() {
  Lines all;
  for (const panel::ListBox* list : Form1.IdLists) {
    EXPECT_EQ(list->Lines().size(), 1u) << list->Name();
    all.push_back(list->Lines().empty() ? "" : list->Lines().front());
  }
  return all;
}

const std::string ErasedId = " FF          ˙ ";

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
  EXPECT_EQ(Ids(), "41FAFFFFFFFFFFFF");
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
  EXPECT_EQ(Ids(), "4142FFFFFFFFFFFF");
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
  EXPECT_EQ(Ids(), "FFFFFFFFFFFFFFFF");
  EXPECT_EQ(Configs(), std::string(28, 'F'));
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

// ID locations.

TEST(HexLoading, IdBytesAreStoredAndShownWithTheirCharacters) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "4142C1C2F5FB3031") + EndRecord), Lines{});
  EXPECT_EQ(Ids(), "4142C1C2F5FB3031");
  EXPECT_EQ(IdLists(), (Lines{" 41        A", " 42        B", " C1        Á", " C2        Â", " F5        ő",
                              " FB        ű", " 30        0", " 31        1"}));
}

TEST(HexLoading, AnIdRecordMayBeginAtAnyEvenByte) {
  HexDesk desk("PIC18F452");
  const char* expected[] = {"4142434445464748", "FFFF414243444546", "FFFFFFFF41424344", "FFFFFFFFFFFF4142"};
  for (int step = 0; step < 4; ++step) {
    EXPECT_EQ(desk.Load(IdPage + Rec(2 * step, 0, "4142434445464748") + EndRecord), Lines{});
    EXPECT_EQ(Ids(), expected[step]);
  }
}

TEST(HexLoading, AnIdRecordBehindTheEighthByteStoresNothing) {
  HexDesk desk("PIC18F452");
  for (const int address : {0x08, 0x0A, 0x0E}) {
    EXPECT_EQ(desk.Load(IdPage + Rec(address, 0, "4142") + EndRecord), Lines{});
    EXPECT_EQ(Ids(), "FFFFFFFFFFFFFFFF");
  }
}

TEST(HexLoading, AnIdRecordIsStoredAsFarAsItsCount) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "414243") + EndRecord), Lines{});
  EXPECT_EQ(Ids(), "414243FFFFFFFFFF");
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "41424344454647484950") + EndRecord), Lines{});
  EXPECT_EQ(Ids(), "4142434445464748");
}

TEST(HexLoading, ASecondIdRecordWipesTheFirstOnesBytes) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "41424344") + Rec(4, 0, "45464748") + EndRecord), Lines{});
  EXPECT_EQ(Ids(), "FFFFFFFF45464748");
  EXPECT_EQ(IdLists()[0], ErasedId);
  EXPECT_EQ(IdLists()[4], " 45        E");
}

TEST(HexLoading, IdBytesOfFFLeaveTheirListsInTheResetForm) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "4142434445464748") + EndRecord), Lines{});
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "FFFFFFFFFFFFFFFF") + EndRecord), Lines{});
  EXPECT_EQ(Ids(), "FFFFFFFFFFFFFFFF");
  EXPECT_EQ(IdLists(), Lines(8, ErasedId));
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "41FFffFF") + EndRecord), Lines{});
  EXPECT_EQ(Ids(), "41FFFFFFFFFFFFFF");
}

TEST(HexLoading, EditedIdsAreAskedForAtEveryRecordUntilAYes) {
  HexDesk desk("PIC18F452");
  const std::string question = "Felülírjam a szerkesztett ID Location bájtokat?";
  const std::string text = IdPage + Rec(0, 0, "4142") + Rec(2, 0, "4344") + Rec(4, 0, "4546") + EndRecord;

  image::IdEdited = 1;
  desk.session.Do("answer no no no");
  EXPECT_EQ(desk.Load(text), Lines(3, "yesno no " + question));
  EXPECT_EQ(Ids(), "FFFFFFFFFFFFFFFF");
  EXPECT_EQ(image::IdEdited, 1);

  desk.session.Do("answer no yes");
  EXPECT_EQ(desk.Load(text), (Lines{"yesno no " + question, "yesno yes " + question}));
  EXPECT_EQ(Ids(), "FFFFFFFF4546FFFF");
  EXPECT_EQ(image::IdEdited, 0);

  EXPECT_EQ(desk.Load(text), Lines{});
}

TEST(HexLoading, TheButtonErasesEditedIdsBeforeItAsks) {
  HexDesk desk("PIC18F452");
  IdBuffer[1] = "5A";
  image::IdEdited = 1;
  desk.session.Do("answer no");
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "4142") + EndRecord).size(), 1u);
  EXPECT_EQ(Ids(), "FFFFFFFFFFFFFFFF");
}

TEST(HexLoading, AReloadKeepsEditedIdsAndConfigurationUnlessTheOperatorAgrees) {
  HexDesk desk("PIC18F452");
  const std::string text = IdPage + Rec(2, 0, "4142") + ConfigPage + Rec(2, 0, "0F") + EndRecord;
  EXPECT_EQ(desk.Load(text), Lines{});
  IdBuffer[1] = "5A";
  ConfigBuffer[2] = "27";
  image::IdEdited = image::ConfigEdited = 1;
  EXPECT_EQ(desk.Reload().size(), 2u);
  EXPECT_EQ(Ids(), "5AFF4142FFFFFFFF");
  EXPECT_EQ(ConfigBuffer[2], "27");
  desk.session.Do("answer yes yes");
  EXPECT_EQ(desk.Reload().size(), 2u);
  EXPECT_EQ(Ids(), "FFFF4142FFFFFFFF");
  EXPECT_EQ(ConfigBuffer[2], "FF");
  EXPECT_EQ(ConfigBuffer[3], "0F");
}

/// The wire log of a load that asks: the window stands while the question is open.
Lines AskedWire(int counter, const std::string& window, const std::string& box,
                const std::string& answerLine) {
  const auto line = [&counter](const std::string& text) {
    return "L List1 " + std::to_string(counter++) + ":  12:00:00" + text;
  };
  const std::string start = line(":  Fájl betöltése Indult!");
  return {start, "+ " + window, "M yesno " + box, line(answerLine), "- " + window};
}

TEST(HexLoading, TheIdQuestionHasItsWindowAndItsLogLine) {
  HexDesk desk("PIC18F452");
  for (const char* answer : {"no", "yes"}) {
    image::IdEdited = 1;
    desk.session.Do(std::string("answer ") + answer);
    const int counter = link::EventCounter;
    desk.session.BeginWire();
    EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "4142") + EndRecord).size(), 1u);
    EXPECT_TRUE(SameLog(AskedWire(counter, "FelülDialog",
                                  std::string(answer) + " Felülírjam a szerkesztett ID Location bájtokat?",
                                  answer == std::string("yes") ? ":  ID Location Felülírva."
                                                               : ":  ID Location Nem lett felülírva."),
                        desk.session.EndWire()));
    EXPECT_EQ(link::EventCounter, counter + 2);
  }
}

// Configuration.

/// PIC18F452 has no CONFIG1L, CONFIG3L and CONFIG4H.
const std::string ConfigData = "11220F0E3301818833C00FE00F40";

TEST(HexLoading, ConfigurationBytesThatTheChipHasAreStoredAndShownAsBits) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(ConfigPage + Rec(0, 0, ConfigData) + EndRecord), Lines{});
  EXPECT_EQ(Configs(), "FF220F0EFF0181FF33C00FE00F40");
  EXPECT_EQ(ConfigLists(),
            (Lines{"   x x x x x x x x ", " 0 0 1 0 0 0 1 0", " 0 0 0 0 1 1 1 1", " 0 0 0 0 1 1 1 0",
                   "   x x x x x x x x ", " 0 0 0 0 0 0 0 1", " 1 0 0 0 0 0 0 1", "   x x x x x x x x ",
                   " 0 0 1 1 0 0 1 1", " 1 1 0 0 0 0 0 0", " 0 0 0 0 1 1 1 1", " 1 1 1 0 0 0 0 0",
                   " 0 0 0 0 1 1 1 1", " 0 1 0 0 0 0 0 0"}));
  EXPECT_EQ(ConfigBitStrings[1], "11111111");
  EXPECT_EQ(ConfigBitStrings[2], " 0 0 1 0 0 0 1 0");
  EXPECT_EQ(ConfigBitStrings[5], "11111111");
  EXPECT_EQ(ConfigBitStrings[14], " 0 1 0 0 0 0 0 0");
}

TEST(HexLoading, ConfigurationMayComeInOneRecordForEachByte) {
  HexDesk desk("PIC18F452");
  std::string text = ConfigPage;
  for (int k = 0; k < 14; ++k) text += Rec(k, 0, ConfigData.substr(static_cast<std::size_t>(2 * k), 2));
  EXPECT_EQ(desk.Load(text + EndRecord), Lines{});
  EXPECT_EQ(Configs(), "FF220F0EFF0181FF33C00FE00F40");
}

TEST(HexLoading, TheFirstConfigurationRecordOfAFileResetsMasksAndBytesOnce) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(ConfigPage + Rec(1, 0, "22") + EndRecord), Lines{});
  EXPECT_EQ(ConfigLists()[1], " 0 0 1 0 0 0 1 0");
  EXPECT_EQ(desk.Load(ConfigPage + Rec(2, 0, "0F") + Rec(3, 0, "0E") + EndRecord), Lines{});
  EXPECT_EQ(Configs(), "FFFF0F0EFFFFFFFFFFFFFFFFFFFF");
  EXPECT_EQ(ConfigLists()[1], "   x x ? x x ? ? ? ");
  EXPECT_EQ(ConfigBitStrings[2], "11111111");
  EXPECT_EQ(ConfigLists()[2], " 0 0 0 0 1 1 1 1");
  EXPECT_EQ(ConfigLists()[3], " 0 0 0 0 1 1 1 0");
}

TEST(HexLoading, ConfigurationUsesTheReappliedMasksOfItsChip) {
  // Choosing PIC18F8680 shows the masks of set 6520, where CONFIG3L is not there; a file brings set 8680.
  HexDesk desk("PIC18F8680");
  EXPECT_EQ(ConfigLists()[4], "   x x x x x x x x ");
  EXPECT_EQ(desk.Load(ConfigPage + Rec(0, 0, "112233445566") + EndRecord), Lines{});
  EXPECT_EQ(Configs().substr(0, 12), "FF2233445566");
  EXPECT_EQ(ConfigLists()[6], "   ? x x x x ? x ? ");
}

TEST(HexLoading, AConfigurationByteBehindTheFourteenthIsToldAndKeepsTheOthers) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + ConfigPage + Rec(0, 0, ConfigData + "77") + EndRecord),
            Lines{NotForThisChip});
  EXPECT_TRUE(desk.IsErased());
  EXPECT_EQ(Configs(), "FF220F0EFF0181FF33C00FE00F40");
  for (const int address : {0x0E, 0x10, 0x1A}) {
    EXPECT_EQ(desk.Load(ConfigPage + Rec(address, 0, "77") + EndRecord), Lines{NotForThisChip}) << address;
  }
}

TEST(HexLoading, EditedConfigurationIsAskedForAtEveryRecordUntilAYes) {
  HexDesk desk("PIC18F452");
  const std::string question = "Felülírjam a szerkesztett Config bájtokat?";
  const std::string text = ConfigPage + Rec(1, 0, "22") + Rec(2, 0, "0F") + Rec(3, 0, "0E") + EndRecord;
  image::ConfigEdited = 1;
  desk.session.Do("answer no no no");
  EXPECT_EQ(desk.Load(text), Lines(3, "yesno no " + question));
  EXPECT_EQ(Configs(), std::string(28, 'F'));
  EXPECT_EQ(ConfigLists()[1], "   x x ? x x ? ? ? ");
  EXPECT_EQ(image::ConfigEdited, 1);

  desk.session.Do("answer no yes");
  EXPECT_EQ(desk.Load(text), (Lines{"yesno no " + question, "yesno yes " + question}));
  EXPECT_EQ(Configs(), "FFFF0F0E" + std::string(20, 'F'));
  EXPECT_EQ(image::ConfigEdited, 0);
}

TEST(HexLoading, TheConfigurationQuestionHasItsWindowAndItsLogLine) {
  HexDesk desk("PIC18F452");
  for (const char* answer : {"no", "yes"}) {
    image::ConfigEdited = 1;
    desk.session.Do(std::string("answer ") + answer);
    const int counter = link::EventCounter;
    desk.session.BeginWire();
    EXPECT_EQ(desk.Load(ConfigPage + Rec(1, 0, "22") + EndRecord).size(), 1u);
    EXPECT_TRUE(SameLog(
        AskedWire(counter, "ConfFelülír", std::string(answer) + " Felülírjam a szerkesztett Config bájtokat?",
                  answer == std::string("yes") ? ":  Config Bájtok Felülírva."
                                               : ":  Config Bájtok Nem lettek felülírva."),
        desk.session.EndWire()));
    EXPECT_EQ(link::EventCounter, counter + 2);
  }
}

}  // namespace
}  // namespace zelvo::test
