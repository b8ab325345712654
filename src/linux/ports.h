// The ports of a PC: numbered I/O addresses and the claim of the serial device, on today's Linux.
#pragma once

#include <memory>

#include "linux/register_port.h"
#include "platform/seams.h"

namespace zelvo::linuxio {

/// Remembers for the life of the process which way serves each address.
class PortTable;

/// One table serves both seams. The first access to an address, or a claim, decides; closing the last holder
/// brings the lines to rest and gives the devices back.
[[nodiscard]] std::shared_ptr<PortTable> MakePortTable(PortContext context);

[[nodiscard]] std::unique_ptr<platform::Ports> MakePorts(std::shared_ptr<PortTable> table);
[[nodiscard]] std::unique_ptr<platform::SerialClaim> MakeSerialClaim(std::shared_ptr<PortTable> table);

}  // namespace zelvo::linuxio
