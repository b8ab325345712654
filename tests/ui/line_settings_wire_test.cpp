// The printer port's wiring on the wire: what a box or an option sets is in force with the next line change,
// and with the next start.
#include "line_settings_wire.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <utility>

#include "link/port.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

// Boxes.

TEST_F(LptWire, EveryPolarityIsInForceAtOnceForEveryLineAndReadByTheNextStart) {
  Open();
  int before = 0;
  for (int step = 1; step < 32; ++step) {
    const int number = step ^ (step >> 1);  // one box after the other
    const int changed = number ^ before;
    int box = 1;
    for (int bit = 1; bit != changed && box < 5; bit <<= 1) ++box;
    SCOPED_TRACE("polarities " + std::to_string(number) + ", box " + std::to_string(box));
    const Lines traffic = Traffic(Click("Check" + std::to_string(box)));
    EXPECT_EQ(traffic, box == 5 ? Lines{} : OneCycle(IdleRegister(before), IdleRegister(number)));
    ExpectTraffic(session, LptModel(number), LptModel(number), "board lpt", Ack);
    EXPECT_EQ(DeviceId(session), (number & 16) != 0 ? LowLine : HighLine);
    before = number;
  }
  session.Do({"untick Adat_él_Beállít_H.Check5", "click IDazonosít"});
  EXPECT_EQ(DeviceId(session), HighLine);
}

TEST_F(LptWire, TheFileIsWrittenBeforeTheLinesMove) {
  /// Looks into the file when a line moves.
  class WatchingPorts : public platform::Ports {
   public:
    explicit WatchingPorts(const TemporaryFolder& folder)
        : folder_(folder), bench_(std::exchange(platform::seams.ports, this)) {}
    ~WatchingPorts() override { platform::seams.ports = bench_; }
    void Out32(int address, int value) override {
      seen.push_back(folder_.Read("invert.ini"));
      lines.push_back(panel::Form1.List1.Lines().front());
      bench_->Out32(address, value);
    }
    [[nodiscard]] int Inp32(int address) override { return bench_->Inp32(address); }
    Lines seen, lines;

   private:
    const TemporaryFolder& folder_;
    platform::Ports* bench_;
  };
  Open();
  const WatchingPorts ports(session.Folder());
  session.Do("tick Adat_él_Beállít_H.Check2");
  EXPECT_EQ(ports.seen, Lines{"2\r\n"});
  ASSERT_EQ(ports.lines.size(), 1U);
  EXPECT_TRUE(ports.lines[0].ends_with(":  Vpp Kimenet Inverz"));
}

TEST_F(LptWire, ABoxPutsAllFourLinesToRestAndLeavesTheOtherBits) {
  Open();
  for (const auto& [box, idle] : {std::pair{"Check1", 4}, {"Check2", 12}, {"Check3", 14}, {"Check4", 15}}) {
    platform::seams.ports->Out32(0x378, 0xFF ^ idle);
    EXPECT_EQ(Traffic(Click(box)), OneCycle(0xFF ^ idle, 0xF0 | idle)) << box;
  }
}

TEST_F(LptWire, ABoxDuringAnOperationCountsWithTheNextEdge) {
  Open();
  session.BeginWire();
  session.Do({"at pump 1 tick Adat_él_Beállít_H.Check3", "click IDazonosít"});
  const Lines log = Traffic(session.EndWire());
  // Entry, then the first bit, a zero: its clock edge is up when the box inverts the clock and brings all
  // lines to rest. The edge's way back is worked out from what the box left there.
  const Lines expected = {"R 0378 00", "W 0378 00", "D settle",  "R 0378 00", "W 0378 04", "D settle",
                          "W 0378 0C", "D settle",  "R 0378 0C", "W 0378 0C", "W 0378 0E", "R 0378 0E",
                          "W 0378 02", "W 0378 02", "R 0378 02", "W 0378 02", "W 0378 00", "W 0378 02"};
  ASSERT_GT(log.size(), expected.size());
  EXPECT_TRUE(SameLog(expected, Lines(log.begin(), log.begin() + static_cast<long>(expected.size()))));
}

// Options.

class WireOfEachBit : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Polarities, WireOfEachBit, testing::Values(0, 13, 28, 31));

TEST_P(WireOfEachBit, IsMovedFromTheNextLineChangeOnAndAfterARestart) {
  struct Line {
    LineModel::Line line;
    int firstOption;
  };
  BenchSession session(WithInversions(GetParam()));
  session.Do({"board lpt", "start", "tab 2", "click Command5"});
  std::array<int, 4> bits{4, 8, 1, 2};
  for (const auto& [line, first] : {Line{LineModel::Vdd, 1}, Line{LineModel::Vpp, 11},
                                    Line{LineModel::Clock, 21}, Line{LineModel::Data, 31}}) {
    for (int option = 0; option < 8; ++option) {
      const int bit = 128 >> option;
      const bool taken = std::ranges::find(bits, bit) != bits.end();
      if (taken && bits.at(line) != bit) continue;  // of another line
      SCOPED_TRACE("option " + std::to_string(first + option));
      const int before = DataRegister();
      EXPECT_EQ(session.WireOf("click " + (LineWindow + (".Option" + std::to_string(first + option)))),
                Lines{});
      EXPECT_EQ(DataRegister(), before) << "a bit that is chosen moves nothing by itself";
      bits.at(line) = bit;
      LineModel now = LptModel(GetParam());
      now.LptBits = bits;
      LineModel afterwards = now;
      now.Preset(LineModel::Vdd, before);
      afterwards.Preset(LineModel::Vdd, 0);
      afterwards.PowerOff();  // the start's
      static_cast<void>(afterwards.Take());
      ExpectTraffic(session, now, afterwards, "board lpt", Ack);
    }
    // Another line's turn: this one keeps a bit of the upper half that no other has.
    for (int option = 0; option < 4; ++option) {
      if (std::ranges::find(bits, 128 >> option) != bits.end()) continue;
      session.Do("click " + (LineWindow + (".Option" + std::to_string(first + option))));
      bits.at(line) = 128 >> option;
      break;
    }
  }
}

TEST_F(LptWire, TwoLinesOnOneBitMoveTogether) {
  Open();
  session.Do("click Adat_él_Beállít_H.Option14");  // Vpp on D4
  session.Do("click Adat_él_Beállít_H.Option4");   // and Vdd
  EXPECT_EQ(session.WireOf("click ProgFut"), OneCycle(0, 16));
  EXPECT_EQ(session.WireOf("click ProgFut"), OneCycle(16, 0));
  session.BeginWire();
  session.Do("click IDazonosít");
  const Lines log = Traffic(session.EndWire());
  EXPECT_EQ(Lines(log.begin(), log.begin() + 8), (Lines{"R 0378 00", "W 0378 00", "D settle", "R 0378 00",
                                                        "W 0378 10", "D settle", "W 0378 00", "D settle"}))
      << "the second flip takes the first one back";
}

// The input.

TEST_F(LptWireOfBusy, TheRadioButtonSelectsTheStatusBitOfTheNextSample) {
  constexpr const char* High = "R 0379 00";  // the port hardware inverts BUSY
  Open();
  ExpectTraffic(session, LptModel(0), LptModel(0), "board lpt input=busy", High);
  EXPECT_EQ(DeviceId(session), LowLine) << "the bit of ACK";
  session.Do("socket PIC18F452");
  session.Do({"click Adat_él_Beállít_H.BUSY_Radio", "click IDazonosít"});
  EXPECT_EQ(session.Ask("var DetectedName").find("PIC18F452"), std::string::npos) << "upside down";
  session.Do({"tick Adat_él_Beállít_H.Check5", "click IDazonosít"});
  EXPECT_EQ(session.Ask("var DetectedName"), "PIC18F452");
  session.Do({"click Adat_él_Beállít_H.ACK_Radio", "click IDazonosít"});
  EXPECT_NE(session.Ask("var DetectedName"), "PIC18F452");
  session.Do({"click Adat_él_Beállít_H.BUSY_Radio"});
  EXPECT_EQ(Restarted(session.Folder(), {"board lpt input=busy", "socket PIC18F452", "start", "tab 2",
                                         "click IDazonosít", "var DetectedName"}),
            Lines{"PIC18F452"});
}

// Boards.

struct Wiring {
  const char* name;
  const char* board;
  std::vector<const char*> clicks;
};
void PrintTo(const Wiring& wiring, std::ostream* out) {
  *out << wiring.name;
}

class AWiring : public testing::TestWithParam<Wiring> {};
INSTANTIATE_TEST_SUITE_P(
    OfTheBoard, AWiring,
    testing::Values(Wiring{"VddInverted", "board lpt inverted=vdd", {"Check1"}},
                    Wiring{"VppInverted", "board lpt inverted=vpp", {"Check2"}},
                    Wiring{"ClockInverted", "board lpt inverted=clock", {"Check3"}},
                    Wiring{"DataInverted", "board lpt inverted=data", {"Check4"}},
                    Wiring{"InputInverted", "board lpt inverted=input", {"Check5"}},
                    Wiring{"VddOnD4", "board lpt vdd=16", {"Option4"}},
                    Wiring{"VppOnD5", "board lpt vpp=32", {"Option13"}},
                    Wiring{"ClockOnD6", "board lpt clock=64", {"Option22"}},
                    Wiring{"DataOnD7", "board lpt data=128", {"Option31"}},
                    Wiring{"Busy", "board lpt input=busy inverted=input", {"BUSY_Radio"}},
                    Wiring{"Another",
                           "board lpt vdd=1 vpp=2 data=64 clock=128 inverted=vdd,clock",
                           {"Option8", "Option17", "Option32", "Option21", "Check1", "Check3"}}),
    [](const auto& wiring) { return std::string(wiring.param.name); });

TEST_P(AWiring, RecognisesItsChipFromTheNextOperationOnAndAfterARestart) {
  BenchSession session;
  session.Do({GetParam().board, "socket PIC18F452", "start", "tab 2", "click IDazonosít"});
  EXPECT_NE(session.Ask("var DetectedName"), "PIC18F452") << "before";
  session.Do("click Command5");
  for (const char* control : GetParam().clicks)
    session.Do("click " + (LineWindow + ("." + std::string(control))));
  session.Do("click IDazonosít");
  EXPECT_EQ(session.Ask("var DetectedName"), "PIC18F452");
  EXPECT_EQ(Restarted(session.Folder(), {GetParam().board, "socket PIC18F452", "start", "tab 2",
                                         "click IDazonosít", "var DetectedName"}),
            Lines{"PIC18F452"});
}

// Opening.

TEST_F(OpeningWithEveryBox, PutsTheLinesToRestOnceForEachTickedOutput) {
  platform::seams.ports->Out32(0x378, 0xC0);
  EXPECT_EQ(session.WireOf("click Command5"), Joined({{"+ Adat_él_Beállít_H"},
                                                      OneCycle(0xC0, 0xCF),
                                                      OneCycle(0xCF, 0xCF),
                                                      OneCycle(0xCF, 0xCF),
                                                      OneCycle(0xCF, 0xCF)}));
}

class OpeningAfterABadFile : public LptWire {
 protected:
  OpeningAfterABadFile()
      : LptWire([] {
          Settings settings;
          settings.invert.reset();
          return settings;
        }()) {}
};

TEST_F(OpeningAfterABadFile, PutsInForceWhatTheNewFileHolds) {
  // The start went on with Vdd and Vpp inverted and stored clock, data and input.
  EXPECT_EQ(DataRegister(), 0x0C);
  EXPECT_EQ(session.WireOf("click Command5"),
            Joined({{"+ Adat_él_Beállít_H"}, OneCycle(0x0C, 0x0E), OneCycle(0x0E, 0x0F)}));
  EXPECT_EQ(session.Folder().Read("invert.ini"), "28\r\n");
}

TEST_F(LptWire, ABoxCountsForThePrinterPortEvenWhenTheOtherInterfaceWasChosenMeanwhile) {
  Open();
  link::ComPgdInverted = link::ComVppInverted = true;
  session.Do({"click Command6", "click LPT_COM_select.COM_Radio", "click LPT_COM_select.Command1"});
  EXPECT_EQ(Traffic(Click("Check3")), OneCycle(0, 2));
}

}  // namespace
}  // namespace zelvo::test
