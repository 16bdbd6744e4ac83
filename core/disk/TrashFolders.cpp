#include "core/disk/TrashFolders.h"

#include <algorithm>
#include <sys/stat.h>

#include "core/base/Text.h"
#include "core/disk/FolderReader.h"
#include "core/disk/Handles.h"

namespace ambrel {
namespace {

bool hasTrashName(std::string_view name) {
  constexpr std::string_view ofVolume = ".Trash-";
  if (name == ".Trash" || name == ".Trashes" || name == "$RECYCLE.BIN") return true;
  return name.size() > ofVolume.size() && name.starts_with(ofVolume) &&
         name.find_first_not_of("0123456789", ofVolume.size()) == name.npos;
}

FileDescriptor openIn(const FileDescriptor& folder, const char* name) {
  return FileDescriptor(openat(folder.get(), name, O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

bool hasNotes(const FileDescriptor& info) {
  const auto names = namesIn(info);
  return names && std::any_of(names->begin(), names->end(),
                              [](const std::string& name) { return name.ends_with(".trashinfo"); });
}

}  // namespace

TrashFolders::TrashFolders(const std::string& home) {
  for (const char* place : {".Trash", ".local/share/Trash", ".local/share/Trash/files"}) {
    // With links followed: some people keep it on another disk.
    const FileDescriptor folder(open(joinedPath(home, place).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (const auto identity = folder ? identityOf(folder) : std::nullopt) known_.push_back(*identity);
  }
}

bool TrashFolders::isTrash(const FileDescriptor& folder, std::string_view name) const {
  if (hasTrashName(name)) return true;
  const auto identity = identityOf(folder);
  if (identity &&
      std::any_of(known_.begin(), known_.end(), [&](const FileIdentity& known) { return known.isSameFile(*identity); }))
    return true;
  const FileDescriptor info = openIn(folder, "info");
  return info && openIn(folder, "files") && (name == "Trash" || hasNotes(info));
}

bool TrashFolders::isTrash(const DiskItem& folder, const std::string& path) const {
  if (hasTrashName(folder.name())) return true;
  // A Trash keeps all that it holds in these; where the tree has none, there is nothing to look for.
  const auto children = folder.children();
  const bool mayBe = std::any_of(children.begin(), children.end(), [](const DiskItem& child) {
    return child.name() == "files" || child.name() == "expunged";
  });
  if (!mayBe) return false;
  const FileDescriptor handle = openFolder(path);
  return handle && isTrash(handle, folder.name());
}

bool TrashFolders::holds(std::string_view path) const {
  for (std::string at = standardizedPath(path); at.size() > 1; at.resize(std::max<std::size_t>(at.rfind('/'), 1))) {
    const std::string_view name = std::string_view(at).substr(at.rfind('/') + 1);
    if (hasTrashName(name)) return true;
    const FileDescriptor folder = openFolder(at);
    if (folder && isTrash(folder, name)) return true;
  }
  return false;
}

}  // namespace ambrel
