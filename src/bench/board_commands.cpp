// Commands for the board on the machine's port and the chip in its socket.
#include <map>
#include <memory>
#include <utility>

#include "bench/bench.h"
#include "bench/board_text.h"
#include "bench/commands.h"
#include "bench/intel_hex_io.h"
#include "bench/text.h"

namespace zelvo::bench {
namespace {

using std::string_view;

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
  DescribedBoard described = DescribeBoard(call.words);
  if (described.board) call.bench.machine.PutBoard(std::move(described.board));
  return described.refusal;
}

Refusal SocketCommand(Call& call) {
  const string_view name = call.words[0];
  std::optional<std::uint32_t> id;
  const Setter setId = [&id](string_view value) {
    id = HexNumber(value, 0xFFFF);
    return id.has_value();
  };
  const bool empty = name == "none";
  if (Refusal refusal = ApplyKeys(call.words, empty ? Keys{} : Keys{{"id", setId}})) return refusal;

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
