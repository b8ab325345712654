#include "support/wire_model.h"

#include <algorithm>
#include <cstdio>
#include <regex>

namespace zelvo::test {
namespace {

// Printer port: bits of the data register, ACK in the status register behind it. Serial port: DTR is data and
// supply, RTS the clock, both at base+4; break at base+3 is Vpp; CTS at base+6 the input.
constexpr int LptBase = 0x378, ComBase = 0x3F8;
constexpr int LptData = 1, LptClock = 2, LptVdd = 4, LptVpp = 8, LptAck = 0x40;
constexpr int ComDtr = 1, ComRts = 2, ComBreak = 0x40, ComCts = 0x10;
constexpr int LineControl = 3, ModemControl = 4, ModemStatus = 6, Status = 1;

std::string PortLine(char kind, int address, int value) {
  char text[16];
  std::snprintf(text, sizeof text, "%c %04X %02X", kind, static_cast<unsigned>(address),
                static_cast<unsigned>(value));
  return text;
}

std::string Bits(int value, int count) {
  std::string text;
  for (int bit = count - 1; bit >= 0; --bit) text += (value >> bit & 1) != 0 ? '1' : '0';
  return text;
}

}  // namespace

Lines WithoutTimes(Lines log) {
  static const std::regex time("^(L \\w+ \\d+:  )\\d\\d:\\d\\d:\\d\\d(: )");
  for (std::string& line : log) {
    if (line.starts_with("L ")) line = std::regex_replace(line, time, "$1TIME$2");
  }
  return log;
}

void WireModel::Line(std::string line) {
  // A port access and a pass of the pump take 1 us each, a short held pause 20 us.
  if (line[0] == 'W' || line[0] == 'R' || line[0] == 'B') microseconds_ += 1;
  if (line[0] == 'P') microseconds_ += passes_;
  if (line == "D szün") microseconds_ += 20;
  log_.push_back(std::move(line));
}

void WireModel::Event(int number, std::string_view text, std::string_view list) {
  Line("L " + std::string(list) + " " + std::to_string(number) + ":  TIME" + std::string(text));
}

void WireModel::Wait(int count) {
  for (int i = 0; i < count; ++i) Line("P " + std::to_string(passes_));
}

void WireModel::Write(int offset, int value) {
  Line(PortLine('W', (kind_.com ? ComBase : LptBase) + offset, value));
}

void WireModel::Read(int offset) {
  const int value = !kind_.com ? data_ : offset == LineControl ? line_ : modem_;
  Line(PortLine('R', (kind_.com ? ComBase : LptBase) + offset, value));
}

void WireModel::ReadInput(bool high) {
  const int bit = kind_.com ? ComCts : LptAck;
  Line(PortLine('R', (kind_.com ? ComBase + ModemStatus : LptBase + Status), high != kind_.input ? bit : 0));
}

void WireModel::SetBit(int& reg, int bit, bool level, bool inverted) const {
  reg = level != inverted ? reg | bit : reg & ~bit;
}

void WireModel::Data(bool level) {
  SetBit(Output(), kind_.com ? ComDtr : LptData, level, kind_.data);
  Write(OutputOffset(), Output());
}

void WireModel::Clock(bool level) {
  SetBit(Output(), kind_.com ? ComRts : LptClock, level, kind_.clock);
  Write(OutputOffset(), Output());
}

void WireModel::Idle() {
  SetBit(data_, LptVdd, false, kind_.vdd);
  SetBit(data_, LptVpp, false, kind_.vpp);
  SetBit(data_, LptData, false, kind_.data);
  SetBit(data_, LptClock, false, kind_.clock);
  SetBit(modem_, ComDtr, false, kind_.data);
  SetBit(modem_, ComRts, false, kind_.clock);
  SetBit(line_, ComBreak, false, kind_.vpp);
}

void WireModel::PowerOff() {
  if (!kind_.com) {
    Read(0);
    Idle();
    Write(0, data_);
    return;
  }
  Read(ModemControl);
  Data(false);
  Read(ModemControl);
  Clock(false);
  Read(LineControl);
  SetBit(line_, ComBreak, false, kind_.vpp);
  Write(LineControl, line_);
}

void WireModel::PowerOn() {
  PowerOff();
  Line("D settle");
  if (!kind_.com) {
    Read(0);
    Write(0, data_ ^= LptVdd);
    Line("D settle");
    Write(0, data_ ^= LptVpp);
  } else {
    Read(ModemControl);
    Data(true);
    Line("D settle");
    PowerOff();
    Read(LineControl);
    SetBit(line_, ComBreak, true, kind_.vpp);
    Write(LineControl, line_);
  }
  Line("D settle");
}

void WireModel::ClockAndDataToRest() {
  Read(OutputOffset());
  if (kind_.com) {
    Data(false);
    Read(ModemControl);
    Clock(false);
    return;
  }
  SetBit(data_, LptData, false, kind_.data);
  SetBit(data_, LptClock, false, kind_.clock);
  Write(0, data_);
}

void WireModel::Out(std::string_view bits) {
  for (auto bit = bits.rbegin(); bit != bits.rend(); ++bit) {
    Read(OutputOffset());
    Data(*bit == '1');
    Clock(true);
    Wait();
    Clock(false);
    Wait();
  }
}

void WireModel::OutByte(int value) {
  Out(Bits(value, 8));
}

void WireModel::Frame(std::string_view command, int payload) {
  Out(command);
  OutByte(payload & 0xFF);
  OutByte(payload >> 8);
}

void WireModel::ReadByte(int value) {
  Out("1001");
  Wait();
  Out("0000");
  Out("0000");
  InByte(value);
}

void WireModel::In(int value, int bits) {
  Read(OutputOffset());
  Data(true);
  Wait();
  for (int bit = 0; bit < bits; ++bit) {
    Clock(true);
    Wait();
    Clock(false);
    ReadInput((value >> bit & 1) != 0);
    Wait();
  }
}

void WireModel::Pulse() {
  Wait();
  Read(OutputOffset());
  Data(false);
  Wait();
  for (int clock = 1; clock <= 3; ++clock) {
    Clock(true);
    Wait();
    Clock(false);
    Wait();
  }
  Clock(true);
  Wait();
  Line("S9");
  Line("S9");
  Read(OutputOffset());
  Clock(false);
  Wait();
  Line("S9");
  OutByte(0);
  OutByte(0);
}

void WireModel::Core(std::initializer_list<int> words) {
  for (const int word : words) Frame("0000", word);
}

void WireModel::HeldCore(std::initializer_list<int> words) {
  for (const int word : words) {
    Out("0000");
    Line("D szün");
    OutByte(word & 0xFF);
    Line("D szün");
    OutByte(word >> 8);
    Line("D szün");
  }
}

void WireModel::SetPointer(int address) {
  Core({0x0E00 | (address >> 16 & 0xFF), 0x6EF8, 0x0E00 | (address >> 8 & 0xFF), 0x6EF7,
        0x0E00 | (address & 0xFF), 0x6EF6});
}

void WireModel::SetPointerSlowly(int address) {
  for (const int word : {0x0E00 | (address >> 16 & 0xFF), 0x6EF8, 0x0E00 | (address >> 8 & 0xFF), 0x6EF7,
                         0x0E00 | (address & 0xFF), 0x6EF6}) {
    Out("0000");
    Wait(3);
    OutByte(word & 0xFF);
    Wait(3);
    OutByte(word >> 8);
    Wait(3);
  }
}

}  // namespace zelvo::test
