// The windows that tell something about the program, its information page, and the one that closes the
// reviews of a whole read.
#include <string>

#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "platform/seams.h"
#include "ui/behaviour.h"
#include "ui/on_top.h"

namespace zelvo::ui {

using panel::Form1;
using panel::névjegy_ablak;
using panel::OlvassEl;
using panel::Összes_Bezárása;

namespace {

constexpr const char* InformationPage = "ZelvoBurn/ZLV_infok.htm";
constexpr const char* Maker = "Készítette: Zelvo, info@zelvo.example";

constexpr const char* VerifyHelp[] = {
    "      Verify írás működése: (Csak 18F-ek esetében működik)",
    " ",
    "Betöltéskor a Fő Puffer töltődik fel a HEX fájl tartalmával. Ekkor a Verify Puffer még törölt "
    "állapotban "
    "van(tele van FF értékekkel) ",
    "Ha a PIC-ben van adat, ami a folyamatban lévő fejlesztés része, akkor azt be lehet olvasni, és az "
    "olvasás "
    "ablakból be lehet tölteni",
    "a Verify Pufferbe.",
    "Íráskor, ha ki van választva a Verify Mód, a program 64Bájtos blokkokban elkezdi összehasonlítani a Fő "
    "és a "
    "Verify Pufferek tartalmát",
    "Ha eltérést talál, akkor az aktuális 64Bájtot törli, majd beírja az új adatokat. Az összes többi adatot "
    "kihagyja, ami jelentősen gyorsíthat",
    "a fejlesztés menetén, valamint kíméli a végesen írható flash memóriát. ",
    "Érdemes a hatékonyság érdekében a fejlesztés alatt álló programot ORG-okkal blokkokra bontani(ASM), "
    "hogy egy "
    "kis változtatás ne tolja",
    "lejjebb az egész programot a memóriában, így csak a javított blokkban lesz eltérés, aminek beégetése "
    "nagyon "
    "kis időt vesz igénybe.",
};

void CloseReviews() {
  const std::initializer_list<panel::Window*> reviews = {
      &panel::EEPROM_Beolvas,     &panel::FlashOlv,
      &panel::Config_Beolvas,     &panel::IDLocO,
      &panel::Config_Beolvas_F16, &panel::Config_2008_Olv_F16,
      &panel::IDLoc_F16,          &Összes_Bezárása};
  for (panel::Window* window : reviews) {
    window->Unload();
  }
}

}  // namespace

void AttachInformation() {
  Form1.Command3.Click = [] { Reopen(OlvassEl); };
  OlvassEl.OnTop = true;
  OlvassEl.OnLoad = [] {
    for (const char* line : VerifyHelp) OlvassEl.List1.AddItem(line);
  };
  OlvassEl.Command1.Click = [] { OlvassEl.Unload(); };

  for (panel::CommandButton* button : {&Form1.Névjegy, &Form1.Command24})
    button->Click = [] { Reopen(névjegy_ablak); };
  névjegy_ablak.OnTop = true;
  névjegy_ablak.OnLoad = [] {
    névjegy_ablak.Label2.Caption = std::string("Verzió: ") + ZELVO_VERSION;
    névjegy_ablak.Label4.Caption = std::string(Maker);
  };
  névjegy_ablak.Command1.Click = [] { névjegy_ablak.Unload(); };

  for (panel::CommandButton* button : {&Form1.ZLV_info, &Form1.Command25})
    button->Click = [] { platform::seams.dialogs->OpenInformationPage(InformationPage); };

  Összes_Bezárása.OnTop = true;
  Összes_Bezárása.Command1.Click = CloseReviews;
}

}  // namespace zelvo::ui
