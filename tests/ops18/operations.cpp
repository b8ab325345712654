#include "operations.h"

#include <fstream>

#include "devices/selection.h"
#include "image/buffers.h"

namespace zelvo::test {
namespace {

Settings WithSpeed(Settings settings, const std::string& speed) {
  settings.speed = speed;
  return settings;
}

std::string WordText(int word) {
  char text[8];
  std::snprintf(text, sizeof text, "%04X", static_cast<unsigned>(word));
  return text;
}

template <class Buffer>
void Fill(Buffer& buffer, const Words& words) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    buffer(static_cast<int>(i % 8) + 1, static_cast<int>(i / 8) + 1) = WordText(words[i]);
  }
}

}  // namespace

Operations::Operations(const BoardKind& kind, const std::string& speed)
    : session(WithSpeed(kind.SettingsFiles(), speed)) {
  session.Do({kind.BoardCommand(), "start", "tab 2"});
}

void Operations::Choose(const std::string& chip) {
  session.Do("choose Combo1 " + chip);
}

void Operations::ShrinkTo(int words) {
  devices::FlashWordMax = words - 1;
}

void Operations::FillMain(const Words& words) {
  Fill(image::MainBuffer, words);
}

void Operations::FillVerify(const Words& words) {
  Fill(image::VerifyBuffer, words);
}

Lines Operations::WireOf(const std::function<void()>& operation) {
  session.BeginWire();
  operation();
  return WithoutTimes(session.EndWire());
}

void Operations::Socket(const std::string& chip, const Words& words) {
  session.Do("socket " + chip);
  const std::string path = session.Folder().File("burn.hex");
  std::ofstream file(path);
  const auto record = [&file](int address, int type, const std::vector<int>& data) {
    std::vector<int> bytes = {static_cast<int>(data.size()), address >> 8 & 0xFF, address & 0xFF, type};
    bytes.insert(bytes.end(), data.begin(), data.end());
    int sum = 0;
    file << ':';
    for (const int byte : bytes) {
      file << WordText(byte).substr(2);
      sum += byte;
    }
    file << WordText(-sum & 0xFF).substr(2) << '\n';
  };
  for (int i = 0; i < static_cast<int>(words.size()); ++i) {
    if (i % 0x8000 == 0) record(0, 4, {0, i / 0x8000});
    record(2 * i, 0, {words[static_cast<std::size_t>(i)] & 0xFF, words[static_cast<std::size_t>(i)] >> 8});
  }
  file << ":00000001FF\n";
  file.close();
  session.Do("burn " + path);
}

}  // namespace zelvo::test
