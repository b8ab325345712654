// "Próbapad", the bench window of zelvo-sim: a socket to put chips into, the five lines, and what the chip
// holds.
#pragma once

#include <QTimer>
#include <QWidget>
#include <array>

#include "apps/sim_machine.h"

class QComboBox;
class QLabel;
class QVBoxLayout;

namespace zelvo::desktop {

class ChipContents;
class Lamp;
class MainWindow;

class Probapad : public QWidget {
 public:
  explicit Probapad(SimMachine& machine);
  /// Puts a blank chip into the socket. False for a name that no chip has.
  [[nodiscard]] bool Insert(const QString& chip);
  void Empty();
  /// Shows the bench beside the program's window, which makes room for it as far as it can.
  void ShowBeside(MainWindow& main);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void LayOutSocket(QVBoxLayout& layout);
  void LayOutLines(QVBoxLayout& layout);
  void LayOutContents(QVBoxLayout& layout);
  void Refresh();
  void RefreshLines();
  void RefreshContents();

  SimMachine& machine_;
  QComboBox* chips_ = nullptr;
  QLabel* inside_ = nullptr;
  std::array<Lamp*, 5> lamps_{};
  ChipContents* contents_ = nullptr;
  QLabel* amount_ = nullptr;
  QTimer refresh_;
  bench::Nanoseconds looked_ = -1;    ///< when the contents were read last
  bench::Nanoseconds lookAgain_ = 0;  ///< the earliest time to read them anew
};

}  // namespace zelvo::desktop
