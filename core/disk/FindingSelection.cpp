#include "core/disk/FindingSelection.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace ambrel {
namespace {

bool isSafe(const CleanupItem& item, FindingRule rule) {
  return isMovable(rule) && riskOf(item, rule) == CleanupRisk::safe;
}

// Each item of a rule whose items can move.
template <typename Visit>
void visitMovable(const std::vector<DiskFinding>& findings, const Visit& visit) {
  for (const DiskFinding& finding : findings)
    if (isMovable(finding.rule))
      for (const CleanupItem& item : finding.items) visit(finding, item);
}

}  // namespace

std::string groupID(std::optional<FindingGroup> group) {
  return std::string("group:").append(group ? nameOf(*group) : "ungrouped");
}

std::string ruleID(FindingRule rule) { return std::string("rule:").append(nameOf(rule)); }

std::int64_t GroupedFindings::bytes() const {
  std::int64_t sum = 0;
  for (const DiskFinding* finding : findings) sum += finding->bytes();
  return sum;
}

bool GroupedFindings::hasMovable() const {
  return std::any_of(findings.begin(), findings.end(), [](const DiskFinding* one) { return isMovable(one->rule); });
}

std::vector<GroupedFindings> grouped(const std::vector<DiskFinding>& findings) {
  std::vector<std::optional<FindingGroup>> order;
  for (const auto& [group, name] : EnumText<FindingGroup>::table) order.emplace_back(group);
  order.emplace_back();
  std::vector<GroupedFindings> groups;
  for (const auto& group : order) {
    GroupedFindings entry{.group = group, .findings = {}};
    for (const DiskFinding& finding : findings)
      if (ambrel::group(finding.rule) == group) entry.findings.push_back(&finding);
    std::stable_sort(entry.findings.begin(), entry.findings.end(),
                     [](const DiskFinding* a, const DiskFinding* b) { return a->rule < b->rule; });
    if (!entry.findings.empty()) groups.push_back(std::move(entry));
  }
  return groups;
}

void FindingSelection::setFindings(std::vector<DiskFinding> findings) {
  findings_ = std::move(findings);
  paths_.clear();
}

void FindingSelection::takeReport(const DiskAdvice::TrashReport& report) {
  std::unordered_map<std::string, const CleanupItem*> left;
  std::unordered_set<std::string> gone;
  for (const CleanupItem& item : report.moved) gone.insert(item.url);
  for (const CleanupItem& item : report.failed) {
    if (item.bytes > 0)
      left[item.url] = &item;
    else
      gone.insert(item.url);
  }
  for (DiskFinding& finding : findings_) {
    std::erase_if(finding.items, [&](const CleanupItem& item) { return gone.contains(item.url); });
    for (CleanupItem& item : finding.items)
      if (const auto entry = left.find(item.url); entry != left.end()) item = *entry->second;
    std::stable_sort(finding.items.begin(), finding.items.end(),
                     [](const CleanupItem& a, const CleanupItem& b) { return a.bytes > b.bytes; });
  }
  std::erase_if(findings_, [](const DiskFinding& finding) { return finding.items.empty(); });
  std::erase_if(paths_, [&](const std::string& path) { return gone.contains(path) || left.contains(path); });
}

bool FindingSelection::select(std::string_view id, bool isSelected) {
  bool hasChanged = false;
  for (const DiskFinding& finding : findings_) {
    if (!isMovable(finding.rule)) continue;
    const bool isAll = id == ruleID(finding.rule) || id == groupID(group(finding.rule));
    for (const CleanupItem& item : finding.items)
      if (isAll || id == item.url)
        hasChanged = (isSelected ? paths_.insert(item.url).second : paths_.erase(item.url) > 0) || hasChanged;
  }
  return hasChanged;
}

void FindingSelection::selectSafe() {
  visitMovable(findings_, [&](const DiskFinding& finding, const CleanupItem& item) {
    if (isSafe(item, finding.rule)) paths_.insert(item.url);
  });
}

FindingSelection::Extent FindingSelection::extent(const std::vector<const DiskFinding*>& findings) const {
  bool hasChosen = false, hasOther = false;
  for (const DiskFinding* finding : findings)
    if (isMovable(finding->rule))
      for (const CleanupItem& item : finding->items) (contains(item) ? hasChosen : hasOther) = true;
  return !hasChosen ? Extent::none : hasOther ? Extent::some : Extent::all;
}

std::vector<CleanupItem> FindingSelection::items() const {
  std::vector<CleanupItem> chosen;
  visitMovable(findings_, [&](const DiskFinding&, const CleanupItem& item) {
    if (contains(item)) chosen.push_back(item);
  });
  return chosen;
}

std::int64_t FindingSelection::bytes() const {
  std::int64_t sum = 0;
  visitMovable(findings_, [&](const DiskFinding&, const CleanupItem& item) {
    if (contains(item)) sum += item.bytes;
  });
  return sum;
}

std::size_t FindingSelection::movableCount() const {
  std::size_t count = 0;
  visitMovable(findings_, [&](const DiskFinding&, const CleanupItem&) { ++count; });
  return count;
}

bool FindingSelection::hasSafeItems() const {
  return std::any_of(findings_.begin(), findings_.end(), [](const DiskFinding& finding) {
    return std::any_of(finding.items.begin(), finding.items.end(),
                       [&](const CleanupItem& item) { return isSafe(item, finding.rule); });
  });
}

}  // namespace ambrel
