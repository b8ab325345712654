#include "bench/board_socket.h"

namespace zelvo::bench {

bool SocketBoard::DataIn(Nanoseconds now) {
  Settle(now);
  if (!chip_) return true;  // the line floats high
  return chip_->DataOut(now).value_or(levels_.pgd);
}

void SocketBoard::Insert(std::unique_ptr<Chip> chip, Nanoseconds now) {
  Settle(now);
  chip_ = std::move(chip);
  if (chip_) chip_->Drive(levels_, now);
}

std::unique_ptr<Chip> SocketBoard::Remove(Nanoseconds now) {
  Settle(now);
  if (chip_) chip_->Drive({}, now);
  return std::move(chip_);
}

void SocketBoard::Apply(const LineLevels& levels, Nanoseconds now) {
  if (levels == levels_) return;
  levels_ = levels;
  if (chip_) chip_->Drive(levels_, now);
}

}  // namespace zelvo::bench
