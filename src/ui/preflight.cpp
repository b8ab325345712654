#include "ui/preflight.h"

#include <string>

#include "devices/identification.h"
#include "devices/selection.h"
#include "link/target_power.h"
#include "panel/form1.h"
#include "platform/seams.h"

namespace zelvo::ui {
namespace {

/// How the questions end. The article of the erase is wrong Hungarian and known to operators as it stands.
const char* Ending(Verb verb) {
  switch (verb) {
    case Verb::Read:
      return " Folytatod az olvasást?";
    case Verb::Write:
      return " Folytatod az égetést?";
    case Verb::Erase:
      return " Folytatod az törlést?";
  }
  return "";
}

/// On No the lines go to idle.
bool Ask(const char* question, Verb verb) {
  if (platform::seams.dialogs->AskYesNo(std::string(question) + Ending(verb))) return true;
  link::TargetPowerOff();
  return false;
}

}  // namespace

bool Preflight(Verb verb) {
  return devices::ChipIsSelected() && PreflightQuestions(verb);
}

bool PreflightQuestions(Verb verb) {
  devices::SelectedName = panel::Form1.Combo1.Text.Get();
  devices::SilentIdentify = true;
  devices::IdentifyPic18();
  devices::SilentIdentify = false;
  bool answered = false;
  if (devices::DetectedName == devices::NoChipText) {
    if (!Ask("Nem érzékelek PIC-et!", verb)) return false;
    answered = true;
  }
  if (devices::DetectedName == devices::UnknownChipText) {
    if (!Ask("Ismeretlen_PIC!", verb)) return false;
    answered = true;
  }
  if (!answered && devices::SelectedName != devices::DetectedName) {
    return Ask("A detektált PIC nem azonos a kiválasztottal!", verb);
  }
  return true;
}

}  // namespace zelvo::ui
