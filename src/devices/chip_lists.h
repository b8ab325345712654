// Lists of chips as the operations' tables write them.
#pragma once

#include <string_view>

namespace zelvo::devices {

/// True when `list`, the chips' names without `prefix` parted by single blanks, holds the chip `name`.
[[nodiscard]] constexpr bool ListHolds(std::string_view list, std::string_view name,
                                       std::string_view prefix) {
  if (!name.starts_with(prefix)) return false;
  const std::string_view number = name.substr(prefix.size());
  while (!list.empty()) {
    const size_t end = list.find(' ');
    if (list.substr(0, end) == number) return true;
    list = end == std::string_view::npos ? std::string_view{} : list.substr(end + 1);
  }
  return false;
}

/// PIC18 chips: the list "242 252" holds "PIC18F242".
[[nodiscard]] constexpr bool ListHolds(std::string_view list, std::string_view name) {
  return ListHolds(list, name, "PIC18F");
}

/// Mid-range chips: the list "16F84A 12HV609" holds "PIC16F84A".
[[nodiscard]] constexpr bool MidListHolds(std::string_view list, std::string_view name) {
  return ListHolds(list, name, "PIC");
}

}  // namespace zelvo::devices
