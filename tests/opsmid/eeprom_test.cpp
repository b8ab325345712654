// The data EEPROM of the mid-range chips: every event of a read and a write on every board, which chip is
// erased before, the buttons, Cancel, and clicks inside a run.
#include "opsmid/eeprom.h"

#include "icsp/conversions.h"
#include "image/eeprom_walk.h"
#include "mid_desk.h"

namespace zelvo::test {
namespace {

constexpr const char* NoChip = "Nem érzékelek PIC-et!";

Values Bytes() {
  return {0x12, 0xFF, 0x00, 0xA5, 0x80, 0x01, 0xFF, 0xFE};
}

class EepromOn : public testing::TestWithParam<BoardKind> {
 protected:
  EepromOn() : desk(GetParam()) { desk.Choose(MidChipOf("16F84A")); }
  MidDesk desk;
};
INSTANTIATE_TEST_SUITE_P(Board, EepromOn, testing::ValuesIn(BoardKinds()), BoardName);

TEST_P(EepromOn, AReadTakesEightBitsOfEachFrameAndClocksSixAway) {
  AnsweringChip& chip = PutAnsweringChip(desk.session);
  MidWire model = desk.Model();
  model.Log(":  EEPROM Beolvasása Indult.");
  model.Line("+ EEE_Olv_Állapot");
  int address = 0;
  for (const int byte : Bytes()) {
    const int pad = address % 2 == 0 ? 0x15 : 0x2A;  // the chip may drive anything there
    chip.Word(byte | pad << 8);
    model.Line("B EEE_Olv_Állapot " + std::to_string(address++));
    model.ReadFrame("000101", byte | pad << 8);
    model.Increments(1);
  }
  model.Log(":  EEPROM beolvasás kész.");
  model.Line("- EEE_Olv_Állapot");
  model.Review("EEPROM_Beolvas");
  EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::ReadMidEeprom)));
  EXPECT_EQ(chip.Left(), 0U);
  for (int i = 0; i < CutBytes; ++i)
    EXPECT_EQ(image::EepromReadBuffer(i + 1, 1), HexDigits(Bytes()[static_cast<std::size_t>(i)], 2));
  EXPECT_EQ(image::EepromAddress, CutBytes);
  EXPECT_EQ(image::ReadIndex, 1);
}

TEST_P(EepromOn, AWriteErasesAndSendsEachByteThatIsNotErased) {
  MidDesk::FillEeprom(Bytes());
  link::WholeChipRun = true;  // no questions
  MidWire model = desk.Model();
  model.WriteEeprom(MidChipOf("16F84A"), Bytes());
  EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::WriteMidEeprom)));
  EXPECT_EQ(opsmid::EepromWriteCount, CutBytes);
}

class EepromOfChip : public testing::TestWithParam<MidChip> {};
INSTANTIATE_TEST_SUITE_P(Chip, EepromOfChip, testing::ValuesIn(MidChips().begin(), MidChips().end()),
                         ChipName);

TEST_P(EepromOfChip, IsErasedInItsOwnWayAndWritten) {
  MidDesk desk;
  desk.Choose(GetParam());
  const Values bytes = GetParam().eeprom ? Bytes() : Values{};
  MidDesk::FillEeprom(bytes);
  link::WholeChipRun = true;
  MidWire model = desk.Model();
  model.WriteEeprom(GetParam(), bytes);
  EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::WriteMidEeprom)));
}

class Eeprom : public testing::Test {
 protected:
  void Choose(std::string_view number, const Values& bytes = Bytes()) {
    MidDesk::Rest();
    desk.Choose(MidChipOf(number));
    MidDesk::FillEeprom(bytes);
    link::UserAbort = false;
  }
  MidDesk desk;
};

TEST_F(Eeprom, OfAllErasedBytesSendsTheEraseAndIncrementsOnly) {
  Choose("16F690", Floating(CutBytes, 0xFF));
  link::WholeChipRun = true;
  const Lines log = desk.WireOf(opsmid::WriteMidEeprom);
  const auto window = std::ranges::find(log, "+ EEE_Ír_Állapot");
  const Lines erase(log.begin(), window);
  const Lines walk(window, log.end());
  EXPECT_EQ(Only(erase, "P").size(), 12U) << "one command";
  EXPECT_EQ(Count(erase, "D cycle 2"), 2);
  EXPECT_EQ(Only(walk, "P").size(), static_cast<std::size_t>(CutBytes * 12));
  EXPECT_EQ(Only(walk, "D"), Lines{});
}

TEST_F(Eeprom, OfAChipWithoutAnEraseIsWrittenOverAndErasedBytesOfTheImageArePassed) {
  for (const char* number : {"12F629", "12F635", "12F675", "12F683", "16F630", "16F676"}) {
    Choose(number);
    link::WholeChipRun = true;
    const Lines log = desk.WireOf(opsmid::WriteMidEeprom);
    EXPECT_EQ(Count(log, "D cycle 2"), 6 * 2) << "two for each of six bytes, none for an erase";
    const auto window = std::ranges::find(log, "+ EEE_Ír_Állapot");
    EXPECT_EQ(Only(Lines(log.begin(), window), "P"), Lines{}) << number;
  }
}

TEST_F(Eeprom, Of128BytesWalks16Rows) {
  desk.session.Do("choose Combo2 PIC16F648A");
  devices::EepromMax = 127;
  link::WholeChipRun = true;
  image::EepromReadBuffer(1, 17) = "??";
  image::EepromBuffer(8, 16) = "00";
  image::EepromBuffer(1, 17) = "00";
  const Lines write = desk.WireOf(opsmid::WriteMidEeprom);
  EXPECT_EQ(Only(write, "B").size(), 128U);
  EXPECT_EQ(Only(write, "B").back(), "B EEE_Ír_Állapot 127");
  EXPECT_EQ(Count(write, "D cycle 2"), 8 + 2) << "the erase and the last byte";
  EXPECT_EQ(opsmid::EepromWriteCount, 128);
  const Lines read = desk.WireOf(opsmid::ReadMidEeprom);
  EXPECT_EQ(Only(read, "B").size(), 128U);
  EXPECT_EQ(image::EepromReadBuffer(8, 16), "FF");
  EXPECT_EQ(image::EepromReadBuffer(1, 17), "??");
}

TEST_F(Eeprom, RunsAtTheSpeedSetting) {
  Choose("12F629");
  link::WholeChipRun = true;
  for (void (*run)() : {opsmid::ReadMidEeprom, opsmid::WriteMidEeprom}) {
    link::SpeedSetting = 5;
    link::WaitCount = 40;
    const Lines log = desk.WireOf(run);
    EXPECT_EQ(Count(log, "P 5"), static_cast<int>(Only(log, "P").size()));
    EXPECT_EQ(Count(log, "D cycle 40"), 0);
    EXPECT_EQ(link::WaitCount, 5);
  }
}

TEST_F(Eeprom, AReadTakesASpeedThatIsSetMeanwhile) {
  Choose("12F629");
  desk.session.Do("at progress EEE_Olv_Állapot 4 scroll HScroll1 3");
  const Lines log = desk.WireOf(opsmid::ReadMidEeprom);
  const auto change = std::ranges::find(log, "B EEE_Olv_Állapot 4");
  EXPECT_EQ(Count(Lines(log.begin(), change), "P 2"),
            static_cast<int>(Only(Lines(log.begin(), change), "P").size()));
  EXPECT_EQ(Count(Lines(change, log.end()), "P 2"), 0);
  EXPECT_EQ(link::WaitCount, 30);
}

TEST_F(Eeprom, CancelDoesNotEndARead) {
  Choose("16F84A");
  desk.session.Do("at progress EEE_Olv_Állapot 3 click EEE_Olv_Állapot.Command1");
  MidWire model = desk.Model();
  model.ReadEeprom(Floating(CutBytes, 0xFF));
  EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::ReadMidEeprom)));
  EXPECT_TRUE(link::UserAbort);
}

TEST_F(Eeprom, CancelEndsAWriteBehindTheByteInHand) {
  for (int byte = 0; byte < CutBytes; ++byte) {
    Choose("16F84A");
    link::WholeChipRun = true;
    MidWire model = desk.Model();
    model.WriteEeprom(MidChipOf("16F84A"), Bytes(), byte);
    desk.session.Do("at progress EEE_Ír_Állapot " + std::to_string(byte) + " click EEE_Ír_Állapot.Command1");
    EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::WriteMidEeprom))) << byte;
    EXPECT_EQ(opsmid::EepromWriteCount, byte + 1);
    EXPECT_TRUE(link::UserAbort);
  }
}

TEST_F(Eeprom, ACancelOfAWriteIsForgottenBehindIt) {
  Choose("16F84A");
  desk.session.Do({"answer yes", "at progress EEE_Ír_Állapot 2 click EEE_Ír_Állapot.Command1"});
  desk.Click("Command18");
  EXPECT_FALSE(link::UserAbort);
  desk.session.Do("answer yes");
  desk.Click("Command18");
  EXPECT_TRUE(panel::Form1.List4.Lines().front().ends_with(":  EEPROM Írása kész."));
}

TEST_F(Eeprom, WithCheckIsReadBackOnANewEntryAlsoBehindACancel) {
  for (const int cancelled : {NoCancel, 3}) {
    Choose("16F876");
    link::WholeChipRun = true;
    desk.session.Do("tick Check4");
    if (cancelled != NoCancel) {
      desk.session.Do("at progress EEE_Ír_Állapot 3 click EEE_Ír_Állapot.Command1");
    }
    MidWire model = desk.Model();
    model.WriteEeprom(MidChipOf("16F876"), Bytes(), cancelled);
    model.PowerOn();
    model.ReadEeprom(Floating(CutBytes, 0xFF));
    EXPECT_TRUE(SameLog(model.Log(), desk.WireOf(opsmid::WriteMidEeprom))) << cancelled;
  }
}

TEST_F(Eeprom, TheReadButtonIdentifiesAsksAndReadsOnANewEntry) {
  Choose("16F84A");
  desk.session.Do("answer yes");
  MidWire model = desk.Model();
  model.PowerOn();
  model.Identify(ErasedMid);
  model.Ask(true, std::string(NoChip) + " Folytatod az olvasást?");
  model.PowerOn();
  model.ReadEeprom(Floating(CutBytes, 0xFF));
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command17")));
}

TEST_F(Eeprom, TheWriteButtonIdentifiesAsksAndErasesOnThePowerOfTheIdentification) {
  Choose("16F84A");
  desk.session.Do("answer yes");
  MidWire model = desk.Model();
  model.PowerOn();
  model.Identify(ErasedMid);
  model.Ask(true, std::string(NoChip) + " Folytatod az égetést?");
  model.WriteEeprom(MidChipOf("16F84A"), Bytes());
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command18")));
  EXPECT_EQ(devices::SelectedName, "PIC16F84A");
}

TEST_F(Eeprom, TheButtonsRefuseWithoutAChipFirstAndThenWithoutEeprom) {
  for (const char* button : {"Command17", "Command18"}) {
    desk.session.Do("tab 1");
    EXPECT_EQ(desk.Click(button), Lines{"M ok ok Nincs PIC kiválasztva!"}) << button;
    for (const MidChip& chip : MidChips()) {
      if (chip.eeprom) continue;
      desk.session.Do("choose Combo2 " + chip.Name());
      EXPECT_EQ(desk.Click(button), Lines{"M ok ok Ebben a PIC-ben nincs EEPROM memória."}) << chip.number;
    }
  }
}

TEST_F(Eeprom, ARunInsideAWholeChipWriteAsksNothing) {
  Choose("16F84A");
  link::WholeChipRun = true;
  MidWire model = desk.Model();
  model.WriteEeprom(MidChipOf("16F84A"), Bytes());
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command18")));
}

TEST_F(Eeprom, ADigitThatIsNoneGoesOutAsTheOneBeforeIt) {
  Lines logs[2];
  for (const bool plain : {false, true}) {
    Choose("16F84A");
    link::WholeChipRun = true;
    image::EepromBuffer(1, 1) = "12";
    image::EepromBuffer(2, 1) = plain ? "22" : "x-";
    image::EepromBuffer(3, 1) = plain ? "55" : "5f";
    logs[plain ? 1 : 0] = Only(desk.WireOf(opsmid::WriteMidEeprom), "WRPD");
  }
  EXPECT_TRUE(SameLog(logs[1], logs[0]));
  EXPECT_EQ(icsp::LoadFailed, 2);
}

TEST_F(Eeprom, TheImageIsOnlyRead) {
  Choose("16F84A");
  link::WholeChipRun = true;
  opsmid::WriteMidEeprom();
  for (int i = 0; i < CutBytes; ++i)
    EXPECT_EQ(image::EepromBuffer(i + 1, 1), HexDigits(Bytes()[static_cast<std::size_t>(i)], 2));
}

TEST_F(Eeprom, APageChosenOrAReadClickedInsideDoesNotCutItShort) {
  for (const char* inside : {"tab 2", "choose Combo2 PIC12F609", "click Command17"}) {
    for (const char* window : {"EEE_Olv_Állapot", "EEE_Ír_Állapot"}) {
      desk.session.Do({"tab 1", "answer yes"});
      Choose("16F84A");
      link::WholeChipRun = true;
      desk.session.Do(std::string("at progress ") + window + " 3 " + inside);
      const bool write = window == std::string("EEE_Ír_Állapot");
      const Lines log = desk.WireOf(write ? opsmid::WriteMidEeprom : opsmid::ReadMidEeprom);
      const bool twice = inside == std::string("click Command17");
      EXPECT_EQ(Only(log, "B").size(), static_cast<std::size_t>(twice ? 2 * CutBytes : CutBytes))
          << inside << " in " << window;
    }
  }
}

TEST_F(Eeprom, ClosingTheProgramEndsAWriteWhereItStandsWithTheLinesAtIdle) {
  Choose("16F84A");
  desk.session.Do({"answer yes", "at progress EEE_Ír_Állapot 3 stop"});
  const Lines log = desk.Click("Command18");
  const auto bar = std::ranges::find(log, "B EEE_Ír_Állapot 3");
  ASSERT_NE(bar, log.end());
  EXPECT_EQ(Lines(bar + 1, bar + 3), (Lines{"R 0378 0C", "W 0378 00"}));
  EXPECT_EQ(Only(Lines(bar + 3, log.end()), "WRPDL"), Lines{});
}

}  // namespace
}  // namespace zelvo::test
