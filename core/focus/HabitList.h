#pragma once
// The document of the habits: an array of {"id","name","days":[DAY KEY...]}.

#include <nlohmann/json_fwd.hpp>
#include <vector>

#include "core/focus.h"

namespace ambrel {

struct HabitList {
  std::vector<Habit> items;
  friend bool operator==(const HabitList&, const HabitList&) = default;
};

void to_json(nlohmann::json& json, const HabitList& habits);
// Passes over entries without an identifier or a name, and days that are no texts. Throws DecodingError when the
// document is no array.
void from_json(const nlohmann::json& json, HabitList& habits);

}  // namespace ambrel
