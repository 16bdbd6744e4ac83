#include <algorithm>
#include <cstdlib>
#include <fmt/format.h>

#include "core/weather.h"
#include "core/weather/Response.h"

namespace ambrel {
namespace {

using std::chrono::seconds;

// "2026-11-21T09:00", a local time of the place, whose zone adds `offset` to UTC.
std::optional<Instant> localInstant(std::string_view text, seconds offset) {
  if (text.size() != std::string_view("2026-11-21T09:00").size() || text[10] != 'T') return std::nullopt;
  const auto utc = parseISO8601(std::string(text) + ":00Z");
  if (!utc) return std::nullopt;
  return *utc - offset;
}

// A zone of a fixed offset; none is further than 18 hours from Greenwich.
std::optional<std::string> zoneName(seconds offset) {
  const auto count = offset.count();
  if (std::abs(count) > 18 * 3600) return std::nullopt;
  if (count == 0) return "GMT";
  const auto distance = std::abs(count);
  std::string name = fmt::format("GMT{}{:02}:{:02}", count < 0 ? '-' : '+', distance / 3600, distance / 60 % 60);
  if (distance % 60 != 0) name += fmt::format(":{:02}", distance % 60);
  return name;
}

// Reads the fields in turn and remembers the first that is missing.
class Required {
 public:
  const JSON* object(const JSON& parent, std::string_view key) { return checked(objectField(parent, key), key); }
  const JSON* array(const JSON& parent, std::string_view key) { return checked(arrayField(parent, key), key); }
  template <typename T>
  std::optional<T> value(std::optional<T> found, std::string_view key) {
    checked(found ? &*found : nullptr, key);
    return found;
  }
  const std::string& missing() const { return missing_; }

 private:
  template <typename T>
  const T* checked(const T* found, std::string_view key) {
    if (!found && missing_.empty()) missing_ = key;
    return found;
  }
  std::string missing_;
};

std::optional<int> wholeField(const JSON& object, std::string_view key) {
  const auto found = object.find(key);
  return found == object.end() ? std::nullopt : wholeNumber(*found);
}

void readCurrent(const JSON& current, Forecast& out) {
  out.temperature = numberField(current, "temperature_2m");
  out.code = wholeField(current, "weather_code");
  out.windSpeed = numberField(current, "wind_speed_10m");
  out.windDirection = numberField(current, "wind_direction_10m");
  out.apparentTemperature = numberField(current, "apparent_temperature");
  out.humidity = numberField(current, "relative_humidity_2m");
  out.dewPoint = numberField(current, "dew_point_2m");
  out.uvIndex = numberField(current, "uv_index");
}

void readHourly(const JSON& times, const JSON* temperatures, const JSON* codes, const JSON* chances, seconds offset,
                Forecast& out) {
  for (std::size_t i = 0; i < times.size(); ++i) {
    const auto text = textValue(times[i]);
    const auto date = text ? localInstant(*text, offset) : std::nullopt;
    if (!date) continue;
    const auto temperature = readAtIndex(temperatures, i, realNumber);
    const auto code = readAtIndex(codes, i, wholeNumber);
    if (temperature && code) out.hourly.push_back({*date, *temperature, *code});
    if (const auto percent = readAtIndex(chances, i, wholeNumber)) out.rainChances.push_back({*date, *percent});
  }
}

void readDaily(const JSON& daily, const JSON* highs, const JSON* lows, const JSON* sunrises, const JSON* sunsets,
               seconds offset, Forecast& out) {
  const auto instantAt = [&](const JSON* list, std::size_t i) -> std::optional<Instant> {
    const auto text = readAtIndex(list, i, textValue);
    return text ? localInstant(*text, offset) : std::nullopt;
  };
  out.high = readAtIndex(highs, 0, realNumber);
  out.low = readAtIndex(lows, 0, realNumber);
  out.uvMax = readAtIndex(arrayField(daily, "uv_index_max"), 0, realNumber);
  out.sunrise = instantAt(sunrises, 0);
  out.sunset = instantAt(sunsets, 0);
  for (std::size_t i = 0; i < std::max(sunrises->size(), sunsets->size()); ++i)
    out.suns.push_back({instantAt(sunrises, i), instantAt(sunsets, i)});

  const JSON* times = arrayField(daily, "time");
  const JSON* codes = arrayField(daily, "weather_code");
  const JSON* uvMaxima = arrayField(daily, "uv_index_max");
  for (std::size_t i = 0; times && i < times->size(); ++i) {
    const auto text = textValue((*times)[i]);
    const auto noon = text ? localInstant(std::string(*text) + "T12:00", offset) : std::nullopt;
    const auto high = readAtIndex(highs, i, realNumber);
    const auto low = readAtIndex(lows, i, realNumber);
    const auto code = readAtIndex(codes, i, wholeNumber);
    if (noon && high && low && code)
      out.daily.push_back({*noon, *high, *low, *code, readAtIndex(uvMaxima, i, realNumber)});
  }
}

}  // namespace

Decoded<Forecast> decodeForecast(std::string_view json) {
  const Answer answer(json);
  if (!answer.problem.empty()) return {std::nullopt, answer.problem};
  const JSON& root = answer.root;

  Forecast out;
  Required required;
  const auto offsetCount = required.value(wholeField(root, "utc_offset_seconds"), "utc_offset_seconds");
  const JSON nothing = JSON::object();
  const JSON* current = required.object(root, "current");
  readCurrent(current ? *current : nothing, out);
  required.value(out.temperature, "current.temperature_2m");
  required.value(out.code, "current.weather_code");
  const JSON* hourly = required.object(root, "hourly");
  if (!hourly) hourly = &nothing;
  const JSON* times = required.array(*hourly, "time");
  const JSON* temperatures = required.array(*hourly, "temperature_2m");
  const JSON* codes = required.array(*hourly, "weather_code");
  const JSON* daily = required.object(root, "daily");
  if (!daily) daily = &nothing;
  const JSON* highs = required.array(*daily, "temperature_2m_max");
  const JSON* lows = required.array(*daily, "temperature_2m_min");
  const JSON* sunrises = required.array(*daily, "sunrise");
  const JSON* sunsets = required.array(*daily, "sunset");
  const JSON* minutely = objectField(root, "minutely_15");
  const JSON* slotTimes = minutely ? required.array(*minutely, "time") : nullptr;
  const JSON* rain = minutely ? required.array(*minutely, "precipitation") : nullptr;
  if (!required.missing().empty())
    return {std::nullopt, "\"" + required.missing() + "\" is missing or of another type"};

  const seconds offset(*offsetCount);
  out.timeZone = zoneName(offset);
  readHourly(*times, temperatures, codes, arrayField(*hourly, "precipitation_probability"), offset, out);
  readDaily(*daily, highs, lows, sunrises, sunsets, offset, out);
  for (std::size_t i = 0; slotTimes && i < slotTimes->size(); ++i) {
    const auto text = textValue((*slotTimes)[i]);
    const auto start = text ? localInstant(*text, offset) : std::nullopt;
    const auto millimeters = readAtIndex(rain, i, realNumber);
    if (start && millimeters) out.rainSlots.push_back({*start, *millimeters});
  }
  return {std::move(out), {}};
}

}  // namespace ambrel
