#include "bench/machine.h"

#include <utility>

namespace zelvo::bench {

Machine::Machine() : board_(MakeNoBoard()) {}

Machine::~Machine() {
  if (vcd_) vcd_->End(now_);
}

void Machine::Out32(int address, int value) {
  now_ += AccessTime;
  if (wire_) wire_->PortWrite(address, value);
  board_->Write(address, value, now_);
  SampleLines();
}

int Machine::Inp32(int address) {
  now_ += AccessTime;
  const int value = board_->Read(address, now_);
  if (wire_) wire_->PortRead(address, value);
  SampleLines();
  return value;
}

void Machine::Obey(const std::string& message) {
  now_ += board_->Obey(message, now_);
  SampleLines();
}

void Machine::PutBoard(std::unique_ptr<Board> board) {
  std::unique_ptr<Chip> chip = board_->Remove(now_);
  board_ = std::move(board);
  board_->Insert(std::move(chip), now_);
  SampleLines();
}

void Machine::PutChip(std::unique_ptr<Chip> chip) {
  board_->Insert(std::move(chip), now_);
  SampleLines();
}

bool Machine::BeginWire(const std::string& path) {
  // What the log before still holds must not land in a new one of the same name.
  if (wire_) wire_->Flush();
  const bool whole = !wire_ || wire_->Whole();
  std::unique_ptr<BufferedFile> file = BufferedFile::Create(path);
  if (!file) return false;
  wire_ = std::make_unique<WireLog>(std::move(file));
  return whole;
}

bool Machine::EndWire() {
  if (!wire_) return true;
  wire_->Flush();
  const bool whole = wire_->Whole();
  wire_.reset();
  return whole;
}

bool Machine::BeginVcd(const std::string& path) {
  std::unique_ptr<BufferedFile> file = BufferedFile::Create(path);
  if (!file) return false;
  vcd_ = std::make_unique<VcdWriter>(std::move(file), *board_, now_);
  return true;
}

bool Machine::EndVcd() {
  if (!vcd_) return true;
  vcd_->End(now_);
  vcd_->Flush();
  const bool whole = vcd_->Whole();
  vcd_.reset();
  return whole;
}

void Machine::FlushRecords() {
  if (wire_) wire_->Flush();
  if (vcd_) vcd_->Flush();
}

}  // namespace zelvo::bench
