// Commands that stand for the operator's hand.
#include <exception>
#include <limits>

#include "bench/bench.h"
#include "bench/commands.h"
#include "bench/text.h"
#include "panel/form1.h"
#include "panel/operator.h"
#include "ui/startup.h"

namespace zelvo::bench {
namespace {

using panel::HandResult;

Refusal Outcome(HandResult result) {
  switch (result) {
    case HandResult::Disabled:
      return "disabled";
    case HandResult::Hidden:
      return "hidden";
    case HandResult::Done:
      break;
  }
  return std::nullopt;
}

Refusal NoControl(std::string_view name) {
  return "no control " + std::string(name);
}

/// Lets `use` act on the control of the first word if it is of the kind `Kind`.
template <class Kind, class Use>
Refusal With(const Call& call, std::string_view what, const Use& use) {
  panel::Control* control = FindControl(call.words[0]);
  if (control == nullptr) return NoControl(call.words[0]);
  auto* kind = dynamic_cast<Kind*>(control);
  if (kind == nullptr) return std::string(call.words[0]) + " is no " + std::string(what);
  return use(*kind);
}

std::optional<int> Int(std::string_view word) {
  const std::optional<long long> number = WholeNumber(word);
  if (!number || *number < std::numeric_limits<int>::min() || *number > std::numeric_limits<int>::max()) {
    return std::nullopt;
  }
  return static_cast<int>(*number);
}

Refusal NoNumber(std::string_view word) {
  return "no number " + std::string(word);
}

/// A click or double click on the cell of the second and third word.
Refusal OnCell(const Call& call, HandResult (*hand)(panel::Grid&, int, int)) {
  return With<panel::Grid>(call, "grid", [&](panel::Grid& grid) -> Refusal {
    const std::optional<int> row = Int(call.words[1]);
    const std::optional<int> col = Int(call.words[2]);
    if (!row || !col || *row < 0 || *row >= grid.Rows() || *col < 0 || *col >= grid.Cols()) {
      return "no such cell";
    }
    return Outcome(hand(grid, *row, *col));
  });
}

Refusal ClickControl(panel::VisibleControl& control) {
  if (auto* page = dynamic_cast<panel::Frame*>(&control)) {
    if (!page->Owner().Loaded() || !page->Visible) return Outcome(HandResult::Hidden);
    panel::HandMouse(*page);
    return std::nullopt;
  }
  if (auto* tabs = dynamic_cast<panel::TabStrip*>(&control)) {
    return Outcome(panel::HandTab(*tabs, tabs->SelectedItem));
  }
  return Outcome(panel::HandClick(control));
}

Refusal SetTick(const Call& call, bool ticked) {
  return With<panel::CheckBox>(call, "check box", [&](panel::CheckBox& box) -> Refusal {
    const bool radio = dynamic_cast<panel::OptionButton*>(&box) != nullptr;
    if (radio && !ticked) return "a radio button cannot be cleared";
    return Outcome(panel::HandTick(box, ticked));
  });
}

}  // namespace

Refusal StartCommand(Call& call) {
  if (platform::programEnded) return "the program has ended";
  if (call.bench.Started) return "already started";
  call.bench.Started = true;
  call.bench.desk.ProgramStarts();
  ui::StartUp();
  return std::nullopt;
}

Refusal StopCommand(Call&) {
  panel::HandClose(panel::MDIForm1);
  return std::nullopt;
}

Refusal TabCommand(Call& call) {
  const std::optional<int> index = Int(call.words[0]);
  if (!index) return NoNumber(call.words[0]);
  return Outcome(panel::HandTab(panel::Form1.TabStrip1, *index));
}

Refusal ChooseCommand(Call& call) {
  return With<panel::ComboBox>(call, "combo box", [&](panel::ComboBox& combo) {
    return Outcome(panel::HandChoose(combo, std::string(call.words[1])));
  });
}

Refusal ClickCommand(Call& call) {
  if (call.words.size() == 3) return OnCell(call, panel::HandCellClick);
  if (call.words.size() == 2) return Usage(*FindCommand("click"));
  return With<panel::VisibleControl>(call, "control of a window", ClickControl);
}

Refusal DblClickCommand(Call& call) {
  if (call.words.size() == 3) return OnCell(call, panel::HandCellDblClick);
  if (call.words.size() == 2) return Usage(*FindCommand("dblclick"));
  return With<panel::VisibleControl>(call, "control of a window",
                                     [&](panel::VisibleControl& control) -> Refusal {
                                       if (dynamic_cast<panel::Grid*>(&control) != nullptr)
                                         return "a grid needs ROW COL";
                                       return Outcome(panel::HandDblClick(control));
                                     });
}

Refusal TickCommand(Call& call) {
  return SetTick(call, true);
}
Refusal UntickCommand(Call& call) {
  return SetTick(call, false);
}

Refusal ScrollCommand(Call& call) {
  return With<panel::ScrollBar>(call, "scroll bar", [&](panel::ScrollBar& bar) -> Refusal {
    const std::optional<int> value = Int(call.words[1]);
    if (!value) return NoNumber(call.words[1]);
    if (*value < bar.Min || *value > bar.Max) return "out of range";
    return Outcome(panel::HandScroll(bar, *value));
  });
}

Refusal TypeCommand(Call& call) {
  return With<panel::TextBox>(call, "text box", [&](panel::TextBox& box) {
    return Outcome(panel::HandType(box, std::string(call.words.size() > 1 ? call.words[1] : "")));
  });
}

Refusal KeyCommand(Call& call) {
  return With<panel::VisibleControl>(
      call, "control of a window", [&](panel::VisibleControl& control) -> Refusal {
        const std::string_view key = call.words[1];
        if (key != "Enter" && key != "Escape") return "unknown key " + std::string(key);
        return Outcome(panel::HandKey(control, key == "Enter" ? panel::Key::Enter : panel::Key::Escape));
      });
}

Refusal LeaveCommand(Call& call) {
  return With<panel::VisibleControl>(call, "control of a window", [](panel::VisibleControl& control) {
    return Outcome(panel::HandLeave(control));
  });
}

Refusal CloseCommand(Call& call) {
  panel::Window* window = panel::FindWindow(call.words[0]);
  if (window == nullptr) return "no window " + std::string(call.words[0]);
  if (!window->Loaded()) return "not loaded";
  panel::HandClose(*window);
  return std::nullopt;
}

}  // namespace zelvo::bench
