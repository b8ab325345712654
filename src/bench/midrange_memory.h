// The memories of one simulated mid-range chip: program words, user IDs, configuration, data EEPROM, and the
// words that the factory wrote.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

#include "bench/midrange_facts.h"

namespace zelvo::bench {

/// What an erase takes.
struct MidEraseScope {
  bool program = false;
  bool userId = false;
  bool config = false;
  bool data = false;

  [[nodiscard]] bool Any() const { return program || userId || config || data; }
};

/// Addresses are those of the chip's counter: words of program memory, and configuration space from 2000h on.
/// Both wrap at what the chip has.
class MidMemory {
 public:
  MidMemory(const MidRow& row, std::uint16_t deviceId);

  [[nodiscard]] std::uint16_t Read(std::uint16_t address) const;
  /// Cells become cell AND word, or are erased before. Protection bits come back by a bulk erase only.
  /// Addresses without a cell are passed over.
  void Program(std::uint16_t address, std::span<const std::uint16_t> words, bool eraseBefore);
  /// The 16-word row around an address: of program memory, or the user IDs.
  void EraseRow(std::uint16_t address);
  void Erase(const MidEraseScope& scope);

  [[nodiscard]] bool ProgramProtected() const;
  [[nodiscard]] bool DataProtected() const;

  /// 0 when the chip has no data memory.
  [[nodiscard]] std::uint8_t ReadData(std::uint16_t address) const;
  void ProgramData(std::uint16_t address, std::uint8_t value, bool eraseBefore);

  /// By addresses of an Intel HEX file. False for an address without a location.
  [[nodiscard]] bool Burn(std::uint32_t address, std::uint8_t value);
  [[nodiscard]] std::map<std::uint32_t, std::uint8_t> Image() const;

 private:
  [[nodiscard]] std::uint16_t* Cell(std::uint16_t address);
  [[nodiscard]] std::size_t ConfigWords() const { return row_->config->bits2 == 0 ? 1 : 2; }
  void SetConfig(std::size_t index, std::uint16_t value);

  const MidRow* row_;
  std::uint16_t deviceId_;
  std::vector<std::uint16_t> program_;
  std::vector<std::uint8_t> data_;
  std::array<std::uint16_t, kUserIdWords> userId_{};
  std::array<std::uint16_t, 2> config_{};
  std::array<std::uint16_t, 2> configErased_{};
  std::array<std::uint16_t, 2> configBits_{};
};

}  // namespace zelvo::bench
