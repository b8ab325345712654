// A two-dimensional text grid with headings, cell colours and column geometry.
#pragma once

#include <string>
#include <vector>

#include "panel/control.h"

namespace zelvo::panel {

/// Raised by an access to a cell that the grid does not have.
struct GridFault {};

class Grid : public VisibleControl {
 public:
  /// `cols` columns, column 0 included; one row, the headings.
  Grid(Window& window, std::string name, int cols, bool visible = true);
  void Reset() override;

  [[nodiscard]] int Rows() const { return rows_; }
  [[nodiscard]] int Cols() const { return cols_; }
  /// Keeps the texts of the rows that stay; new cells are empty. At least the heading row remains.
  void SetRows(int rows);

  /// Raises `GridFault` for a cell outside the grid.
  [[nodiscard]] const std::string& Text(int row, int col) const { return At(row, col).text; }
  void SetText(int row, int col, std::string_view text) {
    const_cast<Cell&>(At(row, col)).text.assign(text);
    Touch();
  }
  [[nodiscard]] Colour CellBackColor(int row, int col) const { return At(row, col).colour; }
  void SetCellBackColor(int row, int col, Colour colour) {
    const_cast<Cell&>(At(row, col)).colour = colour;
    Touch();
  }

  // Geometry. Widths and heights are twips (1440 to the inch); 5 centres a column.
  static constexpr int AlignCentre = 5;
  void SetColWidth(int col, int twips);
  void SetColAlignment(int col, int code);
  void SetRowHeight(int row, int twips);
  [[nodiscard]] int ColWidth(int col) const { return colWidth_.at(static_cast<size_t>(col)); }
  [[nodiscard]] int ColAlignment(int col) const { return colAlignment_.at(static_cast<size_t>(col)); }
  [[nodiscard]] int RowHeight(int row) const { return rowHeight_.at(static_cast<size_t>(row)); }

  /// Counts every change of the number of rows.
  [[nodiscard]] unsigned Layout() const { return layout_; }

  // Events with the cell's place; row 0 and column 0 are the headings.
  std::function<void(int row, int col)> CellClick;
  std::function<void(int row, int col)> CellDblClick;

 private:
  struct Cell {
    std::string text;
    Colour colour = White;
  };
  [[nodiscard]] const Cell& At(int row, int col) const {
    if (row < 0 || row >= rows_ || col < 0 || col >= cols_) throw GridFault{};
    return cells_[static_cast<size_t>(row) * static_cast<size_t>(cols_) + static_cast<size_t>(col)];
  }

  int cols_;
  int rows_ = 1;
  std::vector<Cell> cells_;
  std::vector<int> rowHeight_;
  std::vector<int> colWidth_;
  std::vector<int> colAlignment_;
  unsigned layout_ = 0;
};

}  // namespace zelvo::panel
