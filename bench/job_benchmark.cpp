// The long jobs of an operator at the bench, in this process: loading a HEX file of 128 KB, and writing it to
// a PIC18F8722 and reading it back.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/bench.h"
#include "platform/seams.h"

namespace zelvo {
namespace {

namespace fs = std::filesystem;

constexpr int ImageBytes = 0x20000;
constexpr int RecordBytes = 16;
/// Address fields above 7FFFh are out of the loader's reach, so the file moves a segment instead.
constexpr int SegmentBytes = 0x4000;

std::string Record(int address, int type, const std::vector<int>& data) {
  char text[8];
  int sum = static_cast<int>(data.size()) + (address >> 8) + (address & 0xFF) + type;
  std::snprintf(text, sizeof text, "%02X", static_cast<unsigned>(data.size()));
  std::string line = std::string(":") + text;
  std::snprintf(text, sizeof text, "%04X%02X", static_cast<unsigned>(address), static_cast<unsigned>(type));
  line += text;
  for (const int value : data) {
    std::snprintf(text, sizeof text, "%02X", static_cast<unsigned>(value));
    line += text;
    sum += value;
  }
  std::snprintf(text, sizeof text, "%02X", static_cast<unsigned>(-sum & 0xFF));
  return line + text + "\r\n";
}

/// Every byte of the chip's program memory, none of them FFh: no panel is blank.
void WriteHexFile(const std::string& path) {
  std::ofstream file(path, std::ios::binary);
  std::uint32_t noise = 1;
  for (int base = 0; base < ImageBytes; base += SegmentBytes) {
    file << Record(0, 2, {base >> 12, (base >> 4) & 0xFF});
    for (int address = 0; address < SegmentBytes; address += RecordBytes) {
      std::vector<int> data(RecordBytes);
      for (int& value : data) {
        noise = noise * 1664525U + 1013904223U;
        value = static_cast<int>((noise >> 16U) % 0xFF);
      }
      file << Record(address, 0, data);
    }
  }
  file << ":00000001FF\r\n";
}

/// A started program with the chip chosen. There can be only one in a process.
class Session {
 public:
  static Session& Only() {
    static Session session;
    return session;
  }

  /// Throws when the bench refuses, else gives the answer lines.
  std::vector<std::string> Do(const std::string& command) {
    lines_.clear();
    if (!bench_.Run(command)) throw std::runtime_error(command + ": " + lines_.back());
    lines_.pop_back();
    return lines_;
  }
  void Expect(const std::string& command, const std::string& answer) {
    const auto lines = Do(command);
    if (lines != std::vector<std::string>{"| " + answer}) {
      throw std::runtime_error(command + ": " + (lines.empty() ? "nothing" : lines.front()));
    }
  }
  void LoadFile() {
    Do("file " + HexPath());
    Do("click FájlBetölt");
  }

 private:
  Session() : folder_(fs::temp_directory_path() / ("zelvo-benchmark-" + std::to_string(getpid()))) {
    fs::create_directories(folder_);
    for (const auto& file : fs::directory_iterator(ZELVO_SOURCE_DIR "/settings")) {
      fs::copy_file(file.path(), folder_ / file.path().filename(), fs::copy_options::overwrite_existing);
    }
    WriteHexFile(HexPath());
    platform::programFolder = folder_.string();
    for (const char* command : {"board lpt inverted=clock,data,input", "socket PIC18F8722", "start", "tab 2",
                                "choose Combo1 PIC18F8722"}) {
      Do(command);
    }
  }
  Session(const Session&) = delete;
  ~Session() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  [[nodiscard]] std::string HexPath() const { return (folder_ / "image.hex").string(); }

  fs::path folder_;
  std::vector<std::string> lines_;
  bench::Bench bench_{[this](std::string_view line) { lines_.emplace_back(line); }};
};

/// Reports a failure of the job instead of its time.
template <class Job>
void Measure(benchmark::State& state, const Job& job) {
  try {
    job(Session::Only());
  } catch (const std::exception& error) {
    state.SkipWithError(error.what());
  }
}

void LoadHexFile128K(benchmark::State& state) {
  Measure(state, [&](Session& session) {
    session.Do("messages");
    for (auto _ : state) session.LoadFile();
    if (!session.Do("messages").empty()) throw std::runtime_error("the load ended in a message");
    if (session.Do("var MainBuffer(8,8192)") == std::vector<std::string>{"| FFFF"}) {
      throw std::runtime_error("the last word did not arrive");
    }
  });
}
BENCHMARK(LoadHexFile128K)->Unit(benchmark::kMillisecond);

void WriteAndReadBack128K(benchmark::State& state) {
  Measure(state, [&](Session& session) {
    session.LoadFile();
    for (auto _ : state) {
      state.PauseTiming();
      session.Do("click PICTörlés");
      state.ResumeTiming();
      session.Do("click FlashÍr");
      session.Do("click FlashOl");
      state.PauseTiming();
      session.Expect("list FlashOlv.List1", "Egyforma a Buffer és a beolvasott tartalom!");
      session.Do("close FlashOlv");
      state.ResumeTiming();
    }
  });
}
BENCHMARK(WriteAndReadBack128K)->Unit(benchmark::kSecond)->Iterations(3);

}  // namespace
}  // namespace zelvo
