// The desktop: all windows of the panel on a screen, kept up to date at display rate, and the seams that the
// program needs from the window system.
#pragma once

#include <QTimer>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>

#include "panel/window.h"
#include "qt/dialogs.h"
#include "qt/pump.h"

class QApplication;

namespace zelvo::desktop {

class MainWindow;
class SecondaryWindow;

class Desktop : public panel::Witness {
 public:
  /// Installs the pump, the timers, the delays, the dialogs and the clock in `platform::seams`. Needs a
  /// QApplication; one desktop at a time.
  Desktop();
  ~Desktop() override;
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  /// Brings the windows up with `startUp` and serves the operator until `MDIForm1` is closed and what ran
  /// then has unwound. Gives the exit status of the program.
  int Run(const std::function<void()>& startUp);

  /// Brings every window up to date with the panel. Costs nothing when nothing has changed.
  void Refresh();

  [[nodiscard]] MainWindow& Main() { return *main_; }

  void WindowLoaded(panel::Window& window) override;
  void WindowUnloaded(panel::Window& window) override;
  void WindowCalled(panel::Window& window) override;

 private:
  [[nodiscard]] QWidget* DialogOwner() const;

  Pump pump_;
  Dialogs dialogs_;
  WallClock clock_;
  std::unique_ptr<MainWindow> main_;
  std::map<panel::Window*, SecondaryWindow*> secondary_;  ///< children of the main window
  QTimer refresh_;
  std::uint64_t drawn_ = 0;
  bool windowsChanged_ = true;
};

/// Makes the application's own manners: names, theme, Hungarian texts of the toolkit's own dialogs.
void PrepareApplication(QApplication& application);

}  // namespace zelvo::desktop
