// `LPT_COM_select` and `LPT_Port_Set`: which interface, and at what address.
#include <string>

#include "link/event_log.h"
#include "link/numbers.h"
#include "link/port.h"
#include "link/settings.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "platform/seams.h"
#include "ui/behaviour.h"
#include "ui/number_entry.h"
#include "ui/on_top.h"
#include "ui/settings_saving.h"

namespace zelvo::ui {

using panel::Form1;
using panel::LPT_COM_select;
using panel::LPT_Port_Set;

namespace {

constexpr const char* NothingChosen = "Válassz ki egy Címet!";
constexpr const char* TooLong = "A cím maximum 4 számjegy hosszú lehet!";
constexpr std::size_t MostDigits = 4;

void Tell(const char* text) {
  MessageOver(LPT_Port_Set, text);
}

/// The lines are moved through the registers from now on, not by way of the held device.
void ReleasePort() {
  if (platform::seams.serial->IsOpen()) platform::seams.serial->Close();
}

void InterfaceChosen() {
  if (LPT_COM_select.COM_Radio.Value) {
    link::LogToBoth(":  COM1 Port kiválasztva");
    ReleasePort();
    link::ComMode = true;
    link::LptMode = false;
  }
  if (LPT_COM_select.LPT_Radio.Value) {
    link::LogToBoth(":  LPT Port kiválasztva");
    link::ComMode = false;
    link::LptMode = true;
    ReleasePort();
  }
  LPT_COM_select.Unload();
  Reopen(LPT_Port_Set);  // one that is open lists the other interface's addresses
}

void InterfaceWindowOpened() {
  MindigFelül(LPT_COM_select);
  if (link::ComMode) LPT_COM_select.COM_Radio.Select();
  if (link::LptMode) LPT_COM_select.LPT_Radio.Select();
}

void AddressWindowOpened() {
  MindigFelül(LPT_Port_Set);
  LPT_Port_Set.Combo1.Text = std::string(NothingChosen);
  const std::initializer_list<const char*> com = {"&H3F8", "&H2F8", "&H3E8", "&H2E8"};
  const std::initializer_list<const char*> lpt = {"&H378", "&H278", "&H3BC"};
  for (const char* address : link::ComMode ? com : lpt) LPT_Port_Set.Combo1.AddItem(address);
  for (panel::VisibleControl* manual : std::initializer_list<panel::VisibleControl*>{
           &LPT_Port_Set.Text1, &LPT_Port_Set.Label2, &LPT_Port_Set.Label3})
    manual->Visible = !link::ComMode;
}

/// An address that could not be kept is no reason to restart: the window stays for another try.
void Save(const std::string& address) {
  if (!TellUnlessSaved(LPT_Port_Set, link::WritePortFile(address))) return;
  LPT_Port_Set.Unload();
  platform::seams.dialogs->Message("A programot újra kell indítani a beállítások érvénybelépéséhez!");
}

void TakeFromList(const std::string& item) {
  const auto address = link::ReadAddress(item);
  if (!address) return Tell("Hibás megadott cím!");
  link::PortBase = *address;
  link::LogToBoth(":  Port új Címe: " + item.substr(1, 5));
  Save(item);
}

void TakeTyped(const std::string& digits) {
  if (CharacterCount(digits) > MostDigits) return Tell(TooLong);
  const auto address = link::ReadHex(digits);
  if (!address) return Tell("Hibás megadott cím!");
  link::PortBase = static_cast<std::int16_t>(*address);
  Save("&H" + digits);
}

void AddressAccepted() {
  const std::string item = LPT_Port_Set.Combo1.Text;
  const std::string typed = LPT_Port_Set.Text1.Text;
  if (item != NothingChosen) return TakeFromList(item);
  if (typed.empty()) return Tell("Adj meg egy címet, vagy válasz a listából!");
  TakeTyped(typed);
}

/// Enter only judges what stands there; the button takes it.
void CheckTyped(panel::Key key) {
  if (key != panel::Key::Enter) return;
  const std::string typed = LPT_Port_Set.Text1.Text;
  if (CharacterCount(typed) > MostDigits) return Tell(TooLong);
  if (!typed.empty() && !link::ReadHex(typed)) Tell("Nem megengedett karakter!");
}

}  // namespace

void AttachInterfaceChoice() {
  for (panel::CommandButton* button : {&Form1.Command6, &Form1.Command14})
    button->Click = [] { Reopen(LPT_COM_select); };
  for (panel::CommandButton* button : {&Form1.Command1, &Form1.Command26})
    button->Click = [] { Reopen(LPT_Port_Set); };
  LPT_COM_select.OnLoad = InterfaceWindowOpened;
  LPT_COM_select.Command1.Click = InterfaceChosen;
  LPT_Port_Set.OnLoad = AddressWindowOpened;
  LPT_Port_Set.Command1.Click = AddressAccepted;
  LPT_Port_Set.Text1.KeyDown = CheckTyped;
}

}  // namespace zelvo::ui
