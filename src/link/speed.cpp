#include "link/speed.h"

#include <cmath>
#include <string>

#include "link/delays.h"
#include "link/numbers.h"
#include "link/settings.h"
#include "platform/seams.h"

namespace zelvo::link {

using panel::Form1;

const SpeedControls& Pic18Speed() {
  static const SpeedControls page{Form1.ÁSeb,   Form1.List3,   Form1.Text1,
                                  Form1.Check9, Form1.Check10, panel::Pic18Tab};
  return page;
}

const SpeedControls& MidRangeSpeed() {
  static const SpeedControls page{Form1.HScroll1, Form1.List11,  Form1.Text2,
                                  Form1.Check7,   Form1.Check11, panel::MidRangeTab};
  return page;
}

void ShowSpeed(double value) {
  for (const SpeedControls* page : {&Pic18Speed(), &MidRangeSpeed()}) {
    page->list.Clear();
    page->list.AddItem("  " + NumberText(value) + "  ");
  }
}

void SpeedBarChanged(const SpeedControls& page) {
  const int value = page.bar.Value;
  ShowSpeed(value);
  SpeedSetting = 10.0 * value;
  const SpeedControls& other = page.tab == panel::Pic18Tab ? MidRangeSpeed() : Pic18Speed();
  other.bar.Value = value;
  // The recovery has just written the file's default; the bar's position must not replace it.
  if (!SpeedLoading) WriteSpeedFile(value);
  WaitCount = SpeedSetting;
}

void TenfoldClicked(const SpeedControls& page, const SpeedControls& twin) {
  // The guards keep the click that the twin's mirrored tick causes from scaling a second time.
  if (Form1.TabStrip1.SelectedItem != page.tab || SpeedLoading) return;
  constexpr double Slowest = 100000;
  constexpr double Fastest = 10;
  if (page.tenfold.Value) {
    SpeedSetting = std::min(SpeedSetting * 10, Slowest);
  } else {
    SpeedSetting = std::max(SpeedSetting / 10, Fastest);
  }
  twin.tenfold.Value = page.tenfold.Value.Get();
  const double value = SpeedSetting / 10;
  ShowSpeed(value);
  const int position = RoundHalfEven(value);
  page.bar.Value = position;
  twin.bar.Value = position;
}

void OpenSpeedEdit(const SpeedControls& page) {
  page.edit.Text = std::string();
  page.edit.Visible = true;
  page.edit.SetFocus();
}

void ApplySpeedEdit(const SpeedControls& page) {
  if (!page.edit.Visible) return;
  const auto number = ReadNumber(page.edit.Text.Get());
  if (!number) {
    platform::seams.dialogs->Message("számot kérnék! :)");
    return;
  }
  if (*number < page.bar.Min || *number > page.bar.Max) {
    platform::seams.dialogs->Message("minimum érték 1, maximum érték 10000");
    return;
  }
  page.edit.Visible = false;
  const int position = RoundHalfEven(*number);  // the bars know whole positions only
  ShowSpeed(position);
  Pic18Speed().bar.Value = position;
  MidRangeSpeed().bar.Value = position;
  SpeedSetting = 10.0 * position;
  WriteSpeedFile(position);
}

}  // namespace zelvo::link
