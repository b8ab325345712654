#include "bench/variables.h"

#include <algorithm>

namespace zelvo::bench {
namespace {

/// The numbers between the brackets of `name`; nothing when they are not well formed.
std::optional<std::vector<long long>> Subscripts(std::string_view name) {
  std::vector<long long> numbers;
  const std::size_t open = name.find('(');
  if (open == std::string_view::npos) return numbers;
  if (!name.ends_with(')')) return std::nullopt;
  std::string_view list = name.substr(open + 1, name.size() - open - 2);
  while (true) {
    const std::size_t comma = list.find(',');
    const std::optional<long long> number = WholeNumber(Trimmed(list.substr(0, comma)));
    if (!number) return std::nullopt;
    numbers.push_back(*number);
    if (comma == std::string_view::npos) return numbers;
    list.remove_prefix(comma + 1);
  }
}

std::string Form(const Variable& variable) {
  constexpr std::string_view Brackets[] = {"", "(INDEX)", "(COLUMN,ROW)"};
  return std::string(variable.name) + std::string(Brackets[variable.subscripts]);
}

}  // namespace

Reading ReadVariable(std::string_view name) {
  name = Trimmed(name);
  const std::string_view bare = Trimmed(name.substr(0, name.find('(')));
  const std::vector<Variable>& all = Variables();
  const auto row =
      std::find_if(all.begin(), all.end(), [bare](const Variable& it) { return it.name == bare; });
  if (row == all.end()) return {std::nullopt, "no variable " + std::string(name)};

  const std::optional<std::vector<long long>> at = Subscripts(name);
  if (!at || at->size() != row->subscripts) return {std::nullopt, "written as " + Form(*row)};
  std::optional<std::string> value = row->read(*at);
  if (!value) return {std::nullopt, "no element " + std::string(name)};
  return {std::move(value), ""};
}

}  // namespace zelvo::bench
