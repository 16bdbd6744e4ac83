#include <algorithm>
#include <sys/stat.h>

#include "core/base/Text.h"
#include "core/disk/DiskAdvice.h"
#include "core/disk/DiskScanner.h"
#include "core/disk/Handles.h"
#include "core/disk/UserFolders.h"

namespace ambrel::DiskAdvice {
namespace {

std::vector<std::string> mainFolders(const std::string& home) {
  std::vector<std::string> folders{"/", home};
  for (const std::string_view name :
       {"Desktop", "Documents", "Downloads", "Library", "Movies", "Music", "Pictures", "Public", "Applications",
        ".Trash",
        // This system's own.
        "Videos", "Templates", ".config", ".local", ".local/share", ".local/share/Trash", ".var", ".ssh", ".gnupg"})
    folders.push_back(joinedPath(home, name));
  for (std::string& folder : readUserFolders(home).all) folders.push_back(std::move(folder));
  folders.insert(folders.end(), fixedExclusions().begin(), fixedExclusions().end());
  return folders;
}

// Follows links, unlike everything else here: the question is where a path leads in the end.
std::optional<std::pair<dev_t, ino_t>> leadsTo(const std::string& path) {
  struct stat info;
  if (stat(path.c_str(), &info) != 0) return std::nullopt;
  return std::pair(info.st_dev, info.st_ino);
}

// A folder's own figures change with everything that is written into it; its contents are judged one by one.
bool isStillThere(const CleanupItem& item, const std::optional<FileIdentity>& now) {
  if (!item.identity || !now) return false;
  return item.contentsOnly ? item.identity->isSameFile(*now) : *item.identity == *now;
}

// One copy stays whatever was chosen: a file, or a folder with it, that was kept when its duplicates went.
bool isLastCopy(const CleanupItem& item, const std::vector<KeptCopy>& kept) {
  return std::any_of(kept.begin(), kept.end(), [&](const KeptCopy& copy) {
    return isWithin(copy.url, item.url) || (item.identity && item.identity->isSameFile(copy.identity));
  });
}

bool isKeptCopyIntact(const CleanupItem& item) {
  return !item.kept || identityOf(item.kept->url) == item.kept->identity;
}

// What one item came to. `bytes` went even when something else stayed.
struct Outcome {
  bool isMoved = false;
  std::int64_t bytes = 0;
};

bool tryMove(const TrashMove& move, const TrashRequest& request) {
  try {
    move(request);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

Outcome moveContents(const CleanupItem& item, const TrashMove& move) {
  const FileDescriptor folder = openFolder(item.url);
  const auto identity = folder ? identityOf(folder) : std::nullopt;
  if (!isStillThere(item, identity)) return {};
  auto names = namesIn(folder);
  if (!names) return {};
  std::sort(names->begin(), names->end());
  Outcome outcome{.isMoved = true, .bytes = 0};
  for (const std::string& name : *names) {
    if (item.keeping.contains(name)) continue;
    const auto child = identityAt(folder, name);
    if (!child) continue;  // Gone by itself meanwhile, as caches do.
    const auto space = allocatedSpace(folder, name);
    const bool mayGo = space && !space->holdsVolume;
    if (mayGo && tryMove(move, {.url = joinedPath(item.url, name), .identity = *child, .folder = identity})) {
      outcome.bytes += space->bytes;
    } else {
      outcome.isMoved = false;
    }
  }
  return outcome;
}

Outcome moveWhole(const CleanupItem& item, const TrashMove& move) {
  const Place place = placeOf(item.url);
  if (!place || !isStillThere(item, identityAt(place.folder, place.name)) || !isKeptCopyIntact(item)) return {};
  // Of a folder, the dates say little about what lies deeper; its size does. A volume that is mounted in it would
  // go along, and be emptied with the Trash.
  const auto space = allocatedSpace(place.folder, place.name);
  if (!space || !space->isWhole || space->holdsVolume || space->bytes != item.bytes) return {};
  if (!tryMove(move, {.url = item.url, .identity = *item.identity})) return {};
  return {.isMoved = true, .bytes = item.bytes};
}

}  // namespace

bool isMainFolder(const std::string& url, const std::string& home) {
  const std::string path = standardizedPath(url);
  const std::string base = standardizedPath(home);
  if (isWithin(base, path)) return true;
  const auto folders = mainFolders(base);
  // Nor may one go along with a folder that holds it.
  if (std::any_of(folders.begin(), folders.end(), [&](const std::string& folder) { return isWithin(folder, path); }))
    return true;
  const auto target = leadsTo(url);
  if (!target) return false;
  for (std::string above = base; above.size() > 1; above.resize(std::max<std::size_t>(above.rfind('/'), 1)))
    if (leadsTo(above) == target) return true;
  return std::any_of(folders.begin(), folders.end(),
                     [&](const std::string& folder) { return leadsTo(folder) == target; });
}

TrashReport moveToTrash(const std::vector<CleanupItem>& items, const std::string& home, const TrashMove& move) {
  TrashReport report;
  std::vector<KeptCopy> kept;
  for (const CleanupItem& item : items) {
    // `.cache` is emptied and never moved itself: running applications expect it.
    const bool isWholeCache = !item.contentsOnly && standardizedPath(item.url) == joinedPath(home, ".cache");
    const bool stays = isMainFolder(item.url, home) || isWholeCache || isLastCopy(item, kept);
    const Outcome outcome = stays ? Outcome{} : item.contentsOnly ? moveContents(item, move) : moveWhole(item, move);
    if (outcome.isMoved && item.kept) kept.push_back(*item.kept);
    report.bytesMoved += outcome.bytes;
    auto& list = outcome.isMoved ? report.moved : report.failed;
    list.push_back(item);
    if (outcome.isMoved) list.back().bytes = outcome.bytes;
  }
  return report;
}

}  // namespace ambrel::DiskAdvice
