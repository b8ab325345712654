// Message boxes and file dialogs that a test looks into: they are answered by the bench as ever, and what the
// test wants to see while one stands on the screen is looked at from inside it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "platform/seams.h"

namespace zelvo::test {

class WatchedDialogs : public platform::Dialogs {
 public:
  /// Stands before the dialogs of the bench, which has to exist, for the life of the object.
  WatchedDialogs() : bench_(std::exchange(platform::seams.dialogs, this)) {}
  WatchedDialogs(const WatchedDialogs&) = delete;
  WatchedDialogs& operator=(const WatchedDialogs&) = delete;
  ~WatchedDialogs() override { platform::seams.dialogs = bench_; }

  void Message(const std::string& text) override {
    if (InMessage) InMessage(text);
    bench_->Message(text);
  }
  [[nodiscard]] bool AskYesNo(const std::string& text) override {
    if (InQuestion) InQuestion(text);
    return bench_->AskYesNo(text);
  }
  [[nodiscard]] std::optional<std::string> OpenFile(const platform::FileFilter& filter) override {
    return bench_->OpenFile(filter);
  }
  [[nodiscard]] std::optional<std::string> SaveFile(const platform::FileFilter& filter) override {
    if (InSaveDialog) InSaveDialog(filter);
    return bench_->SaveFile(filter);
  }
  void OpenInformationPage(const std::string& path) override { bench_->OpenInformationPage(path); }

  std::function<void(const std::string&)> InMessage;
  std::function<void(const std::string&)> InQuestion;
  std::function<void(const platform::FileFilter&)> InSaveDialog;

 private:
  platform::Dialogs* bench_;
};

}  // namespace zelvo::test
