#pragma once
// Profiles: named lists of widgets for the bar, and which of them is active on the connected displays.

#include <filesystem>
#include <map>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/EnumText.h"
#include "core/base/UUID.h"
#include "core/base/UserDefaults.h"

namespace ambrel {

enum class DisplayContext { builtinOnly, external };

struct DisplaySnapshot {
  std::string name;
  bool isBuiltin = false;
  friend bool operator==(const DisplaySnapshot&, const DisplaySnapshot&) = default;
};

// What is chosen for one slot alone, by the keys that the defaults have for all of them, such as "gitStatusFolder". No
// value: the usual one is chosen, whatever the defaults say.
using SlotSettings = std::map<std::string, std::optional<DefaultsValue>>;

// One slot of a profile.
struct DockItem {
  UUID id;
  // An application's identifier: a historic kind of slot, removed when the profiles are loaded.
  std::optional<std::string> bundleID;
  // The name of a DockWidget. One that this version does not know stays as it is.
  std::optional<std::string> widget;
  // Keys that this version does not know stay, too.
  SlotSettings settings = {};

  // A new slot with an id of its own.
  static DockItem holding(std::string_view widget);
  friend bool operator==(const DockItem&, const DockItem&) = default;
};

struct Profile {
  UUID id;
  std::string name;
  // When this profile is chosen by itself; absent: never.
  std::optional<DisplayContext> trigger;
  // In bar order.
  std::vector<DockItem> items;

  // The two built-in profiles, "Laptop" and "Desk", with ids of their own at each call.
  static std::vector<Profile> defaults();

  bool contains(std::string_view widget) const;
  // In front of the item with that id; at the end when there is none.
  void insert(DockItem item, const std::optional<UUID>& before = std::nullopt);
  // Onto the place that the target had: an item that moves towards the end comes to stand behind the target,
  // one that moves towards the start in front of it. Nothing happens when either is missing.
  void move(const UUID& itemID, const UUID& targetID);

  friend bool operator==(const Profile&, const Profile&) = default;
};

// What a new profile begins with, and an old installation that never chose.
std::span<const std::string_view> defaultWidgets();

// External as soon as one display is not built in; no displays count as built in.
DisplayContext displayContext(std::span<const DisplaySnapshot> displays);

// The pinned profile; else the first whose trigger fits the displays; else the first. Null when there are none.
const Profile* resolve(std::span<const Profile> profiles, std::span<const DisplaySnapshot> displays,
                       const std::optional<UUID>& pinnedID);

// Edits of a list of profiles. False, and nothing done, when no profile has the id; after true the list is to be saved.

// Adds nothing to a profile that holds the widget already. Tiles that show the same thing, as those of the weather do,
// go on doing so: the new one takes over what is chosen for the others.
bool addWidget(std::vector<Profile>& profiles, std::string_view widget, const UUID& profileID,
               const std::optional<UUID>& before = std::nullopt);
// As addWidget, for a slot that is made already.
bool insertItem(std::vector<Profile>& profiles, DockItem item, const UUID& profileID,
                const std::optional<UUID>& before = std::nullopt);
// Every item with that widget.
bool removeWidget(std::vector<Profile>& profiles, std::string_view widget, const UUID& profileID);
bool moveItem(std::vector<Profile>& profiles, const UUID& itemID, const UUID& targetID, const UUID& profileID);
bool removeItem(std::vector<Profile>& profiles, const UUID& itemID, const UUID& profileID);
// At the end, with the default widgets; gives its id.
UUID addProfile(std::vector<Profile>& profiles, std::string name, std::optional<DisplayContext> trigger);
// The last profile stays: false.
bool deleteProfile(std::vector<Profile>& profiles, const UUID& id);
// White space around a name does not count; an empty one and an unknown id change nothing.
bool renameProfile(std::vector<Profile>& profiles, const UUID& id, std::string_view name);
// Behind the original, with ids of its own, called "NAME 2" or the next number that is free, and without a trigger: two
// profiles with the same one would leave the copy unused. Gives its id.
std::optional<UUID> duplicateProfile(std::vector<Profile>& profiles, const UUID& id);
bool setTrigger(std::vector<Profile>& profiles, const UUID& id, std::optional<DisplayContext> trigger);
// So many places towards the end, or towards the start below zero; false beyond the ends.
bool stepProfile(std::vector<Profile>& profiles, const UUID& id, int step);

// What a tile shows.

// Every key that slots have a choice for.
std::vector<std::string_view> slotSettingKeys();
// What is chosen in the profile for a key: by the first slot of a widget that the key is for and that has it. Null when
// none has; the defaults then decide. Lives as long as the slot's settings.
const std::optional<DefaultsValue>* slotSetting(const Profile& profile, std::string_view key);
// Whether the profile has a slot of a widget that the key is for.
bool hasSlotFor(const Profile& profile, std::string_view key);
// Those that are chosen together with the key, itself among them, such as a title and its date.
std::vector<std::string_view> keysChosenWith(std::string_view key);
// For every slot of the profile that the key is for. Slots of other profiles without a choice keep what they show,
// which is `latest`; but where nobody has chosen yet what a tile has to be told, such as its repository, they are to
// follow the first choice. False when nothing differs.
bool setSlotSetting(std::vector<Profile>& profiles, const UUID& profileID, std::string_view key,
                    const std::optional<DefaultsValue>& value, const DefaultsDictionary& latest);

// A tile that is being dragged.

// A slot that the widget has already, or a new one, held over the bar in front of the slot `before` (absent: at the
// end). Gives what the bar shows meanwhile.
std::vector<DockItem> itemsWhileHeld(std::vector<DockItem> items, const DockItem& held,
                                     const std::optional<UUID>& before);
// The slot onto which `move` has to take the item to put it in front of `before` (absent: at the end). Absent: it is
// there already, or is no item of the profile.
std::optional<UUID> moveTarget(const Profile& profile, const UUID& itemID, const std::optional<UUID>& before);
// That `step` places further; absent beyond the ends.
std::optional<UUID> neighbour(const Profile& profile, const UUID& itemID, int step);

// Undo.

// What an edit has made of a profile's items.
struct BarEdit {
  UUID profile;
  std::vector<DockItem> before, after;
  friend bool operator==(const BarEdit&, const BarEdit&) = default;
};
// Takes an edit back, also where the profile has been edited since: what it removed is there again behind its old
// neighbour, what it added is not, what it moved is in its old place, and all else stays. False when the profile is no
// longer there or nothing differs.
bool undo(std::vector<Profile>& profiles, const BarEdit& edit);

// What an older version has left behind, brought up to date.
struct UpdatedProfiles {
  std::vector<Profile> profiles;
  // The list was made from the global widget list under the defaults key "dockWidgets", which has served its purpose.
  bool isConverted = false;
  // Differs from what is stored, so it is to be saved.
  bool isChanged = false;
};
// `dockWidgets`: the old global list; absent, the default widgets replace it. It counts only while no item
// of any profile holds a widget. Slots that hold an application are removed.
UpdatedProfiles updated(std::vector<Profile> loaded, const std::optional<std::vector<std::string>>& dockWidgets);

// The array in profiles.json.

struct LoadedProfiles {
  std::vector<Profile> profiles;
  // Why the defaults replace a file that is there: the line to log. The file stays as it is.
  std::optional<std::string> problem;
};
// The defaults for a file that does not exist, cannot be read or does not decode. Keys that are not known are
// passed over; a key that is missing or of another type makes the whole file count as unreadable, but for "settings" of
// a slot, which then count as none.
LoadedProfiles loadProfiles(const std::filesystem::path& file);
// A file that is there and cannot be read is set aside first: gives where it is now. Throws FileError; the old file
// stays.
std::optional<std::filesystem::path> saveProfiles(const std::filesystem::path& file,
                                                  const std::vector<Profile>& profiles);

// Absent optionals are left out. Reading throws DecodingError or the library's own exception.
void to_json(nlohmann::json& json, const DockItem& item);
void from_json(const nlohmann::json& json, DockItem& item);
void to_json(nlohmann::json& json, const Profile& profile);
void from_json(const nlohmann::json& json, Profile& profile);

}  // namespace ambrel
