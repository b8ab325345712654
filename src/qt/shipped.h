// Files that ship with the program: beside the executable, in an installation's share folder, or at the top
// of the tree that the program was built in.
#pragma once

#include <QCoreApplication>
#include <QString>

namespace zelvo::desktop {

/// The path of `name`, such as "info/page.htm" or "settings/port.ini"; empty when it is nowhere.
[[nodiscard]] QString ShippedFile(const QString& name,
                                  const QString& executables = QCoreApplication::applicationDirPath());

}  // namespace zelvo::desktop
