#include "core/agents/CodexReader.h"

namespace ambrel {
namespace {

constexpr std::size_t headBytes = 65536;

}  // namespace

std::optional<std::string> codexFolder(const LineObject& first) {
  const auto payload = first.object("payload");
  return payload ? std::optional<std::string>(payload->text("cwd")) : std::nullopt;
}

AgentSession codexSession(std::string_view identifier, std::optional<std::string_view> folder, const RecordTail& tail,
                          Instant modified, Instant now, LineParser& parser) {
  std::optional<std::string> tool;
  std::optional<AgentStatus> status;
  tail.eachNewestFirst(parser, [&](const LineObject& record) {
    const auto payload = record.object("payload");
    if (!payload) return true;
    const auto type = record.text("type");
    const auto event = payload->text("type");
    if (!tool && type == "response_item" && (event == "custom_tool_call" || event == "function_call"))
      tool = payload->text("name");
    if (!status && type == "event_msg") {
      if (event == "task_complete") status = AgentStatus::finished;
      if (event == "task_started") status = AgentStatus::working;
    }
    return !tool || !status;
  });

  AgentSession session;
  session.id = "codex:" + std::string(identifier);
  session.kind = AgentKind::codex;
  session.project = projectName(folder);
  session.title = session.project.value_or(std::string(displayName(session.kind)));
  session.detail = status == AgentStatus::finished ? "Done" : tool.value_or("Working");
  session.status = AgentTiming::aged(status.value_or(AgentStatus::working), secondsBetween(modified, now));
  session.updatedAt = modified;
  return session;
}

std::vector<LoggedSession> CodexReader::logged(const std::filesystem::path& home, Instant now) const {
  const Instant since = advanced(now, -AgentTiming::recentWindow);
  LineParser parser;
  return cache_->sessions(recentSessionFiles(folders_.codexIn(home) / "sessions", since, true, listings_.get()), now,
                          [&](const SessionFile& file, Instant written) {
                            const FileDescriptor opened = openForReading(file.path);
                            const auto first = firstRecord(opened, headBytes, parser);
                            const auto folder = first ? codexFolder(*first) : std::nullopt;
                            return codexSession(sessionIdentifier(file.path), folder,
                                                tailRecords(opened, sessionTailBytes), file.modified, written, parser);
                          });
}

}  // namespace ambrel
