// What the operations on an empty socket put on the lines, worked out from the board's wiring: the manual
// supply switch, and an identification, which moves every line and reads the input.
#pragma once

#include <string>

#include "settings_desk.h"
#include "support/line_model.h"

namespace zelvo::test {

/// Those operations on a started program, by the operator's hand.
inline const Lines WireCommands = {"click ProgFut", "click ProgFut", "click IDazonosít"};

/// Their line traffic. An empty socket's data line is high: `input` is what the board's input register then
/// reads.
inline Lines ExpectedTraffic(LineModel model, const std::string& input) {
  for (const bool on : {true, false}) {
    model.ReadOut(LineModel::Vdd);
    model.Move(LineModel::Vdd, on);
  }
  model.PowerOn();
  const auto byte = [&model](int value) {
    std::string bits;
    for (int bit = 7; bit >= 0; --bit) bits += (value >> bit & 1) != 0 ? '1' : '0';
    model.ClockOut(bits);
  };
  // The pointer to the device ID, 3FFFFEh, by instructions of the chip's core.
  for (const int word : {0x0E3F, 0x6EF8, 0x0EFF, 0x6EF7, 0x0EFE, 0x6EF6}) {
    model.ClockOut("0000");
    byte(word & 0xFF);
    byte(word >> 8);
  }
  for (int id = 1; id <= 2; ++id) {
    model.ClockOut("1001");
    byte(0);
    model.ClockInHigh();
  }
  model.PowerOff();
  Lines traffic = Traffic(model.Take());
  for (std::string& line : traffic) {
    if (line[0] == 'R' && line.substr(2, 4) == input.substr(2, 4)) line = input;
  }
  return traffic;
}

inline Lines TrafficOf(BenchSession& session) {
  session.BeginWire();
  for (const std::string& command : WireCommands) session.Do(command);
  return Traffic(session.EndWire());
}

/// What the last identification says of the data line.
inline std::string DeviceId(BenchSession& session) {
  for (const std::string& line : session.Look("list List1")) {
    const std::size_t at = line.find(":  Devid1: ");
    if (at != std::string::npos) return line.substr(at);
  }
  return "";
}
inline constexpr const char* HighLine = ":  Devid1: 11111111  Devid2: 255";
inline constexpr const char* LowLine = ":  Devid1: 00000000  Devid2: 0";

/// The operations, now and behind a fresh start on `board`.
inline void ExpectTraffic(BenchSession& session, const LineModel& now, const LineModel& afterwards,
                          const std::string& board, const std::string& input) {
  EXPECT_TRUE(SameLog(ExpectedTraffic(now, input), TrafficOf(session))) << "now";
  EXPECT_TRUE(SameLog(ExpectedTraffic(afterwards, input),
                      Traffic(RestartedWire(session.Folder(), board, WireCommands))))
      << "after a restart";
}

}  // namespace zelvo::test
