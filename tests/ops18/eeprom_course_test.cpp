// What an operator sees of the EEPROM's operations: progress, Cancel, other clicks meanwhile, the review and
// the automatic check.
#include <gtest/gtest.h>

#include <algorithm>

#include "devices/selection.h"
#include "eeprom_model.h"
#include "image/buffers.h"
#include "link/delays.h"
#include "link/run_state.h"
#include "ops18/eeprom.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"

namespace zelvo::test {
namespace {

using enum EepromGroup;
using panel::Form1;

const EepromBytes Sixteen = {0x10, 0x21, 0x32, 0x43, 0x54, 0x65, 0x76, 0x87,
                             0x98, 0xA9, 0xBA, 0xCB, 0xDC, 0xED, 0xFE, 0x0F};

class EepromCourse : public testing::Test {
 protected:
  void SetUp() override {
    link::SpeedSetting = 16;
    it.Choose("PIC18F452");
    SocketEeprom(it.session, "PIC18F452", Sixteen);
    TakeEeprom("PIC18F452", EepromBytes(16, ErasedByte));
  }
  /// The log of a read that a Cancel ended behind the first `count` bytes.
  Lines CancelledAfter(int count) {
    WireModel model(BoardKinds().front(), 2);
    const int event = NextEvent(it.session);
    model.PowerOn();
    model.Event(event, ":  EEPROM Beolvasása Indult.");
    model.Line("+ EEE_Olv_Állapot");
    for (int address = 0; address < count; ++address) {
      model.Line("B EEE_Olv_Állapot " + std::to_string(address));
      AddEepromReadByte(model, Panel, address, Sixteen[static_cast<std::size_t>(address)]);
    }
    model.Line("- EEE_Olv_Állapot");
    model.PowerOff();
    model.Event(event + 1, ":  Felhasználói megszakítás!");
    model.PowerOff();
    return model.Log();
  }
  /// Lines of the event list, windows and messages.
  [[nodiscard]] static Lines Course(const Lines& log) {
    Lines course;
    for (const std::string& line : log) {
      if (line[0] == 'L' || line[0] == '+' || line[0] == '-' || line[0] == 'M') course.push_back(line);
    }
    return course;
  }
  [[nodiscard]] static std::string Logged(int event, const std::string& text) {
    return "L List1 " + std::to_string(event) + ":  TIME" + text;
  }
  Operations it;
};

TEST_F(EepromCourse, CancelEndsAReadBehindTheByteInHandAndOpensNoReview) {
  image::EepromReadBuffer(4, 1) = "??";
  it.session.Do("at progress EEE_Olv_Állapot 2 click EEE_Olv_Állapot.Command1");
  const Lines expected = CancelledAfter(3);
  EXPECT_TRUE(SameLog(expected, it.WireOf(ops18::ReadEeprom)));
  EXPECT_EQ(image::EepromReadBuffer(1, 1), "10");
  EXPECT_EQ(image::EepromReadBuffer(3, 1), "32") << "what was read stays";
  EXPECT_EQ(image::EepromReadBuffer(4, 1), "??");
  EXPECT_FALSE(panel::EEPROM_Beolvas.Loaded());
  EXPECT_FALSE(panel::EEE_Olv_Állapot.Loaded());
  EXPECT_EQ(link::WaitCount, 16);
}

TEST_F(EepromCourse, CancelIsServedInsideTheWaitsOfAByte) {
  it.session.Do("at progress EEE_Olv_Állapot 4 at pump 300 click EEE_Olv_Állapot.Command1");
  const Lines expected = CancelledAfter(5);
  EXPECT_TRUE(SameLog(expected, it.WireOf(ops18::ReadEeprom)));
}

TEST_F(EepromCourse, CancelDuringTheLastByteStillCounts) {
  it.session.Do("at progress EEE_Olv_Állapot 15 click EEE_Olv_Állapot.Command1");
  const Lines expected = CancelledAfter(16);
  EXPECT_TRUE(SameLog(expected, it.WireOf(ops18::ReadEeprom)));
  EXPECT_FALSE(link::UserAbort) << "the run is over";
}

TEST_F(EepromCourse, ACancelFromBeforeIsForgottenAndAStaleReviewMakesPlace) {
  ops18::ReadEeprom();
  ASSERT_TRUE(panel::EEPROM_Beolvas.Loaded());
  link::UserAbort = true;
  const int event = NextEvent(it.session);
  EXPECT_EQ(Course(it.WireOf(ops18::ReadEeprom)),
            (Lines{Logged(event, ":  EEPROM Beolvasása Indult."), "+ EEE_Olv_Állapot", "- EEE_Olv_Állapot",
                   "- EEPROM_Beolvas", "+ EEPROM_Beolvas", Logged(event + 1, ":  EEPROM beolvasás kész.")}));
  it.session.Do("at progress EEE_Olv_Állapot 2 click EEE_Olv_Állapot.Command1");
  EXPECT_EQ(
      Course(it.WireOf(ops18::ReadEeprom)),
      (Lines{Logged(event + 2, ":  EEPROM Beolvasása Indult."), "+ EEE_Olv_Állapot", "- EEE_Olv_Állapot",
             "- EEPROM_Beolvas", Logged(event + 3, ":  Felhasználói megszakítás!")}));
}

TEST_F(EepromCourse, CancelIsIgnoredByAWrite) {
  link::SpeedSetting = link::WaitCount = 2;
  it.session.Do("socket none");
  TakeEeprom("PIC18F452", Sixteen);
  it.session.Do({"at progress EEE_Ír_Állapot 3 click EEE_Ír_Állapot.Command1",
                 "at progress EEE_Ír_Állapot 9 at pump 100 click EEE_Ír_Állapot.Command1"});
  WireModel model(BoardKinds().front(), 0);
  AddEepromWrite(model, BoardKinds().front(), Panel, 2, NextEvent(it.session), Sixteen, EmptySocket);
  EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::WriteEeprom)));
  EXPECT_TRUE(link::UserAbort) << "until the next progress window opens";
}

TEST_F(EepromCourse, CancelInAWriteDoesNotCancelTheReadThatChecksIt) {
  it.session.Do({"socket none", "tick Check1"});
  TakeEeprom("PIC18F452", {0x12, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF});
  it.session.Do("at progress EEE_Ír_Állapot 7 click EEE_Ír_Állapot.Command1");
  ops18::WriteEeprom();
  EXPECT_TRUE(Form1.List1.Lines().front().ends_with(":  EEPROM beolvasás kész."));
  EXPECT_TRUE(panel::EEPROM_Beolvas.Loaded());
}

TEST_F(EepromCourse, WithTheAutomaticCheckAReadFollowsWhenThePowerIsOff) {
  it.session.Do({"socket none", "tick Check1"});
  link::SpeedSetting = link::WaitCount = 8;
  const EepromBytes bytes = {0x12, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};
  TakeEeprom("PIC18F452", bytes);
  const int event = NextEvent(it.session);
  WireModel model(BoardKinds().front(), 0);
  AddEepromWrite(model, BoardKinds().front(), Panel, 8, event, bytes, EmptySocket);
  model.Passes(1);
  AddEepromRead(model, Panel, event + 2, EepromBytes(8, 0xFF));
  EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::WriteEeprom)));
}

TEST_F(EepromCourse, ProgressCountsAddressesFromZero) {
  EXPECT_EQ(panel::EEE_Olv_Állapot.Caption, "EEPROM Olvasás állapota");
  EXPECT_EQ(panel::EEE_Ír_Állapot.Caption, "EEPROM Írás Állapota");
  for (const auto& [chip, max] : {std::pair{"PIC18F452", 256}, std::pair{"PIC18F2525", 1024}}) {
    it.Choose(chip);
    for (panel::ProgressWindow* window : {&panel::EEE_Olv_Állapot, &panel::EEE_Ír_Állapot}) {
      link::UserAbort = true;
      window->ProgressBar1.Value = 77;
      window->Load();
      EXPECT_FALSE(link::UserAbort);
      EXPECT_EQ(window->ProgressBar1.Max.Get(), max);
      EXPECT_EQ(window->ProgressBar1.Value.Get(), window->ProgressBar1.Min.Get());
      EXPECT_EQ(window->Command1.Caption.Get(), "Cancel");
      EXPECT_TRUE(window->OnTop);
      window->Unload();
    }
  }
}

TEST_F(EepromCourse, AStepPumpsOnceAndShowsTheAddress) {
  it.session.Do({"socket none", "at progress EEE_Olv_Állapot 5 at pump 1 mark in the read's step",
                 "at progress EEE_Ír_Állapot 5 at pump 1 mark in the write's step"});
  for (void (*operation)() : {&ops18::ReadEeprom, &ops18::WriteEeprom}) {
    const bool write = operation == &ops18::WriteEeprom;
    const Lines log = it.WireOf(operation);
    const auto step = std::ranges::find(log, write ? "B EEE_Ír_Állapot 5" : "B EEE_Olv_Állapot 5");
    ASSERT_LT(step, log.end() - 1);
    EXPECT_EQ(*(step + 1), write ? "# in the write's step" : "# in the read's step");
  }
}

TEST_F(EepromCourse, ATabOrAChipChosenMeanwhileDoesNotCutARunShort) {
  it.session.Do("socket none");
  for (const char* click : {"tab 1", "choose Combo1 PIC18F2410", "choose Combo1 PIC18F1220"}) {
    it.session.Do({"tab 2", "choose Combo1 PIC18F8722"});
    it.session.Do(std::string("at progress EEE_Olv_Állapot 3 ") + click);
    Lines log = it.WireOf(ops18::ReadEeprom);
    EXPECT_EQ(Count(log, "B EEE_Olv_Állapot 1023"), 1) << click;
    EXPECT_TRUE(Form1.List1.Lines().front().ends_with(":  EEPROM beolvasás kész.")) << click;

    it.session.Do({"tab 2", "choose Combo1 PIC18F8722"});
    it.session.Do(std::string("at progress EEE_Ír_Állapot 3 ") + click);
    log = it.WireOf(ops18::WriteEeprom);
    EXPECT_EQ(Count(log, "B EEE_Ír_Állapot 1023"), 1) << click;
    EXPECT_TRUE(Form1.List1.Lines().front().ends_with(":  EEPROM Írása kész.")) << click;
  }
}

TEST_F(EepromCourse, AReadClickedDuringAWriteRunsInsideAndTheWriteGoesOn) {
  it.session.Do({"answer yes", "at progress EEE_Ír_Állapot 9 click EEPROMOlvas"});
  const Lines log = it.WireOf(ops18::WriteEeprom);
  const auto inner = std::ranges::find(log, "- EEE_Olv_Állapot");
  ASSERT_NE(inner, log.end());
  EXPECT_NE(std::find(inner, log.end(), "- EEE_Ír_Állapot"), log.end());
  EXPECT_TRUE(log.back().starts_with("W 0378"));
}

TEST_F(EepromCourse, TheBufferIsOnlyReadByAWrite) {
  it.session.Do("socket none");
  TakeEeprom("PIC18F452", Sixteen);
  ops18::WriteEeprom();
  EXPECT_EQ(image::EepromBuffer(1, 1), "10");
  EXPECT_EQ(image::EepromBuffer(8, 2), "0F");
}

TEST_F(EepromCourse, ANameInNoRowIsReadAsNothing) {
  TakeEeprom("PIC18F45K20", EepromBytes(16, ErasedByte));
  link::UserAbort = false;
  const int event = NextEvent(it.session);
  WireModel model(BoardKinds().front(), 0);
  model.PowerOn();
  model.Event(event, ":  EEPROM Beolvasása Indult.");
  model.Event(event + 1, ":  EEPROM beolvasás kész.");
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::ReadEeprom)));
}

}  // namespace
}  // namespace zelvo::test
