#pragma once
// The habits, and their document: an array of {"id","name","days":[DAY KEY...]}.

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/UUID.h"

namespace ambrel {

struct Habit {
  UUID id;
  std::string name;
  std::set<std::string> days;  // the keys of those on which it was done
  friend bool operator==(const Habit&, const Habit&) = default;
};
inline constexpr std::size_t mostHabits = 12;
// White space around a name does not count. Absent when the name is empty or there are as many as there may be.
std::optional<std::vector<Habit>> addingHabit(std::vector<Habit> habits, std::string_view name, UUID id);

struct HabitList {
  std::vector<Habit> items;
  friend bool operator==(const HabitList&, const HabitList&) = default;
};

void to_json(nlohmann::json& json, const HabitList& habits);
// Passes over entries without an identifier or a name, and days that are not texts. Throws DecodingError when
// the document is not an array.
void from_json(const nlohmann::json& json, HabitList& habits);

}  // namespace ambrel
