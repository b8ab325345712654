// The editors of the image.
#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>

#include "panel/secondary_windows.h"
#include "qt/binder.h"
#include "qt/grid_view.h"
#include "qt/text.h"
#include "qt/theme.h"
#include "qt/window_layouts.h"

namespace zelvo::desktop {
namespace {

/// Shows its content whole where there is room, and scrolls it on a small screen.
class RoomyScrollArea : public QScrollArea {
 public:
  explicit RoomyScrollArea(QLayout* content) {
    auto* inner = new QWidget;
    inner->setLayout(content);
    content->setContentsMargins(0, 0, 0, 0);
    setWidget(inner);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);  // the grids in it are what Tab walks through
  }
  [[nodiscard]] QSize sizeHint() const override { return widget()->sizeHint(); }
};

/// One byte of the configuration: its label above its bits.
QVBoxLayout* MakeByte(panel::Label& label, panel::Grid& bits, Binder& binder) {
  auto* byte = new QVBoxLayout;
  byte->setSpacing(1);
  QLabel* heading = binder.Make(label);
  heading->setProperty("title", true);
  GridView* grid = binder.Make(bits);
  grid->setAccessibleName(Text(label.Caption));
  grid->ShowWhole(QStringLiteral("exclkmx"));  // no name of a bit is longer
  byte->addWidget(heading);
  byte->addWidget(grid);
  return byte;
}

/// Low bytes on the left, high bytes on the right, a word in a row.
void LayOutConfig(panel::ConfEditWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  const int line = LineHeight(view);
  auto* words = new QGridLayout;
  words->setHorizontalSpacing(line);
  words->setVerticalSpacing(line / 2);
  for (std::size_t at = 0; at < window.Grids.size(); ++at) {
    const int word = static_cast<int>(at) / 2;
    const int half = static_cast<int>(at) % 2;
    words->addLayout(MakeByte(window.Labels[at], window.Grids[at], binder), word, half);
  }
  layout.addWidget(new RoomyScrollArea(words), 1);
  auto* hint = new QLabel(Text(window.Grids.front().ToolTip));
  hint->setProperty("muted", true);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(hint);
  buttons->addLayout(MakeButtonRow(binder, {&window.BetPufferbe, &window.Mégse}), 1);
  layout.addLayout(buttons);
  binder.Make(window.Text1)->setParent(&view);  // until it is laid over a cell
}

}  // namespace

bool LaidOutAsEditor(panel::Window& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  return LaidOutAs(LayOutConfig, window, binder, view, layout) ||
         LaidOutAsWordEditor(window, binder, view, layout);
}

}  // namespace zelvo::desktop
