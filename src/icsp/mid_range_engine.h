// The bit level of the mid-range chips: six-bit commands and frames of sixteen clocks, start bit and stop bit
// included. A text is written most significant bit first, as the programming specifications write the number,
// and goes out from its right end.
#pragma once

#include <string>
#include <string_view>

namespace zelvo::icsp {

/// Commands by their names in the mid-range programming specifications; those of programming and erasing
/// stand in the sequences of steps.
namespace mid {
inline constexpr std::string_view LoadConfiguration = "000000";
inline constexpr std::string_view LoadProgram = "000010";
inline constexpr std::string_view LoadData = "000011";
inline constexpr std::string_view ReadProgram = "000100";
inline constexpr std::string_view ReadData = "000101";
inline constexpr std::string_view Increment = "000110";
inline constexpr std::string_view BlankFrame = "0000000000000000";
}  // namespace mid

/// Steps of a fixed sequence, parted by blanks: bits to clock out, "BITS*N" to clock them N times, "wait*N"
/// for N calls of `PowerCycleDelay`.
void RunSteps(std::string_view steps);

/// To 2000h, the first word of configuration memory.
void ToConfigurationMemory();
/// `count` words up.
void IncrementAddress(int count = 1);

/// How the fourteen bits behind a read command's start bit are taken.
struct FrameLayout {
  int dropped;   ///< clocks before the value
  int kept;      ///< bits of the value, least significant first
  int trailing;  ///< clocks behind it
};
inline constexpr FrameLayout WordFrame{0, 14, 0};
inline constexpr FrameLayout ByteFrame{0, 8, 6};
inline constexpr FrameLayout ChipIdFrame{5, 9, 0};

/// A read command with its frame; without an interface the value is 0.
[[nodiscard]] int ReadFrame(std::string_view command, const FrameLayout& layout);

/// A load command with 14 bits between the start and the stop bit.
void LoadFrame(std::string_view command, std::string_view bits);

/// A word's fourteen bits, most significant first; bits above them are lost.
[[nodiscard]] std::string WordToBits(int word);

}  // namespace zelvo::icsp
