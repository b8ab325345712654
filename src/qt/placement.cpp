#include "qt/placement.h"

#include <algorithm>
#include <limits>

namespace zelvo::desktop {
namespace {

using Area = long long;

Area AreaOf(const QRect& rect) {
  return rect.isEmpty() ? 0 : Area{rect.width()} * rect.height();
}

/// What two windows hide of each other. One that lies over the other entirely counts ten times: the smaller
/// is lost when the larger comes to the front.
Area Covered(const QRect& one, const QRect& other) {
  const Area shared = AreaOf(one & other);
  return one.contains(other) || other.contains(one) ? 10 * shared : shared;
}

/// The edges along which a window of `length` stands beside or in line with those that are there.
struct Span {
  int from, to;  ///< first and last pixel
};
std::vector<int> Starts(int length, int wish, Span room, const std::vector<Span>& others) {
  std::vector<int> starts = {wish, room.from, room.to - length + 1};
  for (const Span& other : others) {
    for (const int start : {other.from, other.from - length, other.to - length + 1, other.to + 1}) {
      if (start >= room.from && start + length - 1 <= room.to) starts.push_back(start);
    }
  }
  return starts;
}

}  // namespace

QRect Within(QRect frame, const QRect& room) {
  frame.moveLeft(std::max(room.left(), std::min(frame.left(), room.right() - frame.width() + 1)));
  frame.moveTop(std::max(room.top(), std::min(frame.top(), room.bottom() - frame.height() + 1)));
  return frame;
}

QRect LeastCovering(const QRect& wish, const QRect& room, const std::vector<QRect>& others) {
  std::vector<Span> across;
  std::vector<Span> down;
  for (const QRect& other : others) {
    across.push_back({other.left(), other.right()});
    down.push_back({other.top(), other.bottom()});
  }
  QRect best = wish;
  Area least = std::numeric_limits<Area>::max();
  int nearest = 0;
  for (const int left : Starts(wish.width(), wish.left(), {room.left(), room.right()}, across)) {
    for (const int top : Starts(wish.height(), wish.top(), {room.top(), room.bottom()}, down)) {
      const QRect place = Within(QRect(QPoint(left, top), wish.size()), room);
      Area covered = 0;
      for (const QRect& other : others) covered += Covered(place, other);
      const int distance = (place.topLeft() - wish.topLeft()).manhattanLength();
      if (covered > least || (covered == least && distance >= nearest)) continue;
      best = place;
      least = covered;
      nearest = distance;
    }
  }
  return best;
}

}  // namespace zelvo::desktop
