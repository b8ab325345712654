// The frame window `MDIForm1` with `Form1` as its content.
#pragma once

#include <QMainWindow>

#include "qt/binder.h"

class QStackedWidget;

namespace zelvo::desktop {

class MainWindow : public QMainWindow {
 public:
  MainWindow();
  /// Draws what has changed on the panel.
  void Refresh();
  /// The width at which no page has to scroll.
  [[nodiscard]] int LeastPageWidth() const;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* MakePage(panel::Frame& frame, void (*build)(Binder&, QWidget&));

  Binder binder_;
  QStackedWidget* pages_;
};

}  // namespace zelvo::desktop
