#include "support/hex_image.h"

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace zelvo::test {
namespace {

std::vector<std::uint8_t> Bytes(const std::string& digits) {
  if (digits.size() % 2 != 0) throw std::runtime_error("half a byte");
  std::vector<std::uint8_t> bytes;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    std::size_t used = 0;
    const unsigned long value = std::stoul(digits.substr(i, 2), &used, 16);
    if (used != 2) throw std::runtime_error("no hexadecimal digit");
    bytes.push_back(static_cast<std::uint8_t>(value));
  }
  return bytes;
}

/// Walks the records and collects their bytes.
class Reader {
 public:
  void Record(const std::string& line) {
    if (ended_) throw std::runtime_error("a record behind the end");
    if (line.empty() || line[0] != ':') throw std::runtime_error("no colon");
    const std::vector<std::uint8_t> record = Bytes(line.substr(1));
    if (record.size() < 5 || record.size() != record[0] + 5U) throw std::runtime_error("wrong length");
    std::uint8_t sum = 0;
    for (const std::uint8_t byte : record) sum = static_cast<std::uint8_t>(sum + byte);
    if (sum != 0) throw std::runtime_error("wrong checksum");
    const std::uint32_t address = record[1] * 256U + record[2];
    switch (record[3]) {
      case 0:
        Data(address, record);
        break;
      case 1:
        ended_ = true;
        break;
      case 2:
        base_ = (record.at(4) * 256U + record.at(5)) * 16U;
        break;
      case 4:
        base_ = (record.at(4) * 256U + record.at(5)) << 16U;
        break;
      default:
        throw std::runtime_error("unknown type");
    }
  }
  [[nodiscard]] bool Ended() const { return ended_; }
  HexImage image;

 private:
  void Data(std::uint32_t address, const std::vector<std::uint8_t>& record) {
    for (std::uint32_t i = 0; i < record[0]; ++i) {
      if (!image.emplace(base_ + address + i, record[4 + i]).second) throw std::runtime_error("given twice");
    }
  }
  std::uint32_t base_ = 0;
  bool ended_ = false;
};

}  // namespace

HexImage ReadHexImage(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error(path + " cannot be read");
  Reader reader;
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    try {
      reader.Record(line);
    } catch (const std::exception& error) {
      throw std::runtime_error(path + ":" + std::to_string(number) + ": " + error.what() + ": " + line);
    }
  }
  if (!reader.Ended()) throw std::runtime_error(path + ": no end record");
  return std::move(reader.image);
}

HexImage WithoutErased(const HexImage& image) {
  HexImage rest;
  for (const auto& [address, value] : image) {
    if (value != 0xFF) rest.emplace(address, value);
  }
  return rest;
}

HexImage Between(const HexImage& image, std::uint32_t first, std::uint32_t last) {
  return {image.lower_bound(first), image.upper_bound(last)};
}

std::string FirstDifference(const HexImage& expected, const HexImage& actual) {
  std::ostringstream text;
  text << std::hex << std::uppercase;
  const auto tell = [&](std::uint32_t address, const HexImage& image) {
    const auto found = image.find(address);
    if (found == image.end()) {
      text << "nothing";
    } else {
      text << static_cast<int>(found->second) << "h";
    }
  };
  auto left = expected.begin();
  auto right = actual.begin();
  while (left != expected.end() && right != actual.end() && *left == *right) {
    ++left;
    ++right;
  }
  if (left == expected.end() && right == actual.end()) return {};
  const bool leftFirst = right == actual.end() || (left != expected.end() && left->first <= right->first);
  const std::uint32_t address = leftFirst ? left->first : right->first;
  text << "at " << address << "h: expected ";
  tell(address, expected);
  text << ", found ";
  tell(address, actual);
  return text.str();
}

}  // namespace zelvo::test
