#include "qt/secondary_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <iterator>

#include "panel/operator.h"
#include "panel/secondary_windows.h"
#include "qt/placement.h"
#include "qt/text.h"
#include "qt/theme.h"
#include "qt/widgets.h"
#include "qt/window_layouts.h"

namespace zelvo::desktop {
namespace {

/// A window with the loader's question in front of it stands aside, above the middle.
bool StandsAside(const panel::Window& window) {
  return dynamic_cast<const panel::OverwriteWindow*>(&window) != nullptr;
}

/// Windows without a button that leaves everything as it is: theirs accept, or close others, or there is
/// none.
bool LeavesByItsFrame(const panel::Window& window) {
  const panel::Window* const ones[] = {&panel::LPT_COM_select, &panel::LPT_Port_Set,
                                       &panel::Adat_él_Beállít_H, &panel::Adat_él_Beállít_COM,
                                       &panel::Összes_Bezárása};
  return std::find(std::begin(ones), std::end(ones), &window) != std::end(ones);
}

/// Width at which a title stands uncut between the window's icon and its buttons.
int TitleWidth(const QWidget& window) {
  QFont bold = window.font();
  bold.setBold(true);
  constexpr int Furniture = 9;  // lines of text
  return QFontMetrics(bold).horizontalAdvance(window.windowTitle()) + Furniture * LineHeight(window);
}

/// The windows that a whole read leaves open at once, and the side of the main window that each keeps to when
/// others are there before it: 0 is left or top, 1 right or bottom.
struct ReviewSide {
  const panel::Window* window;
  double across, down;
};
const ReviewSide ReviewSides[] = {
    {&panel::FlashOlv, 0.5, 0.5},   {&panel::EEPROM_Beolvas, 1, 0},     {&panel::IDLocO, 0, 1},
    {&panel::Config_Beolvas, 0, 0}, {&panel::Config_Beolvas_F16, 0, 0}, {&panel::Config_2008_Olv_F16, 0, 0},
    {&panel::IDLoc_F16, 0, 1},      {&panel::Összes_Bezárása, 1, 1},
};

const ReviewSide* SideOf(const panel::Window& window) {
  const auto* side = std::find_if(std::begin(ReviewSides), std::end(ReviewSides),
                                  [&window](const ReviewSide& one) { return one.window == &window; });
  return side == std::end(ReviewSides) ? nullptr : side;
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
  const bool anew = !placed_;
  QWidget* before = focusWidget();
  if (anew && before != nullptr) before->clearFocus();
  binder_.Refresh();
  if (!anew && !isHidden()) return;
  if (anew) Place();
  show();
  ComeForward();
  if (anew) FocusFirst();
}

void SecondaryWindow::ComeForward() {
  if (isHidden()) return;
  setWindowState(windowState() & ~Qt::WindowMinimized);
  raise();
  activateWindow();
}

void SecondaryWindow::FocusFirst() {
  // One Enter too many must not take the chip's values over.
  if (auto* leave = findChild<QPushButton*>(QStringLiteral("Nem"))) return leave->setFocus();
  if (focusWidget() == nullptr) focusNextChild();  // an edit box may have been given it
}

void SecondaryWindow::Place() {
  placed_ = true;
  setWindowState(Qt::WindowNoState);
  const QRect room = owner_.screen()->availableGeometry();
  // A window has a frame only once it is shown; that of the main window is as wide.
  const QSize borders = owner_.frameGeometry().size() - owner_.size();
  layout()->activate();  // else parts that this load hides keep their room
  const QSize wanted = sizeHint().expandedTo(QSize(TitleWidth(*this), 0));
  resize(wanted.boundedTo(room.size() * 0.92 - borders));
  const std::vector<QRect> others = OtherReviews(borders);
  const QRect wish = Within(WishedPlace(size() + borders, room, others.empty()), room);
  move((others.empty() ? wish : LeastCovering(wish, room, others)).topLeft());
}

QRect SecondaryWindow::WishedPlace(const QSize& frame, const QRect& room, bool alone) const {
  const QRect owner = owner_.frameGeometry() & room;
  QRect place(QPoint(), frame);
  place.moveCenter(owner.center());
  if (StandsAside(window_)) place.moveBottom(owner.center().y() - fontMetrics().height() * 6);
  const ReviewSide* side = SideOf(window_);
  if (side == nullptr || (alone && &window_ != &panel::Összes_Bezárása)) return place;
  const QSize play = owner.size() - frame;
  place.moveTopLeft(owner.topLeft() + QPoint(static_cast<int>(play.width() * side->across),
                                             static_cast<int>(play.height() * side->down)));
  return place;
}

std::vector<QRect> SecondaryWindow::OtherReviews(const QSize& borders) const {
  std::vector<QRect> places;
  if (SideOf(window_) == nullptr) return places;
  for (const QObject* sibling : owner_.children()) {
    const auto* view = dynamic_cast<const SecondaryWindow*>(sibling);
    if (view == nullptr || view == this || view->isHidden() || SideOf(view->window_) == nullptr) continue;
    places.emplace_back(view->pos(), view->size() + borders);
  }
  return places;
}

void SecondaryWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  panel::HandClose(window_);
  Refresh();
}

// Escape presses the button that leaves the window. The key that closed an edit box must not close the window
// too by being held.
void SecondaryWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape || event->isAutoRepeat()) {
    QWidget::keyPressEvent(event);
    return;
  }
  event->accept();
  if (LeavesByItsFrame(window_)) {
    close();
    return;
  }
  for (const char* way : {"Nem", "Megse", "Mégse", "Command2", "Command1"}) {
    auto* button = findChild<QPushButton*>(QString::fromUtf8(way));
    if (button == nullptr || !button->isVisible()) continue;
    button->click();
    return;
  }
}

// A press on the bare surface leaves an edit box as one on another control does.
void SecondaryWindow::mousePressEvent(QMouseEvent* event) {
  event->accept();
  if (auto* box = dynamic_cast<EditField*>(focusWidget())) box->PressedBeside();
}

}  // namespace zelvo::desktop
