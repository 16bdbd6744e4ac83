#include "core/base/JSON.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"
#include "tests/ctl/CommandRun.h"

namespace ambrel {
namespace {

const std::string cases = AMBREL_CASES "/weather/";
const std::vector<std::string> summer{"--home", "/nonexistent", "--now", "2026-07-14T09:41:00Z"};

CommandResult weather(std::vector<std::string> words, std::vector<std::string> environment = {"TZ=Europe/Berlin"}) {
  words.insert(words.begin(), summer.begin(), summer.end());
  return runCommand(std::move(words), std::move(environment));
}

TEST(WeatherCommand, PrintsThePublishedFields) {
  const auto json = parseJSON(
      printed(weather({"--json", "weather", "--from", cases + "london.json", "--air", cases + "air-london.json"})));
  ASSERT_TRUE(json);
  EXPECT_EQ(json->size(), 21u);
  const std::pair<const char*, const char*> rows[] = {
      {"/temperature", "21.8"},
      {"/updatedAt", R"("2026-07-14T09:41:00Z")"},
      {"/hourly/3", R"({"date":"2026-07-14T12:00:00Z","temperature":24.3,"code":61})"},
      {"/daily/1", R"({"date":"2026-07-15T11:00:00Z","high":25.2,"low":14.2,"code":61})"},
      {"/rainSlots/4", R"({"start":"2026-07-14T10:30:00Z","millimeters":0.63})"},
      {"/rainChances/2", R"({"start":"2026-07-14T11:00:00Z","percent":55})"},
      {"/rain", R"({"title":"Rain in 20 min","detail":"Light rain","isWet":true})"},
      {"/airQuality", R"({"us":42.0,"european":31.0,"pm25":7.3})"}};
  for (const auto& [pointer, value] : rows)
    EXPECT_EQ(json->at(JSON::json_pointer(pointer)), *parseJSON(value)) << pointer;
}

TEST(WeatherCommand, LeavesOutWhatIsAbsent) {
  EXPECT_EQ(parseJSON(printed(weather({"weather", "--from", cases + "minimal.json", "--json"}))),
            parseJSON(R"({"temperature":7.0,"code":3,"updatedAt":"2026-07-14T09:41:00Z",
      "timeZone":"GMT","hourly":[],"daily":[],"rainSlots":[],"rainChances":[],
      "rain":{"title":"No forecast","detail":"Waiting for data","isWet":false}})"));
}

TEST(WeatherCommand, PrintsForPeople) {
  EXPECT_THAT(printed(weather({"weather", "--from", cases + "london.json", "--air", cases + "air-london.json"},
                              {"LC_ALL=en_US.UTF-8"})),
              StartsWith("Now          22°  Partly cloudy\n"
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
  const std::tuple<std::vector<std::string>, int, const char*> rows[] = {
      {{"weather"}, 2, "weather needs --from FILE"},
      {{"weather", "--from", missing}, 1, "No such file"},
      {{"weather", "--from", folder.path()}, 1, "cannot read"},
      {{"weather", "--from", folder.write("a.json", "<html>")}, 1, "is no forecast response: it is no JSON document"},
      {{"weather", "--from", cases + "error.json"}, 1, "Minutely API request limit exceeded"},
      {{"weather", "--from", cases + "london.json", "--air", cases + "places-none.json"},
       1,
       "is no air-quality response: \"current\" is missing"},
  };
  for (const auto& [words, status, says] : rows) {
    const auto result = weather(words);
    EXPECT_EQ(result.status, status) << says;
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.error, HasSubstr(says));
    EXPECT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 1);
  }
}

}  // namespace
}  // namespace ambrel
