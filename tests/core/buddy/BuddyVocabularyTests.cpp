#include "core/buddy.h"
#include "core/buddy/BuddyText.h"
#include "tests/Matchers.h"
#include "tests/Time.h"

namespace ambrel {
namespace {

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
  const auto expect = [&](QuietHours hours, bool isQuiet, std::initializer_list<const char*> times) {
    for (const char* time : times)
      EXPECT_EQ(hours.contains(at(std::string("2026-11-21T") + time + "Z"), calendar), isQuiet)
          << hours.startHour << " to " << hours.endHour << " at " << time;
  };
  expect({22, 7}, true, {"21:00:00", "22:00:00", "23:30:00", "05:59:59"});
  expect({22, 7}, false, {"20:59:59", "06:00:00", "11:00:00"});
  expect({9, 17}, true, {"08:00:00", "15:59:59"});
  expect({9, 17}, false, {"07:59:00", "16:00:00"});
  expect({9, 9}, false, {"08:30:00"});
  expect({0, 0}, false, {"23:30:00"});
  expect({23, 0}, true, {"22:30:00"});
  expect({23, 0}, false, {"23:00:00"});
}

}  // namespace
}  // namespace ambrel
