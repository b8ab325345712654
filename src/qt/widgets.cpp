#include "qt/widgets.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QWheelEvent>

namespace zelvo::desktop {

void EditField::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape) {
    event->accept();
    if (KeyPressed) KeyPressed(key == Qt::Key_Escape ? panel::Key::Escape : panel::Key::Enter);
    return;
  }
  QLineEdit::keyPressEvent(event);
  if (wayBack_ != nullptr) event->accept();  // else an arrow key would move the cell under the box
}

void EditField::TakeFocus() {
  wantsFocus_ = !isVisible();
  if (wantsFocus_) return;
  setFocus(Qt::OtherFocusReason);
  if (wayBack_ != nullptr) selectAll();
}

void EditField::showEvent(QShowEvent* event) {
  QLineEdit::showEvent(event);
  if (wantsFocus_) TakeFocus();
}

void EditField::hideEvent(QHideEvent* event) {
  QLineEdit::hideEvent(event);
  if (hasFocus() && wayBack_ != nullptr) wayBack_->setFocus(Qt::OtherFocusReason);
}

void EditField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  const Qt::FocusReason reason = event->reason();
  if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return;
  if (Left) Left();
}

void SteadyButton::keyPressEvent(QKeyEvent* event) {
  if (event->isAutoRepeat()) {
    event->accept();
    return;
  }
  QPushButton::keyPressEvent(event);
}

QuietCombo::QuietCombo(QWidget* parent) : QComboBox(parent) {
  setMaxVisibleItems(24);
  setFocusPolicy(Qt::StrongFocus);
}

void QuietCombo::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

QuietSlider::QuietSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
  setFocusPolicy(Qt::StrongFocus);
}

void QuietSlider::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QSlider::wheelEvent(event);
  } else {
    event->ignore();
  }
}

}  // namespace zelvo::desktop
