#pragma once
// The folder that the user has chosen for a tile.

#include <string>
#include <string_view>

#include "core/base/UserDefaults.h"

namespace ambrel {

// Absolute and without a slash at its end; empty when none is chosen.
inline std::string folderPath(std::string_view path) {
  if (!path.starts_with('/')) return {};
  while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
  return std::string(path);
}

inline std::string storedFolder(const UserDefaults& defaults, const std::string& key) {
  return folderPath(defaults.string(key).value_or(""));
}

}  // namespace ambrel
