// Any text in a HEX file, by the thousand and by the gigabyte: the loader ends in one of its own messages or
// in none, and leaves an image of whole cells within the chip.
#include <chrono>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>

#include "devices/selection.h"
#include "hex_desk.h"
#include "icsp/conversions.h"
#include "image/buffers.h"
#include "image/hex_load.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

using Random = std::mt19937;

int Below(Random& random, std::size_t limit) {
  return static_cast<int>(random() % limit);
}

template <class Items>
const auto& Pick(Random& random, const Items& items) {
  return items[static_cast<std::size_t>(Below(random, std::size(items)))];
}

std::string RandomData(Random& random, int bytes) {
  std::string data;
  for (int i = 0; i < 2 * bytes; ++i) data += Pick(random, std::string("0123456789ABCDEF"));
  return data;
}

/// A record that is well formed by itself; its place is often near the edge of a memory.
std::string RandomRecord(Random& random) {
  static const int Pages[] = {0, 0, 0, 1, 0x1F, 0x20, 0x2F, 0x30, 0xEF, 0xF0, 0x7FFF, 0x8000, 0xFFFF};
  static const int Segments[] = {0, 0, 1, 0x80, 0x7FF, 0x800, 0x1000, 0xFFFF};
  static const int Places[] = {0,      2,      6,      7,      8,      0xD,    0xE,    0xFF,   0x100,  0x3FE,
                               0x7FE,  0x800,  0xFFE,  0x1000, 0x3FFE, 0x4000, 0x4001, 0x4006, 0x400E, 0x4010,
                               0x4200, 0x427E, 0x4400, 0x7FFE, 0x7FFF, 0x8000, 0xBFFF, 0xFFFE, 0xFFFF};
  switch (Below(random, 12)) {
    case 0:
      return Ela(Pick(random, Pages));
    case 1:
      return Esa(Pick(random, Segments));
    case 2:
      return EndRecord;
    case 3:
      return Rec(Below(random, 0x10000), Below(random, 256), RandomData(random, Below(random, 256)));
    default:
      return Rec(Pick(random, Places), 0, RandomData(random, Below(random, 20)));
  }
}

void Mutate(Random& random, std::string& text) {
  static const std::string Odd = std::string(":0123456789abcdefABCDEFgG \t\r\n-+&H\x7F\xFF") + '\0';
  if (text.empty()) return;
  const auto at = static_cast<std::size_t>(Below(random, text.size()));
  const auto length = static_cast<std::size_t>(1 + Below(random, 12));
  switch (Below(random, 6)) {
    case 0:
      text[at] = Pick(random, Odd);
      break;
    case 1:
      text.erase(at, length);
      break;
    case 2:
      text.insert(at, text.substr(static_cast<std::size_t>(Below(random, text.size())), length));
      break;
    case 3:
      text[at] = static_cast<char>(random());
      break;
    case 4:
      text.resize(at);
      break;
    default:
      text.insert(at, 1, Pick(random, Odd));
  }
}

std::string RandomText(Random& random) {
  std::string text;
  if (Below(random, 10) == 0) {
    for (int i = Below(random, 300); i > 0; --i) text += static_cast<char>(random());
    return ":" + text;
  }
  for (int i = 1 + Below(random, 20); i > 0; --i) text += RandomRecord(random);
  for (int i = Below(random, 5); i > 0; --i) Mutate(random, text);
  return text;
}

bool IsDigits(std::string_view text, std::size_t width, std::string_view digits) {
  return text.size() == width && text.find_first_not_of(digits) == std::string_view::npos;
}

void ExpectSoundTexts(bool midRange) {
  if (midRange) {
    EXPECT_TRUE(IsDigits(image::ConfigWord1Bits, 14, "01")) << image::ConfigWord1Bits;
    // A short record brings as many digits of word 2 as its line has.
    EXPECT_EQ(image::ConfigWord2Bits.find_first_not_of("01"), std::string::npos);
    EXPECT_LE(image::ConfigWord2Bits.size(), 14u);
    return;
  }
  for (std::size_t k = 1; k <= 14; ++k) {
    EXPECT_TRUE(IsDigits(image::ConfigBuffer[k], 2, "0123456789ABCDEF")) << k << image::ConfigBuffer[k];
  }
  for (std::size_t k = 1; k <= 8; ++k) {
    EXPECT_TRUE(IsDigits(image::IdBuffer[k], 2, "0123456789ABCDEF")) << k << image::IdBuffer[k];
  }
}

/// The boxes with Ok alone.
Lines Told(const Lines& messages) {
  Lines told;
  for (const std::string& message : messages) {
    if (message.starts_with("ok ")) told.push_back(message);
  }
  return told;
}

void FeedTexts(const char* chip, unsigned seed, int texts) {
  HexDesk desk(chip);
  const bool midRange = panel::Form1.TabStrip1.SelectedItem == panel::MidRangeTab;
  const std::string path = desk.session.Folder().File("image.hex");
  Random random(seed);
  desk.MarkBeyond();
  std::map<std::string, int> endings;
  for (int i = 0; i < texts; ++i) {
    SCOPED_TRACE(testing::Message() << chip << ", text " << i << " of seed " << seed);
    image::IdEdited = image::ConfigEdited = Below(random, 4) == 0 ? 1 : 0;
    if (Below(random, 2) == 0) desk.session.Do("answer yes no");
    desk.session.Folder().Write("image.hex", RandomText(random));
    if (std::filesystem::file_size(path) == 0) continue;
    desk.session.Do("file " + path);
    if (i % 5 == 4 && !midRange) {
      ASSERT_NO_THROW(image::ReloadButton());
    } else {
      ASSERT_NO_THROW(image::LoadButton());
    }
    const Lines told = Told(desk.session.Look("messages"));
    ASSERT_LE(told.size(), 1u);
    const std::string ending = told.empty() ? "none" : told.front();
    ++endings[ending];
    ASSERT_TRUE(ending == "none" || ending == NotHexFormat || ending == NotForThisChip) << ending;
    ASSERT_NE(icsp::LoadFailed, 1);
    ASSERT_TRUE(ending == NotForThisChip ? desk.IsErased() : desk.CellsAreSound());
    ExpectSoundTexts(midRange);
    if (i % 100 == 99) {
      ASSERT_TRUE(desk.BeyondIsUntouched());
    }
  }
  EXPECT_TRUE(desk.BeyondIsUntouched());
  EXPECT_EQ(endings.size(), 3u) << "the texts should reach all endings";
}

TEST(HexRobustness, ThousandsOfTextsLeaveASoundImageOfASmallPic18) {
  FeedTexts("PIC18F1220", 18, 3000);
}
TEST(HexRobustness, ThousandsOfTextsLeaveASoundImageOfAPic18WithoutEeprom) {
  FeedTexts("PIC18F2410", 2410, 1000);
}
TEST(HexRobustness, ThousandsOfTextsLeaveASoundImageOfAMidRangeChip) {
  FeedTexts("PIC16F84A", 84, 3000);
}
TEST(HexRobustness, ThousandsOfTextsLeaveASoundImageOfAMidRangeChipWithTwoConfigurationWords) {
  FeedTexts("PIC16F88", 88, 1000);
}

/// Well-formed files against a model that keeps bytes by their addresses.
TEST(HexRobustness, RandomWellFormedFilesArriveByteForByte) {
  HexDesk desk("PIC18F1320");
  constexpr int FlashBytes = 8192;
  constexpr int EepromBytes = 256;
  Random random(1320);
  for (int round = 0; round < 100; ++round) {
    std::vector<std::string> flash(FlashBytes, "FF");
    std::vector<std::string> eeprom(EepromBytes, "FF");
    std::string text;
    for (int i = 0; i < 30; ++i) {
      const bool toFlash = Below(random, 3) > 0;
      std::vector<std::string>& memory = toFlash ? flash : eeprom;
      // Whole words: the high byte behind an odd end is FF, whatever was there before.
      const int bytes = toFlash ? 2 * (1 + Below(random, 20)) : 1 + Below(random, 40);
      int place = Below(random, memory.size() - static_cast<std::size_t>(bytes) + 1);
      if (toFlash) place &= ~1;
      const std::string data = RandomData(random, bytes);
      for (int k = 0; k < bytes; ++k) {
        memory[static_cast<std::size_t>(place + k)] = data.substr(static_cast<std::size_t>(2 * k), 2);
      }
      text += (toFlash ? Ela(0) : Ela(0xF0)) + Rec(place, 0, data);
    }
    ASSERT_EQ(desk.Load(text + EndRecord), Lines{});
    for (std::size_t word = 0; word < FlashBytes / 2; ++word) {
      ASSERT_EQ(desk.Word(static_cast<int>(word)), flash[2 * word + 1] + flash[2 * word]) << word;
    }
    for (std::size_t byte = 0; byte < EepromBytes; ++byte) {
      ASSERT_EQ(desk.Byte(static_cast<int>(byte)), eeprom[byte]) << byte;
    }
    ASSERT_TRUE(desk.CellsAreSound());
  }
}

/// A file of `size` bytes that takes no room on the disk behind its first bytes.
std::string SparseFile(const HexDesk& desk, std::string_view begin, std::uintmax_t size) {
  desk.session.Folder().Write("large.hex", begin);
  std::filesystem::resize_file(desk.session.Folder().File("large.hex"), size);
  return desk.session.Folder().File("large.hex");
}

constexpr std::uintmax_t Gigabyte = 1'000'000'000;

TEST(HexRobustness, AGigabyteOfGarbageEndsInTheFormatMessage) {
  HexDesk desk("PIC18F1220");
  EXPECT_EQ(desk.LoadPath(SparseFile(desk, "garbage\n", Gigabyte)), Lines{NotHexFormat});
  EXPECT_TRUE(desk.IsErased());
}

TEST(HexRobustness, AShortTextWithoutALineBreakHoldsNoLine) {
  HexDesk desk("PIC16F84A");
  EXPECT_EQ(desk.LoadPath(SparseFile(desk, ":", 60'000'000)), Lines{});
  EXPECT_TRUE(desk.IsErased());
}

TEST(HexRobustness, AHundredMegabytesWithoutALineBreakAreNoFileOfThisKind) {
  HexDesk desk("PIC16F84A");
  EXPECT_EQ(desk.LoadPath(SparseFile(desk, ":", Gigabyte / 10)), Lines{UnknownFileFault});
  EXPECT_TRUE(desk.IsErased());
}

TEST(HexRobustness, ALineOfAHundredMegabytesIsAMalformedRecord) {
  HexDesk desk("PIC18F1220");
  const std::string path = SparseFile(desk, ":", Gigabyte / 10);
  std::ofstream(path, std::ios::app) << '\n';
  EXPECT_EQ(desk.LoadPath(path), Lines{NotForThisChip});
  EXPECT_TRUE(desk.IsErased());
}

TEST(HexRobustness, AHundredMegabytesOfLineBreaksEndInTheFormatMessageAtOnce) {
  HexDesk desk("PIC18F1220");
  const std::string path = desk.session.Folder().File("breaks.hex");
  {
    std::ofstream file(path, std::ios::binary);
    const std::string million(1'000'000, '\n');
    for (int i = 0; i < 100; ++i) file << million;
  }
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(desk.LoadPath(path), Lines{NotHexFormat});
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  EXPECT_TRUE(desk.IsErased());
}

}  // namespace
}  // namespace zelvo::test
