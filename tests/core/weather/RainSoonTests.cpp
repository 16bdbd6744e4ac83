#include "tests/core/weather/Samples.h"

namespace ambrel {
namespace {

const Instant now = at("2026-11-21T09:07:00Z");

// Starts are counted from now.
struct Row {
  const char* what;
  std::vector<std::pair<seconds, double>> slots;
  std::vector<std::pair<seconds, int>> chances;
  RainSoon::Summary expected;
};

TEST(RainSoon, SumsUpTheNextTwoHours) {
  const RainSoon::Summary none{"No forecast", "Waiting for data", false};
  const RainSoon::Summary dry{"No rain soon", "Dry for the next 2 h", false};
  const Row rows[] = {
      {"nothing at all", {}, {}, none},
      {"chances alone", {}, {{minutes(0), 90}}, none},
      {"a slot that began 14 minutes ago is in progress",
       {{-minutes(14), 0.2}, {minutes(1), 0.2}, {minutes(16), 0}},
       {},
       {"Raining now", "Stops in 15 min", true}},
      {"one that began 15 minutes ago is over", {{-minutes(15), 0.2}}, {}, none},
      {"one that begins now", {{seconds(0), 0.1}}, {}, {"Raining now", "For the next 2 h", true}},
      {"just below the threshold", {{seconds(0), 0.09}}, {}, dry},
      {"one that begins at the horizon is beyond it", {{minutes(120), 5}}, {}, none},
      {"one just before it", {{minutes(120) - seconds(1), 0.2}}, {}, {"Rain in 2 h", "Light rain", true}},
      {"2 minutes ahead", {{minutes(2), 0.2}}, {}, {"Rain in 5 min", "Light rain", true}},
      {"62 minutes ahead", {{minutes(62), 0.2}}, {}, {"Rain in 1 h", "Light rain", true}},
      {"the first wet slot counts, not the wettest",
       {{minutes(8), 0}, {minutes(23), 0.62}, {minutes(38), 3}},
       {},
       {"Rain in 25 min", "Light rain", true}},
      {"a rate of 2.5", {{minutes(8), 0.625}}, {}, {"Rain in 10 min", "Moderate rain", true}},
      {"a rate of 7.6", {{minutes(8), 1.9}}, {}, {"Rain in 10 min", "Heavy rain", true}},
      {"a chance of 39", {{minutes(8), 0}}, {{minutes(-7), 39}}, dry},
      {"a chance of 40", {{minutes(8), 0}}, {{minutes(-7), 40}}, {"Rain possible", "40% chance in 2 h", false}},
      {"the greatest of those in reach",
       {{minutes(8), 0}},
       {{minutes(-60), 99}, {minutes(-59), 41}, {minutes(53), 70}, {minutes(120), 95}},
       {"Rain possible", "70% chance in 2 h", false}},
      {"rain in the minutes outweighs the chances",
       {{minutes(8), 0.1}},
       {{minutes(-7), 5}},
       {"Rain in 10 min", "Light rain", true}},
      {"a dry slot in progress, then rain",
       {{-minutes(7), 0}, {minutes(8), 2}},
       {},
       {"Rain in 10 min", "Heavy rain", true}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    std::vector<RainSoon::Slot> slots;
    for (const auto& slot : row.slots) slots.push_back({now + slot.first, slot.second});
    std::vector<RainSoon::Chance> chances;
    for (const auto& chance : row.chances) chances.push_back({now + chance.first, chance.second});
    const auto summary = RainSoon::summary(slots, chances, now, RainSoon::usualHorizon);
    EXPECT_EQ(summary, row.expected) << summary.title << ", " << summary.detail;
  }
}

TEST(RainSoon, RoundsDurationsToFiveMinutes) {
  const std::pair<double, const char*> rows[] = {{-600, "5 min"},          {0, "5 min"},         {149, "5 min"},
                                                 {449, "5 min"},           {450, "10 min"},      {59 * 60, "1 h"},
                                                 {57.4 * 60, "55 min"},    {57.5 * 60, "1 h"},   {62.4 * 60, "1 h"},
                                                 {62.5 * 60, "1 h 5 min"}, {5400, "1 h 30 min"}, {7199, "2 h"}};
  for (const auto& [span, text] : rows) EXPECT_EQ(RainSoon::duration(Seconds(span)), text) << span;
}

}  // namespace
}  // namespace ambrel
