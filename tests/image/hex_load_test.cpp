// The load and reload buttons: which file is opened, what is told, and what is erased before the first
// record.
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "devices/selection.h"
#include "hex_desk.h"
#include "icsp/conversions.h"
#include "image/buffers.h"
#include "image/hex_lines.h"
#include "link/event_log.h"
#include "panel/form1.h"

namespace zelvo::test {
namespace {

using panel::Form1;

std::string FirstLine(const panel::ListBox& list) {
  return list.Lines().empty() ? "" : list.Lines().front();
}

/// A line of the event log with the number `counter`, in the first second after the start.
std::string EventLine(int counter, const std::string& text) {
  return std::to_string(counter) + ":  12:00:00" + text;
}

TEST(HexFile, ClickingWithoutAChipTellsSoAndAsksForNoFile) {
  BenchSession session;
  session.Do({"start", "messages", "file /nowhere.hex"});
  for (const char* button : {"click FájlBetölt", "click Frissites", "click Command7", "click Command22"}) {
    icsp::LoadFailed = 0;
    session.Do(button);
    EXPECT_EQ(session.Look("messages"), Lines{"ok ok Nincs PIC kiválasztva!"}) << button;
    EXPECT_EQ(icsp::LoadFailed, 1) << button;
    EXPECT_EQ(image::HexFileName, "") << button;
  }
}

TEST(HexFile, ACancelledDialogIsToldAndChangesNothing) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + EndRecord), Lines{});
  const int counter = link::EventCounter;
  desk.session.Do("file cancel");
  desk.session.Do("click FájlBetölt");
  EXPECT_EQ(desk.session.Look("messages"), Lines{"ok ok Nem lett fájl kiválasztva!"});
  EXPECT_EQ(icsp::LoadFailed, 1);
  EXPECT_EQ(desk.Word(0), "1234");
  EXPECT_EQ(desk.GridWord(0), "1234");
  EXPECT_EQ(link::EventCounter, counter);
}

TEST(HexFile, AFileThatGivesNoTextIsToldAndChangesNothing) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + EndRecord), Lines{});
  const TemporaryFolder& folder = desk.session.Folder();
  folder.Write("empty.hex", "");
  std::filesystem::create_symlink("nowhere", folder.File("dangling.hex"));
  ASSERT_EQ(::mkfifo(folder.File("pipe.hex").c_str(), 0600), 0);
  const int counter = link::EventCounter;
  for (const std::string& path :
       {folder.File("missing.hex"), folder.File("empty.hex"), folder.File("dangling.hex"),
        folder.File("pipe.hex"), folder.Path(), folder.File("empty.hex") + "/below.hex",
        folder.File(std::string(5000, 'a'))}) {
    EXPECT_EQ(desk.LoadPath(path), Lines{UnknownFileFault}) << path;
    EXPECT_EQ(icsp::LoadFailed, 1);
    EXPECT_EQ(desk.Word(0), "1234");
    EXPECT_EQ(desk.GridWord(0), "1234");
    EXPECT_EQ(desk.Reload(), Lines{UnknownFileFault}) << path;
    EXPECT_EQ(desk.Word(0), "1234");
  }
  EXPECT_EQ(link::EventCounter, counter);
}

TEST(HexFile, AFileWithoutPermissionIsToldAndChangesNothing) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + EndRecord), Lines{});
  ASSERT_EQ(::chmod(desk.session.Folder().File("image.hex").c_str(), 0), 0);
  // Nothing is unreadable for the superuser: read as an ordinary user.
  constexpr uid_t Nobody = 65534;
  const bool superuser = ::geteuid() == 0;
  ASSERT_EQ(superuser ? ::seteuid(Nobody) : 0, 0);
  EXPECT_EQ(desk.Reload(), Lines{UnknownFileFault});
  ASSERT_EQ(superuser ? ::seteuid(0) : 0, 0);
  EXPECT_EQ(desk.Word(0), "1234");
}

TEST(HexFile, LoadingIsLoggedOnThePageInViewOnly) {
  HexDesk desk("PIC18F452");
  const Lines other = Form1.List4.Lines();
  const int counter = link::EventCounter;
  EXPECT_EQ(desk.Load(EndRecord), Lines{});
  EXPECT_EQ(FirstLine(Form1.List1), EventLine(counter, ":  Fájl betöltése Indult!"));
  EXPECT_EQ(Form1.List4.Lines(), other);
  EXPECT_EQ(link::EventCounter, counter + 1);
}

TEST(HexFile, LoadingOnTheMidRangePageIsLoggedThere) {
  HexDesk desk("PIC16F628A");
  const Lines other = Form1.List1.Lines();
  const int counter = link::EventCounter;
  EXPECT_EQ(desk.Load(EndRecord), Lines{});
  EXPECT_EQ(FirstLine(Form1.List4), EventLine(counter, ":  Fájl betöltése Indult!"));
  EXPECT_EQ(Form1.List1.Lines(), other);
  EXPECT_EQ(link::EventCounter, counter + 1);
}

TEST(HexFile, ReloadingIsLoggedOnBothPagesWithANumberEach) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(EndRecord), Lines{});
  for (const char* chip : {"PIC18F452", "PIC16F628A"}) {
    desk.Choose(chip);
    const int counter = link::EventCounter;
    EXPECT_EQ(desk.Reload(), Lines{});
    EXPECT_EQ(FirstLine(Form1.List1), EventLine(counter, ":  Fájl  Frissítése Indul!")) << chip;
    EXPECT_EQ(FirstLine(Form1.List4), EventLine(counter + 1, ":  Fájl  Frissítése Indul!")) << chip;
    EXPECT_EQ(link::EventCounter, counter + 2);
  }
}

TEST(HexFile, ReloadingReadsTheLastFileOfTheDialogAnew) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Reload(), Lines{UnknownFileFault});
  EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + EndRecord), Lines{});
  EXPECT_EQ(desk.Reload(Rec(2, 0, "7856") + EndRecord), Lines{});
  EXPECT_EQ(desk.Word(0), "FFFF");
  EXPECT_EQ(desk.Word(1), "5678");
  EXPECT_EQ(image::HexFileName, desk.session.Folder().File("image.hex"));

  desk.session.Do("file cancel");
  desk.session.Do("click FájlBetölt");
  EXPECT_EQ(image::HexFileName, "");
  EXPECT_EQ(desk.session.Look("messages"), Lines{"ok ok Nem lett fájl kiválasztva!"});
  EXPECT_EQ(desk.Reload(), Lines{});
  EXPECT_EQ(image::HexFileName, desk.session.Folder().File("image.hex"));
}

TEST(HexFile, LoadingErasesFlashEepromConfigurationAndIdsFirst) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + Ela(0x20) + Rec(0, 0, "4142") + Ela(0x30) + Rec(0, 0, "0022") +
                      Ela(0xF0) + Rec(0, 0, "5A") + EndRecord),
            Lines{});
  EXPECT_EQ(desk.Word(0), "1234");
  EXPECT_EQ(desk.Byte(0), "5A");
  EXPECT_EQ(image::IdBuffer[1], "41");
  EXPECT_EQ(image::ConfigBuffer[2], "22");
  EXPECT_EQ(desk.Load(EndRecord), Lines{});
  EXPECT_TRUE(desk.IsErased());
  EXPECT_EQ(image::IdBuffer[1], "FF");
  EXPECT_EQ(image::ConfigBuffer[2], "FF");
}

TEST(HexFile, ReloadingErasesFlashAndEepromButNoConfigurationAndNoIds) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + Ela(0x20) + Rec(0, 0, "4142") + Ela(0x30) + Rec(0, 0, "0022") +
                      Ela(0xF0) + Rec(0, 0, "5A") + EndRecord),
            Lines{});
  EXPECT_EQ(desk.Reload(EndRecord), Lines{});
  EXPECT_TRUE(desk.IsErased());
  EXPECT_EQ(image::IdBuffer[1], "41");
  EXPECT_EQ(image::IdBuffer[2], "42");
  EXPECT_EQ(image::ConfigBuffer[2], "22");
}

TEST(HexFile, LoadingOnTheMidRangePageErasesItsConfigurationAndIdWords) {
  HexDesk desk("PIC16F887");
  EXPECT_EQ(desk.Load(Rec(0x4000, 0, "0100") + Rec(0x400E, 0, "0000")), Lines{});
  EXPECT_EQ(image::MidIdWords[1], 1);
  EXPECT_EQ(image::ConfigWord1Bits, "00000000000000");
  EXPECT_EQ(desk.Load(Rec(0, 0, "0000")), Lines{});
  EXPECT_EQ(image::MidIdWords[1], 16383);
  EXPECT_EQ(image::ConfigWord1Bits, "11111111111111");
  EXPECT_EQ(Form1.List7.Lines(), Lines{"3FFFh, 16383dec"});
  EXPECT_EQ(Form1.List6.Lines(), Lines{" 3FFFh, (1 1 1 1 1 1 1 1 1 1 1 1 1 1)bin"});
}

TEST(HexFile, ReloadingOnTheMidRangePageUsesThePic18Parser) {
  HexDesk desk("PIC16F887");
  // Only the PIC18 parser stops at the end record; the mid-range parser goes on to the line behind it.
  const std::string text = std::string(EndRecord) + "junk\r\n";
  EXPECT_EQ(desk.Load(text), Lines{NotHexFormat});
  EXPECT_EQ(desk.Reload(text), Lines{});
}

TEST(HexFile, ReloadingOnTheMidRangePageFindsNoRowInThePic18Grid) {
  HexDesk desk("PIC16F887");
  EXPECT_EQ(desk.Load(Rec(0, 0, "3412")), Lines{});
  EXPECT_EQ(desk.Word(0), "1234");
  EXPECT_EQ(desk.Reload(), Lines{NotForThisChip});
  EXPECT_TRUE(desk.IsErased());
}

TEST(HexFile, AnEarlierConversionFaultDoesNotKeepAFileFromLoading) {
  HexDesk desk("PIC18F452");
  icsp::LoadFailed = 2;
  EXPECT_EQ(desk.Load(Rec(0, 0, "3412") + EndRecord), Lines{});
  EXPECT_EQ(desk.Word(0), "1234");
  EXPECT_EQ(icsp::LoadFailed, 0);
}

TEST(HexFile, LinesMayEndInCrLfInLfOrInCr) {
  HexDesk desk("PIC18F452");
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    std::string text;
    for (const std::string line : {":020000003412B8", ":0200020078562E", ":00000001FF", "junk"})
      text += line + end;
    EXPECT_EQ(desk.Load(text), Lines{});
    EXPECT_EQ(desk.Word(0), "1234");
    EXPECT_EQ(desk.Word(1), "5678");
  }
}

TEST(HexFile, TheTextBehindTheLastLineBreakIsNotRead) {
  HexDesk desk("PIC18F452");
  std::string text = Rec(0, 0, "3412") + Rec(2, 0, "7856");
  text.resize(text.size() - 2);
  EXPECT_EQ(desk.Load(text), Lines{});
  EXPECT_EQ(desk.Word(0), "1234");
  EXPECT_EQ(desk.Word(1), "FFFF");
  desk.Choose("PIC16F628A");
  EXPECT_EQ(desk.Load(text), Lines{});
  EXPECT_EQ(desk.Word(0), "1234");
  EXPECT_EQ(desk.Word(1), "3FFF");
}

TEST(HexFile, AFileWithoutAnyLineBreakHoldsNoLine) {
  HexDesk desk("PIC18F452");
  EXPECT_EQ(desk.Load("no break"), Lines{});
  EXPECT_TRUE(desk.IsErased());
}

}  // namespace
}  // namespace zelvo::test
