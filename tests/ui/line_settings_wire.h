// A started printer port, its settings window, and the accesses that its data register shows.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "platform/seams.h"
#include "settings_wire.h"

namespace zelvo::test {

inline constexpr const char* LineWindow = "Adat_él_Beállít_H";
inline constexpr const char* Ack = "R 0379 40";

inline Settings WithInversions(int bits) {
  Settings settings;
  settings.invert = std::to_string(bits);
  return settings;
}

inline LineModel LptModel(int polarities) {
  return LineModel(LineModel::Kind::Lpt, polarities);
}

inline std::string TwoDigits(int value) {
  char text[3];
  std::snprintf(text, sizeof text, "%02X", static_cast<unsigned>(value));
  return text;
}

/// All four outputs in one port cycle, from a register that holds `before`.
inline Lines OneCycle(int before, int after) {
  return {"R 0378 " + TwoDigits(before), "W 0378 " + TwoDigits(after)};
}

/// The data register with all lines of the usual bits at rest: set for the inverted ones.
inline int IdleRegister(int polarities) {
  return ((polarities & 1) != 0 ? 4 : 0) + ((polarities & 2) != 0 ? 8 : 0) + ((polarities & 4) != 0 ? 2 : 0) +
         ((polarities & 8) != 0 ? 1 : 0);
}

inline int DataRegister() {
  return platform::seams.ports->Inp32(0x378);
}

class LptWire : public testing::Test {
 protected:
  explicit LptWire(const Settings& settings = {}, const char* board = "board lpt") : session(settings) {
    session.Do({board, "start", "tab 2"});
  }
  void Open() { session.Do("click Command5"); }
  Lines Click(const std::string& control) {
    return session.WireOf("click " + (LineWindow + ("." + control)));
  }
  BenchSession session;
};
class LptWireOfBusy : public LptWire {
 protected:
  LptWireOfBusy() : LptWire({}, "board lpt input=busy") {}
};
class OpeningWithEveryBox : public LptWire {
 protected:
  OpeningWithEveryBox() : LptWire(WithInversions(31)) {}
};

}  // namespace zelvo::test
