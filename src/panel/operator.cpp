#include "panel/operator.h"

#include <algorithm>
#include <exception>
#include <iostream>

#include "platform/seams.h"

namespace zelvo::panel {
namespace {

void TellFault(const char* what) {
  std::cerr << "zelvo: a handler failed: " << what << '\n';
  if (AfterFault) AfterFault();
}

/// Runs `act` on behalf of the operator: whatever ends a handler early ends here.
template <class Act>
void Guarded(const Act& act) {
  try {
    act();
  } catch (const platform::ProgramEnded&) {
    // The main window is closed: the handler ended where it stood.
  } catch (const GridFault&) {
    TellFault("a cell beyond its grid");
  } catch (const std::exception& fault) {
    TellFault(fault.what());
  }
}

template <class Hook, class... Arguments>
void Call(const Hook& hook, Arguments... arguments) {
  if (!hook) return;
  // A copy: the handler may put another hook in its own place.
  const Hook running = hook;
  running(arguments...);
}

HandResult Reach(const VisibleControl& control) {
  if (!control.Owner().Loaded() || !control.Visible) return HandResult::Hidden;
  return control.Enabled ? HandResult::Done : HandResult::Disabled;
}

/// Runs `act` unless the control is out of reach.
template <class Act>
HandResult IfReached(const VisibleControl& control, const Act& act) {
  const HandResult reach = Reach(control);
  if (reach == HandResult::Done) Guarded(act);
  return reach;
}

}  // namespace

HandResult HandClick(VisibleControl& control) {
  if (auto* option = dynamic_cast<OptionButton*>(&control)) return HandTick(*option, true);
  if (auto* box = dynamic_cast<CheckBox*>(&control)) return HandTick(*box, !box->Value);
  return IfReached(control, [&] { Call(control.Click); });
}

HandResult HandDblClick(VisibleControl& control) {
  return IfReached(control, [&] { Call(control.DblClick); });
}

HandResult HandTick(CheckBox& box, bool ticked) {
  return IfReached(box, [&] {
    auto* option = dynamic_cast<OptionButton*>(&box);
    if (option != nullptr && ticked) {
      option->Select();
    } else {
      box.Value = ticked;
    }
  });
}

HandResult HandChoose(ComboBox& combo, const std::string& text) {
  return IfReached(combo, [&] {
    combo.Text = text;
    if (combo.Holds(text)) Call(combo.Click);
  });
}

HandResult HandScroll(ScrollBar& bar, int value) {
  return IfReached(bar, [&] { bar.Value = std::clamp(value, bar.Min, bar.Max); });
}

HandResult HandType(TextBox& box, const std::string& text) {
  return IfReached(box, [&] { box.Text = text; });
}

HandResult HandKey(VisibleControl& control, Key key) {
  return IfReached(control, [&] { Call(control.KeyDown, key); });
}

HandResult HandLeave(VisibleControl& control) {
  return IfReached(control, [&] { Call(control.LostFocus); });
}

HandResult HandCellClick(Grid& grid, int row, int col) {
  return IfReached(grid, [&] {
    Call(grid.CellClick, row, col);
    Call(grid.Click);
  });
}

HandResult HandCellDblClick(Grid& grid, int row, int col) {
  return IfReached(grid, [&] { Call(grid.CellDblClick, row, col); });
}

HandResult HandTab(TabStrip& tabs, int index) {
  if (index < 1) return HandResult::Hidden;
  return IfReached(tabs, [&] {
    tabs.SelectedItem = index;
    Call(tabs.Click);
  });
}

void HandMouse(Frame& frame) {
  Guarded([&] { Call(frame.MouseEvent); });
}

void HandClose(Window& window) {
  Guarded([&] { window.Unload(); });
}

}  // namespace zelvo::panel
