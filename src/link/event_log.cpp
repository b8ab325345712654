#include "link/event_log.h"

#include <string>

#include "panel/form1.h"
#include "panel/window.h"
#include "platform/seams.h"

namespace zelvo::link {
namespace {

std::string EventLine(std::string_view text) {
  std::string line = std::to_string(EventCounter) + ":  " + platform::seams.clock->LocalTime();
  line += text;
  return line;
}

void Insert(panel::ListBox& list, const std::string& line) {
  list.InsertTop(line);
  for (panel::Witness* witness : panel::witnesses) witness->LineLogged(list, line);
}

}  // namespace

void LogEvent(panel::ListBox& list, std::string_view text) {
  Insert(list, EventLine(text));
  ++EventCounter;
}

void LogToBoth(std::string_view text) {
  const std::string line = EventLine(text);
  Insert(panel::Form1.List1, line);
  Insert(panel::Form1.List4, line);
  ++EventCounter;
}

panel::ListBox& PageLog() {
  return panel::Form1.TabStrip1.SelectedItem == panel::MidRangeTab ? panel::Form1.List4 : panel::Form1.List1;
}

}  // namespace zelvo::link
