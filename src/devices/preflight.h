// The common check before every chip operation: is a chip selected, which one is in the socket, and does the
// operator want to go on when it is not the one.
#pragma once

namespace zelvo::devices {

enum class Verb { Read, Write, Erase };

/// The whole check of the PIC18 page. False when the operation must not run; the lines are then at idle.
[[nodiscard]] bool Preflight(Verb verb);
/// The check without its first step: silent identification and the three questions.
[[nodiscard]] bool PreflightQuestions(Verb verb);

enum class MidVerb { Read, Write, Erase, EepromWrite };

/// The same of the mid-range page, silent identification and questions. The identification powers the target;
/// behind a Yes it stays powered. A No brings the lines to idle, but for the first and third question of an
/// EEPROM write.
[[nodiscard]] bool MidRangeQuestions(MidVerb verb);

}  // namespace zelvo::devices
