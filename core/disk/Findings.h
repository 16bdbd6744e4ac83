#pragma once
// The vocabulary of what could go: targets, rules, items and findings. See DiskAnalyzer for how they are found.

#include <set>
#include <span>
#include <string>
#include <vector>

#include "core/base/EnumText.h"
#include "core/disk/DiskItem.h"

namespace ambrel {

// A folder under the home that a tool fills again by itself, or that is worth a look since not all of it comes back.
struct CleanupTarget {
  enum class Kind { rebuildable, review };

  std::string_view id, title, detail;
  // Relative to the home. A component "*" matches every folder at that place.
  std::string_view relativePath;
  Kind kind;
  std::string_view symbol;
};

// In the order of the original desktop: its own folders, then those of package managers.
std::span<const CleanupTarget> cleanupTargets();
std::span<const CleanupTarget> packageManagerTargets();
// The same for this system's folders: developers' tools, and caches of applications. In `~/.cache`, whatever is not
// named here is offered as one item.
std::span<const CleanupTarget> linuxDeveloperTargets();
std::span<const CleanupTarget> linuxApplicationTargets();

enum class CleanupRisk { safe, review, careful };

// Why a thing that was to move stayed where it is.
enum class StayReason {
  inUse,       // the system refused, and says no more than that
  changed,     // it is not what was found any more
  gone,        // there is nothing under its name
  mainFolder,  // a folder that never moves as a whole
  keptCopy,    // it is, or holds, the copy that stays when its duplicates go
  noCopy,      // the copy that was to stay is not what it was, or was deleted itself
  holdsMount,  // something is mounted on it or in it
  unreadable,  // not all of it could be looked at
  isDeleted,   // it is in a Trash already
  noTrash,     // its volume has no Trash, and none can be made
  readOnly,    // its volume takes no changes
  diskFull     // the Trash has no room for the note that says where it came from
};
// "The disk is full", without a full stop.
std::string_view explanation(StayReason reason);

enum class FindingGroup { developerJunk, oldDownloads, bigOldFiles, duplicates, trash };

// In the order in which they are listed; the analyzer's order of evaluation is another one.
enum class FindingRule {
  developerCaches,
  appCaches,
  staleBuildFolders,
  oldInstallers,
  largeOldFiles,
  duplicates,
  oldArchives,
  oldSimulatorRuntimes,
  oldScreenshots,
  trash
};

std::string_view label(CleanupRisk risk);
std::string_view title(FindingGroup group);
std::string_view title(FindingRule rule);
std::string_view symbol(FindingRule rule);
// Absent for rules whose items are shown and never moved.
std::optional<FindingGroup> group(FindingRule rule);
CleanupRisk risk(FindingRule rule);
// Simulator runtimes belong to another tool, and the Trash is never emptied for anyone.
bool isMovable(FindingRule rule);

// What tells a file from another one under the same name, and from itself after a change.
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t size = 0;                  // the length, not the space on disk
  std::int64_t modified = 0, changed = 0;  // nanoseconds since 1970
  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;

  bool isSameFile(const FileIdentity& other) const { return device == other.device && inode == other.inode; }
};

// Another file that must still be there, as it was, for an item to go.
struct KeptCopy {
  std::string url;
  FileIdentity identity;
  friend bool operator==(const KeptCopy&, const KeptCopy&) = default;
};

struct CleanupItem {
  std::string url;
  std::string title;
  // Bytes on disk; once a part of it has moved, of what is left.
  std::int64_t bytes = 0;
  std::optional<Instant> modified;
  // Move what is inside the folder, and not the folder itself.
  bool contentsOnly = false;
  // With `contentsOnly`: names of children that stay.
  std::set<std::string, std::less<>> keeping = {};
  // What was found; at the act it must still be the same. Absent when it could not be told: then it stays.
  std::optional<FileIdentity> identity = {};
  // Of a duplicate: the copy that stays.
  std::optional<KeptCopy> kept = {};
  // When it needs more care than its rule says.
  std::optional<CleanupRisk> ownRisk = {};
  // What it is, or why it needs that care: a sentence or two. Empty when the rule says it all.
  std::string detail = {};
  // Why it stayed when it was to move.
  std::optional<StayReason> stayed = {};

  friend bool operator==(const CleanupItem&, const CleanupItem&) = default;
};

struct DiskFinding {
  FindingRule rule = FindingRule::developerCaches;
  std::vector<CleanupItem> items;  // largest first
  std::string reason;

  std::int64_t bytes() const;
  // The greatest among its items, which together take what that risk asks for.
  CleanupRisk risk() const;
  friend bool operator==(const DiskFinding&, const DiskFinding&) = default;
};

// The item's own, or its rule's.
CleanupRisk riskOf(const CleanupItem& item, FindingRule rule);

// A platform that a developer's tool simulates devices with.
struct SimulatorRuntime {
  std::string identifier, platform, version;
  std::int64_t bytes = 0;
  std::optional<Instant> lastUsed;
  bool isDeletable = false;
  std::string path;
  friend bool operator==(const SimulatorRuntime&, const SimulatorRuntime&) = default;
};

}  // namespace ambrel
