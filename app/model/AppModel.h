#pragma once
// The profiles, the displays, and which profile is on the bar.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

#include "app/base/FollowedFile.h"
#include "app/base/GadgetListModel.h"
#include "app/base/PatientWrite.h"
#include "app/model/LicenseManager.h"
#include "app/model/ProfileRow.h"
#include "core/base/UserDefaults.h"
#include "core/profiles.h"

namespace ambrel {

// Every edit is saved at once; a save that fails is told and tried again, and the change is kept in memory. Ids travel
// to and from QML as texts; one that is no id matches nothing.
class AppModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::RowList* profileList READ profileList CONSTANT)
  // "" without a profile.
  Q_PROPERTY(QString activeProfileID READ activeProfileID NOTIFY activeProfileChanged)
  // "" while the displays choose.
  Q_PROPERTY(QString pinnedProfileID READ pinnedProfileText WRITE setPinnedProfileText NOTIFY pinnedProfileIDChanged)
  // There is an edit of a profile's tiles to take back.
  Q_PROPERTY(bool canUndo READ canUndo NOTIFY canUndoChanged)

 public:
  using ListDisplays = std::function<std::vector<DisplaySnapshot>()>;

  // store: profiles.json. Loads it, brings older lists up to date and looks at the displays. The defaults and the
  // licence outlive the model.
  AppModel(std::filesystem::path store, UserDefaults& defaults, LicenseManager& license, ListDisplays listDisplays,
           QObject* parent = nullptr);
  ~AppModel() override { write_.end(); }

  const std::vector<Profile>& profiles() const { return profiles_; }
  // An equal list neither notifies nor saves.
  void setProfiles(std::vector<Profile> profiles);
  const std::optional<UUID>& pinnedProfileID() const { return pinnedProfileID_; }
  // Held in memory alone: after a restart the displays choose again.
  void setPinnedProfileID(const std::optional<UUID>& id);
  const std::vector<DisplaySnapshot>& displays() const { return displays_; }
  LicenseManager& license() const { return license_; }

  // From now on others may edit the file, such as tilebayctl; what cannot be read changes nothing.
  void followFile();

  // Null when there are no profiles. Lives until the next change.
  const Profile* activeProfile() const;
  // Null where there is none with that id. Lives until the next change.
  const Profile* profileWith(const UUID& id) const;

  // With an id that is unknown these do nothing at all.
  void addWidget(const std::string& widget, const UUID& profileID, const std::optional<UUID>& beforeItemID);
  void removeWidget(const std::string& widget, const UUID& profileID);
  void moveItem(const UUID& itemID, const UUID& targetID, const UUID& profileID);
  void removeItem(const UUID& itemID, const UUID& profileID);
  // Moves a slot, new or already there, in front of `before`, or to the end without one.
  void placeItem(const DockItem& item, const UUID& profileID, const std::optional<UUID>& before);
  // What the active profile's tiles show from now on for a key of `slotSettingKeys`. The defaults have what was chosen
  // before.
  void setSlotSetting(std::string_view key, const std::optional<DefaultsValue>& value);
  void setSlotSetting(const UUID& profileID, std::string_view key, const std::optional<DefaultsValue>& value);
  UUID addProfile(std::string name, std::optional<DisplayContext> trigger);
  void deleteProfile(const UUID& id);
  // An empty name changes nothing.
  void renameProfile(const UUID& id, const std::string& name);
  // Edits of the tiles can be taken back, from the last on or one of them; what others have written is not among them.
  bool canUndo() const { return !edits_.empty(); }
  void undo(const BarEdit& edit);
  // To be called at each change of the screens. No screens at all are a passing state and change nothing.
  void refreshDisplays();

  // For QML. An empty `beforeItemID` means the end, an empty trigger means never.
  Q_INVOKABLE void addWidget(const QString& widget, const QString& profileID, const QString& beforeItemID = {});
  Q_INVOKABLE void removeWidget(const QString& widget, const QString& profileID);
  Q_INVOKABLE void moveItem(const QString& itemID, const QString& targetID, const QString& profileID);
  Q_INVOKABLE void removeItem(const QString& itemID, const QString& profileID);
  // Gives the new profile's id.
  Q_INVOKABLE QString addProfile(const QString& name, const QString& trigger);
  Q_INVOKABLE void deleteProfile(const QString& id);
  Q_INVOKABLE void renameProfile(const QString& id, const QString& name);
  Q_INVOKABLE void duplicateProfile(const QString& id);
  Q_INVOKABLE void setTrigger(const QString& id, const QString& trigger);
  // So many places towards the end; nothing happens beyond the ends. Tiles: of the active profile.
  Q_INVOKABLE void stepProfile(const QString& id, int step);
  Q_INVOKABLE void stepItem(const QString& itemID, int step);
  // Takes the last edit of the tiles back.
  Q_INVOKABLE void undo();
  // Whether a widget is in the active profile.
  Q_INVOKABLE bool isOnBar(const QString& widget) const;

  // Rows are ProfileRow, in the user's order.
  RowList* profileList() { return &profileList_; }
  QString activeProfileID() const;
  QString pinnedProfileText() const;
  void setPinnedProfileText(const QString& id);

 Q_SIGNALS:
  void profilesChanged();
  void pinnedProfileIDChanged();
  void displaysChanged();
  // Another profile is about to be active. What is stored now is still a choice of the one before.
  void activeProfileAboutToChange();
  // Another profile is active, or the active one has changed.
  void activeProfileChanged();
  void canUndoChanged();
  // An edit was taken back.
  void undone();
  // The user has taken a tile off the bar.
  void itemRemoved(const ambrel::DockItem& item, const ambrel::BarEdit& edit);
  void problemFound(const QString& title, const QString& detail);

 private:
  void load();
  LoadedProfiles loadFile();
  void save();
  void takeOver();
  void edited(std::vector<Profile> profiles);
  // `change` is a function from a list of profiles to whether it is to be saved.
  bool edit(auto change);
  // As edit, for the tiles of a profile. Absent: nothing differs.
  std::optional<BarEdit> editTiles(const UUID& profileID, auto change);
  // The profile that is to be active.
  std::optional<UUID> resolvedID() const;
  // Makes another profile the active one, if another is to be.
  void activate();
  // Brings what follows from the fields up to date.
  void update();

  std::filesystem::path store_;
  FollowedFile watcher_;
  UserDefaults& defaults_;
  LicenseManager& license_;
  ListDisplays listDisplays_;
  std::vector<Profile> profiles_;
  std::vector<Profile> stored_;         // what was read or written last
  std::optional<std::string> problem_;  // of the file as it was read last
  std::optional<UUID> pinnedProfileID_;
  std::vector<DisplaySnapshot> displays_;
  std::optional<UUID> activeID_;
  bool isActivating_ = false;
  std::vector<BarEdit> edits_;  // the last ones, oldest first
  // What the last `activeProfileChanged` spoke of.
  std::optional<Profile> shownProfile_;
  GadgetListModel<ProfileRow, &ProfileRow::profile> profileList_;
  PatientWrite write_{tr("The list of profiles is not saved"), "cannot save profiles: ", [this] { save(); }};
};

}  // namespace ambrel
