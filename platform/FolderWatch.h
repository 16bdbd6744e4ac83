#pragma once
// Tells of changes in folders: files that are made, written, moved or deleted.

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace ambrel {

struct WatchedFolder {
  std::filesystem::path path;
  int levels = 0;  // of the folders below it that are watched, too
  bool operator==(const WatchedFolder&) const = default;
};

class FolderWatch {
 public:
  virtual ~FolderWatch() = default;

  // In the place of what was watched before. A folder that is not there is watched once it is. `changed` is called on
  // the main thread with the folder's position in the list, once for any number of changes that come together.
  virtual void follow(std::vector<WatchedFolder> folders, std::function<void(std::size_t)> changed) = 0;

  // Every change is told. False where some may be missed: there are too many folders, or they are on a disk that other
  // computers write to.
  virtual bool tellsAll() const = 0;

  // The files that were written, made, moved or deleted since the last call. Absent where others may have been, too: a
  // folder came or went, or there were too many.
  virtual std::optional<std::vector<std::filesystem::path>> takeChangedFiles() { return std::nullopt; }
};

}  // namespace ambrel
