// The bit engine of the PIC18 on the wire, in every polarity of both interfaces.
#include <gtest/gtest.h>

#include <algorithm>

#include "icsp/pic18_engine.h"
#include "link/delays.h"
#include "link/lines.h"
#include "panel/form1.h"
#include "support/line_model.h"

namespace zelvo::test {
namespace {

using icsp::ClockInBits;
using icsp::ClockOutBits;
using panel::Form1;

class Engine : public EveryPolarity {};
INSTANTIATE_TEST_SUITE_P(Bits, Engine, testing::Range(0, 48), PolarityName);

TEST_P(Engine, ClocksATextOutFromItsLastCharacterWithDataSettledBeforeTheRise) {
  LineModel model = Model();
  LineSession session(model);
  model.ClockOut("1101");
  model.ClockOut("01100001");
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf([] {
    ClockOutBits("1101");
    ClockOutBits("01100001");
  })));
}

TEST_P(Engine, ClocksEightBitsInWithDataReleasedAndSamplesBehindTheFall) {
  LineModel model = Model();
  LineSession session(model);
  model.ClockInHigh();
  int value = -1;
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf([&value] { value = ClockInBits(); })));
  EXPECT_EQ(value, 255) << "the line floats high, and the flag fits the board";
}

TEST_P(Engine, ShowsTheInputAtEachBitOfAVerySlowRunAndRestoresTheRegister) {
  LineModel model = Model();
  LineSession session(model);
  Form1.Check10.Value = true;
  model.ShowsInput = true;
  model.Passes = 1000;
  model.ClockOut("10");
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf([] { ClockOutBits("10"); })));
  EXPECT_EQ(Form1.Shape3.FillColor.Get(), 65280) << "the line is high";
  EXPECT_EQ(Form1.Shape4.FillColor.Get(), 65280);
  EXPECT_EQ(link::PortAddress, GetParam() < 32 ? 0x378 : 0x3FC);
}

TEST_P(Engine, StartsTheProgrammingPulseWithThreeClocksAndLeavesTheFourthHigh) {
  LineModel model = Model();
  LineSession session(model);
  model.ProgramClockStart();
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf(icsp::ProgramClockStart)));
}

TEST_P(Engine, HoldsTheFourthClockForTwoTicksAndTheLowForOneBeforeThePayload) {
  LineModel model = Model();
  LineSession session(model);
  model.ProgramPulse();
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf(icsp::ProgramPulse)));
}

TEST(EngineByHand, TheText0001PutsDataAt1ForTheFirstClockOnly) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  EXPECT_EQ(session.LogOf([] { ClockOutBits("0001"); }),
            (Lines{"R 0378 00", "W 0378 01", "W 0378 03", "P 10", "W 0378 01", "P 10",  //
                   "R 0378 01", "W 0378 00", "W 0378 02", "P 10", "W 0378 00", "P 10",  //
                   "R 0378 00", "W 0378 00", "W 0378 02", "P 10", "W 0378 00", "P 10",  //
                   "R 0378 00", "W 0378 00", "W 0378 02", "P 10", "W 0378 00", "P 10"}));
}

TEST(EngineByHand, TheShippedBoardsClockDataAndInputAreInverted) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 28));
  EXPECT_EQ(session.LogOf([] { ClockOutBits("01"); }),
            (Lines{"R 0378 03", "W 0378 02", "W 0378 00", "P 10", "W 0378 02", "P 10",  //
                   "R 0378 02", "W 0378 03", "W 0378 01", "P 10", "W 0378 03", "P 10"}));
}

TEST(EngineByHand, AByteInOnTheSerialPort) {
  LineSession session(LineModel(LineModel::Kind::Com, 0));
  Lines expected{"R 03FC 00", "W 03FC 01", "P 10"};
  for (int bit = 0; bit < 8; ++bit) {
    for (const char* line : {"W 03FC 03", "P 10", "W 03FC 01", "R 03FE 10", "P 10"})
      expected.emplace_back(line);
  }
  EXPECT_EQ(session.LogOf([] { EXPECT_EQ(ClockInBits(), 255); }), expected);
}

TEST(EngineByHand, AnEmptyTextMovesNoLine) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  EXPECT_EQ(session.LogOf([] { ClockOutBits(""); }), Lines{});
}

TEST(EngineByHand, ATextOfAnyLengthIsClockedWhole) {
  LineModel model(LineModel::Kind::Lpt, 0);
  LineSession session(model);
  const std::string bits = "1011001110001111";
  model.ClockOut(bits);
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf([&bits] { ClockOutBits(bits); })));
  EXPECT_EQ(icsp::BitString, bits);
}

TEST(EngineByHand, ACancelIsServedInsideTheWaits) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  session.Do("at pump 11 mark cancel");
  EXPECT_EQ(session.LogOf([] { ClockOutBits("1"); }),
            (Lines{"R 0378 00", "W 0378 01", "W 0378 03", "P 10", "W 0378 01", "P 10", "# cancel"}));
}

TEST(EngineByHand, AByteCostsSixteenWaitsAtLeast) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  const Lines out = session.LogOf([] { ClockOutBits("00000000"); });
  EXPECT_EQ(std::count(out.begin(), out.end(), "P 10"), 16);
  const Lines in = session.LogOf([] { static_cast<void>(ClockInBits()); });
  EXPECT_EQ(std::count(in.begin(), in.end(), "P 10"), 17);
}

/// The machine's ports, but the data-in line follows a byte, one bit for each sample, first bit first. The
/// other bits of the status register are noise.
class FedInput : public platform::Ports {
 public:
  FedInput(int bit, int levels, bool lineInverted)
      : machine_(*platform::seams.ports), bit_(bit), levels_(levels), inverted_(lineInverted) {
    platform::seams.ports = this;
  }
  ~FedInput() override { platform::seams.ports = &machine_; }
  void Out32(int address, int value) override { machine_.Out32(address, value); }
  [[nodiscard]] int Inp32(int address) override {
    if (address != 0x379 && address != 0x3FE) return machine_.Inp32(address);
    const bool level = ((levels_ >> sample_++ & 1) != 0) != inverted_;
    return (level ? bit_ : 0) | (0xFF & ~bit_ & (sample_ * 0x5B));
  }

 private:
  platform::Ports& machine_;
  int bit_, levels_;
  bool inverted_;
  int sample_ = 0;
};

struct InputRow {
  LineModel::Kind kind;
  int inputFlag;  ///< of the polarity file
  int select;     ///< 1: ACK
  int bit;        ///< of the input register
};

constexpr InputRow Inputs[] = {{LineModel::Kind::Lpt, 0, 1, 64},  {LineModel::Kind::Lpt, 16, 1, 64},
                               {LineModel::Kind::Lpt, 0, 0, 128}, {LineModel::Kind::Lpt, 16, 0, 128},
                               {LineModel::Kind::Com, 0, 1, 16},  {LineModel::Kind::Com, 4, 1, 16}};

class BytesIn : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Inputs, BytesIn, testing::Range(0, 6));

TEST_P(BytesIn, ComeLeastSignificantBitFirst) {
  const InputRow& row = Inputs[GetParam()];
  LineSession session(LineModel(row.kind, row.inputFlag));
  link::InputSelect = row.select;
  for (const int byte : {0x00, 0xFF, 0x01, 0x80, 0xA5, 0x3C, 0x12}) {
    const FedInput fed(row.bit, byte, row.inputFlag != 0);
    EXPECT_EQ(ClockInBits(), byte);
    for (int i = 1; i <= 8; ++i) {
      const bool high = ((byte >> (i - 1) & 1) != 0) != (row.inputFlag != 0);
      EXPECT_EQ(icsp::BitSamples[static_cast<std::size_t>(i)], high ? row.bit : 0)
          << "a sample is the raw bit";
    }
  }
}

TEST(BytesInByHand, EightHighSamplesAre255) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  EXPECT_EQ(ClockInBits(), 255);
}

TEST(BytesInByHand, EightHighSamplesWithAnInvertedInputAre0) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  link::InputInverted = true;
  EXPECT_EQ(ClockInBits(), 0);
}

class Indicators : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Inputs, Indicators, testing::Range(0, 6));

TEST_P(Indicators, AreLitWhenTheInputIsActive) {
  const InputRow& row = Inputs[GetParam()];
  LineSession session(LineModel(row.kind, row.inputFlag));
  link::InputSelect = row.select;
  Form1.Check10.Value = true;
  for (const bool set : {true, false, true}) {
    const FedInput fed(row.bit, set ? 0xFF : 0, false);
    ClockOutBits("1");
    const panel::Colour expected = set != (row.inputFlag != 0) ? 65280 : 14737632;
    EXPECT_EQ(Form1.Shape3.FillColor.Get(), expected);
    EXPECT_EQ(Form1.Shape4.FillColor.Get(), expected);
  }
}

TEST(IndicatorsByHand, StayAsTheyAreWhileTheRunIsNotVerySlow) {
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  for (const panel::Colour colour : {panel::Grey, panel::Green}) {
    Form1.Shape3.FillColor = colour;
    Form1.Shape4.FillColor = colour;
    ClockOutBits("0101");
    static_cast<void>(ClockInBits());
    EXPECT_EQ(Form1.Shape3.FillColor.Get(), colour);
    EXPECT_EQ(Form1.Shape4.FillColor.Get(), colour);
  }
}

TEST(IndicatorsByHand, TheLookBetweenDataAndClockLosesNoBit) {
  // The status register's value must not leak into the clock's change.
  LineSession session(LineModel(LineModel::Kind::Lpt, 0));
  platform::seams.ports->Out32(0x378, 0x0C);
  Form1.Check10.Value = true;
  EXPECT_EQ(session.LogOf([] { ClockOutBits("1"); }),
            (Lines{"R 0378 0C", "W 0378 0D", "R 0379 40", "W 0378 0F", "P 1000", "W 0378 0D", "P 1000"}));
}

}  // namespace
}  // namespace zelvo::test
