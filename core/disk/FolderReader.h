#pragma once
// A folder's entries with one request each. Private to the disk sources.

#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <string_view>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "core/base/Files.h"
#include "core/base/Instant.h"

namespace ambrel::disk {

inline Instant instantOf(const statx_timestamp& time) {
  using namespace std::chrono;
  return Instant(seconds(time.tv_sec) + microseconds(time.tv_nsec / 1000));
}

// A mounted volume. Bind mounts of one volume differ in `mount` alone, which kernels before 5.8 do not tell.
struct Volume {
  std::uint64_t device = 0;
  std::optional<std::uint64_t> mount;
  friend bool operator==(const Volume&, const Volume&) = default;
};

inline Volume volumeOf(const struct statx& info) {
  Volume volume{.device = makedev(info.stx_dev_major, info.stx_dev_minor), .mount = {}};
#ifdef STATX_MNT_ID
  if (info.stx_mask & STATX_MNT_ID) {
    // Nested subvolumes have devices of their own and still belong to the mount.
    volume.device = 0;
    volume.mount = info.stx_mnt_id;
  }
#endif
  return volume;
}

#ifdef STATX_MNT_ID
inline constexpr unsigned mountField = STATX_MNT_ID;
#else
inline constexpr unsigned mountField = 0;
#endif

// Never follows a symbolic link at the end and never triggers an automatic mount.
inline bool entryStatus(int folder, const char* name, unsigned fields, struct statx& info) {
  const int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | (*name == '\0' ? AT_EMPTY_PATH : 0);
  return statx(folder, name, flags, fields, &info) == 0;
}

inline FileDescriptor openFolderAt(int folder, const char* name) {
  return FileDescriptor(openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

// Reads listings into one buffer that is used again and again.
class FolderReader {
 public:
  // Calls visit(name, type) for each entry but "." and ".."; `type` is DT_UNKNOWN on some file systems. `name` ends
  // with a zero. False when the listing broke off; what came before it has been visited.
  template <typename Visit>
  bool read(const FileDescriptor& folder, const Visit& visit) {
    if (!buffer_) buffer_.reset(new char[size]);
    for (;;) {
      const ssize_t count = getdents64(folder.get(), buffer_.get(), size);
      // A folder that was removed while it was read has simply no more entries.
      if (count <= 0) return count == 0 || errno == ENOENT;
      for (ssize_t at = 0; at < count;) {
        const auto* entry = reinterpret_cast<const dirent64*>(buffer_.get() + at);
        at += entry->d_reclen;
        const char* name = entry->d_name;
        if (name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'))) continue;
        visit(name, entry->d_type);
      }
    }
  }

 private:
  static constexpr std::size_t size = 1 << 16;
  std::unique_ptr<char[]> buffer_;
};

}  // namespace ambrel::disk
