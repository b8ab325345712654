// The event log: numbered lines, newest on top, in the list of the page that an operation belongs to.
#pragma once

#include <string_view>

#include "panel/controls.h"

namespace zelvo::link {

inline int EventCounter = 1;  ///< number of the next line; one counter serves both lists

/// Puts counter, ":  ", local time and `text` on top of `list`; the counter grows by 1. `text` begins with ":
/// ".
void LogEvent(panel::ListBox& list, std::string_view text);
/// The same line with the same number in `List1`, then in `List4`.
void LogToBoth(std::string_view text);
/// The event list of the page in view.
[[nodiscard]] panel::ListBox& PageLog();

}  // namespace zelvo::link
