// The simulated programmer board and the socket on it. The board knows numbered ports only: nothing of the
// program's masks or flags.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::bench {

using Nanoseconds = std::int64_t;

/// Logical levels at the socket: polarity is taken out by the board.
struct LineLevels {
  bool vdd = false;  ///< supply at 5 V
  bool vpp = false;  ///< programming voltage on MCLR
  bool pgc = false;
  bool pgd = false;  ///< what the board drives; the chip may hold the line while it shifts out
  bool operator==(const LineLevels&) const = default;
};

/// A kind of wait that was shorter than the chip's own minimum, as `timing` tells it.
struct TimingFault {
  std::string kind;          ///< "P9", "P9 config", "P10", "P11", ...
  Nanoseconds shortest = 0;  ///< the shortest that was seen
  Nanoseconds minimum = 0;   ///< what the programming specification asks for
  std::uint64_t count = 0;
};

/// What sits in the socket: a state machine of the chip itself.
class Chip {
 public:
  virtual ~Chip() = default;
  [[nodiscard]] virtual const std::string& Name() const = 0;
  /// Called with every change of a level.
  virtual void Drive(const LineLevels& lines, Nanoseconds now) = 0;
  /// The level that the chip drives on PGD; nothing while its pin is an input.
  [[nodiscard]] virtual std::optional<bool> DataOut(Nanoseconds now) = 0;
  /// One byte put in as if a programmer had done it before, by its address in an Intel HEX file. False when
  /// the chip has no such location.
  [[nodiscard]] virtual bool Burn(std::uint32_t address, std::uint8_t value) = 0;
  /// Every location that is not in its erased state, by its address in an Intel HEX file.
  [[nodiscard]] virtual std::map<std::uint32_t, std::uint8_t> Image() const = 0;
  [[nodiscard]] virtual std::vector<TimingFault> Timing() const = 0;
};

/// A blank chip of the catalogue; nullptr for an unknown name. `deviceId` in place of the chip's own: DEVID2
/// and DEVID1 as one 16-bit number, of a mid-range chip the word at 2006h.
[[nodiscard]] std::unique_ptr<Chip> MakeChip(const std::string& name, std::optional<std::uint32_t> deviceId);
/// The names that `MakeChip` knows.
[[nodiscard]] std::vector<std::string> ChipNames();

struct LptWiring {
  int base = 0x378;
  int vdd = 4, vpp = 8, data = 1, clock = 2;  ///< bit values of the data register
  bool inputBusy = false;                     ///< false: ACK
  bool manual = false;                        ///< Vdd and Vpp have switches on the board and no line
  bool vddInverted = false, vppInverted = false, clockInverted = false, dataInverted = false,
       inputInverted = false;
};

struct ComWiring {
  int base = 0x3F8;
  bool pgdInverted = false, pgcInverted = false, inputInverted = false, vppInverted = false;
};

/// The board on one port of the machine, with its socket.
class Board {
 public:
  virtual ~Board() = default;
  virtual void Write(int address, int value, Nanoseconds now) = 0;
  [[nodiscard]] virtual int Read(int address, Nanoseconds now) = 0;
  /// A message that the operator has read and obeyed, as far as it asks for something on this board. The time
  /// that it took; nothing on a board without switches.
  [[nodiscard]] virtual Nanoseconds Obey(std::string_view, Nanoseconds) { return 0; }
  [[nodiscard]] virtual LineLevels Levels() const = 0;
  /// The level on the data-in line at the socket: what the chip drives, else what the board drives or floats.
  [[nodiscard]] virtual bool DataIn(Nanoseconds now) = 0;
  /// Takes the chip out (nullptr) or puts another one in. A chip put in sees the levels that stand.
  virtual void Insert(std::unique_ptr<Chip> chip, Nanoseconds now) = 0;
  [[nodiscard]] virtual Chip* Socket() = 0;
  /// Gives the chip back for a move to another board.
  [[nodiscard]] virtual std::unique_ptr<Chip> Remove(Nanoseconds now) = 0;
};

[[nodiscard]] std::unique_ptr<Board> MakeLptBoard(const LptWiring& wiring);
[[nodiscard]] std::unique_ptr<Board> MakeComBoard(const ComWiring& wiring);
/// No board: writes go nowhere, every read gives 0xFF. The socket still holds a chip, without power.
[[nodiscard]] std::unique_ptr<Board> MakeNoBoard();

}  // namespace zelvo::bench
