// The main window shows what the panel says and takes what the operator does to it.
#include <QAbstractSlider>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>

#include "qt/desk.h"
#include "qt/grid_view.h"
#include "qt/lamp.h"
#include "qt/list_view.h"
#include "qt/text.h"

namespace zelvo::test {
namespace {

using panel::Form1;

class MainWindow : public DeskTest {
 protected:
  void SetUp() override {
    Open();
    ShowPage(panel::Pic18Tab);
  }
  void ShowPage(int tab) {
    Form1.TabStrip1.SelectedItem = tab;
    Form1.Frame1.InFront = tab == panel::MidRangeTab;
    Form1.Frame0.InFront = tab == panel::Pic18Tab;
    Settle();
  }
};

TEST_F(MainWindow, HasAWidgetOfItsNameForEveryControlOfBothPages) {
  for (const panel::Control* control : Form1.Controls()) {
    EXPECT_NE(Find<QWidget>(control->Name()), nullptr) << control->Name();
  }
}

TEST_F(MainWindow, BearsTheFramesCaptionWithoutTheBlankAtItsEnd) {
  EXPECT_EQ(desk.Main().windowTitle(), QStringLiteral("Zelvo F18 & F16 & F12"));
}

TEST_F(MainWindow, ShowsEveryButtonWithItsWholeCaption) {
  for (const int tab : {panel::MidRangeTab, panel::Pic18Tab}) {
    ShowPage(tab);
    for (panel::Control* control : Form1.Controls()) {
      auto* button = dynamic_cast<panel::CommandButton*>(control);
      if (button == nullptr) continue;
      auto* view = Find<QPushButton>(button->Name());
      EXPECT_EQ(view->text(), desktop::Caption(button->Caption)) << button->Name();
      if (!view->isVisible()) continue;
      EXPECT_GE(view->width(), view->sizeHint().width()) << button->Name();
    }
  }
  Keep(desk.Main(), "pic18-page-empty");
}

TEST_F(MainWindow, TakesAClickOnEveryButtonOfThePageToThePanel) {
  for (const int tab : {panel::MidRangeTab, panel::Pic18Tab}) {
    ShowPage(tab);
    int seen = 0;
    for (panel::Control* control : Form1.Controls()) {
      auto* button = dynamic_cast<panel::CommandButton*>(control);
      if (button == nullptr) continue;
      auto* view = Find<QPushButton>(button->Name());
      if (!view->isVisible()) continue;
      int clicks = 0;
      button->Click = [&clicks] { ++clicks; };
      QTest::mouseClick(view, Qt::LeftButton);
      EXPECT_EQ(clicks, 1) << button->Name();
      button->Click = nullptr;
      ++seen;
    }
    EXPECT_EQ(seen, tab == panel::Pic18Tab ? 26 : 22);
  }
}

TEST_F(MainWindow, PressesTheButtonThatHasTheFocusWithEnterAndSpace) {
  int clicks = 0;
  Form1.FlashOl.Click = [&clicks] { ++clicks; };
  auto* view = Find<QPushButton>("FlashOl");
  view->setFocus();
  QTest::keyClick(view, Qt::Key_Return);
  QTest::keyClick(view, Qt::Key_Space);
  EXPECT_EQ(clicks, 2);
}

TEST_F(MainWindow, KeepsADisabledButtonFromTheOperator) {
  int clicks = 0;
  Form1.FlashOl.Click = [&clicks] { ++clicks; };
  Form1.FlashOl.Enabled = false;
  Settle();
  QTest::mouseClick(Find<QPushButton>("FlashOl"), Qt::LeftButton);
  EXPECT_EQ(clicks, 0);
  EXPECT_FALSE(Find<QPushButton>("FlashOl")->isEnabled());
}

TEST_F(MainWindow, FollowsACaptionThatTheProgramChanges) {
  Form1.ProgFut.Caption = "Vdd(+5V) Off";
  Settle();
  EXPECT_EQ(Find<QPushButton>("ProgFut")->text(), QStringLiteral("Vdd(+5V) Off"));
}

TEST_F(MainWindow, TicksABoxByMouseAndByKeyboard) {
  int clicks = 0;
  Form1.Check3.Click = [&clicks] { ++clicks; };
  auto* view = Find<QCheckBox>("Check3");
  QTest::mouseClick(view, Qt::LeftButton, {}, QPoint(view->height() / 2, view->height() / 2));
  EXPECT_TRUE(Form1.Check3.Value);
  QTest::keyClick(view, Qt::Key_Space);
  EXPECT_FALSE(Form1.Check3.Value);
  EXPECT_EQ(clicks, 2);
}

TEST_F(MainWindow, ShowsATickThatTheProgramTakesBackAtOnce) {
  Form1.Check1.Click = [] { Form1.Check1.Value = false; };
  auto* view = Find<QCheckBox>("Check1");
  QTest::mouseClick(view, Qt::LeftButton, {}, QPoint(view->height() / 2, view->height() / 2));
  EXPECT_FALSE(view->isChecked());
}

TEST_F(MainWindow, WritesOfTheProgramAreNoActsOfTheOperator) {
  int acts = 0;
  Form1.Check9.Value = true;
  Form1.ÁSeb.Value = 500;
  Form1.Combo1.AddItem("PIC18F452");
  Form1.Combo1.Text = std::string("PIC18F452");
  for (panel::Control* control :
       std::initializer_list<panel::Control*>{&Form1.Check9, &Form1.ÁSeb, &Form1.Combo1, &Form1.TabStrip1}) {
    control->Click = control->Change = [&acts] { ++acts; };
  }
  Form1.TabStrip1.SelectedItem = panel::MidRangeTab;
  Settle();
  EXPECT_EQ(acts, 0);
  EXPECT_TRUE(Find<QCheckBox>("Check9")->isChecked());
  EXPECT_EQ(Find<QAbstractSlider>("ÁSeb")->value(), 500);
  EXPECT_EQ(Find<QComboBox>("Combo1")->currentText(), QStringLiteral("PIC18F452"));
}

TEST_F(MainWindow, ShowsAComboTextThatIsNoLineOfItsList) {
  Form1.Combo1.AddItem("PIC18F452");
  Form1.Combo1.Text = std::string("PIC Kiválasztása");
  Settle();
  auto* view = Find<QComboBox>("Combo1");
  EXPECT_EQ(view->currentIndex(), -1);
  EXPECT_EQ(view->placeholderText(), QStringLiteral("PIC Kiválasztása"));
}

TEST_F(MainWindow, ChoosesAChipByKeyboard) {
  for (const char* chip : {"PIC18F242", "PIC18F252", "PIC18F452"}) Form1.Combo1.AddItem(chip);
  Form1.Combo1.Text = std::string("PIC Kiválasztása");
  Settle();
  std::vector<std::string> chosen;
  Form1.Combo1.Click = [&chosen] { chosen.push_back(Form1.Combo1.Text); };
  auto* view = Find<QComboBox>("Combo1");
  QTest::keyClicks(view, QStringLiteral("PIC18F4"));
  EXPECT_EQ(chosen.back(), "PIC18F452");
}

TEST_F(MainWindow, MovesTheSpeedBarWithTheArrowKeys) {
  std::vector<int> values;
  Form1.ÁSeb.Value = 100;
  Form1.ÁSeb.Change = [&values] { values.push_back(Form1.ÁSeb.Value); };
  Settle();
  auto* view = Find<QAbstractSlider>("ÁSeb");
  QTest::keyClick(view, Qt::Key_Right);
  QTest::keyClick(view, Qt::Key_PageUp);
  QTest::keyClick(view, Qt::Key_PageDown);
  EXPECT_EQ(values, (std::vector<int>{101, 111, 101}));
}

TEST_F(MainWindow, TellsOfEveryClickOnATabTheSelectedOneIncluded) {
  std::vector<int> clicked;
  Form1.TabStrip1.Click = [&clicked] { clicked.push_back(Form1.TabStrip1.SelectedItem); };
  auto* tabs = Find<QTabBar>("TabStrip1");
  QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(0).center());
  QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(0).center());
  QTest::keyClick(tabs, Qt::Key_Right);
  EXPECT_EQ(clicked, (std::vector<int>{1, 1, 2}));
  EXPECT_EQ(tabs->tabText(0), QStringLiteral("12F && 16F"));
}

TEST_F(MainWindow, BringsThePageInFrontThatThePanelNames) {
  EXPECT_TRUE(Find<QWidget>("Frame(0)")->isVisible());
  ShowPage(panel::MidRangeTab);
  EXPECT_TRUE(Find<QWidget>("Frame(1)")->isVisible());
  EXPECT_FALSE(Find<QWidget>("Frame(0)")->isVisible());
  Keep(desk.Main(), "mid-range-page-empty");
}

TEST_F(MainWindow, LightsTheIndicators) {
  Form1.Shape2.FillColor = panel::Red;
  Form1.Shape3.FillColor = panel::Green;
  Settle();
  EXPECT_EQ(Find<desktop::Lamp>("Shape2")->Colour(), QColor(255, 0, 0));
  EXPECT_EQ(Find<desktop::Lamp>("Shape3")->Colour(), QColor(0, 255, 0));
}

TEST_F(MainWindow, ShowsTheNewestLogLineOnTop) {
  auto* log = Find<desktop::LinesView>("List1");
  Form1.List1.InsertTop("1:  14:05:09:  Start.");
  Settle();
  Form1.List1.InsertTop("2:  14:05:09:  LPT port van kiválasztva.");
  Settle();
  EXPECT_EQ(log->model()->rowCount(), 2);
  EXPECT_EQ(log->model()->index(0, 0).data().toString(),
            QStringLiteral("2:  14:05:09:  LPT port van kiválasztva."));
}

TEST_F(MainWindow, LeavesAReaderOfTheLogWhereHeIsWhenLinesJoin) {
  auto* log = Find<desktop::LinesView>("List1");
  for (int line = 0; line < 200; ++line) Form1.List1.InsertTop(std::to_string(line));
  Settle();
  log->scrollTo(log->model()->index(150, 0), QListView::PositionAtTop);
  const QString read = log->indexAt(QPoint(2, 2)).data().toString();
  Form1.List1.InsertTop("new");
  Settle();
  EXPECT_EQ(log->indexAt(QPoint(2, 2)).data().toString(), read);
}

TEST_F(MainWindow, OpensTheSpeedEditBoxOverItsValueWithTheFocusInIt) {
  Form1.List3.AddItem("  100  ");
  Form1.List3.Click = [] {
    Form1.Text1.Visible = true;
    Form1.Text1.SetFocus();
  };
  Settle();
  auto* value = Find<desktop::Readout>("List3");
  EXPECT_EQ(value->text(), QStringLiteral("100"));
  QTest::mouseClick(value, Qt::LeftButton);
  Settle();
  auto* edit = Find<QLineEdit>("Text1");
  EXPECT_TRUE(edit->isVisible());
  EXPECT_TRUE(edit->hasFocus());
  EXPECT_EQ(edit->geometry(), value->geometry());
}

TEST_F(MainWindow, TypesIntoTheEditBoxAndTellsOfEnter) {
  Form1.Text1.Visible = true;
  Settle();
  std::string entered;
  Form1.Text1.KeyDown = [&entered](panel::Key key) {
    if (key == panel::Key::Enter) entered = Form1.Text1.Text;
  };
  auto* edit = Find<QLineEdit>("Text1");
  QTest::keyClicks(edit, QStringLiteral("250"));
  QTest::keyClick(edit, Qt::Key_Return);
  EXPECT_EQ(entered, "250");
}

TEST_F(MainWindow, TellsOfAnEditBoxThatIsLeftButNotOfAMessageBoxInFrontOfIt) {
  Form1.Text1.Visible = true;
  Form1.Text1.SetFocus();
  Settle();
  int left = 0;
  Form1.Text1.LostFocus = [&left] { ++left; };
  AnswerNextBox(QStringLiteral("Ok"));
  platform::seams.dialogs->Message("számot kérnék! :)");
  EXPECT_EQ(left, 0);
  // Without a window manager nobody gives the focus back when the box goes.
  desk.Main().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&desk.Main()));
  Find<QLineEdit>("Text1")->setFocus();
  Find<QPushButton>("FlashOl")->setFocus();
  EXPECT_EQ(left, 1);
}

TEST_F(MainWindow, TellsOfAPressOnTheBareSurfaceOfThePageOnly) {
  int presses = 0;
  Form1.Frame0.MouseEvent = [&presses] { ++presses; };
  auto* page = Find<QWidget>("Frame(0)");
  QTest::mouseClick(page, Qt::LeftButton, {}, QPoint(1, 1));
  EXPECT_EQ(presses, 1);
  QTest::mouseClick(Find<QPushButton>("FlashOl"), Qt::LeftButton);
  EXPECT_EQ(presses, 1);
}

TEST_F(MainWindow, GoesThroughItsControlsInReadingOrder) {
  const std::vector<const char*> order = {"TabStrip1",  "Combo1",    "IDazonosít", "ProgFut",
                                          "FájlBetölt", "Frissites", "fájlment",   "PICOlvas"};
  Find<QWidget>(order.front())->setFocus();
  for (std::size_t at = 1; at < order.size(); ++at) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QString::fromUtf8(order[at]));
  }
}

TEST_F(MainWindow, StandsOnSmallAndLargeScreens) {
  for (const QSize size : {QSize(800, 480), QSize(1366, 700), QSize(1900, 1180)}) {
    desk.Main().resize(size);
    Settle();
    EXPECT_EQ(desk.Main().size(), size);
    Keep(desk.Main(), "pic18-page-" + std::to_string(size.width()));
  }
}

TEST_F(MainWindow, ClosesThePanelsWindowBeforeItGoes) {
  bool unloaded = false;
  panel::MDIForm1.OnUnload = [&] {
    EXPECT_TRUE(desk.Main().isVisible());
    unloaded = true;
  };
  desk.Main().close();
  EXPECT_TRUE(unloaded);
  EXPECT_FALSE(panel::MDIForm1.Loaded());
  EXPECT_FALSE(desk.Main().isVisible());
  panel::MDIForm1.OnUnload = nullptr;
}

}  // namespace
}  // namespace zelvo::test
