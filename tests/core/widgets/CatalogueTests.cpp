#include <algorithm>
#include <set>
#include <string>

#include "core/base/Text.h"
#include "core/widgets.h"
#include "tests/Matchers.h"

namespace ambrel {
namespace {

constexpr auto everyWidget = allCases<DockWidget>();

TEST(Catalogue, EveryTextIsThereAndReadsLikeTheOthers) {
  std::set<std::string_view> ids, titles, descriptions, symbols;
  for (const DockWidget widget : everyWidget) {
    const std::string_view text = description(widget);
    SCOPED_TRACE(nameOf(widget));
    EXPECT_TRUE(ids.insert(nameOf(widget)).second);
    EXPECT_EQ(fromName<DockWidget>(nameOf(widget)), widget);
    EXPECT_TRUE(titles.insert(title(widget)).second);
    EXPECT_TRUE(symbols.insert(symbol(widget)).second);
    EXPECT_TRUE(descriptions.insert(text).second);
    for (const auto each : {title(widget), text, symbol(widget)}) {
      ASSERT_FALSE(each.empty());
      EXPECT_TRUE(isValidUTF8(each));
      EXPECT_EQ(trimmed(each), each);
    }
    EXPECT_FALSE(text.ends_with('.'));
    EXPECT_LT(text.size(), 110u);
    EXPECT_EQ(asciiLower(symbol(widget)), symbol(widget));
  }
}

TEST(Catalogue, NoTileIsSmallerByDefaultThanItCanBe) {
  for (const DockWidget widget : everyWidget)
    EXPECT_LE(width(smallestSize(widget)), width(defaultSize(widget))) << nameOf(widget);
}

TEST(Gallery, FindsByTitleAndDescriptionWhateverTheCase) {
  EXPECT_EQ(widgetsMatching("").size(), 105u);
  EXPECT_EQ(widgetsMatching("  \t").size(), 105u);
  EXPECT_THAT(widgetsMatching("hacker n"), ElementsAre(DockWidget::hackerNews));
  // In the description alone.
  EXPECT_THAT(widgetsMatching("disk DOCTOR"), ElementsAre(DockWidget::disk));
  EXPECT_THAT(widgetsMatching("super+alt+v"), ElementsAre(DockWidget::clipboard));
  EXPECT_THAT(widgetsMatching(" clock "),
              ElementsAre(DockWidget::clock, DockWidget::analogClock, DockWidget::worldClock, DockWidget::flipClock,
                          DockWidget::binaryClock));
  EXPECT_TRUE(widgetsMatching("no such widget").empty());
  // The stored id is no text that a person would look for.
  EXPECT_THAT(widgetsMatching("micMute"), Not(Contains(DockWidget::micMute)));
}

TEST(Gallery, LaysEveryWidgetOutOnceInLinesThatFit) {
  const double width = 550;
  const auto layout = galleryLayout(widgetsMatching(""), width);
  ASSERT_EQ(layout.tiles.size(), 105u);
  EXPECT_EQ(layout.headings.size(), 8u);
  for (std::size_t i = 0; i < layout.tiles.size(); ++i) {
    const auto& tile = layout.tiles[i];
    EXPECT_LE(tile.frame.maxX(), width);
    EXPECT_LE(tile.frame.maxY(), layout.height);
    if (i == 0) continue;
    const auto& last = layout.tiles[i - 1];
    if (tile.line == last.line)
      EXPECT_GE(tile.frame.x, last.frame.maxX() + 12) << nameOf(tile.widget);
    else
      EXPECT_GE(tile.frame.y, last.frame.maxY() + 12) << nameOf(tile.widget);
  }
  EXPECT_EQ(galleryLayout({DockWidget::quote}, 100).tiles[0].frame.x, 0);
  EXPECT_EQ(galleryLayout({}, width).height, 0);
}

TEST(Gallery, ArrowsWalkToEveryTileAndBack) {
  using Step = GalleryLayout::Step;
  const auto layout = galleryLayout(widgetsMatching(""), 550);
  std::size_t at = 0;
  for (int line = 0; line < layout.tiles.back().line; ++line) {
    const std::size_t below = layout.stepped(at, Step::down);
    EXPECT_EQ(layout.tiles[below].line, line + 1);
    at = below;
  }
  EXPECT_EQ(layout.stepped(at, Step::down), at);
  while (layout.stepped(at, Step::right) != at) at = layout.stepped(at, Step::right);
  EXPECT_EQ(at, 104u);
  EXPECT_EQ(layout.stepped(0, Step::up), 0u);
  EXPECT_EQ(layout.stepped(0, Step::left), 0u);
}

}  // namespace
}  // namespace ambrel
