#include "core/profiles/SlotSettings.h"

#include <algorithm>
#include <array>

namespace ambrel {
namespace {

struct Holders {
  std::string_view key;
  std::array<std::string_view, 9> widgets;
  bool contain(const DockItem& item) const {
    return item.widget && !item.widget->empty() && std::ranges::find(widgets, *item.widget) != widgets.end();
  }
};

// Which widgets have a choice of their own for a key of the defaults.
constexpr Holders table[] = {
    {"weatherPlace",
     {"weather", "hourly", "sun", "wind", "airQuality", "uvIndex", "rainSoon", "dailyForecast", "feelsLike"}},
    {"secondCityPlace", {"secondCity"}},
    {"worldClockZones", {"worldClock"}},
    {"meetingZones", {"meetingPlanner"}},
    {"countdownTitle", {"countdown"}},
    {"countdownDate", {"countdown"}},
    {"folderWidgetPath", {"folder"}},
    {"shortcutWidgetName", {"shortcuts"}},
    {"gitStatusFolder", {"gitStatus"}},
    {"currencyFrom", {"currency"}},
    {"currencyTo", {"currency"}},
    {"unitCategory", {"unitConverter"}},
    {"unitFrom", {"unitConverter"}},
    {"unitTo", {"unitConverter"}}};

const Holders* holdersOf(std::string_view key) {
  const auto* found = std::ranges::find(table, key, &Holders::key);
  return found == std::end(table) ? nullptr : found;
}

}  // namespace

std::vector<std::string_view> slotSettingKeys() {
  std::vector<std::string_view> keys;
  std::ranges::transform(table, std::back_inserter(keys), &Holders::key);
  return keys;
}

const std::optional<DefaultsValue>* slotSetting(const Profile& profile, std::string_view key) {
  const Holders* holders = holdersOf(key);
  if (!holders) return nullptr;
  for (const DockItem& item : profile.items)
    if (holders->contain(item))
      if (const auto found = item.settings.find(std::string(key)); found != item.settings.end()) return &found->second;
  return nullptr;
}

bool setSlotSetting(std::vector<Profile>& profiles, const UUID& profileID, std::string_view key,
                    const std::optional<DefaultsValue>& value) {
  const Holders* holders = holdersOf(key);
  const auto profile = std::ranges::find(profiles, profileID, &Profile::id);
  if (!holders || profile == profiles.end()) return false;
  const auto before = profile->items;
  for (DockItem& item : profile->items)
    if (holders->contain(item)) item.settings[std::string(key)] = value;
  return profile->items != before;
}

void inheritSettings(DockItem& item, const Profile& profile) {
  for (const Holders& holders : table)
    if (const auto* chosen = holders.contain(item) ? slotSetting(profile, holders.key) : nullptr)
      item.settings.emplace(holders.key, *chosen);
}

}  // namespace ambrel
