#include "linux/fake_kernel.h"

#include <fcntl.h>
#include <linux/serial.h>
#include <sys/file.h>

#include <cerrno>
#include <cstdio>
#include <mutex>
#include <set>

namespace zelvo::linuxio {
namespace {

FakeKernel* kernel = nullptr;
std::recursive_mutex kernelMutex;  // a claim runs in a thread of its own

int Fail(int error) {
  errno = error;
  return -1;
}

std::string Hex(int value) {
  char text[8];
  std::snprintf(text, sizeof text, "%02X", static_cast<unsigned>(value));
  return text;
}

FakeDevice& Device(int descriptor) {
  return kernel->devices.at(kernel->descriptors.at(descriptor));
}

int Open(const char* path, int flags) {
  const std::lock_guard lock(kernelMutex);
  const auto found = kernel->devices.find(path);
  if (found == kernel->devices.end()) return Fail(ENOENT);
  if (found->second.openError != 0) return Fail(found->second.openError);
  if (found->second.kind == FakeDevice::Kind::Terminal) {
    // Without these an open waits for a carrier, or makes the device the program's controlling terminal.
    if ((flags & (O_NOCTTY | O_NONBLOCK)) != (O_NOCTTY | O_NONBLOCK)) return Fail(EINVAL);
    found->second.modem |= TIOCM_DTR | TIOCM_RTS;
  }
  ++found->second.opens;
  kernel->log.push_back("open");
  kernel->descriptors[kernel->nextDescriptor] = path;
  return kernel->nextDescriptor++;
}

int Close(int descriptor) {
  const std::lock_guard lock(kernelMutex);
  FakeDevice& device = Device(descriptor);
  kernel->descriptors.erase(descriptor);
  kernel->log.push_back("close");
  ++device.closes;
  return 0;
}

int ParportIoctl(FakeDevice& device, unsigned long request, void* argument) {
  auto* byte = static_cast<unsigned char*>(argument);
  switch (request) {
    case PPEXCL:
      kernel->log.push_back("excl");
      return 0;
    case PPCLAIM:
      kernel->log.push_back("claim");
      return 0;
    case PPRELEASE:
      kernel->log.push_back("release");
      return 0;
    case PPWDATA:
      kernel->log.push_back("D=" + Hex(device.data = *byte));
      return 0;
    case PPRDATA:
      kernel->log.push_back("D?");
      *byte = device.data;
      return 0;
    case PPRSTATUS:
      kernel->log.push_back("S?");
      *byte = device.status;
      return 0;
    case PPWCONTROL:
      kernel->log.push_back("C=" + Hex(device.control = *byte));
      return 0;
    case PPRCONTROL:
      kernel->log.push_back("C?");
      *byte = device.control;
      return 0;
    default:
      return Fail(ENOTTY);
  }
}

int TerminalIoctl(FakeDevice& device, unsigned long request, void* argument) {
  switch (request) {
    case TIOCMSET: {
      device.modem = (device.modem & TIOCM_CTS) | *static_cast<int*>(argument);
      std::string lines = "M=";
      if ((device.modem & TIOCM_DTR) != 0) lines += "d";
      if ((device.modem & TIOCM_RTS) != 0) lines += "r";
      if ((device.modem & 0x4000) == 0) lines += "!OUT2";
      if ((device.modem & 0x8000) != 0) lines += "+loop";
      kernel->log.push_back(lines);
      return 0;
    }
    case TIOCMGET: {
      kernel->log.push_back("M?");
      int lines = device.modem;
      if ((lines & 0x8000) != 0) lines = (lines & ~TIOCM_CTS) | ((lines & TIOCM_RTS) != 0 ? TIOCM_CTS : 0);
      *static_cast<int*>(argument) = lines;
      return 0;
    }
    case TIOCSBRK:
      device.breakOn = true;
      kernel->log.push_back("break");
      return 0;
    case TIOCCBRK:
      device.breakOn = false;
      kernel->log.push_back("nobreak");
      return 0;
    case TIOCEXCL:
      kernel->log.push_back("texcl");
      return 0;
    case TIOCNXCL:
      return 0;
    case TIOCGSERIAL: {
      if (device.serialPort < 0) return Fail(ENOTTY);
      auto* serial = static_cast<serial_struct*>(argument);
      serial->port = static_cast<unsigned>(device.serialPort);
      serial->type = device.serialType;
      return 0;
    }
    default:
      return Fail(ENOTTY);
  }
}

int Ioctl(int descriptor, unsigned long request, void* argument) {
  std::unique_lock lock(kernelMutex);
  FakeDevice& device = Device(descriptor);
  if (device.alwaysError != 0) return Fail(device.alwaysError);
  std::vector<int>& errors = device.errors[request];
  if (!errors.empty()) {
    const int error = errors.front();
    errors.erase(errors.begin());
    if (error != 0) return Fail(error);
  }
  if (device.kind == FakeDevice::Kind::File) return Fail(ENOTTY);
  if (request == PPCLAIM && device.onClaim) {
    const std::function<int()> onClaim = device.onClaim;
    lock.unlock();
    const int error = onClaim();
    lock.lock();
    if (error != 0) return Fail(error);
  }
  return device.kind == FakeDevice::Kind::Parport ? ParportIoctl(device, request, argument)
                                                  : TerminalIoctl(device, request, argument);
}

int Flock(int descriptor, int) {
  return Device(descriptor).lockedByOther ? Fail(EWOULDBLOCK) : 0;
}

int TcGetAttr(int, termios* settings) {
  *settings = {};
  settings->c_cflag = CRTSCTS | CS7;
  return 0;
}

int TcSetAttr(int descriptor, int, const termios* settings) {
  FakeDevice& device = Device(descriptor);
  if (!device.keepsBreak) device.breakOn = false;  // new settings rewrite the line control register
  const bool ours = (settings->c_cflag & CLOCAL) != 0 && (settings->c_cflag & CRTSCTS) == 0 &&
                    (settings->c_cflag & CSIZE) == CS8 && ::cfgetospeed(settings) == B9600;
  device.settingsChanged = ours;
  kernel->log.push_back(ours ? "set" : "restore");
  return 0;
}

int Ioperm(unsigned long, unsigned long count, int on) {
  if (kernel->iopermError != 0) return Fail(kernel->iopermError);
  kernel->log.push_back((on != 0 ? "ioperm+" : "ioperm-") + std::to_string(count));
  return 0;
}

void Outb(unsigned char value, unsigned short port) {
  kernel->registers[port] = value;
  kernel->log.push_back(Hex(port) + "=" + Hex(value));
}

unsigned char Inb(unsigned short port) {
  kernel->log.push_back(Hex(port) + "?");
  return static_cast<unsigned char>(kernel->registers[port]);
}

std::vector<std::string> ListFolder(const std::string& path) {
  std::set<std::string> names;
  const std::string prefix = path + "/";
  const auto collect = [&](const auto& entries) {
    for (const auto& entry : entries) {
      if (entry.first.rfind(prefix, 0) != 0) continue;
      names.insert(entry.first.substr(prefix.size(), entry.first.find('/', prefix.size()) - prefix.size()));
    }
  };
  collect(kernel->files);
  collect(kernel->links);
  collect(kernel->devices);
  return {names.begin(), names.end()};
}

std::optional<std::string> ReadFile(const std::string& path) {
  const auto found = kernel->files.find(path);
  if (found == kernel->files.end()) return std::nullopt;
  return found->second;
}

std::optional<std::string> ResolveLink(const std::string& path) {
  const auto found = kernel->links.find(path);
  if (found == kernel->links.end() || found->second.empty()) return std::nullopt;
  return found->second;
}

std::string GroupOf(const std::string& path) {
  const auto found = kernel->groups.find(path);
  return found == kernel->groups.end() ? "" : found->second;
}

const SystemCalls fakeCalls = {Open, Close, Ioctl,      Flock,    TcGetAttr,   TcSetAttr, Ioperm,
                               Outb, Inb,   ListFolder, ReadFile, ResolveLink, GroupOf};

}  // namespace

FakeKernel::FakeKernel() {
  kernel = this;
}
FakeKernel::~FakeKernel() {
  kernel = nullptr;
}

FakeDevice& FakeKernel::AddParport(int number, const std::string& baseAddr) {
  const std::string name = "parport" + std::to_string(number);
  AddFile("/proc/sys/dev/parport/" + name + "/base-addr", baseAddr);
  return AddDevice("/dev/" + name, FakeDevice::Kind::Parport);
}

FakeDevice& FakeKernel::AddUart(const std::string& name, const std::string& port, const std::string& type) {
  AddFile("/sys/class/tty/" + name + "/type", type);
  if (!port.empty()) AddFile("/sys/class/tty/" + name + "/port", port);
  return AddDevice("/dev/" + name, FakeDevice::Kind::Terminal);
}

FakeDevice& FakeKernel::AddDevice(const std::string& path, FakeDevice::Kind kind) {
  FakeDevice& device = devices[path];
  device.kind = kind;
  return device;
}

void FakeKernel::AddFile(const std::string& path, const std::string& text) {
  files[path] = text;
}
void FakeKernel::AddLink(const std::string& path, const std::string& target) {
  links[path] = target;
}

PortContext FakeKernel::Context() {
  PortContext context;
  context.system = &fakeCalls;
  context.programFolder = "/home/op/zelvo";
  context.tell = [this](const std::string& line) { told.push_back(line); };
  context.claimLimitMs = 60;
  return context;
}

std::string FakeKernel::Log() const {
  std::string text;
  for (const std::string& entry : log) text += (text.empty() ? "" : " ") + entry;
  return text;
}

}  // namespace zelvo::linuxio
