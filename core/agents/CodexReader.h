#pragma once
// Codex: one log for each conversation, .codex/sessions/<year>/<month>/<day>/<name>.jsonl.

#include "core/agents/LogReader.h"

namespace ambrel {

class CodexReader : public LogReader {
 public:
  using LogReader::LogReader;
  std::vector<LoggedSession> logged(const std::filesystem::path& home, Instant now) const override;
};

// The session of one log. `folder` is the working folder that its first line names.
AgentSession codexSession(std::string_view identifier, std::optional<std::string_view> folder, const RecordTail& tail,
                          Instant modified, Instant now, LineParser& parser);

// The working folder in the first record of a log.
std::optional<std::string> codexFolder(const LineObject& first);

}  // namespace ambrel
