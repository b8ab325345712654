#include "qt/dialogs.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTime>
#include <QUrl>
#include <utility>

#include "qt/shipped.h"
#include "qt/text.h"

namespace zelvo::desktop {
namespace {

QString AnyCase(const QString& pattern) {
  if (pattern == QLatin1String("*.*")) return QStringLiteral("*");
  QString any;
  for (const QChar letter : pattern) {
    any += letter.isLetter() ? QStringLiteral("[%1%2]").arg(letter.toLower()).arg(letter.toUpper())
                             : QString(letter);
  }
  return any;
}

void Prepare(QMessageBox& box, const std::string& text) {
  box.setObjectName(QStringLiteral("MessageBox"));
  box.setWindowTitle(QStringLiteral("Zelvo"));
  box.setTextFormat(Qt::PlainText);
  box.setText(Text(text));
}

}  // namespace

QStringList NameFilters(const std::string& filter) {
  const QStringList parts = Text(filter).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype at = 0; at + 1 < parts.size(); at += 2) {
    filters += QStringLiteral("%1 (%2)").arg(parts[at], AnyCase(parts[at + 1]));
  }
  return filters;
}

Dialogs::Dialogs(std::function<void()> beforeBox, std::function<QWidget*()> owner)
    : beforeBox_(std::move(beforeBox)), owner_(std::move(owner)), folder_(QDir::homePath()) {}

void Dialogs::Message(const std::string& text) {
  beforeBox_();
  QMessageBox box(owner_());
  Prepare(box, text);
  box.addButton(QStringLiteral("Ok"), QMessageBox::AcceptRole);
  box.exec();
}

bool Dialogs::AskYesNo(const std::string& text) {
  beforeBox_();
  QMessageBox box(owner_());
  Prepare(box, text);
  const QPushButton* yes = box.addButton(QStringLiteral("Igen"), QMessageBox::YesRole);
  QPushButton* no = box.addButton(QStringLiteral("Nem"), QMessageBox::NoRole);
  box.setEscapeButton(no);
  box.setDefaultButton(no);  // a key held down a moment too long must not erase a chip
  box.exec();
  return box.clickedButton() == yes;
}

std::optional<std::string> Dialogs::OpenFile(const platform::FileFilter& filter) {
  return ChooseFile(filter, false);
}

std::optional<std::string> Dialogs::SaveFile(const platform::FileFilter& filter) {
  return ChooseFile(filter, true);
}

std::optional<std::string> Dialogs::ChooseFile(const platform::FileFilter& filter, bool save) {
  beforeBox_();
  QFileDialog dialog(owner_());
  dialog.setObjectName(QStringLiteral("FileDialog"));
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setNameFilters(NameFilters(filter.filter));
  dialog.setDefaultSuffix(Text(filter.defaultExtension));
  dialog.setDirectory(folder_);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  const QString chosen = dialog.selectedFiles().constFirst();
  folder_ = QFileInfo(chosen).absolutePath();
  return QFile::encodeName(chosen).toStdString();
}

void Dialogs::OpenInformationPage(const std::string& path) {
  const QString page = ShippedFile(QStringLiteral("info/") + Text(path), executables_);
  if (page.isEmpty()) {
    Message("Az információs oldal nem található: " + path);
  } else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(page))) {
    Message("Az információs oldalt nem nyitotta meg egy böngésző sem:\n" + page.toStdString());
  }
}

std::string WallClock::LocalTime() {
  return QTime::currentTime().toString(QStringLiteral("HH:mm:ss")).toStdString();
}

}  // namespace zelvo::desktop
