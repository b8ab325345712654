// The speed controls of both pages.
#include "link/speed.h"
#include "panel/form1.h"
#include "ui/behaviour.h"

namespace zelvo::ui {
namespace {

void AttachPage(const link::SpeedControls& page, const link::SpeedControls& twin, panel::Frame& frame) {
  page.bar.Change = [&page] { link::SpeedBarChanged(page); };
  page.tenfold.Click = [&page, &twin] { link::TenfoldClicked(page, twin); };
  page.slow.Click = [&page, &twin] { twin.slow.Value = page.slow.Value.Get(); };
  page.list.Click = [&page] { link::OpenSpeedEdit(page); };
  page.edit.KeyDown = [&page](panel::Key key) {
    if (key == panel::Key::Enter && !page.edit.Text.Get().empty()) link::ApplySpeedEdit(page);
  };
  page.edit.LostFocus = [&page] { link::ApplySpeedEdit(page); };
  frame.MouseEvent = [&page] { link::ApplySpeedEdit(page); };
}

}  // namespace

void AttachSpeedControls() {
  AttachPage(link::Pic18Speed(), link::MidRangeSpeed(), panel::Form1.Frame0);
  AttachPage(link::MidRangeSpeed(), link::Pic18Speed(), panel::Form1.Frame1);
}

}  // namespace zelvo::ui
