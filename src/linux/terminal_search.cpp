#include "linux/terminal_search.h"

#include <fcntl.h>
#include <linux/serial.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>

namespace zelvo::linuxio {
namespace {

const std::string terminals = "/sys/class/tty";
constexpr std::array<int, 4> comAddresses = {0x3F8, 0x2F8, 0x3E8, 0x2E8};

std::optional<long> Number(const PortContext& context, const std::string& path) {
  const std::optional<std::string> text = context.system->readFile(path);
  if (!text || text->empty()) return std::nullopt;
  return std::strtol(text->c_str(), nullptr, 0);  // "0x3F8" or "4"
}

/// The kernel keeps names for UARTs that the machine may not have.
bool IsPlaceholder(const PortContext& context, const std::string& name) {
  return Number(context, terminals + "/" + name + "/type") == 0;
}

/// Asks the driver: kernels before 5.10 show a UART's address to root only. This opens the device.
std::optional<long> AddressFromDriver(const PortContext& context, const std::string& name) {
  const SystemCalls& system = *context.system;
  const int descriptor = system.open(("/dev/" + name).c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) return std::nullopt;
  serial_struct serial{};
  const bool known = system.ioctl(descriptor, TIOCGSERIAL, &serial) == 0 && serial.type != 0;
  system.close(descriptor);
  if (!known) return std::nullopt;
  return static_cast<long>(serial.port);
}

bool IsPcSerialPort(const std::string& name) {
  return name.rfind("ttyS", 0) == 0 && name.size() > 4 &&
         name.find_first_not_of("0123456789", 4) == std::string::npos;
}

std::optional<std::string> DeviceOfAddress(const PortContext& context, int block) {
  std::vector<std::string> names = context.system->listFolder(terminals);
  std::sort(names.begin(), names.end());
  std::vector<std::string> silent;
  for (const std::string& name : names) {
    const std::optional<long> port = Number(context, terminals + "/" + name + "/port");
    if (!port && IsPcSerialPort(name)) silent.push_back(name);
    // Address 0 stands for a UART in memory, or for none at all.
    if (!port || *port <= 0 || *port / registerCount != block / registerCount) continue;
    if (!IsPlaceholder(context, name)) return "/dev/" + name;
  }
  for (const std::string& name : silent) {
    const std::optional<long> port = AddressFromDriver(context, name);
    if (port && *port > 0 && *port / registerCount == block / registerCount) return "/dev/" + name;
  }
  return std::nullopt;
}

std::optional<TerminalCandidate> LinkOfCom(const PortContext& context, const std::string& name) {
  const std::vector<std::string> files = context.system->listFolder(context.programFolder);
  if (std::find(files.begin(), files.end(), name) == files.end()) return std::nullopt;
  const std::optional<std::string> target = context.system->resolveLink(context.programFolder + "/" + name);
  if (target) return TerminalCandidate{*target, name + " in the program's folder"};
  return TerminalCandidate{"", "no such device behind the link " + name +
                                   " in the program's folder (adapter " + "not plugged in?)"};
}

}  // namespace

int AddressOfCom(int number) {
  if (number < 1 || number > static_cast<int>(comAddresses.size())) return -1;
  return comAddresses[static_cast<std::size_t>(number - 1)];
}

std::vector<TerminalCandidate> FindTerminals(const PortContext& context, int block) {
  std::vector<TerminalCandidate> found;
  if (const std::optional<std::string> device = DeviceOfAddress(context, block)) {
    found.push_back({*device, ""});
  }
  const auto com = std::find(comAddresses.begin(), comAddresses.end(), block);
  if (com == comAddresses.end()) return found;
  const auto index = com - comAddresses.begin();
  const std::string name = "ttyS" + std::to_string(index);
  const bool known = !found.empty() && found.front().path == "/dev/" + name;
  if (!known && !IsPlaceholder(context, name)) {
    found.push_back({"/dev/" + name, "the device of COM" + std::to_string(index + 1)});
  }
  if (auto link = LinkOfCom(context, "COM" + std::to_string(index + 1))) found.push_back(*link);
  return found;
}

}  // namespace zelvo::linuxio
