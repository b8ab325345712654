// I/O instructions, for ports that no device of the kernel serves.
#pragma once

#include "linux/register_port.h"

namespace zelvo::linuxio {

/// Asks for the eight addresses from `block` on.
[[nodiscard]] Opened OpenRaw(const PortContext& context, int block);

}  // namespace zelvo::linuxio
