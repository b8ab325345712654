// A board in words: "lpt base=378 inverted=clock,data", as scripts and options tell it.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/board.h"

namespace zelvo::bench {

/// What a key does with its value; false for a value that it does not take.
using Setter = std::function<bool(std::string_view value)>;
using Keys = std::map<std::string_view, Setter>;

/// Hands each word behind the first, KEY=VALUE, to its setter. The reason of the first refusal.
[[nodiscard]] std::optional<std::string> ApplyKeys(const std::vector<std::string_view>& words,
                                                   const Keys& keys);

/// A board, or why there is none.
struct DescribedBoard {
  std::unique_ptr<Board> board;
  std::optional<std::string> refusal;
};
/// The board that `words` describe: the kind "lpt", "com" or "none", then its keys. The word "manual" makes a
/// printer-port board with switches for Vdd and Vpp.
[[nodiscard]] DescribedBoard DescribeBoard(const std::vector<std::string_view>& words);

}  // namespace zelvo::bench
