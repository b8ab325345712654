// The erases of the simulated mid-range chips: each generation's own form, and what each takes.
#include <gtest/gtest.h>

#include <functional>

#include "midrange_driver.h"

namespace zelvo::bench {
namespace {

constexpr Nanoseconds kMs = MidDriver::Ms;
constexpr Nanoseconds kUs = MidDriver::Us;

/// Which memories still hold something: P, I, C, D in this order.
std::string Left(MidDriver& chip) {
  std::string left;
  if (chip.ReadAt(0x23) != 0x3FFF) left += 'P';
  if (chip.ReadAt(0x2001) != 0x3FFF) left += 'I';
  if ((chip.ReadAt(0x2007) & 3) != 3) left += 'C';
  if (chip.DataAt(5) != 0xFF) left += 'D';
  return left;
}

void Fill(MidDriver& chip, unsigned config) {
  chip.BurnWord(0x23, 0x0123);
  chip.BurnWord(0x2001, 0x0045);
  chip.BurnWord(0x2007, config);
  chip.BurnData(5, 0x67);
  chip.Enter();
}

// Protection bits of the generations; the two lowest bits are clear, so that an erase of the word shows.
constexpr unsigned kOpen = 0x3FFC;
struct Protection {
  unsigned program;
  unsigned data;
};
constexpr Protection kF84A{0x000C, 0x000C};
constexpr Protection kF62x{0x03FC, 0x3EFC};
constexpr Protection kF87x{0x0FCC, 0x3EFC};
constexpr Protection kHigh{0x1FFC, 0x3EFC};  // 87xA, 81x, 87 and 88, 62xA
constexpr Protection kF629{0x3F7C, 0x3EFC};
constexpr Protection kNew{0x3FBC, 0x3F7C};

struct Erase {
  const char* name;
  const char* chip;
  Protection protection;
  std::function<void(MidDriver&)> run;
  const char* left;           // on an open chip
  const char* leftOfProgram;  // with program memory protected
  const char* leftOfData;     // with data memory protected
};

constexpr Nanoseconds kLong = 12 * kMs;
void TellSetup(MidDriver& chip) {
  chip.Command(0x01);
  chip.Command(0x07);
}
/// 09h, 0Bh on chips where Begin Programming starts them.
std::function<void(MidDriver&)> Waiting(unsigned code, bool atIds) {
  return [=](MidDriver& chip) {
    chip.Reenter();
    if (atIds) chip.LoadConfig();
    if (code == 0x09) chip.Load(0x3FFF);
    if (code == 0x0B) chip.LoadData(0xFF);
    chip.Command(code);
    chip.Command(0x08, kLong);
  };
}
/// Codes that start at once.
std::function<void(MidDriver&)> Immediate(unsigned code, bool atIds) {
  return [=](MidDriver& chip) {
    chip.Reenter();
    if (atIds) chip.LoadConfig();
    chip.Command(code, kLong);
  };
}
/// 01h, 07h, 08h, and 01h, 07h behind it, at an address with a load.
std::function<void(MidDriver&)> BySetup(unsigned address, unsigned load) {
  return [=](MidDriver& chip) {
    chip.GoTo(address);
    if (load != 0) chip.Send(load, 0x3FFF);
    TellSetup(chip);
    chip.Command(0x08, kLong);
    TellSetup(chip);
  };
}

std::string NameOf(const ::testing::TestParamInfo<Erase>& info) {
  return info.param.name;
}

const Erase kErases[] = {
    {"F84AProgram", "PIC16F84A", kF84A, Waiting(0x09, false), "ICD", "PICD", "PICD"},
    {"F84AProgramAtIds", "PIC16F84A", kF84A, Waiting(0x09, true), "CD", "PICD", "PICD"},
    {"F84AData", "PIC16F84A", kF84A, Waiting(0x0B, false), "PIC", "PICD", "PICD"},
    {"F84AUnlock", "PIC16F84A", kF84A, BySetup(0x2007, 0), "I", "I", "I"},
    {"F62xProgram", "PIC16F628", kF62x, Waiting(0x09, false), "ICD", "PICD", "ICD"},
    {"F62xProgramAtIds", "PIC16F628", kF62x, Waiting(0x09, true), "CD", "PICD", "CD"},
    {"F62xData", "PIC16F628", kF62x, Waiting(0x0B, false), "PIC", "PIC", "PICD"},
    {"F62xUnlock", "PIC16F628", kF62x, BySetup(0x2007, 0), "I", "I", "I"},
    {"F87xProgram", "PIC16F877", kF87x, BySetup(0, 0x02), "ICD", "PICD", "ICD"},
    {"F87xData", "PIC16F877", kF87x, BySetup(0, 0x03), "PIC", "PIC", "PICD"},
    {"F87xProgramAtIds", "PIC16F877", kF87x, BySetup(0x2000, 0x02), "CD", "PICD", "CD"},
    {"F87xUnlock", "PIC16F877", kF87x, BySetup(0x2007, 0), "I", "I", "I"},
    {"F87xHasNo09", "PIC16F877", kF87x, Immediate(0x09, false), "PICD", "PICD", "PICD"},
    {"F87xAProgram", "PIC16F877A", kHigh, Immediate(0x09, false), "ICD", "PICD", "ICD"},
    {"F87xAProgramAtIds", "PIC16F877A", kHigh, Immediate(0x09, true), "CD", "PICD", "CD"},
    {"F87xAData", "PIC16F877A", kHigh, Immediate(0x0B, false), "PIC", "PIC", "PICD"},
    {"F87xAChip", "PIC16F877A", kHigh, Immediate(0x1F, false), "", "", ""},
    {"F819Program", "PIC16F819", kHigh, Immediate(0x09, false), "ICD", "PICD", "ICD"},
    {"F819Chip", "PIC16F819", kHigh, Immediate(0x1F, true), "", "", ""},
    {"F88Data", "PIC16F88", kHigh, Immediate(0x0B, false), "PIC", "PIC", "PICD"},
    {"F88Chip", "PIC16F88", kHigh, Immediate(0x1F, false), "", "", ""},
    {"F648AProgram", "PIC16F648A", kHigh, Immediate(0x09, false), "ID", "ID", "I"},
    {"F648AProgramAtIds", "PIC16F648A", kHigh, Immediate(0x09, true), "D", "D", ""},
    {"F648AData", "PIC16F648A", kHigh, Immediate(0x0B, false), "PIC", "PIC", "PICD"},
    {"F675Program", "PIC12F675", kF629, Immediate(0x09, false), "ID", "ID", "I"},
    {"F675ProgramAtIds", "PIC12F675", kF629, Immediate(0x09, true), "D", "D", ""},
    {"F675Data", "PIC12F675", kF629, Immediate(0x0B, false), "PIC", "PIC", "PICD"},
    {"F675HasNoRow", "PIC12F675", kF629, Immediate(0x11, false), "PICD", "PICD", "PICD"},
    {"F690Program", "PIC16F690", kNew, Immediate(0x09, false), "ID", "ID", "I"},
    {"F690ProgramAtIds", "PIC16F690", kNew, Immediate(0x09, true), "D", "D", ""},
    {"F690Data", "PIC16F690", kNew, Immediate(0x0B, false), "PIC", "PIC", "PICD"},
    {"F690RowAtIds", "PIC16F690", kNew, Immediate(0x11, true), "PCD", "PICD", "PCD"},
    {"F917Program", "PIC16F917", kNew, Immediate(0x09, false), "ID", "ID", "I"},
    {"F887Program", "PIC16F887", kNew, Immediate(0x09, false), "ID", "ID", "I"},
    {"F887ProgramAtIds", "PIC16F887", kNew, Immediate(0x09, true), "D", "D", ""},
    {"F887Data", "PIC16F887", kNew, Immediate(0x0B, true), "PIC", "PIC", "PICD"},
};

class EveryErase : public ::testing::TestWithParam<Erase> {};

TEST_P(EveryErase, TakesWhatItsDocumentTells) {
  const auto& erase = GetParam();
  const std::pair<unsigned, const char*> cases[] = {{kOpen, erase.left},
                                                    {erase.protection.program, erase.leftOfProgram},
                                                    {erase.protection.data, erase.leftOfData}};
  for (const auto& [config, left] : cases) {
    SCOPED_TRACE(config);
    MidDriver chip(erase.chip);
    Fill(chip, config);
    ASSERT_EQ(Left(chip), "PICD");
    erase.run(chip);
    EXPECT_EQ(Left(chip), left);
    EXPECT_TRUE(chip.Device().Timing().empty());
  }
}

INSTANTIATE_TEST_SUITE_P(MidRange, EveryErase, ::testing::ValuesIn(kErases), NameOf);

TEST(MidRangeErase, TheSecondConfigurationWordGoesWithTheFirst) {
  for (const auto& [name, code] : {std::pair{"PIC16F88", 0x1FU}, {"PIC16F887", 0x09U}}) {
    MidDriver chip(name);
    chip.BurnWord(0x2008, 0x0000);
    chip.Enter();
    chip.Command(code, kLong);
    EXPECT_EQ(chip.ReadAt(0x2008), 0x3FFFU) << name;
    EXPECT_TRUE(chip.Device().Image().empty()) << name;
  }
}

TEST(MidRangeErase, ACalibrationWordTakesNoPartInErases) {
  for (const char* name : {"PIC12F635", "PIC16F690", "PIC12F617", "PIC16F917", "PIC16F887"}) {
    const unsigned address = std::string(name) == "PIC16F887" ? 0x2009 : 0x2008;
    MidDriver chip(name);
    chip.Enter();
    const unsigned factory = chip.ReadAt(address);
    EXPECT_NE(factory, 0x3FFFU) << name;
    chip.Command(0x09, kLong);
    EXPECT_EQ(chip.ReadAt(address), factory) << name;
  }
}

TEST(MidRangeErase, ABulkEraseTakesTheOscillatorWord) {
  for (const char* name : {"PIC12F629", "PIC12F675", "PIC16F630", "PIC16F676"}) {
    MidDriver chip(name);
    chip.Enter();
    EXPECT_EQ(chip.ReadAt(0x3FF), 0x3480U) << name;
    EXPECT_TRUE(chip.Device().Image().empty()) << name;
    chip.Command(0x09, kLong);
    EXPECT_EQ(chip.ReadAt(0x3FF), 0x3FFFU) << name;
  }
}

TEST(MidRangeErase, ARowIsSixteenWords) {
  for (const char* name : {"PIC12F683", "PIC16F616", "PIC16F914", "PIC16F887"}) {
    SCOPED_TRACE(name);
    MidDriver chip(name);
    for (unsigned i = 0; i < 64; ++i) chip.BurnWord(i, 0x0100 + i);
    chip.Enter();
    chip.GoTo(0x13);
    chip.Command(0x11, 3 * kMs);
    EXPECT_EQ(chip.ReadAt(0x0F), 0x010FU);
    for (unsigned i = 0x10; i < 0x20; ++i) EXPECT_EQ(chip.ReadAt(i), 0x3FFFU);
    EXPECT_EQ(chip.ReadAt(0x20), 0x0120U);
  }
}

TEST(MidRangeErase, ProtectionOnTheOlderChipsGoesByTheUnlockOnly) {
  for (const char* name : {"PIC16F84A", "PIC16F628", "PIC16F877"}) {
    SCOPED_TRACE(name);
    MidDriver chip(name);
    chip.BurnWord(0x2007, 0x000F);
    chip.Enter();
    const unsigned before = chip.ReadAt(0x2007);
    chip.Load(0x3FFF);
    chip.Command(0x08, kLong);
    EXPECT_EQ(chip.Read(), before | (name == std::string("PIC16F628")   ? 0x02F0U
                                     : name == std::string("PIC16F877") ? 0x0EC0U
                                                                        : 0U));
    BySetup(0x2007, 0)(chip);
    EXPECT_EQ(chip.ReadAt(0x2007), 0x3FFFU);
  }
}

TEST(MidRangeErase, WithoutTheSecondSetupEveryBeginGoesOnErasing) {
  MidDriver chip("PIC16F877");
  chip.Enter();
  chip.Load(0x3FFF);
  TellSetup(chip);
  chip.Command(0x08, kLong);
  chip.Load(0x0123);
  chip.Command(0x08, kLong);
  EXPECT_EQ(chip.Read(), 0x3FFFU);
  TellSetup(chip);
  chip.Load(0x0123);
  chip.Command(0x08, kLong);
  EXPECT_EQ(chip.Read(), 0x0123U);
}

TEST(MidRangeErase, TheSetupWantsBothCommandsInOrder) {
  MidDriver chip("PIC16F877");
  chip.BurnWord(5, 0x0123);
  chip.Enter();
  chip.Load(0x0AAA);
  chip.Command(0x07);
  chip.Command(0x01);
  chip.Command(0x08, kLong);
  EXPECT_EQ(chip.ReadAt(0), 0x0AAAU);
  EXPECT_EQ(chip.ReadAt(5), 0x0123U);
}

TEST(MidRangeErase, OneThatIsNotWaitedForIsToldAndStopsTheNextCommand) {
  struct Case {
    const char* name;
    Nanoseconds minimum;
  };
  for (const auto& [name, minimum] :
       {Case{"PIC16F84A", 10 * kMs}, Case{"PIC16F628", 8 * kMs}, Case{"PIC16F877A", 8 * kMs},
        Case{"PIC16F648A", 6 * kMs}, Case{"PIC16F887", 6 * kMs}}) {
    SCOPED_TRACE(name);
    MidDriver chip(name);
    chip.BurnWord(0, 0x0123);
    chip.BurnWord(1, 0x0456);
    chip.Enter();
    chip.Command(0x09);
    if (minimum == 10 * kMs || name == std::string("PIC16F628")) chip.Command(0x08);
    chip.Wait(5 * kMs);
    chip.Load(0x0000);
    ASSERT_TRUE(chip.Fault("Tera").has_value());
    EXPECT_EQ(chip.Fault("Tera")->minimum, minimum);
    EXPECT_LT(chip.Fault("Tera")->shortest, 5 * kMs + 10 * kUs);
    chip.Wait(kLong);
    EXPECT_EQ(chip.Read(), 0x3FFFU);
  }
}

TEST(MidRangeErase, OneThatLosesItsPowerHasNotHappened) {
  MidDriver chip("PIC16F887");
  chip.BurnWord(0, 0x0123);
  chip.Enter();
  chip.Command(0x09, kMs);
  EXPECT_TRUE(chip.Device().Image().empty());  // as it will be
  chip.Reenter();
  EXPECT_EQ(chip.Read(), 0x0123U);
}

}  // namespace
}  // namespace zelvo::bench
