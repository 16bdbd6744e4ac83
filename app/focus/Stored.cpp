#include "app/focus/Stored.h"

#include <algorithm>

namespace ambrel {

DayCount storedDayCount(const UserDefaults& defaults, const std::string& countKey, const std::string& dayKey) {
  constexpr std::int64_t most = 100000;
  return {static_cast<int>(std::clamp<std::int64_t>(defaults.integer(countKey).value_or(0), 0, most)),
          defaults.string(dayKey)};
}

void store(UserDefaults& defaults, const std::string& countKey, const std::string& dayKey, const DayCount& count) {
  store(defaults, countKey, count.count);
  if (count.day) store(defaults, dayKey, DefaultsValue{*count.day});
}

DayCounts storedDayCounts(const UserDefaults& defaults, const std::string& key, int least, int most) {
  DayCounts counts;
  if (const auto* dictionary = defaults.dictionary(key))
    for (const auto& [day, value] : *dictionary)
      if (const auto* number = std::get_if<std::int64_t>(&value.value); number && *number >= least && *number <= most)
        counts[day] = static_cast<int>(*number);
  return counts;
}

void store(UserDefaults& defaults, const std::string& key, const DayCounts& counts) {
  DefaultsDictionary dictionary;
  for (const auto& [day, count] : counts) dictionary[day] = DefaultsValue{static_cast<std::int64_t>(count)};
  store(defaults, key, DefaultsValue{std::move(dictionary)});
}

}  // namespace ambrel
