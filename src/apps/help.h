// Help at a terminal, where there may be no display.
#pragma once

#include <QCommandLineParser>
#include <QCoreApplication>
#include <algorithm>
#include <string_view>

namespace zelvo::desktop {

/// Tells the options and ends the process when the command line asks for that. To be called before the
/// application object, which cannot be had without a display.
inline void TellHelpIfAsked(QCommandLineParser& options, int count, char** words) {
  const bool asked = std::any_of(words, words + count, [](const char* word) {
    const std::string_view text = word;
    return text == "-h" || text == "--help" || text == "--help-all";
  });
  if (!asked) return;
  const QCoreApplication application(count, words);
  options.process(application);
}

}  // namespace zelvo::desktop
