#include <algorithm>

#include "bench/pic18_facts.h"

namespace zelvo::bench {
namespace {

constexpr std::uint32_t kKb = 1024;

// clang-format off
// Configuration bytes 300000h to 300007h (docs/silicon.md tells their source): implemented bits,
// values of a blank chip, protection cells of a block register. Where a smaller chip of a family has fewer blocks, its
// data sheet asks to keep the others' cells set: the cells are there.
constexpr Pic18Config kConfigX2{  {0x00, 0x27, 0x0F, 0x0F, 0x00, 0x01, 0x85, 0x00}, {0x00, 0x27, 0x0F, 0x0F, 0x00, 0x01, 0x85, 0x00}, 0x0F};
constexpr Pic18Config kConfigX8{  {0x00, 0x27, 0x0F, 0x0F, 0x00, 0x00, 0x85, 0x00}, {0x00, 0x27, 0x0F, 0x0F, 0x00, 0x00, 0x85, 0x00}, 0x0F};
constexpr Pic18Config kConfig6520{{0x00, 0x27, 0x0F, 0x0F, 0x00, 0x03, 0x85, 0x00}, {0x00, 0x27, 0x0F, 0x0F, 0x00, 0x03, 0x85, 0x00}, 0xFF};
constexpr Pic18Config kConfig8520{{0x00, 0x27, 0x0F, 0x0F, 0x83, 0x03, 0x85, 0x00}, {0x00, 0x27, 0x0F, 0x0F, 0x83, 0x03, 0x85, 0x00}, 0xFF};
constexpr Pic18Config kConfig6X20{{0x00, 0x27, 0x0F, 0x0F, 0x00, 0x01, 0x85, 0x00}, {0x00, 0x27, 0x0F, 0x0F, 0x00, 0x01, 0x85, 0x00}, 0xFF};
constexpr Pic18Config kConfig8X20{{0x00, 0x27, 0x0F, 0x0F, 0x83, 0x01, 0x85, 0x00}, {0x00, 0x27, 0x0F, 0x0F, 0x83, 0x01, 0x85, 0x00}, 0xFF};
constexpr Pic18Config kConfig1X20{{0x00, 0xCF, 0x0F, 0x1F, 0x00, 0x80, 0x85, 0x00}, {0x00, 0xCF, 0x0F, 0x1F, 0x00, 0x80, 0x85, 0x00}, 0x03};
constexpr Pic18Config kConfigX220{{0x00, 0xCF, 0x0F, 0x1F, 0x00, 0x83, 0x85, 0x00}, {0x00, 0xCF, 0x0F, 0x1F, 0x00, 0x83, 0x85, 0x00}, 0x0F};
constexpr Pic18Config kConfigX331{{0x00, 0xCF, 0x0F, 0x3F, 0x3C, 0x9D, 0x85, 0x00}, {0x00, 0xCF, 0x0F, 0x3F, 0x3C, 0x9D, 0x85, 0x00}, 0x0F};
constexpr Pic18Config kConfig6525{{0x00, 0x2F, 0x0F, 0x1F, 0x00, 0x83, 0x85, 0x00}, {0x00, 0x2F, 0x0F, 0x1F, 0x00, 0x83, 0x85, 0x00}, 0x0F};
constexpr Pic18Config kConfig8525{{0x00, 0x2F, 0x0F, 0x1F, 0x83, 0x83, 0x85, 0x00}, {0x00, 0x2F, 0x0F, 0x1F, 0x83, 0x83, 0x85, 0x00}, 0x0F};
constexpr Pic18Config kConfigX221{{0x00, 0xCF, 0x1F, 0x1F, 0x00, 0x87, 0xF5, 0x00}, {0x00, 0x07, 0x1F, 0x1F, 0x00, 0x83, 0x85, 0x00}, 0x03};
constexpr Pic18Config kConfigX420{{0x00, 0xCF, 0x1F, 0x1F, 0x00, 0x87, 0xC5, 0x00}, {0x00, 0x07, 0x1F, 0x1F, 0x00, 0x83, 0x85, 0x00}, 0x0F};
constexpr Pic18Config kConfig2455{{0x3F, 0xCF, 0x3F, 0x1F, 0x00, 0x87, 0xC5, 0x00}, {0x00, 0x05, 0x1F, 0x1F, 0x00, 0x83, 0x85, 0x00}, 0x0F};
constexpr Pic18Config kConfig4455{{0x3F, 0xCF, 0x3F, 0x1F, 0x00, 0x87, 0xE5, 0x00}, {0x00, 0x05, 0x1F, 0x1F, 0x00, 0x83, 0x85, 0x00}, 0x0F};
constexpr Pic18Config kConfigX480{{0x00, 0xCF, 0x1F, 0x1F, 0x00, 0x86, 0xD5, 0x00}, {0x00, 0x07, 0x1F, 0x1F, 0x00, 0x82, 0x85, 0x00}, 0x0F};
constexpr Pic18Config kConfigX585{{0x00, 0xCF, 0x1F, 0x1F, 0x00, 0x86, 0xF5, 0x00}, {0x00, 0x07, 0x1F, 0x1F, 0x00, 0x82, 0x85, 0x00}, 0x0F};
constexpr Pic18Config kConfig6527{{0x00, 0xCF, 0x1F, 0x1F, 0x00, 0x87, 0xF5, 0x00}, {0x00, 0x07, 0x1F, 0x1F, 0x00, 0x83, 0x85, 0x00}, 0xFF};
constexpr Pic18Config kConfig8527{{0x00, 0xCF, 0x1F, 0x1F, 0xF3, 0x87, 0xF5, 0x00}, {0x00, 0x07, 0x1F, 0x1F, 0xF3, 0x83, 0x85, 0x00}, 0xFF};

// Boot block by BBSIZ (00, 01, 10, 11), then a block, in bytes.
constexpr Pic18Blocks kBoot512Block2K{ {0x200, 0x200, 0x200, 0x200}, 0x800};
constexpr Pic18Blocks kBoot512Block4K{ {0x200, 0x200, 0x200, 0x200}, 0x1000};
constexpr Pic18Blocks kBoot512Block8K{ {0x200, 0x200, 0x200, 0x200}, 0x2000};
constexpr Pic18Blocks kBoot512Block16K{{0x200, 0x200, 0x200, 0x200}, 0x4000};
constexpr Pic18Blocks kBoot2KBlock8K{  {0x800, 0x800, 0x800, 0x800}, 0x2000};
constexpr Pic18Blocks kBoot2KBlock16K{ {0x800, 0x800, 0x800, 0x800}, 0x4000};
constexpr Pic18Blocks kBlocksX221{     {0x200, 0x400, 0x400, 0x400}, 0x800};
constexpr Pic18Blocks kBlocksX321{     {0x200, 0x400, 0x800, 0x800}, 0x1000};
constexpr Pic18Blocks kBlocksX480{     {0x800, 0x1000, 0x800, 0x1000}, 0x2000};
constexpr Pic18Blocks kBlocksBbsiz16K{ {0x800, 0x1000, 0x2000, 0x2000}, 0x4000};

// Name, device ID, code bytes, EEPROM bytes, latches, family, configuration, blocks.
constexpr Pic18Row kRows[] = {
    // DS39576: one key, 8 KB panels, 8-byte latches.
    {"PIC18F242", 0x0480, 16 * kKb, 256, 8, Pic18Family::Fxx2Fxx8, &kConfigX2, &kBoot512Block8K},
    {"PIC18F252", 0x0400, 32 * kKb, 256, 8, Pic18Family::Fxx2Fxx8, &kConfigX2, &kBoot512Block8K},
    {"PIC18F442", 0x04A0, 16 * kKb, 256, 8, Pic18Family::Fxx2Fxx8, &kConfigX2, &kBoot512Block8K},
    {"PIC18F452", 0x0420, 32 * kKb, 256, 8, Pic18Family::Fxx2Fxx8, &kConfigX2, &kBoot512Block8K},
    {"PIC18F248", 0x0800, 16 * kKb, 256, 8, Pic18Family::Fxx2Fxx8, &kConfigX8, &kBoot512Block8K},
    {"PIC18F258", 0x0840, 32 * kKb, 256, 8, Pic18Family::Fxx2Fxx8, &kConfigX8, &kBoot512Block8K},
    {"PIC18F448", 0x0820, 16 * kKb, 256, 8, Pic18Family::Fxx2Fxx8, &kConfigX8, &kBoot512Block8K},
    {"PIC18F458", 0x0860, 32 * kKb, 256, 8, Pic18Family::Fxx2Fxx8, &kConfigX8, &kBoot512Block8K},
    // DS39583.
    {"PIC18F6520", 0x0B20, 32 * kKb, 1024, 8, Pic18Family::Fxx20, &kConfig6520, &kBoot2KBlock8K},
    {"PIC18F6620", 0x0660, 64 * kKb, 1024, 8, Pic18Family::Fxx20, &kConfig6X20, &kBoot512Block16K},
    {"PIC18F6720", 0x0620, 128 * kKb, 1024, 8, Pic18Family::Fxx20, &kConfig6X20, &kBoot512Block16K},
    {"PIC18F8520", 0x0B00, 32 * kKb, 1024, 8, Pic18Family::Fxx20, &kConfig8520, &kBoot2KBlock8K},
    {"PIC18F8620", 0x0640, 64 * kKb, 1024, 8, Pic18Family::Fxx20, &kConfig8X20, &kBoot512Block16K},
    {"PIC18F8720", 0x0600, 128 * kKb, 1024, 8, Pic18Family::Fxx20, &kConfig8X20, &kBoot512Block16K},
    // DS39592.
    {"PIC18F1220", 0x07E0, 4 * kKb, 256, 8, Pic18Family::Fx220, &kConfig1X20, &kBoot512Block2K},
    {"PIC18F1320", 0x07C0, 8 * kKb, 256, 8, Pic18Family::Fx220, &kConfig1X20, &kBoot512Block4K},
    {"PIC18F2220", 0x0580, 4 * kKb, 256, 8, Pic18Family::Fx220, &kConfigX220, &kBoot512Block2K},
    {"PIC18F2320", 0x0500, 8 * kKb, 256, 8, Pic18Family::Fx220, &kConfigX220, &kBoot512Block2K},
    {"PIC18F4220", 0x05A0, 4 * kKb, 256, 8, Pic18Family::Fx220, &kConfigX220, &kBoot512Block2K},
    {"PIC18F4320", 0x0520, 8 * kKb, 256, 8, Pic18Family::Fx220, &kConfigX220, &kBoot512Block2K},
    // DS30500.
    {"PIC18F2331", 0x08E0, 8 * kKb, 256, 8, Pic18Family::Fx331, &kConfigX331, &kBoot512Block4K},
    {"PIC18F2431", 0x08C0, 16 * kKb, 256, 8, Pic18Family::Fx331, &kConfigX331, &kBoot512Block4K},
    {"PIC18F4331", 0x08A0, 8 * kKb, 256, 8, Pic18Family::Fx331, &kConfigX331, &kBoot512Block4K},
    {"PIC18F4431", 0x0880, 16 * kKb, 256, 8, Pic18Family::Fx331, &kConfigX331, &kBoot512Block4K},
    // DS30499 and its kin for the CAN chips.
    {"PIC18F6525", 0x0AE0, 48 * kKb, 1024, 8, Pic18Family::Fx525Fx680, &kConfig6525, &kBoot2KBlock16K},
    {"PIC18F6621", 0x0AA0, 64 * kKb, 1024, 8, Pic18Family::Fx525Fx680, &kConfig6525, &kBoot2KBlock16K},
    {"PIC18F8525", 0x0AC0, 48 * kKb, 1024, 8, Pic18Family::Fx525Fx680, &kConfig8525, &kBoot2KBlock16K},
    {"PIC18F8621", 0x0A80, 64 * kKb, 1024, 8, Pic18Family::Fx525Fx680, &kConfig8525, &kBoot2KBlock16K},
    {"PIC18F6585", 0x0A60, 48 * kKb, 1024, 8, Pic18Family::Fx525Fx680, &kConfig6525, &kBoot2KBlock16K},
    {"PIC18F6680", 0x0A20, 64 * kKb, 1024, 8, Pic18Family::Fx525Fx680, &kConfig6525, &kBoot2KBlock16K},
    {"PIC18F8585", 0x0A40, 48 * kKb, 1024, 8, Pic18Family::Fx525Fx680, &kConfig8525, &kBoot2KBlock16K},
    {"PIC18F8680", 0x0A00, 64 * kKb, 1024, 8, Pic18Family::Fx525Fx680, &kConfig8525, &kBoot2KBlock16K},
    // DS39622: two keys, 8-byte latches.
    {"PIC18F2221", 0x2160, 4 * kKb, 256, 8, Pic18Family::F2221F4680, &kConfigX221, &kBlocksX221},
    {"PIC18F2321", 0x2120, 8 * kKb, 256, 8, Pic18Family::F2221F4680, &kConfigX221, &kBlocksX321},
    {"PIC18F4221", 0x2140, 4 * kKb, 256, 8, Pic18Family::F2221F4680, &kConfigX221, &kBlocksX221},
    {"PIC18F4321", 0x2100, 8 * kKb, 256, 8, Pic18Family::F2221F4680, &kConfigX221, &kBlocksX321},
    // DS39622: two keys, 32-byte latches.
    {"PIC18F2410", 0x1160, 16 * kKb, 0, 32, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock8K},
    {"PIC18F2420", 0x1140, 16 * kKb, 256, 32, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock8K},
    {"PIC18F2510", 0x1120, 32 * kKb, 0, 32, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock8K},
    {"PIC18F2520", 0x1100, 32 * kKb, 256, 32, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock8K},
    {"PIC18F4410", 0x10E0, 16 * kKb, 0, 32, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock8K},
    {"PIC18F4420", 0x10C0, 16 * kKb, 256, 32, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock8K},
    {"PIC18F4510", 0x10A0, 32 * kKb, 0, 32, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock8K},
    {"PIC18F4520", 0x1080, 32 * kKb, 256, 32, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock8K},
    {"PIC18F2455", 0x1260, 24 * kKb, 256, 32, Pic18Family::F2221F4680, &kConfig2455, &kBoot2KBlock8K},
    {"PIC18F2550", 0x1240, 32 * kKb, 256, 32, Pic18Family::F2221F4680, &kConfig2455, &kBoot2KBlock8K},
    {"PIC18F4455", 0x1220, 24 * kKb, 256, 32, Pic18Family::F2221F4680, &kConfig4455, &kBoot2KBlock8K},
    {"PIC18F4550", 0x1200, 32 * kKb, 256, 32, Pic18Family::F2221F4680, &kConfig4455, &kBoot2KBlock8K},
    {"PIC18F2480", 0x1AE0, 16 * kKb, 256, 32, Pic18Family::F2221F4680, &kConfigX480, &kBlocksX480},
    {"PIC18F2580", 0x1AC0, 32 * kKb, 256, 32, Pic18Family::F2221F4680, &kConfigX480, &kBlocksX480},
    {"PIC18F4480", 0x1AA0, 16 * kKb, 256, 32, Pic18Family::F2221F4680, &kConfigX480, &kBlocksX480},
    {"PIC18F4580", 0x1A80, 32 * kKb, 256, 32, Pic18Family::F2221F4680, &kConfigX480, &kBlocksX480},
    // DS39622: two keys, 64-byte latches.
    {"PIC18F2515", 0x0CE0, 48 * kKb, 0, 64, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock16K},
    {"PIC18F2525", 0x0CC0, 48 * kKb, 1024, 64, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock16K},
    {"PIC18F2610", 0x0CA0, 64 * kKb, 0, 64, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock16K},
    {"PIC18F2620", 0x0C80, 64 * kKb, 1024, 64, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock16K},
    {"PIC18F4515", 0x0C60, 48 * kKb, 0, 64, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock16K},
    {"PIC18F4525", 0x0C40, 48 * kKb, 1024, 64, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock16K},
    {"PIC18F4610", 0x0C20, 64 * kKb, 0, 64, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock16K},
    {"PIC18F4620", 0x0C00, 64 * kKb, 1024, 64, Pic18Family::F2221F4680, &kConfigX420, &kBoot2KBlock16K},
    {"PIC18F2585", 0x0EE0, 48 * kKb, 1024, 64, Pic18Family::F2221F4680, &kConfigX585, &kBlocksBbsiz16K},
    {"PIC18F2680", 0x0EC0, 64 * kKb, 1024, 64, Pic18Family::F2221F4680, &kConfigX585, &kBlocksBbsiz16K},
    {"PIC18F4585", 0x0EA0, 48 * kKb, 1024, 64, Pic18Family::F2221F4680, &kConfigX585, &kBlocksBbsiz16K},
    {"PIC18F4680", 0x0E80, 64 * kKb, 1024, 64, Pic18Family::F2221F4680, &kConfigX585, &kBlocksBbsiz16K},
    // DS39643: two keys, 64-byte latches.
    {"PIC18F6527", 0x1340, 48 * kKb, 1024, 64, Pic18Family::F8722, &kConfig6527, &kBlocksBbsiz16K},
    {"PIC18F6622", 0x1380, 64 * kKb, 1024, 64, Pic18Family::F8722, &kConfig6527, &kBlocksBbsiz16K},
    {"PIC18F6627", 0x13C0, 96 * kKb, 1024, 64, Pic18Family::F8722, &kConfig6527, &kBlocksBbsiz16K},
    {"PIC18F6722", 0x1400, 128 * kKb, 1024, 64, Pic18Family::F8722, &kConfig6527, &kBlocksBbsiz16K},
    {"PIC18F8527", 0x1360, 48 * kKb, 1024, 64, Pic18Family::F8722, &kConfig8527, &kBlocksBbsiz16K},
    {"PIC18F8622", 0x13A0, 64 * kKb, 1024, 64, Pic18Family::F8722, &kConfig8527, &kBlocksBbsiz16K},
    {"PIC18F8627", 0x13E0, 96 * kKb, 1024, 64, Pic18Family::F8722, &kConfig8527, &kBlocksBbsiz16K},
    {"PIC18F8722", 0x1420, 128 * kKb, 1024, 64, Pic18Family::F8722, &kConfig8527, &kBlocksBbsiz16K},
};
// clang-format on

static_assert(std::size(kRows) == 72);

}  // namespace

std::span<const Pic18Row> Pic18Catalogue() {
  return kRows;
}

const Pic18Row* FindPic18(std::string_view name) {
  const auto* row = std::find_if(std::begin(kRows), std::end(kRows),
                                 [name](const Pic18Row& candidate) { return candidate.name == name; });
  return row == std::end(kRows) ? nullptr : row;
}

}  // namespace zelvo::bench
