#include "bench/pic18_core.h"

#include <algorithm>

namespace zelvo::bench {
namespace {

constexpr std::uint8_t kEecon1Bits = 0xDF;   // bit 5 is not there
constexpr std::uint8_t kTblptruBits = 0x3F;  // 22 bits of table pointer
constexpr std::uint32_t kPointerMask = 0x3FFFFF;

enum class Operation : std::uint8_t { Movlb, Movlw, Decf, Incf, Movf, Setf, Clrf, Movwf, Bsf, Bcf };

struct Instruction {
  std::uint16_t mask;
  std::uint16_t code;
  Operation operation;
};

// NOP, GOTO and the second word of GOTO need no row: they change nothing that can be seen from outside, since
// code protection is the only thing that looks at the program counter here.
constexpr Instruction kInstructions[] = {
    {0xFF00, 0x0E00, Operation::Movlw}, {0xFE00, 0x6E00, Operation::Movwf}, {0xFC00, 0x5000, Operation::Movf},
    {0xF000, 0x8000, Operation::Bsf},   {0xF000, 0x9000, Operation::Bcf},   {0xFC00, 0x2800, Operation::Incf},
    {0xFC00, 0x0400, Operation::Decf},  {0xFE00, 0x6A00, Operation::Clrf},  {0xFE00, 0x6800, Operation::Setf},
    {0xFFF0, 0x0100, Operation::Movlb},
};
constexpr std::uint16_t kBanked = 0x0100;
constexpr std::uint16_t kToFile = 0x0200;

}  // namespace

void Pic18Core::Reset() {
  data_.fill(0);
  request_ = Request::None;
  instruction_ = first_ = second_ = 0;
}

std::uint32_t Pic18Core::TablePointer() const {
  return static_cast<std::uint32_t>(data_[kTblptrl] | data_[kTblptrh] << 8 | data_[kTblptru] << 16);
}

void Pic18Core::MoveTablePointer(int bytes) {
  const std::uint32_t pointer = (TablePointer() + static_cast<std::uint32_t>(bytes)) & kPointerMask;
  data_[kTblptrl] = static_cast<std::uint8_t>(pointer);
  data_[kTblptrh] = static_cast<std::uint8_t>(pointer >> 8);
  data_[kTblptru] = static_cast<std::uint8_t>(pointer >> 16);
}

std::uint32_t Pic18Core::EepromAddress() const {
  return static_cast<std::uint32_t>(data_[kEeadr] | data_[kEeadrh] << 8);
}

std::uint16_t Pic18Core::FileAddress(std::uint16_t word) const {
  const std::uint16_t file = word & 0xFF;
  if ((word & kBanked) != 0) return static_cast<std::uint16_t>(data_[kBsr] << 8 | file);
  return file < 0x80 ? file : static_cast<std::uint16_t>(0xF00 | file);
}

void Pic18Core::Write(std::uint16_t address, std::uint8_t value) {
  switch (address) {
    case kEecon1:
      WriteEecon1(value);
      break;
    case kEecon2:
      WriteEecon2(value);
      break;
    case kTblptru:
      data_[address] = value & kTblptruBits;
      break;
    case kBsr:
      data_[address] = value & 0x0F;
      break;
    default:
      data_[address] = value;
  }
}

void Pic18Core::WriteEecon1(std::uint8_t value) {
  const bool busy = (data_[kEecon1] & kWr) != 0;  // WR can be set but not cleared by software
  const bool unlocked = !unlockNeeded_ || (second_ != 0 && second_ + 1 == instruction_);
  const bool start = !busy && (value & kWr) != 0 && (value & kWren) != 0 && unlocked;
  data_[kEecon1] =
      static_cast<std::uint8_t>((value & kEecon1Bits & ~(kWr | kRd)) | (busy || start ? kWr : 0));
  if ((value & kRd) != 0) request_ = Request::EepromRead;
  if (start) request_ = Request::Write;
}

void Pic18Core::WriteEecon2(std::uint8_t value) {
  // 55h, MOVLW, AAh: the instructions follow each other without a gap. EECON2 itself is no register and reads
  // 0.
  second_ = value == 0xAA && first_ != 0 && first_ + 2 == instruction_ ? instruction_ : 0;
  first_ = value == 0x55 ? instruction_ : 0;
}

void Pic18Core::SetBit(std::uint16_t address, std::uint8_t bit) {
  // A second start while the first write runs: the bit stands already, but somebody asks for work.
  const bool again = address == kEecon1 && bit == kWr && (data_[kEecon1] & kWr) != 0;
  Write(address, data_[address] | bit);
  if (again) request_ = Request::Write;
}

Pic18Core::Request Pic18Core::Execute(std::uint16_t word) {
  ++instruction_;
  request_ = Request::None;
  const auto* found = std::find_if(std::begin(kInstructions), std::end(kInstructions),
                                   [word](const Instruction& row) { return (word & row.mask) == row.code; });
  if (found == std::end(kInstructions)) return request_;

  const std::uint16_t address = FileAddress(word);
  const auto literal = static_cast<std::uint8_t>(word);
  const auto bit = static_cast<std::uint8_t>(1U << (word >> 9 & 7U));
  const auto store = [&](int result) {
    Write((word & kToFile) != 0 ? address : kWreg, static_cast<std::uint8_t>(result));
  };
  switch (found->operation) {
    case Operation::Movlb:
      Write(kBsr, literal);
      break;
    case Operation::Movlw:
      Write(kWreg, literal);
      break;
    case Operation::Decf:
      store(data_[address] - 1);
      break;
    case Operation::Incf:
      store(data_[address] + 1);
      break;
    case Operation::Movf:
      store(data_[address]);
      break;
    case Operation::Setf:
      Write(address, 0xFF);
      break;
    case Operation::Clrf:
      Write(address, 0);
      break;
    case Operation::Movwf:
      Write(address, data_[kWreg]);
      break;
    case Operation::Bsf:
      SetBit(address, bit);
      break;
    case Operation::Bcf:
      Write(address, static_cast<std::uint8_t>(data_[address] & ~bit));
      break;
  }
  return request_;
}

}  // namespace zelvo::bench
