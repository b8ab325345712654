// Recognising the PIC18 in the socket by its device ID.
#include "devices/identification.h"

#include <cstdio>
#include <memory>

#include "devices/selection.h"
#include "expectations.h"
#include "image/buffers.h"
#include "link/event_log.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "wire_model.h"

namespace zelvo::test {
namespace {

using devices::ChipRecognised;
using devices::DetectedName;
using devices::DevId;
using panel::Form1;

constexpr const char* NoChip = "PIC Kiválasztása";
constexpr const char* Unknown = "Ismeretlen_PIC";

std::string Bits(int value) {
  std::string bits;
  for (int bit = 7; bit >= 0; --bit) bits += ((value >> bit) & 1) != 0 ? '1' : '0';
  return bits;
}

/// `socket` with a device ID of its own.
std::string SocketWithId(int devId2, int devId1, std::string_view chip = "PIC18F452") {
  char id[8];
  std::snprintf(id, sizeof id, "%04X", static_cast<unsigned>(devId2 * 256 + devId1));
  return "socket " + std::string(chip) + " id=" + id;
}

/// DEVID1 of a row with a revision.
int DevId1Of(const IdRow& row, int revision) {
  return std::stoi(std::string(row.bits), nullptr, 2) * 32 + revision;
}

/// The program after its start, with the PIC18 page in view.
class Identification : public testing::Test {
 protected:
  explicit Identification(const Wiring& wiring = {}) : session(wiring.SettingsFiles()) {
    session.Do({wiring.BoardCommand(), "start", "tab 2", "messages"});
  }

  void Silently() {
    devices::SilentIdentify = true;
    devices::IdentifyPic18();
    devices::SilentIdentify = false;
  }
  void Click() { session.Do("click IDazonosít"); }
  /// The texts of the newest lines of the PIC18 page's log, oldest first.
  Lines NewestTexts(std::size_t count) const {
    Lines texts;
    for (std::size_t i = count; i-- > 0;) texts.push_back(EventText(Form1.List1.Lines().at(i)));
    return texts;
  }

  BenchSession session;
};

TEST_F(Identification, EveryChipOfTheTableIsNamedToldAndSelected) {
  int kept = 0;
  for (const IdRow& row : IdRows) {
    SCOPED_TRACE(row.name);
    const int devId1 = DevId1Of(row, 5);
    session.Do(SocketWithId(row.devId2, devId1));
    const int counter = link::EventCounter;
    const int limitBefore = devices::FlashWordMax;
    Click();
    EXPECT_EQ(DetectedName, row.name);
    EXPECT_EQ(ChipRecognised, 1);
    EXPECT_EQ(DevId[1], devId1);
    EXPECT_EQ(DevId[2], row.devId2);
    EXPECT_EQ(session.Ask("get Combo1"), row.name);
    EXPECT_EQ(devices::SelectedName, row.name);

    Lines expected{":  PIC Azonosítás indult.",
                   ":  Devid1: " + Bits(devId1) + "  Devid2: " + std::to_string(row.devId2),
                   std::string(row.logLine)};
    for (const Pic18Row& chip : Pic18Rows) {
      if (chip.name != row.name) continue;
      if (chip.maskSet.empty()) {
        EXPECT_EQ(devices::FlashWordMax, limitBefore);
        ++kept;
        continue;
      }
      EXPECT_EQ(devices::FlashWordMax, chip.flashWordMax);
      std::string_view announced = row.name;
      if (row.name == "PIC18F458") announced = "PIC18F258";
      if (row.name == "PIC18F8680") announced = "PIC18F6520";
      expected.push_back(":  " + std::string(announced) + " Kiválaszva.");
    }
    expected.emplace_back(":  PIC Azonosítás kész.");
    EXPECT_EQ(NewestTexts(expected.size()), expected);
    EXPECT_EQ(link::EventCounter, counter + static_cast<int>(expected.size()));
    EXPECT_EQ(session.Look("messages"), Lines{});
  }
  EXPECT_EQ(kept, 2) << "PIC18F258 and PIC18F6520 select nothing";
}

TEST_F(Identification, EveryChipInTheSocketIsNamedByItsOwnDeviceId) {
  for (const Pic18Row& chip : Pic18Rows) {
    session.Do("socket " + std::string(chip.name));
    Silently();
    EXPECT_EQ(DetectedName, chip.name);
  }
}

TEST_F(Identification, EveryPossibleDeviceIdGivesTheNameOfItsRowOrNone) {
  for (int devId2 = 0; devId2 < 256; ++devId2) {
    for (int high = 0; high < 8; ++high) {
      const int devId1 = high * 32 + (devId2 + high) % 32;
      std::string expected = Unknown;
      for (const IdRow& row : IdRows) {
        if (row.devId2 == devId2 && DevId1Of(row, devId1 % 32) == devId1) expected = row.name;
      }
      if ((devId1 == 0 && devId2 == 0) || (devId1 == 255 && devId2 == 255)) expected = NoChip;
      session.Do(SocketWithId(devId2, devId1));
      Silently();
      ASSERT_EQ(DetectedName, expected) << devId2 << ' ' << devId1;
    }
  }
}

TEST_F(Identification, TheRevisionDoesNotMatter) {
  for (int revision = 0; revision < 32; ++revision) {
    session.Do(SocketWithId(4, revision));
    Silently();
    EXPECT_EQ(DetectedName, "PIC18F252") << revision;
  }
}

TEST_F(Identification, DevId2Of16HasOnlyThePatternsFrom100) {
  session.Do(SocketWithId(16, 0b01100000));
  Silently();
  EXPECT_EQ(DetectedName, Unknown);
  session.Do(SocketWithId(16, 0b10000000));
  Silently();
  EXPECT_EQ(DetectedName, "PIC18F4520");
}

TEST_F(Identification, SilentIdentificationLeavesTheSelectionTheBuffersAndBothLogs) {
  session.Do({"choose Combo1 PIC18F252", "socket PIC18F8722"});
  image::MainBuffer(1, 1) = "1234";
  const Lines log18 = Form1.List1.Lines();
  const Lines logMid = Form1.List4.Lines();
  const int counter = link::EventCounter;
  Silently();
  EXPECT_EQ(DetectedName, "PIC18F8722");
  EXPECT_EQ(ChipRecognised, 0);
  EXPECT_EQ(session.Ask("get Combo1"), "PIC18F252");
  EXPECT_EQ(devices::FlashWordMax, 16383);
  EXPECT_EQ(devices::SelectedName, "PIC18F252");
  EXPECT_EQ(image::MainBuffer(1, 1), "1234");
  EXPECT_EQ(Form1.List1.Lines(), log18);
  EXPECT_EQ(Form1.List4.Lines(), logMid);
  EXPECT_EQ(link::EventCounter, counter);
}

TEST_F(Identification, AnEmptySocketIsNoChipAndSilentlyOpensNoWindow) {
  session.Do("socket none");
  Silently();
  EXPECT_EQ(DevId[1], 255);
  EXPECT_EQ(DevId[2], 255);
  EXPECT_EQ(DetectedName, NoChip);
  EXPECT_FALSE(panel::PICAzonos.Loaded());
  session.Do(SocketWithId(0, 0));
  Silently();
  EXPECT_EQ(DetectedName, NoChip);
  session.Do(SocketWithId(255, 0));
  Silently();
  EXPECT_EQ(DetectedName, Unknown);
  EXPECT_FALSE(panel::PICAzonos.Loaded());
}

TEST_F(Identification, AnUnknownAnswerOpensTheWindowAndKeepsTheSelection) {
  session.Do({"choose Combo1 PIC18F252", SocketWithId(0x30, 0x21)});
  Click();
  EXPECT_EQ(DetectedName, Unknown);
  EXPECT_EQ(ChipRecognised, 0);
  EXPECT_EQ(session.Ask("get Combo1"), "PIC18F252");
  EXPECT_EQ(devices::FlashWordMax, 16383);
  EXPECT_EQ(session.Look("list PICAzonos.PICazon"),
            (Lines{" Nem ismertem fel a PIC-et, vagy ", " nincs csatlakoztatva PIC a foglalatba, vagy ",
                   " nincs bekapcsolva az égető tápja, vagy ", " nincs csatlakoztatva a printer porthoz."}));
  EXPECT_EQ(NewestTexts(4), (Lines{":  PIC Azonosítás indult.", ":  Devid1: 00100001  Devid2: 48",
                                   ":  Nem volt felismerhető PIC.", ":  PIC Azonosítás kész."}));
  session.Do("click PICAzonos.Command1");
  EXPECT_FALSE(panel::PICAzonos.Loaded());
}

TEST_F(Identification, NoChipOpensTheWindowToo) {
  session.Do("socket none");
  Click();
  EXPECT_EQ(DetectedName, NoChip);
  EXPECT_TRUE(panel::PICAzonos.Loaded());
  EXPECT_EQ(NewestTexts(4), (Lines{":  PIC Azonosítás indult.", ":  Devid1: 11111111  Devid2: 255",
                                   ":  Nem volt felismerhető PIC.", ":  PIC Azonosítás kész."}));
}

TEST_F(Identification, OnTheMidRangePageTheUnknownChipIsToldInItsLog) {
  session.Do({"tab 1", "socket none"});
  const std::size_t lines18 = Form1.List1.Lines().size();
  const int counter = link::EventCounter;
  devices::IdentifyPic18();
  EXPECT_EQ(EventText(Form1.List4.Lines().front()), ":  Nem volt felismerhető PIC.");
  EXPECT_EQ(Form1.List1.Lines().size(), lines18 + 3) << "started, device ID, ended";
  EXPECT_EQ(link::EventCounter, counter + 4);
}

TEST_F(Identification, TheWindowIsFilledAnewWhenItStandsAlready) {
  session.Do("socket none");
  Click();
  Click();
  EXPECT_EQ(session.Look("list PICAzonos.PICazon").size(), 4u);
}

TEST_F(Identification, EveryRunBeginsWithoutANameAndLeavesTheTargetUnpowered) {
  session.Do("socket PIC18F452");
  Click();
  EXPECT_EQ(ChipRecognised, 1);
  session.Do(SocketWithId(0x30, 0));
  Silently();
  EXPECT_EQ(DetectedName, Unknown);
  EXPECT_EQ(ChipRecognised, 0);
  EXPECT_EQ(session.Ask("color Shape1"), std::to_string(panel::Grey));
  EXPECT_EQ(session.Ask("color Shape2"), std::to_string(panel::Grey));
}

/// Both interfaces, nothing inverted, everything inverted, and the kind of board of a new installation.
class IdentificationWire : public testing::TestWithParam<Wiring> {
 protected:
  IdentificationWire() : session(GetParam().SettingsFiles()), model(GetParam(), Passes) {
    session.Do({GetParam().BoardCommand(), "start", "tab 2"});
  }
  static constexpr int Passes = 10;  // of `speed.ini` 1,0

  void PowerAndRead() {
    model.PowerOn();
    model.TablePointer("00111111", "11111111", "11111110");
  }

  BenchSession session;
  WireModel model;
};

TEST_P(IdentificationWire, ASilentRunPowersReadsTwoBytesAndPowersOff) {
  session.Do(SocketWithId(0x04, 0x28));
  PowerAndRead();
  model.TableReads(0x28, 0x04);
  model.PowerOff();

  session.BeginWire();
  devices::SilentIdentify = true;
  devices::IdentifyPic18();
  EXPECT_TRUE(SameLog(model.Log(), WithoutTimes(session.EndWire())));
  EXPECT_EQ(DetectedName, "PIC18F452");
}

TEST_P(IdentificationWire, AClickLogsBetweenAndSelectsTheChipBeforeThePowerGoes) {
  session.Do(SocketWithId(0x04, 0x28));
  int number = link::EventCounter;
  model.PowerOn();
  model.Event("List1", number++, ":  PIC Azonosítás indult.");
  model.TablePointer("00111111", "11111111", "11111110");
  model.TableReads(0x28, 0x04);
  model.Event("List1", number++, ":  Devid1: 00101000  Devid2: 4");
  model.Event("List1", number++, ":  A felismert PIC a 18F452. ");
  model.Event("List1", number++, ":  PIC18F452 Kiválaszva.");
  model.PowerOff();
  model.Event("List1", number++, ":  PIC Azonosítás kész.");
  EXPECT_TRUE(SameLog(model.Log(), WithoutTimes(session.WireOf("click IDazonosít"))));
}

TEST_P(IdentificationWire, AClickWithAnEmptySocketShowsTheWindowBeforeThePowerGoes) {
  session.Do("socket none");
  int number = link::EventCounter;
  model.PowerOn();
  model.Event("List1", number++, ":  PIC Azonosítás indult.");
  model.TablePointer("00111111", "11111111", "11111110");
  model.TableReads(0xFF, 0xFF);
  model.Event("List1", number++, ":  Devid1: 11111111  Devid2: 255");
  model.Line("+ PICAzonos");
  model.Event("List1", number++, ":  Nem volt felismerhető PIC.");
  model.PowerOff();
  model.Event("List1", number++, ":  PIC Azonosítás kész.");
  EXPECT_TRUE(SameLog(model.Log(), WithoutTimes(session.WireOf("click IDazonosít"))));
}

INSTANTIATE_TEST_SUITE_P(Boards, IdentificationWire,
                         testing::Values(Wiring{false, 0}, Wiring{false, 28}, Wiring{false, 31},
                                         Wiring{false, 0, true}, Wiring{false, 16, true}, Wiring{true, 0},
                                         Wiring{true, 15}, Wiring{true, 4}, Wiring{true, 2}),
                         [](const testing::TestParamInfo<Wiring>& board) {
                           return std::string(board.param.com ? "Com" : "Lpt") +
                                  std::to_string(board.param.inverted) + (board.param.busy ? "Busy" : "");
                         });

}  // namespace
}  // namespace zelvo::test
