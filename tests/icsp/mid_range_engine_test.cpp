// The bit level of the mid-range chips: commands, frames and waits on the wire, in every polarity of both
// interfaces.
#include "icsp/mid_range_engine.h"

#include <gtest/gtest.h>

#include "icsp/pic18_engine.h"
#include "link/delays.h"
#include "link/port.h"
#include "support/answering_chip.h"
#include "support/line_model.h"

namespace zelvo::test {
namespace {

using icsp::ReadFrame;

class MidEngine : public EveryPolarity {};
INSTANTIATE_TEST_SUITE_P(Bits, MidEngine, testing::Range(0, 48), PolarityName);

/// A read of fourteen bits from a line that floats high.
void ExpectReadHigh(LineModel& model, std::string_view command) {
  model.ClockOut(command);
  model.ClockOut("0");
  model.ReadOut(LineModel::Data);
  model.MoveAndWait(LineModel::Data, true);
  for (int bit = 0; bit < 14; ++bit) {
    model.MoveAndWait(LineModel::Clock, true);
    model.Move(LineModel::Clock, false);
    model.ReadHighInput();
    model.Wait();
  }
  model.ClockOut("0");
}

TEST_P(MidEngine, AReadHasAStartBitReleasedDataFourteenClocksAndAStopBit) {
  LineModel model = Model();
  LineSession session(model);
  struct Case {
    const char* command;
    icsp::FrameLayout layout;
    int high;
  };
  const Case cases[] = {{"000100", icsp::WordFrame, 0x3FFF},
                        {"000101", icsp::ByteFrame, 0xFF},
                        {"000100", icsp::ChipIdFrame, 0x1FF}};
  for (const Case& it : cases) {
    ExpectReadHigh(model, it.command);
    int value = -1;
    EXPECT_TRUE(SameLog(model.Take(), session.LogOf([&] { value = ReadFrame(it.command, it.layout); })));
    EXPECT_EQ(value, it.high);
  }
}

TEST_P(MidEngine, DataIsReleasedHighAndTheClockIsFlippedWithASampleBehindItsFall) {
  LineModel model = Model();
  LineSession session(model);
  model.ReadOut(LineModel::Data);
  model.MoveAndWait(LineModel::Data, true);
  model.MoveAndWait(LineModel::Clock, true);
  model.Move(LineModel::Clock, false);
  model.ReadHighInput();
  model.Wait();
  int sample = -1;
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf([&sample] {
    EXPECT_TRUE(icsp::ReleaseData());
    sample = icsp::ClockInRaw();
  })));
  const bool com = GetParam() >= 32;
  const bool inverted = com ? ((GetParam() - 32) & 4) != 0 : (GetParam() & 16) != 0;
  EXPECT_EQ(sample, inverted ? 0 : com ? 16 : 64) << "the raw bit";
}

TEST_P(MidEngine, ALoadHasItsBitsBetweenAStartAndAStopBit) {
  LineModel model = Model();
  LineSession session(model);
  model.ClockOut("000010");
  model.ClockOut("0");
  model.ClockOut("10000000000001");
  model.ClockOut("0");
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf([] { icsp::LoadFrame("000010", "10000000000001"); })));
}

TEST_P(MidEngine, ConfigurationMemoryIsReachedByLoadConfigurationWithAnEmptyWord) {
  LineModel model = Model();
  LineSession session(model);
  model.ClockOut("000000");
  model.ClockOut("0000000000000000");
  for (int i = 0; i < 4; ++i) model.ClockOut("000110");
  EXPECT_TRUE(SameLog(model.Take(), session.LogOf([] {
    icsp::ToConfigurationMemory();
    icsp::IncrementAddress();
    icsp::IncrementAddress(3);
  })));
}

TEST_P(MidEngine, ValuesComeLeastSignificantBitFirstWhateverTheInputsPolarity) {
  LineSession session(Model());
  AnsweringChip& chip = PutAnsweringChip(session);
  for (const int value : {0x0000, 0x3FFF, 0x0001, 0x2000, 0x1234, 0x2AAA, 0x1555}) {
    chip.Word(value);
    EXPECT_EQ(ReadFrame("000100", icsp::WordFrame), value);
    chip.Word(value);
    EXPECT_EQ(ReadFrame("000101", icsp::ByteFrame), value & 0xFF) << "the eight first";
    chip.Word(value);
    EXPECT_EQ(ReadFrame("000100", icsp::ChipIdFrame), value >> 5) << "the nine last";
    EXPECT_EQ(chip.Left(), 0U);
  }
}

class MidEngineByHand : public testing::Test {
 protected:
  MidEngineByHand() : model(LineModel::Kind::Lpt, 0), session(model) {}
  LineModel model;
  LineSession session;
};

TEST_F(MidEngineByHand, StepsAreClockedInOrderRepeatedAndHeld) {
  model.ClockOut("000001");
  for (int i = 0; i < 3; ++i) model.ClockOut("000110");
  model.Expect("D cycle 10");
  model.ClockOut("0111111111111110");
  for (int i = 0; i < 12; ++i) model.Expect("D cycle 10");
  EXPECT_TRUE(SameLog(
      model.Take(), session.LogOf([] { icsp::RunSteps("000001 000110*3 wait 0111111111111110 wait*12"); })));
}

TEST_F(MidEngineByHand, NoStepsMoveNoLine) {
  EXPECT_EQ(session.LogOf([] { icsp::RunSteps(""); }), Lines{});
}

TEST_F(MidEngineByHand, AWaitIsHeldWithoutServingEventsAndStretchesWithTheSpeedInForce) {
  struct Case {
    double waitCount;
    const char* line;
  };
  for (const Case& it : {Case{10, "D cycle 10"}, Case{1000, "D cycle 1000"}, Case{0, "D cycle 0"}}) {
    link::WaitCount = it.waitCount;
    EXPECT_EQ(session.LogOf([] { icsp::RunSteps("wait"); }), Lines{it.line});
  }
  const auto length = [this](double waitCount) {
    link::WaitCount = waitCount;
    const long long before = std::stoll(session.Ask("time"));
    icsp::RunSteps("wait");
    return std::stoll(session.Ask("time")) - before;
  };
  EXPECT_EQ(length(900), 3 * length(100)) << "(300 + 900) and (300 + 100) thousand rounds";
}

TEST_F(MidEngineByHand, CommandsAreTheNumbersOfTheProgrammingSpecifications) {
  const std::pair<std::string_view, int> commands[] = {
      {icsp::mid::LoadConfiguration, 0x00}, {icsp::mid::LoadProgram, 0x02}, {icsp::mid::LoadData, 0x03},
      {icsp::mid::ReadProgram, 0x04},       {icsp::mid::ReadData, 0x05},    {icsp::mid::Increment, 0x06}};
  for (const auto& [text, code] : commands) {
    EXPECT_EQ(text.size(), 6U);
    EXPECT_EQ(std::stoi(std::string(text), nullptr, 2), code) << text;
  }
  EXPECT_EQ(icsp::mid::BlankFrame, std::string(16, '0'));
}

TEST_F(MidEngineByHand, AWordIsFourteenBitsMostSignificantFirstAndLosesThoseAbove) {
  EXPECT_EQ(icsp::WordToBits(0), "00000000000000");
  EXPECT_EQ(icsp::WordToBits(1), "00000000000001");
  EXPECT_EQ(icsp::WordToBits(0x3FFF), "11111111111111");
  EXPECT_EQ(icsp::WordToBits(0x1234), "01001000110100");
  EXPECT_EQ(icsp::WordToBits(0x00FF), "00000011111111");
  EXPECT_EQ(icsp::WordToBits(0xC001), "00000000000001");
  EXPECT_EQ(icsp::WordToBits(-1), "11111111111111");
}

TEST_F(MidEngineByHand, ACommandWrittenAsANumberGoesOutLeastSignificantBitFirst) {
  // 02h: 0, 1, 0, 0, 0, 0.
  Lines expected;
  int before = 0;
  for (const int bit : {0, 1, 0, 0, 0, 0}) {
    const std::string low = "0" + std::to_string(bit);
    const std::string high = "0" + std::to_string(bit + 2);
    for (const std::string& line : {"R 0378 0" + std::to_string(before), "W 0378 " + low, "W 0378 " + high,
                                    std::string("P 10"), "W 0378 " + low, std::string("P 10")})
      expected.push_back(line);
    before = bit;
  }
  EXPECT_EQ(session.LogOf([] { icsp::ClockOutBits(icsp::mid::LoadProgram); }), expected);
}

TEST_F(MidEngineByHand, WithoutAnInterfaceAReadIs0AndTouchesNoPort) {
  link::LptMode = false;
  EXPECT_EQ(session.LogOf([] { EXPECT_EQ(ReadFrame("000100", icsp::WordFrame), 0); }), Lines{});
}

}  // namespace
}  // namespace zelvo::test
