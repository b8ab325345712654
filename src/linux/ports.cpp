#include "linux/ports.h"

#include <cstdio>
#include <utility>
#include <vector>

#include "linux/chooser.h"
#include "linux/terminal_search.h"

namespace zelvo::linuxio {

class PortTable {
 public:
  explicit PortTable(PortContext context) : context_(std::move(context)), ports_(0x10000 / registerCount) {}

  [[nodiscard]] RegisterPort& At(int address) {
    std::unique_ptr<RegisterPort>& port = ports_[static_cast<std::size_t>(address / registerCount)];
    if (!port) port = ChoosePort(context_, BlockOf(address));
    return *port;
  }

 private:
  const PortContext context_;
  std::vector<std::unique_ptr<RegisterPort>> ports_;
};

namespace {

constexpr int addressBits = 0xFFFF;

class PcPorts : public platform::Ports {
 public:
  explicit PcPorts(std::shared_ptr<PortTable> table) : table_(std::move(table)) {}

  void Out32(int address, int value) override {
    RegisterPort& port = table_->At(address & addressBits);
    port.Write((address & addressBits) - port.Base(), value & 0xFF);
  }

  int Inp32(int address) override {
    RegisterPort& port = table_->At(address & addressBits);
    return port.Read((address & addressBits) - port.Base());
  }

 private:
  const std::shared_ptr<PortTable> table_;
};

class PcSerialClaim : public platform::SerialClaim {
 public:
  explicit PcSerialClaim(std::shared_ptr<PortTable> table) : table_(std::move(table)) {}

  bool IsOpen() const override { return port_ != nullptr; }

  void Close() override {
    if (port_ != nullptr) port_->Release();
    port_ = nullptr;
  }

  // The settings are those of the terminal device anyway, and no character ever passes the line.
  bool Open(int number, const std::string& /*settings*/) override {
    Close();
    const int address = AddressOfCom(number);
    if (address < 0) return false;
    RegisterPort& port = table_->At(address);
    if (!port.Acquire()) return false;
    port_ = &port;
    return true;
  }

 private:
  const std::shared_ptr<PortTable> table_;
  RegisterPort* port_ = nullptr;
};

void TellOnStandardError(const std::string& line) {
  std::fprintf(stderr, "%s\n", line.c_str());
}

}  // namespace

std::shared_ptr<PortTable> MakePortTable(PortContext context) {
  if (!context.tell) context.tell = TellOnStandardError;
  return std::make_shared<PortTable>(std::move(context));
}

std::unique_ptr<platform::Ports> MakePorts(std::shared_ptr<PortTable> table) {
  return std::make_unique<PcPorts>(std::move(table));
}

std::unique_ptr<platform::SerialClaim> MakeSerialClaim(std::shared_ptr<PortTable> table) {
  return std::make_unique<PcSerialClaim>(std::move(table));
}

}  // namespace zelvo::linuxio
