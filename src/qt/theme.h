// The look of the desktop: colours, fonts, shapes. Every length comes from the font.
#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>

#include "panel/control.h"

class QApplication;
class QWidget;

namespace zelvo::desktop {

/// Dresses the whole application. Call once, before the first window.
void ApplyTheme(QApplication& application);

/// The font of memory contents and values.
[[nodiscard]] QFont MonospacedFont();
/// The panel's blue-green-red number as a colour.
[[nodiscard]] QColor FromPanel(panel::Colour colour);
/// Gives a list or an edit box the panel's colour for its ground, with ink that can be read on it; white and
/// the system's colour are its own.
void SetGround(QWidget& widget, panel::Colour colour);
/// The program's mark: a chip in its socket.
[[nodiscard]] QIcon ChipIcon();
/// Height of a line of text: the unit of all distances.
[[nodiscard]] int LineHeight(const QWidget& widget);

namespace colours {
inline constexpr QRgb Window = 0xFFF2F4F7;
inline constexpr QRgb Card = 0xFFFFFFFF;
inline constexpr QRgb Border = 0xFFD5DAE1;
inline constexpr QRgb Rule = 0xFFE8EBF0;
inline constexpr QRgb Heading = 0xFFF4F6F9;
inline constexpr QRgb Ink = 0xFF1C2430;
inline constexpr QRgb Faint = 0xFFA3ACB9;
inline constexpr QRgb Muted = 0xFF5B6675;
inline constexpr QRgb Accent = 0xFF1F62C9;
inline constexpr QRgb AccentWash = 0xFFE4EEFC;
}  // namespace colours

}  // namespace zelvo::desktop
