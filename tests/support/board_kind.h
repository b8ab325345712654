// The boards that an operator may have, as settings files and as the bench's command.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "support/bench_session.h"

namespace zelvo::test {

/// One board as the operator has set it up: the settings files, the bench's `board` command, and the levels.
struct BoardKind {
  std::string_view name;  ///< of the test
  bool com = false;
  // Active-low lines. The serial board has no line of its own for the supply.
  bool vdd = false, vpp = false, clock = false, data = false, input = false;

  [[nodiscard]] Settings SettingsFiles() const;
  [[nodiscard]] std::string BoardCommand() const;
};
/// The name, where a test tells its parameter.
std::ostream& operator<<(std::ostream& out, const BoardKind& kind);

/// The kinds that the protocol tests run on: both interfaces, plain, each line inverted, all inverted.
[[nodiscard]] const std::vector<BoardKind>& BoardKinds();

}  // namespace zelvo::test
