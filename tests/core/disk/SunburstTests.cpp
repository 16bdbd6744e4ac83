#include <gtest/gtest.h>

#include "core/disk/Sunburst.h"
#include "tests/core/disk/SyntheticTree.h"

namespace ambrel {
namespace {

const DiskTree tree = test::treeOf(
    "/base", {{"Videos/trip/a", 300}, {"Videos/trip/b", 100}, {"Videos/c", 200}, {"Docs/d", 300}, {"e", 50}, {"f", 50}},
    60);

TEST(Sunburst, SharesAreSumsOfTheirParents) {
  const auto segments = sunburst(*tree, 3, 0);
  ASSERT_EQ(segments.size(), 8u);
  double inner = 0;
  for (const SunburstSegment& segment : segments) {
    if (segment.ring == 0) inner += segment.sweep;
    EXPECT_NEAR(segment.sweep, static_cast<double>(segment.item->size()) / 1000, 1e-9) << segment.item->id();
    if (segment.ring == 0) continue;
    // Within its parent's arc, and of its parent's branch.
    const SunburstSegment* parent = segmentAt(segments, segment.ring - 1, segment.start);
    ASSERT_TRUE(parent) << segment.item->id();
    EXPECT_EQ(parent->item, segment.item->parent());
    EXPECT_EQ(parent->branch, segment.branch);
    EXPECT_LE(segment.start + segment.sweep, parent->start + parent->sweep + 1e-9);
  }
  EXPECT_NEAR(inner, 1, 1e-9);
}

TEST(Sunburst, RanksTheCentresChildrenAndShowsFoldedItemsThereAlone) {
  const auto segments = sunburst(*tree, 1, 0);
  ASSERT_EQ(segments.size(), 3u);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(segments[static_cast<std::size_t>(i)].branch, i);
  EXPECT_EQ(segments[2].item->kind(), DiskItem::Kind::smallItems);
  for (const SunburstSegment& segment : sunburst(*tree, 3, 0))
    EXPECT_TRUE(segment.ring == 0 || segment.item->kind() != DiskItem::Kind::smallItems);
}

TEST(Sunburst, LeavesOutWhatIsTooThinAndKeepsItsPlaceFree) {
  const auto segments = sunburst(*tree, 3, 0.15);
  for (const SunburstSegment& segment : segments) EXPECT_GE(segment.sweep, 0.15);
  EXPECT_EQ(segmentAt(segments, 0, 0.95), nullptr);
  ASSERT_TRUE(segmentAt(segments, 0, 0.65));
  EXPECT_EQ(segmentAt(segments, 0, 0.65)->item->name(), "Docs");
}

TEST(Sunburst, StepsLeadAroundTheRingAndUpAndDownTheTree) {
  const auto segments = sunburst(*tree, 3, 0);
  const auto named = [&](std::string_view name) {
    for (const SunburstSegment& segment : segments)
      if (segment.item->name() == name) return &segment;
    return static_cast<const SunburstSegment*>(nullptr);
  };
  const struct {
    const char* from;
    SunburstStep step;
    const char* to;  // null: nowhere
  } steps[] = {{"Videos", SunburstStep::clockwise, "Docs"},
               {"Docs", SunburstStep::counterclockwise, "Videos"},
               {"Smaller items", SunburstStep::clockwise, "Videos"},
               {"c", SunburstStep::clockwise, "d"},
               {"Videos", SunburstStep::outwards, "trip"},
               {"a", SunburstStep::outwards, nullptr},
               {"a", SunburstStep::inwards, "trip"},
               {"Docs", SunburstStep::inwards, nullptr}};
  for (const auto& [from, step, to] : steps) {
    ASSERT_TRUE(named(from)) << from;
    const SunburstSegment* reached = neighbour(segments, *named(from), step);
    EXPECT_EQ(reached ? reached->item->name() : "", to ? to : "") << from;
  }
}

TEST(Sunburst, OfNothingIsEmpty) { EXPECT_TRUE(sunburst(*test::treeOf("/base", {}), 3, 0).empty()); }

}  // namespace
}  // namespace ambrel
