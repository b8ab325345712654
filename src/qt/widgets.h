// Standard widgets with the small manners that the panel's controls need.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <functional>

#include "panel/control.h"

namespace zelvo::desktop {

/// An edit box that tells of Enter, Escape and of being left for another control. A message box in front of
/// it and a change to another program are not leaving.
class EditField : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;
  std::function<void(panel::Key)> KeyPressed;
  std::function<void()> Left;
  unsigned seenFocusRequests = 0;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
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
