// ID locations and configuration bytes in the PIC18 parser, and the questions about edited ones.
#include "hex_desk.h"
#include "image/buffers.h"
#include "link/event_log.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

using image::ConfigBitStrings;
using image::ConfigBuffer;
using image::IdBuffer;
using panel::Form1;

const std::string IdPage = Ela(0x20);
const std::string ConfigPage = Ela(0x30);

Lines ConfigLists() {
  Lines all;
  for (const panel::ListBox* list : Form1.ConfigLists) {
    EXPECT_EQ(list->Lines().size(), 1u) << list->Name();
    all.push_back(list->Lines().empty() ? "" : list->Lines().front());
  }
  return all;
}

Lines IdLists() {
  Lines all;
  for (const panel::ListBox* list : Form1.IdLists) {
    EXPECT_EQ(list->Lines().size(), 1u) << list->Name();
    all.push_back(list->Lines().empty() ? "" : list->Lines().front());
  }
  return all;
}

const std::string ErasedId = " FF          ˙ ";

// ID locations.

TEST(HexLoading, IdBytesAreStoredAndShownWithTheirCharacters) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "4142C1C2F5FB3031") + EndRecord), Lines{});
  EXPECT_EQ(AllIds(), "4142C1C2F5FB3031");
  EXPECT_EQ(IdLists(), (Lines{" 41        A", " 42        B", " C1        Á", " C2        Â", " F5        ő",
                              " FB        ű", " 30        0", " 31        1"}));
}

TEST(HexLoading, AnIdRecordMayBeginAtAnyEvenByte) {
  HexDesk desk("PIC18F452");
  const char* expected[] = {"4142434445464748", "FFFF414243444546", "FFFFFFFF41424344", "FFFFFFFFFFFF4142"};
  for (int step = 0; step < 4; ++step) {
    EXPECT_EQ(desk.Load(IdPage + Rec(2 * step, 0, "4142434445464748") + EndRecord), Lines{});
    EXPECT_EQ(AllIds(), expected[step]);
  }
}

TEST(HexLoading, AnIdRecordBehindTheEighthByteStoresNothing) {
  HexDesk desk("PIC18F452");
  for (const int address : {0x08, 0x0A, 0x0E}) {
    EXPECT_EQ(desk.Load(IdPage + Rec(address, 0, "4142") + EndRecord), Lines{});
    EXPECT_EQ(AllIds(), "FFFFFFFFFFFFFFFF");
  }
}

TEST(HexLoading, AnIdRecordIsStoredAsFarAsItsCount) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "414243") + EndRecord), Lines{});
  EXPECT_EQ(AllIds(), "414243FFFFFFFFFF");
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "41424344454647484950") + EndRecord), Lines{});
  EXPECT_EQ(AllIds(), "4142434445464748");
}

TEST(HexLoading, ASecondIdRecordWipesTheFirstOnesBytes) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "41424344") + Rec(4, 0, "45464748") + EndRecord), Lines{});
  EXPECT_EQ(AllIds(), "FFFFFFFF45464748");
  EXPECT_EQ(IdLists()[0], ErasedId);
  EXPECT_EQ(IdLists()[4], " 45        E");
}

TEST(HexLoading, IdBytesOfFFLeaveTheirListsInTheResetForm) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "4142434445464748") + EndRecord), Lines{});
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "FFFFFFFFFFFFFFFF") + EndRecord), Lines{});
  EXPECT_EQ(AllIds(), "FFFFFFFFFFFFFFFF");
  EXPECT_EQ(IdLists(), Lines(8, ErasedId));
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "41FFffFF") + EndRecord), Lines{});
  EXPECT_EQ(AllIds(), "41FFFFFFFFFFFFFF");
}

TEST(HexLoading, ARecordBehindTheIdLocationsNeitherAsksNorWipes) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "4142") + Rec(0x10, 0, "4344") + EndRecord), Lines{});
  EXPECT_EQ(AllIds(), "4142FFFFFFFFFFFF");
  image::IdEdited = image::ConfigEdited = 1;
  EXPECT_EQ(desk.Load(IdPage + Rec(0x10, 0, "4344") + ConfigPage + Rec(0x1C, 0, "00") + EndRecord), Lines{});
}

TEST(HexLoading, EditedIdsAreAskedForAtEveryRecordUntilAYes) {
  HexDesk desk("PIC18F452");
  const std::string question = "Felülírjam a szerkesztett ID Location bájtokat?";
  const std::string text = IdPage + Rec(0, 0, "4142") + Rec(2, 0, "4344") + Rec(4, 0, "4546") + EndRecord;

  image::IdEdited = 1;
  desk.session.Do("answer no no no");
  EXPECT_EQ(desk.Load(text), Lines(3, "yesno no " + question));
  EXPECT_EQ(AllIds(), "FFFFFFFFFFFFFFFF");
  EXPECT_EQ(image::IdEdited, 1);

  desk.session.Do("answer no yes");
  EXPECT_EQ(desk.Load(text), (Lines{"yesno no " + question, "yesno yes " + question}));
  EXPECT_EQ(AllIds(), "FFFFFFFF4546FFFF");
  EXPECT_EQ(image::IdEdited, 0);

  EXPECT_EQ(desk.Load(text), Lines{});
}

TEST(HexLoading, TheButtonErasesEditedIdsBeforeItAsks) {
  HexDesk desk("PIC18F452");
  IdBuffer[1] = "5A";
  image::IdEdited = 1;
  desk.session.Do("answer no");
  EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "4142") + EndRecord).size(), 1u);
  EXPECT_EQ(AllIds(), "FFFFFFFFFFFFFFFF");
}

TEST(HexLoading, AReloadKeepsEditedIdsAndConfigurationUnlessTheOperatorAgrees) {
  HexDesk desk("PIC18F452");
  const std::string text = IdPage + Rec(2, 0, "4142") + ConfigPage + Rec(2, 0, "0F") + EndRecord;
  EXPECT_EQ(desk.Load(text), Lines{});
  IdBuffer[1] = "5A";
  ConfigBuffer[2] = "27";
  image::IdEdited = image::ConfigEdited = 1;
  EXPECT_EQ(desk.Reload().size(), 2u);
  EXPECT_EQ(AllIds(), "5AFF4142FFFFFFFF");
  EXPECT_EQ(ConfigBuffer[2], "27");
  desk.session.Do("answer yes yes");
  EXPECT_EQ(desk.Reload().size(), 2u);
  EXPECT_EQ(AllIds(), "FFFF4142FFFFFFFF");
  EXPECT_EQ(ConfigBuffer[2], "FF");
  EXPECT_EQ(ConfigBuffer[3], "0F");
}

/// The wire log of a load that asks: the window stands while the question is open.
Lines AskedWire(int counter, const std::string& window, const std::string& box,
                const std::string& answerLine) {
  const auto line = [&counter](const std::string& text) {
    return "L List1 " + std::to_string(counter++) + ":  12:00:00" + text;
  };
  const std::string start = line(":  Fájl betöltése Indult!");
  return {start, "+ " + window, "M yesno " + box, line(answerLine), "- " + window};
}

TEST(HexLoading, TheIdQuestionHasItsWindowAndItsLogLine) {
  HexDesk desk("PIC18F452");
  for (const char* answer : {"no", "yes"}) {
    image::IdEdited = 1;
    desk.session.Do(std::string("answer ") + answer);
    const int counter = link::EventCounter;
    desk.session.BeginWire();
    EXPECT_EQ(desk.Load(IdPage + Rec(0, 0, "4142") + EndRecord).size(), 1u);
    EXPECT_TRUE(SameLog(AskedWire(counter, "FelülDialog",
                                  std::string(answer) + " Felülírjam a szerkesztett ID Location bájtokat?",
                                  answer == std::string("yes") ? ":  ID Location Felülírva."
                                                               : ":  ID Location Nem lett felülírva."),
                        desk.session.EndWire()));
    EXPECT_EQ(link::EventCounter, counter + 2);
  }
}

// Configuration.

/// PIC18F452 has no CONFIG1L, CONFIG3L and CONFIG4H.
const std::string ConfigData = "11220F0E3301818833C00FE00F40";

TEST(HexLoading, ConfigurationBytesThatTheChipHasAreStoredAndShownAsBits) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(ConfigPage + Rec(0, 0, ConfigData) + EndRecord), Lines{});
  EXPECT_EQ(AllConfigs(), "FF220F0EFF0181FF33C00FE00F40");
  EXPECT_EQ(ConfigLists(),
            (Lines{"   x x x x x x x x ", " 0 0 1 0 0 0 1 0", " 0 0 0 0 1 1 1 1", " 0 0 0 0 1 1 1 0",
                   "   x x x x x x x x ", " 0 0 0 0 0 0 0 1", " 1 0 0 0 0 0 0 1", "   x x x x x x x x ",
                   " 0 0 1 1 0 0 1 1", " 1 1 0 0 0 0 0 0", " 0 0 0 0 1 1 1 1", " 1 1 1 0 0 0 0 0",
                   " 0 0 0 0 1 1 1 1", " 0 1 0 0 0 0 0 0"}));
  EXPECT_EQ(ConfigBitStrings[1], "11111111");
  EXPECT_EQ(ConfigBitStrings[2], " 0 0 1 0 0 0 1 0");
  EXPECT_EQ(ConfigBitStrings[5], "11111111");
  EXPECT_EQ(ConfigBitStrings[14], " 0 1 0 0 0 0 0 0");
}

TEST(HexLoading, ConfigurationMayComeInOneRecordForEachByte) {
  HexDesk desk("PIC18F452");
  std::string text = ConfigPage;
  for (int k = 0; k < 14; ++k) text += Rec(k, 0, ConfigData.substr(static_cast<std::size_t>(2 * k), 2));
  EXPECT_EQ(desk.Load(text + EndRecord), Lines{});
  EXPECT_EQ(AllConfigs(), "FF220F0EFF0181FF33C00FE00F40");
}

TEST(HexLoading, TheFirstConfigurationRecordOfAFileResetsMasksAndBytesOnce) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(ConfigPage + Rec(1, 0, "22") + EndRecord), Lines{});
  EXPECT_EQ(ConfigLists()[1], " 0 0 1 0 0 0 1 0");
  EXPECT_EQ(desk.Load(ConfigPage + Rec(2, 0, "0F") + Rec(3, 0, "0E") + EndRecord), Lines{});
  EXPECT_EQ(AllConfigs(), "FFFF0F0EFFFFFFFFFFFFFFFFFFFF");
  EXPECT_EQ(ConfigLists()[1], "   x x ? x x ? ? ? ");
  EXPECT_EQ(ConfigBitStrings[2], "11111111");
  EXPECT_EQ(ConfigLists()[2], " 0 0 0 0 1 1 1 1");
  EXPECT_EQ(ConfigLists()[3], " 0 0 0 0 1 1 1 0");
}

TEST(HexLoading, ConfigurationUsesTheReappliedMasksOfItsChip) {
  // Choosing PIC18F8680 shows the masks of set 6520, where CONFIG3L is not there; a file brings set 8680.
  HexDesk desk("PIC18F8680");
  EXPECT_EQ(ConfigLists()[4], "   x x x x x x x x ");
  EXPECT_EQ(desk.Load(ConfigPage + Rec(0, 0, "112233445566") + EndRecord), Lines{});
  EXPECT_EQ(AllConfigs().substr(0, 12), "FF2233445566");
  EXPECT_EQ(ConfigLists()[6], "   ? x x x x ? x ? ");
}

TEST(HexLoading, AConfigurationByteBehindTheFourteenthIsToldAndKeepsTheOthers) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + ConfigPage + Rec(0, 0, ConfigData + "77") + EndRecord),
            Lines{NotForThisChip});
  EXPECT_TRUE(desk.IsErased());
  EXPECT_EQ(AllConfigs(), "FF220F0EFF0181FF33C00FE00F40");
  for (const int address : {0x0E, 0x10, 0x1A}) {
    EXPECT_EQ(desk.Load(ConfigPage + Rec(address, 0, "77") + EndRecord), Lines{NotForThisChip}) << address;
  }
}

TEST(HexLoading, EditedConfigurationIsAskedForAtEveryRecordUntilAYes) {
  HexDesk desk("PIC18F452");
  const std::string question = "Felülírjam a szerkesztett Config bájtokat?";
  const std::string text = ConfigPage + Rec(1, 0, "22") + Rec(2, 0, "0F") + Rec(3, 0, "0E") + EndRecord;
  image::ConfigEdited = 1;
  desk.session.Do("answer no no no");
  EXPECT_EQ(desk.Load(text), Lines(3, "yesno no " + question));
  EXPECT_EQ(AllConfigs(), std::string(28, 'F'));
  EXPECT_EQ(ConfigLists()[1], "   x x ? x x ? ? ? ");
  EXPECT_EQ(image::ConfigEdited, 1);

  desk.session.Do("answer no yes");
  EXPECT_EQ(desk.Load(text), (Lines{"yesno no " + question, "yesno yes " + question}));
  EXPECT_EQ(AllConfigs(), "FFFF0F0E" + std::string(20, 'F'));
  EXPECT_EQ(image::ConfigEdited, 0);
}

TEST(HexLoading, TheConfigurationQuestionHasItsWindowAndItsLogLine) {
  HexDesk desk("PIC18F452");
  for (const char* answer : {"no", "yes"}) {
    image::ConfigEdited = 1;
    desk.session.Do(std::string("answer ") + answer);
    const int counter = link::EventCounter;
    desk.session.BeginWire();
    EXPECT_EQ(desk.Load(ConfigPage + Rec(1, 0, "22") + EndRecord).size(), 1u);
    EXPECT_TRUE(SameLog(
        AskedWire(counter, "ConfFelülír", std::string(answer) + " Felülírjam a szerkesztett Config bájtokat?",
                  answer == std::string("yes") ? ":  Config Bájtok Felülírva."
                                               : ":  Config Bájtok Nem lettek felülírva."),
        desk.session.EndWire()));
    EXPECT_EQ(link::EventCounter, counter + 2);
  }
}

}  // namespace
}  // namespace zelvo::test
