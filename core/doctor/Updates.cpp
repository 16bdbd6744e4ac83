#include <fmt/format.h>

#include "core/base/Files.h"
#include "core/base/Text.h"
#include "core/doctor.h"

namespace ambrel {
namespace {

// The value of "Field: value" in a block of such lines; empty when it is not there.
std::string_view fieldOf(std::string_view block, std::string_view field) {
  for (const std::string_view line : split(block, '\n')) {
    const std::string_view text = trimmed(line);
    if (text.starts_with(field) && text.substr(field.size()).starts_with(':'))
      return trimmed(text.substr(field.size() + 1));
  }
  return {};
}

bool lists(const std::filesystem::path& list, const std::filesystem::path& file) {
  const auto text = readFile(list);
  if (!text) return false;
  for (const std::string_view line : split(*text, '\n'))
    if (line == file.native()) return true;
  return false;
}

// "0.1.0" is the version of the packages 0.1.0, 0.1.0-1 and 0.1.0~deb12u1, and not that of 0.1.01.
bool isOf(std::string_view package, std::string_view version) {
  if (!package.starts_with(version)) return false;
  package.remove_prefix(version.size());
  return package.empty() || std::string_view("-~+").find(package.front()) != std::string_view::npos;
}

// "(none)" stands for no version.
std::string versionOf(std::string_view text) { return text.starts_with('(') ? std::string() : std::string(text); }

}  // namespace

std::optional<InstalledPackage> packageOf(const std::filesystem::path& file, std::string_view name,
                                          const std::filesystem::path& dpkg) {
  if (!lists(dpkg / "info" / (std::string(name) + ".list"), file)) return std::nullopt;
  const auto status = readFile(dpkg / "status");
  if (!status) return std::nullopt;
  for (std::string_view rest = *status; !rest.empty();) {
    const auto end = rest.find("\n\n");
    const std::string_view block = rest.substr(0, end);
    if (fieldOf(block.substr(0, block.find('\n')), "Package") == name)
      return InstalledPackage{std::string(name), std::string(fieldOf(block, "Version"))};
    rest.remove_prefix(end == rest.npos ? rest.size() : end + 2);
  }
  return std::nullopt;
}

std::optional<AptPolicy> parseAptPolicy(std::string_view output) {
  AptPolicy policy{.installed = versionOf(fieldOf(output, "Installed")),
                   .candidate = versionOf(fieldOf(output, "Candidate"))};
  if (policy.installed.empty() && policy.candidate.empty()) return std::nullopt;
  const auto table = output.find("Version table:");
  if (table == output.npos) return policy;
  // "  500 http://deb.debian.org/debian bookworm/main amd64 Packages"; a file's only source is dpkg's own list.
  for (const std::string_view line : split(output.substr(table), '\n'))
    if (line.find(":/") != line.npos) policy.hasArchive = true;
  return policy;
}

UpdateAnswer updateAnswer(std::string_view version, const std::optional<InstalledPackage>& package,
                          const std::optional<AptPolicy>& policy) {
  if (!package)
    return {fmt::format("Tilebay {}, built from source", version),
            "No package holds this program, so nobody here knows of newer versions."};
  if (!isOf(package->version, version))
    return {fmt::format("Tilebay {} is installed", package->version),
            fmt::format("{} still runs. Quit it and start it again.", version)};
  const std::string here = fmt::format("Tilebay {}", package->version);
  if (!policy)
    return {here, fmt::format("From the package {}. apt did not say whether it knows a newer one.", package->name)};
  // apt's candidate is the version that it would install; what is pinned or held back is no news.
  if (!policy->candidate.empty() && policy->candidate != package->version)
    return {fmt::format("Tilebay {} is available", policy->candidate),
            fmt::format("You have {}. Your package manager installs it: sudo apt install {}", package->version,
                        package->name)};
  if (!policy->hasArchive) return {here, "Installed from a file: apt knows no archive that has newer ones."};
  return {fmt::format("{} is the newest that apt knows", here), "\"sudo apt update\" reads the archives' lists again."};
}

}  // namespace ambrel
