// A programmer for the tests of the simulated mid-range chips: six-bit commands and sixteen-clock words as
// Microchip draws them in its programming specifications, without any other part of the system.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "bench/board.h"

namespace zelvo::bench {

class MidDriver {
 public:
  static constexpr Nanoseconds Us = 1'000;
  static constexpr Nanoseconds Ms = 1'000'000;

  explicit MidDriver(const std::string& name, std::optional<std::uint32_t> deviceId = std::nullopt)
      : chip_(MakeChip(name, deviceId)) {}

  [[nodiscard]] Chip& Device() { return *chip_; }
  void Wait(Nanoseconds time) { now_ += time; }
  void Drive(const LineLevels& lines) {
    lines_ = lines;
    chip_->Drive(lines_, now_);
    now_ += Us;
  }
  void Set(bool LineLevels::*line, bool level) {
    LineLevels lines = lines_;
    lines.*line = level;
    Drive(lines);
  }
  [[nodiscard]] std::optional<bool> Data() { return chip_->DataOut(now_); }

  /// Vdd, then Vpp with both clock and data low.
  void Enter() {
    Drive({});
    Set(&LineLevels::vdd, true);
    Wait(10 * Us);
    Set(&LineLevels::vpp, true);
    Wait(10 * Us);
  }
  /// Out of programming mode and in again: the counter is back at address 0.
  void Reenter() {
    Set(&LineLevels::vpp, false);
    Set(&LineLevels::vpp, true);
    Wait(10 * Us);
  }

  void Clock(bool bit) {
    Set(&LineLevels::pgd, bit);
    Set(&LineLevels::pgc, true);
    Set(&LineLevels::pgc, false);
  }
  void Bits(unsigned value, int count) {
    for (int i = 0; i < count; ++i) Clock((value >> i & 1U) != 0);
  }
  void Command(unsigned code, Nanoseconds wait = 0) {
    Bits(code, 6);
    Wait(wait);
  }
  /// A command with a word; the start and the stop bit are as asked.
  void Send(unsigned code, unsigned word, bool framing = false) {
    Command(code);
    Bits((word & 0x3FFF) << 1 | (framing ? 0x8001U : 0U), 16);
  }
  /// The fourteen bits that the chip shifts out, sampled behind the falling edges.
  [[nodiscard]] unsigned Receive(unsigned code) {
    Command(code);
    unsigned word = 0;
    Clock(false);
    for (int i = 0; i < 14; ++i) {
      Clock(false);
      word |= static_cast<unsigned>(Data().value_or(true)) << i;
    }
    Clock(false);
    return word;
  }

  // The commands that all generations have.
  void LoadConfig(unsigned word = 0x3FFF) { Send(0x00, word); }
  void Load(unsigned word) { Send(0x02, word); }
  void LoadData(unsigned byte) { Send(0x03, byte); }
  [[nodiscard]] unsigned Read() { return Receive(0x04); }
  [[nodiscard]] unsigned ReadData() { return Receive(0x05); }
  void Advance(int count = 1) {
    for (int i = 0; i < count; ++i) Command(0x06);
  }

  /// From a fresh entry, what program memory or configuration space has at an address.
  [[nodiscard]] unsigned ReadAt(unsigned address) {
    GoTo(address);
    return Read();
  }
  [[nodiscard]] unsigned DataAt(unsigned address) {
    GoTo(address);
    return ReadData();
  }
  void GoTo(unsigned address) {
    Reenter();
    if (address >= 0x2000) LoadConfig();
    Advance(static_cast<int>(address & 0x1FFF));
  }

  /// Words of an Intel HEX file.
  void BurnWord(std::uint32_t word, unsigned value) {
    (void)chip_->Burn(2 * word, static_cast<std::uint8_t>(value & 0xFF));
    (void)chip_->Burn(2 * word + 1, static_cast<std::uint8_t>(value >> 8));
  }
  void BurnData(std::uint32_t address, unsigned value) { BurnWord(0x2100 + address, value); }

  [[nodiscard]] std::optional<TimingFault> Fault(const std::string& kind) {
    for (const auto& fault : chip_->Timing()) {
      if (fault.kind == kind) return fault;
    }
    return std::nullopt;
  }

 private:
  std::unique_ptr<Chip> chip_;
  LineLevels lines_;
  Nanoseconds now_ = 0;
};

}  // namespace zelvo::bench
