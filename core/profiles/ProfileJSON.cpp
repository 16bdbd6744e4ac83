#include "core/base/DefaultsJSON.h"
#include "core/base/JSON.h"
#include "core/base/JSONFileStore.h"
#include "core/profiles.h"

namespace ambrel {
namespace {

using Store = JSONFileStore<std::vector<Profile>>;

template <typename T>
std::optional<T> optionalAt(const JSON& json, const char* key) {
  const auto found = json.find(key);
  if (found == json.end() || found->is_null()) return std::nullopt;
  return found->get<T>();
}

}  // namespace

void to_json(JSON& json, const DockItem& item) {
  json = {{"id", item.id}};
  if (item.bundleID) json["bundleID"] = *item.bundleID;
  if (item.widget) json["widget"] = *item.widget;
  for (const auto& [key, value] : item.settings) json["settings"][key] = value ? defaultsJSON(*value) : JSON();
}

void from_json(const JSON& json, DockItem& item) {
  item.id = json.at("id").get<UUID>();
  item.bundleID = optionalAt<std::string>(json, "bundleID");
  item.widget = optionalAt<std::string>(json, "widget");
  item.settings.clear();
  if (const JSON* settings = objectField(json, "settings"))
    for (const auto& [key, value] : settings->items()) item.settings[key] = defaultsValue(value);
}

void to_json(JSON& json, const Profile& profile) {
  json = {{"id", profile.id}, {"name", profile.name}, {"items", profile.items}};
  if (profile.trigger) json["trigger"] = nameOf(*profile.trigger);
}

void from_json(const JSON& json, Profile& profile) {
  profile.id = json.at("id").get<UUID>();
  profile.name = json.at("name").get<std::string>();
  profile.trigger = std::nullopt;
  if (const auto trigger = optionalAt<std::string>(json, "trigger")) {
    profile.trigger = fromName<DisplayContext>(*trigger);
    if (!profile.trigger) throw DecodingError("unknown trigger of a profile: " + *trigger);
  }
  profile.items = json.at("items").get<std::vector<DockItem>>();
}

LoadedProfiles loadProfiles(const std::filesystem::path& file) {
  try {
    auto stored = Store{file}.load();
    return {.profiles = stored ? std::move(*stored) : Profile::defaults(), .problem = std::nullopt};
  } catch (const std::exception& error) {
    return {.profiles = Profile::defaults(),
            .problem = std::string("cannot read profiles, using defaults: ") + error.what()};
  }
}

std::optional<std::filesystem::path> saveProfiles(const std::filesystem::path& file,
                                                  const std::vector<Profile>& profiles) {
  std::optional<std::filesystem::path> kept;
  const auto status = fileStatus(file);
  if (status && status->isRegular && loadProfiles(file).problem) kept = setAside(file, ".unreadable");
  Store{file}.save(profiles);
  return kept;
}

}  // namespace ambrel
