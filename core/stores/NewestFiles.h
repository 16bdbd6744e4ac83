#pragma once
// What is in a folder, the newest first.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/base/Instant.h"

namespace ambrel {

struct FolderItem {
  std::string name;  // the bytes of the file system
  bool isFolder = false;
  std::int64_t bytes = 0;  // 0 for a folder
  Instant modified;
  friend bool operator==(const FolderItem&, const FolderItem&) = default;
};

struct FolderListing {
  std::vector<FolderItem> newest;
  std::size_t count = 0;  // of all items
  friend bool operator==(const FolderListing&, const FolderListing&) = default;
};

// Hidden items do not count, nor does what a browser is still loading. Absent when the folder cannot be read.
std::optional<FolderListing> newestItems(const std::filesystem::path& folder, std::size_t most);

// The symbol of an item by the end of its name.
std::string_view symbolOf(const FolderItem& item);

}  // namespace ambrel
