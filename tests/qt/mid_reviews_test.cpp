// The reviews of what was read from a mid-range chip, in the whole program.
#include <QApplication>
#include <QPushButton>
#include <QScreen>
#include <vector>

#include "image/buffers.h"
#include "opsmid/config_id.h"
#include "qt/mid_page.h"

namespace zelvo::test {
namespace {

using image::ConfigWord1Bits;
using image::ConfigWord2Bits;
using panel::Form1;

/// The reviews, with what a read has left.
class MidReviews : public MidPage {
 protected:
  void SetUp() override {
    MidPage::SetUp();
    ChooseMid("PIC16F887");
    opsmid::MidConfigValue1 = 0x0ABC;
    image::ConfigWord1Raw = "0000101010111100";
    opsmid::MidConfigValue2 = 0x0700;
    image::ConfigWord2Raw = "0000011100000000";
    for (std::size_t word = 1; word <= 4; ++word) {
      image::MidIdReadWords.at(word) = static_cast<std::int16_t>(0x3FFF - word + 1);
    }
  }
  static std::string Shown(QWidget* view, const std::string& list) {
    return FindIn<desktop::Readout>(view, list)->text().toStdString();
  }
  static QColor Ground(QWidget* view) {
    auto* verdict = FindIn<QWidget>(view, "eredmény");
    return verdict->grab().toImage().pixelColor(6, verdict->height() / 2);
  }
};

const std::pair<panel::Window*, const char*> Reviews[] = {
    {&panel::Config_Beolvas_F16, "mid-config-review"},
    {&panel::Config_2008_Olv_F16, "mid-config-pair-review"},
    {&panel::IDLoc_F16, "mid-id-review"},
};

TEST_F(MidReviews, ShowEveryControlInsideAndCutNoText) {
  for (const auto& [window, picture] : Reviews) {
    QWidget* view = Show(*window);
    EXPECT_LE(view->width(), 1366 - 12);
    EXPECT_LE(view->height(), 768 - 40);
    for (const panel::Control* control : window->Controls()) {
      auto* widget = FindIn<QWidget>(view, control->Name());
      ASSERT_NE(widget, nullptr);
      EXPECT_TRUE(widget->isVisible()) << picture << ' ' << control->Name();
      EXPECT_TRUE(OnScreen(*view).contains(OnScreen(*widget))) << picture << ' ' << control->Name();
      EXPECT_GE(widget->width(), widget->sizeHint().width()) << picture << ' ' << control->Name();
      EXPECT_GE(widget->height(), widget->sizeHint().height()) << picture << ' ' << control->Name();
    }
    Keep(*view, picture);
    window->Unload();
    Settle();
  }
}

TEST_F(MidReviews, TellWhatWasReadAndHowItCompares) {
  QWidget* one = Show(panel::Config_Beolvas_F16);
  EXPECT_EQ(one->windowTitle(), QStringLiteral("Konfigurációs szó"));
  EXPECT_EQ(Shown(one, "List1"), "0  0  0  0  1  0  1  0  1  0  1  1  1  1  0  0  bin");
  EXPECT_EQ(Shown(one, "List2"), "0ABC");
  EXPECT_EQ(Shown(one, "eredmény"), "Nem azonos a két tartalom!");
  EXPECT_EQ(Ground(one), QColor(255, 192, 192));
  ConfigWord1Bits = "00101010111100";
  ConfigWord2Bits = "00011100000000";
  QWidget* two = Show(panel::Config_2008_Olv_F16);
  EXPECT_EQ(Shown(two, "List2"), "0ABCh");
  EXPECT_EQ(Shown(two, "List4"), "0700h");
  EXPECT_EQ(Shown(two, "eredmény"), "A két tartalom azonos!");
  EXPECT_EQ(Ground(two), QColor(192, 255, 192));
  QWidget* ids = Show(panel::IDLoc_F16);
  EXPECT_EQ(Shown(ids, "List7"), "3FFFh, 16383dec");
  EXPECT_EQ(Shown(ids, "List10"), "3FFCh, 16380dec");
  EXPECT_EQ(Shown(ids, "eredmény"), "Nem azonos tartalmak!");
}

TEST_F(MidReviews, TakeOverByTheirButton) {
  QTest::mouseClick(FindIn<QPushButton>(Show(panel::Config_2008_Olv_F16), "Igen"), Qt::LeftButton);
  QTest::mouseClick(FindIn<QPushButton>(Show(panel::IDLoc_F16), "Igen"), Qt::LeftButton);
  Settle();
  EXPECT_FALSE(panel::Config_2008_Olv_F16.Loaded());
  EXPECT_FALSE(panel::IDLoc_F16.Loaded());
  EXPECT_EQ(ConfigWord1Bits, "00101010111100");
  EXPECT_EQ(image::MidIdWords[4], 0x3FFC);
  EXPECT_EQ(MainList("List10"), "3FFCh, 16380dec");
}

TEST_F(MidReviews, EscapeAndTheFrameLeaveTheImage) {
  const std::pair<panel::Window*, const char*> leaving[] = {
      {&panel::Config_Beolvas_F16, ":  Beolvasott Config tartalom Nem lett áttölve a Pufferbe."},
      {&panel::Config_2008_Olv_F16, ":  Beolvasott Config tartalom Nem lett áttölve a Pufferbe."},
      {&panel::IDLoc_F16, ":  Beolvasott User ID szavak Nem lettek Pufferbe töltve."}};
  for (const auto& [window, line] : leaving) {
    QTest::keyClick(Show(*window), Qt::Key_Escape);
    Settle();
    EXPECT_FALSE(window->Loaded());
    EXPECT_EQ(NewestEvent(), line);
    Show(*window)->close();
    EXPECT_FALSE(window->Loaded());
  }
  EXPECT_EQ(ConfigWord1Bits, "11111111111111");
  EXPECT_EQ(image::MidIdWords[1], image::ErasedMidWord);
}

TEST_F(MidReviews, AllOfAWholeReadCanBeSeenAtOnce) {
  QWidget* closer = nullptr;
  std::vector<QWidget*> views;
  for (panel::Window* window :
       {static_cast<panel::Window*>(&panel::FlashOlv), static_cast<panel::Window*>(&panel::EEPROM_Beolvas),
        static_cast<panel::Window*>(&panel::Config_2008_Olv_F16),
        static_cast<panel::Window*>(&panel::IDLoc_F16)}) {
    views.push_back(Show(*window));
  }
  closer = Show(panel::Összes_Bezárása);
  const QRect ids = OnScreen(*views[3]);
  EXPECT_FALSE(ids.intersects(OnScreen(*views[2])));
  EXPECT_FALSE(ids.intersects(OnScreen(*closer)));
  for (QWidget* view : views)
    EXPECT_TRUE(QApplication::primaryScreen()->geometry().contains(OnScreen(*view)));
}

TEST_F(MidReviews, FlashAndEepromServeThisPage) {
  image::ReadBackBytes.fill(0);
  QWidget* flash = Show(panel::FlashOlv);
  EXPECT_FALSE(FindIn<QWidget>(flash, "Command1")->isVisible()) << "no Verify buffer on this page";
  QTest::mouseClick(FindIn<QPushButton>(flash, "FlashPuff"), Qt::LeftButton);
  EXPECT_EQ(NewestEvent(), ":  A beolvasott Flash a Pufferbe áttölve.");
  EXPECT_EQ(Form1.MSFlexGrid4.Text(1, 1), "0000");
  QWidget* eeprom = Show(panel::EEPROM_Beolvas);
  QTest::keyClick(eeprom, Qt::Key_Escape);
  EXPECT_EQ(NewestEvent(), ":  EEPROM tartalom Nem lett Pufferbe áttölve.");
}

}  // namespace
}  // namespace zelvo::test
