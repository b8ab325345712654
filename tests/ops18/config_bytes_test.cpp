// The configuration bytes of the PIC18: how each chip is read and written, and with how much time.
#include "ops18/config_bytes.h"

#include <algorithm>
#include <map>
#include <stdexcept>

#include "icsp/conversions.h"
#include "icsp/scripts.h"
#include "id_config_model.h"
#include "image/buffers.h"
#include "link/delays.h"
#include "link/run_state.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"

namespace zelvo::test {
namespace {

using image::ConfigBuffer;
using image::ReadBackBytes;
using panel::Config_Beolvas;
using panel::Form1;

/// All different, so that none can stand in another's place.
const Bytes Config = {0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE};
/// Bits that a PIC18F452 has: CONFIG1L, 3L, 4H read as 0.
const Bytes Config452 = {0x00, 0x22, 0x0A, 0x05, 0x00, 0x01, 0x81, 0x00, 0x0C, 0x80, 0x03, 0x60, 0x06, 0x40};
constexpr Speed Brisk{10};
constexpr const char* Equal = ":  A Puffer és a Beolvasott Config tartalmak azonosak.";
constexpr const char* Differs = ":  Nem egyforma a Puffer és a Beolvasott Config tartalma.";
constexpr const char* Taken = ":  Beolvasott Config tartalom Pufferbe áttölve.";
constexpr const char* ReadDone = ":  Configbájtok beolvasása Kész.";

std::string Digits(int byte) {
  char text[3];
  std::snprintf(text, sizeof text, "%02X", static_cast<unsigned>(byte));
  return text;
}

void FillConfig(const Bytes& config) {
  for (std::size_t i = 0; i < config.size(); ++i) ConfigBuffer[i + 1] = Digits(config[i]);
}

Lines WriteLog(const BoardKind& kind, Speed speed, int event, ConfigWay way, const Bytes& config) {
  WireModel model(kind, 0);
  AddConfigWrite(model, speed, event, way, config);
  return model.Log();
}

void Socket452(Operations& it) {
  it.Choose("PIC18F452");
  it.session.Do("socket PIC18F452");
  BurnBytes(it, 0x300000, Config452);
}

TEST(ConfigWrite, GoesTwoWaysOn28And40ChipsAndSendsFourChipsNothing) {
  Operations it;
  FillConfig(Config);
  std::map<ConfigWay, int> chips;
  for (const SmallMemoryChip& chip : SmallMemoryChips()) {
    ++chips[chip.config];
    Form1.Combo1.Text = chip.name;
    const Lines expected = WriteLog(BoardKinds().front(), Brisk, NextEvent(it), chip.config, Config);
    ASSERT_TRUE(SameLog(expected, it.WireOf(ops18::WriteConfigBytes))) << chip.name;
    ASSERT_EQ(link::WaitCount, 10) << chip.name;
  }
  EXPECT_EQ(chips, (std::map<ConfigWay, int>{
                       {ConfigWay::Direct, 28}, {ConfigWay::AfterErase, 40}, {ConfigWay::Nothing, 4}}));
}

class ConfigOn : public testing::TestWithParam<BoardKind> {};

TEST_P(ConfigOn, AReadFetchesFourteenBytesAtAnEighthOfTheWaitsAndOpensTheReview) {
  Operations it(GetParam(), "7,0");
  Socket452(it);
  FillConfig(Config452);
  const int event = NextEvent(it);
  WireModel model(GetParam(), 0);
  AddConfigRead(model, Speed{70}, event, Config452);
  model.Line("+ Config_Beolvas");
  model.Event(event + 1, Equal);
  model.Event(event + 2, ReadDone);
  EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::ReadConfigBytes)));
  EXPECT_EQ(link::WaitCount, 70);
}

TEST_P(ConfigOn, EachWayOfWritingMovesTheBoardsOwnLines) {
  Operations it(GetParam(), "2,0");
  FillConfig(Config);
  for (const auto& [chip, way] : {std::pair{"PIC18F8720", ConfigWay::Direct},
                                  {"PIC18F2221", ConfigWay::AfterErase},
                                  {"PIC18F4331", ConfigWay::Nothing}}) {
    Form1.Combo1.Text = std::string(chip);
    const Lines expected = WriteLog(GetParam(), Speed{20}, NextEvent(it), way, Config);
    EXPECT_TRUE(SameLog(expected, it.WireOf(ops18::WriteConfigBytes))) << chip;
    EXPECT_EQ(link::WaitCount, 20) << chip;
  }
}

INSTANTIATE_TEST_SUITE_P(Board, ConfigOn, testing::ValuesIn(BoardKinds()),
                         [](const auto& kind) { return std::string(kind.param.name); });

class ConfigBytes : public testing::Test {
 protected:
  [[nodiscard]] static long long Count(const Lines& log, std::string_view line) {
    return std::count(log.begin(), log.end(), line);
  }
  /// Line `n` behind `event` of the log, as the operator sees it.
  [[nodiscard]] static std::string Event(int event, std::string_view text) {
    return "L List1 " + std::to_string(event) + ":  TIME" + std::string(text);
  }
  Operations it;
};

TEST_F(ConfigBytes, AReadLeavesTheBytesInTheOrderOfTheirAddresses) {
  Socket452(it);
  std::fill(ReadBackBytes.begin(), ReadBackBytes.end(), -1);
  ops18::ReadConfigBytes();
  EXPECT_EQ(Bytes(ReadBackBytes.begin() + 1, ReadBackBytes.begin() + 15), Config452);
  EXPECT_EQ(ReadBackBytes[0], -1);
  EXPECT_EQ(ReadBackBytes[15], -1);
  EXPECT_EQ(image::ReadIndex, 15);
}

TEST_F(ConfigBytes, TheOldReviewGoesBeforeTheReadAndTheNewOneComesBeforeTheLogSaysDone) {
  Socket452(it);
  Config_Beolvas.Load();
  const int event = NextEvent(it);
  const Lines log = it.WireOf(ops18::ReadConfigBytes);
  EXPECT_EQ(log.front(), "- Config_Beolvas");
  FillConfig(Bytes(14, 0x12));
  EXPECT_EQ(
      SeenByOperator(log),
      (Lines{"- Config_Beolvas", Event(event, ":  Configbájtok beolvasása Indult."), "+ Config_Beolvas",
             Event(event + 1, ":  A Puffer Üres! Nincs mit összehasonlítani!"), Event(event + 2, ReadDone)}));
}

TEST_F(ConfigBytes, WithTheAutomaticTickTheTakeOverComesBeforeTheLogSaysDone) {
  Socket452(it);
  Form1.Check2.Value = true;
  FillConfig(Bytes(14, 0x12));
  const int event = NextEvent(it);
  WireModel model(BoardKinds().front(), 0);
  AddConfigRead(model, Brisk, event, Config452);
  model.Line("+ Config_Beolvas");
  model.Event(event + 1, Differs);
  model.Event(event + 2, Taken);
  model.Line("- Config_Beolvas");
  model.Event(event + 3, ReadDone);
  EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::ReadConfigBytes)));
  EXPECT_EQ(ConfigBuffer[2], "22");
  EXPECT_EQ(link::WaitCount, 10);
}

TEST_F(ConfigBytes, WithNoChipChosenAReadOnlyClosesTheOldReviewAndSaysSo) {
  Config_Beolvas.Load();
  EXPECT_EQ(it.WireOf(ops18::ReadConfigBytes), (Lines{"- Config_Beolvas", "M ok ok Nincs PIC kiválasztva!"}));
  EXPECT_EQ(link::WaitCount, 10);
}

TEST_F(ConfigBytes, AWriteClosesTheOldReviewFirst) {
  Config_Beolvas.Load();
  EXPECT_EQ(it.WireOf(ops18::WriteConfigBytes).front(), "- Config_Beolvas");
  EXPECT_FALSE(Config_Beolvas.Loaded());
}

TEST_F(ConfigBytes, ClocksOfAWriteLastTenThousandPassesWithOnePulseAtTheEnd) {
  FillConfig(Config);
  Form1.Combo1.Text = std::string("PIC18F452");
  Lines log = it.WireOf(ops18::WriteConfigBytes);
  EXPECT_EQ(Count(log, "S9"), 3);
  EXPECT_EQ(Count(log, "S11"), 0);
  EXPECT_EQ(Count(log, "P 10"), 0);
  // Two waits a bit. Transactions of 20 bits: two accesses, the jump, the pointer, 14 bytes, two between
  // each. Then the pulse: 10 waits up to the hold, one behind it, 16 bits.
  EXPECT_EQ(Count(log, "P 10000"), (2 + 2 + 6 + 14 + 13 * 2) * 20 * 2 + 10 + 16 * 2);
  Form1.Combo1.Text = std::string("PIC18F4550");
  log = it.WireOf(ops18::WriteConfigBytes);
  EXPECT_EQ(Count(log, "S9"), 3);
  EXPECT_EQ(Count(log, "S11"), 2) << "the erase";
  EXPECT_EQ(Count(log, "P 10000"), (2 + 6 + 14 + 13 * 2) * 20 * 2 + 10 + 16 * 2) << "no jump";
}

TEST_F(ConfigBytes, TheEraseKeysOfTheConfigurationStayAsTheLastOnes) {
  icsp::EraseKey1 = icsp::EraseKey2 = "";
  Form1.Combo1.Text = std::string("PIC18F452");
  ops18::WriteConfigBytes();
  EXPECT_EQ(icsp::EraseKey1, "") << "this chip needs no erase";
  Form1.Combo1.Text = std::string("PIC18F4550");
  ops18::WriteConfigBytes();
  EXPECT_EQ(icsp::EraseKey1, "00");
  EXPECT_EQ(icsp::EraseKey2, "82");
}

TEST_F(ConfigBytes, Pic18F2331WithCheck1IsSentNothingAndReadBack) {
  for (const char* chip : {"PIC18F2331", "PIC18F2431", "PIC18F4331", "PIC18F4431"}) {
    it.Choose(chip);
    it.session.Do(std::string("socket ") + chip);
    // A blank chip with CONFIG2L, of which four bits exist, changed.
    const Bytes held = {0x00, 0xCF, 0x05, 0x3F, 0x3C, 0x9D, 0x85, 0x00, 0x0F, 0xC0, 0x0F, 0xE0, 0x0F, 0x40};
    BurnBytes(it, 0x300000, held);
    ops18::ReadConfigBytes();
    const Bytes before(ReadBackBytes.begin() + 1, ReadBackBytes.begin() + 15);
    EXPECT_EQ(before[2], 0x05);
    Config_Beolvas.Unload();

    FillConfig(Bytes(14, 0x00));
    Form1.Check1.Value = true;
    const int event = NextEvent(it);
    WireModel model(BoardKinds().front(), 0);
    AddConfigWrite(model, Brisk, event, ConfigWay::Nothing, {});
    AddConfigRead(model, Brisk, event + 2, before);
    model.Line("+ Config_Beolvas");
    model.Event(event + 3, Differs);
    model.Event(event + 4, ReadDone);
    EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::WriteConfigBytes))) << chip;
    EXPECT_EQ(it.session.Ask("list Config_Beolvas.Bconfig2L"), " 0 0 0 0 0 1 0 1 ") << chip;
    Config_Beolvas.Unload();
  }
}

TEST_F(ConfigBytes, WithCheck1AWriteReadsBackWhatTheChipHolds) {
  Socket452(it);
  Form1.Check1.Value = true;
  const Bytes stronger = {0x00, 0x20, 0x08, 0x04, 0x00, 0x00, 0x80, 0x00, 0x08, 0x80, 0x01, 0x40, 0x04, 0x00};
  FillConfig(stronger);
  const int event = NextEvent(it);
  WireModel model(BoardKinds().front(), 0);
  AddConfigWrite(model, Brisk, event, ConfigWay::Direct, stronger);
  AddConfigRead(model, Brisk, event + 2, stronger);
  model.Line("+ Config_Beolvas");
  model.Event(event + 3, Equal);
  model.Event(event + 4, ReadDone);
  EXPECT_TRUE(SameLog(model.Log(), it.WireOf(ops18::WriteConfigBytes)));
}

TEST_F(ConfigBytes, AnUnknownNameIsSentNothingAndTheLogSaysDone) {
  FillConfig(Config);
  for (const char* name : {"PIC18F45K20", "PIC Kiválasztása", ""}) {
    Form1.Combo1.Text = std::string(name);
    const Lines expected = WriteLog(BoardKinds().front(), Brisk, NextEvent(it), ConfigWay::Nothing, {});
    EXPECT_TRUE(SameLog(expected, it.WireOf(ops18::WriteConfigBytes))) << name;
  }
}

TEST_F(ConfigBytes, AnotherChoiceDuringAWriteStartsNoSecondWayOfWriting) {
  it.Choose("PIC18F8720");
  it.session.Do("at pump 100 choose Combo1 PIC18F8722");
  const Lines log = it.WireOf(ops18::WriteConfigBytes);
  EXPECT_EQ(Count(log, "S9"), 3);
  EXPECT_EQ(Count(log, "S11"), 0);
}

TEST_F(ConfigBytes, AWriteLeavesTheBufferAsItWas) {
  FillConfig(Config);
  for (const char* chip : {"PIC18F452", "PIC18F4550", "PIC18F2331"}) {
    Form1.Combo1.Text = std::string(chip);
    ops18::WriteConfigBytes();
    for (std::size_t i = 0; i < Config.size(); ++i) EXPECT_EQ(ConfigBuffer[i + 1], Digits(Config[i])) << chip;
  }
}

TEST_F(ConfigBytes, TheUnpaddedTextOf5GoesOutAs05) {
  FillConfig(Bytes(14, 0xFF));
  ConfigBuffer[1] = "5";
  ConfigBuffer[7] = "0";
  ConfigBuffer[14] = "F";
  Bytes sent(14, 0xFF);
  sent[0] = 0x05;
  sent[6] = 0x00;
  sent[13] = 0x0F;
  icsp::LoadFailed = 0;
  for (const auto& [chip, way] :
       {std::pair{"PIC18F452", ConfigWay::Direct}, {"PIC18F4550", ConfigWay::AfterErase}}) {
    Form1.Combo1.Text = std::string(chip);
    const Lines expected = WriteLog(BoardKinds().front(), Brisk, NextEvent(it), way, sent);
    EXPECT_TRUE(SameLog(expected, it.WireOf(ops18::WriteConfigBytes))) << chip;
  }
  EXPECT_EQ(icsp::LoadFailed, 0);
  EXPECT_EQ(ConfigBuffer[1], "5");
}

TEST_F(ConfigBytes, ACharacterThatIsNoDigitGoesOutAsTheNibbleHeldBefore) {
  FillConfig(Bytes(14, 0xFF));
  ConfigBuffer[2] = "1f";  // the digit before it
  ConfigBuffer[3] = "C ";
  icsp::LoadFailed = 0;
  Bytes sent(14, 0xFF);
  sent[1] = 0x11;
  sent[2] = 0xCC;
  Form1.Combo1.Text = std::string("PIC18F452");
  const Lines expected = WriteLog(BoardKinds().front(), Brisk, NextEvent(it), ConfigWay::Direct, sent);
  EXPECT_TRUE(SameLog(expected, it.WireOf(ops18::WriteConfigBytes)));
  EXPECT_EQ(icsp::LoadFailed, 2);
}

TEST_F(ConfigBytes, AByteThatBeginsWithNoDigitTakesTheNibbleOfWhatWentOutBeforeEachTime) {
  FillConfig(Bytes(14, 0x44));
  ConfigBuffer[1] = "x7";  // behind 6Eh of MOVWF; the second time behind E7h
  ConfigBuffer[2] = "?5";  // behind 2Ah of INCF; the second time behind A5h
  Bytes sent(14, 0x44);
  sent[0] = 0x77E7;
  sent[1] = 0x55A5;
  Form1.Combo1.Text = std::string("PIC18F4550");
  const Lines expected = WriteLog(BoardKinds().front(), Brisk, NextEvent(it), ConfigWay::AfterErase, sent);
  EXPECT_TRUE(SameLog(expected, it.WireOf(ops18::WriteConfigBytes)));
}

TEST_F(ConfigBytes, TheSpeedSettingIsBackWhenTheReviewFails) {
  Socket452(it);
  Config_Beolvas.OnLoad = [] { throw std::runtime_error("a review that fails"); };
  it.session.Do("click ConfigOlvas");
  EXPECT_EQ(link::WaitCount, 10);
}

TEST_F(ConfigBytes, TheButtonsAskWhenTheChipIsNotTheChosenOne) {
  it.Choose("PIC18F452");
  it.session.Do({"click ConfigOlvas", "click CinfigÍr", "socket PIC18F452 id=ABC0", "click ConfigOlvas",
                 "click CinfigÍr", "socket PIC18F458", "click ConfigOlvas", "click CinfigÍr"});
  EXPECT_EQ(it.session.Look("messages"),
            (Lines{"yesno no Nem érzékelek PIC-et! Folytatod az olvasást?",
                   "yesno no Nem érzékelek PIC-et! Folytatod az égetést?",
                   "yesno no Ismeretlen_PIC! Folytatod az olvasást?",
                   "yesno no Ismeretlen_PIC! Folytatod az égetést?",
                   "yesno no A detektált PIC nem azonos a kiválasztottal! Folytatod az olvasást?",
                   "yesno no A detektált PIC nem azonos a kiválasztottal! Folytatod az égetést?"}));
  EXPECT_FALSE(Config_Beolvas.Loaded());
}

TEST_F(ConfigBytes, TheButtonsSayThatNoChipIsChosenAndDoNothingElse) {
  Config_Beolvas.Load();
  for (const char* button : {"ConfigOlvas", "CinfigÍr"}) {
    EXPECT_EQ(it.session.WireOf(std::string("click ") + button), Lines{"M ok ok Nincs PIC kiválasztva!"});
  }
  link::WholeChipRun = true;
  EXPECT_EQ(it.session.WireOf("click CinfigÍr"), Lines{"M ok ok Nincs PIC kiválasztva!"});
}

TEST_F(ConfigBytes, TheWriteButtonNeitherIdentifiesNorAsksInAWholeChipRun) {
  it.Choose("PIC18F452");
  FillConfig(Config);
  link::WholeChipRun = true;
  const Lines expected = WriteLog(BoardKinds().front(), Brisk, NextEvent(it), ConfigWay::Direct, Config);
  EXPECT_TRUE(SameLog(expected, it.WireOf([this] { it.session.Do("click CinfigÍr"); })));
  EXPECT_TRUE(it.session.Look("messages").empty());
}

TEST_F(ConfigBytes, TheButtonsWriteAndReadTheChipThatIsChosen) {
  it.Choose("PIC18F4550");
  it.session.Do("socket PIC18F4550");
  // Every byte that the chip has, with bits that it has.
  const Bytes written = {0x24, 0x0E, 0x1E, 0x1E, 0x00, 0x81, 0x81, 0x00, 0x0F, 0xC0, 0x0F, 0xE0, 0x0F, 0x40};
  FillConfig(written);
  it.session.Do("click CinfigÍr");
  FillConfig(Bytes(14, 0x00));
  it.session.Do({"click ConfigOlvas", "click Config_Beolvas.Igen"});
  for (const std::size_t i : {1U, 2U, 3U, 4U, 6U, 7U, 9U, 10U, 11U, 12U, 13U, 14U}) {
    std::string text = Digits(written[i - 1]);
    if (text[0] == '0') text.erase(0, 1);
    EXPECT_EQ(ConfigBuffer[i], text) << i;
  }
  EXPECT_TRUE(it.session.Look("messages").empty());
}

}  // namespace
}  // namespace zelvo::test
