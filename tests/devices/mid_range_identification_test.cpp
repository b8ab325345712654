// Recognising the mid-range chip in the socket by the word at 2006h.
#include "devices/mid_range_identification.h"

#include <algorithm>

#include "devices/identification.h"
#include "devices/selection.h"
#include "expectations.h"
#include "image/buffers.h"
#include "link/delays.h"
#include "link/event_log.h"
#include "link/port.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "support/answering_chip.h"
#include "wire_model.h"

namespace zelvo::test {
namespace {

using devices::ChipIdValue;
using devices::DetectedName;
using panel::Form1;

constexpr const char* NoChip = "PIC Kiválasztása";
constexpr const char* Unknown = "Ismeretlen_PIC";
constexpr const char* NothingSelected = "                                          Nincs PIC Kiválasztva";

struct Row {
  int value;
  int word;  ///< at 2006h, revision 0
  const char* name;
};
// Two names that no list has, 16F683 and 16F635, belong to the 12F683 and the 12F635.
constexpr Row Rows[] = {
    {35, 0x0460, "PIC16F683"},   {37, 0x04A0, "PIC16F685"},      {43, 0x0560, "PIC16F84A"},
    {61, 0x07A0, "PIC16F627"},   {62, 0x07C0, "PIC16F628"},      {71, 0x08E0, "PIC16F872"},
    {73, 0x0920, "PIC16F874"},   {75, 0x0960, "PIC16F873"},      {76, 0x0980, "PIC16F819"},
    {77, 0x09A0, "PIC16F877"},   {78, 0x09C0, "PIC16F818"},      {79, 0x09E0, "PIC16F876"},
    {104, 0x0D00, "PIC16F870"},  {105, 0x0D20, "PIC16F871"},     {114, 0x0E40, "PIC16F87"},
    {118, 0x0EC0, "PIC16F88"},   {124, 0x0F80, "PIC12F629"},     {125, 0x0FA0, "PIC16F635"},
    {126, 0x0FC0, "PIC12F675"},  {130, 0x1040, "PIC16F627A"},    {131, 0x1060, "PIC16F628A"},
    {132, 0x1080, "PIC16F684"},  {133, 0x10A0, "PIC16F636/639"}, {134, 0x10C0, "PIC16F630"},
    {135, 0x10E0, "PIC16F676"},  {136, 0x1100, "PIC16F648A"},    {140, 0x1180, "PIC16F688"},
    {146, 0x1240, "PIC16F616"},  {147, 0x1260, "PIC16HV616"},    {153, 0x1320, "PIC16F687"},
    {154, 0x1340, "PIC16F689"},  {155, 0x1360, "PIC12F617"},     {160, 0x1400, "PIC16F690"},
    {161, 0x1420, "PIC16F631"},  {162, 0x1440, "PIC16F677"},     {256, 0x2000, "PIC16F882"},
    {257, 0x2020, "PIC16F883"},  {258, 0x2040, "PIC16F884"},     {259, 0x2060, "PIC16F886"},
    {260, 0x2080, "PIC16F887"},  {268, 0x2180, "PIC12F615"},     {269, 0x21A0, "PIC12HV615"},
    {274, 0x2240, "PIC12F609"},  {275, 0x2260, "PIC16F610"},     {276, 0x2280, "PIC12HV609"},
    {277, 0x22A0, "PIC16HV610"}, {312, 0x2700, "PIC16F917"},     {314, 0x2740, "PIC16F916"},
    {316, 0x2780, "PIC16F914"},  {318, 0x27C0, "PIC16F913"},     {326, 0x28C0, "PIC16F946"},
};
static_assert(std::size(Rows) == 51);

/// What the log tells of a row.
std::string Told(const Row& row) {
  return ":  A felismert PIC a " + std::string(row.name).substr(3) + (row.value == 105 ? " " : ". ");
}

const Row* RowOf(int value) {
  const auto row = std::ranges::find(Rows, value, &Row::value);
  return row == std::end(Rows) ? nullptr : row;
}

const MidRangeRow* ListedAs(std::string_view name) {
  const auto row = std::ranges::find(MidRangeRows, name, &MidRangeRow::name);
  return row == MidRangeRows.end() ? nullptr : &*row;
}

class MidIdentification : public testing::Test {
 protected:
  MidIdentification() : chip(PutAnsweringChip(session)) {
    session.Do({"board lpt", "start"});
    link::SpeedSetting = link::WaitCount = 1;
  }
  void Silently(int word) {
    chip.Word(word);
    devices::SilentIdentify = true;
    devices::IdentifyMidrange();
    devices::SilentIdentify = false;
  }
  void Click(int word) {
    chip.Word(word);
    session.Do("click Command9");
  }
  /// The texts of the newest lines of the page's log, oldest first.
  [[nodiscard]] static Lines NewestTexts(std::size_t count) {
    Lines texts;
    for (std::size_t i = count; i-- > 0;) texts.push_back(Text(Form1.List4.Lines().at(i)));
    return texts;
  }
  /// A line without number and time.
  [[nodiscard]] static std::string Text(const std::string& line) {
    return line.substr(line.find(":  ") + 3 + std::string_view("HH:MM:SS").size());
  }

  BenchSession session;
  AnsweringChip& chip;
};

TEST_F(MidIdentification, EveryChipOfTheTableIsNamedToldAndSelected) {
  for (const Row& row : Rows) {
    SCOPED_TRACE(row.name);
    ASSERT_EQ(row.word, row.value << 5);
    const int limit = devices::FlashWordMax;
    image::MainBuffer(1, 1) = "1234";
    Click(row.word);
    EXPECT_EQ(ChipIdValue, row.value);
    EXPECT_EQ(DetectedName, row.name);
    EXPECT_EQ(session.Ask("get Combo2"), row.name);
    EXPECT_EQ(devices::SelectedName, row.name);
    EXPECT_EQ(NewestTexts(4),
              (Lines{":  PIC Azonosítás indult.", Told(row), ":  " + std::string(row.name) + " Kiválaszva.",
                     ": PIC ID: " + std::to_string(row.value)}));
    const MidRangeRow* listed = ListedAs(row.name);
    EXPECT_EQ(devices::FlashWordMax, listed != nullptr ? listed->flashWordMax : limit);
    if (listed != nullptr) {
      EXPECT_EQ(session.Look("list List5"), Lines{Summary(listed->flashWordMax, listed->eepromMax)});
      EXPECT_EQ(image::MainBuffer(1, 1), "3FFF") << "a selection erases the image";
    }
    EXPECT_FALSE(panel::PICAzonos.Loaded());
  }
}

TEST_F(MidIdentification, TheTwoChipsWithAForeignNameAreInNoList) {
  for (const char* name : {"PIC16F683", "PIC16F635"}) EXPECT_EQ(ListedAs(name), nullptr) << name;
  session.Do("choose Combo2 PIC16F84A");
  Click(0x0460);
  EXPECT_EQ(session.Ask("get Combo2"), "PIC16F683");
  EXPECT_EQ(devices::FlashWordMax, 1023) << "the limits of the choice before";
  EXPECT_EQ(devices::EepromMax, 63);
}

TEST_F(MidIdentification, AllOf512ValuesAreNamedByTheTableOrNotAtAll) {
  for (int value = 0; value < 512; ++value) {
    Silently(value << 5);
    const Row* row = RowOf(value);
    const char* other = value == 0 || value == 511 ? NoChip : Unknown;
    ASSERT_EQ(DetectedName, row != nullptr ? row->name : other) << value;
    ASSERT_EQ(ChipIdValue, value);
  }
}

TEST_F(MidIdentification, TheRevisionPlaysNoPart) {
  for (int revision = 0; revision < 32; ++revision) {
    Silently(0x1180 + revision);
    EXPECT_EQ(ChipIdValue, 140);
    EXPECT_EQ(DetectedName, "PIC16F688");
  }
}

TEST_F(MidIdentification, TheLogNamesThe871WithoutAFullStop) {
  Click(0x0D20);
  EXPECT_EQ(NewestTexts(3)[0], ":  A felismert PIC a 16F871 ");
}

TEST_F(MidIdentification, SilentlyOnlyTheNameIsLeft) {
  session.Do("choose Combo2 PIC16F84A");
  image::MainBuffer(1, 1) = "1234";
  const std::string selected = devices::SelectedName;
  const Lines summary = session.Look("list List5");
  for (const int word : {0x2080, 0x0000, 0x3FFF, 300 << 5}) {
    const int number = link::EventCounter;
    Silently(word);
    EXPECT_EQ(session.Ask("get Combo2"), "PIC16F84A");
    EXPECT_EQ(devices::SelectedName, selected);
    EXPECT_EQ(devices::FlashWordMax, 1023);
    EXPECT_EQ(image::MainBuffer(1, 1), "1234");
    EXPECT_EQ(session.Look("list List5"), summary);
    EXPECT_FALSE(panel::PICAzonos.Loaded());
    EXPECT_EQ(link::EventCounter, number + 2);
    EXPECT_EQ(NewestTexts(2), (Lines{":  PIC Azonosítás indult.", ": PIC ID: " + std::to_string(word >> 5)}));
  }
}

TEST_F(MidIdentification, AnUnknownChipClearsTheSelectionAndShowsTheWindow) {
  const std::pair<int, const char*> cases[] = {{300 << 5, Unknown}, {0x3FFF, NoChip}, {0x0000, NoChip}};
  for (const auto& [word, name] : cases) {
    session.Do("choose Combo2 PIC16F84A");
    Click(word);
    EXPECT_EQ(DetectedName, name);
    EXPECT_EQ(devices::FlashWordMax, 0);
    EXPECT_EQ(session.Ask("get Combo2"), NoChip);
    EXPECT_EQ(devices::SelectedName, NoChip);
    EXPECT_EQ(session.Look("list List5"), Lines{NothingSelected});
    EXPECT_EQ(
        session.Look("list PICAzonos.PICazon"),
        (Lines{" Nem ismertem fel a PIC-et, vagy ", " nincs csatlakoztatva PIC a foglalatba, vagy ",
               " nincs bekapcsolva az égető tápja, vagy ", " nincs csatlakoztatva a printer porthoz."}));
    EXPECT_EQ(NewestTexts(3), (Lines{":  PIC Azonosítás indult.", ":  Nem volt felismerhető PIC.",
                                     ": PIC ID: " + std::to_string(word >> 5)}));
    session.Do("click PICAzonos.Command1");
    EXPECT_FALSE(panel::PICAzonos.Loaded());
  }
}

TEST_F(MidIdentification, OnThePic18PageTheUnknownChipIsToldInItsLog) {
  session.Do("tab 2");
  chip.Word(300 << 5);
  devices::SilentIdentify = false;
  devices::IdentifyMidrange();
  EXPECT_EQ(Text(Form1.List1.Lines().front()), ":  Nem volt felismerhető PIC.");
  EXPECT_EQ(NewestTexts(2), (Lines{":  PIC Azonosítás indult.", ": PIC ID: 300"}));
}

TEST_F(MidIdentification, AnEraseUnderWayKeepsTheEntryThatStands) {
  for (const bool erasing : {false, true}) {
    devices::MidEraseRun = erasing;
    session.BeginWire();
    Silently(0x0560);
    const Lines log = session.EndWire();
    EXPECT_EQ(std::ranges::count(log, "D settle"), erasing ? 0 : 3);
  }
}

TEST_F(MidIdentification, TakesTheSpeedSetting) {
  link::SpeedSetting = 3;
  link::WaitCount = 50;
  session.BeginWire();
  Silently(0x0560);
  const Lines log = session.EndWire();
  // Load Configuration with its word, six increments, the read command, the start bit; released data; 14
  // bits; the stop bit.
  EXPECT_EQ(std::ranges::count(log, "P 3"), 2 * (6 + 16 + 36 + 6 + 1) + 1 + 2 * 14 + 2);
  EXPECT_EQ(link::WaitCount, 3);
}

TEST_F(MidIdentification, WithoutAnInterfaceTheValueBeforeIsToldAgain) {
  Silently(0x0560);
  link::LptMode = false;
  session.BeginWire();
  devices::SilentIdentify = true;
  devices::IdentifyMidrange();
  const Lines log = session.EndWire();
  EXPECT_EQ(log.size(), 1U);
  EXPECT_EQ(DetectedName, "PIC16F84A");
  EXPECT_EQ(NewestTexts(1), Lines{": PIC ID: 43"});
}

/// Both interfaces and inputs, nothing inverted, everything inverted, and the board of a new installation.
class MidIdentificationWire : public testing::TestWithParam<Wiring> {
 protected:
  MidIdentificationWire() : session(GetParam().SettingsFiles()), model(GetParam(), Passes) {
    session.Do({GetParam().BoardCommand(), "start", "choose Combo2 PIC16F84A"});
    PutAnsweringChip(session).Word(Word);
    number = link::EventCounter;
  }
  static constexpr int Passes = 10;    // of `speed.ini` 1,0
  static constexpr int Word = 0x1187;  // value 140, revision 7

  void Event(const std::string& text) { model.Event("List4", number++, text); }
  void ReadWord(int word) {
    Event(":  PIC Azonosítás indult.");
    model.Out("000000");
    model.Out("0000000000000000");
    for (int i = 0; i < 6; ++i) model.Out("000110");
    model.Out("000100");
    model.Out("0");
    model.In(word, 14);
    model.Out("0");
  }

  BenchSession session;
  WireModel model;
  int number;
};

TEST_P(MidIdentificationWire, ASilentRunPowersReadsTheWordAndLeavesTheTargetPowered) {
  model.PowerOn();
  ReadWord(Word);
  Event(": PIC ID: 140");
  session.BeginWire();
  devices::SilentIdentify = true;
  devices::IdentifyMidrange();
  EXPECT_TRUE(SameLog(model.Log(), WithoutTimes(session.EndWire())));
  EXPECT_EQ(DetectedName, "PIC16F688");
  EXPECT_EQ(session.Ask("color Shape1"), std::to_string(panel::Red));
}

TEST_P(MidIdentificationWire, AClickPowersBeforeAndOffBehindItAndSelectsTheChip) {
  model.PowerOn();
  model.PowerOn();
  ReadWord(Word);
  Event(":  A felismert PIC a 16F688. ");
  Event(":  PIC16F688 Kiválaszva.");
  Event(": PIC ID: 140");
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), WithoutTimes(session.WireOf("click Command9"))));
}

TEST_P(MidIdentificationWire, AnEmptySocketShowsTheWindow) {
  session.Do("socket none");
  model.PowerOn();
  model.PowerOn();
  ReadWord(0x3FFF);
  model.Line("+ PICAzonos");
  Event(":  Nem volt felismerhető PIC.");
  Event(": PIC ID: 511");
  model.PowerOff();
  EXPECT_TRUE(SameLog(model.Log(), WithoutTimes(session.WireOf("click Command9"))));
}

INSTANTIATE_TEST_SUITE_P(Boards, MidIdentificationWire,
                         testing::Values(Wiring{false, 0}, Wiring{false, 28}, Wiring{false, 31},
                                         Wiring{false, 0, true}, Wiring{false, 16, true}, Wiring{true, 0},
                                         Wiring{true, 15}, Wiring{true, 4}, Wiring{true, 2}),
                         [](const testing::TestParamInfo<Wiring>& board) {
                           return std::string(board.param.com ? "Com" : "Lpt") +
                                  std::to_string(board.param.inverted) + (board.param.busy ? "Busy" : "");
                         });

}  // namespace
}  // namespace zelvo::test
