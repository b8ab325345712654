// A mid-range chip (PIC16F or PIC12F) in the socket: serial programming as the chip sees it, from the edges
// of its pins on.
#pragma once

#include <array>

#include "bench/board.h"
#include "bench/chip_timing.h"
#include "bench/midrange_facts.h"
#include "bench/midrange_memory.h"

namespace zelvo::bench {

class MidChip final : public Chip {
 public:
  MidChip(const MidRow& row, std::uint16_t deviceId);

  [[nodiscard]] const std::string& Name() const override { return name_; }
  void Drive(const LineLevels& lines, Nanoseconds now) override;
  [[nodiscard]] std::optional<bool> DataOut(Nanoseconds now) override;
  [[nodiscard]] bool Burn(std::uint32_t address, std::uint8_t value) override;
  [[nodiscard]] std::map<std::uint32_t, std::uint8_t> Image() const override;
  [[nodiscard]] std::vector<TimingFault> Timing() const override { return waits_.Faults(); }

 private:
  static constexpr std::size_t kMostLatches = 8;
  using Latches = std::array<std::uint16_t, kMostLatches>;

  /// What the clock is for: the six bits of a command, or the sixteen of a word in or out.
  enum class Phase : std::uint8_t { Command, WordIn, WordOut };
  /// The memory that was loaded for last.
  enum class Loaded : std::uint8_t { Nothing, Config, Program, Data };
  /// A bulk erase that waits for the next Rewrite.
  enum class Armed : std::uint8_t { No, Program, Data, Setup };
  enum class Job : std::uint8_t { None, Program, Data, Row, Bulk };

  /// Work on the arrays.
  struct Work {
    Job job = Job::None;
    std::uint16_t address = 0;
    bool eraseBefore = false;
    std::uint8_t value = 0;
    std::uint8_t first = 0;  ///< latch that goes to `address`
    std::uint8_t count = 0;  ///< latches
    Latches words{};
    MidEraseScope scope{};
  };

  void Enter(Nanoseconds now);
  void Leave(Nanoseconds now);
  void ClockRises(Nanoseconds now);
  void ClockFalls(bool data, Nanoseconds now);
  void FrameBegins(Nanoseconds now);

  [[nodiscard]] MidCommand Decode(std::uint8_t code) const;
  void TakeCommand(Nanoseconds now);
  void TakeWord();
  void Execute(MidCommand command, Nanoseconds now);

  [[nodiscard]] Work LoadedWork(bool rewrite) const;
  void Begin(MidCommand command, Nanoseconds now);
  void EraseMemory(const MidEraseScope& scope, Nanoseconds now);
  void EraseArmed(Nanoseconds now);
  [[nodiscard]] bool InConfigSpace() const { return (counter_ & kConfigSpace) != 0; }
  [[nodiscard]] MidEraseScope ProgramScope() const;
  [[nodiscard]] MidEraseScope DataScope() const;
  [[nodiscard]] MidEraseScope SetupScope() const;
  void BeginHold(Nanoseconds now);
  void EndHold(Nanoseconds end);
  void Unload();

  void BeginSelfTimed(const Work& work, WaitKind kind, Nanoseconds lasts, Nanoseconds now);
  void Settle(Nanoseconds now);
  static void Perform(const Work& work, MidMemory& memory);

  std::string name_;
  const MidRow* row_;
  const MidGenerationFacts* facts_;
  MidMemory memory_;
  WaitLog waits_;

  LineLevels lines_;
  bool programming_ = false;

  // The frame. Nothing but leaving programming mode brings it back into step.
  Phase phase_ = Phase::Command;
  int bit_ = 0;                            // clocks that the frame has had
  std::uint32_t shift_ = 0;                // its bits, the first one lowest
  MidCommand command_ = MidCommand::None;  // None for one that was not heard
  std::uint16_t output_ = 0;               // word on its way out
  bool driving_ = false;
  bool level_ = false;
  Nanoseconds commandStart_ = 0;
  Nanoseconds lastEdge_ = 0;
  Nanoseconds entered_ = 0;
  bool clocked_ = false;  // since programming mode was entered

  std::uint16_t counter_ = 0;
  Latches latches_{};
  std::uint8_t dataLatch_ = 0;
  Loaded loaded_ = Loaded::Nothing;
  std::uint16_t loadedAddress_ = 0;

  bool setupBegun_ = false;
  Armed armed_ = Armed::No;

  bool holding_ = false;  // programming that EndProgramming ends
  Work held_;
  WaitKind heldKind_ = WaitKind::ProgramHeld;
  Nanoseconds heldSince_ = 0;
  Nanoseconds heldLeast_ = 0;
  bool discharging_ = false;
  Work running_;  // self-timed
  WaitKind busyKind_ = WaitKind::EraseMemory;
  Nanoseconds busySince_ = 0;
  Nanoseconds busyUntil_ = 0;
};

}  // namespace zelvo::bench
