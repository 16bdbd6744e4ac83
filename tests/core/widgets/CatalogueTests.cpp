#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>

#include "core/base/Text.h"
#include "core/widgets.h"

namespace ambrel {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

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

TEST(Catalogue, EachOfTheEightGroupsHasWidgets) {
  std::map<WidgetGroup, int> counts;
  for (const DockWidget widget : everyWidget) ++counts[group(widget)];
  EXPECT_EQ(counts.size(), 8u);
  for (const auto& [group, count] : counts) EXPECT_GE(count, 3) << title(group);
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

}  // namespace
}  // namespace ambrel
