#include "linux/uart_port.h"

#include <sys/ioctl.h>

#include <cerrno>

#include "linux/idle_on_signals.h"
#include "linux/terminal_device.h"

namespace zelvo::linuxio {
namespace {

enum Register { LineControl = 3, ModemControl = 4, LineStatus = 5, ModemStatus = 6 };
constexpr int breakBit = 64;

struct ModemLine {
  int bit;    ///< in the UART's register
  int tiocm;  ///< in the kernel's word
};
/// Modem control; OUT2 (8) is missing because it gates the driver's interrupt.
constexpr std::array<ModemLine, 4> outputs = {
    {{1, TIOCM_DTR}, {2, TIOCM_RTS}, {4, modemOut1}, {16, modemLoop}}};
/// Modem status. The four bits that tell of changes read 0.
constexpr std::array<ModemLine, 4> inputs = {
    {{16, TIOCM_CTS}, {32, TIOCM_DSR}, {64, TIOCM_RI}, {128, TIOCM_CD}}};
constexpr int outputBits = 1 | 2 | 4 | 16;

constexpr int ToKernel(int value) {
  int lines = 0;
  for (const ModemLine& line : outputs) {
    if ((value & line.bit) != 0) lines |= line.tiocm;
  }
  return lines;
}

constexpr int FromKernel(int lines) {
  int value = 0;
  for (const ModemLine& line : inputs) {
    if ((lines & line.tiocm) != 0) value |= line.bit;
  }
  return value;
}

/// The registers as they stand after an open: eight data bits, transmitter empty, both lines low.
constexpr std::array<int, registerCount> atOpen = {0, 0, 1, 3, 0, 0x60, 0, 0};

class UartPort : public RegisterPort {
 public:
  UartPort(const PortContext& context, const std::string& path, int base)
      : RegisterPort(context, base), device_(*context_.system, path) {}
  ~UartPort() override { Release(); }

  [[nodiscard]] bool Open(Refusal& refusal) {
    if (!device_.Open(refusal)) return false;
    registers_ = atOpen;
    RefreshIdle(registers_);
    PublishForIdle(*this);
    return true;
  }

  bool Acquire() override { return Ready(); }

  void Release() override {
    if (!device_.IsOpen()) return;
    WithdrawFromIdle(*this);
    WriteIdle();
    device_.Close();
  }

  void Write(int offset, int value) override {
    if (offset < 0 || offset >= registerCount || !Ready()) return;
    int& shadow = registers_[static_cast<std::size_t>(offset)];
    const int changed = (shadow ^ value) & 0xFF;
    shadow = value & 0xFF;
    RefreshIdle(registers_);
    // Only what moves a line goes out: on a USB adapter each request costs milliseconds.
    if (offset == ModemControl && (changed & outputBits) != 0) {
      if (!device_.SetModemLines(ToKernel(value))) TellLost(device_.Path(), errno);
    } else if (offset == LineControl && (changed & breakBit) != 0) {
      PutBreak((value & breakBit) != 0);
    }
  }

  int Read(int offset) override {
    if (offset < 0 || offset >= registerCount || !Ready()) return 0xFF;
    if (offset != ModemStatus) return registers_[static_cast<std::size_t>(offset)];
    int lines = 0;
    if (device_.Request(TIOCMGET, &lines)) return FromKernel(lines);
    TellLost(device_.Path(), errno);
    return 0xFF;
  }

  // Without settings of a serial board all lines go low. A refusal finds nobody to tell.
  void WriteIdle() noexcept override {
    const int modem = idle_.At(ModemControl);
    const int control = idle_.At(LineControl);
    const bool low = device_.SetModemLines(modem < 0 ? 0 : ToKernel(modem));
    const bool off = device_.SetBreak(control >= 0 && (control & breakBit) != 0);
    static_cast<void>(low && off);
  }

 private:
  /// Opens the device anew after the claim has let it go: the addresses still stand for it.
  [[nodiscard]] bool Ready() {
    if (lost_ || device_.IsOpen()) return !lost_;
    Refusal refusal;
    if (Open(refusal)) return true;
    lost_ = true;
    context_.tell("zelvo: port " + HexAddress(base_) +
                  " is served no more, its lines do not move: " + refusal.reason + ".");
    return false;
  }

  void PutBreak(bool on) {
    if (device_.SetBreak(on)) return;
    if (errno != ENOTTY && errno != EINVAL && errno != EOPNOTSUPP) {
      TellLost(device_.Path(), errno);
    } else if (!breakRefused_) {
      breakRefused_ = true;
      context_.tell("zelvo: " + device_.Path() + " cannot hold TXD (no break signal): Vpp does not switch.");
    }
  }

  TerminalDevice device_;
  std::array<int, registerCount> registers_ = atOpen;
  bool breakRefused_ = false;
};

}  // namespace

Opened OpenTerminal(const PortContext& context, const std::string& path, int base) {
  auto port = std::make_unique<UartPort>(context, path, base);
  Refusal refusal;
  if (!port->Open(refusal)) return {nullptr, refusal};
  return {std::move(port), {}};
}

}  // namespace zelvo::linuxio
