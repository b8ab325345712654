// The windows that tell something, the information page, and the window that closes the reviews.
#include <gtest/gtest.h>

#include <utility>

#include "image/buffers.h"
#include "link/event_log.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "platform/seams.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using panel::Form1;
using panel::névjegy_ablak;
using panel::OlvassEl;
using panel::Összes_Bezárása;

/// A desk that keeps the pages asked for; it stands before that of the bench for its life.
class Browser final : public platform::Dialogs {
 public:
  Browser() : bench_(std::exchange(platform::seams.dialogs, this)) {}
  Browser(const Browser&) = delete;
  Browser& operator=(const Browser&) = delete;
  ~Browser() override { platform::seams.dialogs = bench_; }

  void Message(const std::string& text) override { bench_->Message(text); }
  [[nodiscard]] bool AskYesNo(const std::string& text) override { return bench_->AskYesNo(text); }
  [[nodiscard]] std::optional<std::string> OpenFile(const platform::FileFilter& filter) override {
    return bench_->OpenFile(filter);
  }
  [[nodiscard]] std::optional<std::string> SaveFile(const platform::FileFilter& filter) override {
    return bench_->SaveFile(filter);
  }
  void OpenInformationPage(const std::string& path) override { Pages.push_back(path); }

  Lines Pages;

 private:
  platform::Dialogs* bench_;
};

class Information : public testing::Test {
 protected:
  void SetUp() override { session.Do({"board lpt", "start"}); }
  BenchSession session;
};

TEST_F(Information, EachPagesButtonOpensTheInformationPage) {
  Browser browser;
  EXPECT_TRUE(session.WireOf("click ZLV_info").empty());
  EXPECT_EQ(browser.Pages, Lines{"ZelvoBurn/ZLV_infok.htm"});
  EXPECT_TRUE(session.WireOf("click Command25").empty());
  EXPECT_EQ(browser.Pages, (Lines{"ZelvoBurn/ZLV_infok.htm", "ZelvoBurn/ZLV_infok.htm"}));
}

TEST_F(Information, EachPagesButtonOpensTheCardWithNameVersionAndMaker) {
  for (const char* button : {"Névjegy", "Command24"}) {
    EXPECT_EQ(session.WireOf(std::string("click ") + button), Lines{"+ névjegy_ablak"}) << button;
    EXPECT_NE(session.Ask("get névjegy_ablak.Label1").find("Zelvo"), std::string::npos);
    const std::string version = session.Ask("get névjegy_ablak.Label2");
    EXPECT_NE(version.find_first_of("0123456789"), std::string::npos) << version;
    EXPECT_NE(session.Ask("get névjegy_ablak.Label4").find('@'), std::string::npos) << "a way to the maker";
    EXPECT_TRUE(névjegy_ablak.OnTop);
    EXPECT_EQ(session.WireOf("click névjegy_ablak.Command1"), Lines{"- névjegy_ablak"});
  }
}

TEST_F(Information, TheButtonsBearTheirCaptions) {
  EXPECT_EQ(session.Ask("get Command2"), "Verify Puffer Törlése FFFF");
  EXPECT_EQ(session.Ask("get Command3"), "Verify Mód Segítség");
  EXPECT_EQ(session.Ask("get Névjegy"), session.Ask("get Command24"));
  EXPECT_EQ(session.Ask("get ZLV_info"), session.Ask("get Command25"));
}

TEST_F(Information, Command2FillsTheWholeVerifyBufferAndSaysSo) {
  session.Do({"tab 2", "choose Combo1 PIC18F1220"});
  image::VerifyBuffer(1, 1) = "1234";
  image::VerifyBuffer(8, 256) = "";
  image::VerifyBuffer(1, 257) = "0000";
  image::MainBuffer(1, 1) = "1234";
  const int event = link::EventCounter;
  session.Do("click Command2");
  int filled = 0;
  for (int row = 1; row <= 66000; ++row) {
    for (int col = 1; col <= 8; ++col) {
      if (image::VerifyBuffer(col, row) == "FFFF") ++filled;
    }
  }
  EXPECT_EQ(filled, 8 * 66000);
  EXPECT_EQ(image::MainBuffer(1, 1), "1234");
  const std::string newest = session.Look("list List1").front();
  EXPECT_TRUE(newest.starts_with(std::to_string(event) + ":  ")) << newest;
  EXPECT_EQ(newest.substr(newest.find(":  ") + 11), ":  Verify Puffer Törölve(FFFF).");
  EXPECT_EQ(link::EventCounter, event + 1);
}

TEST_F(Information, Command2AsksForNoChip) {
  session.Do({"tab 2", "click Command2"});
  EXPECT_TRUE(session.Look("messages").empty());
  EXPECT_EQ(image::VerifyBuffer(8, 66000), "FFFF");
}

TEST_F(Information, TheHelpOfTheVerifyModeHasTenLines) {
  EXPECT_EQ(session.WireOf("click Command3"), Lines{"+ OlvassEl"});
  const Lines lines = {
      "      Verify írás működése: (Csak 18F-ek esetében működik)",
      " ",
      "Betöltéskor a Fő Puffer töltődik fel a HEX fájl tartalmával. Ekkor a Verify Puffer még törölt "
      "állapotban van(tele van FF értékekkel) ",
      "Ha a PIC-ben van adat, ami a folyamatban lévő fejlesztés része, akkor azt be lehet olvasni, és az "
      "olvasás ablakból be lehet tölteni",
      "a Verify Pufferbe.",
      "Íráskor, ha ki van választva a Verify Mód, a program 64Bájtos blokkokban elkezdi összehasonlítani a "
      "Fő és a Verify Pufferek tartalmát",
      "Ha eltérést talál, akkor az aktuális 64Bájtot törli, majd beírja az új adatokat. Az összes többi "
      "adatot kihagyja, ami jelentősen gyorsíthat",
      "a fejlesztés menetén, valamint kíméli a végesen írható flash memóriát. ",
      "Érdemes a hatékonyság érdekében a fejlesztés alatt álló programot ORG-okkal blokkokra bontani(ASM), "
      "hogy egy kis változtatás ne tolja",
      "lejjebb az egész programot a memóriában, így csak a javított blokkban lesz eltérés, aminek beégetése "
      "nagyon kis időt vesz igénybe.",
  };
  EXPECT_EQ(session.Look("list OlvassEl.List1"), lines);
}

TEST_F(Information, TheHelpBearsItsCaptionsAndGoesByItsButton) {
  session.Do("click Command3");
  EXPECT_EQ(OlvassEl.Caption, "Segítség");
  EXPECT_EQ(session.Ask("get OlvassEl.Command1"), "Bezárás");
  EXPECT_EQ(session.WireOf("click OlvassEl.Command1"), Lines{"- OlvassEl"});
}

TEST_F(Information, AskedForTwiceTheHelpStandsOpenOnceWithItsTenLines) {
  session.Do({"click Command3", "click Command3"});
  EXPECT_EQ(session.Look("windows"), (Lines{"MDIForm1", "Form1", "OlvassEl"}));
  EXPECT_EQ(session.Look("list OlvassEl.List1").size(), 10U);
}

class CloseReviews : public Information {
 protected:
  static void LoadReviews() {
    panel::IDLocO.Load();
    panel::FlashOlv.Load();
    panel::Config_Beolvas.Load();
    panel::EEPROM_Beolvas.Load();
  }
};

TEST_F(CloseReviews, BearsItsCaptionsAndStaysOnTop) {
  Összes_Bezárása.Load();
  EXPECT_EQ(Összes_Bezárása.Caption, "Összes Bezárása");
  EXPECT_EQ(session.Ask("get Összes_Bezárása.Command1"), "Összes Ablak bezáráa");
  EXPECT_TRUE(Összes_Bezárása.OnTop);
}

TEST_F(CloseReviews, ItsButtonClosesEveryReviewAndItselfLast) {
  session.Do({"tab 2", "choose Combo1 PIC18F1220"});
  LoadReviews();
  Összes_Bezárása.Load();
  const Lines log = session.WireOf("click Összes_Bezárása.Command1");
  EXPECT_EQ(log.size(), 5U);
  EXPECT_EQ(log.back(), "- Összes_Bezárása");
  EXPECT_EQ(session.Look("windows"), (Lines{"MDIForm1", "Form1"}));
}

TEST_F(CloseReviews, WhatIsNotOpenIsNoMatterAndOtherWindowsStay) {
  session.Do({"tab 2", "choose Combo1 PIC18F1220", "click Command3"});
  panel::Config_Beolvas.Load();
  Összes_Bezárása.Load();
  EXPECT_EQ(session.WireOf("click Összes_Bezárása.Command1"),
            (Lines{"- Config_Beolvas", "- Összes_Bezárása"}));
  EXPECT_EQ(session.Look("windows"), (Lines{"MDIForm1", "Form1", "OlvassEl"}));
}

TEST_F(CloseReviews, ItsFrameClosesItAlone) {
  session.Do({"tab 2", "choose Combo1 PIC18F1220"});
  LoadReviews();
  Összes_Bezárása.Load();
  EXPECT_EQ(session.WireOf("close Összes_Bezárása"), Lines{"- Összes_Bezárása"});
  EXPECT_EQ(session.Look("windows").size(), 2U + 4U);
}

TEST_F(CloseReviews, AWholeReadOfTheChipEndsWithIt) {
  session.Do({"tab 2", "choose Combo1 PIC18F1220", "socket PIC18F1220", "click PICOlvas"});
  EXPECT_EQ(session.Look("windows"), (Lines{"MDIForm1", "Form1", "FlashOlv", "EEPROM_Beolvas", "IDLocO",
                                            "Config_Beolvas", "Összes_Bezárása"}));
  session.Do("click Összes_Bezárása.Command1");
  EXPECT_EQ(session.Look("windows"), (Lines{"MDIForm1", "Form1"}));
}

}  // namespace
}  // namespace zelvo::test
