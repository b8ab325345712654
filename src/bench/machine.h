// The simulated machine: its clock, its ports with the board on them, and the records of what happens there.
#pragma once

#include <memory>
#include <string>

#include "bench/board.h"
#include "bench/vcd_writer.h"
#include "bench/wire_log.h"
#include "platform/seams.h"

namespace zelvo::bench {

class Machine final : public platform::Ports {
 public:
  static constexpr Nanoseconds AccessTime = 1000;  ///< of one port access

  Machine();
  ~Machine() override;

  void Out32(int address, int value) override;
  [[nodiscard]] int Inp32(int address) override;

  /// Time since the machine was switched on. It moves with port accesses, pump passes and held delays only.
  [[nodiscard]] Nanoseconds Now() const { return now_; }
  void Advance(Nanoseconds time) { now_ += time; }

  /// The operator reads a message and does at the board what it asks for.
  void Obey(const std::string& message);

  /// Puts another board on the machine; the chip moves from the old socket to the new one.
  void PutBoard(std::unique_ptr<Board> board);
  /// Puts a chip into the socket; nullptr empties it.
  void PutChip(std::unique_ptr<Chip> chip);
  /// The chip in the socket; nullptr when it is empty.
  [[nodiscard]] Chip* Socket() { return board_->Socket(); }

  /// Begins a new wire log and ends the one before; false when the file cannot be written, and nothing
  /// changes, or when the one before could not be written to its end.
  [[nodiscard]] bool BeginWire(const std::string& path);
  /// False when the log could not be written to its end.
  [[nodiscard]] bool EndWire();
  /// The wire log; nullptr while none is written.
  [[nodiscard]] WireLog* Wire() { return wire_.get(); }

  /// Begins the waveform file; false when it cannot be written.
  [[nodiscard]] bool BeginVcd(const std::string& path);
  [[nodiscard]] bool EndVcd();
  /// Brings the files of both records up to date.
  void FlushRecords();

 private:
  void SampleLines() {
    if (vcd_) vcd_->Sample(*board_, now_);
  }

  Nanoseconds now_ = 0;
  std::unique_ptr<Board> board_;
  std::unique_ptr<WireLog> wire_;
  std::unique_ptr<VcdWriter> vcd_;
};

}  // namespace zelvo::bench
