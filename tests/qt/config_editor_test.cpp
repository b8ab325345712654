// The editor of the configuration bits, by mouse and keyboard.
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QToolTip>
#include <array>

#include "qt/desk.h"
#include "qt/grid_view.h"
#include "qt/list_view.h"

namespace zelvo::test {
namespace {

using desktop::GridView;
using panel::ConfEdit;
using panel::Form1;

const std::array<const char*, 14> GridNames = {"Conf1L", "Conf1H", "Conf2L", "Conf2H", "Conf3L",
                                               "Conf3H", "Conf4L", "Conf4H", "Conf5L", "Conf5H",
                                               "Conf6L", "Conf6H", "Conf7L", "Conf7H"};

/// Opened on a PIC18F452 with the example file, whose Config1H is 21h: OSCEN 1, Fosc2 0, Fosc1 0, Fosc0 1.
class ConfigEditor : public SessionTest {
 protected:
  void SetUp() override {
    Start();
    Choose("PIC18F452");
    LoadFile(BlinkerFile);
    OpenEditor();
  }
  void OpenEditor() {
    Click("ConfRészlEdit");
    Settle();
    window = SecondaryWindow("ConfEdit");
    ASSERT_NE(window, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  }
  GridView* GridOf(const std::string& name) const { return FindIn<GridView>(window, name); }
  QLineEdit* Box() const { return FindIn<QLineEdit>(window, "Text1"); }
  QPushButton* Button(const std::string& name) const { return FindIn<QPushButton>(window, name); }
  static QRect CellRect(const GridView& grid, int col) {
    return grid.visualRect(grid.model()->index(0, col));
  }
  static QRect CellOnScreen(const GridView& grid, int col) {
    const QRect cell = CellRect(grid, col);
    return {grid.viewport()->mapToGlobal(cell.topLeft()), cell.size()};
  }
  static QString Cell(const GridView& grid, int col) { return grid.model()->index(0, col).data().toString(); }
  void OpenCell(const std::string& name, int col) {
    NativeDoubleClick(*GridOf(name)->viewport(), CellRect(*GridOf(name), col).center());
    Settle();
  }
  std::string MainList(const std::string& name) { return Find<desktop::Readout>(name)->text().toStdString(); }

  QWidget* window = nullptr;
};

/// The darkest shade in a part of a widget: 0 is black.
int Darkest(QWidget& widget, const QRect& part) {
  const QImage image = widget.grab(part).toImage();
  int darkest = 255;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) darkest = std::min(darkest, qGray(image.pixel(x, y)));
  }
  return darkest;
}

TEST_F(ConfigEditor, FitsOnALaptopsScreenWithEveryGridWholeAndEveryNameReadable) {
  EXPECT_EQ(window->windowTitle(), QStringLiteral("Configurációs bájtok szerkesztése"));
  EXPECT_GE(window->width(), window->minimumSizeHint().width());
  EXPECT_LE(window->width(), 1366 - 12);
  EXPECT_LE(window->height(), 768 - 40);
  for (const char* name : GridNames) {
    const GridView& grid = *GridOf(name);
    EXPECT_EQ(grid.verticalScrollBar()->maximum(), 0) << name;
    EXPECT_EQ(grid.horizontalScrollBar()->maximum(), 0) << name;
    EXPECT_FALSE(grid.verticalScrollBar()->isVisible()) << name;
    EXPECT_GE(grid.viewport()->height(), grid.rowHeight(0)) << name;
    // The longest name of any chip, in the narrowest column.
    const int longest = grid.fontMetrics().horizontalAdvance(QStringLiteral("t1oscmx"));
    for (int col = 0; col <= 8; ++col) EXPECT_GT(grid.columnWidth(col), longest) << name << ' ' << col;
  }
  Keep(*window, "config-editor");
}

TEST_F(ConfigEditor, StandsInTwoColumnsLowBytesLeftAndHighBytesRight) {
  for (std::size_t at = 0; at < GridNames.size(); at += 2) {
    const QRect low = OnScreen(*GridOf(GridNames[at]));
    const QRect high = OnScreen(*GridOf(GridNames[at + 1]));
    EXPECT_EQ(low.top(), high.top());
    EXPECT_LT(low.right(), high.left());
    const auto label = OnScreen(*FindIn<QWidget>(window, "Label" + std::to_string(at + 1)));
    EXPECT_LE(label.bottom(), low.top());
    EXPECT_EQ(label.left(), low.left());
    const int above = at > 0 ? OnScreen(*GridOf(GridNames[at - 2])).bottom() : 0;
    EXPECT_GT(label.top(), above);
  }
}

TEST_F(ConfigEditor, ShowsNamesInTheHeadingsAndStatesBelow) {
  const GridView& grid = *GridOf("Conf1H");
  EXPECT_EQ(grid.model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Funkció"));
  EXPECT_EQ(grid.model()->headerData(3, Qt::Horizontal).toString(), QStringLiteral("OSCEN"));
  EXPECT_EQ(Cell(grid, 0), QStringLiteral("Állapot"));
  EXPECT_EQ(Cell(grid, 3), QStringLiteral("1"));
  EXPECT_EQ(Cell(grid, 6), QStringLiteral("0"));
}

TEST_F(ConfigEditor, DrawsBitsThatAreNotAvailableFaintly) {
  GridView& grid = *GridOf("Conf1H");
  QHeaderView& heading = *grid.horizontalHeader();
  const auto section = [&](int col) {
    return QRect(heading.sectionViewportPosition(col) + 2, 2, heading.sectionSize(col) - 4,
                 heading.height() - 6);
  };
  EXPECT_LT(Darkest(*heading.viewport(), section(3)), 130);
  EXPECT_GT(Darkest(*heading.viewport(), section(1)), 150);
  EXPECT_LT(Darkest(*grid.viewport(), CellRect(grid, 3).adjusted(3, 3, -3, -3)), 80);
  EXPECT_GT(Darkest(*grid.viewport(), CellRect(grid, 1).adjusted(3, 3, -3, -3)), 150);
}

TEST_F(ConfigEditor, OpensTheBoxExactlyOverTheCellThatIsDoubleClicked) {
  EXPECT_FALSE(Box()->isVisible());
  OpenCell("Conf1H", 3);
  EXPECT_TRUE(Box()->isVisible());
  EXPECT_EQ(OnScreen(*Box()), CellOnScreen(*GridOf("Conf1H"), 3));
  EXPECT_EQ(Box()->text(), QStringLiteral("1"));
  EXPECT_EQ(Box()->cursorPosition(), 1);
  EXPECT_TRUE(Box()->hasFocus());
  Keep(*window, "config-editor-cell");
}

TEST_F(ConfigEditor, StoresTheDigitThatIsTypedAndEntered) {
  OpenCell("Conf1H", 3);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_0);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  Settle();
  EXPECT_FALSE(Box()->isVisible());
  EXPECT_EQ(Cell(*GridOf("Conf1H"), 3), QStringLiteral("0"));
  EXPECT_TRUE(ConfEdit.Loaded());
  EXPECT_TRUE(GridOf("Conf1H")->hasFocus());
}

TEST_F(ConfigEditor, TakesADigitThatReplacesTheOldOneByBackspace) {
  OpenCell("Conf1H", 8);
  QTest::keyClick(Box(), Qt::Key_End);
  QTest::keyClick(Box(), Qt::Key_Backspace);
  QTest::keyClicks(Box(), QStringLiteral("0"));
  QTest::keyClick(Box(), Qt::Key_Enter);
  Settle();
  EXPECT_EQ(Cell(*GridOf("Conf1H"), 8), QStringLiteral("0"));
}

TEST_F(ConfigEditor, EscapeLeavesTheTextForTheNextClickOnAGrid) {
  OpenCell("Conf1H", 3);
  QTest::keyClicks(Box(), QStringLiteral("0"));
  QTest::keyClick(Box(), Qt::Key_Escape);
  Settle();
  EXPECT_FALSE(Box()->isVisible());
  EXPECT_TRUE(ConfEdit.Loaded());
  EXPECT_EQ(Cell(*GridOf("Conf1H"), 3), QStringLiteral("1"));
  GridView& other = *GridOf("Conf7L");
  NativeClick(*other.viewport(), CellRect(other, 8).center());
  Settle();
  EXPECT_EQ(Cell(*GridOf("Conf1H"), 3), QStringLiteral("0"));
  EXPECT_EQ(Cell(other, 8), QStringLiteral("1"));
}

TEST_F(ConfigEditor, DoubleClickOnAnotherCellStoresTheFirstAndOpensTheSecond) {
  OpenCell("Conf1H", 3);
  QTest::keyClicks(Box(), QStringLiteral("0"));
  OpenCell("Conf5L", 6);
  EXPECT_EQ(Cell(*GridOf("Conf1H"), 3), QStringLiteral("0"));
  EXPECT_TRUE(Box()->isVisible());
  EXPECT_TRUE(Box()->hasFocus());
  EXPECT_EQ(OnScreen(*Box()), CellOnScreen(*GridOf("Conf5L"), 6));
  EXPECT_EQ(Box()->text(), QStringLiteral("1"));
}

TEST_F(ConfigEditor, ClickOnAHeadingStoresTheOpenText) {
  OpenCell("Conf1H", 3);
  QTest::keyClicks(Box(), QStringLiteral("0"));
  QHeaderView& heading = *GridOf("Conf2L")->horizontalHeader();
  NativeClick(*heading.viewport(), QPoint(heading.sectionViewportPosition(2) + 8, heading.height() / 2));
  Settle();
  EXPECT_EQ(Cell(*GridOf("Conf1H"), 3), QStringLiteral("0"));
}

TEST_F(ConfigEditor, NeverOpensHeadings) {
  QHeaderView& heading = *GridOf("Conf1H")->horizontalHeader();
  NativeDoubleClick(*heading.viewport(),
                    QPoint(heading.sectionViewportPosition(3) + 8, heading.height() / 2));
  Settle();
  OpenCell("Conf1H", 0);
  EXPECT_FALSE(Box()->isVisible());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(ConfigEditor, TellsOfABitThatIsNotUsed) {
  std::string told;
  AnswerNextBox(QStringLiteral("Ok"), &told);
  OpenCell("Conf1H", 1);
  EXPECT_EQ(told, " Ez a bit nincs használva!");
  EXPECT_FALSE(Box()->isVisible());
}

TEST_F(ConfigEditor, RefusesAnythingButOneDigitAndShowsTheOldStateAgain) {
  OpenCell("Conf1H", 3);
  QTest::keyClicks(Box(), QStringLiteral("01"));
  std::string told;
  AnswerNextBox(QStringLiteral("Ok"), &told);
  QTest::keyClick(Box(), Qt::Key_Return);
  Settle();
  EXPECT_EQ(told, "A bevitel csak 1 vagy 0 lehet! ");
  EXPECT_FALSE(Box()->isVisible());
  EXPECT_EQ(Cell(*GridOf("Conf1H"), 3), QStringLiteral("1"));
}

TEST_F(ConfigEditor, KeepsTheBoxOverItsCellWhenWindowAndColumnsChange) {
  OpenCell("Conf6H", 2);
  GridView& grid = *GridOf("Conf6H");
  window->resize(window->width() + 150, window->height() + 60);
  QTest::qWait(20);
  EXPECT_EQ(OnScreen(*Box()), CellOnScreen(grid, 2));
  grid.setColumnWidth(1, grid.columnWidth(1) + 13);
  QTest::qWait(20);
  EXPECT_EQ(OnScreen(*Box()), CellOnScreen(grid, 2));
  EXPECT_TRUE(Box()->hasFocus());
  Keep(*window, "config-editor-wide");
}

TEST_F(ConfigEditor, IsWalkedThroughByKeyboard) {
  GridOf("Conf1L")->setFocus();
  for (std::size_t at = 1; at < GridNames.size(); ++at) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), GridNames[at]);
  }
  for (const char* button : {"BetPufferbe", "Mégse", "Conf1L"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), button);
  }
}

TEST_F(ConfigEditor, IsEditedByKeyboardAlone) {
  GridView& grid = *GridOf("Conf1H");
  grid.setFocus();
  for (int step = 0; step < 3; ++step) QTest::keyClick(&grid, Qt::Key_Right);
  for (const Qt::Key opening : {Qt::Key_F2, Qt::Key_Return}) {
    QTest::keyClick(&grid, opening);
    Settle();
    ASSERT_TRUE(Box()->hasFocus());
    EXPECT_EQ(OnScreen(*Box()), CellOnScreen(grid, 3));
    const QString digit = opening == Qt::Key_F2 ? QStringLiteral("0") : QStringLiteral("1");
    QTest::keyClicks(Box(), digit);
    QTest::keyClick(Box(), Qt::Key_Down);  // moves nothing under the box
    QTest::keyClick(Box(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(Cell(grid, 3), digit);
    EXPECT_TRUE(grid.hasFocus());
  }
}

TEST_F(ConfigEditor, KeysThatAreHeldDoNoMoreThanOneThing) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
    OpenCell("Conf1H", 3);
    QTest::keyPress(Box(), key);
    Settle();
    EXPECT_FALSE(Box()->isVisible());
    HoldKey(*QApplication::focusWidget(), key);
    Settle();
    EXPECT_FALSE(Box()->isVisible());
    EXPECT_TRUE(ConfEdit.Loaded());
    HoldKey(*Button("BetPufferbe"), Qt::Key_Return);
    EXPECT_TRUE(ConfEdit.Loaded());
  }
}

TEST_F(ConfigEditor, AcceptBringsTheBitsToTheMainWindowsLists) {
  EXPECT_EQ(MainList("Bconfig1H"), "0 0 1 0 0 0 0 1");
  OpenCell("Conf1H", 6);
  QTest::keyClicks(Box(), QStringLiteral("1"));
  QTest::keyClick(Box(), Qt::Key_Return);
  QTest::mouseClick(Button("BetPufferbe"), Qt::LeftButton);
  Settle();
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(MainList("Bconfig1H"), "0 0 1 0 0 1 0 1");
  EXPECT_EQ(Log().front(), ":  Config Szerkesztés Vége!");
}

TEST_F(ConfigEditor, CancelAndEscapeChangeNothing) {
  for (const bool byKey : {false, true}) {
    OpenCell("Conf1H", 6);
    QTest::keyClicks(Box(), QStringLiteral("1"));
    QTest::keyClick(Box(), Qt::Key_Return);
    if (byKey) {
      QTest::keyClick(GridOf("Conf1H"), Qt::Key_Escape);
    } else {
      QTest::mouseClick(Button("Mégse"), Qt::LeftButton);
    }
    Settle();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(Log().front(), ":  Config Szerkesztése Vége!");
    EXPECT_EQ(MainList("Bconfig1H"), "0 0 1 0 0 0 0 1");
    OpenEditor();
  }
}

TEST_F(ConfigEditor, OpensAfreshInFrontWithTheBoxGone) {
  OpenCell("Conf1H", 3);
  Click("ConfRészlEdit");
  Settle();
  EXPECT_TRUE(window->isVisible());
  EXPECT_FALSE(Box()->isVisible());
  EXPECT_EQ(Cell(*GridOf("Conf1H"), 3), QStringLiteral("1"));
}

TEST_F(ConfigEditor, LeavesTheMainWindowUsable) {
  EXPECT_FALSE(window->isModal());
  QTest::mouseClick(Find<QWidget>("Névjegy"), Qt::LeftButton);
  EXPECT_TRUE(panel::névjegy_ablak.Loaded());
  EXPECT_TRUE(ConfEdit.Loaded());
}

TEST_F(ConfigEditor, TellsHowToEditInItsTipsAndBesideItsButtons) {
  EXPECT_EQ(GridOf("Conf3H")->toolTip(), QStringLiteral("Dupla Kattintás -> Szerkesztés"));
  QWidget& cells = *GridOf("Conf3H")->viewport();
  QHelpEvent ask(QEvent::ToolTip, QPoint(90, 5), cells.mapToGlobal(QPoint(90, 5)));
  QApplication::sendEvent(&cells, &ask);
  EXPECT_EQ(QToolTip::text(), QStringLiteral("Dupla Kattintás -> Szerkesztés"));
}

}  // namespace
}  // namespace zelvo::test
