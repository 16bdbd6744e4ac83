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

TEST(Catalogue, HoldsEveryWidgetInTheOrderOfTheGallery) {
  ASSERT_EQ(everyWidget.size(), 105u);
  EXPECT_EQ(everyWidget.front(), DockWidget::buddy);
  EXPECT_EQ(everyWidget[52], DockWidget::qrCode);
  EXPECT_EQ(everyWidget.back(), DockWidget::quote);
  for (std::size_t i = 0; i < everyWidget.size(); ++i) EXPECT_EQ(static_cast<std::size_t>(everyWidget[i]), i);
}

TEST(Catalogue, FindsAWidgetByItsStoredIdAlone) {
  for (const DockWidget widget : everyWidget) EXPECT_EQ(fromName<DockWidget>(nameOf(widget)), widget);
  for (const auto* unknown : {"", "Clock", "clock ", "eyeBreas", "unknown"})
    EXPECT_EQ(fromName<DockWidget>(unknown), std::nullopt) << unknown;
}

TEST(Catalogue, EveryTextIsThereAndReadsLikeTheOthers) {
  std::set<std::string_view> ids, titles, descriptions, symbols;
  for (const DockWidget widget : everyWidget) {
    const std::string_view text = description(widget);
    SCOPED_TRACE(nameOf(widget));
    EXPECT_TRUE(ids.insert(nameOf(widget)).second);
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

struct Row {
  DockWidget widget;
  std::string_view title, symbol, description;
};

TEST(Catalogue, KeepsTheSettledTextsToTheLetter) {
  const Row rows[] = {
      {DockWidget::buddy, "Dock Buddy", "face.smiling",
       "A little character that watches your work and tells you what matters. Click for its notes and Ask Buddy"},
      {DockWidget::clipboard, "Clipboard", "doc.on.clipboard", "Clipboard history (Super+Alt+V)"},
      {DockWidget::screenNotes, "Screen Notes", "mappin.and.ellipse",
       "Capture the screen and pin numbered notes on it, to send as a review (Ctrl+Super+Alt+N)"},
      {DockWidget::keepAwake, "Keep Awake", "cup.and.heat.waves", "Keeps the computer awake. Click to switch"},
      {DockWidget::weather, "Weather", "cloud.sun", "Current weather. Click to choose a city"},
      {DockWidget::disk, "Disk", "internaldrive", "Free space. Click for Disk Doctor: Buddy finds what you can clean"},
      {DockWidget::standUp, "Stand Up", "figure.stand",
       "A reminder to stand up, and a count for today. Click for the interval"},
      {DockWidget::quote, "Quote", "quote.opening", "A short quote that changes every day. Click to copy it"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(title(row.widget), row.title);
    EXPECT_EQ(symbol(row.widget), row.symbol);
    EXPECT_EQ(description(row.widget), row.description);
  }
  EXPECT_EQ(title(DockWidget::eyeBreak), "Eye Break");
  EXPECT_EQ(title(DockWidget::rainSoon), "Rain Soon");
  EXPECT_EQ(title(DockWidget::agenda), "Today's Events");
}

TEST(Catalogue, EachOfTheEightGroupsHasAHeadingAndWidgets) {
  std::map<WidgetGroup, int> counts;
  for (const DockWidget widget : everyWidget) ++counts[group(widget)];
  std::vector<std::string_view> headings;
  for (const WidgetGroup each : allCases<WidgetGroup>()) {
    headings.push_back(title(each));
    EXPECT_GE(counts[each], 3) << title(each);
    EXPECT_EQ(fromName<WidgetGroup>(nameOf(each)), each);
  }
  EXPECT_THAT(headings, ElementsAre("System", "Productivity", "Weather", "Text Tools", "Focus", "Developer",
                                    "Info & Fun", "Media"));
}

TEST(Catalogue, NoTileIsSmallerByDefaultThanItCanBe) {
  for (const DockWidget widget : everyWidget)
    EXPECT_LE(width(smallestSize(widget)), width(defaultSize(widget))) << nameOf(widget);
  EXPECT_EQ(width(defaultSize(DockWidget::buddy)), 64);
  EXPECT_EQ(width(defaultSize(DockWidget::clock)), 112);
  EXPECT_EQ(width(defaultSize(DockWidget::agents)), 176);
  EXPECT_EQ(width(defaultSize(DockWidget::claudeUsage)), 240);
}

TEST(Catalogue, SaysWhichWidgetsALicenceGuards) {
  std::map<DockWidget, ProFeature> guarded;
  for (const DockWidget widget : everyWidget)
    if (const auto feature = requiredFeature(widget)) guarded.emplace(widget, *feature);
  EXPECT_EQ(guarded, (std::map<DockWidget, ProFeature>{
                         {DockWidget::buddy, ProFeature::proactiveBuddy},
                         {DockWidget::agents, ProFeature::agentTracking},
                         {DockWidget::claudeUsage, ProFeature::agentTracking},
                         {DockWidget::codexLimits, ProFeature::agentTracking},
                         {DockWidget::screenNotes, ProFeature::screenNotes},
                         {DockWidget::translate, ProFeature::translate},
                     }));
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
