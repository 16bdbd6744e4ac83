#include "core/disk/DiskAdvice.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>

#include "core/base/LocalText.h"
#include "core/base/PlatformWords.h"
#include "core/base/Text.h"

namespace ambrel::DiskAdvice {
namespace {

constexpr std::size_t namedAtMost = 2;

// The keys with the largest totals, largest first; equal ones in case order.
template <typename Key>
std::vector<Key> largest(const std::map<Key, std::int64_t>& totals) {
  std::vector<std::pair<Key, std::int64_t>> sorted(totals.begin(), totals.end());
  std::stable_sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return a.second > b.second; });
  std::vector<Key> keys;
  for (const auto& entry : sorted)
    if (keys.size() < namedAtMost) keys.push_back(entry.first);
  return keys;
}

std::string inMidSentence(std::string_view title) {
  return title.empty() ? std::string() : asciiLower(title.substr(0, 1)) + std::string(title.substr(1));
}

template <typename Range, typename Name>
std::string joinedByAnd(const Range& range, const Name& name) {
  std::string out;
  for (const auto& entry : range) {
    if (!out.empty()) out += " and ";
    out += name(entry);
  }
  return out;
}

constexpr std::string_view lookFirst = "Look at the list before you move them.";

std::string_view nextStep(FindingRule rule) {
  switch (rule) {
    case FindingRule::developerCaches:
    case FindingRule::staleBuildFolders:
      return "Safe to move to the Trash.";
    case FindingRule::trash:
      return "Open it to decide.";
    case FindingRule::appCaches:
    case FindingRule::oldInstallers:
    case FindingRule::duplicates:
    case FindingRule::oldArchives:
    case FindingRule::oldScreenshots:
      return lookFirst;
    case FindingRule::oldSimulatorRuntimes:
      return "Buddy only shows them.";
    case FindingRule::largeOldFiles:
      return "Open each one first. Only you know if you still need it.";
  }
  return {};
}

std::string_view answer(CleanupRisk risk) {
  switch (risk) {
    case CleanupRisk::safe:
      return "Yes, most likely.";
    case CleanupRisk::review:
      return "Probably, but look first.";
    case CleanupRisk::careful:
      return "Maybe. Only you know.";
  }
  return {};
}

struct Found {
  const DiskFinding* finding = nullptr;
  const CleanupItem* item = nullptr;
  explicit operator bool() const { return finding; }
};

Found findingOf(const std::string& path, const std::vector<DiskFinding>& findings) {
  for (const DiskFinding& finding : findings)
    for (const CleanupItem& item : finding.items) {
      if (item.url.empty() || !isWithin(path, item.url)) continue;
      // A child that stays in its place belongs to no finding through its folder.
      if (item.contentsOnly && path.size() > item.url.size()) {
        const std::string_view below = std::string_view(path).substr(item.url.size() + 1);
        if (item.keeping.contains(below.substr(0, below.find('/')))) continue;
      }
      return {&finding, &item};
    }
  return {};
}

// Where applications keep their data here, as "Library" is on the original desktop.
std::optional<std::string_view> dataFolderOf(const std::string& path, const std::string& home) {
  for (const std::string_view name : {".config", ".local", ".var", ".cache"})
    if (isWithin(path, joinedPath(home, name))) return name;
  return std::nullopt;
}

}  // namespace

std::string headline(const std::vector<DiskFinding>& findings) {
  std::map<FindingGroup, std::int64_t> totals;
  for (const DiskFinding& finding : findings)
    if (const auto place = group(finding.rule)) totals[*place] += finding.bytes();
  if (totals.empty()) return std::string("Your {machine} looks tidy."_local);
  return "Mostly " + joinedByAnd(largest(totals), [](FindingGroup entry) { return std::string(title(entry)); });
}

std::int64_t freeableBytes(const std::vector<DiskFinding>& findings) {
  std::int64_t sum = 0;
  for (const DiskFinding& finding : findings)
    if (isMovable(finding.rule)) sum += finding.bytes();
  return sum;
}

std::string summary(const DiskItem& root, const std::vector<DiskFinding>& findings, const Calendar& calendar) {
  std::string text = fmt::format("{} uses {}.", repairedUTF8(root.name()), fileSize(calendar, root.size()));
  std::vector<const DiskItem*> named;
  for (const DiskItem& child : root.children())
    if (child.kind() != DiskItem::Kind::smallItems && named.size() < namedAtMost) named.push_back(&child);
  if (!named.empty())
    text += " Most of it is in " +
            joinedByAnd(named, [](const DiskItem* child) { return repairedUTF8(child->name()); }) + ".";

  std::map<FindingRule, std::int64_t> movable;
  for (const DiskFinding& finding : findings)
    if (isMovable(finding.rule)) movable[finding.rule] += finding.bytes();
  if (movable.empty()) {
    text += " Nothing obvious to clean: the big folders hold your own files.";
  } else {
    text += fmt::format(" Buddy found {} you can free, mostly {}.", fileSize(calendar, freeableBytes(findings)),
                        joinedByAnd(largest(movable), [](FindingRule rule) { return inMidSentence(title(rule)); }));
  }
  for (const DiskFinding& finding : findings)
    if (finding.rule == FindingRule::trash)
      text += fmt::format(" The Trash holds {}.", fileSize(calendar, finding.bytes()));
  return text;
}

namespace {

std::string line(FindingRule rule, std::size_t count, std::int64_t bytes, std::string_view step,
                 const Calendar& calendar) {
  const std::string items = count == 1 ? "1 item" : fmt::format("{} items", count);
  return fmt::format("{} {}, {}. {}", title(rule), items, fileSize(calendar, bytes), step);
}

}  // namespace

std::string findingLine(FindingRule rule, std::size_t count, std::int64_t bytes, const Calendar& calendar) {
  return line(rule, count, bytes, nextStep(rule), calendar);
}

std::string findingLine(const DiskFinding& finding, const Calendar& calendar) {
  const bool needsMoreCare = isMovable(finding.rule) && finding.risk() > risk(finding.rule);
  return line(finding.rule, finding.items.size(), finding.bytes(), needsMoreCare ? lookFirst : nextStep(finding.rule),
              calendar);
}

std::string verdict(const DiskItem& item, const std::vector<DiskFinding>& findings, const std::string& home,
                    Instant now, const Calendar& calendar) {
  const std::string path = standardizedPath(item.url());
  const std::string base = standardizedPath(home);
  const Found found = findingOf(path, findings);
  std::string text = fmt::format("It takes {} and changed {}. ", fileSize(calendar, item.size()),
                                 relativeAge(calendar, item.modified(), now));
  if (isMainFolder(path, base))
    return (text + repairedUTF8(item.name()))
        .append(" is a main folder of your {machine}. Clean what is inside it instead."_local);
  if (!found) {
    if (isWithin(path, joinedPath(base, "Library")))
      return text +
             "Be careful. This is app data in your Library. Delete it only when you know which app made it and "
             "you no longer use that app.";
    if (const auto folder = dataFolderOf(path, base))
      return text + fmt::format(
                        "Be careful. This is app data in your {} folder. Delete it only when you know which "
                        "app made it and you no longer use that app.",
                        *folder);
  }
  if (found) {
    const auto& [finding, entry] = found;
    text += fmt::format("{} It is in {}. {}", answer(riskOf(*entry, finding->rule)),
                        inMidSentence(title(finding->rule)), finding->reason);
    return entry->ownRisk ? text + " " + entry->detail : text;
  }
  if (item.kind() == DiskItem::Kind::package && asciiLower(item.name()).ends_with(".app"))
    return text + "If you no longer use this app, you can move it to the Trash. Its settings stay in your Library.";
  return text.append(
      "Buddy does not know this item. Open it in {fileManager} to check before you move it to the Trash."_local);
}

namespace {

// What those that have a name of their own are said to have met; the others "were in use or protected".
std::string_view namedObstacle(StayReason reason) {
  if (reason == StayReason::noTrash) return "because their volume has no Trash";
  if (reason == StayReason::readOnly) return "because their volume is read-only";
  if (reason == StayReason::diskFull) return "because the disk is full";
  return {};
}

std::string whyTheyStayed(const std::vector<CleanupItem>& failed) {
  std::size_t others = 0;
  std::map<std::string_view, std::size_t> named;
  for (const CleanupItem& item : failed) {
    const std::string_view obstacle = namedObstacle(item.stayed.value_or(StayReason::inUse));
    ++(obstacle.empty() ? others : named[obstacle]);
  }
  std::string text = others > 0 ? fmt::format("{} items were in use or protected and stayed.", others) : "";
  for (const auto& [obstacle, count] : named)
    text += fmt::format("{}{} {} stayed {}.", text.empty() ? "" : " ", count, count == 1 ? "item" : "items", obstacle);
  return text;
}

// How what moved comes back.
std::string wayBack(const std::vector<std::string>& unlisted) {
  if (unlisted.empty()) return "To undo, use Put Back in the Trash.";
  return fmt::format("The file manager does not show this Trash. To undo, move things back from {}.",
                     joinedByAnd(unlisted, [](const std::string& folder) { return repairedUTF8(folder) + "/files"; }));
}

}  // namespace

TrashMessage message(const TrashReport& report, const Calendar& calendar) {
  // Part of a folder's contents can have moved although the rest stayed.
  if (report.moved.empty() && report.bytesMoved <= 0) {
    const bool isNamed = std::any_of(report.failed.begin(), report.failed.end(), [](const CleanupItem& item) {
      return item.stayed && !namedObstacle(*item.stayed).empty();
    });
    return {.title = "Nothing was moved",
            .body = isNamed ? whyTheyStayed(report.failed) : "The items are in use or protected.",
            .isMoved = false};
  }
  std::string body = report.failed.empty() ? wayBack(report.unlisted) : whyTheyStayed(report.failed);
  if (!report.failed.empty() && !report.unlisted.empty()) body += " " + wayBack(report.unlisted);
  return {.title = fmt::format("Moved {} to the Trash", fileSize(calendar, report.bytesMoved)),
          .body = std::move(body),
          .isMoved = true};
}

}  // namespace ambrel::DiskAdvice
