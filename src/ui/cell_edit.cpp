#include "ui/cell_edit.h"

#include <utility>

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

}  // namespace zelvo::ui
