// The speed of a new installation, found anew: the lowest at which erase, full write and read-back keep every
// minimum time of every chip. Images are small and reads are cancelled after 200 words; the whole jobs read
// all.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>

#include "job.h"

namespace zelvo::test {
namespace {

constexpr double BlockEraseMinimum = 5000;  // microseconds, of the chips with one erase code

/// What the chip tells of a whole erase, a full write and a read-back.
Lines Sweep(Job& job, const std::string& chip) {
  job.Begin(chip);
  job.Load(With(Bytes(0, 128, 1), Bytes(0x400, 64, 2)));
  job.Click("PICTörlés");
  job.Click("FlashÍr");
  job.Do("at progress Állapot 200 click Állapot.Command1");
  job.Click("FlashOl");
  return job.Timing();
}

/// The chips with one code tell that the erase of a block had too little time, by `microseconds`; the others
/// tell nothing.
void ExpectShortBlockErase(Job& job, const std::string& chip, double microseconds) {
  const Lines told = Sweep(job, chip);
  if (!HasOneKey(chip)) {
    EXPECT_EQ(told, Lines{}) << chip;
    return;
  }
  ASSERT_EQ(told.size(), 1U) << chip;
  std::smatch match;
  static const std::regex form("P11 ([0-9.]+)us < 5000us x [0-9]+");
  ASSERT_TRUE(std::regex_match(told[0], match, form)) << chip << ": " << told[0];
  EXPECT_NEAR(std::stod(match[1]), microseconds, 10) << chip;
}

/// Between the fourth clock of the erase's own NOP and the next frame that is not all zero lie 36 bits, each
/// two waits and four port accesses of 1 us, and the waits behind six of the clocked texts.
double BlockEraseTime(int passesPerEdge) {
  return 36 * (2 * passesPerEdge + 4) + 6 * passesPerEdge + 3;
}

class SpeedOn : public testing::TestWithParam<BoardKind> {};

TEST_P(SpeedOn, AtSevenNoMinimumTimeIsBrokenOnAnyChip) {
  Job job(GetParam(), "7,0");
  ASSERT_GT(BlockEraseTime(70), BlockEraseMinimum);
  for (const std::string& chip : AllChips()) EXPECT_EQ(Sweep(job, chip), Lines{}) << chip;
}

TEST_P(SpeedOn, AtSixTheBlockEraseOfTheOneKeyChipsIsTooShort) {
  Job job(GetParam(), "6,0");
  ASSERT_LT(BlockEraseTime(60), BlockEraseMinimum);
  for (const std::string& chip : AllChips()) ExpectShortBlockErase(job, chip, BlockEraseTime(60));
}

TEST_P(SpeedOn, AtOneItGetsUnderAMillisecond) {
  Job job(GetParam(), "1,0");
  for (const std::string& chip : AllChips()) ExpectShortBlockErase(job, chip, BlockEraseTime(10));
}

TEST_P(SpeedOn, WithTheTenfoldTickTheSameValueGivesATenthOfTheTime) {
  Job job(GetParam(), "7,1");
  for (const char* chip : {"PIC18F452", "PIC18F8720", "PIC18F4550"}) {
    ExpectShortBlockErase(job, chip, BlockEraseTime(7));
  }
  job.Do("scroll ÁSeb 70");
  EXPECT_EQ(Sweep(job, "PIC18F452"), Lines{}) << "70 with the tick is 7 without";
}

INSTANTIATE_TEST_SUITE_P(Port, SpeedOn, testing::Values(ShippedBoard(), SerialBoard()),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST(Speed, TickingTenfoldAtSevenKeepsTheRealSpeedUntilTheBarMoves) {
  Job job;
  job.Do("tick Check9");
  EXPECT_EQ(job.session.Ask("get ÁSeb"), "70");
  EXPECT_EQ(Sweep(job, "PIC18F452"), Lines{});
  job.Do("scroll ÁSeb 7");
  ExpectShortBlockErase(job, "PIC18F452", BlockEraseTime(7));
}

TEST(Speed, TheSettingThatIsShippedIsSeven) {
  std::ifstream file(std::string(ZELVO_SOURCE_DIR) + "/settings/speed.ini");
  std::string text;
  std::getline(file, text);
  EXPECT_EQ(text.substr(0, text.find('\r')), "7,0");
}

}  // namespace
}  // namespace zelvo::test
