#include <array>
#include <gtest/gtest.h>

#include "core/dock.h"

namespace ambrel {
namespace {

constexpr Instant start = Instant(std::chrono::seconds(1'800'000'000));
Instant at(double seconds) { return advanced(start, Seconds(seconds)); }

constexpr Rect screen{0, 0, 1600, 900};
constexpr Rect bar{400, 8, 800, 80};
constexpr Point far{800, 600}, over{800, 40}, edge{800, 0};

BarSurroundings around(Point pointer) { return {.pointer = pointer, .screen = screen, .bar = bar}; }
BarSurroundings heldOpen(Point pointer) {
  auto result = around(pointer);
  result.isHeldOpen = true;
  return result;
}

bool isShown(const BarReveal& reveal, const BarSurroundings& surroundings) {
  return reveal.shouldShow(surroundings.isAlwaysVisible, surroundings.isHeldOpen);
}

TEST(BarReveal, OnlyAPointerAtTheEdgeOfItsOwnScreenRevealsTheBar) {
  const std::tuple<DockEdge, Point, bool> cases[] = {
      {DockEdge::bottom, {10, 2.0}, true},    {DockEdge::bottom, {10, 2.1}, false},
      {DockEdge::bottom, {1600, 0}, true},    {DockEdge::bottom, {10, -1}, false},
      {DockEdge::bottom, {1700, 1}, false},   {DockEdge::bottom, {0, 500}, false},
      {DockEdge::left, {2.0, 500}, true},     {DockEdge::left, {2.1, 500}, false},
      {DockEdge::left, {-0.5, 500}, false},   {DockEdge::left, {1599, 0}, false},
      {DockEdge::right, {1598.0, 500}, true}, {DockEdge::right, {1597.9, 500}, false},
      {DockEdge::right, {1600, 900}, true},   {DockEdge::right, {1601, 500}, false},
  };
  for (const auto& [barEdge, pointer, isRevealed] : cases) {
    BarReveal reveal;
    auto surroundings = around(pointer);
    surroundings.edge = barEdge;
    EXPECT_EQ(reveal.tick(surroundings, start), isRevealed) << nameOf(barEdge) << " " << pointer.x << " " << pointer.y;
    EXPECT_EQ(reveal.isRevealed, isRevealed);
  }
  // A second screen may be anywhere.
  for (const double y : {301.0, 299.0}) {
    auto surroundings = around({-1000, y});
    surroundings.screen = {-1920, 300, 1920, 1080};
    surroundings.bar = {-1400, 308, 800, 80};
    EXPECT_EQ(BarReveal().tick(surroundings, start), y > 300);
  }
}

TEST(BarReveal, LeavesHalfASecondAfterThePointer) {
  BarReveal reveal;
  EXPECT_EQ(reveal.waitsUntil(around(far)), std::nullopt) << "a resting pointer needs no tick";
  EXPECT_TRUE(reveal.tick(around(edge), at(0)));
  EXPECT_FALSE(reveal.tick(around(edge), at(0.1)));
  EXPECT_EQ(reveal.waitsUntil(around(edge)), std::nullopt);
  reveal.tick(around(far), at(0.2));
  reveal.tick(around(over), at(0.6));
  EXPECT_EQ(reveal.outsideSince, std::nullopt) << "a short trip outside keeps the bar";
  EXPECT_FALSE(reveal.tick(around(far), at(1)));
  EXPECT_EQ(reveal.waitsUntil(around(far)), at(1.5));
  EXPECT_FALSE(reveal.tick(around(far), at(1.499)));
  EXPECT_TRUE(reveal.isRevealed);
  EXPECT_TRUE(reveal.tick(around(far), at(1.5)));
  EXPECT_EQ(reveal, BarReveal{});
  EXPECT_FALSE(reveal.tick(around(far), at(2)));

  // A peek of a revealed bar forgets that the pointer has left.
  reveal.tick(around(edge), at(10));
  reveal.tick(around(far), at(11));
  reveal.peek(Seconds(6), at(11.2));
  EXPECT_EQ(reveal.waitsUntil(around(far)), at(17.2));
  EXPECT_FALSE(reveal.tick(around(far), at(17.2)));
  EXPECT_FALSE(reveal.tick(around(far), at(17.6)));
  EXPECT_TRUE(reveal.tick(around(far), at(17.7)));
}

TEST(BarReveal, APointerThatRunsAlongTheEdgeBesideTheBarBringsItOutOnce) {
  const Point beside{40, 0}, further{120, 1};
  BarReveal reveal;
  EXPECT_TRUE(reveal.tick(around(beside), at(0)));
  EXPECT_TRUE(reveal.tick(around(further), at(0.5)));
  for (int i = 1; i < 60; ++i) EXPECT_FALSE(reveal.tick(around(i % 2 ? beside : further), at(0.5 + i / 30.0)));
  EXPECT_FALSE(reveal.isRevealed);
  EXPECT_TRUE(reveal.tick(around(edge), at(3))) << "the pointer has come to the bar";

  reveal = {};
  reveal.tick(around(beside), at(10));
  reveal.tick(around(beside), at(10.5));
  reveal.tick(around(far), at(11));
  EXPECT_TRUE(reveal.tick(around(beside), at(11.1))) << "it comes to the edge a second time";
}

TEST(BarReveal, AnOpenPanelHoldsTheBarAndItsEndStartsTheDelay) {
  BarReveal reveal;
  reveal.tick(around(edge), at(0));
  reveal.tick(around(far), at(1));
  EXPECT_FALSE(reveal.tick(heldOpen(far), at(1.3)));
  EXPECT_FALSE(reveal.tick(heldOpen(far), at(60)));
  EXPECT_FALSE(reveal.tick(around(far), at(61)));
  EXPECT_TRUE(reveal.isRevealed);
  EXPECT_TRUE(reveal.tick(around(far), at(61.5)));
}

TEST(BarReveal, APeekEndsByItselfUnlessThePointerIsOverTheBar) {
  BarReveal reveal;
  reveal.peek(Seconds(6), at(0));
  EXPECT_TRUE(isShown(reveal, around(far)));
  EXPECT_TRUE(reveal.isPeeking(at(5.9)));
  EXPECT_FALSE(reveal.tick(around(far), at(5.99)));
  EXPECT_EQ(reveal.outsideSince, std::nullopt);
  EXPECT_FALSE(reveal.isPeeking(at(6)));
  // The delay outside begins when the peek has ended.
  EXPECT_FALSE(reveal.tick(around(far), at(6)));
  EXPECT_EQ(reveal.peekUntil, std::nullopt);
  EXPECT_FALSE(reveal.tick(around(far), at(6.49)));
  EXPECT_TRUE(reveal.tick(around(far), at(6.5)));
  EXPECT_FALSE(reveal.isRevealed);

  reveal.peek(Seconds(6), at(10));
  EXPECT_FALSE(reveal.tick(around(over), at(16)));
  EXPECT_FALSE(reveal.tick(around(over), at(100)));
  EXPECT_TRUE(reveal.isRevealed);
}

TEST(BarReveal, APeekIsEndedByWhoAskedForIt) {
  BarReveal reveal;
  const Instant first = reveal.peek(Seconds(8), at(0));
  EXPECT_TRUE(reveal.endPeek(first));
  EXPECT_FALSE(reveal.endPeek(first));
  EXPECT_FALSE(reveal.tick(around(far), at(1)));
  EXPECT_TRUE(reveal.tick(around(far), at(1.5)));
  EXPECT_FALSE(reveal.isRevealed);

  const Instant earlier = reveal.peek(Seconds(8), at(10));
  reveal.peek(Seconds(6), at(11));
  EXPECT_FALSE(reveal.endPeek(earlier)) << "another one has taken its place";
  EXPECT_TRUE(reveal.isPeeking(at(12)));
}

TEST(BarReveal, ABarThatIsAlwaysVisibleNeedsNoTick) {
  BarReveal reveal;
  auto surroundings = around(edge);
  surroundings.isAlwaysVisible = true;
  EXPECT_FALSE(reveal.tick(surroundings, at(0)));
  EXPECT_EQ(reveal, BarReveal{});
  EXPECT_TRUE(isShown(reveal, surroundings));
  EXPECT_EQ(reveal.waitsUntil(surroundings), std::nullopt);
}

TEST(HoverZone, ReachesSixteenAroundTheBarAndDownToTheEdge) {
  EXPECT_EQ(hoverZone(bar, screen, DockEdge::bottom), (Rect{384, -8, 832, 112}));
  // Above a system Dock the way from the edge to the bar belongs to it.
  EXPECT_EQ(hoverZone({400, 84, 800, 80}, screen, DockEdge::bottom), (Rect{384, 0, 832, 180}));
  EXPECT_EQ(hoverZone({40, 100, 80, 700}, screen, DockEdge::left), (Rect{0, 84, 136, 732}));
  EXPECT_EQ(hoverZone({1480, 100, 80, 700}, screen, DockEdge::right), (Rect{1464, 84, 136, 732}));

  const std::pair<Point, bool> cases[] = {{{384, 40}, true},     {{383.9, 40}, false}, {{1216, 40}, true},
                                          {{1216.1, 40}, false}, {{800, 104}, true},   {{800, 104.1}, false},
                                          {{800, 0}, true},      {{300, 0}, false}};
  for (const auto& [pointer, isInside] : cases) {
    BarReveal reveal{.isRevealed = true};
    reveal.tick(around(pointer), start);
    EXPECT_EQ(!reveal.outsideSince, isInside) << pointer.x << " " << pointer.y;
  }
}

// Thirty ticks a second and ticks at the deadlines alone end alike, whatever happens before the pointer rests.
TEST(BarRevealWaiting, SleepingUntilTheDeadlineChangesNothing) {
  const Point points[] = {edge, over, far, {300, 0}, {800, 104}, {800, 106}};
  for (const Point first : points)
    for (const Point last : points)
      for (const bool isPeeking : {false, true}) {
        BarReveal steady;
        steady.tick(around(first), at(0));
        if (isPeeking) steady.peek(Seconds(1), at(0.1));
        BarReveal lazy = steady;

        // The bar may go and come again at an edge outside its span, so compare until it first goes.
        std::optional<double> steadyGone, lazyGone;
        for (int i = 3; i < 120 && !steadyGone; ++i)
          if (steady.tick(around(last), at(i / 30.0)) && !steady.isRevealed) steadyGone = i / 30.0;
        lazy.tick(around(last), at(0.1));
        while (const auto next = lazy.waitsUntil(around(last))) {
          const bool isDue = lazy.tick(around(last), *next);
          if (isDue && !lazy.isRevealed) lazyGone = secondsBetween(start, *next).count();
        }
        ASSERT_EQ(steadyGone.has_value(), lazyGone.has_value()) << first.x << "," << first.y << " " << last.x;
        // Never early, and a steady tick sees each of its two deadlines up to one tick late.
        if (steadyGone) {
          EXPECT_GE(*steadyGone, *lazyGone - 1e-6);
          EXPECT_LE(*steadyGone, *lazyGone + 2.01 / 30);
        }
      }
}

TEST(NextTick, IsAThirtiethOfASecondAwayOrAtTheFirstDeadline) {
  using Deadlines = std::array<std::optional<Instant>, 2>;
  const auto next = [](bool isMoving, Deadlines deadlines) { return nextTick(at(10), isMoving, deadlines); };
  const Instant soonest = at(10 + 1.0 / 30);
  EXPECT_EQ(next(true, {}), soonest);
  EXPECT_EQ(next(true, {at(12), std::nullopt}), soonest);
  EXPECT_EQ(next(false, {}), std::nullopt);
  EXPECT_EQ(next(false, {at(12), at(11)}), at(11));
  EXPECT_EQ(next(false, {std::nullopt, at(12)}), at(12));
  EXPECT_EQ(next(false, {at(9), std::nullopt}), soonest);
}

}  // namespace
}  // namespace ambrel
