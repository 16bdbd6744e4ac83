#pragma once
// What Homebrew says of packages that have a newer version.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

// The answer of `brew outdated --json=v2`, a line for each package, sorted: "wget 1.21.3 → 1.24.5", "wget" where the
// versions are not told. Pinned ones, which stay as they are by wish, are left out. Absent when it is no such answer.
std::optional<std::vector<std::string>> parseOutdated(std::string_view json);

}  // namespace ambrel
