// A small model of the traffic that the program has to make on either interface, event by event, for tests
// that compare whole wire logs. It knows registers, lines and polarity, and nothing of the program.
#pragma once

#include <string>
#include <string_view>

#include "support/bench_session.h"

namespace zelvo::test {

/// A board as the operator has wired and configured it. Bit values are those of `invert.ini` (Vdd 1, Vpp 2,
/// clock 4, data 8, input 16) on the printer port and of `invert_com.ini` (data 1, clock 2, input 4, Vpp 8)
/// on the serial port.
struct Wiring {
  bool com = false;
  int inverted = 0;
  bool busy = false;  ///< printer port: data in on BUSY instead of ACK

  [[nodiscard]] Settings SettingsFiles() const;
  /// The bench command that puts the same board on the machine.
  [[nodiscard]] std::string BoardCommand() const;
};

/// Builds the expected log. Every clock edge waits `passes`; the lines are idle at the beginning.
class WireModel {
 public:
  WireModel(const Wiring& wiring, int passes);

  void PowerOff();
  void PowerOn();
  /// Clocks a text of bits out, its last character first.
  void Out(std::string_view bits);
  /// Clocks `bits` bits in, bit 0 first.
  void In(int value, int bits = 8);
  /// One element of a command script with three waits behind it.
  void ScriptElement(std::string_view bits);
  /// The pointer at the three bytes, each given as 8 bits.
  void TablePointer(std::string_view upper, std::string_view high, std::string_view low);
  /// Two bytes by table reads.
  void TableReads(int first, int second);
  /// A line of the event list, time replaced as `WithoutTimes` does.
  void Event(const std::string& list, int number, const std::string& text);
  void Line(const std::string& line) { log_.push_back(line); }

  [[nodiscard]] const Lines& Log() const { return log_; }

 private:
  enum class Wire { Vdd, Vpp, Clock, Data };

  [[nodiscard]] bool Inverted(Wire wire) const;
  [[nodiscard]] int Bit(Wire wire) const;
  /// Register that carries the line, 0 or 1 as an index into `registers_`.
  [[nodiscard]] int Register(Wire wire) const { return wiring_.com && wire == Wire::Vpp ? 1 : 0; }
  void Read(int reg);
  void Write(int reg);
  void Shape(Wire wire, bool level);
  void Change(Wire wire, bool level);
  void Wait();
  void Settle() { Line("D settle"); }

  Wiring wiring_;
  int passes_;
  int addresses_[2];
  int registers_[2] = {0, 0};
  Lines log_;
};

/// The log with every time of day replaced by "TIME".
[[nodiscard]] Lines WithoutTimes(Lines log);

}  // namespace zelvo::test
