// The simulated machine in real time: a board on its port, and a chip that sees the time that passes.
#pragma once

#include <memory>

#include "bench/board.h"
#include "platform/seams.h"

namespace zelvo::desktop {

class SimMachine : public platform::Ports {
 public:
  explicit SimMachine(std::unique_ptr<bench::Board> board);

  void Out32(int address, int value) override;
  [[nodiscard]] int Inp32(int address) override;

  /// Puts a chip into the socket, in place of the one that is there; nullptr empties it.
  void Insert(std::unique_ptr<bench::Chip> chip);
  /// nullptr for an empty socket.
  [[nodiscard]] const bench::Chip* Socket() const { return board_->Socket(); }

  [[nodiscard]] bench::LineLevels Levels() const { return board_->Levels(); }
  [[nodiscard]] bool DataIn() { return board_->DataIn(Now()); }

  /// Time since the machine was switched on.
  [[nodiscard]] bench::Nanoseconds Now() const;
  /// Time of the last write to the port or change of the chip.
  [[nodiscard]] bench::Nanoseconds LastChange() const { return lastChange_; }

 private:
  std::unique_ptr<bench::Board> board_;
  bench::Nanoseconds start_;
  bench::Nanoseconds lastChange_ = 0;
};

}  // namespace zelvo::desktop
