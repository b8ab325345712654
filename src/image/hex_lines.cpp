#include "image/hex_lines.h"

#include <algorithm>

#include "icsp/conversions.h"
#include "link/numbers.h"

namespace zelvo::image {
namespace {

char UpperDigit(char digit) {
  return digit >= 'a' && digit <= 'f' ? static_cast<char>(digit - 'a' + 'A') : digit;
}

}  // namespace

bool LineText::Next(std::string_view& line) {
  // The line feed found is remembered, so that a file with carriage returns alone is walked for it only once.
  if (!nextLf_ || *nextLf_ < next_) nextLf_ = std::min(text_.find('\n', next_), text_.size());
  const std::string_view ahead = std::string_view(text_).substr(next_, *nextLf_ - next_);
  const size_t end = next_ + std::min(ahead.find('\r'), ahead.size());
  if (end == text_.size()) return false;
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

std::string Record::Upper(size_t position, size_t count) const {
  std::string digits(Mid(position, count));
  for (char& digit : digits) digit = UpperDigit(digit);
  return digits;
}

void Record::PutPair(size_t position, char* out) const {
  const std::string_view digits = Mid(position, 2);
  if (digits.size() != 2) throw RecordFault{};
  for (const char digit : digits) {
    *out = UpperDigit(digit);
    if (icsp::DigitValue(*out++) < 0) throw RecordFault{};
  }
}

std::string Record::Pair(size_t position) const {
  std::string pair(2, '\0');
  PutPair(position, pair.data());
  return pair;
}

std::int32_t Record::Number(size_t position, size_t count, std::string_view zeros) const {
  const std::string_view digits = Mid(position, count);
  if (digits.size() != count) throw RecordFault{};
  const auto value = zeros.empty() ? link::ReadHex(digits) : link::ReadHex(std::string(digits).append(zeros));
  if (!value) throw RecordFault{};
  return *value;
}

}  // namespace zelvo::image
