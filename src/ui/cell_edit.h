// An edit box over a cell of a grid: Enter commits what was typed, Escape hides the box and leaves the text
// in it, and a click on a grid commits what was left.
#pragma once

#include <functional>
#include <string>

#include "panel/controls.h"
#include "panel/grid.h"

namespace zelvo::ui {

/// Judges and stores a text that the operator has typed for the cell under the box.
using CommitText = std::function<void(const std::string& text)>;

/// Gives the box its keys. `commit` runs with a text that is not empty.
void AttachCellEdit(panel::TextBox& box, CommitText commit);
/// Lays the box over a cell and puts the caret in it; its text is the caller's.
void OpenCellEdit(panel::TextBox& box, panel::Grid& grid, int row, int col);
/// Takes a text that stands in the box, shown or hidden, through `commit`; an empty box does nothing.
void CommitCellEdit(panel::TextBox& box, const CommitText& commit);

}  // namespace zelvo::ui
