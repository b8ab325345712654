// The wait for the end of an EEPROM write: which level of the data-in line ends it, that nothing else does,
// and that the program stays alive and can be closed meanwhile.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "eeprom_model.h"
#include "image/buffers.h"
#include "link/delays.h"
#include "ops18/eeprom.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "platform/seams.h"

namespace zelvo::test {
namespace {

constexpr double Brisk = 2;  // the chip's 4 ms last for several polls

/// Puts levels of its own onto the data-in line, eight bits a poll; all else goes to the bench.
class ScriptedInput final : public platform::Ports {
 public:
  /// Gives the raw level by poll and bit, both counted from 1.
  using Level = std::function<bool(int poll, int bit)>;

  ScriptedInput(bool com, Level level)
      : bench_(*platform::seams.ports),
        address_(com ? 0x3FE : 0x379),
        bit_(com ? 0x10 : 0x40),
        level_(std::move(level)) {
    platform::seams.ports = this;
  }
  ScriptedInput(const ScriptedInput&) = delete;
  ScriptedInput& operator=(const ScriptedInput&) = delete;
  ~ScriptedInput() override { platform::seams.ports = &bench_; }

  void Out32(int address, int value) override { bench_.Out32(address, value); }
  [[nodiscard]] int Inp32(int address) override {
    const int value = bench_.Inp32(address);
    if (address != address_) return value;
    const int read = Reads++;
    return level_(read / 8 + 1, read % 8 + 1) ? bit_ : 0xFF & ~bit_;
  }

  int Reads = 0;

 private:
  platform::Ports& bench_;
  int address_;
  int bit_;
  Level level_;
};

const BoardKind& Kind(std::string_view name) {
  return *std::ranges::find_if(BoardKinds(), [name](const BoardKind& kind) { return kind.name == name; });
}

struct Ending {
  std::string_view board;
  bool high;  ///< the raw level that ends the wait
};
std::ostream& operator<<(std::ostream& out, const Ending& ending) {
  return out << ending.board;
}

class PollEnds : public testing::TestWithParam<Ending> {
 protected:
  PollEnds() : it(Kind(GetParam().board)) { link::SpeedSetting = Brisk; }
  Operations it;
};

TEST_P(PollEnds, WithTheSecondBitAtOneRawLevelWhateverTheOtherSevenRead) {
  const bool end = GetParam().high;
  for (const char* name : {"PIC18F1220", "PIC18F452", "PIC18F4550"}) {
    for (int last = 1; last <= 3; ++last) {
      TakeEeprom(name, {0x3C, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF});
      ScriptedInput input(GetParam().board.starts_with("Com"), [end, last](int poll, int bit) {
        // Before the last poll all but the second bit have the level that would end it.
        return (poll < last) == (bit == 2) ? !end : end;
      });
      ops18::WriteEeprom();
      EXPECT_EQ(input.Reads, 8 * last) << name;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(On, PollEnds,
                         testing::Values(Ending{"Lpt", true}, Ending{"LptInputInverted", true},
                                         Ending{"Com", false}, Ending{"ComInputInverted", true}),
                         [](const auto& ending) { return std::string(ending.param.board); });

/// Number of polls in a log: each reads eight bits of the input register.
int Polls(const Lines& log) {
  return static_cast<int>(std::ranges::count_if(
             log,
             [](const auto& line) { return line.starts_with("R 0379") || line.starts_with("R 03FE"); })) /
         8;
}

class PollOfAChip : public testing::TestWithParam<std::string_view> {};

TEST_P(PollOfAChip, LastsUntilEachByteIsWritten) {
  Operations it(Kind(GetParam()));
  link::SpeedSetting = Brisk;
  TakeEeprom("PIC18F4550", {0x12, 0x34, 0x56, 0x78, 0x9A, 0xBC, 0xDE, 0xF0});
  SocketEeprom(it.session, "PIC18F4550", EepromBytes(8, 0x00));
  EXPECT_GE(Polls(it.WireOf(ops18::WriteEeprom)), 2 * 8);
  it.session.Do("dump " + it.session.Folder().File("chip.hex"));
  EXPECT_NE(it.session.Folder().Read("chip.hex").find("123456789ABCDEF0"), std::string::npos);
  for (const std::string& fault : it.session.Look("timing"))
    EXPECT_FALSE(fault.starts_with("EEPROM")) << fault;
}

INSTANTIATE_TEST_SUITE_P(On, PollOfAChip, testing::Values("Com", "ComInputInverted", "LptInputInverted"),
                         [](const auto& board) { return std::string(board.param); });

TEST(EepromPoll, OnAPlainPrinterPortEndsAsSoonAsTheChipIsSeenWriting) {
  Operations it;
  link::SpeedSetting = Brisk;
  TakeEeprom("PIC18F4550", {0x12, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF});
  SocketEeprom(it.session, "PIC18F4550", EepromBytes(8, 0x00));
  EXPECT_EQ(Polls(it.WireOf(ops18::WriteEeprom)), 1);
}

TEST(EepromPoll, OnAPlainPrinterPortWaitsWithoutEndForAChipThatWasDoneBeforeItAsked) {
  Operations it;
  link::SpeedSetting = 30;  // the 20 bits until EECON1 is read take 4.9 ms
  it.Choose("PIC18F4550");
  it.session.Do("socket PIC18F4550");
  image::EepromBuffer(1, 1) = "12";
  it.session.Do(
      {"at progress EEE_Ír_Állapot 0 at pump 1000000 stop", "at progress EEE_Ír_Állapot 1 mark next"});
  const Lines log = it.session.WireOf("click EEPROMÍr");
  EXPECT_GT(Polls(log), 50);
  EXPECT_EQ(std::ranges::count(log, "# next"), 0);
}

TEST(EepromPoll, TakesTheBusyPinAsItsInputToo) {
  Settings settings;
  settings.pins = "4,8,1,2,0";
  settings.invert = "16";  // the port hardware inverts BUSY
  BenchSession session(settings);
  session.Do({"board lpt input=busy", "start", "tab 2"});
  link::SpeedSetting = Brisk;
  TakeEeprom("PIC18F452", {0x12, 0x34, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF});
  SocketEeprom(session, "PIC18F452", EepromBytes(8, 0x00));
  session.BeginWire();
  ops18::WriteEeprom();
  EXPECT_GE(Polls(session.EndWire()), 4);
  session.Do("dump " + session.Folder().File("chip.hex"));
  EXPECT_NE(session.Folder().Read("chip.hex").find(":020000001234B8"), std::string::npos);
}

class ChipPulled : public testing::TestWithParam<BoardKind> {
 protected:
  /// A write of two bytes; the chip goes while the second is sent, and much later `command` comes.
  Lines Write(const std::string& command) {
    Operations it(GetParam());
    link::SpeedSetting = Brisk;
    it.Choose("PIC18F452");
    it.session.Do("socket PIC18F452");
    image::EepromBuffer(1, 1) = "12";
    image::EepromBuffer(2, 1) = "34";
    it.session.Do({"at progress EEE_Ír_Állapot 1 at pump 3000 socket none",
                   "at progress EEE_Ír_Állapot 1 at pump 3000 mark pulled",
                   "at progress EEE_Ír_Állapot 1 at pump 60000 " + command});
    const Lines log = it.session.WireOf("click EEPROMÍr");
    EXPECT_EQ(std::ranges::count(log, "# pulled"), 1);
    return log;
  }
  [[nodiscard]] static Lines Writes(const Lines& log) {
    Lines writes;
    std::ranges::copy_if(log, std::back_inserter(writes), [](const auto& line) { return line[0] == 'W'; });
    return writes;
  }
};

TEST_P(ChipPulled, DuringAWriteTheProgramCanBeClosedAndNoLineMovesAfterTheIdleLevel) {
  const Lines log = Write("stop");
  const bool waits = GetParam().com || GetParam().input;
  EXPECT_EQ(std::ranges::any_of(log, [](const auto& line) { return line.ends_with("EEPROM Írása kész."); }),
            !waits)
      << "the line floats high: only on a plain printer port this ends the wait";
  EXPECT_EQ(panel::MDIForm1.Loaded(), !waits);
  // All lines at idle: LPT by one write, COM by two of the modem control register and one of the line's.
  WireModel model(GetParam(), 0);
  model.PowerOff();
  const Lines idle = Writes(model.Log());
  const Lines writes = Writes(log);
  ASSERT_GT(writes.size(), idle.size());
  const std::ptrdiff_t same = GetParam().com ? 2 : 1;
  EXPECT_EQ(Lines(writes.end() - same, writes.end()), Lines(idle.end() - same, idle.end()));
  if (waits) {
    ASSERT_GT(log.size(), 4U);
    EXPECT_EQ(Lines(log.end() - 4, log.end()),
              (Lines{writes.back(), "- EEE_Ír_Állapot", "- Form1", "- MDIForm1"}));
  }
}

INSTANTIATE_TEST_SUITE_P(Board, ChipPulled, testing::ValuesIn(BoardKinds()),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST(EepromPoll, ServesClicksWhileItWaits) {
  Operations it(Kind("Com"));
  link::SpeedSetting = Brisk;
  it.Choose("PIC18F452");
  image::EepromBuffer(1, 1) = "12";
  it.session.Do({"answer yes", "at progress EEE_Ír_Állapot 0 at pump 30000 click Command2",
                 "at progress EEE_Ír_Állapot 0 at pump 40000 click EEE_Ír_Állapot.Command1",
                 "at progress EEE_Ír_Állapot 0 at pump 60000 mark still waiting",
                 "at progress EEE_Ír_Állapot 0 at pump 60001 stop"});
  const Lines log = it.session.WireOf("click EEPROMÍr");
  EXPECT_TRUE(std::ranges::any_of(
      log, [](const auto& line) { return line.ends_with(":  Verify Puffer Törölve(FFFF)."); }));
  EXPECT_EQ(std::ranges::count(log, "# still waiting"), 1) << "a Cancel does not end it";
}

TEST(EepromPoll, PumpsOnceAPollWhenTheEdgesDoNotWaitAtAll) {
  Operations it(Kind("Com"));
  link::SpeedSetting = 0.2;
  link::WaitCount = 0;
  it.Choose("PIC18F452");
  image::EepromBuffer(1, 1) = "12";
  it.session.Do({"answer yes", "at progress EEE_Ír_Állapot 0 at pump 50 stop"});
  it.session.BeginWire();
  it.session.Do("click EEPROMÍr");
  const Lines log = it.session.EndWire();
  const auto begin = std::ranges::find(log, "B EEE_Ír_Állapot 0");
  EXPECT_EQ(Polls(Lines(begin, log.end())), 49) << "the first pass is that of the progress update";
  EXPECT_EQ(std::count_if(begin, log.end(), [](const auto& line) { return line[0] == 'P' && line != "P 0"; }),
            0);
}

TEST(EepromPoll, CanBeLeftWithoutAnyInterface) {
  Settings settings;
  settings.port = "&H378,USB";
  BenchSession session(settings);
  session.Do({"board none", "start", "tab 2", "choose Combo1 PIC18F452", "answer yes"});
  image::EepromBuffer(1, 1) = "12";
  session.Do("at progress EEE_Ír_Állapot 0 at pump 50 stop");
  const Lines log = session.WireOf("click EEPROMÍr");
  EXPECT_TRUE(std::ranges::none_of(log, [](const auto& line) { return line[0] == 'W' || line[0] == 'R'; }));
  EXPECT_EQ(std::ranges::count(log, "B EEE_Ír_Állapot 0"), 1);
  EXPECT_EQ(std::ranges::count(log, "B EEE_Ír_Állapot 1"), 0);
  EXPECT_FALSE(panel::MDIForm1.Loaded());
}

}  // namespace
}  // namespace zelvo::test
