#include "platform/linux/FreedesktopTrash.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "core/base/Files.h"
#include "core/base/StoredFile.h"
#include "core/base/Text.h"
#include "core/disk/FolderReader.h"
#include "core/disk/Handles.h"

namespace ambrel {
namespace {

constexpr std::string_view infoSuffix = ".trashinfo";
constexpr std::size_t longestName = 255;
constexpr int mostNames = 10'000;

using enum StayReason;

[[noreturn]] void fail(const std::string& url, StayReason reason, const std::string& text) {
  throw TrashError(reason, "cannot move " + repairedUTF8(url) + " to the Trash: " + text);
}

StayReason reasonOf(int error) {
  if (error == ENOSPC || error == EDQUOT) return diskFull;
  if (error == EROFS) return readOnly;
  if (error == ENOENT) return gone;
  // From here nothing can be renamed into any Trash.
  if (error == EXDEV) return noTrash;
  return inUse;
}
// True of every folder of the volume.
bool isOfVolume(int error) { return reasonOf(error) == diskFull || reasonOf(error) == readOnly; }

[[noreturn]] void failWithError(const std::string& url, int error) { fail(url, reasonOf(error), std::strerror(error)); }

std::optional<disk::Volume> volumeAt(int folder, const char* name) {
  struct statx info;
  if (!disk::entryStatus(folder, name, STATX_TYPE | disk::mountField, info)) return std::nullopt;
  return disk::volumeOf(info);
}

FileDescriptor openHandle(int folder, const std::string& name) {
  return FileDescriptor(openat(folder, name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

// Folders between which things can be renamed. Subvolumes have devices of their own on one mount.
bool areOnOneVolume(int folder, int other) {
  struct stat info, otherInfo;
  const auto volume = volumeAt(folder, "");
  return volume && volume == volumeAt(other, "") && fstat(folder, &info) == 0 && fstat(other, &otherInfo) == 0 &&
         info.st_dev == otherInfo.st_dev;
}

bool isOwn(const FileDescriptor& folder, uid_t user) {
  struct stat info;
  return fstat(folder.get(), &info) == 0 && info.st_uid == user;
}

// A shared Trash counts only when no one can put links and folders of others in its place.
FileDescriptor openShared(const FileDescriptor& top) {
  FileDescriptor common = openHandle(top.get(), ".Trash");
  struct stat info;
  if (common && (fstat(common.get(), &info) != 0 || !(info.st_mode & S_ISVTX))) common.reset();
  return common;
}

// Makes the folder when it is missing. Empty, with errno, when it is a link, no folder or someone else's.
FileDescriptor openOwn(int parent, const std::string& name, uid_t user) {
  if (mkdirat(parent, name.c_str(), 0700) != 0 && errno != EEXIST) return {};
  FileDescriptor folder = openHandle(parent, name);
  if (folder && !isOwn(folder, user)) {
    folder.reset();
    errno = EACCES;
  }
  return folder;
}

std::vector<Mount> readMounts() { return parseMountinfo(readFile("/proc/self/mountinfo").value_or("")); }

// "report.pdf", then "report.2.pdf", "report.3.pdf"; never so long that the information file has no name.
std::string numbered(const std::string& name, int number) {
  const auto dot = name.rfind('.');
  const std::size_t split = dot == name.npos || dot == 0 || name.size() - dot > 20 ? name.size() : dot;
  const std::string tail = (number == 1 ? "" : fmt::format(".{}", number)) + name.substr(split);
  const std::size_t length = std::min(split, longestName - infoSuffix.size() - tail.size());
  // Not within a character, which has four bytes at most. A name may be no UTF-8 at all.
  const auto continues = [&](std::size_t place) { return (static_cast<unsigned char>(name[place]) & 0xc0) == 0x80; };
  std::size_t cut = length;
  while (cut > 0 && cut < split && length - cut < 3 && continues(cut)) --cut;
  return name.substr(0, cut < split && continues(cut) ? length : cut) + tail;
}

}  // namespace

bool isListedVolume(const std::vector<Mount>& mounts, const std::string& top) {
  // Parts of the system, whose users have the Trash of their homes.
  constexpr std::array<std::string_view, 12> ofSystem{"/",    "/boot", "/home", "/opt", "/root",    "/srv",
                                                      "/tmp", "/usr",  "/var",  "/dev", "/var/tmp", "/usr/local"};
  if (std::find(ofSystem.begin(), ofSystem.end(), top) != ofSystem.end()) return false;
  const auto here = std::find_if(mounts.begin(), mounts.end(), [&](const Mount& mount) { return mount.path == top; });
  if (here == mounts.end() || !here->source.starts_with("/dev/")) return false;
  if (here->root != "/" && here->type != "btrfs") return false;
  // The first path of a file system stands for all.
  return std::none_of(mounts.begin(), here, [&](const Mount& mount) { return mount.device == here->device; });
}

// The uppermost folder of a volume, and where in it a thing is.
struct FreedesktopTrash::Top {
  FileDescriptor folder;
  std::string path;   // "" for the root of the system
  std::string below;  // the thing's path from here

  // Goes up from `holder`, which holds the thing at `url`.
  static Top find(const std::string& url, int holder) {
    Top top{.folder = openHandle(holder, "."), .path = {}, .below = {}};
    std::size_t start = url.rfind('/');
    while (top.folder) {
      FileDescriptor above = openHandle(top.folder.get(), "..");
      const auto here = identityOf(top.folder), there = above ? identityOf(above) : std::nullopt;
      if (!here || !there || here->isSameFile(*there) || !areOnOneVolume(above.get(), holder)) break;
      if (start == 0 || start == url.npos) {
        top.folder.reset();
        return top;
      }
      start = url.rfind('/', start - 1);
      top.folder = std::move(above);
    }
    top.path = url.substr(0, start);
    top.below = url.substr(start + 1);
    return top;
  }
};

// One Trash folder that is ready to take things.
struct FreedesktopTrash::Target {
  FileDescriptor files, info;
  // What the information file says: an absolute path in the home's Trash, else one from the top of the volume.
  std::string path;
  TrashPlace place = {};
  int error = 0;  // why it is not ready

  explicit operator bool() const { return files && info; }
  void open(const FileDescriptor& folder, uid_t user) {
    if (folder) files = openOwn(folder.get(), "files", user);
    if (files) info = openOwn(folder.get(), "info", user);
    error = *this ? 0 : errno;
  }
};

FreedesktopTrash::FreedesktopTrash(std::string dataHome, uid_t user, PresentCalendar calendar)
    : dataHome_(std::move(dataHome)), user_(user), calendar_(std::move(calendar)) {}

// Whether the home's Trash is there for what is in `folder`. It may still have to be made.
bool FreedesktopTrash::servesHomeTrash(int folder) const {
  std::string path = joinedPath(dataHome_, "Trash/files");
  for (;;) {
    const FileDescriptor base(::open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (base) return areOnOneVolume(base.get(), folder);
    if (path.size() <= 1) return false;
    path.resize(std::max<std::size_t>(path.rfind('/'), 1));
  }
}

FreedesktopTrash::Target FreedesktopTrash::homeTrash() const {
  Target target;
  target.place.folder = joinedPath(dataHome_, "Trash");
  try {
    makeFolders(dataHome_);
  } catch (const FileError& error) {
    target.error = error.code();
    return target;
  }
  const FileDescriptor base(::open(dataHome_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (base) target.open(openOwn(base.get(), "Trash", user_), user_);
  return target;
}

FreedesktopTrash::Target FreedesktopTrash::volumeTrash(Top top) const {
  Target target;
  target.path = std::move(top.below);
  target.place.isListed = isListedVolume(readMounts(), top.path.empty() ? "/" : top.path);
  const std::string user = std::to_string(user_);
  if (const FileDescriptor common = openShared(top.folder)) {
    target.place.folder = top.path + "/.Trash/" + user;
    target.open(openOwn(common.get(), user, user_), user_);
  }
  if (!target) {
    target.place.folder = top.path + "/.Trash-" + user;
    target.open(openOwn(top.folder.get(), ".Trash-" + user, user_), user_);
  }
  return target;
}

std::optional<TrashPlace> FreedesktopTrash::placeFor(const std::string& url) const {
  const std::string path = standardizedPath(url);
  const Place place = placeOf(path);
  if (!place) return std::nullopt;
  if (servesHomeTrash(place.folder.get())) return TrashPlace{.folder = joinedPath(dataHome_, "Trash")};
  const Top top = Top::find(path, place.folder.get());
  if (!top.folder) return std::nullopt;
  const std::string user = std::to_string(user_);
  const auto isReady = [&](int parent, const std::string& name) {
    const FileDescriptor folder = openHandle(parent, name);
    if (folder) return isOwn(folder, user_);
    return errno == ENOENT && faccessat(parent, ".", W_OK | X_OK, AT_EACCESS) == 0;
  };
  const bool isListed = isListedVolume(readMounts(), top.path.empty() ? "/" : top.path);
  if (const FileDescriptor common = openShared(top.folder); common && isReady(common.get(), user))
    return TrashPlace{.folder = top.path + "/.Trash/" + user, .isListed = isListed};
  if (!isReady(top.folder.get(), ".Trash-" + user)) return std::nullopt;
  return TrashPlace{.folder = top.path + "/.Trash-" + user, .isListed = isListed};
}

// Writes the information file, which reserves the name.
std::string FreedesktopTrash::reserve(const Target& target, const std::string& name, Instant now) const {
  const auto local = calendar_().fields(now);
  const std::string text = fmt::format("[Trash Info]\nPath={}\nDeletionDate={:04}-{:02}-{:02}T{:02}:{:02}:{:02}\n",
                                       percentEncodedPath(target.path), local.year, local.month, local.day, local.hour,
                                       local.minute, local.second);
  for (int number = 1; number <= mostNames; ++number) {
    const std::string free = numbered(name, number);
    const std::string infoName = free + std::string(infoSuffix);
    const FileDescriptor info(
        openat(target.info.get(), infoName.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!info && errno == EEXIST) continue;
    if (!info) return {};
    struct stat existing;
    if (fstatat(target.files.get(), free.c_str(), &existing, AT_SYMLINK_NOFOLLOW) == 0) {
      unlinkat(target.info.get(), infoName.c_str(), 0);
      continue;
    }
    const ssize_t written = write(info.get(), text.data(), text.size());
    if (written == static_cast<ssize_t>(text.size()) && fsync(info.get()) == 0) return free;
    // A part of it fits where the disk is all but full.
    const int error = written >= 0 && written < static_cast<ssize_t>(text.size()) ? ENOSPC : errno;
    unlinkat(target.info.get(), infoName.c_str(), 0);
    errno = error;
    return {};
  }
  errno = EEXIST;
  return {};
}

TrashPlace FreedesktopTrash::move(const DiskAdvice::TrashRequest& request, Instant now) {
  const std::string url = standardizedPath(request.url);
  const Place place = placeOf(request.url);
  if (!place) failWithError(url, errno);
  const int folder = place.folder.get();
  if (request.folder) {
    const auto identity = identityOf(place.folder);
    if (!identity || !identity->isSameFile(*request.folder)) fail(url, changed, "its folder has changed");
  }
  const auto volume = volumeAt(folder, ""), itsVolume = volumeAt(folder, place.name.c_str());
  if (!itsVolume) fail(url, gone, "it is gone");
  if (volume != itsVolume) fail(url, holdsMount, "something is mounted on it");

  Target target;
  if (servesHomeTrash(folder)) target = homeTrash();
  if (target && areOnOneVolume(target.files.get(), folder)) {
    target.path = url;
  } else if (!isOfVolume(target.error)) {
    Top top = Top::find(url, folder);
    if (!top.folder) fail(url, noTrash, "its volume has no Trash");
    target = volumeTrash(std::move(top));
  }
  if (isOfVolume(target.error)) failWithError(url, target.error);
  if (!target) fail(url, noTrash, "its volume has no Trash");
  const auto trashed = identityOf(target.files), holder = identityOf(place.folder);
  if (!trashed || !holder || trashed->isSameFile(*holder)) fail(url, isDeleted, "it is in the Trash");

  const std::string name = reserve(target, place.name, now);
  if (name.empty()) failWithError(url, errno);
  const std::string infoName = name + std::string(infoSuffix);
  const auto giveUp = [&](StayReason reason, const std::string& text) {
    unlinkat(target.info.get(), infoName.c_str(), 0);
    fail(url, reason, text);
  };
  if (identityAt(place.folder, place.name) != request.identity) giveUp(changed, "it has changed");
  if (!renameToFreeName(folder, place.name, target.files.get(), name)) {
    const int error = errno;
    giveUp(reasonOf(error), std::strerror(error));
  }

  // Between the look and the move, another thing may have taken the name.
  const auto moved = identityAt(target.files, name);
  if (moved && moved->isSameFile(request.identity)) return target.place;
  if (!renameToFreeName(target.files.get(), name, folder, place.name))
    fail(url, isDeleted, "it has changed and is in the Trash now");
  giveUp(changed, "it has changed");
  return {};
}

}  // namespace ambrel
