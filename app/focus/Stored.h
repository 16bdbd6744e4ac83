#pragma once
// Reading and writing what the models keep in the defaults.

#include <string>

#include "app/base/StoredValue.h"
#include "core/base/UserDefaults.h"
#include "core/focus/Days.h"
#include "core/settings.h"

namespace ambrel {

inline int valueOf(const UserDefaults& defaults, const Setting<std::int64_t>& setting) {
  return static_cast<int>(valueOf<std::int64_t>(defaults, setting));
}

// A count and the day that it is valid for; never below zero.
DayCount storedDayCount(const UserDefaults& defaults, const std::string& countKey, const std::string& dayKey);
void store(UserDefaults& defaults, const std::string& countKey, const std::string& dayKey, const DayCount& count);

// Numbers by day; passes over what is no number from `least` to `most`.
DayCounts storedDayCounts(const UserDefaults& defaults, const std::string& key, int least, int most);
void store(UserDefaults& defaults, const std::string& key, const DayCounts& counts);

}  // namespace ambrel
