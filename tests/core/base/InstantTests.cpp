#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "core/base/Instant.h"

namespace ambrel {
namespace {

using namespace std::chrono;

constexpr Instant ninth = sys_days(2026y / November / 21) + 9h;

TEST(ISO8601, IsWrittenInUTCWithAFractionOnlyWhenThereIsOne) {
  using Row = std::pair<Instant, const char*>;
  for (const auto& [instant, text] :
       {Row{Instant{}, "1970-01-01T00:00:00Z"}, Row{ninth, "2026-11-21T09:00:00Z"},
        Row{ninth + 250ms, "2026-11-21T09:00:00.25Z"}, Row{ninth + 1us, "2026-11-21T09:00:00.000001Z"},
        Row{ninth + 100ms + 20us, "2026-11-21T09:00:00.10002Z"}, Row{Instant{} - 1us, "1969-12-31T23:59:59.999999Z"},
        Row{sys_days(2000y / February / 29) + 23h + 59min + 59s, "2000-02-29T23:59:59Z"},
        Row{sys_days(1y / January / 1), "0001-01-01T00:00:00Z"}}) {
    EXPECT_EQ(iso8601(instant), text);
    EXPECT_EQ(parseISO8601(text), instant);
  }
}

TEST(ISO8601, IsReadInTheFormsThatToolsWrite) {
  for (const char* text :
       {"2026-11-21T10:00:00+01:00", "2026-11-21T10:00:00+0100", "2026-11-21T10:00:00+01", "2026-11-20T23:30:00-09:30",
        "2026-11-21t09:00:00z", "2026-11-21 09:00:00Z", "2026-11-21T08:59:60Z"})
    EXPECT_EQ(parseISO8601(text), ninth) << text;
  EXPECT_EQ(parseISO8601("2026-11-21T09:00:00,5Z"), ninth + 500ms);
  EXPECT_EQ(parseISO8601("2026-11-21T09:00:00.123456789Z"), ninth + 123456us);
  EXPECT_EQ(parseISO8601("9999-12-31T23:59:59Z"), sys_days(9999y / December / 31) + 24h - 1s);
}

TEST(ISO8601, AnythingElseIsAbsent) {
  for (const char* text :
       {"", "Z", "2026", "2026-11-21", "2026-11-21T09:00:00", "2026-11-21T09:00Z", "2026-11-21T09:00:00.Z",
        "2026-11-21T09:00:00.1234567890Z",
        // Numbers that no calendar or clock has.
        "2026-02-29T00:00:00Z", "2026-13-01T00:00:00Z", "2026-00-01T00:00:00Z", "2026-11-00T00:00:00Z",
        "2026-11-31T00:00:00Z", "2026-11-21T24:00:00Z", "2026-11-21T09:60:00Z", "2026-11-21T09:00:61Z",
        "2026-11-21T09:00:00+24:00", "2026-11-21T09:00:00+01:60",
        // Other spellings.
        "2026-11-21T09:00:00+1:00", "2026-11-21T09:00:00+01:", "2026-11-21T09:00:00ZZ", " 2026-11-21T09:00:00Z",
        "2026-11-21T09:00:00Z ", "0000-01-01T00:00:00Z", "-026-11-21T09:00:00Z", "2026-1-21T09:00:00Z",
        "2026-11-21T+9:00:00Z", "2026/11/21T09:00:00Z", "12026-11-21T09:00:00Z"})
    EXPECT_EQ(parseISO8601(text), std::nullopt) << text;
}

TEST(UnixTime, RoundTripsToTheMicrosecond) {
  for (std::int64_t count = 1'790'000'000'000'000; count < 1'790'000'000'000'000 + 5'000; ++count) {
    const Instant instant{microseconds(count)};
    ASSERT_EQ(instantFromUnixSeconds(unixSeconds(instant)), instant) << count;
  }
  EXPECT_EQ(instantFromUnixSeconds(-0.25), Instant(-250ms));
  EXPECT_EQ(instantFromUnixMilliseconds(1'800'000'000'123), Instant(1'800'000'000s + 123ms));
}

TEST(UnixTime, ClampsWhatDoesNotFit) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(instantFromUnixSeconds(infinity), instantFromUnixSeconds(1e300));
  EXPECT_GT(instantFromUnixSeconds(1e300), ninth);
  EXPECT_LT(instantFromUnixSeconds(-infinity), ninth);
  EXPECT_EQ(instantFromUnixSeconds(std::nan("")), Instant{});
  EXPECT_GT(instantFromUnixMilliseconds(std::numeric_limits<std::int64_t>::max()), ninth);
  EXPECT_LT(instantFromUnixMilliseconds(std::numeric_limits<std::int64_t>::min()), ninth);
}

TEST(Spans, AreSecondsWithFractions) {
  EXPECT_EQ(secondsBetween(ninth + 1450ms, ninth), Seconds(-1.45));
  EXPECT_EQ(advanced(ninth, Seconds(1.0 / 3)), ninth + 333333us);
  EXPECT_EQ(advanced(ninth, Seconds(-2.0 / 3)), ninth - 666667us);
}

}  // namespace
}  // namespace ambrel
