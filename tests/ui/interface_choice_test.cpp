// Which interface, and at what address: the two windows, their messages, and port.ini.
#include <gtest/gtest.h>

#include "link/port.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "settings_desk.h"

namespace zelvo::test {
namespace {

using panel::LPT_COM_select;
using panel::LPT_Port_Set;

constexpr const char* Restart = "ok ok A programot újra kell indítani a beállítások érvénybelépéséhez!";
constexpr const char* TooLong = "ok ok A cím maximum 4 számjegy hosszú lehet!";
constexpr const char* BadAddress = "ok ok Hibás megadott cím!";
constexpr const char* Nothing = "ok ok Adj meg egy címet, vagy válasz a listából!";

Settings OnPort(const char* port) {
  Settings settings;
  settings.port = port;
  return settings;
}

/// A started program on the printer port, without a chip.
class InterfaceChoice : public testing::Test {
 protected:
  explicit InterfaceChoice(const char* port = "&H378,LPT") : session(OnPort(port)) { session.Do("start"); }
  [[nodiscard]] std::string PortFile() const { return session.Folder().Read("port.ini"); }
  /// Opens the address window, types and presses its button.
  Lines Accept(const std::string& typed) {
    return session.WireOf(
        (session.Do({"click Command1", "type LPT_Port_Set.Text1 " + typed}), "click LPT_Port_Set.Command1"));
  }
  [[nodiscard]] static int Counter() { return link::EventCounter; }
  BenchSession session;
};
class ChoiceOnTheSerialPort : public InterfaceChoice {
 protected:
  ChoiceOnTheSerialPort() : InterfaceChoice("&H3F8,COM") {}
};
class ChoiceWithoutAnInterface : public InterfaceChoice {
 protected:
  ChoiceWithoutAnInterface() : InterfaceChoice("&H378,USB") {}
};

// The windows.

TEST_F(InterfaceChoice, TheWindowsAndTheirControlsBearTheirNamesAndCaptions) {
  EXPECT_EQ(LPT_COM_select.Name(), "LPT_COM_select");
  EXPECT_EQ(LPT_COM_select.Caption, "Csatoló felület kiválasztása");
  ExpectCaptions(LPT_COM_select, {{"COM_Radio", "ZLV_RS_V2 égető kiválasztása (COM port)"},
                                  {"LPT_Radio", "LPT Portos égetők kiválasztása"},
                                  {"Command1", "Ok"}});
  EXPECT_EQ(LPT_Port_Set.Name(), "LPT_Port_Set");
  EXPECT_EQ(LPT_Port_Set.Caption, "Portcím Beállítása");
  ExpectCaptions(LPT_Port_Set, {{"Label2", "Kézi bevitel:"}, {"Label3", "Hex"}, {"Command1", "Rögzítés"}});
  EXPECT_EQ(LPT_Port_Set.Find("Combo1"), &LPT_Port_Set.Combo1);
  EXPECT_EQ(LPT_Port_Set.Find("Text1"), &LPT_Port_Set.Text1);
  LPT_Port_Set.Combo1.Reset();
  EXPECT_EQ(LPT_Port_Set.Combo1.Text.Get(), "Válassz ki egy Címet") << "the design has no exclamation mark";
}

TEST_F(InterfaceChoice, BothPagesOpenTheWindows) {
  for (const char* button : {"Command6", "Command14"}) {
    EXPECT_EQ(CaptionOf(panel::Form1, button), "Port Kiválasztása") << button;
    EXPECT_EQ(session.WireOf(std::string("click ") + button), Lines{"+ LPT_COM_select"});
    session.Do("close LPT_COM_select");
  }
  for (const char* button : {"Command1", "Command26"}) {
    EXPECT_EQ(CaptionOf(panel::Form1, button), "Portcím Beállítás") << button;
    EXPECT_EQ(session.WireOf(std::string("click ") + button), Lines{"+ LPT_Port_Set"});
    session.Do("close LPT_Port_Set");
  }
}

TEST_F(InterfaceChoice, AWindowThatIsOpenGoesAndComesAfresh) {
  session.Do({"click Command1", "type LPT_Port_Set.Text1 3BC"});
  EXPECT_EQ(session.WireOf("click Command26"), (Lines{"- LPT_Port_Set", "+ LPT_Port_Set"}));
  EXPECT_EQ(session.Ask("get LPT_Port_Set.Text1"), "");
  session.Do("click Command6");
  EXPECT_EQ(session.WireOf("click Command14"), (Lines{"- LPT_COM_select", "+ LPT_COM_select"}));
}

TEST_F(InterfaceChoice, BothWindowsStayAboveTheMainWindow) {
  session.Do({"click Command1", "click Command6"});
  EXPECT_TRUE(panel::LPT_Port_Set.OnTop);
  EXPECT_TRUE(panel::LPT_COM_select.OnTop);
}

TEST_F(InterfaceChoice, OpeningShowsThePrinterPortAsThePresentOne) {
  session.Do("click Command6");
  EXPECT_EQ(session.Ask("get LPT_COM_select.LPT_Radio"), "1");
  EXPECT_EQ(session.Ask("get LPT_COM_select.COM_Radio"), "0");
  session.Do("click LPT_COM_select.COM_Radio");
  EXPECT_EQ(session.Ask("get LPT_COM_select.LPT_Radio"), "0") << "one of the two";
  EXPECT_EQ(session.Ask("var LptMode"), "1") << "nothing is chosen before Ok";
}

TEST_F(ChoiceOnTheSerialPort, OpeningShowsTheSerialPortAsThePresentOne) {
  session.Do("click Command14");
  EXPECT_EQ(session.Ask("get LPT_COM_select.COM_Radio"), "1");
  EXPECT_EQ(session.Ask("get LPT_COM_select.LPT_Radio"), "0");
}

// Ok.

TEST_F(InterfaceChoice, TheSerialPortIsLoggedAsCom1AndInForceAtOnceAndTheAddressFollows) {
  session.Do({"click Command6", "click LPT_COM_select.COM_Radio"});
  const int number = Counter();
  EXPECT_TRUE(
      SameLog(Joined({Entry(number, ":  COM1 Port kiválasztva"), {"- LPT_COM_select", "+ LPT_Port_Set"}}),
              session.WireOf("click LPT_COM_select.Command1")));
  EXPECT_EQ(Counter(), number + 1);
  EXPECT_EQ(session.Ask("var ComMode"), "1");
  EXPECT_EQ(session.Ask("var LptMode"), "0");
  EXPECT_EQ(session.Ask("var PortBase"), "888");
  EXPECT_EQ(session.TheBench().serial.Claims, 0) << "the set-up is the next start's";
  EXPECT_EQ(PortFile(), "&H378,LPT\r\n");
  EXPECT_EQ(session.Look("messages"), Lines{});
}

TEST_F(ChoiceOnTheSerialPort, ThePrinterPortIsLoggedAndInForceAtOnceAndThePortGivenBack) {
  ASSERT_TRUE(session.TheBench().serial.IsOpen());
  session.Do({"click Command6", "click LPT_COM_select.LPT_Radio"});
  const int number = Counter();
  EXPECT_TRUE(
      SameLog(Joined({Entry(number, ":  LPT Port kiválasztva"), {"- LPT_COM_select", "+ LPT_Port_Set"}}),
              session.WireOf("click LPT_COM_select.Command1")));
  EXPECT_EQ(session.Ask("var ComMode"), "0");
  EXPECT_EQ(session.Ask("var LptMode"), "1");
  EXPECT_FALSE(session.TheBench().serial.IsOpen());
  EXPECT_EQ(PortFile(), "&H3F8,COM\r\n");
}

TEST_F(ChoiceOnTheSerialPort, ChoosingItAgainGivesTheHeldPortBackToo) {
  session.Do({"click Command6", "click LPT_COM_select.Command1"});
  EXPECT_FALSE(session.TheBench().serial.IsOpen());
  EXPECT_EQ(session.TheBench().serial.Claims, 1);
  EXPECT_EQ(session.Ask("var ComMode"), "1");
}

TEST_F(ChoiceWithoutAnInterface, OkWithNothingSelectedOnlyGoesOnToTheAddress) {
  session.Do("click Command6");
  EXPECT_EQ(session.Ask("get LPT_COM_select.COM_Radio"), "0");
  EXPECT_EQ(session.Ask("get LPT_COM_select.LPT_Radio"), "0");
  EXPECT_EQ(session.WireOf("click LPT_COM_select.Command1"), (Lines{"- LPT_COM_select", "+ LPT_Port_Set"}));
  EXPECT_EQ(session.Ask("var ComMode"), "0");
  EXPECT_EQ(session.Ask("var LptMode"), "0");
}

TEST_F(InterfaceChoice, AnAddressWindowThatIsOpenIsOpenedAnewWithTheOtherAddresses) {
  session.Do({"click Command1", "type LPT_Port_Set.Text1 3BC", "click Command6",
              "click LPT_COM_select.COM_Radio", "wire " + session.Folder().File("again.wire"),
              "click LPT_COM_select.Command1", "wire off"});
  const Lines log = SplitLines(session.Folder().Read("again.wire"));
  EXPECT_EQ(Lines(log.end() - 3, log.end()), (Lines{"- LPT_COM_select", "- LPT_Port_Set", "+ LPT_Port_Set"}));
  EXPECT_EQ(session.Look("list LPT_Port_Set.Combo1"), (Lines{"&H3F8", "&H2F8", "&H3E8", "&H2E8"}));
  EXPECT_EQ(LPT_Port_Set.Text1.Text.Get(), "");
}

TEST_F(InterfaceChoice, ClosingTheAddressByItsFrameGoesBackToTheOldInterfaceWithTheNextStart) {
  session.Do({"click Command6", "click LPT_COM_select.COM_Radio", "click LPT_COM_select.Command1",
              "close LPT_Port_Set"});
  EXPECT_EQ(session.Ask("var ComMode"), "1");
  EXPECT_EQ(PortFile(), "&H378,LPT\r\n");
  EXPECT_EQ(Restarted(session.Folder(), {"start", "var LptMode", "var ComMode"}), (Lines{"1", "0"}));
}

TEST_F(InterfaceChoice, ClosingTheChoiceByItsFrameChangesNothing) {
  session.Do({"click Command6", "click LPT_COM_select.COM_Radio"});
  EXPECT_EQ(session.WireOf("close LPT_COM_select"), Lines{"- LPT_COM_select"});
  EXPECT_EQ(session.Ask("var LptMode"), "1");
}

// The address.

TEST_F(InterfaceChoice, ThePrinterPortHasThreeAddressesAndAManualEntry) {
  session.Do("click Command1");
  EXPECT_EQ(session.Ask("get LPT_Port_Set.Combo1"), "Válassz ki egy Címet!");
  EXPECT_EQ(session.Look("list LPT_Port_Set.Combo1"), (Lines{"&H378", "&H278", "&H3BC"}));
  for (const char* name : {"Text1", "Label2", "Label3"})
    EXPECT_EQ(session.Ask("visible LPT_Port_Set." + std::string(name)), "1") << name;
}

TEST_F(ChoiceOnTheSerialPort, TheSerialPortHasFourAddressesAndNoManualEntry) {
  session.Do("click Command26");
  EXPECT_EQ(session.Ask("get LPT_Port_Set.Combo1"), "Válassz ki egy Címet!");
  EXPECT_EQ(session.Look("list LPT_Port_Set.Combo1"), (Lines{"&H3F8", "&H2F8", "&H3E8", "&H2E8"}));
  for (const char* name : {"Text1", "Label2", "Label3"})
    EXPECT_EQ(session.Ask("visible LPT_Port_Set." + std::string(name)), "0") << name;
  EXPECT_EQ(session.WireOf("click LPT_Port_Set.Command1"), Lines{"M " + std::string(Nothing)});
}

TEST_F(InterfaceChoice, WithNothingChosenTheWindowStaysAndAsks) {
  EXPECT_EQ(Accept(""), Lines{"M " + std::string(Nothing)});
  EXPECT_EQ(session.Look("windows"), (Lines{"MDIForm1", "Form1", "LPT_Port_Set"}));
}

struct Item {
  const char* text;
  int base;
  const char* logged;
};

void ExpectItem(BenchSession& session, const Item& item, const std::string& kind) {
  session.Do({"click Command1", "choose LPT_Port_Set.Combo1 " + std::string(item.text)});
  const int number = link::EventCounter;
  EXPECT_TRUE(SameLog(Joined({Entry(number, ":  Port új Címe: " + std::string(item.logged)),
                              {"- LPT_Port_Set", "M " + std::string(Restart)}}),
                      session.WireOf("click LPT_Port_Set.Command1")));
  EXPECT_EQ(session.Ask("var PortBase"), std::to_string(item.base));
  EXPECT_EQ(session.Folder().Read("port.ini"), item.text + kind + "\r\n");
  EXPECT_EQ(Restarted(session.Folder(), {"start", "var PortBase", "var LptMode", "var ComMode", "messages"}),
            (Lines{std::to_string(item.base), kind == ",LPT" ? "1" : "0", kind == ",COM" ? "1" : "0"}));
}

TEST_F(InterfaceChoice, EachAddressOfThePrinterPortIsLoggedWrittenAndReadByTheNextStart) {
  for (const Item& item : {Item{"&H278", 632, "H278"}, {"&H3BC", 956, "H3BC"}, {"&H378", 888, "H378"}})
    ExpectItem(session, item, ",LPT");
}

TEST_F(ChoiceOnTheSerialPort, EachAddressOfTheSerialPortIsLoggedWrittenAndReadByTheNextStart) {
  for (const Item& item :
       {Item{"&H2F8", 760, "H2F8"}, {"&H3E8", 1000, "H3E8"}, {"&H2E8", 744, "H2E8"}, {"&H3F8", 1016, "H3F8"}})
    ExpectItem(session, item, ",COM");
}

TEST_F(InterfaceChoice, AnAddressOfTheListWinsOverATypedOneWhateverItIs) {
  for (const char* typed : {"3BC", "0000000", "xyz"}) {
    session.Do({"click Command1", "type LPT_Port_Set.Text1 " + std::string(typed),
                "choose LPT_Port_Set.Combo1 &H278", "click LPT_Port_Set.Command1"});
    EXPECT_EQ(session.Look("messages"), Lines{Restart}) << typed;
    EXPECT_EQ(session.Ask("var PortBase"), "632");
    EXPECT_EQ(PortFile(), "&H278,LPT\r\n");
  }
}

TEST_F(InterfaceChoice, AnAddressOfOnesOwnInTheListsFieldIsTakenAsItStands) {
  // No more than five characters are logged, the first left out.
  for (const Item& item : {Item{"&H0378A", 14218, "H0378"}, {"&h3bc", 956, "h3bc"}, {"956", 956, "56"}})
    ExpectItem(session, item, ",LPT");
}

TEST_F(InterfaceChoice, ATextInTheListsFieldThatIsNoAddressIsRefused) {
  session.Do({"click Command1", "type LPT_Port_Set.Text1 278"});
  for (const char* text : {"&H", "&HXYZ", "Válassz ki egy Címet", "&H12345678", "99999", "&H378,COM"}) {
    LPT_Port_Set.Combo1.Text = std::string(text);
    EXPECT_EQ(session.WireOf("click LPT_Port_Set.Command1"), Lines{"M " + std::string(BadAddress)}) << text;
  }
  LPT_Port_Set.Combo1.Text = std::string();
  EXPECT_EQ(session.WireOf("click LPT_Port_Set.Command1"), Lines{"M " + std::string(BadAddress)});
  EXPECT_TRUE(LPT_Port_Set.Loaded());
  EXPECT_EQ(session.Ask("var PortBase"), "888");
  EXPECT_EQ(PortFile(), "&H378,LPT\r\n");
}

TEST_F(InterfaceChoice, ATypedAddressIsWrittenAsTypedAndNotLogged) {
  struct Typed {
    const char* text;
    int base;
  };
  for (const auto& [text, base] : {Typed{"0", 0},
                                   {"FFFF", -1},
                                   {"8000", -32768},
                                   {"7FFF", 32767},
                                   {"3bc", 956},
                                   {"aBcD", -21555},
                                   {"0278", 632},
                                   {"9e1F", -25057},
                                   {"378", 888}}) {
    EXPECT_EQ(Accept(text), (Lines{"- LPT_Port_Set", "M " + std::string(Restart)})) << text;
    EXPECT_EQ(session.Ask("var PortBase"), std::to_string(base));
    EXPECT_EQ(PortFile(), "&H" + std::string(text) + ",LPT\r\n");
    EXPECT_EQ(Restarted(session.Folder(), {"start", "var PortBase", "messages"}),
              Lines{std::to_string(base)});
  }
}

TEST_F(InterfaceChoice, ABadTypedAddressIsToldAndChangesNothing) {
  for (const char* text : {"00378", "12345", "GGGGG", "3 7 8", "űűűűű"})
    EXPECT_EQ(Accept(text), Lines{"M " + std::string(TooLong)}) << text;
  for (const char* text :
       {"G", "3G8", "g", "@", "3 8", "-1", "+1", "&H37", "0x37", "/", ":", "`", "ű", "űáűá"})
    EXPECT_EQ(Accept(text), Lines{"M " + std::string(BadAddress)}) << text;
  EXPECT_TRUE(LPT_Port_Set.Loaded());
  EXPECT_EQ(session.Ask("get LPT_Port_Set.Text1"), "űáűá");
  EXPECT_EQ(session.Ask("var PortBase"), "888");
  EXPECT_EQ(PortFile(), "&H378,LPT\r\n");
}

TEST_F(InterfaceChoice, EnterJudgesTheTypedAddressInItsOwnWordsAndTakesNothing) {
  session.Do("click Command1");
  const auto entered = [this](const char* text, const char* key = "Enter") {
    session.Do("type LPT_Port_Set.Text1 " + std::string(text));
    return session.WireOf("key LPT_Port_Set.Text1 " + std::string(key));
  };
  for (const char* text : {"12345", "GGGGG", "űűűűű"})
    EXPECT_EQ(entered(text), Lines{"M " + std::string(TooLong)}) << text;
  for (const char* text : {"G", "3g8", "3 8", "ű", "űáűá"})
    EXPECT_EQ(entered(text), Lines{"M ok ok Nem megengedett karakter!"}) << text;
  for (const char* text : {"", "0", "FFFF", "abcd", "09AF"}) EXPECT_EQ(entered(text), Lines{}) << text;
  EXPECT_EQ(entered("xyzxyz", "Escape"), Lines{});
  EXPECT_TRUE(LPT_Port_Set.Loaded());
  EXPECT_EQ(session.Ask("var PortBase"), "888");
  EXPECT_EQ(PortFile(), "&H378,LPT\r\n");
}

TEST_F(ChoiceWithoutAnInterface, AnAddressIsWrittenForThePrinterPort) {
  session.Do({"click Command1", "choose LPT_Port_Set.Combo1 &H278", "click LPT_Port_Set.Command1"});
  EXPECT_EQ(PortFile(), "&H278,LPT\r\n");
}

TEST_F(InterfaceChoice, TheChosenInterfaceStandsBehindTheAddressAndIsTheNextStarts) {
  session.Do({"click Command6", "click LPT_COM_select.COM_Radio", "click LPT_COM_select.Command1",
              "choose LPT_Port_Set.Combo1 &H2F8", "click LPT_Port_Set.Command1"});
  EXPECT_EQ(PortFile(), "&H2F8,COM\r\n");
  EXPECT_EQ(session.TheBench().serial.Claims, 0);
  EXPECT_EQ(Restarted(session.Folder(), {"start", "var ComMode", "var ComPortNumber"}), (Lines{"1", "2"}));
}

TEST_F(ChoiceOnTheSerialPort, BackToThePrinterPort) {
  session.Do({"click Command6", "click LPT_COM_select.LPT_Radio", "click LPT_COM_select.Command1",
              "type LPT_Port_Set.Text1 3bC", "click LPT_Port_Set.Command1"});
  EXPECT_EQ(PortFile(), "&H3bC,LPT\r\n");
  EXPECT_EQ(Restarted(session.Folder(), {"start", "var LptMode", "var PortBase"}), (Lines{"1", "956"}));
}

// In force.

TEST_F(InterfaceChoice, TheNewAddressIsThatOfTheNextLineChange) {
  session.Do("board lpt base=278");
  EXPECT_EQ(session.WireOf("click ProgFut"), (Lines{"R 0378 FF", "W 0378 FF"}));
  static_cast<void>(Accept("278"));
  EXPECT_EQ(session.WireOf("click ProgFut"), (Lines{"R 0278 00", "W 0278 00"})) << "switched off again";
  EXPECT_EQ(session.WireOf("click ProgFut"), (Lines{"R 0278 00", "W 0278 04"}));
  EXPECT_EQ(RestartedWire(session.Folder(), "board lpt base=278", {"click ProgFut"}),
            (Lines{"R 0278 00", "W 0278 04"}));
}

TEST_F(InterfaceChoice, AnAddressAbove7FFFMovesThePortOfThatNumber) {
  static_cast<void>(Accept("FFF0"));
  session.Do("board lpt base=FFF0");
  EXPECT_EQ(session.WireOf("click ProgFut"), (Lines{"R FFF0 00", "W FFF0 04"}));
}

TEST_F(ChoiceOnTheSerialPort, TheNewInterfaceIsThatOfTheNextLineChangeWithTheMasksOfTheStart) {
  session.Do(
      {"board com", "click Command6", "click LPT_COM_select.LPT_Radio", "click LPT_COM_select.Command1"});
  EXPECT_EQ(session.WireOf("click ProgFut"), (Lines{"R 03F8 00", "W 03F8 01"}));
}

// The file.

TEST_F(InterfaceChoice, AnAddressThatCannotBeKeptIsToldAndLeavesTheOldFileWhole) {
  session.Do({"click Command1", "choose LPT_Port_Set.Combo1 &H278"});
  ExpectRefusedWrites(session, "port.ini", "click LPT_Port_Set.Command1", "click LPT_Port_Set.Command1");
  EXPECT_TRUE(LPT_Port_Set.Loaded()) << "for another try";
  session.Do("close LPT_Port_Set");
  session.Do({"click Command1", "type LPT_Port_Set.Text1 3BC"});
  ExpectRefusedWrites(session, "port.ini", "click LPT_Port_Set.Command1", "click LPT_Port_Set.Command1");
  EXPECT_TRUE(LPT_Port_Set.Loaded());
  session.Do("click LPT_Port_Set.Command1");
  EXPECT_EQ(session.Look("messages"), Lines{Restart});
  EXPECT_EQ(PortFile(), "&H3BC,LPT\r\n");
}

TEST_F(InterfaceChoice, AKillWhileTheAddressIsWrittenLeavesOneOfBoth) {
  ExpectWholeAfterAKill(session.Folder(), "port.ini", {"&H378,LPT\r\n", "&H0,LPT\r\n", "&HFFFF,LPT\r\n"},
                        [this] {
                          for (const char* typed : {"0", "FFFF"}) {
                            session.Do({"click Command1", "type LPT_Port_Set.Text1 " + std::string(typed),
                                        "click LPT_Port_Set.Command1"});
                          }
                        });
  ExpectReplacedAsAWhole(session.Folder(), "port.ini", [this] { static_cast<void>(Accept("3BC")); });
}

}  // namespace
}  // namespace zelvo::test
