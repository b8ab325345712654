#include "support/pattern_image.h"

#include <cstdio>
#include <stdexcept>
#include <string>

#include "devices/config_masks.h"
#include "devices/selection.h"
#include "image/buffers.h"

namespace zelvo::test {
namespace {

constexpr std::uint32_t Ids = 0x200000;
constexpr std::uint32_t Config = 0x300000;
constexpr std::uint32_t Eeprom = 0xF00000;

std::uint32_t Mixed(std::uint32_t place, int seed) {
  std::uint32_t value = place * 0x9E3779B1U + static_cast<std::uint32_t>(seed) * 0x85EBCA6BU;
  value ^= value >> 15U;
  value *= 0x2C1B3C6DU;
  return value ^ (value >> 13U);
}

std::string Digits(std::uint32_t value, int width) {
  char text[16];
  std::snprintf(text, sizeof text, "%0*X", width, value);
  return text;
}

std::uint8_t Value(std::string_view digits) {
  if (digits.size() != 2 || digits.find_first_not_of("0123456789ABCDEF") != std::string_view::npos) {
    throw std::runtime_error("no byte: " + std::string(digits));
  }
  return static_cast<std::uint8_t>(std::stoul(std::string(digits), nullptr, 16));
}

/// Calls `use(index, column, row)` for the cells 0..`highest`; a highest index of 0 is no memory.
template <class Use>
void ForEachCell(int highest, const Use& use) {
  for (int index = 0; highest > 0 && index <= highest; ++index) {
    use(static_cast<std::uint32_t>(index), index % 8 + 1, index / 8 + 1);
  }
}

}  // namespace

void FillWithPattern(int seed) {
  ForEachCell(devices::FlashWordMax, [seed](std::uint32_t index, int column, int row) {
    image::MainBuffer(column, row) = Digits(Mixed(index, seed) & 0xFFFFU, 4);
  });
  ForEachCell(devices::EepromMax, [seed](std::uint32_t index, int column, int row) {
    image::EepromBuffer(column, row) = Digits(Mixed(Eeprom + index, seed) & 0xFFU, 2);
  });
  for (std::uint32_t k = 1; k <= 8; ++k) image::IdBuffer[k] = Digits(Mixed(Ids + k, seed) % 0xFFU, 2);
  for (std::uint32_t k = 1; k <= 14; ++k) {
    image::ConfigBuffer[k] = Digits(Mixed(Config + k, seed) & 0xFFU, 2);
  }
}

void EraseForeignConfig() {
  for (std::size_t k = 1; k <= 14; ++k) {
    if (devices::ConfigFlags[k] != "I") image::ConfigBuffer[k] = "FF";
  }
}

HexImage ImageByAddress() {
  HexImage bytes;
  ForEachCell(devices::FlashWordMax, [&](std::uint32_t index, int column, int row) {
    const std::string_view word = image::MainBuffer(column, row).View();
    bytes[2 * index] = Value(word.substr(2));
    bytes[2 * index + 1] = Value(word.substr(0, 2));
  });
  for (std::uint32_t k = 0; k < 8; ++k) bytes[Ids + k] = Value(image::IdBuffer[k + 1]);
  for (std::uint32_t k = 0; k < 14; ++k) bytes[Config + k] = Value(image::ConfigBuffer[k + 1]);
  ForEachCell(devices::EepromMax, [&](std::uint32_t index, int column, int row) {
    bytes[Eeprom + index] = Value(image::EepromBuffer(column, row).View());
  });
  return bytes;
}

bool HasLimits(std::string_view chip) {
  return chip != "PIC18F258" && chip != "PIC18F6520";
}

}  // namespace zelvo::test
