// The mid-range parser. Its integers are 16 bits wide, and an overflow counts as a file that does not fit the
// chip. Address records are not skipped: their data are walked like any other's.
#include <cmath>
#include <limits>
#include <string>

#include "icsp/conversions.h"
#include "image/buffers.h"
#include "image/hex_load.h"
#include "image/hex_store.h"
#include "image/views.h"
#include "link/numbers.h"
#include "panel/form1.h"

namespace zelvo::image {

using panel::Form1;

namespace {

constexpr int UserIdBegin = 0x2000;
constexpr int UserIdEnd = 0x2003;
constexpr int ConfigWord1Address = 0x2007;
constexpr int ConfigWord2Address = 0x2008;
constexpr int EepromBegin = 0x2100;
constexpr int FlashEnd = 0x2000;

std::int16_t Int16(long value) {
  if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max()) {
    throw RecordFault{};
  }
  return static_cast<std::int16_t>(value);
}

void StoreUserIds(const Record& record, int firstWord) {
  const int words = record.Count() / 2;
  for (int i = 0; i < words; ++i) {
    const size_t position = DataPosition + 4 * static_cast<size_t>(i);
    const auto value = link::ReadHex(record.Pair(position + 2) + record.Pair(position));
    MidIdWords.at(static_cast<size_t>(firstWord + i)) = static_cast<std::int16_t>(value.value());
  }
  for (int i = 0; i < words; ++i) ShowMidId(firstWord + i);
}

struct ConfigSlot {
  std::string& raw;
  std::string& bits;
  panel::ListBox& list;
};

/// A configuration word from four digits, high byte first.
void StoreConfigWord(const std::string& digits, const ConfigSlot& slot) {
  std::string raw;
  std::string spaced;
  for (const char digit : digits) {
    raw += icsp::HexDigitToNibble(digit);
    spaced += icsp::HexDigitToSpacedBits(digit);
  }
  slot.raw = raw;
  slot.bits = raw.size() > 2 ? raw.substr(2) : std::string();
  slot.list.Clear();
  slot.list.AddItem("  " + digits + "h  (" + spaced + ")bin");
}

void StoreConfigWord1(const Record& record) {
  StoreConfigWord(record.Pair(12) + record.Pair(10), {ConfigWord1Raw, ConfigWord1Bits, Form1.List6});
}

/// The digits lie one position below the word's own: operators' files have been read so ever since. Past the
/// end of the line there is no digit and so no text.
void StoreConfigWord2(const Record& record) {
  StoreConfigWord(record.Upper(15, 2) + record.Upper(13, 2), {ConfigWord2Raw, ConfigWord2Bits, Form1.List12});
}

void StoreData(const Record& record, int address, double word) {
  if (address >= UserIdBegin && address <= UserIdEnd) {
    StoreUserIds(record, address - UserIdBegin + 1);
  } else if (address == ConfigWord1Address) {
    StoreConfigWord1(record);
    if (record.Count() != 2) StoreConfigWord2(record);
  } else if (address == ConfigWord2Address) {
    StoreConfigWord2(record);
  } else if (address >= EepromBegin) {
    StoreEeprom(record, address & 255, 2, Form1.MSFlexGrid3, {});
  } else if (address < FlashEnd) {
    StoreFlash(record, word, Form1.MSFlexGrid4);
  }
}

}  // namespace

void ParseHexMidRange() {
  std::int16_t ela = 0;
  std::int16_t esa = 0;
  WalkRecords(
      [&](std::string_view, const Record& record) {
        const double half = record.Address() / 2.0;
        const std::int16_t addressWord = Int16(std::lrint(half));
        if (record.Type() == "04") ela = Int16(record.Number(DataPosition, 4, "0000"));
        if (record.Type() == "02") esa = Int16(record.Number(DataPosition, 4, "0"));
        const std::int16_t address = Int16(Int16(addressWord + ela) + esa);
        StoreData(record, address, half + ela / 2.0 + esa / 2.0);
        return true;
      },
      [](std::string_view) { return false; });
}

}  // namespace zelvo::image
