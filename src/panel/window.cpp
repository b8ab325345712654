#include "panel/window.h"

#include <algorithm>
#include <utility>

#include "platform/raised.h"

namespace zelvo::panel {

Control::Control(Window& window, std::string name) : name_(std::move(name)), owner_(&window) {
  window.controls_.push_back(this);
}

Window::Window(std::string name, std::string caption) : Caption(std::move(caption)), name_(std::move(name)) {
  AllWindows().push_back(this);
}

void Window::Load() {
  if (loaded_) {
    for (Witness* witness : witnesses) witness->WindowCalled(*this);
    return;
  }
  for (Control* control : controls_) control->Reset();
  loaded_ = true;
  LoadedWindows.push_back(this);
  for (Witness* witness : witnesses) witness->WindowLoaded(*this);
  if (OnLoad) OnLoad();
}

void Window::Unload() {
  if (!loaded_ || unloading_) return;
  {
    const platform::Raised unloading(unloading_);  // the event may lead here a second time
    if (OnUnload) OnUnload();
  }
  loaded_ = false;
  LoadedWindows.erase(std::remove(LoadedWindows.begin(), LoadedWindows.end(), this), LoadedWindows.end());
  for (Witness* witness : witnesses) witness->WindowUnloaded(*this);
}

Control* Window::Find(std::string_view name) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [name](const Control* control) { return control->Name() == name; });
  return found == controls_.end() ? nullptr : *found;
}

std::vector<Window*>& AllWindows() {
  static std::vector<Window*> all;
  return all;
}

Window* FindWindow(std::string_view name) {
  for (Window* window : AllWindows()) {
    if (window->Name() == name) return window;
  }
  return nullptr;
}

void OptionButton::Select() {
  for (Control* other : Owner().Controls()) {
    auto* option = dynamic_cast<OptionButton*>(other);
    if (option != nullptr && option != this && option->frame_ == frame_ && option->Value)
      option->Value.Reset();
  }
  Value = true;
}

void ProgressBar::Step(int value) {
  Value = value;
  for (Witness* witness : witnesses) witness->BarStepped(*this, value);
}

}  // namespace zelvo::panel
