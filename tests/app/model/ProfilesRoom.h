#pragma once
// The profiles on a home of their own, with a licence for everything and no screens.

#include "app/model/AppModel.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/profiles/Tiles.h"

namespace ambrel {

// The active profile holds these widgets and nothing else, and is the only one.
inline void putOnBar(AppModel& model, const std::vector<std::string>& widgets) {
  Profile profile = *model.activeProfile();
  profile.items = holding(widgets);
  model.setProfiles({profile});
}

struct ProfilesRoom {
  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  LicenseManager license;
  AppModel model{folder / "profiles.json", defaults, license, [] { return std::vector<DisplaySnapshot>(); }};
};

}  // namespace ambrel
