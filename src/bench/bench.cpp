#include "bench/bench.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <utility>

#include "bench/commands.h"
#include "bench/text.h"
#include "panel/form1.h"
#include "platform/seams.h"

namespace zelvo::bench {
namespace {

/// The last argument of a command that takes the rest of the line; nothing when there is no rest.
std::optional<std::string_view> TakeTail(Tail tail, std::string_view rest) {
  if (tail == Tail::Path) rest = Trimmed(rest);
  if (rest.empty()) return std::nullopt;
  return tail == Tail::Text ? rest.substr(1) : rest;
}

/// The arguments behind a command's name; one more than it takes when there are too many.
std::vector<std::string_view> Arguments(const Command& command, std::string_view rest) {
  std::vector<std::string_view> words;
  while (words.size() <= command.most) {
    const bool last = words.size() + 1 == command.most;
    if (last && command.tail != Tail::Word) {
      if (const auto tail = TakeTail(command.tail, rest)) words.push_back(*tail);
      return words;
    }
    const std::string_view word = TakeWord(rest);
    if (word.empty()) return words;
    words.push_back(word);
  }
  return words;
}

Refusal WrongPhase(const Bench& bench, const Command& command) {
  if (command.phase == Phase::Any) return std::nullopt;
  if (!bench.Started) return "not started";
  if (platform::programEnded && !panel::MDIForm1.Loaded()) return "the program has ended";
  return std::nullopt;
}

Refusal Execute(Call& call, std::string_view line) {
  const std::string_view name = TakeWord(line);
  const Command* command = FindCommand(name);
  if (command == nullptr) return "unknown command " + std::string(name);
  call.words = Arguments(*command, line);
  if (call.words.size() < command->least || call.words.size() > command->most) return Usage(*command);
  if (Refusal refusal = WrongPhase(call.bench, *command)) return refusal;
  try {
    return command->run(call);
  } catch (const platform::ProgramEnded&) {
    return std::nullopt;  // the command itself closed the program
  } catch (const panel::GridFault&) {
    return "the program reached beyond a grid";
  } catch (const std::exception& fault) {
    return fault.what();
  }
}

}  // namespace

Bench::Bench(LineSink sink)
    : pump(machine, [this](const std::string& command) { Run(command); }),
      desk(machine),
      sink_(std::move(sink)) {
  platform::seams = {&machine, &serial, &pump, &pump, &desk, &desk, &desk};
  panel::witnesses.push_back(this);
}

Bench::~Bench() {
  std::erase(panel::witnesses, static_cast<panel::Witness*>(this));
  platform::seams = {};
}

bool Bench::Run(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  const std::string_view content = Trimmed(line);
  if (content.empty() || content.front() == '#') return true;

  Call call{*this, {}, {}};
  const Refusal refusal = Execute(call, line);
  if (refusal) {
    allOk_ = false;
    sink_("error: " + *refusal);
    return false;
  }
  for (const std::string& answer : call.answers) sink_("| " + OneLine(answer));
  sink_("ok");
  return true;
}

void Bench::AtProgress(std::string window, int value, std::string command) {
  progressCommands_.push_back({std::move(window), value, std::move(command)});
}

void Bench::WindowLoaded(panel::Window& window) {
  if (WireLog* wire = machine.Wire()) wire->Loaded(window.Name());
}

void Bench::WindowUnloaded(panel::Window& window) {
  if (WireLog* wire = machine.Wire()) wire->Unloaded(window.Name());
}

void Bench::BarStepped(panel::ProgressBar& bar, int value) {
  const std::string& window = bar.Owner().Name();
  if (WireLog* wire = machine.Wire()) wire->Bar(window, value);
  // A command may step a bar in turn; each is taken out before it runs.
  const auto waits = [&](const ProgressCommand& it) { return it.value == value && it.window == window; };
  auto next = std::find_if(progressCommands_.begin(), progressCommands_.end(), waits);
  while (next != progressCommands_.end()) {
    const std::string command = std::move(next->command);
    progressCommands_.erase(next);
    Run(command);
    next = std::find_if(progressCommands_.begin(), progressCommands_.end(), waits);
  }
}

void Bench::LineLogged(panel::ListBox& list, const std::string& line) {
  if (WireLog* wire = machine.Wire()) wire->Line(list.Name(), line);
}

}  // namespace zelvo::bench
