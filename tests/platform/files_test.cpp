// Whole-file reads, and writes that leave the old or the new file but never half of one.
#include "platform/files.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using platform::ReadWholeFile;
using platform::ReplaceFile;
namespace fs = std::filesystem;

class Files : public testing::Test {
 protected:
  /// Number of entries of the folder, a temporary file that was left behind included.
  [[nodiscard]] long Entries() const {
    return std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator());
  }
  TemporaryFolder folder;
  const std::string path = folder.File("speed.ini");
};

TEST_F(Files, AReadGivesEveryByteAsItStands) {
  const std::string content("a\r\nb\n\0\xFF\x1A c", 10);
  folder.Write("speed.ini", content);
  EXPECT_EQ(ReadWholeFile(path), content);
  folder.Write("speed.ini", "");
  EXPECT_EQ(ReadWholeFile(path), "");
}

TEST_F(Files, WhatIsNoReadableFileGivesNothing) {
  EXPECT_EQ(ReadWholeFile(path), std::nullopt) << "missing";
  EXPECT_EQ(ReadWholeFile(folder.Path()), std::nullopt) << "a directory";
  EXPECT_EQ(ReadWholeFile(""), std::nullopt);
  EXPECT_EQ(ReadWholeFile("/dev/null"), std::nullopt) << "a device";
  fs::create_symlink("nowhere", path);
  EXPECT_EQ(ReadWholeFile(path), std::nullopt) << "a dangling link";
}

TEST_F(Files, APipeInAFilesPlaceDoesNotStopTheProgram) {
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(ReadWholeFile(path), std::nullopt);
}

TEST_F(Files, AFileLargerThanTheMemoryAtHandGivesNothing) {
  std::ofstream(path).close();
  // A hole of four exabytes; where the file system takes no such length, of as much as it takes.
  std::error_code refused;
  for (std::uintmax_t size = std::uintmax_t{1} << 62; size >= std::uintmax_t{1} << 43; size >>= 1) {
    fs::resize_file(path, size, refused);
    if (!refused) break;
  }
  if (refused) GTEST_SKIP() << "the file system has no room for such a length";
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the sanitizer's allocator ends the process instead";
#endif
  EXPECT_EQ(ReadWholeFile(path), std::nullopt);
}

TEST_F(Files, AReplacementMakesTheFileOrPutsTheNewContentInItsPlace) {
  EXPECT_TRUE(ReplaceFile(path, "1,0\r\n"));
  EXPECT_EQ(ReadWholeFile(path), "1,0\r\n");
  EXPECT_TRUE(ReplaceFile(path, "250,1\r\n"));
  EXPECT_EQ(ReadWholeFile(path), "250,1\r\n");
  EXPECT_TRUE(ReplaceFile(path, ""));
  EXPECT_EQ(ReadWholeFile(path), "");
  EXPECT_EQ(Entries(), 1) << "no temporary file stays behind";
}

TEST_F(Files, AReplacementKeepsTheOldFilesModeAndANewFileFollowsTheUmask) {
  ::umask(027);
  EXPECT_TRUE(ReplaceFile(path, "new"));
  EXPECT_EQ(fs::status(path).permissions(), fs::perms{0640});
  fs::permissions(path, fs::perms{0604});
  EXPECT_TRUE(ReplaceFile(path, "replaced"));
  EXPECT_EQ(fs::status(path).permissions(), fs::perms{0604});
}

TEST_F(Files, ALinkStaysALinkAndItsTargetChanges) {
  fs::create_directory(folder.File("real"));
  folder.Write("real/target", "old");
  fs::create_symlink("real/target", folder.File("middle"));
  fs::create_symlink("middle", path);
  EXPECT_TRUE(ReplaceFile(path, "new"));
  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_TRUE(fs::is_symlink(folder.File("middle")));
  EXPECT_EQ(ReadWholeFile(folder.File("real/target")), "new");
}

TEST_F(Files, ADanglingLinkStaysALinkAndItsTargetComesIntoBeing) {
  fs::create_directory(folder.File("real"));
  fs::create_symlink(folder.File("real/target"), path);
  EXPECT_TRUE(ReplaceFile(path, "new"));
  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_EQ(ReadWholeFile(folder.File("real/target")), "new");
}

TEST_F(Files, ALinkIntoAFolderThatIsNotThereIsRefusedAndStays) {
  fs::create_symlink("gone/target", path);
  EXPECT_FALSE(ReplaceFile(path, "new"));
  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_EQ(fs::read_symlink(path), "gone/target");
  EXPECT_EQ(Entries(), 1);
}

TEST_F(Files, LinksThatLeadRoundInACircleAreRefused) {
  fs::create_symlink("speed.ini", folder.File("other"));
  fs::create_symlink("other", path);
  EXPECT_FALSE(ReplaceFile(path, "new"));
  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_EQ(Entries(), 2);
}

TEST_F(Files, APipeOrADeviceInAFilesPlaceIsRefusedAndStays) {
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  EXPECT_FALSE(ReplaceFile(path, "new"));
  EXPECT_TRUE(fs::is_fifo(path));
  const std::string link = folder.File("link");
  fs::create_symlink(path, link);
  EXPECT_FALSE(ReplaceFile(link, "new"));
  EXPECT_TRUE(fs::is_fifo(path));
}

TEST_F(Files, AMissingFolderADirectoryAndANameThatIsTooLongAreRefused) {
  EXPECT_FALSE(ReplaceFile(folder.File("gone/speed.ini"), "new"));
  EXPECT_FALSE(ReplaceFile(folder.File(std::string(256, 'x')), "new"));
  fs::create_directory(path);
  EXPECT_FALSE(ReplaceFile(path, "new"));
  EXPECT_TRUE(fs::is_directory(path));
  EXPECT_EQ(Entries(), 1) << "no temporary file stays behind";
}

TEST_F(Files, ANameMayBeAsLongAsTheFolderTakesIt) {
  for (const std::size_t length : {248, 249, 255}) {
    const std::string file = folder.File(std::string(length, 'x'));
    EXPECT_TRUE(ReplaceFile(file, "new")) << length;
    EXPECT_EQ(ReadWholeFile(file), "new") << length;
  }
}

TEST_F(Files, AReadOnlyFolderLeavesTheOldFile) {
  folder.Write("speed.ini", "old");
  fs::permissions(folder.Path(), fs::perms{0555});
  // The superuser writes anywhere: try it as somebody.
  const bool root = ::geteuid() == 0;
  constexpr uid_t Nobody = 65534;
  ASSERT_EQ(root ? ::seteuid(Nobody) : 0, 0);
  const bool replaced = ReplaceFile(path, "new");
  ASSERT_EQ(root ? ::seteuid(0) : 0, 0);
  fs::permissions(folder.Path(), fs::perms{0755});
  EXPECT_FALSE(replaced);
  EXPECT_EQ(ReadWholeFile(path), "old");
  EXPECT_EQ(Entries(), 1);
}

TEST_F(Files, AFileProtectedAgainstWritingStays) {
  folder.Write("speed.ini", "old");
  fs::permissions(path, fs::perms{0444});
  fs::permissions(folder.Path(), fs::perms{0777});
  const bool root = ::geteuid() == 0;
  constexpr uid_t Nobody = 65534;
  ASSERT_EQ(root ? ::seteuid(Nobody) : 0, 0);
  const bool replaced = ReplaceFile(path, "new");
  ASSERT_EQ(root ? ::seteuid(0) : 0, 0);
  EXPECT_FALSE(replaced);
  EXPECT_EQ(ReadWholeFile(path), "old");
  EXPECT_EQ(Entries(), 1);
}

/// No file may grow beyond `bytes`, as on a disk that has no more room.
void LimitFiles(rlim_t bytes) {
  const rlimit limit{bytes, RLIM_INFINITY};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
}

TEST_F(Files, AFullDiskLeavesTheOldFile) {
  folder.Write("speed.ini", "old");
  ::signal(SIGXFSZ, SIG_IGN);  // a refused write, not a signal
  LimitFiles(1000);
  const bool replaced = ReplaceFile(path, std::string(100'000, 'x'));
  LimitFiles(RLIM_INFINITY);
  EXPECT_FALSE(replaced);
  EXPECT_EQ(ReadWholeFile(path), "old");
  EXPECT_EQ(Entries(), 1) << "the half-written temporary file is gone";
}

/// Runs `act` in a process of its own and gives its wait status.
template <class Act>
int InChild(const Act& act) {
  const pid_t child = ::fork();
  if (child == 0) {
    act();
    ::_exit(0);
  }
  int status = -1;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  return status;
}

TEST_F(Files, ALimitOnTheSizeOfFilesIsToldAndLeavesTheOldFileAlone) {
  folder.Write("speed.ini", "old");
  const int status = InChild([this] {
    ::signal(SIGXFSZ, SIG_DFL);
    LimitFiles(1000);
    if (ReplaceFile(path, std::string(100'000, 'x'))) ::_exit(1);
  });
  ASSERT_TRUE(WIFEXITED(status)) << "the limit ended the program";
  EXPECT_EQ(WEXITSTATUS(status), 0) << "the write counted as done";
  EXPECT_EQ(ReadWholeFile(path), "old");
  EXPECT_EQ(Entries(), 1) << "no temporary file stays behind";
}

TEST_F(Files, AKillAtAnyTimeLeavesOneOfTheTwoContentsWhole) {
  const std::string first(20'000, 'a'), second(30'000, 'b');
  ASSERT_TRUE(ReplaceFile(path, first));
  for (int round = 0; round < 20; ++round) {
    const pid_t child = ::fork();
    if (child == 0) {
      while (true) {
        static_cast<void>(ReplaceFile(path, second));
        static_cast<void>(ReplaceFile(path, first));
      }
    }
    ::usleep(static_cast<useconds_t>(500 + 377 * round));
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    const auto content = ReadWholeFile(path);
    ASSERT_TRUE(content);
    EXPECT_TRUE(*content == first || *content == second) << "round " << round;
  }
}

}  // namespace
}  // namespace zelvo::test
