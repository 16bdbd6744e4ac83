#pragma once
// What the tiles of the active profile have chosen to show, laid over the defaults that the models read.

#include <QObject>
#include <set>
#include <string>

#include "app/model/AppModel.h"

namespace ambrel {

// From now on a model that reads one of these keys gets what is chosen in the active profile, if anything is. What it
// stores is that profile's choice; it is also written to the defaults, where a tile that is added later finds it. What
// is asked for now and chosen later is the choice of the profile that asked, or of none when that one, or its tile, is
// gone by then.
class SlotChoices : public QObject {
  Q_OBJECT

 public:
  // Both outlive it.
  SlotChoices(AppModel& model, UserDefaults& defaults, QObject* parent = nullptr);
  ~SlotChoices() override;

 Q_SIGNALS:
  // Another profile, or an edit from elsewhere, has other values for these keys.
  void changed(const std::set<std::string>& keys);

 private:
  void compare();
  UserDefaults::Keeper keeperFor(const std::string& key);
  // So that a tile that is added later finds no title with the date of another profile.
  void shareWhatBelongsTo(std::string_view key, const Profile* profile);

  AppModel& model_;
  UserDefaults& defaults_;
  SlotSettings told_;  // what the models know of
  bool isStoring_ = false;
};

}  // namespace ambrel
