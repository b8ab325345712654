// Standard widgets with the small manners that the panel's controls need.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <functional>

#include "panel/control.h"

namespace zelvo::desktop {

/// An edit box that tells of Enter, Escape and of being left for another control. A message box in front of
/// it and a change to another program are not leaving. An Escape after which it still stands is its window's.
/// Over a cell, where it opens with the old value, its text is marked with the caret at the end, so that the
/// new value replaces it.
class EditField : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;
  std::function<void(panel::Key)> KeyPressed;
  std::function<void()> Left;
  unsigned seenFocusRequests = 0;

  /// A press beside it, on something that takes no focus.
  void PressedBeside();
  /// Takes the focus, at once or as soon as the box is shown.
  void TakeFocus();
  /// The grid that the box lies on: it gets the focus when the box goes.
  void SetWayBack(QWidget& grid) { wayBack_ = &grid; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  QPointer<QWidget> wayBack_;
  bool wantsFocus_ = false;
};

/// One of a group of radio buttons: the group is one stop of the Tab key, and the arrow keys choose in it.
/// One without a caption, in a matrix, shows the focus by a ring.
class OptionView : public QRadioButton {
 public:
  explicit OptionView(QWidget* parent = nullptr);
  /// The operator goes to the next one of the group, or with -1 to the one before.
  std::function<void(int step)> Stepped;
  void SetTabStop(bool stop) { setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

/// A button that a held key presses once: with a run behind each press, repeats would stack up inside each
/// other.
class SteadyButton : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

/// A drop-down list that the mouse wheel passes over: it scrolls the page, it does not choose.
class QuietCombo : public QComboBox {
 public:
  explicit QuietCombo(QWidget* parent = nullptr);

 protected:
  void wheelEvent(QWheelEvent* event) override;
};

/// A scroll bar drawn as a slider, deaf to the wheel unless it has the focus.
class QuietSlider : public QSlider {
 public:
  explicit QuietSlider(QWidget* parent = nullptr);

 protected:
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace zelvo::desktop
