// Delays of the link. `Vár_Ír` stands at every clock edge and is counted in passes of the event pump; the
// holds of programming wait for a timer; the held delays serve no event at all.
#pragma once

#include "panel/form1.h"
#include "platform/seams.h"

namespace zelvo::link {

inline double SpeedSetting = 10;   ///< stored speed, 10 times the scroll bar; the larger, the slower
inline double WaitCount = 10;      ///< speed in force
inline bool SpeedLoading = false;  ///< speed.ini is being applied
inline bool P9Flag = false;        ///< set by a tick of the 1 ms timer
inline bool P11Flag = false;       ///< set by a tick of the 6 ms timer

// One pass of the empty loops that the held delays stand for, in microseconds.
/// The supply settles for 30 ms: longer only stretches every operation.
inline constexpr double SettlePass = 0.010;
/// 9.25 ms behind one mid-range word at the speed of a new installation (7), above the 8 ms that the slowest
/// of those chips takes to erase and write a word (PIC16F84A, DS30262).
inline constexpr double PowerCyclePass = 0.025;
/// `Szün` is a short pause of 20 us.
inline constexpr double ShortPass = 0.010;

/// Pump passes of one edge: a hundredfold with "Szuper lassú", a tenth with "10x Speed"; a fraction adds no
/// pass.
[[nodiscard]] inline long long EdgePasses() {
  const double slow = panel::Form1.Check10.Value ? 100 : 1;
  const double scale = panel::Form1.Check7.Value ? 10 : 1;
  return static_cast<long long>(slow * (WaitCount / scale));
}

/// The wait of one clock edge.
inline void Vár_Ír() {
  platform::seams.pump->EdgeWait(EdgePasses());
}
/// `count` waits of an edge.
inline void Vár_Ír(int count) {
  for (int i = 0; i < count; ++i) Vár_Ír();
}

void SleepP9();          ///< pumps until the 1 ms timer has ticked
void SleepP11();         ///< pumps until the 6 ms timer has ticked
void SettleDelay();      ///< 2000 times 1500 passes: the target's supply settles
void PowerCycleDelay();  ///< (300 + `WaitCount`) times 1000 passes
void Szün();             ///< 2000 passes

}  // namespace zelvo::link
