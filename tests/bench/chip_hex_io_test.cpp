// The bench's own reader and writer of Intel HEX files.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "bench/intel_hex_io.h"

namespace zelvo::bench {
namespace {

class HexIo : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = std::filesystem::path(::testing::TempDir()) /
              ("hex_io_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    std::filesystem::create_directories(folder_);
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }
  [[nodiscard]] std::filesystem::path File(const std::string& text) const {
    std::ofstream(folder_ / "in.hex", std::ios::binary) << text;
    return folder_ / "in.hex";
  }

  std::filesystem::path folder_;
};

TEST_F(HexIo, ReadsDataRecordsWithLfAndCrlf) {
  const auto bytes = ReadIntelHex(File(":020010001234A8\n:010020005689\r\n:00000001FF\r\n"));
  ASSERT_TRUE(bytes.has_value());
  EXPECT_EQ(*bytes, (std::map<std::uint32_t, std::uint8_t>{{0x10, 0x12}, {0x11, 0x34}, {0x20, 0x56}}));
}

TEST_F(HexIo, ReadsLinearAndSegmentAddresses) {
  const auto bytes =
      ReadIntelHex(File(":020000040030CA\n:01000100FFFF\n:020000021000EC\n:01000000AA55\n:00000001FF\n"));
  ASSERT_TRUE(bytes.has_value());
  EXPECT_EQ(*bytes, (std::map<std::uint32_t, std::uint8_t>{{0x300001, 0xFF}, {0x10000, 0xAA}}));
}

TEST_F(HexIo, RefusesWhatIsNotIntelHex) {
  for (const auto* text :
       {":01000000AA54\n:00000001FF\n", ":01000000AA\n:00000001FF\n", "01000000AA55\n:00000001FF\n",
        ":010000G0AA55\n:00000001FF\n", ":01000000AA55\n", "", ":00000009F7\n:00000001FF\n"}) {
    EXPECT_EQ(ReadIntelHex(File(text)), std::nullopt) << text;
  }
  EXPECT_EQ(ReadIntelHex(folder_), std::nullopt);
  EXPECT_EQ(ReadIntelHex(folder_ / "none.hex"), std::nullopt);
}

TEST_F(HexIo, WritesExtendedLinearAddressesAndCrlf) {
  const auto path = folder_ / "out.hex";
  ASSERT_TRUE(WriteIntelHex(path, {{0x0E, 0x01}, {0x0F, 0x02}, {0x10, 0x03}, {0x300001, 0x22}}));
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  EXPECT_EQ(text.str(),
            ":02000E000102ED\r\n:0100100003EC\r\n:020000040030CA\r\n:0100010022DC\r\n:00000001FF\r\n");
}

TEST_F(HexIo, GivesBackWhatItWrote) {
  std::map<std::uint32_t, std::uint8_t> bytes;
  for (std::uint32_t i = 0; i < 300; ++i) bytes[0xFFF0 + i * (1 + i % 3)] = static_cast<std::uint8_t>(i);
  bytes[0xF003FF] = 0x12;
  ASSERT_TRUE(WriteIntelHex(folder_ / "out.hex", bytes));
  EXPECT_EQ(ReadIntelHex(folder_ / "out.hex"), bytes);
}

TEST_F(HexIo, TellsThatAFileCannotBeWritten) {
  EXPECT_FALSE(WriteIntelHex(folder_, {{0, 1}}));
}

}  // namespace
}  // namespace zelvo::bench
