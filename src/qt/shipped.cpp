#include "qt/shipped.h"

#include <QDir>

namespace zelvo::desktop {

QString ShippedFile(const QString& name, const QString& executables) {
  const QDir folder(executables);
  for (const char* place : {"", "../", "../../", "../share/zelvo/"}) {
    const QString path = QLatin1String(place) + name;
    if (folder.exists(path)) return QDir::cleanPath(folder.absoluteFilePath(path));
  }
  return {};
}

}  // namespace zelvo::desktop
