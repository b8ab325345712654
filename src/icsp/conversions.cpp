#include "icsp/conversions.h"

#include <algorithm>
#include <array>

namespace zelvo::icsp {
namespace {

constexpr std::array<std::string_view, 16> Nibbles = {"0000", "0001", "0010", "0011", "0100", "0101",
                                                      "0110", "0111", "1000", "1001", "1010", "1011",
                                                      "1100", "1101", "1110", "1111"};
constexpr std::array<std::string_view, 16> SpacedNibbles = {
    " 0 0 0 0", " 0 0 0 1", " 0 0 1 0", " 0 0 1 1", " 0 1 0 0", " 0 1 0 1", " 0 1 1 0", " 0 1 1 1",
    " 1 0 0 0", " 1 0 0 1", " 1 0 1 0", " 1 0 1 1", " 1 1 0 0", " 1 1 0 1", " 1 1 1 0", " 1 1 1 1"};
constexpr char Digits[] = "0123456789ABCDEF";
constexpr int BadDigit = 2;  // of `LoadFailed`

std::string_view Lookup(const std::array<std::string_view, 16>& table, char digit) {
  const int value = DigitValue(digit);
  if (value < 0) {
    LoadFailed = BadDigit;
    return {};
  }
  return table[static_cast<size_t>(value)];
}

void Pad(std::string& text, size_t width) {
  if (text.size() < width) text.insert(0, width - text.size(), '0');
}

}  // namespace

void HexPairToBits(std::string_view pair) {
  HexPair = pair;
  ConvertedBits.clear();
  if (pair.size() > 2) {
    LoadFailed = BadDigit;
    return;
  }
  if (pair.size() == 1) ConvertedBits = Nibbles[0];
  for (const char digit : pair) ConvertedBits += Lookup(Nibbles, digit);
}

std::string WithHeldDigits(std::string_view pair) {
  const std::string_view last(ConvertedBits);
  const auto end = std::ranges::find(Nibbles, last.size() < 4 ? last : last.substr(last.size() - 4));
  char held = end == Nibbles.end() ? '0' : Digits[end - Nibbles.begin()];
  std::string digits(pair.substr(0, 2));
  if (digits.size() == 1) Pad(digits, 2);
  for (char& digit : digits) {
    if (DigitValue(digit) < 0) {
      LoadFailed = BadDigit;
      digit = held;
    }
    held = digit;
  }
  return digits;
}

void HexDigitToBits(char digit) {
  ConvertedBits = Lookup(Nibbles, digit);
}
std::string_view HexDigitToNibble(char digit) {
  return Lookup(Nibbles, digit);
}
std::string_view HexDigitToSpacedBits(char digit) {
  return Lookup(SpacedNibbles, digit);
}

void ByteToSpacedBits(int value) {
  ConvertedBits = SpacedNibbles[static_cast<size_t>((value >> 4) & 15)];
  ConvertedBits += SpacedNibbles[static_cast<size_t>(value & 15)];
}

char BitsToHexDigit(std::string_view bits) {
  for (size_t value = 0; value < Nibbles.size(); ++value) {
    if (Nibbles[value] == bits) return Digits[value];
  }
  LoadFailed = BadDigit;
  return '\0';
}

void HexPairToValue(std::string_view pair, int& number) {
  number = 0;
  for (const char digit : pair) {
    const int value = DigitValue(digit);
    if (value < 0) LoadFailed = BadDigit;
    number = number * 16 + (value < 0 ? 0 : value);
  }
}

void PadHex2(std::string& text) {
  Pad(text, 2);
}
void PadHex4(std::string& text) {
  Pad(text, 4);
}
void PadHex6(std::string& text) {
  Pad(text, 6);
}

std::string HexPadded(std::uint32_t value, int width) {
  std::string text;
  for (; value != 0; value >>= 4) text.insert(text.begin(), Digits[value & 15]);
  Pad(text, static_cast<size_t>(width > 0 ? width : 1));
  return text;
}

}  // namespace zelvo::icsp
