#pragma once
// The last parse of each log file. A poll with nothing changed opens no file, and yet a session ages.

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/agents.h"
#include "core/agents/SessionFiles.h"

namespace ambrel {

// A conversation and the log that it was read from.
struct LoggedSession {
  AgentSession session;
  SessionFile file;
};
std::vector<AgentSession> withoutLogs(std::vector<LoggedSession> logged);

class SessionCache {
 public:
  // `now` is the file's own date: what is kept is the session as it stood when its file was last written.
  using Parse = std::function<std::optional<AgentSession>(const SessionFile& file, Instant now)>;

  // The sessions in the order of the files, aged to `now`. A file whose date is exactly the remembered one is not
  // parsed again, even if it held nothing usable; files that are no longer given are forgotten.
  // Parsing happens outside the lock; of two overlapping calls the later one is remembered.
  std::vector<LoggedSession> sessions(std::vector<SessionFile> files, Instant now, const Parse& parse);

 private:
  struct Entry {
    Instant modified;
    std::uint16_t modifiedRest = 0;
    std::optional<AgentSession> session;
  };
  using Entries = std::unordered_map<std::string, Entry>;

  std::mutex lock_;
  // Never changed once it is here, so that a copy of the pointer is a copy of the entries.
  std::shared_ptr<const Entries> entries_ = std::make_shared<Entries>();
};

}  // namespace ambrel
