// The bench: the whole program on a simulated machine, and the commands that drive and look at it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/bench_pump.h"
#include "bench/desk.h"
#include "bench/machine.h"
#include "panel/window.h"

namespace zelvo::bench {

/// Only one bench can stand at a time: it installs itself behind `platform::seams`.
class Bench final : private panel::Witness {
 public:
  /// Takes each line of output, without a line end.
  using LineSink = std::function<void(std::string_view line)>;

  explicit Bench(LineSink sink);
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;
  ~Bench() override;

  /// Runs one line of a script: answer lines, then `ok` or `error: REASON`; an empty line and a comment print
  /// nothing. True unless the answer was an error.
  bool Run(std::string_view line);
  /// True while every command so far has answered `ok`.
  [[nodiscard]] bool AllOk() const { return allOk_; }

  /// Runs `command` when the bar of `window` is set to `value`, once.
  void AtProgress(std::string window, int value, std::string command);

  Machine machine;
  BenchPump pump;
  Desk desk;
  BenchSerial serial;
  bool Started = false;  ///< the program's start-up has begun

 private:
  struct ProgressCommand {
    std::string window;
    int value;
    std::string command;
  };

  void WindowLoaded(panel::Window& window) override;
  void WindowUnloaded(panel::Window& window) override;
  void BarStepped(panel::ProgressBar& bar, int value) override;
  void LineLogged(panel::ListBox& list, const std::string& line) override;

  LineSink sink_;
  std::vector<ProgressCommand> progressCommands_;
  bool allOk_ = true;
};

}  // namespace zelvo::bench
