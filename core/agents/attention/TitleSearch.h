#pragma once
// Titles that were given long ago, further back in a log than its tail.

#include <map>
#include <optional>
#include <string>

#include "core/agents/SessionFiles.h"
#include "core/base/LineJSON.h"

namespace ambrel {

struct LogTitles {
  std::optional<std::string> custom = {};  // the user's
  std::optional<std::string> ai = {};      // the tool's own
  friend bool operator==(const LogTitles&, const LogTitles&) = default;
};

// Each part of a log is searched once, backwards from its tail, a bounded part of it at each look.
class TitleSearch {
 public:
  // What one look reads at most, of all logs together.
  static constexpr std::uint64_t bytesPerLook = 32 << 20;

  void beginLook() { left_ = bytesPerLook; }
  // The newest titles of the log as far as they are known; with a custom title, the other may be absent. inTail: the
  // newest ones in its last `tailBytes`.
  LogTitles titles(const SessionFile& file, std::size_t tailBytes, const LogTitles& inTail, LineParser& parser);

 private:
  struct Known {
    LogTitles titles;
    bool hasNewestAI = false;   // nothing of what is still to be searched is newer
    std::uint64_t covered = 0;  // the size up to which the log was looked at when it grew last
    // What is still to be searched.
    std::uint64_t begin = 0, end = 0;
  };
  void search(Known& known, const std::string& path, LineParser& parser);

  std::map<std::string, Known> logs_;
  std::uint64_t left_ = 0;
};

}  // namespace ambrel
