// A terminal device as the program holds it: exclusive, its settings put once and restored at the end.
#pragma once

#include <termios.h>

#include <string>

#include "linux/register_port.h"

namespace zelvo::linuxio {

// Modem lines of the kernel's interface that the C library does not name.
inline constexpr int modemOut1 = 0x2000;
inline constexpr int modemOut2 = 0x4000;  ///< gates a PC UART's interrupt: the driver's own
inline constexpr int modemLoop = 0x8000;  ///< the UART's loop-back mode

class TerminalDevice {
 public:
  TerminalDevice(const SystemCalls& system, std::string path) : system_(system), path_(std::move(path)) {}

  /// Opens, lowers DTR and RTS, takes the device for this program alone and puts the settings. Where it
  /// fails, the device is closed again and the reason is given.
  [[nodiscard]] bool Open(Refusal& refusal);
  /// Restores the settings and closes. The lines must be at rest: new settings drop a break.
  void Close();

  [[nodiscard]] bool IsOpen() const noexcept { return descriptor_ >= 0; }
  [[nodiscard]] const std::string& Path() const { return path_; }
  /// An ioctl repeated while signals interrupt it; errno tells why it failed. Async-signal-safe.
  [[nodiscard]] bool Request(unsigned long request, void* argument) const noexcept;
  /// Puts the modem lines: TIOCM_DTR, TIOCM_RTS, modemOut1, modemLoop. Async-signal-safe.
  [[nodiscard]] bool SetModemLines(int lines) const noexcept;
  [[nodiscard]] bool SetBreak(bool on) const noexcept;

 private:
  [[nodiscard]] bool Prepare(Refusal& refusal);

  const SystemCalls& system_;
  const std::string path_;
  int descriptor_ = -1;
  int keptLines_ = 0;  ///< `modemOut2` as it was found
  termios found_{};
};

}  // namespace zelvo::linuxio
