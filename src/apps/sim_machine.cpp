#include "apps/sim_machine.h"

#include <utility>

#include "qt/monotonic.h"

namespace zelvo::desktop {

SimMachine::SimMachine(std::unique_ptr<bench::Board> board)
    : board_(std::move(board)), start_(MonotonicNow()) {}

bench::Nanoseconds SimMachine::Now() const {
  return MonotonicNow() - start_;
}

void SimMachine::Out32(int address, int value) {
  lastChange_ = Now();
  board_->Write(address, value, lastChange_);
}

int SimMachine::Inp32(int address) {
  return board_->Read(address, Now());
}

void SimMachine::Obey(const std::string& message) {
  start_ -= board_->Obey(message, Now());
  lastChange_ = Now();
}

void SimMachine::Insert(std::unique_ptr<bench::Chip> chip) {
  lastChange_ = Now();
  board_->Insert(std::move(chip), lastChange_);
}

void ObeyedDialogs::Message(const std::string& text) {
  shown_.Message(text);
  machine_.Obey(text);
}

}  // namespace zelvo::desktop
