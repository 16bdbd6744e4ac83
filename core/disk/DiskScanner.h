#pragma once
// Walks a folder and returns its size tree. Reads only: nothing on the disk is changed.

#include <functional>
#include <set>
#include <stop_token>
#include <string>

#include "core/base/Files.h"
#include "core/disk/DiskItem.h"

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

struct DiskScanner {
  // Further paths that are not entered, compared like the fixed ones.
  std::set<std::string, std::less<>> excluded = {};
  // Children below this size fold into one `smallItems` node for each folder.
  std::int64_t minItemSize = 0;

  // `root` is absolute; a symbolic link at its end is followed, none below it is. Other volumes and bind mounts
  // below it are not entered. A file with two names counts twice.
  //
  // `progress` is called from any of the worker threads, whenever the count of files reaches a multiple of 500, and
  // a last time at the end; calls can overtake each other. Throws FileError when the root cannot be listed and
  // Cancelled when `stop` was requested.
  DiskScanResult scan(const std::string& root, const std::function<void(const DiskScanProgress&)>& progress = {},
                      std::stop_token stop = {}) const;
};

// Bytes on disk of the file or folder `name` in an open folder, counted as a scan does. A symbolic link is 0.
// Absent when there is nothing of that name, or a folder in it cannot be read.
std::optional<std::int64_t> allocatedBytes(const FileDescriptor& folder, const std::string& name);

// Whether the desktop shows a folder of that name as one file.
bool hasPackageExtension(std::string_view name);

}  // namespace ambrel
