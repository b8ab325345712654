// The windows of the interface and of the board's lines, by mouse and keyboard.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <filesystem>
#include <fstream>

#include "link/port.h"
#include "qt/desk.h"

namespace zelvo::test {
namespace {

using panel::Adat_él_Beállít_COM;
using panel::Adat_él_Beállít_H;
using panel::LPT_COM_select;
using panel::LPT_Port_Set;

constexpr const char* Restart = "A programot újra kell indítani a beállítások érvénybelépéséhez!";

class SettingsWindows : public SessionTest {
 protected:
  void SetUp() override { Start(); }
  /// Opens a window by its button of the main window.
  void Open(const std::string& button, const std::string& name) {
    Click(button);
    Settle();
    Meet(name);
  }
  void Meet(const std::string& name) {
    window = SecondaryWindow(name);
    ASSERT_TRUE(window != nullptr && window->isVisible()) << name;
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  }
  void OpenInterface() { Open("Command6", "LPT_COM_select"); }
  void OpenAddress() { Open("Command1", "LPT_Port_Set"); }
  void OpenLptLines() { Open("Command5", "Adat_él_Beállít_H"); }
  void OpenComLines() {
    link::LptMode = false;
    link::ComMode = true;
    Open("Command5", "Adat_él_Beállít_COM");
  }
  template <class Widget>
  Widget& In(const std::string& name) const {
    return *FindIn<Widget>(window, name);
  }
  void Press(const std::string& name) {
    auto& widget = In<QAbstractButton>(name);
    // On the indicator: a tick box may be wider than its text.
    const bool marked = qobject_cast<QPushButton*>(&widget) == nullptr;
    NativeClick(widget, marked ? QPoint(8, widget.height() / 2) : widget.rect().center());
    Settle();
  }
  void Key(Qt::Key key) {
    QTest::keyClick(QApplication::focusWidget(), key);
    Settle();
  }
  static std::string FocusName() {
    const QWidget* focus = QApplication::focusWidget();
    return focus != nullptr ? focus->objectName().toStdString() : "(none)";
  }
  std::string File(const std::string& name) const {
    std::ifstream file(std::filesystem::path(folder) / name);
    std::string line;
    std::getline(file, line);
    return line.substr(0, line.find('\r'));
  }
  template <class Act>
  std::string Told(const Act& act) {
    std::string text = "(no message)";
    AnswerNextBox(QStringLiteral("Ok"), &text);
    act();
    Settle();
    return text;
  }
  /// Every text of the window stands uncut.
  void ExpectTextsWhole() const {
    for (const auto* button : window->findChildren<QAbstractButton*>()) {
      EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
    }
    for (const auto* label : window->findChildren<QLabel*>()) {
      if (label->isVisible()) {
        EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
      }
    }
    for (const auto* widget : window->findChildren<QWidget*>()) {
      if (widget->isVisible() && !widget->isWindow()) {
        EXPECT_TRUE(OnScreen(*window).contains(OnScreen(*widget))) << widget->objectName().toStdString();
      }
    }
  }

  QWidget* window = nullptr;
};

// The choice of the interface

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

// The address

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
  QTest::keyClicks(&In<QLineEdit>("Text1"), QString());
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

// The lines of the printer port

TEST_F(SettingsWindows, LinesOfThePrinterPortStandAsOneMatrix) {
  OpenLptLines();
  EXPECT_EQ(window->windowTitle(), QStringLiteral("LPT port Adatél Beállítás"));
  const std::pair<const char*, int> rows[] = {{"Frame1", 1}, {"Frame2", 11}, {"Frame3", 21}, {"Frame4", 31}};
  int above = OnScreen(In<QLabel>("Label11")).bottom();
  for (const auto& [frame, first] : rows) {
    const QRect name = OnScreen(In<QLabel>(frame));
    EXPECT_GT(name.top(), above);
    above = name.bottom();
    for (int bit = 0; bit < 8; ++bit) {
      const auto& option = In<QRadioButton>("Option" + std::to_string(first + bit));
      const QRect place = OnScreen(option);
      const auto& heading = In<QLabel>("Label" + std::to_string(1 + bit));
      const auto& pin = In<QLabel>("Label" + std::to_string(11 + bit));
      EXPECT_EQ(heading.text(), QStringLiteral("D%1").arg(7 - bit));
      EXPECT_EQ(pin.text(), QStringLiteral("%1.").arg(9 - bit));
      EXPECT_NEAR(OnScreen(heading).center().x(), place.center().x(), 1);
      EXPECT_NEAR(OnScreen(pin).center().x(), place.center().x(), 1);
      EXPECT_NEAR(name.center().y(), place.center().y(), 2);
      EXPECT_EQ(option.accessibleName(), In<QLabel>(frame).text() + QStringLiteral(" D%1").arg(7 - bit));
    }
  }
  ExpectTextsWhole();
  Keep(*window, "lpt-lines");
}

TEST_F(SettingsWindows, LinesOfThePrinterPortShowWhatTheFilesHold) {
  OpenLptLines();  // Vdd D2, Vpp D3, PGD D0, PGC D1; ACK; clock, data and input inverted
  for (const char* set : {"Option6", "Option15", "Option27", "Option38", "ACK_Radio"})
    EXPECT_TRUE(In<QRadioButton>(set).isChecked()) << set;
  int all = 0;
  for (const auto* option : window->findChildren<QRadioButton*>()) all += option->isChecked() ? 1 : 0;
  EXPECT_EQ(all, 5);
  for (int box = 1; box <= 5; ++box)
    EXPECT_EQ(In<QCheckBox>("Check" + std::to_string(box)).isChecked(), box >= 3) << box;
}

TEST_F(SettingsWindows, BitOfALineIsChosenByMouseAndSavedAtOnce) {
  OpenLptLines();
  Press("Option3");
  EXPECT_TRUE(In<QRadioButton>("Option3").isChecked());
  EXPECT_FALSE(In<QRadioButton>("Option6").isChecked());
  EXPECT_TRUE(In<QRadioButton>("Option15").isChecked()) << "another line keeps its bit";
  EXPECT_EQ(File("LPT_Kiosztas.ini").substr(0, 3), "32,");
  Press("Option3");
  EXPECT_TRUE(In<QRadioButton>("Option3").isChecked()) << "the set one stays set";
  Press("BUSY_Radio");
  EXPECT_FALSE(In<QRadioButton>("ACK_Radio").isChecked());
  EXPECT_EQ(link::InputSelect, 0);
}

TEST_F(SettingsWindows, LinesAreWalkedThroughWithOneStopForEachGroup) {
  OpenLptLines();
  const char* stops[] = {"Option6", "Option15", "Option27", "Option38", "ACK_Radio", "Check1",
                         "Check2",  "Check3",   "Check4",   "Check5",   "Option6"};
  for (const char* stop : stops) {
    EXPECT_EQ(FocusName(), stop);
    Key(Qt::Key_Tab);
  }
  Key(Qt::Key_Right);  // from D3 of Vpp to D2
  EXPECT_EQ(FocusName(), "Option16");
  EXPECT_TRUE(In<QRadioButton>("Option16").isChecked());
  Key(Qt::Key_Tab);
  EXPECT_EQ(FocusName(), "Option27");
  Key(Qt::Key_Backtab);
  EXPECT_EQ(FocusName(), "Option16");
  EXPECT_EQ(link::VppSetMask, 4);
}

TEST_F(SettingsWindows, GroupWithoutASetBitIsEnteredAtItsFirst) {
  std::ofstream(std::filesystem::path(folder) / "LPT_Kiosztas.ini") << "77,8,1,2,1\r\n";
  OpenLptLines();
  for (int bit = 1; bit <= 8; ++bit)
    EXPECT_FALSE(In<QRadioButton>("Option" + std::to_string(bit)).isChecked()) << bit;
  EXPECT_EQ(FocusName(), "Option1");
  Key(Qt::Key_Space);
  EXPECT_TRUE(In<QRadioButton>("Option1").isChecked());
  EXPECT_EQ(File("LPT_Kiosztas.ini").substr(0, 4), "128,");
}

TEST_F(SettingsWindows, InversionIsTickedByMouseAndKeyAndSavedAtOnce) {
  OpenLptLines();
  Press("Check1");
  EXPECT_TRUE(link::VddInverted);
  EXPECT_EQ(File("invert.ini"), "29");
  EXPECT_EQ(Log().front(), ":  Vdd Kimenet Inverz");
  In<QCheckBox>("Check5").setFocus();
  Key(Qt::Key_Space);
  EXPECT_FALSE(link::InputInverted);
  EXPECT_EQ(File("invert.ini"), "13");
}

TEST_F(SettingsWindows, LinesOfThePrinterPortCloseByEscapeAndByTheFrame) {
  for (const bool byKey : {true, false}) {
    OpenLptLines();
    if (byKey) {
      Key(Qt::Key_Escape);
    } else {
      window->close();
    }
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(Log().front(), ":  Ack Bemenetnek kiválasztva.");
  }
}

// The lines of the serial port

TEST_F(SettingsWindows, LinesOfTheSerialPortAreTickedAndCloseByEscapeAndByTheFrame) {
  OpenComLines();
  EXPECT_EQ(window->windowTitle(), QStringLiteral("COM port Adatél Beállítás"));
  EXPECT_EQ(FocusName(), "Check1_PGD_Vdd");
  ExpectTextsWhole();
  Keep(*window, "com-lines");
  const std::string before = File("invert_com.ini");
  Press("Check4_Vpp");
  EXPECT_EQ(std::stoi(File("invert_com.ini")), std::stoi(before) ^ 8);
  Key(Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
  OpenComLines();
  EXPECT_EQ(In<QCheckBox>("Check4_Vpp").isChecked(), (std::stoi(before) & 8) == 0);
  window->close();
  EXPECT_FALSE(Adat_él_Beállít_COM.Loaded());
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
