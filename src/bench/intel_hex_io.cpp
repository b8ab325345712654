#include "bench/intel_hex_io.h"

#include <charconv>
#include <fstream>
#include <string>
#include <vector>

namespace zelvo::bench {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kRecordBytes = 16;
constexpr std::uint8_t kData = 0, kEnd = 1, kSegment = 2, kLinear = 4;

// The record's bytes, from its length on and without its checksum.
std::optional<Bytes> ParseRecord(std::string_view line) {
  constexpr std::size_t overhead = 5;  // length, address, type, checksum
  if (line.size() < 1 + 2 * overhead || line.front() != ':' || line.size() % 2 != 1) return std::nullopt;
  Bytes record;
  std::uint8_t sum = 0;
  for (std::size_t i = 1; i < line.size(); i += 2) {
    std::uint8_t byte = 0;
    const auto* end = line.data() + i + 2;
    if (std::from_chars(line.data() + i, end, byte, 16).ptr != end) return std::nullopt;
    record.push_back(byte);
    sum = static_cast<std::uint8_t>(sum + byte);
  }
  if (sum != 0 || record.size() != record.front() + overhead) return std::nullopt;
  record.pop_back();
  return record;
}

std::string Record(std::uint8_t type, std::uint16_t address, const Bytes& data) {
  Bytes record{static_cast<std::uint8_t>(data.size()), static_cast<std::uint8_t>(address >> 8),
               static_cast<std::uint8_t>(address), type};
  record.insert(record.end(), data.begin(), data.end());
  std::uint8_t sum = 0;
  for (const auto byte : record) sum = static_cast<std::uint8_t>(sum - byte);
  record.push_back(sum);
  constexpr char digits[] = "0123456789ABCDEF";
  std::string text = ":";
  for (const auto byte : record) {
    text += digits[byte >> 4];
    text += digits[byte & 0xF];
  }
  return text + "\r\n";
}

}  // namespace

std::optional<std::map<std::uint32_t, std::uint8_t>> ReadIntelHex(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  std::map<std::uint32_t, std::uint8_t> bytes;
  std::uint32_t base = 0;
  std::string line;
  while (std::getline(file, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty()) continue;
    const auto record = ParseRecord(line);
    if (!record) return std::nullopt;
    const auto& r = *record;
    const auto offset = static_cast<std::uint32_t>(r[1] << 8 | r[2]);
    const std::uint8_t type = r[3];
    if (type == kEnd) return bytes;
    if (type == kData) {
      for (std::size_t i = 4; i < r.size(); ++i)
        bytes[base + offset + static_cast<std::uint32_t>(i - 4)] = r[i];
    } else if ((type == kSegment || type == kLinear) && r.front() == 2) {
      base = static_cast<std::uint32_t>(r[4] << 8 | r[5]) << (type == kLinear ? 16 : 4);
    } else {
      return std::nullopt;
    }
  }
  return std::nullopt;
}

bool WriteIntelHex(const std::filesystem::path& path, const std::map<std::uint32_t, std::uint8_t>& bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  std::uint32_t upper = 0;
  for (auto it = bytes.begin(); it != bytes.end();) {
    const std::uint32_t start = it->first;
    if (start >> 16 != upper) {
      upper = start >> 16;
      file << Record(kLinear, 0, {static_cast<std::uint8_t>(upper >> 8), static_cast<std::uint8_t>(upper)});
    }
    // A record ends at a gap, when it is full and at its own 16-byte line, so it never crosses into the next
    // 64 KB.
    Bytes data;
    do {
      data.push_back(it->second);
      ++it;
    } while (it != bytes.end() && it->first == start + data.size() && it->first % kRecordBytes != 0);
    file << Record(kData, static_cast<std::uint16_t>(start), data);
  }
  file << Record(kEnd, 0, {});
  return file.flush().good();
}

}  // namespace zelvo::bench
