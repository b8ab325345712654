#include "bench/commands.h"

#include <algorithm>
#include <iterator>

#include "panel/form1.h"

namespace zelvo::bench {
namespace {

constexpr Command CommandTable[] = {
    {"board", "lpt|com|none [KEY=VALUE ...]", 1, Many, Tail::Word, Phase::Any, BoardCommand},
    {"socket", "CHIP|none [id=HEX]", 1, Many, Tail::Word, Phase::Any, SocketCommand},
    {"burn", "FILE", 1, 1, Tail::Path, Phase::Any, BurnCommand},
    {"dump", "FILE", 1, 1, Tail::Path, Phase::Any, DumpCommand},
    {"timing", "", 0, 0, Tail::Word, Phase::Any, TimingCommand},

    {"start", "", 0, 0, Tail::Word, Phase::Any, StartCommand},
    {"stop", "", 0, 0, Tail::Word, Phase::Running, StopCommand},
    {"tab", "N", 1, 1, Tail::Word, Phase::Running, TabCommand},
    {"choose", "NAME TEXT", 2, 2, Tail::Text, Phase::Running, ChooseCommand},
    {"click", "NAME [ROW COL]", 1, 3, Tail::Word, Phase::Running, ClickCommand},
    {"dblclick", "NAME [ROW COL]", 1, 3, Tail::Word, Phase::Running, DblClickCommand},
    {"tick", "NAME", 1, 1, Tail::Word, Phase::Running, TickCommand},
    {"untick", "NAME", 1, 1, Tail::Word, Phase::Running, UntickCommand},
    {"scroll", "NAME VALUE", 2, 2, Tail::Word, Phase::Running, ScrollCommand},
    {"type", "NAME [TEXT]", 1, 2, Tail::Text, Phase::Running, TypeCommand},
    {"key", "NAME Enter|Escape", 2, 2, Tail::Word, Phase::Running, KeyCommand},
    {"leave", "NAME", 1, 1, Tail::Word, Phase::Running, LeaveCommand},
    {"close", "WINDOW", 1, 1, Tail::Word, Phase::Running, CloseCommand},

    {"answer", "yes|no ...", 1, Many, Tail::Word, Phase::Any, AnswerCommand},
    {"file", "PATH|cancel", 1, 1, Tail::Path, Phase::Any, FileCommand},
    {"at", "pump N COMMAND | at progress WINDOW N COMMAND", 1, 1, Tail::Text, Phase::Any, AtCommand},
    {"pump", "N", 1, 1, Tail::Word, Phase::Any, PumpCommand},
    {"wire", "FILE|off", 1, 1, Tail::Path, Phase::Any, WireCommand},
    {"mark", "TEXT", 1, 1, Tail::Text, Phase::Any, MarkCommand},

    {"get", "NAME", 1, 1, Tail::Word, Phase::Any, GetCommand},
    {"list", "NAME", 1, 1, Tail::Word, Phase::Any, ListCommand},
    {"rows", "NAME", 1, 1, Tail::Word, Phase::Any, RowsCommand},
    {"cell", "NAME ROW COL", 3, 3, Tail::Word, Phase::Any, CellCommand},
    {"color", "NAME [ROW COL]", 1, 3, Tail::Word, Phase::Any, ColorCommand},
    {"enabled", "NAME", 1, 1, Tail::Word, Phase::Any, EnabledCommand},
    {"visible", "NAME", 1, 1, Tail::Word, Phase::Any, VisibleCommand},
    {"windows", "", 0, 0, Tail::Word, Phase::Any, WindowsCommand},
    {"messages", "", 0, 0, Tail::Word, Phase::Any, MessagesCommand},
    {"var", "NAME", 1, 1, Tail::Path, Phase::Any, VarCommand},
    {"time", "", 0, 0, Tail::Word, Phase::Any, TimeCommand},
};

}  // namespace

const Command* FindCommand(std::string_view name) {
  const auto* found = std::find_if(std::begin(CommandTable), std::end(CommandTable),
                                   [name](const Command& command) { return command.name == name; });
  return found == std::end(CommandTable) ? nullptr : found;
}

std::string Usage(const Command& command) {
  std::string usage = "usage: " + std::string(command.name);
  if (!command.arguments.empty()) usage += ' ' + std::string(command.arguments);
  return usage;
}

panel::Control* FindControl(std::string_view name) {
  const std::size_t point = name.find('.');
  if (point == std::string_view::npos) return panel::Form1.Find(name);
  const panel::Window* window = panel::FindWindow(name.substr(0, point));
  return window == nullptr ? nullptr : window->Find(name.substr(point + 1));
}

}  // namespace zelvo::bench
