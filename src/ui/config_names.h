// What the configuration bits of each PIC18 are called, and where the editor shows and keeps them.
#pragma once

#include <span>
#include <string_view>

namespace zelvo::ui {

/// A bit by its byte (1..14, CONFIG1L to CONFIG7H) and column (1..8, column 1 is bit 7).
struct BitPlace {
  int byte;
  int column;
  bool operator==(const BitPlace&) const = default;
};

/// A name that stands on the listed chips of a group only; an empty list means all of them.
struct BitName {
  std::string_view name = {};
  std::string_view chips = {};
};
struct NameRow {
  int byte;
  BitName bits[8];
};
/// Chips that share a table of names. Bytes without a name have no row.
struct ConfigNameGroup {
  std::string_view chips;
  std::span<const NameRow> rows;
};

/// Columns in which the chips show no name and still have the bit; unused places are 0.
struct HiddenBits {
  std::string_view chips;
  int byte;
  int columns[3];
};
/// A named bit whose state or value goes to another place than its name.
struct StrayBit {
  std::string_view chips;
  BitPlace place;  ///< of the name
  BitPlace state;  ///< the cell that takes the state
  BitPlace bit;    ///< the element of `ConfigEditBits` that takes the value
};

/// The group of a chip; nullptr for a name in none.
[[nodiscard]] const ConfigNameGroup* FindNameGroup(std::string_view chip);

/// What the editor does with one column.
struct ConfigBit {
  std::string_view name;  ///< empty: "X" and "0" are shown
  bool live;              ///< the bit is kept and can be edited
  BitPlace state;
  BitPlace bit;
};
[[nodiscard]] ConfigBit FindConfigBit(const ConfigNameGroup& group, std::string_view chip, BitPlace place);

}  // namespace zelvo::ui
