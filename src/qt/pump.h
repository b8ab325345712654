// The event pump, the hold timers and the held delays of the desktop. All three live on one monotonic clock,
// so that a speed setting means the same on every machine.
#pragma once

#include <array>
#include <cstdint>

#include "platform/seams.h"

namespace zelvo::desktop {

class Pump : public platform::EventPump, public platform::Timers, public platform::Delays {
 public:
  Pump();

  void EdgeWait(long long passes) override;
  void Once() override { EdgeWait(1); }
  void Until(const bool& flag) override;

  void Enable(platform::HoldTimer timer, bool& flag) override;
  void Disable(platform::HoldTimer timer) override;

  void Hold(platform::HeldDelay kind, double waitCount, double microseconds) override;

 private:
  struct Timer {
    std::int64_t interval;
    std::int64_t deadline = 0;
    bool* flag = nullptr;  ///< nullptr while disabled
  };

  void Calibrate();
  /// Spins to `end`, attending to timers and events on the way.
  void SpinTo(std::int64_t end);
  /// Ticks what is due and serves events if now is a good moment; `end` is when the wait in progress is over.
  void Attend(std::int64_t now, std::int64_t end);
  void Serve();
  void PlanAttention(std::int64_t serveAt);
  [[nodiscard]] std::int64_t NextTick() const;

  std::array<Timer, 2> timers_;
  std::int64_t overhead_ = 0;   ///< what a wait costs beside the time it waits for, in ns
  std::int64_t served_ = 0;     ///< when events were served last
  std::int64_t attention_ = 0;  ///< nothing needs to be looked at before this time
};

}  // namespace zelvo::desktop
