// Port primitives, the line masks and the polarity flags. Every line of the board moves through `PortRead`
// and `PortWrite`; nothing here knows what a line means to a chip.
#pragma once

#include <cstdint>

#include "platform/seams.h"

namespace zelvo::link {

inline std::int16_t PortBase = 888;     ///< configured base address, from port.ini; 888 is 378h
inline std::int16_t PortAddress = 888;  ///< what the next access uses; set by each user, kept afterwards
inline std::int32_t PortShadow = 0;     ///< what the next `PortWrite` sends
inline std::int32_t PortLast = 0;       ///< last value written, or read (sign-extended from 16 bits)

/// Interface kind; at most one is true, none after a failed read of port.ini.
inline bool LptMode = false;
inline bool ComMode = false;

// Line masks: the Set mask holds the line's bit, the Clear mask is 255 minus that bit.
inline int VddSetMask = 4, VddClearMask = 251;
inline int VppSetMask = 8, VppClearMask = 247;
inline int DataSetMask = 1, DataClearMask = 254;
inline int ClockSetMask = 2, ClockClearMask = 253;
inline int InputSelect = 1;  ///< 1: ACK, 0: BUSY

// Polarity, true when the line is active low on the board. Tested anew at every line change.
inline bool VddInverted = false, VppInverted = false, ClockInverted = false, DataInverted = false,
            InputInverted = false;
inline bool ComPgdInverted = false, ComPgcInverted = false, ComInputInverted = false, ComVppInverted = false;

// Registers as offsets from `PortBase`.
inline constexpr int LptData = 0;           ///< data register: Vdd, Vpp, PGD, PGC
inline constexpr int LptStatus = 1;         ///< status register: data in
inline constexpr int UartLineControl = 3;   ///< line control register: break drives Vpp
inline constexpr int UartModemControl = 4;  ///< modem control register: DTR is PGD and supply, RTS is PGC
inline constexpr int UartModemStatus = 6;   ///< modem status register: CTS is data in

// Bits of the input registers.
inline constexpr int AckBit = 64;
inline constexpr int BusyBit = 128;
inline constexpr int CtsBit = 16;

/// Sends the low byte of `PortShadow` to `PortAddress`; `PortLast` becomes `PortShadow`.
inline void PortWrite() {
  platform::seams.ports->Out32(static_cast<std::uint16_t>(PortAddress), PortShadow & 0xFF);
  PortLast = PortShadow;
}

/// Reads `PortAddress` into `PortLast`.
inline void PortRead() {
  PortLast = static_cast<std::int16_t>(platform::seams.ports->Inp32(static_cast<std::uint16_t>(PortAddress)));
}

/// Points `PortAddress` at a register of the interface.
inline void Address(int offset) {
  PortAddress = static_cast<std::int16_t>(PortBase + offset);
}

}  // namespace zelvo::link
