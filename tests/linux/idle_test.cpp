#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "link/lines.h"
#include "linux/board_idle.h"
#include "linux/fake_kernel.h"
#include "linux/idle_on_signals.h"

namespace zelvo::linuxio {
namespace {

int reportPipe = -1;

/// A parallel port that reports every data byte into a pipe, which outlives the process.
class ReportingPort : public RegisterPort {
 public:
  explicit ReportingPort(const PortContext& context) : RegisterPort(context, 0x378) { PublishForIdle(*this); }
  ~ReportingPort() override { WithdrawFromIdle(*this); }
  void Write(int, int value) override { RefreshIdle({value, 0, 0, 0, 0, 0, 0, 0}); }
  int Read(int) override { return 0xFF; }
  void WriteIdle() noexcept override {
    const auto byte = static_cast<unsigned char>(idle_.At(0));
    if (::write(reportPipe, &byte, 1) != 1) ::_exit(99);
  }
};

IdleLevels PrinterBoard() {
  return {{{0x378, 0x0F, 0x01}}};
}

volatile int sink = 0;
int UseUpTheStack(int depth) {
  volatile char room[4096] = {};
  room[depth % 4096] = 1;
  sink = sink + room[0];
  return depth < 0 ? 0 : UseUpTheStack(depth + 1) + room[depth % 7];
}

struct Ending {
  int signal = 0;       ///< that ended the process; 0 if it ended by itself
  std::string written;  ///< idle bytes
};

/// Runs `end` in a child whose lines are at 0x9C, with the handler installed.
template <typename End>
Ending HowItEnds(End end, bool ignoreHangUp = false) {
  int ends[2];
  EXPECT_EQ(::pipe(ends), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    const rlimit noCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    if (ignoreHangUp) ::signal(SIGHUP, SIG_IGN);
    reportPipe = ends[1];
    PortContext context;
    context.idleLevels = PrinterBoard;
    context.tell = [](const std::string&) {};
    ReportingPort port(context);
    port.Write(0, 0x9C);
    InstallIdleOnSignals();
    end();
    ::_exit(0);
  }
  ::close(ends[1]);
  Ending ending;
  char byte = 0;
  while (::read(ends[0], &byte, 1) == 1) ending.written += byte;
  ::close(ends[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  if (WIFSIGNALED(status)) ending.signal = WTERMSIG(status);
  return ending;
}

TEST(IdleOnSignals, TheLinesRestAndTheSignalStillEndsTheProgram) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGQUIT, SIGPIPE}) {
    const Ending ending = HowItEnds([signal] { ::raise(signal); });
    EXPECT_EQ(ending.signal, signal);
    EXPECT_EQ(ending.written, "\x91") << signal;
  }
}

TEST(IdleOnSignals, TheLinesRestOnACrash) {
  for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP, SIGSYS}) {
    const Ending ending = HowItEnds([signal] { ::raise(signal); });
    EXPECT_EQ(ending.signal, signal);
    EXPECT_EQ(ending.written, "\x91") << signal;
  }
  EXPECT_EQ(HowItEnds([] { std::abort(); }).written, "\x91");
}

TEST(IdleOnSignals, TheLinesRestWhenTheStackIsUsedUp) {
  const Ending ending = HowItEnds([] { ::_exit(UseUpTheStack(0)); });
  EXPECT_EQ(ending.signal, SIGSEGV);
  EXPECT_EQ(ending.written, "\x91");
}

TEST(IdleOnSignals, TheLinesRestWhenTheToolkitExitsForALostDisplay) {
  const Ending ending = HowItEnds([] { std::exit(1); });
  EXPECT_EQ(ending.signal, 0);
  EXPECT_EQ(ending.written, "\x91");
}

TEST(IdleOnSignals, AHangUpThatIsIgnoredStaysIgnored) {
  const Ending ending = HowItEnds([] { ::raise(SIGHUP); }, true);
  EXPECT_EQ(ending.signal, 0);
  EXPECT_EQ(ending.written, "");
}

TEST(IdleOnSignals, AClosedPortIsLeftAlone) {
  FakeKernel kernel;
  kernel.AddParport(0, "888\t1912\n");
  PortContext context = kernel.Context();
  context.idleLevels = PrinterBoard;
  auto ports = MakePorts(MakePortTable(context));
  ports->Out32(0x378, 0x0C);
  WriteIdleLevels();
  EXPECT_EQ(kernel.devices["/dev/parport0"].data, 0x01);
  ports.reset();
  kernel.ClearLog();
  WriteIdleLevels();
  EXPECT_EQ(kernel.Log(), "");
}

TEST(IdleLevels, APrinterPortIsKnownBeforeTheFirstWrite) {
  FakeKernel kernel;
  kernel.AddParport(0, "888\t1912\n");  // the driver has left 04 on the lines
  PortContext context = kernel.Context();
  context.idleLevels = PrinterBoard;
  const auto ports = MakePorts(MakePortTable(context));
  EXPECT_EQ(ports->Inp32(0x378), 0x04);
  WriteIdleLevels();
  EXPECT_EQ(kernel.devices["/dev/parport0"].data, 0x01);
}

TEST(IdleLevels, FollowTheSettingsOfThePrinterBoard) {
  link::LptMode = true;
  link::PortBase = 0x278;
  link::VddSetMask = 16;
  link::VppInverted = true;
  link::DataInverted = true;
  const IdleLevels levels = IdleLevelsOfBoard();
  EXPECT_EQ(levels[0].address, 0x278);
  EXPECT_EQ(levels[0].mask, 16 + 8 + 2 + 1);
  EXPECT_EQ(levels[0].value, 8 + 1);
  EXPECT_EQ(levels[1].address, -1);
}

TEST(IdleLevels, FollowTheSettingsOfTheSerialBoard) {
  link::LptMode = false;
  link::ComMode = true;
  link::PortBase = 0x2F8;
  link::ComPgcInverted = true;
  link::ComVppInverted = true;
  const IdleLevels levels = IdleLevelsOfBoard();
  EXPECT_EQ(levels[0].address, 0x2FC);
  EXPECT_EQ(levels[0].mask, 3);
  EXPECT_EQ(levels[0].value, 2);
  EXPECT_EQ(levels[1].address, 0x2FB);
  EXPECT_EQ(levels[1].mask, 64);
  EXPECT_EQ(levels[1].value, 64);
}

TEST(IdleLevels, WithoutAnInterfaceThereAreNone) {
  link::LptMode = false;
  link::ComMode = false;
  for (const IdleRegister& idle : IdleLevelsOfBoard()) EXPECT_EQ(idle.address, -1);
}

TEST(IdleLevels, AnAddressAboveTheSignedRangeIsThePortItself) {
  link::LptMode = true;
  link::PortBase = static_cast<std::int16_t>(0xD010);
  EXPECT_EQ(IdleLevelsOfBoard()[0].address, 0xD010);
}

}  // namespace
}  // namespace zelvo::linuxio
