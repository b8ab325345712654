#include "qt/text.h"

#include <cstdlib>

namespace zelvo::desktop {

QString BrokenCaption(const std::string& utf8, int columns) {
  QString caption = Caption(utf8);
  if (caption.size() <= columns) return caption;
  const auto middle = caption.size() / 2;
  qsizetype best = -1;
  for (qsizetype at = caption.indexOf(QLatin1Char(' ')); at >= 0;
       at = caption.indexOf(QLatin1Char(' '), at + 1)) {
    if (best < 0 || std::llabs(at - middle) < std::llabs(best - middle)) best = at;
  }
  if (best >= 0) caption[best] = QLatin1Char('\n');
  return caption;
}

}  // namespace zelvo::desktop
