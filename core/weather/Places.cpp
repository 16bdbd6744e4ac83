#include <cmath>

#include "core/weather.h"
#include "core/weather/Response.h"

namespace ambrel {
namespace {

constexpr std::size_t mostPlaces = 6;

std::optional<WeatherPlace> placeFrom(const JSON& json) {
  const auto name = stringField(json, "name");
  const auto latitude = numberField(json, "latitude");
  const auto longitude = numberField(json, "longitude");
  if (!name || !latitude || !longitude) return std::nullopt;
  if (std::abs(*latitude) > 90 || std::abs(*longitude) > 180) return std::nullopt;
  return WeatherPlace{*name, stringField(json, "country"), *latitude, *longitude};
}

}  // namespace

WeatherPlace defaultPlace() { return {"London", "United Kingdom", 51.5074, -0.1278}; }
WeatherPlace defaultSecondPlace() { return {"New York", "United States", 40.7128, -74.006}; }

std::string encodedPlace(const WeatherPlace& place) {
  JSON json{{"name", place.name}, {"latitude", place.latitude}, {"longitude", place.longitude}};
  if (place.country) json["country"] = *place.country;
  return compactJSON(json);
}

std::optional<WeatherPlace> decodedPlace(std::string_view json) {
  const auto parsed = parseJSON(json);
  return parsed ? placeFrom(*parsed) : std::nullopt;
}

std::string placeLabel(const WeatherPlace& place) {
  return place.country && !place.country->empty() ? place.name + ", " + *place.country : place.name;
}

std::string regionLabel(const FoundPlace& found) {
  const std::string region = found.region.value_or(""), country = found.place.country.value_or("");
  // A city that is a region of its own, as Singapore is, needs no second mention.
  if (region.empty() || region == found.place.name) return country;
  return country.empty() ? region : region + ", " + country;
}

Decoded<std::vector<FoundPlace>> decodePlaces(std::string_view json) {
  const Answer answer(json);
  if (!answer.problem.empty()) return {std::nullopt, answer.problem};
  std::vector<FoundPlace> places;
  // Without a match the service leaves the list out.
  const JSON* results = arrayField(answer.root, "results");
  for (std::size_t i = 0; results && i < results->size() && places.size() < mostPlaces; ++i) {
    auto place = placeFrom((*results)[i]);
    if (!place) return {std::nullopt, "a place lacks its name or its coordinates"};
    places.push_back({std::move(*place), stringField((*results)[i], "admin1")});
  }
  return {std::move(places), {}};
}

}  // namespace ambrel
