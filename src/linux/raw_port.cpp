#include "linux/raw_port.h"

#include <cerrno>
#include <cstring>

#include "linux/idle_on_signals.h"

namespace zelvo::linuxio {
namespace {

class RawPort : public RegisterPort {
 public:
  RawPort(const PortContext& context, int base) : RegisterPort(context, base) { PublishForIdle(*this); }

  ~RawPort() override {
    WithdrawFromIdle(*this);
    WriteIdle();
    System().ioperm(static_cast<unsigned long>(base_), registerCount, 0);
  }

  void Write(int offset, int value) override {
    written_[static_cast<std::size_t>(offset)] = value & 0xFF;
    RefreshIdle(written_);
    wrote_ |= 1 << offset;
    System().outb(static_cast<unsigned char>(value), Address(offset));
  }

  int Read(int offset) override {
    const int value = System().inb(Address(offset));
    written_[static_cast<std::size_t>(offset)] = value;
    return value;
  }

  void WriteIdle() noexcept override {
    // Of what stands behind the addresses only the registers that the program wrote are known to carry lines.
    const int wrote = wrote_;
    if (wrote == 0) return;
    // The permission belongs to a thread, and the signal may have come to another one.
    if (System().ioperm(static_cast<unsigned long>(base_), registerCount, 1) != 0) return;
    for (int offset = 0; offset < registerCount; ++offset) {
      const int idle = idle_.At(offset);
      if (idle >= 0 && (wrote & (1 << offset)) != 0)
        System().outb(static_cast<unsigned char>(idle), Address(offset));
    }
  }

 private:
  [[nodiscard]] unsigned short Address(int offset) const noexcept {
    return static_cast<unsigned short>(base_ + offset);
  }

  std::array<int, registerCount> written_{};  ///< what the registers held when last read or written
  std::atomic<int> wrote_ = 0;                ///< one bit for each register
};

bool IsLockedDown(const SystemCalls& system) {
  const std::string state = system.readFile("/sys/kernel/security/lockdown").value_or("");
  return state.find("[integrity]") != std::string::npos ||
         state.find("[confidentiality]") != std::string::npos;
}

}  // namespace

Opened OpenRaw(const PortContext& context, int block) {
  const SystemCalls& system = *context.system;
  if (system.ioperm(static_cast<unsigned long>(block), registerCount, 1) == 0) {
    return {std::make_unique<RawPort>(context, block), {}};
  }
  const int error = errno;
  if (error == ENOSYS) return {nullptr, {"raw I/O does not exist on this machine"}};
  if (error == EPERM && IsLockedDown(system)) {
    return {nullptr,
            {"raw I/O is forbidden by the kernel lockdown (Secure Boot): the way is a parallel-port device "
             "/dev/parportN"}};
  }
  if (error == EPERM) return {nullptr, {"raw I/O needs root"}};
  return {nullptr, {std::string("raw I/O is refused: ") + std::strerror(error)}};
}

}  // namespace zelvo::linuxio
