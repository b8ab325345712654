#include "linux/system_calls.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

// Only PC processors have I/O instructions; elsewhere raw I/O answers that the machine has none.
#if defined(__x86_64__) || defined(__i386__)
#include <sys/io.h>
#define ZELVO_HAS_IO_PORTS 1
#endif

namespace zelvo::linuxio {
namespace {

int Open(const char* path, int flags) {
  return ::open(path, flags);
}

int Ioctl(int descriptor, unsigned long request, void* argument) {
  return ::ioctl(descriptor, request, argument);
}

#ifdef ZELVO_HAS_IO_PORTS
int Ioperm(unsigned long from, unsigned long count, int on) {
  return ::ioperm(from, count, on);
}
void Outb(unsigned char value, unsigned short port) {
  ::outb(value, port);
}
unsigned char Inb(unsigned short port) {
  return ::inb(port);
}
#else
int Ioperm(unsigned long, unsigned long, int) {
  errno = ENOSYS;
  return -1;
}
void Outb(unsigned char, unsigned short) {}
unsigned char Inb(unsigned short) {
  return 0xFF;
}
#endif

std::vector<std::string> ListFolder(const std::string& path) {
  std::vector<std::string> names;
  std::error_code error;
  std::filesystem::directory_iterator entry(path, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    names.push_back(entry->path().filename().string());
  }
  return names;
}

// Read by hand: a file of the kernel may refuse the read after a good open, and then it counts as missing.
std::optional<std::string> ReadFile(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return std::nullopt;
  std::string text;
  char part[512];
  ssize_t length = 0;
  while ((length = ::read(descriptor, part, sizeof part)) > 0) {
    text.append(part, static_cast<std::size_t>(length));
  }
  ::close(descriptor);
  if (length < 0) return std::nullopt;
  return text;
}

std::optional<std::string> ResolveLink(const std::string& path) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::canonical(path, error);
  if (error) return std::nullopt;
  return target.string();
}

std::string GroupOf(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return {};
  const group* entry = ::getgrgid(status.st_gid);
  return entry == nullptr ? std::string() : std::string(entry->gr_name);
}

constexpr SystemCalls realCalls = {
    .open = Open,
    .close = ::close,
    .ioctl = Ioctl,
    .flock = ::flock,
    .tcgetattr = ::tcgetattr,
    .tcsetattr = ::tcsetattr,
    .ioperm = Ioperm,
    .outb = Outb,
    .inb = Inb,
    .listFolder = ListFolder,
    .readFile = ReadFile,
    .resolveLink = ResolveLink,
    .groupOf = GroupOf,
};

}  // namespace

const SystemCalls& RealSystemCalls() {
  return realCalls;
}

}  // namespace zelvo::linuxio
