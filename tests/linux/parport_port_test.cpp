#include <gtest/gtest.h>
#include <signal.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <thread>

#include "linux/fake_kernel.h"

namespace zelvo::linuxio {
namespace {

/// Vdd, Vpp, data and clock of the usual board at 378h, the last two inverted.
IdleLevels PrinterBoard() {
  return {{{0x378, 0x0F, 0x03}}};
}

class ParportPortTest : public testing::Test {
 protected:
  void MakeThem() {
    PortContext context = kernel.Context();
    context.idleLevels = PrinterBoard;
    ports = MakePorts(MakePortTable(context));
  }
  FakeKernel kernel;
  std::unique_ptr<platform::Ports> ports;
};

TEST_F(ParportPortTest, TheDeviceWithTheAddressIsClaimedExclusivelyAndTold) {
  kernel.AddParport(0, "632\t0\n");
  kernel.AddParport(1, "888\t1912\n");
  MakeThem();
  EXPECT_EQ(ports->Inp32(0x378), 0x04);
  EXPECT_EQ(kernel.devices["/dev/parport0"].opens, 0);
  EXPECT_EQ(kernel.Log(), "open excl claim D? D?");
  ASSERT_EQ(kernel.told.size(), 1U);
  EXPECT_EQ(kernel.told[0], "zelvo: port 378h to 37Fh is served by the parallel-port device /dev/parport1.");
}

TEST_F(ParportPortTest, EachRegisterHasItsRequest) {
  kernel.AddParport(0, "888\t1912\n");
  MakeThem();
  ports->Out32(0x378, 0x0C);
  kernel.ClearLog();
  ports->Out32(0x378, 0x05);
  EXPECT_EQ(ports->Inp32(0x378), 0x05);
  EXPECT_EQ(ports->Inp32(0x379), 0x40);
  ports->Out32(0x37A, 0x08);
  EXPECT_EQ(ports->Inp32(0x37A), 0x08);
  EXPECT_EQ(kernel.Log(), "D=05 D? S? C=08 C?");
}

TEST_F(ParportPortTest, TheStatusRegisterSwallowsWritesAndOtherOffsetsReadAllOnes) {
  kernel.AddParport(0, "888\t1912\n");
  MakeThem();
  ports->Out32(0x378, 0);
  kernel.ClearLog();
  ports->Out32(0x379, 0);
  ports->Out32(0x37B, 0);
  EXPECT_EQ(ports->Inp32(0x37C), 0xFF);
  EXPECT_EQ(kernel.Log(), "");
}

TEST_F(ParportPortTest, AnAddressInTheMiddleOfAnEightIsServedFromItsOwnBase) {
  kernel.AddParport(0, "956\t0\n");  // 3BCh
  MakeThem();
  ports->Out32(0x3BC, 0x05);
  EXPECT_EQ(kernel.devices["/dev/parport0"].data, 0x05);
  EXPECT_EQ(ports->Inp32(0x3BD), 0x40);
  EXPECT_EQ(ports->Inp32(0x3B8), 0xFF);
  EXPECT_EQ(kernel.told.size(), 1U);
}

TEST_F(ParportPortTest, ACardAtAnOddAddressIsServed) {
  kernel.AddParport(2, "53264\t53272\n");  // D010h
  MakeThem();
  ports->Out32(0xD010, 0x05);
  EXPECT_EQ(kernel.devices["/dev/parport2"].data, 0x05);
}

TEST_F(ParportPortTest, APortWithoutAnAddressIsNotTakenForAddressZero) {
  kernel.AddParport(0, "0\t0\n");
  MakeThem();
  EXPECT_EQ(ports->Inp32(0), 0xFF);
  EXPECT_EQ(kernel.devices["/dev/parport0"].opens, 0);
}

TEST_F(ParportPortTest, WithThePrinterDriverOnThePortAPlainClaimOnANewDescriptorFollows) {
  kernel.AddParport(0, "888\t1912\n").errors[PPCLAIM] = {ENXIO};
  MakeThem();
  ports->Out32(0x378, 0x05);
  EXPECT_EQ(kernel.Log(), "open excl close open claim D? D=05");
  EXPECT_EQ(kernel.devices["/dev/parport0"].data, 0x05);
}

TEST_F(ParportPortTest, AnExclusiveHolderIsToldByName) {
  kernel.AddParport(0, "888\t1912\n").errors[PPCLAIM] = {ENXIO, ENXIO};
  kernel.AddLink("/proc/1234/fd/3", "/dev/parport0");
  kernel.AddFile("/proc/1234/comm", "otherprog\n");
  kernel.iopermError = 0;
  MakeThem();
  ports->Out32(0x378, 0x05);
  ASSERT_EQ(kernel.told.size(), 1U);
  EXPECT_EQ(
      kernel.told[0],
      "zelvo: port 378h to 37Fh is served by nothing, its lines do not move: /dev/parport0 is in use by "
      "otherprog (process 1234).");
  EXPECT_EQ(kernel.registers.count(0x378), 0U) << "raw I/O must keep away from a port in use";
  EXPECT_EQ(kernel.devices["/dev/parport0"].opens, kernel.devices["/dev/parport0"].closes);
}

/// Waits as the kernel does: until a signal comes.
int WaitForASignal() {
  const timespec tenSeconds{10, 0};
  return ::nanosleep(&tenSeconds, nullptr) == 0 ? 0 : errno;
}

TEST_F(ParportPortTest, AClaimThatWaitsIsGivenUpWithinTheLimit) {
  kernel.AddParport(0, "888\t1912\n").onClaim = WaitForASignal;
  MakeThem();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(ports->Inp32(0x378), 0xFF);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
  ASSERT_EQ(kernel.told.size(), 1U);
  EXPECT_NE(kernel.told[0].find("/dev/parport0 is in use by another program, perhaps the printer system"),
            std::string::npos)
      << kernel.told[0];
  EXPECT_EQ(kernel.devices["/dev/parport0"].closes, 1);
}

TEST_F(ParportPortTest, AClaimThatNoSignalWakesIsLeftBehindAndUndoneWhenItComes) {
  std::atomic<bool> free = false;
  kernel.AddParport(0, "888\t1912\n").onClaim = [&free] {
    while (!free) std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return 0;
  };
  MakeThem();
  EXPECT_EQ(ports->Inp32(0x378), 0xFF);
  EXPECT_EQ(kernel.told.size(), 1U);
  free = true;
  for (int i = 0; i < 400 && kernel.devices["/dev/parport0"].closes == 0; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  EXPECT_EQ(kernel.devices["/dev/parport0"].closes, 1);
  ports->Out32(0x378, 0x05);
  EXPECT_EQ(kernel.devices["/dev/parport0"].data, 0x04) << "decided once";
}

TEST_F(ParportPortTest, AMissingPermissionNamesTheGroup) {
  kernel.AddParport(0, "888\t1912\n").openError = EACCES;
  MakeThem();
  EXPECT_EQ(ports->Inp32(0x378), 0xFF);
  ASSERT_EQ(kernel.told.size(), 1U);
  EXPECT_NE(kernel.told[0].find(
                "no permission for /dev/parport0: become a member of the group lp and log in again"),
            std::string::npos)
      << kernel.told[0];
}

TEST_F(ParportPortTest, TheGroupIsTheOneThatOwnsTheDevice) {
  kernel.AddParport(0, "888\t1912\n").openError = EACCES;
  kernel.groups["/dev/parport0"] = "printers";
  MakeThem();
  ports->Out32(0x378, 0);
  EXPECT_NE(kernel.told.at(0).find("group printers"), std::string::npos) << kernel.told[0];
}

TEST_F(ParportPortTest, APortWithoutItsDeviceFileAsksForTheModule) {
  kernel.AddParport(0, "888\t1912\n").openError = ENOENT;
  MakeThem();
  ports->Out32(0x378, 0);
  EXPECT_NE(kernel.told.at(0).find("no such device /dev/parport0: load the kernel module ppdev"),
            std::string::npos)
      << kernel.told[0];
}

TEST_F(ParportPortTest, AnUnknownFailureOfTheOpenOrTheClaimIsToldInTheSystemsWords) {
  kernel.AddParport(0, "888\t1912\n").openError = EMFILE;
  kernel.AddParport(1, "632\t0\n").errors[PPCLAIM] = {ENOMEM};
  MakeThem();
  ports->Out32(0x378, 0);
  ports->Out32(0x278, 0);
  EXPECT_NE(kernel.told.at(0).find("/dev/parport0 cannot be opened: Too many open files"), std::string::npos);
  EXPECT_NE(kernel.told.at(1).find("/dev/parport1 cannot be claimed: Cannot allocate memory"),
            std::string::npos);
}

TEST_F(ParportPortTest, APortThatVanishesIsToldOnceAndItsLinesStop) {
  FakeDevice& device = kernel.AddParport(0, "888\t1912\n");
  MakeThem();
  ports->Out32(0x378, 0x05);
  device.alwaysError = ENODEV;
  ports->Out32(0x378, 0x07);
  EXPECT_EQ(ports->Inp32(0x378), 0xFF);
  EXPECT_EQ(ports->Inp32(0x379), 0xFF);
  ASSERT_EQ(kernel.told.size(), 2U);
  EXPECT_NE(kernel.told[1].find("/dev/parport0 at port 378h is gone (No such device)"), std::string::npos)
      << kernel.told[1];
  device.alwaysError = 0;
  kernel.ClearLog();
  ports->Out32(0x378, 0x07);
  EXPECT_EQ(kernel.Log(), "") << "a port that has left stays away";
}

TEST_F(ParportPortTest, AtTheEndTheLinesRestAndThePortIsReleased) {
  kernel.AddParport(0, "888\t1912\n");
  MakeThem();
  ports->Out32(0x378, 0x9C);
  kernel.ClearLog();
  ports.reset();
  EXPECT_EQ(kernel.Log(), "D=93 release close");
}

}  // namespace
}  // namespace zelvo::linuxio
