// The scripts themselves. Each row is the first index and the transactions in order, as in the chips'
// programming specifications (DS39576, DS39583, DS39622): "0000" is a core instruction with its word low byte
// first.
#include <string_view>

#include "icsp/scripts.h"

namespace zelvo::icsp {
namespace {

struct Stretch {
  int first;
  std::string_view elements;  ///< elements parted by blanks, transactions by a slash
};

constexpr Stretch Stretches[] = {
    // MOVLW/MOVWF of TBLPTRU, TBLPTRH, TBLPTRL
    {1, "0000 TCU 0E/0000 F8 6E/0000 TCH 0E/0000 F7 6E/0000 TCL 0E/0000 F6 6E"},
    // Row erase of 64 bytes with the unlock sequence
    {51,
     "0000 A6 8E/0000 A6 9C/0000 TCU 0E/0000 F8 6E/0000 TCH 0E/0000 F7 6E/0000 TCL 0E/0000 F6 6E/"
     "0000 A6 84/0000 A6 88/0000 55 0E/0000 A7 6E/0000 AA 0E/0000 A7 6E/0000 A6 82/0000 00 00"},
    // ID write with a row erase before it
    {101,
     "0000 A6 8E/0000 A6 9C/0000 TCU 0E/0000 F8 6E/0000 TCH 0E/0000 F7 6E/0000 TCL 0E/0000 F6 6E/"
     "0000 A6 84/0000 A6 88/0000 55 0E/0000 A7 6E/0000 AA 0E/0000 A7 6E/0000 A6 82/0000 00 00/0000 A6 94/"
     "0000 TCH 0E/0000 F7 6E/0000 TCL 0E/0000 F6 6E/1101 DA1 DA0/1101 DA3 DA2/1101 DA5 DA4/1111 DA7 DA6/"
     "NOP L L"},
    // Configuration write from 300000h
    {201,
     "0000 A6 8E/0000 A6 8C/0000 00 EF/0000 00 F8/0000 30 0E/0000 F8 6E/0000 00 0E/0000 F7 6E/0000 00 0E/"
     "0000 F6 6E/"
     "1111 C1L C1L/0000 00 00/0000 F6 2A/1111 C1H C1H/0000 00 00/0000 F6 2A/"
     "1111 C2L C2L/0000 00 00/0000 F6 2A/1111 C2H C2H/0000 00 00/0000 F6 2A/"
     "1111 C3L C3L/0000 00 00/0000 F6 2A/1111 C3H C3H/0000 00 00/0000 F6 2A/"
     "1111 C4L C4L/0000 00 00/0000 F6 2A/1111 C4H C4H/0000 00 00/0000 F6 2A/"
     "1111 C5L C5L/0000 00 00/0000 F6 2A/1111 C5H C5H/0000 00 00/0000 F6 2A/"
     "1111 C6L C6L/0000 00 00/0000 F6 2A/1111 C6H C6H/0000 00 00/0000 F6 2A/"
     "1111 C7L C7L/0000 00 00/0000 F6 2A/1111 C7H C7H/NOP H L"},
    // Bulk erase, one code at 3C0004h
    {401, "0000 3C 0E/0000 F8 6E/0000 00 0E/0000 F7 6E/0000 04 0E/0000 F6 6E/1100 COD 00/0000 00 00/NOP L L"},
    // Single-panel write mode: 0 to 3C0006h
    {451,
     "0000 A6 8E/0000 A6 8C/0000 3C 0E/0000 F8 6E/0000 00 0E/0000 F7 6E/0000 06 0E/0000 F6 6E/1100 00 00"},
    // EEPROM write, low address only; the blank transaction would be element 543, one element long
    {501,
     "0000 A6 9E/0000 A6 9C/0000 ECM 0E/0000 A9 6E/0000 EDA 0E/0000 A8 6E/0000 A6 84/0000 55 0E/0000 A7 6E/"
     "0000 AA 0E/0000 A7 6E/0000 A6 82/0000 A6 50/0000 F5 6E"},
    {544, "0000 A6 94"},
    // EEPROM read, low address only
    {551, "0000 A6 9E/0000 A6 9C/0000 ECM 0E/0000 A9 6E/0000 A6 80/0000 A8 50/0000 F5 6E/0000 00 00"},
    // EEPROM read, both address bytes
    {601,
     "0000 A6 9E/0000 A6 9C/0000 ECM 0E/0000 A9 6E/0000 ECH 0E/0000 AA 6E/0000 A6 80/0000 A8 50/0000 F5 6E/"
     "0000 00 00"},
    // EEPROM write, both address bytes
    {701,
     "0000 A6 9E/0000 A6 9C/0000 ECM 0E/0000 A9 6E/0000 ECH 0E/0000 AA 6E/0000 EDA 0E/0000 A8 6E/0000 A6 84/"
     "0000 55 0E/0000 A7 6E/0000 AA 0E/0000 A7 6E/0000 A6 82/0000 A6 50/0000 F5 6E/0000 A6 94"},
    // Flash panel: access and table pointer
    {801, "0000 A6 8E/0000 A6 9C/0000 TCU 0E/0000 F8 6E/0000 TCH 0E/0000 F7 6E/0000 TCL 0E/0000 F6 6E"},
    // Direct Flash write: stored, run by no operation
    {851, "0000 A6 9C/0000 A6 84"},
    // EEPROM write without unlock, both address bytes
    {901,
     "0000 A6 9E/0000 A6 9C/0000 ECM 0E/0000 A9 6E/0000 ECH 0E/0000 AA 6E/0000 EDA 0E/0000 A8 6E/0000 A6 84/"
     "0000 A6 82"},
    {943, "0000 A6 50/0000 F5 6E/0000 00 00/0000 A6 94"},
    // Bulk erase, two codes at 3C0005h and 3C0004h
    {1001,
     "0000 3C 0E/0000 F8 6E/0000 00 0E/0000 F7 6E/0000 05 0E/0000 F6 6E/1100 CO1 CO1/"
     "0000 3C 0E/0000 F8 6E/0000 00 0E/0000 F7 6E/0000 04 0E/0000 F6 6E/1100 CO2 CO2/0000 00 00/NOP L L"},
    // Row erase without unlock: stored, run by no operation
    {1101,
     "0000 A6 8E/0000 A6 9C/0000 TCU 0E/0000 F8 6E/0000 TCH 0E/0000 F7 6E/0000 TCL 0E/0000 F6 6E/0000 A6 84/"
     "0000 A6 88/0000 A6 82/0000 00 00"},
    // ID write with a row erase without unlock
    {1201,
     "0000 A6 8E/0000 A6 9C/0000 TCU 0E/0000 F8 6E/0000 TCH 0E/0000 F7 6E/0000 TCL 0E/0000 F6 6E/0000 A6 84/"
     "0000 A6 88/0000 A6 82/NOP H L/0000 TCH 0E/0000 F7 6E/0000 TCL 0E/0000 F6 6E/1101 DA1 DA0/"
     "1101 DA3 DA2/1101 DA5 DA4/1111 DA7 DA6/NOP H L/0000 A6 94"},
    // Row erase without unlock, ended by the pulse
    {1301,
     "0000 A6 8E/0000 A6 9C/0000 TCU 0E/0000 F8 6E/0000 TCH 0E/0000 F7 6E/0000 TCL 0E/0000 F6 6E/0000 A6 84/"
     "0000 A6 88/0000 A6 82/NOP H L/0000 A6 94"},
};

}  // namespace

void FillScriptTable() {
  for (const Stretch& stretch : Stretches) {
    auto index = static_cast<size_t>(stretch.first);
    std::string_view rest = stretch.elements;
    while (!rest.empty()) {
      const size_t end = rest.find_first_of(" /");
      ScriptTable.at(index++) = rest.substr(0, end);
      rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
    }
  }
}

}  // namespace zelvo::icsp
