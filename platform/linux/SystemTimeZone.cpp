#include "platform/linux/SystemTimeZone.h"

#include <QStringList>
#include <fmt/format.h>
#include <sys/stat.h>

#include "core/base/ZoneFile.h"

namespace ambrel {

SystemTimeZone::SystemTimeZone(std::filesystem::path file, QDBusConnection systemBus)
    : file_(std::move(file)), bus_(std::move(systemBus)), last_(identity()) {}

std::string SystemTimeZone::name() const { return file_.empty() ? std::string() : zoneOfFile(file_); }

std::string SystemTimeZone::identity() const {
  if (auto zone = name(); !zone.empty()) return zone;
  struct stat info {};
  if (file_.empty() || stat(file_.c_str(), &info) != 0) return {};
  return fmt::format("{}:{}:{}:{}", info.st_dev, info.st_ino, info.st_size, info.st_mtim.tv_sec);
}

void SystemTimeZone::setChangeHandler(std::function<void()> handler) {
  handler_ = std::move(handler);
  if (file_.empty() || !watcher_.directories().isEmpty()) return;
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, &SystemTimeZone::look);
  bus_.connect(QStringLiteral("org.freedesktop.timedate1"), QStringLiteral("/org/freedesktop/timedate1"),
               QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"), this,
               SLOT(look()));
  watch();
}

void SystemTimeZone::watch() {
  QStringList folders;
  std::filesystem::path path = file_;
  std::error_code error;
  // The zone database itself is left alone: it changes only with its package.
  while (!error && folders.size() < 8 && path.string().find("/zoneinfo/") == std::string::npos) {
    folders.append(QString::fromStdString(path.parent_path().string()));
    path = (path.parent_path() / std::filesystem::read_symlink(path, error)).lexically_normal();
  }
  folders.removeDuplicates();
  for (const QString& watched : watcher_.directories())
    if (folders.removeAll(watched) == 0) watcher_.removePath(watched);
  if (!folders.isEmpty()) watcher_.addPaths(folders);
}

void SystemTimeZone::look() {
  watch();
  // For a moment there may be none, while one link takes the place of another.
  const std::string zone = identity();
  if (zone.empty() || zone == last_) return;
  last_ = zone;
  if (handler_) handler_();
}

}  // namespace ambrel
