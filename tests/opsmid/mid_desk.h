// The program on its mid-range page, with chips cut down so that a whole log stays readable.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>

#include "devices/selection.h"
#include "image/buffers.h"
#include "link/delays.h"
#include "link/event_log.h"
#include "link/run_state.h"
#include "link/target_power.h"
#include "mid_wire.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "support/answering_chip.h"

namespace zelvo::test {

constexpr int CutWords = 16;
constexpr int CutBytes = 8;
constexpr long long Brisk = 2;  // passes of an edge

[[nodiscard]] inline std::string HexDigits(int value, int width) {
  char text[8];
  std::snprintf(text, sizeof text, "%0*X", width, static_cast<unsigned>(value));
  return text;
}

[[nodiscard]] inline int Count(const Lines& log, std::string_view line) {
  return static_cast<int>(std::ranges::count(log, line));
}
/// The lines of a log that begin with one of `kinds`.
[[nodiscard]] inline Lines Only(const Lines& log, std::string_view kinds) {
  Lines lines;
  for (const std::string& line : log) {
    if (kinds.find(line[0]) != std::string_view::npos) lines.push_back(line);
  }
  return lines;
}

class MidDesk {
 public:
  explicit MidDesk(const BoardKind& kind = BoardKinds().front())
      : session(kind.SettingsFiles()), kind_(kind) {
    session.Do({kind.BoardCommand(), "start"});
    link::SpeedSetting = link::WaitCount = Brisk;
  }

  /// Chooses a chip, which erases the image, and cuts its memories down.
  void Choose(const MidChip& chip, int words = CutWords) {
    session.Do("choose Combo2 " + chip.Name());
    devices::FlashWordMax = words - 1;
    if (devices::EepromMax != 0) devices::EepromMax = CutBytes - 1;
  }
  static void Fill(const Values& words) {
    for (int i = 0; i < static_cast<int>(words.size()); ++i)
      image::MainBuffer(i % 8 + 1, i / 8 + 1) = HexDigits(words[static_cast<std::size_t>(i)], 4);
  }
  static void FillEeprom(const Values& bytes) {
    for (int i = 0; i < static_cast<int>(bytes.size()); ++i)
      image::EepromBuffer(i % 8 + 1, i / 8 + 1) = HexDigits(bytes[static_cast<std::size_t>(i)], 2);
  }
  /// The image of a job.
  static void Take(const FlashJob& job) {
    Fill(job.words);
    for (std::size_t i = 0; i < job.ids.size(); ++i)
      image::MidIdWords[i + 1] = static_cast<std::int16_t>(job.ids[i]);
    const auto bits = [](int word) {
      std::string text;
      for (int bit = 13; bit >= 0; --bit) text += (word >> bit & 1) != 0 ? '1' : '0';
      return text;
    };
    image::ConfigWord1Bits = bits(job.config1);
    image::ConfigWord2Bits = bits(job.config2);
  }
  /// The lines at idle and no review open: where the model begins.
  static void Rest() {
    link::TargetPowerOff();
    for (panel::Window* window : panel::AllWindows()) {
      if (window != &panel::MDIForm1 && window != &panel::Form1) window->Unload();
    }
  }
  [[nodiscard]] MidWire Model() const { return {kind_, Brisk, link::EventCounter}; }
  /// The wire log of a call, times of day taken out.
  Lines WireOf(const std::function<void()>& operation) {
    session.BeginWire();
    operation();
    return WithoutTimes(session.EndWire());
  }
  Lines Click(const std::string& button) { return WithoutTimes(session.WireOf("click " + button)); }

  BenchSession session;

 private:
  BoardKind kind_;
};

/// Words with erased ones among them: alone, in pairs, a whole group of four, and at both ends of a row.
[[nodiscard]] inline Values MixedWords() {
  return {0x0000,    0x1234, ErasedMid, 0x3FFE, ErasedMid, ErasedMid, ErasedMid, ErasedMid,
          ErasedMid, 0x2AAA, 0x1555,    0x0001, 0x2000,    ErasedMid, ErasedMid, 0x1FFF};
}
[[nodiscard]] inline FlashJob MixedJob() {
  return {
      .words = MixedWords(), .ids = {0x00FF, 0x1234, 0x3FFE, 0x0001}, .config1 = 0x2A55, .config2 = 0x15F0};
}

inline std::string BoardName(const testing::TestParamInfo<BoardKind>& kind) {
  return std::string(kind.param.name);
}
inline std::string ChipName(const testing::TestParamInfo<MidChip>& chip) {
  std::string name(chip.param.number);
  std::ranges::replace(name, '/', '_');
  return name;
}

}  // namespace zelvo::test
