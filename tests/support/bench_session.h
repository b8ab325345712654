// The bench inside a test: commands go in, answer lines come out, and the wire log is at hand as lines.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/bench.h"

namespace zelvo::test {

using Lines = std::vector<std::string>;

/// The five settings files as a test wants to find them; a file without a text is missing. What stands here
/// fits the bench's default printer-port board, at a brisk speed.
struct Settings {
  std::optional<std::string> port = "&H378,LPT";
  std::optional<std::string> pins = "4,8,1,2,1";
  std::optional<std::string> invert = "0";
  std::optional<std::string> comInvert = "0";
  std::optional<std::string> speed = "1,0";
};

/// A folder of its own that goes with the object.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] std::string File(std::string_view name) const { return path_ + '/' + std::string(name); }
  void Write(std::string_view name, std::string_view content) const;
  /// Fails the test when there is no such file.
  [[nodiscard]] std::string Read(std::string_view name) const;
  void WriteSettings(const Settings& settings) const;

 private:
  std::string path_;
};

/// A bench with a folder of its own. Every test has a process of its own, and a process has one program to
/// run.
class BenchSession {
 public:
  explicit BenchSession(const Settings& settings = {});

  /// The answer lines of one command, with its `ok` or `error: ...` at the end. Lines of scripted commands
  /// that run inside it stand where they were printed.
  Lines Run(std::string_view command);
  /// Runs commands that have to answer `ok`.
  void Do(std::string_view command);
  void Do(std::initializer_list<std::string_view> commands);
  /// The answer lines of a command that has to answer `ok`, without their `| `.
  Lines Look(std::string_view command);
  /// The only answer line of such a command.
  std::string Ask(std::string_view command);
  /// The reason of a command that has to be refused; nothing must have been answered before it.
  std::string Refused(std::string_view command);

  [[nodiscard]] const TemporaryFolder& Folder() const { return folder_; }
  bench::Bench& TheBench() { return *bench_; }

  /// Begins a wire log; `EndWire` gives its lines.
  void BeginWire();
  Lines EndWire();
  /// The wire log of one command that has to answer `ok`.
  Lines WireOf(std::string_view command);

 private:
  TemporaryFolder folder_;
  Lines printed_;
  std::unique_ptr<bench::Bench> bench_;
};

/// The lines of a text, without their ends.
[[nodiscard]] Lines SplitLines(std::string_view text);

/// Success when both logs are equal; else the first line that differs, with its neighbours in both.
[[nodiscard]] testing::AssertionResult SameLog(const Lines& expected, const Lines& actual);

}  // namespace zelvo::test
