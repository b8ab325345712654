// The board and the socket as a script sees them.
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/seams.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using platform::seams;

/// What a port gives after a write to it.
int Echo(int address, int value) {
  seams.ports->Out32(address, value);
  return seams.ports->Inp32(address);
}

bench::Chip* Socket(BenchSession& session) {
  return session.TheBench().machine.Socket();
}

TEST(ScriptBoard, NoBoardReadsAllOnes) {
  BenchSession session;
  EXPECT_EQ(Echo(0x378, 5), 0xFF);
  session.Do({"board lpt", "board none"});
  EXPECT_EQ(Echo(0x378, 5), 0xFF);
}

TEST(ScriptBoard, ThePrinterPortBoardAnswersAtItsBase) {
  BenchSession session;
  session.Do("board lpt");
  EXPECT_EQ(Echo(0x378, 5), 5);
  session.Do(
      "board lpt base=278 vdd=16 vpp=32 data=64 clock=128 input=busy inverted=vdd,vpp,clock,data,input");
  EXPECT_EQ(Echo(0x278, 5), 5);
  EXPECT_EQ(Echo(0x378, 5), 0xFF);
  session.Do("board lpt base=3bc inverted=");
  EXPECT_EQ(Echo(0x3BC, 5), 5);
}

TEST(ScriptBoard, TheSerialBoardAnswersAtItsBase) {
  BenchSession session;
  session.Do("board com");
  EXPECT_EQ(Echo(0x3FC, 1), 1);
  session.Do("board com base=2F8 inverted=pgd,pgc,input,vpp");
  EXPECT_EQ(Echo(0x2FC, 2), 2);
}

TEST(ScriptBoard, BadKeysAndValuesLeaveTheBoardAlone) {
  BenchSession session;
  session.Do("board lpt");
  const std::pair<const char*, const char*> cases[] = {
      {"board usb", "unknown board usb"},
      {"board lpt colour=red", "unknown key colour=red"},
      {"board lpt vdd", "unknown key vdd"},
      {"board lpt base=1FFFF", "bad value base=1FFFF"},
      {"board lpt base=", "bad value base="},
      {"board lpt vdd=3", "bad value vdd=3"},
      {"board lpt vdd=0", "bad value vdd=0"},
      {"board lpt clock=256", "bad value clock=256"},
      {"board lpt data=-1", "bad value data=-1"},
      {"board lpt input=strobe", "bad value input=strobe"},
      {"board lpt inverted=pgd", "bad value inverted=pgd"},
      {"board lpt base=278 inverted=vdd,,vpp", "bad value inverted=vdd,,vpp"},
      {"board com vdd=4", "unknown key vdd=4"},
      {"board com inverted=vdd", "bad value inverted=vdd"},
      {"board none base=378", "unknown key base=378"},
  };
  for (const auto& [command, reason] : cases) EXPECT_EQ(session.Refused(command), reason) << command;
  EXPECT_EQ(Echo(0x378, 9), 9);
}

TEST(ScriptBoard, TheChipMovesToANewBoard) {
  BenchSession session;
  session.Do("socket PIC18F452");
  const bench::Chip* chip = Socket(session);
  ASSERT_NE(chip, nullptr);
  EXPECT_EQ(chip->Name(), "PIC18F452");
  for (const char* board : {"board lpt", "board com", "board none"}) {
    session.Do(board);
    EXPECT_EQ(Socket(session), chip) << board;
  }
  session.Do("socket none");
  EXPECT_EQ(Socket(session), nullptr);
  session.Do("board lpt");
  EXPECT_EQ(Socket(session), nullptr);
}

TEST(ScriptBoard, TheSocketTakesChipsOfTheCatalogueOnly) {
  BenchSession session;
  session.Do("socket PIC18F452 id=0420");
  EXPECT_EQ(session.Refused("socket PIC18F99999"), "unknown chip PIC18F99999");
  EXPECT_EQ(session.Refused("socket PIC18F452 id=xyz"), "bad value id=xyz");
  EXPECT_EQ(session.Refused("socket PIC18F452 id=12345"), "bad value id=12345");
  EXPECT_EQ(session.Refused("socket PIC18F452 speed=1"), "unknown key speed=1");
  EXPECT_EQ(session.Refused("socket none id=0420"), "unknown key id=0420");
  EXPECT_NE(Socket(session), nullptr);
}

TEST(ScriptBoard, BurnFillsAndDumpTells) {
  BenchSession session;
  const TemporaryFolder& folder = session.Folder();
  folder.Write("in.hex", ":040000001122334452\n:00000001FF\n");
  folder.Write("broken.hex", ":040000001122334453\n:00000001FF\n");
  folder.Write("beyond.hex", ":040000005566778842\n:020000040040BA\n:0100000000FF\n:00000001FF\n");
  for (const char* command : {"burn ", "dump "}) {
    EXPECT_EQ(session.Refused(command + folder.File("in.hex")), "the socket is empty");
  }
  session.Do("socket PIC18F452");
  session.Do("burn " + folder.File("in.hex"));
  const bench::Chip* chip = Socket(session);
  const std::map<std::uint32_t, std::uint8_t> burnt{{0, 0x11}, {1, 0x22}, {2, 0x33}, {3, 0x44}};
  const auto code = [chip] {
    auto image = chip->Image();
    image.erase(image.lower_bound(0x8000), image.end());
    return image;
  };
  EXPECT_EQ(code(), burnt);

  for (const char* name : {"broken.hex", "missing.hex", "."}) {
    EXPECT_EQ(session.Refused("burn " + folder.File(name)), "cannot read " + folder.File(name));
  }
  EXPECT_EQ(session.Refused("burn " + folder.File("beyond.hex")), "the file goes beyond the chip");
  EXPECT_EQ(code(), burnt);

  session.Do("dump " + folder.File("out.hex"));
  EXPECT_NE(folder.Read("out.hex").find(":0400000011223344"), std::string::npos);
  EXPECT_EQ(session.Refused("dump " + folder.Path()), "cannot write " + folder.Path());
}

TEST(ScriptBoard, TimingIsSilentWhenNothingWasTooShort) {
  BenchSession session;
  EXPECT_EQ(session.Run("timing"), Lines{"ok"});
  session.Do("socket PIC18F452");
  EXPECT_EQ(session.Run("timing"), Lines{"ok"});
}

}  // namespace
}  // namespace zelvo::test
