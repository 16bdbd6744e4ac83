#include "app/model/FileWatcher.h"

#include <QStringList>
#include <utility>

#include "core/base/Files.h"

namespace ambrel {
namespace {

// Some editors empty a file before they write it.
constexpr std::chrono::milliseconds editingPause{250};

QString toPath(const std::filesystem::path& path) { return QString::fromStdString(path.string()); }

}  // namespace

FileWatcher::FileWatcher(std::filesystem::path file, QObject* parent) : QObject(parent), file_(std::move(file)) {
  pause_.setSingleShot(true);
  pause_.setInterval(editingPause);
  connect(&pause_, &QTimer::timeout, this, &FileWatcher::changed);
  const auto look = [this] {
    watch();
    pause_.start();
  };
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, look);
  connect(&watcher_, &QFileSystemWatcher::fileChanged, this, look);
}

void FileWatcher::start() {
  makeFolders(file_.parent_path());
  watch();
}

// A file that is written in place speaks for itself; one that is replaced is another file, of which the folder tells.
void FileWatcher::watch() {
  std::error_code error;
  const auto target = std::filesystem::weakly_canonical(file_, error);
  QStringList wanted{toPath(file_.parent_path()), toPath(target.parent_path()), toPath(target)};
  wanted.removeDuplicates();
  for (const QString& watched : watcher_.files() + watcher_.directories()) wanted.removeAll(watched);
  wanted.removeIf([](const QString& path) { return !std::filesystem::exists(path.toStdString()); });
  if (!wanted.isEmpty()) watcher_.addPaths(wanted);
}

}  // namespace ambrel
