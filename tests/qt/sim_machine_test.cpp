// The simulated machine of the window program: the operator at the switches of a board.
#include "apps/sim_machine.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace zelvo::test {
namespace {

/// A window whose boxes are answered at once.
class AnsweredDialogs final : public platform::Dialogs {
 public:
  void Message(const std::string& text) override { shown += text; }
  [[nodiscard]] bool AskYesNo(const std::string&) override { return true; }
  [[nodiscard]] std::optional<std::string> OpenFile(const platform::FileFilter&) override { return "opened"; }
  [[nodiscard]] std::optional<std::string> SaveFile(const platform::FileFilter&) override { return "saved"; }
  void OpenInformationPage(const std::string& path) override { shown += path; }
  std::string shown;
};

TEST(SimMachine, TheOperatorSwitchesBeforeHeClicksOk) {
  desktop::SimMachine machine(bench::MakeLptBoard({.manual = true}));
  machine.Insert(bench::MakeChip("PIC16F887", std::nullopt));
  AnsweredDialogs window;
  desktop::ObeyedDialogs dialogs(window, machine);
  dialogs.Message("Kapcsold Be a Vdd-t és a Vpp-t, majd OK!");
  EXPECT_EQ(window.shown, "Kapcsold Be a Vdd-t és a Vpp-t, majd OK!");
  EXPECT_EQ(machine.Levels(), (bench::LineLevels{.vdd = true, .vpp = true}));
  // His hands took their time: the first clock is not too early for the chip.
  machine.Out32(0x378, 2);
  EXPECT_TRUE(machine.Socket()->Timing().empty());
  machine.Out32(0x378, 0);
  dialogs.Message("Kapcsold Ki a Vdd-t és a Vpp-t!");
  EXPECT_EQ(machine.Levels(), bench::LineLevels{});
}

TEST(SimMachine, EverythingElseGoesToTheWindow) {
  desktop::SimMachine machine(bench::MakeLptBoard({}));
  AnsweredDialogs window;
  desktop::ObeyedDialogs dialogs(window, machine);
  EXPECT_TRUE(dialogs.AskYesNo("?"));
  EXPECT_EQ(dialogs.OpenFile({}), "opened");
  EXPECT_EQ(dialogs.SaveFile({}), "saved");
  dialogs.OpenInformationPage("page");
  EXPECT_EQ(window.shown, "page");
}

}  // namespace
}  // namespace zelvo::test
