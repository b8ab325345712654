// The buffers of the image, their fills and copies, and the grids and lists that show them.
#include "image/buffers.h"

#include <iconv.h>

#include <cstdio>
#include <stdexcept>

#include "devices/config_masks.h"
#include "devices/selection.h"
#include "hex_desk.h"
#include "icsp/conversions.h"
#include "image/fills.h"
#include "image/views.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

using image::EepromBuffer;
using image::FlashReadBuffer;
using image::MainBuffer;
using image::VerifyBuffer;
using panel::Form1;

constexpr int FlashRows = 66000;

/// Number of cells, columns 1 to 8 and rows 1 to 66000, that hold `text`.
int CellsHolding(const image::FlashBuffer& buffer, std::string_view text) {
  int count = 0;
  for (int row = 1; row <= FlashRows; ++row) {
    for (int column = 1; column <= 8; ++column) count += buffer(column, row) == text ? 1 : 0;
  }
  return count;
}

std::string Hex(int value, int digits) {
  char text[16];
  std::snprintf(text, sizeof text, "%0*X", digits, static_cast<unsigned>(value));
  return text;
}

// Buffers.

TEST(Buffers, CellsAreEmptyAtTheStartExceptTheVerifyBuffer) {
  BenchSession session;
  session.Do("start");
  EXPECT_EQ(CellsHolding(MainBuffer, ""), 8 * FlashRows);
  EXPECT_EQ(CellsHolding(FlashReadBuffer, ""), 8 * FlashRows);
  EXPECT_EQ(CellsHolding(VerifyBuffer, "FFFF"), 8 * FlashRows);
  EXPECT_EQ(EepromBuffer(1, 1), "");
  EXPECT_EQ(EepromBuffer(8, 2000), "");
  EXPECT_EQ(image::EepromReadBuffer(8, 2000), "");
  EXPECT_EQ(image::ConfigBuffer[14], "");
  EXPECT_EQ(image::IdBuffer[8], "");
}

TEST(Buffers, AnIndexBeyondTheBoundsIsAProgramFault) {
  EXPECT_THROW(static_cast<void>(MainBuffer(9, 1)), std::out_of_range);
  EXPECT_THROW(static_cast<void>(MainBuffer(1, 66001)), std::out_of_range);
  EXPECT_THROW(static_cast<void>(MainBuffer(1, -1)), std::out_of_range);
  EXPECT_THROW(static_cast<void>(EepromBuffer(1, 2001)), std::out_of_range);
  EXPECT_NO_THROW(static_cast<void>(MainBuffer(0, 0)));
  EXPECT_NO_THROW(static_cast<void>(MainBuffer(8, 66000)));
}

TEST(Buffers, FillingFlashTouchesTheRowsOfTheChipOnly) {
  HexDesk desk("PIC18F8722");
  MainBuffer(1, 1024) = "1234";
  MainBuffer(8, 1024) = "1234";
  MainBuffer(1, 1025) = "5678";
  MainBuffer(8, 8192) = "9ABC";
  desk.Choose("PIC18F242");
  EXPECT_EQ(MainBuffer(1, 1024), "FFFF");
  EXPECT_EQ(MainBuffer(8, 1024), "FFFF");
  EXPECT_EQ(MainBuffer(1, 1025), "5678");
  EXPECT_EQ(MainBuffer(8, 8192), "9ABC");
}

TEST(Buffers, FlashIsErasedTo3FFFOnTheMidRangePage) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(CellsHolding(MainBuffer, "3FFF"), 8192);
  EXPECT_EQ(MainBuffer(1, 1025), "");
}

TEST(Buffers, TheVerifyBufferIsErasedWholeToFFFFAlsoInTheMidRangeFamily) {
  HexDesk desk("PIC16F877");
  VerifyBuffer(1, 1) = "1234";
  VerifyBuffer(8, FlashRows) = "1234";
  image::FillVerifyErased();
  EXPECT_EQ(CellsHolding(VerifyBuffer, "FFFF"), 8 * FlashRows);
}

TEST(Buffers, TheSelectionDoesNotTouchTheVerifyBuffer) {
  HexDesk desk("PIC18F452");
  VerifyBuffer(3, 3) = "1234";
  desk.Choose("PIC18F242");
  EXPECT_EQ(VerifyBuffer(3, 3), "1234");
}

TEST(Buffers, TheCopiesTakeAllRows) {
  MainBuffer(1, 1) = "1111";
  MainBuffer(8, FlashRows) = "2222";
  FlashReadBuffer(1, 1) = "3333";
  FlashReadBuffer(8, FlashRows) = "4444";
  image::CopyMainToVerify();
  EXPECT_EQ(VerifyBuffer(1, 1), "1111");
  EXPECT_EQ(VerifyBuffer(8, FlashRows), "2222");
  EXPECT_EQ(VerifyBuffer(2, 2), "");
  image::CopyReadToVerify();
  EXPECT_EQ(VerifyBuffer(1, 1), "3333");
  EXPECT_EQ(VerifyBuffer(8, FlashRows), "4444");
}

TEST(Buffers, EepromIsErasedWithinTheChipAndNotAtAllWithoutOne) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(EepromBuffer(1, 1), "FF");
  EXPECT_EQ(EepromBuffer(8, 32), "FF");
  EXPECT_EQ(EepromBuffer(1, 33), "");
  EepromBuffer(1, 1) = "5A";
  desk.Choose("PIC18F2410");
  EXPECT_EQ(EepromBuffer(1, 1), "5A");
}

TEST(Buffers, ConfigurationAndIdsOfThePic18PageAreErasedToFF) {
  HexDesk desk("PIC18F452");
  for (std::size_t k = 1; k <= 14; ++k) EXPECT_EQ(image::ConfigBuffer[k], "FF");
  for (std::size_t k = 1; k <= 8; ++k) EXPECT_EQ(image::IdBuffer[k], "FF");
  EXPECT_EQ(image::ConfigWord1Bits, "");
  EXPECT_EQ(image::MidIdWords[1], 0);
}

TEST(Buffers, ConfigurationAndIdsOfTheMidRangePageAreErasedAndShown) {
  HexDesk desk("PIC16F877");
  EXPECT_EQ(image::ConfigWord1Bits, "11111111111111");
  EXPECT_EQ(image::ConfigWord2Bits, "11111111111111");
  for (const panel::ListBox* list : {&Form1.List6, &Form1.List12}) {
    EXPECT_EQ(list->Lines(), Lines{" 3FFFh, (1 1 1 1 1 1 1 1 1 1 1 1 1 1)bin"});
  }
  for (std::size_t word = 1; word <= 4; ++word) EXPECT_EQ(image::MidIdWords[word], 16383);
  for (const panel::ListBox* list : {&Form1.List7, &Form1.List8, &Form1.List9, &Form1.List10}) {
    EXPECT_EQ(list->Lines(), Lines{"3FFFh, 16383dec"});
  }
  EXPECT_EQ(image::ConfigBuffer[1], "");
  EXPECT_EQ(image::IdBuffer[1], "");
}

// Padding.

TEST(Padding, TextsGrowToTwoFourAndSixDigitsAndLongerOnesAreKept) {
  struct Row {
    const char *text, *two, *four, *six;
  };
  for (const Row& row :
       {Row{"", "00", "0000", "000000"}, Row{"8", "08", "0008", "000008"}, Row{"3F", "3F", "003F", "00003F"},
        Row{"3F8", "3F8", "03F8", "0003F8"}, Row{"1FFF", "1FFF", "1FFF", "001FFF"},
        Row{"12345", "12345", "12345", "012345"}, Row{"1234567", "1234567", "1234567", "1234567"}}) {
    std::string two = row.text;
    std::string four = row.text;
    std::string six = row.text;
    icsp::PadHex2(two);
    icsp::PadHex4(four);
    icsp::PadHex6(six);
    EXPECT_EQ(two, row.two);
    EXPECT_EQ(four, row.four);
    EXPECT_EQ(six, row.six);
  }
}

// Grids.

TEST(Grids, ColumnGeometryIsFixedAtTheStart) {
  BenchSession session;
  session.Do("start");
  for (const panel::Grid* grid : {&Form1.MSFlexGrid1, &Form1.MSFlexGrid4}) {
    EXPECT_EQ(grid->Cols(), 9);
    EXPECT_EQ(grid->RowHeight(0), 270);
    EXPECT_EQ(grid->ColWidth(0), 760);
    for (int col = 1; col <= 8; ++col) EXPECT_EQ(grid->ColWidth(col), 713);
    for (int col = 0; col <= 8; ++col) EXPECT_EQ(grid->ColAlignment(col), 5);
  }
  for (const panel::Grid* grid : {&Form1.MSFlexGrid2, &Form1.MSFlexGrid3}) {
    EXPECT_EQ(grid->Cols(), 9);
    EXPECT_EQ(grid->RowHeight(0), 270);
    EXPECT_EQ(grid->ColWidth(0), 640);
    for (int col = 1; col <= 8; ++col) EXPECT_EQ(grid->ColWidth(col), 500);
    for (int col = 0; col <= 8; ++col) EXPECT_EQ(grid->ColAlignment(col), 5);
  }
}

const char* const FlashHeadings[] = {" Szó cím", " 0 / 8", " 1 / 9", " 2 / A", " 3 / B",
                                     " 4 / C",   " 5 / D", " 6 / E", " 7 / F"};
const char* const EepromHeadings[] = {"EE cím", " 0/8", " 1/9", " 2/A", " 3/B",
                                      " 4/C",   " 5/D", " 6/E", " 7/F"};

void ExpectErasedGrid(const panel::Grid& grid, const char* const (&headings)[9], int rows, int labelDigits,
                      const std::string& text) {
  ASSERT_EQ(grid.Rows(), rows + 1);
  for (int col = 0; col <= 8; ++col) EXPECT_EQ(grid.Text(0, col), headings[col]);
  for (int row = 0; row < rows; ++row) {
    ASSERT_EQ(grid.Text(row + 1, 0), Hex(row * 8, labelDigits));
    for (int col = 1; col <= 8; ++col) ASSERT_EQ(grid.Text(row + 1, col), text);
  }
}

TEST(Grids, ASelectionRebuildsTheGridsOfItsPage) {
  HexDesk desk("PIC18F452");
  ExpectErasedGrid(Form1.MSFlexGrid1, FlashHeadings, 2048, 4, "FFFF");
  ExpectErasedGrid(Form1.MSFlexGrid2, EepromHeadings, 32, 2, "FF");
  EXPECT_EQ(Form1.MSFlexGrid2.Text(1, 0), "00");
  EXPECT_EQ(Form1.MSFlexGrid2.Text(32, 0), "F8");
  EXPECT_EQ(Form1.MSFlexGrid1.Text(2, 0), "0008");
  EXPECT_EQ(Form1.MSFlexGrid3.Rows(), 1);
  EXPECT_EQ(Form1.MSFlexGrid4.Rows(), 1);
}

TEST(Grids, AMidRangeSelectionRebuildsTheMidRangeGrids) {
  HexDesk desk("PIC16F628A");
  ExpectErasedGrid(Form1.MSFlexGrid4, FlashHeadings, 256, 4, "3FFF");
  ExpectErasedGrid(Form1.MSFlexGrid3, EepromHeadings, 16, 2, "FF");
  EXPECT_EQ(Form1.MSFlexGrid1.Rows(), 1);
  EXPECT_EQ(Form1.MSFlexGrid2.Rows(), 1);
}

TEST(Grids, EepromRowLabelsAboveFFHaveThreeDigits) {
  HexDesk desk("PIC18F8722");
  ASSERT_EQ(Form1.MSFlexGrid2.Rows(), 129);
  EXPECT_EQ(Form1.MSFlexGrid2.Text(32, 0), "F8");
  EXPECT_EQ(Form1.MSFlexGrid2.Text(33, 0), "100");
  EXPECT_EQ(Form1.MSFlexGrid2.Text(128, 0), "3F8");
  ASSERT_EQ(Form1.MSFlexGrid1.Rows(), 8193);
  EXPECT_EQ(Form1.MSFlexGrid1.Text(8192, 0), "FFF8");
}

TEST(Grids, AChipWithoutEepromHasTheHeadingRowAlone) {
  HexDesk desk("PIC12F609");
  ExpectErasedGrid(Form1.MSFlexGrid3, EepromHeadings, 0, 2, "FF");
  desk.Choose("PIC18F2410");
  ExpectErasedGrid(Form1.MSFlexGrid2, EepromHeadings, 0, 2, "FF");
}

TEST(Grids, TheOtherPageKeepsWhatItShowed) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + EndRecord), Lines{});
  desk.Choose("PIC16F628A");
  EXPECT_EQ(Form1.MSFlexGrid1.Text(1, 1), "1234");
  EXPECT_EQ(Form1.MSFlexGrid1.Rows(), 2049);
  EXPECT_EQ(Form1.MSFlexGrid4.Text(1, 1), "3FFF");
}

// Lists.

TEST(Lists, BothSummariesSayAtTheStartThatNoChipIsChosen) {
  BenchSession session;
  session.Do("start");
  const Lines expected{"                                          Nincs PIC Kiválasztva"};
  EXPECT_EQ(Form1.List2.Lines(), expected);
  EXPECT_EQ(Form1.List5.Lines(), expected);
}

TEST(Lists, TheConfigurationListsAreCountedFrom0To13AndOtherNumbersDoNothing) {
  HexDesk desk("PIC18F452");
  const char* const names[] = {"Bconfig1L", "Bconfig1H", "Bconfig2L", "Bconfig2H", "Bconfig3L",
                               "Bconfig3H", "Bconfig4L", "Bconfig4H", "Bconfig5L", "Bconfig5H",
                               "Bconfig6L", "Bconfig6H", "Bconfig7L", "Bconfig7H"};
  for (int k = 0; k < 14; ++k) {
    devices::ClearConfigList(k);
    EXPECT_EQ(desk.session.Look(std::string("list ") + names[k]), Lines{});
    devices::AddConfigLine(k, "first");
    devices::AddConfigLine(k, "second");
    EXPECT_EQ(desk.session.Look(std::string("list ") + names[k]), (Lines{"first", "second"}));
  }
  for (const int k : {-1, 14, 1000, -1000}) {
    devices::ClearConfigList(k);
    devices::AddConfigLine(k, "third");
  }
  for (const char* name : names) {
    EXPECT_EQ(desk.session.Look(std::string("list ") + name), (Lines{"first", "second"}));
  }
}

TEST(Lists, TheIdListsAreResetToTheErasedByteWithItsCharacter) {
  HexDesk desk("PIC18F452");
  for (const char* name :
       {"IDLOC11", "IDLOC21", "IDLOC31", "IDLOC41", "IDLOC51", "IDLOC61", "IDLOC71", "IDLOC81"}) {
    EXPECT_EQ(desk.session.Look(std::string("list ") + name), Lines{" FF          ˙ "});
  }
}

/// The character of a byte in code page 1250 by the C library; empty where the code page has none.
std::string ByIconv(int code) {
  const iconv_t converter = ::iconv_open("UTF-8", "CP1250");
  char in = static_cast<char>(code);
  char out[8];
  char* from = &in;
  char* to = out;
  std::size_t inLeft = 1;
  std::size_t outLeft = sizeof out;
  const bool converted = ::iconv(converter, &from, &inLeft, &to, &outLeft) == 0;
  ::iconv_close(converter);
  return converted ? std::string(out, to) : "";
}

TEST(Lists, AnIdByteIsShownWithItsCharacterOfCodePage1250) {
  int without = 0;
  for (int code = 0; code < 256; ++code) {
    image::ShowIdByte(8, Hex(code, 2));
    const std::string character = ByIconv(code);
    without += character.empty() ? 1 : 0;
    if (character.empty()) continue;
    EXPECT_EQ(Form1.IDLOC81.Lines(), Lines{" " + Hex(code, 2) + "        " + character}) << code;
  }
  EXPECT_EQ(without, 5);
}

}  // namespace
}  // namespace zelvo::test
