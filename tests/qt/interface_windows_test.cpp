// The windows of the interface and of its address.
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QRadioButton>

#include "qt/settings_desk.h"

namespace zelvo::test {
namespace {

using panel::LPT_COM_select;
using panel::LPT_Port_Set;

constexpr const char* Restart = "A programot újra kell indítani a beállítások érvénybelépéséhez!";

TEST_F(SettingsWindows, InterfaceShowsThePresentOneWithTheFocusOnIt) {
  OpenInterface();
  EXPECT_EQ(window->windowTitle(), QStringLiteral("Csatoló felület kiválasztása"));
  EXPECT_TRUE(In<QRadioButton>("LPT_Radio").isChecked());
  EXPECT_FALSE(In<QRadioButton>("COM_Radio").isChecked());
  EXPECT_EQ(FocusName(), "LPT_Radio");
  ExpectTextsWhole();
  Keep(*window, "interface");
}

TEST_F(SettingsWindows, InterfaceIsChosenByMouseAndFollowedByItsAddresses) {
  OpenInterface();
  Press("COM_Radio");
  EXPECT_TRUE(In<QRadioButton>("COM_Radio").isChecked());
  EXPECT_FALSE(In<QRadioButton>("LPT_Radio").isChecked());
  EXPECT_TRUE(link::LptMode) << "nothing happens before Ok";
  Press("Command1");
  EXPECT_FALSE(window->isVisible());
  EXPECT_TRUE(link::ComMode);
  Meet("LPT_Port_Set");
  auto& list = In<QComboBox>("Combo1");
  EXPECT_EQ(list.count(), 4);
  EXPECT_EQ(list.itemText(3), QStringLiteral("&H2E8"));
  for (const char* hidden : {"Text1", "Label2", "Label3"})
    EXPECT_FALSE(In<QWidget>(hidden).isVisible()) << hidden;
  ExpectTextsWhole();
  Keep(*window, "port-address-com");
}

TEST_F(SettingsWindows, InterfaceIsChosenByTheArrowKeysAndOneTabLeavesTheGroup) {
  OpenInterface();
  Key(Qt::Key_Up);
  EXPECT_EQ(FocusName(), "COM_Radio");
  EXPECT_TRUE(LPT_COM_select.COM_Radio.Value);
  EXPECT_FALSE(In<QRadioButton>("LPT_Radio").isChecked());
  Key(Qt::Key_Up);
  EXPECT_EQ(FocusName(), "LPT_Radio");
  Key(Qt::Key_Right);
  EXPECT_EQ(FocusName(), "COM_Radio");
  Key(Qt::Key_Tab);
  EXPECT_EQ(FocusName(), "Command1");
  Key(Qt::Key_Tab);
  EXPECT_EQ(FocusName(), "COM_Radio");
  Key(Qt::Key_Backtab);
  Key(Qt::Key_Return);
  EXPECT_TRUE(link::ComMode);
  EXPECT_TRUE(LPT_Port_Set.Loaded());
}

TEST_F(SettingsWindows, InterfaceStaysAsItWasByEscapeAndByTheFrame) {
  for (const bool byKey : {true, false}) {
    OpenInterface();
    Press("COM_Radio");
    if (byKey) {
      Key(Qt::Key_Escape);
    } else {
      window->close();
    }
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(LPT_Port_Set.Loaded());
    EXPECT_TRUE(link::LptMode);
  }
}

TEST_F(SettingsWindows, AddressByHandTakesNoRoomWhereThereIsNone) {
  OpenAddress();
  const int whole = window->height();
  EXPECT_EQ(FocusName(), "Combo1");
  EXPECT_EQ(In<QComboBox>("Combo1").placeholderText(), QStringLiteral("Válassz ki egy Címet!"));
  ExpectTextsWhole();
  Keep(*window, "port-address");
  Key(Qt::Key_Escape);
  link::LptMode = false;
  link::ComMode = true;
  OpenAddress();
  EXPECT_LE(window->height(), whole - In<QLineEdit>("Text1").sizeHint().height());
  const int gap = OnScreen(In<QPushButton>("Command1")).top() - OnScreen(In<QComboBox>("Combo1")).bottom();
  EXPECT_LT(gap, window->fontMetrics().height() * 3 / 2);
}

TEST_F(SettingsWindows, AddressIsChosenFromTheList) {
  OpenAddress();
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  EXPECT_EQ(In<QComboBox>("Combo1").currentText(), QStringLiteral("&H278"));
  EXPECT_EQ(Told([this] { Press("Command1"); }), Restart);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(File("port.ini"), "&H278,LPT");
  EXPECT_EQ(Log().front(), ":  Port új Címe: H278");
}

TEST_F(SettingsWindows, AddressByHandIsFramedAsHavingTheFocusOnlyWhenItHasIt) {
  OpenAddress();
  const auto frame = [this] {
    const QImage box = In<QLineEdit>("Text1").grab().toImage();
    return box.pixelColor(box.width() / 2, 0);
  };
  const QColor atRest = frame();
  Key(Qt::Key_Tab);
  ASSERT_EQ(FocusName(), "Text1");
  EXPECT_NE(frame(), atRest);
  Key(Qt::Key_Tab);
  EXPECT_EQ(frame(), atRest);
}

TEST_F(SettingsWindows, AddressIsTypedAndEnterOnlyChecksIt) {
  OpenAddress();
  Key(Qt::Key_Tab);
  EXPECT_EQ(FocusName(), "Text1");
  QTest::keyClicks(&In<QLineEdit>("Text1"), QStringLiteral("3G"));
  EXPECT_EQ(Told([this] { Key(Qt::Key_Return); }), "Nem megengedett karakter!");
  EXPECT_EQ(In<QLineEdit>("Text1").text(), QStringLiteral("3G"));
  QTest::keyClick(&In<QLineEdit>("Text1"), Qt::Key_Backspace);
  QTest::keyClicks(&In<QLineEdit>("Text1"), QStringLiteral("78"));
  QTest::keyClick(&In<QLineEdit>("Text1"), Qt::Key_Return);
  Settle();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(File("port.ini"), "&H378,LPT");
  In<QLineEdit>("Text1").selectAll();
  QTest::keyClicks(&In<QLineEdit>("Text1"), QStringLiteral("3bc"));
  Keep(*window, "port-address-typed");
  EXPECT_EQ(Told([this] { Press("Command1"); }), Restart);
  EXPECT_EQ(File("port.ini"), "&H3bc,LPT");
}

TEST_F(SettingsWindows, AddressIsKeptByEscapeFromAnyControlAndByTheFrame) {
  for (const char* control : {"Combo1", "Text1", "Command1", ""}) {
    OpenAddress();
    QTest::keyClicks(&In<QLineEdit>("Text1"), QStringLiteral("278"));
    if (*control == '\0') {
      window->close();
    } else {
      In<QWidget>(control).setFocus();
      QTest::keyClick(&In<QWidget>(control), Qt::Key_Escape);
    }
    Settle();
    EXPECT_FALSE(window->isVisible()) << control;
    EXPECT_EQ(File("port.ini"), "&H378,LPT");
  }
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(SettingsWindows, StandInFrontWithTheKeyboardWheneverTheirButtonIsPressed) {
  const std::pair<const char*, const char*> windows[] = {
      {"Command6", "LPT_COM_select"}, {"Command1", "LPT_Port_Set"}, {"Command5", "Adat_él_Beállít_H"}};
  for (int round = 0; round < 2; ++round) {
    for (const auto& [button, name] : windows) {
      Open(button, name);
      EXPECT_EQ(QGuiApplication::topLevelAt(window->geometry().center()), window->windowHandle()) << name;
    }
  }
}

}  // namespace
}  // namespace zelvo::test
