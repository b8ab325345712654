// A reader of Intel HEX files for the tests: strict, and with nothing in common with the program's own
// loader, so that the two can be held against each other.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace zelvo::test {

/// Byte address, as in the file, to value. Bytes that the file does not name are absent.
using HexImage = std::map<std::uint32_t, std::uint8_t>;

/// Reads records of types 00, 01, 02 and 04 with any line ends. Throws std::runtime_error, with the line, for
/// a bad record, a wrong checksum, an address given twice or a missing end record.
[[nodiscard]] HexImage ReadHexImage(const std::string& path);

/// `image` without the bytes of value FFh: what differs from erased code, ID and EEPROM memory.
[[nodiscard]] HexImage WithoutErased(const HexImage& image);

/// The bytes with first <= address <= last.
[[nodiscard]] HexImage Between(const HexImage& image, std::uint32_t first, std::uint32_t last);

/// The first difference of two images in words, empty when they are equal.
[[nodiscard]] std::string FirstDifference(const HexImage& expected, const HexImage& actual);

}  // namespace zelvo::test
