#include "linux/idle_levels.h"

namespace zelvo::linuxio {

IdleBytes::IdleBytes() {
  for (std::atomic<int>& byte : bytes_) byte.store(-1);
}

void IdleBytes::Refresh(const IdleLevels& levels, int base, const std::array<int, registerCount>& written) {
  for (const IdleRegister& line : levels) {
    const int offset = line.address - base;
    if (line.address < 0 || offset < 0 || offset >= registerCount) continue;
    const auto index = static_cast<std::size_t>(offset);
    bytes_[index].store((written[index] & ~line.mask) | line.value, std::memory_order_relaxed);
  }
}

int IdleBytes::At(int offset) const noexcept {
  return bytes_[static_cast<std::size_t>(offset)].load(std::memory_order_relaxed);
}

}  // namespace zelvo::linuxio
