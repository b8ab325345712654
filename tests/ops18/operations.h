// The operations under test with a started program around them, and images worked out here.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/bench_session.h"
#include "support/wire_model.h"

namespace zelvo::test {

/// Words of program memory by index; what lies behind the last one is erased.
using Words = std::vector<int>;

constexpr int ErasedWord = 0xFFFF;

/// A pattern in which no word is erased and no two neighbours are alike.
[[nodiscard]] inline Words Pattern(int count, int seed = 0) {
  Words words;
  for (int i = 0; i < count; ++i) words.push_back((i * 0x2F53 + seed * 0x1111 + 0x1234) & 0x7FFF);
  return words;
}

/// The program on a board, on the PIC18 page.
class Operations {
 public:
  explicit Operations(const BoardKind& kind = BoardKinds().front(), const std::string& speed = "1,0");

  /// Chooses a chip; its image is erased then.
  void Choose(const std::string& chip);
  /// Cuts the chosen chip down to `words` (a multiple of 32), so that a whole log stays readable.
  static void ShrinkTo(int words);
  static void FillMain(const Words& words);
  static void FillVerify(const Words& words);
  /// The wire log of a call, times of day taken out.
  Lines WireOf(const std::function<void()>& operation);
  /// A chip in the socket that holds `words` from address 0 on.
  void Socket(const std::string& chip, const Words& words);

  BenchSession session;
};

}  // namespace zelvo::test
