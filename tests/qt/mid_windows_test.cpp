// The editor of the mid-range configuration words in the whole program, by mouse and keyboard.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "image/buffers.h"
#include "qt/mid_page.h"

namespace zelvo::test {
namespace {

using image::ConfigWord1Bits;
using image::ConfigWord2Bits;
using panel::ConfEdit_F16;

const QColor UnusedColour(0x80, 0x80, 0xFF);

class MidConfigEditor : public MidPage {
 protected:
  void Open(const std::string& chip, const std::string& word1 = "11111111111111",
            const std::string& word2 = "11111111111111") {
    ChooseMid(chip);
    ConfigWord1Bits = word1;
    ConfigWord2Bits = word2;
    Click("ConfRészlEdit_F16");
    Settle();
    window = SecondaryWindow("ConfEdit_F16");
    ASSERT_NE(window, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  }
  static std::string Element(const char* array, int index) {
    return std::string(array) + "(" + std::to_string(index) + ")";
  }
  QLineEdit* Box(int index) const { return FindIn<QLineEdit>(window, Element("Text1", index)); }
  QLabel* Name(int index) const { return FindIn<QLabel>(window, Element("Label1", index)); }
  QLabel* Heading(int index) const { return FindIn<QLabel>(window, Element("Label32", index + 1)); }
  void Press(const std::string& button) {
    QTest::mouseClick(FindIn<QPushButton>(window, button), Qt::LeftButton);
    Settle();
  }
  void DoubleClick(int index) {
    NativeDoubleClick(*Box(index), Box(index)->rect().center());
    Settle();
  }
  static QColor Ground(QWidget& widget) { return widget.grab().toImage().pixelColor(4, widget.height() / 2); }

  QWidget* window = nullptr;
};

TEST_F(MidConfigEditor, FitsOnALaptopsScreenWithEveryNameAndBoxInside) {
  for (const char* chip : {"PIC16F84A", "PIC16F887", "PIC16F88", "PIC16F877A"}) {
    Open(chip);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Configurációs szó szerkesztése"));
    EXPECT_LE(window->width(), 1366 - 12) << chip;
    EXPECT_LE(window->height(), 768 - 40) << chip;
    for (const panel::Control* control : ConfEdit_F16.Controls()) {
      auto* widget = FindIn<QWidget>(window, control->Name());
      ASSERT_NE(widget, nullptr);
      const auto& shown = dynamic_cast<const panel::VisibleControl&>(*control).Visible;
      EXPECT_EQ(widget->isVisible(), shown.Get()) << chip << ' ' << control->Name();
      if (!shown) continue;
      EXPECT_TRUE(OnScreen(*window).contains(OnScreen(*widget))) << chip << ' ' << control->Name();
      EXPECT_GE(widget->width(), qobject_cast<QLineEdit*>(widget) ? 1 : widget->sizeHint().width())
          << chip << ' ' << control->Name();
    }
    Keep(*window, std::string("mid-config-editor-") + chip);
  }
}

TEST_F(MidConfigEditor, StandsInRowsOfFourteenNumberAboveNameAboveBox) {
  Open("PIC16F887");
  for (int index = 0; index < 28; ++index) {
    const QRect heading = OnScreen(*Heading(index));
    const QRect name = OnScreen(*Name(index));
    const QRect box = OnScreen(*Box(index));
    EXPECT_EQ(Heading(index)->text().toInt(), 13 - index % 14);
    EXPECT_LE(heading.bottom(), name.top());
    EXPECT_LE(name.bottom(), box.top());
    EXPECT_NEAR(heading.center().x(), box.center().x(), 1);
    EXPECT_NEAR(name.center().x(), box.center().x(), 1);
    if (index % 14 > 0) {
      EXPECT_EQ(box.top(), OnScreen(*Box(index - 1)).top());
      EXPECT_GT(box.left(), OnScreen(*Box(index - 1)).right());
      EXPECT_GT(name.left(), OnScreen(*Name(index - 1)).right()) << "names stand apart";
    }
    if (index >= 14) {
      EXPECT_EQ(box.left(), OnScreen(*Box(index - 14)).left()) << "bit under bit";
    }
  }
  EXPECT_GT(OnScreen(*Heading(14)).top(), OnScreen(*Box(0)).bottom());
  EXPECT_GT(OnScreen(*FindIn<QWidget>(window, "Command1")).top(), OnScreen(*Box(14)).bottom());
}

TEST_F(MidConfigEditor, IsSmallForAChipOfOneWordWhateverWasOpenBefore) {
  Open("PIC16F84A");
  const int alone = window->height();
  Open("PIC16F887");
  EXPECT_GT(window->height(), alone * 4 / 3);
  Open("PIC16F84A");
  EXPECT_EQ(window->height(), alone);
  EXPECT_FALSE(Box(14)->isVisible());
  for (const auto* label : window->findChildren<QLabel*>()) {
    EXPECT_FALSE(label->isVisible() && label->text() == QStringLiteral("2008h"));
  }
}

TEST_F(MidConfigEditor, ShowsNamesAndBitsAndColoursTheUnused) {
  Open("PIC16F877A", "10110011100011");
  EXPECT_EQ(Name(0)->text(), QStringLiteral("CP"));
  EXPECT_EQ(Name(1)->text(), QStringLiteral("X"));
  EXPECT_EQ(Name(10)->text(), QStringLiteral("PWRTEN"));
  QString bits;
  for (int index = 0; index < 14; ++index) bits += Box(index)->text();
  EXPECT_EQ(bits, QStringLiteral("10110011100011"));
  for (int index = 0; index < 14; ++index) {
    const bool used = index != 1 && index != 8 && index != 9;
    EXPECT_EQ(Box(index)->isEnabled(), used) << index;
    if (used) {
      EXPECT_GT(Ground(*Box(index)).lightness(), 250) << index;
    } else {
      EXPECT_EQ(Ground(*Box(index)), UnusedColour) << index;
    }
    EXPECT_EQ(Box(index)->toolTip(), QStringLiteral("Szerkesztés: DblClick"));
  }
}

TEST_F(MidConfigEditor, LosesTheColourWithTheNextChip) {
  Open("PIC16F877A");
  EXPECT_EQ(Ground(*Box(1)), UnusedColour);
  Open("PIC16F88");
  EXPECT_GT(Ground(*Box(1)).lightness(), 250);
}

TEST_F(MidConfigEditor, ADoubleClickFlipsABitAndTheAcceptTakesIt) {
  Open("PIC16F887", "11111111111111", "11111111111111");
  DoubleClick(0);
  EXPECT_EQ(Box(0)->text(), QStringLiteral("0"));
  DoubleClick(13);
  DoubleClick(13);
  EXPECT_EQ(Box(13)->text(), QStringLiteral("1"));
  DoubleClick(14 + 5);
  EXPECT_EQ(Box(14 + 5)->text(), QStringLiteral("0"));
  EXPECT_EQ(ConfigWord1Bits, "11111111111111");
  Press("Command1");
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(ConfigWord1Bits, "01111111111111");
  EXPECT_EQ(ConfigWord2Bits, "11111011111111");
  EXPECT_EQ(MainList("List6"), "1FFFh  ( 0 1 1 1 1 1 1 1 1 1 1 1 1 1)bin");
  EXPECT_EQ(MainList("List12"), "3EFFh  ( 1 1 1 1 1 0 1 1 1 1 1 1 1 1)bin");
}

TEST_F(MidConfigEditor, ADisabledBoxTakesNoClick) {
  Open("PIC16F877A");
  DoubleClick(1);
  EXPECT_EQ(Box(1)->text(), QStringLiteral("1"));
}

TEST_F(MidConfigEditor, TheSpaceBarFlipsOnceHoweverLongItIsHeld) {
  Open("PIC16F84A");
  Box(2)->setFocus();
  QTest::keyClick(Box(2), Qt::Key_Space);
  HoldKey(*Box(2), Qt::Key_Space);
  Settle();
  EXPECT_EQ(Box(2)->text(), QStringLiteral("0"));
  QTest::keyClick(Box(2), Qt::Key_Space);
  EXPECT_EQ(Box(2)->text(), QStringLiteral("1"));
}

TEST_F(MidConfigEditor, TabAndArrowsGoFromBitToBitPastTheDisabled) {
  Open("PIC16F877A");
  Box(0)->setFocus();
  QTest::keyClick(Box(0), Qt::Key_Tab);
  EXPECT_TRUE(Box(2)->hasFocus()) << "bit 12 has no function";
  QTest::keyClick(Box(2), Qt::Key_Right);
  EXPECT_TRUE(Box(3)->hasFocus());
  QTest::keyClick(Box(3), Qt::Key_Left);
  EXPECT_TRUE(Box(2)->hasFocus());
  QTest::keyClick(Box(2), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(Box(0)->hasFocus());
}

TEST_F(MidConfigEditor, ATypedDigitTakesTheOldOnesPlace) {
  Open("PIC16F84A");
  NativeClick(*Box(3), Box(3)->rect().center());
  QTest::keyClicks(Box(3), QStringLiteral("0"));
  EXPECT_EQ(Box(3)->text(), QStringLiteral("0"));
  QTest::keyClicks(Box(3), QStringLiteral("1"));
  EXPECT_EQ(Box(3)->text(), QStringLiteral("1"));
  QTest::keyClicks(Box(3), QStringLiteral("0"));
  QTest::keyClick(Box(3), Qt::Key_Tab);
  QTest::keyClick(Box(4), Qt::Key_Delete);
  EXPECT_EQ(Box(4)->text(), QString());
  Press("Command1");
  EXPECT_EQ(ConfigWord1Bits,
            "111"
            "0"
            "111111111")
      << "an emptied box adds nothing";
}

TEST_F(MidConfigEditor, EscapeLeavesWithoutTakingAnythingOver) {
  Open("PIC16F84A");
  for (const bool inABox : {true, false}) {
    Open("PIC16F84A");
    DoubleClick(3);
    auto* accept = FindIn<QPushButton>(window, "Command1");
    QWidget* focus = inABox ? static_cast<QWidget*>(Box(3)) : accept;
    focus->setFocus();
    QTest::keyClick(focus, Qt::Key_Escape);
    Settle();
    EXPECT_FALSE(ConfEdit_F16.Loaded());
    EXPECT_EQ(ConfigWord1Bits, "11111111111111");
    EXPECT_EQ(NewestEvent(), ":  Config Szerkesztése Vége!");
  }
}

TEST_F(MidConfigEditor, EnterInABoxDoesNotAccept) {
  Open("PIC16F84A");
  DoubleClick(3);
  QTest::keyClick(Box(3), Qt::Key_Return);
  EXPECT_TRUE(ConfEdit_F16.Loaded());
  EXPECT_EQ(ConfigWord1Bits, "11111111111111");
}

TEST_F(MidConfigEditor, LeavesTheMainWindowUsable) {
  Open("PIC16F84A");
  EXPECT_FALSE(window->isModal());
  QTest::mouseClick(Find<QWidget>("Command24"), Qt::LeftButton);
  EXPECT_TRUE(panel::névjegy_ablak.Loaded());
  EXPECT_TRUE(ConfEdit_F16.Loaded());
}

}  // namespace
}  // namespace zelvo::test
