// A desk with the mid-range configuration editor at hand: a chip is chosen, and the boxes are reached by word
// (1 or 2) and bit (13..0).
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "image/buffers.h"
#include "link/event_log.h"
#include "panel/secondary_windows.h"
#include "support/bench_session.h"

namespace zelvo::test {

inline const std::string FourteenOnes(14, '1');
inline const std::string FourteenZeros(14, '0');
inline constexpr const char* TwoWordChips[] = {"PIC16F87",  "PIC16F88",  "PIC16F882", "PIC16F883",
                                               "PIC16F884", "PIC16F886", "PIC16F887"};

class MidConfigEditor : public testing::Test {
 protected:
  void SetUp() override { session.Do({"start", "tab 1"}); }
  /// Opens the editor for `chip` with these bits in the image.
  void Open(const std::string& chip, const std::string& word1 = FourteenOnes,
            const std::string& word2 = FourteenOnes) {
    session.Do("choose Combo2 " + chip);
    image::ConfigWord1Bits = word1;
    image::ConfigWord2Bits = word2;
    session.Do("click ConfRészlEdit_F16");
  }
  static std::string Element(const char* array, int word, int bit) {
    return "ConfEdit_F16." + std::string(array) + "(" + std::to_string(14 * (word - 1) + 13 - bit) + ")";
  }
  static std::string Box(int word, int bit) { return Element("Text1", word, bit); }
  void Flip(int word, int bit) { session.Do("dblclick " + Box(word, bit)); }
  void Type(int word, int bit, const std::string& text) {
    session.Do("type " + Box(word, bit) + (text.empty() ? "" : " " + text));
  }
  std::string Shown(int word, int bit) { return session.Ask("get " + Box(word, bit)); }
  /// The texts of a word's boxes, bit 13 first.
  std::string ShownWord(int word) {
    std::string texts;
    for (int bit = 13; bit >= 0; --bit) texts += Shown(word, bit);
    return texts;
  }
  /// The log line with the number that comes next plus `ahead`.
  static std::string Line(const std::string& text, int ahead = 0) {
    return "L List4 " + std::to_string(link::EventCounter + ahead) + ":  12:00:00" + text;
  }
  BenchSession session;
};

}  // namespace zelvo::test
