// A PIC18 in the socket: serial programming as the chip sees it, from the edges of its pins on.
#pragma once

#include <vector>

#include "bench/pic18_core.h"
#include "bench/pic18_memory.h"
#include "bench/serial_chip.h"

namespace zelvo::bench {

class Pic18Chip final : public SerialChip {
 public:
  Pic18Chip(const Pic18Row& row, std::uint16_t deviceId);

  [[nodiscard]] bool Burn(std::uint32_t address, std::uint8_t value) override;
  [[nodiscard]] std::map<std::uint32_t, std::uint8_t> Image() const override;

 private:
  static constexpr std::uint32_t kOneKeyLatches = 8;  // bytes a panel
  static constexpr std::uint8_t kBlank = 0xFF;

  enum class Job : std::uint8_t { None, Program, Config, Row, Bulk, Eeprom };

  /// Work on the arrays that is waiting for its clock or that is running.
  struct Work {
    Job job = Job::None;
    std::uint32_t address = 0;
    std::uint8_t value = 0;
    Pic18EraseScope scope{};
  };

  [[nodiscard]] bool Enters(const LineLevels& before, const LineLevels& after) const override;
  void Entered(Nanoseconds now) override;
  void Leaving(Nanoseconds now) override;
  void ClockRises(Nanoseconds now) override;
  void ClockFalls(bool data, Nanoseconds now) override;
  void BeginHold(Nanoseconds now);
  void EndHold(Nanoseconds now);

  void FetchOutput(Nanoseconds now);
  void ExecuteFrame(Nanoseconds now);
  [[nodiscard]] bool CeasedByErase(Nanoseconds now);
  void TableWrite(std::uint8_t command, std::uint16_t payload, Nanoseconds now);
  void WriteControl(std::uint32_t address, std::uint8_t value, Nanoseconds now);
  void ArmProgramming(std::uint32_t address, std::uint8_t value, Nanoseconds now);
  void StartWrite(Nanoseconds now);
  void ReadEeprom(Nanoseconds now);

  void BeginSelfTimed(const Work& work, WaitKind kind, Nanoseconds lasts, Nanoseconds now);
  void Settle(Nanoseconds now);
  [[nodiscard]] bool ArrayFree(Nanoseconds now);
  void Perform(const Work& work, Pic18Memory& memory) const;
  void Finish(const Work& work);

  [[nodiscard]] std::optional<std::size_t> LatchIndex(std::uint32_t address) const;
  [[nodiscard]] std::uint32_t PanelCount() const;
  void ProgramLatches(std::uint32_t address, Pic18Memory& memory) const;

  const Pic18Row* row_;
  const Pic18FamilyFacts* facts_;
  Pic18Memory memory_;
  Pic18Core core_;
  std::vector<std::uint8_t> latches_;

  // The 20-bit beat. Nothing but leaving programming mode brings it back into step.
  int bit_ = 0;              // clocks that the frame has had
  std::uint32_t shift_ = 0;  // its bits, the first one lowest
  std::uint8_t output_ = 0;  // byte on its way out
  bool outputs_ = false;     // this frame shifts out
  Nanoseconds frameStart_ = 0;

  Work held_;  // starts with the 4th clock of the next frame, ends when that clock falls
  bool holding_ = false;
  Nanoseconds holdStart_ = 0;
  bool discharging_ = false;
  Work erase_;    // starts when the 4th clock of the next frame falls
  Work running_;  // self-timed
  WaitKind busyKind_ = WaitKind::Erase;
  Nanoseconds busySince_ = 0;
  Nanoseconds busyUntil_ = 0;
  bool busyTold_ = false;

  std::uint8_t eraseKeyHigh_ = 0;
  bool multiPanel_ = false;
};

}  // namespace zelvo::bench
