// Between the panel's UTF-8 texts and the toolkit's.
#pragma once

#include <QString>
#include <string>

namespace zelvo::desktop {

inline QString Text(const std::string& utf8) {
  return QString::fromStdString(utf8);
}

/// A caption as it is drawn: the blanks that place it in its control are the layout's business here, and an
/// ampersand is a letter.
inline QString Caption(const std::string& utf8) {
  return QString::fromStdString(utf8).simplified().replace(QLatin1Char('&'), QStringLiteral("&&"));
}

/// A caption broken into two lines of about the same length when it is longer than `columns`.
QString BrokenCaption(const std::string& utf8, int columns);

}  // namespace zelvo::desktop
