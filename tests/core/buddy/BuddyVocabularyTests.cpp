#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/buddy.h"
#include "core/buddy/BuddyText.h"

namespace ambrel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

Instant at(std::string_view text) { return parseISO8601(text).value(); }

TEST(BuddyRules, SayWhyANoticeCameAndWhatTurnsItOff) {
  const Calendar american("UTC", "en_US"), german("UTC", "de_DE");
  for (const BuddyRule rule : allCases<BuddyRule>()) {
    SCOPED_TRACE(nameOf(rule));
    const BuddyReason why = reason(rule, american);
    EXPECT_TRUE(why.rule.ends_with('.'));
    EXPECT_THAT(why.setting, HasSubstr("Settings › Buddy"));
    EXPECT_EQ(why.setting.find("If important") != std::string::npos, priority(rule) == BuddyPriority::info);
  }
  EXPECT_EQ(reason(BuddyRule::batteryLow, american),
            (BuddyReason{"The battery is below 20% and not charging.",
                         "To turn this off, take System out of Speaks about in Settings › Buddy."}));
  EXPECT_EQ(reason(BuddyRule::water, american),
            (BuddyReason{"The next glass of water is due.",
                         "To turn this off, take Health out of Speaks about in Settings › Buddy, or choose If "
                         "important there."}));
  EXPECT_EQ(reason(BuddyRule::daySummary, american).rule, "Once a day, from 6:00\u202fPM on.");
  EXPECT_EQ(reason(BuddyRule::daySummary, german).rule, "Once a day, from 18:00 on.");
  EXPECT_EQ(reason(BuddyRule::diskLow, american).rule, "Less than 10 GB of the disk is free.");
  EXPECT_EQ(reason(BuddyRule::cpuHigh, american).rule, "The processor has been above 90% for 2 minutes.");
}

TEST(BuddyNotices, TellWhatAScanFoundAndWhy) {
  using namespace BuddyActions;
  const Calendar american("UTC", "en_US"), german("UTC", "de_DE");
  const Instant now = at("2026-11-21T09:00:00.5Z");
  const BuddyNotice found = diskFoundNotice(5'600'000'000, "Mostly caches.", now, american);
  EXPECT_EQ(found, BuddyNotice("disk.found:1795251600.5", BuddyRule::diskLow, "I found 5.6 GB you can free",
                               "Mostly caches.", now, {OpenDiskCleanup{}}));
  EXPECT_EQ(diskFoundNotice(5'600'000'000, "", now, german).title, "I found 5,6\u00a0GB you can free");
  EXPECT_EQ(diskFoundNotice(1, "", at("2026-11-21T09:00:00Z"), american).id, "disk.found:1795251600.0");
  EXPECT_EQ(reason(found, american).rule, "A scan of Disk Doctor found something that can go.");
  EXPECT_EQ(reason(found, american).setting, reason(BuddyRule::diskLow, american).setting);
  const BuddyNotice low("disk.low", BuddyRule::diskLow, "Disk almost full", "", now);
  EXPECT_EQ(reason(low, american), reason(BuddyRule::diskLow, american));
}

TEST(BuddyNotices, KeepTheFirstTwoOfTheirActions) {
  using namespace BuddyActions;
  const BuddyNotice notice("a", BuddyRule::diskLow, "Title", "Detail", at("2026-11-21T09:00:00Z"),
                           {OpenDiskCleanup{}, Snooze{60}, OpenInbox{}});
  EXPECT_THAT(notice.actions, ElementsAre(BuddyAction(OpenDiskCleanup{}), BuddyAction(Snooze{60})));
}

TEST(BuddyActions, OpenLinksOfTheWebAlone) {
  for (const std::string_view url : {"https://meet.example/abc", "http://meet.example", "HTTPS://meet.example:443/?a#b",
                                     "https://mira@meet.example/x", "https://[::1]/x"})
    EXPECT_TRUE(isOpenableLink(url)) << url;
  for (const std::string_view url :
       {"", "meet.example", "file:///etc/passwd", "javascript:alert(1)", "https:", "https://", "https:///x",
        "https://?x", "https://mira@/x", "https://:80/", "https://meet.example/a b", "https://meet.example/\n",
        " https://meet.example", "zoommtg://join", "https//meet.example", "httpsx://meet.example"})
    EXPECT_FALSE(isOpenableLink(url)) << url;
}

TEST(QuietHours, LastOverMidnightFromALaterHourToAnEarlierOne) {
  const Calendar calendar("Europe/Berlin", "en_US");  // an hour ahead of UTC in November
  struct Row {
    QuietHours hours;
    std::string_view time;
    bool isQuiet;
  };
  const Row rows[] = {
      {{22, 7}, "2026-11-21T20:59:59Z", false}, {{22, 7}, "2026-11-21T21:00:00Z", true},
      {{22, 7}, "2026-11-21T22:00:00Z", true},  {{22, 7}, "2026-11-21T23:30:00Z", true},
      {{22, 7}, "2026-11-21T05:59:59Z", true},  {{22, 7}, "2026-11-21T06:00:00Z", false},
      {{22, 7}, "2026-11-21T11:00:00Z", false}, {{9, 17}, "2026-11-21T07:59:00Z", false},
      {{9, 17}, "2026-11-21T08:00:00Z", true},  {{9, 17}, "2026-11-21T15:59:59Z", true},
      {{9, 17}, "2026-11-21T16:00:00Z", false}, {{9, 9}, "2026-11-21T08:30:00Z", false},
      {{0, 0}, "2026-11-20T23:30:00Z", false},  {{23, 0}, "2026-11-21T22:30:00Z", true},
      {{23, 0}, "2026-11-21T23:00:00Z", false}, {{0, 23}, "2026-11-20T23:00:00Z", true},
  };
  for (const Row& row : rows)
    EXPECT_EQ(row.hours.contains(at(row.time), calendar), row.isQuiet)
        << row.hours.startHour << " to " << row.hours.endHour << " at " << row.time;
}

TEST(QuietHours, AreNoneBetweenEqualHours) {
  const Calendar calendar("UTC", "en_US");
  for (int start = 0; start < 24; ++start)
    for (int hour = 0; hour < 24; ++hour)
      EXPECT_FALSE((QuietHours{start, start}.contains(calendar.instant(2026, 11, 21, hour), calendar)));
}

TEST(QuietHours, FollowTheLocalClockOnTheDaysOnWhichItChanges) {
  const Calendar calendar("Europe/Berlin", "en_US");
  const QuietHours hours{2, 3};
  // The hour from 2 to 3 does not occur on 29 March, and twice on 25 October.
  EXPECT_FALSE(hours.contains(at("2026-03-29T00:59:59Z"), calendar));
  EXPECT_FALSE(hours.contains(at("2026-03-29T01:00:00Z"), calendar));
  EXPECT_TRUE(hours.contains(at("2026-10-25T00:30:00Z"), calendar));
  EXPECT_TRUE(hours.contains(at("2026-10-25T01:30:00Z"), calendar));
  EXPECT_FALSE(hours.contains(at("2026-10-25T02:00:00Z"), calendar));
}

TEST(BuddyPolicy, DropsEverythingWhenBuddyIsOff) {
  BuddyPolicy policy;
  policy.level = BuddyLevel::off;
  for (const BuddyRule rule : allCases<BuddyRule>()) EXPECT_FALSE(policy.allows(rule)) << nameOf(rule);
}

TEST(BuddyPolicy, DropsWhatOnlyInformsAtTheLevelImportant) {
  BuddyPolicy policy;
  policy.level = BuddyLevel::important;
  std::vector<std::string_view> dropped;
  for (const BuddyRule rule : allCases<BuddyRule>())
    if (!policy.allows(rule)) dropped.push_back(nameOf(rule));
  EXPECT_THAT(dropped, ElementsAre("agentStillWorking", "cpuHigh", "water", "focusEnded", "breakOver", "daySummary"));
}

TEST(BuddyPolicy, SaysWhenNothingIsSaid) {
  const Calendar calendar("UTC", "en_GB");
  const struct {
    BuddyLevel level;
    std::optional<QuietHours> hours;
    std::size_t held;
    const char* text;
  } rows[] = {
      {BuddyLevel::all, QuietHours{22, 8}, 0, "Quiet from 22:00 to 08:00"},
      {BuddyLevel::all, QuietHours{8, 11}, 0, "Quiet until 11:00"},
      {BuddyLevel::all, QuietHours{8, 8}, 0, "No quiet hours"},
      {BuddyLevel::all, std::nullopt, 0, "No quiet hours"},
      {BuddyLevel::all, QuietHours{8, 11}, 1, "1 note waits for the break"},
      {BuddyLevel::important, std::nullopt, 3, "3 notes wait for the break"},
      {BuddyLevel::off, QuietHours{8, 11}, 3, "Buddy says nothing"},
  };
  for (const auto& [level, hours, held, text] : rows) {
    BuddyPolicy policy;
    policy.level = level;
    policy.quietHours = hours;
    EXPECT_EQ(quietText(policy, held, at("2026-11-21T09:41:00Z"), calendar), text);
  }
}

TEST(BuddyPolicy, AllowsTheCategoriesThatAreOn) {
  for (const BuddyCategory chosen : allCases<BuddyCategory>()) {
    BuddyPolicy policy;
    policy.categories = {chosen};
    for (const BuddyRule rule : allCases<BuddyRule>()) EXPECT_EQ(policy.allows(rule), category(rule) == chosen);
  }
  BuddyPolicy all;
  for (const BuddyRule rule : allCases<BuddyRule>()) EXPECT_TRUE(all.allows(rule));
  all.categories.clear();
  for (const BuddyRule rule : allCases<BuddyRule>()) EXPECT_FALSE(all.allows(rule));
}

}  // namespace
}  // namespace ambrel
