#include "link/delays.h"

namespace zelvo::link {
namespace {

void SleepOn(platform::HoldTimer timer, bool& flag) {
  flag = false;
  platform::seams.timers->Enable(timer, flag);
  platform::seams.pump->Until(flag);
  platform::seams.timers->Disable(timer);
}

void HoldPasses(platform::HeldDelay kind, double passes, double passMicroseconds) {
  platform::seams.delays->Hold(kind, WaitCount, passes * passMicroseconds);
}

}  // namespace

void SleepP9() {
  SleepOn(platform::HoldTimer::P9, P9Flag);
}
void SleepP11() {
  SleepOn(platform::HoldTimer::P11, P11Flag);
}
void SettleDelay() {
  HoldPasses(platform::HeldDelay::Settle, 2000.0 * 1500, SettlePass);
}
void PowerCycleDelay() {
  HoldPasses(platform::HeldDelay::PowerCycle, (300 + WaitCount) * 1000, PowerCyclePass);
}
void Szün() {
  HoldPasses(platform::HeldDelay::Szün, 2000, ShortPass);
}

}  // namespace zelvo::link
