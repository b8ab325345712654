// The review of the configuration bytes: what is shown, compared, taken over or left.
#include "value_review.h"

#include <array>

#include "devices/config_masks.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"

namespace zelvo::test {
namespace {

using image::ConfigBitStrings;
using image::ConfigBuffer;
using image::ReadBackBytes;
using panel::Config_Beolvas;
using panel::Form1;
using panel::IDLocO;

constexpr int Unchanged = 0xFFFFFF;
constexpr const char* NotThere = "   x x x x x x x x ";

class ConfigReview : public ValueReview {
 protected:
  static void FillConfig(const std::string& text) {
    std::fill(ConfigBuffer.begin() + 1, ConfigBuffer.end(), text);
  }
  void ExpectVerdict(const std::string& text, int colour, const std::string& event) {
    Config_Beolvas.Load();
    EXPECT_EQ(session.Look("list Config_Beolvas.eredmény"), Lines{text});
    EXPECT_EQ(session.Ask("color Config_Beolvas.eredmény"), std::to_string(colour));
    EXPECT_EQ(Events(1), Lines{event});
    EXPECT_TRUE(Config_Beolvas.Loaded());
    Config_Beolvas.Unload();
  }
  void ExpectEqual() {
    ExpectVerdict(" A két tartalom azonos!", GreenVerdict,
                  ":  A Puffer és a Beolvasott Config tartalmak azonosak.");
  }
  void ExpectEmpty() {
    ExpectVerdict(" A Puffer Üres!", Unchanged, ":  A Puffer Üres! Nincs mit összehasonlítani!");
  }
  void ExpectDifferent() {
    ExpectVerdict(" Nem azonos tartalmak!", RedVerdict,
                  ":  Nem egyforma a Puffer és a Beolvasott Config tartalma.");
  }
};

constexpr std::array<const char*, 14> ByteNames = {"1L", "1H", "2L", "2H", "3L", "3H", "4L",
                                                   "4H", "5L", "5H", "6L", "6H", "7L", "7H"};

TEST_F(ConfigReview, BearsItsCaptionsAndStaysOnTop) {
  Config_Beolvas.Load();
  EXPECT_EQ(Config_Beolvas.Caption, "Beolvasott Config Bájtok.");
  EXPECT_EQ(session.Ask("get Config_Beolvas.Igen"), "Config Pufferbe Töltése");
  EXPECT_EQ(session.Ask("get Config_Beolvas.Nem"), "Kilépés");
  EXPECT_TRUE(Config_Beolvas.OnTop);
}

TEST_F(ConfigReview, ShowsTheBitsOfBytesThatExistAndALineOfXForTheOthers) {
  PutBytes({0xFF, 0x27, 0x0F, 0xA5, 0xFF, 0x01, 0x85, 0xFF, 0x00, 0xC0, 0x5A, 0xE0, 0x80, 0x7F});
  Config_Beolvas.Load();
  const char* const lines[] = {NotThere,
                               " 0 0 1 0 0 1 1 1 ",
                               " 0 0 0 0 1 1 1 1 ",
                               " 1 0 1 0 0 1 0 1 ",
                               NotThere,
                               " 0 0 0 0 0 0 0 1 ",
                               " 1 0 0 0 0 1 0 1 ",
                               NotThere,
                               " 0 0 0 0 0 0 0 0 ",
                               " 1 1 0 0 0 0 0 0 ",
                               " 0 1 0 1 1 0 1 0 ",
                               " 1 1 1 0 0 0 0 0 ",
                               " 1 0 0 0 0 0 0 0 ",
                               " 0 1 1 1 1 1 1 1 "};
  for (std::size_t i = 0; i < ByteNames.size(); ++i) {
    EXPECT_EQ(session.Look(std::string("list Config_Beolvas.Bconfig") + ByteNames[i]), Lines{lines[i]})
        << ByteNames[i];
  }
}

TEST_F(ConfigReview, TheChipsFlagsTellWhichBytesExist) {
  session.Do("choose Combo1 PIC18F4550");  // has a CONFIG1L, lacks 3L and 4H
  Config_Beolvas.Load();
  for (const char* name : ByteNames) {
    const bool exists = std::string_view(name) != "3L" && std::string_view(name) != "4H";
    EXPECT_EQ(session.Ask(std::string("list Config_Beolvas.Bconfig") + name) != NotThere, exists) << name;
  }
}

TEST_F(ConfigReview, EqualBytesGiveTheGreenVerdict) {
  PutBytes({0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08, 0x09, 0x0A, 0xB0, 0xC0, 0xD0, 0xE0});
  const char* const texts[] = {"01", "02", "03", "04", "05", "06", "07",
                               "08", "09", "0A", "B0", "C0", "D0", "E0"};
  std::copy(std::begin(texts), std::end(texts), ConfigBuffer.begin() + 1);
  ExpectEqual();
}

TEST_F(ConfigReview, BothSidesArePaddedBeforeTheyAreCompared) {
  FillConfig("5");
  std::fill_n(ReadBackBytes.begin() + 1, 14, 5);
  ExpectEqual();
  FillConfig("05");
  ExpectEqual();
  FillConfig("");
  std::fill_n(ReadBackBytes.begin() + 1, 14, 0);
  ExpectEqual();
}

TEST_F(ConfigReview, EveryByteThatDiffersGivesTheRedVerdict) {
  for (std::size_t i = 1; i <= 14; ++i) {
    FillConfig("12");
    std::fill_n(ReadBackBytes.begin() + 1, 14, 0x12);
    ReadBackBytes[i] = 0x13;
    ExpectDifferent();
  }
}

TEST_F(ConfigReview, BytesThatTheChipDoesNotHaveTakePartInTheComparison) {
  ASSERT_EQ(devices::ConfigFlags[1], "N");
  FillConfig("00");
  ConfigBuffer[1] = "01";
  ExpectDifferent();
  ReadBackBytes[1] = 1;
  ExpectEqual();
}

TEST_F(ConfigReview, ABlankByteOfTheImageEqualsAnyValue) {
  FillConfig("FF");
  ConfigBuffer[4] = "0F";
  PutBytes({0x01, 0x02, 0x03, 0x0F, 0x05});
  ExpectEqual();
  ReadBackBytes[4] = 0x1F;
  ExpectDifferent();
}

TEST_F(ConfigReview, OnlyFFInUpperCaseIsBlank) {
  FillConfig("FF");
  ConfigBuffer[14] = "ff";
  ReadBackBytes[14] = 0xFF;
  ExpectDifferent();
}

TEST_F(ConfigReview, FourteenBlankBytesAreAnEmptyBufferEvenWhenTheChipIsBlankToo) {
  FillConfig("FF");
  ExpectEmpty();
  std::fill_n(ReadBackBytes.begin() + 1, 14, 0xFF);
  ExpectEmpty();
}

TEST_F(ConfigReview, AnEmptyVerdictLeavesTheBackgroundThatTheListHasAtItsLoad) {
  FillConfig("00");
  ReadBackBytes[14] = 1;
  ExpectDifferent();
  FillConfig("FF");
  ExpectEmpty();
}

TEST_F(ConfigReview, IgenTakesTheReadBytesWithoutPadding) {
  PutBytes({0x05, 0x27, 0x0F, 0xA5, 0xF0, 0x01, 0x85, 0x10, 0x00, 0xC0, 0x5A, 0xE0, 0x80, 0x7F});
  Config_Beolvas.Load();
  session.Do("click Config_Beolvas.Igen");
  const char* const texts[] = {"5",  "27", "F",  "A5", "F0", "1",  "85",
                               "10", "0",  "C0", "5A", "E0", "80", "7F"};
  for (std::size_t i = 1; i <= 14; ++i) EXPECT_EQ(ConfigBuffer[i], texts[i - 1]) << i;
  EXPECT_EQ(ConfigBitStrings[2], " 0 0 1 0 0 1 1 1");
  EXPECT_EQ(ConfigBitStrings[9], " 0 0 0 0 0 0 0 0");
  EXPECT_EQ(ConfigBitStrings[14], " 0 1 1 1 1 1 1 1");
  EXPECT_EQ(Events(1), Lines{":  Beolvasott Config tartalom Pufferbe áttölve."});
  EXPECT_FALSE(Config_Beolvas.Loaded());
  EXPECT_TRUE(session.Look("messages").empty());
}

TEST_F(ConfigReview, IgenGivesBytesThatTheChipDoesNotHaveTheWindowsEmptyBits) {
  ConfigBitStrings[1] = ConfigBitStrings[5] = ConfigBitStrings[8] = "11111111";
  Config_Beolvas.Load();
  session.Do("click Config_Beolvas.Igen");
  for (const std::size_t i : {1U, 5U, 8U}) EXPECT_EQ(ConfigBitStrings[i], "") << i;
}

TEST_F(ConfigReview, BitsOfAnEarlierReviewAreForgotten) {
  session.Do("choose Combo1 PIC18F4550");
  ReadBackBytes[1] = 0x24;
  Config_Beolvas.Load();
  Config_Beolvas.Unload();
  session.Do("choose Combo1 PIC18F452");
  Config_Beolvas.Load();
  session.Do("click Config_Beolvas.Igen");
  EXPECT_EQ(ConfigBitStrings[1], "");
}

TEST_F(ConfigReview, IgenShowsTheBytesThatExistInTheMainWindowAndLeavesTheOtherLists) {
  PutBytes({0xAA, 0x27, 0x0F, 0xA5, 0xAA, 0x01, 0x85, 0xAA, 0x00, 0xC0, 0x5A, 0xE0, 0x80, 0x7F});
  std::array<Lines, 14> before;
  for (std::size_t i = 0; i < 14; ++i) before.at(i) = Form1.ConfigLists.at(i)->Lines();
  Config_Beolvas.Load();
  for (std::size_t i = 0; i < 14; ++i) EXPECT_EQ(Form1.ConfigLists.at(i)->Lines(), before.at(i));
  session.Do("click Config_Beolvas.Igen");
  const char* const lines[] = {nullptr,
                               "  0 0 1 0 0 1 1 1",
                               "  0 0 0 0 1 1 1 1",
                               "  1 0 1 0 0 1 0 1",
                               nullptr,
                               "  0 0 0 0 0 0 0 1",
                               "  1 0 0 0 0 1 0 1",
                               nullptr,
                               "  0 0 0 0 0 0 0 0",
                               "  1 1 0 0 0 0 0 0",
                               "  0 1 0 1 1 0 1 0",
                               "  1 1 1 0 0 0 0 0",
                               "  1 0 0 0 0 0 0 0",
                               "  0 1 1 1 1 1 1 1"};
  for (std::size_t i = 0; i < 14; ++i) {
    EXPECT_EQ(session.Look(std::string("list Bconfig") + ByteNames.at(i)),
              lines[i] == nullptr ? before.at(i) : Lines{lines[i]})
        << ByteNames.at(i);
  }
}

TEST_F(ConfigReview, IgenDoesNotCountAsAnEdit) {
  image::ConfigEdited = image::IdEdited = 0;
  Config_Beolvas.Load();
  session.Do("click Config_Beolvas.Igen");
  EXPECT_EQ(image::ConfigEdited, 0);
  EXPECT_EQ(image::IdEdited, 0);
}

TEST_F(ConfigReview, NemLeavesTheBufferAndSaysSo) {
  FillConfig("12");
  ConfigBitStrings[2] = "as it was";
  const Lines shown = Form1.Bconfig1H.Lines();
  Config_Beolvas.Load();
  session.Do("click Config_Beolvas.Nem");
  for (std::size_t i = 1; i <= 14; ++i) EXPECT_EQ(ConfigBuffer[i], "12");
  EXPECT_EQ(ConfigBitStrings[2], "as it was");
  EXPECT_EQ(Form1.Bconfig1H.Lines(), shown);
  EXPECT_EQ(Events(1), Lines{":  Beolvasott Config tartalom Nem lett áttölve a Pufferbe."});
  EXPECT_FALSE(Config_Beolvas.Loaded());
}

TEST_F(ConfigReview, ClosingItByItsFrameLogsNothing) {
  Config_Beolvas.Load();
  EXPECT_EQ(session.WireOf("close Config_Beolvas"), Lines{"- Config_Beolvas"});
}

TEST_F(ConfigReview, WithTheAutomaticTickVerdictAndTakeOverComeDuringTheLoad) {
  session.Do("tick Check2");
  FillConfig("12");
  session.BeginWire();
  Config_Beolvas.Load();
  const Lines log = session.EndWire();
  ASSERT_EQ(log.size(), 4U);
  EXPECT_EQ(log[0], "+ Config_Beolvas");
  EXPECT_TRUE(log[1].ends_with(":  Nem egyforma a Puffer és a Beolvasott Config tartalma.")) << log[1];
  EXPECT_TRUE(log[2].ends_with(":  Beolvasott Config tartalom Pufferbe áttölve.")) << log[2];
  EXPECT_EQ(log[3], "- Config_Beolvas");
  EXPECT_EQ(ConfigBuffer[3], "0");
}

TEST_F(ConfigReview, TheOtherPagesAutomaticTickDoesNotCount) {
  Form1.Check5.Value = true;
  Config_Beolvas.Load();
  EXPECT_TRUE(Config_Beolvas.Loaded());
  IDLocO.Load();
  EXPECT_TRUE(IDLocO.Loaded());
}

TEST_F(ConfigReview, AfterIgenTheUnpaddedBufferStillEqualsTheChip) {
  std::fill_n(ReadBackBytes.begin() + 1, 14, 5);
  Config_Beolvas.Load();
  session.Do("click Config_Beolvas.Igen");
  EXPECT_EQ(ConfigBuffer[14], "5");
  ExpectEqual();
}

}  // namespace
}  // namespace zelvo::test
