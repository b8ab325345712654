// Windows of the panel, their registry, and those who watch them.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "panel/controls.h"
#include "panel/grid.h"

namespace zelvo::panel {

class Window {
 public:
  Window(std::string name, std::string caption);
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window() = default;

  /// Puts every control to its design-time state, enters the window into `LoadedWindows`, tells the witnesses
  /// and runs `OnLoad`. A window that is loaded already stays as it is; the witnesses hear that it is called
  /// for.
  void Load();
  /// Runs `OnUnload`, takes the window out of `LoadedWindows` and tells the witnesses. Does nothing when the
  /// window is not loaded, or from within its own `OnUnload`.
  void Unload();
  [[nodiscard]] bool Loaded() const { return loaded_; }

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }
  /// Nullptr when there is no control of that name.
  [[nodiscard]] Control* Find(std::string_view name) const;

  std::string Caption;
  /// True keeps the window above the main window (`MindigFelül`); a message box drops it for its time.
  bool OnTop = false;

  std::function<void()> OnLoad;
  std::function<void()> OnUnload;

 private:
  friend class Control;
  std::string name_;
  std::vector<Control*> controls_;
  bool loaded_ = false;
  bool unloading_ = false;
};

/// All windows of the system, loaded or not.
[[nodiscard]] std::vector<Window*>& AllWindows();
/// Nullptr when there is no window of that name.
[[nodiscard]] Window* FindWindow(std::string_view name);
/// The loaded windows in the order of loading.
inline std::vector<Window*> LoadedWindows;

/// Someone who is told at once what a view or a log cannot find out later.
class Witness {
 public:
  virtual ~Witness() = default;
  virtual void WindowLoaded(Window&) {}
  virtual void WindowUnloaded(Window&) {}
  virtual void WindowCalled(Window&) {}  ///< shown again while it is loaded
  virtual void BarStepped(ProgressBar&, int /*value*/) {}
  virtual void LineLogged(ListBox&, const std::string& /*line*/) {}
};
inline std::vector<Witness*> witnesses;

}  // namespace zelvo::panel
