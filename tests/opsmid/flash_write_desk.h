// Writing a mid-range chip's Flash: the chip with its image, and a chip for each of the five loops.
#pragma once

#include "mid_desk.h"

namespace zelvo::test {

inline constexpr const char* LoopNames[] = {"none", "Word", "WordEnd", "FourEnd", "Eight", "Four"};
/// One chip for each loop, by the loop's number.
inline constexpr const char* LoopChips[] = {"", "16F84A", "12F609", "12F617", "16F886", "16F690"};

class FlashWrite : public testing::Test {
 protected:
  /// Chooses the chip and gives it the image.
  void Begin(const MidChip& chip, const FlashJob& job) {
    MidDesk::Rest();
    desk.Choose(chip, static_cast<int>(job.words.size()));
    MidDesk::Take(job);
    desk.session.Do(job.check4 ? "tick Check4" : "untick Check4");
    desk.session.Do(job.check6 ? "tick Check6" : "untick Check6");
    link::UserAbort = false;
  }
  MidDesk desk;
};

}  // namespace zelvo::test
