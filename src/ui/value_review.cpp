// `Config_Beolvas` and `IDLocO`: the configuration and ID bytes that were read, compared with the image.
#include <algorithm>
#include <array>
#include <string>

#include "devices/config_masks.h"
#include "icsp/conversions.h"
#include "image/buffers.h"
#include "image/views.h"
#include "link/event_log.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "ui/behaviour.h"
#include "ui/verdict.h"

namespace zelvo::ui {

using panel::Config_Beolvas;
using panel::Form1;
using panel::IDLocO;

namespace {

constexpr size_t ConfigBytes = 14;
constexpr size_t IdBytes = 8;

// What the windows hold while they live; index 0 stays unused.
std::array<std::string, ConfigBytes + 1> readConfigBits;
std::array<std::string, IdBytes + 1> readIds;

void Log(const char* text) {
  link::LogEvent(Form1.List1, text);
}

std::string HexOfRead(size_t index) {
  return icsp::HexPadded(static_cast<std::uint32_t>(image::ReadBackBytes.at(index)), 1);
}

bool OnChip(size_t byte) {
  return devices::ConfigFlags.at(byte) == "I";
}

void ShowReadConfig() {
  readConfigBits.fill("");
  for (size_t i = 1; i <= ConfigBytes; ++i) {
    panel::ListBox& list = Config_Beolvas.Values[i - 1];
    if (!OnChip(i)) {
      list.AddItem("   x x x x x x x x ");
      continue;
    }
    list.Clear();
    icsp::ByteToSpacedBits(image::ReadBackBytes.at(i));
    list.AddItem(icsp::ConvertedBits + " ");
    readConfigBits[i] = icsp::ConvertedBits;
  }
}

/// A blank byte of the image counts as equal to anything; with fourteen of them there is nothing to compare.
Verdict JudgeConfig() {
  size_t blank = 0;
  for (size_t i = 1; i <= ConfigBytes; ++i) {
    std::string mine = image::ConfigBuffer.at(i);
    if (mine == image::ErasedByte) {
      ++blank;
      continue;
    }
    std::string read = HexOfRead(i);
    icsp::PadHex2(mine);
    icsp::PadHex2(read);
    if (mine != read) {
      return {" Nem azonos tartalmak!", panel::LightRed,
              ":  Nem egyforma a Puffer és a Beolvasott Config tartalma."};
    }
  }
  if (blank == ConfigBytes) {
    return {" A Puffer Üres!", Config_Beolvas.eredmény.BackColor,
            ":  A Puffer Üres! Nincs mit összehasonlítani!"};
  }
  return {" A két tartalom azonos!", panel::LightGreen,
          ":  A Puffer és a Beolvasott Config tartalmak azonosak."};
}

void TakeConfig() {
  for (size_t i = 1; i <= ConfigBytes; ++i) {
    image::ConfigBuffer.at(i) = HexOfRead(i);
    image::ConfigBitStrings.at(i) = readConfigBits[i];
    if (OnChip(i)) image::ShowConfigBits(static_cast<int>(i));
  }
  Log(":  Beolvasott Config tartalom Pufferbe áttölve.");
  Config_Beolvas.Unload();
}

void LeaveConfig() {
  Log(":  Beolvasott Config tartalom Nem lett áttölve a Pufferbe.");
  Config_Beolvas.Unload();
}

void ConfigOpened() {
  ShowReadConfig();
  Tell(Config_Beolvas.eredmény, Form1.List1, JudgeConfig());
  if (Form1.Check2.Value) TakeConfig();
}

/// The reads bring each pair with its odd address first.
void ShowReadIds() {
  for (size_t n = 1; n <= IdBytes; ++n) {
    const size_t index = ((n - 1) ^ 1) + 1;
    readIds[n] = icsp::HexPadded(static_cast<std::uint32_t>(image::ReadBackBytes.at(index)), 2);
    IDLocO.Values[n - 1].AddItem(image::IdLine(readIds[n]));
  }
}

/// Unlike the configuration, values taken over from the chip count as edited: a file asks before it
/// overwrites them. In automatic mode the log does not tell of it.
void TakeIds() {
  for (size_t n = 1; n <= IdBytes; ++n) {
    image::IdBuffer.at(n) = readIds[n];
    image::ShowIdByte(static_cast<int>(n), readIds[n]);
  }
  image::IdEdited = 1;
  if (!Form1.Check2.Value) Log(":  Beolvasott ID Loc tartalom Pufferbe áttölve.");
  IDLocO.Unload();
}

void LeaveIds() {
  Log(":  Beolvasott User ID szavak Nem lettek Pufferbe töltve.");
  IDLocO.Unload();
}

void IdsOpened() {
  ShowReadIds();
  const bool equal = std::equal(readIds.begin() + 1, readIds.end(), image::IdBuffer.begin() + 1);
  Tell(IDLocO.eredmény, Form1.List1, IdVerdict(equal));
  if (Form1.Check2.Value) TakeIds();
}

}  // namespace

void AttachValueReviews() {
  Config_Beolvas.OnTop = true;
  Config_Beolvas.OnLoad = ConfigOpened;
  Config_Beolvas.Igen.Click = TakeConfig;
  Config_Beolvas.Nem.Click = LeaveConfig;
  IDLocO.OnTop = true;
  IDLocO.OnLoad = IdsOpened;
  IDLocO.Igen.Click = TakeIds;
  IDLocO.Nem.Click = LeaveIds;
}

}  // namespace zelvo::ui
