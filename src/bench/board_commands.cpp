// Commands for the board on the machine's port and the chip in its socket.
#include <bit>
#include <functional>
#include <map>
#include <memory>
#include <utility>

#include "bench/bench.h"
#include "bench/commands.h"
#include "bench/intel_hex_io.h"
#include "bench/text.h"

namespace zelvo::bench {
namespace {

using std::string_view;

/// What a key of a wiring does with its value; false for a value that it does not take.
using Setter = std::function<bool(string_view value)>;
using Keys = std::map<string_view, Setter>;

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

Refusal ApplyKeys(const Call& call, const Keys& keys) {
  for (std::size_t i = 1; i < call.words.size(); ++i) {
    const string_view word = call.words[i];
    const std::size_t equals = word.find('=');
    const auto key = keys.find(word.substr(0, equals));
    if (equals == string_view::npos || key == keys.end()) return "unknown key " + std::string(word);
    if (!key->second(word.substr(equals + 1))) return "bad value " + std::string(word);
  }
  return std::nullopt;
}

Refusal LptBoard(Call& call) {
  LptWiring wiring;
  const Refusal refusal = ApplyKeys(call, {{"base", Base(wiring.base)},
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
  if (!refusal) call.bench.machine.PutBoard(MakeLptBoard(wiring));
  return refusal;
}

Refusal ComBoard(Call& call) {
  ComWiring wiring;
  const Refusal refusal = ApplyKeys(call, {{"base", Base(wiring.base)},
                                           {"inverted", Inverted({{"pgd", &wiring.pgdInverted},
                                                                  {"pgc", &wiring.pgcInverted},
                                                                  {"input", &wiring.inputInverted},
                                                                  {"vpp", &wiring.vppInverted}})}});
  if (!refusal) call.bench.machine.PutBoard(MakeComBoard(wiring));
  return refusal;
}

Refusal NoBoard(Call& call) {
  const Refusal refusal = ApplyKeys(call, {});
  if (!refusal) call.bench.machine.PutBoard(MakeNoBoard());
  return refusal;
}

/// Whether the chip has every location of the image, tried on another chip of its kind.
bool Fits(const Chip& chip, const std::map<std::uint32_t, std::uint8_t>& image) {
  const std::unique_ptr<Chip> trial = MakeChip(chip.Name(), std::nullopt);
  for (const auto& [address, value] : image) {
    if (!trial->Burn(address, value)) return false;
  }
  return true;
}

}  // namespace

Refusal BoardCommand(Call& call) {
  const string_view kind = call.words[0];
  if (kind == "lpt") return LptBoard(call);
  if (kind == "com") return ComBoard(call);
  if (kind == "none") return NoBoard(call);
  return "unknown board " + std::string(kind);
}

Refusal SocketCommand(Call& call) {
  const string_view name = call.words[0];
  std::optional<std::uint32_t> id;
  const Setter setId = [&id](string_view value) {
    id = HexNumber(value, 0xFFFF);
    return id.has_value();
  };
  const bool empty = name == "none";
  if (Refusal refusal = ApplyKeys(call, empty ? Keys{} : Keys{{"id", setId}})) return refusal;

  std::unique_ptr<Chip> chip = empty ? nullptr : MakeChip(std::string(name), id);
  if (!empty && !chip) return "unknown chip " + std::string(name);
  call.bench.machine.PutChip(std::move(chip));
  return std::nullopt;
}

Refusal BurnCommand(Call& call) {
  Chip* chip = call.bench.machine.Socket();
  if (chip == nullptr) return "the socket is empty";
  const std::string path(call.words[0]);
  const auto image = ReadIntelHex(path);
  if (!image) return "cannot read " + path;
  if (!Fits(*chip, *image)) return "the file goes beyond the chip";
  for (const auto& [address, value] : *image) static_cast<void>(chip->Burn(address, value));
  return std::nullopt;
}

Refusal DumpCommand(Call& call) {
  const Chip* chip = call.bench.machine.Socket();
  if (chip == nullptr) return "the socket is empty";
  const std::string path(call.words[0]);
  if (!WriteIntelHex(path, chip->Image())) return "cannot write " + path;
  return std::nullopt;
}

Refusal TimingCommand(Call& call) {
  const Chip* chip = call.bench.machine.Socket();
  if (chip == nullptr) return std::nullopt;
  for (const TimingFault& fault : chip->Timing()) {
    call.answers.push_back(fault.kind + ' ' + MicrosecondsText(fault.shortest) + "us < " +
                           MicrosecondsText(fault.minimum) + "us x " + std::to_string(fault.count));
  }
  return std::nullopt;
}

}  // namespace zelvo::bench
