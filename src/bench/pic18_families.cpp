#include <algorithm>

#include "bench/pic18_facts.h"

namespace zelvo::bench {
namespace {

constexpr std::int64_t kUs = 1'000;
constexpr std::int64_t kMs = 1'000'000;

// The AC tables of the programming specifications at Vdd 5 V. A configuration byte of the one-key families
// wants a longer hold than a code cell; docs/silicon.md tells which of these figures are uncertain.
constexpr Pic18Times kOneKeyTimes{.clockLow = 40,
                                  .clockHigh = 40,
                                  .program = 1 * kMs,
                                  .programConfig = 5 * kMs,
                                  .discharge = 5 * kUs,
                                  .erase = 5 * kMs,
                                  .eeprom = 4 * kMs,
                                  .entry = 2 * kUs};
constexpr Pic18Times kTwoKeyTimes{.clockLow = 40,
                                  .clockHigh = 40,
                                  .program = 1 * kMs,
                                  .programConfig = 1 * kMs,
                                  .discharge = 100 * kUs,
                                  .erase = 5 * kMs,
                                  .eeprom = 4 * kMs,
                                  .entry = 2 * kUs};

// Family, document, one key, command 1110 programs, times.
constexpr Pic18FamilyFacts kFamilies[] = {
    {Pic18Family::Fxx2Fxx8, "DS39576", true, false, kOneKeyTimes},
    {Pic18Family::Fxx20, "DS39583", true, false, kOneKeyTimes},
    {Pic18Family::Fx220, "DS39592", true, false, kOneKeyTimes},
    {Pic18Family::Fx331, "DS30500", true, false, kOneKeyTimes},
    {Pic18Family::Fx525Fx680, "DS30499", true, false, kOneKeyTimes},
    {Pic18Family::F2221F4680, "DS39622", false, true, kTwoKeyTimes},
    {Pic18Family::F8722, "DS39643", false, true, kTwoKeyTimes},
};

}  // namespace

const Pic18FamilyFacts& FactsOf(Pic18Family family) {
  return *std::find_if(std::begin(kFamilies), std::end(kFamilies),
                       [family](const Pic18FamilyFacts& facts) { return facts.family == family; });
}

}  // namespace zelvo::bench
