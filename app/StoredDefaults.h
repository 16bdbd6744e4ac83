#pragma once
// The user's choices as the program finds them: carried over from an older release, kept when their file is damaged,
// followed while others edit it, and written again when that has failed.

#include <optional>

#include "app/Surroundings.h"
#include "app/base/PatientWrite.h"
#include "app/model/DefaultsWatcher.h"

namespace ambrel {

class StoredDefaults : public QObject {
  Q_OBJECT

 public:
  explicit StoredDefaults(const Surroundings& surroundings);
  ~StoredDefaults() override { write_.end(); }

  UserDefaults& values() { return defaults_; }
  // A file that could not be read was found at the start: what it said is lost to the program, whether or not the file
  // could be set aside.
  bool wereLost() const { return kept_ || defaults_.isUnreadable(); }
  // From now on changes and problems are told, what was found at the start among them.
  void follow();

 Q_SIGNALS:
  void changed(const std::set<std::string>& keys);
  void problemFound(const QString& title, const QString& detail);

 private:
  void tellOfKept(const std::filesystem::path& copy);

  UserDefaults defaults_;
  DefaultsWatcher watcher_;
  std::optional<std::filesystem::path> kept_;  // where it is kept
  PatientWrite write_{tr("The settings are not saved"), "cannot save settings: ", [this] { defaults_.save(); }};
};

}  // namespace ambrel
