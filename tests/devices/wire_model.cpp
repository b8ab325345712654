#include "wire_model.h"

#include <cstdio>
#include <regex>

namespace zelvo::test {
namespace {

constexpr int LptBase = 0x378;
constexpr int ComBase = 0x3F8;

std::string Access(char kind, int address, int value) {
  char text[16];
  std::snprintf(text, sizeof text, "%c %04X %02X", kind, static_cast<unsigned>(address),
                static_cast<unsigned>(value));
  return text;
}

}  // namespace

Settings Wiring::SettingsFiles() const {
  Settings settings;
  settings.port = com ? "&H3F8,COM" : "&H378,LPT";
  settings.pins = busy ? "4,8,1,2,0" : "4,8,1,2,1";
  // The port hardware inverts BUSY, and the operator sets that in the file.
  const int flags = busy ? inverted ^ 16 : inverted;
  (com ? settings.comInvert : settings.invert) = std::to_string(flags);
  return settings;
}

std::string Wiring::BoardCommand() const {
  struct Name {
    int lpt, com;
    const char* lptName;
    const char* comName;
  };
  static const Name Names[] = {{1, 0, "vdd", ""},
                               {2, 8, "vpp", "vpp"},
                               {4, 2, "clock", "pgc"},
                               {8, 1, "data", "pgd"},
                               {16, 4, "input", "input"}};
  std::string list;
  for (const Name& name : Names) {
    if ((inverted & (com ? name.com : name.lpt)) == 0) continue;
    list += (list.empty() ? "" : ",") + std::string(com ? name.comName : name.lptName);
  }
  return std::string(com ? "board com" : "board lpt") + (busy ? " input=busy" : "") +
         (list.empty() ? "" : " inverted=" + list);
}

WireModel::WireModel(const Wiring& wiring, int passes)
    : wiring_(wiring),
      passes_(passes),
      addresses_{wiring.com ? ComBase + 4 : LptBase, wiring.com ? ComBase + 3 : LptBase} {
  for (const Wire wire : {Wire::Vdd, Wire::Vpp, Wire::Clock, Wire::Data}) Shape(wire, false);
}

bool WireModel::Inverted(Wire wire) const {
  // On the serial port supply and data are one line, with one flag.
  const int lpt[] = {1, 2, 4, 8};
  const int com[] = {1, 8, 2, 1};
  return (wiring_.inverted & (wiring_.com ? com : lpt)[static_cast<int>(wire)]) != 0;
}

int WireModel::Bit(Wire wire) const {
  const int lpt[] = {4, 8, 2, 1};
  const int com[] = {1, 64, 2, 1};
  return (wiring_.com ? com : lpt)[static_cast<int>(wire)];
}

void WireModel::Read(int reg) {
  Line(Access('R', addresses_[reg], registers_[reg]));
}
void WireModel::Write(int reg) {
  Line(Access('W', addresses_[reg], registers_[reg]));
}

void WireModel::Shape(Wire wire, bool level) {
  int& value = registers_[Register(wire)];
  value = level != Inverted(wire) ? value | Bit(wire) : value & ~Bit(wire);
}

void WireModel::Change(Wire wire, bool level) {
  Read(Register(wire));
  Shape(wire, level);
  Write(Register(wire));
}

void WireModel::Wait() {
  Line("P " + std::to_string(passes_));
}

void WireModel::PowerOff() {
  if (wiring_.com) {
    for (const Wire wire : {Wire::Data, Wire::Clock, Wire::Vpp}) Change(wire, false);
    return;
  }
  Read(0);
  for (const Wire wire : {Wire::Vdd, Wire::Vpp, Wire::Data, Wire::Clock}) Shape(wire, false);
  Write(0);
}

void WireModel::PowerOn() {
  PowerOff();
  Settle();
  if (wiring_.com) {
    Change(Wire::Vdd, true);
    Settle();
    PowerOff();
    Change(Wire::Vpp, true);
    Settle();
    return;
  }
  Read(0);
  for (const Wire wire : {Wire::Vdd, Wire::Vpp}) {
    Shape(wire, true);
    Write(0);
    Settle();
  }
}

void WireModel::Out(std::string_view bits) {
  for (auto bit = bits.rbegin(); bit != bits.rend(); ++bit) {
    Change(Wire::Data, *bit == '1');
    for (const bool level : {true, false}) {
      Shape(Wire::Clock, level);
      Write(0);
      Wait();
    }
  }
}

void WireModel::In(int value, int bits) {
  Change(Wire::Data, true);
  Wait();
  for (int i = 0; i < bits; ++i) {
    Shape(Wire::Clock, true);
    Write(0);
    Wait();
    Shape(Wire::Clock, false);
    Write(0);
    const bool high = ((value >> i) & 1) != 0;
    const bool inputInverted = (wiring_.inverted & (wiring_.com ? 4 : 16)) != 0;
    const bool pin = high != inputInverted;
    if (wiring_.com) {
      Line(Access('R', ComBase + 6, pin ? 16 : 0));
    } else if (wiring_.busy) {
      Line(Access('R', LptBase + 1, pin ? 0 : 128));
    } else {
      Line(Access('R', LptBase + 1, pin ? 64 : 0));
    }
    Wait();
  }
}

void WireModel::ScriptElement(std::string_view bits) {
  Out(bits);
  for (int i = 0; i < 3; ++i) Wait();
}

void WireModel::TablePointer(std::string_view upper, std::string_view high, std::string_view low) {
  // MOVLW with the byte, then MOVWF TBLPTRU (6EF8h), TBLPTRH (6EF7h), TBLPTRL (6EF6h); low byte first.
  const std::string_view bytes[] = {upper, high, low};
  const std::string_view pointers[] = {"11111000", "11110111", "11110110"};
  for (int i = 0; i < 3; ++i) {
    ScriptElement("0000");
    ScriptElement(bytes[i]);
    ScriptElement("00001110");
    ScriptElement("0000");
    ScriptElement(pointers[i]);
    ScriptElement("01101110");
  }
}

void WireModel::TableReads(int first, int second) {
  for (const int byte : {first, second}) {
    Out("1001");
    Out("0000");
    Out("0000");
    In(byte);
  }
}

void WireModel::Event(const std::string& list, int number, const std::string& text) {
  Line("L " + list + " " + std::to_string(number) + ":  TIME" + text);
}

Lines WithoutTimes(Lines log) {
  static const std::regex time("\\d\\d:\\d\\d:\\d\\d");
  for (std::string& line : log) {
    if (line.starts_with("L "))
      line = std::regex_replace(line, time, "TIME", std::regex_constants::format_first_only);
  }
  return log;
}

}  // namespace zelvo::test
