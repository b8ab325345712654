// Lists of PIC18 chips as the operations' tables write them.
#pragma once

#include <string_view>

namespace zelvo::devices {

/// True when `list`, the chips' numbers parted by single blanks ("242 252"), holds the chip `name`
/// ("PIC18F242").
[[nodiscard]] constexpr bool ListHolds(std::string_view list, std::string_view name) {
  constexpr std::string_view Family = "PIC18F";
  if (!name.starts_with(Family)) return false;
  const std::string_view number = name.substr(Family.size());
  while (!list.empty()) {
    const size_t end = list.find(' ');
    if (list.substr(0, end) == number) return true;
    list = end == std::string_view::npos ? std::string_view{} : list.substr(end + 1);
  }
  return false;
}

}  // namespace zelvo::devices
