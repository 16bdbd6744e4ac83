#pragma once
// The desktop's Trash, from which file managers put things back.

#include <optional>
#include <string>

#include "core/base/Instant.h"
#include "core/disk/DiskAdvice.h"

namespace ambrel {

using DiskAdvice::TrashError;
using DiskAdvice::TrashPlace;

class Trash {
 public:
  virtual ~Trash() = default;
  // Moves one file or folder, if it is still what the request says, and tells where it went; otherwise throws
  // TrashError and leaves it where it is. Never copies and never deletes. May be called from a worker thread, one call
  // at a time.
  virtual TrashPlace move(const DiskAdvice::TrashRequest& request, Instant now) = 0;
  // Where the thing at `url` would go; absent when its volume has no Trash and takes none. Makes nothing.
  virtual std::optional<TrashPlace> placeFor(const std::string& url) const = 0;
};

}  // namespace ambrel
