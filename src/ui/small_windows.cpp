// The windows that only tell something: the unsuccessful identification, and those beside the loader's
// questions.
#include "panel/secondary_windows.h"
#include "ui/behaviour.h"

namespace zelvo::ui {
namespace {

void AttachLines(panel::OverwriteWindow& window, const char* first) {
  window.OnTop = true;
  window.OnLoad = [&window, first] {
    window.List1.AddItem(first);
    window.List1.AddItem(" Felülírjam a betöltés alatt lévő Fájl értékeivel?");
  };
}

}  // namespace

void AttachIdentification() {
  panel::PICAzonos.OnTop = true;
  panel::PICAzonos.Command1.Click = [] { panel::PICAzonos.Unload(); };
}

void AttachOverwriteWindows() {
  AttachLines(panel::FelülDialog, " Az ID Location bájtok már szerkesztve voltak.");
  AttachLines(panel::ConfFelülír, " A Config bájtok már szerkesztve voltak.");
}

}  // namespace zelvo::ui
