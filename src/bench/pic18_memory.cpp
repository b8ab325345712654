#include "bench/pic18_memory.h"

#include <algorithm>

namespace zelvo::bench {
namespace {

constexpr std::uint8_t kErased = 0xFF;

// Protection registers: CP, WRT and EBTR of the blocks at even offsets, of boot block, EEPROM and
// configuration at odd ones.
constexpr std::size_t kFirstProtection = 8;
constexpr std::array<std::size_t, 3> kBlockRegisters{8, 10, 12};
constexpr std::array<std::size_t, 3> kAreaRegisters{9, 11, 13};
constexpr std::uint8_t kBootArea = 0x40;
constexpr std::uint8_t kEepromArea = 0x80;
constexpr std::array<std::uint8_t, 3> kAreaBits{0xC0, 0xE0, 0x40};
constexpr std::size_t kBootSizeRegister = 6;  // BBSIZ in bits 5 and 4, where the chip has it

// One erase code of the one-key families; blocks follow from 88h on.
struct EraseKey {
  std::uint8_t code;
  Pic18EraseScope scope;
};
constexpr EraseKey kEraseCodes[] = {
    {0x80, {.boot = true, .config = true, .eeprom = true, .id = true, .blocks = 0xFF}},
    {0x81, {.eeprom = true}},
    {0x83, {.boot = true}},
};
constexpr std::uint8_t kFirstBlockCode = 0x88;

// Bits of the low key of the two-key families; bit n of the high key is block n.
constexpr std::uint8_t kKeyErase = 0x80;
constexpr std::uint8_t kKeyBoot = 0x01;
constexpr std::uint8_t kKeyConfig = 0x02;
constexpr std::uint8_t kKeyEeprom = 0x04;
constexpr std::uint8_t kKeyId = 0x08;

}  // namespace

Pic18Memory::Pic18Memory(const Pic18Row& row, std::uint16_t deviceId)
    : row_(&row), deviceId_(deviceId), code_(row.codeSize, kErased), eeprom_(row.eeprom, kErased) {
  id_.fill(kErased);
  std::copy(row.config->implemented.begin(), row.config->implemented.end(), implemented_.begin());
  std::copy(row.config->erased.begin(), row.config->erased.end(), erased_.begin());
  const std::uint8_t noEeprom = row.eeprom == 0 ? kEepromArea : 0;
  for (std::size_t i = 0; i < kBlockRegisters.size(); ++i) {
    implemented_[kBlockRegisters[i]] = row.config->blockCells;
    implemented_[kAreaRegisters[i]] = static_cast<std::uint8_t>(kAreaBits[i] & ~noEeprom);
  }
  std::copy(implemented_.begin() + kFirstProtection, implemented_.end(), erased_.begin() + kFirstProtection);
  config_ = erased_;
}

std::uint8_t Pic18Memory::Read(std::uint32_t address) const {
  if (address < code_.size()) return code_[address];
  if (address >= kIdLocations && address < kIdLocations + kIdSize) return id_[address - kIdLocations];
  if (address >= kConfigRegisters && address < kConfigRegisters + kConfigSize) {
    return config_[address - kConfigRegisters];
  }
  if (address == kDeviceId) return static_cast<std::uint8_t>(deviceId_ & 0xFF);
  if (address == kDeviceId + 1) return static_cast<std::uint8_t>(deviceId_ >> 8);
  return 0;
}

std::uint8_t* Pic18Memory::Cell(std::uint32_t address) {
  if (address < code_.size()) return &code_[address];
  if (address >= kIdLocations && address < kIdLocations + kIdSize) return &id_[address - kIdLocations];
  return nullptr;
}

void Pic18Memory::Program(std::uint32_t address, std::span<const std::uint8_t> latches) {
  for (std::size_t i = 0; i < latches.size(); ++i) {
    if (auto* cell = Cell(address + static_cast<std::uint32_t>(i))) *cell &= latches[i];
  }
}

void Pic18Memory::EraseRow(std::uint32_t address) {
  const std::uint32_t row = address & ~(kRowSize - 1);
  for (std::uint32_t i = 0; i < kRowSize; ++i) {
    if (auto* cell = Cell(row + i)) *cell = kErased;
  }
}

void Pic18Memory::ProgramConfig(std::uint32_t address, std::uint8_t value) {
  if (address < kConfigRegisters || address >= kConfigRegisters + kConfigSize) return;
  const std::size_t offset = address - kConfigRegisters;
  const std::uint8_t changeable = offset < kFirstProtection ? implemented_[offset] : config_[offset];
  config_[offset] = value & changeable;
}

Pic18EraseScope Pic18Memory::ScopeOf(std::uint8_t high, std::uint8_t low) const {
  const auto count = static_cast<std::uint32_t>(row_->codeSize / row_->blocks->block);
  const auto present = static_cast<std::uint8_t>((1U << count) - 1);
  Pic18EraseScope scope;
  if (!FactsOf(row_->family).oneKey) {
    if ((low & kKeyErase) == 0) return scope;
    scope.boot = (low & kKeyBoot) != 0;
    scope.config = (low & kKeyConfig) != 0;
    scope.eeprom = (low & kKeyEeprom) != 0;
    scope.blocks = high & present;
    // The chip erase of the data sheets takes the ID locations too, whatever its key has in the ID bit.
    const bool whole = scope.boot && scope.config && scope.eeprom && scope.blocks == present;
    scope.id = (low & kKeyId) != 0 || whole;
    return scope;
  }
  if (low >= kFirstBlockCode) {
    const std::uint32_t block = low - kFirstBlockCode;
    if (block < count) scope.blocks = static_cast<std::uint8_t>(1U << block);
    return scope;
  }
  const auto* found = std::find_if(std::begin(kEraseCodes), std::end(kEraseCodes),
                                   [low](const EraseKey& entry) { return entry.code == low; });
  if (found != std::end(kEraseCodes)) scope = found->scope;
  scope.blocks &= present;
  return scope;
}

std::uint32_t Pic18Memory::BootSize() const {
  return row_->blocks->boot[(config_[kBootSizeRegister] >> 4) & 3U];
}

void Pic18Memory::EraseCode(std::uint32_t begin, std::uint32_t end) {
  if (begin < end) std::fill(code_.begin() + begin, code_.begin() + end, kErased);
}

void Pic18Memory::FreeProtection(std::uint8_t blocks, std::uint8_t areas) {
  for (const auto offset : kBlockRegisters) config_[offset] |= blocks & implemented_[offset];
  for (const auto offset : kAreaRegisters) config_[offset] |= areas & implemented_[offset];
}

void Pic18Memory::BulkErase(const Pic18EraseScope& scope) {
  const std::uint32_t boot = BootSize();
  const std::uint32_t block = row_->blocks->block;
  if (scope.boot) EraseCode(0, boot);
  for (std::uint32_t n = 0; n < row_->codeSize / block; ++n) {
    if ((scope.blocks >> n & 1U) != 0) EraseCode(std::max(n * block, boot), (n + 1) * block);
  }
  if (scope.eeprom) std::fill(eeprom_.begin(), eeprom_.end(), kErased);
  if (scope.id) id_.fill(kErased);
  // An erased area loses its protection with it.
  FreeProtection(scope.blocks,
                 static_cast<std::uint8_t>((scope.boot ? kBootArea : 0) | (scope.eeprom ? kEepromArea : 0)));
  if (scope.config) config_ = erased_;
}

std::uint8_t Pic18Memory::ReadEeprom(std::uint32_t address) const {
  return eeprom_[address % eeprom_.size()];
}

void Pic18Memory::WriteEeprom(std::uint32_t address, std::uint8_t value) {
  eeprom_[address % eeprom_.size()] = value;
}

bool Pic18Memory::Burn(std::uint32_t address, std::uint8_t value) {
  if (auto* cell = Cell(address)) {
    *cell = value;
    return true;
  }
  if (address >= kConfigRegisters && address < kConfigRegisters + kConfigSize) {
    config_[address - kConfigRegisters] = value & implemented_[address - kConfigRegisters];
    return true;
  }
  if (address >= kHexEeprom && address - kHexEeprom < eeprom_.size()) {
    eeprom_[address - kHexEeprom] = value;
    return true;
  }
  return false;
}

std::map<std::uint32_t, std::uint8_t> Pic18Memory::Image() const {
  std::map<std::uint32_t, std::uint8_t> image;
  const auto add = [&image](std::uint32_t base, std::span<const std::uint8_t> cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (cells[i] != kErased) {
        image.emplace_hint(image.end(), base + static_cast<std::uint32_t>(i), cells[i]);
      }
    }
  };
  add(0, code_);
  add(kIdLocations, id_);
  for (std::uint32_t i = 0; i < kConfigSize; ++i) {
    if (config_[i] != erased_[i]) image.emplace_hint(image.end(), kConfigRegisters + i, config_[i]);
  }
  add(kHexEeprom, eeprom_);
  return image;
}

}  // namespace zelvo::bench
