#include "linux/terminal_device.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>

#include <cerrno>
#include <cstring>

namespace zelvo::linuxio {
namespace {

const std::string suspects = "a terminal program, a login on that line, ModemManager or brltty";

/// Raw 9600,N,8,1 without flow control. HUPCL lets the kernel drop DTR and RTS should the program be killed.
termios RawSettings(termios settings) {
  ::cfmakeraw(&settings);
  settings.c_cflag &= ~static_cast<tcflag_t>(CRTSCTS | CSTOPB | PARENB | CSIZE);
  settings.c_cflag |= CS8 | CLOCAL | HUPCL;
  ::cfsetspeed(&settings, B9600);
  return settings;
}

}  // namespace

bool TerminalDevice::Open(Refusal& refusal) {
  // O_NONBLOCK: an open must not wait for a carrier. O_NOCTTY: a hang-up there is none of ours.
  descriptor_ = system_.open(path_.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (descriptor_ >= 0) {
    if (Prepare(refusal)) return true;
    system_.close(descriptor_);
    descriptor_ = -1;
  } else if (errno == EBUSY) {
    refusal = RefusalOfBusy(system_, path_, suspects);
  } else if (errno == ENOENT || errno == ENXIO || errno == ENODEV || errno == EIO) {
    refusal = {"no such device " + path_};
  } else {
    refusal = RefusalOfOpen(system_, path_, errno, "dialout");
  }
  return false;
}

bool TerminalDevice::Prepare(Refusal& refusal) {
  // Root gets in although another program has asked for exclusive use; most programs lock the file as well.
  if (system_.flock(descriptor_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    refusal = RefusalOfBusy(system_, path_, suspects);
    return false;
  }
  int lines = 0;
  if (!Request(TIOCMGET, &lines)) {
    refusal = errno == EIO ? Refusal{"no such device: there is no UART behind " + path_}
                           : Refusal{path_ + " has no modem lines: " + std::strerror(errno)};
    return false;
  }
  keptLines_ = lines & modemOut2;
  // The open has raised both lines. New settings may do so again, hence the second time.
  const bool done =
      SetModemLines(0) && Request(TIOCEXCL, nullptr) && system_.tcgetattr(descriptor_, &found_) == 0;
  // A killed program may have left a break: not every adapter's driver ends it. One without any refuses.
  if (done) static_cast<void>(SetBreak(false));
  const termios settings = RawSettings(found_);
  if (!done || system_.tcsetattr(descriptor_, TCSANOW, &settings) != 0 || !SetModemLines(0)) {
    refusal = {path_ + " cannot be set up: " + std::strerror(errno)};
    return false;
  }
  return true;
}

void TerminalDevice::Close() {
  if (descriptor_ < 0) return;
  const int descriptor = descriptor_;
  system_.tcsetattr(descriptor, TCSANOW, &found_);
  system_.ioctl(descriptor, TIOCNXCL, nullptr);
  descriptor_ = -1;
  system_.close(descriptor);
}

bool TerminalDevice::Request(unsigned long request, void* argument) const noexcept {
  constexpr int attempts = 5;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    if (system_.ioctl(descriptor_, request, argument) == 0) return true;
    if (errno != EINTR) break;
  }
  return false;
}

bool TerminalDevice::SetModemLines(int lines) const noexcept {
  int all = lines | keptLines_;
  return Request(TIOCMSET, &all);
}

bool TerminalDevice::SetBreak(bool on) const noexcept {
  return Request(on ? TIOCSBRK : TIOCCBRK, nullptr);
}

}  // namespace zelvo::linuxio
