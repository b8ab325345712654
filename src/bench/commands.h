// The commands of a script as a table: name, arguments, when they are allowed, and the procedure.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::panel {
class Control;
}

namespace zelvo::bench {

class Bench;

/// One command on its way: what it was given and what it answers.
struct Call {
  Bench& bench;
  std::vector<std::string_view> words;  ///< the arguments
  std::vector<std::string> answers;     ///< printed when the command is not refused
};

/// Why a command did nothing; nothing when it did its work.
using Refusal = std::optional<std::string>;

enum class Phase {
  Any,
  Running  ///< between `start` and the end of the program
};

/// How far the last argument of a command reaches.
enum class Tail {
  Word,  ///< one word
  Path,  ///< to the end of the line, without the blanks around it
  Text   ///< to the end of the line, from behind one blank, with all further blanks
};

struct Command {
  std::string_view name;
  std::string_view arguments;  ///< as told to a user who gave others
  std::size_t least, most;     ///< number of arguments
  Tail tail;                   ///< of the last of `most` arguments
  Phase phase;
  Refusal (*run)(Call&);
};

/// Number of arguments without a limit.
inline constexpr std::size_t Many = 100000;

/// Nullptr for an unknown name.
[[nodiscard]] const Command* FindCommand(std::string_view name);
/// The refusal of a command that was given other arguments than it takes.
[[nodiscard]] std::string Usage(const Command& command);

/// A control of `Form1` by its name, or one of another window as `WINDOW.CONTROL`; nullptr when there is
/// none.
[[nodiscard]] panel::Control* FindControl(std::string_view name);

// The board and its socket.
Refusal BoardCommand(Call& call);
Refusal SocketCommand(Call& call);
Refusal BurnCommand(Call& call);
Refusal DumpCommand(Call& call);
Refusal TimingCommand(Call& call);

// The operator.
Refusal StartCommand(Call& call);
Refusal StopCommand(Call& call);
Refusal TabCommand(Call& call);
Refusal ChooseCommand(Call& call);
Refusal ClickCommand(Call& call);
Refusal DblClickCommand(Call& call);
Refusal TickCommand(Call& call);
Refusal UntickCommand(Call& call);
Refusal ScrollCommand(Call& call);
Refusal TypeCommand(Call& call);
Refusal KeyCommand(Call& call);
Refusal LeaveCommand(Call& call);
Refusal CloseCommand(Call& call);

// The course of a script.
Refusal AnswerCommand(Call& call);
Refusal FileCommand(Call& call);
Refusal AtCommand(Call& call);
Refusal PumpCommand(Call& call);
Refusal WireCommand(Call& call);
Refusal MarkCommand(Call& call);

// Looking.
Refusal GetCommand(Call& call);
Refusal ListCommand(Call& call);
Refusal RowsCommand(Call& call);
Refusal CellCommand(Call& call);
Refusal ColorCommand(Call& call);
Refusal EnabledCommand(Call& call);
Refusal VisibleCommand(Call& call);
Refusal WindowsCommand(Call& call);
Refusal MessagesCommand(Call& call);
Refusal VarCommand(Call& call);
Refusal TimeCommand(Call& call);

}  // namespace zelvo::bench
