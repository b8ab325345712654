// The command scripts of the PIC18: core instructions and table commands as one table of texts, three
// elements to a transaction (4-bit command, low payload byte, high payload byte), and the runner that clocks
// a stretch of it.
#pragma once

#include <array>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zelvo::icsp {

inline constexpr int ScriptElements = 2001;  ///< index 0 to 2000
inline std::array<std::string_view, ScriptElements> ScriptTable{};

/// Index of a script's element 0; its elements count from 1.
namespace base {
inline constexpr int TablePointer = 0;
inline constexpr int RowEraseUnlocked = 50;
inline constexpr int IdWrite = 100;
inline constexpr int ConfigWrite = 200;
inline constexpr int BulkEraseOneKey = 400;
inline constexpr int SinglePanel = 450;
inline constexpr int EepromWriteLow = 500;
inline constexpr int EepromReadLow = 550;
inline constexpr int EepromRead = 600;
inline constexpr int EepromWrite = 700;
inline constexpr int FlashPanel = 800;
inline constexpr int EepromWriteNoUnlock = 900;
inline constexpr int BulkEraseTwoKey = 1000;
inline constexpr int IdWriteNoUnlock = 1200;
inline constexpr int RowErasePulsed = 1300;
}  // namespace base

// The running table pointer as three hexadecimal pairs.
inline std::string TablePointerU = "00", TablePointerH = "00", TablePointerL = "00";
// The two bulk-erase codes last used; "80" is the one code of the older chips.
inline std::string EraseKey1, EraseKey2;

/// Fills the table; once, at start-up.
void FillScriptTable();

/// Element `index`; std::out_of_range beyond 2000.
[[nodiscard]] std::string_view ScriptElement(int index);

/// What stands in place of a placeholder; a text that is none comes back unchanged.
using Placeholder = std::function<std::string_view(std::string_view)>;

/// What follows each element of a script.
struct Pause {
  constexpr Pause(int waits) : edgeWaits(waits) {}  // NOLINT: a number of waits is the usual pause
  constexpr Pause(int waits, bool held) : edgeWaits(waits), szün(held) {}
  int edgeWaits;      ///< calls of `Vár_Ír`
  bool szün = false;  ///< then one `Szün`
};
inline constexpr Pause ShortPause{0, true};

/// Clocks the elements `first` to `last` of the script at `scriptBase`: 4-character elements as they stand,
/// the others as hexadecimal pairs after `fill`. Stops at "NOP". `pause` follows each element.
void RunScript(int scriptBase, int first, int last, Pause pause, const Placeholder& fill);
/// The table pointer texts for "TCU", "TCH" and "TCL".
[[nodiscard]] std::string_view TablePointerText(std::string_view element);

/// Runs the script that sets the chip's table pointer.
void SetTablePointer(std::string_view upper, std::string_view high, std::string_view low);
/// Write mode of one panel: 0 to 3C0006h.
void SinglePanelMode();
/// One whole transaction.
void ClockTransaction(std::string_view command, std::string_view low, std::string_view high);

}  // namespace zelvo::icsp
