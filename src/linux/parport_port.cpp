#include "linux/parport_port.h"

#include <linux/ppdev.h>
#include <sys/ioctl.h>

#include <cerrno>
#include <charconv>
#include <cstring>

#include "linux/idle_on_signals.h"
#include "linux/parport_claim.h"

namespace zelvo::linuxio {
namespace {

const std::string parportFolder = "/proc/sys/dev/parport";
const std::string suspects =
    "the printer system (CUPS), another programmer, or a scanner; end it, or unload the module lp";

/// The requests for each register of a parallel port; 0 for none.
struct RegisterRequests {
  unsigned long write;
  unsigned long read;
};
constexpr std::array<RegisterRequests, 3> requests = {{
    {PPWDATA, PPRDATA},        // base+0, data
    {0, PPRSTATUS},            // base+1, status
    {PPWCONTROL, PPRCONTROL},  // base+2, control
}};

class ParportPort : public RegisterPort {
 public:
  ParportPort(const PortContext& context, const ParportDevice& device, int descriptor)
      : RegisterPort(context, device.base), path_(device.path), descriptor_(descriptor) {
    // Loading the driver may have left lines on, Vdd among them; a signal before the first write must find
    // what to put in their place.
    written_[0] = Read(0);
    RefreshIdle(written_);
    PublishForIdle(*this);
  }

  ~ParportPort() override {
    WithdrawFromIdle(*this);
    WriteIdle();
    System().ioctl(descriptor_, PPRELEASE, nullptr);
    System().close(descriptor_);
  }

  void Write(int offset, int value) override {
    if (!HasRequest(offset) || requests[static_cast<std::size_t>(offset)].write == 0) return;
    const auto index = static_cast<std::size_t>(offset);
    written_[index] = value & 0xFF;
    RefreshIdle(written_);
    auto byte = static_cast<unsigned char>(value);
    Request(requests[index].write, byte);
  }

  int Read(int offset) override {
    unsigned char byte = 0xFF;
    if (!HasRequest(offset) || !Request(requests[static_cast<std::size_t>(offset)].read, byte)) return 0xFF;
    return byte;
  }

  void WriteIdle() noexcept override {
    const int idle = idle_.At(0);
    if (idle < 0) return;
    auto byte = static_cast<unsigned char>(idle);
    System().ioctl(descriptor_, PPWDATA, &byte);
  }

 private:
  [[nodiscard]] bool HasRequest(int offset) const {
    return !lost_ && offset >= 0 && offset < static_cast<int>(requests.size());
  }

  bool Request(unsigned long request, unsigned char& byte) {
    if (System().ioctl(descriptor_, request, &byte) == 0) return true;
    TellLost(path_, errno);
    return false;
  }

  const std::string path_;
  const int descriptor_;
  std::array<int, registerCount> written_{};
};

}  // namespace

std::optional<ParportDevice> FindParport(const SystemCalls& system, int block) {
  for (const std::string& name : system.listFolder(parportFolder)) {
    if (name.rfind("parport", 0) != 0) continue;
    const std::optional<std::string> text = system.readFile(parportFolder + "/" + name + "/base-addr");
    if (!text) continue;
    int base = 0;  // the first of two decimal numbers; 0 for a port without I/O addresses
    std::from_chars(text->data(), text->data() + text->size(), base);
    if (base > 0 && base / registerCount == block / registerCount) return ParportDevice{"/dev/" + name, base};
  }
  return std::nullopt;
}

Opened OpenParport(const PortContext& context, const ParportDevice& device) {
  const ParportClaim claim = ClaimParport(*context.system, device.path, context.claimLimitMs);
  if (claim.descriptor >= 0) return {std::make_unique<ParportPort>(context, device, claim.descriptor), {}};
  if (claim.error == EBUSY) return {nullptr, RefusalOfBusy(*context.system, device.path, suspects)};
  if (claim.openFailed && (claim.error == ENOENT || claim.error == ENXIO || claim.error == ENODEV)) {
    return {nullptr, {"no such device " + device.path + ": load the kernel module ppdev (modprobe ppdev)"}};
  }
  if (claim.openFailed) {
    return {nullptr, RefusalOfOpen(*context.system, device.path, claim.error, "lp")};
  }
  return {nullptr, {device.path + " cannot be claimed: " + std::strerror(claim.error)}};
}

}  // namespace zelvo::linuxio
