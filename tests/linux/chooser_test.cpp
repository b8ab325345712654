#include <gtest/gtest.h>

#include <cerrno>

#include "linux/fake_kernel.h"

namespace zelvo::linuxio {
namespace {

class ChooserTest : public testing::Test {
 protected:
  void MakeThem() { ports = MakePorts(MakePortTable(kernel.Context())); }
  /// The line that the first access to `address` tells.
  std::string LineOf(int address) {
    if (!ports) MakeThem();
    kernel.told.clear();
    ports->Out32(address, 0);
    return kernel.told.size() == 1 ? kernel.told[0] : std::to_string(kernel.told.size()) + " lines";
  }
  std::string ReasonAt(int address) {
    const std::string line = LineOf(address);
    const std::string head = "its lines do not move: ";
    const auto at = line.find(head);
    return at == std::string::npos ? line : line.substr(at + head.size());
  }
  FakeKernel kernel;
  std::unique_ptr<platform::Ports> ports;
};

TEST_F(ChooserTest, NothingAtAllIsToldWithBothReasons) {
  EXPECT_EQ(
      LineOf(0x378),
      "zelvo: port 378h to 37Fh is served by nothing, its lines do not move: no such device: no parallel "
      "port and no serial port has this address; raw I/O needs root.");
  EXPECT_EQ(ports->Inp32(0x378), 0xFF);
}

TEST_F(ChooserTest, TheDecisionFallsOncePerPortAndIsToldOnce) {
  MakeThem();
  for (int address = 0x378; address < 0x380; ++address) ports->Out32(address, 1);
  EXPECT_EQ(kernel.told.size(), 1U);
  kernel.AddParport(0, "888\t1912\n");  // too late for this run
  ports->Out32(0x378, 1);
  EXPECT_EQ(kernel.told.size(), 1U);
  EXPECT_EQ(kernel.devices["/dev/parport0"].opens, 0);
  ports->Out32(0x278, 1);
  EXPECT_EQ(kernel.told.size(), 2U);
}

TEST_F(ChooserTest, TheHighestAddressAndNegativeOnesStayInRange) {
  MakeThem();
  EXPECT_EQ(ports->Inp32(0xFFFF), 0xFF);
  EXPECT_EQ(ports->Inp32(-1), 0xFF);
  EXPECT_EQ(ports->Inp32(0x10000), 0xFF);
}

TEST_F(ChooserTest, RawIoServesWhatNoDeviceServesAndSaysWhy) {
  kernel.iopermError = 0;
  kernel.registers[0x379] = 0x40;
  EXPECT_EQ(
      LineOf(0x378),
      "zelvo: port 378h to 37Fh is served by raw I/O (no such device: no parallel port and no serial port "
      "has this address).");
  kernel.ClearLog();
  ports->Out32(0x378, 5);
  EXPECT_EQ(ports->Inp32(0x378), 5);
  EXPECT_EQ(ports->Inp32(0x379), 0x40);
  EXPECT_EQ(kernel.Log(), "378=05 378? 379?");
}

IdleLevels BoardAt3Bc() {
  return {{{0x3BC, 0x0F, 0x04}}};
}

TEST_F(ChooserTest, RawLinesRestAtTheEnd) {
  kernel.iopermError = 0;
  PortContext context = kernel.Context();
  context.idleLevels = BoardAt3Bc;
  ports = MakePorts(MakePortTable(context));
  ports->Out32(0x3BC, 0x1B);
  kernel.ClearLog();
  ports.reset();
  EXPECT_EQ(kernel.Log(), "ioperm+8 3BC=14 ioperm-8");
}

TEST_F(ChooserTest, RawRegistersThatTheProgramOnlyReadStayAsTheyAre) {
  kernel.iopermError = 0;
  PortContext context = kernel.Context();
  context.idleLevels = BoardAt3Bc;
  ports = MakePorts(MakePortTable(context));
  EXPECT_EQ(ports->Inp32(0x3BC), 0);
  kernel.ClearLog();
  ports.reset();
  EXPECT_EQ(kernel.Log(), "ioperm-8");
}

TEST_F(ChooserTest, KernelLockdownNamesTheParallelPortDeviceAsTheWay) {
  kernel.AddFile("/sys/kernel/security/lockdown", "none [integrity] confidentiality\n");
  EXPECT_EQ(
      ReasonAt(0x378),
      "no such device: no parallel port and no serial port has this address; raw I/O is forbidden by the "
      "kernel lockdown (Secure Boot): the way is a parallel-port device /dev/parportN.");
}

TEST_F(ChooserTest, WithoutLockdownAMissingRightIsRoots) {
  kernel.AddFile("/sys/kernel/security/lockdown", "[none] integrity confidentiality\n");
  EXPECT_NE(ReasonAt(0x378).find("raw I/O needs root."), std::string::npos);
}

TEST_F(ChooserTest, AMachineWithoutIoPortsSaysSo) {
  kernel.iopermError = ENOSYS;
  EXPECT_NE(ReasonAt(0x378).find("raw I/O does not exist on this machine."), std::string::npos);
}

TEST_F(ChooserTest, AnotherRefusalOfRawIoIsToldInTheSystemsWords) {
  kernel.iopermError = ENOMEM;
  EXPECT_NE(ReasonAt(0x378).find("raw I/O is refused: Cannot allocate memory."), std::string::npos);
}

TEST_F(ChooserTest, TheTerminalWithTheAddressComesBeforeTheOneWithTheNumber) {
  kernel.AddUart("ttyS0", "0x2F8\n");
  kernel.AddUart("ttyS5", "0x3F8\n");
  EXPECT_EQ(LineOf(0x3FC), "zelvo: port 3F8h to 3FFh is served by the terminal device /dev/ttyS5.");
}

TEST_F(ChooserTest, ASerialCardAtAnOddAddressIsFound) {
  kernel.AddUart("ttyS4", "0xE0C0\n");
  EXPECT_EQ(LineOf(0xE0C4), "zelvo: port E0C0h to E0C7h is served by the terminal device /dev/ttyS4.");
}

TEST_F(ChooserTest, AUartInMemoryIsReachedByTheComNumber) {
  kernel.AddUart("ttyS1", "0x0\n");
  EXPECT_EQ(LineOf(0x2FC),
            "zelvo: port 2F8h to 2FFh is served by the terminal device /dev/ttyS1 (the device of COM2).");
}

TEST_F(ChooserTest, APlaceholderWithoutAUartIsNoDevice) {
  kernel.AddUart("ttyS0", "0x3F8\n", "0\n");
  EXPECT_NE(ReasonAt(0x3FC).find("no such device"), std::string::npos);
  EXPECT_EQ(kernel.devices["/dev/ttyS0"].opens, 0);
}

TEST_F(ChooserTest, WhereTheAddressIsHiddenTheDriverIsAsked) {
  kernel.AddUart("ttyS6", "").serialPort = 0x3E8;
  kernel.AddUart("ttyS7", "").serialPort = 0x2E8;
  EXPECT_EQ(LineOf(0x2EC), "zelvo: port 2E8h to 2EFh is served by the terminal device /dev/ttyS7.");
  EXPECT_EQ(kernel.devices["/dev/ttyS6"].opens, kernel.devices["/dev/ttyS6"].closes);
}

TEST_F(ChooserTest, AUartWhoseDriverCannotTellItsAddressIsReachedByTheComNumber) {
  kernel.AddUart("ttyS1", "").serialPort = -1;
  EXPECT_EQ(LineOf(0x2FC),
            "zelvo: port 2F8h to 2FFh is served by the terminal device /dev/ttyS1 (the device of COM2).");
}

TEST_F(ChooserTest, ALinkInTheProgramsFolderNamesAUsbAdapter) {
  kernel.AddLink("/home/op/zelvo/COM3", "/dev/ttyUSB0");
  kernel.AddDevice("/dev/ttyUSB0", FakeDevice::Kind::Terminal);
  EXPECT_EQ(LineOf(0x3EC),
            "zelvo: port 3E8h to 3EFh is served by the terminal device /dev/ttyUSB0 (COM3 in the program's "
            "folder).");
}

TEST_F(ChooserTest, ALinkServesWhereTheBuiltInPortIsInUse) {
  kernel.AddUart("ttyS0", "0x3F8\n").openError = EBUSY;
  kernel.AddLink("/home/op/zelvo/COM1", "/dev/ttyUSB0");
  kernel.AddDevice("/dev/ttyUSB0", FakeDevice::Kind::Terminal);
  EXPECT_NE(LineOf(0x3FC).find("/dev/ttyUSB0"), std::string::npos);
}

TEST_F(ChooserTest, ALinkToAnAdapterThatIsNotPluggedInIsNamed) {
  kernel.AddLink("/home/op/zelvo/COM4", "");
  EXPECT_NE(ReasonAt(0x2EC).find("no such device behind the link COM4 in the program's folder"),
            std::string::npos);
}

TEST_F(ChooserTest, ALinkToSomethingElseIsRefused) {
  kernel.AddLink("/home/op/zelvo/COM4", "/home/op/notes.txt");
  kernel.AddDevice("/home/op/notes.txt", FakeDevice::Kind::File);
  EXPECT_NE(ReasonAt(0x2EC).find("/home/op/notes.txt has no modem lines"), std::string::npos);
}

TEST_F(ChooserTest, ATerminalInUseNamesTheUsualHoldersAndKeepsRawIoAway) {
  kernel.AddUart("ttyS0", "0x3F8\n").openError = EBUSY;
  kernel.iopermError = 0;
  EXPECT_EQ(ReasonAt(0x3FC),
            "/dev/ttyS0 is in use by another program, perhaps a terminal program, a login on that line, "
            "ModemManager or brltty.");
}

TEST_F(ChooserTest, AFileLockOfAnotherProgramCountsAsInUse) {
  kernel.AddUart("ttyS0", "0x3F8\n").lockedByOther = true;
  kernel.AddLink("/proc/77/fd/5", "/dev/ttyS0");
  kernel.AddFile("/proc/77/comm", "picocom\n");
  EXPECT_EQ(ReasonAt(0x3FC), "/dev/ttyS0 is in use by picocom (process 77).");
  EXPECT_EQ(kernel.devices["/dev/ttyS0"].closes, 1);
}

TEST_F(ChooserTest, AMissingPermissionForATerminalNamesTheGroup) {
  kernel.AddUart("ttyS0", "0x3F8\n").openError = EACCES;
  EXPECT_EQ(
      ReasonAt(0x3FC),
      "no permission for /dev/ttyS0: become a member of the group dialout and log in again; raw I/O needs "
      "root.");
}

TEST_F(ChooserTest, ATerminalWithoutAUartBehindItIsNoDevice) {
  kernel.AddUart("ttyS0", "0x3F8\n").alwaysError = EIO;
  EXPECT_NE(ReasonAt(0x3FC).find("no such device: there is no UART behind /dev/ttyS0"), std::string::npos);
}

TEST_F(ChooserTest, ATerminalThatCannotBeSetUpSaysWhy) {
  kernel.AddUart("ttyS0", "0x3F8\n").errors[TIOCEXCL] = {EPERM};
  EXPECT_NE(ReasonAt(0x3FC).find("/dev/ttyS0 cannot be set up: Operation not permitted"), std::string::npos);
}

}  // namespace
}  // namespace zelvo::linuxio
