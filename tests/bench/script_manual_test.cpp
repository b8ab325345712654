// The session that the manual shows does what the manual says.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/bench_session.h"

namespace zelvo::test {
namespace {

/// The indented blocks of a document, without their indentation.
std::vector<Lines> Blocks(const std::filesystem::path& path) {
  std::ifstream file(path);
  std::ostringstream content;
  content << file.rdbuf();
  std::vector<Lines> blocks(1);
  for (const std::string& line : SplitLines(content.str())) {
    if (line.starts_with("    ")) {
      blocks.back().push_back(line.substr(4));
    } else if (!blocks.back().empty()) {
      blocks.emplace_back();
    }
  }
  return blocks;
}

TEST(ScriptManual, TheSessionPrintsWhatTheManualShows) {
  const std::filesystem::path source = ZELVO_SOURCE_DIR;
  const std::vector<Lines> blocks = Blocks(source / "docs/bench.md");
  const auto script = std::find_if(blocks.begin(), blocks.end(), [](const Lines& block) {
    return block.size() > 1 && block[0].starts_with("# ");
  });
  const auto shown = std::find_if(blocks.begin(), blocks.end(), [](const Lines& block) {
    return !block.empty() && block[0] == "| MDIForm1";
  });
  const auto log = std::find_if(blocks.begin(), blocks.end(), [](const Lines& block) {
    return !block.empty() && block[0].starts_with("R 0378");
  });
  ASSERT_TRUE(script != blocks.end() && shown != blocks.end() && log != blocks.end());

  BenchSession session;
  for (const auto& file : std::filesystem::directory_iterator(source / "settings")) {
    std::filesystem::copy(file, session.Folder().Path(), std::filesystem::copy_options::overwrite_existing);
  }
  Lines printed;
  for (std::string command : *script) {
    if (command.starts_with("burn ")) command.insert(5, source.string() + '/');
    if (command == "wire read.wire") command = "wire " + session.Folder().File("read.wire");
    const Lines answer = session.Run(command);
    printed.insert(printed.end(), answer.begin(), answer.end());
  }
  ASSERT_GE(printed.size(), shown->size());
  EXPECT_TRUE(
      SameLog(*shown, Lines(printed.end() - static_cast<std::ptrdiff_t>(shown->size()), printed.end())));

  const Lines wire = SplitLines(session.Folder().Read("read.wire"));
  auto place = wire.begin();
  for (const std::string& line : *log) {
    if (line == "...") continue;
    place = std::find(place, wire.end(), line);
    ASSERT_NE(place, wire.end()) << line << " does not stand in the log at its place";
    ++place;
  }
}

}  // namespace
}  // namespace zelvo::test
