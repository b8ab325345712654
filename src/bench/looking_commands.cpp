// Commands that look at the program and change nothing of it.
#include "bench/bench.h"
#include "bench/commands.h"
#include "bench/text.h"
#include "bench/variables.h"
#include "panel/window.h"

namespace zelvo::bench {
namespace {

using std::string_view;

/// The control of the first word through the eyes of `look`, which answers or refuses.
template <class Kind, class Look>
Refusal LookAt(Call& call, string_view what, const Look& look) {
  panel::Control* control = FindControl(call.words[0]);
  if (control == nullptr) return "no control " + std::string(call.words[0]);
  const auto* kind = dynamic_cast<const Kind*>(control);
  if (kind == nullptr) return std::string(call.words[0]) + " is no " + std::string(what);
  return look(*kind);
}

std::string Flag(bool value) {
  return value ? "1" : "0";
}

/// What a control shows in one line; nothing for a control that shows none.
std::optional<std::string> Content(const panel::Control& control) {
  using namespace panel;
  if (const auto* label = dynamic_cast<const Label*>(&control)) return label->Caption.Get();
  if (const auto* button = dynamic_cast<const CommandButton*>(&control)) return button->Caption.Get();
  if (const auto* box = dynamic_cast<const CheckBox*>(&control)) return Flag(box->Value);
  if (const auto* text = dynamic_cast<const TextBox*>(&control)) return text->Text.Get();
  if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) return combo->Text.Get();
  if (const auto* scroll = dynamic_cast<const ScrollBar*>(&control)) return std::to_string(scroll->Value);
  if (const auto* bar = dynamic_cast<const ProgressBar*>(&control)) return std::to_string(bar->Value);
  if (const auto* tabs = dynamic_cast<const TabStrip*>(&control)) return std::to_string(tabs->SelectedItem);
  return std::nullopt;
}

/// The colour of an indicator, a list, an edit box or a label; else the background of its kind: white where
/// content stands, grey elsewhere.
panel::Colour BackColour(const panel::Control& control) {
  using namespace panel;
  if (const auto* shape = dynamic_cast<const Shape*>(&control)) return shape->FillColor;
  if (const auto* list = dynamic_cast<const ListBox*>(&control)) return list->BackColor;
  if (const auto* text = dynamic_cast<const TextBox*>(&control)) return text->BackColor;
  if (const auto* label = dynamic_cast<const Label*>(&control)) return label->BackColor;
  const bool content =
      dynamic_cast<const ComboBox*>(&control) != nullptr || dynamic_cast<const Grid*>(&control) != nullptr;
  return content ? White : ButtonFace;
}

template <class Look>
Refusal LookAtCell(Call& call, const Look& look) {
  return LookAt<panel::Grid>(call, "grid", [&](const panel::Grid& grid) -> Refusal {
    const std::optional<long long> row = WholeNumber(call.words[1]);
    const std::optional<long long> col = WholeNumber(call.words[2]);
    if (!row || !col || *row < 0 || *row >= grid.Rows() || *col < 0 || *col >= grid.Cols()) {
      return "no such cell";
    }
    call.answers.push_back(look(grid, static_cast<int>(*row), static_cast<int>(*col)));
    return std::nullopt;
  });
}

}  // namespace

Refusal GetCommand(Call& call) {
  return LookAt<panel::Control>(call, "control", [&](const panel::Control& control) -> Refusal {
    std::optional<std::string> content = Content(control);
    if (!content) return std::string(call.words[0]) + " has no caption, text or value";
    call.answers.push_back(std::move(*content));
    return std::nullopt;
  });
}

Refusal ListCommand(Call& call) {
  return LookAt<panel::Control>(call, "control", [&](const panel::Control& control) -> Refusal {
    if (const auto* list = dynamic_cast<const panel::ListBox*>(&control)) {
      call.answers = list->Lines();
    } else if (const auto* combo = dynamic_cast<const panel::ComboBox*>(&control)) {
      call.answers = combo->Lines();
    } else {
      return std::string(call.words[0]) + " is no list";
    }
    return std::nullopt;
  });
}

Refusal RowsCommand(Call& call) {
  return LookAt<panel::Grid>(call, "grid", [&](const panel::Grid& grid) -> Refusal {
    call.answers.push_back(std::to_string(grid.Rows()));
    return std::nullopt;
  });
}

Refusal CellCommand(Call& call) {
  return LookAtCell(call, [](const panel::Grid& grid, int row, int col) { return grid.Text(row, col); });
}

Refusal ColorCommand(Call& call) {
  if (call.words.size() == 2) return Usage(*FindCommand("color"));
  if (call.words.size() == 3) {
    return LookAtCell(call, [](const panel::Grid& grid, int row, int col) {
      return std::to_string(grid.CellBackColor(row, col));
    });
  }
  return LookAt<panel::Control>(call, "control", [&](const panel::Control& control) -> Refusal {
    call.answers.push_back(std::to_string(BackColour(control)));
    return std::nullopt;
  });
}

Refusal EnabledCommand(Call& call) {
  return LookAt<panel::VisibleControl>(call, "control of a window",
                                       [&](const panel::VisibleControl& control) {
                                         call.answers.push_back(Flag(control.Enabled));
                                         return Refusal{};
                                       });
}

Refusal VisibleCommand(Call& call) {
  return LookAt<panel::VisibleControl>(
      call, "control of a window", [&](const panel::VisibleControl& control) {
        call.answers.push_back(Flag(control.Owner().Loaded() && control.Visible));
        return Refusal{};
      });
}

Refusal WindowsCommand(Call& call) {
  for (const panel::Window* window : panel::LoadedWindows) call.answers.push_back(window->Name());
  return std::nullopt;
}

Refusal MessagesCommand(Call& call) {
  call.answers = call.bench.desk.TakeMessages();
  return std::nullopt;
}

Refusal VarCommand(Call& call) {
  const Reading reading = ReadVariable(call.words[0]);
  if (!reading.value) return reading.fault;
  call.answers.push_back(*reading.value);
  return std::nullopt;
}

Refusal TimeCommand(Call& call) {
  call.answers.push_back(std::to_string(call.bench.desk.SinceStart() / 1000));
  return std::nullopt;
}

}  // namespace zelvo::bench
