// zelvo-bench as a program: options, exit status, pipes, and what a start costs.
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <string>
#include <string_view>

#include "support/bench_session.h"

namespace zelvo::test {
namespace {

/// zelvo-bench with pipes at both ends.
class BenchProcess {
 public:
  explicit BenchProcess(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), ZELVO_BENCH_PATH);
    std::array<int, 2> in{}, out{};
    if (::pipe(in.data()) != 0 || ::pipe(out.data()) != 0) std::abort();
    child_ = ::fork();
    if (child_ == 0) {
      ::dup2(in[0], 0);
      ::dup2(out[1], 1);
      ::dup2(out[1], 2);
      for (const int end : {in[0], in[1], out[0], out[1]}) ::close(end);
      std::vector<char*> words;
      for (std::string& argument : arguments) words.push_back(argument.data());
      words.push_back(nullptr);
      ::execv(words[0], words.data());
      ::_exit(127);
    }
    ::close(in[0]);
    ::close(out[1]);
    in_ = in[1];
    out_ = out[0];
  }
  BenchProcess(const BenchProcess&) = delete;
  BenchProcess& operator=(const BenchProcess&) = delete;
  ~BenchProcess() {
    Finish();
    ::close(out_);
  }

  void Write(std::string_view text) {
    ASSERT_EQ(::write(in_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  /// Output up to a line `ok` or an error; gives up after ten seconds.
  std::string Answer() {
    std::string text;
    pollfd ready{out_, POLLIN, 0};
    char byte = 0;
    while (!text.ends_with("ok\n") && ::poll(&ready, 1, 10'000) == 1 && ::read(out_, &byte, 1) == 1)
      text += byte;
    return text;
  }
  /// Ends the input; gives the exit status.
  int Finish() {
    if (in_ < 0) return status_;
    ::close(in_);
    in_ = -1;
    std::array<char, 4096> piece{};
    for (ssize_t n = 0; (n = ::read(out_, piece.data(), piece.size())) > 0;) {
      Rest.append(piece.data(), static_cast<std::size_t>(n));
    }
    int status = 0;
    ::wait4(child_, &status, 0, &Usage);
    status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return status_;
  }

  std::string Rest;  ///< output that no `Answer` took
  rusage Usage{};

 private:
  pid_t child_ = -1;
  int in_ = -1;
  int out_ = -1;
  int status_ = -1;
};

class ScriptProcess : public testing::Test {
 protected:
  void SetUp() override { folder.WriteSettings({}); }
  int Status(std::vector<std::string> arguments, std::string* output = nullptr) {
    BenchProcess process(std::move(arguments));
    const int status = process.Finish();
    if (output != nullptr) *output = process.Rest;
    return status;
  }
  TemporaryFolder folder;
};

TEST_F(ScriptProcess, StatusTellsWhetherEveryCommandWasOk) {
  folder.Write("good", "\xEF\xBB\xBF# a script\r\n\r\nstart\r\nget FlashOl\r\nstop");
  std::string output;
  EXPECT_EQ(Status({"--folder", folder.Path(), "--script", folder.File("good")}, &output), 0);
  EXPECT_EQ(output, "ok\n| Flash Beolvasása\nok\nok\n");
  folder.Write("bad", "get Nothing\ntime\n");
  EXPECT_EQ(Status({"--folder=" + folder.Path() + "/", "--script=" + folder.File("bad")}, &output), 1);
  EXPECT_EQ(output, "error: no control Nothing\n| 0\nok\n");
  EXPECT_EQ(Status({"--folder", folder.Path()}), 0) << "an empty script has no command that failed";
}

TEST_F(ScriptProcess, UnusableOptionsAreStatusTwo) {
  const std::string here = folder.Path();
  EXPECT_EQ(Status({}), 2);
  EXPECT_EQ(Status({"--folder"}), 2);
  EXPECT_EQ(Status({"--folder", folder.File("missing")}), 0) << "the settings' own recovery tells of it";
  EXPECT_EQ(Status({"--folder", folder.File("port.ini")}), 0);
  EXPECT_EQ(Status({"--folder", here, "--fast"}), 2);
  EXPECT_EQ(Status({"--folder", here, "script"}), 2);
  EXPECT_EQ(Status({"--folder", here, "--script", folder.File("missing")}), 2);
  EXPECT_EQ(Status({"--folder", here, "--script", here}), 2);
  EXPECT_EQ(Status({"--folder", here, "--wire", here}), 2);
  EXPECT_EQ(Status({"--folder", here, "--vcd", folder.File("missing/lines.vcd")}), 2);
}

TEST_F(ScriptProcess, RecordsBeginWithTheFirstEvent) {
  folder.Write("script", "board lpt\nmark here\nstart\n");
  EXPECT_EQ(Status({"--folder", folder.Path(), "--script", folder.File("script"), "--wire",
                    folder.File("log"), "--vcd", folder.File("lines.vcd")}),
            0);
  EXPECT_EQ(SplitLines(folder.Read("log")).front(), "# here");
  EXPECT_TRUE(folder.Read("lines.vcd").starts_with("$timescale 1ns $end\n"));
}

TEST_F(ScriptProcess, ADriverOverAPipeGetsEachAnswerAtOnceAndFindsTheLogUpToDate) {
  BenchProcess process({"--folder", folder.Path(), "--wire", folder.File("log")});
  process.Write("get FlashOl\n");
  EXPECT_EQ(process.Answer(), "| Flash Beolvasása\nok\n");
  process.Write("mark so far\n");
  EXPECT_EQ(process.Answer(), "ok\n");
  EXPECT_EQ(folder.Read("log"), "# so far\n");
  process.Write("time");
  EXPECT_EQ(process.Finish(), 0);
  EXPECT_EQ(process.Rest, "| 0\nok\n");
}

TEST_F(ScriptProcess, AStartIsQuickAndSmall) {
  const auto before = std::chrono::steady_clock::now();
  BenchProcess process({"--folder", folder.Path()});
  process.Write("start\n");
  EXPECT_EQ(process.Answer(), "ok\n");
  const auto took = std::chrono::steady_clock::now() - before;
  EXPECT_EQ(process.Finish(), 0);
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "a sanitizer's time and memory are its own";
#endif
  EXPECT_LT(std::chrono::duration<double>(took).count(), 0.1);
  EXPECT_LT(process.Usage.ru_maxrss, 64 * 1024) << "KiB";
  RecordProperty("start_us",
                 static_cast<int>(std::chrono::duration_cast<std::chrono::microseconds>(took).count()));
  RecordProperty("peak_kib", static_cast<int>(process.Usage.ru_maxrss));
}

}  // namespace
}  // namespace zelvo::test
