// The simulated mid-range chip's work on its arrays: what was loaded goes into the cells, erases and their
// scopes, and what runs by itself.
#include <algorithm>

#include "bench/midrange_chip.h"

namespace zelvo::bench {

void MidChip::Unload() {
  latches_.fill(kWordBits);
  loaded_ = Loaded::Nothing;
}

MidChip::Work MidChip::LoadedWork(bool rewrite) const {
  Work work;
  work.address = loadedAddress_;
  switch (loaded_) {
    case Loaded::Nothing:
      return work;
    case Loaded::Data:
      work.job = Job::Data;
      work.value = dataLatch_;
      work.eraseBefore = rewrite || facts_->dataErasesItself;
      return work;
    case Loaded::Config:
      // A chip with one latch has the word of Load Configuration ready for wherever the counter goes.
      if (row_->latches == 1) work.address = counter_;
      break;
    case Loaded::Program:
      break;
  }
  work.job = Job::Program;
  work.eraseBefore = rewrite;
  work.words = latches_;
  // The user IDs are a row, the words behind them are written one at a time.
  const std::uint16_t place = work.address % kConfigSpaceSize;
  std::uint16_t count = row_->latches;
  if ((work.address & kConfigSpace) != 0) count = place < kUserIdWords ? std::min(count, kUserIdWords) : 1;
  work.address = static_cast<std::uint16_t>(work.address - work.address % count);
  work.first = static_cast<std::uint8_t>(work.address % row_->latches);
  work.count = static_cast<std::uint8_t>(count);
  return work;
}

void MidChip::Begin(MidCommand command, Nanoseconds now) {
  const auto& times = facts_->times;
  switch (command) {
    case MidCommand::Rewrite:
    case MidCommand::Program: {
      const bool rewrite = command == MidCommand::Rewrite;
      if (rewrite && armed_ != Armed::No) {
        EraseArmed(now);
        break;
      }
      const Work work = LoadedWork(rewrite);
      const bool byte = work.job == Job::Data;
      const Nanoseconds erasing = byte ? times.data : times.rewrite;
      BeginSelfTimed(work, byte ? WaitKind::DataByte : WaitKind::ProgramWords,
                     work.eraseBefore ? erasing : times.program, now);
      Unload();
      break;
    }
    case MidCommand::ProgramHeld:
      BeginHold(now);
      break;
    case MidCommand::EndProgramming:
      if (holding_) EndHold(commandStart_);
      break;
    case MidCommand::EraseProgram:
    case MidCommand::EraseData: {
      const bool program = command == MidCommand::EraseProgram;
      armed_ = program ? Armed::Program : Armed::Data;
      if (!facts_->eraseWaitsForBegin) EraseArmed(now);
      break;
    }
    case MidCommand::EraseChip:
      EraseMemory({.program = true, .userId = true, .config = true, .data = true}, now);
      break;
    case MidCommand::EraseRow:
      if (memory_.ProgramProtected()) break;
      BeginSelfTimed({.job = Job::Row, .address = counter_}, WaitKind::EraseWords, times.program, now);
      break;
    default:
      break;
  }
}

void MidChip::EraseArmed(Nanoseconds now) {
  switch (armed_) {
    case Armed::Program:
      EraseMemory(ProgramScope(), now);
      break;
    case Armed::Data:
      EraseMemory(DataScope(), now);
      break;
    case Armed::Setup:
      EraseMemory(SetupScope(), now);
      break;
    case Armed::No:
      break;
  }
  // The setup stands until it is given again.
  if (armed_ != Armed::Setup) armed_ = Armed::No;
}

void MidChip::EraseMemory(const MidEraseScope& scope, Nanoseconds now) {
  Unload();
  if (!scope.Any()) return;
  BeginSelfTimed({.job = Job::Bulk, .scope = scope}, WaitKind::EraseMemory, facts_->times.erase, now);
}

MidEraseScope MidChip::ProgramScope() const {
  const bool config = facts_->eraseTakesConfig;
  if (!config && memory_.ProgramProtected()) return {};
  return {.program = true,
          .userId = InConfigSpace(),
          .config = config,
          .data = config && memory_.DataProtected()};
}

MidEraseScope MidChip::DataScope() const {
  return {.data = row_->dataBytes != 0 && !memory_.DataProtected()};
}

MidEraseScope MidChip::SetupScope() const {
  // At the configuration word this is the way out of code protection.
  if (counter_ == kConfigWord) return {.program = true, .config = true, .data = true};
  return loaded_ == Loaded::Data ? DataScope() : ProgramScope();
}

void MidChip::BeginHold(Nanoseconds now) {
  const auto& times = facts_->times;
  held_ = LoadedWork(false);
  const bool byte = held_.job == Job::Data;
  heldKind_ = byte ? WaitKind::DataByte : WaitKind::ProgramHeld;
  heldLeast_ = held_.job == Job::None ? 0 : byte && held_.eraseBefore ? times.data : times.held;
  heldSince_ = now;
  holding_ = true;
  Unload();
}

void MidChip::EndHold(Nanoseconds end) {
  waits_.Check(heldKind_, end - heldSince_, heldLeast_);
  Perform(held_, memory_);
  holding_ = false;
  discharging_ = true;
}

void MidChip::BeginSelfTimed(const Work& work, WaitKind kind, Nanoseconds lasts, Nanoseconds now) {
  if (work.job == Job::None) return;
  running_ = work;
  busyKind_ = kind;
  busySince_ = now;
  busyUntil_ = now + lasts;
}

void MidChip::Settle(Nanoseconds now) {
  if (running_.job == Job::None || now < busyUntil_) return;
  Perform(running_, memory_);
  running_ = Work{};
}

void MidChip::Perform(const Work& work, MidMemory& memory) {
  switch (work.job) {
    case Job::None:
      break;
    case Job::Program:
      memory.Program(work.address, std::span(work.words).subspan(work.first, work.count), work.eraseBefore);
      break;
    case Job::Data:
      memory.ProgramData(work.address, work.value, work.eraseBefore);
      break;
    case Job::Row:
      memory.EraseRow(work.address);
      break;
    case Job::Bulk:
      memory.Erase(work.scope);
      break;
  }
}

}  // namespace zelvo::bench
