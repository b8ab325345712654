// The simulated machine in real time: a board on its port, a chip that sees the time that passes, and an
// operator who does at the board what message boxes ask for.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "bench/board.h"
#include "platform/seams.h"

namespace zelvo::desktop {

class SimMachine : public platform::Ports {
 public:
  explicit SimMachine(std::unique_ptr<bench::Board> board);

  void Out32(int address, int value) override;
  [[nodiscard]] int Inp32(int address) override;

  /// The operator does what a message asks for at the board; the machine's clock goes on by the time that it
  /// takes.
  void Obey(const std::string& message);

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

/// The window's dialogs, with an operator in front of them who works at the board before he clicks Ok.
class ObeyedDialogs final : public platform::Dialogs {
 public:
  ObeyedDialogs(platform::Dialogs& shown, SimMachine& machine) : shown_(shown), machine_(machine) {}

  void Message(const std::string& text) override;
  [[nodiscard]] bool AskYesNo(const std::string& text) override { return shown_.AskYesNo(text); }
  [[nodiscard]] std::optional<std::string> OpenFile(const platform::FileFilter& filter) override {
    return shown_.OpenFile(filter);
  }
  [[nodiscard]] std::optional<std::string> SaveFile(const platform::FileFilter& filter) override {
    return shown_.SaveFile(filter);
  }
  void OpenInformationPage(const std::string& path) override { shown_.OpenInformationPage(path); }

 private:
  platform::Dialogs& shown_;
  SimMachine& machine_;
};

}  // namespace zelvo::desktop
