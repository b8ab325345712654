#include "linux/register_port.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace zelvo::linuxio {

void RegisterPort::TellLost(const std::string& device, int error) {
  if (lost_) return;
  lost_ = true;
  context_.tell("zelvo: " + device + " at port " + HexAddress(base_) + " is gone (" + std::strerror(error) +
                "): its lines move no more. Bring the port back and start the program again.");
}

std::string HexAddress(int address) {
  char text[16];
  std::snprintf(text, sizeof text, "%Xh", static_cast<unsigned>(address));
  return text;
}

Refusal RefusalOfOpen(const SystemCalls& system, const std::string& device, int error,
                      const std::string& usualGroup) {
  if (error == EACCES || error == EPERM) {
    std::string group = system.groupOf(device);
    if (group.empty() || group == "root") group = usualGroup;
    return {"no permission for " + device + ": become a member of the group " + group + " and log in again"};
  }
  return {device + " cannot be opened: " + std::strerror(error)};
}

std::string WhoHolds(const SystemCalls& system, const std::string& device) {
  const std::string self = std::to_string(::getpid());
  for (const std::string& process : system.listFolder("/proc")) {
    if (process.find_first_not_of("0123456789") != std::string::npos || process == self) continue;
    const std::string folder = "/proc/" + process;
    for (const std::string& descriptor : system.listFolder(folder + "/fd")) {
      if (system.resolveLink(folder + "/fd/" + descriptor) != device) continue;
      std::string name = system.readFile(folder + "/comm").value_or("a program");
      while (!name.empty() && name.back() == '\n') name.pop_back();
      return name + " (process " + process + ")";
    }
  }
  return {};
}

Refusal RefusalOfBusy(const SystemCalls& system, const std::string& device, const std::string& suspects) {
  const std::string holder = WhoHolds(system, device);
  const std::string who = holder.empty() ? "by another program, perhaps " + suspects : "by " + holder;
  return {device + " is in use " + who, true};
}

}  // namespace zelvo::linuxio
