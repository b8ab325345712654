#include "qt/secondary_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "panel/operator.h"
#include "panel/secondary_windows.h"
#include "qt/text.h"

namespace zelvo::desktop {
namespace {

/// A window with the loader's question in front of it stands aside, above the middle.
bool StandsAside(const panel::Window& window) {
  return dynamic_cast<const panel::OverwriteWindow*>(&window) != nullptr;
}

}  // namespace

SecondaryWindow::SecondaryWindow(panel::Window& window, QWidget& owner)
    : QWidget(&owner, Qt::Dialog), window_(window), owner_(owner) {
  setObjectName(Text(window.Name()));
  LayOutWindow(window, binder_, *this);
}

void SecondaryWindow::Refresh() {
  if (!window_.Loaded()) {
    if (!isHidden()) hide();
    return;
  }
  const QString title = Text(window_.Caption).simplified();
  if (windowTitle() != title) setWindowTitle(title);
  binder_.Refresh();
  if (!placed_) Place();
  if (isHidden()) {
    show();
    raise();
    activateWindow();
  }
}

void SecondaryWindow::Place() {
  placed_ = true;
  const QRect room = owner_.screen()->availableGeometry();
  resize(sizeHint().boundedTo(room.size() * 0.92));
  const QPoint middle = owner_.frameGeometry().center();
  const int rise = StandsAside(window_) ? height() : height() / 2;
  const int aside = StandsAside(window_) ? fontMetrics().height() * 6 : 0;
  const QPoint corner(middle.x() - width() / 2, middle.y() - rise - aside);
  move(std::clamp(corner.x(), room.left(), std::max(room.left(), room.right() - width())),
       std::clamp(corner.y(), room.top(), std::max(room.top(), room.bottom() - height())));
}

void SecondaryWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  panel::HandClose(window_);
  Refresh();
}

// Escape presses the button that leaves the window.
void SecondaryWindow::keyPressEvent(QKeyEvent* event) {
  for (const char* way : {"Mégse", "Command1"}) {
    auto* button = findChild<QPushButton*>(QString::fromUtf8(way));
    if (event->key() != Qt::Key_Escape || button == nullptr || !button->isVisible()) continue;
    event->accept();
    button->click();
    return;
  }
  QWidget::keyPressEvent(event);
}

}  // namespace zelvo::desktop
