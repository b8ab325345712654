// The settings windows of the whole program, by mouse and keyboard.
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>
#include <filesystem>
#include <fstream>

#include "link/port.h"
#include "qt/desk.h"

namespace zelvo::test {

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

}  // namespace zelvo::test
