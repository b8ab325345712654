// A panel's grid on the screen: a table over a model that reads the cells where they lie, so that thousands
// of rows cost no more than the few that can be seen.
#pragma once

#include <QAbstractTableModel>
#include <QPointer>
#include <QTableView>

#include "panel/controls.h"
#include "panel/grid.h"

namespace zelvo::desktop {

class EditField;

/// Rows of the toolkit's table are the data rows; the panel's row 0 is the heading.
class GridModel : public QAbstractTableModel {
 public:
  GridModel(const panel::Grid& grid, QObject* parent);
  /// Takes over a changed number of rows. True when there was one.
  bool Relayout();

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

  [[nodiscard]] const panel::Grid& Source() const { return grid_; }
  /// The text as drawn, without the blanks around it; empty for a cell that is no longer there.
  [[nodiscard]] QString CellText(int dataRow, int col) const;
  [[nodiscard]] panel::Colour CellColour(int dataRow, int col) const;
  /// A value that blank memory holds is drawn faintly, unless it is one of a few that are looked at one by
  /// one.
  [[nodiscard]] bool IsBlank(const QString& text) const;
  void ShowBlanksLikeOthers() { faintBlanks_ = false; }
  /// A column whose heading says that it stands for nothing on the chip.
  [[nodiscard]] bool IsUnused(int col) const;

 private:
  const panel::Grid& grid_;
  unsigned layout_;
  int rows_;  ///< data rows, as the toolkit was told last
  bool faintBlanks_ = true;
};

class GridView : public QTableView {
 public:
  GridView(panel::Grid& grid, QWidget* parent = nullptr);
  /// Draws what has changed.
  void Reread();
  /// The width at which such texts in column 0 and in the others stand without being cut.
  [[nodiscard]] int LeastWidth(const QString& label, const QString& cell) const;
  /// Shows all rows at once, without scroll bars, in columns that hold a text as wide as `widest`.
  void ShowWhole(const QString& widest);
  /// The same, at no less than such a width.
  void ShowWhole(int leastWidth);
  /// Where the keyboard begins whenever the grid is built anew, counted as the panel does.
  void StartAt(int row, int col);
  /// Lays an edit box over a cell and keeps it there, however the cells move.
  void LayOver(EditField& box, const panel::CellPlace& place);

 protected:
  void updateEditorGeometries() override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void ConnectHand();
  void ShareWidth();
  void FitHeight();
  void GoToStart();
  void PlaceBox();
  [[nodiscard]] int CellMargin() const;  ///< of a text, both sides together

  panel::Grid& grid_;
  GridModel* model_;
  bool whole_ = false;
  int startRow_ = 0;  ///< 0 for none
  int startCol_ = 0;
  QPointer<QWidget> box_;  ///< may have moved on to another grid
  panel::CellPlace boxPlace_;
};

}  // namespace zelvo::desktop
