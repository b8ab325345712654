// What the configuration bits of the mid-range chips are called.
#pragma once

#include <string_view>

namespace zelvo::ui {

/// Fourteen names parted by blanks for each word; word 2 is empty for chips that have none.
struct MidConfigNames {
  std::string_view chips;
  std::string_view word1;
  std::string_view word2;
};

/// Nullptr for a name in no group.
[[nodiscard]] const MidConfigNames* FindMidConfigNames(std::string_view chip);

}  // namespace zelvo::ui
