#include "bench/text.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <system_error>

namespace zelvo::bench {
namespace {

constexpr std::string_view Blanks = " \t";

}  // namespace

std::string NumberText(double value) {
  char digits[400];  // the longest double has 309 digits before its point
  const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed);
  return {digits, end.ptr};
}

std::string OneLine(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (pair) continue;
    line += text[i] == '\n' || text[i] == '\r' ? ' ' : text[i];
  }
  return line;
}

std::string MicrosecondsText(Nanoseconds time) {
  std::string text = std::to_string(time / 1000);
  const Nanoseconds rest = std::llabs(time % 1000);
  if (rest == 0) return text;
  std::string decimals = std::to_string(1000 + rest).substr(1);
  while (decimals.back() == '0') decimals.pop_back();
  return text + '.' + decimals;
}

std::string_view Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(Blanks), text.size()));
  return text.substr(0, text.find_last_not_of(Blanks) + 1);
}

std::string_view TakeWord(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(Blanks), text.size()));
  const std::string_view word = text.substr(0, text.find_first_of(Blanks));
  text.remove_prefix(word.size());
  return word;
}

std::optional<long long> WholeNumber(std::string_view word) {
  long long value = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  if (error != std::errc{} || end != word.data() + word.size()) return std::nullopt;
  return value;
}

std::optional<unsigned> HexNumber(std::string_view word, unsigned highest) {
  unsigned value = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value, 16);
  if (error != std::errc{} || end != word.data() + word.size() || value > highest) return std::nullopt;
  return value;
}

}  // namespace zelvo::bench
