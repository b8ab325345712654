#include "bench/desk.h"

#include <cmath>
#include <cstdio>

#include "bench/text.h"

namespace zelvo::bench {

void Desk::Message(const std::string& text) {
  Shown("ok ok " + OneLine(text));
  machine_.Obey(text);
}

bool Desk::AskYesNo(const std::string& text) {
  bool yes = false;
  if (!answers_.empty()) {
    yes = answers_.front();
    answers_.pop_front();
  }
  Shown((yes ? "yesno yes " : "yesno no ") + OneLine(text));
  return yes;
}

void Desk::Shown(std::string message) {
  if (WireLog* wire = machine_.Wire()) wire->Message(message);
  messages_.push_back(std::move(message));
}

std::optional<std::string> Desk::NextFile() {
  if (files_.empty()) return std::nullopt;
  std::optional<std::string> file = std::move(files_.front());
  files_.pop_front();
  return file;
}

std::optional<std::string> Desk::OpenFile(const platform::FileFilter&) {
  return NextFile();
}
std::optional<std::string> Desk::SaveFile(const platform::FileFilter&) {
  return NextFile();
}
void Desk::OpenInformationPage(const std::string&) {}

void Desk::Hold(platform::HeldDelay kind, double waitCount, double microseconds) {
  if (WireLog* wire = machine_.Wire()) wire->Delay(kind, waitCount);
  machine_.Advance(static_cast<Nanoseconds>(std::llround(microseconds * 1000)));
}

std::string Desk::LocalTime() {
  const Nanoseconds seconds = (12 * 3600 + SinceStart() / 1'000'000'000) % (24 * 3600);
  char text[16];
  std::snprintf(text, sizeof text, "%02d:%02d:%02d", static_cast<int>(seconds / 3600),
                static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60));
  return text;
}

bool BenchSerial::Open(int number, const std::string& settings) {
  ++Claims;
  LastNumber = number;
  LastSettings = settings;
  open_ = true;
  return true;
}

}  // namespace zelvo::bench
