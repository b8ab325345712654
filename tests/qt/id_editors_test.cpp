// The editors of the ID locations of both families, by mouse and keyboard.
#include <QLabel>

#include "image/buffers.h"
#include "qt/list_view.h"
#include "qt/over_cell.h"

namespace zelvo::test {
namespace {

using panel::IDLocEdit;
using panel::IDLocEdit_F16;

enum Row { Character = 1, Hex, Decimal };

class IdEditors : public OverCellTest {
 protected:
  void OpenPic18() {
    Start();
    Choose("PIC18F452");
    LoadFile(BlinkerFile);
    Reopen();
  }
  void Reopen() {
    Click("IDMod");
    Meet("IDLocEdit");
  }
  void OpenMid() {
    Start();
    ASSERT_EQ(panel::HandTab(panel::Form1.TabStrip1, panel::MidRangeTab), panel::HandResult::Done);
    ASSERT_EQ(panel::HandChoose(panel::Form1.Combo2, "PIC16F887"), panel::HandResult::Done);
    Settle();
    Click("IDMod_F16");
    Meet("IDLocEdit_F16");
  }
  std::string Column(int col) const {
    return Cell(Character, col) + '|' + Cell(Hex, col) + '|' + Cell(Decimal, col);
  }
};

TEST_F(IdEditors, ShowEveryColumnWholeUnderItsHeading) {
  OpenPic18();
  EXPECT_EQ(window->windowTitle(), QStringLiteral("User ID bájtok szerkesztése"));
  EXPECT_EQ(Grid().model()->columnCount(), 9);
  EXPECT_EQ(Grid().model()->rowCount(), 3);
  EXPECT_EQ(Grid().model()->headerData(8, Qt::Horizontal).toString(), QStringLiteral("ID 8"));
  EXPECT_EQ(Cell(Hex, 0), "Hexa kódos");
  EXPECT_TRUE(Grid().viewport()->rect().contains(CellRect(Grid(), Decimal, 8)));
  EXPECT_EQ(Grid().toolTip(), QStringLiteral("Dupla kattint-> szerkeszt"));
  Keep(*window, "id-editor");
}

TEST_F(IdEditors, LayTheBoxExactlyOverTheCellThatIsDoubleClicked) {
  OpenPic18();
  for (const int row : {Character, Hex, Decimal}) {
    for (const int col : {1, 8}) {
      DoubleClickCell(row, col);
      ExpectBoxOver(row, col);
      EXPECT_TRUE(GetsFocus(Box()));
    }
  }
  Keep(*window, "id-editor-cell");
  ExpectBoxFollows(Decimal, 8);
}

TEST_F(IdEditors, BoxOfTheMidRangeEditorKeepsToItsCell) {
  OpenMid();
  Keep(*window, "mid-id-editor");
  for (const int row : {Hex, Decimal}) {
    DoubleClickCell(row, 4);
    ExpectBoxOver(row, 4);
  }
  Keep(*window, "mid-id-editor-cell");
  ExpectBoxFollows(Decimal, 4);
}

TEST_F(IdEditors, EnterFillsTheColumnAndAcceptFillsTheMainWindowsList) {
  OpenPic18();
  DoubleClickCell(Hex, 2);
  Type("5a");
  Key(Qt::Key_Return);
  EXPECT_FALSE(Box().isVisible());
  EXPECT_TRUE(GetsFocus(Grid()));
  EXPECT_EQ(Column(2), "Z|5A|90");
  DoubleClickCell(Character, 3);
  Type("é");
  Key(Qt::Key_Return);
  EXPECT_EQ(Column(3), "é|E9|233");
  Press("Módosít");
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(Find<desktop::Readout>("IDLOC21")->text(), QStringLiteral("5A  Z"));
  EXPECT_EQ(Log().front(), ":  ID Loc szerkesztés befelyezve.");
}

TEST_F(IdEditors, EscapeHidesTheBoxAndThenCancelsTheWindow) {
  OpenPic18();
  const std::string before = Column(1);
  DoubleClickCell(Hex, 1);
  Type("77");
  Key(Qt::Key_Escape);
  EXPECT_FALSE(Box().isVisible());
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(Column(1), before);
  ClickCell(Character, 5);
  EXPECT_EQ(Cell(Hex, 1), "77") << "a click on the grid commits what was left";
  Key(Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(Log()[1], ":  Szerkesztett ID Loc tartalom Nem lett Pufferbe áttölve.");
}

TEST_F(IdEditors, RefusedTextIsToldAndTheCellKeepsItsOldOne) {
  OpenPic18();
  const std::string before = Column(4);
  DoubleClickCell(Decimal, 4);
  Type("12.5");
  EXPECT_EQ(Told([this] { Key(Qt::Key_Return); }), "A bevitel nem lehet törtszám!");
  EXPECT_FALSE(Box().isVisible());
  EXPECT_EQ(Column(4), before);
}

TEST_F(IdEditors, CancelAndFrameChangeNothing) {
  OpenPic18();
  const QString before = Find<desktop::Readout>("IDLOC11")->text();
  for (const bool byFrame : {false, true}) {
    DoubleClickCell(Hex, 1);
    Type("21");
    Key(Qt::Key_Return);
    EXPECT_EQ(Column(1), "!|21|33");
    if (byFrame) {
      window->close();
    } else {
      Press("Mégse");
    }
    Settle();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(Find<desktop::Readout>("IDLOC11")->text(), before);
    Reopen();
  }
}

TEST_F(IdEditors, AreUsedByKeyboardAlone) {
  OpenMid();
  EXPECT_TRUE(GetsFocus(Grid()));
  EXPECT_EQ(Grid().currentIndex(), Grid().model()->index(0, 1));
  Key(Qt::Key_Down);
  Key(Qt::Key_Right);
  Key(Qt::Key_Return);
  ExpectBoxOver(Hex, 2);
  Type("3FFF");
  Key(Qt::Key_Return);
  EXPECT_EQ(Cell(Decimal, 2), "16383");
  Key(Qt::Key_Tab);
  EXPECT_EQ(FocusName(), "Módosít");
  Key(Qt::Key_Tab);
  EXPECT_EQ(FocusName(), "Mégse");
  Key(Qt::Key_Tab);
  Key(Qt::Key_Tab);
  Key(Qt::Key_Return);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(image::MidIdWords[2], 0x3FFF);
}

TEST_F(IdEditors, ButtonOfTheMainWindowBringsTheWindowToTheFrontWithNoBoxOpen) {
  OpenPic18();
  desk.Main().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&desk.Main()));
  Reopen();
  EXPECT_TRUE(IDLocEdit.Loaded());
  EXPECT_FALSE(Box().isVisible());
}

}  // namespace
}  // namespace zelvo::test
