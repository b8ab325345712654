#include "support/board_kind.h"

namespace zelvo::test {

Settings BoardKind::SettingsFiles() const {
  Settings settings;
  if (com) {
    settings.port = "&H3F8,COM";
    settings.comInvert = std::to_string((data ? 1 : 0) + (clock ? 2 : 0) + (input ? 4 : 0) + (vpp ? 8 : 0));
  } else {
    settings.invert =
        std::to_string((vdd ? 1 : 0) + (vpp ? 2 : 0) + (clock ? 4 : 0) + (data ? 8 : 0) + (input ? 16 : 0));
  }
  return settings;
}

std::string BoardKind::BoardCommand() const {
  std::string inverted;
  const auto add = [&inverted](bool active, const char* line) {
    if (active) inverted += (inverted.empty() ? "" : ",") + std::string(line);
  };
  if (com) {
    add(data, "pgd");
    add(clock, "pgc");
  } else {
    add(vdd, "vdd");
    add(clock, "clock");
    add(data, "data");
  }
  add(vpp, "vpp");
  add(input, "input");
  return std::string("board ") + (com ? "com" : "lpt") + (inverted.empty() ? "" : " inverted=" + inverted);
}

const std::vector<BoardKind>& BoardKinds() {
  static const std::vector<BoardKind> kinds = {
      {.name = "Lpt"},
      {.name = "LptVddInverted", .vdd = true},
      {.name = "LptVppInverted", .vpp = true},
      {.name = "LptClockInverted", .clock = true},
      {.name = "LptDataInverted", .data = true},
      {.name = "LptInputInverted", .input = true},
      {.name = "LptShipped", .clock = true, .data = true, .input = true},
      {.name = "LptAllInverted", .vdd = true, .vpp = true, .clock = true, .data = true, .input = true},
      {.name = "Com", .com = true},
      {.name = "ComVppInverted", .com = true, .vpp = true},
      {.name = "ComClockInverted", .com = true, .clock = true},
      {.name = "ComDataInverted", .com = true, .data = true},
      {.name = "ComInputInverted", .com = true, .input = true},
      {.name = "ComAllInverted", .com = true, .vpp = true, .clock = true, .data = true, .input = true},
  };
  return kinds;
}

std::ostream& operator<<(std::ostream& out, const BoardKind& kind) {
  return out << kind.name;
}

}  // namespace zelvo::test
