#include "bench/chip_timing.h"

namespace zelvo::bench {
namespace {

// By WaitKind: the parameter's number in the programming specifications, and what it was waited for where one
// number serves several.
constexpr std::array<const char*, static_cast<std::size_t>(WaitKind::Count)> kNames{
    "P2A",    "P2B",   "P12",   "P9",    "P9 config", "P9 row", "P10",  "P11",      "P11 row",
    "EEPROM", "Thld0", "Tdly2", "Tprog", "Tprog2",    "Tdprog", "Tera", "Tera row", "Tdis"};

}  // namespace

void WaitLog::Add(WaitKind kind, Nanoseconds waited, Nanoseconds minimum) {
  auto& entry = entries_[static_cast<std::size_t>(kind)];
  if (entry.count == 0 || waited < entry.shortest) entry.shortest = waited;
  entry.minimum = minimum;
  ++entry.count;
}

std::vector<TimingFault> WaitLog::Faults() const {
  std::vector<TimingFault> faults;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const auto& entry = entries_[i];
    if (entry.count != 0) faults.push_back({kNames[i], entry.shortest, entry.minimum, entry.count});
  }
  return faults;
}

}  // namespace zelvo::bench
