// The wire log of the PIC18's data EEPROM operations, from what the chip is to be told and how long it takes,
// and which chip belongs to which of the three ways.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "operations.h"
#include "support/wire_model.h"

namespace zelvo::test {

/// Small: one address byte, unlock sequence. Panel: two, unlock sequence. Newer: two, no unlock sequence and
/// an erase by two keys. None: no data EEPROM.
enum class EepromGroup { Small, Panel, Newer, None };

struct EepromChip {
  std::string_view number;  ///< behind "PIC18F"
  EepromGroup group;

  [[nodiscard]] std::string Name() const { return "PIC18F" + std::string(number); }
};
/// All 72.
[[nodiscard]] const std::vector<EepromChip>& EepromChips();

/// Bytes of the EEPROM from address 0 on; a multiple of 8.
using EepromBytes = std::vector<int>;
constexpr int ErasedByte = 0xFF;

/// What EECON1 reads, so many microseconds after WR was set.
using Eecon1 = std::function<int(long long)>;
/// A chip that writes for 4 ms: WR stands beside WREN meanwhile.
[[nodiscard]] int WritingChip(long long microseconds);
/// The line floats high.
[[nodiscard]] int EmptySocket(long long microseconds);

/// One erase, power included.
void AddEepromErase(WireModel& model, EepromGroup group);
/// One byte of a read, without the bar.
void AddEepromReadByte(WireModel& model, EepromGroup group, int address, int value);
/// One byte of a write, without the bar: its elements, the polls, the end.
void AddEepromWriteByte(WireModel& model, const BoardKind& kind, EepromGroup group, int address, int value,
                        const Eecon1& eecon1);

/// A whole read that opens the review; its first log line is numbered `event`, edges wait `passes`.
void AddEepromRead(WireModel& model, EepromGroup group, int event, const EepromBytes& bytes);
/// A whole write from the erase on, at `setting` passes of the speed setting.
void AddEepromWrite(WireModel& model, const BoardKind& kind, EepromGroup group, long long setting, int event,
                    const EepromBytes& bytes, const Eecon1& eecon1);

/// Puts a chip's name into the combo without choosing it, with an EEPROM cut down to `bytes`.
void TakeEeprom(const std::string& name, const EepromBytes& bytes);
/// The chip goes into the socket with `bytes` in its EEPROM.
void SocketEeprom(BenchSession& session, const std::string& name, const EepromBytes& bytes);
[[nodiscard]] int NextEvent(BenchSession& session);
[[nodiscard]] int Count(const Lines& log, std::string_view line);

}  // namespace zelvo::test
