#include "bench/bench_pump.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace zelvo::bench {

BenchPump::BenchPump(Machine& machine, std::function<void(const std::string&)> runCommand)
    : machine_(machine), runCommand_(std::move(runCommand)) {}

void BenchPump::EdgeWait(long long passes) {
  if (WireLog* wire = machine_.Wire()) wire->Passes(passes);
  Run(passes);
}

void BenchPump::Run(long long passes) {
  while (passes > 0) {
    const long long stretch = std::min(passes, PassesToNextEvent().value_or(passes));
    Stretch(stretch);
    passes -= stretch;
  }
}

void BenchPump::Until(const bool& flag) {
  while (!flag) {
    const std::optional<long long> stretch = PassesToNextEvent();
    if (!stretch) throw std::logic_error("the event pump waits for a timer that is not running");
    Stretch(*stretch);
  }
}

void BenchPump::Enable(platform::HoldTimer timer, bool& flag) {
  if (WireLog* wire = machine_.Wire()) wire->Hold(timer);
  Timer& it = Of(timer);
  it.due = machine_.Now() + it.interval;
  it.flag = &flag;
}

void BenchPump::Disable(platform::HoldTimer timer) {
  Of(timer).flag = nullptr;
}

void BenchPump::At(long long pass, std::string command) {
  commands_.emplace(passed_ + pass, std::move(command));
}

std::optional<long long> BenchPump::PassesToNextEvent() const {
  if (platform::programEnded) return 1;
  std::optional<long long> next;
  if (!commands_.empty()) next = commands_.begin()->first - passed_;
  for (const Timer* timer : {&p9_, &p11_}) {
    if (timer->flag == nullptr) continue;
    const long long passes = (timer->due - machine_.Now() + PassTime - 1) / PassTime;
    next = std::min(next.value_or(passes), passes);
  }
  if (next) next = std::max(*next, 1LL);
  return next;
}

void BenchPump::Stretch(long long passes) {
  passed_ += passes;
  machine_.Advance(passes * PassTime);
  Tick(p9_);
  Tick(p11_);
  // A command may pump in turn and so run those behind it; each is taken out before it runs.
  while (!commands_.empty() && commands_.begin()->first <= passed_) {
    const std::string command = std::move(commands_.begin()->second);
    commands_.erase(commands_.begin());
    runCommand_(command);
  }
  if (platform::programEnded) throw platform::ProgramEnded{};
}

void BenchPump::Tick(Timer& timer) {
  if (timer.flag == nullptr || machine_.Now() < timer.due) return;
  *timer.flag = true;
  timer.due = machine_.Now() + timer.interval;
}

}  // namespace zelvo::bench
