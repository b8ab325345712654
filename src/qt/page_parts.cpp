#include "qt/page_parts.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QSplitter>

#include "qt/card.h"
#include "qt/grid_view.h"
#include "qt/lamp.h"
#include "qt/list_view.h"
#include "qt/text.h"
#include "qt/theme.h"

namespace zelvo::desktop {

QWidget* MakeChipBar(Binder& binder, const ChipControls& controls) {
  auto* bar = new Card({});
  auto* row = new QHBoxLayout;
  const int line = LineHeight(*bar);
  QComboBox* chip = binder.Make(controls.chip);
  chip->setMinimumContentsLength(16);
  Readout* summary = binder.MakeReadout(controls.summary);
  summary->setAlignment(Qt::AlignCenter);
  summary->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
  row->addWidget(chip);
  row->addWidget(binder.Make(controls.identify));
  row->addWidget(summary, 1);
  row->addSpacing(line / 2);
  row->addWidget(binder.Make(controls.vppLabel));
  row->addWidget(binder.Make(controls.vpp));
  row->addSpacing(line / 2);
  row->addWidget(binder.Make(controls.inLabel));
  row->addWidget(binder.Make(controls.in));
  row->addSpacing(line / 2);
  row->addWidget(binder.Make(controls.power));
  bar->Body()->addLayout(row);
  return bar;
}

Card* MakeSpeedCard(Binder& binder, const SpeedControls& controls) {
  auto* card = new Card(QStringLiteral("Sebesség"));
  auto* top = new QGridLayout;
  top->setColumnStretch(0, 1);
  top->addWidget(binder.Make(controls.bar), 0, 0);
  // The edit box lies over the value and covers it while it is shown.
  Readout* value = binder.MakeReadout(controls.value, true);
  value->setAlignment(Qt::AlignCenter);
  value->setMinimumWidth(value->fontMetrics().horizontalAdvance(QStringLiteral("1000000")));
  top->addWidget(value, 0, 1);
  QLineEdit* edit = binder.Make(controls.edit);
  edit->setFont(value->font());
  edit->setAlignment(Qt::AlignCenter);
  edit->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  top->addWidget(edit, 0, 1);
  card->Body()->addLayout(top);
  auto* scales = new QHBoxLayout;
  scales->addWidget(binder.Make(controls.tenfold));
  scales->addWidget(binder.Make(controls.slow));
  scales->addStretch(1);
  card->Body()->addLayout(scales);
  return card;
}

void AddButtons(Binder& binder, QBoxLayout& layout, std::initializer_list<RowButton> row) {
  auto* buttons = new QHBoxLayout;
  for (const RowButton& one : row) {
    QWidget* view = one.button != nullptr ? static_cast<QWidget*>(binder.Make(*one.button)) : new QWidget;
    if (one.emphasis == Emphasis::Strong) view->setProperty("role", "strong");
    if (one.emphasis == Emphasis::Danger) view->setProperty("role", "danger");
    view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    buttons->addWidget(view, 1);
  }
  layout.addLayout(buttons);
}

Card* MakeGridCard(Binder& binder, const QString& title, panel::Grid& grid) {
  auto* card = new Card(title);
  GridView* view = binder.Make(grid);
  view->setAccessibleName(title);
  view->setMinimumWidth(view->LeastWidth(QStringLiteral("Szó cím"), QStringLiteral("0 / 8")));
  card->Body()->addWidget(view, 1);
  return card;
}

Card* MakeLogCard(Binder& binder, panel::Label& title, panel::ListBox& log) {
  auto* card = new Card({});
  QLabel* heading = binder.Make(title);
  heading->setProperty("title", true);
  card->Body()->addWidget(heading);
  LinesView* lines = binder.Make(log);
  lines->setFont(MonospacedFont());
  lines->setMinimumHeight(LineHeight(*lines) * 4);
  card->Body()->addWidget(lines, 1);
  return card;
}

namespace {

/// The left column scrolls by itself where the screen is too low for it.
QWidget* MakeOperationsColumn(std::initializer_list<QWidget*> cards, int gap) {
  auto* column = new QWidget;
  auto* layout = new QVBoxLayout(column);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(gap);
  for (QWidget* card : cards) layout->addWidget(card);
  layout->addStretch(1);
  auto* area = new QScrollArea;
  area->setWidget(column);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->viewport()->setAutoFillBackground(false);
  column->setAutoFillBackground(false);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  const int width = column->sizeHint().width() + area->verticalScrollBar()->sizeHint().width();
  area->setMinimumWidth(width);
  area->setMaximumWidth(width);
  return area;
}

QSplitter* MakeSplitter(Qt::Orientation orientation, std::initializer_list<QWidget*> parts, int gap) {
  auto* splitter = new QSplitter(orientation);
  for (QWidget* part : parts) splitter->addWidget(part);
  splitter->setChildrenCollapsible(false);
  splitter->setHandleWidth(gap);
  return splitter;
}

}  // namespace

void LayOutPage(QWidget& page, const PageAreas& areas) {
  const int gap = LineHeight(page) / 2;
  auto* right = new QWidget;
  auto* rightLayout = new QVBoxLayout(right);
  rightLayout->setContentsMargins(0, 0, 0, 0);
  rightLayout->setSpacing(gap);
  rightLayout->addWidget(areas.eeprom, 1);
  for (QWidget* card : areas.settings) rightLayout->addWidget(card);

  QSplitter* centre = MakeSplitter(Qt::Vertical, {areas.flash, areas.log}, gap);
  centre->setStretchFactor(0, 3);
  centre->setStretchFactor(1, 1);
  QSplitter* memories = MakeSplitter(Qt::Horizontal, {centre, right}, gap);
  memories->setStretchFactor(0, 3);
  memories->setStretchFactor(1, 2);

  auto* body = new QHBoxLayout;
  body->setSpacing(gap);
  body->addWidget(MakeOperationsColumn(areas.operations, gap));
  body->addWidget(memories, 1);

  auto* layout = new QVBoxLayout(&page);
  layout->setContentsMargins(gap, gap, gap, gap);
  layout->setSpacing(gap);
  layout->addWidget(areas.chipBar);
  layout->addLayout(body, 1);
}

}  // namespace zelvo::desktop
