// The operator's desk: what a script answers to questions and file dialogs, what was shown, and the seams
// that need no more than a note (serial claim, held delays, local time).
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "bench/machine.h"

namespace zelvo::bench {

class Desk final : public platform::Dialogs, public platform::Delays, public platform::Clock {
 public:
  explicit Desk(Machine& machine) : machine_(machine) {}

  /// Answered at once, and on a board with switches obeyed.
  void Message(const std::string& text) override;
  /// The oldest queued answer; no when none is queued.
  [[nodiscard]] bool AskYesNo(const std::string& text) override;
  [[nodiscard]] std::optional<std::string> OpenFile(const platform::FileFilter& filter) override;
  [[nodiscard]] std::optional<std::string> SaveFile(const platform::FileFilter& filter) override;
  /// A bench has no browser.
  void OpenInformationPage(const std::string& path) override;

  void Hold(platform::HeldDelay kind, double waitCount, double microseconds) override;
  /// Noon at the start of the program, and bench time from there.
  [[nodiscard]] std::string LocalTime() override;

  void QueueAnswer(bool yes) { answers_.push_back(yes); }
  /// Nothing stands for a cancelled dialog.
  void QueueFile(std::optional<std::string> path) { files_.push_back(std::move(path)); }
  /// The boxes since the last call, as `KIND ANSWER TEXT`.
  [[nodiscard]] std::vector<std::string> TakeMessages() { return std::exchange(messages_, {}); }

  void ProgramStarts() { started_ = machine_.Now(); }
  /// Bench time since the start of the program; 0 before.
  [[nodiscard]] Nanoseconds SinceStart() const { return started_ ? machine_.Now() - *started_ : 0; }

 private:
  void Shown(std::string message);
  [[nodiscard]] std::optional<std::string> NextFile();

  Machine& machine_;
  std::deque<bool> answers_;
  std::deque<std::optional<std::string>> files_;
  std::vector<std::string> messages_;
  std::optional<Nanoseconds> started_;
};

/// A serial device that can always be had.
class BenchSerial final : public platform::SerialClaim {
 public:
  [[nodiscard]] bool IsOpen() const override { return open_; }
  void Close() override { open_ = false; }
  [[nodiscard]] bool Open(int number, const std::string& settings) override;

  int Claims = 0;            ///< how often it was opened
  int LastNumber = 0;        ///< the COM port asked for last
  std::string LastSettings;  ///< and its settings

 private:
  bool open_ = false;
};

}  // namespace zelvo::bench
