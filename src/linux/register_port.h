// What stands behind a block of I/O addresses: one interface for all ways of reaching a port.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "linux/idle_levels.h"
#include "linux/system_calls.h"

namespace zelvo::linuxio {

/// What the ways need from outside.
struct PortContext {
  const SystemCalls* system = &RealSystemCalls();
  std::string programFolder = ".";               ///< where links COM1 to COM4 may stand
  IdleLevelsSource idleLevels = nullptr;         ///< null: nothing is known of the lines at rest
  std::function<void(const std::string&)> tell;  ///< takes one line for the operator; empty: standard error
  int claimLimitMs = 500;  ///< longest wait for a parallel port that another program holds
};

/// Values outside a register's reach are the port's own business: an access never fails visibly.
class RegisterPort {
 public:
  RegisterPort(const PortContext& context, int base) : context_(context), base_(base) {}
  virtual ~RegisterPort() = default;
  RegisterPort(const RegisterPort&) = delete;
  RegisterPort& operator=(const RegisterPort&) = delete;

  virtual void Write(int offset, int value) = 0;   ///< offset from `Base()`, any; value 0..FFh
  [[nodiscard]] virtual int Read(int offset) = 0;  ///< gives 0..FFh
  /// Brings the lines to rest. Runs inside a signal handler: system calls and atomics only.
  virtual void WriteIdle() noexcept = 0;

  /// Takes the port for the program's serial claim; false when no line can move.
  [[nodiscard]] virtual bool Acquire() { return true; }
  virtual void Release() {}

  [[nodiscard]] int Base() const { return base_; }

 protected:
  [[nodiscard]] const SystemCalls& System() const { return *context_.system; }
  /// Says once that the port has left during the run, and why.
  void TellLost(const std::string& device, int error);
  void RefreshIdle(const std::array<int, registerCount>& written) {
    if (context_.idleLevels != nullptr) idle_.Refresh(context_.idleLevels(), base_, written);
  }

  const PortContext context_;
  const int base_;
  IdleBytes idle_;
  bool lost_ = false;
};

/// Why a way does not serve. `heldByOther` forbids to reach the same hardware by another way.
struct Refusal {
  std::string reason;  ///< plain words, without a full stop; empty when there is nothing of that kind
  bool heldByOther = false;
};

/// A way's answer: a port, or the reason why not.
struct Opened {
  std::unique_ptr<RegisterPort> port;
  Refusal refusal;
};

/// "378h"
[[nodiscard]] std::string HexAddress(int address);
/// The reason of a failed open of `device`, with the group to join (`usualGroup` if the file does not tell).
[[nodiscard]] Refusal RefusalOfOpen(const SystemCalls& system, const std::string& device, int error,
                                    const std::string& usualGroup);
/// "minicom (process 1234)" for a program seen with `device` open; empty when none can be seen.
[[nodiscard]] std::string WhoHolds(const SystemCalls& system, const std::string& device);
/// The refusal for a device in use: names the holder, or else `suspects`.
[[nodiscard]] Refusal RefusalOfBusy(const SystemCalls& system, const std::string& device,
                                    const std::string& suspects);

}  // namespace zelvo::linuxio
