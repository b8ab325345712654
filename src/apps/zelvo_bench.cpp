// zelvo-bench: the whole program without a screen, on a simulated board, driven by a script.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "bench/bench.h"
#include "platform/seams.h"

namespace {

constexpr const char* Usage = "usage: zelvo-bench --folder DIR [--script FILE] [--wire FILE] [--vcd FILE]\n";
enum ExitStatus { AllOk = 0, SomeRefused = 1, BadOptions = 2 };

struct Options {
  std::optional<std::string> folder, script, wire, vcd;
};

int Fail(const std::string& reason) {
  std::cerr << "zelvo-bench: " << reason << '\n';
  return BadOptions;
}

/// Where the value of an option goes; nullptr for an option that does not exist.
std::optional<std::string>* Place(Options& options, std::string_view name) {
  if (name == "--folder") return &options.folder;
  if (name == "--script") return &options.script;
  if (name == "--wire") return &options.wire;
  if (name == "--vcd") return &options.vcd;
  return nullptr;
}

/// Nothing when an option is unknown, lacks its value, or the folder is not named.
std::optional<Options> ReadOptions(int count, char** words) {
  Options options;
  for (int i = 1; i < count; ++i) {
    const std::string_view word = words[i];
    const std::size_t equals = word.find('=');
    std::optional<std::string>* place = Place(options, word.substr(0, equals));
    if (place == nullptr) return std::nullopt;
    if (equals != std::string_view::npos) {
      *place = word.substr(equals + 1);
    } else if (++i < count) {
      *place = words[i];
    } else {
      return std::nullopt;
    }
  }
  if (!options.folder) return std::nullopt;
  return options;
}

bool IsFolder(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_directory(path, ignored);
}

std::string WithoutEndSlash(std::string folder) {
  while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  return folder;
}

void PrintLine(std::string_view line) {
  std::fwrite(line.data(), 1, line.size(), stdout);
  std::fputc('\n', stdout);
}

void RunScript(zelvo::bench::Bench& bench, std::istream& script) {
  constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
  bool first = true;
  for (std::string line; std::getline(script, line); first = false) {
    std::string_view command = line;
    if (first && command.starts_with(ByteOrderMark)) command.remove_prefix(ByteOrderMark.size());
    bench.Run(command);
    // Whoever sits at the other end of a pipe waits for the answer and then may look at the files.
    if (&script == &std::cin) bench.machine.FlushRecords();
    std::fflush(stdout);
  }
}

int Run(const Options& options) {
  zelvo::platform::programFolder = WithoutEndSlash(*options.folder);

  std::ifstream file;
  if (options.script) {
    file.open(*options.script);
    if (!file || IsFolder(*options.script)) return Fail("cannot read " + *options.script);
  }
  zelvo::bench::Bench bench(PrintLine);
  if (options.wire && !bench.machine.BeginWire(*options.wire)) return Fail("cannot write " + *options.wire);
  if (options.vcd && !bench.machine.BeginVcd(*options.vcd)) return Fail("cannot write " + *options.vcd);

  RunScript(bench, options.script ? file : std::cin);

  const bool wireWhole = bench.machine.EndWire();
  const bool vcdWhole = bench.machine.EndVcd();
  if (!wireWhole || !vcdWhole) {
    std::cerr << "zelvo-bench: a record could not be written to its end\n";
    return SomeRefused;
  }
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    std::cerr << "zelvo-bench: the answers could not be written to their end\n";
    return SomeRefused;
  }
  return bench.AllOk() ? AllOk : SomeRefused;
}

}  // namespace

int main(int count, char** words) {
  std::ios::sync_with_stdio(false);
  if (count == 2 && std::string_view(words[1]) == "--help") {
    std::cout << Usage;
    return AllOk;
  }
  const std::optional<Options> options = ReadOptions(count, words);
  if (!options) {
    std::cerr << Usage;
    return BadOptions;
  }
  return Run(*options);
}
