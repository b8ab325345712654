#include "qt/list_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStringList>
#include <utility>

#include "qt/text.h"
#include "qt/theme.h"

namespace zelvo::desktop {

void LinesModel::Reread() {
  const int rows = static_cast<int>(list_.Lines().size());
  if (rows > rows_) {
    beginInsertRows({}, 0, rows - rows_ - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows < rows_) {
    beginResetModel();
    rows_ = rows;
    endResetModel();
  }
  if (rows_ > 0) emit dataChanged(index(0), index(rows_ - 1));
}

int LinesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

QVariant LinesModel::data(const QModelIndex& index, int role) const {
  // The list may have become shorter since the toolkit was told.
  const auto at = static_cast<std::size_t>(index.row());
  // A line that is too long for the list is told whole under the mouse.
  if ((role != Qt::DisplayRole && role != Qt::ToolTipRole) || at >= list_.Lines().size()) return {};
  return Text(list_.Lines()[at]);
}

LinesView::LinesView(const panel::ListBox& list, QWidget* parent)
    : QListView(parent), model_(new LinesModel(list, this)) {
  setModel(model_);
  setUniformItemSizes(true);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ExtendedSelection);
  setVerticalScrollMode(ScrollPerPixel);
}

void LinesView::Reread() {
  const int before = verticalScrollBar()->value();
  const int rows = model_->rowCount();
  model_->Reread();
  const int joined = model_->rowCount() - rows;
  if (before > 0 && joined > 0) {
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(before + joined * sizeHintForRow(0));
  } else {
    verticalScrollBar()->setValue(before);
  }
}

void LinesView::PreferWhole() {
  whole_ = true;
  setUniformItemSizes(false);
}

QSize LinesView::sizeHint() const {
  if (!whole_) return QListView::sizeHint();
  const int borders = 2 * frameWidth() + fontMetrics().height() / 2;
  const int rows = model_->rowCount();
  return {sizeHintForColumn(0) + borders, sizeHintForRow(0) * rows + 2 * spacing() * (rows + 1) + borders};
}

Readout::Readout(QWidget* parent) : QLabel(parent) {
  setProperty("readout", true);
  setFont(MonospacedFont());
  setTextFormat(Qt::PlainText);
}

void Readout::Show(const std::vector<std::string>& lines) {
  QStringList shown;
  for (const std::string& line : lines) {
    shown += collapse_ ? Text(line).simplified().replace(QLatin1Char(' '), QLatin1String("  "))
                       : Text(line).trimmed();
  }
  setText(shown.join(QLatin1Char('\n')));
}

void Readout::MakeClickable(std::function<void()> click) {
  click_ = std::move(click);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::IBeamCursor);
}

void Readout::mouseReleaseEvent(QMouseEvent* event) {
  if (!click_ || event->button() != Qt::LeftButton || !rect().contains(event->pos())) {
    QLabel::mouseReleaseEvent(event);
    return;
  }
  event->accept();
  click_();
}

void Readout::keyPressEvent(QKeyEvent* event) {
  const bool go =
      event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
  if (!click_ || !go) {
    QLabel::keyPressEvent(event);
    return;
  }
  event->accept();
  click_();
}

}  // namespace zelvo::desktop
