#include "bench/board_socket.h"

namespace zelvo::bench {
namespace {

class NoBoard final : public SocketBoard {
 public:
  NoBoard() : SocketBoard({}) {}
  void Write(int, int, Nanoseconds) override {}
  [[nodiscard]] int Read(int, Nanoseconds) override { return 0xFF; }
};

}  // namespace

std::unique_ptr<Board> MakeNoBoard() {
  return std::make_unique<NoBoard>();
}

}  // namespace zelvo::bench
