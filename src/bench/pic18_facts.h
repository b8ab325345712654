// What the data sheets and programming specifications say of the PIC18 chips: the rows that the simulated
// silicon is built from.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace zelvo::bench {

inline constexpr std::uint32_t kIdLocations = 0x200000;  ///< eight bytes
inline constexpr std::uint32_t kIdSize = 8;
inline constexpr std::uint32_t kConfigRegisters = 0x300000;  ///< 300000h to 30000Dh
inline constexpr std::uint32_t kConfigSize = 14;
inline constexpr std::uint32_t kEraseKeyLow = 0x3C0004;
inline constexpr std::uint32_t kEraseKeyHigh = 0x3C0005;
inline constexpr std::uint32_t kPanelControl = 0x3C0006;
inline constexpr std::uint32_t kDeviceId = 0x3FFFFE;   ///< DEVID1, DEVID2 behind it
inline constexpr std::uint32_t kHexEeprom = 0xF00000;  ///< where an Intel HEX file has the data EEPROM
inline constexpr std::uint32_t kRowSize = 64;          ///< bytes of a row erase, all families
inline constexpr std::uint32_t kPanelSize = 0x2000;    ///< bytes of a panel of the one-key families

/// Chips that share one programming specification.
enum class Pic18Family : std::uint8_t { Fxx2Fxx8, Fxx20, Fx220, Fx331, Fx525Fx680, F2221F4680, F8722 };

/// Minimum times in nanoseconds.
struct Pic18Times {
  std::int64_t clockLow;       ///< P2A
  std::int64_t clockHigh;      ///< P2B
  std::int64_t program;        ///< P9, PGC held high for code, ID locations and rows
  std::int64_t programConfig;  ///< P9 for a configuration byte
  std::int64_t discharge;      ///< P10, PGC low after P9
  std::int64_t erase;          ///< P11, self-timed erase of the whole chip, of a block or of a row
  std::int64_t eeprom;         ///< P11A, self-timed write of a data EEPROM byte
  std::int64_t entry;          ///< P12, from Vpp to the first clock
};

struct Pic18FamilyFacts {
  Pic18Family family;
  std::string_view document;  ///< number of Microchip's programming specification
  /// True: one erase code at 3C0004h, panels with 8-byte latches and their control at 3C0006h, unlock
  /// sequence before WR, row erase self-timed after WR. False: a pair of keys at 3C0005h and 3C0004h, one
  /// latch buffer, no unlock sequence, row erase held by PGC.
  bool oneKey;
  /// Command 1110: true when it starts programming and moves the pointer 2 up, false when it moves it 2 down.
  bool command1110Programs;
  Pic18Times times;
};

/// Configuration bytes 300000h to 300007h, and how many protection cells a block register has.
struct Pic18Config {
  std::array<std::uint8_t, 8> implemented;  ///< bits that exist; the others read 0
  std::array<std::uint8_t, 8> erased;       ///< values of a blank chip
  std::uint8_t blockCells;                  ///< CPn, WRTn, EBTRn: set on a blank chip
};

/// Where code memory divides for erase and protection. Block 0 begins behind the boot block.
struct Pic18Blocks {
  std::array<std::uint16_t, 4> boot;  ///< bytes of the boot block by BBSIZ, bits 5 and 4 of 300006h
  std::uint16_t block;                ///< bytes of a block
};

/// One chip.
struct Pic18Row {
  std::string_view name;
  std::uint16_t deviceId;  ///< DEVID2 and DEVID1, revision bits 0
  std::uint32_t codeSize;  ///< bytes
  std::uint16_t eeprom;    ///< bytes, 0 for none
  std::uint8_t latches;    ///< bytes of a write buffer
  Pic18Family family;
  const Pic18Config* config;
  const Pic18Blocks* blocks;
};

/// All 72 chips.
[[nodiscard]] std::span<const Pic18Row> Pic18Catalogue();
/// nullptr for an unknown name.
[[nodiscard]] const Pic18Row* FindPic18(std::string_view name);
[[nodiscard]] const Pic18FamilyFacts& FactsOf(Pic18Family family);

}  // namespace zelvo::bench
