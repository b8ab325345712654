#include "bench/wire_log.h"

#include <charconv>

#include "bench/text.h"

namespace zelvo::bench {

void WireLog::Words(std::string_view kind, std::string_view first, std::string_view rest) {
  file_->Put(kind);
  file_->Put(" ");
  file_->Put(first);
  if (rest.data() != nullptr) {
    file_->Put(" ");
    file_->Put(rest);
  }
  file_->Put("\n");
}

void WireLog::Passes(long long passes) {
  char* p = file_->Reserve(24);
  p[0] = 'P';
  p[1] = ' ';
  char* end = std::to_chars(p + 2, p + 23, passes).ptr;
  *end = '\n';
  file_->Commit(end + 1);
}

void WireLog::Hold(platform::HoldTimer timer) {
  file_->Put(timer == platform::HoldTimer::P9 ? "S9\n" : "S11\n");
}

void WireLog::Delay(platform::HeldDelay kind, double waitCount) {
  switch (kind) {
    case platform::HeldDelay::Settle:
      return file_->Put("D settle\n");
    case platform::HeldDelay::PowerCycle:
      return Words("D", "cycle", NumberText(waitCount));
    case platform::HeldDelay::Szün:
      return file_->Put("D szün\n");
  }
}

void WireLog::Bar(std::string_view window, int value) {
  Words("B", window, std::to_string(value));
}
void WireLog::Line(std::string_view list, std::string_view line) {
  Words("L", list, OneLine(line));
}
void WireLog::Message(std::string_view message) {
  Words("M", message, {});
}
void WireLog::Loaded(std::string_view window) {
  Words("+", window, {});
}
void WireLog::Unloaded(std::string_view window) {
  Words("-", window, {});
}
void WireLog::Mark(std::string_view text) {
  Words("#", text, {});
}

}  // namespace zelvo::bench
