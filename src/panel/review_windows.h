// The review windows: what a read brought, shown before it touches the image.
#pragma once

#include <array>
#include <string>

#include "panel/control_array.h"
#include "panel/window.h"

namespace zelvo::panel {

struct FlashOlvWindow : Window {
  FlashOlvWindow() : Window("FlashOlv", "Flash Olvasás") {}
  Grid MSFlexGrid1{*this, "MSFlexGrid1", 9};
  ListBox List1{*this, "List1"};
  CommandButton FlashPuff{*this, "FlashPuff", "Pufferbe töltés"};
  CommandButton Command1{*this, "Command1", "Verify Puffer Feltöltése"};
  CommandButton Mégse{*this, "Mégse", "Kilépés"};
};

struct EepromReviewWindow : Window {
  EepromReviewWindow() : Window("EEPROM_Beolvas", "EEPROM Olvasás") {}
  Grid MSFlexGrid2{*this, "MSFlexGrid2", 9};
  ListBox List1{*this, "List1"};
  CommandButton Áttöltés{*this, "Áttöltés", "Pufferbe töltés"};
  CommandButton Mégse{*this, "Mégse", "Kilépés"};
};

/// A review of few values: a list for each, the verdict, and the two ways out.
template <std::size_t Size>
struct ValueReviewWindow : Window {
  using Name = std::string (*)(std::size_t index);
  ValueReviewWindow(const char* name, const char* caption, Name label, Name list, const char* takeCaption)
      : Window(name, caption),
        Labels(MakeControls<Size, Label>(
            [&](std::size_t i) { return Label(*this, "Label" + std::to_string(i + 1), label(i)); })),
        Values(MakeControls<Size, ListBox>([&](std::size_t i) { return ListBox(*this, list(i)); })),
        eredmény(*this, "eredmény"),
        Igen(*this, "Igen", takeCaption),
        Nem(*this, "Nem", "Kilépés") {}
  std::array<Label, Size> Labels;
  std::array<ListBox, Size> Values;
  ListBox eredmény;
  CommandButton Igen;
  CommandButton Nem;
};

/// The lists `Bconfig1L` to `Bconfig7H`.
struct ConfigReviewWindow : ValueReviewWindow<14> {
  ConfigReviewWindow()
      : ValueReviewWindow(
            "Config_Beolvas", "Beolvasott Config Bájtok.",
            [](std::size_t i) { return "Config" + std::string(ConfigByteNames[i]); },
            [](std::size_t i) { return "Bconfig" + std::string(ConfigByteNames[i]); },
            "Config Pufferbe Töltése") {}
};

/// The lists `IDLOC11` to `IDLOC81`.
struct IdReviewWindow : ValueReviewWindow<8> {
  IdReviewWindow()
      : ValueReviewWindow(
            "IDLocO", "Beolvasott ID Location Bájtok.",
            [](std::size_t i) { return "ID " + std::to_string(i + 1); },
            [](std::size_t i) { return "IDLOC" + std::to_string(i + 1) + "1"; }, "ID Pufferbe Töltése") {}
};

/// The configuration word of a mid-range chip: `List1` its bits, `List2` its digits.
struct MidConfigReviewWindow : ValueReviewWindow<2> {
  MidConfigReviewWindow()
      : ValueReviewWindow(
            "Config_Beolvas_F16", "Konfigurációs szó",
            [](std::size_t i) { return std::string(i == 0 ? "Bitek" : "Szó"); },
            [](std::size_t i) { return "List" + std::to_string(i + 1); }, "Config Pufferbe Töltése") {}
};

/// Both configuration words: `List1` and `List2` of the first, `List3` and `List4` of the second.
struct MidConfigPairReviewWindow : ValueReviewWindow<4> {
  MidConfigPairReviewWindow()
      : ValueReviewWindow(
            "Config_2008_Olv_F16", "Konfigurációs szavak",
            [](std::size_t i) { return std::to_string(i / 2 + 1) + (i % 2 == 0 ? ". szó bitjei" : ". szó"); },
            [](std::size_t i) { return "List" + std::to_string(i + 1); }, "Config Pufferbe Töltése") {}
};

/// The user ID words of a mid-range chip: `List7` to `List10`.
struct MidIdReviewWindow : ValueReviewWindow<4> {
  MidIdReviewWindow()
      : ValueReviewWindow(
            "IDLoc_F16", "Beolvasott User ID szavak",
            [](std::size_t i) { return "ID " + std::to_string(i + 1); },
            [](std::size_t i) { return "List" + std::to_string(i + 7); }, "ID Pufferbe Töltése") {}
};

inline FlashOlvWindow FlashOlv;
inline EepromReviewWindow EEPROM_Beolvas;
inline ConfigReviewWindow Config_Beolvas;
inline IdReviewWindow IDLocO;
inline MidConfigReviewWindow Config_Beolvas_F16;
inline MidConfigPairReviewWindow Config_2008_Olv_F16;
inline MidIdReviewWindow IDLoc_F16;

}  // namespace zelvo::panel
