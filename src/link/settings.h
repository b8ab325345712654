// The five settings files of the program's folder: their readers with the recovery of each, and the speed
// file's writer. A file that is missing or holds an unreadable value is told to the operator and written
// anew.
#pragma once

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

/// Writes speed.ini with `value` and the state of "10x Speed".
void WriteSpeedFile(int value);

/// Claims the serial port, reads its polarity, sets its masks and puts the lines to idle.
void SetUpCom();

}  // namespace zelvo::link
