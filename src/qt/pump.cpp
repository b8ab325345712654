#include "qt/pump.h"

#include <QCoreApplication>
#include <algorithm>
#include <limits>

#include "qt/monotonic.h"

namespace zelvo::desktop {
namespace {

constexpr std::int64_t Pass = 1'000;             // ns, one pump pass
constexpr std::int64_t ServeEvery = 4'000'000;   // ns, where serving stretches nothing
constexpr std::int64_t ServeLatest = 8'000'000;  // ns, half a display frame: then it may stretch an edge
constexpr std::int64_t Room = 300'000;        // ns that must be left of a wait for serving to stretch nothing
constexpr std::int64_t SleepFloor = 200'000;  // ns, what a sleep may oversleep by
constexpr std::int64_t Never = std::numeric_limits<std::int64_t>::max();

void SleepUntil(std::int64_t time) {
  const timespec until{static_cast<time_t>(time / 1'000'000'000), static_cast<long>(time % 1'000'000'000)};
  while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr) != 0) {
  }
}

}  // namespace

Pump::Pump() : timers_{Timer{1'000'000}, Timer{6'000'000}} {
  Calibrate();
}

// The excess of single passes over their microsecond is the cost of the call and of the clock itself. The
// best of many short batches is the one that nothing else on the machine has disturbed.
void Pump::Calibrate() {
  constexpr int Batches = 40;
  constexpr int PassesPerBatch = 50;
  attention_ = Never;
  std::int64_t best = Never;
  for (int batch = 0; batch < Batches; ++batch) {
    const std::int64_t start = MonotonicNow();
    for (int pass = 0; pass < PassesPerBatch; ++pass) SpinTo(MonotonicNow() + Pass);
    best = std::min(best, (MonotonicNow() - start) / PassesPerBatch - Pass);
  }
  overhead_ = std::clamp<std::int64_t>(best, 0, Pass / 2);
  served_ = MonotonicNow();
  PlanAttention(served_ + ServeEvery);
}

void Pump::EdgeWait(long long passes) {
  if (passes <= 0) return;
  SpinTo(MonotonicNow() + passes * Pass - overhead_);
  if (platform::programEnded) throw platform::ProgramEnded{};
}

void Pump::Until(const bool& flag) {
  while (!flag) {
    const std::int64_t now = MonotonicNow();
    if (now >= attention_) Attend(now, NextTick());
    if (platform::programEnded) throw platform::ProgramEnded{};
  }
}

void Pump::SpinTo(std::int64_t end) {
  for (;;) {
    const std::int64_t now = MonotonicNow();
    if (now >= attention_) Attend(now, end);
    if (now >= end || platform::programEnded) return;
  }
}

void Pump::Attend(std::int64_t now, std::int64_t end) {
  for (Timer& timer : timers_) {
    if (timer.flag == nullptr || now < timer.deadline) continue;
    *timer.flag = true;
    timer.deadline = std::max(timer.deadline + timer.interval, now);
  }
  const std::int64_t idle = now - served_;
  const bool roomy = end - now >= Room;
  if (idle >= ServeLatest || (idle >= ServeEvery && roomy)) {
    Serve();
    PlanAttention(served_ + ServeEvery);
  } else {
    // Short of room: the next wait may have some, which a later pass finds by itself.
    PlanAttention(idle < ServeEvery ? served_ + ServeEvery : now + Room / 4);
  }
}

// A handler that runs in here may pump by itself, hours on end.
void Pump::Serve() {
  served_ = MonotonicNow();
  PlanAttention(served_ + ServeEvery);
  QCoreApplication::processEvents(QEventLoop::AllEvents);
  served_ = MonotonicNow();
}

void Pump::PlanAttention(std::int64_t serveAt) {
  attention_ = std::min(serveAt, NextTick());
}

std::int64_t Pump::NextTick() const {
  std::int64_t next = Never;
  for (const Timer& timer : timers_) {
    if (timer.flag != nullptr) next = std::min(next, timer.deadline);
  }
  return next;
}

void Pump::Enable(platform::HoldTimer timer, bool& flag) {
  Timer& started = timers_[static_cast<std::size_t>(timer)];
  started.flag = &flag;
  started.deadline = MonotonicNow() + started.interval - overhead_;
  attention_ = std::min(attention_, started.deadline);
}

void Pump::Disable(platform::HoldTimer timer) {
  timers_[static_cast<std::size_t>(timer)].flag = nullptr;
}

void Pump::Hold(platform::HeldDelay /*kind*/, double /*waitCount*/, double microseconds) {
  const std::int64_t end = MonotonicNow() + static_cast<std::int64_t>(microseconds * 1'000) - overhead_;
  if (end - MonotonicNow() > 2 * SleepFloor) SleepUntil(end - SleepFloor);
  while (MonotonicNow() < end) {
  }
}

}  // namespace zelvo::desktop
