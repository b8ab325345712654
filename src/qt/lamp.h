// A round indicator that glows in its colour.
#pragma once

#include <QWidget>

#include "qt/theme.h"

namespace zelvo::desktop {

class Lamp : public QWidget {
 public:
  explicit Lamp(QWidget* parent = nullptr);
  void SetColour(const QColor& colour, bool lit);
  [[nodiscard]] QColor Colour() const { return colour_; }
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colour_{0xE0, 0xE0, 0xE0};
  bool lit_ = false;
};

}  // namespace zelvo::desktop
