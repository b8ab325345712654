// A scripted kernel for the port code: devices, their drivers' answers and failures, and a log of every
// request that moves or reads a line.
#pragma once

#include <linux/ppdev.h>
#include <sys/ioctl.h>
#include <termios.h>

#include <atomic>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "linux/ports.h"

namespace zelvo::linuxio {

struct FakeDevice {
  enum class Kind { Parport, Terminal, File };
  Kind kind = Kind::Terminal;
  int openError = 0;
  std::map<unsigned long, std::vector<int>> errors =
      {};                      ///< per request: errno of the coming calls, 0 passes
  int alwaysError = 0;         ///< every ioctl fails so: the device has been pulled
  bool lockedByOther = false;  ///< another program holds the file lock
  unsigned char data = 0x04, status = 0x40, control = 0x0C;
  int modem = 0x4000;  ///< OUT2, as a running UART has it
  bool breakOn = false;
  bool keepsBreak = false;  ///< through new settings, as some adapters
  bool settingsChanged = false;
  int serialPort = -1;  ///< answer of TIOCGSERIAL; -1: not supported
  int serialType = 4;
  std::function<int()> onClaim = {};       ///< instead of a claim at once; gives an errno or 0
  std::atomic<int> opens = 0, closes = 0;  ///< counted in the claim's thread too
};

class FakeKernel {
 public:
  FakeKernel();
  ~FakeKernel();
  FakeKernel(const FakeKernel&) = delete;
  FakeKernel& operator=(const FakeKernel&) = delete;

  /// A printer port: /dev/parportN with its address under /proc.
  FakeDevice& AddParport(int number, const std::string& baseAddr);
  /// A UART: /dev/NAME with address and type under /sys; an empty `port` leaves the address file out.
  FakeDevice& AddUart(const std::string& name, const std::string& port, const std::string& type = "4\n");
  FakeDevice& AddDevice(const std::string& path, FakeDevice::Kind kind);
  void AddFile(const std::string& path, const std::string& text);
  void AddLink(const std::string& path, const std::string& target);

  [[nodiscard]] PortContext Context();
  [[nodiscard]] std::string Log() const;  ///< requests separated by blanks, since the last `ClearLog`
  void ClearLog() { log.clear(); }

  std::map<std::string, FakeDevice> devices;
  std::map<std::string, std::string> files;
  std::map<std::string, std::string> links;
  std::map<std::string, std::string> groups;
  std::vector<std::string> log;
  std::vector<std::string> told;
  int iopermError = 1;           ///< EPERM; 0 permits raw I/O
  std::map<int, int> registers;  ///< behind raw I/O
  std::map<int, std::string> descriptors;
  int nextDescriptor = 100;
};

}  // namespace zelvo::linuxio
