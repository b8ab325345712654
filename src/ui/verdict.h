// The line and colour in which a review tells how two contents compare, and the log line that goes with them.
#pragma once

#include "link/event_log.h"
#include "panel/controls.h"

namespace zelvo::ui {

struct Verdict {
  const char* text;
  panel::Colour colour;
  const char* event;
};

inline void Tell(panel::ListBox& list, panel::ListBox& log, const Verdict& verdict) {
  list.AddItem(verdict.text);
  list.BackColor = verdict.colour;
  link::LogEvent(log, verdict.event);
}

/// Of the ID reviews of both pages.
[[nodiscard]] inline Verdict IdVerdict(bool equal) {
  if (equal) {
    return {" A két tartalom azonos!", panel::LightGreen,
            ":  A Puffer és a Beolvasott ID Loc tartalmak azonosak."};
  }
  return {" Nem azonos tartalmak!", panel::LightRed,
          ":  Nem egyforma a Puffer és a Beolvasott ID Loc tartalma."};
}

}  // namespace zelvo::ui
