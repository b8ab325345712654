// What a clocked bit costs the program itself through each way to a port: the system calls do nothing here.
#include <benchmark/benchmark.h>

#include <string>

#include "icsp/pic18_engine.h"
#include "link/port.h"
#include "linux/board_idle.h"
#include "linux/ports.h"
#include "platform/seams.h"

namespace zelvo {
namespace {

/// A kernel that knows one parallel port at 378h and one serial port at 3F8h, and answers at once.
linuxio::SystemCalls NullKernel() {
  linuxio::SystemCalls calls{};
  calls.open = [](const char*, int) { return 100; };
  calls.close = [](int) { return 0; };
  calls.ioctl = [](int, unsigned long request, void* argument) {
    benchmark::DoNotOptimize(request);
    benchmark::DoNotOptimize(argument);
    return 0;
  };
  calls.flock = [](int, int) { return 0; };
  calls.tcgetattr = [](int, termios*) { return 0; };
  calls.tcsetattr = [](int, int, const termios*) { return 0; };
  calls.ioperm = [](unsigned long, unsigned long, int) { return 0; };
  calls.outb = [](unsigned char value, unsigned short port) { benchmark::DoNotOptimize(value + port); };
  calls.inb = [](unsigned short port) -> unsigned char {
    benchmark::DoNotOptimize(port);
    return 0x5A;
  };
  calls.listFolder = [](const std::string& path) -> std::vector<std::string> {
    if (path == "/proc/sys/dev/parport") return {"parport0"};
    if (path == "/sys/class/tty") return {"ttyS0"};
    return {};
  };
  calls.readFile = [](const std::string& path) -> std::optional<std::string> {
    if (path.ends_with("base-addr")) return "888\t1912\n";
    if (path.ends_with("ttyS0/port")) return "0x3F8\n";
    if (path.ends_with("ttyS0/type")) return "4\n";
    return std::nullopt;
  };
  calls.resolveLink = [](const std::string&) -> std::optional<std::string> { return std::nullopt; };
  calls.groupOf = [](const std::string&) { return std::string(); };
  return calls;
}

class NullPump final : public platform::EventPump {
 public:
  void EdgeWait(long long passes) override { benchmark::DoNotOptimize(passes); }
  void Once() override {}
  void Until(const bool& flag) override { benchmark::DoNotOptimize(flag); }
};

enum Way { ParallelDevice, TerminalDevice, RawPrinterPort, RawSerialPort };

void InstallWay(Way way) {
  static const linuxio::SystemCalls kernel = NullKernel();
  static NullPump pump;
  linuxio::PortContext context;
  context.system = &kernel;
  context.idleLevels = linuxio::IdleLevelsOfBoard;
  context.tell = [](const std::string&) {};
  static std::unique_ptr<platform::Ports> ports;
  ports.reset();
  ports = linuxio::MakePorts(linuxio::MakePortTable(context));
  platform::seams.ports = ports.get();
  platform::seams.pump = &pump;
  const int bases[] = {0x378, 0x3F8, 0x278, 0x2F8};
  link::PortBase = static_cast<std::int16_t>(bases[way]);
  link::ComMode = way == TerminalDevice || way == RawSerialPort;
  link::LptMode = !link::ComMode;
}

/// Told for one bit.
void ClockedBitThroughThePort(benchmark::State& state) {
  InstallWay(static_cast<Way>(state.range(0)));
  const std::string payload = "1010011000111001";
  for (auto _ : state) icsp::ClockOutBits(payload);
  state.counters["per_bit"] = benchmark::Counter(static_cast<double>(state.iterations() * payload.size()),
                                                 benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(ClockedBitThroughThePort)
    ->ArgName("way")
    ->Arg(ParallelDevice)
    ->Arg(TerminalDevice)
    ->Arg(RawPrinterPort)
    ->Arg(RawSerialPort);

}  // namespace
}  // namespace zelvo
