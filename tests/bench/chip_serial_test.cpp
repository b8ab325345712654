// Programming mode, the 20-bit beat and the core.
#include <gtest/gtest.h>

#include "chip_driver.h"

namespace zelvo::bench {
namespace {

TEST(ChipSerial, AnswersItsDeviceId) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  EXPECT_EQ(chip.ReadAt(0x3FFFFE), 0x20U);
  EXPECT_EQ(chip.ReadByte(0x9), 0x04U);
}

TEST(ChipSerial, TakesAnotherDeviceIdWhenItIsMadeWithOne) {
  ChipDriver chip("PIC18F452", 0x1234);
  chip.Enter();
  EXPECT_EQ(chip.ReadAt(0x3FFFFE), 0x34U);
  EXPECT_EQ(chip.ReadByte(0x9), 0x12U);
}

TEST(ChipSerial, SaysNothingOutsideProgrammingMode) {
  ChipDriver chip("PIC18F452");
  chip.Set(&LineLevels::vdd, true);
  chip.Bits(0x9, 4);
  for (int i = 0; i < 16; ++i) {
    chip.Clock(false);
    EXPECT_EQ(chip.Data(), std::nullopt);
  }
}

TEST(ChipSerial, DoesNotEnterProgrammingModeWhenVppComesBeforeVdd) {
  ChipDriver chip("PIC18F452");
  chip.Set(&LineLevels::vpp, true);
  chip.Set(&LineLevels::vdd, true);
  EXPECT_EQ(chip.ReadAt(0x3FFFFF), 0xFFU);
}

TEST(ChipSerial, DoesNotEnterProgrammingModeWhileClockOrDataIsHigh) {
  for (auto line : {&LineLevels::pgc, &LineLevels::pgd}) {
    ChipDriver chip("PIC18F452");
    chip.Set(line, true);
    chip.Set(&LineLevels::vdd, true);
    chip.Set(&LineLevels::vpp, true);
    chip.Set(line, false);
    EXPECT_EQ(chip.ReadAt(0x3FFFFF), 0xFFU);
  }
}

TEST(ChipSerial, ForgetsRegistersAndLatchesWhenVppFalls) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.AccessCode();
  chip.Pointer(0x10);
  chip.Command(0xC, 0x0000);
  chip.Set(&LineLevels::vpp, false);
  chip.Set(&LineLevels::vpp, true);
  chip.AccessCode();
  EXPECT_EQ(chip.Eecon1(), 0x84U);
  chip.WriteEight(0x10, 0xFF);
  EXPECT_EQ(chip.ReadAt(0x10), 0xFFU);
}

TEST(ChipSerial, DrivesDataOnlyDuringTheLastEightClocksOfARead) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.Bits(0x9, 4);
  for (int i = 0; i < 16; ++i) {
    chip.Set(&LineLevels::pgc, true);
    EXPECT_EQ(chip.Data().has_value(), i >= 8);
    chip.Set(&LineLevels::pgc, false);
    EXPECT_EQ(chip.Data().has_value(), i >= 8);
  }
  chip.Set(&LineLevels::pgc, true);
  EXPECT_FALSE(chip.Data().has_value()) << "an input again from the next rising edge on";
}

TEST(ChipSerial, PutsTheNextBitOutAtTheRisingEdgeAndKeepsItBehindTheFallingOne) {
  ChipDriver chip("PIC18F452");
  ASSERT_TRUE(chip.Device().Burn(0, 0x55));
  chip.Enter();
  chip.Bits(0x8, 4);
  chip.Bits(0, 8);
  for (int i = 0; i < 8; ++i) {
    chip.Set(&LineLevels::pgc, true);
    EXPECT_EQ(chip.Data(), i % 2 == 0);
    chip.Set(&LineLevels::pgc, false);
    EXPECT_EQ(chip.Data(), i % 2 == 0);
  }
}

TEST(ChipSerial, LatchesTheDataThatStandsBeforeTheFallingEdge) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  for (const unsigned bit :
       {0U, 0U, 0U, 0U, 0U, 1U, 0U, 1U, 1U, 0U, 1U, 0U, 0U, 1U, 1U, 1U, 0U, 0U, 0U, 0U}) {
    chip.Set(&LineLevels::pgc, true);
    chip.Set(&LineLevels::pgd, bit != 0);
    chip.Set(&LineLevels::pgc, false);
    chip.Set(&LineLevels::pgd, bit == 0);
  }
  chip.Core({0x6EF5});  // the loop was MOVLW 5Ah
  EXPECT_EQ(chip.ReadByte(0x2), 0x5AU);
}

TEST(ChipSerial, StaysFourBitsOutOfStepAfterAFrameOf24Bits) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.Bits(0, 24);
  EXPECT_NE(chip.ReadAt(0x3FFFFE), 0x20U);
  EXPECT_NE(chip.ReadAt(0x3FFFFE), 0x20U);
  chip.Set(&LineLevels::vpp, false);
  chip.Set(&LineLevels::pgd, false);
  chip.Set(&LineLevels::vpp, true);
  EXPECT_EQ(chip.ReadAt(0x3FFFFE), 0x20U);
}

TEST(ChipSerial, MovesTheTablePointerAsTheReadCommandSays) {
  ChipDriver chip("PIC18F452");
  for (unsigned i = 0; i < 8; ++i) ASSERT_TRUE(chip.Device().Burn(i, static_cast<std::uint8_t>(i)));
  chip.Enter();
  chip.Pointer(4);
  EXPECT_EQ(chip.ReadByte(0x8), 4U);
  EXPECT_EQ(chip.ReadByte(0x9), 4U);
  EXPECT_EQ(chip.ReadByte(0xA), 5U);
  EXPECT_EQ(chip.ReadByte(0xB), 5U);
  EXPECT_EQ(chip.ReadByte(0x8), 5U);
}

TEST(ChipSerial, ReadsZeroWhereNothingIsImplemented) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  for (const std::uint32_t address : {0x8000U, 0x1FFFFFU, 0x200008U, 0x30000EU, 0x3C0004U}) {
    EXPECT_EQ(chip.ReadAt(address), 0U) << std::hex << address;
  }
}

TEST(ChipSerial, ExecutesTheInstructionsThatTheSpecificationsClockIn) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.Core({0x0E41, 0x6EF6, 0x2AF6});  // MOVLW 41h, MOVWF TBLPTRL, INCF TBLPTRL
  chip.Core({0x50F6, 0x6EF5});          // MOVF TBLPTRL,W; MOVWF TABLAT
  EXPECT_EQ(chip.ReadByte(0x2), 0x42U);
  chip.Core({0x8EF6, 0x90F6, 0x80F6});                  // BSF 7, BCF 0, BSF 0
  chip.Core({0xEF00, 0xF800, 0x0000, 0x50F6, 0x6EF5});  // GOTO 100000h and NOP leave the registers alone
  EXPECT_EQ(chip.ReadByte(0x2), 0xC3U);
}

TEST(ChipSerial, HasNoCarryFromIncfIntoTheNextPointerByte) {
  ChipDriver chip("PIC18F452");
  chip.Enter();
  chip.Pointer(0x1FF);
  chip.Core({0x2AF6, 0x50F7, 0x6EF5});
  EXPECT_EQ(chip.ReadByte(0x2), 0x01U);
}

TEST(ChipSerial, SetsWrOnlyWhileWritesAreEnabled) {
  ChipDriver chip("PIC18F4520");
  chip.Enter();
  chip.Core({0x94A6, 0x82A6});
  EXPECT_EQ(chip.Eecon1() & 0x02U, 0U);
}

}  // namespace
}  // namespace zelvo::bench
