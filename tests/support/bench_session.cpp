#include "support/bench_session.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

#include "platform/seams.h"

namespace zelvo::test {

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "zelvo-test-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) std::abort();
  path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void TemporaryFolder::Write(std::string_view name, std::string_view content) const {
  std::ofstream(File(name), std::ios::binary) << content;
}

std::string TemporaryFolder::Read(std::string_view name) const {
  std::ifstream file(File(name), std::ios::binary);
  EXPECT_TRUE(file) << "no file " << name;
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

void TemporaryFolder::WriteSettings(const Settings& settings) const {
  const std::pair<const char*, const std::optional<std::string>&> files[] = {
      {"port.ini", settings.port},     {"LPT_Kiosztas.ini", settings.pins},
      {"invert.ini", settings.invert}, {"invert_com.ini", settings.comInvert},
      {"speed.ini", settings.speed},
  };
  for (const auto& [name, content] : files) {
    if (content) Write(name, *content + "\r\n");
  }
}

BenchSession::BenchSession(const Settings& settings) {
  folder_.WriteSettings(settings);
  platform::programFolder = folder_.Path();
  bench_ = std::make_unique<bench::Bench>([this](std::string_view line) { printed_.emplace_back(line); });
}

Lines BenchSession::Run(std::string_view command) {
  printed_.clear();
  bench_->Run(command);
  return std::exchange(printed_, {});
}

Lines BenchSession::Look(std::string_view command) {
  Lines lines = Run(command);
  if (lines.empty() || lines.back() != "ok") {
    ADD_FAILURE() << command << " answered " << (lines.empty() ? "nothing" : lines.back());
    return {};
  }
  lines.pop_back();
  for (std::string& line : lines) {
    if (line.starts_with("| ")) line.erase(0, 2);
  }
  return lines;
}

void BenchSession::Do(std::string_view command) {
  static_cast<void>(Look(command));
}

void BenchSession::Do(std::initializer_list<std::string_view> commands) {
  for (const std::string_view command : commands) Do(command);
}

std::string BenchSession::Ask(std::string_view command) {
  const Lines lines = Look(command);
  EXPECT_EQ(lines.size(), 1u) << command;
  return lines.empty() ? "" : lines.front();
}

std::string BenchSession::Refused(std::string_view command) {
  constexpr std::string_view Error = "error: ";
  const Lines lines = Run(command);
  if (lines.size() != 1 || !lines[0].starts_with(Error)) {
    ADD_FAILURE() << command << " answered " << (lines.empty() ? "nothing" : lines.back());
    return "";
  }
  return lines[0].substr(Error.size());
}

void BenchSession::BeginWire() {
  Do("wire " + folder_.File("session.wire"));
}

Lines BenchSession::EndWire() {
  Do("wire off");
  return SplitLines(folder_.Read("session.wire"));
}

Lines BenchSession::WireOf(std::string_view command) {
  BeginWire();
  Do(command);
  return EndWire();
}

Lines SplitLines(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.emplace_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

testing::AssertionResult SameLog(const Lines& expected, const Lines& actual) {
  const auto [differs, ignored] =
      std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
  const auto at = static_cast<std::size_t>(differs - expected.begin());
  if (at == expected.size() && at == actual.size()) return testing::AssertionSuccess();

  constexpr std::size_t Neighbours = 4;
  auto failure = testing::AssertionFailure();
  failure << "line " << at + 1 << " of " << expected.size() << " expected and " << actual.size()
          << " actual lines";
  const auto show = [&](const char* title, const Lines& lines) {
    failure << '\n' << title;
    const std::size_t first = at < Neighbours ? 0 : at - Neighbours;
    for (std::size_t i = first; i < lines.size() && i <= at + Neighbours; ++i) {
      failure << '\n' << (i == at ? "> " : "  ") << lines[i];
    }
    if (at >= lines.size()) failure << "\n> (end)";
  };
  show("expected:", expected);
  show("actual:", actual);
  return failure;
}

}  // namespace zelvo::test
