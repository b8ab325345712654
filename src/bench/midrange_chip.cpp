#include "bench/midrange_chip.h"

#include <algorithm>

namespace zelvo::bench {
namespace {

// A frame: six bits of command, or a word of fourteen bits between a start and a stop bit that mean nothing.
constexpr int kCommandBits = 6;
constexpr int kWordClocks = 16;
constexpr int kStopBit = 15;

constexpr std::uint16_t kCounterBits = 0x1FFF;  // of either space

// The AC tables of all generations: clock low, clock high, Tdly2 between two frames, Thld0 from Vpp to the
// first clock, Tdis behind programming that was timed from outside.
constexpr Nanoseconds kClockLow = 100;
constexpr Nanoseconds kClockHigh = 100;
constexpr Nanoseconds kFrameGap = 1'000;
constexpr Nanoseconds kEntry = 5'000;
constexpr Nanoseconds kDischarge = 500;

}  // namespace

MidChip::MidChip(const MidRow& row, std::uint16_t deviceId)
    : SerialChip(row.name), row_(&row), facts_(&FactsOf(row.generation)), memory_(row, deviceId) {}

/// Either voltage may come first: the second one decides.
bool MidChip::Enters(const LineLevels& before, const LineLevels& after) const {
  return after.vdd && after.vpp && !(before.vdd && before.vpp);
}

bool MidChip::Burn(std::uint32_t address, std::uint8_t value) {
  return memory_.Burn(address, value);
}

std::map<std::uint32_t, std::uint8_t> MidChip::Image() const {
  if (running_.job == Job::None) return memory_.Image();
  MidMemory finished = memory_;
  Perform(running_, finished);
  return finished.Image();
}

void MidChip::Entered(Nanoseconds) {
  phase_ = Phase::Command;
  bit_ = 0;
  shift_ = 0;
  counter_ = 0;
  command_ = MidCommand::None;
  Unload();
  holding_ = discharging_ = setupBegun_ = false;
  armed_ = Armed::No;
  running_ = Work{};
}

void MidChip::Leaving(Nanoseconds now) {
  if (holding_) EndHold(now);
  Settle(now);
  if (running_.job != Job::None) {
    waits_.Check(busyKind_, now - busySince_, busyUntil_ - busySince_);
    // What is erased before it is programmed stays erased when the power goes. Of anything else that is cut
    // off nothing can be relied on: the cells keep what they had.
    if (running_.eraseBefore) {
      running_.value = 0xFF;
      running_.words.fill(kWordBits);
      Perform(running_, memory_);
    }
    running_ = Work{};
  }
}

void MidChip::ClockRises(Nanoseconds now) {
  if (!clocked_) waits_.Check(WaitKind::MidEntry, now - entered_, kEntry);
  waits_.Check(WaitKind::ClockLow, now - lastEdge_, kClockLow);
  if (bit_ == 0) FrameBegins(now);
  clocked_ = true;
  lastEdge_ = now;
  if (phase_ != Phase::WordOut || command_ == MidCommand::None) return;
  // The pin becomes an output with the second rising edge and an input again with the sixteenth.
  driving_ = bit_ > 0 && bit_ < kStopBit;
  if (driving_) level_ = (output_ >> (bit_ - 1) & 1) != 0;
}

void MidChip::FrameBegins(Nanoseconds now) {
  if (clocked_) waits_.Check(WaitKind::FrameGap, now - lastEdge_, kFrameGap);
  if (discharging_) waits_.Check(WaitKind::HoldDischarge, now - lastEdge_, kDischarge);
  discharging_ = false;
  if (phase_ != Phase::Command) return;
  commandStart_ = now;
  Settle(now);
  if (running_.job != Job::None) waits_.Check(busyKind_, now - busySince_, busyUntil_ - busySince_);
}

void MidChip::ClockFalls(bool data, Nanoseconds now) {
  waits_.Check(WaitKind::ClockHigh, now - lastEdge_, kClockHigh);
  lastEdge_ = now;
  shift_ |= static_cast<std::uint32_t>(data) << bit_;
  ++bit_;
  if (bit_ < (phase_ == Phase::Command ? kCommandBits : kWordClocks)) return;
  if (phase_ == Phase::Command) {
    TakeCommand(now);
  } else {
    if (phase_ == Phase::WordIn) TakeWord();
    phase_ = Phase::Command;
  }
  bit_ = 0;
  shift_ = 0;
}

MidCommand MidChip::Decode(std::uint8_t code) const {
  const auto found = std::find_if(facts_->commands.begin(), facts_->commands.end(),
                                  [code](const MidCommandRow& row) { return (code & row.mask) == row.code; });
  return found == facts_->commands.end() ? MidCommand::None : found->command;
}

void MidChip::TakeCommand(Nanoseconds now) {
  const MidCommand command = Decode(static_cast<std::uint8_t>(shift_));
  Settle(now);
  // While the arrays work no command is executed, though its word is clocked past; programming that is timed
  // from outside hears its end only.
  const bool deaf = running_.job != Job::None || (holding_ && command != MidCommand::EndProgramming);
  command_ = deaf ? MidCommand::None : command;
  switch (command) {
    case MidCommand::LoadConfig:
    case MidCommand::LoadProgram:
    case MidCommand::LoadData:
      phase_ = Phase::WordIn;
      break;
    case MidCommand::ReadProgram:
    case MidCommand::ReadData:
      phase_ = Phase::WordOut;
      break;
    default:
      break;
  }
  Execute(command_, now);
}

void MidChip::Execute(MidCommand command, Nanoseconds now) {
  switch (command) {
    case MidCommand::LoadConfig:
      counter_ = kConfigSpace;
      break;
    case MidCommand::ReadProgram:
      output_ = memory_.Read(counter_);
      break;
    case MidCommand::ReadData:
      output_ = memory_.ReadData(counter_);
      break;
    case MidCommand::Increment:
      // The space is left by a new entry only.
      counter_ = static_cast<std::uint16_t>((counter_ & kConfigSpace) | ((counter_ + 1) & kCounterBits));
      break;
    case MidCommand::EraseSetup1:
      setupBegun_ = true;
      break;
    case MidCommand::EraseSetup2:
      if (setupBegun_) armed_ = armed_ == Armed::Setup ? Armed::No : Armed::Setup;
      setupBegun_ = false;
      break;
    case MidCommand::None:
    case MidCommand::LoadProgram:
    case MidCommand::LoadData:
      break;
    default:
      Begin(command, now);
  }
}

void MidChip::TakeWord() {
  const auto word = static_cast<std::uint16_t>(shift_ >> 1 & kWordBits);
  switch (command_) {
    case MidCommand::LoadConfig:
    case MidCommand::LoadProgram:
      loaded_ = command_ == MidCommand::LoadConfig ? Loaded::Config : Loaded::Program;
      latches_[counter_ % row_->latches] = word;
      break;
    case MidCommand::LoadData:
      loaded_ = Loaded::Data;
      dataLatch_ = static_cast<std::uint8_t>(word & 0xFF);
      break;
    default:
      return;
  }
  loadedAddress_ = counter_;
}

}  // namespace zelvo::bench
