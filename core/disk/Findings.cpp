#include "core/disk/Findings.h"

#include <algorithm>
#include <numeric>

namespace ambrel {
namespace {

struct RuleFacts {
  FindingRule rule;
  std::string_view title, symbol;
  std::optional<FindingGroup> group;
  CleanupRisk risk;
};

constexpr std::array ruleFacts{
    RuleFacts{FindingRule::developerCaches, "Developer caches", "hammer", FindingGroup::developerJunk,
              CleanupRisk::safe},
    RuleFacts{FindingRule::appCaches, "App caches", "archivebox", FindingGroup::developerJunk, CleanupRisk::review},
    RuleFacts{FindingRule::staleBuildFolders, "Build folders in old projects", "shippingbox",
              FindingGroup::developerJunk, CleanupRisk::safe},
    RuleFacts{FindingRule::oldInstallers, "Old installers in Downloads", "arrow.down.circle",
              FindingGroup::oldDownloads, CleanupRisk::review},
    RuleFacts{FindingRule::largeOldFiles, "Large files you have not opened", "doc.badge.clock",
              FindingGroup::bigOldFiles, CleanupRisk::careful},
    RuleFacts{FindingRule::duplicates, "Duplicate files", "doc.on.doc", FindingGroup::duplicates, CleanupRisk::review},
    RuleFacts{FindingRule::oldArchives, "Old Xcode archives", "archivebox.fill", FindingGroup::developerJunk,
              CleanupRisk::review},
    RuleFacts{FindingRule::oldSimulatorRuntimes, "Old simulator runtimes", "iphone.gen3", std::nullopt,
              CleanupRisk::review},
    RuleFacts{FindingRule::oldScreenshots, "Old screenshots on the Desktop", "camera.viewfinder",
              FindingGroup::oldDownloads, CleanupRisk::review},
    RuleFacts{FindingRule::trash, "The Trash", "trash", FindingGroup::trash, CleanupRisk::safe}};

constexpr bool isInCaseOrder() {
  for (std::size_t i = 0; i < ruleFacts.size(); ++i)
    if (ruleFacts[i].rule != static_cast<FindingRule>(i)) return false;
  return true;
}
static_assert(isInCaseOrder());

const RuleFacts& facts(FindingRule rule) { return ruleFacts[static_cast<std::size_t>(rule)]; }

}  // namespace

std::string_view label(CleanupRisk risk) {
  switch (risk) {
    case CleanupRisk::safe:
      return "Safe";
    case CleanupRisk::review:
      return "Review";
    case CleanupRisk::careful:
      return "Careful";
  }
  return {};
}

std::string_view explanation(StayReason reason) {
  switch (reason) {
    case StayReason::inUse:
      return "In use or protected";
    case StayReason::changed:
      return "Changed since the scan";
    case StayReason::gone:
      return "Not there any more";
    case StayReason::mainFolder:
      return "A folder that never moves as a whole";
    case StayReason::keptCopy:
      return "The copy that stays";
    case StayReason::noCopy:
      return "The copy that was to stay has changed or was deleted";
    case StayReason::holdsMount:
      return "Something is mounted in it";
    case StayReason::unreadable:
      return "Not all of it can be read";
    case StayReason::isDeleted:
      return "In the Trash already";
    case StayReason::noTrash:
      return "Its volume has no Trash";
    case StayReason::readOnly:
      return "Its volume is read-only";
    case StayReason::diskFull:
      return "The disk is full";
  }
  return {};
}

std::string_view title(FindingGroup group) {
  switch (group) {
    case FindingGroup::developerJunk:
      return "Developer junk";
    case FindingGroup::oldDownloads:
      return "Old downloads";
    case FindingGroup::bigOldFiles:
      return "Big old files";
    case FindingGroup::duplicates:
      return "Duplicates";
    case FindingGroup::trash:
      return "Trash";
  }
  return {};
}

std::string_view title(FindingRule rule) { return facts(rule).title; }
std::string_view symbol(FindingRule rule) { return facts(rule).symbol; }
std::optional<FindingGroup> group(FindingRule rule) { return facts(rule).group; }
CleanupRisk risk(FindingRule rule) { return facts(rule).risk; }

bool isMovable(FindingRule rule) { return rule != FindingRule::oldSimulatorRuntimes && rule != FindingRule::trash; }

std::int64_t DiskFinding::bytes() const {
  return std::accumulate(items.begin(), items.end(), std::int64_t{0},
                         [](std::int64_t sum, const CleanupItem& item) { return sum + item.bytes; });
}

CleanupRisk riskOf(const CleanupItem& item, FindingRule rule) { return item.ownRisk.value_or(risk(rule)); }

CleanupRisk DiskFinding::risk() const {
  CleanupRisk greatest = ambrel::risk(rule);
  for (const CleanupItem& item : items) greatest = std::max(greatest, riskOf(item, rule));
  return greatest;
}

}  // namespace ambrel
