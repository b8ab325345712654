// The two kinds of board: what a register bit does to a line, and the other way round.
#include <gtest/gtest.h>

#include <memory>

#include "bench/board.h"

namespace zelvo::bench {
namespace {

constexpr Nanoseconds kMs = 1'000'000;

/// A chip that holds the data line where the test wants it.
class Probe final : public Chip {
 public:
  [[nodiscard]] const std::string& Name() const override { return name_; }
  void Drive(const LineLevels& lines, Nanoseconds now) override {
    seen = lines;
    when = now;
    ++changes;
  }
  [[nodiscard]] std::optional<bool> DataOut(Nanoseconds) override { return out; }
  [[nodiscard]] bool Burn(std::uint32_t, std::uint8_t) override { return false; }
  [[nodiscard]] std::map<std::uint32_t, std::uint8_t> Image() const override { return {}; }
  [[nodiscard]] std::vector<TimingFault> Timing() const override { return {}; }

  LineLevels seen;
  Nanoseconds when = 0;
  int changes = 0;
  std::optional<bool> out;

 private:
  std::string name_ = "probe";
};

Probe* Plug(Board& board, Nanoseconds now = 0) {
  auto probe = std::make_unique<Probe>();
  auto* raw = probe.get();
  board.Insert(std::move(probe), now);
  return raw;
}

TEST(LptBoard, DrivesEachLineByItsBitOfTheDataRegister) {
  const auto board = MakeLptBoard({});
  const auto* probe = Plug(*board);
  board->Write(0x378, 1, 10);
  EXPECT_EQ(probe->seen, (LineLevels{.pgd = true}));
  board->Write(0x378, 2, 20);
  EXPECT_EQ(probe->seen, (LineLevels{.pgc = true}));
  board->Write(0x378, 4, 30);
  EXPECT_EQ(probe->seen, (LineLevels{.vdd = true}));
  board->Write(0x378, 8, 40);
  EXPECT_EQ(probe->seen, (LineLevels{.vpp = true}));
  EXPECT_EQ(probe->when, 40);
}

TEST(LptBoard, TakesOtherBitsAndTheirPolarity) {
  const auto board = MakeLptBoard({.base = 0x278,
                                   .vdd = 16,
                                   .vpp = 32,
                                   .data = 64,
                                   .clock = 128,
                                   .vddInverted = true,
                                   .dataInverted = true});
  board->Write(0x278, 16 + 32, 0);
  EXPECT_EQ(board->Levels(), (LineLevels{.vpp = true, .pgd = true}));
  board->Write(0x378, 0, 0);
  EXPECT_EQ(board->Levels(), (LineLevels{.vpp = true, .pgd = true}));
}

TEST(LptBoard, GivesBackWhatWasWrittenToTheDataRegister) {
  const auto board = MakeLptBoard({});
  board->Write(0x378, 0xF3, 0);
  EXPECT_EQ(board->Read(0x378, 0), 0xF3);
}

TEST(LptBoard, ShowsTheDataLineInOneBitOfTheStatusRegister) {
  struct Case {
    bool busy, inverted;
    int high, low;
  };
  for (const auto& c : {Case{false, false, 64, 0}, Case{false, true, 0, 64}, Case{true, false, 0, 128},
                        Case{true, true, 128, 0}}) {
    const auto board = MakeLptBoard({.inputBusy = c.busy, .inputInverted = c.inverted});
    auto* probe = Plug(*board);
    probe->out = true;
    EXPECT_EQ(board->Read(0x379, 0), c.high);
    probe->out = false;
    EXPECT_EQ(board->Read(0x379, 0), c.low);
  }
}

TEST(LptBoard, DataLineFloatsHighWithAnEmptySocket) {
  const auto board = MakeLptBoard({});
  EXPECT_EQ(board->Read(0x379, 0), 64);
}

TEST(LptBoard, DataLineFollowsTheBoardWhileTheChipOnlyListens) {
  const auto board = MakeLptBoard({});
  Plug(*board);
  EXPECT_FALSE(board->DataIn(0));
  board->Write(0x378, 1, 0);
  EXPECT_TRUE(board->DataIn(0));
}

TEST(LptBoard, TellsTheChipOfChangesOnly) {
  const auto board = MakeLptBoard({});
  const auto* probe = Plug(*board);
  const int before = probe->changes;
  board->Write(0x378, 0x80, 0);
  board->Write(0x378, 0x81, 0);
  board->Write(0x378, 0x01, 0);
  EXPECT_EQ(probe->changes, before + 1);
}

TEST(LptBoard, AChipPutInSeesTheLevelsThatStandAndLosesThemWhenItIsTakenOut) {
  const auto board = MakeLptBoard({});
  board->Write(0x378, 4, 0);
  const auto* probe = Plug(*board, 5);
  EXPECT_TRUE(probe->seen.vdd);
  EXPECT_EQ(board->Socket(), probe);
  const auto chip = board->Remove(9);
  EXPECT_EQ(probe->seen, LineLevels{});
  EXPECT_EQ(board->Socket(), nullptr);
}

TEST(ComBoard, DrivesVppByBreakClockByRtsAndDataByDtr) {
  const auto board = MakeComBoard({});
  board->Write(0x3FB, 64, 0);
  EXPECT_EQ(board->Levels(), (LineLevels{.vpp = true}));
  board->Write(0x3FC, 2, 0);
  EXPECT_EQ(board->Levels(), (LineLevels{.vpp = true, .pgc = true}));
  board->Write(0x3FC, 1, 0);
  EXPECT_EQ(board->Levels(), (LineLevels{.vpp = true, .pgd = true}));
  EXPECT_EQ(board->Read(0x3FB, 0), 64);
  EXPECT_EQ(board->Read(0x3FC, 0), 1);
}

TEST(ComBoard, ShowsTheDataLineInCts) {
  for (const bool inverted : {false, true}) {
    const auto board = MakeComBoard({.inputInverted = inverted});
    auto* probe = Plug(*board);
    probe->out = true;
    EXPECT_EQ(board->Read(0x3FE, 0), inverted ? 0 : 16);
    probe->out = false;
    EXPECT_EQ(board->Read(0x3FE, 0), inverted ? 16 : 0);
  }
}

TEST(ComBoard, PowersTheChipOnceTheDataLineWasHighForAMillisecond) {
  const auto board = MakeComBoard({});
  const auto* probe = Plug(*board);
  board->Write(0x3FC, 1, 10 * kMs);
  (void)board->DataIn(10 * kMs + kMs / 2);
  EXPECT_FALSE(board->Levels().vdd);
  (void)board->DataIn(13 * kMs);
  EXPECT_TRUE(probe->seen.vdd);
  EXPECT_EQ(probe->when, 11 * kMs);
}

TEST(ComBoard, KeepsTheSupplyWhileVppIsOnAndLosesItATenthOfASecondAfterBothAreGone) {
  const auto board = MakeComBoard({});
  board->Write(0x3FC, 1, 0);
  board->Write(0x3FC, 0, 2 * kMs);
  board->Write(0x3FB, 64, 3 * kMs);
  (void)board->DataIn(5000 * kMs);
  EXPECT_TRUE(board->Levels().vdd);
  board->Write(0x3FB, 0, 5000 * kMs);
  (void)board->DataIn(5090 * kMs);
  EXPECT_TRUE(board->Levels().vdd);
  (void)board->DataIn(5101 * kMs);
  EXPECT_FALSE(board->Levels().vdd);
}

TEST(ComBoard, TakesThePolarityOfEachLine) {
  const auto board =
      MakeComBoard({.base = 0x2F8, .pgdInverted = true, .pgcInverted = true, .vppInverted = true});
  EXPECT_EQ(board->Levels(), (LineLevels{.vpp = true, .pgc = true, .pgd = true}));
  board->Write(0x2FC, 3, 0);
  board->Write(0x2FB, 64, 0);
  EXPECT_EQ(board->Levels(), LineLevels{});
}

TEST(NoBoard, TakesEverythingAndReads255) {
  const auto board = MakeNoBoard();
  board->Write(0x378, 0xF, 0);
  EXPECT_EQ(board->Read(0x379, 0), 0xFF);
  EXPECT_EQ(board->Levels(), LineLevels{});
  const auto* probe = Plug(*board);
  EXPECT_EQ(board->Socket(), probe);
}

}  // namespace
}  // namespace zelvo::bench
