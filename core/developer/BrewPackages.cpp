#include "core/developer/BrewPackages.h"

#include <algorithm>

#include "core/base/JSON.h"

namespace ambrel {
namespace {

// A text, or the last of several.
std::string installedVersion(const JSON& package) {
  if (const JSON* versions = arrayField(package, "installed_versions"))
    return !versions->empty() && versions->back().is_string() ? versions->back().get<std::string>() : "";
  return stringField(package, "installed_versions").value_or("");
}

}  // namespace

std::optional<std::vector<std::string>> parseOutdated(std::string_view json) {
  const auto document = parseJSON(json);
  if (!document || !arrayField(*document, "formulae")) return std::nullopt;
  std::vector<std::string> lines;
  for (const char* kind : {"formulae", "casks"}) {
    const JSON* packages = arrayField(*document, kind);
    if (!packages) continue;
    for (const JSON& package : *packages) {
      std::string line = stringField(package, "name").value_or("");
      if (line.empty() || boolField(package, "pinned").value_or(false)) continue;
      const std::string installed = installedVersion(package);
      const std::string current = stringField(package, "current_version").value_or("");
      if (!installed.empty() && !current.empty()) line += " " + installed + " → " + current;
      lines.push_back(std::move(line));
    }
  }
  std::ranges::sort(lines);
  return lines;
}

}  // namespace ambrel
