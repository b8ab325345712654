#include "linux/idle_on_signals.h"

#include <signal.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdlib>

#include "linux/register_port.h"

namespace zelvo::linuxio {
namespace {

std::array<std::atomic<RegisterPort*>, 16> published{};

// SIGPIPE: the display, or whoever reads what is told, is gone.
constexpr std::array endSignals = {SIGTERM, SIGINT, SIGHUP, SIGQUIT, SIGPIPE};
constexpr std::array crashSignals = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGTRAP, SIGSYS};

// A crash by an exhausted stack leaves the handler no room there.
alignas(16) std::array<unsigned char, 64 * 1024> handlerStack;

extern "C" void BringLinesToRest(int signal) {
  const int error = errno;
  WriteIdleLevels();
  errno = error;
  // SA_RESETHAND has put the default action back; it strikes when this handler returns.
  ::raise(signal);
}

void Install(int signal) {
  struct sigaction action {};
  action.sa_handler = BringLinesToRest;
  ::sigfillset(&action.sa_mask);
  action.sa_flags = static_cast<int>(SA_RESETHAND | SA_ONSTACK);
  ::sigaction(signal, &action, nullptr);
}

bool IsIgnored(int signal) {
  struct sigaction action {};
  return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

void PublishForIdle(RegisterPort& port) noexcept {
  for (std::atomic<RegisterPort*>& place : published) {
    RegisterPort* none = nullptr;
    if (place.compare_exchange_strong(none, &port)) return;
  }
}

void WithdrawFromIdle(RegisterPort& port) noexcept {
  for (std::atomic<RegisterPort*>& place : published) {
    RegisterPort* mine = &port;
    place.compare_exchange_strong(mine, nullptr);
  }
}

void WriteIdleLevels() noexcept {
  for (std::atomic<RegisterPort*>& place : published) {
    RegisterPort* port = place.load();
    if (port != nullptr) port->WriteIdle();
  }
}

void InstallIdleOnSignals() {
  stack_t stack{};
  stack.ss_sp = handlerStack.data();
  stack.ss_size = handlerStack.size();
  ::sigaltstack(&stack, nullptr);
  for (const int signal : endSignals) {
    if (!IsIgnored(signal)) Install(signal);
  }
  for (const int signal : crashSignals) Install(signal);
  // The toolkit calls exit() when the display is gone, past every destructor of a port.
  std::atexit(WriteIdleLevels);
}

}  // namespace zelvo::linuxio
