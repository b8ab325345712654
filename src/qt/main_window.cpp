#include "qt/main_window.h"

#include <QCloseEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "panel/form1.h"
#include "panel/operator.h"
#include "qt/page_parts.h"
#include "qt/page_tabs.h"
#include "qt/text.h"
#include "qt/theme.h"

namespace zelvo::desktop {
namespace {

/// A page. A press on its bare surface, between the controls, is told to the panel.
class Page : public QWidget {
 public:
  explicit Page(panel::Frame& frame) : frame_(frame) {}

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    event->accept();
    panel::HandMouse(frame_);
  }

 private:
  panel::Frame& frame_;
};

}  // namespace

MainWindow::MainWindow() : pages_(new QStackedWidget) {
  setObjectName(Text(panel::MDIForm1.Name()));
  auto* content = new QWidget;
  content->setObjectName(Text(panel::Form1.Name()));
  auto* layout = new QVBoxLayout(content);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  PageTabs* tabs = binder_.Make(panel::Form1.TabStrip1);
  auto* tabRow = new QHBoxLayout;
  tabRow->setContentsMargins(LineHeight(*this) / 2, 0, 0, 0);
  tabRow->addWidget(tabs);
  tabRow->addStretch(1);
  layout->addLayout(tabRow);
  layout->addWidget(pages_, 1);
  pages_->addWidget(MakePage(panel::Form1.Frame1, BuildMidRangePage));
  pages_->addWidget(MakePage(panel::Form1.Frame0, BuildPic18Page));
  setCentralWidget(content);

  const QSize room = screen()->availableSize();
  const int line = LineHeight(*this);
  resize(QSize(line * 92, line * 56).boundedTo(room * 0.96));
}

QWidget* MainWindow::MakePage(panel::Frame& frame, void (*build)(Binder&, QWidget&)) {
  auto* page = new Page(frame);
  build(binder_, *page);
  // On a screen too small for the whole page it scrolls.
  auto* area = new QScrollArea;
  area->setWidget(page);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  page->setAutoFillBackground(false);
  area->viewport()->setAutoFillBackground(false);
  binder_.Bind(frame, page, [this, &frame, area] {
    if (frame.InFront) pages_->setCurrentWidget(area);
  });
  return area;
}

void MainWindow::Refresh() {
  const QString title = Text(panel::MDIForm1.Caption).trimmed();
  if (windowTitle() != title) setWindowTitle(title);
  if (panel::Form1.Loaded()) binder_.Refresh();
}

int MainWindow::LeastPageWidth() const {
  int least = 0;
  for (int page = 0; page < pages_->count(); ++page) {
    const auto* area = static_cast<QScrollArea*>(pages_->widget(page));
    least = std::max(least, area->widget()->minimumSizeHint().width());
  }
  return least;
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // The panel decides; the window goes when the panel's has gone.
  event->ignore();
  panel::HandClose(panel::MDIForm1);
}

}  // namespace zelvo::desktop
