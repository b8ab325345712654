#include "bench/board_text.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "bench/text.h"

namespace zelvo::bench {

using std::string_view;

std::optional<std::string> ApplyKeys(const std::vector<string_view>& words, const Keys& keys) {
  for (std::size_t i = 1; i < words.size(); ++i) {
    const string_view word = words[i];
    const std::size_t equals = word.find('=');
    const auto key = keys.find(word.substr(0, equals));
    if (equals == string_view::npos || key == keys.end()) return "unknown key " + std::string(word);
    if (!key->second(word.substr(equals + 1))) return "bad value " + std::string(word);
  }
  return std::nullopt;
}

namespace {

Setter Base(int& base) {
  return [&base](string_view value) {
    // The highest register that a board answers at is base+6.
    const std::optional<unsigned> number = HexNumber(value, 0xFFFF - 6);
    if (number) base = static_cast<int>(*number);
    return number.has_value();
  };
}

Setter DataBit(int& bit) {
  return [&bit](string_view value) {
    const std::optional<long long> number = WholeNumber(value);
    if (!number || *number < 1 || *number > 128 || !std::has_single_bit(static_cast<unsigned>(*number))) {
      return false;
    }
    bit = static_cast<int>(*number);
    return true;
  };
}

Setter Choice(bool& second, string_view whenFalse, string_view whenTrue) {
  return [&second, whenFalse, whenTrue](string_view value) {
    if (value != whenFalse && value != whenTrue) return false;
    second = value == whenTrue;
    return true;
  };
}

/// A comma list of lines; those that it does not name are not inverted.
Setter Inverted(std::map<string_view, bool*> lines) {
  return [lines = std::move(lines)](string_view value) {
    for (const auto& [name, inverted] : lines) *inverted = false;
    while (!value.empty()) {
      const string_view name = value.substr(0, value.find(','));
      const auto line = lines.find(name);
      if (line == lines.end()) return false;
      *line->second = true;
      value.remove_prefix(std::min(name.size() + 1, value.size()));
    }
    return true;
  };
}

DescribedBoard Lpt(std::vector<string_view> words) {
  LptWiring wiring;
  wiring.manual = std::erase(words, "manual") != 0;
  std::optional<std::string> refusal =
      ApplyKeys(words, {{"base", Base(wiring.base)},
                        {"vdd", DataBit(wiring.vdd)},
                        {"vpp", DataBit(wiring.vpp)},
                        {"data", DataBit(wiring.data)},
                        {"clock", DataBit(wiring.clock)},
                        {"input", Choice(wiring.inputBusy, "ack", "busy")},
                        {"inverted", Inverted({{"vdd", &wiring.vddInverted},
                                               {"vpp", &wiring.vppInverted},
                                               {"clock", &wiring.clockInverted},
                                               {"data", &wiring.dataInverted},
                                               {"input", &wiring.inputInverted}})}});
  if (refusal) return {nullptr, std::move(refusal)};
  return {MakeLptBoard(wiring), std::nullopt};
}

DescribedBoard Com(const std::vector<string_view>& words) {
  ComWiring wiring;
  std::optional<std::string> refusal =
      ApplyKeys(words, {{"base", Base(wiring.base)},
                        {"inverted", Inverted({{"pgd", &wiring.pgdInverted},
                                               {"pgc", &wiring.pgcInverted},
                                               {"input", &wiring.inputInverted},
                                               {"vpp", &wiring.vppInverted}})}});
  if (refusal) return {nullptr, std::move(refusal)};
  return {MakeComBoard(wiring), std::nullopt};
}

DescribedBoard None(const std::vector<string_view>& words) {
  std::optional<std::string> refusal = ApplyKeys(words, {});
  if (refusal) return {nullptr, std::move(refusal)};
  return {MakeNoBoard(), std::nullopt};
}

}  // namespace

DescribedBoard DescribeBoard(const std::vector<string_view>& words) {
  const string_view kind = words.empty() ? string_view() : words.front();
  if (kind == "lpt") return Lpt(words);
  if (kind == "com") return Com(words);
  if (kind == "none") return None(words);
  return {nullptr, "unknown board " + std::string(kind)};
}

}  // namespace zelvo::bench
