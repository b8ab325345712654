#include "link/numbers.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace zelvo::link {
namespace {

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

/// from_chars knows no sign '+'.
std::string_view WithoutPlus(std::string_view text) {
  return text.size() > 1 && text[0] == '+' && text[1] != '-' ? text.substr(1) : text;
}

}  // namespace

std::optional<double> ReadNumber(std::string_view text) {
  std::string number(WithoutPlus(Trim(text)));
  for (char& c : number) {
    if (c == ',') c = '.';
  }
  double value = 0;
  const char* end = number.data() + number.size();
  const auto read = std::from_chars(number.data(), end, value);
  if (read.ec != std::errc() || read.ptr != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::optional<long> ReadWhole(std::string_view text) {
  const std::string_view number = WithoutPlus(Trim(text));
  long value = 0;
  const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
  if (read.ec != std::errc() || read.ptr != number.data() + number.size()) return std::nullopt;
  return value;
}

std::optional<std::int32_t> ReadHex(std::string_view digits) {
  if (digits.empty() || digits.size() > 8) return std::nullopt;
  std::uint32_t value = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  if (read.ec != std::errc() || read.ptr != digits.data() + digits.size()) return std::nullopt;
  if (digits.size() <= 4) return static_cast<std::int16_t>(value);
  return static_cast<std::int32_t>(value);
}

std::optional<std::int16_t> ReadAddress(std::string_view text) {
  const std::string_view address = Trim(text);
  const bool hex = address.size() > 2 && address[0] == '&' && (address[1] == 'H' || address[1] == 'h');
  std::optional<long> value;
  if (hex) {
    if (const auto read = ReadHex(address.substr(2))) value = *read;
  } else {
    value = ReadWhole(address);
  }
  if (!value || *value < std::numeric_limits<std::int16_t>::min() ||
      *value > std::numeric_limits<std::int16_t>::max()) {
    return std::nullopt;
  }
  return static_cast<std::int16_t>(*value);
}

std::string NumberText(double value) {
  if (value == std::floor(value) && std::fabs(value) < 1e15)
    return std::to_string(static_cast<long long>(value));
  char text[32];
  const auto written = std::to_chars(text, text + sizeof text, value);
  return {text, written.ptr};
}

std::string HexText(std::uint32_t value) {
  char text[9];
  std::snprintf(text, sizeof text, "%X", value);
  return text;
}

int RoundHalfEven(double value) {
  return static_cast<int>(std::nearbyint(value));
}

}  // namespace zelvo::link
