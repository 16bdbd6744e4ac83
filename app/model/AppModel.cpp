#include "app/model/AppModel.h"

#include <QQmlEngine>
#include <algorithm>

#include "app/base/Log.h"
#include "app/base/StoredValue.h"

namespace ambrel {
namespace {

constexpr std::size_t mostEdits = 50;

QString text(const UUID& id) { return QString::fromStdString(id.text()); }

std::optional<UUID> parsed(const QString& id) { return UUID::parse(id.toStdString()); }

QString fileName(const std::filesystem::path& file) { return toQString(file.filename().string()); }

}  // namespace

AppModel::AppModel(std::filesystem::path store, UserDefaults& defaults, LicenseManager& license,
                   ListDisplays listDisplays, QObject* parent)
    : QObject(parent),
      store_(std::move(store)),
      watcher_(store_),
      defaults_(defaults),
      license_(license),
      listDisplays_(std::move(listDisplays)) {
  // A property of this type would otherwise fall to the script engine's collector.
  QQmlEngine::setObjectOwnership(&profileList_, QQmlEngine::CppOwnership);
  connect(&write_, &PatientWrite::problemFound, this, &AppModel::problemFound);
  load();
  refreshDisplays();
  update();
  connect(&license_, &LicenseManager::changed, this, &AppModel::update);
}

void AppModel::load() {
  stored_ = loadFile().profiles;
  auto brought = updated(stored_, defaults_.strings("dockWidgets"));
  profiles_ = std::move(brought.profiles);
  if (brought.isChanged) write_.now();
  if (brought.isConverted) removeStored(defaults_, "dockWidgets");
}

LoadedProfiles AppModel::loadFile() {
  LoadedProfiles loaded = loadProfiles(store_);
  if (loaded.problem && loaded.problem != problem_) {
    logLine(*loaded.problem);
    write_.tell(tr("The list of profiles cannot be read"),
                tr("%1 stays as it is, and a copy is kept when you change something here.").arg(fileName(store_)));
  }
  problem_ = loaded.problem;
  return loaded;
}

void AppModel::save() {
  const auto kept = saveProfiles(store_, profiles_);
  stored_ = profiles_;
  problem_.reset();
  if (kept)
    write_.tell(tr("The list of profiles has a new file"),
                tr("What was in the file is kept as %1").arg(fileName(*kept)));
}

void AppModel::followFile() {
  connect(&watcher_, &FollowedFile::changed, this, &AppModel::takeOver);
  try {
    makeFolders(store_.parent_path());
    watcher_.start();
  } catch (const std::exception& error) {
    logLine(std::string("cannot follow the profiles: ") + error.what());
  }
}

void AppModel::takeOver() {
  std::error_code error;
  if (!std::filesystem::exists(store_, error)) return;
  auto loaded = loadFile();
  // What was there before is no news, while a change of ours could not be written.
  if (loaded.problem || loaded.profiles.empty() || loaded.profiles == stored_) return;
  stored_ = loaded.profiles;
  if (loaded.profiles == profiles_) return;
  profiles_ = updated(std::move(loaded.profiles), std::nullopt).profiles;
  update();
  Q_EMIT profilesChanged();
}

void AppModel::setProfiles(std::vector<Profile> profiles) {
  if (profiles != profiles_) edited(std::move(profiles));
}

void AppModel::edited(std::vector<Profile> profiles) {
  const bool isChanged = profiles != profiles_;
  profiles_ = std::move(profiles);
  write_.now();
  if (!isChanged) return;
  update();
  Q_EMIT profilesChanged();
}

std::optional<UUID> AppModel::resolvedID() const {
  const Profile* first = profiles_.empty() ? nullptr : &profiles_.front();
  const Profile* resolved =
      license_.allows(ProFeature::profileSwitching) ? resolve(profiles_, displays_, pinnedProfileID_) : first;
  return resolved ? std::optional(resolved->id) : std::nullopt;
}

void AppModel::activate() {
  if (resolvedID() == activeID_ || isActivating_) return;
  isActivating_ = true;
  Q_EMIT activeProfileAboutToChange();
  isActivating_ = false;
  activeID_ = resolvedID();
}

void AppModel::update() {
  activate();
  const Profile* active = activeProfile();
  std::vector<ProfileRow> rows;
  for (const Profile& profile : profiles_) {
    const auto trigger = profile.trigger ? nameOf(*profile.trigger) : std::string_view();
    rows.push_back({.profile = text(profile.id),
                    .name = QString::fromStdString(profile.name),
                    .trigger = QString::fromUtf8(trigger.data(), static_cast<qsizetype>(trigger.size())),
                    .tileCount = static_cast<int>(profile.items.size()),
                    .isActive = &profile == active,
                    .isPinned = profile.id == pinnedProfileID_});
  }
  profileList_.setRows(rows);
  const auto shown = active ? std::optional(*active) : std::nullopt;
  if (shown == shownProfile_) return;
  shownProfile_ = shown;
  Q_EMIT activeProfileChanged();
}

void AppModel::setPinnedProfileID(const std::optional<UUID>& id) {
  if (id == pinnedProfileID_) return;
  pinnedProfileID_ = id;
  update();
  Q_EMIT pinnedProfileIDChanged();
}

const Profile* AppModel::activeProfile() const { return activeID_ ? profileWith(*activeID_) : nullptr; }

const Profile* AppModel::profileWith(const UUID& id) const {
  const auto found = std::ranges::find(profiles_, id, &Profile::id);
  return found == profiles_.end() ? nullptr : &*found;
}

bool AppModel::edit(auto change) {
  auto profiles = profiles_;
  if (!change(profiles)) return false;
  edited(std::move(profiles));
  return true;
}

std::optional<BarEdit> AppModel::editTiles(const UUID& profileID, auto change) {
  const Profile* profile = profileWith(profileID);
  if (!profile) return std::nullopt;
  // The ids may be those of the list that the edit replaces.
  BarEdit made{.profile = profileID, .before = profile->items, .after = {}};
  if (!edit(change)) return std::nullopt;
  made.after = profileWith(made.profile)->items;
  if (made.after == made.before) return std::nullopt;
  if (edits_.size() == mostEdits) edits_.erase(edits_.begin());
  edits_.push_back(made);
  Q_EMIT canUndoChanged();
  return made;
}

void AppModel::undo(const BarEdit& made) {
  if (std::erase(edits_, made) > 0) Q_EMIT canUndoChanged();
  if (edit([&](auto& profiles) { return ambrel::undo(profiles, made); })) Q_EMIT undone();
}

void AppModel::undo() {
  if (!edits_.empty()) undo(BarEdit(edits_.back()));
}

void AppModel::addWidget(const std::string& widget, const UUID& profileID, const std::optional<UUID>& beforeItemID) {
  editTiles(profileID, [&](auto& profiles) { return ambrel::addWidget(profiles, widget, profileID, beforeItemID); });
}

void AppModel::removeWidget(const std::string& widget, const UUID& profileID) {
  editTiles(profileID, [&](auto& profiles) { return ambrel::removeWidget(profiles, widget, profileID); });
}

void AppModel::moveItem(const UUID& itemID, const UUID& targetID, const UUID& profileID) {
  editTiles(profileID, [&](auto& profiles) { return ambrel::moveItem(profiles, itemID, targetID, profileID); });
}

void AppModel::removeItem(const UUID& itemID, const UUID& profileID) {
  const UUID removed = itemID;
  const auto made =
      editTiles(profileID, [&](auto& profiles) { return ambrel::removeItem(profiles, itemID, profileID); });
  if (made) Q_EMIT itemRemoved(*std::ranges::find(made->before, removed, &DockItem::id), *made);
}

void AppModel::placeItem(const DockItem& item, const UUID& profileID, const std::optional<UUID>& before) {
  const Profile* profile = profileWith(profileID);
  if (!profile) return;
  if (std::ranges::find(profile->items, item.id, &DockItem::id) == profile->items.end())
    editTiles(profileID, [&](auto& profiles) { return ambrel::insertItem(profiles, item, profileID, before); });
  else if (const auto target = moveTarget(*profile, item.id, before))
    moveItem(item.id, *target, profileID);
}

void AppModel::setSlotSetting(std::string_view key, const std::optional<DefaultsValue>& value) {
  // One that was deleted keeps nothing, but the others go on showing what they show.
  if (activeID_) setSlotSetting(*activeID_, key, value);
}

void AppModel::setSlotSetting(const UUID& profileID, std::string_view key, const std::optional<DefaultsValue>& value) {
  edit([&](auto& profiles) { return ambrel::setSlotSetting(profiles, profileID, key, value, defaults_.all()); });
}

UUID AppModel::addProfile(std::string name, std::optional<DisplayContext> trigger) {
  UUID id;
  edit([&](auto& profiles) {
    id = ambrel::addProfile(profiles, std::move(name), trigger);
    return true;
  });
  return id;
}

void AppModel::deleteProfile(const UUID& id) {
  if (edit([&](auto& profiles) { return ambrel::deleteProfile(profiles, id); }) && pinnedProfileID_ == id)
    setPinnedProfileID(std::nullopt);
}

void AppModel::renameProfile(const UUID& id, const std::string& name) {
  edit([&](auto& profiles) { return ambrel::renameProfile(profiles, id, name); });
}

void AppModel::refreshDisplays() {
  auto displays = listDisplays_();
  if (displays.empty() || displays == displays_) return;
  displays_ = std::move(displays);
  update();
  Q_EMIT displaysChanged();
}

void AppModel::addWidget(const QString& widget, const QString& profileID, const QString& beforeItemID) {
  if (const auto profile = parsed(profileID)) addWidget(widget.toStdString(), *profile, parsed(beforeItemID));
}

void AppModel::removeWidget(const QString& widget, const QString& profileID) {
  if (const auto profile = parsed(profileID)) removeWidget(widget.toStdString(), *profile);
}

void AppModel::moveItem(const QString& itemID, const QString& targetID, const QString& profileID) {
  const auto item = parsed(itemID), target = parsed(targetID), profile = parsed(profileID);
  if (item && target && profile) moveItem(*item, *target, *profile);
}

void AppModel::removeItem(const QString& itemID, const QString& profileID) {
  const auto item = parsed(itemID), profile = parsed(profileID);
  if (item && profile) removeItem(*item, *profile);
}

QString AppModel::addProfile(const QString& name, const QString& trigger) {
  return text(addProfile(name.toStdString(), fromName<DisplayContext>(trigger.toStdString())));
}

void AppModel::deleteProfile(const QString& id) {
  if (const auto profile = parsed(id)) deleteProfile(*profile);
}

void AppModel::renameProfile(const QString& id, const QString& name) {
  if (const auto profile = parsed(id)) renameProfile(*profile, name.toStdString());
}

void AppModel::duplicateProfile(const QString& id) {
  if (const auto profile = parsed(id))
    edit([&](auto& profiles) { return ambrel::duplicateProfile(profiles, *profile).has_value(); });
}

void AppModel::setTrigger(const QString& id, const QString& trigger) {
  if (const auto profile = parsed(id))
    edit([&](auto& profiles) {
      return ambrel::setTrigger(profiles, *profile, fromName<DisplayContext>(trigger.toStdString()));
    });
}

void AppModel::stepProfile(const QString& id, int step) {
  if (const auto profile = parsed(id))
    edit([&](auto& profiles) { return ambrel::stepProfile(profiles, *profile, step); });
}

void AppModel::stepItem(const QString& itemID, int step) {
  const Profile* active = activeProfile();
  const auto item = parsed(itemID);
  if (!active || !item) return;
  if (const auto target = neighbour(*active, *item, step)) moveItem(*item, *target, UUID(active->id));
}

bool AppModel::isOnBar(const QString& widget) const {
  const Profile* active = activeProfile();
  return active && active->contains(widget.toStdString());
}

QString AppModel::activeProfileID() const {
  const Profile* active = activeProfile();
  return active ? text(active->id) : QString();
}

QString AppModel::pinnedProfileText() const { return pinnedProfileID_ ? text(*pinnedProfileID_) : QString(); }

void AppModel::setPinnedProfileText(const QString& id) {
  const auto profile = parsed(id);
  if (!profile || license_.permits(ProFeature::profileSwitching)) setPinnedProfileID(profile);
}

}  // namespace ambrel
