// `MEM_Mentes` and its help: what the buttons write, and that a save that fails loses neither the old file
// nor the image.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>

#include "image/hex_save.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "support/bench_session.h"
#include "support/pattern_image.h"
#include "watched_dialogs.h"

namespace zelvo::test {
namespace {

namespace fs = std::filesystem;
using panel::Mem_Help;
using panel::MEM_Mentes;

constexpr const char* NoChip = "ok ok Nincs PIC kiválasztva!";
constexpr const char* NotSaved = "ok ok Nem lett a fájl elmentve!";
constexpr const char* UnknownFault = "ok ok Ismeretlen hiba!";

struct Form {
  const char* button;
  std::string (*text)();
  const char* filter;
  const char* extension;
};
const Form Forms[] = {
    {"IntelHex", image::IntelHexText, ".Hex Intel HEX formátum|*.Hex", "Hex"},
    {"FlashMent", image::MchFlashText, ".MCH MPLAB import formátum|*.MCH", "MCH"},
    {"EEPROM", image::MchEepromText, ".MCH MPLAB import formátum|*.MCH", "MCH"},
};

class SaveWindow : public testing::Test {
 protected:
  void SetUp() override {
    session.Do({"start", "tab 2", "choose Combo1 PIC18F1320", "messages"});
    FillWithPattern(1);
    fs::create_directory(folder);
  }
  /// Opens the window, presses a button and lets the dialog choose `place`. Gives the messages.
  Lines Save(const std::string& place, const std::string& button = "IntelHex") {
    session.Do({"click fájlment", "file " + place, "click MEM_Mentes." + button});
    return session.Look("messages");
  }
  /// The names in the folder of the saved files.
  [[nodiscard]] Lines Entries() const {
    Lines names;
    for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
    return names;
  }
  [[nodiscard]] std::string Content() const { return session.Folder().Read("saved/chip.hex"); }
  /// The message of a fault, the old file, the image, the window and nothing else are there.
  void ExpectNothingLost(const Lines& messages, const HexImage& image) const {
    EXPECT_EQ(messages, Lines{UnknownFault});
    EXPECT_EQ(Content().substr(0, 100), "the old file");
    EXPECT_EQ(Entries(), Lines{"chip.hex"});
    EXPECT_EQ(FirstDifference(image, ImageByAddress()), "");
    EXPECT_TRUE(MEM_Mentes.Loaded()) << "another place can be chosen";
    EXPECT_TRUE(MEM_Mentes.OnTop);
  }
  BenchSession session;
  const std::string folder = session.Folder().File("saved");
  const std::string path = folder + "/chip.hex";
};

TEST_F(SaveWindow, BearsItsCaptions) {
  session.Do("click fájlment");
  EXPECT_EQ(MEM_Mentes.Caption, "Mentés Fájlba");
  EXPECT_EQ(session.Ask("get MEM_Mentes.FlashMent"), "Flash Mentése MCH-ba");
  EXPECT_EQ(session.Ask("get MEM_Mentes.EEPROM"), "EEPROM Mentése MCH-ba");
  EXPECT_TRUE(MEM_Mentes.OnTop);
}

TEST_F(SaveWindow, EachButtonWritesItsFormAndClosesTheWindow) {
  for (const Form& form : Forms) {
    SCOPED_TRACE(form.button);
    session.Do({"click fájlment", "file " + path});
    EXPECT_TRUE(SameLog({"- MEM_Mentes"}, session.WireOf(std::string("click MEM_Mentes.") + form.button)));
    EXPECT_EQ(session.Look("messages"), Lines{});
    const std::string text = form.text();
    EXPECT_FALSE(text.empty());
    EXPECT_EQ(Content(), text) << "the file that was there is replaced";
    EXPECT_EQ(Entries(), Lines{"chip.hex"});
  }
}

TEST_F(SaveWindow, TheDialogOffersTheFormsOwnFilterAndExtension) {
  WatchedDialogs dialogs;
  platform::FileFilter seen;
  dialogs.InSaveDialog = [&](const platform::FileFilter& filter) {
    seen = filter;
    EXPECT_TRUE(MEM_Mentes.Loaded());
  };
  for (const Form& form : Forms) {
    seen = {};
    Save(path, form.button);
    EXPECT_EQ(seen.filter, form.filter);
    EXPECT_EQ(seen.defaultExtension, form.extension);
  }
}

TEST_F(SaveWindow, ACancelledDialogIsToldAndTheWindowStays) {
  session.Folder().Write("saved/chip.hex", "the old file");
  for (const Form& form : Forms) {
    EXPECT_EQ(Save("cancel", form.button), Lines{NotSaved});
    EXPECT_TRUE(MEM_Mentes.Loaded());
    EXPECT_EQ(Content(), "the old file");
    EXPECT_EQ(Entries(), Lines{"chip.hex"});
  }
}

TEST_F(SaveWindow, ComesDownForTheTimeOfAMessage) {
  WatchedDialogs dialogs;
  int seen = 0;
  dialogs.InMessage = [&](const std::string&) {
    ++seen;
    EXPECT_FALSE(MEM_Mentes.OnTop);
  };
  Save("cancel");
  EXPECT_TRUE(MEM_Mentes.OnTop);
  Save(folder + "/gone/chip.hex");
  EXPECT_TRUE(MEM_Mentes.OnTop);
  EXPECT_EQ(seen, 2);
}

TEST_F(SaveWindow, AnOldFileIsReplacedWholeEvenByAShorterOne) {
  session.Folder().Write("saved/chip.hex", std::string(100'000, 'x'));
  EXPECT_EQ(Save(path), Lines{});
  EXPECT_EQ(Content(), image::IntelHexText());
  EXPECT_EQ(Entries(), Lines{"chip.hex"});
}

TEST_F(SaveWindow, WhatWasSavedCanBeLoadedAgain) {
  Save(path);
  EraseForeignConfig();
  const HexImage saved = ImageByAddress();
  session.Do({"choose Combo1 PIC18F1320", "file " + path, "click FájlBetölt"});
  EXPECT_EQ(session.Look("messages"), Lines{});
  EXPECT_EQ(FirstDifference(saved, ImageByAddress()), "");
}

TEST_F(SaveWindow, ADiskThatFillsUpHalfWayLosesNothing) {
  session.Folder().Write("saved/chip.hex", "the old file");
  const HexImage image = ImageByAddress();
  // No file may grow beyond that, as on a disk without more room: a refused write, not a signal.
  ::signal(SIGXFSZ, SIG_IGN);
  const rlimit few{5000, RLIM_INFINITY}, all{RLIM_INFINITY, RLIM_INFINITY};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &few), 0);
  const Lines messages = Save(path);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &all), 0);
  ExpectNothingLost(messages, image);
  session.Do({"file " + path, "click MEM_Mentes.IntelHex"});
  EXPECT_EQ(Content(), image::IntelHexText()) << "once there is room again";
}

/// Saves as somebody who is not the superuser, whom nothing is denied.
template <class Act>
void AsNobody(const Act& act) {
  constexpr uid_t Nobody = 65534;
  const bool root = ::geteuid() == 0;
  ASSERT_EQ(root ? ::seteuid(Nobody) : 0, 0);
  act();
  ASSERT_EQ(root ? ::seteuid(0) : 0, 0);
}

TEST_F(SaveWindow, AReadOnlyFolderLosesNothing) {
  session.Folder().Write("saved/chip.hex", "the old file");
  const HexImage image = ImageByAddress();
  fs::permissions(session.Folder().Path(), fs::perms{0755});
  fs::permissions(folder, fs::perms{0555});
  Lines messages;
  AsNobody([&] { messages = Save(path); });
  fs::permissions(folder, fs::perms{0755});
  ExpectNothingLost(messages, image);
}

TEST_F(SaveWindow, AWriteProtectedFileStays) {
  session.Folder().Write("saved/chip.hex", "the old file");
  const HexImage image = ImageByAddress();
  fs::permissions(session.Folder().Path(), fs::perms{0755});
  fs::permissions(folder, fs::perms{0777});
  fs::permissions(path, fs::perms{0444});
  Lines messages;
  AsNobody([&] { messages = Save(path); });
  ExpectNothingLost(messages, image);
}

TEST_F(SaveWindow, APlaceThatIsNoneIsAnUnknownFault) {
  session.Folder().Write("saved/chip.hex", "the old file");
  const HexImage image = ImageByAddress();
  for (const std::string& place : {folder + "/gone/chip.hex", folder, path + "/below",
                                   std::string("/dev/full"), folder + "/" + std::string(300, 'x')}) {
    SCOPED_TRACE(place);
    for (const Form& form : Forms) ExpectNothingLost(Save(place, form.button), image);
  }
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(SaveWindow, WithoutAChipNothingOpens) {
  session.Do({"tab 1", "tab 2"});
  EXPECT_TRUE(SameLog({std::string("M ") + NoChip}, session.WireOf("click fájlment")));
  EXPECT_FALSE(MEM_Mentes.Loaded());
}

TEST_F(SaveWindow, NoLineIsWrittenForAChipThatIsNoLongerChosen) {
  WatchedDialogs dialogs;
  dialogs.InSaveDialog = [](const platform::FileFilter&) { ADD_FAILURE() << "there is nothing to save"; };
  session.Do({"click fájlment", "tab 1", "file " + path, "messages"});
  for (const Form& form : Forms) {
    session.Do(std::string("click MEM_Mentes.") + form.button);
    EXPECT_EQ(session.Look("messages"), Lines{NoChip});
  }
  EXPECT_EQ(Entries(), Lines{});
  EXPECT_TRUE(MEM_Mentes.Loaded());
}

TEST_F(SaveWindow, LoadAndReloadRefuseWithoutAChipToo) {
  session.Do({"tab 1", "tab 2", "messages", "click FájlBetölt", "click Frissites"});
  EXPECT_EQ(session.Look("messages"), (Lines{NoChip, NoChip}));
}

TEST_F(SaveWindow, AMidRangeImageIsSavedByTheWindowThatWasOpenedOnTheOtherPage) {
  session.Do(
      {"click fájlment", "tab 1", "choose Combo2 PIC16F84A", "file " + path, "click MEM_Mentes.IntelHex"});
  const Lines lines = SplitLines(Content());
  ASSERT_EQ(lines.size(), 128 + 4 + 7u);
  EXPECT_EQ(lines[0], ":020000040000FA");
  EXPECT_EQ(lines[1].substr(0, 17), ":10000000FF3FFF3F");
  EXPECT_EQ(lines[129], ":020000040020DA");
  EXPECT_EQ(lines.back(), ":00000001FF");
}

TEST_F(SaveWindow, TheMidRangePagesOwnButtonDoesNothing) {
  session.Do({"tab 1", "choose Combo2 PIC16F84A", "messages"});
  EXPECT_TRUE(session.WireOf("click Command23").empty());
  EXPECT_TRUE(session.Look("messages").empty());
  EXPECT_FALSE(MEM_Mentes.Loaded());
  EXPECT_EQ(panel::Form1.Command23.Click, nullptr);
}

TEST_F(SaveWindow, MegseClosesItAndWritesNothing) {
  session.Do("click fájlment");
  EXPECT_TRUE(SameLog({"- MEM_Mentes"}, session.WireOf("click MEM_Mentes.Megse")));
  EXPECT_TRUE(session.Look("messages").empty());
  EXPECT_EQ(Entries(), Lines{});
}

TEST_F(SaveWindow, ItsHelpTellsWhatTheFormsAreFor) {
  session.Do("click fájlment");
  EXPECT_TRUE(SameLog({"+ Mem_Help"}, session.WireOf("click MEM_Mentes.M_Help")));
  EXPECT_TRUE(MEM_Mentes.Loaded());
  EXPECT_EQ(Mem_Help.Caption, "Segéd infók");
  Lines labels;
  for (const panel::Control* control : Mem_Help.Controls()) {
    if (const auto* label = dynamic_cast<const panel::Label*>(control)) labels.push_back(label->Caption);
  }
  ASSERT_EQ(labels.size(), 5u);
  EXPECT_EQ(labels[0], "Az Intel HEX formátumba mentett fájl visszatölthető és beégethető.");
  EXPECT_EQ(labels[1], "Az MCH kiterjesztés az MPLAB export/import fájlformátuma.");
  EXPECT_TRUE(
      labels[2].starts_with("Az így elmentett fájlt be lehet tölteni(jobb egérgomb, import Table) az MPLAB "
                            "Program Memory ill. EEPROM a"));
  EXPECT_EQ(labels[3],
            "Betöltés után a Machine és a Symbolic listaforma kiválasztásával a memória tartalom "
            "Dissasemlálódik.");
  EXPECT_EQ(labels[4], "Jó visszafejtést!");
  EXPECT_TRUE(SameLog({"- Mem_Help"}, session.WireOf("click Mem_Help.Command1")));
}

}  // namespace
}  // namespace zelvo::test
