// The control lines as small changes of a register value. Polarity is decided here and nowhere above. Each
// `Shape...` computes `PortShadow` from `PortLast`, so that the other bits of the register stay; the caller
// writes.
#pragma once

#include <cstddef>
#include <string_view>

#include "link/port.h"

namespace zelvo::link {

/// One line of the connectors, as the code, the windows and the wiring guide tell it.
struct LineRow {
  std::string_view name;
  int lptRegister;          ///< offset from `PortBase`
  int lptDefaultBit;        ///< bit value; ACK for the input
  int comRegister;          ///< offset from `PortBase`
  int comBit;               ///< bit value
  std::string_view comPin;  ///< connector pin named to the operator
};
inline constexpr std::size_t OutputLines = 4;  ///< the first rows of `LineTable`
inline constexpr LineRow LineTable[] = {
    {"Vdd", LptData, 4, UartModemControl, 1, "4"},
    {"Vpp", LptData, 8, UartLineControl, 64, "3, TXD"},
    {"PGD out", LptData, 1, UartModemControl, 1, "4"},
    {"PGC", LptData, 2, UartModemControl, 2, "7"},
    {"data in", LptStatus, AckBit, UartModemStatus, CtsBit, "8"},
};

/// A register value with one line at `level`: set by the Set mask or cleared by the Clear mask.
[[nodiscard]] constexpr std::int32_t WithLine(std::int32_t value, bool level, bool inverted, int setMask,
                                              int clearMask) {
  return level != inverted ? value | setMask : value & clearMask;
}

/// The register that carries PGC and PGD; false when no interface is chosen.
inline bool AddressOutput() {
  if (LptMode) {
    Address(LptData);
  } else if (ComMode) {
    Address(UartModemControl);
  }
  return LptMode || ComMode;
}

inline void ShapePgd(bool level) {
  PortShadow =
      LptMode ? WithLine(PortLast, level, DataInverted, DataSetMask, DataClearMask)
              : WithLine(PortLast, level, ComPgdInverted, VddSetMask, level ? VddClearMask : DataClearMask);
}

inline void ShapePgc(bool level) {
  PortShadow =
      WithLine(PortLast, level, LptMode ? ClockInverted : ComPgcInverted, ClockSetMask, ClockClearMask);
}

/// Flips the clock on the output register's own value.
inline void FlipPgc() {
  PortShadow ^= ClockSetMask;
}

inline void ShapeVdd(bool level) {
  PortShadow = WithLine(PortLast, level, LptMode ? VddInverted : ComPgdInverted, VddSetMask, VddClearMask);
}

inline void ShapeVpp(bool level) {
  PortShadow = WithLine(PortLast, level, LptMode ? VppInverted : ComVppInverted, VppSetMask, VppClearMask);
}

inline void AddressInput() {
  Address(LptMode ? LptStatus : UartModemStatus);
}
[[nodiscard]] inline int InputBit() {
  if (!LptMode) return CtsBit;
  return InputSelect == 1 ? AckBit : BusyBit;
}
[[nodiscard]] inline bool InputLineInverted() {
  return LptMode ? InputInverted : ComInputInverted;
}

/// The masks of one of the four outputs, counted as in `LineTable`: the Set mask is `bit`.
void SetMasks(std::size_t line, int bit);
/// The masks of the serial port, fixed: DTR for Vdd and data, break for Vpp, RTS for the clock.
void SetComMasks();

}  // namespace zelvo::link
