#include "app/base/FollowedFile.h"

#include <QFile>
#include <utility>

namespace ambrel {
namespace {

// Some editors empty a file before they write it.
constexpr std::chrono::milliseconds editingPause{250};

}  // namespace

FollowedFile::FollowedFile(std::filesystem::path file, QObject* parent) : QObject(parent), file_(std::move(file)) {
  pause_.setSingleShot(true);
  pause_.setInterval(editingPause);
  connect(&pause_, &QTimer::timeout, this, &FollowedFile::changed);
}

void FollowedFile::start() {
  for (const auto told : {&QFileSystemWatcher::fileChanged, &QFileSystemWatcher::directoryChanged})
    connect(&watcher_, told, this, [this] {
      watch();
      pause_.start();
    });
  watch();
}

void FollowedFile::watch() {
  QStringList wanted;
  const auto want = [&](const std::filesystem::path& path) {
    std::error_code error;
    const QString name = QFile::decodeName(path.c_str());
    if (std::filesystem::exists(path, error) && !wanted.contains(name)) wanted << name;
  };
  std::error_code error;
  const auto target = std::filesystem::weakly_canonical(file_, error);
  for (const std::filesystem::path& path : {file_, target}) {
    if (path.empty()) continue;
    want(path);
    const auto folder = path.parent_path();
    want(std::filesystem::exists(folder, error) ? folder : folder.parent_path());
  }
  QStringList old;
  for (const QString& path : watcher_.files() + watcher_.directories())
    if (!wanted.removeOne(path)) old << path;
  if (!old.isEmpty()) watcher_.removePaths(old);
  if (!wanted.isEmpty()) watcher_.addPaths(wanted);
}

}  // namespace ambrel
