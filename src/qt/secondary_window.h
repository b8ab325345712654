// The windows beside the main window: one for each window of the panel, made when it is loaded first and
// shown while it is loaded.
#pragma once

#include <QWidget>

#include "qt/binder.h"

class QBoxLayout;

namespace zelvo::desktop {

class SecondaryWindow : public QWidget {
 public:
  /// `owner` is the window above which this one stays.
  SecondaryWindow(panel::Window& window, QWidget& owner);
  /// Shows, hides and draws it as the panel has it.
  void Refresh();
  /// The panel's window was loaded anew.
  void Reappear() { placed_ = false; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Place();

  panel::Window& window_;
  QWidget& owner_;
  Binder binder_;
  bool placed_ = false;
};

/// Fills a secondary window with the views of the panel's controls. Windows without a layout of their own get
/// one after the kinds of their controls.
void LayOutWindow(panel::Window& window, Binder& binder, QWidget& view);

}  // namespace zelvo::desktop
