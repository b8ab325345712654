// Page tabs that also tell of a click on the page that is in front.
#pragma once

#include <QTabBar>
#include <functional>

namespace zelvo::desktop {

class PageTabs : public QTabBar {
 public:
  explicit PageTabs(QWidget* parent = nullptr) : QTabBar(parent) {
    setDrawBase(false);
    setExpanding(false);
    connect(this, &QTabBar::currentChanged, this, [this](int index) {
      if (Clicked && index >= 0) Clicked(index);
    });
  }
  std::function<void(int index)> Clicked;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
};

}  // namespace zelvo::desktop
