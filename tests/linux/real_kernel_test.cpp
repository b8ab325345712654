// The real system calls, on what every machine has: files, processes and pseudo-terminals. No test moves a
// line.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "linux/terminal_search.h"
#include "linux/uart_port.h"

namespace zelvo::linuxio {
namespace {

PortContext QuietContext() {
  PortContext context;
  context.tell = [](const std::string&) {};
  return context;
}

TEST(RealKernel, APseudoTerminalIsRefusedForItsMissingModemLines) {
  const int master = ::posix_openpt(O_RDWR | O_NOCTTY);
  ASSERT_GE(master, 0);
  ASSERT_EQ(::grantpt(master), 0);
  ASSERT_EQ(::unlockpt(master), 0);
  const std::string path = ::ptsname(master);
  const Opened opened = OpenTerminal(QuietContext(), path, 0x2E8);
  EXPECT_EQ(opened.port, nullptr);
  EXPECT_EQ(opened.refusal.reason.rfind(path + " has no modem lines: ", 0), 0U) << opened.refusal.reason;
  EXPECT_FALSE(opened.refusal.heldByOther);
  ::close(master);
}

TEST(RealKernel, AMissingDeviceIsToldAsMissing) {
  const Opened opened = OpenTerminal(QuietContext(), "/dev/ttyZelvoNone", 0x2E8);
  EXPECT_EQ(opened.refusal.reason, "no such device /dev/ttyZelvoNone");
}

class OwnFolder : public testing::Test {
 protected:
  void SetUp() override {
    char name[] = "/tmp/zelvo-ports-XXXXXX";
    ASSERT_NE(::mkdtemp(name), nullptr);
    folder = name;
  }
  void TearDown() override { std::filesystem::remove_all(folder); }
  std::string folder;
};

TEST_F(OwnFolder, AChainOfLinksEndsAtTheDevice) {
  std::filesystem::create_symlink("/dev/null", folder + "/by-id");
  std::filesystem::create_symlink("by-id", folder + "/COM4");
  PortContext context = QuietContext();
  context.programFolder = folder;
  const std::vector<TerminalCandidate> found = FindTerminals(context, 0x2E8);
  ASSERT_FALSE(found.empty());
  EXPECT_EQ(found.back().path, "/dev/null");
}

TEST_F(OwnFolder, ADanglingLinkIsSeen) {
  std::filesystem::create_symlink(folder + "/unplugged", folder + "/COM4");
  PortContext context = QuietContext();
  context.programFolder = folder;
  const std::vector<TerminalCandidate> found = FindTerminals(context, 0x2E8);
  ASSERT_FALSE(found.empty());
  EXPECT_EQ(found.back().path, "");
}

TEST_F(OwnFolder, TheProcessThatHoldsADeviceIsFound) {
  const std::string path = folder + "/device";
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    const int held = ::open(path.c_str(), O_RDWR | O_CREAT, 0600);
    if (::write(ready[1], "r", 1) != 1 || held < 0) ::_exit(1);
    ::pause();
    ::_exit(0);
  }
  char byte = 0;
  ASSERT_EQ(::read(ready[0], &byte, 1), 1);
  const std::string holder = WhoHolds(RealSystemCalls(), path);
  EXPECT_NE(holder.find("(process " + std::to_string(child) + ")"), std::string::npos) << holder;
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  ::close(ready[0]);
  ::close(ready[1]);
}

TEST_F(OwnFolder, ADeviceOpenInThisProcessAloneHasNoHolder) {
  const std::string path = folder + "/device";
  const int held = ::open(path.c_str(), O_RDWR | O_CREAT, 0600);
  EXPECT_EQ(WhoHolds(RealSystemCalls(), path), "");
  ::close(held);
}

TEST_F(OwnFolder, FilesAndFoldersThatCannotBeReadAreNoError) {
  const SystemCalls& system = RealSystemCalls();
  EXPECT_TRUE(system.listFolder(folder + "/none").empty());
  EXPECT_FALSE(system.readFile(folder + "/none"));
  EXPECT_FALSE(system.readFile(folder));
  EXPECT_EQ(system.groupOf(folder + "/none"), "");
  EXPECT_TRUE(system.readFile("/proc/self/comm"));
}

}  // namespace
}  // namespace zelvo::linuxio
