#pragma once
// Size trees without a disk under them.

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/base/Text.h"
#include "core/disk.h"

namespace ambrel::test {

struct FileEntry {
  std::string path;  // relative to the root
  std::int64_t size = 0;
  Instant modified = distantPast;
  std::optional<Instant> accessed = {};
};

// The tree that a scan of `root` would give.
inline DiskTree treeOf(const std::string& root, const std::vector<FileEntry>& files,
                       std::int64_t minItemSize = 1'000'000) {
  struct Folder {
    std::map<std::string, Folder> folders;
    std::vector<const FileEntry*> files;

    DiskItem build(const std::string& name, std::int64_t threshold) const {
      DiskFolderBuilder builder(name, distantPast, threshold);
      for (const FileEntry* file : files)
        builder.addFile(file->path.substr(file->path.rfind('/') + 1), file->size, file->modified, file->accessed);
      for (const auto& [child, folder] : folders) builder.add(folder.build(child, threshold));
      return std::move(builder).build(hasPackageExtension(name) ? DiskItem::Kind::package : DiskItem::Kind::folder);
    }
  };
  Folder top;
  for (const FileEntry& file : files) {
    Folder* folder = &top;
    const auto pieces = split(file.path, '/');
    for (std::size_t i = 0; i + 1 < pieces.size(); ++i) folder = &folder->folders[std::string(pieces[i])];
    folder->files.push_back(&file);
  }
  return makeTree(top.build(root, minItemSize));
}

inline const DiskFinding* findingOf(const std::vector<DiskFinding>& findings, FindingRule rule) {
  for (const DiskFinding& finding : findings)
    if (finding.rule == rule) return &finding;
  return nullptr;
}

}  // namespace ambrel::test
