// Program-wide variables by their names, for reading.
#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bench/text.h"

namespace zelvo::bench {

/// What a reading gave: a value, or why there is none.
struct Reading {
  std::optional<std::string> value;
  std::string fault;
};

/// Reads `NAME`, the element of an array `NAME(INDEX)` or the cell of a buffer `NAME(COLUMN,ROW)`.
[[nodiscard]] Reading ReadVariable(std::string_view name);

/// A row of the table of variables.
struct Variable {
  std::string_view name;
  std::size_t subscripts;  ///< 0 for a plain variable, 1 for an array, 2 for a buffer
  /// Nothing when there is no such element.
  std::function<std::optional<std::string>(std::span<const long long>)> read;
};

/// All variables that the program has.
[[nodiscard]] const std::vector<Variable>& Variables();

// The text of a value: a number in decimal, a flag as 1 or 0, a text as it is.
[[nodiscard]] inline std::string ValueText(bool value) {
  return value ? "1" : "0";
}
[[nodiscard]] inline std::string ValueText(std::integral auto value) {
  return std::to_string(value);
}
[[nodiscard]] inline std::string ValueText(std::floating_point auto value) {
  return NumberText(value);
}
[[nodiscard]] inline std::string ValueText(std::string_view value) {
  return std::string(value);
}

template <class T>
concept Readable = requires(const T& value) {
  ValueText(value);
};

/// Row of a plain variable.
template <Readable T>
Variable Row(std::string_view name, const T& variable) {
  return {name, 0, [&variable](std::span<const long long>) { return std::optional(ValueText(variable)); }};
}

/// Row of an array; every index that it has can be read, those that the program leaves unused too.
template <Readable T, std::size_t Size>
Variable Row(std::string_view name, const std::array<T, Size>& array) {
  return {name, 1, [&array](std::span<const long long> at) -> std::optional<std::string> {
            if (at[0] < 0 || at[0] >= static_cast<long long>(Size)) return std::nullopt;
            return ValueText(array[static_cast<std::size_t>(at[0])]);
          }};
}

/// Row of a table in two dimensions; every element that it has can be read.
template <Readable T, std::size_t Rows, std::size_t Columns>
Variable Row(std::string_view name, const std::array<std::array<T, Columns>, Rows>& table) {
  return {name, 2, [&table](std::span<const long long> at) -> std::optional<std::string> {
            if (at[0] < 0 || at[0] >= static_cast<long long>(Rows)) return std::nullopt;
            if (at[1] < 0 || at[1] >= static_cast<long long>(Columns)) return std::nullopt;
            return ValueText(table[static_cast<std::size_t>(at[0])][static_cast<std::size_t>(at[1])]);
          }};
}

/// A buffer of cells by column 0 to 8 and row 0 to `RowMax`.
template <class T>
concept CellsByPlace = requires(const T& buffer) {
  { T::RowMax } -> std::convertible_to<int>;
  ValueText(buffer(0, 0));
};

/// Row of a buffer.
template <CellsByPlace T>
Variable Row(std::string_view name, const T& buffer) {
  return {name, 2, [&buffer](std::span<const long long> at) -> std::optional<std::string> {
            if (at[0] < 0 || at[0] > 8 || at[1] < 0 || at[1] > T::RowMax) return std::nullopt;
            return ValueText(buffer(static_cast<int>(at[0]), static_cast<int>(at[1])));
          }};
}

}  // namespace zelvo::bench
