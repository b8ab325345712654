// An edit box over a cell of a grid, in the two manners of the editors.
//
// A passing box goes at every Enter and Escape. Escape leaves the text in it, and the next click on a grid
// commits what was left.
//
// A standing box commits at Enter and when it is left for another control, and goes only when its text is
// accepted; a refused one brings back the text that the edit began with.
#pragma once

#include <functional>
#include <string>

#include "panel/controls.h"
#include "panel/grid.h"

namespace zelvo::ui {

/// Judges and stores a text that the operator has typed for the cell under the box.
using CommitText = std::function<void(const std::string& text)>;

/// Gives a passing box its keys. `commit` runs with a text that is not empty.
void AttachCellEdit(panel::TextBox& box, CommitText commit);
/// Lays a box over a cell and puts the caret in it; its text is the caller's.
void OpenCellEdit(panel::TextBox& box, panel::Grid& grid, int row, int col);
/// Takes a text that stands in a passing box, shown or hidden, through `commit`; an empty box does nothing.
void CommitCellEdit(panel::TextBox& box, const CommitText& commit);

/// A standing box.
class StandingCellEdit {
 public:
  /// Judges a text and stores what it accepts; false when it refuses, having told why.
  using Judge = std::function<bool(const std::string& text)>;

  /// `start` keeps the text that the edit began with.
  StandingCellEdit(panel::TextBox& box, std::string& start) : box_(box), start_(start) {}
  /// Gives the box its keys.
  void Attach(Judge judge);
  void Open(panel::Grid& grid, int row, int col);
  /// Takes the text of an open box. False when it is refused: the box stays, with its old text.
  bool Take();

 private:
  panel::TextBox& box_;
  std::string& start_;
  Judge judge_;
  bool judging_ = false;  ///< a message in front of the box is no second verdict
};

}  // namespace zelvo::ui
