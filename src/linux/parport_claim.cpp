#include "linux/parport_claim.h"

#include <fcntl.h>
#include <linux/ppdev.h>
#include <signal.h>
#include <sys/ioctl.h>

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>

namespace zelvo::linuxio {
namespace {

using std::chrono::milliseconds;

/// A waiting claim is woken by this signal at this interval, so often at most, until it has given up.
const int wakeSignal = SIGRTMIN + 2;
constexpr milliseconds wakeInterval{20};
constexpr int wakeAttempts = 10;

extern "C" void OnlyInterrupt(int) {}

ParportClaim OpenAndClaim(const SystemCalls& system, const std::string& path, bool exclusive) {
  ParportClaim claim;
  claim.descriptor = system.open(path.c_str(), O_RDWR | O_CLOEXEC);
  if (claim.descriptor < 0) {
    claim.error = errno;
    claim.openFailed = true;
    return claim;
  }
  if (exclusive && system.ioctl(claim.descriptor, PPEXCL, nullptr) != 0) {
    claim.error = errno;
  } else if (system.ioctl(claim.descriptor, PPCLAIM, nullptr) != 0) {
    claim.error = errno;
  }
  if (claim.error != 0) {
    // An interrupted claim stays in the kernel's queue and would be granted later; closing takes it out.
    system.close(claim.descriptor);
    claim.descriptor = -1;
  }
  return claim;
}

ParportClaim ClaimAndMaybeBlock(const SystemCalls& system, const std::string& path) {
  ParportClaim claim = OpenAndClaim(system, path, true);
  // ENXIO: other drivers (the printer's) are registered at the port, so there is no exclusive use of it. The
  // request sticks to the descriptor, hence a new one. A plain claim keeps others off as long as it is held.
  if (claim.error == ENXIO && !claim.openFailed) {
    claim = OpenAndClaim(system, path, false);
    // ENXIO again: somebody else has it exclusively.
    if (claim.error == ENXIO && !claim.openFailed) claim.error = EBUSY;
  }
  if (claim.error == EINTR || claim.error == EAGAIN) claim.error = EBUSY;
  return claim;
}

/// Shared with the worker, which may outlive the wait.
struct Job {
  std::mutex mutex;
  std::condition_variable changed;
  bool finished = false;
  bool abandoned = false;
  ParportClaim claim;
};

void Work(const std::shared_ptr<Job>& job, const SystemCalls& system, const std::string& path) {
  sigset_t others;
  ::sigfillset(&others);
  ::sigdelset(&others, wakeSignal);
  ::pthread_sigmask(SIG_SETMASK, &others, nullptr);
  const ParportClaim claim = ClaimAndMaybeBlock(system, path);
  const std::lock_guard lock(job->mutex);
  job->claim = claim;
  job->finished = true;
  if (job->abandoned && claim.descriptor >= 0) system.close(claim.descriptor);
  job->changed.notify_all();
}

void LetTheWakeSignalInterrupt() {
  struct sigaction action {};
  action.sa_handler = OnlyInterrupt;
  ::sigemptyset(&action.sa_mask);
  ::sigaction(wakeSignal, &action, nullptr);
}

}  // namespace

// The kernel lets a claim wait without limit, whatever flags the device was opened with, and lets every other
// request to any parallel-port device wait with it. So the claim runs in a thread of its own, which a signal
// gets out of the wait; one that even a signal does not wake is left behind and undoes its claim if it comes.
ParportClaim ClaimParport(const SystemCalls& system, const std::string& path, int limitMs) {
  LetTheWakeSignalInterrupt();
  const auto job = std::make_shared<Job>();
  std::thread worker;
  try {
    worker = std::thread(Work, job, std::cref(system), path);
  } catch (const std::system_error&) {
    return {.error = EAGAIN};
  }
  std::unique_lock lock(job->mutex);
  const auto finished = [&job] { return job->finished; };
  bool done = job->changed.wait_for(lock, milliseconds(limitMs), finished);
  for (int attempt = 0; !done && attempt < wakeAttempts; ++attempt) {
    ::pthread_kill(worker.native_handle(), wakeSignal);
    done = job->changed.wait_for(lock, wakeInterval, finished);
  }
  if (!done) {
    job->abandoned = true;
    worker.detach();
    return {.error = EBUSY};
  }
  lock.unlock();
  worker.join();
  return job->claim;
}

}  // namespace zelvo::linuxio
