// What every control of the operator's panel has. Controls are plain data: anyone above may read and write
// them. A change stamps the control with the next number of `revision`, so that a view on a screen finds what
// it has to draw again without being told, at the rate of its display.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace zelvo::panel {

class Window;

/// Number of the last change of anything on the panel.
inline std::uint64_t revision = 0;

enum class Key { Enter, Escape };

/// Colours are blue-green-red numbers, as 255 for red.
using Colour = std::int32_t;
inline constexpr Colour Grey = 14737632;  ///< indicator off
inline constexpr Colour Red = 255;        ///< programming mode entered
inline constexpr Colour Green = 65280;    ///< data-in line active
inline constexpr Colour White = 16777215;
inline constexpr Colour LightRed = 0xC0C0FF;    ///< a cell or a verdict that differs
inline constexpr Colour LightGreen = 0xC0FFC0;  ///< a verdict of equal contents
/// The system's colour of a window's surface, 80000005h.
inline constexpr Colour WindowColour = -2147483643;
inline constexpr Colour UnusedBit = 0xFF8080;  ///< a bit that cannot be edited
inline constexpr Colour ButtonFace = 0xF0F0F0;

class Control {
 public:
  Control(Window& window, std::string name);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  /// The control's name; elements of a control array bear their index, as in "Frame(1)".
  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] Window& Owner() const { return *owner_; }
  /// Number of the last change of this control.
  [[nodiscard]] std::uint64_t Changed() const { return changed_; }
  void Touch() { changed_ = ++revision; }

  /// Puts the control back to what it is when its window is loaded. Hooks stay.
  virtual void Reset() = 0;

  // Events. Behaviour is attached from above; an empty hook does nothing.
  std::function<void()> Click;
  std::function<void()> Change;
  std::function<void()> DblClick;
  std::function<void()> LostFocus;
  std::function<void(Key)> KeyDown;

 private:
  std::string name_;
  Window* owner_;
  std::uint64_t changed_ = 0;
};

/// A value of a control. Reading costs nothing; writing another value stamps the control and runs `event`,
/// the control's hook that belongs to a change of this value (none for captions and texts).
template <class T>
class Property {
 public:
  Property(Control& owner, T design, std::function<void()> Control::*event = nullptr)
      : owner_(&owner), event_(event), design_(design), value_(std::move(design)) {}
  Property(const Property&) = delete;

  operator const T&() const { return value_; }  // NOLINT: reads as the value it is
  [[nodiscard]] const T& Get() const { return value_; }

  Property& operator=(const T& value) {
    if (value == value_) return *this;
    value_ = value;
    owner_->Touch();
    if (event_ != nullptr && owner_->*event_) (owner_->*event_)();
    return *this;
  }
  Property& operator=(const Property& other) {
    return *this = other.value_;
  }  // NOLINT: no self-state to guard
  template <class U>
  requires std::is_convertible_v<const U&, T> Property& operator=(const U& value) { return *this = T(value); }

  /// Back to the value of design time, without an event.
  void Reset() {
    value_ = design_;
    owner_->Touch();
  }

 private:
  Control* owner_;
  std::function<void()> Control::*event_;
  T design_;
  T value_;
};

/// A control that the operator can see, use and be kept from using.
class VisibleControl : public Control {
 public:
  VisibleControl(Window& window, std::string name, bool visible = true)
      : Control(window, std::move(name)), Visible(*this, visible), Enabled(*this, true), ToolTip(*this, "") {}
  void Reset() override {
    Visible.Reset();
    Enabled.Reset();
    ToolTip.Reset();
  }

  Property<bool> Visible;
  Property<bool> Enabled;
  Property<std::string> ToolTip;
};

}  // namespace zelvo::panel
