// A whole job as an operator does it: board, chip in the socket, file, buttons, and a look at what the chip
// holds afterwards.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/bench_session.h"
#include "support/board_kind.h"
#include "support/hex_image.h"

namespace zelvo::test {

/// The board of a new installation, at its speed.
[[nodiscard]] const BoardKind& ShippedBoard();
/// The plain serial board.
[[nodiscard]] const BoardKind& SerialBoard();

constexpr const char* ShippedSpeed = "7,0";

class Job {
 public:
  explicit Job(const BoardKind& kind = ShippedBoard(), const std::string& speed = ShippedSpeed);

  void Do(std::initializer_list<std::string_view> commands) { session.Do(commands); }
  void Do(std::string_view command) { session.Do(command); }

  /// A blank chip goes into the socket and is chosen. Two chips cannot be chosen by their own name alone: one
  /// of the same size is chosen before them.
  void Begin(const std::string& chip);
  /// Fills the chip in the socket as if another programmer had done it.
  void Burn(const HexImage& image);
  void Load(const std::string& path);
  /// Makes a HEX file of an image and loads it.
  void Load(const HexImage& image);
  void Click(const std::string& button) { session.Do("click " + button); }

  /// Every location of the chip in the socket that is not erased.
  [[nodiscard]] HexImage Chip();
  /// The same within the program memory.
  [[nodiscard]] HexImage Code();
  /// The line that the review tells after a comparison.
  [[nodiscard]] std::string Review();
  /// What the chip found too short.
  [[nodiscard]] Lines Timing() { return session.Look("timing"); }
  [[nodiscard]] Lines Messages() { return session.Look("messages"); }
  /// The newest line of the event list, without number and time.
  [[nodiscard]] std::string LastEvent();

  BenchSession session;
};

constexpr const char* EqualText = "Egyforma a Buffer és a beolvasott tartalom!";
constexpr const char* DifferentText = " Nem egyforma Buffer és a beolvasott tartalom!";

/// Bytes of the chip's program memory.
[[nodiscard]] std::uint32_t CodeBytes(const std::string& chip);
[[nodiscard]] std::uint32_t EepromBytes(const std::string& chip);
/// All 72 chips.
[[nodiscard]] std::vector<std::string> AllChips();
/// The 32 that are erased by one code.
[[nodiscard]] bool HasOneKey(const std::string& chip);

/// `bytes` bytes from `first` on that depend on `seed`; none is FFh.
[[nodiscard]] HexImage Bytes(std::uint32_t first, std::uint32_t bytes, int seed);
/// `image` with `more` put over it.
[[nodiscard]] HexImage With(HexImage image, const HexImage& more);
/// What cells hold when `over` is programmed into them without an erase.
[[nodiscard]] HexImage ProgrammedOver(HexImage image, const HexImage& over);

}  // namespace zelvo::test
