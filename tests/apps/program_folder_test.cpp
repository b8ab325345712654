// Where the settings of a window program live.
#include "apps/program_folder.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace zelvo::test {
namespace {

namespace fs = std::filesystem;

const char* const SettingsFiles[] = {"port.ini", "LPT_Kiosztas.ini", "invert.ini", "invert_com.ini",
                                     "speed.ini"};

std::string ContentOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

/// A machine of its own: a home, and a place for the program.
class ProgramFolders : public testing::Test {
 protected:
  void SetUp() override {
    char name[] = "/tmp/zelvo-folder-XXXXXX";
    ASSERT_NE(::mkdtemp(name), nullptr);
    root = name;
    fs::create_directories(root / "home");
    ::setenv("XDG_CONFIG_HOME", (root / "home/config").c_str(), 1);
    QCoreApplication::setApplicationName(QStringLiteral("zelvo"));
  }
  void TearDown() override { fs::remove_all(root); }

  /// An installation as the package makes it, with settings that no other place has.
  fs::path Install() {
    fs::create_directories(root / "usr/bin");
    ShipSettings(root / "usr/share/zelvo/settings");
    return root / "usr/bin";
  }
  static void ShipSettings(const fs::path& folder) {
    fs::create_directories(folder);
    for (const char* file : SettingsFiles) std::ofstream(folder / file) << "shipped " << file << "\r\n";
  }
  /// Nothing is write-protected for root. The process is this test's own.
  void StopBeingRoot() const {
    if (::geteuid() != 0) return;
    constexpr uid_t Nobody = 65534;
    ASSERT_EQ(::chown(root.c_str(), Nobody, Nobody), 0);
    for (const auto& entry : fs::recursive_directory_iterator(root))
      ASSERT_EQ(::chown(entry.path().c_str(), Nobody, Nobody), 0);
    ASSERT_EQ(::setgid(Nobody), 0);
    ASSERT_EQ(::setuid(Nobody), 0);
  }
  static std::string FolderFor(const fs::path& executables, const std::string& asked = "") {
    return desktop::ProgramFolder(QString::fromStdString(asked), QString::fromStdString(executables))
        .toStdString();
  }

  fs::path root;
};

TEST_F(ProgramFolders, TheFolderOfTheExecutableIsTheProgramsWhenItCanBeWritten) {
  ShipSettings(root / "zelvo/settings");
  EXPECT_EQ(FolderFor(root / "zelvo"), root / "zelvo");
  for (const char* file : SettingsFiles)
    EXPECT_EQ(ContentOf(root / "zelvo" / file), std::string("shipped ") + file + "\r\n");
  EXPECT_FALSE(fs::exists(root / "home/config"));
}

TEST_F(ProgramFolders, AnInstalledProgramKeepsItsSettingsInTheUsersConfigurationFolder) {
  const fs::path own = root / "home/config/zelvo";
  EXPECT_EQ(FolderFor(Install()), own);
  for (const char* file : SettingsFiles)
    EXPECT_EQ(ContentOf(own / file), std::string("shipped ") + file + "\r\n");
  EXPECT_TRUE(fs::is_empty(root / "usr/bin")) << "root may write there, and must not";
}

TEST_F(ProgramFolders, AFolderThatCannotBeWrittenIsLeftForTheUsersConfigurationFolder) {
  ShipSettings(root / "zelvo/settings");
  StopBeingRoot();
  ASSERT_EQ(::chmod((root / "zelvo").c_str(), 0555), 0);
  EXPECT_EQ(FolderFor(root / "zelvo"), root / "home/config/zelvo");
  EXPECT_EQ(::chmod((root / "zelvo").c_str(), 0755), 0);
}

TEST_F(ProgramFolders, SettingsThatAreThereStayAsTheOperatorLeftThem) {
  const fs::path own = root / "home/config/zelvo";
  fs::create_directories(own);
  std::ofstream(own / "port.ini") << "&H278,LPT\r\n";
  EXPECT_EQ(FolderFor(Install()), own);
  EXPECT_EQ(ContentOf(own / "port.ini"), "&H278,LPT\r\n");
  EXPECT_FALSE(fs::exists(own / "speed.ini")) << "a file that is missing among others is told by the program";
}

TEST_F(ProgramFolders, ShippedFilesThatAreWriteProtectedBecomeCopiesThatAreNot) {
  const fs::path executables = Install();
  for (const char* file : SettingsFiles)
    ASSERT_EQ(::chmod((root / "usr/share/zelvo/settings" / file).c_str(), 0444), 0);
  const fs::path own = FolderFor(executables);
  struct stat status {};
  ASSERT_EQ(::stat((own / "port.ini").c_str(), &status), 0);
  EXPECT_NE(status.st_mode & S_IWUSR, 0U);
}

TEST_F(ProgramFolders, AFolderThatIsAskedForIsMadeAndNotFilled) {
  const std::string asked = root / "deep/er";
  EXPECT_EQ(FolderFor(Install(), asked), asked);
  EXPECT_TRUE(fs::is_empty(asked));
}

TEST_F(ProgramFolders, AFolderThatCannotBeMadeIsNoFolder) {
  std::ofstream(root / "file") << "in the way";
  EXPECT_EQ(FolderFor(Install(), root / "file/folder"), "");
}

}  // namespace
}  // namespace zelvo::test
