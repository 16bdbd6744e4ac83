#pragma once
// Walks a folder and returns its size tree. Reads only: nothing on the disk is changed.

#include <functional>
#include <set>
#include <stop_token>
#include <string>

#include "core/base/Files.h"
#include "core/disk/DiskItem.h"
#include "core/disk/Exclusions.h"

namespace ambrel {

struct DiskScanProgress {
  std::int64_t files = 0;
  std::int64_t bytes = 0;
  friend bool operator==(const DiskScanProgress&, const DiskScanProgress&) = default;
};

struct DiskScanResult {
  DiskTree root;
  // Folders that could not be read; they count as empty.
  std::vector<std::string> skipped;
};

// The work was asked to stop.
class Cancelled : public std::runtime_error {
 public:
  Cancelled() : std::runtime_error("cancelled") {}
};

// The paths that no scan enters, compared with the whole path of a folder.
const std::set<std::string, std::less<>>& fixedExclusions();

// How a scan is followed from outside. All are called from any of the worker threads, and calls can overtake each
// other.
struct DiskScanWatch {
  // Whenever the count of files reaches a multiple of 500, and a last time at the end. `share`, 0 to 1: how much of
  // the tree has been seen, an estimate in which the subfolders of one folder count alike.
  std::function<void(const DiskScanProgress&, double share)> progress = {};
  // The names of the folders directly below the root, before they are entered.
  std::function<void(const std::vector<std::string>&)> listed = {};
  // One of them, when all that is in it has been read. It has no parent yet.
  std::function<void(const DiskItem&)> finished = {};
};

struct DiskScanner {
  // Further paths that are not entered, compared like the fixed ones.
  ExcludedFolders excluded = {};
  // Children below this size fold into one `smallItems` node for each folder.
  std::int64_t minItemSize = 0;

  // `root` is absolute; a symbolic link at its end is followed, none below it is. Other volumes and bind mounts
  // below it are not entered, and files that are mounted below it do not count. A file with two names counts twice.
  //
  // Throws FileError when the root cannot be listed and Cancelled when `stop` was requested.
  DiskScanResult scan(const std::string& root, const DiskScanWatch& watch, std::stop_token stop = {}) const;
  DiskScanResult scan(const std::string& root, const std::function<void(const DiskScanProgress&)>& progress = {},
                      std::stop_token stop = {}) const;
};

// What a file or folder takes, counted as a scan does.
struct AllocatedSpace {
  std::int64_t bytes = 0;
  bool isWhole = true;       // every folder in it could be read
  bool holdsVolume = false;  // something is mounted on it or in it; what is in it is not counted
  bool isFolder = false;
};
// Of `name` in an open folder; a symbolic link takes 0. Absent when there is nothing of that name.
std::optional<AllocatedSpace> allocatedSpace(const FileDescriptor& folder, const std::string& name);

// Whether the volume notes when files are opened. Mounted "noatime", it does not; "relatime" is exact to a day.
bool recordsAccess(const FileDescriptor& folder);

// Whether the desktop shows a folder of that name as one file.
bool hasPackageExtension(std::string_view name);

}  // namespace ambrel
