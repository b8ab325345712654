// Message boxes, file dialogs, the browser and the wall clock.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <functional>

#include "platform/seams.h"

class QWidget;

namespace zelvo::desktop {

class Dialogs : public platform::Dialogs {
 public:
  /// `beforeBox` brings the windows up to date, so that a box never stands before its cause; `owner` tells
  /// the window that the next box belongs to, nullptr for none.
  Dialogs(std::function<void()> beforeBox, std::function<QWidget*()> owner);
  /// Where the program's executable lies, from which the information page is found.
  void SetExecutables(const QString& folder) { executables_ = folder; }

  void Message(const std::string& text) override;
  [[nodiscard]] bool AskYesNo(const std::string& text) override;
  [[nodiscard]] std::optional<std::string> OpenFile(const platform::FileFilter& filter) override;
  [[nodiscard]] std::optional<std::string> SaveFile(const platform::FileFilter& filter) override;
  void OpenInformationPage(const std::string& path) override;

 private:
  [[nodiscard]] std::optional<std::string> ChooseFile(const platform::FileFilter& filter, bool save);

  std::function<void()> beforeBox_;
  std::function<QWidget*()> owner_;
  QString folder_;  ///< where the last chosen file lies
  QString executables_ = QCoreApplication::applicationDirPath();
};

class WallClock : public platform::Clock {
 public:
  [[nodiscard]] std::string LocalTime() override;
};

/// "caption|*.HEX|caption|*.*" as the toolkit's list of filters, upper and lower case alike.
[[nodiscard]] QStringList NameFilters(const std::string& filter);

}  // namespace zelvo::desktop
