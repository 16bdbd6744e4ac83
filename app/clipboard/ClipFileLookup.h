#pragma once
// Facts about the files of a clip: which are folders, and their total size. Looked up when a card shows them, because
// a path may be on a disk that answers late or never.

#include <cstdint>
#include <functional>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "app/base/Background.h"
#include "core/clipboard.h"

namespace ambrel {

struct ClipFiles {
  std::vector<bool> isFolder;          // of the first files
  std::optional<std::uint64_t> bytes;  // of all of them; absent when one is a folder or is missing

  friend bool operator==(const ClipFiles&, const ClipFiles&) = default;
};

// Asks the file system. At most a thousand files are looked at.
ClipFiles filesOf(const ClipItem& item);

class ClipFileLookup {
 public:
  // `background` must not be shared: its jobs may hang.
  ClipFileLookup(Background background, std::function<void(const UUID&)> changed);

  // The known facts, or null. Starts a lookup unless there was one since the last `expire`.
  const ClipFiles* lookAt(const ClipItem& item);
  // The files may have changed.
  void expire() { fresh_.clear(); }
  void expire(const UUID& id) { fresh_.erase(id); }

 private:
  Background background_;
  std::function<void(const UUID&)> changed_;
  std::unordered_map<UUID, ClipFiles> found_;
  std::unordered_set<UUID> fresh_;  // looked at, or about to be
};

}  // namespace ambrel
