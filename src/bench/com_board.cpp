#include <algorithm>
#include <array>

#include "bench/board_socket.h"

namespace zelvo::bench {
namespace {

constexpr int kOpenBus = 0xFF;
// Registers behind the base address, and the bits that have a line.
constexpr int kLineControl = 3;
constexpr int kModemControl = 4;
constexpr int kModemStatus = 6;
constexpr int kRegisters = 8;
constexpr int kBreak = 64;  // TXD, Vpp
constexpr int kDtr = 1;     // PGD and supply
constexpr int kRts = 2;     // PGC
constexpr int kCts = 16;    // data in

// The supply is a capacitor on the data line: full after a millisecond of high level, and after that it
// carries the chip for a tenth of a second.
constexpr Nanoseconds kCarries = 100'000'000;
constexpr Nanoseconds kChargeRate = 100;

class ComBoard final : public SocketBoard {
 public:
  explicit ComBoard(const ComWiring& wiring) : SocketBoard(LinesOf(wiring, Registers{})), wiring_(wiring) {}

  void Write(int address, int value, Nanoseconds now) override {
    const int offset = address - wiring_.base;
    if (offset < 0 || offset >= kRegisters) return;
    Settle(now);
    registers_[static_cast<std::size_t>(offset)] = value & 0xFF;
    LineLevels levels = LinesOf(wiring_, registers_);
    levels.vdd = Levels().vdd;
    Apply(levels, now);
  }

  [[nodiscard]] int Read(int address, Nanoseconds now) override {
    const int offset = address - wiring_.base;
    if (offset < 0 || offset >= kRegisters) return kOpenBus;
    if (offset == kModemStatus) return DataIn(now) != wiring_.inputInverted ? kCts : 0;
    return registers_[static_cast<std::size_t>(offset)];
  }

 protected:
  void Settle(Nanoseconds now) override {
    const Nanoseconds elapsed = settled_ ? now - *settled_ : 0;
    settled_ = now;
    LineLevels levels = Levels();
    if (levels.pgd) {
      const Nanoseconds missing = (kCarries - charge_ + kChargeRate - 1) / kChargeRate;
      charge_ = elapsed >= missing ? kCarries : charge_ + elapsed * kChargeRate;
      if (charge_ < kCarries || levels.vdd) return;
      levels.vdd = true;
      Apply(levels, now - elapsed + missing);
    } else if (!levels.vpp) {
      const Nanoseconds left = charge_;
      charge_ = std::max<Nanoseconds>(left - elapsed, 0);
      if (charge_ > 0 || !levels.vdd) return;
      levels.vdd = false;
      Apply(levels, now - elapsed + left);
    }
  }

 private:
  using Registers = std::array<int, kRegisters>;

  [[nodiscard]] static LineLevels LinesOf(const ComWiring& wiring, const Registers& registers) {
    return {.vdd = false,
            .vpp = ((registers[kLineControl] & kBreak) != 0) != wiring.vppInverted,
            .pgc = ((registers[kModemControl] & kRts) != 0) != wiring.pgcInverted,
            .pgd = ((registers[kModemControl] & kDtr) != 0) != wiring.pgdInverted};
  }

  ComWiring wiring_;
  Registers registers_{};
  Nanoseconds charge_ = 0;  ///< how long the supply would still last
  std::optional<Nanoseconds> settled_;
};

}  // namespace

std::unique_ptr<Board> MakeComBoard(const ComWiring& wiring) {
  return std::make_unique<ComBoard>(wiring);
}

}  // namespace zelvo::bench
