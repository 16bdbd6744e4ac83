#include "core/agents/ClaudeCodeReader.h"

#include "core/base/Text.h"

namespace ambrel {
namespace {

struct Turn {
  AgentStatus status = AgentStatus::working;
  std::string detail;
};

// `record` is a user's or an assistant's. A question at the end of a turn looks like any other end.
Turn turnFrom(const LineObject& record, bool isAssistant) {
  if (!isAssistant) return {AgentStatus::working, "Thinking"};
  const auto message = record.object("message");
  if (!message) return {AgentStatus::working, "Working"};
  const auto reason = message->text("stop_reason");
  if (reason == "end_turn" || reason == "stop_sequence") return {AgentStatus::finished, "Done"};

  Turn turn{AgentStatus::working, "Working"};
  message->eachObject("content", [&](const LineObject& block) {
    if (block.text("type") == "tool_use") turn.detail = block.text("name").value_or("Working");
    return true;  // the last one counts
  });
  return turn;
}

}  // namespace

std::optional<AgentSession> claudeSession(std::string_view identifier, const RecordTail& tail, Instant modified,
                                          Instant now, LineParser& parser) {
  std::optional<std::string> title, folder;
  std::optional<Turn> turn;
  tail.eachNewestFirst(parser, [&](const LineObject& record) {
    const auto type = record.text("type");
    if (!title && type == "custom-title") title = record.text("customTitle");
    if (!folder) folder = record.text("cwd");
    if (!turn && (type == "user" || type == "assistant")) turn = turnFrom(record, type == "assistant");
    return !title || !folder || !turn;
  });
  if (!turn) return std::nullopt;

  AgentSession session;
  session.id = "claude:" + std::string(identifier);
  session.kind = AgentKind::claudeCode;
  session.project = projectName(folder);
  session.title = title && !title->empty() ? *title : session.project.value_or(std::string(displayName(session.kind)));
  session.detail = std::move(turn->detail);
  session.status = AgentTiming::aged(turn->status, secondsBetween(modified, now));
  session.updatedAt = modified;
  return session;
}

std::vector<LoggedSession> ClaudeCodeReader::logged(const std::filesystem::path& home, Instant now) const {
  const Instant since = advanced(now, -AgentTiming::recentWindow);
  std::vector<SessionFile> files;
  for (const std::string& folder : possibleFolders(folders_.claudeIn(home) / "projects", *listings_)) {
    auto recent = recentSessionFiles(folder, since, false, listings_.get());
    files.insert(files.end(), std::make_move_iterator(recent.begin()), std::make_move_iterator(recent.end()));
  }
  LineParser parser;
  return cache_->sessions(std::move(files), now, [&](const SessionFile& file, Instant written) {
    return claudeSession(sessionIdentifier(file.path), tailRecords(file.path, sessionTailBytes), file.modified, written,
                         parser);
  });
}

}  // namespace ambrel
