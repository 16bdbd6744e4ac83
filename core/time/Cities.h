#pragma once
// Cities and the time there: the zones of the time zone database under their cities' names, and further large cities
// that share one.

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Calendar.h"

namespace ambrel {

struct City {
  std::string zone;  // "America/Los_Angeles"
  std::string name;  // "San Francisco"
  friend bool operator==(const City&, const City&) = default;
};

// How a city is stored: "Asia/Tokyo", or with a name of the user's own, "America/Los_Angeles San Francisco". Absent
// where there is no such zone.
std::optional<City> cityOf(std::string_view stored, const std::string& locale);
std::string storedForm(const City& city, const std::string& locale);
std::vector<City> citiesOf(const std::vector<std::string>& stored, const std::string& locale);

// What the zone's city is called in the locale: "Tokyo", "Tokio"; its country, "" for zones that are of none.
std::string cityName(const std::string& zone, const std::string& locale);
std::string countryName(const std::string& zone, const std::string& locale);
// The days off at the place of the zone, Monday first.
std::array<bool, 7> daysOffIn(const std::string& zone, const std::string& locale);

// Three cities far from each other; the user's own is left out.
std::vector<City> usualCities(const Calendar& calendar);

// Everything that can be found, in one locale. Making it takes some milliseconds.
class CityIndex {
 public:
  explicit CityIndex(std::string locale);

  struct Found {
    City city;
    std::string country;
  };
  // Those whose name, country or zone holds the text; names that begin with it come first.
  std::vector<Found> search(std::string_view text, std::size_t most) const;

 private:
  struct Entry {
    Found found;
    std::string name, others;  // folded
  };
  std::string locale_;
  std::vector<Entry> entries_;
};

// The time at a city, beside the user's own.
struct CityTime {
  int dayDifference = 0;          // -1 yesterday, 1 tomorrow
  std::chrono::minutes ahead{0};  // of the user's own clocks
  bool isNight = false;           // before 6 or from 20 o'clock on
  friend bool operator==(const CityTime&, const CityTime&) = default;
};
CityTime cityTime(const Calendar& there, const Calendar& own, Instant now);

}  // namespace ambrel
