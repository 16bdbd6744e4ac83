#include "app/model/DefaultsWatcher.h"

#include <utility>

#include "app/base/Log.h"
#include "core/base/Files.h"

namespace ambrel {

DefaultsWatcher::DefaultsWatcher(UserDefaults& defaults, QObject* parent)
    : QObject(parent), defaults_(defaults), watcher_(defaults.file()) {
  connect(&watcher_, &FollowedFile::changed, this, [this] { defaults_.refresh(); });
  defaults_.onRefreshed = [this](const std::set<std::string>& keys) {
    if (keys_.empty()) QMetaObject::invokeMethod(this, &DefaultsWatcher::tell, Qt::QueuedConnection);
    keys_.insert(keys.begin(), keys.end());
  };
}

void DefaultsWatcher::start() {
  try {
    makeFolders(defaults_.file().parent_path());
    watcher_.start();
  } catch (const std::exception& error) {
    logLine(std::string("cannot follow the settings: ") + error.what());
  }
}

void DefaultsWatcher::tell() { Q_EMIT changed(std::exchange(keys_, {})); }

}  // namespace ambrel
