// What the data sheets and programming specifications say of the mid-range chips (PIC16F and PIC12F): the
// rows that the simulated silicon is built from. docs/silicon.md tells which figures are certain.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace zelvo::bench {

inline constexpr std::uint16_t kWordBits = 0x3FFF;            ///< a program word, erased
inline constexpr std::uint16_t kConfigSpace = 0x2000;         ///< the counter's bit for configuration space
inline constexpr std::uint16_t kConfigSpaceSize = 0x40;       ///< words, 2000h to 203Fh
inline constexpr std::uint16_t kUserIdWords = 4;              ///< 2000h to 2003h
inline constexpr std::uint16_t kDeviceIdWord = 0x2006;        ///< its low five bits are the revision
inline constexpr std::uint16_t kConfigWord = 0x2007;          ///< the second one is at 2008h
inline constexpr std::uint16_t kHexDataMemory = 0x2100;       ///< where an Intel HEX file has the data EEPROM
inline constexpr std::uint16_t kOscillatorWord = 0x3FF;       ///< OSCCAL, where the chip has it
inline constexpr std::uint16_t kOscillatorFactory = 0x3480;   ///< RETLW 80h, the middle of its range
inline constexpr std::uint16_t kCalibrationFactory = 0x15A6;  ///< stands for any factory calibration word

/// What a six-bit command does.
enum class MidCommand : std::uint8_t {
  None,
  LoadConfig,
  LoadProgram,
  LoadData,
  ReadProgram,
  ReadData,
  Increment,
  Rewrite,      ///< erases and programs what was loaded, by the chip's own timer
  Program,      ///< programs what was loaded, by the chip's own timer
  ProgramHeld,  ///< programs what was loaded until EndProgramming comes
  EndProgramming,
  EraseProgram,
  EraseData,
  EraseChip,
  EraseRow,
  EraseSetup1,  ///< both in this order: the next Rewrite is a bulk erase; again, and it is none any more
  EraseSetup2
};

/// `code` under `mask`: bits outside the mask do not matter.
struct MidCommandRow {
  std::uint8_t mask;
  std::uint8_t code;
  MidCommand command;
};

/// Chips that share one programming specification.
enum class MidGeneration : std::uint8_t {
  F8x,
  F62x,
  F87x,
  F87xA,
  F81xF88,
  F62xA,
  F629,
  F6xx,
  F61x,
  F91x,
  F88x
};

/// Minimum times in nanoseconds.
struct MidTimes {
  std::int64_t rewrite;  ///< erase and program, words or a byte
  std::int64_t program;  ///< program only
  std::int64_t held;     ///< programming timed from outside, words
  std::int64_t data;     ///< a byte of data memory that is erased before
  std::int64_t erase;    ///< bulk erase
};

struct MidGenerationFacts {
  MidGeneration generation;
  std::string_view document;  ///< number of Microchip's programming specification
  std::span<const MidCommandRow> commands;
  /// EraseProgram and EraseData do not start at once but with the Rewrite behind them.
  bool eraseWaitsForBegin;
  /// EraseProgram takes the configuration words along, and data memory when that is protected. Without it,
  /// protected program memory is not erased at all.
  bool eraseTakesConfig;
  /// A byte of data memory is erased before it is programmed, whatever command starts it.
  bool dataErasesItself;
  MidTimes times;
};

/// Configuration words: bits that exist, and those that do not and read 1 (the others read 0).
struct MidConfig {
  std::uint16_t bits;
  std::uint16_t ones;
  std::uint16_t protectsProgram;  ///< protection bits, active when clear
  std::uint16_t protectsData;
  std::uint16_t bits2 = 0;  ///< of the second word, 0 without one
  std::uint16_t ones2 = 0;
};

/// Words with a factory value that no erase takes.
struct MidCalibration {
  std::uint16_t first = 0;
  std::uint16_t count = 0;
};

/// One chip.
struct MidRow {
  std::string_view name;
  std::uint16_t deviceId;      ///< word at 2006h, revision bits 0
  std::uint16_t programWords;  ///< a power of two
  std::uint16_t dataBytes;     ///< data EEPROM, a power of two or 0
  std::uint8_t latches;        ///< words that are programmed together
  MidGeneration generation;
  const MidConfig* config;
  MidCalibration calibration;
  bool oscillatorWord;  ///< OSCCAL at 3FFh
};

/// All 55 chips.
[[nodiscard]] std::span<const MidRow> MidRangeCatalogue();
/// nullptr for an unknown name.
[[nodiscard]] const MidRow* FindMidRange(std::string_view name);
[[nodiscard]] const MidGenerationFacts& FactsOf(MidGeneration generation);

}  // namespace zelvo::bench
