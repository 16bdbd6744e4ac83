#pragma once
// The Trash of freedesktop.org (https://specifications.freedesktop.org/trash-spec/latest/): the home's own for what
// is on its volume, the volume's own for everything else.
//
// Works on handles of folders from end to end, so that a path which is swapped for a link meanwhile is not followed.

#include <string>
#include <sys/types.h>
#include <vector>

#include "core/base/PresentCalendar.h"
#include "core/telemetry/KernelTexts.h"
#include "platform/Trash.h"

namespace ambrel {

// Whether file managers show the Trash of the volume whose top is `top`: that of a drive they know. They pass over
// volumes in memory, folders of a volume that are mounted at a second place, and parts of one without a mount.
bool isListedVolume(const std::vector<Mount>& mounts, const std::string& top);

class FreedesktopTrash : public Trash {
 public:
  // `dataHome`: $XDG_DATA_HOME, made when it is missing. `calendar`: deletion dates are local times.
  FreedesktopTrash(std::string dataHome, uid_t user, PresentCalendar calendar);

  TrashPlace move(const DiskAdvice::TrashRequest& request, Instant now) override;
  std::optional<TrashPlace> placeFor(const std::string& url) const override;

 private:
  struct Top;
  struct Target;
  Target homeTrash() const;
  Target volumeTrash(Top top) const;
  bool servesHomeTrash(int folder) const;
  std::string reserve(const Target& target, const std::string& name, Instant now) const;

  std::string dataHome_;
  uid_t user_;
  PresentCalendar calendar_;
};

}  // namespace ambrel
