// Saved HEX files before tools of others: srec_info and srec_cat have to take them as they are.
#include <gtest/gtest.h>

#include <cstdlib>

#include "devices/selection.h"
#include "hex_desk.h"
#include "image/hex_save.h"
#include "support/pattern_image.h"

namespace zelvo::test {
namespace {

using devices::EepromMax;
using devices::FlashWordMax;

class HexTools : public testing::Test {
 protected:
  std::string File(const char* name) const { return desk.session.Folder().File(name); }
  void Save() const { desk.session.Folder().Write("saved.hex", image::IntelHexText()); }
  /// Runs a command of the tools. Any word of it, a warning included, fails the test.
  void Run(const std::string& command) const {
    const int status = std::system((command + " >" + File("out") + " 2>" + File("err")).c_str());
    ASSERT_EQ(status, 0) << command << '\n' << desk.session.Folder().Read("err");
    ASSERT_EQ(desk.session.Folder().Read("err"), "") << command;
  }
  /// The bytes first..last of the saved file, as srec_cat makes them into a binary file.
  std::string Cut(std::uint32_t first, std::uint32_t last) const {
    const std::string begin = std::to_string(first);
    Run("srec_cat " + File("saved.hex") + " -intel -crop " + begin + " " + std::to_string(last + 1) +
        " -offset -" + begin + " -o " + File("cut.bin") + " -binary");
    return desk.session.Folder().Read("cut.bin");
  }
  /// The same bytes of the program's image.
  static std::string Image(std::uint32_t first, std::uint32_t last) {
    std::string bytes;
    for (const auto& [address, value] : Between(ImageByAddress(), first, last)) {
      bytes += static_cast<char>(value);
    }
    return bytes;
  }
  HexDesk desk{"PIC18F1220"};
};

TEST_F(HexTools, SrecInfoAcceptsTheFileOfEveryChipUpTo32768Words) {
  int chips = 0;
  for (const std::string& chip : desk.session.Look("list Combo1")) {
    SCOPED_TRACE(chip);
    desk.Choose(chip);
    if (!HasLimits(chip) || FlashWordMax + 1 > 32768) continue;
    FillWithPattern(++chips);
    Save();
    ASSERT_NO_FATAL_FAILURE(Run("srec_info " + File("saved.hex") + " -intel"));
    char code[64];
    std::snprintf(code, sizeof code, "000000 - %06X\n", 2 * FlashWordMax + 1);
    const std::string told = desk.session.Folder().Read("out");
    ASSERT_NE(told.find(code), std::string::npos) << told;
    ASSERT_NE(told.find("200000 - 200007\n"), std::string::npos) << told;
    ASSERT_NE(told.find("300000 - 30000D\n"), std::string::npos) << told;
    ASSERT_EQ(told.find("F00000 - F00") != std::string::npos, EepromMax > 0) << told;
  }
  EXPECT_EQ(chips, 64);
}

TEST_F(HexTools, SrecCatReadsTheBytesOfTheImage) {
  int seed = 0;
  for (const char* chip :
       {"PIC18F1220", "PIC18F452", "PIC18F2410", "PIC18F2455", "PIC18F8621", "PIC18F4680"}) {
    SCOPED_TRACE(chip);
    desk.Choose(chip);
    FillWithPattern(++seed);
    Save();
    const auto lastByte = static_cast<std::uint32_t>(2 * FlashWordMax + 1);
    EXPECT_EQ(Cut(0, lastByte), Image(0, lastByte));
    EXPECT_EQ(Cut(0x200000, 0x200007), Image(0x200000, 0x200007));
    EXPECT_EQ(Cut(0x300000, 0x30000D), Image(0x300000, 0x30000D));
    if (EepromMax == 0) continue;
    const auto lastEeprom = static_cast<std::uint32_t>(0xF00000 + EepromMax);
    EXPECT_EQ(Cut(0xF00000, lastEeprom), Image(0xF00000, lastEeprom));
  }
}

}  // namespace
}  // namespace zelvo::test
