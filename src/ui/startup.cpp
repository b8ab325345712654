#include "ui/startup.h"

#include <string>

#include "devices/identification.h"
#include "devices/selection.h"
#include "icsp/scripts.h"
#include "image/fills.h"
#include "image/views.h"
#include "link/event_log.h"
#include "link/numbers.h"
#include "link/port.h"
#include "link/run_state.h"
#include "link/settings.h"
#include "panel/form1.h"
#include "ui/behaviour.h"
#include "ui/main_window.h"

namespace zelvo::ui {
namespace {

void ClearState() {
  link::EventCounter = 1;
  link::VddOnFlag = 0;
  link::WholeChipRun = false;
  link::UserAbort = false;
  devices::SilentIdentify = false;
}

void LogStart(const char* interfaceLine) {
  link::LogToBoth(":  Start.");
  link::LogToBoth(interfaceLine);
  link::LogToBoth(":  Címe:" + link::HexText(static_cast<std::uint16_t>(link::PortBase)) + "h");
}

}  // namespace

void StartUp() {
  AttachBehaviour();
  panel::MDIForm1.Load();
  panel::Form1.Load();
  icsp::FillScriptTable();
  image::FillVerifyErased();
  devices::FillCombo1();
  devices::FillCombo2();
  image::FormatGrids();
  for (panel::ListBox* summary : {&panel::Form1.List2, &panel::Form1.List5})
    devices::ShowNoChipSelected(*summary);
  ClearState();
  link::ReadPortFile();
  link::ReadSpeedFile();
  if (link::ComMode) LogStart(":  COM port van kiválasztva.");
  if (link::LptMode) LogStart(":  LPT port van kiválasztva.");
  link::SetUpInterface();
  ShowSelectedPage();
  EnableWholeChipButtons();
}

}  // namespace zelvo::ui
