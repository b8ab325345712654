#include "bench/board_socket.h"

namespace zelvo::bench {
namespace {

constexpr int kOpenBus = 0xFF;
constexpr int kAck = 64;
constexpr int kBusy = 128;

constexpr Nanoseconds kHand = 200'000'000;  // for one switch

/// What a message asks the operator to do with the switches.
enum class Request { None, On, Off, OffAndOn };

Request RequestOf(std::string_view message) {
  struct Words {
    std::string_view words;
    Request request;
  };
  // "Ki-Be" begins like "Ki".
  static constexpr Words kRequests[] = {
      {"Kapcsold Ki-Be ", Request::OffAndOn}, {"Kapcsold Be ", Request::On}, {"Kapcsold Ki ", Request::Off}};
  for (const auto& [words, request] : kRequests) {
    if (message.find(words) != std::string_view::npos) return request;
  }
  return Request::None;
}

class LptBoard final : public SocketBoard {
 public:
  explicit LptBoard(const LptWiring& wiring) : SocketBoard(AtRest(wiring)), wiring_(wiring) {}

  void Write(int address, int value, Nanoseconds now) override {
    if (address != wiring_.base) return;
    data_ = value & 0xFF;
    LineLevels levels = LevelsOf(wiring_, data_);
    if (wiring_.manual) {
      levels.vdd = Levels().vdd;
      levels.vpp = Levels().vpp;
    }
    Apply(levels, now);
  }

  [[nodiscard]] int Read(int address, Nanoseconds now) override {
    if (address == wiring_.base) return data_;
    if (address != wiring_.base + 1) return kOpenBus;
    const bool level = DataIn(now) != wiring_.inputInverted;
    // The port hardware inverts BUSY: a high line reads 0.
    if (wiring_.inputBusy) return level ? 0 : kBusy;
    return level ? kAck : 0;
  }

  [[nodiscard]] Nanoseconds Obey(std::string_view message, Nanoseconds now) override {
    const Request request = wiring_.manual ? RequestOf(message) : Request::None;
    if (request == Request::None) return 0;
    const auto names = [message](std::string_view line) { return message.find(line) != message.npos; };
    const bool vdd = names("Vdd");
    const bool vpp = names("Vpp");
    Nanoseconds time = now;
    const auto turn = [this, &time](bool LineLevels::*line, bool level) {
      time += kHand;
      LineLevels levels = Levels();
      levels.*line = level;
      Apply(levels, time);
    };
    // The supply comes first and goes last.
    if (request != Request::On) {
      if (vpp) turn(&LineLevels::vpp, false);
      if (vdd) turn(&LineLevels::vdd, false);
    }
    if (request != Request::Off) {
      if (vdd) turn(&LineLevels::vdd, true);
      if (vpp) turn(&LineLevels::vpp, true);
    }
    return time - now + kHand;  // and Ok
  }

 private:
  [[nodiscard]] static LineLevels LevelsOf(const LptWiring& wiring, int data) {
    const auto level = [data](int bit, bool inverted) { return ((data & bit) != 0) != inverted; };
    return {.vdd = level(wiring.vdd, wiring.vddInverted),
            .vpp = level(wiring.vpp, wiring.vppInverted),
            .pgc = level(wiring.clock, wiring.clockInverted),
            .pgd = level(wiring.data, wiring.dataInverted)};
  }
  [[nodiscard]] static LineLevels AtRest(const LptWiring& wiring) {
    LineLevels levels = LevelsOf(wiring, 0);
    if (wiring.manual) levels.vdd = levels.vpp = false;
    return levels;
  }

  LptWiring wiring_;
  int data_ = 0;
};

}  // namespace

std::unique_ptr<Board> MakeLptBoard(const LptWiring& wiring) {
  return std::make_unique<LptBoard>(wiring);
}

}  // namespace zelvo::bench
