#include "core/disk/UserFolders.h"

#include <algorithm>

#include "core/base/Files.h"
#include "core/base/Text.h"
#include "core/disk/DiskItem.h"

namespace ambrel {
namespace {

void add(std::vector<std::string>& folders, const std::string& folder) {
  if (std::find(folders.begin(), folders.end(), folder) == folders.end()) folders.push_back(folder);
}

// "$HOME/Bilder" in double quotes, where a backslash takes the next character as it is.
std::string unquoted(std::string_view value) {
  std::string out;
  if (value.size() < 2 || value.front() != '"') return out;
  for (std::size_t i = 1; i < value.size() && value[i] != '"'; ++i) {
    if (value[i] == '\\' && i + 1 < value.size()) ++i;
    out += value[i];
  }
  return out;
}

}  // namespace

UserFolders parseUserFolders(std::string_view text, const std::string& home) {
  UserFolders folders{
      .desktop = {joinedPath(home, "Desktop")}, .downloads = {joinedPath(home, "Downloads")}, .all = {}};
  for (const std::string_view piece : split(text, '\n')) {
    const std::string_view line = trimmed(piece);
    const auto equals = line.find('=');
    if (equals == line.npos || line.starts_with('#') || !line.starts_with("XDG_")) continue;
    std::string value = unquoted(line.substr(equals + 1));
    constexpr std::string_view variable = "$HOME";
    if (value.starts_with(variable)) value.replace(0, variable.size(), home);
    if (!value.starts_with('/')) continue;
    const std::string path = standardizedPath(value);
    if (path == home || !isWithin(path, home)) continue;
    const std::string_view name = line.substr(0, equals);
    if (name == "XDG_DESKTOP_DIR") add(folders.desktop, path);
    if (name == "XDG_DOWNLOAD_DIR") add(folders.downloads, path);
    add(folders.all, path);
  }
  return folders;
}

UserFolders readUserFolders(const std::string& home) {
  return parseUserFolders(readFile(joinedPath(home, ".config/user-dirs.dirs"), 1 << 20).value_or(""), home);
}

}  // namespace ambrel
