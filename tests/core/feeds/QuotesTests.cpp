#include <gtest/gtest.h>
#include <set>

#include "core/feeds/Quotes.h"

namespace ambrel {
namespace {

TEST(Quotes, ChangeAtTheLocalMidnightAndComeRoundOnce) {
  const Calendar tokyo("Asia/Tokyo", "en_US");
  const Instant lastMinute = *parseISO8601("2026-11-22T14:59:00Z"), midnight = *parseISO8601("2026-11-22T15:00:00Z");
  EXPECT_NE(quoteOf(tokyo, lastMinute), quoteOf(tokyo, midnight));
  EXPECT_EQ(quoteOf(tokyo, midnight), quoteOf(tokyo, midnight + std::chrono::hours(23)));
  std::set<std::string_view> seen;
  for (int day = 0; day < static_cast<int>(quotes().size()); ++day)
    seen.insert(quoteOf(tokyo, tokyo.startOfDay(midnight, day)));
  EXPECT_EQ(seen.size(), quotes().size());
  EXPECT_GE(quotes().size(), 60u);
}

}  // namespace
}  // namespace ambrel
