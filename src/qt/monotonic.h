// The monotonic clock that everything with a length in time is measured against.
#pragma once

#include <time.h>

#include <cstdint>

namespace zelvo::desktop {

/// Nanoseconds of CLOCK_MONOTONIC.
inline std::int64_t MonotonicNow() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return now.tv_sec * 1'000'000'000LL + now.tv_nsec;
}

}  // namespace zelvo::desktop
