#include "bench/midrange_chip.h"
#include "bench/pic18_chip.h"

namespace zelvo::bench {

std::unique_ptr<Chip> MakeChip(const std::string& name, std::optional<std::uint32_t> deviceId) {
  const auto idOf = [&deviceId](const auto& row) {
    return static_cast<std::uint16_t>(deviceId.value_or(row.deviceId));
  };
  if (const auto* row = FindPic18(name)) return std::make_unique<Pic18Chip>(*row, idOf(*row));
  if (const auto* row = FindMidRange(name)) return std::make_unique<MidChip>(*row, idOf(*row));
  return nullptr;
}

std::vector<std::string> ChipNames() {
  std::vector<std::string> names;
  for (const auto& row : Pic18Catalogue()) names.emplace_back(row.name);
  for (const auto& row : MidRangeCatalogue()) names.emplace_back(row.name);
  return names;
}

}  // namespace zelvo::bench
