#include "panel/grid.h"

#include <algorithm>
#include <utility>

namespace zelvo::panel {

namespace {
constexpr int DefaultColWidth = 960;  // twips
}

Grid::Grid(Window& window, std::string name, int cols, bool visible)
    : VisibleControl(window, std::move(name), visible),
      cols_(cols),
      cells_(static_cast<size_t>(cols)),
      colWidth_(static_cast<size_t>(cols), DefaultColWidth),
      colAlignment_(static_cast<size_t>(cols), 0) {}

void Grid::Reset() {
  VisibleControl::Reset();
  rows_ = 1;
  cells_.assign(static_cast<size_t>(cols_), Cell{});
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
  if (row == 0) headingHeight_ = twips;
  ++layout_;
  Touch();
}

}  // namespace zelvo::panel
