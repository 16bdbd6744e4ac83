#include "core/settings/SandboxMigration.h"

#include "core/base/Files.h"
#include "core/settings/PropertyList.h"

namespace ambrel {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view legacyIdentifier = "com.ambrel.app";
constexpr auto doneKey = "migratedFromLegacyBundleID";

// Whole or not at all: a copy that stops half-way must not pass for the user's data.
void copyFolder(const fs::path& source, const fs::path& target) {
  makeFolders(target.parent_path());
  auto unfinished = target;
  unfinished += ".unfinished";
  fs::remove_all(unfinished);
  fs::copy(source, unfinished, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
  fs::permissions(unfinished, fs::perms::owner_all);
  fs::rename(unfinished, target);
}

DefaultsDictionary oldDefaults(const fs::path& library) {
  const fs::path folder = library / "Preferences";
  const UserDefaults document(folder / (std::string(legacyIdentifier) + ".json"));
  if (!document.all().empty()) return document.all();
  const auto bytes = readFile(folder / (std::string(legacyIdentifier) + ".plist"), 1 << 24);
  return bytes ? parsePropertyList(*bytes).value_or(DefaultsDictionary{}) : DefaultsDictionary{};
}

// Bookmarks of a sandbox do not outlive it.
bool staysBehind(std::string_view key) {
  return key.ends_with("Bookmark") || key.starts_with("cleanupBookmark.") || key.starts_with("migrated");
}

}  // namespace

std::vector<std::string> migrateFromSandbox(const MigrationPlaces& places, UserDefaults& defaults) {
  if (defaults.boolean(doneKey) == true || places.bundleIdentifier == legacyIdentifier) return {};
  std::vector<std::string> problems;
  const fs::path library = places.home / "Library/Containers" / legacyIdentifier / "Data/Library";
  const fs::path source = library / "Application Support/Ambrel";
  try {
    if (fs::exists(source) && !fs::exists(places.dataFolder)) copyFolder(source, places.dataFolder);
  } catch (const std::exception& error) {
    problems.push_back(std::string("cannot copy data from the sandbox container: ") + error.what());
  }
  DefaultsDictionary taken{{doneKey, {true}}};
  for (auto& [key, value] : oldDefaults(library))
    if (!staysBehind(key) && !defaults.object(key)) taken.emplace(key, value);
  try {
    defaults.set(std::move(taken));
  } catch (const std::exception& error) {
    problems.push_back(std::string("cannot save settings: ") + error.what());
  }
  return problems;
}

}  // namespace ambrel
