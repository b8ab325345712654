// Flags of a run that operations, progress windows and the main window share.
#pragma once

namespace zelvo::link {

inline bool WholeChipRun = false;  ///< the single operations of a whole-chip write skip their own questions
inline bool UserAbort = false;  ///< set by Cancel, cleared when a progress window opens and behind most runs
inline int VddOnFlag = 0;       ///< 1 while the operator has switched the supply on by hand
inline int& VddState = VddOnFlag;  ///< the same: the port check switches it too
/// The port check was opened; a close by its frame leaves this set.
inline bool PortCheckOpen = false;
inline bool PortCheckLoaded = false;  ///< the port check window is there

}  // namespace zelvo::link
