#include "qt/grid_view.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

#include "panel/operator.h"
#include "qt/text.h"
#include "qt/theme.h"
#include "qt/widgets.h"

namespace zelvo::desktop {
namespace {

/// Draws a cell with two calls of the painter: the toolkit's own delegate costs ten times as much.
class CellPainter : public QStyledItemDelegate {
 public:
  CellPainter(const GridModel& model, QObject* parent) : QStyledItemDelegate(parent), model_(model) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int row = index.row();
    const int col = index.column();
    const QString text = model_.CellText(row, col);
    const bool label = col == 0;
    QColor ground = label ? QColor(colours::Heading) : FromPanel(model_.CellColour(row, col));
    QColor ink = label ? QColor(colours::Muted) : QColor(colours::Ink);
    const bool idle = model_.IsBlank(text) || model_.IsUnused(col);
    if (!label && idle && ground == QColor(Qt::white)) ink = QColor(colours::Faint);
    if (option.state.testFlag(QStyle::State_Selected)) {
      const QColor wash(colours::AccentWash);
      ground = ground == QColor(Qt::white) ? wash : ground.darker(108);
    }
    painter->fillRect(option.rect, ground);
    painter->setPen(ink);
    painter->drawText(option.rect, Qt::AlignCenter | Qt::TextSingleLine, text);
    if (option.state.testFlag(QStyle::State_HasFocus)) {
      painter->setPen(QColor(colours::Accent));
      painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
  }

 private:
  const GridModel& model_;
};

/// Draws the headings, those of unused columns as faintly as their cells.
class Headings : public QHeaderView {
 public:
  Headings(const GridModel& model, QWidget* parent) : QHeaderView(Qt::Horizontal, parent), model_(model) {}
  /// Headings that are names stand out like the cells; others are muted.
  void ShowNames() { ink_ = colours::Ink; }

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int col) const override {
    const int rule = std::max(1, QFontMetrics(font()).height() / 16);
    painter->fillRect(rect, QColor(colours::Heading));
    painter->fillRect(QRect(rect.left(), rect.bottom() + 1 - rule, rect.width(), rule),
                      QColor(colours::Border));
    painter->setPen(QColor(model_.IsUnused(col) ? colours::Faint : col == 0 ? colours::Muted : ink_));
    painter->drawText(rect, Qt::AlignCenter | Qt::TextSingleLine,
                      model_.headerData(col, Qt::Horizontal, Qt::DisplayRole).toString());
  }

 private:
  const GridModel& model_;
  QRgb ink_ = colours::Muted;
};

}  // namespace

GridModel::GridModel(const panel::Grid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid), layout_(grid.Layout()), rows_(grid.Rows() - 1) {}

bool GridModel::Relayout() {
  if (layout_ == grid_.Layout()) return false;
  beginResetModel();
  layout_ = grid_.Layout();
  rows_ = grid_.Rows() - 1;
  endResetModel();
  return true;
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.Cols();
}

QString GridModel::CellText(int dataRow, int col) const {
  return dataRow + 1 < grid_.Rows() ? Text(grid_.Text(dataRow + 1, col)).trimmed() : QString();
}

panel::Colour GridModel::CellColour(int dataRow, int col) const {
  return dataRow + 1 < grid_.Rows() ? grid_.CellBackColor(dataRow + 1, col) : panel::White;
}

// So that a program stands out from memory that holds nothing yet.
bool GridModel::IsBlank(const QString& text) const {
  return faintBlanks_ &&
         (text == QLatin1String("FFFF") || text == QLatin1String("3FFF") || text == QLatin1String("FF"));
}

bool GridModel::IsUnused(int col) const {
  return grid_.Text(0, col) == "X";
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  switch (role) {
    case Qt::DisplayRole:
      return CellText(index.row(), index.column());
    case Qt::BackgroundRole:
      return FromPanel(CellColour(index.row(), index.column()));
    case Qt::TextAlignmentRole:
      return Qt::AlignCenter;
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return Text(grid_.Text(0, section)).trimmed();
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

GridView::GridView(panel::Grid& grid, QWidget* parent)
    : QTableView(parent), grid_(grid), model_(new GridModel(grid, this)) {
  setFont(MonospacedFont());
  setModel(model_);
  setItemDelegate(new CellPainter(*model_, this));
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setEditTriggers(NoEditTriggers);
  setVerticalScrollMode(ScrollPerPixel);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);

  const int rowHeight = QFontMetrics(font()).height() * 5 / 4;
  setHorizontalHeader(new Headings(*model_, this));
  verticalHeader()->hide();
  verticalHeader()->setMinimumSectionSize(rowHeight);
  verticalHeader()->setDefaultSectionSize(rowHeight);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setFont(font());
  horizontalHeader()->setSectionsClickable(true);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setMinimumSectionSize(1);
  setMinimumHeight(rowHeight * 4);
  ConnectHand();
}

void GridView::ConnectHand() {
  connect(this, &QTableView::clicked, this, [this](const QModelIndex& cell) {
    static_cast<void>(panel::HandCellClick(grid_, cell.row() + 1, cell.column()));
  });
  connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& cell) {
    static_cast<void>(panel::HandCellDblClick(grid_, cell.row() + 1, cell.column()));
  });
  connect(horizontalHeader(), &QHeaderView::sectionClicked, this,
          [this](int col) { static_cast<void>(panel::HandCellClick(grid_, 0, col)); });
  connect(horizontalHeader(), &QHeaderView::sectionDoubleClicked, this,
          [this](int col) { static_cast<void>(panel::HandCellDblClick(grid_, 0, col)); });
}

void GridView::Reread() {
  if (model_->Relayout()) {
    ShareWidth();
    FitHeight();
    scrollToTop();
    GoToStart();
  }
  viewport()->update();
  horizontalHeader()->viewport()->update();
}

int GridView::LeastWidth(const QString& label, const QString& cell) const {
  const QFontMetrics metrics(font());
  const int first = metrics.horizontalAdvance(label) + CellMargin();
  const int other = metrics.horizontalAdvance(cell) + CellMargin();
  const int bar = whole_ ? 0 : verticalScrollBar()->sizeHint().width();
  return first + other * (grid_.Cols() - 1) + bar + 2 * frameWidth();
}

void GridView::ShowWhole(const QString& widest) {
  whole_ = true;  // no scroll bar takes room
  ShowWhole(LeastWidth(widest, widest));
}

void GridView::ShowWhole(int leastWidth) {
  whole_ = true;
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setSelectionMode(NoSelection);
  model_->ShowBlanksLikeOthers();
  static_cast<Headings*>(horizontalHeader())->ShowNames();
  setMinimumWidth(leastWidth);
  FitHeight();
}

void GridView::StartAt(int row, int col) {
  startRow_ = row;
  startCol_ = col;
  GoToStart();
}

void GridView::GoToStart() {
  if (startRow_ > 0)
    selectionModel()->setCurrentIndex(model_->index(startRow_ - 1, startCol_), QItemSelectionModel::NoUpdate);
}

void GridView::FitHeight() {
  if (!whole_) return;
  const int rows = verticalHeader()->defaultSectionSize() * (grid_.Rows() - 1);
  setFixedHeight(horizontalHeader()->sizeHint().height() + rows + 2 * frameWidth());
}

// As a child of the viewport the box is clipped and scrolled with the cells.
void GridView::LayOver(EditField& box, const panel::CellPlace& place) {
  if (box.parentWidget() != viewport()) {
    box.setParent(viewport());
    box.setFont(font());
    box.setAlignment(Qt::AlignCenter);
    box.SetWayBack(*this);
    setTabOrder(this, &box);
  }
  box_ = &box;
  boxPlace_ = place;
  PlaceBox();
}

void GridView::PlaceBox() {
  if (box_.isNull() || box_->parentWidget() != viewport()) return;
  box_->setGeometry(visualRect(model_->index(boxPlace_.row - 1, boxPlace_.col)));
}

void GridView::updateEditorGeometries() {
  QTableView::updateEditorGeometries();
  PlaceBox();
}

int GridView::CellMargin() const {
  return QFontMetrics(font()).horizontalAdvance(QLatin1Char('0')) * 6 / 5;
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  ShareWidth();
}

// The panel's column widths are shares of the width there is, but no column is narrower than its texts.
void GridView::ShareWidth() {
  const QFontMetrics metrics(font());
  const int cols = grid_.Cols();
  int total = 0;
  for (int col = 0; col < cols; ++col) total += grid_.ColWidth(col);
  if (total <= 0) return;
  const int margin = CellMargin();
  int left = viewport()->width();
  int shares = total;
  for (int col = 0; col < cols; ++col) {
    const QString heading = model_->headerData(col, Qt::Horizontal, Qt::DisplayRole).toString();
    const QString cell = grid_.Rows() > 1 ? model_->CellText(grid_.Rows() - 2, col) : QString();
    const int least = std::max(metrics.horizontalAdvance(heading), metrics.horizontalAdvance(cell)) + margin;
    const int share = shares > 0 ? left * grid_.ColWidth(col) / shares : 0;
    const int width = std::max(share, least);
    setColumnWidth(col, width);
    left = std::max(0, left - width);
    shares -= grid_.ColWidth(col);
  }
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const QModelIndex cell = currentIndex();
  const int key = event->key();
  const bool acts =
      key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2 || key == Qt::Key_Space;
  if (acts && event->isAutoRepeat()) {
    event->accept();  // the key that closed a box must not open it again
  } else if (cell.isValid() && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2)) {
    // As the mouse does it: a double click is a click first.
    event->accept();
    static_cast<void>(panel::HandCellClick(grid_, cell.row() + 1, cell.column()));
    static_cast<void>(panel::HandCellDblClick(grid_, cell.row() + 1, cell.column()));
  } else if (cell.isValid() && key == Qt::Key_Space) {
    event->accept();
    static_cast<void>(panel::HandCellClick(grid_, cell.row() + 1, cell.column()));
  } else {
    QTableView::keyPressEvent(event);
  }
}

}  // namespace zelvo::desktop
