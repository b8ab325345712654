// Configuration memory of the mid-range chips: the four user ID words from 2000h on, and the one or two
// configuration words from 2007h on.
#pragma once

#include <cstdint>
#include <string_view>

namespace zelvo::opsmid {

inline std::int16_t MidConfigValue1 = 0;  ///< configuration word 1 as last read, 0..3FFFh
inline std::int16_t MidConfigValue2 = 0;  ///< the same of the second read

/// True for the seven chips with two configuration words.
[[nodiscard]] bool HasTwoConfigWords(std::string_view chip);

/// Reads the configuration of the chip in `Combo2` and opens its review. The second read walks to the same
/// place as the first. The target must be powered.
void ReadMidConfig();
/// Reads the user ID words into `MidIdReadWords` and opens their review. The target must be powered.
void ReadMidUserIds();
/// Writes `MidIdWords` and the configuration words as the chip takes them, and reads both back if `Check4` is
/// ticked. The target must be powered.
void WriteConfigAndIds(std::string_view chip);

}  // namespace zelvo::opsmid
