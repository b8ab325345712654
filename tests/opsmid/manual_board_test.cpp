// The board on which the operator switches Vdd and Vpp by hand: the tick box, and every button's messages in
// their places.
#include "devices/mid_range_identification.h"
#include "link/port.h"
#include "mid_desk.h"

namespace zelvo::test {
namespace {

using panel::Form1;

constexpr const char* On = "Kapcsold Be a Vdd-t és a Vpp-t, majd OK!";
constexpr const char* Off = "Kapcsold Ki a Vdd-t és a Vpp-t!";
constexpr const char* OffThenOk = "Kapcsold Ki a Vdd-t és a Vpp-t, majd OK!";
constexpr const char* CycleVpp = "Kapcsold Ki-Be a Vpp-t, majd OK!";
constexpr const char* NotHere = "ZLPT_mini használatánál ez a funkció nem érhető el.";

class ManualBoard : public testing::Test {
 protected:
  void Begin(const MidChip& chip) {
    MidDesk::Rest();
    desk.Choose(chip);
    desk.session.Do({"tick Check8", "messages"});
  }
  static Lines Ok(std::initializer_list<const char*> texts) {
    Lines lines;
    for (const char* text : texts) lines.push_back(std::string("M ok ok ") + text);
    return lines;
  }
  MidDesk desk;
};

TEST_F(ManualBoard, ATickClearsBothChecksAndDisablesTheWholeChipButtons) {
  desk.session.Do({"tick Check4", "tick Check6", "tick Check8"});
  EXPECT_FALSE(Form1.Check4.Value);
  EXPECT_FALSE(Form1.Check6.Value);
  EXPECT_FALSE(Form1.Command19.Enabled);
  EXPECT_FALSE(Form1.Command21.Enabled);
  EXPECT_EQ(desk.session.Look("messages"), Lines{});
  EXPECT_EQ(desk.session.Refused("click Command19"), "disabled");
  EXPECT_EQ(desk.session.Refused("click Command21"), "disabled");
}

TEST_F(ManualBoard, TakenAwayClearsBothChecksAndEnablesTheButtons) {
  desk.session.Do("tick Check8");
  desk.session.Do("untick Check8");
  desk.session.Do({"tick Check4", "tick Check6"});
  EXPECT_TRUE(Form1.Check4.Value);
  EXPECT_TRUE(Form1.Check6.Value);
  EXPECT_EQ(desk.session.Look("messages"), Lines{}) << "nothing is refused any more";
  EXPECT_TRUE(Form1.Command19.Enabled);
  EXPECT_TRUE(Form1.Command21.Enabled);
}

TEST_F(ManualBoard, ATickOnACheckIsTakenBackAtOnce) {
  desk.session.Do("tick Check8");
  for (const char* box : {"Check4", "Check6"}) {
    EXPECT_EQ(desk.session.WireOf(std::string("tick ") + box), Ok({NotHere})) << box;
    EXPECT_EQ(desk.session.Ask(std::string("get ") + box), "0") << box;
  }
}

TEST_F(ManualBoard, AWholeChipClickThatReachesItsButtonIsRefused) {
  Begin(MidChipOf("16F84A"));
  EXPECT_EQ(desk.WireOf([] { Form1.Command19.Click(); }),
            Ok({"ZLPT_minivel csak egyenként lehet kiolvasni a tartalmakat."}));
  EXPECT_EQ(desk.WireOf([] { Form1.Command21.Click(); }),
            Ok({"ZLPT_minivel csak egyenként lehet írni a tartalmakat."}));
  desk.session.Do("tab 1");
  for (panel::CommandButton* button : {&Form1.Command19, &Form1.Command21})
    EXPECT_EQ(desk.WireOf([button] { button->Click(); }), Ok({"Nincs PIC kiválasztva!"}));
}

TEST_F(ManualBoard, WithoutAChipNoButtonAsksForThePower) {
  desk.session.Do("tick Check8");
  for (const char* button :
       {"Command8", "Command11", "Command12", "Command13", "Command15", "Command17", "Command18"})
    EXPECT_EQ(desk.Click(button), Ok({"Nincs PIC kiválasztva!"})) << button;
}

TEST_F(ManualBoard, WithoutEepromNeitherEepromButtonAsksForThePower) {
  Begin(MidChipOf("12F609"));
  for (const char* button : {"Command17", "Command18"})
    EXPECT_EQ(desk.Click(button), Ok({"Ebben a PIC-ben nincs EEPROM memória."})) << button;
}

TEST_F(ManualBoard, AReadOfFlashAsksForThePowerReadsAndAsksItOffBeforeTheReview) {
  Begin(MidChipOf("16F84A"));
  MidWire model = desk.Model();
  model.Tell(On);
  model.ReadFlash(Floating(CutWords), true);
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command8")));
}

TEST_F(ManualBoard, ACancelledReadOfFlashEndsWithoutTheRequest) {
  Begin(MidChipOf("16F84A"));
  desk.session.Do("at progress Állapot 2 click Állapot.Command1");
  EXPECT_EQ(Only(desk.Click("Command8"), "M"), Ok({On}));
}

TEST_F(ManualBoard, AReadOfTheConfigurationAsksBeforeItsReviewForOneWordAndForTwo) {
  for (const char* number : {"16F84A", "16F887"}) {
    Begin(MidChipOf(number));
    MidWire model = desk.Model();
    model.Tell(On);
    model.ReadConfig(MidChipOf(number), ErasedMid, ErasedMid, true, true);
    model.PowerOff();
    EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command13"))) << number;
  }
}

TEST_F(ManualBoard, AReadOfTheUserIdsAsksBeforeItsReview) {
  Begin(MidChipOf("16F84A"));
  MidWire model = desk.Model();
  model.Tell(On);
  model.ReadIds({ErasedMid, ErasedMid, ErasedMid, ErasedMid}, true, true);
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command15")));
}

TEST_F(ManualBoard, AReadOfTheEepromAsksBeforeItsReview) {
  Begin(MidChipOf("16F84A"));
  MidWire model = desk.Model();
  model.Tell(On);
  model.ReadEeprom(Floating(CutBytes, 0xFF), true);
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command17")));
}

TEST_F(ManualBoard, AWriteOfFlashAsksForThePowerTwiceForVppAndForTheEnd) {
  for (const char* number : {"16F84A", "12F609", "16F88", "16F887", "16F690"}) {
    const MidChip& chip = MidChipOf(number);
    Begin(chip);
    FlashJob job = MixedJob();
    job.manual = true;
    MidDesk::Take(job);
    MidWire model = desk.Model();
    model.WriteFlash(chip, job);
    model.PowerOff();
    const Lines log = desk.Click("Command11");
    EXPECT_TRUE(SameLog(model.Log(), log)) << number;
    EXPECT_EQ(Only(log, "M"), Ok({On, CycleVpp, CycleVpp, Off}));
  }
}

TEST_F(ManualBoard, AnEraseAsksForThePowerAndAtItsVeryEndForItsEnd) {
  for (const char* number : {"16F84A", "16F877", "16F819", "12F609"}) {
    const MidChip& chip = MidChipOf(number);
    Begin(chip);
    MidWire model = desk.Model();
    model.Tell(On);
    model.Log(":  PIC Törlése Indult.");
    model.PowerOn();
    model.Erase(WholePieces(chip), chip);
    model.Log(":  PIC Törlése Kész.");
    model.PowerOff();
    model.Tell(Off);
    EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command12"))) << number;
    EXPECT_FALSE(devices::MidEraseRun);
  }
}

TEST_F(ManualBoard, AWriteOfTheEepromAsksForThePowerAndBeforeTheLinesGoOffForItsEnd) {
  const Values bytes = {0x12, 0xFF, 0x34, 0xFF, 0xFF, 0xFF, 0xFF, 0x00};
  for (const char* number : {"16F84A", "12F629"}) {
    const MidChip& chip = MidChipOf(number);
    Begin(chip);
    MidDesk::FillEeprom(bytes);
    MidWire model = desk.Model();
    model.Tell(On);
    model.WriteEeprom(chip, bytes);
    model.Tell(Off);
    model.PowerOff();
    EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command18"))) << number;
  }
}

TEST_F(ManualBoard, AnIdentificationAsksForThePowerAndForItsEndBeforeItTellsTheChip) {
  desk.session.Do("tick Check8");
  AnsweringChip& chip = PutAnsweringChip(desk.session);
  chip.Word(0x0560);
  MidWire model = desk.Model();
  model.Tell(On);
  model.PowerOn();
  model.PowerOn();
  model.Log(":  PIC Azonosítás indult.");
  model.ToConfigSpace();
  model.Increments(6);
  model.ReadFrame("000100", 0x0560);
  model.Tell(OffThenOk);
  model.Log(":  A felismert PIC a 16F84A. ");
  model.Log(":  PIC16F84A Kiválaszva.");
  model.Log(": PIC ID: 43");
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), desk.Click("Command9")));
}

TEST_F(ManualBoard, NoSingleOperationIdentifiesOrAsksAQuestion) {
  Begin(MidChipOf("16F84A"));
  for (const char* button :
       {"Command8", "Command11", "Command12", "Command13", "Command15", "Command17", "Command18"}) {
    const Lines log = desk.Click(button);
    for (const std::string& line : log) {
      EXPECT_EQ(line.find("PIC ID"), std::string::npos) << button;
      EXPECT_FALSE(line.starts_with("M yesno")) << button;
    }
  }
}

TEST_F(ManualBoard, TheFourSingleReadsMoveNeitherVddNorVpp) {
  Begin(MidChipOf("16F84A"));
  for (const char* button : {"Command8", "Command13", "Command15", "Command17"}) {
    for (const std::string& line : desk.Click(button)) {
      EXPECT_NE(line, "D settle") << button;
      if (line[0] == 'W') {
        EXPECT_EQ(std::stoi(line.substr(7), nullptr, 16) & 0x0C, 0) << button << ' ' << line;
      }
    }
  }
}

}  // namespace
}  // namespace zelvo::test
