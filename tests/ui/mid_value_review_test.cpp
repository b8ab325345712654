// The reviews of a mid-range chip's configuration and user ID words: what is shown, compared, taken over or
// left.
#include <algorithm>
#include <array>

#include "image/buffers.h"
#include "link/event_log.h"
#include "opsmid/config_id.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "support/bench_session.h"
#include "value_review.h"

namespace zelvo::test {
namespace {

using image::ConfigWord1Bits;
using image::ConfigWord1Raw;
using image::ConfigWord2Bits;
using image::ConfigWord2Raw;
using image::MidIdReadWords;
using image::MidIdWords;
using panel::Config_2008_Olv_F16;
using panel::Config_Beolvas_F16;
using panel::Form1;
using panel::IDLoc_F16;

constexpr const char* EqualConfig = ":  A Puffer és a Beolvasott Config tartalom azonos.";
constexpr const char* OtherConfig = ":  Nem egyforma a Puffer és a Beolvasott Config tartalma.";
constexpr const char* TakenConfig = ":  Beolvasott Config tartalom Pufferbe áttölve.";
constexpr const char* LeftConfig = ":  Beolvasott Config tartalom Nem lett áttölve a Pufferbe.";
constexpr const char* EqualIds = ":  A Puffer és a Beolvasott ID Loc tartalmak azonosak.";
constexpr const char* OtherIds = ":  Nem egyforma a Puffer és a Beolvasott ID Loc tartalma.";
constexpr const char* TakenIds = ":  Beolvasott User ID szavak áttölve a Pufferbe.";
constexpr const char* LeftIds = ":  Beolvasott User ID szavak Nem lettek Pufferbe töltve.";

class MidReview : public testing::Test {
 protected:
  void SetUp() override { session.Do({"board lpt", "start", "tab 1", "choose Combo2 PIC16F887"}); }
  /// The configuration words as a read leaves them.
  static void Read(int word1, const std::string& bits1, int word2 = 0x3FFF,
                   const std::string& bits2 = "11111111111111") {
    opsmid::MidConfigValue1 = static_cast<std::int16_t>(word1);
    ConfigWord1Raw = "00" + bits1;
    opsmid::MidConfigValue2 = static_cast<std::int16_t>(word2);
    ConfigWord2Raw = "00" + bits2;
  }
  static void ReadIds(int one, int two, int three, int four) {
    const int words[] = {one, two, three, four};
    std::copy_n(words, 4, MidIdReadWords.begin() + 1);
  }
  Lines Values(const std::string& window, std::initializer_list<int> lists) {
    Lines values;
    for (const int list : lists) {
      const Lines lines = session.Look("list " + window + ".List" + std::to_string(list));
      EXPECT_EQ(lines.size(), 1U) << list;
      values.insert(values.end(), lines.begin(), lines.end());
    }
    return values;
  }
  /// The wire log of a load or unload from below; log lines without number and time.
  template <class Act>
  Lines Course(const Act& act) {
    session.BeginWire();
    act();
    return Bare(session.EndWire());
  }
  Lines CourseOf(const std::string& command) { return Bare(session.WireOf(command)); }
  static Lines Bare(Lines log) {
    for (std::string& line : log) {
      if (!line.starts_with("L ")) continue;
      EXPECT_TRUE(line.starts_with("L List4 ")) << line;
      line = "L" + line.substr(line.find(":  ") + 11);
    }
    return log;
  }
  /// Loads the window: its verdict, the verdict's colour and its only log line.
  void ExpectVerdict(panel::Window& window, const std::string& text, int colour, const std::string& event) {
    EXPECT_EQ(Course([&] { window.Load(); }), (Lines{"+ " + window.Name(), "L" + event}));
    EXPECT_EQ(session.Look("list " + window.Name() + ".eredmény"), Lines{text});
    EXPECT_EQ(session.Ask("color " + window.Name() + ".eredmény"), std::to_string(colour));
    EXPECT_TRUE(window.Loaded());
    window.Unload();
  }
  void ExpectSameConfig(panel::Window& window) {
    ExpectVerdict(window, " A két tartalom azonos!", GreenVerdict, EqualConfig);
  }
  void ExpectOtherConfig(panel::Window& window) {
    ExpectVerdict(window, " Nem azonos a két tartalom!", RedVerdict, OtherConfig);
  }
  void ExpectSameIds() { ExpectVerdict(IDLoc_F16, " A két tartalom azonos!", GreenVerdict, EqualIds); }
  void ExpectOtherIds() { ExpectVerdict(IDLoc_F16, " Nem azonos tartalmak!", RedVerdict, OtherIds); }
  BenchSession session;
};

class MidConfigReview : public MidReview {};
class MidConfigPairReview : public MidReview {};
class MidIdReview : public MidReview {};

TEST_F(MidReview, TheWindowsBearTheirCaptionsAndStayOnTop) {
  EXPECT_EQ(Config_Beolvas_F16.Caption, "Konfigurációs szó");
  for (panel::Window* window :
       {static_cast<panel::Window*>(&Config_Beolvas_F16), static_cast<panel::Window*>(&Config_2008_Olv_F16),
        static_cast<panel::Window*>(&IDLoc_F16)}) {
    SCOPED_TRACE(window->Name());
    window->Load();
    EXPECT_TRUE(window->OnTop);
    EXPECT_EQ(session.Ask("get " + window->Name() + ".Nem"), "Kilépés");
    if (window != &IDLoc_F16) {
      EXPECT_EQ(session.Ask("get " + window->Name() + ".Igen"), "Config Pufferbe Töltése");
    }
  }
}

TEST_F(MidConfigReview, ShowsTheWordAsBitsAndAsFourDigits) {
  const struct {
    int word;
    const char* bits;
    const char* shown;
    const char* digits;
  } words[] = {
      {0x3F72, "11111101110010", " 0 0 1 1 1 1 1 1 0 1 1 1 0 0 1 0 bin", "3F72"},
      {0x0ABC, "00101010111100", " 0 0 0 0 1 0 1 0 1 0 1 1 1 1 0 0 bin", "0ABC"},
      {0x004D, "00000001001101", " 0 0 0 0 0 0 0 0 0 1 0 0 1 1 0 1 bin", "004D"},
      {0x0009, "00000000001001", " 0 0 0 0 0 0 0 0 0 0 0 0 1 0 0 1 bin", "0009"},
      {0x0000, "00000000000000", " 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 bin", "0000"},
      {0x3FFF, "11111111111111", " 0 0 1 1 1 1 1 1 1 1 1 1 1 1 1 1 bin", "3FFF"},
  };
  for (const auto& [word, bits, shown, digits] : words) {
    Read(word, bits);
    Config_Beolvas_F16.Load();
    EXPECT_EQ(Values("Config_Beolvas_F16", {1, 2}), (Lines{shown, digits}));
    Config_Beolvas_F16.Unload();
  }
}

TEST_F(MidConfigReview, ComparesTheBitStrings) {
  ConfigWord1Bits = "11111101110010";
  Read(0x3F72, "11111101110010");
  ExpectSameConfig(Config_Beolvas_F16);
  for (std::size_t at = 0; at < 14; ++at) {
    std::string bits = "11111101110010";
    bits[at] = bits[at] == '1' ? '0' : '1';
    Read(0x3F72, bits);
    ExpectOtherConfig(Config_Beolvas_F16);
  }
}

TEST_F(MidConfigReview, TakesOverWhatItShowsAlthoughAFileCameMeanwhile) {
  Read(0x3F72, "11111101110010");
  Config_Beolvas_F16.Load();
  image::ConfigWord1Raw = "0010111111110100";
  session.Do("click Config_Beolvas_F16.Igen");
  EXPECT_EQ(ConfigWord1Bits, "11111101110010");
}

TEST_F(MidConfigReview, ABlankImageIsComparedLikeAnyOther) {
  ASSERT_EQ(ConfigWord1Bits, "11111111111111");
  Read(0x3FFF, "11111111111111");
  ExpectSameConfig(Config_Beolvas_F16);
  Read(0x3FFE, "11111111111110");
  ExpectOtherConfig(Config_Beolvas_F16);
}

TEST_F(MidConfigReview, AShortWordOfTheEditorDiffersFromAnyRead) {
  ConfigWord1Bits = "111111111111";
  Read(0x3FFF, "11111111111111");
  ExpectOtherConfig(Config_Beolvas_F16);
}

TEST_F(MidConfigReview, LooksAtTheFirstWordOnly) {
  ConfigWord2Bits = "00000000000000";
  Read(0x3FFF, "11111111111111", 0x3FFE, "11111111111110");
  ExpectSameConfig(Config_Beolvas_F16);
}

TEST_F(MidConfigReview, ChangesNothingBeforeTheOperatorDecides) {
  Read(0x0ABC, "00101010111100");
  const Lines before = Form1.List6.Lines();
  Config_Beolvas_F16.Load();
  EXPECT_EQ(ConfigWord1Bits, "11111111111111");
  EXPECT_EQ(Form1.List6.Lines(), before);
}

TEST_F(MidConfigReview, IgenTakesTheWordAndShowsItInTheMainWindow) {
  Read(0x0ABC, "00101010111100");
  const Lines second = Form1.List12.Lines();
  Config_Beolvas_F16.Load();
  EXPECT_EQ(CourseOf("click Config_Beolvas_F16.Igen"),
            (Lines{std::string("L") + TakenConfig, "- Config_Beolvas_F16"}));
  EXPECT_EQ(ConfigWord1Bits, "00101010111100");
  EXPECT_EQ(ConfigWord2Bits, "11111111111111");
  EXPECT_EQ(Form1.List6.Lines(), Lines{" 0ABCh,   0 0 0 0 1 0 1 0 1 0 1 1 1 1 0 0 bin"});
  EXPECT_EQ(Form1.List12.Lines(), second);
  EXPECT_EQ(image::ConfigEdited, 0) << "values of the chip are no edit";
  EXPECT_TRUE(session.Look("messages").empty());
}

TEST_F(MidConfigReview, NemLeavesTheImage) {
  Read(0x0ABC, "00101010111100");
  const Lines before = Form1.List6.Lines();
  Config_Beolvas_F16.Load();
  EXPECT_EQ(CourseOf("click Config_Beolvas_F16.Nem"),
            (Lines{std::string("L") + LeftConfig, "- Config_Beolvas_F16"}));
  EXPECT_EQ(ConfigWord1Bits, "11111111111111");
  EXPECT_EQ(Form1.List6.Lines(), before);
}

TEST_F(MidConfigReview, ClosingItByItsFrameLogsNothing) {
  Read(0x0ABC, "00101010111100");
  Config_Beolvas_F16.Load();
  EXPECT_EQ(CourseOf("close Config_Beolvas_F16"), Lines{"- Config_Beolvas_F16"});
  EXPECT_EQ(ConfigWord1Bits, "11111111111111");
}

TEST_F(MidConfigReview, WithTheTickItTellsComparesTakesAndGoesAtOnce) {
  session.Do("tick Check5");
  Read(0x0ABC, "00101010111100");
  EXPECT_EQ(Course([] { Config_Beolvas_F16.Load(); }),
            (Lines{"+ Config_Beolvas_F16", std::string("L") + OtherConfig, std::string("L") + TakenConfig,
                   "- Config_Beolvas_F16"}));
  EXPECT_EQ(ConfigWord1Bits, "00101010111100");
  EXPECT_FALSE(Config_Beolvas_F16.Loaded());
}

TEST_F(MidReview, TheTickOfTheOtherPageHasNoEffect) {
  Form1.Check2.Value = true;
  ReadIds(1, 2, 3, 4);
  Config_Beolvas_F16.Load();
  Config_2008_Olv_F16.Load();
  IDLoc_F16.Load();
  EXPECT_TRUE(Config_Beolvas_F16.Loaded());
  EXPECT_TRUE(Config_2008_Olv_F16.Loaded());
  EXPECT_TRUE(IDLoc_F16.Loaded());
  EXPECT_EQ(MidIdWords[1], 16383);
}

TEST_F(MidConfigPairReview, ShowsBothWordsWithAnHBehindTheirDigits) {
  Read(0x004D, "00000001001101", 0x0700, "00011100000000");
  Config_2008_Olv_F16.Load();
  EXPECT_EQ(Values("Config_2008_Olv_F16", {1, 2, 3, 4}),
            (Lines{" 0 0 0 0 0 0 0 0 0 1 0 0 1 1 0 1 bin", "004Dh", " 0 0 0 0 0 1 1 1 0 0 0 0 0 0 0 0 bin",
                   "0700h"}));
}

TEST_F(MidConfigPairReview, CallsEqualOnlyWhatIsEqualInBothWords) {
  const std::string one = "11111101110010";
  const std::string two = "00011100000000";
  const std::string other = "00011100000001";
  ConfigWord1Bits = one;
  ConfigWord2Bits = two;
  Read(0x3F72, one, 0x0700, two);
  ExpectSameConfig(Config_2008_Olv_F16);
  Read(0x3F72, one, 0x0701, other);
  ExpectOtherConfig(Config_2008_Olv_F16);
  Read(0x0701, other, 0x0700, two);
  ExpectOtherConfig(Config_2008_Olv_F16);
  Read(0x0701, other, 0x0701, other);
  ExpectOtherConfig(Config_2008_Olv_F16);
  Read(0x0700, two, 0x3F72, one);
  ExpectOtherConfig(Config_2008_Olv_F16);
}

TEST_F(MidConfigPairReview, IgenTakesBothWordsAndShowsThem) {
  Read(0x0ABC, "00101010111100", 0x0005, "00000000000101");
  Config_2008_Olv_F16.Load();
  EXPECT_EQ(CourseOf("click Config_2008_Olv_F16.Igen"),
            (Lines{std::string("L") + TakenConfig, "- Config_2008_Olv_F16"}));
  EXPECT_EQ(ConfigWord1Bits, "00101010111100");
  EXPECT_EQ(ConfigWord2Bits, "00000000000101");
  EXPECT_EQ(session.Look("list List6"), Lines{" 0ABCh,   0 0 0 0 1 0 1 0 1 0 1 1 1 1 0 0 bin"});
  EXPECT_EQ(session.Look("list List12"), Lines{" 0005h,   0 0 0 0 0 0 0 0 0 0 0 0 0 1 0 1 bin"});
  EXPECT_EQ(image::ConfigEdited, 0);
}

TEST_F(MidConfigPairReview, NemLeavesBothWords) {
  Read(0x0ABC, "00101010111100", 0x0005, "00000000000101");
  const Lines first = Form1.List6.Lines();
  const Lines second = Form1.List12.Lines();
  Config_2008_Olv_F16.Load();
  EXPECT_EQ(CourseOf("click Config_2008_Olv_F16.Nem"),
            (Lines{std::string("L") + LeftConfig, "- Config_2008_Olv_F16"}));
  EXPECT_EQ(ConfigWord1Bits, "11111111111111");
  EXPECT_EQ(ConfigWord2Bits, "11111111111111");
  EXPECT_EQ(Form1.List6.Lines(), first);
  EXPECT_EQ(Form1.List12.Lines(), second);
}

TEST_F(MidConfigPairReview, WithTheTickItTellsComparesTakesAndGoesAtOnce) {
  session.Do("tick Check5");
  Read(0x3FFF, "11111111111111", 0x3FFF, "11111111111111");
  EXPECT_EQ(Course([] { Config_2008_Olv_F16.Load(); }),
            (Lines{"+ Config_2008_Olv_F16", std::string("L") + EqualConfig, std::string("L") + TakenConfig,
                   "- Config_2008_Olv_F16"}));
  EXPECT_EQ(session.Look("list List12"), Lines{" 3FFFh,   0 0 1 1 1 1 1 1 1 1 1 1 1 1 1 1 bin"});
}

TEST_F(MidIdReview, ShowsEachWordInHexadecimalAndDecimal) {
  ReadIds(0x3FFF, 0, 0x7F, 0x1ABC);
  IDLoc_F16.Load();
  EXPECT_EQ(Values("IDLoc_F16", {7, 8, 9, 10}),
            (Lines{"3FFFh, 16383dec", "0h, 0dec", "7Fh, 127dec", "1ABCh, 6844dec"}));
}

TEST_F(MidIdReview, ComparesAllFourWords) {
  std::fill(MidIdWords.begin() + 1, MidIdWords.end(), static_cast<std::int16_t>(7));
  ReadIds(7, 7, 7, 7);
  ExpectSameIds();
  for (std::size_t word = 1; word <= 4; ++word) {
    ReadIds(7, 7, 7, 7);
    MidIdReadWords.at(word) = 8;
    ExpectOtherIds();
  }
}

TEST_F(MidIdReview, ABlankImageIsComparedLikeAnyOther) {
  ReadIds(16383, 16383, 16383, 16383);
  ExpectSameIds();
  ReadIds(0, 0, 0, 0);
  ExpectOtherIds();
}

TEST_F(MidIdReview, IgenTakesTheWordsAndShowsThemInTheMainWindow) {
  ReadIds(1, 0x20, 0x300, 0x3FFE);
  const Lines first = Form1.List7.Lines();
  IDLoc_F16.Load();
  EXPECT_EQ(MidIdWords[1], 16383) << "not before the operator decides";
  EXPECT_EQ(Form1.List7.Lines(), first);
  EXPECT_EQ(CourseOf("click IDLoc_F16.Igen"), (Lines{std::string("L") + TakenIds, "- IDLoc_F16"}));
  const int words[] = {1, 0x20, 0x300, 0x3FFE};
  EXPECT_TRUE(std::equal(words, words + 4, MidIdWords.begin() + 1));
  EXPECT_EQ(session.Look("list List7"), Lines{"1h, 1dec"});
  EXPECT_EQ(session.Look("list List8"), Lines{"20h, 32dec"});
  EXPECT_EQ(session.Look("list List9"), Lines{"300h, 768dec"});
  EXPECT_EQ(session.Look("list List10"), Lines{"3FFEh, 16382dec"});
  EXPECT_EQ(image::IdEdited, 0) << "unlike the ID bytes of the other page";
}

TEST_F(MidIdReview, NemLeavesTheWords) {
  ReadIds(1, 2, 3, 4);
  IDLoc_F16.Load();
  EXPECT_EQ(CourseOf("click IDLoc_F16.Nem"), (Lines{std::string("L") + LeftIds, "- IDLoc_F16"}));
  EXPECT_EQ(MidIdWords[1], 16383);
  EXPECT_EQ(session.Look("list List7"), Lines{"3FFFh, 16383dec"});
}

TEST_F(MidIdReview, ClosingItByItsFrameLogsNothing) {
  ReadIds(1, 2, 3, 4);
  IDLoc_F16.Load();
  EXPECT_EQ(CourseOf("close IDLoc_F16"), Lines{"- IDLoc_F16"});
  EXPECT_EQ(MidIdWords[1], 16383);
}

TEST_F(MidIdReview, WithTheTickItTellsComparesTakesLogsAndGoesAtOnce) {
  session.Do("tick Check5");
  ReadIds(1, 2, 3, 4);
  EXPECT_EQ(Course([] { IDLoc_F16.Load(); }),
            (Lines{"+ IDLoc_F16", std::string("L") + OtherIds, std::string("L") + TakenIds, "- IDLoc_F16"}));
  EXPECT_EQ(MidIdWords[4], 4);
  EXPECT_EQ(session.Look("list List10"), Lines{"4h, 4dec"});
  EXPECT_EQ(image::IdEdited, 0);
}

TEST_F(MidReview, WhatTheOtherPageShowsIsLeftAlone) {
  const Lines events = Form1.List1.Lines();
  Read(0x0ABC, "00101010111100");
  ReadIds(1, 2, 3, 4);
  Config_Beolvas_F16.Load();
  session.Do("click Config_Beolvas_F16.Igen");
  IDLoc_F16.Load();
  session.Do("click IDLoc_F16.Igen");
  EXPECT_EQ(Form1.List1.Lines(), events);
}

}  // namespace
}  // namespace zelvo::test
