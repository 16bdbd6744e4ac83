#pragma once
// The contents of folders, remembered between looks.

#include <ctime>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <vector>

#include "core/base/StampedCache.h"

namespace ambrel {

// A folder whose date is what it was at the two looks before is not opened again. May be used from several threads.
class FolderListings {
 public:
  struct Entry {
    std::string name;
    unsigned char type = 0;  // DT_DIR, DT_REG, DT_LNK, or DT_UNKNOWN where the file system does not say
  };
  using Entries = std::shared_ptr<const std::vector<Entry>>;

  // Folders, links, logs (*.jsonl) and what may be any of them, in the order of the file system. Absent when there is
  // no such folder, or it cannot be read. `followsLink`: whether the path itself may be a link to a folder.
  Entries entries(const std::string& folder, bool followsLink);

 private:
  struct Stamp {
    dev_t device = 0;
    ino_t node = 0;
    timespec modified{};
    bool operator==(const Stamp& other) const {
      return device == other.device && node == other.node && modified.tv_sec == other.modified.tv_sec &&
             modified.tv_nsec == other.modified.tv_nsec;
    }
  };
  StampedCache<Stamp, Entries> looks_;
};

}  // namespace ambrel
