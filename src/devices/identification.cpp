#include "devices/identification.h"

#include "devices/selection.h"
#include "icsp/conversions.h"
#include "icsp/pic18_engine.h"
#include "icsp/scripts.h"
#include "link/event_log.h"
#include "link/target_power.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"

namespace zelvo::devices {

using panel::Form1;

// In the order in which the patterns are tried.
const std::array<Pic18IdRow, 72> Pic18IdTable = {{
    {4, "100", "PIC18F242"},   {4, "101", "PIC18F442"},   {4, "001", "PIC18F452"},
    {4, "000", "PIC18F252"},   {5, "000", "PIC18F2320"},  {5, "100", "PIC18F2220"},
    {5, "001", "PIC18F4320"},  {5, "101", "PIC18F4220"},  {6, "011", "PIC18F6620"},
    {6, "001", "PIC18F6720"},  {6, "010", "PIC18F8620"},  {6, "000", "PIC18F8720"},
    {7, "110", "PIC18F1320"},  {7, "111", "PIC18F1220"},  {8, "011", "PIC18F458"},
    {8, "010", "PIC18F258"},   {8, "001", "PIC18F448"},   {8, "000", "PIC18F248"},
    {8, "111", "PIC18F2331"},  {8, "110", "PIC18F2431"},  {8, "101", "PIC18F4331"},
    {8, "100", "PIC18F4431"},  {10, "111", "PIC18F6525"}, {10, "101", "PIC18F6621"},
    {10, "110", "PIC18F8525"}, {10, "100", "PIC18F8621"}, {10, "011", "PIC18F6585"},
    {10, "001", "PIC18F6680"}, {10, "010", "PIC18F8585"}, {10, "000", "PIC18F8680"},
    {11, "001", "PIC18F6520"}, {11, "000", "PIC18F8520"}, {12, "111", "PIC18F2515"},
    {12, "110", "PIC18F2525"}, {12, "101", "PIC18F2610"}, {12, "100", "PIC18F2620"},
    {12, "011", "PIC18F4515"}, {12, "010", "PIC18F4525"}, {12, "001", "PIC18F4610"},
    {12, "000", "PIC18F4620"}, {14, "111", "PIC18F2585"}, {14, "110", "PIC18F2680"},
    {14, "101", "PIC18F4585"}, {14, "100", "PIC18F4680"}, {16, "111", "PIC18F4410"},
    {16, "110", "PIC18F4420"}, {16, "101", "PIC18F4510"}, {16, "100", "PIC18F4520"},
    {17, "011", "PIC18F2410"}, {17, "010", "PIC18F2420"}, {17, "001", "PIC18F2510"},
    {17, "000", "PIC18F2520"}, {18, "011", "PIC18F2455"}, {18, "010", "PIC18F2550"},
    {18, "001", "PIC18F4455"}, {18, "000", "PIC18F4550"}, {19, "010", "PIC18F6527"},
    {19, "100", "PIC18F6622"}, {19, "110", "PIC18F6627"}, {19, "011", "PIC18F8527"},
    {19, "101", "PIC18F8622"}, {19, "111", "PIC18F8627"}, {20, "000", "PIC18F6722"},
    {20, "001", "PIC18F8722"}, {26, "111", "PIC18F2480"}, {26, "110", "PIC18F2580"},
    {26, "101", "PIC18F4480"}, {26, "100", "PIC18F4580"}, {33, "011", "PIC18F2221"},
    {33, "001", "PIC18F2321"}, {33, "010", "PIC18F4221"}, {33, "000", "PIC18F4321"},
}};

namespace {

/// Table read with post-increment: the pointer is on the next byte afterwards.
int ReadIdByte() {
  icsp::ClockOutBits("1001");
  icsp::ClockOutBits("0000");
  icsp::ClockOutBits("0000");
  return icsp::ClockInBits();
}

void LogUnlessSilent(const std::string& text) {
  if (!SilentIdentify) link::LogEvent(Form1.List1, text);
}

const Pic18IdRow* FindRow(int devId2, std::string_view devId1Bits) {
  for (const Pic18IdRow& row : Pic18IdTable) {
    if (row.devId2 == devId2 && row.devId1Bits == devId1Bits) return &row;
  }
  return nullptr;
}

void Announce(const Pic18IdRow& row) {
  if (SilentIdentify) return;
  Form1.Combo1.Text = std::string(row.name);
  ChipRecognised = 1;
  link::LogEvent(Form1.List1, ":  A felismert PIC a " + std::string(row.name.substr(3)) + ". ");
}

bool Uniform(int level) {
  return DevId[1] == level && DevId[2] == level;
}

}  // namespace

void ShowNotRecognised() {
  panel::PICAzonos.Unload();
  panel::PICAzonos.Load();
  for (const char* line :
       {" Nem ismertem fel a PIC-et, vagy ", " nincs csatlakoztatva PIC a foglalatba, vagy ",
        " nincs bekapcsolva az égető tápja, vagy ", " nincs csatlakoztatva a printer porthoz."}) {
    panel::PICAzonos.PICazon.AddItem(line);
  }
  link::LogEvent(link::PageLog(), ":  Nem volt felismerhető PIC.");
}

void IdentifyPic18() {
  ChipRecognised = 0;
  DetectedName.clear();
  link::TargetPowerOn();
  LogUnlessSilent(":  PIC Azonosítás indult.");
  icsp::SetTablePointer("3F", "FF", "FE");
  DevId[1] = ReadIdByte();
  DevId[2] = ReadIdByte();
  icsp::HexPairToBits(icsp::HexPadded(static_cast<std::uint32_t>(DevId[1]), 2));
  const std::string bits = icsp::ConvertedBits;
  LogUnlessSilent(":  Devid1: " + bits + "  Devid2: " + std::to_string(DevId[2]));

  const Pic18IdRow* row = FindRow(DevId[2], std::string_view(bits).substr(0, 3));
  if (row != nullptr) {
    Announce(*row);
    DetectedName = row->name;
  }
  if (Uniform(0xFF) || Uniform(0)) {
    DetectedName = NoChipText;
  } else if (DetectedName.empty()) {
    DetectedName = UnknownChipText;
  }
  if (!SilentIdentify) {
    if (row != nullptr) {
      SelectChip();
    } else {
      ShowNotRecognised();
    }
  }
  link::TargetPowerOff();
  LogUnlessSilent(":  PIC Azonosítás kész.");
}

}  // namespace zelvo::devices
