// `FlashOlv` and `EEPROM_Beolvas`: what was read from the chip's Flash or EEPROM, compared with the image.
#include <algorithm>

#include "devices/selection.h"
#include "icsp/conversions.h"
#include "image/buffers.h"
#include "image/fills.h"
#include "image/views.h"
#include "link/event_log.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "ui/behaviour.h"

namespace zelvo::ui {

using panel::EEPROM_Beolvas;
using panel::FlashOlv;
using panel::Form1;

namespace {

constexpr int Columns = 8;

/// One of the two reviews: its window's parts, the memories that it compares, and what it says.
template <class Buffer>
struct MemoryReview {
  panel::Window& window;
  panel::Grid& grid;
  panel::ListBox& verdict;
  const int& highest;  ///< index of the chip's last cell
  Buffer& read;
  Buffer& image;
  panel::Grid& (*pageGrid)();
  const char* equal;
  const char* differs;
  const char* taken;
  const char* left;
};

const MemoryReview<image::FlashBuffer> Flash{FlashOlv,
                                             FlashOlv.MSFlexGrid1,
                                             FlashOlv.List1,
                                             devices::FlashWordMax,
                                             image::FlashReadBuffer,
                                             image::MainBuffer,
                                             image::PageFlashGrid,
                                             "Egyforma a Buffer és a beolvasott tartalom!",
                                             " Nem egyforma Buffer és a beolvasott tartalom!",
                                             ":  A beolvasott Flash a Pufferbe áttölve.",
                                             ":  A beolvasott Flash tartalom Nem lett Pufferbe áttölve."};

const MemoryReview<image::EepromCells> Eeprom{EEPROM_Beolvas,
                                              EEPROM_Beolvas.MSFlexGrid2,
                                              EEPROM_Beolvas.List1,
                                              devices::EepromMax,
                                              image::EepromReadBuffer,
                                              image::EepromBuffer,
                                              image::PageEepromGrid,
                                              "Egyforma a két tartalom!",
                                              " Nem egyforma a két tartalom!",
                                              ":  EEPROM tartalom Pufferbe áttölve.",
                                              ":  EEPROM tartalom Nem lett Pufferbe áttölve."};

/// Calls `use` with row and column of each cell of the review. A chip that was chosen meanwhile may be
/// smaller; what a larger one has beyond was not read.
template <class Review, class Use>
void ForEachCell(const Review& review, const Use& use) {
  const int rows = std::min(image::RowsOf(review.highest), review.grid.Rows() - 1);
  for (int row = 1; row <= rows; ++row) {
    for (int col = 1; col <= Columns; ++col) use(row, col);
  }
}

template <class Review>
void Compare(const Review& review) {
  bool differs = false;
  ForEachCell(review, [&](int row, int col) {
    if (review.read(col, row) == review.image(col, row)) return;
    review.grid.SetCellBackColor(row, col, panel::LightRed);
    differs = true;
  });
  review.verdict.Clear();
  review.verdict.AddItem(differs ? review.differs : review.equal);
}

/// The page may have been changed since the read, to one whose grid is smaller.
template <class Review>
void TakeOver(const Review& review) {
  panel::Grid& page = review.pageGrid();
  ForEachCell(review, [&](int row, int col) {
    review.image(col, row) = review.read(col, row);
    if (row < page.Rows()) page.SetText(row, col, review.read(col, row));
  });
  link::LogEvent(link::PageLog(), review.taken);
  review.window.Unload();
}

template <class Review>
void Leave(const Review& review) {
  link::LogEvent(link::PageLog(), review.left);
  review.window.Unload();
}

template <class Review>
void CompareAndMaybeTake(const Review& review) {
  Compare(review);
  if (Form1.Check2.Value || Form1.Check5.Value) TakeOver(review);
}

std::string ByteText(size_t index) {
  return icsp::HexPadded(static_cast<std::uint32_t>(image::ReadBackBytes.at(index)), 2);
}

/// The bytes as they came, high byte first, as words.
void ShowReadWords() {
  image::FormatFlashGrid(FlashOlv.MSFlexGrid1);
  image::SetUpGrid(FlashOlv.MSFlexGrid1, image::FlashReviewLayout, devices::FlashWordMax, "");
  size_t k = 1;
  ForEachCell(Flash, [&k](int row, int col) {
    const std::string text = ByteText(k) + ByteText(k + 1);
    image::FlashReadBuffer(col, row) = text;
    FlashOlv.MSFlexGrid1.SetText(row, col, "  " + text + "  ");
    k += 2;
  });
}

void ShowReadBytes() {
  image::FormatEepromGrid(EEPROM_Beolvas.MSFlexGrid2);
  image::SetUpGrid(EEPROM_Beolvas.MSFlexGrid2, image::EepromGridLayout, devices::EepromMax, "  FF");
  ForEachCell(Eeprom, [](int row, int col) {
    EEPROM_Beolvas.MSFlexGrid2.SetText(row, col,
                                       "  " + std::string(image::EepromReadBuffer(col, row).View()));
  });
}

void FillVerify() {
  image::CopyReadToVerify();
  link::LogEvent(Form1.List1, ":  A Beolvasott Flash Bájtok Verify Pufferbe Betöltve.");
}

void FlashOpened() {
  // Only the PIC18 side has a Verify buffer.
  FlashOlv.Command1.Visible = Form1.TabStrip1.SelectedItem == panel::Pic18Tab;
  FlashOlv.Command1.ToolTip =
      std::string("A feltöltés után a Verify írás összehasonlítása ezzel a tartalommal történik.");
  ShowReadWords();
  CompareAndMaybeTake(Flash);
}

void EepromOpened() {
  ShowReadBytes();
  CompareAndMaybeTake(Eeprom);
}

}  // namespace

void AttachMemoryReviews() {
  FlashOlv.OnTop = true;
  FlashOlv.OnLoad = FlashOpened;
  FlashOlv.FlashPuff.Click = [] { TakeOver(Flash); };
  FlashOlv.Command1.Click = FillVerify;
  FlashOlv.Mégse.Click = [] { Leave(Flash); };
  EEPROM_Beolvas.OnTop = true;
  EEPROM_Beolvas.OnLoad = EepromOpened;
  EEPROM_Beolvas.Áttöltés.Click = [] { TakeOver(Eeprom); };
  EEPROM_Beolvas.Mégse.Click = [] { Leave(Eeprom); };
}

}  // namespace zelvo::ui
