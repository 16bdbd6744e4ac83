#pragma once
// The desktop's Trash, from which file managers put things back.

#include <stdexcept>

#include "core/base/Instant.h"
#include "core/disk/DiskAdvice.h"

namespace ambrel {

// Says what was not moved and why.
class TrashError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Trash {
 public:
  virtual ~Trash() = default;
  // Moves one file or folder, if it is still what the request says; otherwise throws TrashError and leaves it where
  // it is. Never copies and never deletes. May be called from a worker thread, one call at a time.
  virtual void move(const DiskAdvice::TrashRequest& request, Instant now) = 0;
};

}  // namespace ambrel
