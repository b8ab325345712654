// What a chip of the list is expected to show, by the expected tables.
#pragma once

#include <string>
#include <string_view>

#include "expected_tables.h"
#include "support/bench_session.h"

namespace zelvo::test {

/// The row of a set; fails the test when there is none.
[[nodiscard]] const MaskRow& MasksOf(std::string_view set);

/// The 14 mask lines of `set` for `chip`, as the lists `Bconfig1L` to `Bconfig7H` show them.
[[nodiscard]] Lines MaskLines(std::string_view set, std::string_view chip);
/// The 14 letters of `ConfigFlags` of `set` for `chip`.
[[nodiscard]] std::string MaskFlags(std::string_view set, std::string_view chip);

/// What the program shows of it.
[[nodiscard]] Lines ShownMaskLines();
[[nodiscard]] std::string ShownFlags();

/// The summary line of a chip: " Szavak: (0- 2047),  0-7FF,   EEPROM: (0- 127),  0-7F".
[[nodiscard]] std::string Summary(int flashWordMax, int eepromMax);

/// A line of an event list without its number and time.
[[nodiscard]] std::string EventText(const std::string& line);
/// The number of a line of an event list.
[[nodiscard]] int EventNumber(const std::string& line);

}  // namespace zelvo::test
