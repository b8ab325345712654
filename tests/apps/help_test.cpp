// The window programs at a terminal without a display.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

namespace zelvo::test {
namespace {

struct Outcome {
  std::string printed;
  int status;
};

Outcome RunWithoutDisplay(const std::string& command) {
  FILE* pipe = ::popen(("env -u DISPLAY -u WAYLAND_DISPLAY " + command + " 2>&1").c_str(), "r");
  Outcome outcome{{}, -1};
  if (pipe == nullptr) return outcome;
  std::array<char, 512> text{};
  while (std::fgets(text.data(), text.size(), pipe) != nullptr) outcome.printed += text.data();
  outcome.status = ::pclose(pipe);
  return outcome;
}

TEST(HelpWithoutADisplay, IsToldByTheSimulator) {
  for (const char* option : {" --help", " -h"}) {
    const Outcome outcome = RunWithoutDisplay(std::string(ZELVO_SIM_PATH) + option);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.printed.find("--socket"), std::string::npos) << outcome.printed;
  }
}

TEST(HelpWithoutADisplay, IsToldByTheProgram) {
  const Outcome outcome = RunWithoutDisplay(std::string(ZELVO_BINARY_DIR) + "/bin/zelvo --help");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.printed.find("--folder"), std::string::npos) << outcome.printed;
}

}  // namespace
}  // namespace zelvo::test
