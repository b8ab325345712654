// Names and states of the configuration editor for every chip, cell by cell, and what an accept makes of
// them.
#include "ui/config_names.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "config_name_tables.h"
#include "image/buffers.h"
#include "panel/form1.h"
#include "panel/secondary_windows.h"
#include "support/bench_session.h"

namespace zelvo::test {
namespace {

using panel::ConfEdit;

constexpr int Planes = 7;  ///< bits of a number that counts the 112 bits

/// Bits in which no two places are alike over all planes and their complements: bit `plane` of the place's
/// own number.
BitTexts Pattern(int plane, bool complement) {
  BitTexts bits;
  for (std::size_t byte = 1; byte <= ConfigBytes; ++byte) {
    for (std::size_t column = 1; column <= ConfigColumns; ++column) {
      const std::size_t number = (byte - 1) * ConfigColumns + column;
      bits[byte][column] = ((number >> plane & 1U) != 0) != complement ? "1" : "0";
    }
  }
  return bits;
}

/// Eight bits, each behind a blank.
std::string Spaced(const BitTexts& bits, std::size_t byte) {
  std::string text;
  for (std::size_t column = 1; column <= ConfigColumns; ++column) text += " " + bits[byte][column];
  return text;
}

testing::AssertionResult Same(const char* what, const BitTexts& expected, const BitTexts& actual) {
  for (std::size_t byte = 1; byte <= ConfigBytes; ++byte) {
    for (std::size_t column = 1; column <= ConfigColumns; ++column) {
      if (expected[byte][column] == actual[byte][column]) continue;
      return testing::AssertionFailure()
             << what << " of byte " << byte << ", column " << column << ": expected '"
             << expected[byte][column] << "', found '" << actual[byte][column] << "'";
    }
  }
  return testing::AssertionSuccess();
}

BitTexts GridRow(int row) {
  BitTexts texts;
  for (std::size_t byte = 1; byte <= ConfigBytes; ++byte) {
    for (std::size_t column = 1; column <= ConfigColumns; ++column) {
      texts[byte][column] = ConfEdit.Grids[byte - 1].Text(row, static_cast<int>(column));
    }
  }
  return texts;
}

class ConfigNames : public testing::Test {
 protected:
  void SetUp() override { session.Do({"start", "tab 2"}); }

  /// Opens the editor for `chip` while the image holds `held`.
  void Open(const std::string& chip, const BitTexts& held) {
    session.Do("choose Combo1 " + chip);
    for (std::size_t byte = 1; byte <= ConfigBytes; ++byte) {
      image::ConfigBitStrings[byte] = Spaced(held, byte);
    }
    session.Do("click ConfRészlEdit");
  }
  BenchSession session;
};

/// Calls `use(chip, held)` for every chip with every pattern.
template <class Use>
void ForEveryChipAndPattern(const Use& use) {
  for (const std::string& chip : ChipsWithNames()) {
    for (int plane = 0; plane < Planes; ++plane) {
      for (const bool complement : {false, true}) {
        SCOPED_TRACE(chip + ", plane " + std::to_string(plane) + (complement ? ", complement" : ""));
        use(chip, Pattern(plane, complement));
        if (testing::Test::HasFailure()) return;
      }
    }
  }
}

TEST_F(ConfigNames, EveryChipOfTheListHasItsTable) {
  const std::vector<std::string> named = ChipsWithNames();
  const Lines chips = session.Look("list Combo1");
  EXPECT_EQ(named.size(), 72u);
  EXPECT_EQ(std::set(named.begin(), named.end()), std::set(chips.begin(), chips.end()));
}

TEST_F(ConfigNames, EveryCellOfEveryChipShowsItsNameAndStateAndKeepsItsBit) {
  ForEveryChipAndPattern([&](const std::string& chip, const BitTexts& held) {
    Open(chip, held);
    const ExpectedEditor expected = ExpectedFor(chip, held);
    ASSERT_TRUE(Same("name", expected.names, GridRow(0)));
    ASSERT_TRUE(Same("state", expected.states, GridRow(1)));
    ASSERT_TRUE(Same("bit", expected.bits, image::ConfigEditBits));
  });
}

TEST_F(ConfigNames, AnAcceptKeepsTheBitsThatTheEditorHoldsAndClearsAllOthers) {
  constexpr const char* Digits = "0123456789ABCDEF";
  ForEveryChipAndPattern([&](const std::string& chip, const BitTexts& held) {
    Open(chip, held);
    session.Do("click ConfEdit.BetPufferbe");
    BitTexts left = ExpectedFor(chip, held).bits;
    for (std::size_t byte = 1; byte <= ConfigBytes; ++byte) {
      std::size_t value = 0;
      for (std::size_t column = 1; column <= ConfigColumns; ++column) {
        std::string& bit = left[byte][column];
        if (bit == "F") bit = "0";
        if (bit == "1") value += std::size_t{1} << (ConfigColumns - column);
      }
      const std::string hex =
          value < 16 ? std::string(1, Digits[value]) : std::string{Digits[value / 16], Digits[value % 16]};
      ASSERT_EQ(image::ConfigBuffer[byte], hex) << "byte " << byte;
      ASSERT_EQ(image::ConfigBitStrings[byte], Spaced(left, byte)) << "byte " << byte;
      ASSERT_EQ(panel::Form1.ConfigLists[byte - 1]->Lines(), Lines{" " + Spaced(left, byte)});
    }
    ASSERT_EQ(image::ConfigBuffer[8], "0") << "no chip has a bit in CONFIG4H";
  });
}

TEST_F(ConfigNames, ADoubleClickOpensEveryBitThatIsKeptAndRefusesEveryOther) {
  const BitTexts held = Pattern(0, false);
  for (const std::string& chip : ChipsWithNames()) {
    SCOPED_TRACE(chip);
    Open(chip, held);
    session.Do("messages");
    const BitTexts bits = ExpectedFor(chip, held).bits;
    for (std::size_t byte = 1; byte <= ConfigBytes; ++byte) {
      for (std::size_t column = 1; column <= ConfigColumns; ++column) {
        ConfEdit.Text1.Visible = false;
        session.Do("dblclick " + std::string("ConfEdit.") + ConfEdit.Grids[byte - 1].Name() + " 1 " +
                   std::to_string(column));
        const bool refused = bits[byte][column] == "F";
        ASSERT_EQ(ConfEdit.Text1.Visible, !refused) << "byte " << byte << ", column " << column;
        ASSERT_EQ(session.Look("messages"), refused ? Lines{"ok ok  Ez a bit nincs használva!"} : Lines{});
      }
    }
  }
}

TEST_F(ConfigNames, ANameThatIsNoChipOfTheListHasNoGroup) {
  for (const char* name : {"", "PIC18F", "PIC18F26", "PIC18F8680 ", " PIC18F242", "pic18f242",
                           "PIC18F2420 2520", "242", "PIC16F84A", "PIC Kiválasztása", "Ismeretlen_PIC"}) {
    EXPECT_EQ(ui::FindNameGroup(name), nullptr) << name;
  }
}

}  // namespace
}  // namespace zelvo::test
