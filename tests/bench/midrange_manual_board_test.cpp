// The board whose Vdd and Vpp the operator switches by hand when a message asks him to.
#include <gtest/gtest.h>

#include "bench/board.h"
#include "platform/seams.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using bench::LineLevels;

constexpr const char* kOn = "Kapcsold Be a Vdd-t és a Vpp-t, majd OK!";
constexpr const char* kOff = "Kapcsold Ki a Vdd-t és a Vpp-t!";
constexpr const char* kOffAndOn = "Kapcsold Ki-Be a Vpp-t, majd OK!";

/// A chip that notes every change of its supply and its programming voltage.
class Witness final : public bench::Chip {
 public:
  [[nodiscard]] const std::string& Name() const override { return name_; }
  void Drive(const LineLevels& lines, bench::Nanoseconds now) override {
    if (lines.vdd != last_.vdd) Note(lines.vdd ? "Vdd on" : "Vdd off", now);
    if (lines.vpp != last_.vpp) Note(lines.vpp ? "Vpp on" : "Vpp off", now);
    last_ = lines;
  }
  [[nodiscard]] std::optional<bool> DataOut(bench::Nanoseconds) override { return std::nullopt; }
  [[nodiscard]] bool Burn(std::uint32_t, std::uint8_t) override { return false; }
  [[nodiscard]] std::map<std::uint32_t, std::uint8_t> Image() const override { return {}; }
  [[nodiscard]] std::vector<bench::TimingFault> Timing() const override { return {}; }

  std::vector<std::string> seen;

 private:
  void Note(const char* what, bench::Nanoseconds now) {
    EXPECT_GT(now, lastTime_);  // one switch at a time
    lastTime_ = now;
    seen.emplace_back(what);
  }
  std::string name_ = "witness";
  LineLevels last_;
  bench::Nanoseconds lastTime_ = -1;
};

class ManualBoard : public ::testing::Test {
 protected:
  ManualBoard() {
    auto chip = std::make_unique<Witness>();
    witness_ = chip.get();
    board_->Insert(std::move(chip), 0);
  }
  std::vector<std::string> After(const std::string& message) {
    witness_->seen.clear();
    now_ += board_->Obey(message, now_) + 1;
    return witness_->seen;
  }
  std::unique_ptr<bench::Board> board_ = bench::MakeLptBoard({.manual = true});
  Witness* witness_ = nullptr;
  bench::Nanoseconds now_ = 0;
};

TEST_F(ManualBoard, TheSupplyComesFirstAndGoesLast) {
  EXPECT_EQ(After(kOn), (Lines{"Vdd on", "Vpp on"}));
  EXPECT_EQ(After(kOff), (Lines{"Vpp off", "Vdd off"}));
  EXPECT_EQ(After(kOn), (Lines{"Vdd on", "Vpp on"}));
  EXPECT_EQ(After("Kapcsold Ki a Vdd-t és a Vpp-t, majd OK!"), (Lines{"Vpp off", "Vdd off"}));
}

TEST_F(ManualBoard, OffAndOnOfVppLeavesTheSupplyAlone) {
  EXPECT_EQ(After(kOn).size(), 2U);
  EXPECT_EQ(After(kOffAndOn), (Lines{"Vpp off", "Vpp on"}));
  EXPECT_TRUE(board_->Levels().vdd);
}

TEST_F(ManualBoard, AMessageThatAsksForNothingChangesNothing) {
  for (const char* message : {"", "A Vdd és a Vpp be van kapcsolva.", "Kész!",
                              "ZLPT_mini használatánál ez a funkció nem érhető el."}) {
    EXPECT_EQ(After(message), Lines{}) << message;
    EXPECT_EQ(board_->Obey(message, now_), 0) << message;
  }
}

TEST_F(ManualBoard, ThePortMovesClockAndDataOnly) {
  board_->Write(0x378, 0xFF, 1);
  EXPECT_EQ(board_->Levels(), (LineLevels{.pgc = true, .pgd = true}));
  EXPECT_EQ(board_->Read(0x378, 2), 0xFF);
  board_->Write(0x378, 0x00, 3);
  (void)After(kOn);
  board_->Write(0x378, 0x02, now_);
  EXPECT_EQ(board_->Levels(), (LineLevels{.vdd = true, .vpp = true, .pgc = true}));
}

TEST(ManualBoardWiring, PolarityIsForClockDataAndInput) {
  const auto board = bench::MakeLptBoard({.manual = true,
                                          .vddInverted = true,
                                          .vppInverted = true,
                                          .clockInverted = true,
                                          .dataInverted = true,
                                          .inputInverted = true});
  EXPECT_EQ(board->Levels(), (LineLevels{.pgc = true, .pgd = true}));
  EXPECT_EQ(board->Read(0x379, 0), 0);  // an empty socket floats high
}

TEST(ManualBoardWiring, AnOtherBoardHasNoSwitches) {
  for (const auto& board : {bench::MakeLptBoard({}), bench::MakeComBoard({}), bench::MakeNoBoard()}) {
    EXPECT_EQ(board->Obey(kOn, 0), 0);
    EXPECT_EQ(board->Levels(), LineLevels{});
  }
}

TEST(ManualBoardScript, AnOkBoxIsAnsweredAtOnceAndObeyed) {
  BenchSession session;
  session.Do({"board lpt manual", "socket PIC16F887"});
  auto& machine = session.TheBench().machine;
  const auto before = machine.Now();
  platform::seams.dialogs->Message(kOn);
  EXPECT_GT(machine.Now(), before);
  EXPECT_EQ(session.Look("messages"), Lines{std::string("ok ok ") + kOn});
  // The chip is in programming mode: it takes Load Configuration, six increments and a read.
  const auto clock = [&](bool bit) {
    machine.Out32(0x378, bit ? 1 : 0);
    machine.Out32(0x378, bit ? 3 : 2);
    const bool level = (machine.Inp32(0x379) & 64) != 0;
    machine.Out32(0x378, bit ? 1 : 0);
    return level;
  };
  const auto command = [&](unsigned code) {
    for (int i = 0; i < 6; ++i) (void)clock((code >> i & 1U) != 0);
  };
  command(0x00);
  for (int i = 0; i < 16; ++i) (void)clock(false);
  for (int i = 0; i < 6; ++i) command(0x06);
  command(0x04);
  unsigned id = 0;
  for (int i = 0; i < 16; ++i) id |= static_cast<unsigned>(clock(false)) << i;
  EXPECT_EQ(id >> 1 & 0x3FFF, 0x2080U);
  EXPECT_EQ(session.Run("timing"), Lines{"ok"});
}

TEST(ManualBoardScript, TakesTheKeysOfAPrinterPortBoard) {
  BenchSession session;
  session.Do("board lpt manual base=278 clock=16 inverted=clock,data,input");
  session.Do("board lpt base=278 manual");
  EXPECT_EQ(session.Refused("board com manual"), "unknown key manual");
  EXPECT_EQ(session.Refused("board manual"), "unknown board manual");
}

}  // namespace
}  // namespace zelvo::test
