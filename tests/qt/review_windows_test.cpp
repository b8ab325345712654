// The windows that a read or a button brings up, in the whole program: what each shows, and all ways out of
// it.
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QWindow>

#include "image/buffers.h"
#include "qt/desk.h"
#include "qt/grid_view.h"
#include "qt/list_view.h"
#include "qt/text.h"

namespace zelvo::test {
namespace {

using panel::Form1;

/// A window, its caption, and the button that Escape presses.
struct OneWindow {
  panel::Window& window;
  const char* caption;
  const char* wayOut;
  const char* picture;
};
const OneWindow Windows[] = {
    {panel::FlashOlv, "Flash Olvasás", "Mégse", "flash-review"},
    {panel::EEPROM_Beolvas, "EEPROM Olvasás", "Mégse", "eeprom-review"},
    {panel::Config_Beolvas, "Beolvasott Config Bájtok.", "Nem", "config-review"},
    {panel::IDLocO, "Beolvasott ID Location Bájtok.", "Nem", "id-review"},
    {panel::ConfEdit, "Configurációs bájtok szerkesztése", "Mégse", "config-editor-bare"},
    {panel::MEM_Mentes, "Mentés Fájlba", "Megse", "saving"},
    {panel::Mem_Help, "Segéd infók", "Command1", "saving-help"},
    {panel::OlvassEl, "Segítség", "Command1", "verify-help"},
    {panel::névjegy_ablak, "Névjegy", "Command1", "about"},
    {panel::Összes_Bezárása, "Összes Bezárása", "Command1", "close-reviews"},
};

class Windowed : public SessionTest {
 protected:
  void SetUp() override {
    Start();
    Choose("PIC18F452");
    LoadFile(BlinkerFile);
    image::ReadBackBytes.fill(0);
  }
  QWidget* Show(panel::Window& window) {
    window.Load();
    Settle();
    QWidget* view = SecondaryWindow(window.Name());
    EXPECT_TRUE(view != nullptr && view->isVisible()) << window.Name();
    return view;
  }
};

TEST_F(Windowed, BearItsCaptionAndShowEveryControlInsideIt) {
  for (const OneWindow& one : Windows) {
    QWidget* view = Show(one.window);
    EXPECT_EQ(view->windowTitle(), QString::fromUtf8(one.caption));
    for (const panel::Control* control : one.window.Controls()) {
      auto* widget = FindIn<QWidget>(view, control->Name());
      ASSERT_NE(widget, nullptr);
      if (control->Name() == "Text1") continue;  // comes up over a cell
      EXPECT_TRUE(widget->isVisible()) << one.caption << ": " << control->Name();
      EXPECT_TRUE(OnScreen(*view).contains(OnScreen(*widget))) << one.caption << ": " << control->Name();
    }
    Keep(*view, one.picture);
    one.window.Unload();
    Settle();
  }
}

TEST_F(Windowed, CutsNoTextOfButtonsAndLabels) {
  for (const OneWindow& one : Windows) {
    QWidget* view = Show(one.window);
    for (const auto* button : view->findChildren<QPushButton*>()) {
      EXPECT_GE(button->width(), button->sizeHint().width())
          << one.caption << ": " << button->text().toStdString();
    }
    for (const auto* label : view->findChildren<QLabel*>()) {
      const int needed =
          label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
      EXPECT_GE(label->height(), needed) << one.caption << ": " << label->text().toStdString();
      if (label->wordWrap()) continue;
      EXPECT_GE(label->width(), label->sizeHint().width())
          << one.caption << ": " << label->text().toStdString();
    }
    one.window.Unload();
    Settle();
  }
}

TEST_F(Windowed, CloseByTheirButtonByEscapeAndByTheFrame) {
  for (const OneWindow& one : Windows) {
    QWidget* view = Show(one.window);
    QTest::mouseClick(FindIn<QPushButton>(view, one.wayOut), Qt::LeftButton);
    Settle();
    EXPECT_FALSE(one.window.Loaded()) << one.caption;
    EXPECT_FALSE(view->isVisible()) << one.caption;

    Show(one.window);
    QTest::keyClick(view, Qt::Key_Escape);
    Settle();
    EXPECT_FALSE(view->isVisible()) << one.caption;

    Show(one.window);
    EXPECT_TRUE(view->isVisible()) << one.caption;
    view->close();
    EXPECT_FALSE(one.window.Loaded()) << one.caption;
    EXPECT_FALSE(view->isVisible()) << one.caption;
  }
}

TEST_F(Windowed, EscapePressesTheLeavingButtonAndNotTheOneThatTakesOver) {
  const std::pair<panel::Window*, const char*> leaving[] = {
      {&panel::FlashOlv, ":  A beolvasott Flash tartalom Nem lett Pufferbe áttölve."},
      {&panel::EEPROM_Beolvas, ":  EEPROM tartalom Nem lett Pufferbe áttölve."},
      {&panel::Config_Beolvas, ":  Beolvasott Config tartalom Nem lett áttölve a Pufferbe."},
      {&panel::IDLocO, ":  Beolvasott User ID szavak Nem lettek Pufferbe töltve."},
  };
  for (const auto& [window, line] : leaving) {
    QTest::keyClick(Show(*window), Qt::Key_Escape);
    EXPECT_EQ(Log().front(), line);
  }
}

TEST_F(Windowed, ConfigReviewShowsItsBytesAndADifferentVerdictInRed) {
  panel::Config_Beolvas.Load();
  Settle();
  QWidget* view = SecondaryWindow("Config_Beolvas");
  EXPECT_EQ(FindIn<QLabel>(view, "Label1")->text(), QStringLiteral("Config1L"));
  EXPECT_EQ(FindIn<desktop::Readout>(view, "Bconfig1L")->text(), QStringLiteral("x  x  x  x  x  x  x  x"));
  EXPECT_EQ(FindIn<desktop::Readout>(view, "Bconfig1H")->text(), QStringLiteral("0  0  0  0  0  0  0  0"));
  auto* verdict = FindIn<desktop::Readout>(view, "eredmény");
  EXPECT_EQ(verdict->text(), QStringLiteral("Nem azonos tartalmak!"));
  EXPECT_EQ(verdict->grab().toImage().pixelColor(6, verdict->height() / 2), QColor(255, 192, 192));
}

TEST_F(Windowed, VerdictGoesFromGreenToPlainWhenTheWindowIsLoadedAnew) {
  panel::IDLocO.Load();
  panel::IDLocO.eredmény.BackColor = panel::LightGreen;
  Settle();
  auto* verdict = FindIn<desktop::Readout>(SecondaryWindow("IDLocO"), "eredmény");
  const auto ground = [verdict] { return verdict->grab().toImage().pixelColor(6, verdict->height() / 2); };
  EXPECT_EQ(ground(), QColor(192, 255, 192));
  panel::IDLocO.eredmény.BackColor = panel::White;
  Settle();
  EXPECT_GT(ground().lightness(), 240);
}

/// A scrolling list with a colour of its own, as later windows may have.
struct ListWindow : panel::Window {
  ListWindow() : Window("Listaablak", "Lista") {}
  panel::ListBox List1{*this, "List1"};
};

TEST_F(Windowed, AScrollingListBearsItsColourWithReadableInk) {
  ListWindow window;
  window.Load();
  window.List1.AddItem("MMMMM");
  for (const auto& [colour, light] :
       {std::pair{panel::LightRed, true}, std::pair{panel::Colour{0x600000}, false}}) {
    window.List1.BackColor = colour;
    Settle();
    auto* list = FindIn<desktop::LinesView>(SecondaryWindow("Listaablak"), "List1");
    const QImage image = list->viewport()->grab().toImage();
    const QColor ground = image.pixelColor(image.width() / 2, image.height() - 5);
    EXPECT_EQ(ground, QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF));
    int darkest = 255;
    int lightest = 0;
    for (int x = 0; x < 60; ++x) {
      for (int y = 0; y < 20; ++y) {
        darkest = std::min(darkest, qGray(image.pixel(x, y)));
        lightest = std::max(lightest, qGray(image.pixel(x, y)));
      }
    }
    if (light) {
      EXPECT_LT(darkest, 90);
    } else {
      EXPECT_GT(lightest, 200);
    }
  }
  window.Unload();
  Settle();
  panel::AllWindows().pop_back();
}

TEST_F(Windowed, VerifyHelpShowsItsTenLinesWithoutScrollingOnALaptop) {
  QWidget* view = Show(panel::OlvassEl);
  auto* lines = FindIn<desktop::LinesView>(view, "List1");
  EXPECT_EQ(lines->model()->rowCount(), 10);
  EXPECT_EQ(lines->horizontalScrollBar()->maximum(), 0);
  EXPECT_EQ(lines->verticalScrollBar()->maximum(), 0);
  EXPECT_LE(view->width(), 1366 * 92 / 100);
}

TEST_F(Windowed, TheSavingWindowHasItsWaysInAColumn) {
  QWidget* view = Show(panel::MEM_Mentes);
  int bottom = 0;
  for (const char* name : {"IntelHex", "FlashMent", "EEPROM", "M_Help", "Megse"}) {
    const QRect button = OnScreen(*FindIn<QPushButton>(view, name));
    EXPECT_GT(button.top(), bottom) << name;
    bottom = button.bottom();
  }
}

TEST_F(Windowed, SavingHelpStandsBesideTheSavingWindow) {
  Click("fájlment");
  Settle();
  QTest::mouseClick(FindIn<QPushButton>(SecondaryWindow("MEM_Mentes"), "M_Help"), Qt::LeftButton);
  Settle();
  EXPECT_TRUE(SecondaryWindow("Mem_Help")->isVisible());
  EXPECT_TRUE(SecondaryWindow("MEM_Mentes")->isVisible());
}

TEST_F(Windowed, EepromProgressWindowsShowTheirBars) {
  for (panel::ProgressWindow* window : {&panel::EEE_Olv_Állapot, &panel::EEE_Ír_Állapot}) {
    QWidget* view = Show(*window);
    EXPECT_EQ(view->windowTitle(), desktop::Text(window->Caption));
    EXPECT_TRUE(FindIn<QWidget>(view, "ProgressBar1")->isVisible());
    EXPECT_TRUE(FindIn<QWidget>(view, "Command1")->isVisible());
    window->Unload();
    Settle();
  }
}

const char* const Reviews[] = {"FlashOlv", "EEPROM_Beolvas", "IDLocO", "Config_Beolvas", "Összes_Bezárása"};

TEST_F(Windowed, AWholeReadLeavesFiveWindowsApartAndOnTheScreen) {
  SetSpeed(1, true);
  Click("PICOlvas");
  Settle();
  const QRect screen = desk.Main().screen()->availableGeometry();
  std::vector<QRect> places;
  for (const char* name : Reviews) {
    QWidget* view = SecondaryWindow(name);
    ASSERT_TRUE(view != nullptr && view->isVisible()) << name;
    EXPECT_TRUE(screen.contains(view->frameGeometry())) << name;
    for (const QRect& other : places) EXPECT_FALSE(view->frameGeometry().intersects(other)) << name;
    places.push_back(view->frameGeometry());
  }
  EXPECT_TRUE(QTest::qWaitForWindowActive(SecondaryWindow("Összes_Bezárása")));
  Keep(desk.Main(), "whole-read-main");
  QTest::mouseClick(FindIn<QPushButton>(SecondaryWindow("Összes_Bezárása"), "Command1"), Qt::LeftButton);
  Settle();
  for (const char* name : Reviews) EXPECT_FALSE(SecondaryWindow(name)->isVisible()) << name;
}

TEST_F(Windowed, ReviewsThatComeUpInOneGoStandApartToo) {
  panel::Window* const windows[] = {&panel::FlashOlv, &panel::EEPROM_Beolvas, &panel::IDLocO,
                                    &panel::Config_Beolvas, &panel::Összes_Bezárása};
  for (panel::Window* window : windows) window->Load();
  Settle();
  for (const char* one : Reviews) {
    for (const char* other : Reviews) {
      if (one == other) continue;
      EXPECT_FALSE(SecondaryWindow(one)->geometry().intersects(SecondaryWindow(other)->geometry()))
          << one << other;
    }
  }
}

TEST_F(Windowed, AReviewThatIsAloneStandsInTheMiddle) {
  for (panel::Window* window :
       {static_cast<panel::Window*>(&panel::IDLocO), static_cast<panel::Window*>(&panel::EEPROM_Beolvas)}) {
    const QPoint middle = Show(*window)->frameGeometry().center();
    EXPECT_LT((middle - desk.Main().frameGeometry().center()).manhattanLength(), 10);
    window->Unload();
    Settle();
  }
}

}  // namespace
}  // namespace zelvo::test
