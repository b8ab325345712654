// Which way serves a block of addresses.
#pragma once

#include "linux/register_port.h"

namespace zelvo::linuxio {

/// Addresses that share a decision begin at multiples of eight, as all ports' registers do.
[[nodiscard]] constexpr int BlockOf(int address) {
  return address & ~(registerCount - 1);
}

/// Looks for the first way that serves the block and tells the outcome in one line. Never null: a block that
/// nothing serves gets a port that swallows writes and reads 0xFF.
[[nodiscard]] std::unique_ptr<RegisterPort> ChoosePort(const PortContext& context, int block);

}  // namespace zelvo::linuxio
