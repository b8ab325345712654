#include "devices/mid_range_identification.h"

#include <string>

#include "devices/identification.h"
#include "devices/selection.h"
#include "icsp/mid_range_engine.h"
#include "link/delays.h"
#include "link/event_log.h"
#include "link/port.h"
#include "link/target_power.h"
#include "panel/form1.h"
#include "platform/seams.h"

namespace zelvo::devices {

using panel::Form1;

// Two chips bear names here that the list does not have (PIC16F683, PIC16F635), so they are never found to be
// the chosen one; some of the list have no row.
const std::array<MidRangeIdRow, MidRangeIdRows> MidRangeIdTable = {{
    {35, "PIC16F683"},   {37, "PIC16F685"},   {43, "PIC16F84A"},      {61, "PIC16F627"},
    {62, "PIC16F628"},   {71, "PIC16F872"},   {73, "PIC16F874"},      {75, "PIC16F873"},
    {76, "PIC16F819"},   {77, "PIC16F877"},   {78, "PIC16F818"},      {79, "PIC16F876"},
    {104, "PIC16F870"},  {105, "PIC16F871"},  {114, "PIC16F87"},      {118, "PIC16F88"},
    {124, "PIC12F629"},  {125, "PIC16F635"},  {126, "PIC12F675"},     {130, "PIC16F627A"},
    {131, "PIC16F628A"}, {132, "PIC16F684"},  {133, "PIC16F636/639"}, {134, "PIC16F630"},
    {135, "PIC16F676"},  {136, "PIC16F648A"}, {140, "PIC16F688"},     {146, "PIC16F616"},
    {147, "PIC16HV616"}, {153, "PIC16F687"},  {154, "PIC16F689"},     {155, "PIC12F617"},
    {160, "PIC16F690"},  {161, "PIC16F631"},  {162, "PIC16F677"},     {256, "PIC16F882"},
    {257, "PIC16F883"},  {258, "PIC16F884"},  {259, "PIC16F886"},     {260, "PIC16F887"},
    {268, "PIC12F615"},  {269, "PIC12HV615"}, {274, "PIC12F609"},     {275, "PIC16F610"},
    {276, "PIC12HV609"}, {277, "PIC16HV610"}, {312, "PIC16F917"},     {314, "PIC16F916"},
    {316, "PIC16F914"},  {318, "PIC16F913"},  {326, "PIC16F946"},
}};

namespace {

constexpr int IdWord = 6;  // words above 2000h
constexpr int LineHigh = 511;

const MidRangeIdRow* FindRow(int value) {
  for (const MidRangeIdRow& row : MidRangeIdTable) {
    if (row.value == value) return &row;
  }
  return nullptr;
}

void ReadChipId() {
  link::WaitCount = link::SpeedSetting;
  if (!MidEraseRun) link::TargetPowerOn();
  link::LogEvent(Form1.List4, ":  PIC Azonosítás indult.");
  icsp::ToConfigurationMemory();
  icsp::IncrementAddress(IdWord);
  ChipIdValue = static_cast<std::int16_t>(icsp::ReadFrame(icsp::mid::ReadProgram, icsp::ChipIdFrame));
}

void Select(const MidRangeIdRow& row) {
  Form1.Combo2.Text = std::string(row.name);
  const char* const end = row.name == "PIC16F871" ? " " : ". ";
  link::LogEvent(Form1.List4, ":  A felismert PIC a " + std::string(row.name.substr(3)) + end);
  SelectChip();
}

void Deselect() {
  Form1.Combo2.Text = std::string(NoChipText);
  ShowNoChipSelected(Form1.List5);
  ShowNotRecognised();
  FlashWordMax = 0;
}

}  // namespace

void IdentifyMidrange() {
  link::WaitCount = link::SpeedSetting;
  if (link::LptMode || link::ComMode) ReadChipId();
  if (Form1.Check8.Value) platform::seams.dialogs->Message("Kapcsold Ki a Vdd-t és a Vpp-t, majd OK!");
  const MidRangeIdRow* row = FindRow(ChipIdValue);
  if (!SilentIdentify) {
    if (row != nullptr) {
      Select(*row);
    } else {
      Deselect();
    }
  }
  if (row != nullptr) {
    DetectedName = row->name;
  } else {
    DetectedName = ChipIdValue == 0 || ChipIdValue == LineHigh ? NoChipText : UnknownChipText;
  }
  if (!SilentIdentify) SelectedName = Form1.Combo2.Text.Get();
  link::LogEvent(Form1.List4, ": PIC ID: " + std::to_string(ChipIdValue));
}

}  // namespace zelvo::devices
