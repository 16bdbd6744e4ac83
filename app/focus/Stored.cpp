#include "app/focus/Stored.h"

#include <algorithm>

namespace ambrel {

int storedInteger(const UserDefaults& defaults, const std::string& key, int fallback, int least, int most) {
  const auto stored = defaults.integer(key);
  return stored ? static_cast<int>(std::clamp<std::int64_t>(*stored, least, most)) : fallback;
}

DayCount storedDayCount(const UserDefaults& defaults, const std::string& countKey, const std::string& dayKey) {
  return {storedInteger(defaults, countKey, 0, 0, 100000), defaults.string(dayKey)};
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
