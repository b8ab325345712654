// A programmer for the tests of the simulated chips: bits and command sequences as Microchip draws them in
// its programming specifications, without any other part of the system.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>

#include "bench/board.h"

namespace zelvo::bench {

inline constexpr Nanoseconds kUs = 1'000;
inline constexpr Nanoseconds kMs = 1'000'000;

class ChipDriver {
 public:
  explicit ChipDriver(const std::string& name, std::optional<std::uint32_t> deviceId = std::nullopt)
      : chip_(MakeChip(name, deviceId)) {}

  [[nodiscard]] Chip& Device() { return *chip_; }
  [[nodiscard]] Nanoseconds Now() const { return now_; }
  void Wait(Nanoseconds time) { now_ += time; }
  void Set(bool LineLevels::*line, bool level) {
    lines_.*line = level;
    chip_->Drive(lines_, now_);
    now_ += kUs;
  }
  [[nodiscard]] std::optional<bool> Data() { return chip_->DataOut(now_); }

  /// Vdd, then Vpp with both clock and data low.
  void Enter() {
    Set(&LineLevels::pgc, false);
    Set(&LineLevels::pgd, false);
    Set(&LineLevels::vdd, true);
    Wait(10 * kUs);
    Set(&LineLevels::vpp, true);
    Wait(10 * kUs);
  }
  void Leave() {
    Set(&LineLevels::vpp, false);
    Set(&LineLevels::vdd, false);
  }

  /// One clock with its data bit; `high` is how long PGC stays up.
  void Clock(bool bit, Nanoseconds high = kUs) {
    Set(&LineLevels::pgd, bit);
    Set(&LineLevels::pgc, true);
    Wait(high - kUs);
    Set(&LineLevels::pgc, false);
  }
  void Bits(unsigned value, int count) {
    for (int i = 0; i < count; ++i) Clock((value >> i & 1U) != 0);
  }
  void Command(unsigned command, unsigned payload) {
    Bits(command, 4);
    Bits(payload, 16);
  }
  void Core(std::initializer_list<unsigned> words) {
    for (const auto word : words) Command(0x0, word);
  }
  /// A NOP whose fourth clock stays high for `high` and whose payload comes `low` later.
  void HeldNop(Nanoseconds high, Nanoseconds low) {
    Bits(0, 3);
    Clock(false, high);
    Wait(low);
    Bits(0, 16);
  }

  /// Command 0010 or a table read: eight clocks in, eight bits out, sampled behind the falling edge.
  [[nodiscard]] unsigned ReadByte(unsigned command) {
    Bits(command, 4);
    Bits(0, 8);
    unsigned value = 0;
    for (int i = 0; i < 8; ++i) {
      Clock(false);
      value |= static_cast<unsigned>(Data().value_or(true)) << i;
    }
    return value;
  }
  void Pointer(std::uint32_t address) {
    Core({0x0E00 | address >> 16, 0x6EF8, 0x0E00 | (address >> 8 & 0xFF), 0x6EF7, 0x0E00 | (address & 0xFF),
          0x6EF6});
  }
  [[nodiscard]] unsigned ReadAt(std::uint32_t address) {
    Pointer(address);
    return ReadByte(0x9);
  }

  void AccessCode() { Core({0x8EA6, 0x9CA6, 0x84A6}); }    // BSF EEPGD, BCF CFGS, BSF WREN
  void AccessConfig() { Core({0x8EA6, 0x8CA6, 0x84A6}); }  // BSF EEPGD, BSF CFGS, BSF WREN
  void AccessEeprom() { Core({0x9EA6, 0x9CA6, 0x84A6}); }  // BCF EEPGD, BCF CFGS, BSF WREN
  void Unlock() { Core({0x0E55, 0x6EA7, 0x0EAA, 0x6EA7}); }
  void Panels(bool all) {
    Pointer(0x3C0006);
    Command(0xC, all ? 0x40 : 0x00);
  }
  void EraseKey(unsigned key) {
    Pointer(0x3C0004);
    Command(0xC, key * 0x101);
  }
  void EraseKeys(unsigned high, unsigned low) {
    Pointer(0x3C0005);
    Command(0xC, high * 0x101);
    EraseKey(low);
  }
  /// The NOP that starts an erase and the one that waits for it.
  void AwaitErase(Nanoseconds wait = 6 * kMs) {
    Core({0x0000});
    Bits(0, 4);
    Wait(wait);
    Bits(0, 16);
  }
  /// Eight bytes, all the same, into one buffer; the last two start programming.
  void WriteEight(std::uint32_t address, unsigned value, Nanoseconds high = kMs) {
    Pointer(address);
    for (int i = 0; i < 3; ++i) Command(0xD, value * 0x101);
    Command(0xF, value * 0x101);
    HeldNop(high, 200 * kUs);
  }
  void WriteConfig(std::uint32_t address, unsigned value, Nanoseconds high = 5 * kMs) {
    Pointer(address);
    Command(0xF, (address & 1U) != 0 ? value << 8 | 0x55 : value | 0x5500);
    HeldNop(high, 200 * kUs);
  }
  void SetEeprom(std::uint32_t address, unsigned value) {
    Core({0x0E00 | (address & 0xFF), 0x6EA9, 0x0E00 | address >> 8, 0x6EAA, 0x0E00 | value, 0x6EA8});
  }
  [[nodiscard]] unsigned ReadEeprom(std::uint32_t address) {
    Core({0x9EA6, 0x9CA6, 0x0E00 | (address & 0xFF), 0x6EA9, 0x0E00 | address >> 8, 0x6EAA, 0x80A6, 0x50A8,
          0x6EF5, 0x0000});
    return ReadByte(0x2);
  }
  [[nodiscard]] unsigned Eecon1() {
    Core({0x50A6, 0x6EF5, 0x0000});
    return ReadByte(0x2);
  }
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
