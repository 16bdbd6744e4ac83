#include "app/model/DefaultsWatcher.h"

#include <QStringList>
#include <utility>

#include "app/base/Log.h"
#include "core/base/Files.h"

namespace ambrel {
namespace {

// Some editors empty a file before they write it.
constexpr std::chrono::milliseconds editingPause{250};

QString toPath(const std::filesystem::path& path) { return QString::fromStdString(path.string()); }

}  // namespace

DefaultsWatcher::DefaultsWatcher(UserDefaults& defaults, QObject* parent) : QObject(parent), defaults_(defaults) {
  pause_.setSingleShot(true);
  pause_.setInterval(editingPause);
  connect(&pause_, &QTimer::timeout, this, [this] { defaults_.refresh(); });
  const auto look = [this] {
    watch();
    pause_.start();
  };
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, look);
  connect(&watcher_, &QFileSystemWatcher::fileChanged, this, look);
  defaults_.onRefreshed = [this](const std::set<std::string>& keys) {
    if (keys_.empty()) QMetaObject::invokeMethod(this, &DefaultsWatcher::tell, Qt::QueuedConnection);
    keys_.insert(keys.begin(), keys.end());
  };
}

void DefaultsWatcher::start() {
  try {
    makeFolders(defaults_.file().parent_path());
  } catch (const std::exception& error) {
    logLine(std::string("cannot follow the settings: ") + error.what());
  }
  watch();
}

// A file that is written in place reports its own changes; a file that is replaced is reported by its folder.
void DefaultsWatcher::watch() {
  std::error_code error;
  const auto target = std::filesystem::weakly_canonical(defaults_.file(), error);
  QStringList wanted{toPath(defaults_.file().parent_path()), toPath(target.parent_path()), toPath(target)};
  wanted.removeDuplicates();
  for (const QString& watched : watcher_.files() + watcher_.directories()) wanted.removeAll(watched);
  wanted.removeIf([](const QString& path) { return !std::filesystem::exists(path.toStdString()); });
  if (!wanted.isEmpty()) watcher_.addPaths(wanted);
}

void DefaultsWatcher::tell() { Q_EMIT changed(std::exchange(keys_, {})); }

}  // namespace ambrel
