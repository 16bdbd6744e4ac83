#pragma once
// What the readers share whose tools keep a log for each conversation.

#include <memory>

#include "core/agents.h"
#include "core/agents/FolderListings.h"
#include "core/agents/SessionCache.h"

namespace ambrel {

class LogReader : public AgentSessionReader {
 public:
  explicit LogReader(AgentFolders folders = {}) : folders_(std::move(folders)) {}

  std::vector<AgentSession> sessions(const std::filesystem::path& home, Instant now) const override {
    return withoutLogs(logged(home, now));
  }
  // The same, each with its log.
  virtual std::vector<LoggedSession> logged(const std::filesystem::path& home, Instant now) const = 0;

 protected:
  AgentFolders folders_;
  // Shared by the copies of a reader.
  std::shared_ptr<FolderListings> listings_ = std::make_shared<FolderListings>();
  std::shared_ptr<SessionCache> cache_ = std::make_shared<SessionCache>();
};

}  // namespace ambrel
