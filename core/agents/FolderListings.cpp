#include "core/agents/FolderListings.h"

#include <dirent.h>
#include <fcntl.h>
#include <string_view>

#include "core/agents/SessionFiles.h"

namespace ambrel {
namespace {

FolderListings::Entries listed(const std::string& folder, bool followsLink) {
  FileDescriptor fd(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | (followsLink ? 0 : O_NOFOLLOW)));
  const std::unique_ptr<DIR, int (*)(DIR*)> opened(fd ? fdopendir(fd.get()) : nullptr, closedir);
  if (!opened) return nullptr;
  fd.release();
  auto entries = std::make_shared<std::vector<FolderListings::Entry>>();
  while (const dirent* entry = readdir(opened.get())) {
    const std::string_view name = entry->d_name;
    const unsigned char type = entry->d_type;
    if (name == "." || name == "..") continue;
    if (type == DT_DIR || type == DT_LNK || type == DT_UNKNOWN || (type == DT_REG && isLogName(name)))
      entries->push_back({std::string(name), type});
  }
  return entries;
}

}  // namespace

FolderListings::Entries FolderListings::entries(const std::string& folder, bool followsLink) {
  struct stat info;
  if (fstatat(AT_FDCWD, folder.c_str(), &info, followsLink ? 0 : AT_SYMLINK_NOFOLLOW) != 0 || !S_ISDIR(info.st_mode)) {
    looks_.forget(folder);
    return nullptr;
  }
  const Stamp stamp{info.st_dev, info.st_ino, info.st_mtim};
  return looks_
      .get(folder, stamp,
           [&] {
             Entries entries = listed(folder, followsLink);
             return entries ? std::optional(std::move(entries)) : std::nullopt;
           })
      .value_or(nullptr);
}

}  // namespace ambrel
