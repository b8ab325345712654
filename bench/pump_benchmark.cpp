// The desktop's event pump against the clock: how long passes and holds last, what serving costs, and a whole
// write of a PIC18F452 in real time against the sum of its waits.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QApplication>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include "apps/sim_machine.h"
#include "bench/desk.h"
#include "image/buffers.h"
#include "panel/form1.h"
#include "panel/operator.h"
#include "panel/secondary_windows.h"
#include "qt/desktop.h"
#include "qt/monotonic.h"
#include "ui/startup.h"

namespace zelvo {
namespace {

namespace fs = std::filesystem;

/// Adds up what the waits ask for, on the way to the pump itself, or in its place.
class Floor final : public platform::EventPump, public platform::Timers, public platform::Delays {
 public:
  Floor(platform::EventPump& pump, platform::Timers& timers, platform::Delays& delays)
      : pump_(pump), timers_(timers), delays_(delays) {}

  void EdgeWait(long long passes) override {
    if (passes > 0) microseconds_ += passes;
    if (!skip_) pump_.EdgeWait(passes);
  }
  void Once() override { EdgeWait(1); }
  void Until(const bool& flag) override {
    if (skip_) {
      *flag_ = true;
    } else {
      pump_.Until(flag);
    }
  }
  void Enable(platform::HoldTimer timer, bool& flag) override {
    microseconds_ += timer == platform::HoldTimer::P9 ? 1'000 : 6'000;
    flag_ = &flag;
    timers_.Enable(timer, flag);
  }
  void Disable(platform::HoldTimer timer) override { timers_.Disable(timer); }
  void Hold(platform::HeldDelay kind, double waitCount, double microseconds) override {
    held_ += microseconds;
    if (!skip_) delays_.Hold(kind, waitCount, microseconds);
  }

  /// Of the held delays, which are no part of the floor.
  [[nodiscard]] double HeldSeconds() const { return held_ / 1e6; }
  [[nodiscard]] double Seconds() const { return static_cast<double>(microseconds_) / 1e6; }
  /// Begins a new sum. With `skip` the waits themselves take no time.
  void Begin(bool skip) {
    microseconds_ = 0;
    held_ = 0;
    skip_ = skip;
  }

 private:
  platform::EventPump& pump_;
  platform::Timers& timers_;
  platform::Delays& delays_;
  long long microseconds_ = 0;
  double held_ = 0;
  bool* flag_ = nullptr;
  bool skip_ = false;
};

/// The program of zelvo-sim, started with the shipped settings. There can be only one in a process.
class Sim {
 public:
  static Sim& Only() {
    if (!only) only = std::make_unique<Sim>();
    return *only;
  }
  /// Its windows must go before the application does.
  static void End() { only.reset(); }

  platform::EventPump& Pump() { return *pump_; }
  platform::Timers& Timers() { return *timers_; }
  desktop::SimMachine& Machine() { return machine_; }
  Floor& Waits() { return *floor_; }

  /// All of the chip's program memory, none of it blank.
  void PrepareWrite(const std::string& chip) {
    using panel::Form1;
    machine_.Insert(bench::MakeChip(chip, std::nullopt));
    Act(panel::HandTab(Form1.TabStrip1, panel::Pic18Tab));
    Act(panel::HandChoose(Form1.Combo1, chip));
    Act(panel::HandTick(Form1.Check9, true));
    Act(panel::HandScroll(Form1.ÁSeb, 1));
    for (int row = 1; row < Form1.MSFlexGrid1.Rows(); ++row) {
      for (int col = 1; col <= 8; ++col) image::MainBuffer(col, row) = "1234";
    }
  }
  static void Act(panel::HandResult result) {
    if (result != panel::HandResult::Done) throw std::runtime_error("a control was out of reach");
  }

  Sim()
      : machine_(bench::MakeLptBoard({.clockInverted = true, .dataInverted = true, .inputInverted = true})),
        folder_(fs::temp_directory_path() / ("zelvo-pump-" + std::to_string(getpid()))),
        desk_(std::make_unique<desktop::Desktop>()) {
    fs::create_directories(folder_);
    for (const auto& file : fs::directory_iterator(ZELVO_SOURCE_DIR "/settings")) {
      fs::copy_file(file.path(), folder_ / file.path().filename(), fs::copy_options::overwrite_existing);
    }
    platform::programFolder = folder_.string();
    platform::seams.ports = &machine_;
    platform::seams.serial = &serial_;
    pump_ = platform::seams.pump;
    timers_ = platform::seams.timers;
    floor_ = std::make_unique<Floor>(*pump_, *timers_, *platform::seams.delays);
    platform::seams.pump = floor_.get();
    platform::seams.timers = floor_.get();
    platform::seams.delays = floor_.get();
    ui::StartUp();
    desk_->Refresh();
    QCoreApplication::processEvents();
  }
  ~Sim() { fs::remove_all(folder_); }

 private:
  static inline std::unique_ptr<Sim> only;
  desktop::SimMachine machine_;
  bench::BenchSerial serial_;
  fs::path folder_;
  std::unique_ptr<desktop::Desktop> desk_;
  platform::EventPump* pump_;
  platform::Timers* timers_;
  std::unique_ptr<Floor> floor_;
};

void EdgeWait(benchmark::State& state) {
  platform::EventPump& pump = Sim::Only().Pump();
  for (auto _ : state) pump.EdgeWait(state.range(0));
  state.counters["asked_us"] = static_cast<double>(state.range(0));
}
BENCHMARK(EdgeWait)->ArgName("passes")->Arg(1)->Arg(10)->Arg(100)->Arg(1000)->UseRealTime()->Unit(
    benchmark::kMicrosecond);

void Hold(benchmark::State& state) {
  Sim& sim = Sim::Only();
  const auto timer = state.range(0) == 1 ? platform::HoldTimer::P9 : platform::HoldTimer::P11;
  for (auto _ : state) {
    bool ticked = false;
    sim.Timers().Enable(timer, ticked);
    sim.Pump().Until(ticked);
    sim.Timers().Disable(timer);
  }
}
BENCHMARK(Hold)->ArgName("ms")->Arg(1)->Arg(6)->UseRealTime()->Unit(benchmark::kMicrosecond);

void ServeNothing(benchmark::State& state) {
  Sim::Only();
  for (auto _ : state) QCoreApplication::processEvents();
}
BENCHMARK(ServeNothing)->Unit(benchmark::kMicrosecond);

void PortAccess(benchmark::State& state) {
  desktop::SimMachine& machine = Sim::Only().Machine();
  machine.Insert(bench::MakeChip("PIC18F452", std::nullopt));
  int value = 0;
  for (auto _ : state) {
    machine.Out32(0x378, value ^= 2);
    benchmark::DoNotOptimize(machine.Inp32(0x379));
  }
  state.SetItemsProcessed(2 * state.iterations());
}
BENCHMARK(PortAccess);

void WholeWriteInRealTime(benchmark::State& state) {
  Sim& sim = Sim::Only();
  double lasted = 0;
  sim.PrepareWrite("PIC18F452");
  sim.Waits().Begin(false);
  for (auto _ : state) {
    const std::int64_t start = desktop::MonotonicNow();
    Sim::Act(panel::HandClick(panel::Form1.FlashÍr));
    lasted += static_cast<double>(desktop::MonotonicNow() - start) / 1e9;
  }
  state.counters["floor_s"] = sim.Waits().Seconds() / static_cast<double>(state.iterations());
  state.counters["held_s"] = sim.Waits().HeldSeconds() / static_cast<double>(state.iterations());
  state.counters["ratio"] = lasted / sim.Waits().Seconds();
}
BENCHMARK(WholeWriteInRealTime)->UseRealTime()->Unit(benchmark::kSecond)->Iterations(1);

/// The same write with waits of no length: what the program and the simulated chip themselves take, which
/// does not hang on what else the machine is doing.
void WholeWriteWithoutWaits(benchmark::State& state) {
  Sim& sim = Sim::Only();
  sim.PrepareWrite("PIC18F452");
  sim.Waits().Begin(true);
  for (auto _ : state) Sim::Act(panel::HandClick(panel::Form1.FlashÍr));
  state.counters["floor_s"] = sim.Waits().Seconds() / static_cast<double>(state.iterations());
  sim.Waits().Begin(false);
}
BENCHMARK(WholeWriteWithoutWaits)->Unit(benchmark::kSecond)->Iterations(3);

}  // namespace
}  // namespace zelvo

int main(int count, char** words) {
  QApplication application(count, words);
  zelvo::desktop::PrepareApplication(application);
  benchmark::Initialize(&count, words);
  if (benchmark::ReportUnrecognizedArguments(count, words)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  zelvo::Sim::End();
  return 0;
}
