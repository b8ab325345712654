// What window tests stand on: the desktop with the main window on the screen, and the whole program on a
// simulated board.
#pragma once

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QString>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "apps/sim_machine.h"
#include "bench/desk.h"
#include "panel/form1.h"
#include "panel/operator.h"
#include "panel/secondary_windows.h"
#include "qt/desktop.h"
#include "qt/main_window.h"

namespace zelvo::test {

/// The desktop over a panel without behaviour: what the operator does arrives at hooks that a test fills.
class DeskTest : public testing::Test {
 protected:
  /// Loads the main window and waits until it can be seen.
  void Open();
  /// Brings the windows up to date and lets the screen follow.
  void Settle();

  /// A control's widget in the main window.
  template <class Widget>
  Widget* Find(const std::string& name) {
    return FindIn<Widget>(desk.Main().findChild<QWidget*>(QStringLiteral("Form1")), name);
  }
  template <class Widget>
  static Widget* FindIn(QWidget* window, const std::string& name) {
    auto* found = window == nullptr ? nullptr : window->findChild<Widget*>(QString::fromStdString(name));
    if (found == nullptr) ADD_FAILURE() << "no widget for " << name;
    return found;
  }
  /// A secondary window by its name; nullptr before it was shown for the first time.
  QWidget* SecondaryWindow(const std::string& name);

  /// Keeps a picture of the widget beside the test's build.
  static void Keep(QWidget& widget, const std::string& name);

  desktop::Desktop desk;
};

/// The whole program in its window, on a simulated board with a PIC18F452 in its socket.
class SessionTest : public DeskTest {
 protected:
  explicit SessionTest(const std::string& chip = "PIC18F452");
  /// Starts the program with the shipped settings and turns to the page of the PIC18 chips.
  void Start();
  /// Sets the speed bar by the operator's hand.
  static void SetSpeed(int value, bool tenfold);
  /// Chooses a chip in its list with the mouse.
  void Choose(const std::string& chip);
  /// Presses a button of the main window with the mouse.
  void Click(const std::string& button);
  /// Loads a HEX file through the file dialog.
  void LoadFile(const std::string& path);
  /// The texts of the log, the newest first, without counter and time.
  static std::vector<std::string> Log();

  desktop::SimMachine machine;
  bench::BenchSerial serial;
  std::string folder;
};

/// A file that fills Flash, EEPROM, ID locations and configuration of a PIC18F452.
inline constexpr auto BlinkerFile = ZELVO_SOURCE_DIR "/examples/blinker.hex";

/// Presses `button` of the message box that comes up next and gives its text to `text`.
void AnswerNextBox(const QString& button, std::string* text = nullptr);
/// The part of the screen that a widget covers.
QRect OnScreen(const QWidget& widget);
/// A click and a double click as the window system delivers them, on a place of a widget.
void NativeClick(QWidget& widget, const QPoint& at);
void NativeDoubleClick(QWidget& widget, const QPoint& at);
/// A press of a key as it comes again and again while the key is held.
void HoldKey(QWidget& widget, Qt::Key key);
/// Runs `act` as soon as a modal window stands; gives it the window.
void WhenModal(std::function<void(QWidget&)> act);

}  // namespace zelvo::test
