// The house as it is drawn in docs/architecture.md: who may include whom, and what a file may not hold.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "layers/rules.h"

namespace zelvo::layers {
namespace {

namespace fs = std::filesystem;

const fs::path Root = ZELVO_SOURCE_DIR;

std::string Text(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

bool IsSource(const fs::path& path) {
  return path.extension() == ".h" || path.extension() == ".cpp";
}

/// Runs a rule over the sources of src/ and joins its complaints.
std::string ComplaintsAboutSources(
    const std::function<std::vector<std::string>(const std::string&, const std::string&)>& rule) {
  std::string all;
  int files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(Root / "src")) {
    if (!entry.is_regular_file() || !IsSource(entry.path())) continue;
    ++files;
    const std::string path = fs::relative(entry.path(), Root / "src").generic_string();
    for (const std::string& complaint : rule(path, Text(entry.path()))) all += complaint + "\n";
  }
  EXPECT_GT(files, 10) << "the sources were not found under " << Root;
  return all;
}

TEST(Layers, NoIncludePointsUpwards) {
  EXPECT_EQ(ComplaintsAboutSources(WrongIncludes), "");
}

TEST(Layers, NoSourceFileIsTooLongToBeRead) {
  EXPECT_EQ(ComplaintsAboutSources(TooLong), "");
}

TEST(Layers, TheProductSpeaksForItself) {
  std::string all;
  for (const char* folder :
       {"src", "tests", "bench", "docs", "examples", "scripts", "settings", ".ci", "README.md", "run",
        "check", "packages.txt", "CMakeLists.txt", "CMakePresets.json"}) {
    const auto look = [&](const fs::path& path) {
      const std::string name = fs::relative(path, Root).generic_string();
      if (path.extension() == ".png") return;
      for (const std::string& complaint : ForeignPhrases(name, Text(path))) all += complaint + "\n";
    };
    if (fs::is_regular_file(Root / folder)) look(Root / folder);
    if (!fs::is_directory(Root / folder)) continue;
    for (const auto& entry : fs::recursive_directory_iterator(Root / folder)) {
      if (entry.is_regular_file()) look(entry.path());
    }
  }
  EXPECT_EQ(all, "");
}

// The rules prove themselves on seeded examples: a rule that lets these pass would let anything pass.

TEST(LayerRules, AnUpwardIncludeIsFound) {
  const auto wrong = WrongIncludes("link/port.cpp", "#include <string>\n#include \"icsp/pic18_engine.h\"\n");
  ASSERT_EQ(wrong.size(), 1U);
  EXPECT_EQ(wrong[0], "src/link/port.cpp:2: icsp/pic18_engine.h: points upwards or sideways");
}

TEST(LayerRules, ASidewaysIncludeIsFound) {
  EXPECT_EQ(WrongIncludes("ops18/erase.cpp", "#include \"opsmid/erase.h\"\n").size(), 1U);
  EXPECT_EQ(WrongIncludes("qt/desktop.cpp", "#include \"linux/ports.h\"\n").size(), 1U);
  EXPECT_EQ(WrongIncludes("bench/session.cpp", "  #  include \"qt/desktop.h\"  // why\n").size(), 1U);
}

TEST(LayerRules, DownwardAndOwnIncludesPass) {
  EXPECT_TRUE(WrongIncludes("apps/main.cpp", "#include \"qt/a.h\"\n#include \"bench/b.h\"\n").empty());
  EXPECT_TRUE(WrongIncludes("ops18/erase.cpp", "#include \"ops18/erase.h\"\n").empty());
  EXPECT_TRUE(WrongIncludes("ui/main.cpp", "#include \"platform/seams.h\"\n#include <vector>\n").empty());
}

TEST(LayerRules, AnIncludeByBareOrUnknownNameIsFound) {
  EXPECT_EQ(WrongIncludes("ui/main.cpp", "#include \"main.h\"\n").size(), 1U);
  EXPECT_EQ(WrongIncludes("ui/main.cpp", "#include \"../panel/form1.h\"\n").size(), 1U);
  EXPECT_EQ(WrongIncludes("attic/main.cpp", "#include \"panel/form1.h\"\n").size(), 1U);
}

TEST(LayerRules, QtOutsideTheDesktopIsFound) {
  EXPECT_EQ(WrongIncludes("ui/main.cpp", "#include <QString>\n").size(), 1U);
  EXPECT_EQ(WrongIncludes("bench/main.cpp", "#include <QtCore/qglobal.h>\n").size(), 1U);
  EXPECT_TRUE(WrongIncludes("qt/view.cpp", "#include <QString>\n").empty());
}

TEST(LayerRules, TheOperatingSystemOutsideItsFolderIsFound) {
  EXPECT_EQ(WrongIncludes("link/port.cpp", "#include <sys/io.h>\n").size(), 1U);
  EXPECT_EQ(WrongIncludes("platform/seams.h", "#include <unistd.h>\n").size(), 1U);
  EXPECT_TRUE(WrongIncludes("platform/files.cpp", "#include <unistd.h>\n").empty());
  EXPECT_TRUE(WrongIncludes("linux/port.cpp", "#include <linux/ppdev.h>\n").empty());
}

TEST(LayerRules, TheSimulatedChipMayNotLookAtTheProtocol) {
  EXPECT_EQ(WrongIncludes("bench/pic18_core.cpp", "#include \"icsp/scripts.h\"\n").size(), 1U);
  EXPECT_EQ(WrongIncludes("bench/board.h", "#include \"link/lines.h\"\n").size(), 1U);
  EXPECT_TRUE(WrongIncludes("bench/board_commands.cpp", "#include \"link/lines.h\"\n").empty());
}

TEST(LayerRules, APlanningPhraseIsFound) {
  EXPECT_EQ(ForeignPhrases("a.h", std::string("// see Pa") + "rt 5.2\n").size(), 1U);
  EXPECT_EQ(ForeignPhrases("a.h", std::string("// done for iss") + "ue 2\n").size(), 1U);
  EXPECT_TRUE(ForeignPhrases("a.h", "// the chip's programming specification, table 4-2\n").empty());
}

TEST(LayerRules, AnOverlongFileIsFoundAndATableIsNot) {
  const std::string text(500, '\n');
  EXPECT_EQ(TooLong("ui/main.cpp", text).size(), 1U);
  EXPECT_TRUE(TooLong("devices/catalogue.h", text).empty());
}

}  // namespace
}  // namespace zelvo::layers
