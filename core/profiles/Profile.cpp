#include <algorithm>

#include "core/base/Text.h"
#include "core/profiles.h"
#include "core/profiles/SlotSettings.h"

namespace ambrel {
namespace {

constexpr std::string_view initialWidgets[] = {"clipboard", "weather", "disk", "cpu", "clock"};
constexpr std::string_view deskWidgets[] = {"clipboard", "date", "weather", "disk", "cpu", "battery", "clock"};

Profile profileHolding(std::string name, std::optional<DisplayContext> trigger,
                       std::span<const std::string_view> widgets) {
  Profile profile{.id = UUID::random(), .name = std::move(name), .trigger = trigger, .items = {}};
  for (const auto widget : widgets) profile.items.push_back(DockItem::holding(widget));
  return profile;
}

auto positionOf(auto& items, const UUID& id) {
  return std::ranges::find(items, id, &std::ranges::range_value_t<decltype(items)>::id);
}

Profile* profileWith(std::vector<Profile>& profiles, const UUID& id) {
  const auto found = positionOf(profiles, id);
  return found == profiles.end() ? nullptr : &*found;
}

void moveOnto(auto& items, const UUID& id, const UUID& targetID) {
  const auto from = positionOf(items, id);
  const auto to = positionOf(items, targetID);
  if (from == items.end() || to == items.end()) return;
  if (from < to)
    std::rotate(from, from + 1, to + 1);
  else
    std::rotate(to, from, from + 1);
}

// Null beyond the ends, and where there is no such item.
auto* stepped(auto& items, const UUID& id, int step) {
  const auto found = positionOf(items, id);
  const auto at = found - items.begin() + step;
  return found == items.end() || at < 0 || at >= std::ssize(items) ? nullptr : &items[static_cast<std::size_t>(at)];
}

bool isNameTaken(const std::vector<Profile>& profiles, std::string_view name) {
  return std::ranges::find(profiles, name, &Profile::name) != profiles.end();
}

}  // namespace

DockItem DockItem::holding(std::string_view widget) {
  return {.id = UUID::random(), .bundleID = std::nullopt, .widget = std::string(widget)};
}

std::vector<Profile> Profile::defaults() {
  std::vector<Profile> profiles;
  profiles.push_back(profileHolding("Laptop", DisplayContext::builtinOnly, initialWidgets));
  profiles.push_back(profileHolding("Desk", DisplayContext::external, deskWidgets));
  return profiles;
}

bool Profile::contains(std::string_view widget) const {
  return std::ranges::any_of(items, [&](const DockItem& item) { return item.widget == widget; });
}

void Profile::insert(DockItem item, const std::optional<UUID>& before) {
  items.insert(before ? positionOf(items, *before) : items.end(), std::move(item));
}

void Profile::move(const UUID& itemID, const UUID& targetID) { moveOnto(items, itemID, targetID); }

std::span<const std::string_view> defaultWidgets() { return initialWidgets; }

DisplayContext displayContext(std::span<const DisplaySnapshot> displays) {
  return std::ranges::all_of(displays, &DisplaySnapshot::isBuiltin) ? DisplayContext::builtinOnly
                                                                    : DisplayContext::external;
}

const Profile* resolve(std::span<const Profile> profiles, std::span<const DisplaySnapshot> displays,
                       const std::optional<UUID>& pinnedID) {
  if (pinnedID)
    if (const auto pinned = std::ranges::find(profiles, *pinnedID, &Profile::id); pinned != profiles.end())
      return &*pinned;
  const auto fitting = std::ranges::find(profiles, std::optional(displayContext(displays)), &Profile::trigger);
  if (fitting != profiles.end()) return &*fitting;
  return profiles.empty() ? nullptr : &profiles.front();
}

bool addWidget(std::vector<Profile>& profiles, std::string_view widget, const UUID& profileID,
               const std::optional<UUID>& before) {
  return insertItem(profiles, DockItem::holding(widget), profileID, before);
}

bool insertItem(std::vector<Profile>& profiles, DockItem item, const UUID& profileID,
                const std::optional<UUID>& before) {
  Profile* profile = profileWith(profiles, profileID);
  if (!profile) return false;
  if (item.widget && profile->contains(*item.widget)) return true;
  inheritSettings(item, *profile);
  profile->insert(std::move(item), before);
  return true;
}

bool removeWidget(std::vector<Profile>& profiles, std::string_view widget, const UUID& profileID) {
  Profile* profile = profileWith(profiles, profileID);
  if (!profile) return false;
  std::erase_if(profile->items, [&](const DockItem& item) { return item.widget == widget; });
  return true;
}

bool moveItem(std::vector<Profile>& profiles, const UUID& itemID, const UUID& targetID, const UUID& profileID) {
  Profile* profile = profileWith(profiles, profileID);
  if (!profile) return false;
  profile->move(itemID, targetID);
  return true;
}

bool removeItem(std::vector<Profile>& profiles, const UUID& itemID, const UUID& profileID) {
  Profile* profile = profileWith(profiles, profileID);
  if (!profile) return false;
  if (const auto found = positionOf(profile->items, itemID); found != profile->items.end()) profile->items.erase(found);
  return true;
}

UUID addProfile(std::vector<Profile>& profiles, std::string name, std::optional<DisplayContext> trigger) {
  return profiles.emplace_back(profileHolding(std::move(name), trigger, initialWidgets)).id;
}

bool deleteProfile(std::vector<Profile>& profiles, const UUID& id) {
  if (profiles.size() < 2) return false;
  return std::erase_if(profiles, [&](const Profile& profile) { return profile.id == id; }) > 0;
}

bool renameProfile(std::vector<Profile>& profiles, const UUID& id, std::string_view name) {
  Profile* profile = profileWith(profiles, id);
  const auto text = trimmed(name);
  if (!profile || text.empty()) return false;
  profile->name = text;
  return true;
}

std::optional<UUID> duplicateProfile(std::vector<Profile>& profiles, const UUID& id) {
  const auto original = positionOf(profiles, id);
  if (original == profiles.end()) return std::nullopt;
  Profile copy = *original;
  copy.id = UUID::random();
  copy.trigger = std::nullopt;
  for (DockItem& item : copy.items) item.id = UUID::random();
  for (int number = 2; isNameTaken(profiles, copy.name); ++number)
    copy.name = original->name + ' ' + std::to_string(number);
  return profiles.insert(std::next(original), std::move(copy))->id;
}

bool setTrigger(std::vector<Profile>& profiles, const UUID& id, std::optional<DisplayContext> trigger) {
  Profile* profile = profileWith(profiles, id);
  if (!profile) return false;
  profile->trigger = trigger;
  return true;
}

bool stepProfile(std::vector<Profile>& profiles, const UUID& id, int step) {
  const Profile* other = stepped(profiles, id, step);
  if (!other) return false;
  moveOnto(profiles, id, UUID(other->id));
  return true;
}

std::vector<DockItem> itemsWhileHeld(std::vector<DockItem> items, const DockItem& held,
                                     const std::optional<UUID>& before) {
  Profile shown;
  shown.items = std::move(items);
  std::erase_if(shown.items, [&](const DockItem& item) { return item.id == held.id; });
  shown.insert(held, before);
  return std::move(shown.items);
}

std::optional<UUID> moveTarget(const Profile& profile, const UUID& itemID, const std::optional<UUID>& before) {
  const auto item = positionOf(profile.items, itemID);
  if (item == profile.items.end()) return std::nullopt;
  auto target = before ? positionOf(profile.items, *before) : profile.items.end();
  // Behind the target on the way to the end, in front of it on the way to the start.
  if (target > item) --target;
  return target == item ? std::nullopt : std::optional(target->id);
}

std::optional<UUID> neighbour(const Profile& profile, const UUID& itemID, int step) {
  const DockItem* other = stepped(profile.items, itemID, step);
  return other ? std::optional(other->id) : std::nullopt;
}

bool undo(std::vector<Profile>& profiles, const BarEdit& edit) {
  Profile* profile = profileWith(profiles, edit.profile);
  if (!profile) return false;
  const auto holds = [](const std::vector<DockItem>& items, const DockItem& item) {
    return std::ranges::find(items, item.id, &DockItem::id) != items.end();
  };
  Profile undone = *profile;
  auto& items = undone.items;
  std::erase_if(items, [&](const DockItem& item) { return holds(edit.after, item) && !holds(edit.before, item); });
  auto place = items.begin();
  for (const DockItem& item : edit.before) {
    if (const auto found = positionOf(items, item.id); found != items.end())
      place = std::next(found);
    else if (!holds(edit.after, item) && !(item.widget && undone.contains(*item.widget)))
      place = std::next(items.insert(place, item));
  }
  if (std::ranges::is_permutation(edit.before, edit.after, {}, &DockItem::id, &DockItem::id)) {
    // Those that were there take their places among themselves; what others have added stays where it is.
    std::vector<DockItem> ordered;
    for (const DockItem& item : edit.before)
      if (const auto found = positionOf(items, item.id); found != items.end()) ordered.push_back(*found);
    auto next = ordered.begin();
    for (DockItem& item : items)
      if (holds(edit.before, item)) item = *next++;
  }
  if (undone == *profile) return false;
  *profile = std::move(undone);
  return true;
}

UpdatedProfiles updated(std::vector<Profile> loaded, const std::optional<std::vector<std::string>>& dockWidgets) {
  UpdatedProfiles result{.profiles = std::move(loaded)};
  const auto holdsWidget = [](const Profile& profile) {
    return std::ranges::any_of(profile.items, [](const DockItem& item) { return item.widget.has_value(); });
  };
  if (std::ranges::none_of(result.profiles, holdsWidget)) {
    const auto defaults = defaultWidgets();
    const auto widgets = dockWidgets ? *dockWidgets : std::vector<std::string>(defaults.begin(), defaults.end());
    for (Profile& profile : result.profiles)
      for (const auto& widget : widgets) profile.items.push_back(DockItem::holding(widget));
    result.isConverted = result.isChanged = true;
  }
  for (Profile& profile : result.profiles)
    if (std::erase_if(profile.items, [](const DockItem& item) { return item.bundleID.has_value(); }) > 0)
      result.isChanged = true;
  return result;
}

}  // namespace ambrel
