#include "qt/lamp.h"

#include <QPainter>
#include <QRadialGradient>
#include <algorithm>

namespace zelvo::desktop {

Lamp::Lamp(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Lamp::SetColour(const QColor& colour, bool lit) {
  if (colour == colour_ && lit == lit_) return;
  colour_ = colour;
  lit_ = lit;
  update();
}

QSize Lamp::sizeHint() const {
  const int side = LineHeight(*this) * 5 / 4;
  return {side, side};
}

void Lamp::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double side = std::min(width(), height());
  const QPointF centre = QRectF(rect()).center();
  if (lit_) {
    QColor halo = colour_;
    halo.setAlpha(70);
    painter.setPen(Qt::NoPen);
    painter.setBrush(halo);
    painter.drawEllipse(centre, side * 0.5, side * 0.5);
  }
  QRadialGradient glass(centre - QPointF(side, side) * 0.12, side * 0.45);
  glass.setColorAt(0, colour_.lighter(lit_ ? 160 : 108));
  glass.setColorAt(1, lit_ ? colour_.darker(112) : colour_);
  painter.setPen(QPen(lit_ ? colour_.darker(150) : QColor(colours::Faint), side / 18));
  painter.setBrush(glass);
  painter.drawEllipse(centre, side * 0.36, side * 0.36);
}

}  // namespace zelvo::desktop
