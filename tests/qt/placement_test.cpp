// Where the review windows of a whole read go: beside each other as far as the screen allows.
#include "qt/placement.h"

#include <gtest/gtest.h>

namespace zelvo::test {
namespace {

using desktop::LeastCovering;
using desktop::Within;

TEST(Placement, PushesAWindowIntoTheScreen) {
  const QRect room(0, 30, 1366, 738);
  EXPECT_EQ(Within(QRect(-50, 0, 300, 200), room), QRect(0, 30, 300, 200));
  EXPECT_EQ(Within(QRect(1300, 700, 300, 200), room), QRect(1066, 568, 300, 200));
  EXPECT_EQ(Within(QRect(100, 100, 300, 200), room), QRect(100, 100, 300, 200));
}

TEST(Placement, ShowsTheTopLeftOfAWindowThatIsLargerThanTheScreen) {
  EXPECT_EQ(Within(QRect(10, 10, 900, 700), QRect(0, 0, 800, 600)).topLeft(), QPoint(0, 0));
}

TEST(Placement, TakesTheWishWhereNothingIsCovered) {
  const QRect wish(900, 100, 300, 200);
  EXPECT_EQ(LeastCovering(wish, QRect(0, 0, 1366, 768), {QRect(100, 100, 500, 500)}), wish);
}

TEST(Placement, StandsBesideWhatIsThere) {
  const QRect room(0, 0, 1000, 800);
  const QRect there(300, 100, 400, 600);
  const QRect place = LeastCovering(QRect(350, 200, 300, 300), room, {there});
  EXPECT_FALSE(place.intersects(there));
  EXPECT_TRUE(room.contains(place));
}

TEST(Placement, CoversAsLittleAsPossibleWhereAllIsTaken) {
  const QRect room(0, 0, 800, 600);
  const QRect there(100, 0, 600, 600);
  const QRect place = LeastCovering(QRect(200, 200, 300, 300), room, {there});
  EXPECT_TRUE(room.contains(place));
  EXPECT_EQ((place & there).width(), 200);
}

TEST(Placement, NeverLosesASmallWindowBehindALargeOneWhereAnEdgeOfItCanShow) {
  const QRect room(0, 0, 800, 600);
  const QRect there(30, 30, 740, 540);
  const QRect place = LeastCovering(QRect(300, 300, 200, 150), room, {there});
  EXPECT_TRUE(room.contains(place));
  EXPECT_FALSE(there.contains(place));
}

/// The windows of a whole read, in their order and at about their sizes, on a screen. Each wishes for a
/// corner, the first for the middle.
std::vector<QRect> PlaceAll(const QRect& room) {
  const std::pair<QSize, Qt::Corner> windows[] = {{{331, 530}, Qt::TopRightCorner},
                                                  {{305, 200}, Qt::BottomLeftCorner},
                                                  {{272, 430}, Qt::TopLeftCorner},
                                                  {{212, 75}, Qt::BottomRightCorner}};
  QRect first(0, 0, 530, 530);
  first.moveCenter(room.center());
  std::vector<QRect> places = {first};
  for (const auto& [size, corner] : windows) {
    QRect wish(room.topLeft(), size);
    if (corner == Qt::TopRightCorner || corner == Qt::BottomRightCorner) wish.moveRight(room.right());
    if (corner == Qt::BottomLeftCorner || corner == Qt::BottomRightCorner) wish.moveBottom(room.bottom());
    places.push_back(LeastCovering(wish, room, places));
  }
  return places;
}

TEST(Placement, FindsRoomForAWholeReadOnALaptopsScreen) {
  for (const QSize size : {QSize(1366, 728), QSize(1366, 768), QSize(1600, 860), QSize(1920, 1040)}) {
    const QRect room(QPoint(0, 28), size);
    const auto places = PlaceAll(room);
    for (std::size_t one = 0; one < places.size(); ++one) {
      EXPECT_TRUE(room.contains(places[one])) << size.width() << ' ' << one;
      for (std::size_t other = 0; other < one; ++other) {
        EXPECT_FALSE(places[one].intersects(places[other])) << size.width() << ' ' << one << ' ' << other;
      }
    }
  }
}

TEST(Placement, LeavesEachWindowOfAWholeReadSomethingOfItsOwnOnASmallScreen) {
  for (const QSize size : {QSize(1024, 740), QSize(1280, 690), QSize(1024, 580), QSize(800, 600)}) {
    const QRect room(QPoint(0, 0), size);
    const auto places = PlaceAll(room);
    for (std::size_t one = 0; one < places.size(); ++one) {
      EXPECT_TRUE(room.contains(places[one])) << size.width() << ' ' << one;
      for (std::size_t other = 0; other < places.size(); ++other) {
        if (one == other) continue;
        EXPECT_FALSE(places[one].contains(places[other])) << size.width() << ' ' << one << ' ' << other;
      }
    }
  }
}

}  // namespace
}  // namespace zelvo::test
