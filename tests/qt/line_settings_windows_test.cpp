// The windows of the board's lines on both interfaces.
#include <QCheckBox>
#include <QRadioButton>

#include "qt/settings_desk.h"

namespace zelvo::test {
namespace {

using panel::Adat_él_Beállít_COM;

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

}  // namespace
}  // namespace zelvo::test
