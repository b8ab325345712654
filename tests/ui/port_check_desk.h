// A desk with the port check open, and logs of its one-second test short enough to be compared.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <string>

#include "support/bench_session.h"

namespace zelvo::test {

inline constexpr const char* High = "Adat vonal belső logikai szintje High (1)";
inline constexpr const char* Low = "Adat vonal belső logikai szintje Low (0)";

inline constexpr const char* Inverted = "Inverz    ";
inline constexpr const char* Plain = "Nem Inverz";

inline std::string Access(char kind, int address, int value) {
  char text[16];
  std::snprintf(text, sizeof text, "%c %04X %02X", kind, static_cast<unsigned>(address),
                static_cast<unsigned>(value));
  return text;
}

/// A log with lines of the same text in a row as one: "P 10 x 50000".
inline Lines Packed(const Lines& log) {
  Lines packed;
  for (std::size_t i = 0; i < log.size();) {
    std::size_t end = i;
    while (end < log.size() && log[end] == log[i]) ++end;
    packed.push_back(end - i == 1 ? log[i] : log[i] + " x " + std::to_string(end - i));
    i = end;
  }
  return packed;
}

inline Settings SerialPort() {
  Settings settings;
  settings.port = "&H3F8,COM";
  return settings;
}

struct PortCheckDesk {
  explicit PortCheckDesk(const Settings& settings = {}, std::string_view board = "board lpt")
      : session(settings) {
    session.Do({board, "start", "click Command4"});
  }
  static std::string Name(const std::string& control) { return "LPT_Port_Check." + control; }
  std::string Get(const std::string& control) { return session.Ask("get " + Name(control)); }
  std::string Colour(const std::string& control) { return session.Ask("color " + Name(control)); }
  void Tick(const std::string& box) { session.Do("tick " + Name(box)); }
  void Untick(const std::string& box) { session.Do("untick " + Name(box)); }
  Lines WireOfTick(const std::string& box) { return Packed(session.WireOf("tick " + Name(box))); }
  Lines WireOfUntick(const std::string& box) { return session.WireOf("untick " + Name(box)); }
  /// The states of `Check1` to `Check6`, as in "101000".
  std::string Boxes() {
    std::string states;
    for (const char* box : {"Check1", "Check2", "Check3", "Check4", "Check5", "Check6"}) states += Get(box);
    return states;
  }
  std::string Var(const std::string& name) { return session.Ask("var " + name); }
  bool IsOpen() {
    int found = 0;
    for (const std::string& window : session.Look("windows")) found += window == "LPT_Port_Check" ? 1 : 0;
    EXPECT_LE(found, 1) << "two windows of it";
    return found == 1;
  }
  BenchSession session;
};

}  // namespace zelvo::test
