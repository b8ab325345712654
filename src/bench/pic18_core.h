// The part of a PIC18 core that serial programming reaches: the instructions that are clocked in and the
// registers that they touch.
#pragma once

#include <array>
#include <cstdint>

namespace zelvo::bench {

class Pic18Core {
 public:
  /// Work for the memories that an instruction started through EECON1.
  enum class Request : std::uint8_t { None, EepromRead, Write };

  // Bits of EECON1.
  static constexpr std::uint8_t kEepgd = 0x80;
  static constexpr std::uint8_t kCfgs = 0x40;
  static constexpr std::uint8_t kFree = 0x10;
  static constexpr std::uint8_t kWren = 0x04;
  static constexpr std::uint8_t kWr = 0x02;
  static constexpr std::uint8_t kRd = 0x01;

  /// `unlockNeeded`: WR is set only right behind 55h and AAh to EECON2.
  explicit Pic18Core(bool unlockNeeded) : unlockNeeded_(unlockNeeded) {}

  void Reset();
  /// One instruction word. Words that this core does not know do nothing.
  Request Execute(std::uint16_t word);

  [[nodiscard]] std::uint32_t TablePointer() const;  ///< 22 bits
  void MoveTablePointer(int bytes);
  [[nodiscard]] std::uint8_t TableLatch() const { return data_[kTablat]; }
  void SetTableLatch(std::uint8_t value) { data_[kTablat] = value; }

  [[nodiscard]] std::uint8_t Eecon1() const { return data_[kEecon1]; }
  /// What the hardware does when its work is done.
  void ClearEecon1(std::uint8_t bits) { data_[kEecon1] &= static_cast<std::uint8_t>(~bits); }
  [[nodiscard]] std::uint32_t EepromAddress() const;
  [[nodiscard]] std::uint8_t EepromData() const { return data_[kEedata]; }
  void SetEepromData(std::uint8_t value) { data_[kEedata] = value; }

 private:
  static constexpr std::uint16_t kEecon1 = 0xFA6, kEecon2 = 0xFA7, kEedata = 0xFA8, kEeadr = 0xFA9,
                                 kEeadrh = 0xFAA, kBsr = 0xFE0, kWreg = 0xFE8, kTablat = 0xFF5,
                                 kTblptrl = 0xFF6, kTblptrh = 0xFF7, kTblptru = 0xFF8;

  [[nodiscard]] std::uint16_t FileAddress(std::uint16_t word) const;
  void Write(std::uint16_t address, std::uint8_t value);
  void WriteEecon1(std::uint8_t value);
  void WriteEecon2(std::uint8_t value);
  void SetBit(std::uint16_t address, std::uint8_t bit);

  bool unlockNeeded_;
  std::array<std::uint8_t, 0x1000> data_{};
  Request request_ = Request::None;
  // Place of the last instruction that took the unlock sequence further, counted in instructions.
  std::uint64_t instruction_ = 0;
  std::uint64_t first_ = 0;   // 55h
  std::uint64_t second_ = 0;  // AAh behind it
};

}  // namespace zelvo::bench
