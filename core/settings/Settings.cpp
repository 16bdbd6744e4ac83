#include "core/settings.h"

#include "core/base/EnumText.h"

namespace ambrel {
namespace {

void read(const UserDefaults& defaults, const char* key, bool& field) { field = defaults.boolean(key).value_or(field); }

void read(const UserDefaults& defaults, const char* key, std::int64_t& field) {
  field = defaults.integer(key).value_or(field);
}

template <typename E>
requires std::is_enum_v<E>
void read(const UserDefaults& defaults, const char* key, E& field) {
  field = fromName<E>(defaults.string(key).value_or("")).value_or(field);
}

void read(const UserDefaults& defaults, const char* key, std::vector<std::string>& field) {
  if (auto stored = defaults.strings(key)) field = std::move(*stored);
}

void read(const UserDefaults& defaults, const char* key, std::set<BuddyCategory>& field) {
  const auto stored = defaults.strings(key);
  if (!stored) return;
  field.clear();
  for (const auto& name : *stored)
    if (const auto category = fromName<BuddyCategory>(name)) field.insert(*category);
}

}  // namespace

SettingsValues loadSettings(const UserDefaults& defaults) {
  SettingsValues values;
  read(defaults, "dockEdge", values.dockEdge);
  read(defaults, "barAlwaysVisible", values.barAlwaysVisible);
  read(defaults, "barPeeksForContext", values.barPeeksForContext);
  read(defaults, "shelfOpensOnHover", values.shelfOpensOnHover);
  read(defaults, "clipboardPreviewInBar", values.clipboardPreviewInBar);
  read(defaults, "clipboardEnabled", values.clipboardEnabled);
  read(defaults, "clipboardLimit", values.clipboardLimit);
  read(defaults, "clipboardMaxAgeDays", values.clipboardMaxAgeDays);
  read(defaults, "clipboardForgetSensitive", values.clipboardForgetSensitive);
  read(defaults, "clipboardTextMegabytes", values.clipboardTextMegabytes);
  read(defaults, "clipboardPictureMegabytes", values.clipboardPictureMegabytes);
  read(defaults, "clipboardListMegabytes", values.clipboardListMegabytes);
  read(defaults, "ignoredBundleIDs", values.ignoredBundleIDs);
  read(defaults, "agentsEnabled", values.agentsEnabled);
  read(defaults, "agentNotifications", values.agentNotifications);
  read(defaults, "buddyLevel", values.buddyLevel);
  read(defaults, "buddyCategories", values.buddyCategories);
  read(defaults, "quietHoursOn", values.quietHoursOn);
  read(defaults, "quietStartHour", values.quietStartHour);
  read(defaults, "quietEndHour", values.quietEndHour);
  read(defaults, "claudeBudgetTokens", values.claudeBudgetTokens);
  read(defaults, "buddyOnlyUnfocusedAgents", values.buddyOnlyUnfocusedAgents);
  return values;
}

DefaultsValue storedForm(bool value) { return {value}; }
DefaultsValue storedForm(std::int64_t value) { return {value}; }
DefaultsValue storedForm(DockEdge value) { return {std::string(nameOf(value))}; }
DefaultsValue storedForm(BuddyLevel value) { return {std::string(nameOf(value))}; }

DefaultsValue storedForm(const std::set<BuddyCategory>& value) {
  DefaultsArray names;
  for (const BuddyCategory category : value) names.push_back({std::string(nameOf(category))});
  return {std::move(names)};
}

DefaultsValue storedForm(const std::vector<std::string>& value) {
  DefaultsArray texts;
  for (const auto& text : value) texts.push_back({text});
  return {std::move(texts)};
}

}  // namespace ambrel
