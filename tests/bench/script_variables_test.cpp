// `var` knows every program-wide variable: the headers that declare them are held against its table.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "bench/variables.h"

namespace zelvo::test {
namespace {

std::string WithoutComments(const std::filesystem::path& path) {
  std::ifstream file(path);
  std::ostringstream text;
  for (std::string line; std::getline(file, line);) text << line.substr(0, line.find("//")) << '\n';
  return text.str();
}

/// What a declaration leaves of itself without template arguments, initialisers and array braces.
std::string Bare(std::string declaration) {
  for (const char* noise : {"<[^<>]*>", "<[^<>]*>", "=[^,;]*", "\\{[^{}]*\\}"}) {
    declaration = std::regex_replace(declaration, std::regex(noise), "");
  }
  return declaration;
}

/// The variables that a header declares. Their names begin with a capital; hooks and tools of the program do
/// not.
std::set<std::string> DeclaredIn(const std::filesystem::path& path) {
  std::set<std::string> names;
  const std::string text = WithoutComments(path);
  const std::regex declarations("(?:^|\n)inline ([^;()]*;|[^;()]*=[^;]*;|[^;()]*\\{[^;()]*\\};)");
  const std::regex name("([A-Za-z0-9_\\x80-\\xFF]+)\\s*[,;]");
  for (std::sregex_iterator it(text.begin(), text.end(), declarations), end; it != end; ++it) {
    const std::string declaration = (*it)[1];
    if (declaration.starts_with("constexpr")) continue;
    const std::string bare = Bare(declaration);
    for (std::sregex_iterator part(bare.begin(), bare.end(), name); part != end; ++part) {
      const std::string found = (*part)[1];
      if (found.front() < 'a' || found.front() > 'z') names.insert(found);
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
