// The port primitives and the control lines.
#include "link/lines.h"

#include <gtest/gtest.h>

#include "icsp/pic18_engine.h"
#include "link/target_power.h"
#include "support/line_model.h"

namespace zelvo::test {
namespace {

using namespace link;  // NOLINT: the tests speak in the terms of the link

/// Ports that remember the last write and read as they are told.
class NotedPorts : public platform::Ports {
 public:
  void Out32(int address, int value) override {
    Address = address;
    Written = value;
  }
  [[nodiscard]] int Inp32(int address) override {
    Address = address;
    return ToRead;
  }
  int Address = 0, Written = 0, ToRead = 0;
};

class PortPrimitives : public testing::Test {
 protected:
  PortPrimitives() { platform::seams.ports = &ports; }
  NotedPorts ports;
};

TEST_F(PortPrimitives, AWriteSendsTheShadowToTheAddressAndRemembersIt) {
  PortAddress = 0x37A;
  PortShadow = 0x5A;
  PortLast = 0;
  PortWrite();
  EXPECT_EQ(ports.Address, 0x37A);
  EXPECT_EQ(ports.Written, 0x5A);
  EXPECT_EQ(PortLast, 0x5A);
  EXPECT_EQ(PortAddress, 0x37A) << "the address keeps its value";
}

TEST_F(PortPrimitives, AReadFillsTheLastValueAndLeavesTheShadow) {
  PortAddress = 0x379;
  PortShadow = 7;
  ports.ToRead = 0xC0;
  PortRead();
  EXPECT_EQ(ports.Address, 0x379);
  EXPECT_EQ(PortLast, 0xC0);
  EXPECT_EQ(PortShadow, 7);
}

TEST_F(PortPrimitives, AReadIsSignExtendedFromSixteenBits) {
  ports.ToRead = 0xFF80;
  PortRead();
  EXPECT_EQ(PortLast, -128);
}

TEST_F(PortPrimitives, AddressesAbove7FFFhReachThePortUnsigned) {
  PortBase = static_cast<std::int16_t>(0xD010);
  Address(LptStatus);
  PortRead();
  EXPECT_EQ(ports.Address, 0xD011);
  PortWrite();
  EXPECT_EQ(ports.Address, 0xD011);
}

TEST_F(PortPrimitives, ANewProgramPointsAt378hWithTheDefaultMasks) {
  EXPECT_EQ(PortBase, 888);
  EXPECT_FALSE(LptMode);
  EXPECT_FALSE(ComMode);
  EXPECT_EQ(VddSetMask, 4);
  EXPECT_EQ(VddClearMask, 251);
  EXPECT_EQ(VppSetMask, 8);
  EXPECT_EQ(VppClearMask, 247);
  EXPECT_EQ(DataSetMask, 1);
  EXPECT_EQ(DataClearMask, 254);
  EXPECT_EQ(ClockSetMask, 2);
  EXPECT_EQ(ClockClearMask, 253);
  EXPECT_EQ(InputSelect, 1);
}

TEST(ComMasks, AreTheModemLinesOfTheUart) {
  SetComMasks();
  EXPECT_EQ(VddSetMask, 1);
  EXPECT_EQ(VddClearMask, 254);
  EXPECT_EQ(VppSetMask, 64);
  EXPECT_EQ(VppClearMask, 191);
  EXPECT_EQ(DataSetMask, 1);
  EXPECT_EQ(DataClearMask, 254);
  EXPECT_EQ(ClockSetMask, 2);
  EXPECT_EQ(ClockClearMask, 253);
}

struct Setting {
  const char* name;
  void (*shape)(bool);
  bool level;
  int fromZero;  ///< register value that comes out of 00h ...
  int fromOnes;  ///< ... and of FFh
};

void ExpectSettings(const std::vector<Setting>& rows) {
  for (const Setting& row : rows) {
    PortLast = 0;
    row.shape(row.level);
    EXPECT_EQ(PortShadow, row.fromZero) << row.name << ' ' << row.level;
    EXPECT_EQ(PortLast, 0) << "the line's change leaves the last value to the write";
    PortLast = 0xFF;
    row.shape(row.level);
    EXPECT_EQ(PortShadow, row.fromOnes) << row.name << ' ' << row.level;
  }
}

TEST(LineSettings, OnThePrinterPortOrTheSetMaskOrAndTheClearMask) {
  LptMode = true;
  ExpectSettings({{"PGD", ShapePgd, true, 1, 255},
                  {"PGD", ShapePgd, false, 0, 254},
                  {"PGC", ShapePgc, true, 2, 255},
                  {"PGC", ShapePgc, false, 0, 253},
                  {"Vdd", ShapeVdd, true, 4, 255},
                  {"Vdd", ShapeVdd, false, 0, 251},
                  {"Vpp", ShapeVpp, true, 8, 255},
                  {"Vpp", ShapeVpp, false, 0, 247}});
}

TEST(LineSettings, OnThePrinterPortAnInvertedLineSwapsThem) {
  LptMode = true;
  DataInverted = ClockInverted = VddInverted = VppInverted = true;
  ExpectSettings({{"PGD", ShapePgd, true, 0, 254},
                  {"PGD", ShapePgd, false, 1, 255},
                  {"PGC", ShapePgc, true, 0, 253},
                  {"PGC", ShapePgc, false, 2, 255},
                  {"Vdd", ShapeVdd, true, 0, 251},
                  {"Vdd", ShapeVdd, false, 4, 255},
                  {"Vpp", ShapeVpp, true, 0, 247},
                  {"Vpp", ShapeVpp, false, 8, 255}});
}

TEST(LineSettings, OnTheSerialPortVddAndPgdAreTheSameLine) {
  ComMode = true;
  SetComMasks();
  ExpectSettings({{"PGD", ShapePgd, true, 1, 255},
                  {"PGD", ShapePgd, false, 0, 254},
                  {"PGC", ShapePgc, true, 2, 255},
                  {"PGC", ShapePgc, false, 0, 253},
                  {"Vdd", ShapeVdd, true, 1, 255},
                  {"Vdd", ShapeVdd, false, 0, 254},
                  {"Vpp", ShapeVpp, true, 64, 255},
                  {"Vpp", ShapeVpp, false, 0, 191}});
}

TEST(LineSettings, OnTheSerialPortAnInvertedLineSwapsThem) {
  ComMode = true;
  SetComMasks();
  ComPgdInverted = ComPgcInverted = ComVppInverted = true;
  ExpectSettings({{"PGD", ShapePgd, true, 0, 254},
                  {"PGD", ShapePgd, false, 1, 255},
                  {"PGC", ShapePgc, true, 0, 253},
                  {"PGC", ShapePgc, false, 2, 255},
                  {"Vdd", ShapeVdd, true, 0, 254},
                  {"Vdd", ShapeVdd, false, 1, 255},
                  {"Vpp", ShapeVpp, true, 0, 191},
                  {"Vpp", ShapeVpp, false, 64, 255}});
}

TEST(LineSettings, EachInterfaceLooksAtItsOwnFlagsOnly) {
  LptMode = true;
  ComPgdInverted = ComPgcInverted = ComVppInverted = true;
  ExpectSettings({{"PGD", ShapePgd, true, 1, 255}, {"Vpp", ShapeVpp, true, 8, 255}});
  LptMode = false;
  ComMode = true;
  SetComMasks();
  ComPgdInverted = ComPgcInverted = ComVppInverted = false;
  DataInverted = ClockInverted = VddInverted = VppInverted = true;
  ExpectSettings({{"PGC", ShapePgc, true, 2, 255}, {"Vdd", ShapeVdd, true, 1, 255}});
}

TEST(ControlLines, DataOneOnAClearRegisterGives1AndAClockUpBehindItGives3) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  EXPECT_EQ(session.LogOf([] { icsp::ClockOutBits("1"); }),
            (Lines{"R 0378 00", "W 0378 01", "W 0378 03", "P 10", "W 0378 01", "P 10"}));
}

TEST(ControlLines, VddAndVppBitsSetBeforeStaySet) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  platform::seams.ports->Out32(0x378, 0x0C);
  EXPECT_EQ(session.LogOf([] { icsp::ClockOutBits("01"); }),
            (Lines{"R 0378 0C", "W 0378 0D", "W 0378 0F", "P 10", "W 0378 0D", "P 10",  //
                   "R 0378 0D", "W 0378 0C", "W 0378 0E", "P 10", "W 0378 0C", "P 10"}));
}

TEST(ControlLines, BitsThatBelongToNoLineStayAsTheyWere) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  platform::seams.ports->Out32(0x378, 0xF0);
  session.BeginWire();
  TargetPowerOff();
  icsp::ClockOutBits("1");
  EXPECT_EQ(session.EndWire(), (Lines{"R 0378 F0", "W 0378 F0", "R 0378 F0", "W 0378 F1", "W 0378 F3", "P 10",
                                      "W 0378 F1", "P 10"}));
}

TEST(ControlLines, OnTheSerialPortAnInvertedDataZeroSetsDtr) {
  LineSession session(LineModel(LineModel::Kind::Com, 1));
  EXPECT_EQ(session.LogOf([] { icsp::ClockOutBits("10"); }),
            (Lines{"R 03FC 01", "W 03FC 01", "W 03FC 03", "P 10", "W 03FC 01", "P 10",  //
                   "R 03FC 01", "W 03FC 00", "W 03FC 02", "P 10", "W 03FC 00", "P 10"}));
}

TEST(ControlLines, OnTheSerialPortAClockLeavesDtrUntouched) {
  LineSession session(LineModel(LineModel::Kind::Com, 0));
  const Lines log = session.LogOf([] { icsp::ClockOutBits("1"); });
  EXPECT_EQ(log, (Lines{"R 03FC 00", "W 03FC 01", "W 03FC 03", "P 10", "W 03FC 01", "P 10"}));
}

TEST(ControlLines, AChangeOfPolarityTakesEffectWithTheNextLineChange) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  session.BeginWire();
  icsp::ClockOutBits("1");
  ClockInverted = true;
  icsp::ClockOutBits("1");
  ClockInverted = false;
  DataInverted = true;
  icsp::ClockOutBits("1");
  EXPECT_EQ(session.EndWire(), (Lines{"R 0378 00", "W 0378 01", "W 0378 03", "P 10", "W 0378 01", "P 10",
                                      "R 0378 01", "W 0378 01", "W 0378 01", "P 10", "W 0378 03", "P 10",
                                      "R 0378 03", "W 0378 02", "W 0378 02", "P 10", "W 0378 00", "P 10"}));
}

TEST(ControlLines, AChangeOfAMaskTakesEffectWithTheNextLineChange) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  DataSetMask = 128;
  DataClearMask = 127;
  EXPECT_EQ(session.LogOf([] { icsp::ClockOutBits("1"); }),
            (Lines{"R 0378 00", "W 0378 80", "W 0378 82", "P 10", "W 0378 80", "P 10"}));
}

TEST(ControlLines, TheOtherPinAssignmentOfThePrinterPortMovesItsOwnBits) {
  Settings settings;
  settings.pins = "128,64,32,16,0";
  settings.invert = "0";
  BenchSession session(settings);
  session.Do({"board lpt vdd=128 vpp=64 data=32 clock=16 input=busy", "start"});
  session.BeginWire();
  TargetPowerOn();
  icsp::ClockOutBits("1");
  EXPECT_EQ(icsp::ClockInBits(), 0) << "the port hardware inverts BUSY: a high line reads 0";
  const Lines log = session.EndWire();
  Lines expected{"R 0378 00", "W 0378 00", "D settle",  "R 0378 00", "W 0378 80", "D settle",
                 "W 0378 C0", "D settle",  "R 0378 C0", "W 0378 E0", "W 0378 F0", "P 10",
                 "W 0378 E0", "P 10",      "R 0378 E0", "W 0378 E0", "P 10"};
  for (int bit = 0; bit < 8; ++bit) {
    for (const char* line : {"W 0378 F0", "P 10", "W 0378 E0", "R 0379 00", "P 10"})
      expected.emplace_back(line);
  }
  EXPECT_TRUE(SameLog(expected, log));
}

TEST(ControlLines, WithoutAnInterfaceNothingMoves) {
  Settings settings;
  settings.port = "&H378,XYZ";
  BenchSession session(settings);
  session.Do({"board lpt", "start"});
  session.BeginWire();
  icsp::ClockOutBits("0110");
  static_cast<void>(icsp::ClockInBits());
  icsp::ProgramPulse();
  TargetPowerOff();
  TargetPowerOn();
  ToggleVdd();
  EXPECT_EQ(session.EndWire(), (Lines{"P 10", "S9", "S9", "S9", "D settle"})) << "no access to a port";
}

TEST(ControlLines, ARunningHandlerCanTouchTheSharedVariablesBetweenTwoBits) {
  // Nothing protects them: a toggle of the supply inside a wait moves its own bit, and the engine goes on
  // with what it left.
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  session.Do("at pump 5 click ProgFut");
  EXPECT_EQ(
      session.LogOf([] { icsp::ClockOutBits("1"); }),
      (Lines{"R 0378 00", "W 0378 01", "W 0378 03", "P 10", "R 0378 03", "W 0378 07", "W 0378 05", "P 10"}));
}

TEST(LineTable, TellsTheSameBitsAsTheMasks) {
  const int lptBits[] = {4, 8, 1, 2, 64};
  const int comBits[] = {1, 64, 1, 2, 16};
  const int lptRegisters[] = {0, 0, 0, 0, 1};
  const int comRegisters[] = {4, 3, 4, 4, 6};
  const char* const pins[] = {"4", "3, TXD", "4", "7", "8"};
  const char* const names[] = {"Vdd", "Vpp", "PGD out", "PGC", "data in"};
  ASSERT_EQ(std::size(LineTable), 5u);
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(LineTable[i].name, names[i]);
    EXPECT_EQ(LineTable[i].lptDefaultBit, lptBits[i]);
    EXPECT_EQ(LineTable[i].comBit, comBits[i]);
    EXPECT_EQ(LineTable[i].lptRegister, lptRegisters[i]);
    EXPECT_EQ(LineTable[i].comRegister, comRegisters[i]);
    EXPECT_EQ(LineTable[i].comPin, pins[i]);
  }
}

TEST(DataIn, StandsAtAckBusyOrCts) {
  PortBase = 0x278;
  LptMode = true;
  AddressInput();
  EXPECT_EQ(PortAddress, 0x279);
  EXPECT_EQ(InputBit(), 64);
  InputSelect = 0;
  EXPECT_EQ(InputBit(), 128);
  LptMode = false;
  ComMode = true;
  AddressInput();
  EXPECT_EQ(PortAddress, 0x27E);
  EXPECT_EQ(InputBit(), 16);
}

}  // namespace
}  // namespace zelvo::test
