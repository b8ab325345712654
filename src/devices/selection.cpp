#include "devices/selection.h"

#include "devices/catalogue.h"
#include "devices/config_masks.h"
#include "link/event_log.h"
#include "link/numbers.h"
#include "panel/form1.h"
#include "platform/seams.h"

namespace zelvo::devices {

using panel::Form1;

namespace {

/// A name that stands in no list; its row has been in the selection from the start.
constexpr Pic18Entry UnlistedRow{"26", 32767, 1023, "8680", "", "PIC18F8680"};

std::string SummaryLine() {
  const auto limit = [](int highest) {
    return "(0- " + std::to_string(highest) + "),  0-" + link::HexText(static_cast<std::uint32_t>(highest));
  };
  return " Szavak: " + limit(FlashWordMax) + ",   EEPROM: " + limit(EepromMax);
}

void ShowSummary(panel::ListBox& list) {
  list.Clear();
  list.AddItem(SummaryLine());
}

void LogSelection(panel::ListBox& log, std::string_view name) {
  link::LogEvent(log, ":  " + std::string(name) + " Kiválaszva.");
}

void SelectMidRange() {
  const std::string name = Form1.Combo2.Text;
  if (const MidRangeEntry* entry = FindMidRange(name)) {
    FlashWordMax = entry->flashWordMax;
    EepromMax = entry->eepromMax;
  }
  SelectedName = name;
  imageHooks.fillErased();
  LogSelection(Form1.List4, name);
  ShowSummary(Form1.List5);
}

const Pic18Entry* SelectionRow(const std::string& name) {
  if (name == UnlistedRow.name) return &UnlistedRow;
  const Pic18Entry* entry = FindPic18(name);
  return entry != nullptr && !entry->maskSet.empty() ? entry : nullptr;
}

void SelectPic18() {
  if (const Pic18Entry* entry = SelectionRow(Form1.Combo1.Text)) {
    FlashWordMax = entry->flashWordMax;
    EepromMax = entry->eepromMax;
    LoadMaskSet(entry->maskSet);
    imageHooks.fillErased();
    LogSelection(Form1.List1, entry->announcedAs);
  }
  ShowSummary(Form1.List2);
}

template <class Catalogue>
void FillCombo(panel::ComboBox& combo, const Catalogue& catalogue) {
  combo.Text = std::string(NoChipText);
  for (const auto& entry : catalogue) combo.AddItem(std::string(entry.name));
}

}  // namespace

void FillCombo1() {
  FillCombo(Form1.Combo1, Pic18Catalogue);
}
void FillCombo2() {
  FillCombo(Form1.Combo2, MidRangeCatalogue);
}

void SelectChip() {
  const int tab = Form1.TabStrip1.SelectedItem;
  if (tab == panel::MidRangeTab) SelectMidRange();
  if (tab == panel::Pic18Tab) SelectPic18();
  if (tab != panel::MidRangeTab && tab != panel::Pic18Tab) return;
  // On either page: a mid-range operation that needs its chip's name copies it anew.
  SelectedName = Form1.Combo1.Text.Get();
  imageHooks.rebuildViews();
}

bool ChipIsSelected() {
  if (FlashWordMax != 0) return true;
  platform::seams.dialogs->Message(NoChipMessage);
  return false;
}

void ShowNoChipSelected(panel::ListBox& summary) {
  summary.Clear();
  summary.AddItem(std::string(42, ' ') + "Nincs PIC Kiválasztva");
}

}  // namespace zelvo::devices
