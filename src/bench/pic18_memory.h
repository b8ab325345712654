// The memories of one simulated PIC18: code, ID locations, configuration, device ID and data EEPROM.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

#include "bench/pic18_facts.h"

namespace zelvo::bench {

/// What a bulk erase takes.
struct Pic18EraseScope {
  bool boot = false;
  bool config = false;
  bool eeprom = false;
  bool id = false;
  std::uint8_t blocks = 0;  ///< bit n: block n

  [[nodiscard]] bool Any() const { return boot || config || eeprom || id || blocks != 0; }
};

class Pic18Memory {
 public:
  Pic18Memory(const Pic18Row& row, std::uint16_t deviceId);

  /// What a table read of the 22-bit address gives; 0 where nothing is implemented.
  [[nodiscard]] std::uint8_t Read(std::uint32_t address) const;
  /// Programming clears bits: every cell becomes cell AND latch. Addresses without a cell are passed over.
  void Program(std::uint32_t address, std::span<const std::uint8_t> latches);
  /// The 64-byte row around an address of code memory or of the ID locations.
  void EraseRow(std::uint32_t address);
  /// Bytes 300000h to 300007h take ones and zeros; protection bits (300008h to 30000Dh) are only cleared.
  void ProgramConfig(std::uint32_t address, std::uint8_t value);
  /// What the keys at 3C0005h (`high`, two-key families only) and 3C0004h stand for on this chip.
  [[nodiscard]] Pic18EraseScope ScopeOf(std::uint8_t high, std::uint8_t low) const;
  void BulkErase(const Pic18EraseScope& scope);

  [[nodiscard]] bool HasEeprom() const { return !eeprom_.empty(); }
  /// The address wraps at the size of the EEPROM, which must not be 0.
  [[nodiscard]] std::uint8_t ReadEeprom(std::uint32_t address) const;
  void WriteEeprom(std::uint32_t address, std::uint8_t value);

  /// By addresses of an Intel HEX file. False for an address without a location.
  [[nodiscard]] bool Burn(std::uint32_t address, std::uint8_t value);
  [[nodiscard]] std::map<std::uint32_t, std::uint8_t> Image() const;

 private:
  [[nodiscard]] std::uint8_t* Cell(std::uint32_t address);
  [[nodiscard]] std::uint32_t BootSize() const;
  void EraseCode(std::uint32_t begin, std::uint32_t end);
  void FreeProtection(std::uint8_t blocks, std::uint8_t areas);

  const Pic18Row* row_;
  std::uint16_t deviceId_;
  std::vector<std::uint8_t> code_;
  std::vector<std::uint8_t> eeprom_;
  std::array<std::uint8_t, kIdSize> id_{};
  std::array<std::uint8_t, kConfigSize> implemented_{};
  std::array<std::uint8_t, kConfigSize> erased_{};
  std::array<std::uint8_t, kConfigSize> config_{};
};

}  // namespace zelvo::bench
