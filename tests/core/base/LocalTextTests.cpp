#include <gtest/gtest.h>

#include "core/base/LocalText.h"

namespace ambrel {
namespace {

const Instant now = parseISO8601("2026-11-21T13:30:00Z").value();
Instant before(double seconds) { return advanced(now, Seconds(-seconds)); }

TEST(LocalText, WritesTimesInTheLocalesHabit) {
  struct {
    const char *locale, *zone, *time, *weekdayTime;
  } const cases[] = {
      {"en_US", "UTC", "1:30\u202fPM", "Saturday 1:30\u202fPM"},
      {"de_DE", "Europe/Berlin", "14:30", "Samstag, 14:30"},
      {"en_GB", "Asia/Kathmandu", "19:15", "Saturday 19:15"},
      {"C", "Pacific/Kiritimati", "3:30\u202fAM", "Sunday 3:30\u202fAM"},
  };
  for (const auto& each : cases) {
    const Calendar calendar(each.zone, each.locale);
    EXPECT_EQ(shortTime(calendar, now), each.time) << each.locale;
    EXPECT_EQ(weekdayTime(calendar, now), each.weekdayTime) << each.locale;
  }
  EXPECT_EQ(formattedDate(Calendar("UTC", "en_US"), now, "EEEdMMM"), "Sat, Nov 21");
  EXPECT_EQ(formattedDate(Calendar("UTC", "de_DE"), now, "EEEdMMM"), "Sa., 21. Nov.");
}

TEST(RelativeAge, HoldsUntilTheInstantOfItsChange) {
  const Calendar english("UTC", "en_US");
  for (const double age : {-5.0, 0.2, 1.0, 59.9, 60.0, 61.5, 3599.0, 3600.0, 86399.5, 86400.0, 400'000.0}) {
    const Instant written = before(age), change = relativeAgeChange(written, now);
    EXPECT_GT(change, now) << age;
    EXPECT_EQ(relativeAge(english, written, change - std::chrono::microseconds(1)), relativeAge(english, written, now))
        << age;
    EXPECT_NE(relativeAge(english, written, change), relativeAge(english, written, now)) << age;
  }
}

TEST(LocalText, WritesAges) {
  const Calendar english("UTC", "en_US"), german("UTC", "de_DE");
  struct {
    double age;
    const char* brief;
  } const cases[] = {
      {-5, "now"},      {0.9, "now"},   {1, "now"},       {59.9, "now"},    {60, "1 min"},
      {3599, "59 min"}, {3600, "1 hr"}, {86399, "23 hr"}, {86400, "1 day"}, {2 * 86400, "2 days"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(shortAge(english, before(each.age), now), each.brief) << each.age;
  }
  EXPECT_EQ(relativeAge(english, before(-5), now), "now");
  EXPECT_EQ(relativeAge(english, before(0.9), now), "now");
  // The texts themselves are ICU's; that each unit is used from its own threshold on is ours.
  for (const auto& [age, digits] : {std::pair{1.0, "1"}, {59.9, "59"}, {60.0, "1"}, {3599.0, "59"}, {86399.0, "23"}})
    EXPECT_EQ(relativeAge(english, before(age), now).find(digits), 0u) << relativeAge(english, before(age), now);
  EXPECT_NE(relativeAge(english, before(59), now), relativeAge(english, before(59 * 60), now));
  EXPECT_EQ(relativeAge(german, before(7200), now).find("vor 2"), 0u);
}

TEST(LocalText, WritesCountsAndSizes) {
  const Calendar english("UTC", "en_US"), german("UTC", "de_DE");
  for (const auto& [count, text] :
       {std::pair{0, "0"}, {999, "999"}, {1234, "1.2K"}, {12'345, "12K"}, {1'234'567, "1.2M"}})
    EXPECT_EQ(compactCount(english, count), text);
  using Sizes = std::pair<std::int64_t, const char*>;
  for (const auto& [bytes, text] :
       {Sizes{0, "0 bytes"}, Sizes{1, "1 byte"}, Sizes{1000, "1 kB"}, Sizes{999'499, "999 kB"}, Sizes{999'500, "1 MB"},
        Sizes{5'600'000'000, "5.6 GB"}, Sizes{5'000'000'000'000'000, "5,000 TB"}, Sizes{-1'240'000, "-1.2 MB"}})
    EXPECT_EQ(fileSize(english, bytes), text) << bytes;
  EXPECT_EQ(fileSize(german, 1'240'000), "1,2 MB");
  for (const auto& [bytes, text] : {Sizes{999, "999 bytes"}, Sizes{12'345, "12.3 kB"}, Sizes{888'880'000'000, "889 GB"},
                                    Sizes{5'643'000'000, "5.64 GB"}, Sizes{999'500'000'000, "1 TB"}})
    EXPECT_EQ(briefFileSize(english, bytes), text) << bytes;
  EXPECT_EQ(briefFileSize(german, 5'643'000'000), "5,64\u00a0GB");
  EXPECT_EQ(decimal(english, 1234.567, 1), "1,234.6");
  EXPECT_EQ(decimal(german, 1.25, 2), "1,25");
  EXPECT_EQ(decimal(english, 3.0, 2), "3");
}

}  // namespace
}  // namespace ambrel
