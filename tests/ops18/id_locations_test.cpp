// The ID locations of the PIC18: how each chip is read and written, and with how much time.
#include "ops18/id_locations.h"

#include <algorithm>
#include <map>
#include <stdexcept>

#include "icsp/conversions.h"
#include "id_config_model.h"
#include "image/buffers.h"
#include "link/delays.h"
#include "link/run_state.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"

namespace zelvo::test {
namespace {

using image::IdBuffer;
using image::ReadBackBytes;
using panel::Form1;
using panel::IDLocO;

const Bytes Ids = {0xF1, 0x02, 0x53, 0xA4, 0x0B, 0xC6, 0x0F, 0x88};
const Bytes Blank(8, 0xFF);
constexpr Speed Brisk{10};
constexpr const char* Equal = ":  A Puffer és a Beolvasott ID Loc tartalmak azonosak.";
constexpr const char* Differs = ":  Nem egyforma a Puffer és a Beolvasott ID Loc tartalma.";

/// Unlike the way that digits are written elsewhere: for this test's own values.
std::string Digits(int byte) {
  char text[3];
  std::snprintf(text, sizeof text, "%02X", static_cast<unsigned>(byte));
  return text;
}

void FillIds(const Bytes& ids) {
  for (std::size_t i = 0; i < ids.size(); ++i) IdBuffer[i + 1] = Digits(ids[i]);
}

/// The log of a write and nothing behind it.
Lines WriteLog(const BoardKind& kind, Speed speed, int event, IdWay way, const Bytes& ids) {
  WireModel model(kind, 0);
  AddIdWrite(model, speed, event, way, ids);
  return model.Log();
}

/// A program with a chip chosen and another or the same in the socket.
Operations& Socketed(Operations& it, const std::string& chip, const Bytes& ids = Ids) {
  it.Choose(chip);
  it.session.Do("socket " + chip);
  BurnBytes(it, 0x200000, ids);
  return it;
}

TEST(IdWrite, GoesThreeWaysOn26And6And40Chips) {
  Operations it;
  FillIds(Ids);
  std::map<IdWay, int> chips;
  for (const SmallMemoryChip& chip : SmallMemoryChips()) {
    ++chips[chip.id];
    Form1.Combo1.Text = chip.name;
    const Lines expected = WriteLog(BoardKinds().front(), Brisk, NextEvent(it), chip.id, Ids);
    ASSERT_TRUE(SameLog(expected, it.WireOf(ops18::WriteIdLocations))) << chip.name;
    ASSERT_EQ(link::WaitCount, 10) << chip.name;
  }
  EXPECT_EQ(chips, (std::map<IdWay, int>{{IdWay::OnePanel, 26}, {IdWay::Unlock, 6}, {IdWay::TwoPhase, 40}}));
}

TEST(IdModel, HoldsEveryChipOfTheListExactlyOnce) {
  Operations it;
  const Lines chips = it.session.Look("list Combo1");
  ASSERT_EQ(chips.size(), 72U);
  ASSERT_EQ(SmallMemoryChips().size(), 72U);
  for (const std::string& name : chips) {
    EXPECT_EQ(std::count_if(SmallMemoryChips().begin(), SmallMemoryChips().end(),
                            [&name](const SmallMemoryChip& chip) { return chip.name == name; }),
              1)
        << name;
  }
}

class IdsOn : public testing::TestWithParam<BoardKind> {};

TEST_P(IdsOn, AReadFetchesFourWordsAtAnEighthOfTheWaitsAndOpensTheReview) {
  Operations it(GetParam(), "7,0");
  Socketed(it, "PIC18F452");
  const int event = NextEvent(it);
  WireModel model(GetParam(), 0);
  AddIdRead(model, Speed{70}, event, Ids);
  model.Line("+ IDLocO");
  model.Event(event + 2, Differs);
  EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::ReadIdLocations)));
  EXPECT_EQ(link::WaitCount, 70);
}

TEST_P(IdsOn, EachWayOfWritingMovesTheBoardsOwnLines) {
  Operations it(GetParam(), "2,0");
  FillIds(Ids);
  for (const auto& [chip, way] : {std::pair{"PIC18F4431", IdWay::OnePanel},
                                  {"PIC18F1320", IdWay::Unlock},
                                  {"PIC18F4550", IdWay::TwoPhase}}) {
    Form1.Combo1.Text = std::string(chip);
    const Lines expected = WriteLog(GetParam(), Speed{20}, NextEvent(it), way, Ids);
    EXPECT_TRUE(SameLog(expected, it.WireOf(ops18::WriteIdLocations))) << chip;
    EXPECT_EQ(link::WaitCount, 20) << chip;
  }
}

INSTANTIATE_TEST_SUITE_P(Board, IdsOn, testing::ValuesIn(BoardKinds()),
                         [](const auto& kind) { return std::string(kind.param.name); });

class IdLocations : public testing::Test {
 protected:
  [[nodiscard]] static long long Count(const Lines& log, std::string_view line) {
    return std::count(log.begin(), log.end(), line);
  }
  Operations it;
};

TEST_F(IdLocations, TheByteOf200000hLandsBehindThatOf200001hInEveryPair) {
  for (const char* chip : {"PIC18F242", "PIC18F1220", "PIC18F8722"}) {
    Socketed(it, chip);
    std::fill(ReadBackBytes.begin(), ReadBackBytes.end(), -1);
    ops18::ReadIdLocations();
    const Bytes swapped = {Ids[1], Ids[0], Ids[3], Ids[2], Ids[5], Ids[4], Ids[7], Ids[6]};
    EXPECT_EQ(Bytes(ReadBackBytes.begin() + 1, ReadBackBytes.begin() + 9), swapped) << chip;
    EXPECT_EQ(ReadBackBytes[0], -1) << chip;
    EXPECT_EQ(ReadBackBytes[9], -1) << chip;
    EXPECT_EQ(image::ReadIndex, 9) << chip;
  }
}

TEST_F(IdLocations, AReadReplacesTheReviewThatStandsOpen) {
  Socketed(it, "PIC18F452");
  FillIds(Ids);
  IDLocO.Load();
  const int event = NextEvent(it);
  const std::string number = std::to_string(event);
  EXPECT_EQ(SeenByOperator(it.WireOf(ops18::ReadIdLocations)),
            (Lines{"L List1 " + number + ":  TIME:  ID Location bájtok beolvasása indult.",
                   "L List1 " + std::to_string(event + 1) + ":  TIME:  ID Location kiolvasása kész.",
                   "- IDLocO", "+ IDLocO", "L List1 " + std::to_string(event + 2) + ":  TIME" + Equal}));
  EXPECT_TRUE(IDLocO.Loaded());
}

TEST_F(IdLocations, WithTheAutomaticTickTheLogTellsOfTheComparisonOnly) {
  Socketed(it, "PIC18F452");
  Form1.Check2.Value = true;
  const int event = NextEvent(it);
  WireModel model(BoardKinds().front(), 0);
  AddIdRead(model, Brisk, event, Ids);
  model.Line("+ IDLocO");
  model.Event(event + 2, Differs);
  model.Line("- IDLocO");
  EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::ReadIdLocations)));
  for (std::size_t i = 0; i < Ids.size(); ++i) EXPECT_EQ(IdBuffer[i + 1], Digits(Ids[i]));
}

TEST_F(IdLocations, WithCheck1AWriteReadsBackWhatTheChipHolds) {
  Form1.Check1.Value = true;
  for (const SmallMemoryChip& chip :
       {SmallMemoryChip{"PIC18F4550", IdWay::TwoPhase, {}}, SmallMemoryChip{"PIC18F2220", IdWay::Unlock, {}},
        SmallMemoryChip{"PIC18F8720", IdWay::OnePanel, {}}}) {
    Socketed(it, chip.name, Blank);
    FillIds(Ids);
    IDLocO.Unload();
    const int event = NextEvent(it);
    WireModel model(BoardKinds().front(), 0);
    AddIdWrite(model, Brisk, event, chip.id, Ids);
    AddIdRead(model, Brisk, event + 2, Ids);
    model.Line("+ IDLocO");
    model.Event(event + 4, Equal);
    EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::WriteIdLocations))) << chip.name;
    EXPECT_EQ(link::WaitCount, 10);
  }
}

TEST_F(IdLocations, TwoPulsesWriteANewerChipAndOneAnOlder) {
  FillIds(Ids);
  // A pulse holds the timer of P9 three times.
  for (const auto& [chip, pulses] : {std::pair{"PIC18F8722", 2}, {"PIC18F452", 1}, {"PIC18F1220", 1}}) {
    Form1.Combo1.Text = std::string(chip);
    const Lines log = it.WireOf(ops18::WriteIdLocations);
    EXPECT_EQ(Count(log, "S9"), 3 * pulses) << chip;
    EXPECT_EQ(Count(log, "S11"), 0) << chip;
  }
}

TEST_F(IdLocations, AWriteWaitsThreefoldAndTheNewerChipsTwentyFourfold) {
  FillIds(Ids);
  Form1.Combo1.Text = std::string("PIC18F452");
  Lines log = it.WireOf(ops18::WriteIdLocations);
  EXPECT_GT(Count(log, "P 30"), 0);
  EXPECT_EQ(Count(log, "P 10") + Count(log, "P 240"), 0);
  Form1.Combo1.Text = std::string("PIC18F4520");
  log = it.WireOf(ops18::WriteIdLocations);
  EXPECT_GT(Count(log, "P 240"), 0);
  EXPECT_EQ(Count(log, "P 10") + Count(log, "P 30"), 0);
}

TEST_F(IdLocations, AnUnknownNameIsSentNothingAndTheLogSaysDone) {
  Form1.Combo1.Text = std::string("PIC18F45K20");
  const int event = NextEvent(it);
  WireModel model(BoardKinds().front(), 0);
  model.PowerOn();
  model.Event(event, ":  ID Location bájtok Írása indult.");
  model.Event(event + 1, ":  ID Location bájtok Írása Kész.");
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::WriteIdLocations)));
  EXPECT_EQ(link::WaitCount, 10);
}

TEST_F(IdLocations, AnotherChoiceDuringAWriteStartsNoSecondWayOfWriting) {
  it.Choose("PIC18F4431");
  it.session.Do("at pump 100 choose Combo1 PIC18F4520");
  EXPECT_EQ(Count(it.WireOf(ops18::WriteIdLocations), "S9"), 3) << "one pulse";
}

TEST_F(IdLocations, AWriteLeavesTheBufferAndThePointerTextsAsTheyWere) {
  FillIds(Ids);
  Form1.Combo1.Text = std::string("PIC18F4520");
  ops18::WriteIdLocations();
  for (std::size_t i = 0; i < Ids.size(); ++i) EXPECT_EQ(IdBuffer[i + 1], Digits(Ids[i]));
  EXPECT_EQ(it.session.Ask("var TablePointerU"), "20");
  EXPECT_EQ(it.session.Ask("var TablePointerH"), "00");
  EXPECT_EQ(it.session.Ask("var TablePointerL"), "00");
}

TEST_F(IdLocations, ASingleDigitGoesOutBehindAZero) {
  FillIds(Blank);
  IdBuffer[1] = "5";
  IdBuffer[8] = "A";
  Form1.Combo1.Text = std::string("PIC18F452");
  icsp::LoadFailed = 0;
  const Bytes sent = {0x05, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x0A};
  const Lines expected = WriteLog(BoardKinds().front(), Brisk, NextEvent(it), IdWay::OnePanel, sent);
  EXPECT_TRUE(SameLog(expected, it.WireOf(ops18::WriteIdLocations)));
  EXPECT_EQ(icsp::LoadFailed, 0);
}

TEST_F(IdLocations, ACharacterThatIsNoDigitGoesOutAsTheNibbleHeldBefore) {
  const char* texts[] = {"G5", "1g", "AB", "ZZ", "c7", "0D", "-", "8?"};
  std::copy(std::begin(texts), std::end(texts), IdBuffer.begin() + 1);
  // Held before the first one: E, of MOVWF TBLPTRL. The single character is padded first, so a 0 stands
  // before.
  const Bytes sent = {0xE5, 0x11, 0xAB, 0xBB, 0xB7, 0x0D, 0x00, 0x88};
  for (const auto& [chip, way] : {std::pair{"PIC18F452", IdWay::OnePanel}, {"PIC18F4520", IdWay::TwoPhase}}) {
    Form1.Combo1.Text = std::string(chip);
    icsp::LoadFailed = 0;
    const Lines expected = WriteLog(BoardKinds().front(), Brisk, NextEvent(it), way, sent);
    EXPECT_TRUE(SameLog(expected, it.WireOf(ops18::WriteIdLocations))) << chip;
    EXPECT_EQ(icsp::LoadFailed, 2) << chip;
  }
  EXPECT_EQ(IdBuffer[1], "G5") << "the image stays";
}

TEST_F(IdLocations, TheSpeedSettingIsBackWhenTheReviewFails) {
  Socketed(it, "PIC18F452");
  IDLocO.OnLoad = [] { throw std::runtime_error("a review that fails"); };
  it.session.Do("click IDLocOlvas");
  EXPECT_EQ(link::WaitCount, 10);
}

TEST_F(IdLocations, ASpeedMovedDuringTheReadCountsAfterIt) {
  Socketed(it, "PIC18F452");
  it.session.Do({"at pump 50 scroll ÁSeb 4", "click IDLocOlvas"});
  EXPECT_EQ(link::SpeedSetting, 40);
  EXPECT_EQ(link::WaitCount, 40);
}

TEST_F(IdLocations, TheButtonsAskWhenNoChipAnswers) {
  it.Choose("PIC18F452");
  it.session.Do("click IDLocOlvas");
  it.session.Do("click IDLocÍr");
  EXPECT_EQ(it.session.Look("messages"), (Lines{"yesno no Nem érzékelek PIC-et! Folytatod az olvasást?",
                                                "yesno no Nem érzékelek PIC-et! Folytatod az égetést?"}));
  EXPECT_FALSE(IDLocO.Loaded());
}

TEST_F(IdLocations, TheButtonsAskAboutAnUnknownAndAboutAnotherChip) {
  it.Choose("PIC18F452");
  it.session.Do({"socket PIC18F452 id=ABC0", "click IDLocOlvas", "click IDLocÍr", "socket PIC18F458",
                 "click IDLocOlvas", "click IDLocÍr"});
  EXPECT_EQ(it.session.Look("messages"),
            (Lines{"yesno no Ismeretlen_PIC! Folytatod az olvasást?",
                   "yesno no Ismeretlen_PIC! Folytatod az égetést?",
                   "yesno no A detektált PIC nem azonos a kiválasztottal! Folytatod az olvasást?",
                   "yesno no A detektált PIC nem azonos a kiválasztottal! Folytatod az égetést?"}));
}

TEST_F(IdLocations, TheButtonsSayThatNoChipIsChosenAndDoNothingElse) {
  for (const char* button : {"IDLocOlvas", "IDLocÍr"}) {
    EXPECT_EQ(it.session.WireOf(std::string("click ") + button), Lines{"M ok ok Nincs PIC kiválasztva!"});
  }
  link::WholeChipRun = true;
  EXPECT_EQ(it.session.WireOf("click IDLocÍr"), Lines{"M ok ok Nincs PIC kiválasztva!"});
}

TEST_F(IdLocations, TheWriteButtonNeitherIdentifiesNorAsksInAWholeChipRun) {
  it.Choose("PIC18F452");
  FillIds(Ids);
  link::WholeChipRun = true;
  const Lines expected = WriteLog(BoardKinds().front(), Brisk, NextEvent(it), IdWay::OnePanel, Ids);
  EXPECT_TRUE(SameLog(expected, it.WireOf([this] { it.session.Do("click IDLocÍr"); })));
  EXPECT_TRUE(it.session.Look("messages").empty());
}

TEST_F(IdLocations, TheButtonsWriteAndReadTheChipThatIsChosen) {
  Socketed(it, "PIC18F4520", Blank);
  FillIds(Ids);
  it.session.Do("click IDLocÍr");
  FillIds(Blank);
  it.session.Do({"click IDLocOlvas", "click IDLocO.Igen"});
  for (std::size_t i = 0; i < Ids.size(); ++i) EXPECT_EQ(IdBuffer[i + 1], Digits(Ids[i]));
  EXPECT_TRUE(it.session.Look("messages").empty());
}

}  // namespace
}  // namespace zelvo::test
