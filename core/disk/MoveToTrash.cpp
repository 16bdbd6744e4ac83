#include <algorithm>
#include <cerrno>
#include <set>
#include <sys/stat.h>

#include "core/base/Text.h"
#include "core/disk/DiskAdvice.h"
#include "core/disk/DiskScanner.h"
#include "core/disk/Handles.h"
#include "core/disk/TrashFolders.h"
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
bool isStillThere(const CleanupItem& item, const FileIdentity& now) {
  return item.identity && (item.contentsOnly ? item.identity->isSameFile(now) : *item.identity == now);
}

StayReason reasonOf(int error) { return error == ENOENT ? StayReason::gone : StayReason::changed; }

// What one item came to: why it stayed, if any of it did, what went and what is left.
struct Outcome {
  std::optional<StayReason> stayed;
  std::int64_t moved = 0, left = 0;

  static Outcome stays(StayReason reason, std::int64_t left) { return {.stayed = reason, .left = left}; }
};

// The copies that stay, whatever was chosen.
class KeptCopies {
 public:
  void add(const KeptCopy& copy) {
    paths_.insert(copy.url);
    files_.insert({copy.identity.device, copy.identity.inode});
  }
  // Whether the item is one of them, or a folder with one.
  bool areIn(const CleanupItem& item) const {
    if (item.identity && files_.contains({item.identity->device, item.identity->inode})) return true;
    const std::string below = joinedPath(item.url, "");
    const auto next = paths_.lower_bound(below);
    return paths_.contains(item.url) || (next != paths_.end() && next->starts_with(below));
  }

 private:
  std::set<std::string> paths_;
  std::set<std::pair<std::uint64_t, std::uint64_t>> files_;
};

class Mover {
 public:
  Mover(const std::string& home, const KeptCopies& kept, const TrashMove& move)
      : home_(home), kept_(kept), trashes_(home), move_(move) {}

  Outcome moveItem(const CleanupItem& item) {
    // `.cache` is emptied and never moved itself: running applications expect it.
    const bool isWholeCache = !item.contentsOnly && standardizedPath(item.url) == joinedPath(home_, ".cache");
    if (isMainFolder(item.url, home_) || isWholeCache) return Outcome::stays(StayReason::mainFolder, item.bytes);
    if (kept_.areIn(item)) return Outcome::stays(StayReason::keptCopy, item.bytes);
    return item.contentsOnly ? moveContents(item) : moveWhole(item);
  }

  std::vector<std::string> takeUnlisted() { return std::move(unlisted_); }

 private:
  // It is emptied with the Trash when it was deleted before.
  bool hasKeptCopy(const CleanupItem& item) const {
    return !item.kept || (identityOf(item.kept->url) == item.kept->identity && !trashes_.holds(item.kept->url));
  }

  std::optional<StayReason> tryMove(const TrashRequest& request) {
    try {
      TrashPlace place = move_(request);
      if (!place.isListed && std::find(unlisted_.begin(), unlisted_.end(), place.folder) == unlisted_.end())
        unlisted_.push_back(std::move(place.folder));
      return std::nullopt;
    } catch (const TrashError& error) {
      return error.reason();
    } catch (const std::exception&) {
      return StayReason::inUse;
    }
  }

  Outcome moveContents(const CleanupItem& item) {
    const FileDescriptor folder = openFolder(item.url);
    const auto identity = folder ? identityOf(folder) : std::nullopt;
    if (!identity) {
      const StayReason reason = reasonOf(errno);
      return Outcome::stays(reason, reason == StayReason::gone ? 0 : item.bytes);
    }
    if (!isStillThere(item, *identity)) return Outcome::stays(StayReason::changed, item.bytes);
    auto names = namesIn(folder);
    if (!names) return Outcome::stays(StayReason::unreadable, item.bytes);
    std::sort(names->begin(), names->end());
    Outcome outcome;
    for (const std::string& name : *names) {
      if (item.keeping.contains(name)) continue;
      const auto child = identityAt(folder, name);
      const auto space = child ? allocatedSpace(folder, name) : std::nullopt;
      if (!space) continue;  // Gone by itself meanwhile, as caches do.
      auto reason = obstacle(*space);
      if (!reason) reason = tryMove({.url = joinedPath(item.url, name), .identity = *child, .folder = identity});
      (reason ? outcome.left : outcome.moved) += space->bytes;
      if (!outcome.stayed) outcome.stayed = reason;
    }
    return outcome;
  }

  // What is mounted in a folder would go along, and be emptied with the Trash. What cannot be looked at may hold such
  // a place.
  static std::optional<StayReason> obstacle(const AllocatedSpace& space) {
    if (space.holdsVolume) return StayReason::holdsMount;
    if (!space.isWhole) return StayReason::unreadable;
    return std::nullopt;
  }

  Outcome moveWhole(const CleanupItem& item) {
    const Place place = placeOf(item.url);
    const auto now = place ? identityAt(place.folder, place.name) : std::nullopt;
    const auto space = now ? allocatedSpace(place.folder, place.name) : std::nullopt;
    if (!space) {
      const StayReason reason = reasonOf(errno);
      return Outcome::stays(reason, reason == StayReason::gone ? 0 : item.bytes);
    }
    if (!isStillThere(item, *now)) return Outcome::stays(StayReason::changed, space->bytes);
    if (trashes_.holds(item.url)) return Outcome::stays(StayReason::isDeleted, space->bytes);
    if (!hasKeptCopy(item)) return Outcome::stays(StayReason::noCopy, space->bytes);
    if (const auto reason = obstacle(*space)) return Outcome::stays(*reason, space->bytes);
    // Of a folder, the dates say little about deeper levels; its size does. A file's space is not a sign of a change:
    // the file system settles it some time after the last write.
    if (space->isFolder && space->bytes != item.bytes) return Outcome::stays(StayReason::changed, space->bytes);
    if (const auto reason = tryMove({.url = item.url, .identity = *item.identity}))
      return Outcome::stays(*reason, space->bytes);
    return {.stayed = {}, .moved = space->bytes, .left = 0};
  }

  const std::string& home_;
  const KeptCopies& kept_;
  const TrashFolders trashes_;
  const TrashMove& move_;
  std::vector<std::string> unlisted_;
};

}  // namespace

bool isMainFolder(const std::string& url, const std::string& home) {
  const std::string path = standardizedPath(url);
  const std::string base = standardizedPath(home);
  if (isWithin(base, path)) return true;
  const auto folders = mainFolders(base);
  // So is a folder that holds one.
  if (std::any_of(folders.begin(), folders.end(), [&](const std::string& folder) { return isWithin(folder, path); }))
    return true;
  const auto target = leadsTo(url);
  if (!target) return false;
  for (std::string above = base; above.size() > 1; above.resize(std::max<std::size_t>(above.rfind('/'), 1)))
    if (leadsTo(above) == target) return true;
  return std::any_of(folders.begin(), folders.end(),
                     [&](const std::string& folder) { return leadsTo(folder) == target; });
}

std::vector<KeptCopy> keptCopies(const std::vector<DiskFinding>& findings) {
  std::vector<KeptCopy> kept;
  std::set<std::string> seen;
  for (const DiskFinding& finding : findings)
    for (const CleanupItem& item : finding.items)
      if (item.kept && seen.insert(item.kept->url).second) kept.push_back(*item.kept);
  return kept;
}

TrashReport moveToTrash(const std::vector<CleanupItem>& items, const std::string& home,
                        const std::vector<KeptCopy>& kept, const TrashMove& move) {
  TrashReport report;
  KeptCopies staying;
  for (const KeptCopy& copy : kept) staying.add(copy);
  for (const CleanupItem& item : items)
    if (item.kept) staying.add(*item.kept);
  Mover mover(home, staying, move);
  for (const CleanupItem& item : items) {
    const Outcome outcome = mover.moveItem(item);
    report.bytesMoved += outcome.moved;
    auto& list = outcome.stayed ? report.failed : report.moved;
    list.push_back(item);
    list.back().bytes = outcome.stayed ? outcome.left : outcome.moved;
    list.back().stayed = outcome.stayed;
  }
  report.unlisted = mover.takeUnlisted();
  return report;
}

}  // namespace ambrel::DiskAdvice
