// The layouts of the small windows of a run, and of windows that are no more than their controls in a row.
#include "qt/window_layouts.h"

#include <QBoxLayout>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <utility>

#include "panel/secondary_windows.h"
#include "qt/binder.h"
#include "qt/grid_view.h"
#include "qt/list_view.h"
#include "qt/theme.h"

namespace zelvo::desktop {
namespace {

void LayOutProgress(panel::ProgressWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  QProgressBar* bar = binder.Make(window.ProgressBar1);
  bar->setMinimumWidth(view.fontMetrics().averageCharWidth() * 60);
  layout.addWidget(bar);
  auto* count = new QLabel;
  count->setProperty("muted", true);
  binder.Follow(window.ProgressBar1, [&window, count] {
    const int done = window.ProgressBar1.Value - window.ProgressBar1.Min;
    const int whole = window.ProgressBar1.Max - window.ProgressBar1.Min;
    count->setText(QStringLiteral("%1 / %2    %3 %")
                       .arg(done)
                       .arg(whole)
                       .arg(whole > 0 ? static_cast<long long>(done) * 100 / whole : 0));
  });
  auto* row = new QHBoxLayout;
  row->addWidget(count, 1);
  row->addWidget(binder.Make(window.Command1));
  layout.addLayout(row);
}

void LayOutIdentification(panel::PICAzonosWindow& window, Binder& binder, QWidget& view,
                          QVBoxLayout& layout) {
  Readout* lines = binder.MakeReadout(window.PICazon);
  lines->setFont(view.font());
  lines->setMinimumWidth(view.fontMetrics().averageCharWidth() * 50);
  lines->setMinimumHeight(view.fontMetrics().height() * 5);
  layout.addWidget(lines, 1);
  layout.addLayout(MakeButtonRow(binder, {&window.Command1}));
}

void LayOutOverwrite(panel::OverwriteWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  Readout* lines = binder.MakeReadout(window.List1);
  lines->setFont(view.font());
  lines->setMinimumWidth(view.fontMetrics().averageCharWidth() * 55);
  layout.addWidget(lines, 1);
}

/// Any other window: a label stands in front of what follows it, grids and lists take the room, buttons close
/// the window off in rows of three.
void LayOutByKinds(panel::Window& window, Binder& binder, QVBoxLayout& layout) {
  constexpr int ButtonsPerRow = 3;
  auto* rows = new QGridLayout;
  rows->setColumnStretch(1, 1);
  auto* buttons = new QGridLayout;
  QWidget* label = nullptr;
  int row = 0;
  int button = 0;
  for (panel::Control* control : window.Controls()) {
    QWidget* widget = binder.MakeAny(*control);
    if (widget == nullptr || widget->parentWidget() != nullptr)
      continue;  // a box over a cell is in its place
    if (dynamic_cast<QPushButton*>(widget) != nullptr) {
      buttons->addWidget(widget, button / ButtonsPerRow, button % ButtonsPerRow);
      ++button;
      continue;
    }
    const bool isLabel = dynamic_cast<QLabel*>(widget) != nullptr;
    if (label != nullptr) rows->addWidget(label, row, 0, 1, isLabel ? 2 : 1);
    if (isLabel) {
      if (std::exchange(label, widget) != nullptr) ++row;
      continue;
    }
    if (dynamic_cast<GridView*>(widget) != nullptr || dynamic_cast<LinesView*>(widget) != nullptr) {
      rows->setRowStretch(row, 1);
    }
    rows->addWidget(widget, row, label != nullptr ? 1 : 0, 1, label != nullptr ? 1 : 2);
    label = nullptr;
    ++row;
  }
  if (label != nullptr) rows->addWidget(label, row, 0, 1, 2);
  layout.addLayout(rows, 1);
  layout.addLayout(buttons);
}

}  // namespace

QHBoxLayout* MakeButtonRow(Binder& binder, std::initializer_list<panel::CommandButton*> buttons) {
  auto* row = new QHBoxLayout;
  row->addStretch(1);
  for (panel::CommandButton* button : buttons) row->addWidget(binder.Make(*button));
  return row;
}

void LayOutWindow(panel::Window& window, Binder& binder, QWidget& view) {
  const int line = LineHeight(view);
  auto* layout = new QVBoxLayout(&view);
  layout->setContentsMargins(line, line, line, line);
  layout->setSpacing(line * 2 / 3);
  const bool own =
      LaidOutAs(LayOutProgress, window, binder, view, *layout) ||
      LaidOutAs(LayOutIdentification, window, binder, view, *layout) ||
      LaidOutAs(LayOutOverwrite, window, binder, view, *layout) ||
      LaidOutAsReview(window, binder, view, *layout) || LaidOutAsEditor(window, binder, view, *layout) ||
      LaidOutAsSettings(window, binder, view, *layout) || LaidOutAsInformation(window, binder, view, *layout);
  if (!own) LayOutByKinds(window, binder, *layout);
}

}  // namespace zelvo::desktop
