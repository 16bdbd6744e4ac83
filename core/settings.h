#pragma once
// The choices that the whole program shares, as they are stored under the keys of the user defaults.

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "core/base/UserDefaults.h"
#include "core/buddy/BuddyChoices.h"
#include "core/dock/DockEdge.h"

namespace ambrel {

// Each field is stored under its own name.
struct SettingsValues {
  DockEdge dockEdge = DockEdge::bottom;
  bool barAlwaysVisible = false;
  bool barPeeksForContext = true;
  bool shelfOpensOnHover = true;
  bool clipboardPreviewInBar = false;
  bool clipboardEnabled = true;
  std::int64_t clipboardLimit = 300;
  std::int64_t clipboardMaxAgeDays = 0;  // 0: clips never expire
  bool clipboardForgetSensitive = true;
  // The largest copy that is kept, in MiB.
  std::int64_t clipboardTextMegabytes = 32;
  std::int64_t clipboardPictureMegabytes = 64;
  std::int64_t clipboardListMegabytes = 4;
  // Programs whose copies are not kept.
  std::vector<std::string> ignoredBundleIDs{"com.1password.1password", "com.agilebits.onepassword7",
                                            "com.bitwarden.desktop", "com.apple.keychainaccess"};
  bool agentsEnabled = true;
  bool agentNotifications = true;
  BuddyLevel buddyLevel = BuddyLevel::all;
  std::set<BuddyCategory> buddyCategories{BuddyCategory::agents, BuddyCategory::meetings, BuddyCategory::limits,
                                          BuddyCategory::system, BuddyCategory::health};
  bool quietHoursOn = true;
  std::int64_t quietStartHour = 22;
  std::int64_t quietEndHour = 8;
  std::int64_t claudeBudgetTokens = 0;
  bool buddyOnlyUnfocusedAgents = true;

  friend bool operator==(const SettingsValues&, const SettingsValues&) = default;
};

// A key that is absent or holds another type, or a name that is no case, gives the default. Of the stored
// categories those that are known count: an empty array means none.
SettingsValues loadSettings(const UserDefaults& defaults);

// The forms in which the fields are stored.
DefaultsValue storedForm(bool value);
DefaultsValue storedForm(std::int64_t value);
DefaultsValue storedForm(DockEdge value);
DefaultsValue storedForm(BuddyLevel value);
DefaultsValue storedForm(const std::set<BuddyCategory>& value);
DefaultsValue storedForm(const std::vector<std::string>& value);

}  // namespace ambrel
