#include "core/profiles/SlotSettings.h"

#include <algorithm>

namespace ambrel {
namespace {

// Keys that are chosen together, and the widgets that have a choice of their own for them.
struct SlotChoice {
  std::vector<std::string_view> keys;
  std::vector<std::string_view> widgets;
  // Without it a tile has nothing of the user's to show: the first choice of all is for every profile.
  bool isNeeded = false;

  bool isFor(const DockItem& item) const {
    return item.widget && std::ranges::find(widgets, *item.widget) != widgets.end();
  }
};

const std::vector<SlotChoice>& slotChoices() {
  static const std::vector<SlotChoice> table{
      {{"weatherPlace"},
       {"weather", "hourly", "sun", "wind", "airQuality", "uvIndex", "rainSoon", "dailyForecast", "feelsLike"},
       true},
      {{"secondCityPlace"}, {"secondCity"}},
      {{"worldClockZones"}, {"worldClock"}},
      {{"meetingZones"}, {"meetingPlanner"}},
      {{"countdownTitle", "countdownDate"}, {"countdown"}},
      {{"folderWidgetPath"}, {"folder"}},
      {{"shortcutWidgetName"}, {"shortcuts"}, true},
      {{"gitStatusFolder"}, {"gitStatus"}, true},
      {{"currencyFrom", "currencyTo"}, {"currency"}},
      {{"unitCategory", "unitFrom", "unitTo"}, {"unitConverter"}}};
  return table;
}

const SlotChoice* choiceOf(std::string_view key) {
  const auto found = std::ranges::find_if(slotChoices(), [&](const SlotChoice& choice) {
    return std::ranges::find(choice.keys, key) != choice.keys.end();
  });
  return found == slotChoices().end() ? nullptr : &*found;
}

std::optional<DefaultsValue> valueIn(const DefaultsDictionary& values, std::string_view key) {
  const auto found = values.find(std::string(key));
  return found == values.end() ? std::nullopt : std::optional(found->second);
}

// From now on the profile's slots say themselves what they show.
void keepShown(Profile& profile, const SlotChoice& choice, const DefaultsDictionary& latest) {
  for (const std::string_view key : choice.keys) {
    const auto* chosen = slotSetting(profile, key);
    const auto shown = chosen ? *chosen : valueIn(latest, key);
    for (DockItem& item : profile.items)
      if (choice.isFor(item)) item.settings.emplace(key, shown);
  }
}

}  // namespace

std::vector<std::string_view> slotSettingKeys() {
  std::vector<std::string_view> keys;
  for (const SlotChoice& choice : slotChoices()) keys.insert(keys.end(), choice.keys.begin(), choice.keys.end());
  return keys;
}

std::vector<std::string_view> keysChosenWith(std::string_view key) {
  const SlotChoice* choice = choiceOf(key);
  return choice ? choice->keys : std::vector<std::string_view>();
}

const std::optional<DefaultsValue>* slotSetting(const Profile& profile, std::string_view key) {
  const SlotChoice* choice = choiceOf(key);
  if (!choice) return nullptr;
  for (const DockItem& item : profile.items)
    if (choice->isFor(item))
      if (const auto found = item.settings.find(std::string(key)); found != item.settings.end()) return &found->second;
  return nullptr;
}

bool hasSlotFor(const Profile& profile, std::string_view key) {
  const SlotChoice* choice = choiceOf(key);
  return choice && std::ranges::any_of(profile.items, [&](const DockItem& item) { return choice->isFor(item); });
}

bool setSlotSetting(std::vector<Profile>& profiles, const UUID& profileID, std::string_view key,
                    const std::optional<DefaultsValue>& value, const DefaultsDictionary& latest) {
  const SlotChoice* choice = choiceOf(key);
  if (!choice) return false;
  const auto before = profiles;
  const bool isForAll = choice->isNeeded && !latest.contains(std::string(key));
  for (Profile& profile : profiles) {
    if (!isForAll) keepShown(profile, *choice, latest);
    if (profile.id != profileID) continue;
    for (DockItem& item : profile.items)
      if (choice->isFor(item)) item.settings.insert_or_assign(std::string(key), value);
  }
  return profiles != before;
}

void inheritSettings(DockItem& item, const Profile& profile) {
  for (const SlotChoice& choice : slotChoices())
    for (const std::string_view key : choice.keys)
      if (const auto* chosen = choice.isFor(item) ? slotSetting(profile, key) : nullptr)
        item.settings.emplace(key, *chosen);
}

}  // namespace ambrel
