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
  bool isLoading = false;  // a browser is still writing it, or has given it up
  friend bool operator==(const FolderItem&, const FolderItem&) = default;
};

struct FolderListing {
  std::vector<FolderItem> newest;
  std::size_t count = 0;    // of all items that are whole
  std::size_t loading = 0;  // of the others
  friend bool operator==(const FolderListing&, const FolderListing&) = default;
};

enum class Unfinished { passedOver, listed };
// Hidden items do not count, and what a browser is still loading only if it is `listed`: by the name that it will have.
// Absent when the folder cannot be read.
std::optional<FolderListing> newestItems(const std::filesystem::path& folder, std::size_t most,
                                         Unfinished unfinished = Unfinished::passedOver);

// The symbol of an item by the end of its name.
std::string_view symbolOf(const FolderItem& item);

}  // namespace ambrel
