// The review of the ID bytes: what is shown, compared, taken over or left.
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "value_review.h"

namespace zelvo::test {
namespace {

using image::IdBuffer;
using image::ReadBackBytes;
using panel::Form1;
using panel::IDLocO;

class IdReview : public ValueReview {
 protected:
  static void FillIds(std::initializer_list<const char*> texts) {
    std::copy(texts.begin(), texts.end(), IdBuffer.begin() + 1);
  }
  void ExpectVerdict(const std::string& text, int colour, const std::string& event) {
    IDLocO.Load();
    EXPECT_EQ(session.Look("list IDLocO.eredmény"), Lines{text});
    EXPECT_EQ(session.Ask("color IDLocO.eredmény"), std::to_string(colour));
    EXPECT_EQ(Events(1), Lines{event});
    IDLocO.Unload();
  }
  void ExpectEqual() {
    ExpectVerdict(" A két tartalom azonos!", GreenVerdict,
                  ":  A Puffer és a Beolvasott ID Loc tartalmak azonosak.");
  }
  void ExpectDifferent() {
    ExpectVerdict(" Nem azonos tartalmak!", RedVerdict,
                  ":  Nem egyforma a Puffer és a Beolvasott ID Loc tartalma.");
  }
};

TEST_F(IdReview, BearsItsCaptionsAndStaysOnTop) {
  IDLocO.Load();
  EXPECT_EQ(IDLocO.Caption, "Beolvasott ID Location Bájtok.");
  EXPECT_EQ(session.Ask("get IDLocO.Igen"), "ID Pufferbe Töltése");
  EXPECT_EQ(session.Ask("get IDLocO.Nem"), "Kilépés");
  EXPECT_TRUE(IDLocO.OnTop);
}

TEST_F(IdReview, TheListsTakeTheReadBytesSwappedInPairs) {
  PutBytes({0x42, 0x41, 0x44, 0x43, 0x46, 0x45, 0x48, 0x47});
  IDLocO.Load();
  const char* const lines[] = {" 41        A", " 42        B", " 43        C", " 44        D",
                               " 45        E", " 46        F", " 47        G", " 48        H"};
  for (int n = 1; n <= 8; ++n) {
    EXPECT_EQ(session.Look("list IDLocO.IDLOC" + std::to_string(n) + "1"), Lines{lines[n - 1]}) << n;
  }
}

TEST_F(IdReview, AByteIsTwoDigitsAndItsCharacterOfCodePage1250) {
  // Hungarian long umlauts, the euro sign, the dot above of a blank byte; 0 has a character too.
  PutBytes({0xF5, 0xFB, 0x80, 0xFF, 0x20, 0x7E, 0x0A, 0x00});
  IDLocO.Load();
  EXPECT_EQ(IDLocO.Values[0].Lines(), Lines{" FB        ű"});
  EXPECT_EQ(IDLocO.Values[1].Lines(), Lines{" F5        ő"});
  EXPECT_EQ(IDLocO.Values[2].Lines(), Lines{" FF        ˙"});
  EXPECT_EQ(IDLocO.Values[3].Lines(), Lines{" 80        €"});
  EXPECT_EQ(IDLocO.Values[4].Lines(), Lines{" 7E        ~"});
  EXPECT_EQ(IDLocO.Values[5].Lines(), Lines{" 20         "});
  EXPECT_EQ(IDLocO.Values[6].Lines(), Lines{" 00        " + std::string(1, '\0')});
  EXPECT_EQ(IDLocO.Values[7].Lines(), Lines{" 0A        \n"});
}

TEST_F(IdReview, EqualBytesGiveTheGreenVerdictAndEachThatDiffersTheRedOne) {
  PutBytes({0x02, 0x01, 0x04, 0x03, 0x06, 0x05, 0x08, 0xAF});
  FillIds({"01", "02", "03", "04", "05", "06", "AF", "08"});
  ExpectEqual();
  for (std::size_t n = 1; n <= 8; ++n) {
    const std::string kept = IdBuffer[n];
    IdBuffer[n] = "FF";
    ExpectDifferent();
    IdBuffer[n] = kept;
  }
}

TEST_F(IdReview, ABlankBufferIsNeitherEmptyNorEqualToAnything) {
  FillIds({"FF", "FF", "FF", "FF", "FF", "FF", "FF", "FF"});
  ExpectDifferent();
  std::fill_n(ReadBackBytes.begin() + 1, 8, 0xFF);
  ExpectEqual();
}

TEST_F(IdReview, TheTextsAreComparedNotTheirValues) {
  FillIds({"0", "00", "00", "00", "00", "00", "00", "00"});
  ExpectDifferent();
}

TEST_F(IdReview, IgenTakesTheBytesShowsThemAndCountsAsAnEdit) {
  PutBytes({0x42, 0x41, 0x04, 0x03, 0x46, 0x45, 0xFF, 0x47});
  image::IdEdited = image::ConfigEdited = 0;
  IDLocO.Load();
  EXPECT_EQ(image::IdEdited, 0);
  session.Do("click IDLocO.Igen");
  const char* const texts[] = {"41", "42", "03", "04", "45", "46", "47", "FF"};
  const char* const lines[] = {" 41        A", " 42        B", " 03        \x03", " 04        \x04",
                               " 45        E", " 46        F", " 47        G",    " FF        ˙"};
  for (std::size_t n = 1; n <= 8; ++n) {
    EXPECT_EQ(IdBuffer[n], texts[n - 1]);
    EXPECT_EQ(Form1.IdLists.at(n - 1)->Lines(), Lines{lines[n - 1]}) << n;
  }
  EXPECT_EQ(image::IdEdited, 1);
  EXPECT_EQ(image::ConfigEdited, 0);
  EXPECT_EQ(Events(1), Lines{":  Beolvasott ID Loc tartalom Pufferbe áttölve."});
  EXPECT_FALSE(IDLocO.Loaded());
}

TEST_F(IdReview, NemLeavesTheBufferAndSaysSo) {
  FillIds({"12", "12", "12", "12", "12", "12", "12", "12"});
  image::IdEdited = 0;
  const Lines shown = Form1.IDLOC11.Lines();
  IDLocO.Load();
  session.Do("click IDLocO.Nem");
  for (std::size_t n = 1; n <= 8; ++n) EXPECT_EQ(IdBuffer[n], "12");
  EXPECT_EQ(Form1.IDLOC11.Lines(), shown);
  EXPECT_EQ(image::IdEdited, 0);
  EXPECT_EQ(Events(1), Lines{":  Beolvasott User ID szavak Nem lettek Pufferbe töltve."});
  EXPECT_FALSE(IDLocO.Loaded());
}

TEST_F(IdReview, NemLeavesAnEarlierEditAnEdit) {
  image::IdEdited = 1;
  IDLocO.Load();
  session.Do("click IDLocO.Nem");
  EXPECT_EQ(image::IdEdited, 1);
}

TEST_F(IdReview, ClosingItByItsFrameLogsNothing) {
  IDLocO.Load();
  EXPECT_EQ(session.WireOf("close IDLocO"), Lines{"- IDLocO"});
}

TEST_F(IdReview, WithTheAutomaticTickTheLogDoesNotTellOfTheTakeOver) {
  session.Do("tick Check2");
  std::fill_n(ReadBackBytes.begin() + 1, 8, 0x33);
  session.BeginWire();
  IDLocO.Load();
  const Lines log = session.EndWire();
  ASSERT_EQ(log.size(), 3U);
  EXPECT_EQ(log[0], "+ IDLocO");
  EXPECT_TRUE(log[1].ends_with(":  Nem egyforma a Puffer és a Beolvasott ID Loc tartalma.")) << log[1];
  EXPECT_EQ(log[2], "- IDLocO");
  EXPECT_EQ(IdBuffer[8], "33");
  EXPECT_EQ(session.Ask("list IDLOC81"), " 33        3");
  EXPECT_EQ(image::IdEdited, 1);
}

TEST_F(IdReview, ATickSetWhileItStandsOpenKeepsIgenSilentToo) {
  IDLocO.Load();
  session.Do("tick Check2");
  EXPECT_EQ(session.WireOf("click IDLocO.Igen"), Lines{"- IDLocO"});
  EXPECT_EQ(IdBuffer[1], "00");
}

}  // namespace
}  // namespace zelvo::test
