#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/dock.h"

namespace ambrel {
namespace {

using enum TileSize;
using testing::ElementsAre;

std::vector<double> widths(const TileLayout& layout) {
  std::vector<double> result;
  for (const Rect& tile : layout.tiles) result.push_back(tile.width);
  return result;
}

TileLayout rowOf(std::vector<TileRequest> requests, double maxLength) {
  return fittedTiles(requests, DockEdge::bottom, maxLength);
}

TEST(TileRow, PutsTilesSideBySideWithPaddingAndGaps) {
  const auto layout = rowOf({{small, small}, {large, medium}, {medium, small}}, 1000);
  EXPECT_THAT(layout.tiles, ElementsAre(Rect{8, 8, 64, 64}, Rect{80, 8, 176, 64}, Rect{264, 8, 112, 64}));
  EXPECT_EQ(layout.width, 384);
  EXPECT_EQ(layout.contentLength, 384);
  EXPECT_EQ(layout.height, 80);
  EXPECT_FALSE(layout.isScrolling);
}

TEST(TileRow, StepsTheWidestDownUntilItFits) {
  const std::vector<TileRequest> requests{{extraLarge, medium}, {medium, small}, {extraLarge, small}, {large, small}};
  const std::tuple<double, std::vector<double>, bool> cases[] = {
      {808, {240, 112, 240, 176}, false}, {807, {240, 112, 176, 176}, false}, {744, {240, 112, 176, 176}, false},
      {743, {176, 112, 176, 176}, false}, {679, {176, 112, 176, 112}, false}, {616, {176, 112, 176, 112}, false},
      {615, {176, 112, 112, 112}, false}, {551, {112, 112, 112, 112}, false}, {487, {112, 112, 112, 64}, false},
      {439, {112, 112, 64, 64}, false},   {391, {112, 64, 64, 64}, false},    {344, {112, 64, 64, 64}, false},
      {343, {112, 64, 64, 64}, true},     {0, {112, 64, 64, 64}, true},
  };
  for (const auto& [maxLength, expected, isScrolling] : cases) {
    SCOPED_TRACE(maxLength);
    const auto layout = rowOf(requests, maxLength);
    EXPECT_EQ(widths(layout), expected);
    EXPECT_EQ(layout.isScrolling, isScrolling);
    EXPECT_LE(layout.width, maxLength);
    EXPECT_EQ(layout.width, isScrolling ? maxLength : layout.contentLength);
    EXPECT_EQ(layout.tiles.back().maxX() + TileLayout::padding, layout.contentLength);
  }
}

TEST(TileColumn, GoesFromTopToBottomAsWideAsTheWidestHasToBe) {
  const std::vector<TileRequest> requests{{small, small}, {extraLarge, small}, {medium, small}};
  for (const DockEdge edge : {DockEdge::left, DockEdge::right}) {
    const auto layout = fittedTiles(requests, edge, 500);
    EXPECT_THAT(layout.tiles, ElementsAre(Rect{8, 152, 112, 64}, Rect{8, 80, 112, 64}, Rect{8, 8, 112, 64}));
    EXPECT_EQ(layout.width, 128);
    EXPECT_EQ(layout.height, 224);
    EXPECT_FALSE(layout.isScrolling);
  }
  const std::vector<TileRequest> narrow{{small, small}, {small, small}}, wide{{small, small}, {extraLarge, large}};
  EXPECT_EQ(fittedTiles(narrow, DockEdge::left, 500).width, 80);
  EXPECT_EQ(fittedTiles(wide, DockEdge::left, 500).width, 192);
}

TEST(TileColumn, ScrollsBelowTheBarWhenItIsTooLong) {
  const std::vector<TileRequest> requests(3, TileRequest{small, small});
  const auto layout = fittedTiles(requests, DockEdge::left, 200);
  EXPECT_TRUE(layout.isScrolling);
  EXPECT_EQ(layout.height, 200);
  EXPECT_EQ(layout.contentLength, 224);
  EXPECT_EQ(layout.tiles.front(), (Rect{8, 128, 64, 64}));
  EXPECT_EQ(layout.tiles.back(), (Rect{8, -16, 64, 64}));
}

TEST(TileRequests, ComeFromTheCatalogue) {
  EXPECT_EQ(tileRequest("claudeUsage"), (TileRequest{extraLarge, medium}));
  EXPECT_EQ(tileRequest("buddy"), (TileRequest{small, small}));
  EXPECT_EQ(tileRequest("from a later version"), (TileRequest{medium, small}));
}

TEST(Landing, ATileStaysWhereItHasLandedUntilTheNextMiddleIsCrossed) {
  // A tile of 100 is held among tiles of 60 and 240, 8 apart; where it is, they make room.
  const std::vector<double> wide{60, 240};
  const auto middles = [&](std::size_t gap) {
    std::vector<double> found;
    double x = 8;
    for (std::size_t i = 0; i < wide.size(); ++i) {
      if (i == gap) x += 108;
      found.push_back(x + wide[i] / 2);
      x += wide[i] + 8;
    }
    return found;
  };
  std::size_t at = 0;
  int changes = 0;
  for (const int step : {1, -1})
    for (int x = step > 0 ? -50 : 600; x >= -50 && x <= 600; x += step) {
      const std::size_t next = landingPlace(middles(at), x);
      changes += next != at;
      at = next;
      EXPECT_LE(at, wide.size());
      EXPECT_EQ(landingPlace(middles(at), x), at) << "a pointer that rests at " << x;
    }
  EXPECT_EQ(changes, 4);
  EXPECT_EQ(at, 0u);
  EXPECT_EQ(landingPlace({}, 5), 0u);
}

}  // namespace
}  // namespace ambrel
