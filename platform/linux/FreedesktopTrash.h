#pragma once
// The Trash of freedesktop.org (https://specifications.freedesktop.org/trash-spec/latest/): the home's own for what
// lies on its volume, the volume's own for everything else.
//
// Works on handles of folders from end to end, so that a path which is swapped for a link meanwhile is not followed.

#include <string>
#include <sys/types.h>

#include "core/base/PresentCalendar.h"
#include "platform/Trash.h"

namespace ambrel {

class FreedesktopTrash : public Trash {
 public:
  // `dataHome`: $XDG_DATA_HOME, made when it is missing. `calendar`: deletion dates are local times.
  FreedesktopTrash(std::string dataHome, uid_t user, PresentCalendar calendar);

  void move(const DiskAdvice::TrashRequest& request, Instant now) override;

 private:
  struct Target;
  Target homeTrash() const;
  Target volumeTrash(const std::string& url, int folder) const;
  std::string reserve(const Target& target, const std::string& name, Instant now) const;

  std::string dataHome_;
  uid_t user_;
  PresentCalendar calendar_;
};

}  // namespace ambrel
