#include <algorithm>
#include <iterator>

#include "bench/midrange_facts.h"

namespace zelvo::bench {
namespace {

constexpr std::uint16_t kK = 1024;

// clang-format off
// Configuration words (docs/silicon.md tells their source): bits that exist, missing bits that read 1, protection bits
// of program memory and of data memory, then existing and missing bits of the second word.
constexpr MidConfig kConfigF84A{ 0x3FFF, 0x0000, 0x3FF0, 0x3FF0};
constexpr MidConfig kConfigF62x{ 0x3DFF, 0x0200, 0x3C00, 0x0100};
constexpr MidConfig kConfigF87x{ 0x3BFF, 0x0400, 0x3030, 0x0100};
constexpr MidConfig kConfigF87xA{0x2FCF, 0x1030, 0x2000, 0x0100};
constexpr MidConfig kConfigF81x{ 0x3FFF, 0x0000, 0x2000, 0x0100};
constexpr MidConfig kConfigF88{  0x3FFF, 0x0000, 0x2000, 0x0100, 0x0003, 0x3FFC};
constexpr MidConfig kConfigF62xA{0x21FF, 0x0000, 0x2000, 0x0100};
constexpr MidConfig kConfigF629{ 0x31FF, 0x0000, 0x0080, 0x0100};
constexpr MidConfig kConfigF635{ 0x1FFF, 0x2000, 0x0040, 0x0080};
constexpr MidConfig kConfigF683{ 0x0FFF, 0x3000, 0x0040, 0x0080};
constexpr MidConfig kConfigF61x{ 0x03FF, 0x3C00, 0x0040, 0x0000};
constexpr MidConfig kConfigF617{ 0x0FFF, 0x3000, 0x0040, 0x0000};
constexpr MidConfig kConfigF91x{ 0x1FFF, 0x2000, 0x0040, 0x0080};
constexpr MidConfig kConfigF88x{ 0x3FFF, 0x0000, 0x0040, 0x0080, 0x0700, 0x38FF};

constexpr MidCalibration kNone{};
constexpr MidCalibration kOneAt2008{0x2008, 1};
constexpr MidCalibration kTwoAt2008{0x2008, 2};
constexpr MidCalibration kOneAt2009{0x2009, 1};

// Name, device ID, program words, EEPROM bytes, latches, generation, configuration, calibration, OSCCAL.
constexpr MidRow kRows[] = {
    // DS30262.
    {"PIC16F84A", 0x0560, 1 * kK, 64, 1, MidGeneration::F8x, &kConfigF84A, kNone, false},
    // DS30034.
    {"PIC16F627", 0x07A0, 1 * kK, 128, 1, MidGeneration::F62x, &kConfigF62x, kNone, false},
    {"PIC16F628", 0x07C0, 2 * kK, 128, 1, MidGeneration::F62x, &kConfigF62x, kNone, false},
    // DS39025.
    {"PIC16F870", 0x0D00, 2 * kK, 64, 1, MidGeneration::F87x, &kConfigF87x, kNone, false},
    {"PIC16F871", 0x0D20, 2 * kK, 64, 1, MidGeneration::F87x, &kConfigF87x, kNone, false},
    {"PIC16F872", 0x08E0, 2 * kK, 64, 1, MidGeneration::F87x, &kConfigF87x, kNone, false},
    {"PIC16F873", 0x0960, 4 * kK, 128, 1, MidGeneration::F87x, &kConfigF87x, kNone, false},
    {"PIC16F874", 0x0920, 4 * kK, 128, 1, MidGeneration::F87x, &kConfigF87x, kNone, false},
    {"PIC16F876", 0x09E0, 8 * kK, 256, 1, MidGeneration::F87x, &kConfigF87x, kNone, false},
    {"PIC16F877", 0x09A0, 8 * kK, 256, 1, MidGeneration::F87x, &kConfigF87x, kNone, false},
    // DS39589.
    {"PIC16F873A", 0x0E40, 4 * kK, 128, 8, MidGeneration::F87xA, &kConfigF87xA, kNone, false},
    {"PIC16F874A", 0x0E60, 4 * kK, 128, 8, MidGeneration::F87xA, &kConfigF87xA, kNone, false},
    {"PIC16F876A", 0x0E00, 8 * kK, 256, 8, MidGeneration::F87xA, &kConfigF87xA, kNone, false},
    {"PIC16F877A", 0x0E20, 8 * kK, 256, 8, MidGeneration::F87xA, &kConfigF87xA, kNone, false},
    // DS39603.
    {"PIC16F818", 0x04C0, 1 * kK, 128, 4, MidGeneration::F81xF88, &kConfigF81x, kNone, false},
    {"PIC16F819", 0x04E0, 2 * kK, 256, 4, MidGeneration::F81xF88, &kConfigF81x, kNone, false},
    // DS39607.
    {"PIC16F87", 0x0720, 4 * kK, 256, 4, MidGeneration::F81xF88, &kConfigF88, kNone, false},
    {"PIC16F88", 0x0760, 4 * kK, 256, 4, MidGeneration::F81xF88, &kConfigF88, kNone, false},
    // DS41196.
    {"PIC16F627A", 0x1040, 1 * kK, 128, 1, MidGeneration::F62xA, &kConfigF62xA, kNone, false},
    {"PIC16F628A", 0x1060, 2 * kK, 128, 1, MidGeneration::F62xA, &kConfigF62xA, kNone, false},
    {"PIC16F648A", 0x1100, 4 * kK, 256, 1, MidGeneration::F62xA, &kConfigF62xA, kNone, false},
    // DS41191.
    {"PIC12F629", 0x0F80, 1 * kK, 128, 1, MidGeneration::F629, &kConfigF629, kNone, true},
    {"PIC12F675", 0x0FC0, 1 * kK, 128, 1, MidGeneration::F629, &kConfigF629, kNone, true},
    {"PIC16F630", 0x10C0, 1 * kK, 128, 1, MidGeneration::F629, &kConfigF629, kNone, true},
    {"PIC16F676", 0x10E0, 1 * kK, 128, 1, MidGeneration::F629, &kConfigF629, kNone, true},
    // DS41204.
    {"PIC12F635", 0x0FA0, 1 * kK, 128, 4, MidGeneration::F6xx, &kConfigF635, kOneAt2008, false},
    {"PIC12F683", 0x0460, 2 * kK, 256, 4, MidGeneration::F6xx, &kConfigF683, kOneAt2008, false},
    {"PIC16F631", 0x1420, 1 * kK, 128, 4, MidGeneration::F6xx, &kConfigF683, kOneAt2008, false},
    {"PIC16F636/639", 0x10A0, 2 * kK, 256, 4, MidGeneration::F6xx, &kConfigF635, kOneAt2008, false},
    {"PIC16F677", 0x1440, 2 * kK, 256, 4, MidGeneration::F6xx, &kConfigF683, kOneAt2008, false},
    {"PIC16F684", 0x1080, 2 * kK, 256, 4, MidGeneration::F6xx, &kConfigF683, kOneAt2008, false},
    {"PIC16F685", 0x04A0, 4 * kK, 256, 4, MidGeneration::F6xx, &kConfigF683, kOneAt2008, false},
    {"PIC16F687", 0x1320, 2 * kK, 256, 4, MidGeneration::F6xx, &kConfigF683, kOneAt2008, false},
    {"PIC16F688", 0x1180, 4 * kK, 256, 4, MidGeneration::F6xx, &kConfigF683, kOneAt2008, false},
    {"PIC16F689", 0x1340, 4 * kK, 256, 4, MidGeneration::F6xx, &kConfigF683, kOneAt2008, false},
    {"PIC16F690", 0x1400, 4 * kK, 256, 4, MidGeneration::F6xx, &kConfigF683, kOneAt2008, false},
    // DS41284.
    {"PIC12F609", 0x2240, 1 * kK, 0, 4, MidGeneration::F61x, &kConfigF61x, kOneAt2008, false},
    {"PIC12HV609", 0x2280, 1 * kK, 0, 4, MidGeneration::F61x, &kConfigF61x, kOneAt2008, false},
    {"PIC12F615", 0x2180, 1 * kK, 0, 4, MidGeneration::F61x, &kConfigF61x, kOneAt2008, false},
    {"PIC12HV615", 0x21A0, 1 * kK, 0, 4, MidGeneration::F61x, &kConfigF61x, kOneAt2008, false},
    {"PIC12F617", 0x1360, 2 * kK, 0, 4, MidGeneration::F61x, &kConfigF617, kTwoAt2008, false},
    {"PIC16F610", 0x2260, 1 * kK, 0, 4, MidGeneration::F61x, &kConfigF61x, kOneAt2008, false},
    {"PIC16HV610", 0x22A0, 1 * kK, 0, 4, MidGeneration::F61x, &kConfigF61x, kOneAt2008, false},
    {"PIC16F616", 0x1240, 2 * kK, 0, 4, MidGeneration::F61x, &kConfigF61x, kOneAt2008, false},
    {"PIC16HV616", 0x1260, 2 * kK, 0, 4, MidGeneration::F61x, &kConfigF61x, kOneAt2008, false},
    // DS41244.
    {"PIC16F913", 0x13E0, 4 * kK, 256, 4, MidGeneration::F91x, &kConfigF91x, kOneAt2008, false},
    {"PIC16F914", 0x13C0, 4 * kK, 256, 4, MidGeneration::F91x, &kConfigF91x, kOneAt2008, false},
    {"PIC16F916", 0x13A0, 8 * kK, 256, 8, MidGeneration::F91x, &kConfigF91x, kOneAt2008, false},
    {"PIC16F917", 0x1380, 8 * kK, 256, 8, MidGeneration::F91x, &kConfigF91x, kOneAt2008, false},
    {"PIC16F946", 0x1460, 8 * kK, 256, 8, MidGeneration::F91x, &kConfigF91x, kOneAt2008, false},
    // DS41287.
    {"PIC16F882", 0x2000, 2 * kK, 128, 4, MidGeneration::F88x, &kConfigF88x, kOneAt2009, false},
    {"PIC16F883", 0x2020, 4 * kK, 256, 4, MidGeneration::F88x, &kConfigF88x, kOneAt2009, false},
    {"PIC16F884", 0x2040, 4 * kK, 256, 4, MidGeneration::F88x, &kConfigF88x, kOneAt2009, false},
    {"PIC16F886", 0x2060, 8 * kK, 256, 8, MidGeneration::F88x, &kConfigF88x, kOneAt2009, false},
    {"PIC16F887", 0x2080, 8 * kK, 256, 8, MidGeneration::F88x, &kConfigF88x, kOneAt2009, false},
};
// clang-format on

static_assert(std::size(kRows) == 55);

}  // namespace

std::span<const MidRow> MidRangeCatalogue() {
  return kRows;
}

const MidRow* FindMidRange(std::string_view name) {
  const auto* row = std::find_if(std::begin(kRows), std::end(kRows),
                                 [name](const MidRow& candidate) { return candidate.name == name; });
  return row == std::end(kRows) ? nullptr : row;
}

}  // namespace zelvo::bench
