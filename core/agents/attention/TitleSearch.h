#pragma once
// A title that the user gave long ago, further back in a log than its tail.

#include <map>
#include <optional>
#include <string>

#include "core/agents/SessionFiles.h"
#include "core/base/LineJSON.h"

namespace ambrel {

// Each part of a log is searched once, backwards from its tail, a bounded part of it at each look.
class TitleSearch {
 public:
  // What one look reads at most, of all logs together.
  static constexpr std::uint64_t bytesPerLook = 32 << 20;

  void beginLook() { left_ = bytesPerLook; }
  // The newest custom title of the log as far as it is known. inTail: the newest one in its last `tailBytes`.
  std::optional<std::string> title(const SessionFile& file, std::size_t tailBytes,
                                   const std::optional<std::string>& inTail, LineParser& parser);

 private:
  struct Known {
    std::optional<std::string> title;
    std::uint64_t covered = 0;  // the size up to which the log was looked at when it grew last
    // What is still to be searched.
    std::uint64_t begin = 0, end = 0;
  };
  void search(Known& known, const std::string& path, LineParser& parser);

  std::map<std::string, Known> logs_;
  std::uint64_t left_ = 0;
};

}  // namespace ambrel
