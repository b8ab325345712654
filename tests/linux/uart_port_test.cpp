#include <gtest/gtest.h>

#include <cerrno>

#include "linux/fake_kernel.h"

namespace zelvo::linuxio {
namespace {

constexpr char opening[] = "open M? M= texcl nobreak set M=";

IdleLevels SerialBoard() {
  return {{{0x3FC, 3, 0}, {0x3FB, 64, 0}}};
}
IdleLevels InvertedSerialBoard() {
  return {{{0x3FC, 3, 3}, {0x3FB, 64, 64}}};
}

class UartPortTest : public testing::Test {
 protected:
  void MakeThem(IdleLevelsSource idle = SerialBoard) {
    PortContext context = kernel.Context();
    context.idleLevels = idle;
    const std::shared_ptr<PortTable> table = MakePortTable(context);
    ports = MakePorts(table);
    claim = MakeSerialClaim(table);
  }
  FakeKernel kernel;
  std::unique_ptr<platform::Ports> ports;
  std::unique_ptr<platform::SerialClaim> claim;
};

TEST_F(UartPortTest, AnOpenLowersBothLinesAtOnceAndPutsTheSettingsOnce) {
  kernel.AddUart("ttyS0", "0x3F8\n");
  MakeThem();
  EXPECT_EQ(ports->Inp32(0x3FC), 0);
  EXPECT_EQ(kernel.Log(), opening);
  EXPECT_TRUE(kernel.devices["/dev/ttyS0"].settingsChanged);
  ASSERT_EQ(kernel.told.size(), 1U);
  EXPECT_EQ(kernel.told[0], "zelvo: port 3F8h to 3FFh is served by the terminal device /dev/ttyS0.");
}

TEST_F(UartPortTest, ABreakThatAKilledProgramLeftEndsBeforeAnyAccess) {
  FakeDevice& device = kernel.AddUart("ttyS0", "0x3F8\n");
  device.breakOn = true;
  device.keepsBreak = true;
  MakeThem();
  EXPECT_EQ(ports->Inp32(0x3FB), 3);
  EXPECT_FALSE(device.breakOn);
}

TEST_F(UartPortTest, AnAdapterThatKnowsNoBreakAtAllIsServed) {
  kernel.AddUart("ttyS0", "0x3F8\n").errors[TIOCCBRK] = {ENOTTY};
  MakeThem();
  EXPECT_TRUE(claim->Open(1, "9600,N,8,1"));
  EXPECT_EQ(kernel.told.size(), 1U);
}

TEST_F(UartPortTest, TheRegistersMoveTheLinesAndReadBackWhatWasWritten) {
  kernel.AddUart("ttyS0", "0x3F8\n");
  MakeThem();
  ports->Out32(0x3FC, 0);
  kernel.ClearLog();
  ports->Out32(0x3FC, 1);
  EXPECT_EQ(ports->Inp32(0x3FC), 1);
  ports->Out32(0x3FC, 3);
  ports->Out32(0x3FC, 2);
  ports->Out32(0x3FC, 1);
  const int lineControl = ports->Inp32(0x3FB);
  EXPECT_EQ(lineControl, 3);
  ports->Out32(0x3FB, lineControl | 64);
  EXPECT_EQ(ports->Inp32(0x3FB), 67);
  ports->Out32(0x3FB, lineControl);
  EXPECT_EQ(kernel.Log(), "M=d M=dr M=r M=d break nobreak");
}

TEST_F(UartPortTest, AWriteThatMovesNoLineCostsNoRequest) {
  kernel.AddUart("ttyS0", "0x3F8\n");
  MakeThem();
  ports->Out32(0x3FC, 1);
  kernel.ClearLog();
  ports->Out32(0x3FC, 1);
  ports->Out32(0x3FC, 0x81);
  ports->Out32(0x3FB, 3);
  ports->Out32(0x3F8, 0x55);
  EXPECT_EQ(ports->Inp32(0x3FC), 0x81);
  EXPECT_EQ(ports->Inp32(0x3F8), 0x55);
  EXPECT_EQ(kernel.Log(), "");
}

TEST_F(UartPortTest, TheModemStatusShowsTheInputLines) {
  FakeDevice& device = kernel.AddUart("ttyS0", "0x3F8\n");
  MakeThem();
  EXPECT_EQ(ports->Inp32(0x3FE), 0);
  device.modem |= TIOCM_CTS;
  EXPECT_EQ(ports->Inp32(0x3FE), 16);
  device.modem |= TIOCM_DSR | TIOCM_RI | TIOCM_CD;
  EXPECT_EQ(ports->Inp32(0x3FE), 16 + 32 + 64 + 128);
}

TEST_F(UartPortTest, InLoopBackModeTheClockLineAppearsAsTheInput) {
  kernel.AddUart("ttyS0", "0x3F8\n");
  MakeThem();
  ports->Out32(0x3FC, 16);
  EXPECT_EQ(ports->Inp32(0x3FE), 0);
  ports->Out32(0x3FC, 16 + 2);
  EXPECT_EQ(ports->Inp32(0x3FE), 16);
}

TEST_F(UartPortTest, TheSettingsAreNeverTouchedDuringARun) {
  kernel.AddUart("ttyS0", "0x3F8\n");
  MakeThem();
  ports->Out32(0x3FB, 64);
  for (int i = 0; i < 100; ++i) ports->Out32(0x3FC, i & 3);
  EXPECT_TRUE(kernel.devices["/dev/ttyS0"].breakOn);
}

TEST_F(UartPortTest, AtTheEndTheLinesRestBeforeTheSettingsComeBack) {
  kernel.AddUart("ttyS0", "0x3F8\n");
  MakeThem();
  ports->Out32(0x3FC, 3);
  ports->Out32(0x3FB, 67);
  kernel.ClearLog();
  claim.reset();
  ports.reset();
  EXPECT_EQ(kernel.Log(), "M= nobreak restore close");
}

TEST_F(UartPortTest, AtRestInvertedLinesAreHigh) {
  kernel.AddUart("ttyS0", "0x3F8\n");
  MakeThem(InvertedSerialBoard);
  ports->Out32(0x3FC, 0);
  kernel.ClearLog();
  claim.reset();
  ports.reset();
  EXPECT_EQ(kernel.Log(), "M=dr break restore close");
}

TEST_F(UartPortTest, ClaimAndPortsShareOneOpenDevice) {
  kernel.AddUart("ttyS0", "0x3F8\n");
  MakeThem();
  EXPECT_FALSE(claim->IsOpen());
  EXPECT_TRUE(claim->Open(1, "9600,N,8,1"));
  EXPECT_TRUE(claim->IsOpen());
  ports->Out32(0x3FC, 1);
  EXPECT_EQ(kernel.devices["/dev/ttyS0"].opens, 1);
  EXPECT_EQ(kernel.told.size(), 1U);
  claim->Close();
  EXPECT_FALSE(claim->IsOpen());
  EXPECT_EQ(kernel.devices["/dev/ttyS0"].closes, 1);
}

TEST_F(UartPortTest, AfterTheClaimIsClosedAnAccessOpensTheDeviceAgainSilently) {
  kernel.AddUart("ttyS0", "0x3F8\n");
  MakeThem();
  EXPECT_TRUE(claim->Open(1, "9600,N,8,1"));
  ports->Out32(0x3FC, 1);
  claim->Close();
  kernel.ClearLog();
  EXPECT_EQ(ports->Inp32(0x3FC), 0);
  EXPECT_EQ(kernel.Log(), opening);
  EXPECT_EQ(kernel.told.size(), 1U);
}

TEST_F(UartPortTest, ADeviceThatIsGoneAtThatMomentIsToldOnce) {
  FakeDevice& device = kernel.AddUart("ttyS0", "0x3F8\n");
  MakeThem();
  EXPECT_TRUE(claim->Open(1, "9600,N,8,1"));
  claim->Close();
  device.openError = ENOENT;
  EXPECT_EQ(ports->Inp32(0x3FC), 0xFF);
  ports->Out32(0x3FC, 1);
  EXPECT_FALSE(claim->Open(1, "9600,N,8,1"));
  ASSERT_EQ(kernel.told.size(), 2U);
  EXPECT_EQ(kernel.told[1],
            "zelvo: port 3F8h is served no more, its lines do not move: no such device /dev/ttyS0.");
}

TEST_F(UartPortTest, AClaimOfAPortThatNothingServesFails) {
  MakeThem();
  EXPECT_FALSE(claim->Open(2, "9600,N,8,1"));
  EXPECT_FALSE(claim->IsOpen());
  EXPECT_FALSE(claim->Open(0, "9600,N,8,1"));
  EXPECT_FALSE(claim->Open(5, "9600,N,8,1"));
  EXPECT_EQ(kernel.told.size(), 1U);
}

TEST_F(UartPortTest, AClaimOfAnotherNumberLetsTheFirstDeviceGo) {
  kernel.AddUart("ttyS0", "0x3F8\n");
  kernel.AddUart("ttyS1", "0x2F8\n");
  MakeThem();
  EXPECT_TRUE(claim->Open(1, "9600,N,8,1"));
  EXPECT_TRUE(claim->Open(2, "9600,N,8,1"));
  EXPECT_EQ(kernel.devices["/dev/ttyS0"].closes, 1);
  EXPECT_EQ(kernel.devices["/dev/ttyS1"].closes, 0);
}

TEST_F(UartPortTest, AnAdapterPulledOutDuringARunIsToldOnceAndItsLinesStop) {
  for (const int error : {EIO, ENODEV}) {
    FakeKernel own;
    FakeDevice& device = own.AddUart("ttyS0", "0x3F8\n");
    const auto itsPorts = MakePorts(MakePortTable(own.Context()));
    itsPorts->Out32(0x3FC, 1);
    device.alwaysError = error;
    EXPECT_EQ(itsPorts->Inp32(0x3FE), 0xFF);
    itsPorts->Out32(0x3FC, 2);
    itsPorts->Out32(0x3FB, 64);
    EXPECT_EQ(itsPorts->Inp32(0x3FC), 0xFF);
    ASSERT_EQ(own.told.size(), 2U);
    EXPECT_NE(own.told[1].find("/dev/ttyS0 at port 3F8h is gone"), std::string::npos) << own.told[1];
  }
}

TEST_F(UartPortTest, AnInterruptedRequestIsRepeated) {
  FakeDevice& device = kernel.AddUart("ttyS0", "0x3F8\n");
  MakeThem();
  ports->Out32(0x3FC, 0);
  device.errors[TIOCMSET] = {EINTR, EINTR};
  device.errors[TIOCSBRK] = {EINTR};
  ports->Out32(0x3FC, 1);
  ports->Out32(0x3FB, 67);
  EXPECT_NE(device.modem & TIOCM_DTR, 0);
  EXPECT_TRUE(device.breakOn);
  EXPECT_EQ(kernel.told.size(), 1U);
}

TEST_F(UartPortTest, AnAdapterWithoutBreakIsToldOnceAndKeepsItsOtherLines) {
  FakeDevice& device = kernel.AddUart("ttyS0", "0x3F8\n");
  MakeThem();
  ports->Out32(0x3FC, 0);
  device.errors[TIOCSBRK] = {ENOTTY, ENOTTY};
  ports->Out32(0x3FB, 67);
  ports->Out32(0x3FB, 3);
  ports->Out32(0x3FB, 67);
  ports->Out32(0x3FC, 2);
  EXPECT_NE(device.modem & TIOCM_RTS, 0);
  ASSERT_EQ(kernel.told.size(), 2U);
  EXPECT_EQ(kernel.told[1], "zelvo: /dev/ttyS0 cannot hold TXD (no break signal): Vpp does not switch.");
}

}  // namespace
}  // namespace zelvo::linuxio
