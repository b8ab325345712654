// The progress windows of Flash and EEPROM.
#include "devices/selection.h"
#include "image/buffers.h"
#include "link/run_state.h"
#include "panel/secondary_windows.h"
#include "ui/behaviour.h"

namespace zelvo::ui {
namespace {

void AttachProgress(panel::ProgressWindow& window, int (*max)()) {
  window.OnTop = true;
  window.OnLoad = [&window, max] {
    link::UserAbort = false;
    window.ProgressBar1.Value = window.ProgressBar1.Min.Get();
    window.ProgressBar1.Max = max();
  };
  window.Command1.Click = [] { link::UserAbort = true; };
}

}  // namespace

void AttachProgressWindows() {
  AttachProgress(panel::Állapot, [] { return devices::FlashWordMax + 1; });
  AttachProgress(panel::FlashÍrÁllapot, [] { return image::RowsOf(devices::FlashWordMax); });
  for (panel::ProgressWindow* window : {&panel::EEE_Olv_Állapot, &panel::EEE_Ír_Állapot})
    AttachProgress(*window, [] { return devices::EepromMax + 1; });
}

}  // namespace zelvo::ui
