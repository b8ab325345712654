// What the tests of the printer port's settings window share: its groups and boxes, and a hand on them.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "settings_desk.h"

namespace zelvo::test {

inline constexpr const char* LineWindow = "Adat_él_Beállít_H";
inline constexpr std::array<int, 8> BitOfOption{128, 64, 32, 16, 8, 4, 2, 1};

/// The four groups in the order of the window, each with the place of its field in the file.
struct LineGroup {
  const char* frame;
  const char* caption;
  int firstOption;
  std::size_t field;
  const char* line;  ///< begins the names of the masks
};
inline constexpr std::array<LineGroup, 4> LineGroups{{{"Frame1", "Vdd", 1, 0, "Vdd"},
                                                      {"Frame2", "Vpp", 11, 1, "Vpp"},
                                                      {"Frame3", "PGC", 21, 3, "Clock"},
                                                      {"Frame4", "PGD", 31, 2, "Data"}}};

struct LineBox {
  const char* name;
  int bit;
  const char* flag;
  const char* ticked;
  const char* unticked;
};
inline constexpr std::array<LineBox, 5> LineBoxes{
    {{"Check1", 1, "VddInverted", ":  Vdd Kimenet Inverz", ":  Vdd Kimenet Nem Inverz"},
     {"Check2", 2, "VppInverted", ":  Vpp Kimenet Inverz", ":  Vpp Kimenet Nem Inverz"},
     {"Check3", 4, "ClockInverted", ":  CLK Kimenet Inverz", ":  CLK Kimenet Nem Inverz"},
     {"Check4", 8, "DataInverted", ":  ADAT Kimenet Inverz", ":  ADAT Kimenet Nem Inverz"},
     {"Check5", 16, "InputInverted", ":  Ack Bemenet Inverz", ":  Ack Bemenet Nem Inverz"}}};

inline std::string OptionName(const LineGroup& group, int option) {
  return "Option" + std::to_string(group.firstOption + option);
}

class LineSettings : public testing::Test {
 protected:
  explicit LineSettings(const Settings& settings = {}) : session(settings) {
    session.Do({"board lpt", "start"});
  }
  void Open() { session.Do("click Command5"); }
  void Close() { session.Do(std::string("close ") + LineWindow); }
  [[nodiscard]] bool Ticked(const std::string& control) {
    return session.Ask("get " + std::string(LineWindow) + "." + control) == "1";
  }
  /// The sum of the ticked boxes' bits.
  [[nodiscard]] int Shown() {
    int sum = 0;
    for (const LineBox& box : LineBoxes) sum += Ticked(box.name) ? box.bit : 0;
    return sum;
  }
  /// The bit values that are selected in a group.
  [[nodiscard]] std::vector<int> Selected(const LineGroup& group) {
    std::vector<int> bits;
    for (int option = 0; option < 8; ++option) {
      if (Ticked("Option" + std::to_string(group.firstOption + option)))
        bits.push_back(BitOfOption.at(static_cast<std::size_t>(option)));
    }
    return bits;
  }
  [[nodiscard]] std::string Polarities() const { return session.Folder().Read("invert.ini"); }
  [[nodiscard]] std::string Pins() const { return session.Folder().Read("LPT_Kiosztas.ini"); }
  [[nodiscard]] std::string Var(const std::string& name) { return session.Ask("var " + name); }
  BenchSession session;
};

}  // namespace zelvo::test
