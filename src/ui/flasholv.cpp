// `FlashOlv`: what was read from the chip's Flash, compared with the image.
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

using panel::FlashOlv;
using panel::Form1;

namespace {

constexpr int Columns = 8;

/// Calls `use` with row and column of each word of the review. A chip that was chosen meanwhile may be
/// smaller; what a larger one has beyond was not read.
template <class Use>
void ForEachWord(const Use& use) {
  const int rows = std::min(image::RowsOf(devices::FlashWordMax), FlashOlv.MSFlexGrid1.Rows() - 1);
  for (int row = 1; row <= rows; ++row) {
    for (int col = 1; col <= Columns; ++col) use(row, col);
  }
}

std::string ByteText(size_t index) {
  return icsp::HexPadded(static_cast<std::uint32_t>(image::ReadBackBytes.at(index)), 2);
}

/// The bytes as they came, high byte first, as words.
void ShowReadWords() {
  image::FormatFlashGrid(FlashOlv.MSFlexGrid1);
  image::SetUpGrid(FlashOlv.MSFlexGrid1, image::FlashReviewLayout, devices::FlashWordMax, "");
  size_t k = 1;
  ForEachWord([&k](int row, int col) {
    const std::string text = ByteText(k) + ByteText(k + 1);
    image::FlashReadBuffer(col, row) = text;
    FlashOlv.MSFlexGrid1.SetText(row, col, "  " + text + "  ");
    k += 2;
  });
}

void CompareFlash() {
  bool differs = false;
  ForEachWord([&differs](int row, int col) {
    if (image::FlashReadBuffer(col, row) == image::MainBuffer(col, row)) return;
    FlashOlv.MSFlexGrid1.SetCellBackColor(row, col, panel::LightRed);
    differs = true;
  });
  FlashOlv.List1.Clear();
  FlashOlv.List1.AddItem(differs ? " Nem egyforma Buffer és a beolvasott tartalom!"
                                 : "Egyforma a Buffer és a beolvasott tartalom!");
}

void TakeOver() {
  panel::Grid& grid = image::PageFlashGrid();
  ForEachWord([&grid](int row, int col) {
    image::MainBuffer(col, row) = image::FlashReadBuffer(col, row);
    grid.SetText(row, col, image::FlashReadBuffer(col, row));
  });
  link::LogEvent(link::PageLog(), ":  A beolvasott Flash a Pufferbe áttölve.");
  FlashOlv.Unload();
}

void FillVerify() {
  image::CopyReadToVerify();
  link::LogEvent(Form1.List1, ":  A Beolvasott Flash Bájtok Verify Pufferbe Betöltve.");
}

void Leave() {
  link::LogEvent(link::PageLog(), ":  A beolvasott Flash tartalom Nem lett Pufferbe áttölve.");
  FlashOlv.Unload();
}

void Opened() {
  // Only the PIC18 side has a Verify buffer.
  FlashOlv.Command1.Visible = Form1.TabStrip1.SelectedItem == panel::Pic18Tab;
  FlashOlv.Command1.ToolTip =
      std::string("A feltöltés után a Verify írás összehasonlítása ezzel a tartalommal történik.");
  ShowReadWords();
  CompareFlash();
  if (Form1.Check2.Value || Form1.Check5.Value) TakeOver();
}

}  // namespace

void AttachFlashReview() {
  FlashOlv.OnTop = true;
  FlashOlv.OnLoad = Opened;
  FlashOlv.FlashPuff.Click = TakeOver;
  FlashOlv.Command1.Click = FillVerify;
  FlashOlv.Mégse.Click = Leave;
}

}  // namespace zelvo::ui
