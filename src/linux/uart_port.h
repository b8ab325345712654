// A serial port through its terminal device, presented as the registers of a UART: no root needed, and USB
// adapters work too.
#pragma once

#include "linux/register_port.h"

namespace zelvo::linuxio {

/// Opens the terminal device `path` exclusively and lowers its lines. `base` is the address that it stands
/// for.
[[nodiscard]] Opened OpenTerminal(const PortContext& context, const std::string& path, int base);

}  // namespace zelvo::linuxio
