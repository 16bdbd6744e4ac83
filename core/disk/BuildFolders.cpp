#include "core/disk/BuildFolders.h"

#include <algorithm>
#include <array>

#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/disk/DiskItem.h"

namespace ambrel {
namespace {

constexpr std::array markers{std::pair{std::string_view("node_modules"), std::string_view("package.json")},
                             std::pair{std::string_view("Pods"), std::string_view("Podfile")},
                             std::pair{std::string_view(".build"), std::string_view("Package.swift")},
                             std::pair{std::string_view("target"), std::string_view("Cargo.toml")}};

constexpr std::string_view nodeModules = "node_modules";

template <std::size_t count>
bool holdsOne(const std::string& folder, const std::array<const char*, count>& names) {
  return std::any_of(names.begin(), names.end(), [&](const char* name) {
    std::error_code error;
    return std::filesystem::exists(std::filesystem::symlink_status(joinedPath(folder, name), error));
  });
}

// An editor's extension says which versions of the editor it works with.
bool isEditorExtension(const std::string& project) {
  const auto package = parseJSON(readFile(joinedPath(project, "package.json"), 1 << 20).value_or(""));
  const JSON* engines = package ? objectField(*package, "engines") : nullptr;
  return engines && (engines->contains("vscode") || engines->contains("atom"));
}

}  // namespace

std::optional<std::string_view> projectMarker(std::string_view folderName) {
  for (const auto& [name, marker] : markers)
    if (name == folderName) return marker;
  return std::nullopt;
}

std::string doubtAbout(const std::string& project, std::string_view folderName, const std::string& home) {
  // Of a link farm or a package that was unpacked, "npm-shrinkwrap.json" is part; these are of a working copy alone.
  constexpr std::array locks{"package-lock.json", "yarn.lock", "pnpm-lock.yaml", "bun.lock", "bun.lockb"};
  constexpr std::array repositories{".git", ".hg", ".svn", ".jj"};

  const std::string path = standardizedPath(project);
  const std::string base = isWithin(path, home) ? home : "/";
  if (path.find("/.", base.size() == 1 ? 0 : base.size()) != path.npos)
    return "It is in a hidden folder, where programs keep what they run. Nothing may fill it again.";
  if (folderName != nodeModules) return {};
  if (path.ends_with("/resources/app")) return "It is part of an unpacked program, and nothing fills it again.";
  bool hasLock = false;
  for (std::string above = path; above.size() > base.size(); above.resize(std::max<std::size_t>(above.rfind('/'), 1))) {
    if (holdsOne(above, repositories)) return {};
    hasLock = hasLock || holdsOne(above, locks);
  }
  if (isEditorExtension(path))
    return "It is part of an editor's extension. It comes back only when that is installed again.";
  if (hasLock) return {};
  return "No repository and no lock file is beside it. In an unpacked program, nothing fills it again.";
}

}  // namespace ambrel
