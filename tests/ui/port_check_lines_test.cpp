// The lines that the boxes of the port check move, and what it reads back behind them.
#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "link/port.h"
#include "platform/seams.h"
#include "support/board_kind.h"
#include "ui/port_check_desk.h"

namespace zelvo::test {
namespace {

constexpr const char* Labels[] = {"Vdd_Él_Lab", "Vpp_Él_Lab", "CLK_Él_Lab", "Data_Él_Lab", "Ack_Él_Lab"};

Settings With(const char* pins, const char* invert) {
  Settings settings;
  settings.pins = pins;
  settings.invert = invert;
  return settings;
}

/// What the four boxes do to the registers of a board, and the accesses that this takes.
class Registers {
 public:
  Registers(const BoardKind& kind, std::array<int, 4> masks, int dataRegister)
      : kind_(kind), masks_(masks), data_(dataRegister) {}
  int& Break() { return lineControl_; }

  Lines Click(std::size_t box, bool ticked) {
    ticked_.at(box) = ticked;
    bool level = ticked;
    if (kind_.com && (box == 0 || box == 2)) level = ticked_[0] || ticked_[2];  // one DTR for both
    int& value = kind_.com && box == 1 ? lineControl_ : data_;
    const int address = !kind_.com ? 0x378 : box == 1 ? 0x3FB : 0x3FC;
    Lines log{Access('R', address, value)};
    const bool inverted =
        std::array{kind_.com ? kind_.data : kind_.vdd, kind_.vpp, kind_.data, kind_.clock}.at(box);
    value = level != inverted ? value | masks_.at(box) : value & (255 - masks_.at(box));
    log.push_back(Access('W', address, value));
    log.push_back(kind_.com ? Access('R', 0x3FE, kind_.input ? 0 : 16)
                            : Access('R', 0x379, kind_.input ? 0 : 64));
    return log;
  }

 private:
  BoardKind kind_;
  std::array<int, 4> masks_;
  int data_;
  int lineControl_ = 0;
  std::array<bool, 4> ticked_{};
};

/// Every box on and off, alone and over the others; `(box, ticked)`.
constexpr std::pair<std::size_t, bool> Clicks[] = {
    {0, true}, {0, false}, {1, true},  {1, false}, {2, true},  {2, false}, {3, true},  {3, false},
    {0, true}, {1, true},  {2, true},  {3, true},  {0, false}, {0, true},  {2, false}, {0, false},
    {2, true}, {0, true},  {0, false}, {2, false}, {1, false}, {3, false},
};

void ClickAll(PortCheckDesk& desk, Registers& model) {
  for (const auto& [box, ticked] : Clicks) {
    const std::string name = "Check" + std::to_string(box + 1);
    const Lines log = ticked ? desk.WireOfTick(name) : desk.WireOfUntick(name);
    EXPECT_TRUE(SameLog(model.Click(box, ticked), log)) << name << (ticked ? " ticked" : " cleared");
  }
}

class PortCheckLines : public testing::TestWithParam<BoardKind> {};
INSTANTIATE_TEST_SUITE_P(Boards, PortCheckLines, testing::ValuesIn(BoardKinds()),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_P(PortCheckLines, EachBoxMovesItsLineAloneByPolarityAndLeavesTheOtherBits) {
  const BoardKind& kind = GetParam();
  PortCheckDesk desk(kind.SettingsFiles(), kind.BoardCommand());
  // All bits without a line are set; the lines rest.
  const std::array masks = kind.com ? std::array{1, 64, 1, 2} : std::array{4, 8, 1, 2};
  const int rest = kind.com
                       ? (kind.data ? 1 : 0) + (kind.clock ? 2 : 0)
                       : (kind.vdd ? 4 : 0) + (kind.vpp ? 8 : 0) + (kind.data ? 1 : 0) + (kind.clock ? 2 : 0);
  Registers model(kind, masks, rest + (kind.com ? 0xFC : 0xF0));
  platform::seams.ports->Out32(kind.com ? 0x3FC : 0x378, rest + (kind.com ? 0xFC : 0xF0));
  if (kind.com) {
    model.Break() = 0xBF + (kind.vpp ? 64 : 0);
    platform::seams.ports->Out32(0x3FB, model.Break());
  }
  ClickAll(desk, model);
}

TEST_P(PortCheckLines, TheLabelsTellThePolarityOfEachLine) {
  const BoardKind& kind = GetParam();
  PortCheckDesk desk(kind.SettingsFiles(), kind.BoardCommand());
  const bool flags[] = {kind.com ? kind.data : kind.vdd, kind.vpp, kind.clock, kind.data,
                        kind.com ? !kind.input : kind.input};
  for (std::size_t i = 0; i < std::size(Labels); ++i)
    EXPECT_EQ(desk.Get(Labels[i]), flags[i] ? Inverted : Plain) << Labels[i];
}

TEST(PortCheckPins, TheMasksAreThoseOfTheFile) {
  BoardKind wired{.name = "wired", .vpp = true, .data = true};
  PortCheckDesk desk(With("128,16,32,64,1", "10"),
                     "board lpt vdd=128 vpp=16 data=32 clock=64 inverted=vpp,data");
  platform::seams.ports->Out32(0x378, 0x3F);
  Registers model(wired, {128, 16, 32, 64}, 0x3F);
  ClickAll(desk, model);
}

TEST(PortCheckPins, TwoLinesOnOneBitMoveTogether) {
  PortCheckDesk desk(With("4,4,1,2,1", "0"));
  EXPECT_EQ(desk.WireOfTick("Check1"), (Lines{"R 0378 00", "W 0378 04", "R 0379 40"}));
  EXPECT_EQ(desk.WireOfTick("Check2"), (Lines{"R 0378 04", "W 0378 04", "R 0379 40"}));
  EXPECT_EQ(desk.WireOfUntick("Check1"), (Lines{"R 0378 04", "W 0378 00", "R 0379 40"}));
}

TEST(PortCheckPins, APolarityThatChangesWhileItIsOpenCountsFromTheNextClick) {
  PortCheckDesk desk;
  desk.Tick("Check4");
  link::ClockInverted = true;
  EXPECT_EQ(desk.Get("CLK_Él_Lab"), Plain);
  EXPECT_EQ(desk.WireOfUntick("Check4"), (Lines{"R 0378 02", "W 0378 02", "R 0379 40"}));
  EXPECT_EQ(desk.Get("CLK_Él_Lab"), Inverted) << "shown anew with the readout";
}

TEST(PortCheckReadout, ShowsThePinAndTheLevelBehindTheInversionOnThePrinterPort) {
  struct Case {
    int select;
    bool bit;
  };
  PortCheckDesk desk;
  for (const Case& one : {Case{1, true}, Case{1, false}, Case{0, true}, Case{0, false}}) {
    for (const bool inverted : {false, true}) {
      // The line floats high; the port turns BUSY round.
      const bool turned = (one.select == 1) != one.bit;
      desk.session.Do(std::string("board lpt input=") + (one.select == 1 ? "ack" : "busy") +
                      (turned ? " inverted=input" : ""));
      link::InputSelect = one.select;
      link::InputInverted = inverted;
      const Lines log = desk.WireOfTick("Check2");
      EXPECT_EQ(log.back(), Access('R', 0x379, !one.bit ? 0 : one.select == 1 ? 0x40 : 0x80));
      EXPECT_EQ(desk.Get("Label2"), one.bit != inverted ? High : Low);
      EXPECT_EQ(desk.Get("Ack_Él_Lab"), inverted ? Inverted : Plain);
      const std::string pin = one.select == 1 ? "Ack" : "Busy";
      EXPECT_EQ(desk.session.Look("list " + desk.Name("List1")),
                (Lines{"H Című LPT Port " + pin + " láb szintje: " + (one.bit ? "1 (5V)" : "0 (0V)"),
                       "H Című LPT Port Értéke. - Dec:8888 - Bin:  0 0 0 0 1 0 0 0"}));
      desk.Untick("Check2");
    }
  }
}

TEST(PortCheckReadout, TellsTheBaseAddressTheValueAndItsBitsAfterEachChangeAlone) {
  PortCheckDesk desk;
  platform::seams.ports->Out32(0x378, 0xA0);
  desk.Tick("Check1");
  desk.Tick("Check3");
  EXPECT_EQ(desk.session.Look("list " + desk.Name("List1")),
            (Lines{"H Című LPT Port Ack láb szintje: 1 (5V)",
                   "H Című LPT Port Értéke. - Dec:888165 - Bin:  1 0 1 0 0 1 0 1"}));
}

TEST(PortCheckReadout, ShowsTheLevelBehindTheInversionOnTheSerialPortAndAddsNoLine) {
  PortCheckDesk desk(SerialPort(), "board com");
  for (const bool cts : {false, true}) {
    for (const bool inverted : {false, true}) {
      desk.session.Do(cts ? "board com" : "board com inverted=input");
      link::ComInputInverted = inverted;
      EXPECT_EQ(desk.WireOfTick("Check4").back(), Access('R', 0x3FE, cts ? 16 : 0));
      EXPECT_EQ(desk.Get("Label2"), cts != inverted ? High : Low);
      EXPECT_EQ(desk.session.Look("list " + desk.Name("List1")), Lines{});
      desk.Untick("Check4");
    }
  }
}

TEST(PortCheckWithoutAnInterface, MovesNoLineAndReadsNothing) {
  Settings settings;
  settings.port = "&H378,USB";
  PortCheckDesk desk(settings);
  for (const char* box : {"Check1", "Check2", "Check3", "Check4"}) EXPECT_EQ(desk.WireOfTick(box), Lines{});
  EXPECT_EQ(desk.Get("Label2"), "DATA In belső logikai szintje");
  EXPECT_EQ(desk.session.Look("list " + desk.Name("List1")), Lines{});
}

}  // namespace
}  // namespace zelvo::test
