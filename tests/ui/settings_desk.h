// What the tests of the settings windows share: what a window's click leaves in the event lists and on the
// lines, a disk that takes nothing, and the program's next start.
#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>
#include <string_view>

#include "link/event_log.h"
#include "panel/window.h"
#include "support/bench_session.h"

namespace zelvo::test {

inline constexpr const char* FileFailure = "ok ok Ismeretlen Fájl hiba!";
/// The bench's clock stands there for as long as a settings window's work takes.
inline constexpr std::string_view Noon = ":  12:00:00";

inline Settings SerialPort(const char* inversions = "0") {
  Settings settings;
  settings.port = "&H3F8,COM";
  settings.comInvert = inversions;
  return settings;
}

/// The caption of a label, button, frame, tick box or radio button of a window; "(none)" for no such control.
inline std::string CaptionOf(const panel::Window& window, std::string_view name) {
  const panel::Control* control = window.Find(name);
  if (const auto* label = dynamic_cast<const panel::Label*>(control)) return label->Caption;
  if (const auto* button = dynamic_cast<const panel::CommandButton*>(control)) return button->Caption;
  if (const auto* box = dynamic_cast<const panel::CheckBox*>(control)) return box->Caption;
  return "(none)";
}

struct Captioned {
  const char* name;
  const char* caption;
};
inline void ExpectCaptions(const panel::Window& window, std::initializer_list<Captioned> controls) {
  for (const auto& [name, caption] : controls) EXPECT_EQ(CaptionOf(window, name), caption) << name;
}

/// An entry as it goes to both event lists, with one number.
inline Lines Entry(int number, std::string_view text) {
  const std::string line = std::to_string(number) + std::string(Noon) + std::string(text);
  return {"L List1 " + line, "L List4 " + line};
}

/// A log put together from pieces.
inline Lines Joined(std::initializer_list<Lines> pieces) {
  Lines all;
  for (const Lines& piece : pieces) all.insert(all.end(), piece.begin(), piece.end());
  return all;
}

/// Of a log what moves and reads lines, and the holds between.
inline Lines Traffic(const Lines& log) {
  Lines traffic;
  std::ranges::copy_if(log, std::back_inserter(traffic), [](const std::string& line) {
    return line[0] == 'R' || line[0] == 'W' || line[0] == 'D' || line[0] == 'S';
  });
  return traffic;
}

inline void ClickAll(BenchSession& session, std::string_view window,
                     std::initializer_list<std::string_view> commands) {
  for (const std::string_view command : commands) {
    const std::size_t blank = command.find(' ');
    session.Do(std::string(command.substr(0, blank + 1)) + std::string(window) + "." +
               std::string(command.substr(blank + 1)));
  }
}

/// The answers of a fresh start of the program in the folder of the last one, without their `| ` and `ok`.
inline Lines Restarted(const TemporaryFolder& folder, const Lines& commands) {
  TemporaryFolder desk;
  std::string script;
  for (const std::string& command : commands) script += command + "\n";
  desk.Write("script", script);
  const std::string call = std::string(ZELVO_BENCH_PATH) + " --folder '" + folder.Path() + "' --script '" +
                           desk.File("script") + "'";
  FILE* program = ::popen(call.c_str(), "r");
  std::string printed;
  for (int c = 0; program != nullptr && (c = std::fgetc(program)) != EOF;) printed += static_cast<char>(c);
  EXPECT_EQ(program != nullptr ? ::pclose(program) : -1, 0) << printed;
  Lines answers;
  for (const std::string& line : SplitLines(printed)) {
    if (line.starts_with("| ")) answers.push_back(line.substr(2));
  }
  return answers;
}

/// The wire log of `commands` behind a fresh start on the board that `board` puts there.
inline Lines RestartedWire(const TemporaryFolder& folder, const std::string& board, const Lines& commands) {
  TemporaryFolder desk;
  static_cast<void>(Restarted(
      folder, Joined({{board, "start", "tab 2", "wire " + desk.File("wire")}, commands, {"wire off"}})));
  return SplitLines(desk.Read("wire"));
}

/// Runs `act` on a disk that takes not a byte more.
template <class Act>
void OnAFullDisk(const Act& act) {
  const auto limit = [](rlim_t bytes) {
    const rlimit files{bytes, RLIM_INFINITY};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &files), 0);
  };
  std::signal(SIGXFSZ, SIG_IGN);
  limit(0);
  act();
  limit(RLIM_INFINITY);
}

/// Runs `act` as somebody who may not write into the folder; the superuser writes anywhere.
template <class Act>
void InAReadOnlyFolder(const TemporaryFolder& folder, const Act& act) {
  namespace fs = std::filesystem;
  constexpr uid_t Nobody = 65534;
  fs::permissions(folder.Path(), fs::perms{0555});
  const bool root = ::geteuid() == 0;
  ASSERT_EQ(root ? ::seteuid(Nobody) : 0, 0);
  act();
  ASSERT_EQ(root ? ::seteuid(0) : 0, 0);
  fs::permissions(folder.Path(), fs::perms{0755});
}

inline long EntriesOf(const TemporaryFolder& folder) {
  namespace fs = std::filesystem;
  return std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator());
}

/// `first` on a full disk and `second` in a read-only folder are told, and leave the old file whole and
/// nothing beside it.
inline void ExpectRefusedWrites(BenchSession& session, const char* file, std::string_view first,
                                std::string_view second) {
  const std::string before = session.Folder().Read(file);
  const long entries = EntriesOf(session.Folder());
  OnAFullDisk([&] { session.Do(first); });
  EXPECT_EQ(session.Look("messages"), Lines{FileFailure}) << "full: " << first;
  EXPECT_EQ(session.Folder().Read(file), before) << first;
  InAReadOnlyFolder(session.Folder(), [&] { session.Do(second); });
  EXPECT_EQ(session.Look("messages"), Lines{FileFailure}) << "read-only: " << second;
  EXPECT_EQ(session.Folder().Read(file), before) << second;
  EXPECT_EQ(EntriesOf(session.Folder()), entries);
}

/// Kills the program at some time while `act` writes the file over and over: it holds one of the `whole`
/// contents.
template <class Act>
void ExpectWholeAfterAKill(const TemporaryFolder& folder, const char* file, const Lines& whole,
                           const Act& act) {
  for (int round = 0; round < 8; ++round) {
    const pid_t child = ::fork();
    if (child == 0) {
      while (true) act();
    }
    ::usleep(static_cast<useconds_t>(1000 + 377 * round));
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    const std::string content = folder.Read(file);
    EXPECT_NE(std::ranges::find(whole, content), whole.end()) << "round " << round << ": " << content;
  }
}

/// Who had the file open before `act` still reads all of the old one: it was replaced and not written over.
template <class Act>
void ExpectReplacedAsAWhole(const TemporaryFolder& folder, const char* file, const Act& act) {
  const std::string before = folder.Read(file);
  std::ifstream open(folder.File(file), std::ios::binary);
  act();
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(open), {}), before);
  EXPECT_NE(folder.Read(file), before);
}

}  // namespace zelvo::test
