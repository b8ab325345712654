// What stands where in the secondary windows. The windows are grouped by what they are for; each group tells
// whether a window is one of its own.
#pragma once

#include <initializer_list>

#include "panel/window.h"

class QHBoxLayout;
class QVBoxLayout;
class QWidget;

namespace zelvo::desktop {

class Binder;

/// Fills a secondary window with the views of the panel's controls. Windows without a layout of their own get
/// one after the kinds of their controls.
void LayOutWindow(panel::Window& window, Binder& binder, QWidget& view);

/// What was read, its verdict, and the ways out.
[[nodiscard]] bool LaidOutAsReview(panel::Window& window, Binder& binder, QWidget& view, QVBoxLayout& layout);
/// Editors of the image.
[[nodiscard]] bool LaidOutAsEditor(panel::Window& window, Binder& binder, QWidget& view, QVBoxLayout& layout);
/// The one of them for the mid-range configuration words.
[[nodiscard]] bool LaidOutAsWordEditor(panel::Window& window, Binder& binder, QWidget& view,
                                       QVBoxLayout& layout);
/// Saving the image, and windows that only tell something.
[[nodiscard]] bool LaidOutAsInformation(panel::Window& window, Binder& binder, QWidget& view,
                                        QVBoxLayout& layout);

/// The interface, its lines, and their check.
[[nodiscard]] bool LaidOutAsSettings(panel::Window& window, Binder& binder, QWidget& view,
                                     QVBoxLayout& layout);

/// A row of buttons that closes a window off, at its right.
[[nodiscard]] QHBoxLayout* MakeButtonRow(Binder& binder,
                                         std::initializer_list<panel::CommandButton*> buttons);

/// Lays the window out if it is of the kind.
template <class Kind>
[[nodiscard]] bool LaidOutAs(void (*layOut)(Kind&, Binder&, QWidget&, QVBoxLayout&), panel::Window& window,
                             Binder& binder, QWidget& view, QVBoxLayout& layout) {
  auto* kind = dynamic_cast<Kind*>(&window);
  if (kind != nullptr) layOut(*kind, binder, view, layout);
  return kind != nullptr;
}

}  // namespace zelvo::desktop
