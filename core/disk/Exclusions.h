#pragma once
// Folders that the user keeps Disk Doctor away from.

#include <set>
#include <string>
#include <vector>

#include "core/disk/DiskItem.h"
#include "core/disk/Findings.h"

namespace ambrel {

// Absolute paths, with symbolic links resolved.
using ExcludedFolders = std::set<std::string, std::less<>>;

// A child of the item's folder stays when the rest goes; the item is smaller by its size in the scanned tree.
void leaveOut(CleanupItem& item, const std::string& child, const DiskItem& root);
// The same for each child that is excluded or has an excluded folder in it.
void leaveOut(CleanupItem& item, const ExcludedFolders& excluded, const DiskItem& root);
// What may still go. An item that goes as a whole stays when an excluded folder is in it.
std::vector<CleanupItem> leavingOut(const ExcludedFolders& excluded, std::vector<CleanupItem> items,
                                    const DiskItem& root);

}  // namespace ambrel
