// The kinds of controls that the windows of the system are made of.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "panel/control.h"

namespace zelvo::panel {

class Grid;

class Label : public VisibleControl {
 public:
  Label(Window& window, std::string name, std::string caption)
      : VisibleControl(window, std::move(name)),
        Caption(*this, std::move(caption)),
        BackColor(*this, ButtonFace) {}
  void Reset() override {
    VisibleControl::Reset();
    Caption.Reset();
    BackColor.Reset();
  }
  Property<std::string> Caption;
  Property<Colour> BackColor;
};

class CommandButton : public VisibleControl {
 public:
  CommandButton(Window& window, std::string name, std::string caption)
      : VisibleControl(window, std::move(name)), Caption(*this, std::move(caption)) {}
  void Reset() override {
    VisibleControl::Reset();
    Caption.Reset();
  }
  Property<std::string> Caption;
};

/// A tick box. Writing another state to `Value`, by the operator's hand or by the program, is a click.
class CheckBox : public VisibleControl {
 public:
  CheckBox(Window& window, std::string name, std::string caption)
      : VisibleControl(window, std::move(name)),
        Caption(*this, std::move(caption)),
        Value(*this, false, &Control::Click) {}
  void Reset() override {
    VisibleControl::Reset();
    Caption.Reset();
    Value.Reset();
  }
  Property<std::string> Caption;
  Property<bool> Value;
};

/// A captioned frame around radio buttons.
class OptionFrame : public Label {
 public:
  using Label::Label;
};

/// One of the radio buttons of its frame, or of those of its window that are in no frame. `Value` true runs
/// its click event.
class OptionButton : public CheckBox {
 public:
  OptionButton(Window& window, std::string name, std::string caption, const OptionFrame* frame = nullptr)
      : CheckBox(window, std::move(name), std::move(caption)), frame_(frame) {}
  /// Sets this one and clears the others of its group, for which that is no click.
  void Select();
  /// Nullptr for one without a frame.
  [[nodiscard]] const OptionFrame* Group() const { return frame_; }

 private:
  const OptionFrame* frame_;
};

/// The cell that an edit box lies over; none for a box with a place of its own.
struct CellPlace {
  Grid* grid = nullptr;
  int row = 0;
  int col = 0;
  bool operator==(const CellPlace&) const = default;
};

class TextBox : public VisibleControl {
 public:
  TextBox(Window& window, std::string name, bool visible = true)
      : VisibleControl(window, std::move(name), visible),
        Text(*this, "", &Control::Change),
        Over(*this, CellPlace{}),
        BackColor(*this, White) {}
  void Reset() override {
    VisibleControl::Reset();
    Text.Reset();
    Over.Reset();
    BackColor.Reset();
  }
  /// Asks for the input focus; a view follows when it finds the number changed.
  void SetFocus() {
    ++FocusRequests;
    Touch();
  }
  Property<std::string> Text;
  Property<CellPlace> Over;
  Property<Colour> BackColor;
  unsigned FocusRequests = 0;
};

/// A list of lines, first line first.
class ListBox : public VisibleControl {
 public:
  ListBox(Window& window, std::string name)
      : VisibleControl(window, std::move(name)), BackColor(*this, White) {}
  void Reset() override {
    VisibleControl::Reset();
    BackColor.Reset();
    Clear();
  }
  Property<Colour> BackColor;
  void Clear() {
    lines_.clear();
    Touch();
  }
  void AddItem(std::string line) {
    lines_.push_back(std::move(line));
    Touch();
  }
  /// Inserts above the first line.
  void InsertTop(std::string line) {
    lines_.insert(lines_.begin(), std::move(line));
    Touch();
  }
  [[nodiscard]] const std::vector<std::string>& Lines() const { return lines_; }

 private:
  std::vector<std::string> lines_;
};

/// A drop-down list. `Text` is what stands in its field, in the list or not; writing it is no click.
class ComboBox : public VisibleControl {
 public:
  ComboBox(Window& window, std::string name, std::string text = "")
      : VisibleControl(window, std::move(name)), Text(*this, std::move(text)) {}
  void Reset() override {
    VisibleControl::Reset();
    Text.Reset();
    lines_.clear();
  }
  void AddItem(std::string line) {
    lines_.push_back(std::move(line));
    Touch();
  }
  [[nodiscard]] const std::vector<std::string>& Lines() const { return lines_; }
  [[nodiscard]] bool Holds(const std::string& text) const {
    for (const std::string& line : lines_) {
      if (line == text) return true;
    }
    return false;
  }
  Property<std::string> Text;

 private:
  std::vector<std::string> lines_;
};

/// A scroll bar. A new `Value`, by the operator's hand or by the program, runs the change event.
class ScrollBar : public VisibleControl {
 public:
  ScrollBar(Window& window, std::string name, int min, int max, int largeChange)
      : VisibleControl(window, std::move(name)),
        Min(min),
        Max(max),
        LargeChange(largeChange),
        Value(*this, min, &Control::Change) {}
  void Reset() override {
    VisibleControl::Reset();
    Value.Reset();
  }
  const int Min;
  const int Max;
  const int LargeChange;
  Property<int> Value;
};

/// The bar of a progress window.
class ProgressBar : public VisibleControl {
 public:
  ProgressBar(Window& window, std::string name)
      : VisibleControl(window, std::move(name)), Min(*this, 0), Max(*this, 100), Value(*this, 0) {}
  void Reset() override {
    VisibleControl::Reset();
    Min.Reset();
    Max.Reset();
    Value.Reset();
  }
  /// One step of an operation: sets the value and tells the witnesses.
  void Step(int value);
  Property<int> Min;
  Property<int> Max;
  Property<int> Value;
};

/// A round indicator.
class Shape : public VisibleControl {
 public:
  Shape(Window& window, std::string name) : VisibleControl(window, std::move(name)), FillColor(*this, Grey) {}
  void Reset() override {
    VisibleControl::Reset();
    FillColor.Reset();
  }
  Property<Colour> FillColor;
};

/// One page of a window. `MouseEvent` is any mouse event on its bare surface.
class Frame : public VisibleControl {
 public:
  Frame(Window& window, std::string name) : VisibleControl(window, std::move(name)), InFront(*this, false) {}
  void Reset() override {
    VisibleControl::Reset();
    InFront.Reset();
  }
  Property<bool> InFront;
  std::function<void()> MouseEvent;
};

/// Page tabs. `SelectedItem` counts from 1. A click on a tab, the selected one included, runs the click
/// event.
class TabStrip : public VisibleControl {
 public:
  TabStrip(Window& window, std::string name, std::vector<std::string> captions)
      : VisibleControl(window, std::move(name)), Captions(std::move(captions)), SelectedItem(*this, 1) {}
  void Reset() override {
    VisibleControl::Reset();
    SelectedItem.Reset();
  }
  const std::vector<std::string> Captions;
  Property<int> SelectedItem;
};

}  // namespace zelvo::panel
