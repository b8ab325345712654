// Where the windows beside the main window open, and what becomes of them when the program ends.
#include <QLayout>
#include <QPushButton>
#include <algorithm>

#include "panel/secondary_windows.h"
#include "qt/desk.h"

namespace zelvo::test {
namespace {

using panel::Form1;

/// The windows of a whole read make room for each other; so does the question's window for its question.
bool HasItsOwnPlace(const panel::Window& window) {
  return &window == &panel::Összes_Bezárása || &window == &panel::FelülDialog ||
         &window == &panel::ConfFelülír;
}

class Openings : public SessionTest {
 protected:
  void SetUp() override {
    Start();
    Choose("PIC18F452");
    LoadFile(BlinkerFile);
    // The cell editors keep the cell that they were opened for.
    for (panel::Grid* grid : {&Form1.MSFlexGrid1, &Form1.MSFlexGrid2})
      ASSERT_EQ(panel::HandCellDblClick(*grid, 2, 3), panel::HandResult::Done);
    panel::Flash_Edit.Unload();
    panel::EEPROM_Edit.Unload();
    for (panel::Window* window : panel::AllWindows()) {
      if (window != &panel::MDIForm1 && window != &Form1) all.push_back(window);
    }
  }
  QWidget* Show(panel::Window& window) {
    window.Load();
    Settle();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << window.Name();
    QWidget* view = SecondaryWindow(window.Name());
    EXPECT_TRUE(view != nullptr && view->isVisible()) << window.Name();
    return view;
  }

  std::vector<panel::Window*> all;
};

TEST_F(Openings, EveryWindowOpensCentredOverTheMainWindow) {
  ASSERT_GE(all.size(), 25u);
  desk.Main().move(260, 130);
  QTest::qWait(30);
  const QRect main = desk.Main().frameGeometry();
  for (panel::Window* window : all) {
    const QWidget* view = Show(*window);
    const QPoint off = view->frameGeometry().center() - main.center();
    if (window != &panel::Összes_Bezárása) {
      EXPECT_LE(std::abs(off.x()), 2) << window->Name();
    }
    if (!HasItsOwnPlace(*window)) {
      EXPECT_LE(std::abs(off.y()), 2) << window->Name();
    }
    EXPECT_TRUE(main.contains(view->frameGeometry().center())) << window->Name();
    EXPECT_FALSE(view->isModal()) << window->Name();
    window->Unload();
    Settle();
  }
}

TEST_F(Openings, EveryWindowForgetsWhereItStoodAndHowLargeItWas) {
  for (panel::Window* window : all) {
    QWidget* view = Show(*window);
    const QRect opened = view->geometry();
    view->setGeometry(opened.translated(37, -21).adjusted(0, 0, 60, 40));
    QTest::qWait(2);
    view->close();
    Settle();
    EXPECT_FALSE(window->Loaded()) << window->Name();
    EXPECT_EQ(Show(*window)->geometry(), opened) << window->Name();
    window->Unload();
    Settle();
  }
}

TEST_F(Openings, WindowThatIsCalledForAgainComesToTheFrontWhereItStands) {
  QWidget* other = Show(panel::Mem_Help);
  for (panel::Window* window : all) {
    if (window == &panel::Mem_Help) continue;
    QWidget* view = Show(*window);
    view->setGeometry(other->geometry());
    QTest::qWait(2);
    const QRect stood = view->geometry();
    other->raise();
    other->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(other));
    window->Load();
    EXPECT_TRUE(QTest::qWaitForWindowActive(view)) << window->Name();
    EXPECT_EQ(view->geometry(), stood) << window->Name();
    EXPECT_EQ(QGuiApplication::topLevelAt(stood.center()), view->windowHandle()) << window->Name();
    window->Unload();
    Settle();
  }
}

TEST_F(Openings, EveryWindowOpensWithTheFocusWhereItWasTheFirstTime) {
  for (panel::Window* window : all) {
    const QWidget* first = Show(*window)->focusWidget();
    const auto stops = SecondaryWindow(window->Name())->findChildren<QPushButton*>();
    if (!stops.isEmpty()) stops.back()->setFocus();
    window->Unload();
    Settle();
    EXPECT_EQ(Show(*window)->focusWidget(), first) << window->Name();
    window->Unload();
    Settle();
  }
}

TEST_F(Openings, EveryWindowClosesWithTheProgram) {
  for (panel::Window* window : all) Show(*window);
  desk.Main().close();
  Settle();
  for (const panel::Window* window : all) {
    EXPECT_FALSE(window->Loaded()) << window->Name();
    EXPECT_FALSE(SecondaryWindow(window->Name())->isVisible()) << window->Name();
  }
  EXPECT_FALSE(panel::MDIForm1.Loaded());
}

}  // namespace
}  // namespace zelvo::test
