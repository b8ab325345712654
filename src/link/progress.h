// One update of a progress window by a running operation.
#pragma once

#include "panel/secondary_windows.h"
#include "platform/seams.h"

namespace zelvo::link {

/// Sets the bar and lets the operator act for one pass.
inline void StepProgress(panel::ProgressWindow& window, int value) {
  window.ProgressBar1.Step(value);
  platform::seams.pump->Once();
}

}  // namespace zelvo::link
