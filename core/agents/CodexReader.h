#pragma once
// Codex: one log for each conversation, .codex/sessions/<year>/<month>/<day>/<name>.jsonl.

#include <memory>

#include "core/agents.h"
#include "core/agents/FolderListings.h"
#include "core/agents/SessionCache.h"

namespace ambrel {

class CodexReader : public AgentSessionReader {
 public:
  explicit CodexReader(AgentFolders folders = {}) : folders_(std::move(folders)) {}

  std::vector<AgentSession> sessions(const std::filesystem::path& home, Instant now) const override;
  // The same, each with its log.
  std::vector<LoggedSession> logged(const std::filesystem::path& home, Instant now) const;

 private:
  AgentFolders folders_;
  std::shared_ptr<FolderListings> listings_ = std::make_shared<FolderListings>();
  std::shared_ptr<SessionCache> cache_ = std::make_shared<SessionCache>();
};

// The session of one log. `folder` is the working folder that its first line names.
AgentSession codexSession(std::string_view identifier, std::optional<std::string_view> folder, const RecordTail& tail,
                          Instant modified, Instant now, LineParser& parser);

// The working folder in the first record of a log.
std::optional<std::string> codexFolder(const LineObject& first);

}  // namespace ambrel
