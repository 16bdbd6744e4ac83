#pragma once
// Claude Code: one log for each conversation, .claude/projects/<folder>/<identifier>.jsonl.

#include <memory>

#include "core/agents.h"
#include "core/agents/FolderListings.h"
#include "core/agents/SessionCache.h"

namespace ambrel {

class ClaudeCodeReader : public AgentSessionReader {
 public:
  explicit ClaudeCodeReader(AgentFolders folders = {}) : folders_(std::move(folders)) {}

  std::vector<AgentSession> sessions(const std::filesystem::path& home, Instant now) const override;
  // The same, each with its log.
  std::vector<LoggedSession> logged(const std::filesystem::path& home, Instant now) const;

 private:
  AgentFolders folders_;
  std::shared_ptr<FolderListings> listings_ = std::make_shared<FolderListings>();
  std::shared_ptr<SessionCache> cache_ = std::make_shared<SessionCache>();
};

// The session of one log; absent when its tail holds no turn of the user or the assistant.
std::optional<AgentSession> claudeSession(std::string_view identifier, const RecordTail& tail, Instant modified,
                                          Instant now, LineParser& parser);

}  // namespace ambrel
