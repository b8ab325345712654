#include "bench/pic18_chip.h"

namespace zelvo::bench {

std::unique_ptr<Chip> MakeChip(const std::string& name, std::optional<std::uint32_t> deviceId) {
  const auto* row = FindPic18(name);
  if (row == nullptr) return nullptr;
  return std::make_unique<Pic18Chip>(*row, static_cast<std::uint16_t>(deviceId.value_or(row->deviceId)));
}

std::vector<std::string> ChipNames() {
  std::vector<std::string> names;
  for (const auto& row : Pic18Catalogue()) names.emplace_back(row.name);
  return names;
}

}  // namespace zelvo::bench
