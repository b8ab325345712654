#include "ui/cell_edit.h"

#include <utility>

#include "platform/raised.h"

namespace zelvo::ui {

void AttachCellEdit(panel::TextBox& box, CommitText commit) {
  box.KeyDown = [&box, commit = std::move(commit)](panel::Key key) {
    box.Visible = false;
    if (key == panel::Key::Enter) CommitCellEdit(box, commit);
  };
}

void OpenCellEdit(panel::TextBox& box, panel::Grid& grid, int row, int col) {
  box.Over = panel::CellPlace{&grid, row, col};
  box.Visible = true;
  box.SetFocus();
}

void CommitCellEdit(panel::TextBox& box, const CommitText& commit) {
  const std::string text = box.Text;
  if (text.empty()) return;
  box.Text = std::string();
  commit(text);
  box.Visible = false;
}

void StandingCellEdit::Attach(Judge judge) {
  judge_ = std::move(judge);
  box_.KeyDown = [this](panel::Key key) {
    if (key == panel::Key::Enter) Take();
  };
  box_.LostFocus = [this] { Take(); };
}

void StandingCellEdit::Open(panel::Grid& grid, int row, int col) {
  start_ = grid.Text(row, col);
  box_.Text = start_;
  OpenCellEdit(box_, grid, row, col);
}

bool StandingCellEdit::Take() {
  if (!box_.Visible || judging_) return true;
  const platform::Raised judging(judging_);
  const bool accepted = judge_(box_.Text);
  if (accepted) {
    box_.Visible = false;
  } else {
    box_.Text = start_;
    box_.SetFocus();
  }
  return accepted;
}

}  // namespace zelvo::ui
