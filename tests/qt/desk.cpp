#include "qt/desk.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QWindow>
#include <filesystem>
#include <utility>

#include "support/assembler.h"
#include "ui/startup.h"

namespace zelvo::test {

void DeskTest::Open() {
  panel::MDIForm1.Load();
  panel::Form1.Load();
  Settle();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&desk.Main()));
  desk.Main().activateWindow();
  static_cast<void>(QTest::qWaitForWindowActive(&desk.Main()));
}

void DeskTest::Settle() {
  desk.Refresh();
  QTest::qWait(1);
}

QWidget* DeskTest::SecondaryWindow(const std::string& name) {
  return desk.Main().findChild<QWidget*>(QString::fromStdString(name), Qt::FindDirectChildrenOnly);
}

void DeskTest::Keep(QWidget& widget, const std::string& name) {
  const QDir folder(QStringLiteral(ZELVO_BINARY_DIR "/screenshots"));
  folder.mkpath(QStringLiteral("."));
  EXPECT_TRUE(widget.grab().save(folder.filePath(QString::fromStdString(name + ".png"))));
}

SessionTest::SessionTest(const std::string& chip)
    : machine(bench::MakeLptBoard({.clockInverted = true, .dataInverted = true, .inputInverted = true})),
      folder(ScratchFolder()) {
  for (const auto& file : std::filesystem::directory_iterator(ZELVO_SOURCE_DIR "/settings")) {
    std::filesystem::copy_file(file.path(), std::filesystem::path(folder) / file.path().filename());
  }
  platform::programFolder = folder;
  platform::seams.ports = &machine;
  platform::seams.serial = &serial;
  machine.Insert(bench::MakeChip(chip, std::nullopt));
}

void SessionTest::Start() {
  ui::StartUp();
  Settle();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&desk.Main()));
  ASSERT_EQ(panel::HandTab(panel::Form1.TabStrip1, panel::Pic18Tab), panel::HandResult::Done);
  Settle();
}

void SessionTest::SetSpeed(int value, bool tenfold) {
  EXPECT_EQ(panel::HandScroll(panel::Form1.ÁSeb, value), panel::HandResult::Done);
  EXPECT_EQ(panel::HandTick(panel::Form1.Check9, tenfold), panel::HandResult::Done);
  // The tick moved the bar along.
  EXPECT_EQ(panel::HandScroll(panel::Form1.ÁSeb, value), panel::HandResult::Done);
}

void SessionTest::Choose(const std::string& chip) {
  EXPECT_EQ(panel::HandChoose(panel::Form1.Combo1, chip), panel::HandResult::Done);
  Settle();
}

void SessionTest::Click(const std::string& button) {
  QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton);
}

void SessionTest::LoadFile(const std::string& path) {
  WhenModal([path](QWidget& modal) {
    auto* name = modal.findChild<QLineEdit*>();
    ASSERT_NE(name, nullptr);
    name->setText(QString::fromStdString(path));
    QTest::keyClick(name, Qt::Key_Return);
  });
  Click("FájlBetölt");
  Settle();
}

std::vector<std::string> SessionTest::Log() {
  std::vector<std::string> texts;
  for (const std::string& line : panel::Form1.List1.Lines()) {
    const std::size_t counter = line.find(":  ");
    texts.push_back(line.substr(std::min(line.size(), counter + 3 + 8)));
  }
  return texts;
}

QRect OnScreen(const QWidget& widget) {
  return {widget.mapToGlobal(QPoint()), widget.size()};
}

namespace {

QPoint InWindow(const QWidget& widget, const QPoint& at) {
  return widget.mapTo(widget.window(), at);
}

}  // namespace

void NativeClick(QWidget& widget, const QPoint& at) {
  QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {}, InWindow(widget, at));
}

void NativeDoubleClick(QWidget& widget, const QPoint& at) {
  QTest::mouseDClick(widget.window()->windowHandle(), Qt::LeftButton, {}, InWindow(widget, at));
}

void HoldKey(QWidget& widget, Qt::Key key) {
  for (int repeat = 0; repeat < 3; ++repeat) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&widget, &press);
  }
}

void WhenModal(std::function<void(QWidget&)> act) {
  auto* timer = new QTimer(qApp);
  QObject::connect(timer, &QTimer::timeout, timer, [timer, act = std::move(act)] {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible()) return;
    timer->stop();
    timer->deleteLater();
    act(*modal);
  });
  timer->start(5);
}

void AnswerNextBox(const QString& button, std::string* text) {
  WhenModal([button, text](QWidget& modal) {
    auto* box = qobject_cast<QMessageBox*>(&modal);
    ASSERT_NE(box, nullptr);
    if (text != nullptr) *text = box->text().toStdString();
    for (QAbstractButton* one : box->buttons()) {
      if (one->text() == button) QTest::mouseClick(one, Qt::LeftButton);
    }
  });
}

}  // namespace zelvo::test
