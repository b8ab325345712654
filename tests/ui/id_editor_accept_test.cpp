// How the ID editors end: what comes into the image, what is logged, and what the file loader asks
// afterwards.
#include "id_desk.h"
#include "watched_dialogs.h"

namespace zelvo::test {
namespace {

using panel::FelülDialog;
using panel::IDLocEdit;
using panel::IDLocEdit_F16;

constexpr const char* Taken = ":  Szerkesztett ID Loc tartalom Pufferbe áttölve.";
constexpr const char* NotTaken = ":  Szerkesztett ID Loc tartalom Nem lett Pufferbe áttölve.";
constexpr const char* Ended = ":  ID Loc szerkesztés befelyezve.";
constexpr const char* IdFile = ":020000040020DA\r\n:08000000313233343536373854\r\n:00000001FF\r\n";

TEST_F(IdDesk, AcceptTakesTheBytesOverIntoTheImageAndTheMainWindow) {
  Choose(Pic18Ids);
  image::IdEdited = 0;
  session.Do("click IDMod");
  Edit(Pic18Ids, CharacterRow, 1, "Á");
  Edit(Pic18Ids, HexRow, 2, "5");
  Edit(Pic18Ids, DecimalRow, 3, "90");
  Edit(Pic18Ids, HexRow, 8, "ab");
  const Lines log = {Event(Pic18Ids, Taken), Event(Pic18Ids, Ended, 1), "- IDLocEdit"};
  EXPECT_TRUE(SameLog(log, session.WireOf("click IDLocEdit.Módosít")));
  const char* const digits[] = {"C1", "05", "5A", "FF", "FF", "FF", "FF", "AB"};
  const char* const lines[] = {" C1        Á", " 05        \x05", " 5A        Z", " FF        ˙",
                               " FF        ˙", " FF        ˙",    " FF        ˙", " AB        «"};
  for (int n = 1; n <= 8; ++n) {
    EXPECT_EQ(session.Ask("var IdBuffer(" + std::to_string(n) + ")"), digits[n - 1]);
    EXPECT_EQ(panel::Form1.IdLists.at(static_cast<std::size_t>(n - 1))->Lines(), Lines{lines[n - 1]});
  }
  EXPECT_EQ(session.Look("list IDLOC11"), Lines{lines[0]});
  EXPECT_EQ(session.Look("list IDLOC81"), Lines{lines[7]});
  EXPECT_EQ(session.Ask("var IdEdited"), "1");
  EXPECT_FALSE(IDLocEdit.Loaded());
}

TEST_F(IdDesk, AcceptTakesTheWordsOverIntoTheImageAndTheMainWindow) {
  Choose(MidIds);
  image::MidIdWords = {0, 16383, 16383, 16383, 7};
  image::IdEdited = 0;
  session.Do("click IDMod_F16");
  Edit(MidIds, CharacterRow, 1, "A");
  Edit(MidIds, HexRow, 2, "12c");
  Edit(MidIds, DecimalRow, 3, "6566");
  const Lines log = {Event(MidIds, Taken), Event(MidIds, Ended, 1), "- IDLocEdit_F16"};
  EXPECT_TRUE(SameLog(log, session.WireOf("click IDLocEdit_F16.Módosít")));
  EXPECT_EQ(image::MidIdWords, (std::array<std::int16_t, 5>{0, 65, 300, 6566, 7}));
  EXPECT_EQ(session.Look("list List7"), Lines{"41h, 65dec"});
  EXPECT_EQ(session.Look("list List8"), Lines{"12Ch, 300dec"});
  EXPECT_EQ(session.Look("list List9"), Lines{"19A6h, 6566dec"});
  EXPECT_EQ(session.Look("list List10"), Lines{"7h, 7dec"});
  EXPECT_EQ(session.Ask("var IdEdited"), "1");
  EXPECT_FALSE(IDLocEdit_F16.Loaded());
}

TEST_F(IdDesk, AcceptWithoutAnEditCountsAsOne) {
  for (const IdEditor* editor : BothEditors) {
    Open(*editor);
    image::IdEdited = 0;
    Press(*editor, "Módosít");
    EXPECT_EQ(image::IdEdited, 1);
  }
  EXPECT_EQ(image::IdBuffer[1], "FF");
  EXPECT_EQ(image::MidIdWords[1], 16383);
  EXPECT_EQ(session.Look("list List7"), Lines{"3FFFh, 16383dec"});
}

TEST_F(IdDesk, CancelLogsAndChangesNothing) {
  for (const IdEditor* editor : BothEditors) {
    OpenWith(*editor, "41");
    image::IdEdited = 0;
    const Lines bytes = session.Look("list IDLOC11");
    const Lines words = session.Look("list List7");
    Edit(*editor, HexRow, 1, "42");
    const Lines log = {Event(*editor, NotTaken), Event(*editor, Ended, 1), "- " + editor->window->Name()};
    EXPECT_TRUE(SameLog(log, session.WireOf("click " + Name(*editor, "Mégse"))));
    EXPECT_EQ(image::IdBuffer[1], "41");
    EXPECT_EQ(image::MidIdWords[1], 0x41);
    EXPECT_EQ(session.Look("list IDLOC11"), bytes);
    EXPECT_EQ(session.Look("list List7"), words);
    EXPECT_EQ(image::IdEdited, 0);
    EXPECT_FALSE(editor->window->Loaded());
    session.Do(editor->opener);
    EXPECT_EQ(Cell(*editor, HexRow, 1), "  41  ") << "the edit is gone";
    Press(*editor, "Mégse");
  }
}

TEST_F(IdDesk, TheFrameClosesWithoutAChange) {
  for (const IdEditor* editor : BothEditors) {
    OpenWith(*editor, "41");
    image::IdEdited = 0;
    Edit(*editor, HexRow, 1, "42");
    session.Do("close " + editor->window->Name());
    EXPECT_FALSE(editor->window->Loaded());
    EXPECT_EQ(image::IdBuffer[1], "41");
    EXPECT_EQ(image::MidIdWords[1], 0x41);
    EXPECT_EQ(image::IdEdited, 0);
  }
}

class IdLoading : public IdDesk {
 protected:
  void Load(const char* button) {
    session.Folder().Write("ids.hex", IdFile);
    session.Do({"file " + session.Folder().File("ids.hex"), std::string("click ") + button});
  }
  void EditAndAccept(const IdEditor& editor) {
    Open(editor);
    Edit(editor, HexRow, 1, "12");
    Press(editor, "Módosít");
  }
};

TEST_F(IdLoading, AsksBesideItsWindowWhetherEditedIdsMayGo) {
  EditAndAccept(Pic18Ids);
  WatchedDialogs dialogs;
  int asked = 0;
  dialogs.InQuestion = [&](const std::string& text) {
    ++asked;
    EXPECT_EQ(text, "Felülírjam a szerkesztett ID Location bájtokat?");
    EXPECT_TRUE(FelülDialog.Loaded());
    EXPECT_TRUE(FelülDialog.OnTop);
    EXPECT_EQ(FelülDialog.Caption, "ID  Location felülírása?");
    EXPECT_EQ(FelülDialog.List1.Lines(), (Lines{" Az ID Location bájtok már szerkesztve voltak.",
                                                " Felülírjam a betöltés alatt lévő Fájl értékeivel?"}));
  };
  Load("FájlBetölt");
  EXPECT_EQ(asked, 1);
  EXPECT_FALSE(FelülDialog.Loaded());
  EXPECT_EQ(image::IdEdited, 1) << "a No keeps the flag";
  EXPECT_NE(image::IdBuffer[1], "31");
}

TEST_F(IdLoading, TakesTheFilesIdsAfterAYesAndAsksNoMore) {
  EditAndAccept(Pic18Ids);
  session.Do("answer yes");
  Load("FájlBetölt");
  EXPECT_EQ(image::IdEdited, 0);
  EXPECT_EQ(image::IdBuffer[1], "31");
  EXPECT_EQ(image::IdBuffer[8], "38");
  session.Do("messages");
  Load("FájlBetölt");
  EXPECT_TRUE(session.Look("messages").empty());
}

TEST_F(IdLoading, AsksNothingAfterACancel) {
  Open(Pic18Ids);
  Edit(Pic18Ids, HexRow, 1, "12");
  Press(Pic18Ids, "Mégse");
  Load("FájlBetölt");
  EXPECT_TRUE(session.Look("messages").empty());
  EXPECT_EQ(image::IdBuffer[1], "31");
}

TEST_F(IdLoading, AsksOnThePic18PageAfterAnEditOfTheMidRangePageToo) {
  EditAndAccept(MidIds);
  Choose(Pic18Ids);
  Load("FájlBetölt");
  EXPECT_EQ(session.Look("messages"), Lines{"yesno no Felülírjam a szerkesztett ID Location bájtokat?"});
}

TEST_F(IdLoading, OfTheEditorsFileIsShownByTheNextOpening) {
  Choose(Pic18Ids);
  Load("FájlBetölt");
  session.Do("click IDMod");
  EXPECT_EQ(Column(Pic18Ids, 1), (Lines{"   1   ", "  31  ", "  49  "}));
  EXPECT_EQ(Column(Pic18Ids, 8), (Lines{"   8   ", "  38  ", "  56  "}));
}

}  // namespace
}  // namespace zelvo::test
