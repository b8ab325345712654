#include "icsp/pic18_engine.h"

#include "icsp/conversions.h"
#include "link/delays.h"
#include "link/lines.h"
#include "panel/form1.h"

namespace zelvo::icsp {

using namespace link;  // NOLINT: the engine is written in the terms of the link

namespace {

void PgcTo(bool level) {
  ShapePgc(level);
  PortWrite();
  Vár_Ír();
}

void FlipPgcAndWait() {
  FlipPgc();
  PortWrite();
  Vár_Ír();
}

/// "Szuper lassú" lets the operator see the data-in line bit by bit.
void ShowDataIn() {
  const auto output = PortLast;
  AddressInput();
  PortRead();
  const bool lit = ((PortLast & InputBit()) != 0) != InputLineInverted();
  panel::Form1.Shape3.FillColor = lit ? panel::Green : panel::Grey;
  panel::Form1.Shape4.FillColor = lit ? panel::Green : panel::Grey;
  AddressOutput();
  PortLast = output;
}

}  // namespace

void ClockOutBits(std::string_view bits) {
  BitString = bits;
  if (!AddressOutput()) return;
  // A handler that runs inside the waits may convert and clock texts of its own: walk a copy.
  const std::string walked(bits);
  for (auto bit = walked.rbegin(); bit != walked.rend(); ++bit) {
    PortRead();
    ShapePgd(*bit == '1');
    PortWrite();
    if (panel::Form1.Check10.Value) ShowDataIn();
    PgcTo(true);
    PgcTo(false);
  }
}

bool ReleaseData() {
  if (!AddressOutput()) return false;
  PortRead();
  ShapePgd(true);
  PortWrite();
  Vár_Ír();
  return true;
}

int ClockInRaw() {
  FlipPgcAndWait();
  FlipPgc();
  PortWrite();
  AddressInput();
  PortRead();
  const int sample = PortLast & InputBit();
  AddressOutput();
  Vár_Ír();
  return sample;
}

int ClockInBits() {
  if (!ReleaseData()) return 0;
  int value = 0;
  for (size_t i = 1; i <= 8; ++i) BitSamples[i] = ClockInRaw();
  for (size_t i = 1; i <= 8; ++i) {
    if (BitSamples[i] == 0) value += 1 << (i - 1);
  }
  return InputLineInverted() ? value : value ^ 255;
}

void ProgramClockStart() {
  Vár_Ír();
  if (!AddressOutput()) return;
  PortRead();
  ShapePgd(false);
  PortWrite();
  Vár_Ír();
  for (int pass = 0; pass < 3; ++pass) {
    if (ComMode) {
      FlipPgcAndWait();
      FlipPgcAndWait();
    } else {
      PgcTo(true);
      PgcTo(false);
    }
  }
  if (ComMode) {
    FlipPgcAndWait();
  } else {
    PgcTo(true);
  }
}

void ProgramPulse() {
  ProgramClockStart();
  SleepP9();
  SleepP9();
  if (AddressOutput()) {
    PortRead();
    PgcTo(false);
  }
  SleepP9();
  ClockOutBits("00000000");
  ClockOutBits("00000000");
}

void ClockOutHexPair(std::string_view pair) {
  HexPairToBits(pair);
  ClockOutBits(ConvertedBits);
}

}  // namespace zelvo::icsp
