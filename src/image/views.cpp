#include "image/views.h"

#include <array>

#include "devices/config_masks.h"
#include "devices/selection.h"
#include "icsp/conversions.h"
#include "image/buffers.h"
#include "panel/form1.h"

namespace zelvo::image {

using panel::Form1;

namespace {

constexpr int Columns = 8;

/// Upper half of code page 1250 as Unicode; the five codes without a character keep their number.
constexpr std::array<char16_t, 128> UpperHalf = {
    0x20AC, 0x0081, 0x201A, 0x0083, 0x201E, 0x2026, 0x2020, 0x2021, 0x0088, 0x2030, 0x0160, 0x2039, 0x015A,
    0x0164, 0x017D, 0x0179, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x0098, 0x2122,
    0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A, 0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6,
    0x00A7, 0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B, 0x00B0, 0x00B1, 0x02DB, 0x0142,
    0x00B4, 0x00B5, 0x00B6, 0x00B7, 0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C, 0x0154,
    0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7, 0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD,
    0x00CE, 0x010E, 0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7, 0x0158, 0x016E, 0x00DA,
    0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF, 0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7,
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F, 0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4,
    0x0151, 0x00F6, 0x00F7, 0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9};

std::string Utf8(char16_t character) {
  const auto byte = [](unsigned value) { return static_cast<char>(value); };
  if (character < 0x80) return {byte(character)};
  if (character < 0x800) return {byte(0xC0u | (character >> 6)), byte(0x80u | (character & 0x3Fu))};
  return {byte(0xE0u | (character >> 12)), byte(0x80u | ((character >> 6) & 0x3Fu)),
          byte(0x80u | (character & 0x3Fu))};
}

void FormatGrid(panel::Grid& grid, int addressWidth, int cellWidth) {
  constexpr int HeadingTwips = 270;
  grid.SetRowHeight(0, HeadingTwips);
  grid.SetColWidth(0, addressWidth);
  for (int col = 1; col <= Columns; ++col) grid.SetColWidth(col, cellWidth);
  for (int col = 0; col <= Columns; ++col) grid.SetColAlignment(col, panel::Grid::AlignCentre);
}

bool OnMidRangePage() {
  return Form1.TabStrip1.SelectedItem == panel::MidRangeTab;
}

}  // namespace

void SetUpGrid(panel::Grid& grid, const GridLayout& layout, int highest, std::string_view text) {
  grid.SetText(0, 0, layout.corner);
  for (int col = 1; col <= Columns; ++col) {
    WorkHex = " " + std::to_string(col - 1);
    WorkHex += layout.separator;
    WorkHex += icsp::HexPadded(static_cast<std::uint32_t>(col + 7), 1);
    grid.SetText(0, col, WorkHex);
  }
  const int rows = RowsOf(highest);
  grid.SetRows(rows + 1);
  for (int row = 0; row < rows; ++row) {
    WorkHex = icsp::HexPadded(static_cast<std::uint32_t>(row * Columns), layout.labelDigits);
    grid.SetText(row + 1, 0, WorkHex);
    for (int col = 1; col <= Columns; ++col) grid.SetText(row + 1, col, text);
  }
}

panel::Grid& PageFlashGrid() {
  return OnMidRangePage() ? Form1.MSFlexGrid4 : Form1.MSFlexGrid1;
}
panel::Grid& PageEepromGrid() {
  return OnMidRangePage() ? Form1.MSFlexGrid3 : Form1.MSFlexGrid2;
}

void FormatFlashGrid(panel::Grid& grid) {
  FormatGrid(grid, 760, 713);
}

void FormatEepromGrid(panel::Grid& grid) {
  FormatGrid(grid, 640, 500);
}

void FormatGrids() {
  for (panel::Grid* grid : {&Form1.MSFlexGrid1, &Form1.MSFlexGrid4}) FormatFlashGrid(*grid);
  for (panel::Grid* grid : {&Form1.MSFlexGrid2, &Form1.MSFlexGrid3}) FormatEepromGrid(*grid);
}

void ListAlapFlash() {
  SetUpGrid(PageFlashGrid(), FlashGridLayout, devices::FlashWordMax,
            OnMidRangePage() ? ErasedMidRangeWord : ErasedPic18Word);
}

void ListAlapEEPROM() {
  SetUpGrid(PageEepromGrid(), EepromGridLayout, devices::EepromMax, ErasedByte);
}

void ResetIdLabels() {
  for (panel::ListBox* list : Form1.IdLists) {
    list->Clear();
    list->AddItem(" FF          ˙ ");
  }
}

std::string IdLine(std::string_view digits) {
  int code = 0;
  icsp::HexPairToValue(digits, code);
  return " " + std::string(digits) + "        " + Cp1250(code);
}

void ShowConfigBits(int index) {
  devices::ClearConfigList(index - 1);
  devices::AddConfigLine(index - 1, " " + ConfigBitStrings.at(static_cast<size_t>(index)));
}

void ShowIdByte(int element, std::string_view digits) {
  panel::ListBox& list = *Form1.IdLists.at(static_cast<size_t>(element - 1));
  list.Clear();
  list.AddItem(IdLine(digits));
}

std::string MidIdLine(std::int16_t value) {
  return icsp::HexPadded(static_cast<std::uint16_t>(value), 1) + "h, " + std::to_string(value) + "dec";
}

void ShowMidId(int word) {
  panel::ListBox& list = *Form1.MidIdLists.at(static_cast<size_t>(word - 1));
  list.Clear();
  list.AddItem(MidIdLine(MidIdWords.at(static_cast<size_t>(word))));
}

std::string Cp1250(int code) {
  return code < 128 ? std::string(1, static_cast<char>(code))
                    : Utf8(UpperHalf.at(static_cast<size_t>(code - 128)));
}

int Cp1250Code(std::string_view character) {
  for (int code = 0; code < 256; ++code) {
    if (Cp1250(code) == character) return code;
  }
  return '?';
}

}  // namespace zelvo::image
