#include "bench/pic18_chip.h"

#include <algorithm>

namespace zelvo::bench {
namespace {

// A frame: four bits of command, sixteen of payload.
constexpr int kCommandBits = 4;
constexpr int kFirstOutputBit = 12;
constexpr int kFrameBits = 20;

// The commands.
constexpr std::uint8_t kCoreInstruction = 0x0;
constexpr std::uint8_t kShiftOutLatch = 0x2;
constexpr std::uint8_t kFirstTableRead = 0x8;
constexpr std::uint8_t kReadPostIncrement = 0x9;
constexpr std::uint8_t kReadPostDecrement = 0xA;
constexpr std::uint8_t kReadPreIncrement = 0xB;
constexpr std::uint8_t kFirstTableWrite = 0xC;
constexpr std::uint8_t kWritePostIncrement = 0xD;
constexpr std::uint8_t kWriteFamilyOwn = 0xE;
constexpr std::uint8_t kWriteStart = 0xF;

constexpr std::uint8_t kMultiPanel = 0x40;

}  // namespace

Pic18Chip::Pic18Chip(const Pic18Row& row, std::uint16_t deviceId)
    : SerialChip(row.name),
      row_(&row),
      facts_(&FactsOf(row.family)),
      memory_(row, deviceId),
      core_(facts_->oneKey),
      // The ID locations of a one-key chip have a buffer of their own behind those of the panels.
      latches_(facts_->oneKey ? (PanelCount() + 1) * kOneKeyLatches : row.latches, kBlank) {}

bool Pic18Chip::Enters(const LineLevels& before, const LineLevels& after) const {
  return after.vpp && !before.vpp && after.vdd && before.vdd;
}

bool Pic18Chip::Burn(std::uint32_t address, std::uint8_t value) {
  return memory_.Burn(address, value);
}

std::map<std::uint32_t, std::uint8_t> Pic18Chip::Image() const {
  if (running_.job == Job::None) return memory_.Image();
  Pic18Memory finished = memory_;
  Perform(running_, finished);
  return finished.Image();
}

void Pic18Chip::Entered(Nanoseconds) {
  core_.Reset();
  std::fill(latches_.begin(), latches_.end(), kBlank);
  bit_ = 0;
  shift_ = 0;
  outputs_ = holding_ = discharging_ = false;
  held_ = erase_ = running_ = Work{};
  busySince_ = busyUntil_ = 0;
  busyTold_ = false;
  eraseKeyHigh_ = 0;
  multiPanel_ = false;
}

void Pic18Chip::Leaving(Nanoseconds now) {
  if (holding_) EndHold(now);
  Settle(now);
  if (running_.job != Job::None) {
    waits_.Check(busyKind_, now - busySince_, busyUntil_ - busySince_);
    // A byte of EEPROM is erased before it is written, so a write that is cut off leaves it erased. Of an
    // erase that is cut off nothing can be relied on: the cells keep what they had.
    if (running_.job == Job::Eeprom) memory_.WriteEeprom(running_.address, kBlank);
    running_ = Work{};
  }
}

void Pic18Chip::ClockRises(Nanoseconds now) {
  const auto& times = facts_->times;
  if (!clocked_) {
    waits_.Check(WaitKind::Entry, now - entered_, times.entry);
    clocked_ = true;
  }
  waits_.Check(WaitKind::ClockLow, now - lastEdge_, times.clockLow);
  if (discharging_) {
    waits_.Check(WaitKind::Discharge, now - lastEdge_, times.discharge);
    discharging_ = false;
  }
  lastEdge_ = now;
  driving_ = false;
  if (bit_ == 0) frameStart_ = now;
  if (bit_ == kCommandBits - 1 && held_.job != Job::None) BeginHold(now);
  if (bit_ == kFirstOutputBit) FetchOutput(now);
  if (outputs_) {
    level_ = (output_ >> (bit_ - kFirstOutputBit) & 1) != 0;
    driving_ = true;
  }
}

void Pic18Chip::ClockFalls(bool data, Nanoseconds now) {
  waits_.Check(WaitKind::ClockHigh, now - lastEdge_, facts_->times.clockHigh);
  lastEdge_ = now;
  if (holding_) EndHold(now);
  shift_ |= static_cast<std::uint32_t>(data) << bit_;
  ++bit_;
  if (bit_ == kCommandBits && erase_.job != Job::None) {
    BeginSelfTimed(erase_, WaitKind::Erase, facts_->times.erase, now);
    erase_ = Work{};
  }
  if (bit_ == kFrameBits) {
    ExecuteFrame(now);
    bit_ = 0;
    shift_ = 0;
    outputs_ = false;
  }
}

void Pic18Chip::BeginHold(Nanoseconds now) {
  holding_ = true;
  holdStart_ = now;
}

void Pic18Chip::EndHold(Nanoseconds now) {
  const auto& times = facts_->times;
  const Nanoseconds held = now - holdStart_;
  switch (held_.job) {
    case Job::Config:
      waits_.Check(WaitKind::ProgramConfig, held, times.programConfig);
      break;
    case Job::Row:
      waits_.Check(WaitKind::ProgramRow, held, times.program);
      break;
    default:
      waits_.Check(WaitKind::Program, held, times.program);
  }
  Perform(held_, memory_);
  Finish(held_);
  held_ = Work{};
  holding_ = false;
  discharging_ = true;
}

void Pic18Chip::FetchOutput(Nanoseconds now) {
  const auto command = static_cast<std::uint8_t>(shift_ & 0xF);
  const bool reads = command >= kFirstTableRead && command < kFirstTableWrite;
  if (!reads && command != kShiftOutLatch) return;
  if (CeasedByErase(now)) return;
  if (reads) {
    (void)ArrayFree(now);
    if (command == kReadPreIncrement) core_.MoveTablePointer(1);
    core_.SetTableLatch(memory_.Read(core_.TablePointer()));
    if (command == kReadPostIncrement) core_.MoveTablePointer(1);
    if (command == kReadPostDecrement) core_.MoveTablePointer(-1);
  }
  output_ = core_.TableLatch();
  outputs_ = true;
}

bool Pic18Chip::CeasedByErase(Nanoseconds now) {
  // While a bulk erase runs the clock may go on with PGD low, but commands are not executed.
  Settle(now);
  const bool early = busyKind_ == WaitKind::Erase && frameStart_ < busyUntil_;
  if (early && shift_ != 0 && !busyTold_) {
    // The frame that started the erase may be a command itself: it did not wait at all.
    const Nanoseconds waited = std::max<Nanoseconds>(frameStart_ - busySince_, 0);
    waits_.Check(WaitKind::Erase, waited, busyUntil_ - busySince_);
    busyTold_ = true;
  }
  return early && now < busyUntil_;
}

void Pic18Chip::ExecuteFrame(Nanoseconds now) {
  if (CeasedByErase(now)) return;
  const auto command = static_cast<std::uint8_t>(shift_ & 0xF);
  const auto payload = static_cast<std::uint16_t>(shift_ >> kCommandBits);
  if (command >= kFirstTableWrite) {
    TableWrite(command, payload, now);
  } else if (command == kCoreInstruction) {
    switch (core_.Execute(payload)) {
      case Pic18Core::Request::EepromRead:
        ReadEeprom(now);
        break;
      case Pic18Core::Request::Write:
        StartWrite(now);
        break;
      case Pic18Core::Request::None:
        break;
    }
  }
}

void Pic18Chip::TableWrite(std::uint8_t command, std::uint16_t payload, Nanoseconds now) {
  const std::uint32_t address = core_.TablePointer();
  const auto low = static_cast<std::uint8_t>(payload);
  const auto high = static_cast<std::uint8_t>(payload >> 8);
  const std::uint8_t own = (address & 1U) != 0 ? high : low;
  if (const auto index = LatchIndex(address & ~1U)) {
    latches_[*index] = low;
    latches_[*index + 1] = high;
  }
  WriteControl(address, own, now);
  const bool ownStarts = command == kWriteFamilyOwn && facts_->command1110Programs;
  if (command == kWriteStart || ownStarts) ArmProgramming(address, own, now);
  if (command == kWritePostIncrement || ownStarts) core_.MoveTablePointer(2);
  if (command == kWriteFamilyOwn && !ownStarts) core_.MoveTablePointer(-2);
}

void Pic18Chip::WriteControl(std::uint32_t address, std::uint8_t value, Nanoseconds now) {
  if (address == kEraseKeyHigh) eraseKeyHigh_ = value;
  if (address == kPanelControl && facts_->oneKey) multiPanel_ = (value & kMultiPanel) != 0;
  if (address != kEraseKeyLow) return;
  const auto scope = memory_.ScopeOf(eraseKeyHigh_, value);
  if (scope.Any() && ArrayFree(now)) erase_ = {.job = Job::Bulk, .scope = scope};
}

void Pic18Chip::ArmProgramming(std::uint32_t address, std::uint8_t value, Nanoseconds now) {
  const std::uint8_t control = core_.Eecon1();
  if ((control & Pic18Core::kEepgd) == 0) return;
  const bool toConfig = (control & Pic18Core::kCfgs) != 0;
  if (toConfig != (address >= kConfigRegisters)) return;
  if (!ArrayFree(now)) return;
  Job job = Job::Program;
  if (toConfig) {
    job = Job::Config;
  } else if (facts_->oneKey && (control & Pic18Core::kFree) != 0) {
    job = Job::Row;
  }
  held_ = {.job = job, .address = address, .value = value};
}

void Pic18Chip::StartWrite(Nanoseconds now) {
  if (!ArrayFree(now)) return;
  const std::uint8_t control = core_.Eecon1();
  const auto& times = facts_->times;
  if ((control & Pic18Core::kCfgs) != 0) {
    core_.ClearEecon1(Pic18Core::kWr);  // configuration is written by table writes only
  } else if ((control & Pic18Core::kEepgd) == 0) {
    if (!memory_.HasEeprom()) {
      core_.ClearEecon1(Pic18Core::kWr);
      return;
    }
    const Work work{.job = Job::Eeprom, .address = core_.EepromAddress(), .value = core_.EepromData()};
    BeginSelfTimed(work, WaitKind::Eeprom, times.eeprom, now);
  } else {
    const Work work{.job = (control & Pic18Core::kFree) != 0 ? Job::Row : Job::Program,
                    .address = core_.TablePointer()};
    if (!facts_->oneKey) {
      held_ = work;
      return;
    }
    BeginSelfTimed(work, WaitKind::EraseRow, times.erase, now);
  }
}

void Pic18Chip::ReadEeprom(Nanoseconds now) {
  if ((core_.Eecon1() & (Pic18Core::kEepgd | Pic18Core::kCfgs)) != 0) return;
  if (!ArrayFree(now)) return;
  core_.SetEepromData(memory_.HasEeprom() ? memory_.ReadEeprom(core_.EepromAddress()) : 0);
}

}  // namespace zelvo::bench
