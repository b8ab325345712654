// Numbers as the operator and the settings files write them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zelvo::link {

/// A decimal number, blanks around it allowed, decimals after a point or comma; nothing for any other text.
[[nodiscard]] std::optional<double> ReadNumber(std::string_view text);
/// A whole number in decimal, blanks around it allowed; nothing for any other text.
[[nodiscard]] std::optional<long> ReadWhole(std::string_view text);
/// One to eight hexadecimal digits of either case. Up to four are a signed 16-bit value (FFFF is -1), five to
/// eight a signed 32-bit value; nothing for any other text.
[[nodiscard]] std::optional<std::int32_t> ReadHex(std::string_view digits);
/// An address with the prefix "&H", or in decimal; nothing for any other text or beyond 16 bits.
[[nodiscard]] std::optional<std::int16_t> ReadAddress(std::string_view text);

/// Decimal text: whole numbers without decimals.
[[nodiscard]] std::string NumberText(double value);
/// Upper-case hexadecimal digits without leading zeros.
[[nodiscard]] std::string HexText(std::uint32_t value);
/// Rounds halves to the even neighbour.
[[nodiscard]] int RoundHalfEven(double value);

}  // namespace zelvo::link
