// `var` knows every program-wide variable: the headers that declare them are held against its table.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <string_view>

#include "bench/variables.h"

namespace zelvo::test {
namespace {

std::string WithoutComments(const std::filesystem::path& path) {
  std::ifstream file(path);
  std::ostringstream text;
  for (std::string line; std::getline(file, line);) text << line.substr(0, line.find("//")) << '\n';
  return text.str();
}

/// A declaration without what stands in angle brackets and braces, and without initialisers.
std::string Bare(std::string_view declaration) {
  std::string bare;
  int depth = 0;
  bool initialiser = false;
  for (const char c : declaration) {
    if (c == '<' || c == '{') ++depth;
    if (c == '=') initialiser = true;
    if (depth == 0 && (c == ',' || c == ';')) initialiser = false;
    if (depth == 0 && !initialiser) bare += c == '\n' ? ' ' : c;
    if (c == '>' || c == '}') --depth;
  }
  return bare;
}

std::string LastWord(std::string_view text) {
  while (text.ends_with(' ')) text.remove_suffix(1);
  return std::string(text.substr(text.find_last_of(' ') + 1));
}

/// The variables that a header declares. Their names begin with a capital; hooks and tools of the program do
/// not.
std::set<std::string> DeclaredIn(const std::filesystem::path& path) {
  constexpr std::string_view Inline = "\ninline ";
  std::set<std::string> names;
  const std::string text = WithoutComments(path);
  for (std::size_t at = text.find(Inline); at != std::string::npos; at = text.find(Inline, at + 1)) {
    std::string bare = Bare(text.substr(at, text.find(';', at) + 1 - at));
    if (bare.find('(') != std::string::npos || bare.find("constexpr") != std::string::npos) continue;
    for (std::size_t end = 0; (end = bare.find_first_of(",;")) != std::string::npos; bare.erase(0, end + 1)) {
      const std::string name = LastWord(bare.substr(0, end));
      if (!name.empty() && (name.front() < 'a' || name.front() > 'z')) names.insert(name);
    }
  }
  return names;
}

TEST(ScriptVariables, EveryVariableOfTheProgramHasARow) {
  std::set<std::string> declared;
  for (const char* layer : {"link", "icsp", "devices", "image", "ops18", "opsmid", "ui"}) {
    const std::filesystem::path folder = std::filesystem::path(ZELVO_SOURCE_DIR) / "src" / layer;
    if (!std::filesystem::exists(folder)) continue;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
      if (file.path().extension() == ".h") declared.merge(DeclaredIn(file.path()));
    }
  }
  for (const char* known : {"PortBase", "VppClearMask", "ComVppInverted", "DetectedName", "ReadBackBytes",
                            "ConfigWord2Raw", "TablePointerL", "MainBuffer"}) {
    EXPECT_TRUE(declared.contains(known)) << known << " was not found in the headers";
  }

  std::set<std::string> rows;
  for (const bench::Variable& variable : bench::Variables()) rows.insert(std::string(variable.name));
  for (const std::string& name : declared) EXPECT_TRUE(rows.contains(name)) << name << " has no row";
  for (const std::string& name : rows) EXPECT_TRUE(declared.contains(name)) << name << " is declared nowhere";
}

}  // namespace
}  // namespace zelvo::test
