#pragma once
// Claude Code: one log for each conversation, .claude/projects/<folder>/<identifier>.jsonl.

#include "core/agents/LogReader.h"

namespace ambrel {

class ClaudeCodeReader : public LogReader {
 public:
  using LogReader::LogReader;
  std::vector<LoggedSession> logged(const std::filesystem::path& home, Instant now) const override;
};

// The session of one log; absent when its tail holds no turn of the user or the assistant.
std::optional<AgentSession> claudeSession(std::string_view identifier, const RecordTail& tail, Instant modified,
                                          Instant now, LineParser& parser);

}  // namespace ambrel
