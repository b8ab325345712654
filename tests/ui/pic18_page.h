// The PIC18 page with a small chip chosen, and what its operations leave in a log, step by step.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "devices/selection.h"
#include "link/delays.h"
#include "support/bench_session.h"

namespace zelvo::test {

inline constexpr const char* VddAlone = "W 0378 04";  // the supply rises alone once in each entry

/// The text of a line of the event list, without number and time.
inline std::string EventText(const std::string& line) {
  const std::size_t time = line.find(":  ") + 3;
  return line.substr(time + std::string_view("HH:MM:SS").size());
}

inline bool IsVerdict(const std::string& text) {
  return text.starts_with(":  A Puffer") || text.starts_with(":  Nem egyforma");
}

/// Event texts, windows and messages of a log; what the reviews say of the values is left out.
inline Lines Course(const Lines& log) {
  Lines course;
  for (const std::string& line : log) {
    if (line[0] == '+' || line[0] == '-' || line[0] == 'M' || line[0] == '#') course.push_back(line);
    if (line[0] == 'L' && !IsVerdict(EventText(line))) course.push_back(EventText(line));
  }
  return course;
}

inline int Count(const Lines& log, std::string_view line) {
  return static_cast<int>(std::ranges::count(log, line));
}

inline int Mentions(const Lines& log, std::string_view text) {
  return static_cast<int>(
      std::ranges::count_if(log, [text](const auto& line) { return line.find(text) != std::string::npos; }));
}

inline Lines operator+(Lines first, const Lines& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

inline const Lines EepromWriteSteps = {":  EEPROM Írása Indult.", "+ EEE_Ír_Állapot", "- EEE_Ír_Állapot",
                                       ":  EEPROM Írása kész."};
class Pic18Page : public testing::Test {
 protected:
  void SetUp() override {
    session.Do({"board lpt", "start", "tab 2"});
    link::SpeedSetting = link::WaitCount = 2;
  }
  /// Chooses a chip and puts one into the socket, cut down to 64 bytes of Flash and 8 of EEPROM.
  void Take(const std::string& chip) {
    session.Do({"choose Combo1 " + chip, "socket " + chip});
    devices::FlashWordMax = 31;
    if (devices::EepromMax != 0) devices::EepromMax = 7;
  }
  BenchSession session;
};

}  // namespace zelvo::test
