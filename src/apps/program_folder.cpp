#include "apps/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <array>

namespace zelvo::desktop {
namespace {

constexpr std::array SettingsFiles = {"port.ini", "LPT_Kiosztas.ini", "invert.ini", "invert_com.ini",
                                      "speed.ini"};

bool HoldsSettings(const QDir& folder) {
  return std::any_of(SettingsFiles.begin(), SettingsFiles.end(),
                     [&folder](const char* file) { return folder.exists(QLatin1String(file)); });
}

/// Beside an installed executable, or at the top of the tree that it was built in.
QString ShippedSettings() {
  const QDir executable(QCoreApplication::applicationDirPath());
  for (const char* place : {"settings", "../settings", "../../settings", "../share/zelvo/settings"}) {
    const QDir folder(executable.filePath(QLatin1String(place)));
    if (HoldsSettings(folder)) return folder.path();
  }
  return {};
}

void FillNewFolder(const QDir& folder) {
  const QString shipped = ShippedSettings();
  if (HoldsSettings(folder) || shipped.isEmpty()) return;
  for (const char* file : SettingsFiles) {
    const QString copy = folder.filePath(QLatin1String(file));
    // A copy that fails is told by the program itself, as a file that is missing.
    if (!QFile::copy(QDir(shipped).filePath(QLatin1String(file)), copy)) continue;
    QFile::setPermissions(copy, QFile::permissions(copy) | QFile::WriteOwner);
  }
}

}  // namespace

QString ProgramFolder(const QString& asked) {
  if (!asked.isEmpty()) return QDir().mkpath(asked) ? QDir(asked).absolutePath() : QString();
  QDir folder(QCoreApplication::applicationDirPath());
  if (!HoldsSettings(folder) && !QFileInfo(folder.path()).isWritable()) {
    folder.setPath(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
    if (!folder.mkpath(QStringLiteral("."))) return {};
  }
  FillNewFolder(folder);
  return folder.absolutePath();
}

}  // namespace zelvo::desktop
