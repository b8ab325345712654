// The lines of an Intel HEX file as the parsers walk them.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zelvo::image {

/// The file's text with its line breaks. Whatever the file had for them (CRLF, LF, CR), a line ends at each;
/// the text behind the last break is no line. Lines are found as they are asked for, so that the size of a
/// file that is no HEX file costs nothing.
class LineText {
 public:
  void Set(std::string text) {
    text_.swap(text);
    Rewind();
  }
  /// Back to the first line.
  void Rewind() {
    next_ = 0;
    nextLf_.reset();
  }
  /// The next line without its break; false when there is none.
  [[nodiscard]] bool Next(std::string_view& line);

 private:
  std::string text_;
  size_t next_ = 0;
  std::optional<size_t> nextLf_;  ///< the first from `next_` on, or the text's end; nothing when not searched
};

inline LineText HexLines;        ///< the file being loaded, empty afterwards: it may be a large one
inline int HexLineIndex = 0;     ///< number of the line being parsed, from 0
inline std::string HexFileName;  ///< the file last opened; empty when opening failed
inline std::string DialogFile;   ///< the file dialog's last choice, kept for the reload

/// Raised where a record cannot be read as its type asks, or reaches beyond the chip.
struct RecordFault : std::runtime_error {
  RecordFault() : std::runtime_error("record beyond the chip") {}
};

/// One line that begins with ":". Positions count from 1. All readers raise `RecordFault` for digits that are
/// missing or are none.
class Record {
 public:
  explicit Record(std::string_view line);
  /// The characters from `position`; fewer when the line ends before.
  [[nodiscard]] std::string_view Mid(size_t position, size_t count) const {
    return position > line_.size() ? std::string_view{} : line_.substr(position - 1, count);
  }
  /// The same with digits in upper case.
  [[nodiscard]] std::string Upper(size_t position, size_t count) const;
  [[nodiscard]] std::string_view Type() const { return Mid(8, 2); }
  [[nodiscard]] int Count() const { return count_; }
  /// The address field, signed.
  [[nodiscard]] std::int16_t Address() const { return address_; }
  /// Two digits in upper case.
  [[nodiscard]] std::string Pair(size_t position) const;
  /// The same into the two characters from `out`.
  void PutPair(size_t position, char* out) const;
  /// The number of `prefix`less digits from `position` with `zeros` behind them, as for the address records.
  [[nodiscard]] std::int32_t Number(size_t position, size_t count, std::string_view zeros = {}) const;

 private:
  std::string_view line_;
  int count_ = 0;
  std::int16_t address_ = 0;
};

}  // namespace zelvo::image
