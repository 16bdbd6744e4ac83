#include "tests/core/weather/Samples.h"

namespace ambrel {
namespace {

TEST(Places, AreStoredAsJSONAndReadBack) {
  const WeatherPlace places[] = {
      defaultPlace(), defaultSecondPlace(), {"Null Island", std::nullopt, 0, 0}, {"Æ \"ø\" 東京", "", -89.999999, 180}};
  for (const auto& place : places) EXPECT_EQ(decodedPlace(encodedPlace(place)), place) << encodedPlace(place);
  EXPECT_EQ(encodedPlace(defaultPlace()),
            R"({"country":"United Kingdom","latitude":51.5074,"longitude":-0.1278,"name":"London"})");
}

TEST(Places, ThatAreNoneAreNotDecoded) {
  for (const char* text :
       {"", "London", "null", "[]", R"({"name":"London","latitude":51.5})", R"({"latitude":51.5,"longitude":0})",
        R"({"name":7,"latitude":51.5,"longitude":0})", R"({"name":"X","latitude":"51","longitude":0})",
        R"({"name":"X","latitude":90.1,"longitude":0})", R"({"name":"X","latitude":0,"longitude":-180.5})"})
    EXPECT_EQ(decodedPlace(text), std::nullopt) << text;
}

TEST(Places, AreFoundByName) {
  const auto found = decodePlaces(sample("places-springfield.json"));
  ASSERT_TRUE(found.value) << found.problem;
  ASSERT_EQ(found.value->size(), 6u) << "the service gave seven";
  EXPECT_EQ((*found.value)[1].place, (WeatherPlace{"Springfield", "United States", 42.10148, -72.58981}));
  EXPECT_EQ(placeLabel((*found.value)[1].place), "Springfield, United States");
  EXPECT_EQ(regionLabel((*found.value)[1]), "Massachusetts, United States") << "or nobody could tell one from another";
  EXPECT_EQ(regionLabel({{"Singapore", "Singapore", 1.3, 103.9}, "Singapore"}), "Singapore");
  EXPECT_EQ(regionLabel({{"Null Island", std::nullopt, 0, 0}, std::nullopt}), "");
  EXPECT_EQ(regionLabel({{"Ramallah", std::nullopt, 31.9, 35.2}, "West Bank"}), "West Bank");
  EXPECT_EQ(placeLabel({"Null Island", std::nullopt, 0, 0}), "Null Island");

  const auto none = decodePlaces(sample("places-none.json"));
  ASSERT_TRUE(none.value);
  EXPECT_TRUE(none.value->empty());
  EXPECT_FALSE(decodePlaces(R"({"results":[{"name":"X","latitude":1}]})").value);
  EXPECT_FALSE(decodePlaces(sample("error.json")).value);
  EXPECT_FALSE(decodePlaces("[]").value);
}

TEST(Places, AreAskedForWithThePercentEncodedText) {
  for (const auto& [text, encoded] : {std::pair{"New York", "New%20York"},
                                      {"Zürich", "Z%C3%BCrich"},
                                      {"a&b=c+d#e?f", "a%26b%3Dc%2Bd%23e%3Ff"},
                                      {"/etc/50%", "%2Fetc%2F50%25"}})
    EXPECT_EQ(geocodingRequest(text), std::string("/v1/search?name=") + encoded + "&count=6&language=en");
}

}  // namespace
}  // namespace ambrel
