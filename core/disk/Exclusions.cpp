#include "core/disk/Exclusions.h"

#include <algorithm>

namespace ambrel {
namespace {

bool hasExcluded(const std::string& folder, const ExcludedFolders& excluded) {
  const auto first = excluded.lower_bound(joinedPath(folder, ""));
  return first != excluded.end() && isWithin(*first, folder);
}

bool isExcluded(const std::string& path, const ExcludedFolders& excluded) {
  return std::ranges::any_of(excluded, [&](const std::string& folder) { return isWithin(path, folder); });
}

}  // namespace

void leaveOut(CleanupItem& item, const std::string& child, const DiskItem& root) {
  if (!item.keeping.emplace(child.substr(child.rfind('/') + 1)).second) return;
  if (const DiskItem* node = find(root, child)) item.bytes -= node->size();
}

void leaveOut(CleanupItem& item, const ExcludedFolders& excluded, const DiskItem& root) {
  const std::string prefix = joinedPath(item.url, "");
  for (auto at = excluded.lower_bound(prefix); at != excluded.end() && at->starts_with(prefix); ++at)
    leaveOut(item, at->substr(0, at->find('/', prefix.size())), root);
}

std::vector<CleanupItem> leavingOut(const ExcludedFolders& excluded, std::vector<CleanupItem> items,
                                    const DiskItem& root) {
  for (CleanupItem& item : items)
    if (item.contentsOnly) leaveOut(item, excluded, root);
  std::erase_if(items, [&](const CleanupItem& item) {
    return item.bytes <= 0 || isExcluded(item.url, excluded) || (!item.contentsOnly && hasExcluded(item.url, excluded));
  });
  return items;
}

}  // namespace ambrel
