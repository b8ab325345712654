#include "bench/midrange_memory.h"

#include <algorithm>

namespace zelvo::bench {
namespace {

constexpr std::uint16_t kRowSize = 16;  // words of a row erase
constexpr std::uint8_t kErasedByte = 0xFF;
constexpr std::uint16_t kHighBits = kWordBits >> 8;

std::uint16_t ConfigAddress(std::uint16_t address) {
  return static_cast<std::uint16_t>(kConfigSpace | address % kConfigSpaceSize);
}

}  // namespace

MidMemory::MidMemory(const MidRow& row, std::uint16_t deviceId)
    : row_(&row),
      deviceId_(deviceId & kWordBits),
      program_(row.programWords, kWordBits),
      data_(row.dataBytes, kErasedByte) {
  const auto& config = *row.config;
  configBits_ = {config.bits, config.bits2};
  configErased_ = {static_cast<std::uint16_t>(config.bits | config.ones),
                   static_cast<std::uint16_t>(config.bits2 | config.ones2)};
  config_ = configErased_;
  userId_.fill(kWordBits);
  if (row.oscillatorWord) program_[kOscillatorWord] = kOscillatorFactory;
}

std::uint16_t MidMemory::Read(std::uint16_t address) const {
  if ((address & kConfigSpace) == 0) return program_[address % program_.size()];
  const std::uint16_t place = ConfigAddress(address);
  const auto& calibration = row_->calibration;
  if (place < kConfigSpace + kUserIdWords) return userId_[place - kConfigSpace];
  if (place == kDeviceIdWord) return deviceId_;
  if (place >= kConfigWord && place < kConfigWord + ConfigWords()) return config_[place - kConfigWord];
  const bool calibrated = place >= calibration.first && place < calibration.first + calibration.count;
  return calibrated ? kCalibrationFactory : kWordBits;
}

std::uint16_t* MidMemory::Cell(std::uint16_t address) {
  if ((address & kConfigSpace) == 0) return &program_[address % program_.size()];
  const std::uint16_t place = ConfigAddress(address);
  return place < kConfigSpace + kUserIdWords ? &userId_[place - kConfigSpace] : nullptr;
}

void MidMemory::SetConfig(std::size_t index, std::uint16_t value) {
  const auto missing = static_cast<std::uint16_t>(configErased_[index] & ~configBits_[index]);
  config_[index] = static_cast<std::uint16_t>((value & configBits_[index]) | missing);
}

void MidMemory::Program(std::uint16_t address, std::span<const std::uint16_t> words, bool eraseBefore) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    const auto at = static_cast<std::uint16_t>(address + i);
    if (auto* cell = Cell(at)) {
      *cell = static_cast<std::uint16_t>(eraseBefore ? words[i] : *cell & words[i]);
      continue;
    }
    const std::size_t index = static_cast<std::size_t>(ConfigAddress(at)) - kConfigWord;
    if (index >= ConfigWords()) continue;
    const int protection = index == 0 ? row_->config->protectsProgram | row_->config->protectsData : 0;
    const int kept = eraseBefore ? config_[index] | ~protection : config_[index];
    SetConfig(index, static_cast<std::uint16_t>(words[i] & kept));
  }
}

void MidMemory::EraseRow(std::uint16_t address) {
  if ((address & kConfigSpace) != 0) {
    userId_.fill(kWordBits);
    return;
  }
  const std::size_t row = address % program_.size() / kRowSize * kRowSize;
  std::fill_n(program_.begin() + static_cast<std::ptrdiff_t>(row), kRowSize, kWordBits);
}

void MidMemory::Erase(const MidEraseScope& scope) {
  if (scope.program) std::fill(program_.begin(), program_.end(), kWordBits);
  if (scope.userId) userId_.fill(kWordBits);
  if (scope.config) config_ = configErased_;
  if (scope.data) std::fill(data_.begin(), data_.end(), kErasedByte);
}

bool MidMemory::ProgramProtected() const {
  return (~config_[0] & row_->config->protectsProgram) != 0;
}

bool MidMemory::DataProtected() const {
  return (~config_[0] & row_->config->protectsData) != 0;
}

std::uint8_t MidMemory::ReadData(std::uint16_t address) const {
  return data_.empty() ? std::uint8_t{0} : data_[address % data_.size()];
}

void MidMemory::ProgramData(std::uint16_t address, std::uint8_t value, bool eraseBefore) {
  if (data_.empty()) return;
  auto& cell = data_[address % data_.size()];
  cell = static_cast<std::uint8_t>(eraseBefore ? value : cell & value);
}

bool MidMemory::Burn(std::uint32_t address, std::uint8_t value) {
  const std::uint32_t word = address / 2;
  const bool high = address % 2 != 0;
  const auto merged = [high, value](std::uint16_t old) {
    return static_cast<std::uint16_t>(high ? (old & 0xFF) | (value & kHighBits) << 8
                                           : (old & 0xFF00) | value);
  };
  if (word < program_.size()) {
    program_[word] = merged(program_[word]);
  } else if (word >= kConfigSpace && word < kConfigSpace + kUserIdWords) {
    userId_[word - kConfigSpace] = merged(userId_[word - kConfigSpace]);
  } else if (word >= kConfigWord && word < kConfigWord + ConfigWords()) {
    SetConfig(word - kConfigWord, merged(config_[word - kConfigWord]));
  } else if (word >= kHexDataMemory && word < kHexDataMemory + data_.size()) {
    if (!high) data_[word - kHexDataMemory] = value;  // assemblers fill the word's other byte with zeros
  } else {
    return false;
  }
  return true;
}

std::map<std::uint32_t, std::uint8_t> MidMemory::Image() const {
  std::map<std::uint32_t, std::uint8_t> image;
  const auto add = [&image](std::size_t word, std::uint16_t value, std::uint16_t erased) {
    if (value == erased) return;
    const auto address = static_cast<std::uint32_t>(word * 2);
    image.emplace_hint(image.end(), address, static_cast<std::uint8_t>(value & 0xFF));
    image.emplace_hint(image.end(), address + 1, static_cast<std::uint8_t>(value >> 8));
  };
  for (std::size_t i = 0; i < program_.size(); ++i) {
    // The factory's word is nothing that somebody programmed.
    const bool factory = row_->oscillatorWord && i == kOscillatorWord && program_[i] == kOscillatorFactory;
    if (!factory) add(i, program_[i], kWordBits);
  }
  for (std::size_t i = 0; i < kUserIdWords; ++i) add(kConfigSpace + i, userId_[i], kWordBits);
  for (std::size_t i = 0; i < ConfigWords(); ++i) add(kConfigWord + i, config_[i], configErased_[i]);
  for (std::size_t i = 0; i < data_.size(); ++i) add(kHexDataMemory + i, data_[i], kErasedByte);
  return image;
}

}  // namespace zelvo::bench
