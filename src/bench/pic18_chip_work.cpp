// The simulated PIC18's work on its arrays: what runs by itself, and what the latches put into the cells.
#include <algorithm>
#include <span>

#include "bench/pic18_chip.h"

namespace zelvo::bench {

void Pic18Chip::BeginSelfTimed(const Work& work, WaitKind kind, Nanoseconds lasts, Nanoseconds now) {
  running_ = work;
  busyKind_ = kind;
  busySince_ = now;
  busyUntil_ = now + lasts;
  busyTold_ = false;
}

void Pic18Chip::Settle(Nanoseconds now) {
  if (running_.job == Job::None || now < busyUntil_) return;
  Perform(running_, memory_);
  Finish(running_);
  running_ = Work{};
}

bool Pic18Chip::ArrayFree(Nanoseconds now) {
  Settle(now);
  const bool early = frameStart_ >= busySince_ && frameStart_ < busyUntil_;
  if (early && busyKind_ != WaitKind::Erase) {
    waits_.Check(busyKind_, frameStart_ - busySince_, busyUntil_ - busySince_);
  }
  return running_.job == Job::None;
}

void Pic18Chip::Perform(const Work& work, Pic18Memory& memory) const {
  switch (work.job) {
    case Job::None:
      break;
    case Job::Program:
      ProgramLatches(work.address, memory);
      break;
    case Job::Config:
      memory.ProgramConfig(work.address, work.value);
      break;
    case Job::Bulk:
      memory.BulkErase(work.scope);
      break;
    case Job::Eeprom:
      memory.WriteEeprom(work.address, work.value);
      break;
    case Job::Row:
      memory.EraseRow(work.address);
      if (!multiPanel_ || work.address >= row_->codeSize) break;
      for (std::uint32_t panel = 0; panel < PanelCount(); ++panel) {
        memory.EraseRow(panel * kPanelSize + work.address % kPanelSize);
      }
  }
}

void Pic18Chip::Finish(const Work& work) {
  core_.ClearEecon1(Pic18Core::kWr);
  if (work.job == Job::Row) core_.ClearEecon1(Pic18Core::kFree);
  if (work.job == Job::Program || work.job == Job::Row) std::fill(latches_.begin(), latches_.end(), kBlank);
}

std::uint32_t Pic18Chip::PanelCount() const {
  return (row_->codeSize + kPanelSize - 1) / kPanelSize;
}

std::optional<std::size_t> Pic18Chip::LatchIndex(std::uint32_t address) const {
  if (address >= kConfigRegisters) return std::nullopt;
  if (!facts_->oneKey) return address % row_->latches;
  const bool id = address >= kIdLocations && address < kIdLocations + kIdSize;
  if (!id && address >= row_->codeSize) return std::nullopt;
  const std::uint32_t buffer = id ? PanelCount() : address / kPanelSize;
  return buffer * kOneKeyLatches + address % kOneKeyLatches;
}

void Pic18Chip::ProgramLatches(std::uint32_t address, Pic18Memory& memory) const {
  const std::span<const std::uint8_t> all(latches_);
  if (!facts_->oneKey) {
    memory.Program(address - address % row_->latches, all);
    return;
  }
  const std::uint32_t start = address & ~(kOneKeyLatches - 1);
  if (!multiPanel_) {
    if (const auto index = LatchIndex(start)) memory.Program(start, all.subspan(*index, kOneKeyLatches));
    return;
  }
  // With all panels enabled the ID locations are out of reach: they want single-panel writes.
  if (address >= row_->codeSize) return;
  for (std::uint32_t panel = 0; panel < PanelCount(); ++panel) {
    memory.Program(panel * kPanelSize + start % kPanelSize,
                   all.subspan(panel * kOneKeyLatches, kOneKeyLatches));
  }
}

}  // namespace zelvo::bench
