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

/// A line of editing help beside the buttons that close the window off.
void AddHintAndButtons(QLabel* hint, QHBoxLayout* buttons, QVBoxLayout& layout) {
  hint->setProperty("muted", true);
  auto* row = new QHBoxLayout;
  row->addWidget(hint);
  row->addLayout(buttons, 1);
  layout.addLayout(row);
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
  AddHintAndButtons(new QLabel(Text(window.Grids.front().ToolTip)),
                    MakeButtonRow(binder, {&window.BetPufferbe, &window.Mégse}), layout);
  binder.Make(window.Text1)->setParent(&view);  // until it is laid over a cell
}

/// The mouse presses these without taking the focus out of an edit box: what stands in it is the button's to
/// take or to leave.
QHBoxLayout* MakeQuietButtons(Binder& binder, std::initializer_list<panel::CommandButton*> buttons) {
  QHBoxLayout* row = MakeButtonRow(binder, buttons);
  for (int at = 0; at < row->count(); ++at) {
    if (QWidget* button = row->itemAt(at)->widget()) button->setFocusPolicy(Qt::TabFocus);
  }
  return row;
}

/// Wide enough for an edit box that shows any of the values whole, and what is typed beside it.
void LayOutCell(panel::CellEditWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  constexpr int Columns = 52;  // of text, as the panel's column widths share them
  QLabel* address = binder.Make(window.Label1);
  QFont strong = MonospacedFont();
  strong.setBold(true);
  address->setFont(strong);
  QLabel* rangeTitle = binder.Make(window.Label3);
  rangeTitle->setProperty("muted", true);
  auto* top = new QHBoxLayout;
  top->addWidget(address, 1);
  top->addWidget(rangeTitle);
  QLabel* range = binder.Make(window.Label4);
  range->setFont(MonospacedFont());
  top->addWidget(range);
  layout.addLayout(top);

  GridView* grid = binder.Make(window.MSFlexGrid1);
  grid->setAccessibleName(Text(window.Caption));
  grid->ShowWhole(QFontMetrics(grid->font()).horizontalAdvance(QLatin1Char('0')) * Columns);
  grid->StartAt(1, 1);
  layout.addWidget(grid);
  layout.addStretch(1);
  AddHintAndButtons(binder.Make(window.Label2), MakeQuietButtons(binder, {&window.OK, &window.Mégse}),
                    layout);
  binder.Make(window.Text1)->setParent(&view);  // until it is laid over a cell
}

void LayOutIds(panel::IdEditWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  GridView* grid = binder.Make(window.MSFlexGrid1);
  grid->setAccessibleName(Text(window.Caption).simplified());
  // Eight bytes side by side on a small screen, or four words.
  const bool bytes = &window == &panel::IDLocEdit;
  const QString widest = bytes ? QStringLiteral("255 xx") : QStringLiteral("16383 xx");
  grid->ShowWhole(grid->LeastWidth(QStringLiteral("Hexa kódos "), widest));
  grid->StartAt(1, 1);
  layout.addWidget(grid);
  layout.addStretch(1);
  auto* hint = new QLabel;
  binder.Follow(window.MSFlexGrid1, [&window, hint] { hint->setText(Text(window.MSFlexGrid1.ToolTip)); });
  AddHintAndButtons(hint, MakeButtonRow(binder, {&window.Módosít, &window.Mégse}), layout);
  binder.Make(window.Text1)->setParent(&view);
}

}  // namespace

bool LaidOutAsEditor(panel::Window& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  return LaidOutAs(LayOutConfig, window, binder, view, layout) ||
         LaidOutAs(LayOutCell, window, binder, view, layout) ||
         LaidOutAs(LayOutIds, window, binder, view, layout) ||
         LaidOutAsWordEditor(window, binder, view, layout);
}

}  // namespace zelvo::desktop
