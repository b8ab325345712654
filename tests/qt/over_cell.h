// Editors with a box over a cell, on the screen.
#pragma once

#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>

#include "qt/desk.h"
#include "qt/grid_view.h"

namespace zelvo::test {

/// The focus within the widget's window, a few events late behind a message box. Which window has the
/// keyboard is not asked: without a window manager that hangs on the order of the server's events.
inline bool GetsFocus(const QWidget& widget) {
  return QTest::qWaitFor([&widget] { return widget.window()->focusWidget() == &widget; });
}

/// Rows and columns are the panel's: row 0 and column 0 are the headings.
inline QRect CellRect(const desktop::GridView& grid, int row, int col) {
  return grid.visualRect(grid.model()->index(row - 1, col));
}
inline QRect CellOnScreen(const desktop::GridView& grid, int row, int col) {
  const QRect cell = CellRect(grid, row, col);
  return {grid.viewport()->mapToGlobal(cell.topLeft()), cell.size()};
}
inline std::string CellText(const desktop::GridView& grid, int row, int col) {
  return grid.model()->index(row - 1, col).data().toString().toStdString();
}

/// The whole program with an editor of one grid and one box open beside it.
class OverCellTest : public SessionTest {
 protected:
  using SessionTest::SessionTest;
  /// Looks the window up after it was opened, and waits until the keyboard is its own.
  void Meet(const std::string& name) {
    Settle();
    window = SecondaryWindow(name);
    ASSERT_NE(window, nullptr);
    ASSERT_TRUE(window->isVisible());
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  }
  desktop::GridView& Grid() const { return *FindIn<desktop::GridView>(window, "MSFlexGrid1"); }
  QLineEdit& Box() const { return *FindIn<QLineEdit>(window, "Text1"); }
  std::string Cell(int row, int col) const { return CellText(Grid(), row, col); }
  void ClickCell(int row, int col) {
    NativeClick(*Grid().viewport(), CellRect(Grid(), row, col).center());
    Settle();
  }
  void DoubleClickCell(int row, int col) {
    NativeDoubleClick(*Grid().viewport(), CellRect(Grid(), row, col).center());
    Settle();
  }
  void Press(const std::string& button) {
    auto* widget = FindIn<QPushButton>(window, button);
    NativeClick(*widget, widget->rect().center());
    Settle();
  }
  /// What keys go to, also while the server has not given the window the keyboard yet.
  QWidget* Focused() const {
    QWidget* focus = QApplication::focusWidget();
    return focus != nullptr ? focus : window->focusWidget();
  }
  /// A key for whatever has the focus.
  void Key(Qt::Key key) {
    QTest::keyClick(Focused(), key);
    Settle();
  }
  /// Types over the marked text of the box.
  void Type(const char* text) {
    for (const QChar letter : QString::fromUtf8(text)) {
      QTest::sendKeyEvent(QTest::Click, Focused(), Qt::Key_unknown, QString(letter), Qt::NoModifier);
    }
  }
  /// The message that comes up while `act` runs. Without a window manager its window has to be brought back.
  template <class Act>
  std::string Told(const Act& act) {
    std::string text = "(no message)";
    AnswerNextBox(QStringLiteral("Ok"), &text);
    act();
    Settle();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    return text;
  }
  static std::string FocusName() {
    const QWidget* focus = QApplication::focusWidget();
    return focus != nullptr ? focus->objectName().toStdString() : "(none)";
  }
  /// The box lies on its cell to the pixel and shows its text whole.
  void ExpectBoxOver(int row, int col) const {
    EXPECT_TRUE(Box().isVisible());
    EXPECT_EQ(OnScreen(Box()), CellOnScreen(Grid(), row, col));
    EXPECT_LE(Box().fontMetrics().horizontalAdvance(Box().text()), Box().width() - Box().height() / 2);
  }
  /// The box keeps to its cell while the window and the columns change.
  void ExpectBoxFollows(int row, int col) const {
    window->resize(window->width() + 120, window->height() + 40);
    QTest::qWait(20);
    ExpectBoxOver(row, col);
    Grid().setColumnWidth(0, Grid().columnWidth(0) + 17);
    QTest::qWait(20);
    ExpectBoxOver(row, col);
    Grid().setColumnWidth(col, Grid().columnWidth(col) + 9);
    QTest::qWait(20);
    ExpectBoxOver(row, col);
    EXPECT_TRUE(GetsFocus(Box()));
  }

  QWidget* window = nullptr;
};

}  // namespace zelvo::test
