#include "qt/page_tabs.h"

#include <QMouseEvent>

namespace zelvo::desktop {

void PageTabs::mousePressEvent(QMouseEvent* event) {
  const bool again = event->button() == Qt::LeftButton && tabAt(event->pos()) == currentIndex();
  QTabBar::mousePressEvent(event);
  if (again && Clicked) Clicked(currentIndex());
}

}  // namespace zelvo::desktop
