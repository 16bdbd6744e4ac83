#include "core/disk/Handles.h"

#include <cerrno>

#include "core/disk/FolderReader.h"

namespace ambrel {
namespace {

std::int64_t nanoseconds(const timespec& time) { return time.tv_sec * std::int64_t{1'000'000'000} + time.tv_nsec; }

FileIdentity identityFrom(const struct stat& info) {
  return {.device = info.st_dev,
          .inode = info.st_ino,
          .size = static_cast<std::uint64_t>(info.st_size),
          .modified = nanoseconds(info.st_mtim),
          .changed = nanoseconds(info.st_ctim)};
}

}  // namespace

FileDescriptor openFolder(std::string_view path) {
  if (!path.starts_with('/')) {
    errno = EINVAL;
    return {};
  }
  FileDescriptor folder(open("/", O_PATH | O_DIRECTORY | O_CLOEXEC));
  while (folder) {
    const auto start = path.find_first_not_of('/');
    if (start == path.npos) return folder;
    path.remove_prefix(start);
    const std::string name(path.substr(0, path.find('/')));
    path.remove_prefix(name.size());
    if (name == "." || name == "..") {
      errno = EINVAL;
      return {};
    }
    folder = FileDescriptor(openat(folder.get(), name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  }
  return folder;
}

Place placeOf(std::string_view path) {
  while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
  const auto slash = path.rfind('/');
  const std::string_view name = slash == path.npos ? path : path.substr(slash + 1);
  if (slash == path.npos || name.empty() || name == "." || name == "..") {
    errno = EINVAL;
    return {};
  }
  return {.folder = openFolder(path.substr(0, slash + 1)), .name = std::string(name)};
}

std::optional<FileIdentity> identityAt(const FileDescriptor& folder, const std::string& name) {
  struct stat info;
  if (fstatat(folder.get(), name.c_str(), &info, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) != 0) return std::nullopt;
  return identityFrom(info);
}

std::optional<FileIdentity> identityOf(const FileDescriptor& handle) {
  struct stat info;
  if (fstat(handle.get(), &info) != 0) return std::nullopt;
  return identityFrom(info);
}

std::optional<FileIdentity> identityOf(std::string_view path) {
  const Place place = placeOf(path);
  return place ? identityAt(place.folder, place.name) : std::nullopt;
}

std::optional<std::vector<std::string>> namesIn(const FileDescriptor& folder) {
  const FileDescriptor readable = disk::openFolderAt(folder.get(), ".");
  std::vector<std::string> names;
  disk::FolderReader reader;
  if (!readable || !reader.read(readable, [&](const char* name, unsigned char) { names.emplace_back(name); }))
    return std::nullopt;
  return names;
}

}  // namespace ambrel
