#include "ops18/write_burst.h"

#include <string>
#include <string_view>

#include "devices/selection.h"
#include "icsp/conversions.h"
#include "icsp/pic18_engine.h"
#include "icsp/scripts.h"
#include "image/buffers.h"

namespace zelvo::ops18 {
namespace {

void ShowAddress() {
  std::string text = icsp::HexPadded(static_cast<std::uint32_t>(RunningAddress), 1);
  icsp::PadHex6(text);
  icsp::TablePointerU = text.substr(0, 2);
  icsp::TablePointerH = text.substr(2, 2);
  icsp::TablePointerL = text.substr(4, 2);
}

void TableWrite(std::string_view command, std::string_view word) {
  icsp::ClockTransaction(command, word.substr(2, 2), word.substr(0, 2));
}

}  // namespace

void ResetAddress() {
  RunningAddress = 0;
  icsp::TablePointerU = icsp::TablePointerH = icsp::TablePointerL = "00";
}

void AdvanceAddress(int bytes) {
  RunningAddress += bytes;
  ShowAddress();
}

void RunAddressed(int scriptBase, int first, int last) {
  icsp::RunScript(scriptBase, first, last, 0, icsp::TablePointerText);
}

void WriteBurst(const BurstLayout& layout, int row, int column) {
  RunAddressed(layout.pointerScript, 7, 24);
  for (int i = 0; i < layout.words; ++i) {
    const int word = column - 1 + i;
    const bool last = i == layout.words - 1;
    TableWrite(last ? "1111" : "1101", image::MainBuffer(word % WordsPerRow + 1, row + word / WordsPerRow));
  }
  icsp::ProgramPulse();
  AdvanceAddress(2 * layout.words);
}

int FlashRows() {
  return image::RowsOf(devices::FlashWordMax);
}

}  // namespace zelvo::ops18
