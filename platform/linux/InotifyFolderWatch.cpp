#include "platform/linux/InotifyFolderWatch.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <sys/inotify.h>
#include <sys/vfs.h>
#include <unistd.h>
#include <utility>

namespace ambrel {
namespace {

constexpr unsigned comesOrGoes =
    IN_CREATE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
// A folder on the way is watched for folders alone: much else is written into a home folder.
constexpr unsigned ofContents = comesOrGoes | IN_MODIFY;

constexpr std::size_t mostFiles = 1000;

// Disks on which others write unseen: NFS, SMB (of three kinds), FUSE (sshfs and folders of virtual machines), 9p,
// Ceph, AFS.
bool isShared(const std::string& path) {
  constexpr std::array<unsigned long, 8> types{0x6969,     0x517B,     0xFF534D42, 0xFE534D42,
                                               0x65735546, 0x01021997, 0x00C36400, 0x5346414F};
  struct statfs info;
  return statfs(path.c_str(), &info) == 0 &&
         std::ranges::find(types, static_cast<unsigned long>(info.f_type) & 0xFFFFFFFFul) != types.end();
}

}  // namespace

InotifyFolderWatch::InotifyFolderWatch(std::size_t mostWatches) : mostWatches_(mostWatches) {}

void InotifyFolderWatch::follow(std::vector<WatchedFolder> folders, std::function<void(std::size_t)> changed) {
  folders_ = std::move(folders);
  changed_ = std::move(changed);
  build();
}

void InotifyFolderWatch::build() {
  if (notifier_) {
    // It may be the one that calls us.
    notifier_->setEnabled(false);
    notifier_.release()->deleteLater();
  }
  watches_.clear();
  areFilesKnown_ = false;
  inotify_ = FileDescriptor(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
  tellsAll_ = static_cast<bool>(inotify_);
  if (!inotify_) return;
  for (std::size_t i = 0; i < folders_.size(); ++i) follow(i);
  notifier_ = std::make_unique<QSocketNotifier>(inotify_.get(), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { readEvents(); });
}

// The folder, and those above it in which it may be put in another one's place.
void InotifyFolderWatch::follow(std::size_t index) {
  const auto& [path, levels] = folders_[index];
  std::error_code error;
  std::filesystem::path nearest = path;
  if (std::filesystem::is_directory(path, error)) add({index, path.string(), levels, {}});
  while (nearest.has_relative_path()) {
    const std::filesystem::path above = nearest.parent_path();
    const bool isThere = std::filesystem::is_directory(above, error);
    // In what is not the user's own, nothing of this is made.
    if (isThere && access(above.c_str(), W_OK) != 0) break;
    if (isThere) add({index, above.string(), 0, nearest.filename().string()});
    nearest = above;
  }
}

void InotifyFolderWatch::add(const Reason& reason) {
  const bool isOnTheWay = !reason.next.empty();
  const int watch = watches_.size() < mostWatches_
                        ? inotify_add_watch(inotify_.get(), reason.path.c_str(),
                                            (isOnTheWay ? comesOrGoes : ofContents) | IN_MASK_ADD)
                        : -1;
  if (watch < 0) {
    // It may have gone since it was seen; its own folder tells of that.
    if (watches_.size() >= mostWatches_ || errno == ENOSPC || errno == ENOMEM) tellsAll_ = false;
    return;
  }
  watches_[watch].push_back(reason);
  if (isOnTheWay) return;
  if (isShared(reason.path)) tellsAll_ = false;
  if (reason.levels == 0) return;
  std::error_code error;
  std::filesystem::directory_iterator entry(reason.path, error), end;
  for (; !error && entry != end; entry.increment(error)) {
    std::error_code gone;
    if (entry->is_directory(gone)) add({reason.folder, entry->path().string(), reason.levels - 1, {}});
  }
}

std::optional<std::vector<std::filesystem::path>> InotifyFolderWatch::takeChangedFiles() {
  const auto files = std::exchange(files_, {});
  if (!std::exchange(areFilesKnown_, true)) return std::nullopt;
  return std::vector<std::filesystem::path>(files.begin(), files.end());
}

void InotifyFolderWatch::readEvents() {
  std::set<std::size_t> changed;
  bool isSound = true;
  alignas(inotify_event) std::array<char, 64 * (sizeof(inotify_event) + NAME_MAX + 1)> buffer;
  for (;;) {
    const ssize_t got = read(inotify_.get(), buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    for (ssize_t at = 0; at < got;) {
      inotify_event event;
      std::memcpy(&event, buffer.data() + at, sizeof event);
      const std::string name = event.len > 0 ? buffer.data() + at + sizeof event : "";
      at += static_cast<ssize_t>(sizeof event + event.len);
      isSound = take(event.wd, event.mask, name, changed) && isSound;
    }
  }
  if (!isSound) {
    build();
    // What came meanwhile was told to nobody.
    for (std::size_t i = 0; i < folders_.size(); ++i) changed.insert(i);
  }
  // By value: whoever is told may ask for other folders.
  const auto tell = changed_;
  for (const std::size_t folder : changed) tell(folder);
}

bool InotifyFolderWatch::take(int watch, unsigned mask, const std::string& name, std::set<std::size_t>& changed) {
  if (mask & IN_Q_OVERFLOW) return false;  // `build` forgets the files, too
  const auto found = watches_.find(watch);
  if (found == watches_.end()) return true;
  const std::vector<Reason> reasons = found->second;
  if (mask & IN_IGNORED) watches_.erase(found);
  bool isSound = true;
  for (const Reason& reason : reasons) {
    const bool isRoot = reason.path == folders_[reason.folder].path.string();
    if (!reason.next.empty()) {
      if (name == reason.next || mask & (IN_DELETE_SELF | IN_MOVE_SELF)) isSound = false;
      continue;
    }
    changed.insert(reason.folder);
    if (mask & IN_ISDIR || name.empty() || files_.size() >= mostFiles)
      areFilesKnown_ = false;
    else
      files_.insert(reason.path + "/" + name);
    if (isRoot && mask & (IN_DELETE_SELF | IN_MOVE_SELF)) isSound = false;
    if (reason.levels == 0 || !(mask & IN_ISDIR)) continue;
    if (mask & (IN_CREATE | IN_MOVED_TO)) add({reason.folder, reason.path + "/" + name, reason.levels - 1, {}});
    // It is watched still, under a name that it has no more.
    if (mask & IN_MOVED_FROM) isSound = false;
  }
  return isSound;
}

}  // namespace ambrel
