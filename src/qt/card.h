// A titled group of controls on a light sheet.
#pragma once

#include <QFrame>

class QLabel;
class QVBoxLayout;

namespace zelvo::desktop {

class Card : public QFrame {
 public:
  explicit Card(const QString& title, QWidget* parent = nullptr);
  /// The line of text above the group.
  [[nodiscard]] QLabel* Title() const { return title_; }
  /// Where the group's contents go, one below the other.
  [[nodiscard]] QVBoxLayout* Body() const { return body_; }

 private:
  QLabel* title_;
  QVBoxLayout* body_;
};

}  // namespace zelvo::desktop
