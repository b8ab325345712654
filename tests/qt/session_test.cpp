// The whole program in its window on a simulated board: what an operator does from the start to the end.
#include <QCoreApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QPushButton>
#include <QTabBar>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

#include "apps/probapad.h"
#include "qt/desk.h"
#include "qt/list_view.h"
#include "qt/monotonic.h"
#include "support/hex_image.h"
#include "ui/startup.h"

namespace zelvo::test {
namespace {

using desktop::MonotonicNow;
using panel::Form1;

/// A click with the mouse on the middle of a widget, as the window system delivers it: into the event queue.
/// May be called from another thread.
void PostClick(QWidget* widget, const QPoint& at) {
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QCoreApplication::postEvent(
        widget,
        new QMouseEvent(type, at, at, Qt::LeftButton,
                        type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier));
  }
}

class Session : public SessionTest {
 protected:
  /// The fastest setting: hardly a pass between two edges.
  void PrepareFastRun() {
    Start();
    SetSpeed(1, true);
    Choose("PIC18F452");
  }
};

TEST_F(Session, StartsWithTheShippedSettingsWithoutAMessageAndWithinASecond) {
  const std::int64_t start = MonotonicNow();
  Start();
  const double lasted = static_cast<double>(MonotonicNow() - start) / 1e9;
  RecordProperty("seconds", std::to_string(lasted));
  EXPECT_LT(lasted, 1.0);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(Log().back(), ":  Start.");
}

TEST_F(Session, PutsAHexFileOntoAChipAndBack) {
  desktop::Probapad pad(machine);
  PrepareFastRun();
  pad.ShowBeside(desk.Main());
  LoadFile(BlinkerFile);
  Click("PICTörlés");
  Click("FlashÍr");
  Click("FlashOl");
  Settle();
  QWidget* review = SecondaryWindow("FlashOlv");
  ASSERT_NE(review, nullptr);
  EXPECT_EQ(FindIn<desktop::Readout>(review, "List1")->text(),
            QStringLiteral("Egyforma a Buffer és a beolvasott tartalom!"));
  Keep(desk.Main(), "session");
  Keep(*review, "session-review");

  const HexImage file = WithoutErased(ReadHexImage(BlinkerFile));
  EXPECT_EQ(FirstDifference(Between(file, 0, 0x1FFFFF), Between(machine.Socket()->Image(), 0, 0x1FFFFF)), "");
  QTest::qWait(200);
  const auto* contents = FindIn<QListView>(&pad, "Contents");
  EXPECT_TRUE(contents->model()->index(0, 0).data().toString().startsWith(QStringLiteral("Flash  000000")));
  Keep(pad, "session-bench");
}

TEST_F(Session, CancelEndsAReadWithoutAReview) {
  PrepareFastRun();
  SetSpeed(400, false);
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
    QWidget* progress = SecondaryWindow("Állapot");
    if (progress == nullptr || !progress->isVisible()) return;
    watch.stop();
    QTest::mouseClick(FindIn<QPushButton>(progress, "Command1"), Qt::LeftButton);
  });
  watch.start(10);
  Click("FlashOl");
  Settle();
  EXPECT_EQ(Log().front(), ":  Felhasználói megszakítás");
  EXPECT_EQ(SecondaryWindow("FlashOlv"), nullptr);
  EXPECT_FALSE(SecondaryWindow("Állapot")->isVisible());
  EXPECT_FALSE(machine.Levels().vdd);
}

TEST_F(Session, ClicksOnCancelAndOnATabAreServedDuringAFlashWrite) {
  PrepareFastRun();
  LoadFile(BlinkerFile);
  std::atomic<std::int64_t> posted = 0;
  std::vector<double> waited;
  const auto served = [&] {
    waited.push_back(static_cast<double>(MonotonicNow() - posted.exchange(0)) / 1e6);
  };
  std::atomic<QWidget*> cancel = nullptr;
  auto* tabs = Find<QTabBar>("TabStrip1");
  const QPoint onTab = tabs->tabRect(panel::Pic18Tab - 1).center();
  Form1.TabStrip1.Click = served;
  panel::FlashÍrÁllapot.Command1.Click = served;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
    QWidget* window = SecondaryWindow("FlashÍrÁllapot");
    if (window != nullptr && cancel == nullptr) cancel = FindIn<QPushButton>(window, "Command1");
  });
  watch.start(1);

  std::atomic<bool> over = false;
  std::thread operatorsHand([&] {
    for (int click = 0; !over; ++click) {
      std::this_thread::sleep_for(std::chrono::microseconds(7'300));
      if (posted != 0 || cancel == nullptr) continue;
      posted = MonotonicNow();
      if (click % 2 == 0) {
        PostClick(cancel, QPoint(5, 5));
      } else {
        PostClick(tabs, onTab);
      }
    }
  });
  // A slower setting than the fastest, so that the run lasts long enough for many clicks.
  SetSpeed(3, false);
  for (int run = 0; run < 4 && waited.size() < 40; ++run) Click("FlashÍr");
  over = true;
  operatorsHand.join();
  watch.stop();

  ASSERT_GT(waited.size(), 10u);
  std::sort(waited.begin(), waited.end());
  RecordProperty("clicks", static_cast<int>(waited.size()));
  RecordProperty("worst_milliseconds", std::to_string(waited.back()));
  RecordProperty("median_milliseconds", std::to_string(waited[waited.size() / 2]));
  EXPECT_LT(waited[waited.size() / 2], 16.0);
  EXPECT_LT(waited[waited.size() * 9 / 10], 50.0);
  const auto log = Log();
  EXPECT_NE(std::find(log.begin(), log.end(), ":  Flash Írása Kész."), log.end());
}

TEST_F(Session, ClosingTheWindowDuringARunEndsItWithAllLinesAtRest) {
  const std::int64_t start = MonotonicNow();
  EXPECT_EQ(desk.Run([this] {
    PrepareFastRun();
    SetSpeed(10000, false);  // a read that would last for hours
    QTimer::singleShot(0, [this] { Click("FlashOl"); });
    QTimer::singleShot(300, [this] {
      ASSERT_TRUE(machine.Levels().vdd);
      desk.Main().close();
    });
  }),
            0);
  EXPECT_LT(static_cast<double>(MonotonicNow() - start) / 1e9, 20.0);
  EXPECT_TRUE(platform::programEnded);
  EXPECT_FALSE(panel::MDIForm1.Loaded());
  EXPECT_FALSE(desk.Main().isVisible());
  EXPECT_EQ(machine.Levels(), bench::LineLevels{});
}

TEST_F(Session, AnEmptySocketIsToldByTheIdentification) {
  desktop::Probapad pad(machine);
  PrepareFastRun();
  pad.ShowBeside(desk.Main());
  QTest::mouseClick(FindIn<QPushButton>(&pad, "Empty"), Qt::LeftButton);
  EXPECT_EQ(machine.Socket(), nullptr);
  Click("IDazonosít");
  Settle();
  ASSERT_NE(SecondaryWindow("PICAzonos"), nullptr);
  EXPECT_TRUE(SecondaryWindow("PICAzonos")->isVisible());
  const auto log = Log();
  EXPECT_NE(std::find(log.begin(), log.end(), ":  Nem volt felismerhető PIC."), log.end());

  QTest::mouseClick(FindIn<QPushButton>(&pad, "Insert"), Qt::LeftButton);
  ASSERT_NE(machine.Socket(), nullptr);
}

TEST_F(Session, TheSpeedValueIsEditedInItsPlace) {
  Start();
  QTest::mouseClick(Find<desktop::Readout>("List3"), Qt::LeftButton);
  Settle();
  auto* edit = Find<QLineEdit>("Text1");
  ASSERT_TRUE(edit->isVisible());
  QTest::keyClicks(edit, QStringLiteral("abc"));
  std::string told;
  AnswerNextBox(QStringLiteral("Ok"), &told);
  QTest::keyClick(edit, Qt::Key_Return);
  EXPECT_EQ(told, "számot kérnék! :)");
  edit->clear();
  QTest::keyClicks(edit, QStringLiteral("250"));
  QTest::keyClick(edit, Qt::Key_Return);
  Settle();
  EXPECT_FALSE(edit->isVisible());
  EXPECT_EQ(Find<desktop::Readout>("List3")->text(), QStringLiteral("250"));
  EXPECT_EQ(Form1.HScroll1.Value, 250);
}

}  // namespace
}  // namespace zelvo::test
