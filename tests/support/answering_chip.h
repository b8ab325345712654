// A chip that answers what a test has queued, one bit for each look at the data-in line: for reads of chips
// of which nothing more is wanted.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bench/board.h"
#include "support/bench_session.h"

namespace zelvo::test {

class AnsweringChip final : public bench::Chip {
 public:
  /// The next `count` bits, bit 0 of `value` first.
  void Bits(int value, int count) {
    for (int bit = 0; bit < count; ++bit) bits_.push_back((value >> bit & 1) != 0);
  }
  /// A frame of fourteen bits.
  void Word(int value) { Bits(value, 14); }
  [[nodiscard]] std::size_t Left() const { return bits_.size(); }

  [[nodiscard]] const std::string& Name() const override { return name_; }
  void Drive(const bench::LineLevels&, bench::Nanoseconds) override {}
  [[nodiscard]] std::optional<bool> DataOut(bench::Nanoseconds) override {
    if (bits_.empty()) return true;  // the line floats high
    const bool bit = bits_.front();
    bits_.pop_front();
    return bit;
  }
  [[nodiscard]] bool Burn(std::uint32_t, std::uint8_t) override { return false; }
  [[nodiscard]] std::map<std::uint32_t, std::uint8_t> Image() const override { return {}; }
  [[nodiscard]] std::vector<bench::TimingFault> Timing() const override { return {}; }

 private:
  std::string name_ = "answers";
  std::deque<bool> bits_;
};

/// Puts such a chip into the socket, where it stays for the rest of the session.
inline AnsweringChip& PutAnsweringChip(BenchSession& session) {
  auto chip = std::make_unique<AnsweringChip>();
  AnsweringChip& it = *chip;
  session.TheBench().machine.PutChip(std::move(chip));
  return it;
}

}  // namespace zelvo::test
