#pragma once
// The first release kept its data in a sandbox container; this carries them over, once.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/UserDefaults.h"

namespace ambrel {

struct MigrationPlaces {
  std::filesystem::path home;
  // Our own folder "Ambrel".
  std::filesystem::path dataFolder;
  // Of the program that runs.
  std::string bundleIdentifier;
};

// Copies the container's folder "Ambrel" unless ours exists, and those of the old defaults whose key is not taken,
// except for bookmarks and marks of earlier migrations. The old defaults are "Preferences/com.ambrel.app.json" in the
// container, a document like ours, else "Preferences/com.ambrel.app.plist" as XML; a binary one is ignored.
// It is done at the first call, whatever could be copied; gives the lines to log.
std::vector<std::string> migrateFromSandbox(const MigrationPlaces& places, UserDefaults& defaults);

}  // namespace ambrel
