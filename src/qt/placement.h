// Where a new window goes on the screen. Rectangles include the windows' frames.
#pragma once

#include <QRect>
#include <vector>

namespace zelvo::desktop {

/// `frame` moved into `room` as far as it fits; what does not fit hangs out on the right and below.
[[nodiscard]] QRect Within(QRect frame, const QRect& room);

/// The place in `room` for a window of the size of `wish` where it covers, and would be covered by, as little
/// as possible of `others`; among equals the one nearest to `wish`.
[[nodiscard]] QRect LeastCovering(const QRect& wish, const QRect& room, const std::vector<QRect>& others);

}  // namespace zelvo::desktop
