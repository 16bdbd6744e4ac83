#include "platform/linux/FreedesktopTrash.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "core/base/Files.h"
#include "core/base/Text.h"
#include "core/disk/FolderReader.h"
#include "core/disk/Handles.h"

namespace ambrel {
namespace {

constexpr std::string_view infoSuffix = ".trashinfo";
constexpr std::size_t longestName = 255;
constexpr int mostNames = 10'000;

[[noreturn]] void fail(const std::string& url, const std::string& reason) {
  throw TrashError("cannot move " + repairedUTF8(url) + " to the Trash: " + reason);
}
[[noreturn]] void failWithError(const std::string& url) { fail(url, std::strerror(errno)); }

std::optional<disk::Volume> volumeAt(int folder, const char* name) {
  struct statx info;
  if (!disk::entryStatus(folder, name, STATX_TYPE | disk::mountField, info)) return std::nullopt;
  return disk::volumeOf(info);
}

FileDescriptor openHandle(int folder, const std::string& name) {
  return FileDescriptor(openat(folder, name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

// Makes the folder when it is missing. Empty when it is a link, no folder or someone else's.
FileDescriptor openOwn(int parent, const std::string& name, uid_t user) {
  if (mkdirat(parent, name.c_str(), 0700) != 0 && errno != EEXIST) return {};
  FileDescriptor folder = openHandle(parent, name);
  struct stat info;
  if (folder && (fstat(folder.get(), &info) != 0 || info.st_uid != user)) {
    errno = EACCES;
    return {};
  }
  return folder;
}

// "report.pdf", then "report.2.pdf", "report.3.pdf"; never so long that the information file has no name.
std::string numbered(const std::string& name, int number) {
  const auto dot = name.rfind('.');
  const std::size_t split = dot == name.npos || dot == 0 || name.size() - dot > 20 ? name.size() : dot;
  const std::string tail = (number == 1 ? "" : fmt::format(".{}", number)) + name.substr(split);
  std::size_t length = std::min(split, longestName - infoSuffix.size() - tail.size());
  while (length > 0 && length < split && (static_cast<unsigned char>(name[length]) & 0xc0) == 0x80) --length;
  return name.substr(0, length) + tail;
}

// Never over another entry.
bool renameTo(int from, const std::string& name, int to, const std::string& newName) {
  if (renameat2(from, name.c_str(), to, newName.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  // A file system that cannot promise it. The information file has reserved the name among all Trash programs.
  struct stat info;
  if (fstatat(to, newName.c_str(), &info, AT_SYMLINK_NOFOLLOW) == 0) {
    errno = EEXIST;
    return false;
  }
  return renameat(from, name.c_str(), to, newName.c_str()) == 0;
}

}  // namespace

// One Trash folder that is ready to take things.
struct FreedesktopTrash::Target {
  FileDescriptor files, info;
  // What the information file says: an absolute path in the home's Trash, else one from the top of the volume.
  std::string path;

  explicit operator bool() const { return files && info; }
  void open(int folder, uid_t user) {
    files = openOwn(folder, "files", user);
    if (files) info = openOwn(folder, "info", user);
  }
};

FreedesktopTrash::FreedesktopTrash(std::string dataHome, uid_t user, PresentCalendar calendar)
    : dataHome_(std::move(dataHome)), user_(user), calendar_(std::move(calendar)) {}

FreedesktopTrash::Target FreedesktopTrash::homeTrash() const {
  Target target;
  try {
    makeFolders(dataHome_);
  } catch (const FileError&) {
    return target;
  }
  const FileDescriptor base(::open(dataHome_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  const FileDescriptor trash = base ? openOwn(base.get(), "Trash", user_) : FileDescriptor();
  if (trash) target.open(trash.get(), user_);
  return target;
}

// Goes up from `folder`, which holds the thing at `url`, to the top of the volume.
FreedesktopTrash::Target FreedesktopTrash::volumeTrash(const std::string& url, int folder) const {
  FileDescriptor top = openHandle(folder, ".");
  const auto volume = volumeAt(folder, "");
  std::size_t start = url.rfind('/');
  while (top) {
    FileDescriptor above = openHandle(top.get(), "..");
    const auto here = identityOf(top), there = above ? identityOf(above) : std::nullopt;
    if (!here || !there || here->isSameFile(*there) || volumeAt(above.get(), "") != volume) break;
    if (start == 0 || start == url.npos) return {};
    start = url.rfind('/', start - 1);
    top = std::move(above);
  }
  Target target;
  if (!top) return target;
  target.path = url.substr(start + 1);

  const std::string user = std::to_string(user_);
  // A shared Trash counts only when no one can put links and folders of others in its place.
  struct stat info;
  const FileDescriptor common = openHandle(top.get(), ".Trash");
  if (common && fstat(common.get(), &info) == 0 && (info.st_mode & S_ISVTX)) {
    const FileDescriptor own = openOwn(common.get(), user, user_);
    if (own) target.open(own.get(), user_);
  }
  if (!target) {
    const FileDescriptor own = openOwn(top.get(), ".Trash-" + user, user_);
    if (own) target.open(own.get(), user_);
  }
  return target;
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
    const bool isTaken = fstatat(target.files.get(), free.c_str(), &existing, AT_SYMLINK_NOFOLLOW) == 0;
    if (!isTaken && write(info.get(), text.data(), text.size()) == static_cast<ssize_t>(text.size()) &&
        fsync(info.get()) == 0)
      return free;
    const int error = errno;
    unlinkat(target.info.get(), infoName.c_str(), 0);
    if (isTaken) continue;
    errno = error;
    return {};
  }
  errno = EEXIST;
  return {};
}

void FreedesktopTrash::move(const DiskAdvice::TrashRequest& request, Instant now) {
  const std::string url = standardizedPath(request.url);
  const Place place = placeOf(request.url);
  if (!place) failWithError(url);
  const int folder = place.folder.get();
  if (request.folder) {
    const auto identity = identityOf(place.folder);
    if (!identity || !identity->isSameFile(*request.folder)) fail(url, "its folder has changed");
  }
  const auto volume = volumeAt(folder, "");
  if (!volume || volumeAt(folder, place.name.c_str()) != volume) fail(url, "it is a volume, or gone");

  Target target = homeTrash();
  if (target && volumeAt(target.files.get(), "") == volume) {
    target.path = url;
  } else {
    target = volumeTrash(url, folder);
    if (!target) fail(url, "its volume has no Trash");
  }
  const auto trashed = identityOf(target.files), holder = identityOf(place.folder);
  if (!trashed || !holder || trashed->isSameFile(*holder)) fail(url, "it is in the Trash");

  const std::string name = reserve(target, place.name, now);
  if (name.empty()) failWithError(url);
  const std::string infoName = name + std::string(infoSuffix);
  const auto giveUp = [&](const std::string& reason) {
    unlinkat(target.info.get(), infoName.c_str(), 0);
    fail(url, reason);
  };
  if (identityAt(place.folder, place.name) != request.identity) giveUp("it has changed");
  if (!renameTo(folder, place.name, target.files.get(), name)) giveUp(std::strerror(errno));

  // Between the look and the move, another thing may have taken the name.
  const auto moved = identityAt(target.files, name);
  if (moved && moved->isSameFile(request.identity)) return;
  if (!renameTo(target.files.get(), name, folder, place.name)) fail(url, "it has changed and is in the Trash now");
  giveUp("it has changed");
}

}  // namespace ambrel
