// Commands for the course of a script: queued outcomes, commands for later, passes, and the wire log.
#include "bench/bench.h"
#include "bench/commands.h"
#include "bench/text.h"
#include "panel/secondary_windows.h"

namespace zelvo::bench {
namespace {

/// Passes of one `pump` or `at pump`: eleven days, far from the end of the clock.
constexpr long long MostPasses = 1'000'000'000'000;

std::optional<long long> Passes(std::string_view word) {
  const std::optional<long long> number = WholeNumber(word);
  if (!number || *number < 0 || *number > MostPasses) return std::nullopt;
  return number;
}

/// A command for later has to be one.
Refusal Unknown(std::string_view command) {
  const std::string_view name = TakeWord(command);
  if (name.empty()) return Usage(*FindCommand("at"));
  if (FindCommand(name) == nullptr) return "unknown command " + std::string(name);
  return std::nullopt;
}

Refusal AtPump(Call& call, std::string_view rest) {
  const std::string_view word = TakeWord(rest);
  const std::optional<long long> pass = Passes(word);
  if (!pass || *pass < 1) return "no number of a pass " + std::string(word);
  if (Refusal refusal = Unknown(rest)) return refusal;
  call.bench.pump.At(*pass, std::string(rest));
  return std::nullopt;
}

bool HasBar(const panel::Window& window) {
  for (const panel::Control* control : window.Controls()) {
    if (dynamic_cast<const panel::ProgressBar*>(control) != nullptr) return true;
  }
  return false;
}

Refusal AtProgress(Call& call, std::string_view rest) {
  const std::string name(TakeWord(rest));
  const panel::Window* window = panel::FindWindow(name);
  if (window == nullptr) return "no window " + name;
  if (!HasBar(*window)) return "no bar in " + name;
  const std::string_view word = TakeWord(rest);
  const std::optional<long long> value = Passes(word);
  if (!value || *value > 1'000'000) return "no value of a bar " + std::string(word);
  if (Refusal refusal = Unknown(rest)) return refusal;
  call.bench.AtProgress(name, static_cast<int>(*value), std::string(rest));
  return std::nullopt;
}

}  // namespace

Refusal AnswerCommand(Call& call) {
  for (const std::string_view word : call.words) {
    if (word != "yes" && word != "no") return "no answer " + std::string(word);
  }
  for (const std::string_view word : call.words) call.bench.desk.QueueAnswer(word == "yes");
  return std::nullopt;
}

Refusal FileCommand(Call& call) {
  const std::string path(call.words[0]);
  if (path.empty()) return Usage(*FindCommand("file"));
  call.bench.desk.QueueFile(path == "cancel" ? std::nullopt : std::optional(path));
  return std::nullopt;
}

Refusal AtCommand(Call& call) {
  std::string_view rest = call.words[0];
  const std::string_view place = TakeWord(rest);
  if (place == "pump") return AtPump(call, rest);
  if (place == "progress") return AtProgress(call, rest);
  return Usage(*FindCommand("at"));
}

Refusal PumpCommand(Call& call) {
  const std::optional<long long> passes = Passes(call.words[0]);
  if (!passes) return "no number of passes " + std::string(call.words[0]);
  call.bench.pump.Run(*passes);
  return std::nullopt;
}

Refusal WireCommand(Call& call) {
  const std::string path(call.words[0]);
  Machine& machine = call.bench.machine;
  if (path == "off") {
    if (!machine.EndWire()) return "the log could not be written to its end";
  } else if (!machine.BeginWire(path)) {
    return "cannot write " + path;
  }
  return std::nullopt;
}

Refusal MarkCommand(Call& call) {
  if (WireLog* wire = call.bench.machine.Wire()) wire->Mark(call.words[0]);
  return std::nullopt;
}

}  // namespace zelvo::bench
