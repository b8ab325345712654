// Where a window program keeps its five settings files.
#pragma once

#include <QString>

namespace zelvo::desktop {

/// The program's own folder, without a slash at the end: `asked` if the operator named one; else the folder
/// of the executable if it holds settings already or can take them; else the user's configuration folder. The
/// latter two get the files of a new installation when they hold none. Empty when no folder can be had.
[[nodiscard]] QString ProgramFolder(const QString& asked);

}  // namespace zelvo::desktop
