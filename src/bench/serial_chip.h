// What every chip in the socket has: its pins, programming mode, and the edges of the programming clock.
#pragma once

#include <string>
#include <string_view>

#include "bench/board.h"
#include "bench/chip_timing.h"

namespace zelvo::bench {

class SerialChip : public Chip {
 public:
  [[nodiscard]] const std::string& Name() const override { return name_; }
  void Drive(const LineLevels& lines, Nanoseconds now) override;
  [[nodiscard]] std::optional<bool> DataOut(Nanoseconds now) override;
  [[nodiscard]] std::vector<TimingFault> Timing() const override { return waits_.Faults(); }

 protected:
  explicit SerialChip(std::string_view name) : name_(name) {}

  /// Whether programming mode begins with this change of the voltages, PGC and PGD being low.
  [[nodiscard]] virtual bool Enters(const LineLevels& before, const LineLevels& after) const = 0;
  /// Programming mode has begun: everything but the memories starts anew.
  virtual void Entered(Nanoseconds now) = 0;
  /// A voltage has gone: programming mode ends.
  virtual void Leaving(Nanoseconds now) = 0;
  virtual void ClockRises(Nanoseconds now) = 0;
  /// `data` is PGD as it stood before the edge.
  virtual void ClockFalls(bool data, Nanoseconds now) = 0;

  WaitLog waits_;
  bool driving_ = false;  ///< PGD is an output
  bool level_ = false;    ///< of that output
  Nanoseconds lastEdge_ = 0;
  Nanoseconds entered_ = 0;
  bool clocked_ = false;  ///< since programming mode was entered

 private:
  std::string name_;
  LineLevels lines_;
  bool programming_ = false;
};

}  // namespace zelvo::bench
