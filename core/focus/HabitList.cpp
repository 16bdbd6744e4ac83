#include "core/focus/HabitList.h"

#include "core/base/JSON.h"
#include "core/base/Text.h"

namespace ambrel {

std::optional<std::vector<Habit>> addingHabit(std::vector<Habit> habits, std::string_view name, UUID id) {
  const auto text = trimmed(name);
  if (text.empty() || habits.size() >= mostHabits) return std::nullopt;
  habits.push_back({id, std::string(text), {}});
  return habits;
}

void to_json(JSON& json, const HabitList& habits) {
  json = JSON::array();
  for (const auto& habit : habits.items) json.push_back({{"id", habit.id}, {"name", habit.name}, {"days", habit.days}});
}

void from_json(const JSON& json, HabitList& habits) {
  if (!json.is_array()) throw DecodingError("the list of habits is no array");
  habits.items.clear();
  for (const auto& entry : json) {
    const auto idText = stringField(entry, "id");
    const auto id = idText ? UUID::parse(*idText) : std::nullopt;
    const auto name = stringField(entry, "name");
    if (!id || !name) continue;
    Habit habit{*id, *name, {}};
    if (const JSON* days = arrayField(entry, "days"))
      for (const auto& day : *days)
        if (day.is_string()) habit.days.insert(day.get<std::string>());
    habits.items.push_back(std::move(habit));
  }
}

}  // namespace ambrel
