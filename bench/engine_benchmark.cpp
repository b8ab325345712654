// What a clocked bit costs the program itself: the port accesses and the pump passes do nothing here.
#include <benchmark/benchmark.h>

#include <string>

#include "icsp/pic18_engine.h"
#include "link/port.h"
#include "platform/seams.h"

namespace zelvo {
namespace {

class NullPorts final : public platform::Ports {
 public:
  void Out32(int address, int value) override { benchmark::DoNotOptimize(address + value); }
  [[nodiscard]] int Inp32(int address) override {
    benchmark::DoNotOptimize(address);
    return 0x5A;
  }
};

class NullPump final : public platform::EventPump {
 public:
  void EdgeWait(long long passes) override { benchmark::DoNotOptimize(passes); }
  void Once() override {}
  void Until(const bool& flag) override { benchmark::DoNotOptimize(flag); }
};

void InstallNullMachine(bool inverted) {
  static NullPorts ports;
  static NullPump pump;
  platform::seams.ports = &ports;
  platform::seams.pump = &pump;
  link::LptMode = true;
  link::ClockInverted = link::DataInverted = link::InputInverted = inverted;
}

/// The 16 payload bits of a command; time and rate are told for one bit.
void ClockedBitOut(benchmark::State& state) {
  InstallNullMachine(state.range(0) != 0);
  const std::string payload = "1010011000111001";
  for (auto _ : state) icsp::ClockOutBits(payload);
  state.counters["per_bit"] = benchmark::Counter(static_cast<double>(state.iterations() * payload.size()),
                                                 benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(ClockedBitOut)->ArgName("inverted")->Arg(0)->Arg(1);

void ClockedBitIn(benchmark::State& state) {
  InstallNullMachine(state.range(0) != 0);
  for (auto _ : state) benchmark::DoNotOptimize(icsp::ClockInBits());
  state.counters["per_bit"] = benchmark::Counter(static_cast<double>(state.iterations() * 8),
                                                 benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(ClockedBitIn)->ArgName("inverted")->Arg(0)->Arg(1);

}  // namespace
}  // namespace zelvo
