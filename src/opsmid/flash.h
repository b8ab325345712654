// Program memory of the mid-range chips. The write is the page's main job: it erases, writes all words, then
// the user IDs and the configuration.
#pragma once

#include <cstdint>

namespace zelvo::opsmid {

inline int WordCounter = 0;          ///< number of the word being read, from 1
inline double WriteProgress = 0;     ///< of a write: an eighth a word, so that a row of the image equals 1
inline std::int16_t LatchCount = 0;  ///< words of a group of four that were passed

/// Reads `FlashWordMax` + 1 words into `ReadBackBytes` and opens the review unless the operator cancelled.
/// The target must be powered.
void ReadMidFlash();
/// Erases program memory, writes `MainBuffer`, the user IDs and the configuration of the chip in `Combo2`.
/// Powers the target itself; with the manual board it asks the operator to. Cancel ends it behind the word in
/// hand.
/// A cancelled write leaves user IDs and configuration unwritten and gives false.
bool WriteMidFlash();

}  // namespace zelvo::opsmid
