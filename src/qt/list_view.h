// Views of the panel's lists: a scrolling one for logs, a compact one for lists that show a value.
#pragma once

#include <QAbstractListModel>
#include <QLabel>
#include <QListView>
#include <functional>

#include "panel/controls.h"

namespace zelvo::desktop {

/// Reads the lines of a list where they lie.
class LinesModel : public QAbstractListModel {
 public:
  LinesModel(const panel::ListBox& list, QObject* parent) : QAbstractListModel(parent), list_(list) {}
  void Reread();
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  const panel::ListBox& list_;
  int rows_ = 0;  ///< as the toolkit was told last
};

/// A list of any length. Stays where the reader scrolled it to when lines join at its top.
class LinesView : public QListView {
 public:
  LinesView(const panel::ListBox& list, QWidget* parent = nullptr);
  void Reread();
  /// Wants room for all lines in their whole length.
  void PreferWhole();
  [[nodiscard]] QSize sizeHint() const override;

 private:
  LinesModel* model_;
  bool whole_ = false;
};

/// The lines of a short list as one field, without the blanks around them.
class Readout : public QLabel {
 public:
  explicit Readout(QWidget* parent = nullptr);
  void Show(const std::vector<std::string>& lines);
  /// Makes the field a thing to click, by mouse or keyboard.
  void MakeClickable(std::function<void()> click);
  /// Draws runs of blanks inside a line as two.
  void CollapseBlanks() { collapse_ = true; }

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::function<void()> click_;
  bool collapse_ = false;
};

}  // namespace zelvo::desktop
