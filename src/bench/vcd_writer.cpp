#include "bench/vcd_writer.h"

#include <string>
#include <utility>

namespace zelvo::bench {
namespace {

constexpr std::array<const char*, 5> LineNames{"vdd", "vpp", "pgc", "pgd", "data"};
/// The identifier of line `i` in the file: "!", "\"", "#", "$", "%".
constexpr char Identifier(std::size_t line) {
  return static_cast<char>('!' + line);
}

}  // namespace

VcdWriter::VcdWriter(std::unique_ptr<BufferedFile> file, Board& board, Nanoseconds now)
    : file_(std::move(file)), last_(Look(board, now)) {
  file_->Put("$timescale 1ns $end\n$scope module socket $end\n");
  for (std::size_t line = 0; line < LineNames.size(); ++line) {
    file_->Put(std::string("$var wire 1 ") + Identifier(line) + ' ' + LineNames[line] + " $end\n");
  }
  file_->Put("$upscope $end\n$enddefinitions $end\n");
  Time(now);
  file_->Put("$dumpvars\n");
  for (std::size_t line = 0; line < last_.size(); ++line) Change(line, last_[line]);
  file_->Put("$end\n");
}

VcdWriter::Levels VcdWriter::Look(Board& board, Nanoseconds now) {
  const LineLevels driven = board.Levels();
  return {driven.vdd, driven.vpp, driven.pgc, driven.pgd, board.DataIn(now)};
}

void VcdWriter::Time(Nanoseconds now) {
  if (lastTime_ == now) return;
  lastTime_ = now;
  file_->Put('#' + std::to_string(now) + '\n');
}

void VcdWriter::Change(std::size_t line, bool level) {
  const char text[] = {level ? '1' : '0', Identifier(line), '\n'};
  file_->Put({text, sizeof text});
}

void VcdWriter::Sample(Board& board, Nanoseconds now) {
  const Levels levels = Look(board, now);
  if (levels == last_) return;
  Time(now);
  for (std::size_t line = 0; line < levels.size(); ++line) {
    if (levels[line] != last_[line]) Change(line, levels[line]);
  }
  last_ = levels;
}

void VcdWriter::End(Nanoseconds now) {
  Time(now);
}

}  // namespace zelvo::bench
