// The bit engine: texts of '0' and '1' out over PGD and PGC, bytes in, and the programming pulse of the
// PIC18.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace zelvo::icsp {

inline std::string BitString;            ///< argument slot of `ClockOutBits`
inline std::array<int, 9> BitSamples{};  ///< raw readings of the input bit; 1 to 8 used

/// Clocks the text out, last character first: data settles, PGC rises, the chip latches with its fall.
void ClockOutBits(std::string_view bits);
/// Clocks 8 bits in, least significant first, with PGD released high; gives 0..255. A silent chip gives 255
/// or 0, as the board has it; without an interface the value is 0.
[[nodiscard]] int ClockInBits();
/// Releases the data line, high, so that the chip can drive it, with one wait. False without an interface.
[[nodiscard]] bool ReleaseData();
/// One clock with the data line released; gives the raw level of the input behind its fall, as the input bit
/// or 0.
[[nodiscard]] int ClockInRaw();
/// Three clocks with PGD 0, the fourth clock left high.
void ProgramClockStart();
/// NOP with its fourth clock held for the programming time P9, low for P10, then the 16 payload bits.
void ProgramPulse();
/// A byte as two hexadecimal digits, converted and clocked out.
void ClockOutHexPair(std::string_view pair);

}  // namespace zelvo::icsp
