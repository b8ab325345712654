#include "linux/chooser.h"

#include <vector>

#include "linux/parport_port.h"
#include "linux/raw_port.h"
#include "linux/terminal_search.h"
#include "linux/uart_port.h"

namespace zelvo::linuxio {
namespace {

class NoPort : public RegisterPort {
 public:
  using RegisterPort::RegisterPort;
  void Write(int, int) override {}
  int Read(int) override { return 0xFF; }
  void WriteIdle() noexcept override {}
  bool Acquire() override { return false; }
};

/// The search as it goes: the port once there is one, what serves it, and the reasons of those that do not.
struct Search {
  std::unique_ptr<RegisterPort> port;
  std::string way;
  std::vector<Refusal> refusals;

  void Take(Opened opened, const std::string& what) {
    if (opened.port) {
      port = std::move(opened.port);
      way = what;
    } else {
      refusals.push_back(std::move(opened.refusal));
    }
  }
  [[nodiscard]] bool HeldByOther() const {
    for (const Refusal& refusal : refusals) {
      if (refusal.heldByOther) return true;
    }
    return false;
  }
};

void TryParport(const PortContext& context, int block, Search& search) {
  const std::optional<ParportDevice> device = FindParport(*context.system, block);
  if (device) search.Take(OpenParport(context, *device), "the parallel-port device " + device->path);
}

void TryTerminals(const PortContext& context, int block, Search& search) {
  for (const TerminalCandidate& candidate : FindTerminals(context, block)) {
    if (search.port) return;
    if (candidate.path.empty()) {
      search.refusals.push_back({candidate.note});
      continue;
    }
    const std::string note = candidate.note.empty() ? "" : " (" + candidate.note + ")";
    search.Take(OpenTerminal(context, candidate.path, block), "the terminal device " + candidate.path + note);
  }
}

std::string Reasons(const std::vector<Refusal>& refusals) {
  std::string text;
  for (const Refusal& refusal : refusals) text += (text.empty() ? "" : "; ") + refusal.reason;
  return text;
}

}  // namespace

std::unique_ptr<RegisterPort> ChoosePort(const PortContext& context, int block) {
  const std::string port =
      "zelvo: port " + HexAddress(block) + " to " + HexAddress(block + registerCount - 1);
  Search search;
  TryParport(context, block, search);
  if (!search.port) TryTerminals(context, block, search);
  if (search.port) {
    context.tell(port + " is served by " + search.way + ".");
    return std::move(search.port);
  }
  if (search.refusals.empty()) {
    search.refusals.push_back({"no such device: no parallel port and no serial port has this address"});
  }
  // Two programs on the same lines would both fail, so a device in use is left to its user.
  if (!search.HeldByOther()) {
    const std::string why = Reasons(search.refusals);
    search.Take(OpenRaw(context, block), "raw I/O (" + why + ")");
  }
  if (search.port) {
    context.tell(port + " is served by " + search.way + ".");
    return std::move(search.port);
  }
  context.tell(port + " is served by nothing, its lines do not move: " + Reasons(search.refusals) + ".");
  return std::make_unique<NoPort>(context, block);
}

}  // namespace zelvo::linuxio
