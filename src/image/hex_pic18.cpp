// The PIC18 parser. A record's place is judged by a value in which the 16-bit address counts half and the
// extended addresses count whole; the tests below are limits of that value.
#include <cmath>
#include <cstdint>
#include <string>

#include "devices/config_masks.h"
#include "icsp/conversions.h"
#include "image/buffers.h"
#include "image/fills.h"
#include "image/hex_load.h"
#include "image/hex_store.h"
#include "image/views.h"
#include "link/event_log.h"
#include "link/numbers.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "platform/seams.h"

namespace zelvo::image {

using panel::Form1;

namespace {

constexpr double FlashEnd = 0x1FFFFF;
constexpr double IdEnd = 0x200008;
constexpr double ConfigBegin = 0x2FFFFF;
constexpr double ConfigEnd = 0x30000E;
constexpr double EepromBegin = 0xF00000;

/// State of one parse. The extended addresses stay in force until the next record of their type; neither
/// resets the other.
struct Parse {
  std::int32_t ela = 0;
  std::int32_t esa = 0;
  bool configResetDone = false;

  /// Whole address of a record's first byte; wider than its parts, whose sum may pass 32 bits.
  [[nodiscard]] std::int64_t ByteAddress(const Record& record) const {
    return std::int64_t{record.Address()} + ela + esa;
  }
};

struct Question {
  panel::Window& window;
  const char* text;
  const char* yesLine;
  const char* noLine;
};

/// Asks whether edited values may go; `edited` is cleared by a Yes.
void AskOverwrite(const Question& question, int& edited) {
  question.window.Unload();
  question.window.Load();
  const bool yes = platform::seams.dialogs->AskYesNo(question.text);
  OverwriteAccepted = yes ? 1 : 0;
  link::LogEvent(Form1.List1, yes ? question.yesLine : question.noLine);
  if (yes) edited = 0;
  question.window.Unload();
}

void ResetIds() {
  FillIdErased();
  ResetIdLabels();
}

void StoreIdByte(const Record& record, size_t position, int element) {
  const std::string digits = record.Pair(position);
  if (digits == ErasedByte || OverwriteAccepted != 1) return;
  IdBuffer.at(static_cast<size_t>(element)) = digits;
  ShowIdByte(element, digits);
}

/// Every ID record wipes what an earlier one has stored. Step `k` holds elements 2k+1 and 2k+2.
void StoreIds(const Record& record, double place) {
  OverwriteAccepted = 1;
  if (IdEdited == 1) {
    AskOverwrite({panel::FelülDialog, "Felülírjam a szerkesztett ID Location bájtokat?",
                  ":  ID Location Felülírva.", ":  ID Location Nem lett felülírva."},
                 IdEdited);
  }
  if (IdEdited == 0) ResetIds();
  const int firstStep = static_cast<int>(static_cast<long>(std::nearbyint(place)) & 255);
  if (firstStep > 3) return;
  int consumed = 0;
  for (int element = 2 * firstStep + 1; element <= 8 && consumed < record.Count(); ++element, ++consumed) {
    StoreIdByte(record, DataPosition + 2 * static_cast<size_t>(consumed), element);
  }
}

void StoreConfigByte(const std::string& digits, int index) {
  int value = 0;
  icsp::HexPairToValue(digits, value);
  icsp::ByteToSpacedBits(value);
  devices::ClearConfigList(index - 1);
  devices::AddConfigLine(index - 1, icsp::ConvertedBits);
  ConfigBitStrings.at(static_cast<size_t>(index)) = icsp::ConvertedBits;
  ConfigBuffer.at(static_cast<size_t>(index)) = digits;
}

void StoreConfig(const Record& record, Parse& parse) {
  OverwriteAccepted = 1;
  if (ConfigEdited == 1) {
    AskOverwrite({panel::ConfFelülír, "Felülírjam a szerkesztett Config bájtokat?",
                  ":  Config Bájtok Felülírva.", ":  Config Bájtok Nem lettek felülírva."},
                 ConfigEdited);
  }
  if (OverwriteAccepted != 1) return;
  if (!parse.configResetDone) {
    FillConfigErased();
    ApplyMaskSet();
    parse.configResetDone = true;
  }
  const int base = static_cast<int>(parse.ByteAddress(record) & 255);
  size_t position = DataPosition;
  for (int i = 1; i <= record.Count(); ++i, position += 2) {
    const int index = base + i;
    if (devices::ConfigFlags.at(static_cast<size_t>(index)) == "I")
      StoreConfigByte(record.Pair(position), index);
  }
}

void StoreData(const Record& record, Parse& parse) {
  const double half = record.Address() / 2.0;
  const double place = half + parse.ela + parse.esa;
  if (place > FlashEnd && place < IdEnd) {
    StoreIds(record, place);
  } else if (place > ConfigBegin && place < ConfigEnd) {
    StoreConfig(record, parse);
  } else if (place >= EepromBegin) {
    const int index = static_cast<int>(parse.ByteAddress(record) & 0xFFFF);
    StoreEeprom(record, index, 1, Form1.MSFlexGrid2, "  ");
  } else if (place <= FlashEnd) {
    StoreFlash(record, half + parse.ela / 2.0 + parse.esa / 2.0, Form1.MSFlexGrid1);
  }
}

}  // namespace

void ParseHexPic18() {
  Parse parse;
  WalkRecords(
      [&parse](std::string_view, const Record& record) {
        if (record.Type() == "04") {
          parse.ela = record.Number(DataPosition, 4, "0000");
        } else if (record.Type() == "02") {
          parse.esa = record.Number(DataPosition, 4, "0");
        } else if (record.Count() > 0) {
          StoreData(record, parse);
        }
        return true;
      },
      [](std::string_view line) { return line == ":00000001FF"; });
}

}  // namespace zelvo::image
