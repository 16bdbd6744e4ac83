#pragma once
// Claude Code's own list of what runs: .claude/sessions/<pid>.json, one file for each process.

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Files.h"
#include "core/base/Instant.h"
#include "core/base/LineJSON.h"
#include "core/base/StampedCache.h"

namespace ambrel {

struct LiveRecord {
  enum class Status {
    unknown,  // no status, or one of a later version
    idle,
    busy,
    waiting,  // for the user
    shell,    // idle, with a command that still runs in the background
  };
  std::string sessionId;
  int pid = 0;
  std::string processStart;  // field 22 of /proc/<pid>/stat, as it is written there
  Status status = Status::unknown;
  std::optional<Instant> statusAt = {};   // when the status changed; earlier versions do not say
  std::optional<Instant> startedAt = {};  // the process, as it says itself
  std::optional<Instant> updatedAt = {};
  std::optional<std::string> waitingFor = {};  // one line
  // The process is still the one that wrote the record.
  bool isAlive = false;

  friend bool operator==(const LiveRecord&, const LiveRecord&) = default;
};

// Absent for anything without a session, a process and its start: such files are of other versions.
std::optional<LiveRecord> liveRecord(std::string_view text, LineParser& parser);

class LiveRegistry {
 public:
  // In no particular order. A file is read again only when it changed; every process is looked at each time.
  std::vector<LiveRecord> records(const std::filesystem::path& home, const std::filesystem::path& processes);

 private:
  // As they were read last: a file that is just being written again keeps its record until it is whole.
  std::map<std::string, LiveRecord> last_;
  StampedCache<FileStatus, LiveRecord> files_;
};

}  // namespace ambrel
