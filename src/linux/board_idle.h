// The lines of the board at rest, from the settings in force.
#pragma once

#include "linux/idle_levels.h"

namespace zelvo::linuxio {

/// Each line at logical 0 by its polarity, on the registers of the chosen interface; empty when none is
/// chosen.
[[nodiscard]] IdleLevels IdleLevelsOfBoard();

}  // namespace zelvo::linuxio
