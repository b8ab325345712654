#include "ui/number_entry.h"

#include <algorithm>
#include <cmath>

#include "icsp/conversions.h"
#include "image/views.h"
#include "link/numbers.h"

namespace zelvo::ui {
namespace {

constexpr const char* NotANumber = "Nem adtál meg számot!";
constexpr int HighestId = 255;
constexpr int HighestMidId = 16383;

Entry Refuse(std::string_view message) {
  return {std::nullopt, std::string(message)};
}

Entry Accept(int value) {
  return {value, ""};
}

bool AreHexDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return icsp::DigitValue(c) >= 0; });
}

int HexValue(std::string_view digits) {
  int value = 0;
  for (const char c : digits) value = 16 * value + icsp::DigitValue(c);
  return value;
}

void RemoveBlanks(std::string& text) {
  text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
}

/// The digits of both cases; other characters, multi-byte ones too, stay.
std::string UpperCase(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

Entry ReadWholeUpTo(std::string_view text, int limit) {
  const auto number = link::ReadNumber(text);
  if (!number || *number < 0 || *number > limit) {
    return Refuse("A bevitel 0 - " + std::to_string(limit) + " lehet!");
  }
  if (*number != std::floor(*number)) return Refuse("A bevitel nem lehet törtszám!");
  return Accept(static_cast<int>(*number));
}

}  // namespace

const CellRules& Pic18FlashRules() {
  static constexpr CellRules Rules{65535, 4, "Nem megfelelő formátum. 0-9, A-F,(XXXX)", "65535 között.",
                                   "Helyes Tartomány: 0 és 1111 1111 1111 1111 között."};
  return Rules;
}

const CellRules& MidRangeFlashRules() {
  static constexpr CellRules Rules{16383, 4, "Nem megfelelő formátum. 0-9, A-F,(XXXX)", "16383 között.",
                                   "Helyes Tartomány: 0 és 0011 1111 1111 1111 között."};
  return Rules;
}

const CellRules& EepromRules() {
  static constexpr CellRules Rules{255, 2, "Nem megfelelő formátum. 0-9, A-F,(XX)", "255 között",
                                   "Helyes tartomány: 0 és 1111 1111 között."};
  return Rules;
}

Entry ReadCellHex(std::string text, const CellRules& rules) {
  const auto width = static_cast<std::size_t>(rules.digits);
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  if (!AreHexDigits(std::string_view(text).substr(0, width))) return Refuse(rules.badHex);
  if (text.size() != width || HexValue(text) > rules.limit) {
    return Refuse("Helyes Tartomány: 0 és " + link::HexText(static_cast<std::uint32_t>(rules.limit)) +
                  " között.");
  }
  return Accept(HexValue(text));
}

Entry ReadCellDecimal(std::string_view text, const CellRules& rules) {
  const auto number = link::ReadNumber(text);
  if (!number) return Refuse(NotANumber);
  if (*number < 0 || *number > rules.limit) {
    return Refuse("Helyes Tartomány: 0 és " + std::string(rules.decimalEnd));
  }
  return Accept(link::RoundHalfEven(*number));
}

Entry ReadCellBinary(std::string text, const CellRules& rules) {
  RemoveBlanks(text);
  if (text.empty()) return Refuse(NotANumber);
  int value = 0;
  for (const char c : text) {
    if (c != '0' && c != '1') return Refuse("A megfelelő formátum 1-ekből és 0-ákból állhat.");
    value = std::min(2 * value + (c - '0'), rules.limit + 1);
  }
  return value > rules.limit ? Refuse(rules.binaryRange) : Accept(value);
}

std::string ShowBits(std::string_view hex) {
  std::string bits;
  for (const char digit : hex) {
    icsp::HexDigitToBits(digit);
    if (!bits.empty()) bits += " ";
    bits += icsp::ConvertedBits;
  }
  return bits;
}

Entry ReadIdCharacter(std::string_view text) {
  if (CharacterCount(text) != 1) return Refuse("Csak egy karakter hoszzúságú lehet a bevitel!");
  return Accept(image::Cp1250Code(text));
}

Entry ReadIdHex(std::string text) {
  if (CharacterCount(text) == 1) text.insert(0, "0");
  if (CharacterCount(text) != 2) return Refuse("A hexa szám két karakteres kell legyen!");
  text = UpperCase(text);
  return AreHexDigits(text) ? Accept(HexValue(text)) : Refuse("Hibás karakter bevitel!");
}

Entry ReadMidIdHex(std::string text) {
  RemoveBlanks(text);
  if (CharacterCount(text) > 4) return Refuse("A hexa szám max 4 karakteres lehet!");
  text = UpperCase(text);
  if (text.empty() || !AreHexDigits(text)) return Refuse("Hibás karakter bevitel!");
  return HexValue(text) > HighestMidId ? Refuse("Helyes Tartomány: 0 és 3FFFh között.")
                                       : Accept(HexValue(text));
}

Entry ReadIdDecimal(std::string_view text) {
  return ReadWholeUpTo(text, HighestId);
}

Entry ReadMidIdDecimal(std::string_view text) {
  return ReadWholeUpTo(text, HighestMidId);
}

std::size_t CharacterCount(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0u) != 0x80u; }));
}

}  // namespace zelvo::ui
