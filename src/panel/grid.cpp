#include "panel/grid.h"

#include <algorithm>
#include <utility>

namespace zelvo::panel {

namespace {
// Twips.
constexpr int DefaultColWidth = 960;
constexpr int DefaultRowHeight = 270;
}  // namespace

Grid::Grid(Window& window, std::string name, int cols, bool visible)
    : VisibleControl(window, std::move(name), visible),
      cols_(cols),
      cells_(static_cast<size_t>(cols)),
      rowHeight_(1, DefaultRowHeight),
      colWidth_(static_cast<size_t>(cols), DefaultColWidth),
      colAlignment_(static_cast<size_t>(cols), 0) {}

void Grid::Reset() {
  VisibleControl::Reset();
  rows_ = 1;
  cells_.assign(static_cast<size_t>(cols_), Cell{});
  rowHeight_.assign(1, DefaultRowHeight);
  std::fill(colWidth_.begin(), colWidth_.end(), DefaultColWidth);
  std::fill(colAlignment_.begin(), colAlignment_.end(), 0);
  ++layout_;
  Touch();
}

void Grid::SetRows(int rows) {
  rows = std::max(rows, 1);
  if (rows == rows_) return;
  rows_ = rows;
  cells_.resize(static_cast<size_t>(rows_) * static_cast<size_t>(cols_));
  rowHeight_.resize(static_cast<size_t>(rows_), DefaultRowHeight);
  ++layout_;
  Touch();
}

void Grid::SetColWidth(int col, int twips) {
  colWidth_.at(static_cast<size_t>(col)) = twips;
  ++layout_;
  Touch();
}

void Grid::SetColAlignment(int col, int code) {
  colAlignment_.at(static_cast<size_t>(col)) = code;
  ++layout_;
  Touch();
}

void Grid::SetRowHeight(int row, int twips) {
  rowHeight_.at(static_cast<size_t>(row)) = twips;
  ++layout_;
  Touch();
}

}  // namespace zelvo::panel
