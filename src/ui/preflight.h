// The common check before every chip operation: is a chip selected, which one is in the socket, and does the
// operator want to go on when it is not the one.
#pragma once

namespace zelvo::ui {

enum class Verb { Read, Write, Erase };

/// The whole check. False when the operation must not run; the lines are then at idle.
[[nodiscard]] bool Preflight(Verb verb);
/// The check without its first step: silent identification and the three questions.
[[nodiscard]] bool PreflightQuestions(Verb verb);

}  // namespace zelvo::ui
