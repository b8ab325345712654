// A mid-range chip (PIC16F or PIC12F) in the socket: serial programming as the chip sees it, from the edges
// of its pins on.
#pragma once

#include <array>

#include "bench/midrange_facts.h"
#include "bench/midrange_memory.h"
#include "bench/serial_chip.h"

namespace zelvo::bench {

class MidChip final : public SerialChip {
 public:
  MidChip(const MidRow& row, std::uint16_t deviceId);

  [[nodiscard]] bool Burn(std::uint32_t address, std::uint8_t value) override;
  [[nodiscard]] std::map<std::uint32_t, std::uint8_t> Image() const override;

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

  [[nodiscard]] bool Enters(const LineLevels& before, const LineLevels& after) const override;
  void Entered(Nanoseconds now) override;
  void Leaving(Nanoseconds now) override;
  void ClockRises(Nanoseconds now) override;
  void ClockFalls(bool data, Nanoseconds now) override;
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

  const MidRow* row_;
  const MidGenerationFacts* facts_;
  MidMemory memory_;

  // The frame. Nothing but leaving programming mode brings it back into step.
  Phase phase_ = Phase::Command;
  int bit_ = 0;                            // clocks that the frame has had
  std::uint32_t shift_ = 0;                // its bits, the first one lowest
  MidCommand command_ = MidCommand::None;  // None for one that was not heard
  std::uint16_t output_ = 0;               // word on its way out
  Nanoseconds commandStart_ = 0;

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
