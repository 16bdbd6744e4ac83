#pragma once
// Tells the folders that hold what was deleted: a copy in one of them must not be counted on.

#include <string>
#include <string_view>
#include <vector>

#include "core/base/Files.h"
#include "core/disk/DiskItem.h"
#include "core/disk/Findings.h"

namespace ambrel {

// The home's own Trash is known by identity, so under any path; others, such as those of volumes, of other users and
// of programs with a data folder of their own, by their names and by what is in them.
class TrashFolders {
 public:
  explicit TrashFolders(const std::string& home);

  // Whether this folder of a tree is one. Looks at the disk only when the tree leaves it open.
  bool isTrash(const DiskItem& folder, const std::string& path) const;
  // Whether `path` is one, or in one.
  bool holds(std::string_view path) const;

 private:
  bool isTrash(const FileDescriptor& folder, std::string_view name) const;

  std::vector<FileIdentity> known_;
};

}  // namespace ambrel
