#pragma once
// The findings of a scan, and which of their items are chosen. What is chosen is kept by path, so that no row of a list
// that comes or goes can change it.

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/disk/DiskAdvice.h"
#include "core/disk/Findings.h"

namespace ambrel {

// How a list names its groups and rules; an item goes by its path, which begins with a slash.
std::string groupID(std::optional<FindingGroup> group);
std::string ruleID(FindingRule rule);

struct GroupedFindings {
  std::optional<FindingGroup> group;  // absent: rules whose items are only shown
  std::vector<const DiskFinding*> findings;

  std::int64_t bytes() const;
  bool hasMovable() const;
};
// In the order of the groups and, within one, of the rules. Points into `findings`.
std::vector<GroupedFindings> grouped(const std::vector<DiskFinding>& findings);

class FindingSelection {
 public:
  const std::vector<DiskFinding>& findings() const { return findings_; }
  // Nothing is chosen afterwards.
  void setFindings(std::vector<DiskFinding> findings);
  // What moved is no longer listed; what is left is, with its bytes and its reason, and is not chosen any more. The
  // rest of the choice stays.
  void takeReport(const DiskAdvice::TrashReport& report);

  // A group or a rule means all its items. Items of rules that never move cannot be chosen. Says whether anything
  // changed.
  bool select(std::string_view id, bool isSelected);
  void selectSafe();
  void clear() { paths_.clear(); }

  enum class Extent { none, some, all };
  Extent extent(const std::vector<const DiskFinding*>& findings) const;
  bool contains(const CleanupItem& item) const { return paths_.contains(item.url); }
  const std::set<std::string>& paths() const { return paths_; }
  // The chosen items, in the order of the findings.
  std::vector<CleanupItem> items() const;
  std::int64_t bytes() const;
  std::size_t movableCount() const;
  bool hasSafeItems() const;

 private:
  std::vector<DiskFinding> findings_;
  std::set<std::string> paths_;
};

}  // namespace ambrel
