#include <algorithm>
#include <iterator>

#include "bench/midrange_facts.h"

namespace zelvo::bench {
namespace {

constexpr std::int64_t kUs = 1'000;
constexpr std::int64_t kMs = 1'000'000;

// The command tables of the programming specifications. A mask shows the bits that are written out there; the
// documents mark the others with an X.
constexpr MidCommandRow kOldest[] = {
    {0x3F, 0x00, MidCommand::LoadConfig},   {0x3F, 0x02, MidCommand::LoadProgram},
    {0x3F, 0x03, MidCommand::LoadData},     {0x3F, 0x04, MidCommand::ReadProgram},
    {0x3F, 0x05, MidCommand::ReadData},     {0x3F, 0x06, MidCommand::Increment},
    {0x3F, 0x08, MidCommand::Rewrite},      {0x3F, 0x18, MidCommand::Program},
    {0x3F, 0x01, MidCommand::EraseSetup1},  {0x3F, 0x07, MidCommand::EraseSetup2},
    {0x3F, 0x09, MidCommand::EraseProgram}, {0x3F, 0x0B, MidCommand::EraseData},
};
// The same without the last two.
constexpr std::span<const MidCommandRow> kWithoutBulkErase(kOldest, std::size(kOldest) - 2);

constexpr MidCommandRow kWithChipErase[] = {
    {0x0F, 0x00, MidCommand::LoadConfig},     {0x0F, 0x02, MidCommand::LoadProgram},
    {0x0F, 0x03, MidCommand::LoadData},       {0x0F, 0x04, MidCommand::ReadProgram},
    {0x0F, 0x05, MidCommand::ReadData},       {0x0F, 0x06, MidCommand::Increment},
    {0x1F, 0x08, MidCommand::Rewrite},        {0x1F, 0x18, MidCommand::ProgramHeld},
    {0x1F, 0x17, MidCommand::EndProgramming}, {0x1F, 0x09, MidCommand::EraseProgram},
    {0x1F, 0x0B, MidCommand::EraseData},      {0x1F, 0x1F, MidCommand::EraseChip},
};

constexpr MidCommandRow kFourBits[] = {
    {0x0F, 0x00, MidCommand::LoadConfig}, {0x0F, 0x02, MidCommand::LoadProgram},
    {0x0F, 0x03, MidCommand::LoadData},   {0x0F, 0x04, MidCommand::ReadProgram},
    {0x0F, 0x05, MidCommand::ReadData},   {0x0F, 0x06, MidCommand::Increment},
    {0x0F, 0x08, MidCommand::Program},    {0x0F, 0x09, MidCommand::EraseProgram},
    {0x0F, 0x0B, MidCommand::EraseData},
};

constexpr MidCommandRow kWithRowErase[] = {
    {0x0F, 0x00, MidCommand::LoadConfig},     {0x0F, 0x02, MidCommand::LoadProgram},
    {0x0F, 0x03, MidCommand::LoadData},       {0x0F, 0x04, MidCommand::ReadProgram},
    {0x0F, 0x05, MidCommand::ReadData},       {0x0F, 0x06, MidCommand::Increment},
    {0x1F, 0x08, MidCommand::Program},        {0x1F, 0x18, MidCommand::ProgramHeld},
    {0x0F, 0x0A, MidCommand::EndProgramming}, {0x0F, 0x09, MidCommand::EraseProgram},
    {0x0F, 0x0B, MidCommand::EraseData},      {0x1F, 0x11, MidCommand::EraseRow},
};
// The same without the last one.
constexpr std::span<const MidCommandRow> kWithoutRowErase(kWithRowErase, std::size(kWithRowErase) - 1);

// Rewrite, program only, held, data, erase. A time that no command of the generation asks for is 0.
constexpr MidTimes kF8xTimes{8 * kMs, 4 * kMs, 0, 8 * kMs, 10 * kMs};
constexpr MidTimes kF62xTimes{8 * kMs, 4 * kMs, 0, 8 * kMs, 8 * kMs};
constexpr MidTimes kHeldTimes{8 * kMs, 0, 1 * kMs, 8 * kMs, 8 * kMs};
constexpr MidTimes kF62xATimes{0, 2'500 * kUs, 0, 6 * kMs, 6 * kMs};
constexpr MidTimes kNewTimes{0, 2'500 * kUs, 2 * kMs, 6 * kMs, 6 * kMs};

// Generation, document, commands, erase waits for begin, erase takes configuration, data erases itself,
// times.
constexpr MidGenerationFacts kGenerations[] = {
    {MidGeneration::F8x, "DS30262", kOldest, true, false, false, kF8xTimes},
    {MidGeneration::F62x, "DS30034", kOldest, true, false, false, kF62xTimes},
    {MidGeneration::F87x, "DS39025", kWithoutBulkErase, true, false, false, kF62xTimes},
    {MidGeneration::F87xA, "DS39589", kWithChipErase, false, false, false, kHeldTimes},
    {MidGeneration::F81xF88, "DS39603 and DS39607", kWithChipErase, false, false, false, kHeldTimes},
    {MidGeneration::F62xA, "DS41196", kFourBits, false, true, true, kF62xATimes},
    {MidGeneration::F629, "DS41191", kWithoutRowErase, false, true, true, kNewTimes},
    {MidGeneration::F6xx, "DS41204", kWithRowErase, false, true, true, kNewTimes},
    {MidGeneration::F61x, "DS41284", kWithRowErase, false, true, true, kNewTimes},
    {MidGeneration::F91x, "DS41244", kWithRowErase, false, true, true, kNewTimes},
    {MidGeneration::F88x, "DS41287", kWithRowErase, false, true, true, kNewTimes},
};

}  // namespace

const MidGenerationFacts& FactsOf(MidGeneration generation) {
  return *std::find_if(
      std::begin(kGenerations), std::end(kGenerations),
      [generation](const MidGenerationFacts& facts) { return facts.generation == generation; });
}

}  // namespace zelvo::bench
