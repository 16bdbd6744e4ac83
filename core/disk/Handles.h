#pragma once
// Paths resolved through handles, one component after the other, so that no symbolic link on the way is ever
// followed and no length limit applies. What is decided about a handle cannot be swapped under it.

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/base/Files.h"
#include "core/disk/Findings.h"

namespace ambrel {

// Opens a folder by its absolute path. Empty, with errno, when a component is a symbolic link, "." or "..", or is
// no folder. The handle serves for look-ups and not for listing.
FileDescriptor openFolder(std::string_view path);

// A path split for look-ups: the open folder that holds it, and its last component.
struct Place {
  FileDescriptor folder;
  std::string name;
  explicit operator bool() const { return static_cast<bool>(folder); }
};
Place placeOf(std::string_view path);

// Of the entry itself, also when it is a symbolic link.
std::optional<FileIdentity> identityAt(const FileDescriptor& folder, const std::string& name);
std::optional<FileIdentity> identityOf(const FileDescriptor& handle);
std::optional<FileIdentity> identityOf(std::string_view path);

// Names of the entries of a folder, opened from such a handle. Absent when it cannot be listed.
std::optional<std::vector<std::string>> namesIn(const FileDescriptor& folder);

}  // namespace ambrel
