#include "core/time/Cities.h"

#include <algorithm>
#include <memory>
#include <unicode/locid.h>
#include <unicode/strenum.h>
#include <unicode/timezone.h>
#include <unicode/tznames.h>

#include "core/base/SearchFolding.h"
#include "core/base/Text.h"
#include "core/time/Weeks.h"

namespace ambrel {
namespace {

// Large cities that are not the one their zone is named after.
constexpr std::pair<std::string_view, std::string_view> furtherCities[] = {
    {"Abu Dhabi", "Asia/Dubai"},
    {"Ankara", "Europe/Istanbul"},
    {"Atlanta", "America/New_York"},
    {"Austin", "America/Chicago"},
    {"Barcelona", "Europe/Madrid"},
    {"Beijing", "Asia/Shanghai"},
    {"Bengaluru", "Asia/Kolkata"},
    {"Bern", "Europe/Zurich"},
    {"Boston", "America/New_York"},
    {"Brasília", "America/Sao_Paulo"},
    {"Calgary", "America/Edmonton"},
    {"Canberra", "Australia/Sydney"},
    {"Cape Town", "Africa/Johannesburg"},
    {"Chennai", "Asia/Kolkata"},
    {"Cologne", "Europe/Berlin"},
    {"Dallas", "America/Chicago"},
    {"Edinburgh", "Europe/London"},
    {"Frankfurt", "Europe/Berlin"},
    {"Geneva", "Europe/Zurich"},
    {"Guangzhou", "Asia/Shanghai"},
    {"Gothenburg", "Europe/Stockholm"},
    {"Hamburg", "Europe/Berlin"},
    {"Hanoi", "Asia/Bangkok"},
    {"Houston", "America/Chicago"},
    {"Hyderabad", "Asia/Kolkata"},
    {"Islamabad", "Asia/Karachi"},
    {"Kyoto", "Asia/Tokyo"},
    {"Las Vegas", "America/Los_Angeles"},
    {"Lyon", "Europe/Paris"},
    {"Manchester", "Europe/London"},
    {"Marseille", "Europe/Paris"},
    {"Miami", "America/New_York"},
    {"Milan", "Europe/Rome"},
    {"Minneapolis", "America/Chicago"},
    {"Montreal", "America/Toronto"},
    {"Mumbai", "Asia/Kolkata"},
    {"Munich", "Europe/Berlin"},
    {"Naples", "Europe/Rome"},
    {"New Delhi", "Asia/Kolkata"},
    {"Osaka", "Asia/Tokyo"},
    {"Ottawa", "America/Toronto"},
    {"Philadelphia", "America/New_York"},
    {"Porto", "Europe/Lisbon"},
    {"Portland", "America/Los_Angeles"},
    {"Pretoria", "Africa/Johannesburg"},
    {"Rio de Janeiro", "America/Sao_Paulo"},
    {"Saint Petersburg", "Europe/Moscow"},
    {"Salt Lake City", "America/Denver"},
    {"San Diego", "America/Los_Angeles"},
    {"San Francisco", "America/Los_Angeles"},
    {"San Jose", "America/Los_Angeles"},
    {"Seattle", "America/Los_Angeles"},
    {"Shenzhen", "Asia/Shanghai"},
    {"Stuttgart", "Europe/Berlin"},
    {"Tel Aviv", "Asia/Jerusalem"},
    {"The Hague", "Europe/Amsterdam"},
    {"Washington", "America/New_York"},
    {"Wellington", "Pacific/Auckland"},
};

icu::UnicodeString wide(std::string_view text) {
  return icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<int32_t>(text.size())));
}
std::string utf8(const icu::UnicodeString& text) {
  std::string out;
  text.toUTF8String(out);
  return out;
}
icu::Locale localeOf(const std::string& name) { return icu::Locale::createCanonical(name.c_str()); }

std::unique_ptr<icu::TimeZoneNames> namesIn(const std::string& locale) {
  UErrorCode error = U_ZERO_ERROR;
  return std::unique_ptr<icu::TimeZoneNames>(icu::TimeZoneNames::createInstance(localeOf(locale), error));
}

bool isZone(std::string_view id) {
  const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(wide(id)));
  return zone && *zone != icu::TimeZone::getUnknown();
}

// "US"; "" for a zone that is of no country, such as UTC.
std::string regionOf(const std::string& zone) {
  char region[8] = "";
  UErrorCode error = U_ZERO_ERROR;
  icu::TimeZone::getRegion(wide(zone), region, sizeof region, error);
  return U_FAILURE(error) || std::string_view(region) == "001" ? std::string() : region;
}

// The names tell cities by the old spelling of a zone as well as by the new one.
std::string cityName(const icu::TimeZoneNames& names, const std::string& zone) {
  icu::UnicodeString canonical, name;
  UErrorCode error = U_ZERO_ERROR;
  icu::TimeZone::getCanonicalID(wide(zone), canonical, error);
  names.getExemplarLocationName(U_SUCCESS(error) ? canonical : wide(zone), name);
  if (!name.isEmpty()) return utf8(name);
  std::string last = zone.substr(zone.rfind('/') + 1);
  std::ranges::replace(last, '_', ' ');
  return last;
}

std::string countryOf(const std::string& region, const std::string& locale) {
  if (region.empty()) return {};
  icu::UnicodeString name;
  return utf8(icu::Locale("", region.c_str()).getDisplayCountry(localeOf(locale), name));
}

}  // namespace

std::string cityName(const std::string& zone, const std::string& locale) {
  const auto names = namesIn(locale);
  return names ? cityName(*names, zone) : zone;
}

std::string countryName(const std::string& zone, const std::string& locale) {
  return countryOf(regionOf(zone), locale);
}

std::array<bool, 7> daysOffIn(const std::string& zone, const std::string& locale) {
  const std::string region = regionOf(zone);
  return daysOff(region.empty() ? locale : "und_" + region);
}

std::optional<City> cityOf(std::string_view stored, const std::string& locale) {
  stored = trimmed(stored);
  const auto space = stored.find(' ');
  City city{std::string(stored.substr(0, space)), {}};
  if (!isZone(city.zone)) return std::nullopt;
  if (space != stored.npos) city.name = trimmed(stored.substr(space));
  if (city.name.empty()) city.name = cityName(city.zone, locale);
  return city;
}

std::string storedForm(const City& city, const std::string& locale) {
  return city.name == cityName(city.zone, locale) ? city.zone : city.zone + ' ' + city.name;
}

std::vector<City> citiesOf(const std::vector<std::string>& stored, const std::string& locale) {
  std::vector<City> cities;
  for (const std::string& text : stored)
    if (auto city = cityOf(text, locale); city && std::ranges::find(cities, *city) == cities.end())
      cities.push_back(std::move(*city));
  return cities;
}

std::vector<City> usualCities(const Calendar& calendar) {
  std::vector<City> cities;
  for (const char* zone : {"America/New_York", "Europe/London", "Asia/Tokyo", "Australia/Sydney"})
    if (zone != calendar.zone() && cities.size() < 3) cities.push_back({zone, cityName(zone, calendar.locale())});
  return cities;
}

CityIndex::CityIndex(std::string locale) : locale_(std::move(locale)) {
  UErrorCode error = U_ZERO_ERROR;
  const auto names = namesIn(locale_);
  const std::unique_ptr<icu::StringEnumeration> zones(
      icu::TimeZone::createTimeZoneIDEnumeration(UCAL_ZONE_TYPE_CANONICAL_LOCATION, nullptr, nullptr, error));
  if (!names || U_FAILURE(error)) return;
  const SearchFolding folding = SearchFolding::forLocale(locale_);
  const auto add = [&](std::string zone, std::string name) {
    std::string country = countryOf(regionOf(zone), locale_);
    Entry entry{.found = {}, .name = folding.folded(name), .others = folding.folded(country + ' ' + zone)};
    entry.found = {{std::move(zone), std::move(name)}, std::move(country)};
    entries_.push_back(std::move(entry));
  };
  while (const icu::UnicodeString* id = zones->snext(error)) {
    std::string zone = utf8(*id);
    std::string name = cityName(*names, zone);
    add(std::move(zone), std::move(name));
  }
  for (const auto& [name, zone] : furtherCities) add(std::string(zone), std::string(name));
  add("UTC", "UTC");
  std::ranges::sort(entries_, {}, &Entry::name);
}

std::vector<CityIndex::Found> CityIndex::search(std::string_view text, std::size_t most) const {
  const SearchFolding folding = SearchFolding::forLocale(locale_);
  const std::string wanted = folding.folded(trimmed(text));
  std::vector<Found> found;
  if (wanted.empty()) return found;
  const auto take = [&](const auto& fits) {
    for (const Entry& entry : entries_)
      if (found.size() < most && fits(entry)) found.push_back(entry.found);
  };
  const auto begins = [&](const Entry& entry) { return entry.name.starts_with(wanted); };
  const auto holds = [&](const Entry& entry) { return entry.name.find(wanted) != std::string::npos; };
  take(begins);
  take([&](const Entry& entry) { return !begins(entry) && holds(entry); });
  take([&](const Entry& entry) { return !holds(entry) && entry.others.find(wanted) != std::string::npos; });
  return found;
}

CityTime cityTime(const Calendar& there, const Calendar& own, Instant now) {
  const int hour = there.fields(now).hour;
  return {.dayDifference = daysBetween(dateOf(own, now), dateOf(there, now)),
          .ahead = std::chrono::duration_cast<std::chrono::minutes>(there.offset(now) - own.offset(now)),
          .isNight = hour < 6 || hour >= 20};
}

}  // namespace ambrel
