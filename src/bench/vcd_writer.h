// The five lines at the socket as a value change dump (IEEE 1364), for any waveform viewer.
#pragma once

#include <array>
#include <memory>
#include <optional>

#include "bench/board.h"
#include "bench/buffered_file.h"

namespace zelvo::bench {

class VcdWriter {
 public:
  /// Writes the header and the levels that stand. Times are bench time with 1 ns to the unit.
  VcdWriter(std::unique_ptr<BufferedFile> file, Board& board, Nanoseconds now);
  VcdWriter(const VcdWriter&) = delete;
  VcdWriter& operator=(const VcdWriter&) = delete;

  /// Writes the lines that have changed since the last sample.
  void Sample(Board& board, Nanoseconds now);
  /// Writes the time of the end, so that a viewer shows the last levels for as long as they stood.
  void End(Nanoseconds now);

  void Flush() { file_->Flush(); }
  [[nodiscard]] bool Whole() const { return file_->Whole(); }

 private:
  using Levels = std::array<bool, 5>;
  [[nodiscard]] static Levels Look(Board& board, Nanoseconds now);
  void Time(Nanoseconds now);
  void Change(std::size_t line, bool level);

  std::unique_ptr<BufferedFile> file_;
  Levels last_;
  std::optional<Nanoseconds> lastTime_;
};

}  // namespace zelvo::bench
