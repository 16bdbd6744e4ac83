#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/base/JSON.h"
#include "tests/TemporaryFolder.h"
#include "tests/ctl/CommandRun.h"

namespace ambrel {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

const std::string cases = AMBREL_CASES "/weather/";
const std::vector<std::string> summer{"--home", "/nonexistent", "--now", "2026-07-14T09:41:00Z"};

CommandResult weather(std::vector<std::string> words, std::vector<std::string> environment = {"TZ=Europe/Berlin"}) {
  words.insert(words.begin(), summer.begin(), summer.end());
  return runCommand(std::move(words), std::move(environment));
}

TEST(WeatherCommand, PrintsThePublishedFields) {
  const auto result =
      weather({"--json", "weather", "--from", cases + "london.json", "--air", cases + "air-london.json"});
  EXPECT_EQ(result.status, 0) << result.error;
  const auto json = parseJSON(result.out);
  ASSERT_TRUE(json) << result.out;
  EXPECT_EQ((*json)["temperature"], 21.8);
  EXPECT_EQ((*json)["timeZone"], "GMT+01:00");
  EXPECT_EQ((*json)["updatedAt"], "2026-07-14T09:41:00Z");
  EXPECT_EQ((*json)["sunset"], "2026-07-14T20:12:00Z");
  EXPECT_EQ((*json)["hourly"][3], *parseJSON(R"({"date":"2026-07-14T12:00:00Z","temperature":24.3,"code":61})"));
  EXPECT_EQ((*json)["daily"][1], *parseJSON(R"({"date":"2026-07-15T11:00:00Z","high":25.2,"low":14.2,"code":61})"));
  EXPECT_EQ((*json)["rainSlots"][4], *parseJSON(R"({"start":"2026-07-14T10:30:00Z","millimeters":0.63})"));
  EXPECT_EQ((*json)["rainChances"][2], *parseJSON(R"({"start":"2026-07-14T11:00:00Z","percent":55})"));
  EXPECT_EQ((*json)["rain"], *parseJSON(R"({"title":"Rain in 20 min","detail":"Light rain","isWet":true})"));
  EXPECT_EQ((*json)["airQuality"], *parseJSON(R"({"us":42.0,"european":31.0,"pm25":7.3})"));
  EXPECT_EQ(json->size(), 21u);
}

TEST(WeatherCommand, LeavesOutWhatIsAbsent) {
  const auto result = weather({"weather", "--from", cases + "minimal.json", "--json"});
  EXPECT_EQ(parseJSON(result.out), parseJSON(R"({"temperature":7.0,"code":3,"updatedAt":"2026-07-14T09:41:00Z",
      "timeZone":"GMT","hourly":[],"daily":[],"rainSlots":[],"rainChances":[],
      "rain":{"title":"No forecast","detail":"Waiting for data","isWet":false}})"));
}

TEST(WeatherCommand, PrintsForPeople) {
  const auto result =
      weather({"weather", "--from", cases + "london.json", "--air", cases + "air-london.json"}, {"LC_ALL=en_US.UTF-8"});
  EXPECT_EQ(result.status, 0) << result.error;
  EXPECT_THAT(result.out, StartsWith("Now          22°  Partly cloudy\n"
                                     "Feels like   19°\n"
                                     "Today        14° to 25°\n"
                                     "Rain         Rain in 20 min, Light rain\n"
                                     "UV index     4.4  Moderate\n"
                                     "US AQI       42  Good\n"
                                     "EU AQI       31  Fair\n"
                                     "Tue, Jul 14  14° to 25°  Partly cloudy\n"));
}

TEST(WeatherCommand, SaysWhatIsWrong) {
  TemporaryFolder folder;
  const std::string missing = folder / "none.json";
  struct Row {
    std::vector<std::string> words;
    int status;
    const char* says;
  };
  const Row rows[] = {
      {{"weather"}, 2, "weather needs --from FILE"},
      {{"weather", "--from", missing}, 1, "No such file"},
      {{"weather", "--from", folder.path()}, 1, "cannot read"},
      {{"weather", "--from", folder.write("a.json", "<html>")}, 1, "is no forecast response: it is no JSON document"},
      {{"weather", "--from", cases + "error.json"}, 1, "Minutely API request limit exceeded"},
      {{"weather", "--from", cases + "london.json", "--air", cases + "places-none.json"},
       1,
       "is no air-quality response: \"current\" is missing"},
  };
  for (const Row& row : rows) {
    const auto result = weather(row.words);
    EXPECT_EQ(result.status, row.status) << row.says;
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.error, HasSubstr(row.says));
    EXPECT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 1);
  }
}

}  // namespace
}  // namespace ambrel
