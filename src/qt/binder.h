// Binds a widget to each control of a window: shows what the panel says, and takes the operator's acts to the
// panel's hand. A binder decides nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "panel/window.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QAbstractSlider;
class QWidget;

namespace zelvo::desktop {

class EditField;
class GridView;
class Lamp;
class LinesView;
class OptionView;
class Readout;
class PageTabs;

class Binder {
 public:
  Binder() = default;
  Binder(const Binder&) = delete;
  Binder& operator=(const Binder&) = delete;

  // Each makes the widget of a control, named after it.
  QLabel* Make(panel::Label& label);
  QPushButton* Make(panel::CommandButton& button);
  /// `columns` of text at which a long caption is broken into two lines.
  QCheckBox* Make(panel::CheckBox& box, int columns = 60);
  OptionView* Make(panel::OptionButton& option);
  QLineEdit* Make(panel::TextBox& box);
  QComboBox* Make(panel::ComboBox& combo);
  QAbstractSlider* Make(panel::ScrollBar& bar);
  QProgressBar* Make(panel::ProgressBar& bar);
  Lamp* Make(panel::Shape& shape);
  GridView* Make(panel::Grid& grid);
  PageTabs* Make(panel::TabStrip& tabs);
  LinesView* Make(panel::ListBox& list);
  /// The compact form of a list; `clickable` for one whose click does something.
  Readout* MakeReadout(panel::ListBox& list, bool clickable = false);
  /// The widget of any control, by its kind; nullptr for a kind that has none of its own.
  QWidget* MakeAny(panel::Control& control);

  /// Binds a widget made elsewhere: `draw` runs when the control has changed.
  void Bind(panel::VisibleControl& control, QWidget* widget, std::function<void()> draw);

  /// Runs `draw` too whenever a control that is bound already is drawn.
  void Follow(const panel::VisibleControl& control, std::function<void()> draw);

  /// Draws every control that changed since it was drawn last.
  void Refresh();

 private:
  struct Binding {
    panel::VisibleControl* control;
    QWidget* widget;
    std::function<void()> draw;
    std::uint64_t drawn = 0;
    bool fresh = true;
    void Draw();
  };
  /// Draws the control anew after the operator's act, which the panel may have refused.
  void Redraw(const panel::VisibleControl& control);
  /// A radio button and its widget.
  struct Choice {
    panel::OptionButton* option;
    OptionView* view;
  };
  /// The radio buttons of an option's group, itself among them, in the order of their making.
  [[nodiscard]] std::vector<Choice> ChoicesBeside(const panel::OptionButton& option) const;
  /// Lets the Tab key stop at one of the group.
  void ShareTabStop(const panel::OptionButton& option);
  /// Puts an edit box over the cell that the panel names, if it names one.
  void LayOverCell(const panel::TextBox& box, EditField& field);

  std::vector<std::unique_ptr<Binding>> bindings_;
};

}  // namespace zelvo::desktop
