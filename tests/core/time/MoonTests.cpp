#include <fstream>
#include <gtest/gtest.h>

#include "core/time/Moon.h"
#include "tests/Time.h"

namespace ambrel {
namespace {

// As published in almanacs: the instant and the title of its quarter.
std::vector<std::pair<std::string, std::string>> published() {
  std::vector<std::pair<std::string, std::string>> rows;
  std::ifstream table(AMBREL_CASES "/time/moon.txt");
  for (std::string line; std::getline(table, line);)
    if (!line.starts_with('#')) rows.emplace_back(line.substr(0, 20), line.substr(21));
  EXPECT_EQ(rows.size(), 54u);
  return rows;
}

TEST(Moon, QuartersAreWithinThreeMinutesOfThePublishedOnes) {
  for (const auto& [text, quarter] : published()) {
    // From three days before it, it is the next one.
    const MoonEvent found = nextMoonEvents(at(text) - std::chrono::days(3), 1).front();
    EXPECT_EQ(title(found.quarter), quarter) << text;
    EXPECT_LE(std::abs(secondsBetween(at(text), found.at).count()), 180) << text << ' ' << iso8601(found.at);
  }
}

TEST(Moon, IsLitByHalfAtItsQuarters) {
  for (const auto& [text, quarter] : published())
    EXPECT_NEAR(moonIllumination(at(text)), quarter == "New Moon" ? 0 : quarter == "Full Moon" ? 1 : 0.5, 0.01) << text;
}

TEST(Moon, AQuarterNamesItsWholeLocalDay) {
  const Calendar berlin("Europe/Berlin", "en_US"), auckland("Pacific/Auckland", "en_US");
  EXPECT_EQ(moonName(berlin, at("2026-11-24T00:00:00Z")), "Full Moon");
  EXPECT_EQ(moonName(berlin, at("2026-11-24T22:59:00Z")), "Full Moon");
  EXPECT_EQ(moonName(berlin, at("2026-11-24T23:00:00Z")), "Waning Gibbous");
  // There it is the 25th already.
  EXPECT_EQ(moonName(auckland, at("2026-11-24T10:00:00Z")), "Waxing Gibbous");
  EXPECT_EQ(moonName(auckland, at("2026-11-24T11:00:00Z")), "Full Moon");
  EXPECT_EQ(moonName(berlin, at("2026-11-12T12:00:00Z")), "Waxing Crescent");
  EXPECT_EQ(moonName(berlin, at("2026-12-05T12:00:00Z")), "Waning Crescent");
}

}  // namespace
}  // namespace ambrel
