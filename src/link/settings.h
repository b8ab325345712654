// The five settings files of the program's folder: their readers with the recovery of each, and the speed
// file's writer. A file that is missing or holds an unreadable value is told to the operator and written
// anew.
#pragma once

#include <array>
#include <optional>
#include <string>

namespace zelvo::link {

inline int ComPortNumber = 0;  ///< 1..4, derived from `PortBase`; 0 until an address gave one

/// port.ini: `PortBase`, `PortAddress` and the interface kind.
void ReadPortFile();
/// speed.ini: the position of the speed bars, "10x Speed", `SpeedSetting` and `WaitCount`.
void ReadSpeedFile();
/// LPT_Kiosztas.ini: the line masks of the printer port and the input.
void ReadPinFile();
/// invert.ini: the polarity of the printer port's lines, logged line by line; ends with all lines at idle.
void ReadInvertFile();
/// invert_com.ini: the polarity of the serial port's lines, logged line by line.
void ReadComInvertFile();

// What the files hold, for the windows that show it.
inline constexpr std::size_t PinFields = 5;
/// LPT_Kiosztas.ini; nothing for a field that is missing or no number.
[[nodiscard]] std::array<std::optional<long>, PinFields> ReadPinFields();
/// The polarity files. One that is missing or bad is told and written anew, and gives what was written.
[[nodiscard]] long ReadInvertBits();
[[nodiscard]] long ReadComInvertBits();

// The writers give false, and leave the file as it was, when the folder cannot be written.
/// port.ini: `address` as it is to stand in the file, and the interface kind.
[[nodiscard]] bool WritePortFile(const std::string& address);
/// LPT_Kiosztas.ini: the bit of each line, and the input in force.
[[nodiscard]] bool WritePinFile(const std::array<int, PinFields - 1>& bits);
[[nodiscard]] bool WriteInvertFile(int bits);
[[nodiscard]] bool WriteComInvertFile(int bits);

/// Writes speed.ini with `value` and the state of "10x Speed".
void WriteSpeedFile(int value);

/// The chosen interface's own settings, and its lines to idle.
void SetUpInterface();
/// Claims the serial port, reads its polarity, sets its masks and puts the lines to idle.
void SetUpCom();

}  // namespace zelvo::link
