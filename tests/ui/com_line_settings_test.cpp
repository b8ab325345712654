// The window of the serial port's inversions: what it shows and saves, and what is in force while it is open,
// behind it and with the next start.
#include <gtest/gtest.h>

#include <array>

#include "link/port.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "settings_wire.h"
#include "watched_dialogs.h"

namespace zelvo::test {
namespace {

using panel::Adat_él_Beállít_COM;

constexpr const char* Cts = "R 03FE 10";

struct Box {
  const char* name;
  const char* caption;
  int bit;
  const char* flag;
  bool whenTicked;
};
constexpr std::array<Box, 4> Boxes{
    {{"Check1_PGD_Vdd", "Adat/Vdd (PGD, DTR 4. láb) Inverz", 1, "ComPgdInverted", true},
     {"Check2_PGC", "Órajel (PGC, RTS 7. láb) Inverz", 2, "ComPgcInverted", true},
     {"Check3_DataIn", "Adat_Be (CTS 8. láb) Inverz", 4, "ComInputInverted", false},
     {"Check4_Vpp", "Vpp (TXD 3. láb) Inverz", 8, "ComVppInverted", true}}};

std::string Of(const Box& box) {
  return std::string("Adat_él_Beállít_COM.") + box.name;
}

/// What the reading of the file logs, from `number` on.
Lines FileLog(int number, int bits) {
  return Joined({Entry(number, (bits & 1) != 0 ? ":  PGD inverz." : ":  PGD nem inverz."),
                 Entry(number + 1, (bits & 2) != 0 ? ":  PGC inverz." : ":  PGC nem inverz."),
                 Entry(number + 2, (bits & 4) != 0 ? ":  AdatBe inverz." : ":  AdatBe nem inverz."),
                 Entry(number + 3, (bits & 8) != 0 ? ":  Vpp inverz." : ":  Vpp nem inverz.")});
}

LineModel Model(int inversions, int modemControl, int lineControl) {
  LineModel model(LineModel::Kind::Com, inversions);
  model.Preset(LineModel::Data, modemControl);
  model.Preset(LineModel::Vpp, lineControl);
  return model;
}
LineModel AtRest(int inversions) {
  LineModel model = Model(inversions, 0, 0);
  model.PowerOff();
  static_cast<void>(model.Take());
  return model;
}

class ComLineSettings : public testing::Test {
 protected:
  explicit ComLineSettings(const char* inversions = "0") : session(SerialPort(inversions)) {
    session.Do({"board com", "start", "tab 2"});
  }
  void Open() { session.Do("click Command5"); }
  void Close() { session.Do("close Adat_él_Beállít_COM"); }
  [[nodiscard]] int Shown() {
    int sum = 0;
    for (const Box& box : Boxes) sum += session.Ask("get " + Of(box)) == "1" ? box.bit : 0;
    return sum;
  }
  [[nodiscard]] std::string File() const { return session.Folder().Read("invert_com.ini"); }
  [[nodiscard]] bool Flag(const char* name) { return session.Ask("var " + std::string(name)) == "1"; }
  /// The flags are those of `inversions`; the input's is `input`.
  void ExpectFlags(int inversions, bool input) {
    for (const Box& box : Boxes)
      EXPECT_EQ(Flag(box.flag), box.bit == 4 ? input : (inversions & box.bit) != 0) << box.flag;
  }
  BenchSession session;
};
class AllInverted : public ComLineSettings {
 protected:
  AllInverted() : ComLineSettings("15") {}
};

TEST_F(ComLineSettings, TheWindowAndItsBoxesBearTheirNamesAndCaptions) {
  EXPECT_EQ(Adat_él_Beállít_COM.Name(), "Adat_él_Beállít_COM");
  EXPECT_EQ(Adat_él_Beállít_COM.Caption, "COM port Adatél Beállítás");
  for (const Box& box : Boxes) EXPECT_EQ(CaptionOf(Adat_él_Beállít_COM, box.name), box.caption);
  EXPECT_EQ(Adat_él_Beállít_COM.Controls().size(), 4U) << "the wiring is fixed";
}

// Opening.

TEST_F(ComLineSettings, OpeningShowsTheFileOnTopOfTheMainWindowAndLogsMovesAndSavesNothing) {
  for (int number = 0; number < 16; ++number) {
    session.Folder().Write("invert_com.ini", std::to_string(number));
    Adat_él_Beállít_COM.OnTop = false;
    EXPECT_EQ(session.WireOf("click Command5"), Lines{"+ Adat_él_Beállít_COM"});
    EXPECT_TRUE(Adat_él_Beállít_COM.OnTop);
    EXPECT_EQ(Shown(), number);
    ExpectFlags(number, (number & 4) == 0);
    EXPECT_EQ(File(), std::to_string(number)) << "not written again";
    Close();
  }
}

TEST_F(ComLineSettings, AMissingOrBadFileIsToldWrittenAnewAndShownAsWritten) {
  for (const char* bad : {"", "x", "6;"}) {
    session.Folder().Write("invert_com.ini", bad);
    EXPECT_EQ(session.WireOf("click Command16"),
              (Lines{"+ Adat_él_Beállít_COM",
                     "M ok ok Hiba az invert_com.ini betöltésénél! Ellenőrizd az éleket! Új Fájl létrehozva "
                     "alapértelmezett értékekkel. Indítsd újra a programot!"}));
    EXPECT_EQ(File(), "6\r\n");
    EXPECT_EQ(Shown(), 6);
    ExpectFlags(6, false);
    Close();
  }
  std::filesystem::remove(session.Folder().File("invert_com.ini"));
  Open();
  EXPECT_EQ(Shown(), 6);
}

// Clicks.

TEST_F(ComLineSettings, EachBoxUpdatesItsFlagAndWritesTheSumWithoutALineOrALog) {
  Open();
  for (int step = 1; step < 16; ++step) {
    const int number = step ^ (step >> 1);  // one box after the other
    for (const Box& box : Boxes) {
      if ((Shown() & box.bit) == (number & box.bit)) continue;
      EXPECT_EQ(session.WireOf("click " + Of(box)), Lines{});
      EXPECT_EQ(Flag(box.flag), ((number & box.bit) != 0) == box.whenTicked) << box.flag;
    }
    ExpectFlags(number, (number & 4) == 0);
    EXPECT_EQ(File(), std::to_string(number) + "\r\n");
  }
  EXPECT_EQ(session.Look("messages"), Lines{});
}

TEST_F(ComLineSettings, ABoxLeavesTheFlagsOfTheOthersAlone) {
  Open();
  link::ComVppInverted = true;
  session.Do("tick Adat_él_Beállít_COM.Check2_PGC");
  ExpectFlags(2 | 8, true);
  EXPECT_EQ(File(), "2\r\n");
}

TEST_F(ComLineSettings, EveryInversionIsInForceWithTheNextLineChangeAndWithTheNextStart) {
  Open();
  // The lines rest where the last operation left them until one moves.
  LineModel resting = AtRest(0);
  for (int step = 1; step < 16; ++step) {
    const int number = step ^ (step >> 1);
    for (const Box& box : Boxes) {
      if ((Shown() & box.bit) != (number & box.bit)) session.Do("click " + Of(box));
    }
    SCOPED_TRACE("inversions " + std::to_string(number));
    ExpectTraffic(session, Model(number, resting.Value(LineModel::Data), resting.Value(LineModel::Vpp)),
                  AtRest(number), "board com", Cts);
    EXPECT_EQ(DeviceId(session), (number & 4) != 0 ? HighLine : LowLine) << "upside down while it is open";
    LineModel now = Model(number, resting.Value(LineModel::Data), resting.Value(LineModel::Vpp));
    now.PowerOff();
    resting = now;
  }
}

// Closing.

TEST_F(ComLineSettings, ClosingBehindAChangeSetsTheInterfaceUpAnew) {
  for (const int number : {9, 6, 15, 4, 0}) {
    Open();
    for (const Box& box : Boxes) {
      if ((Shown() & box.bit) != (number & box.bit)) session.Do("click " + Of(box));
    }
    const int counter = link::EventCounter;
    const int claims = session.TheBench().serial.Claims;
    LineModel model = Model(number, platform::seams.ports->Inp32(0x3FC), platform::seams.ports->Inp32(0x3FB));
    model.ReadOut(LineModel::Vdd);
    model.Move(LineModel::Vdd, false);
    const Lines off = model.Take();
    model.PowerOff();
    EXPECT_TRUE(SameLog(Joined({off, FileLog(counter, number), model.Take(), {"- Adat_él_Beállít_COM"}}),
                        session.WireOf("close Adat_él_Beállít_COM")));
    EXPECT_EQ(session.TheBench().serial.Claims, claims + 1);
    EXPECT_TRUE(session.TheBench().serial.IsOpen());
    ExpectFlags(number, (number & 4) != 0);
    EXPECT_EQ(File(), std::to_string(number) + "\r\n");
  }
}

TEST_F(ComLineSettings, AChangeThatIsTakenBackIsAChange) {
  Open();
  session.Do({"tick Adat_él_Beállít_COM.Check4_Vpp", "untick Adat_él_Beállít_COM.Check4_Vpp"});
  const int counter = link::EventCounter;
  Close();
  EXPECT_EQ(link::EventCounter, counter + 4);
}

TEST_F(AllInverted, ClosingWithoutAChangeMovesAndLogsNothingAndLeavesTheInputAsItWas) {
  for (int opening = 0; opening < 2; ++opening) {
    Open();
    ExpectFlags(15, false);
    EXPECT_EQ(session.WireOf("close Adat_él_Beállít_COM"), Lines{"- Adat_él_Beállít_COM"});
    ExpectFlags(15, true);
  }
  EXPECT_EQ(session.TheBench().serial.Claims, 1);
  EXPECT_EQ(File(), "15\r\n");
}

TEST_F(ComLineSettings, AChangeOfAnEarlierOpeningDoesNotCountForTheNext) {
  Open();
  session.Do("tick Adat_él_Beállít_COM.Check4_Vpp");
  Close();
  Open();
  EXPECT_EQ(session.WireOf("close Adat_él_Beállít_COM"), Lines{"- Adat_él_Beállít_COM"});
}

TEST_F(ComLineSettings, TheSetUpAfterAChangeMarksTheSupplyAsOffAndReadsTheSpeedAgain) {
  session.Do({"click ProgFut", "click Command5", "tick Adat_él_Beállít_COM.Check2_PGC"});
  session.Folder().Write("speed.ini", "37,0\r\n");
  Close();
  EXPECT_EQ(session.Ask("get ProgFut"), "Vdd(+5V) On");
  EXPECT_EQ(session.Ask("var VddOnFlag"), "0");
  EXPECT_EQ(session.Ask("var SpeedSetting"), "370");
}

TEST_F(ComLineSettings, EndingTheProgramWithAChangePutsTheNewRestOnTheLinesAndGivesThePortBack) {
  session.Do({"click Command5", "tick Adat_él_Beállít_COM.Check2_PGC", "tick Adat_él_Beállít_COM.Check4_Vpp",
              "stop"});
  EXPECT_EQ(platform::seams.ports->Inp32(0x3FC), 2);
  EXPECT_EQ(platform::seams.ports->Inp32(0x3FB), 0x40);
  EXPECT_FALSE(session.TheBench().serial.IsOpen());
}

// Boards.

struct Wiring {
  const char* name;
  const char* board;
  std::vector<const char*> boxes;
};
void PrintTo(const Wiring& wiring, std::ostream* out) {
  *out << wiring.name;
}

class ASerialWiring : public testing::TestWithParam<Wiring> {};
INSTANTIATE_TEST_SUITE_P(
    OfTheBoard, ASerialWiring,
    testing::Values(Wiring{"PgdInverted", "board com inverted=pgd", {"Check1_PGD_Vdd"}},
                    Wiring{"PgcInverted", "board com inverted=pgc", {"Check2_PGC"}},
                    Wiring{"InputInverted", "board com inverted=input", {"Check3_DataIn"}},
                    Wiring{"VppInverted", "board com inverted=vpp", {"Check4_Vpp"}},
                    Wiring{"AllInverted",
                           "board com inverted=pgd,pgc,input,vpp",
                           {"Check1_PGD_Vdd", "Check2_PGC", "Check3_DataIn", "Check4_Vpp"}}),
    [](const auto& wiring) { return std::string(wiring.param.name); });

TEST_P(ASerialWiring, RecognisesItsChipBehindTheWindowAndAfterARestart) {
  BenchSession session(SerialPort());
  session.Do({GetParam().board, "socket PIC18F452", "start", "tab 2", "click IDazonosít"});
  EXPECT_NE(session.Ask("var DetectedName"), "PIC18F452") << "before";
  session.Do("click Command5");
  for (const char* box : GetParam().boxes) session.Do("tick Adat_él_Beállít_COM." + std::string(box));
  session.Do({"close Adat_él_Beállít_COM", "click IDazonosít"});
  EXPECT_EQ(session.Ask("var DetectedName"), "PIC18F452");
  EXPECT_EQ(Restarted(session.Folder(), {GetParam().board, "socket PIC18F452", "start", "tab 2",
                                         "click IDazonosít", "var DetectedName"}),
            Lines{"PIC18F452"});
}

TEST_F(ComLineSettings, TheInputIsReadUpsideDownAsLongAsTheWindowIsOpen) {
  session.Do({"socket PIC18F452", "click IDazonosít"});
  EXPECT_EQ(session.Ask("var DetectedName"), "PIC18F452");
  session.Do({"click Command5", "click IDazonosít"});
  EXPECT_NE(session.Ask("var DetectedName"), "PIC18F452");
  session.Do({"close Adat_él_Beállít_COM", "click IDazonosít"});
  EXPECT_EQ(session.Ask("var DetectedName"), "PIC18F452");
}

// The file.

TEST_F(ComLineSettings, WhatCannotBeKeptIsToldLeavesTheOldFileWholeAndIsInForceForThisRun) {
  Open();
  for (const Box& box : Boxes) {
    ExpectRefusedWrites(session, "invert_com.ini", "tick " + Of(box), "untick " + Of(box));
    OnAFullDisk([&] { session.Do("tick " + Of(box)); });
    EXPECT_EQ(Flag(box.flag), box.whenTicked);
    EXPECT_EQ(session.Look("messages"), Lines{FileFailure});
  }
  EXPECT_EQ(File(), "0\r\n");
}

TEST_F(ComLineSettings, AMessageDropsTheWindowFromTheTopForItsTime) {
  Open();
  WatchedDialogs dialogs;
  bool onTop = true;
  dialogs.InMessage = [&onTop](const std::string&) { onTop = Adat_él_Beállít_COM.OnTop; };
  OnAFullDisk([this] { session.Do("tick Adat_él_Beállít_COM.Check2_PGC"); });
  EXPECT_FALSE(onTop);
  EXPECT_TRUE(Adat_él_Beállít_COM.OnTop);
}

TEST_F(ComLineSettings, AKillWhileTheFileIsWrittenLeavesOneOfBoth) {
  Open();
  ExpectWholeAfterAKill(session.Folder(), "invert_com.ini", {"0\r\n", "8\r\n"},
                        [this] { session.Do("click Adat_él_Beállít_COM.Check4_Vpp"); });
  ExpectReplacedAsAWhole(session.Folder(), "invert_com.ini",
                         [this] { session.Do("tick Adat_él_Beállít_COM.Check1_PGD_Vdd"); });
}

}  // namespace
}  // namespace zelvo::test
