#include "qt/widgets.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QWheelEvent>

#include "qt/theme.h"

namespace zelvo::desktop {

void EditField::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape) {
    event->accept();
    if (event->isAutoRepeat()) return;  // the key that opened the box must not close it again
    if (KeyPressed) KeyPressed(key == Qt::Key_Escape ? panel::Key::Escape : panel::Key::Enter);
    if (key == Qt::Key_Escape && isVisible()) event->ignore();
    return;
  }
  QLineEdit::keyPressEvent(event);
  if (wayBack_ != nullptr) event->accept();  // else an arrow key would move the cell under the box
}

void EditField::PressedBeside() {
  if (Left) Left();
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

OptionView::OptionView(QWidget* parent) : QRadioButton(parent) {
  setAutoExclusive(false);  // the panel tells which of them is set
}

void OptionView::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool back = key == Qt::Key_Left || key == Qt::Key_Up;
  if ((back || key == Qt::Key_Right || key == Qt::Key_Down) && Stepped) {
    event->accept();
    Stepped(back ? -1 : 1);
  } else {
    QRadioButton::keyPressEvent(event);
  }
}

void OptionView::paintEvent(QPaintEvent* event) {
  QRadioButton::paintEvent(event);
  if (!hasFocus() || !text().isEmpty()) return;
  QStyleOptionButton option;
  initStyleOption(&option);
  const QRectF mark = style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, this);
  const double width = mark.height() / 8;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(colours::Accent), width));
  painter.drawEllipse(mark.adjusted(width / 2, width / 2, -width / 2, -width / 2));
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
