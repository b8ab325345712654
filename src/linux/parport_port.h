// A parallel port through the kernel's parallel-port device /dev/parportN: no root needed.
#pragma once

#include <optional>

#include "linux/register_port.h"

namespace zelvo::linuxio {

struct ParportDevice {
  std::string path;  ///< "/dev/parport0"
  int base = 0;      ///< address of the data register
};

/// The parallel port whose registers lie in the eight addresses from `block` on.
[[nodiscard]] std::optional<ParportDevice> FindParport(const SystemCalls& system, int block);
/// Opens and claims it, within the time limit of the context.
[[nodiscard]] Opened OpenParport(const PortContext& context, const ParportDevice& device);

}  // namespace zelvo::linuxio
