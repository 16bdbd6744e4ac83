#pragma once
// Claude Code's own list of what runs: .claude/sessions/<pid>.json, one file for each process.

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/agents.h"
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
  // The process is still the one that wrote the record; of another computer that cannot be told, and it counts as one.
  bool isAlive = false;
  AgentPlace place = AgentPlace::here;  // container and otherComputer, besides
  int process = 0;                      // its number on this computer; 0: it is on another one

  friend bool operator==(const LiveRecord&, const LiveRecord&) = default;
};

// Absent for anything without a session, a process and its start: such files are of other versions.
std::optional<LiveRecord> liveRecord(std::string_view text, LineParser& parser);

class LiveRegistry {
 public:
  explicit LiveRegistry(AgentFolders folders = {}) : folders_(std::move(folders)) {}

  // In no particular order. A file is read again only when it changed; every process is looked at each time.
  std::vector<LiveRecord> records(const std::filesystem::path& home, const std::filesystem::path& processes);

 private:
  void find(LiveRecord& record, const std::filesystem::path& processes);

  AgentFolders folders_;
  // What was found of those whose process is not among ours, by the record: the whole table is read once for each.
  struct Elsewhere {
    LiveRecord record;
    std::optional<int> contained;
    bool isOfAnotherComputer = false;
  };
  std::map<std::string, Elsewhere> elsewhere_, formerElsewhere_;
  // As they were read last: a file that is just being written again keeps its record until it is whole.
  std::map<std::string, LiveRecord> last_;
  StampedCache<FileStatus, LiveRecord> files_;
};

}  // namespace ambrel
