// Intel HEX files of the bench: a reader and a writer that share nothing with the program's own.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>

namespace zelvo::bench {

/// Every byte of the file by its address. Takes LF and CRLF line ends and the record types 00, 01, 02 and 04.
/// Nothing when the file cannot be read, has any other record, a wrong checksum or no end record.
[[nodiscard]] std::optional<std::map<std::uint32_t, std::uint8_t>> ReadIntelHex(
    const std::filesystem::path& path);
/// CRLF line ends, up to 16 bytes a record, extended linear address records where the upper half of the
/// address changes. False when the file cannot be written.
[[nodiscard]] bool WriteIntelHex(const std::filesystem::path& path,
                                 const std::map<std::uint32_t, std::uint8_t>& bytes);

}  // namespace zelvo::bench
