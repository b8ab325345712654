#include "image/hex_save.h"

#include <string_view>

#include "devices/selection.h"
#include "icsp/conversions.h"
#include "image/buffers.h"
#include "image/views.h"

namespace zelvo::image {
namespace {

constexpr int Columns = 8;
constexpr std::string_view LineEnd = "\r\n";

/// A data record. `address` counts from the last extended address.
void AppendRecord(std::string& file, int address, std::string_view data) {
  const auto count = static_cast<int>(data.size() / 2);
  int sum = count + (address >> 8 & 0xFF) + (address & 0xFF);
  for (size_t i = 0; i + 1 < data.size(); i += 2) {
    int value = 0;
    icsp::HexPairToValue(data.substr(i, 2), value);
    sum += value;
  }
  file += ':';
  file += icsp::HexPadded(static_cast<std::uint32_t>(count), 2);
  file += icsp::HexPadded(static_cast<std::uint32_t>(address), 4);
  file += "00";
  file += data;
  file += icsp::HexPadded(static_cast<std::uint32_t>(-sum & 0xFF), 2);
  file += LineEnd;
}

void AppendLine(std::string& file, std::string_view line) {
  file += line;
  file += LineEnd;
}

void AppendFlash(std::string& file) {
  const int rows = RowsOf(devices::FlashWordMax);
  for (int row = 1; row <= rows; ++row) {
    std::string data;
    for (int column = 1; column <= Columns; ++column) {
      const std::string_view word = MainBuffer(column, row);
      data += word.substr(2, 2);
      data += word.substr(0, 2);
    }
    AppendRecord(file, (row - 1) * 2 * Columns, data);
  }
}

void AppendEeprom(std::string& file) {
  const int lines = (devices::EepromMax + 1) / (2 * Columns);
  for (int line = 0; line < lines; ++line) {
    std::string data;
    for (int byte = 0; byte < 2 * Columns; ++byte) {
      data += EepromBuffer(byte % Columns + 1, 2 * line + byte / Columns + 1).View();
    }
    AppendRecord(file, line * 2 * Columns, data);
  }
}

/// Elements 1 to the last. One that was never filled is erased; one with a single digit is a small number.
template <class Bytes>
void AppendBytes(std::string& file, const Bytes& bytes) {
  std::string data;
  for (size_t i = 1; i < bytes.size(); ++i) {
    std::string byte = bytes[i].empty() ? std::string(ErasedByte) : bytes[i];
    icsp::PadHex2(byte);
    data += byte;
  }
  AppendRecord(file, 0, data);
}

template <class Buffer>
std::string CellLines(const Buffer& buffer, int highest) {
  std::string file;
  const int rows = RowsOf(highest);
  for (int row = 1; row <= rows; ++row) {
    for (int column = 1; column <= Columns; ++column) AppendLine(file, buffer(column, row));
  }
  return file;
}

}  // namespace

std::string IntelHexText() {
  std::string file;
  AppendLine(file, ":020000040000FA");
  AppendFlash(file);
  AppendLine(file, ":020000040020DA");
  AppendBytes(file, IdBuffer);
  AppendLine(file, ":020000040030CA");
  AppendBytes(file, ConfigBuffer);
  AppendLine(file, ":0200000400F00A");
  AppendEeprom(file);
  AppendLine(file, ":00000001FF");
  return file;
}

std::string MchFlashText() {
  return CellLines(MainBuffer, devices::FlashWordMax);
}
std::string MchEepromText() {
  return CellLines(EepromBuffer, devices::EepromMax);
}

}  // namespace zelvo::image
