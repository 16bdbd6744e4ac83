#include <gtest/gtest.h>

#include "core/time/Countdown.h"
#include "core/time/Spans.h"
#include "core/time/TimeConversion.h"
#include "core/time/Weeks.h"
#include "tests/Time.h"

namespace ambrel {
namespace {

const Calendar berlin("Europe/Berlin", "de_DE"), newYork("America/New_York", "en_US"), riyadh("Asia/Riyadh", "ar_SA");

TEST(Spans, TellTheNextPercentToTheMicrosecond) {
  for (const TimeSpan span : {TimeSpan::day, TimeSpan::week, TimeSpan::month, TimeSpan::year})
    // The second day has 25 hours.
    for (const char* text : {"2026-11-21T09:41:00Z", "2026-10-25T00:59:59Z", "2026-12-31T22:59:59.999999Z"}) {
      const SpanProgress now = spanProgress(span, berlin, at(text));
      EXPECT_EQ(spanProgress(span, berlin, now.nextPercent - std::chrono::microseconds(1)), now) << text;
      EXPECT_NE(spanProgress(span, berlin, now.nextPercent).percent, now.percent) << text;
    }
  EXPECT_EQ(spanProgress(TimeSpan::day, berlin, at("2026-10-25T10:30:00Z")).percent, 50) << "12:30 of 25 hours";
  EXPECT_EQ(spanProgress(TimeSpan::year, berlin, at("2026-12-31T22:59:59Z")).percent, 99);
  EXPECT_EQ(spanProgress(TimeSpan::year, berlin, at("2026-12-31T23:00:00Z")).percent, 0);
}

TEST(Spans, AWeekendIsThatOfTheRegion) {
  const Weekend european = weekend(berlin, at("2026-11-20T22:59:00Z"));
  EXPECT_EQ(european, (Weekend{at("2026-11-20T23:00:00Z"), at("2026-11-22T23:00:00Z"), false}));
  EXPECT_EQ(weekend(berlin, at("2026-11-22T12:00:00Z")), (Weekend{european.begins, european.ends, true}));
  EXPECT_EQ(weekend(berlin, at("2026-11-22T23:00:00Z")).begins, at("2026-11-27T23:00:00Z"));
  EXPECT_TRUE(weekend(riyadh, at("2026-11-20T12:00:00Z")).isNow) << "a Friday";
  EXPECT_FALSE(weekend(riyadh, at("2026-11-22T12:00:00Z")).isNow) << "a Sunday";
}

TEST(Spans, AWaitIsToldInLocalDays) {
  // The clocks go back in between: the same time of day is 49 hours later.
  EXPECT_EQ(waitUntil(at("2026-10-26T09:00:00Z"), berlin, at("2026-10-24T08:00:00Z")), (Wait{2, 0, 0}));
  EXPECT_EQ(waitUntil(at("2026-10-26T08:59:00Z"), berlin, at("2026-10-24T08:00:00Z")), (Wait{1, 23, 59}));
  EXPECT_EQ(waitUntil(at("2026-11-21T10:00:00Z"), berlin, at("2026-11-21T09:59:59Z")), (Wait{0, 0, 1}));
  EXPECT_EQ(waitUntil(at("2026-11-21T10:00:00Z"), berlin, at("2026-11-21T10:00:00Z")), (Wait{}));
}

TEST(Weeks, AreNumberedByTheStandardOrTheLocale) {
  // Of the standard: the year whose Thursday the week has.
  const std::tuple<Date, int, int> standard[] = {{{2026, 1, 1}, 2026, 1},  {{2027, 1, 1}, 2026, 53},
                                                 {{2027, 1, 4}, 2027, 1},  {{2024, 12, 30}, 2025, 1},
                                                 {{2021, 1, 3}, 2020, 53}, {{2026, 11, 22}, 2026, 47}};
  for (const auto& [date, year, week] : standard)
    EXPECT_EQ(weekOf(date, WeekNumbering::iso, "en_US"), (WeekOfYear{year, week})) << keyOf(date);
  // Of the United States: from Sunday on, the first has the first of January.
  EXPECT_EQ(weekOf({2026, 11, 22}, WeekNumbering::locale, "en_US").week, 48);
  EXPECT_EQ(weekOf({2026, 12, 27}, WeekNumbering::locale, "en_US"), (WeekOfYear{2027, 1}));
  EXPECT_EQ(weekOf({2026, 11, 22}, WeekNumbering::locale, "de_DE").week, 47);
}

TEST(Weeks, AMonthsPageBeginsWithTheLocalesFirstDay) {
  const MonthPage german = monthPage(2026, 11, WeekNumbering::locale, berlin);
  EXPECT_EQ(german.days.front(), (Date{2026, 10, 26}));
  EXPECT_EQ(german.weeks, (std::array{44, 45, 46, 47, 48, 49}));
  const MonthPage american = monthPage(2026, 11, WeekNumbering::iso, newYork);
  EXPECT_EQ(american.weeks[1], 46) << "of the days from Monday to Saturday";
  EXPECT_EQ(american.days.front(), (Date{2026, 11, 1}));
  EXPECT_EQ(american.days.back(), (Date{2026, 12, 12}));
}

TEST(Weeks, MonthsEndOnTheirLastDay) {
  EXPECT_EQ(monthsLater({2027, 1, 31}, 1), (Date{2027, 2, 28}));
  EXPECT_EQ(monthsLater({2028, 3, 31}, -1), (Date{2028, 2, 29}));
  EXPECT_EQ(monthsLater({2026, 11, 22}, 14), (Date{2028, 1, 22}));
  EXPECT_EQ(dateOfKey(keyOf({2028, 2, 29})), (Date{2028, 2, 29}));
  for (const char* text : {"2027-02-29", "2026-1-01", "", "2026-11-22 ", "2026-11-2x", "0000-01-01"})
    EXPECT_FALSE(dateOfKey(text)) << text;
}

TEST(Countdown, KeepsItsDateInOtherZones) {
  for (const char* zone : {"Pacific/Kiritimati", "Pacific/Pago_Pago", "UTC"})
    for (const Date date : {Date{2027, 3, 14}, Date{1969, 7, 20}})
      EXPECT_EQ(countdownOf("Trip", storedMoment(date), Calendar(zone, "en_US"), at("2026-11-22T12:00:00Z")).date,
                date);
  // The noon in the user's own zone, as earlier versions stored it.
  EXPECT_EQ(countdownOf({}, unixSeconds(at("2027-03-14T03:00:00Z")), Calendar("Asia/Tokyo", "en_US"), {}).date,
            (Date{2027, 3, 14}));
}

TEST(Countdown, WaitsForTheNextNewYearUnlessADateIsStored) {
  EXPECT_EQ(countdownOf({}, {}, berlin, at("2026-12-31T22:59:59Z")), (Countdown{"New Year", {2027, 1, 1}}));
  EXPECT_EQ(countdownOf({}, {}, berlin, at("2026-12-31T23:00:00Z")).date, (Date{2028, 1, 1}));
  EXPECT_EQ(countdownOf({}, 1e300, berlin, at("2026-11-22T12:00:00Z")).date, (Date{2027, 1, 1}));
}

TEST(TimeConversion, TakesNumbersOfEveryUnitAndDatesOfEveryForm) {
  using enum UnixUnit;
  const std::tuple<const char*, const char*, std::optional<UnixUnit>> read[] = {
      {"0", "1970-01-01T00:00:00Z", seconds},
      {" 1795354233 ", "2026-11-22T13:30:33Z", seconds},
      {"99999999999", "5138-11-16T09:46:39Z", seconds},
      {"-1", "1969-12-31T23:59:59Z", seconds},
      {"1795354233.25", "2026-11-22T13:30:33.25Z", seconds},
      {"1795354233250", "2026-11-22T13:30:33.25Z", milliseconds},
      {"1795354233250001", "2026-11-22T13:30:33.250001Z", microseconds},
      {"1795354233250000000", "2026-11-22T13:30:33.25Z", nanoseconds},
      {"2026-11-22T14:30:33+01:00", "2026-11-22T13:30:33Z", {}},
      {"2026-11-22 14:30:33", "2026-11-22T13:30:33Z", {}},
      {"2026-07-01T14:30", "2026-07-01T12:30:00Z", {}},
      {"2026-11-22", "2026-11-21T23:00:00Z", {}},
  };
  for (const auto& [text, instant, unit] : read)
    EXPECT_EQ(readTime(text, berlin), (ReadTime{at(instant), unit})) << text;
  for (const char* text : {"", "-", "1.2.3", "12x", "1e9", "nan", "99999999999999999999999", "2026-13-01",
                           "2026-11-22 25:00", "2026-11-22 1", "2026-11-22 14:30:", "2026-11-2214:30", "now"})
    EXPECT_FALSE(readTime(text, berlin)) << text;
}

}  // namespace
}  // namespace ambrel
