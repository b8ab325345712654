#include "apps/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <array>

#include "qt/shipped.h"

namespace zelvo::desktop {
namespace {

constexpr std::array SettingsFiles = {"port.ini", "LPT_Kiosztas.ini", "invert.ini", "invert_com.ini",
                                      "speed.ini"};

bool HoldsSettings(const QDir& folder) {
  return std::any_of(SettingsFiles.begin(), SettingsFiles.end(),
                     [&folder](const char* file) { return folder.exists(QLatin1String(file)); });
}

void FillNewFolder(const QDir& folder, const QString& executables) {
  if (HoldsSettings(folder)) return;
  for (const char* file : SettingsFiles) {
    const QString shipped = ShippedFile(QLatin1String("settings/") + QLatin1String(file), executables);
    const QString copy = folder.filePath(QLatin1String(file));
    // A copy that fails is told by the program itself, as a file that is missing.
    if (shipped.isEmpty() || !QFile::copy(shipped, copy)) continue;
    QFile::setPermissions(copy, QFile::permissions(copy) | QFile::WriteOwner);
  }
}

/// A folder of executables that all programs of the machine share is nobody's own, not even root's.
bool IsOwnFolder(const QDir& executables) {
  return !executables.exists(QStringLiteral("../share/zelvo/settings")) &&
         QFileInfo(executables.path()).isWritable();
}

}  // namespace

QString ProgramFolder(const QString& asked, const QString& executables) {
  if (!asked.isEmpty()) return QDir().mkpath(asked) ? QDir(asked).absolutePath() : QString();
  QDir folder(executables);
  if (!IsOwnFolder(folder)) {
    folder.setPath(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
    if (!folder.mkpath(QStringLiteral("."))) return {};
  }
  FillNewFolder(folder, executables);
  return folder.absolutePath();
}

}  // namespace zelvo::desktop
