#include "bench/board_socket.h"

namespace zelvo::bench {
namespace {

constexpr int kOpenBus = 0xFF;
constexpr int kAck = 64;
constexpr int kBusy = 128;

class LptBoard final : public SocketBoard {
 public:
  explicit LptBoard(const LptWiring& wiring) : SocketBoard(LevelsOf(wiring, 0)), wiring_(wiring) {}

  void Write(int address, int value, Nanoseconds now) override {
    if (address != wiring_.base) return;
    data_ = value & 0xFF;
    Apply(LevelsOf(wiring_, data_), now);
  }

  [[nodiscard]] int Read(int address, Nanoseconds now) override {
    if (address == wiring_.base) return data_;
    if (address != wiring_.base + 1) return kOpenBus;
    const bool level = DataIn(now) != wiring_.inputInverted;
    // The port hardware inverts BUSY: a high line reads 0.
    if (wiring_.inputBusy) return level ? 0 : kBusy;
    return level ? kAck : 0;
  }

 private:
  [[nodiscard]] static LineLevels LevelsOf(const LptWiring& wiring, int data) {
    const auto level = [data](int bit, bool inverted) { return ((data & bit) != 0) != inverted; };
    return {.vdd = level(wiring.vdd, wiring.vddInverted),
            .vpp = level(wiring.vpp, wiring.vppInverted),
            .pgc = level(wiring.clock, wiring.clockInverted),
            .pgd = level(wiring.data, wiring.dataInverted)};
  }

  LptWiring wiring_;
  int data_ = 0;
};

}  // namespace

std::unique_ptr<Board> MakeLptBoard(const LptWiring& wiring) {
  return std::make_unique<LptBoard>(wiring);
}

}  // namespace zelvo::bench
