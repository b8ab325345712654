// The claim of a parallel-port device, with a time limit.
#pragma once

#include <string>

#include "linux/system_calls.h"

namespace zelvo::linuxio {

struct ParportClaim {
  int descriptor = -1;      ///< open and claimed, or -1
  int error = 0;            ///< errno of the step that failed; EBUSY for a port that another holds
  bool openFailed = false;  ///< the device itself could not be opened
};

/// Opens `path` and claims the port, exclusively where the kernel lets it. Gives up after about `limitMs`.
[[nodiscard]] ParportClaim ClaimParport(const SystemCalls& system, const std::string& path, int limitMs);

}  // namespace zelvo::linuxio
