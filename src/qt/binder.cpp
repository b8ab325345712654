#include "qt/binder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <algorithm>
#include <utility>

#include "panel/operator.h"
#include "qt/grid_view.h"
#include "qt/lamp.h"
#include "qt/list_view.h"
#include "qt/page_tabs.h"
#include "qt/text.h"
#include "qt/theme.h"
#include "qt/widgets.h"

namespace zelvo::desktop {
namespace {

template <class Widget>
Widget* Named(Widget* widget, const panel::Control& control) {
  widget->setObjectName(Text(control.Name()));
  return widget;
}

}  // namespace

void Binder::Binding::Draw() {
  drawn = control->Changed();
  fresh = false;
  const QSignalBlocker quiet(widget);
  widget->setEnabled(control->Enabled);
  widget->setToolTip(Text(control->ToolTip));
  draw();
  // A page is shown by its stack, everything else by itself.
  if (dynamic_cast<panel::Frame*>(control) == nullptr && widget->isHidden() == control->Visible.Get()) {
    widget->setVisible(control->Visible);
  }
}

void Binder::Bind(panel::VisibleControl& control, QWidget* widget, std::function<void()> draw) {
  Named(widget, control);
  draw();  // so that layouts know its size from the start
  bindings_.push_back(std::make_unique<Binding>(Binding{&control, widget, std::move(draw)}));
}

void Binder::Follow(const panel::VisibleControl& control, std::function<void()> draw) {
  for (const auto& binding : bindings_) {
    if (binding->control != &control) continue;
    binding->draw = [first = std::move(binding->draw), then = std::move(draw)] {
      first();
      then();
    };
    return;
  }
}

void Binder::Refresh() {
  for (const auto& binding : bindings_) {
    if (binding->fresh || binding->control->Changed() > binding->drawn) binding->Draw();
  }
}

void Binder::Redraw(const panel::VisibleControl& control) {
  for (const auto& binding : bindings_) {
    if (binding->control == &control) binding->Draw();
  }
}

void Binder::LayOverCell(const panel::TextBox& box, EditField& field) {
  const panel::CellPlace& place = box.Over;
  for (const auto& binding : bindings_) {
    if (binding->control == place.grid) static_cast<GridView*>(binding->widget)->LayOver(field, place);
  }
}

QLabel* Binder::Make(panel::Label& label) {
  auto* view = new QLabel;
  view->setTextFormat(Qt::PlainText);
  Bind(label, view, [&label, view] {
    view->setText(Text(label.Caption).trimmed());
    const panel::Colour ground = label.BackColor;
    SetGround(*view, ground == panel::ButtonFace ? panel::WindowColour : ground);
  });
  return view;
}

QPushButton* Binder::Make(panel::CommandButton& button) {
  auto* view = new SteadyButton;
  view->setAutoDefault(true);  // Enter presses the button that has the focus
  Bind(button, view, [&button, view] { view->setText(Caption(button.Caption)); });
  QObject::connect(view, &QPushButton::clicked, view,
                   [&button] { static_cast<void>(panel::HandClick(button)); });
  return view;
}

QCheckBox* Binder::Make(panel::CheckBox& box, int columns) {
  auto* view = new QCheckBox;
  Bind(box, view, [&box, view, columns] {
    view->setText(BrokenCaption(box.Caption, columns));
    view->setChecked(box.Value);
  });
  QObject::connect(view, &QCheckBox::clicked, view, [this, &box](bool ticked) {
    static_cast<void>(panel::HandTick(box, ticked));
    Redraw(box);
  });
  return view;
}

OptionView* Binder::Make(panel::OptionButton& option) {
  auto* view = new OptionView;
  Bind(option, view, [this, &option, view] {
    view->setText(Caption(option.Caption));
    view->setChecked(option.Value);
    ShareTabStop(option);
  });
  QObject::connect(view, &QRadioButton::clicked, view, [this, &option] {
    static_cast<void>(panel::HandTick(option, true));
    Redraw(option);
  });
  view->Stepped = [this, &option](int step) {
    const std::vector<Choice> group = ChoicesBeside(option);
    const auto here = std::find_if(group.begin(), group.end(),
                                   [&option](const Choice& one) { return one.option == &option; });
    const auto count = static_cast<std::ptrdiff_t>(group.size());
    const Choice& next = group[static_cast<std::size_t>((here - group.begin() + step + count) % count)];
    next.view->setFocus(step > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    static_cast<void>(panel::HandTick(*next.option, true));
    Redraw(*next.option);
  };
  return view;
}

std::vector<Binder::Choice> Binder::ChoicesBeside(const panel::OptionButton& option) const {
  std::vector<Choice> group;
  for (const auto& binding : bindings_) {
    auto* other = dynamic_cast<panel::OptionButton*>(binding->control);
    if (other != nullptr && other->Group() == option.Group() && &other->Owner() == &option.Owner())
      group.push_back({other, static_cast<OptionView*>(binding->widget)});
  }
  return group;
}

// The one that is set, or the first where none is.
void Binder::ShareTabStop(const panel::OptionButton& option) {
  const std::vector<Choice> group = ChoicesBeside(option);
  const auto set =
      std::find_if(group.begin(), group.end(), [](const Choice& one) { return one.option->Value.Get(); });
  const Choice* stop = set != group.end() ? &*set : group.data();
  for (const Choice& one : group) one.view->SetTabStop(&one == stop);
}

QLineEdit* Binder::Make(panel::TextBox& box) {
  auto* view = new EditField;
  Bind(box, view, [this, &box, view] {
    const QString text = Text(box.Text);
    if (view->text() != text) view->setText(text);
    LayOverCell(box, *view);
    if (view->seenFocusRequests == box.FocusRequests) return;
    view->seenFocusRequests = box.FocusRequests;
    view->TakeFocus();
  });
  QObject::connect(view, &QLineEdit::textEdited, view, [&box](const QString& text) {
    static_cast<void>(panel::HandType(box, text.toStdString()));
  });
  view->KeyPressed = [this, &box](panel::Key key) {
    static_cast<void>(panel::HandKey(box, key));
    Redraw(box);
  };
  view->Left = [&box] { static_cast<void>(panel::HandLeave(box)); };
  return view;
}

QComboBox* Binder::Make(panel::ComboBox& combo) {
  auto* view = new QuietCombo;
  Bind(combo, view, [&combo, view] {
    const auto& lines = combo.Lines();
    const auto count = static_cast<int>(lines.size());
    bool same = view->count() == count;
    for (int at = 0; same && at < count; ++at) {
      same = view->itemText(at) == Text(lines[static_cast<std::size_t>(at)]);
    }
    if (!same) {
      view->clear();
      for (const std::string& line : lines) view->addItem(Text(line));
    }
    // A text that is no line of the list stands in the field all the same.
    view->setPlaceholderText(Text(combo.Text));
    view->setCurrentIndex(view->findText(Text(combo.Text), Qt::MatchExactly | Qt::MatchCaseSensitive));
    view->update();
  });
  QObject::connect(view, &QComboBox::textActivated, view, [this, &combo](const QString& text) {
    static_cast<void>(panel::HandChoose(combo, text.toStdString()));
    Redraw(combo);
  });
  return view;
}

QAbstractSlider* Binder::Make(panel::ScrollBar& bar) {
  auto* view = new QuietSlider;
  view->setRange(bar.Min, bar.Max);
  view->setPageStep(bar.LargeChange);
  Bind(bar, view, [&bar, view] { view->setValue(bar.Value); });
  QObject::connect(view, &QSlider::valueChanged, view, [this, &bar](int value) {
    static_cast<void>(panel::HandScroll(bar, value));
    Redraw(bar);
  });
  return view;
}

QProgressBar* Binder::Make(panel::ProgressBar& bar) {
  auto* view = new QProgressBar;
  view->setTextVisible(false);
  Bind(bar, view, [&bar, view] {
    view->setRange(bar.Min, bar.Max);
    view->setValue(bar.Value);
  });
  return view;
}

Lamp* Binder::Make(panel::Shape& shape) {
  auto* view = new Lamp;
  Bind(shape, view,
       [&shape, view] { view->SetColour(FromPanel(shape.FillColor), shape.FillColor.Get() != panel::Grey); });
  return view;
}

GridView* Binder::Make(panel::Grid& grid) {
  auto* view = new GridView(grid);
  Bind(grid, view, [view] { view->Reread(); });
  return view;
}

PageTabs* Binder::Make(panel::TabStrip& tabs) {
  auto* view = new PageTabs;
  for (const std::string& caption : tabs.Captions) view->addTab(Caption(caption));
  Bind(tabs, view, [&tabs, view] { view->setCurrentIndex(tabs.SelectedItem - 1); });
  view->Clicked = [this, &tabs](int index) {
    static_cast<void>(panel::HandTab(tabs, index + 1));
    Redraw(tabs);
  };
  return view;
}

LinesView* Binder::Make(panel::ListBox& list) {
  auto* view = new LinesView(list);
  Bind(list, view, [&list, view] {
    view->Reread();
    SetGround(*view, list.BackColor);
  });
  QObject::connect(view, &QListView::clicked, view, [&list] { static_cast<void>(panel::HandClick(list)); });
  QObject::connect(view, &QListView::doubleClicked, view,
                   [&list] { static_cast<void>(panel::HandDblClick(list)); });
  return view;
}

Readout* Binder::MakeReadout(panel::ListBox& list, bool clickable) {
  auto* view = new Readout;
  Bind(list, view, [&list, view] {
    view->Show(list.Lines());
    SetGround(*view, list.BackColor);
  });
  if (clickable) view->MakeClickable([&list] { static_cast<void>(panel::HandClick(list)); });
  return view;
}

namespace {

/// Makes the widget if the control is of the kind.
template <class Kind>
bool MadeAs(Binder& binder, panel::Control& control, QWidget*& widget) {
  auto* kind = dynamic_cast<Kind*>(&control);
  if (kind != nullptr) widget = binder.Make(*kind);
  return kind != nullptr;
}

template <class... Kinds>
QWidget* MakeAsFirstOf(Binder& binder, panel::Control& control) {
  QWidget* widget = nullptr;
  static_cast<void>((MadeAs<Kinds>(binder, control, widget) || ...));
  return widget;
}

}  // namespace

QWidget* Binder::MakeAny(panel::Control& control) {
  // A radio button is a tick box too, so it comes first.
  return MakeAsFirstOf<panel::OptionButton, panel::CheckBox, panel::Label, panel::CommandButton,
                       panel::TextBox, panel::ComboBox, panel::ScrollBar, panel::ProgressBar, panel::Shape,
                       panel::Grid, panel::TabStrip, panel::ListBox>(*this, control);
}

}  // namespace zelvo::desktop
