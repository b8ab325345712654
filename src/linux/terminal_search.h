// Which terminal device stands for an address.
#pragma once

#include <string>
#include <vector>

#include "linux/register_port.h"

namespace zelvo::linuxio {

struct TerminalCandidate {
  std::string path;  ///< device; empty when there is none although something names it
  std::string note;  ///< how it was found, in words; or why there is none
};

/// Base address of COM port `number` (1..4); -1 for another number.
[[nodiscard]] int AddressOfCom(int number);

/// In the order of trying: the device whose UART has the address `block`, the device of the COM number that
/// has this address, the device behind the link COM1 to COM4 in the program's folder.
[[nodiscard]] std::vector<TerminalCandidate> FindTerminals(const PortContext& context, int block);

}  // namespace zelvo::linuxio
