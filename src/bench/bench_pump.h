// The event pump and the interval timers of the bench: passes are counted on the bench clock, and the only
// events are the commands that a script has put at a pass.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "bench/machine.h"

namespace zelvo::bench {

class BenchPump final : public platform::EventPump, public platform::Timers {
 public:
  static constexpr Nanoseconds PassTime = 1000;

  /// `runCommand` runs one line of a script.
  BenchPump(Machine& machine, std::function<void(const std::string&)> runCommand);

  void EdgeWait(long long passes) override;
  void Once() override { Run(1); }
  void Until(const bool& flag) override;

  void Enable(platform::HoldTimer timer, bool& flag) override;
  void Disable(platform::HoldTimer timer) override;

  /// Lets `passes` passes happen. Every pass takes the same time, but a stretch in which nothing is due costs
  /// no more than a single one.
  void Run(long long passes);
  /// Runs `command` inside the `pass`-th pass from now on, after those that wait for the same pass.
  void At(long long pass, std::string command);

 private:
  struct Timer {
    Nanoseconds interval;
    Nanoseconds due = 0;
    bool* flag = nullptr;  ///< nullptr: disabled
  };

  [[nodiscard]] Timer& Of(platform::HoldTimer timer) { return timer == platform::HoldTimer::P9 ? p9_ : p11_; }
  /// Passes until something is due, at least 1; nothing when nothing ever will be.
  [[nodiscard]] std::optional<long long> PassesToNextEvent() const;
  /// One stretch of passes and what is due at its end.
  void Stretch(long long passes);
  void Tick(Timer& timer);

  Machine& machine_;
  std::function<void(const std::string&)> runCommand_;
  long long passed_ = 0;
  std::multimap<long long, std::string> commands_;  ///< by the pass that they wait for
  Timer p9_{1'000'000};
  Timer p11_{6'000'000};
};

}  // namespace zelvo::bench
