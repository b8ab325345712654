#include "icsp/mid_range_engine.h"

#include <charconv>

#include "icsp/conversions.h"
#include "icsp/pic18_engine.h"
#include "link/delays.h"
#include "link/lines.h"

namespace zelvo::icsp {
namespace {

constexpr std::string_view Wait = "wait";

void RunStep(std::string_view step) {
  int count = 1;
  const size_t star = step.find('*');
  if (star != std::string_view::npos) {
    std::from_chars(step.data() + star + 1, step.data() + step.size(), count);
    step = step.substr(0, star);
  }
  for (int i = 0; i < count; ++i) {
    if (step == Wait) {
      link::PowerCycleDelay();
    } else {
      ClockOutBits(step);
    }
  }
}

void ClockAway(int count) {
  for (int i = 0; i < count; ++i) static_cast<void>(ClockInRaw());
}

}  // namespace

void RunSteps(std::string_view steps) {
  while (!steps.empty()) {
    const size_t end = steps.find(' ');
    RunStep(steps.substr(0, end));
    steps = end == std::string_view::npos ? std::string_view{} : steps.substr(end + 1);
  }
}

void ToConfigurationMemory() {
  ClockOutBits(mid::LoadConfiguration);
  ClockOutBits(mid::BlankFrame);
}

void IncrementAddress(int count) {
  for (int i = 0; i < count; ++i) ClockOutBits(mid::Increment);
}

int ReadFrame(std::string_view command, const FrameLayout& layout) {
  ClockOutBits(command);
  ClockOutBits("0");
  if (!ReleaseData()) return 0;
  ClockAway(layout.dropped);
  int value = 0;
  for (int bit = 0; bit < layout.kept; ++bit) {
    if (ClockInRaw() == 0) value |= 1 << bit;
  }
  ClockAway(layout.trailing);
  ClockOutBits("0");
  return link::InputLineInverted() ? value : value ^ ((1 << layout.kept) - 1);
}

void LoadFrame(std::string_view command, std::string_view bits) {
  ClockOutBits(command);
  ClockOutBits("0");
  ClockOutBits(bits);
  ClockOutBits("0");
}

std::string WordToBits(int word) {
  std::string bits;
  for (const char digit : HexPadded(static_cast<std::uint16_t>(word), 4)) bits += HexDigitToNibble(digit);
  return bits.substr(2);
}

}  // namespace zelvo::icsp
