// Start and end of the program.
#pragma once

namespace zelvo::ui {

/// Attaches the behaviour of all windows, loads `MDIForm1` and `Form1`, reads the settings, brings the lines
/// to idle. `platform::seams` and `platform::programFolder` are set before. Once in the life of the process.
void StartUp();

}  // namespace zelvo::ui
