#include <gtest/gtest.h>

#include "core/dock.h"

namespace ambrel {
namespace {

constexpr Instant start = Instant(std::chrono::seconds(1'800'000'000));
Instant at(double seconds) { return advanced(start, Seconds(seconds)); }

struct Walk {
  struct Look {
    double second, distance;
    bool isShowing;
  };
  const char* what;
  std::vector<Look> looks;
};

TEST(SystemDockRule, FollowsThePointer) {
  const Walk walks[] = {
      {"shows at the edge alone", {{0, 110, false}, {1, 2.1, false}, {2, 2.0, true}, {3, 0, true}}},
      {"stays while the pointer is in the band", {{0, 0, true}, {1, 109.9, true}, {500, 109.9, true}}},
      {"goes once the delay has passed", {{0, 1, true}, {1, 110, true}, {1.44, 110, true}, {1.46, 300, false}}},
      {"stays at the delay itself", {{0, 1, true}, {1, 110, true}, {1.45, 110, true}, {1.450001, 110, false}}},
      {"a return to the band starts the delay again",
       {{0, 1, true}, {1, 200, true}, {1.4, 100, true}, {1.5, 200, true}, {1.9, 200, true}, {1.96, 200, false}}},
      {"shows again at the edge alone", {{0, 1, true}, {1, 200, true}, {2, 200, false}, {3, 50, false}, {4, 1, true}}},
  };
  for (const Walk& walk : walks) {
    SystemDockRule rule;
    for (const Walk::Look& look : walk.looks) {
      SCOPED_TRACE(std::string(walk.what) + " at " + std::to_string(look.second));
      const bool was = rule.isShowing;
      EXPECT_EQ(rule.update(look.distance, at(look.second)), was != look.isShowing);
      EXPECT_EQ(rule.isShowing, look.isShowing);
    }
  }
}

TEST(SystemDockRule, WaitsOnlyWhileTheDelayRuns) {
  SystemDockRule rule;
  EXPECT_EQ(rule.waitsUntil(), std::nullopt);
  rule.update(0, at(0));
  EXPECT_EQ(rule.waitsUntil(), std::nullopt);
  rule.update(400, at(1));
  ASSERT_TRUE(rule.waitsUntil());
  // The one look that it asks for settles it.
  EXPECT_TRUE(rule.update(400, *rule.waitsUntil()));
  EXPECT_FALSE(rule.isShowing);
  EXPECT_EQ(rule.waitsUntil(), std::nullopt);
}

}  // namespace
}  // namespace ambrel
