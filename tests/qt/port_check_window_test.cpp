// The check of the board's lines in the whole program, by mouse and keyboard, with its one-second test alive.
#include <QAbstractButton>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <set>

#include "link/port.h"
#include "qt/desk.h"
#include "qt/lamp.h"
#include "qt/list_view.h"

namespace zelvo::test {
namespace {

using panel::LPT_Port_Check;

class PortCheckWindow : public SessionTest {
 protected:
  void SetUp() override { Start(); }
  void Open() {
    Click("Command4");
    Settle();
    window = SecondaryWindow("LPT_Port_Check");
    ASSERT_TRUE(window != nullptr && window->isVisible());
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  }
  template <class Widget>
  Widget& In(const std::string& name) const {
    return *FindIn<Widget>(window, name);
  }
  void Press(const std::string& name) {
    auto& widget = In<QAbstractButton>(name);
    NativeClick(widget, QPoint(8, widget.height() / 2));
    Settle();
  }
  desktop::Lamp& TestLamp() const { return In<desktop::Lamp>("Label1"); }
  /// Ticks the box of the one-second test and does `act` some pulses into it; comes back when the test has
  /// ended. The lamp's colours meanwhile are in `seen`.
  void TestUntil(const std::function<void()>& act) {
    SetSpeed(1, true);
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, window, [this] {
      seen.insert(TestLamp().Colour().name().toStdString());
      if (TestLamp().Colour() == QColor(0, 255, 0) && !kept) Keep(*window, "port-check-test");
      kept = kept || TestLamp().Colour() == QColor(0, 255, 0);
      // A test that does not end would go on for ever.
      if (lasted.elapsed() > 10000) LPT_Port_Check.StopRequested = true;
    });
    watch.start(10);
    QTimer::singleShot(400, window, act);
    lasted.start();
    Press("Check5");
    Settle();
    EXPECT_LT(lasted.elapsed(), 5000);
  }

  std::set<std::string> seen;
  bool kept = false;
  QElapsedTimer lasted;
  QWidget* window = nullptr;
};

TEST_F(PortCheckWindow, ShowsEachLineWithItsPolarityBesideIt) {
  Open();
  EXPECT_EQ(window->windowTitle(), QStringLiteral("Port Check"));
  const struct {
    const char* line;
    const char* label;
    const char* polarity;
  } lines[] = {{"Check1", "Vdd_Él_Lab", "Nem Inverz"},
               {"Check2", "Vpp_Él_Lab", "Nem Inverz"},
               {"Check3", "Data_Él_Lab", "Inverz"},
               {"Check4", "CLK_Él_Lab", "Inverz"},
               {"Label2", "Ack_Él_Lab", "Inverz"}};
  int above = 0;
  for (const auto& [line, label, polarity] : lines) {
    const QRect place = OnScreen(In<QWidget>(line));
    const QRect beside = OnScreen(In<QLabel>(label));
    EXPECT_EQ(In<QLabel>(label).text().toStdString(), polarity) << label;
    EXPECT_NEAR(place.center().y(), beside.center().y(), 2) << label;
    EXPECT_LE(place.right(), beside.left()) << label;
    EXPECT_GT(place.top(), above) << label;
    above = place.bottom();
  }
  EXPECT_EQ(In<QLabel>("Label2").text(), QStringLiteral("DATA In belső logikai szintje"));
  Keep(*window, "port-check");
}

TEST_F(PortCheckWindow, SwitchesALineByMouseAndKeyAndReadsOut) {
  Open();
  Press("Check1");
  EXPECT_TRUE(machine.Levels().vdd);
  EXPECT_EQ(Find<QPushButton>("ProgFut")->text(), QStringLiteral("Vdd(+5V) Off"));
  auto& readout = In<desktop::LinesView>("List1");
  ASSERT_EQ(readout.model()->rowCount(), 2);
  const QModelIndex second = readout.model()->index(1, 0);
  EXPECT_TRUE(second.data().toString().startsWith(QStringLiteral("H Című LPT Port Értéke. - Dec:888")));
  EXPECT_GE(readout.viewport()->width(), readout.sizeHintForColumn(0)) << "the longest line stands whole";
  EXPECT_GE(readout.viewport()->height(), 2 * readout.sizeHintForRow(0));
  EXPECT_TRUE(In<QLabel>("Label2").text().startsWith(QStringLiteral("Adat vonal belső logikai szintje ")));
  EXPECT_GE(In<QLabel>("Label2").width(), In<QLabel>("Label2").sizeHint().width());
  Keep(*window, "port-check-readout");
  In<QCheckBox>("Check2").setFocus();
  QTest::keyClick(&In<QCheckBox>("Check2"), Qt::Key_Space);
  EXPECT_TRUE(machine.Levels().vpp);
  QTest::keyClick(&In<QCheckBox>("Check2"), Qt::Key_Space);
  EXPECT_FALSE(machine.Levels().vpp);
  Press("Check1");
  EXPECT_FALSE(machine.Levels().vdd);
}

TEST_F(PortCheckWindow, StopBoxEndsTheTestWhichLeavesTheWindowOpen) {
  Open();
  EXPECT_EQ(TestLamp().Colour(), QColor(0xF0, 0xF0, 0xF0));
  TestUntil([this] {
    EXPECT_TRUE(In<QCheckBox>("Check5").isChecked());
    Press("Check6");
    EXPECT_TRUE(In<QCheckBox>("Check6").isChecked());
  });
  EXPECT_TRUE(seen.count("#00ff00") > 0 && seen.count("#ffffff") > 0) << "the lamp goes on and off";
  EXPECT_TRUE(window->isVisible());
  EXPECT_FALSE(In<QCheckBox>("Check5").isChecked());
  EXPECT_FALSE(In<QCheckBox>("Check6").isChecked());
  EXPECT_EQ(TestLamp().Colour(), QColor(Qt::white));
}

TEST_F(PortCheckWindow, ItsButtonEscapeAndFrameEndTheTestAndTheWindow) {
  const std::function<void()> ways[] = {
      [this] { Press("Command1"); },
      [this] { QTest::keyClick(&In<QCheckBox>("Check5"), Qt::Key_Escape); },
      [this] { window->close(); },
  };
  for (const auto& way : ways) {
    Open();
    TestUntil(way);
    EXPECT_FALSE(LPT_Port_Check.Loaded());
    EXPECT_FALSE(window->isVisible());
    desk.Main().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&desk.Main()));
  }
  Open();
  EXPECT_FALSE(In<QCheckBox>("Check5").isChecked());
}

TEST_F(PortCheckWindow, OtherControlsAndTheMainWindowAreAliveDuringTheTest) {
  Open();
  TestUntil([this] {
    Press("Check1");
    EXPECT_TRUE(machine.Levels().vdd);
    Click("Névjegy");
    Click("Command4");  // the window that is open comes to the front
    Settle();
    EXPECT_TRUE(SecondaryWindow("névjegy_ablak")->isVisible());
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    EXPECT_TRUE(LPT_Port_Check.Check5.Value);
    Press("Check6");
  });
  EXPECT_TRUE(machine.Levels().vdd) << "the pulses leave the other lines alone";
  Press("Check1");
}

TEST_F(PortCheckWindow, ProgramEndsInTheMiddleOfTheTest) {
  Open();
  TestUntil([this] { desk.Main().close(); });
  EXPECT_FALSE(LPT_Port_Check.Loaded());
  EXPECT_FALSE(panel::MDIForm1.Loaded());
  EXPECT_FALSE(machine.Levels().vdd || machine.Levels().pgc);
}

TEST_F(PortCheckWindow, IsWalkedThroughByKeyboardAndClosedByEscapeAndByTheFrame) {
  Open();
  for (const char* stop :
       {"Check1", "Check2", "Check3", "Check4", "Check5", "Check6", "Command1", "Check1"}) {
    EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), stop);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  Settle();
  EXPECT_FALSE(window->isVisible());
  Open();
  window->close();
  EXPECT_FALSE(LPT_Port_Check.Loaded());
}

TEST_F(PortCheckWindow, ShowsTheSerialPortsPolarities) {
  link::LptMode = false;
  link::ComMode = true;
  link::ComPgdInverted = true;
  link::ComPgcInverted = false;
  Open();
  EXPECT_EQ(In<QLabel>("Vdd_Él_Lab").text(), QStringLiteral("Inverz"));
  EXPECT_EQ(In<QLabel>("Data_Él_Lab").text(), QStringLiteral("Inverz"));
  EXPECT_EQ(In<QLabel>("CLK_Él_Lab").text(), QStringLiteral("Nem Inverz"));
  Keep(*window, "port-check-com");
}

}  // namespace
}  // namespace zelvo::test
