#include "core/weather.h"

#include "core/base/JSON.h"
#include "core/base/LocalText.h"
#include "ctl/InputFile.h"
#include "ctl/Table.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

constexpr std::uint64_t largestAnswer = 16 << 20;

template <typename T>
T valueOf(Decoded<T> decoded, const std::string& file, const char* what) {
  if (!decoded.value) throw CommandError(file + " is no " + what + " response: " + decoded.problem);
  return std::move(*decoded.value);
}

template <typename T>
void put(JSON& json, const char* key, const std::optional<T>& value) {
  if (value) json[key] = *value;
}

JSON asJSON(const AirQuality& air) {
  JSON json = JSON::object();
  put(json, "us", air.us);
  put(json, "european", air.european);
  put(json, "pm25", air.pm25);
  return json;
}

JSON asJSON(const Forecast& f, const std::optional<AirQuality>& air, const Calendar& calendar, Instant now) {
  const auto rain = RainSoon::summary(f.rainSlots, f.rainChances, now, RainSoon::usualHorizon);
  JSON json{{"updatedAt", now},
            {"timeZone", placeCalendar(f, calendar).zone()},
            {"hourly", JSON::array()},
            {"daily", JSON::array()},
            {"rainSlots", JSON::array()},
            {"rainChances", JSON::array()},
            {"rain", {{"title", rain.title}, {"detail", rain.detail}, {"isWet", rain.isWet}}}};
  put(json, "temperature", f.temperature);
  put(json, "code", f.code);
  put(json, "high", f.high);
  put(json, "low", f.low);
  put(json, "windSpeed", f.windSpeed);
  put(json, "windDirection", f.windDirection);
  put(json, "apparentTemperature", f.apparentTemperature);
  put(json, "humidity", f.humidity);
  put(json, "dewPoint", f.dewPoint);
  put(json, "uvIndex", f.uvIndex);
  put(json, "uvMax", f.uvMax);
  put(json, "sunrise", f.sunrise);
  put(json, "sunset", f.sunset);
  for (const auto& hour : f.hourly)
    json["hourly"].push_back({{"date", hour.date}, {"temperature", hour.temperature}, {"code", hour.code}});
  for (const auto& day : f.daily)
    json["daily"].push_back({{"date", day.date}, {"high", day.high}, {"low", day.low}, {"code", day.code}});
  for (const auto& slot : f.rainSlots)
    json["rainSlots"].push_back({{"start", slot.start}, {"millimeters", slot.millimeters}});
  for (const auto& chance : f.rainChances)
    json["rainChances"].push_back({{"start", chance.start}, {"percent", chance.percent}});
  if (air) json["airQuality"] = asJSON(*air);
  return json;
}

std::string asText(const Forecast& f, const std::optional<AirQuality>& air, const Context& context, Instant now) {
  const Calendar place = placeCalendar(f, context.calendar);
  const auto rain = RainSoon::summary(f.rainSlots, f.rainChances, now, RainSoon::usualHorizon);
  std::vector<std::vector<Cell>> rows;
  rows.push_back({{"Now", "1"}, {degreesText(place, *f.temperature) + "  " + std::string(weatherText(f.code))}});
  if (f.apparentTemperature) rows.push_back({{"Feels like", "1"}, {degreesText(place, *f.apparentTemperature)}});
  if (const auto range = todaysRange(f, place, now); range.high && range.low)
    rows.push_back({{"Today", "1"}, {degreesText(place, *range.low) + " to " + degreesText(place, *range.high)}});
  rows.push_back({{"Rain", "1"}, {rain.title + ", " + rain.detail, rain.isWet ? "34" : ""}});
  if (f.uvIndex)
    rows.push_back({{"UV index", "1"},
                    {decimal(place, *f.uvIndex, 1) + "  " + std::string(UVScale::label(UVScale::band(*f.uvIndex)))}});
  for (const auto scale : allCases<AirQualityScale>())
    if (const auto value = air ? airQualityValue(*air, scale) : std::nullopt)
      rows.push_back(
          {{std::string(label(scale)), "1"},
           {decimal(place, *value, 0) + "  " + std::string(airQualityLabel(scale, airQualityBand(scale, *value)))}});
  for (const auto& day : upcomingDays(f, place, now))
    rows.push_back({{formattedDate(place, day.date, "EEEdMMM"), "1"},
                    {degreesText(place, day.low) + " to " + degreesText(place, day.high) + "  " +
                     std::string(weatherText(day.code))}});
  return table(rows, 1, context);
}

void runWeather(const Arguments& arguments, Context& context) {
  const auto from = arguments.value("--from");
  if (!from) throw UsageError("weather needs --from FILE; see 'tilebayctl weather --help'");
  const Forecast forecast = valueOf(decodeForecast(inputFile(*from, largestAnswer)), *from, "forecast");
  std::optional<AirQuality> air;
  if (const auto file = arguments.value("--air"))
    air = valueOf(decodeAirQuality(inputFile(*file, largestAnswer)), *file, "air-quality");
  const Instant now = context.now();
  if (context.json)
    context.print(asJSON(forecast, air, context.calendar, now));
  else
    context.out << asText(forecast, air, context, now);
}

}  // namespace

Command weatherCommand() {
  return {.name = "weather",
          .summary = "What the weather tiles make of a saved response",
          .options = {{CommandOption::Kind::value, "--from", "FILE", "A saved response of the forecast service"},
                      {CommandOption::Kind::value, "--air", "FILE", "A saved response of the air-quality service"}},
          .commands = {},
          .run = runWeather};
}

}  // namespace ambrel
