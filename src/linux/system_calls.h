// Everything that this folder asks of the kernel, as one table, so that a test can put a scripted kernel in
// its place.
#pragma once

#include <termios.h>

#include <optional>
#include <string>
#include <vector>

namespace zelvo::linuxio {

/// Results and errno are those of the calls of the same name, unless a comment says otherwise.
struct SystemCalls {
  int (*open)(const char* path, int flags);
  int (*close)(int descriptor);
  int (*ioctl)(int descriptor, unsigned long request, void* argument);
  int (*flock)(int descriptor, int operation);
  int (*tcgetattr)(int descriptor, termios* settings);
  int (*tcsetattr)(int descriptor, int when, const termios* settings);
  int (*ioperm)(unsigned long from, unsigned long count, int on);  ///< ENOSYS where there are no I/O ports
  void (*outb)(unsigned char value, unsigned short port);
  unsigned char (*inb)(unsigned short port);
  std::vector<std::string> (*listFolder)(const std::string& path);     ///< names; empty when unreadable
  std::optional<std::string> (*readFile)(const std::string& path);     ///< nothing when unreadable
  std::optional<std::string> (*resolveLink)(const std::string& path);  ///< the file behind all links
  std::string (*groupOf)(const std::string& path);                     ///< owning group; empty if unknown
};

/// The running kernel.
[[nodiscard]] const SystemCalls& RealSystemCalls();

}  // namespace zelvo::linuxio
