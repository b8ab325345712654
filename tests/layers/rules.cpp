#include "layers/rules.h"

#include <algorithm>
#include <array>
#include <map>
#include <regex>
#include <sstream>
#include <string_view>

namespace zelvo::layers {
namespace {

/// Height of each folder. A file includes its own folder and lower ones; folders of one height stand apart.
const std::map<std::string, int> Heights = {
    {"platform", 0}, {"panel", 1}, {"link", 2},  {"icsp", 3},  {"devices", 4}, {"image", 5}, {"ops18", 6},
    {"opsmid", 6},   {"ui", 7},    {"bench", 8}, {"linux", 8}, {"qt", 8},      {"apps", 9},
};

/// The simulated hardware is the judge of the protocol, so it takes nothing from what it judges.
const std::array<std::string_view, 6> JudgedFolders = {"link", "icsp", "devices", "image", "ops18", "opsmid"};
const std::regex SimulatedHardware(
    "^bench/(pic18_|midrange_|mid_range_|serial_chip|chip|socket)[a-z0-9_]*\\.(h|cpp)$|^bench/"
    "(board|[a-z]+_board)\\.(h|cpp)$");

const std::regex SystemHeader(
    "^(sys/.*|linux/.*|asm/.*|netinet/.*|unistd\\.h|fcntl\\.h|termios\\.h|poll\\.h|dirent\\.h|dlfcn\\.h|"
    "pthread\\.h|sched\\.h|signal\\.h|spawn\\.h|glob\\.h)$");
const std::regex QtHeader("^(Q[A-Za-z0-9]*|Qt[A-Za-z0-9]*/.*|q[a-z]+\\.h)$");

/// Files of tables, a row for each chip, group or bit name: as long as the catalogue is.
const std::regex TableFile("(catalogue|masks|table|tables|scripts|names|rows|_data)\\.(h|cpp)$");
constexpr int LongestFile = 450;

std::string FolderOf(const std::string& path) {
  return path.substr(0, path.find('/'));
}

bool StartsWithFolder(const std::string& path, std::string_view folder) {
  return path.starts_with(folder) && path.size() > folder.size() && path[folder.size()] == '/';
}

std::string WrongQuotedInclude(const std::string& path, const std::string& included) {
  if (included.starts_with("moc_") || included.ends_with(".moc")) return {};
  const auto own = Heights.find(FolderOf(path));
  const auto other = Heights.find(FolderOf(included));
  if (other == Heights.end() || included.find('/') == std::string::npos) {
    return "not written from src/ downwards";
  }
  if (own == Heights.end()) return "the file's own folder has no place in the house";
  if (own->first != other->first && own->second <= other->second) return "points upwards or sideways";
  const bool judged = std::ranges::find(JudgedFolders, other->first) != JudgedFolders.end();
  if (judged && std::regex_match(path, SimulatedHardware)) return "simulated hardware looks at its judged";
  return {};
}

std::string WrongSystemInclude(const std::string& path, const std::string& included) {
  const bool desktop = StartsWithFolder(path, "qt") || StartsWithFolder(path, "apps");
  if (std::regex_match(included, QtHeader) && !desktop) return "Qt belongs into qt/ and apps/";
  const bool bound = desktop || StartsWithFolder(path, "linux") || path == "platform/files.cpp";
  if (std::regex_match(included, SystemHeader) && !bound) return "the operating system belongs into linux/";
  return {};
}

}  // namespace

std::vector<std::string> WrongIncludes(const std::string& path, const std::string& text) {
  static const std::regex include("^\\s*#\\s*include\\s*([<\"])([^>\"]+)[>\"].*$");
  std::vector<std::string> wrong;
  std::istringstream lines(text);
  int number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    std::smatch found;
    if (!std::regex_match(line, found, include)) continue;
    const std::string included = found[2];
    const std::string reason =
        found[1] == "<" ? WrongSystemInclude(path, included) : WrongQuotedInclude(path, included);
    if (!reason.empty()) {
      wrong.push_back("src/" + path + ":" + std::to_string(number) + ": " + included + ": " + reason);
    }
  }
  return wrong;
}

std::vector<std::string> ForeignPhrases(const std::string& path, const std::string& text) {
  // Written in pieces, so that this file does not complain about itself.
  static const std::regex phrase(
      "\\bPar"
      "ts? [0-9]+\\b|\\bthe sp"
      "ec\\b|\\bthe spec"
      "ification\\b|\\bas spec"
      "ified\\b|"
      "\\bissue"
      " #?[0-9]|/wo"
      "rk/|/fa"
      "rm/");
  std::vector<std::string> found;
  std::istringstream lines(text);
  int number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    std::smatch match;
    if (std::regex_search(line, match, phrase)) {
      found.push_back(path + ":" + std::to_string(number) + ": \"" + match.str() + "\"");
    }
  }
  return found;
}

std::vector<std::string> TooLong(const std::string& path, const std::string& text) {
  const auto lines = std::ranges::count(text, '\n');
  if (lines < LongestFile || std::regex_search(path, TableFile)) return {};
  return {"src/" + path + ": " + std::to_string(lines) + " lines, the limit is " +
          std::to_string(LongestFile)};
}

}  // namespace zelvo::layers
