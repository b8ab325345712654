// The editors of one Flash word and of one EEPROM byte, by mouse and keyboard.
#include <QLabel>

#include "image/buffers.h"
#include "qt/over_cell.h"

namespace zelvo::test {
namespace {

using desktop::GridView;
using panel::EEPROM_Edit;
using panel::Flash_Edit;
using panel::Form1;

enum Column { Hex = 1, Decimal, Binary };

class CellEditors : public OverCellTest {
 protected:
  void SetUp() override {
    Start();
    Choose("PIC18F452");
    LoadFile(BlinkerFile);
  }
  void DoubleClickMain(const std::string& grid, int row, int col) {
    auto* view = Find<GridView>(grid);
    NativeDoubleClick(*view->viewport(), CellRect(*view, row, col).center());
    Settle();
  }
  void OpenFlash(int row = 2, int col = 3) {
    image::MainBuffer(col, row) = std::string("1F40");
    DoubleClickMain("MSFlexGrid1", row, col);
    Meet("Flash_Edit");
  }
  void OpenEeprom(int row = 2, int col = 3) {
    DoubleClickMain("MSFlexGrid2", row, col);
    Meet("EEPROM_Edit");
  }
  std::string Values() const { return Cell(1, Hex) + '|' + Cell(1, Decimal) + '|' + Cell(1, Binary); }
};

TEST_F(CellEditors, ShowTheAddressTheRangeAndTheValueThreeTimes) {
  OpenFlash();
  EXPECT_EQ(window->windowTitle(), QStringLiteral("Flash szerkesztése"));
  EXPECT_EQ(FindIn<QLabel>(window, "Label1")->text(), QStringLiteral("Hex: 000A   Dec: 10"));
  EXPECT_EQ(Values(), "1F40|8000|0001 1111 0100 0000");
  for (const auto& [col, heading] : {std::pair{1, "HEX"}, {2, "DEC"}, {3, "BIN"}})
    EXPECT_EQ(Grid().model()->headerData(col, Qt::Horizontal).toString(), QString::fromLatin1(heading));
  Keep(*window, "flash-editor");
  Key(Qt::Key_Escape);
  OpenEeprom();
  EXPECT_EQ(window->windowTitle(), QStringLiteral("EEPROM szerkesztése"));
  Keep(*window, "eeprom-editor");
}

TEST_F(CellEditors, OpenNothingFromTheHeadingsOfTheMainGrids) {
  for (const char* name : {"MSFlexGrid1", "MSFlexGrid2"}) {
    DoubleClickMain(name, 1, 0);
    auto* view = Find<GridView>(name);
    QHeaderView& heading = *view->horizontalHeader();
    NativeDoubleClick(*heading.viewport(), QPoint(heading.sectionViewportPosition(3) + 5, 5));
    Settle();
  }
  EXPECT_FALSE(Flash_Edit.Loaded() || EEPROM_Edit.Loaded());
}

TEST_F(CellEditors, LayTheBoxExactlyOverTheCellThatIsClicked) {
  OpenFlash();
  EXPECT_FALSE(Box().isVisible());
  for (const int col : {Hex, Decimal, Binary}) {
    ClickCell(1, col);
    ExpectBoxOver(1, col);
    EXPECT_TRUE(GetsFocus(Box()));
    EXPECT_EQ(Box().text().toStdString(), Cell(1, col));
    EXPECT_EQ(Box().selectedText(), Box().text());
  }
  Keep(*window, "flash-editor-cell");
  ExpectBoxFollows(1, Binary);
  Keep(*window, "flash-editor-wide");
}

TEST_F(CellEditors, BoxOfTheEepromEditorKeepsToItsCell) {
  OpenEeprom();
  ClickCell(1, Binary);
  ExpectBoxOver(1, Binary);
  Keep(*window, "eeprom-editor-cell");
  ExpectBoxFollows(1, Binary);
}

TEST_F(CellEditors, EnterKeepsTheOtherColumnsInStepAndOkWritesTheCell) {
  OpenFlash();
  ClickCell(1, Hex);
  Type("1f");
  Key(Qt::Key_Backspace);
  Type("F");
  Key(Qt::Key_Return);
  EXPECT_FALSE(Box().isVisible());
  EXPECT_TRUE(GetsFocus(Grid()));
  EXPECT_EQ(Values(), "001F|31|0000 0000 0001 1111");
  EXPECT_TRUE(Flash_Edit.Loaded());
  Press("OK");
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(CellText(*Find<GridView>("MSFlexGrid1"), 2, 3), "001F");
  EXPECT_EQ(image::MainBuffer(3, 2).View(), "001F");
}

TEST_F(CellEditors, OkByMouseTakesTheOpenTextOnce) {
  OpenEeprom();
  ClickCell(1, Decimal);
  Type("171");
  Press("OK");
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(CellText(*Find<GridView>("MSFlexGrid2"), 2, 3), "AB");

  OpenEeprom();
  ClickCell(1, Decimal);
  Type("256");
  // One message: a second one would wait for an answer for ever.
  EXPECT_EQ(Told([this] { Press("OK"); }), "Helyes Tartomány: 0 és 255 között");
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(GetsFocus(Box()));
  EXPECT_EQ(Box().text(), QStringLiteral("171"));
  Press("OK");
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(CellText(*Find<GridView>("MSFlexGrid2"), 2, 3), "AB");
}

TEST_F(CellEditors, CancelNeverJudgesAnAbandonedText) {
  for (const bool byKey : {false, true}) {
    OpenFlash();
    const std::string before = CellText(*Find<GridView>("MSFlexGrid1"), 2, 3);
    ClickCell(1, Hex);
    Type("nonsense");
    if (byKey) {
      Key(Qt::Key_Escape);
    } else {
      Press("Mégse");
    }
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_FALSE(Flash_Edit.Loaded());
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(CellText(*Find<GridView>("MSFlexGrid1"), 2, 3), before);
    EXPECT_EQ(image::MainBuffer(3, 2).View(), "1F40");
  }
}

TEST_F(CellEditors, FrameLeavesLikeCancel) {
  OpenFlash();
  ClickCell(1, Decimal);
  Type("x");
  window->close();
  Settle();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(image::MainBuffer(3, 2).View(), "1F40");
}

TEST_F(CellEditors, AnotherCellTabAndTheBareSurfaceCommit) {
  OpenFlash();
  ClickCell(1, Hex);
  Type("0001");
  ClickCell(1, Decimal);
  EXPECT_EQ(Values(), "0001|1|0000 0000 0000 0001");
  ExpectBoxOver(1, Decimal);

  Type("2");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Cell(1, Hex), "0002");
  EXPECT_FALSE(Box().isVisible());
  EXPECT_EQ(FocusName(), "OK");

  ClickCell(1, Binary);
  Type("11");
  NativeClick(*window, QPoint(3, window->height() - 3));
  Settle();
  EXPECT_EQ(Cell(1, Hex), "0003");
  EXPECT_FALSE(Box().isVisible());
  EXPECT_TRUE(GetsFocus(Grid()));

  ClickCell(1, Decimal);
  Type("4");
  auto* hint = FindIn<QLabel>(window, "Label2");
  NativeClick(*hint, hint->rect().center());
  Settle();
  EXPECT_EQ(Cell(1, Hex), "0004");

  ClickCell(1, Decimal);
  Type("5");
  QHeaderView& heading = *Grid().horizontalHeader();
  NativeClick(*heading.viewport(), QPoint(heading.sectionViewportPosition(Hex) + 5, heading.height() / 2));
  Settle();
  EXPECT_EQ(Cell(1, Hex), "0005");
  EXPECT_FALSE(Box().isVisible());
}

TEST_F(CellEditors, RefusedTextOfALeftBoxBringsTheOldOneAndTheFocusBack) {
  OpenFlash();
  const auto surface = [this] { NativeClick(*window, QPoint(3, 3)); };
  const auto tab = [this] { QTest::keyClick(Focused(), Qt::Key_Tab); };
  const auto enter = [this] { QTest::keyClick(Focused(), Qt::Key_Return); };
  const std::pair<std::function<void()>, const char*> ways[] = {
      {surface, "on the surface"}, {tab, "Tab"}, {enter, "Enter"}};
  for (const auto& [leave, how] : ways) {
    ClickCell(1, Hex);
    Type("12G4");
    EXPECT_EQ(Told(leave), "Nem megfelelő formátum. 0-9, A-F,(XXXX)") << how;
    ExpectBoxOver(1, Hex);
    EXPECT_EQ(Box().text(), QStringLiteral("1F40")) << how;
    EXPECT_TRUE(GetsFocus(Box())) << how;
    EXPECT_EQ(Values(), "1F40|8000|0001 1111 0100 0000");
    Key(Qt::Key_Return);
  }
}

TEST_F(CellEditors, ClickOnAnotherCellStaysOnTheOldOneWithATextThatIsRefused) {
  OpenFlash();
  ClickCell(1, Decimal);
  Type("65536");
  // The button of the mouse comes up while the message stands in front, where it reaches no window.
  EXPECT_EQ(Told([this] {
              const QPoint other = Grid().viewport()->mapTo(window, CellRect(Grid(), 1, Hex).center());
              QTest::mousePress(window->windowHandle(), Qt::LeftButton, {}, other);
            }),
            "Helyes Tartomány: 0 és 65535 között.");
  ExpectBoxOver(1, Decimal);
  EXPECT_EQ(Box().text(), QStringLiteral("8000"));
  EXPECT_TRUE(GetsFocus(Box()));
}

TEST_F(CellEditors, AnotherProgramAndAMessageAreNoReasonToCommit) {
  OpenFlash();
  ClickCell(1, Hex);
  Type("nonsense");
  QWidget stranger;
  stranger.show();
  stranger.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&stranger));
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  AnswerNextBox(QStringLiteral("Ok"));
  platform::seams.dialogs->Message("A program befejeződött");
  EXPECT_EQ(Box().text(), QStringLiteral("nonsense"));
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  EXPECT_TRUE(GetsFocus(Box()));
  EXPECT_EQ(Box().text(), QStringLiteral("nonsense"));
}

TEST_F(CellEditors, AreUsedByKeyboardAlone) {
  auto* main = Find<GridView>("MSFlexGrid1");
  main->setFocus();
  main->setCurrentIndex(main->model()->index(1, 3));
  QTest::keyClick(main, Qt::Key_Return);
  Meet("Flash_Edit");
  EXPECT_TRUE(GetsFocus(Grid()));
  EXPECT_EQ(Grid().currentIndex(), Grid().model()->index(0, Hex));

  Key(Qt::Key_F2);
  ExpectBoxOver(1, Hex);
  Type("00FF");
  Key(Qt::Key_Return);
  Key(Qt::Key_Right);
  Key(Qt::Key_Return);
  ExpectBoxOver(1, Decimal);
  EXPECT_EQ(Box().text(), QStringLiteral("255"));
  HoldKey(Box(), Qt::Key_Return);  // the key that opened it
  EXPECT_TRUE(Box().isVisible());
  Type("256");
  Key(Qt::Key_Tab);
  EXPECT_EQ(FocusName(), "OK");
  Key(Qt::Key_Tab);
  EXPECT_EQ(FocusName(), "Mégse");
  Key(Qt::Key_Tab);
  EXPECT_EQ(FocusName(), "MSFlexGrid1");
  Key(Qt::Key_Tab);
  Key(Qt::Key_Return);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(CellText(*main, 2, 3), "0100");
}

TEST_F(CellEditors, OpenOnTheValueCellWithTheKeyboardAgainAndAgain) {
  for (int time = 0; time < 2; ++time) {
    OpenFlash();
    EXPECT_TRUE(GetsFocus(Grid())) << FocusName();
    EXPECT_EQ(Grid().currentIndex(), Grid().model()->index(0, Hex));
    ClickCell(1, Binary);
    Key(Qt::Key_Return);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    // As a window manager does it when the window with the focus goes.
    desk.Main().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&desk.Main()));
  }
}

TEST_F(CellEditors, StandSideBySideEachForItsOwnCell) {
  OpenFlash();
  QWidget* flash = window;
  OpenEeprom();
  ClickCell(1, Hex);
  Type("12");
  Key(Qt::Key_Return);
  window = flash;
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  ClickCell(1, Hex);
  Type("3456");
  Press("OK");
  Meet("EEPROM_Edit");
  Press("OK");
  EXPECT_EQ(CellText(*Find<GridView>("MSFlexGrid1"), 2, 3), "3456");
  EXPECT_EQ(CellText(*Find<GridView>("MSFlexGrid2"), 2, 3), "12");
}

}  // namespace
}  // namespace zelvo::test
