// What every simulated board has: the lines at its socket and the chip in it.
#pragma once

#include "bench/board.h"

namespace zelvo::bench {

class SocketBoard : public Board {
 public:
  [[nodiscard]] LineLevels Levels() const override { return levels_; }
  [[nodiscard]] bool DataIn(Nanoseconds now) override;
  void Insert(std::unique_ptr<Chip> chip, Nanoseconds now) override;
  [[nodiscard]] Chip* Socket() override { return chip_.get(); }
  [[nodiscard]] std::unique_ptr<Chip> Remove(Nanoseconds now) override;

 protected:
  explicit SocketBoard(const LineLevels& levels) : levels_(levels) {}
  /// Puts the lines on new levels; the chip hears of changes only.
  void Apply(const LineLevels& levels, Nanoseconds now);
  /// Lets pass what happened on the board itself since it was looked at last.
  virtual void Settle(Nanoseconds) {}

 private:
  LineLevels levels_;
  std::unique_ptr<Chip> chip_;
};

}  // namespace zelvo::bench
