// The windows beside the main window: one for each window of the panel, made when it is loaded first and
// shown while it is loaded.
#pragma once

#include <QWidget>
#include <vector>

#include "qt/binder.h"

namespace zelvo::desktop {

class SecondaryWindow : public QWidget {
 public:
  /// `owner` is the window above which this one stays.
  SecondaryWindow(panel::Window& window, QWidget& owner);
  /// Shows, hides and draws it as the panel has it.
  void Refresh();
  /// The panel's window was loaded anew.
  void Reappear() { placed_ = false; }
  /// In front of the others and ready for the keyboard, where it stands.
  void ComeForward();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void Place();
  /// Gives the focus to the control that a keyboard user begins with.
  void FocusFirst();
  /// Where the window would like to stand; `alone` among the reviews, one takes the middle.
  [[nodiscard]] QRect WishedPlace(const QSize& frame, const QRect& room, bool alone) const;
  /// The places of the other reviews that can be seen.
  [[nodiscard]] std::vector<QRect> OtherReviews(const QSize& borders) const;

  panel::Window& window_;
  QWidget& owner_;
  Binder binder_;
  bool placed_ = false;
};

}  // namespace zelvo::desktop
