// Where a window program keeps its five settings files.
#pragma once

#include <QCoreApplication>
#include <QString>

namespace zelvo::desktop {

/// The program's own folder, without a slash at the end: `asked` if the operator named one; else that of the
/// executable when it can be written and is not a folder that the machine's programs share; else the user's
/// configuration folder. The latter two get the files of a new installation when they hold none. Empty when
/// no folder can be had.
[[nodiscard]] QString ProgramFolder(const QString& asked,
                                    const QString& executables = QCoreApplication::applicationDirPath());

}  // namespace zelvo::desktop
