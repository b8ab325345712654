// The review windows and the one that closes them.
#include <QBoxLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>

#include "panel/secondary_windows.h"
#include "qt/binder.h"
#include "qt/grid_view.h"
#include "qt/list_view.h"
#include "qt/theme.h"
#include "qt/window_layouts.h"

namespace zelvo::desktop {
namespace {

void AddVerdict(panel::ListBox& list, Binder& binder, const QWidget& view, QVBoxLayout& layout) {
  Readout* verdict = binder.MakeReadout(list);
  verdict->setFont(view.font());
  verdict->setAlignment(Qt::AlignCenter);
  layout.addWidget(verdict);
}

/// A grid with texts of these widths in column 0 and in the others.
void AddGrid(panel::Grid& grid, const QString& label, const QString& cell, Binder& binder,
             QVBoxLayout& layout) {
  constexpr int LeastRows = 20;
  GridView* view = binder.Make(grid);
  view->setMinimumWidth(view->LeastWidth(label, cell));
  view->setMinimumHeight(view->verticalHeader()->defaultSectionSize() * LeastRows);
  layout.addWidget(view, 1);
}

void LayOutFlash(panel::FlashOlvWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  AddVerdict(window.List1, binder, view, layout);
  AddGrid(window.MSFlexGrid1, QStringLiteral("Flash cím"), QStringLiteral("FFFFFF"), binder, layout);
  layout.addLayout(MakeButtonRow(binder, {&window.FlashPuff, &window.Command1, &window.Mégse}));
}

void LayOutEeprom(panel::EepromReviewWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  AddVerdict(window.List1, binder, view, layout);
  AddGrid(window.MSFlexGrid2, QStringLiteral("EE cím"), QStringLiteral("0/8"), binder, layout);
  layout.addLayout(MakeButtonRow(binder, {&window.Áttöltés, &window.Mégse}));
}

/// How the blanks inside a value are drawn.
enum class Blanks { AsTwo, AsTheyStand };

/// The values go down the columns in the order of their addresses. `widest` is the longest text of a value.
template <std::size_t Size>
void LayOutValues(panel::ValueReviewWindow<Size>& window, int columns, const QString& widest, Binder& binder,
                  QWidget& view, QVBoxLayout& layout, Blanks blanks = Blanks::AsTwo) {
  AddVerdict(window.eredmény, binder, view, layout);
  auto* table = new QGridLayout;
  table->setVerticalSpacing(LineHeight(view) / 6);
  const int rows = static_cast<int>(Size) / columns;
  for (std::size_t at = 0; at < Size; ++at) {
    const int row = static_cast<int>(at) % rows;
    const int col = static_cast<int>(at) / rows * 2;
    QLabel* label = binder.Make(window.Labels[at]);
    label->setProperty("muted", true);
    Readout* value = binder.MakeReadout(window.Values[at]);
    if (blanks == Blanks::AsTwo) value->CollapseBlanks();
    value->setAlignment(Qt::AlignCenter);
    value->setMinimumWidth(value->fontMetrics().horizontalAdvance(widest));
    table->addWidget(label, row, col);
    table->addWidget(value, row, col + 1);
    table->setColumnStretch(col + 1, 1);
  }
  layout.addLayout(table);
  layout.addStretch(1);
  layout.addLayout(MakeButtonRow(binder, {&window.Igen, &window.Nem}));
}

void LayOutConfig(panel::ConfigReviewWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  LayOutValues(window, 1, QStringLiteral("0  0  0  0  0  0  0  0  "), binder, view, layout);
}

void LayOutIds(panel::IdReviewWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  LayOutValues(window, 2, QStringLiteral("FF  W  "), binder, view, layout);
}

QString WidestWord() {
  return QStringLiteral("0  0  0  0  0  0  0  0  0  0  0  0  0  0  0  0 bin  ");
}

void LayOutMidConfig(panel::MidConfigReviewWindow& window, Binder& binder, QWidget& view,
                     QVBoxLayout& layout) {
  LayOutValues(window, 1, WidestWord(), binder, view, layout);
}

void LayOutMidConfigPair(panel::MidConfigPairReviewWindow& window, Binder& binder, QWidget& view,
                         QVBoxLayout& layout) {
  LayOutValues(window, 1, WidestWord(), binder, view, layout);
}

void LayOutMidIds(panel::MidIdReviewWindow& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  LayOutValues(window, 1, QStringLiteral("3FFFh, 16383dec  "), binder, view, layout, Blanks::AsTheyStand);
}

void LayOutCloser(panel::CloseReviewsWindow& window, Binder& binder, QWidget&, QVBoxLayout& layout) {
  layout.addWidget(binder.Make(window.Command1));
}

}  // namespace

bool LaidOutAsReview(panel::Window& window, Binder& binder, QWidget& view, QVBoxLayout& layout) {
  return LaidOutAs(LayOutFlash, window, binder, view, layout) ||
         LaidOutAs(LayOutEeprom, window, binder, view, layout) ||
         LaidOutAs(LayOutConfig, window, binder, view, layout) ||
         LaidOutAs(LayOutIds, window, binder, view, layout) ||
         LaidOutAs(LayOutMidConfig, window, binder, view, layout) ||
         LaidOutAs(LayOutMidConfigPair, window, binder, view, layout) ||
         LaidOutAs(LayOutMidIds, window, binder, view, layout) ||
         LaidOutAs(LayOutCloser, window, binder, view, layout);
}

}  // namespace zelvo::desktop
