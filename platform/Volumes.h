#pragma once
// Letting go of external drives.

#include <functional>
#include <string>
#include <string_view>

namespace ambrel {

enum class EjectOutcome {
  ejected,       // may be unplugged
  busy,          // a program still uses it
  notPermitted,  // the system does not let this user do it
  failed,        // the drive or the service did not do it
};

struct EjectResult {
  EjectOutcome outcome = EjectOutcome::failed;
  std::string reason = {};  // the service's own words; "" when it was ejected
  friend bool operator==(const EjectResult&, const EjectResult&) = default;
};

class Volumes {
 public:
  virtual ~Volumes() = default;

  // Unmounts every volume of the drive and powers it down where it can. url: of a VolumeInfo. `done` is called once,
  // later and on the main thread. Writing out what is still in memory may take minutes.
  virtual void eject(std::string_view url, std::function<void(const EjectResult&)> done) = 0;
};

}  // namespace ambrel
