#pragma once
// Reading and writing what the models keep in the defaults.

#include <string>

#include "app/base/StoredValue.h"
#include "core/base/UserDefaults.h"
#include "core/focus.h"

namespace ambrel {

// Within least and most; `fallback` for a missing key and another type.
int storedInteger(const UserDefaults& defaults, const std::string& key, int fallback, int least, int most);

// A count under PREFIX-key and its day; never below zero.
DayCount storedDayCount(const UserDefaults& defaults, const std::string& countKey, const std::string& dayKey);
void store(UserDefaults& defaults, const std::string& countKey, const std::string& dayKey, const DayCount& count);

// Numbers by day; passes over what is no number from `least` to `most`.
DayCounts storedDayCounts(const UserDefaults& defaults, const std::string& key, int least, int most);
void store(UserDefaults& defaults, const std::string& key, const DayCounts& counts);

}  // namespace ambrel
