// Texts of answers and log lines.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "bench/board.h"

namespace zelvo::bench {

/// A number without an exponent and without superfluous decimals: whole numbers bare.
[[nodiscard]] std::string NumberText(double value);
/// The text with every line break as one blank, so that an answer or an event stays one line.
[[nodiscard]] std::string OneLine(std::string_view text);
/// A time in microseconds with at most three decimals and without trailing zeros.
[[nodiscard]] std::string MicrosecondsText(Nanoseconds time);
/// The text without the blanks around it.
[[nodiscard]] std::string_view Trimmed(std::string_view text);
/// Takes the first word off `text`; empty when there is none. What is left begins behind the word.
std::string_view TakeWord(std::string_view& text);
/// A whole decimal number; nothing for any other text or one beyond 64 bits.
[[nodiscard]] std::optional<long long> WholeNumber(std::string_view word);
/// Hexadecimal digits of either case; nothing for any other text or a value above `highest`.
[[nodiscard]] std::optional<unsigned> HexNumber(std::string_view word, unsigned highest);

}  // namespace zelvo::bench
