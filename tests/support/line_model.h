// An independent picture of the lines: which accesses and waits a correct program makes to move them, for
// both kinds of interface and every polarity. It knows the wiring of the boards and nothing of the program.
#pragma once

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

#include "support/bench_session.h"

namespace zelvo::test {

/// True: the line is active low.
struct Polarity {
  bool vdd = false, vpp = false, clock = false, data = false, input = false;
};

class LineModel {
 public:
  enum class Kind { Lpt, Com };
  enum Line { Vdd, Vpp, Data, Clock };

  /// `bits` is the number that stands in the polarity file of that interface.
  LineModel(Kind kind, int bits) : com_(kind == Kind::Com) {
    const auto bit = [bits](int value) { return (bits & value) != 0; };
    if (com_) {
      polarity_ = {bit(1), bit(8), bit(2), bit(1), bit(4)};
    } else {
      polarity_ = {bit(1), bit(2), bit(4), bit(8), bit(16)};
    }
    for (const Line line : {Vdd, Vpp, Data, Clock}) Change(line, false);
    bits_ = bits;
  }

  /// Settings files for this interface and polarity.
  [[nodiscard]] Settings Files() const {
    Settings settings;
    settings.port = com_ ? "&H3F8,COM" : "&H378,LPT";
    (com_ ? settings.comInvert : settings.invert) = std::to_string(bits_);
    return settings;
  }
  /// The bench command that puts the fitting board on the machine.
  [[nodiscard]] std::string Board() const {
    std::string inverted;
    const auto add = [&inverted](bool is, const char* name) {
      if (is) inverted += (inverted.empty() ? "" : ",") + std::string(name);
    };
    if (!com_) add(polarity_.vdd, "vdd");
    add(polarity_.vpp, "vpp");
    add(polarity_.clock, com_ ? "pgc" : "clock");
    add(polarity_.data, com_ ? "pgd" : "data");
    add(polarity_.input, "input");
    const std::string kind = com_ ? "board com" : "board lpt";
    return inverted.empty() ? kind : kind + " inverted=" + inverted;
  }

  /// What the log should hold so far, and anew from here.
  [[nodiscard]] Lines Take() { return std::exchange(log_, {}); }
  void Expect(const std::string& line) { log_.push_back(line); }

  /// The register that carries a line already holds `value`.
  void Preset(Line line, int value) { RegisterOf(line) = value; }
  [[nodiscard]] int AddressOf(Line line) const {
    if (!com_) return 0x378;
    return line == Vpp ? 0x3FB : 0x3FC;
  }
  [[nodiscard]] int Value(Line line) const { return registers_[com_ && line == Vpp ? 1 : 0]; }

  void Wait() { log_.push_back("P " + std::to_string(Passes)); }
  void ReadOut(Line line) { Access('R', AddressOf(line), RegisterOf(line)); }
  void WriteOut(Line line) { Access('W', AddressOf(line), RegisterOf(line)); }
  /// The line at a logical level, in one access.
  void Move(Line line, bool level) {
    Change(line, level);
    WriteOut(line);
  }
  void MoveAndWait(Line line, bool level) {
    Move(line, level);
    Wait();
  }
  /// The data-in line is read while it is high on the chip's side.
  void ReadHighInput() { Access('R', com_ ? 0x3FE : 0x379, polarity_.input ? 0 : (com_ ? 16 : 64)); }

  void ClockOut(std::string_view bits) {
    for (std::size_t i = bits.size(); i-- > 0;) {
      ReadOut(Data);
      Move(Data, bits[i] == '1');
      if (ShowsInput) ReadHighInput();
      MoveAndWait(Clock, true);
      MoveAndWait(Clock, false);
    }
  }
  void ClockInHigh() {
    ReadOut(Data);
    MoveAndWait(Data, true);
    for (int bit = 0; bit < 8; ++bit) {
      MoveAndWait(Clock, true);
      Move(Clock, false);
      ReadHighInput();
      Wait();
    }
  }
  void ProgramClockStart() {
    Wait();
    ReadOut(Data);
    MoveAndWait(Data, false);
    for (int pass = 0; pass < 3; ++pass) {
      MoveAndWait(Clock, true);
      MoveAndWait(Clock, false);
    }
    MoveAndWait(Clock, true);
  }
  void ProgramPulse() {
    ProgramClockStart();
    Expect("S9");
    Expect("S9");
    ReadOut(Clock);
    MoveAndWait(Clock, false);
    Expect("S9");
    ClockOut("00000000");
    ClockOut("00000000");
  }
  void PowerOff() {
    if (com_) {
      for (const Line line : {Data, Clock, Vpp}) {
        ReadOut(line);
        Move(line, false);
      }
      return;
    }
    ReadOut(Vdd);
    for (const Line line : {Vdd, Vpp, Data, Clock}) Change(line, false);
    WriteOut(Vdd);
  }
  void PowerOn() {
    PowerOff();
    Expect("D settle");
    ReadOut(Vdd);
    Move(Vdd, true);
    Expect("D settle");
    if (com_) {
      PowerOff();
      ReadOut(Vpp);
    }
    Move(Vpp, true);
    Expect("D settle");
  }

  long long Passes = 10;    ///< of one edge
  bool ShowsInput = false;  ///< "Szuper lassú" looks at the data-in line at each bit
  /// Bit value of each line in its register.
  std::array<int, 4> LptBits{4, 8, 1, 2};

 private:
  [[nodiscard]] int& RegisterOf(Line line) { return registers_[com_ && line == Vpp ? 1 : 0]; }
  void Change(Line line, bool level) {
    static constexpr std::array<int, 4> ComBits{1, 64, 1, 2};
    const std::array<bool, 4> inverted{polarity_.vdd, polarity_.vpp, polarity_.data, polarity_.clock};
    const int bit = (com_ ? ComBits : LptBits)[line];
    int& value = RegisterOf(line);
    if (level != inverted[line]) {
      value |= bit;
    } else {
      value &= 255 - bit;
    }
  }
  void Access(char kind, int address, int value) {
    char text[16];
    std::snprintf(text, sizeof text, "%c %04X %02X", kind, static_cast<unsigned>(address),
                  static_cast<unsigned>(value));
    log_.emplace_back(text);
  }

  bool com_;
  int bits_ = 0;
  Polarity polarity_;
  std::array<int, 2> registers_{};
  Lines log_;
};

/// A started program on a fitting board with an empty socket, whose data line floats high.
class LineSession : public BenchSession {
 public:
  explicit LineSession(const LineModel& model) : BenchSession(model.Files()) { Do({model.Board(), "start"}); }
  /// The wire log of `act`.
  template <class Act>
  Lines LogOf(const Act& act) {
    BeginWire();
    act();
    return EndWire();
  }
};

/// Every polarity of both interfaces; a test case of these takes its model from `Model()`.
class EveryPolarity : public testing::TestWithParam<int> {
 protected:
  static constexpr int LptPolarities = 32;
  static constexpr int ComPolarities = 16;
  [[nodiscard]] static LineModel Model() {
    const int n = GetParam();
    return n < LptPolarities ? LineModel(LineModel::Kind::Lpt, n)
                             : LineModel(LineModel::Kind::Com, n - LptPolarities);
  }
};
inline std::string PolarityName(const testing::TestParamInfo<int>& info) {
  return info.param < 32 ? "lpt" + std::to_string(info.param) : "com" + std::to_string(info.param - 32);
}

}  // namespace zelvo::test
