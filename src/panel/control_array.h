// Arrays of controls, made in place: a control can be neither copied nor moved.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace zelvo::panel {

/// The configuration bytes in the order of their addresses, as the names of controls end.
inline constexpr std::array<std::string_view, 14> ConfigByteNames = {
    "1L", "1H", "2L", "2H", "3L", "3H", "4L", "4H", "5L", "5H", "6L", "6H", "7L", "7H"};

/// `Size` controls; `make` gives the one of an index from 0.
template <std::size_t Size, class Control, class Make>
std::array<Control, Size> MakeControls(const Make& make) {
  return [&make]<std::size_t... Index>(std::index_sequence<Index...>) {
    return std::array<Control, Size>{make(Index)...};
  }
  (std::make_index_sequence<Size>{});
}

}  // namespace zelvo::panel
