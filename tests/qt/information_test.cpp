// The information page that ships with the program, and the save dialog.
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBrowser>

#include "qt/desk.h"
#include "qt/shipped.h"

namespace zelvo::test {
namespace {

constexpr auto Page = "ZelvoBurn/ZLV_infok.htm";

/// Takes the place of the operator's browser.
class Browser {
 public:
  Browser() { QDesktopServices::setUrlHandler(QStringLiteral("file"), &view, "setSource"); }
  Browser(const Browser&) = delete;
  Browser& operator=(const Browser&) = delete;
  ~Browser() { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
  QTextBrowser view;
};

/// An installation in a folder of its own.
class InformationPage : public DeskTest {
 protected:
  void SetUp() override { Open(); }
  QString Put(const QString& path) const {
    const QString file = root.filePath(path);
    EXPECT_TRUE(QDir().mkpath(QFileInfo(file).path()));
    EXPECT_TRUE(QFile::copy(QStringLiteral(ZELVO_SOURCE_DIR "/info/ZelvoBurn/ZLV_infok.htm"), file));
    return QFileInfo(file).canonicalFilePath();
  }
  QString Executables() const {
    QDir(root.path()).mkpath(QStringLiteral("build/bin"));
    return root.filePath(QStringLiteral("build/bin"));
  }
  void OpenPage() {
    desktop::Dialogs dialogs([] {}, [this] { return &desk.Main(); });
    dialogs.SetExecutables(Executables());
    dialogs.OpenInformationPage(Page);
  }

  QTemporaryDir root;
};

TEST_F(InformationPage, IsFoundBesideTheExecutableInAnInstallationAndInTheTree) {
  for (const char* place : {"build/bin/info/", "build/share/zelvo/info/", "info/"}) {
    const QString file = Put(QLatin1String(place) + QLatin1String(Page));
    const QString found = desktop::ShippedFile(QLatin1String("info/") + QLatin1String(Page), Executables());
    EXPECT_EQ(QFileInfo(found).canonicalFilePath(), file);
    QFile::remove(file);
  }
  EXPECT_EQ(desktop::ShippedFile(QLatin1String("info/") + QLatin1String(Page), Executables()), QString());
}

TEST_F(InformationPage, IsOpenedAsAFileOfThisMachine) {
  const QString file = Put(QLatin1String("info/") + QLatin1String(Page));
  Browser browser;
  OpenPage();
  const QUrl opened = browser.view.source();
  EXPECT_TRUE(opened.isLocalFile());
  EXPECT_EQ(QFileInfo(opened.toLocalFile()).canonicalFilePath(), file);
  EXPECT_TRUE(browser.view.toPlainText().contains(QStringLiteral("Egy munka lépései")));
  browser.view.resize(900, 1150);
  Keep(browser.view, "information-page");
}

TEST_F(InformationPage, IsToldOfWhenItIsMissing) {
  std::string told;
  AnswerNextBox(QStringLiteral("Ok"), &told);
  OpenPage();
  EXPECT_EQ(told, "Az információs oldal nem található: ZelvoBurn/ZLV_infok.htm");
}

TEST_F(InformationPage, IsToldOfWithItsPlaceWhenNothingOpensIt) {
  Put(QLatin1String("info/") + QLatin1String(Page));
  for (const char* variable : {"PATH", "BROWSER", "DEFAULT_BROWSER"}) qputenv(variable, "");
  std::string told;
  AnswerNextBox(QStringLiteral("Ok"), &told);
  OpenPage();
  EXPECT_NE(told.find("ZLV_infok.htm"), std::string::npos) << told;
}

TEST_F(InformationPage, NeedsNoHostAndNoScript) {
  QFile file(QStringLiteral(ZELVO_SOURCE_DIR "/info/ZelvoBurn/ZLV_infok.htm"));
  ASSERT_TRUE(file.open(QFile::ReadOnly));
  const QString text = QString::fromUtf8(file.readAll());
  for (const char* foreign : {"http:", "https:", "<script", "<img", "<link", "@import"}) {
    EXPECT_FALSE(text.contains(QLatin1String(foreign))) << foreign;
  }
  // What it calls a button is one.
  QStringList captions;
  for (const panel::Control* control : panel::Form1.Controls()) {
    const auto* button = dynamic_cast<const panel::CommandButton*>(control);
    if (button != nullptr) captions += QString::fromStdString(button->Caption).simplified();
  }
  captions += QStringLiteral("Cancel");
  const QString opening = QStringLiteral("<b class=\"button\">");
  for (qsizetype at = text.indexOf(opening); at >= 0; at = text.indexOf(opening, at + 1)) {
    const qsizetype from = at + opening.size();
    const QString named = text.mid(from, text.indexOf(QLatin1String("</b>"), from) - from).simplified();
    EXPECT_TRUE(captions.contains(named)) << named.toStdString();
  }
}

class SaveDialog : public DeskTest {
 protected:
  void SetUp() override {
    Open();
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("old");
  }
  /// Types the name into the dialog, and answers its question with `button`; gives up the dialog after a No.
  std::optional<std::string> Save(QMessageBox::StandardButton answer) {
    WhenModal([this, answer](QWidget& modal) {
      auto* dialog = qobject_cast<QFileDialog*>(&modal);
      ASSERT_NE(dialog, nullptr);
      WhenModalIsNot(modal, [this, answer](QWidget& question) {
        auto* box = qobject_cast<QMessageBox*>(&question);
        ASSERT_NE(box, nullptr);
        asked = true;
        QTest::mouseClick(box->button(answer), Qt::LeftButton);
      });
      auto* name = dialog->findChild<QLineEdit*>();
      name->setText(path);
      QTest::keyClick(name, Qt::Key_Return);
      if (dialog->isVisible()) dialog->reject();
    });
    return platform::seams.dialogs->SaveFile({".Hex Intel HEX formátum|*.Hex", "Hex"});
  }
  static void WhenModalIsNot(QWidget& first, std::function<void(QWidget&)> act) {
    auto* timer = new QTimer(&first);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, &first, act = std::move(act)] {
      QWidget* modal = QApplication::activeModalWidget();
      if (modal == nullptr || modal == &first || !modal->isVisible()) return;
      timer->stop();
      act(*modal);
    });
    timer->start(5);
  }

  QTemporaryDir folder;
  QString path = folder.filePath(QStringLiteral("image.Hex"));
  bool asked = false;
};

TEST_F(SaveDialog, AsksBeforeItGivesAFileThatIsThere) {
  EXPECT_EQ(Save(QMessageBox::No), std::nullopt);
  EXPECT_TRUE(asked);
  EXPECT_EQ(Save(QMessageBox::Yes), path.toStdString());
}

TEST_F(SaveDialog, AddsTheEndingOfItsKind) {
  WhenModal([this](QWidget& modal) {
    auto* name = modal.findChild<QLineEdit*>();
    name->setText(folder.filePath(QStringLiteral("fresh")));
    QTest::keyClick(name, Qt::Key_Return);
  });
  EXPECT_EQ(platform::seams.dialogs->SaveFile({".MCH MPLAB import formátum|*.MCH", "MCH"}),
            folder.filePath(QStringLiteral("fresh.MCH")).toStdString());
}

}  // namespace
}  // namespace zelvo::test
