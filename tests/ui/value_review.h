// The ground of the reviews' tests: a chip, bytes as a read leaves them, and what the log says.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>

#include "image/buffers.h"
#include "support/bench_session.h"

namespace zelvo::test {

constexpr int GreenVerdict = 0xC0FFC0;
constexpr int RedVerdict = 0xC0C0FF;

/// A program on the PIC18 page with a chip whose bytes 1, 5 and 8 do not exist.
class ValueReview : public testing::Test {
 protected:
  void SetUp() override {
    session.Do({"board lpt", "start", "tab 2", "choose Combo1 PIC18F452"});
    std::fill(image::ReadBackBytes.begin(), image::ReadBackBytes.end(), 0);
  }
  /// The texts behind number and time, newest first.
  Lines Events(std::size_t count) {
    Lines lines = session.Look("list List1");
    lines.resize(count);
    for (std::string& line : lines) line = line.substr(line.find(":  ") + 11);
    return lines;
  }
  static void PutBytes(std::initializer_list<int> bytes) {
    std::copy(bytes.begin(), bytes.end(), image::ReadBackBytes.begin() + 1);
  }
  BenchSession session;
};

}  // namespace zelvo::test
