#include "devices/preflight.h"

#include <string>

#include "devices/catalogue.h"
#include "devices/identification.h"
#include "devices/mid_range_identification.h"
#include "devices/selection.h"
#include "link/target_power.h"
#include "panel/form1.h"
#include "platform/seams.h"

namespace zelvo::devices {
namespace {

struct Question {
  const char* ending;
  bool idleOnNo = true;
};
/// How the three questions end: no chip answered, unknown chip, other chip than selected.
struct Questions {
  Question noChip, unknown, other;
};

constexpr const char* Reading = " Folytatod az olvasást?";
constexpr const char* Burning = " Folytatod az égetést?";
constexpr const char* Erasing = " Folytatod a törlést?";
constexpr const char* Pic18Erasing =
    " Folytatod az törlést?";  // wrong Hungarian, known to operators as it stands

constexpr Questions Pic18Questions[] = {
    {{Reading}, {Reading}, {Reading}},
    {{Burning}, {Burning}, {Burning}},
    {{Pic18Erasing}, {Pic18Erasing}, {Pic18Erasing}},
};
// An unknown chip is asked about in the words of a read before an erase and before an EEPROM write too.
constexpr Questions MidQuestions[] = {
    {{Reading}, {Reading}, {Reading}},
    {{Burning}, {Burning}, {Burning}},
    {{Erasing}, {Reading}, {Erasing}},
    {{Burning, false}, {Reading}, {Burning, false}},
};

bool Ask(const char* question, const Question& how) {
  if (platform::seams.dialogs->AskYesNo(std::string(question) + how.ending)) return true;
  if (how.idleOnNo) link::TargetPowerOff();
  return false;
}

/// The chip in the socket has been named: may the operation run on it?
bool AskAboutChip(const Questions& questions, bool selectionIsKnown) {
  bool answered = false;
  if (DetectedName == NoChipText) {
    if (!Ask("Nem érzékelek PIC-et!", questions.noChip)) return false;
    answered = true;
  }
  if (DetectedName == UnknownChipText) {
    if (!Ask("Ismeretlen_PIC!", questions.unknown)) return false;
    answered = true;
  }
  if (answered || (selectionIsKnown && SelectedName == DetectedName)) return true;
  return Ask("A detektált PIC nem azonos a kiválasztottal!", questions.other);
}

void IdentifySilently(const panel::ComboBox& combo, void (*identify)()) {
  SelectedName = combo.Text.Get();
  SilentIdentify = true;
  identify();
  SilentIdentify = false;
}

}  // namespace

bool Preflight(Verb verb) {
  return ChipIsSelected() && PreflightQuestions(verb);
}

bool PreflightQuestions(Verb verb) {
  IdentifySilently(panel::Form1.Combo1, IdentifyPic18);
  return AskAboutChip(Pic18Questions[static_cast<int>(verb)], true);
}

bool MidRangeQuestions(MidVerb verb) {
  IdentifySilently(panel::Form1.Combo2, IdentifyMidrange);
  // The identification may have put a name there that the list does not have: nothing fits such a chip.
  return AskAboutChip(MidQuestions[static_cast<int>(verb)], FindMidRange(SelectedName) != nullptr);
}

}  // namespace zelvo::devices
