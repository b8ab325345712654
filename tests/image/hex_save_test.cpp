// The image as the text of a file: Intel HEX and the plain list of cells.
#include "image/hex_save.h"

#include <gtest/gtest.h>

#include "devices/selection.h"
#include "hex_desk.h"
#include "image/buffers.h"
#include "support/pattern_image.h"

namespace zelvo::test {
namespace {

using devices::EepromMax;
using devices::FlashWordMax;
using image::ConfigBuffer;
using image::EepromBuffer;
using image::IdBuffer;
using image::IntelHexText;
using image::MainBuffer;

std::string Fs(int count) {
  return std::string(static_cast<std::size_t>(count), 'F');
}

/// The lines of a text in which every line has to end in CR and LF.
Lines CrLfLines(const std::string& text) {
  std::string rest = text;
  Lines lines;
  for (std::size_t end; (end = rest.find("\r\n")) != std::string::npos; rest.erase(0, end + 2)) {
    lines.push_back(rest.substr(0, end));
    EXPECT_EQ(lines.back().find_first_of("\r\n"), std::string::npos);
  }
  EXPECT_EQ(rest, "") << "the last line has its end too";
  return lines;
}

TEST(HexSaving, AnErasedChipIsWrittenRecordByRecord) {
  const HexDesk desk("PIC18F1220");
  const Lines lines = CrLfLines(IntelHexText());
  ASSERT_EQ(lines.size(), 1 + 256 + 2 + 2 + 1 + 16 + 1u);
  EXPECT_EQ(lines[0], ":020000040000FA");
  EXPECT_EQ(lines[1], ":10000000" + Fs(32) + "00");
  EXPECT_EQ(lines[2], ":10001000" + Fs(32) + "F0");
  EXPECT_EQ(lines[16], ":1000F000" + Fs(32) + "10");
  EXPECT_EQ(lines[17], ":10010000" + Fs(32) + "FF");
  EXPECT_EQ(lines[256], ":100FF000" + Fs(32) + "01");
  EXPECT_EQ(lines[257], ":020000040020DA");
  EXPECT_EQ(lines[258], ":08000000" + Fs(16) + "00");
  EXPECT_EQ(lines[259], ":020000040030CA");
  EXPECT_EQ(lines[260], ":0E000000" + Fs(28) + "00");
  EXPECT_EQ(lines[261], ":0200000400F00A");
  EXPECT_EQ(lines[262], ":10000000" + Fs(32) + "00");
  EXPECT_EQ(lines[277], ":1000F000" + Fs(32) + "10");
  EXPECT_EQ(lines[278], ":00000001FF");
}

/// A data record, with the two low bytes of its address in the checksum.
std::string DataRecord(int address, const std::string& data) {
  unsigned sum = static_cast<unsigned>(data.size() / 2 + static_cast<std::size_t>((address >> 8) + address));
  for (std::size_t i = 0; i < data.size(); i += 2) {
    sum += static_cast<unsigned>(std::stoul(data.substr(i, 2), nullptr, 16));
  }
  char head[32], tail[8];
  std::snprintf(head, sizeof head, ":%02zX%04X00", data.size() / 2, static_cast<unsigned>(address));
  std::snprintf(tail, sizeof tail, "%02X\r\n", (256 - sum % 256) % 256);
  return head + data + tail;
}

TEST(HexSaving, TheWholeTextIsAsAnIndependentWriterMakesIt) {
  HexDesk desk("PIC18F1320");
  for (const char* chip : {"PIC18F1320", "PIC18F2510", "PIC18F4680", "PIC18F8627", "PIC18F6720"}) {
    SCOPED_TRACE(chip);
    desk.Choose(chip);
    FillWithPattern(1);
    std::string expected = ":020000040000FA\r\n";
    for (int line = 0; line < (FlashWordMax + 1) / 8; ++line) {
      std::string data;
      for (int word = 0; word < 8; ++word) {
        const std::string digits = desk.Word(8 * line + word);
        data += digits.substr(2) + digits.substr(0, 2);
      }
      expected += DataRecord(line * 16, data);
    }
    expected += ":020000040020DA\r\n" + DataRecord(0, AllIds()) + ":020000040030CA\r\n" +
                DataRecord(0, AllConfigs()) + ":0200000400F00A\r\n";
    for (int line = 0; EepromMax > 0 && line < (EepromMax + 1) / 16; ++line) {
      std::string data;
      for (int byte = 0; byte < 16; ++byte) data += desk.Byte(16 * line + byte);
      expected += DataRecord(line * 16, data);
    }
    EXPECT_TRUE(SameLog(SplitLines(expected + ":00000001FF\r\n"), SplitLines(IntelHexText())));
  }
}

TEST(HexSaving, AWordIsWrittenLowByteFirst) {
  const HexDesk desk("PIC18F1220");
  MainBuffer(1, 1) = "1234";
  MainBuffer(8, 1) = "00AB";
  MainBuffer(1, 2) = "EF00";
  const Lines lines = SplitLines(IntelHexText());
  // 10h + 34h + 12h + 12 * FFh + ABh + 00h = 0CF5h; 10h + 10h + 00h + EFh + 14 * FFh = 0F01h.
  EXPECT_EQ(lines[1], ":100000003412" + Fs(24) + "AB000B");
  EXPECT_EQ(lines[2], ":1000100000EF" + Fs(28) + "FF");
}

TEST(HexSaving, EepromLinesHoldTwoRows) {
  const HexDesk desk("PIC18F2525");
  ASSERT_EQ(EepromMax, 1023);
  EepromBuffer(1, 1) = "01";
  EepromBuffer(8, 1) = "08";
  EepromBuffer(1, 2) = "09";
  EepromBuffer(8, 2) = "10";
  EepromBuffer(8, 128) = "7E";
  const Lines lines = SplitLines(IntelHexText());
  ASSERT_EQ(lines.size(), 3072 + 64 + 7u);
  // 10h + 01h + 08h + 09h + 10h + 12 * FFh = 0C26h.
  EXPECT_EQ(lines[3078], ":1000000001" + Fs(12) + "0809" + Fs(12) + "10DA");
  // 10h + 03h + F0h + 15 * FFh + 7Eh = 1072h.
  EXPECT_EQ(lines[3141], ":1003F000" + Fs(30) + "7E8E");
  EXPECT_EQ(lines[3142], ":00000001FF");
}

TEST(HexSaving, ABiggerChipsFlashGrowsByRowsOnly) {
  HexDesk desk("PIC18F242");
  EXPECT_EQ(SplitLines(IntelHexText()).size(), 1024 + 16 + 7u);
  MainBuffer(1, 1025) = "1234";
  EXPECT_EQ(IntelHexText().find("3412"), std::string::npos) << "a cell beyond the chip is not written";
}

TEST(HexSaving, WithoutEepromTheSectionsHeadStandsAlone) {
  const HexDesk desk("PIC18F2410");
  ASSERT_EQ(EepromMax, 0);
  const Lines lines = SplitLines(IntelHexText());
  ASSERT_EQ(lines.size(), 1024 + 7u);
  EXPECT_EQ(lines[1029], ":0200000400F00A");
  EXPECT_EQ(lines[1030], ":00000001FF");
}

TEST(HexSaving, IdAndConfigurationBytesStandInTheirOrder) {
  const HexDesk desk("PIC18F1220");
  for (std::size_t k = 1; k <= 8; ++k) IdBuffer[k] = "1" + std::to_string(k);
  for (std::size_t k = 1; k <= 14; ++k) ConfigBuffer[k] = std::to_string(20 + k);
  const Lines lines = SplitLines(IntelHexText());
  EXPECT_EQ(lines[258], ":08000000111213141516171854");              // 08h + A4h = ACh
  EXPECT_EQ(lines[260], ":0E0000002122232425262728293031323334AB");  // 0Eh + 14Dh + FAh = 255h
}

TEST(HexSaving, AConfigurationByteOfOneDigitIsPadded) {
  const HexDesk desk("PIC18F1220");
  ConfigBuffer[1] = "0";
  ConfigBuffer[2] = "F";
  ConfigBuffer[14] = "7";
  const Lines lines = SplitLines(IntelHexText());
  // 0Eh + 0Fh + 07h + 11 * FFh = 0B19h.
  EXPECT_EQ(lines[260], ":0E000000000F" + Fs(22) + "07E7");
}

TEST(HexSaving, TheEditorsAcceptLeavesATextThatIsSavedWithTwoDigitsAByte) {
  HexDesk desk("PIC18F452");
  desk.session.Do({"click ConfRészlEdit", "click ConfEdit.BetPufferbe"});
  ASSERT_EQ(ConfigBuffer[5], "0");
  EXPECT_EQ(SplitLines(IntelHexText())[2052], ":0E000000" + std::string(28, '0') + "F2");
}

TEST(HexSaving, BeyondTheFirst64KBytesTheAddressHasFiveDigits) {
  HexDesk desk("PIC18F6627");
  ASSERT_EQ(FlashWordMax + 1, 49152);
  Lines lines = SplitLines(IntelHexText());
  ASSERT_EQ(lines.size(), 6144 + 64 + 7u);
  EXPECT_EQ(lines[4096], ":10FFF000" + Fs(32) + "11");
  EXPECT_EQ(lines[4097], ":101000000" + Fs(32) + "00") << "no extended address comes between";
  EXPECT_EQ(lines[4098], ":101001000" + Fs(32) + "F0");
  EXPECT_EQ(lines[6144], ":1017FF000" + Fs(32) + "91");
  EXPECT_EQ(lines[6145], ":020000040020DA");
  for (std::size_t line = 1; line <= 6144; ++line) ASSERT_EQ(lines[line].size(), line <= 4096 ? 43u : 44u);

  desk.Choose("PIC18F8722");
  ASSERT_EQ(FlashWordMax + 1, 65536);
  lines = SplitLines(IntelHexText());
  ASSERT_EQ(lines.size(), 8192 + 64 + 7u);
  EXPECT_EQ(lines[8192], ":101FFF000" + Fs(32) + "11");
  EXPECT_EQ(lines[8193], ":020000040020DA");
}

TEST(HexSaving, AMidRangeImageIsWrittenInTheSameLayout) {
  HexDesk desk("PIC18F1220");
  for (std::size_t k = 1; k <= 8; ++k) IdBuffer[k] = "5A";
  desk.Choose("PIC16F84A");
  ASSERT_EQ(FlashWordMax, 1023);
  ASSERT_EQ(EepromMax, 63);
  MainBuffer(2, 128) = "3FAB";
  EepromBuffer(8, 8) = "07";
  const Lines lines = SplitLines(IntelHexText());
  ASSERT_EQ(lines.size(), 128 + 4 + 7u);
  std::string erased;
  for (int word = 0; word < 8; ++word) erased += "FF3F";
  EXPECT_EQ(lines[1], ":10000000" + erased + "00");  // 10h + 8 * 13Eh = A00h
  // 10h + 07h + F0h + 7 * 13Eh + ABh + 3Fh = 0AA3h.
  EXPECT_EQ(lines[128], ":1007F000FF3FAB3F" + erased.substr(8) + "5D");
  EXPECT_EQ(lines[129], ":020000040020DA");
  EXPECT_EQ(lines[130], ":080000005A5A5A5A5A5A5A5A28") << "what the other page left";
  EXPECT_EQ(lines[131], ":020000040030CA");
  EXPECT_EQ(lines[133], ":0200000400F00A");
  EXPECT_EQ(lines[137], ":10003000" + Fs(30) + "07C8");  // 10h + 30h + 15 * FFh + 07h = 0F38h
}

TEST(HexSaving, AMidRangeChipWithoutEepromHasNoEepromLine) {
  const HexDesk desk("PIC12F609");
  ASSERT_EQ(EepromMax, 0);
  EXPECT_EQ(SplitLines(IntelHexText()).size(), 128 + 7u);
}

TEST(HexSaving, ASavedFileLoadsAsTheSameImage) {
  HexDesk desk("PIC18F1220");
  int chips = 0;
  for (const std::string& chip : desk.session.Look("list Combo1")) {
    SCOPED_TRACE(chip);
    desk.Choose(chip);
    // The loader takes addresses from 8000h for negative ones.
    if (!HasLimits(chip) || FlashWordMax + 1 > 16384) continue;
    ++chips;
    FillWithPattern(chips);
    EraseForeignConfig();
    const HexImage saved = ImageByAddress();
    ASSERT_EQ(desk.Load(IntelHexText()), Lines{});
    ASSERT_EQ(FirstDifference(saved, ImageByAddress()), "");
    desk.Choose(chip);
    ASSERT_NE(FirstDifference(saved, ImageByAddress()), "") << "the choice erases the image";
    ASSERT_EQ(desk.Reload(), Lines{});
    ASSERT_EQ(FirstDifference(saved, ImageByAddress()), "");
  }
  EXPECT_EQ(chips, 39);
}

TEST(HexSaving, TheLoaderRefusesTheFileOfAChipBeyond16384Words) {
  HexDesk desk("PIC18F2515");
  FillWithPattern(1);
  EXPECT_EQ(desk.Load(IntelHexText()), Lines{NotForThisChip});
  EXPECT_TRUE(desk.IsErased());
}

TEST(HexSaving, AStrictReaderFindsTheWholeImageOfEveryChipUpTo32768Words) {
  HexDesk desk("PIC18F1220");
  int chips = 0;
  for (const std::string& chip : desk.session.Look("list Combo1")) {
    SCOPED_TRACE(chip);
    desk.Choose(chip);
    if (!HasLimits(chip) || FlashWordMax + 1 > 32768) continue;
    ++chips;
    FillWithPattern(chips);
    desk.session.Folder().Write("saved.hex", IntelHexText());
    ASSERT_EQ(FirstDifference(ImageByAddress(), ReadHexImage(desk.session.Folder().File("saved.hex"))), "");
  }
  EXPECT_EQ(chips, 64);
}

TEST(MchSaving, FlashCellsStandOneALineAsTheyAre) {
  const HexDesk desk("PIC18F1220");
  FillWithPattern(3);
  MainBuffer(1, 1) = "1234";
  MainBuffer(2, 1) = "00AB";
  MainBuffer(8, 256) = "CD00";
  const Lines lines = CrLfLines(image::MchFlashText());
  ASSERT_EQ(lines.size(), 2048u);
  EXPECT_EQ(lines[0], "1234") << "high byte first";
  EXPECT_EQ(lines[1], "00AB");
  EXPECT_EQ(lines[2047], "CD00");
  for (int word = 0; word < 2048; ++word) ASSERT_EQ(lines[static_cast<std::size_t>(word)], desk.Word(word));
}

TEST(MchSaving, EepromCellsStandOneALineAsTheyAre) {
  const HexDesk desk("PIC18F2525");
  FillWithPattern(4);
  const Lines lines = CrLfLines(image::MchEepromText());
  ASSERT_EQ(lines.size(), 1024u);
  for (int byte = 0; byte < 1024; ++byte) ASSERT_EQ(lines[static_cast<std::size_t>(byte)], desk.Byte(byte));
}

TEST(MchSaving, TheListsOfEveryChipAreItsMemories) {
  HexDesk desk("PIC18F1220");
  int seed = 0;
  for (const std::string& chip : desk.session.Look("list Combo1")) {
    SCOPED_TRACE(chip);
    if (!HasLimits(chip)) continue;
    desk.Choose(chip);
    FillWithPattern(++seed);
    Lines flash, eeprom;
    for (int word = 0; word <= FlashWordMax; ++word) flash.push_back(desk.Word(word));
    for (int byte = 0; EepromMax > 0 && byte <= EepromMax; ++byte) eeprom.push_back(desk.Byte(byte));
    ASSERT_TRUE(SameLog(flash, SplitLines(image::MchFlashText())));
    ASSERT_TRUE(SameLog(eeprom, SplitLines(image::MchEepromText())));
  }
  EXPECT_EQ(seed, 70);
}

TEST(MchSaving, WithoutEepromTheListIsEmpty) {
  const HexDesk desk("PIC18F2410");
  EXPECT_EQ(image::MchEepromText(), "");
  EXPECT_EQ(SplitLines(image::MchFlashText()).size(), 8192u);
}

TEST(MchSaving, AMidRangeChipsCellsStandThereToo) {
  const HexDesk desk("PIC16F84A");
  MainBuffer(3, 1) = "0A5B";
  EepromBuffer(3, 1) = "C4";
  const Lines flash = SplitLines(image::MchFlashText());
  const Lines eeprom = SplitLines(image::MchEepromText());
  ASSERT_EQ(flash.size(), 1024u);
  EXPECT_EQ(flash[0], "3FFF");
  EXPECT_EQ(flash[2], "0A5B");
  ASSERT_EQ(eeprom.size(), 64u);
  EXPECT_EQ(eeprom[2], "C4");
}

}  // namespace
}  // namespace zelvo::test
