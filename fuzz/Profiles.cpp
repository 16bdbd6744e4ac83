// A profiles.json of any bytes: it is refused, or it goes through a file and back unchanged, and the edits hold.

#include "core/profiles.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/base/JSON.h"

using namespace ambrel;

namespace {

void check(bool holds) {
  if (!holds) __builtin_trap();
}

bool holdsApplication(const Profile& profile) {
  return std::ranges::any_of(profile.items, [](const DockItem& item) { return item.bundleID.has_value(); });
}

void checkEdits(std::vector<Profile> profiles) {
  const UUID id = profiles.front().id;
  const auto& items = profiles.front().items;
  if (items.size() > 1) {
    const std::size_t before = items.size();
    check(moveItem(profiles, items.front().id, items.back().id, id));
    check(profiles.front().items.size() == before);
  }
  check(addWidget(profiles, "cpu", id));
  check(profiles.front().contains("cpu"));
  check(removeWidget(profiles, "cpu", id));
  check(!profiles.front().contains("cpu"));
  const UUID added = addProfile(profiles, "new", std::nullopt);
  check(resolve(profiles, {}, added)->id == added);
  check(deleteProfile(profiles, added));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto json = parseJSON(std::string_view(reinterpret_cast<const char*>(data), size));
  if (!json) return 0;
  std::vector<Profile> profiles;
  try {
    profiles = json->get<std::vector<Profile>>();
  } catch (const DecodingError&) {
    return 0;
  } catch (const JSON::exception&) {
    return 0;
  }
  const auto again = parseJSON(prettyJSON(JSON(profiles)));
  check(again && again->get<std::vector<Profile>>() == profiles);
  const auto brought = updated(profiles, std::nullopt);
  check(std::ranges::none_of(brought.profiles, holdsApplication));
  check(brought.isChanged || brought.profiles == profiles);
  if (!brought.profiles.empty()) checkEdits(brought.profiles);
  return 0;
}
