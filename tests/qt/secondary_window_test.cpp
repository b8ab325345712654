// The windows beside the main window, and the boxes in front of it.
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QWindow>

#include "qt/desk.h"
#include "qt/grid_view.h"
#include "qt/list_view.h"

namespace zelvo::test {
namespace {

class SecondaryWindows : public DeskTest {
 protected:
  void SetUp() override { Open(); }
  void TearDown() override {
    for (panel::Window* window : panel::AllWindows()) {
      window->OnLoad = window->OnUnload = nullptr;
    }
  }
};

TEST_F(SecondaryWindows, AppearAndGoWithThePanelsWindow) {
  EXPECT_EQ(SecondaryWindow("Állapot"), nullptr);
  panel::Állapot.Load();
  Settle();
  QWidget* window = SecondaryWindow("Állapot");
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(window->windowTitle(), QStringLiteral("Flash Olvasás állapota"));
  panel::Állapot.Unload();
  Settle();
  EXPECT_FALSE(window->isVisible());
}

TEST_F(SecondaryWindows, StayAboveTheMainWindowWithoutBlockingIt) {
  panel::PICAzonos.Load();
  Settle();
  QWidget* window = SecondaryWindow("PICAzonos");
  EXPECT_EQ(window->windowHandle()->transientParent(), desk.Main().windowHandle());
  EXPECT_FALSE(window->isModal());
  const QPoint offset = window->frameGeometry().center() - desk.Main().frameGeometry().center();
  EXPECT_LT(offset.manhattanLength(), 10);
}

TEST_F(SecondaryWindows, AreClosedByTheirFrameThroughThePanel) {
  panel::PICAzonos.Load();
  Settle();
  bool told = false;
  panel::PICAzonos.OnUnload = [&told] { told = true; };
  SecondaryWindow("PICAzonos")->close();
  EXPECT_TRUE(told);
  EXPECT_FALSE(panel::PICAzonos.Loaded());
  EXPECT_FALSE(SecondaryWindow("PICAzonos")->isVisible());
}

TEST_F(SecondaryWindows, MayBeUnloadedFromTheirOwnButton) {
  panel::PICAzonos.Command1.Click = [] { panel::PICAzonos.Unload(); };
  panel::PICAzonos.Load();
  Settle();
  QTest::mouseClick(FindIn<QPushButton>(SecondaryWindow("PICAzonos"), "Command1"), Qt::LeftButton);
  Settle();
  EXPECT_FALSE(SecondaryWindow("PICAzonos")->isVisible());
  panel::PICAzonos.Load();
  Settle();
  EXPECT_TRUE(SecondaryWindow("PICAzonos")->isVisible());
}

TEST_F(SecondaryWindows, ProgressShowsTheBarAndTakesCancelByMouseAndByEscape) {
  int cancels = 0;
  panel::FlashÍrÁllapot.Command1.Click = [&cancels] { ++cancels; };
  panel::FlashÍrÁllapot.Load();
  panel::FlashÍrÁllapot.ProgressBar1.Max = 8192;
  panel::FlashÍrÁllapot.ProgressBar1.Step(4096);
  Settle();
  QWidget* window = SecondaryWindow("FlashÍrÁllapot");
  auto* bar = FindIn<QProgressBar>(window, "ProgressBar1");
  EXPECT_EQ(bar->maximum(), 8192);
  EXPECT_EQ(bar->value(), 4096);
  QTest::mouseClick(FindIn<QPushButton>(window, "Command1"), Qt::LeftButton);
  QTest::keyClick(window, Qt::Key_Escape);
  EXPECT_EQ(cancels, 2);
  Keep(*window, "progress");
}

TEST_F(SecondaryWindows, ReviewShowsVerdictColouredCellsAndItsButtons) {
  panel::FlashOlvWindow& review = panel::FlashOlv;
  review.Load();
  review.MSFlexGrid1.SetRows(1025);
  for (int row = 1; row <= 1024; ++row) {
    for (int col = 1; col <= 8; ++col) review.MSFlexGrid1.SetText(row, col, "  FFFF  ");
  }
  review.MSFlexGrid1.SetCellBackColor(2, 2, panel::LightRed);
  review.List1.AddItem(" Nem egyforma Buffer és a beolvasott tartalom!");
  review.Command1.Visible = false;
  Settle();
  QWidget* window = SecondaryWindow("FlashOlv");
  EXPECT_EQ(FindIn<desktop::Readout>(window, "List1")->text(),
            QStringLiteral("Nem egyforma Buffer és a beolvasott tartalom!"));
  auto* grid = FindIn<desktop::GridView>(window, "MSFlexGrid1");
  const QRect cell = grid->visualRect(grid->model()->index(1, 2));
  EXPECT_EQ(grid->viewport()->grab().toImage().pixelColor(cell.topLeft() + QPoint(2, 2)),
            QColor(255, 192, 192));
  EXPECT_FALSE(FindIn<QPushButton>(window, "Command1")->isVisible());
  EXPECT_TRUE(FindIn<QPushButton>(window, "FlashPuff")->isVisible());
  Keep(*window, "review");
}

/// A window without a layout of its own, as later windows of the program may be.
struct PlainWindow : panel::Window {
  PlainWindow() : Window("Próbaablak", "Próba") {}
  panel::Label Label1{*this, "Label1", "Név:"};
  panel::TextBox Text1{*this, "Text1"};
  panel::ComboBox Combo1{*this, "Combo1"};
  panel::CheckBox Check1{*this, "Check1", "Jelölő"};
  panel::OptionButton Option1{*this, "Option1", "Egyik"};
  panel::OptionButton Option2{*this, "Option2", "Másik"};
  panel::ListBox List1{*this, "List1"};
  panel::Grid Grid1{*this, "Grid1", 3};
  panel::ScrollBar Bar1{*this, "Bar1", 0, 10, 1};
  panel::ProgressBar Progress1{*this, "Progress1"};
  panel::Shape Shape1{*this, "Shape1"};
  panel::CommandButton OK{*this, "OK", "OK"};
};

TEST_F(SecondaryWindows, WithoutALayoutOfTheirOwnHaveAWidgetForEveryControl) {
  PlainWindow plain;
  plain.Load();
  Settle();
  QWidget* window = SecondaryWindow("Próbaablak");
  for (const panel::Control* control : plain.Controls()) {
    auto* widget = FindIn<QWidget>(window, control->Name());
    EXPECT_TRUE(widget != nullptr && widget->isVisible()) << control->Name();
  }
  Keep(*window, "plain-window");
  plain.Unload();
  panel::AllWindows().pop_back();
}

TEST_F(SecondaryWindows, MessageBoxHasOkOnlyAndTheTextAsItStands) {
  std::string text;
  AnswerNextBox(QStringLiteral("Ok"), &text);
  platform::seams.dialogs->Message("Nincs PIC kiválasztva!");
  EXPECT_EQ(text, "Nincs PIC kiválasztva!");
}

TEST_F(SecondaryWindows, QuestionsAreAnsweredWithIgenOrNemAndEscapeIsNem) {
  AnswerNextBox(QStringLiteral("Igen"));
  EXPECT_TRUE(platform::seams.dialogs->AskYesNo("Folytatod?"));
  AnswerNextBox(QStringLiteral("Nem"));
  EXPECT_FALSE(platform::seams.dialogs->AskYesNo("Folytatod?"));
  WhenModal([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_FALSE(platform::seams.dialogs->AskYesNo("Folytatod?"));
}

TEST_F(SecondaryWindows, QuestionOfTheLoaderLeavesItsWindowInSight) {
  panel::FelülDialog.Load();
  panel::FelülDialog.List1.AddItem(" Az ID Location bájtok már szerkesztve voltak.");
  WhenModal([this](QWidget& box) {
    QWidget* beside = SecondaryWindow("FelülDialog");
    ASSERT_NE(beside, nullptr);
    EXPECT_TRUE(beside->isVisible());
    EXPECT_FALSE(beside->frameGeometry().contains(box.frameGeometry().center()));
    box.close();
  });
  EXPECT_FALSE(platform::seams.dialogs->AskYesNo("Felülírjam a szerkesztett ID Location bájtokat?"));
}

TEST_F(SecondaryWindows, FileDialogGivesThePathOrNothingWhenCancelled) {
  const platform::FileFilter filter{".hex adatfájlok|*.HEX|Összes Fájl|*.*", ""};
  WhenModal([](QWidget& modal) { modal.close(); });
  EXPECT_EQ(platform::seams.dialogs->OpenFile(filter), std::nullopt);

  const QString path = QStringLiteral(ZELVO_SOURCE_DIR "/examples/blinker.hex");
  WhenModal([&path](QWidget& modal) {
    auto* dialog = qobject_cast<QFileDialog*>(&modal);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->nameFilters().size(), 2);
    auto* name = dialog->findChild<QLineEdit*>();
    ASSERT_NE(name, nullptr);
    name->setText(path);
    QTest::keyClick(name, Qt::Key_Return);
  });
  EXPECT_EQ(platform::seams.dialogs->OpenFile(filter), path.toStdString());

  WhenModal([](QWidget& modal) {
    EXPECT_TRUE(qobject_cast<QFileDialog*>(&modal)->directory().path().endsWith(QStringLiteral("/examples")));
    modal.close();
  });
  EXPECT_EQ(platform::seams.dialogs->OpenFile(filter), std::nullopt);
}

TEST(FileFilters, MatchUpperAndLowerCaseAlike) {
  EXPECT_EQ(
      desktop::NameFilters(".hex adatfájlok|*.HEX|Összes Fájl|*.*"),
      (QStringList{QStringLiteral(".hex adatfájlok (*.[hH][eE][xX])"), QStringLiteral("Összes Fájl (*)")}));
}

}  // namespace
}  // namespace zelvo::test
