#include "image/hex_lines.h"

#include "icsp/conversions.h"
#include "link/numbers.h"

namespace zelvo::image {

bool LineText::Next(std::string_view& line) {
  const size_t end = text_.find_first_of("\r\n", next_);
  if (end == std::string::npos) return false;
  line = std::string_view(text_).substr(next_, end - next_);
  const bool pair = text_[end] == '\r' && end + 1 < text_.size() && text_[end + 1] == '\n';
  next_ = end + (pair ? 2 : 1);
  return true;
}

Record::Record(std::string_view line) : line_(line) {
  while (!line_.empty() && (line_.back() == ' ' || line_.back() == '\t')) line_.remove_suffix(1);
  count_ = Number(2, 2);
  address_ = static_cast<std::int16_t>(Number(4, 4));
  // The checksum is read and dropped: a wrong one has no effect, but one that is no number ends the reading.
  if (line_.size() < 11) throw RecordFault{};
  static_cast<void>(Number(line_.size() - 1, 2));
}

std::string Record::Pair(size_t position) const {
  const std::string_view digits = Mid(position, 2);
  if (digits.size() != 2) throw RecordFault{};
  std::string pair;
  for (const char digit : digits) {
    const char upper = digit >= 'a' && digit <= 'f' ? static_cast<char>(digit - 'a' + 'A') : digit;
    if (icsp::DigitValue(upper) < 0) throw RecordFault{};
    pair += upper;
  }
  return pair;
}

std::int32_t Record::Number(size_t position, size_t count, std::string_view zeros) const {
  std::string digits(Mid(position, count));
  if (digits.size() != count) throw RecordFault{};
  digits += zeros;
  const auto value = link::ReadHex(digits);
  if (!value) throw RecordFault{};
  return *value;
}

}  // namespace zelvo::image
