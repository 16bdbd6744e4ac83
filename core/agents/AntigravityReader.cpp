#include "core/agents/AntigravityReader.h"

#include <algorithm>
#include <array>

#include "core/base/JSON.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr std::array<const char*, 2> storeNames{
    ".gemini/antigravity/conversation_summaries.db",
    ".gemini/antigravity-cli/conversation_summaries.db",
};

constexpr const char* query =
    "SELECT conversation_id, title, status, not_fully_idle, killed, step_count, workspace_uris,\n"
    "       CAST(strftime('%s', last_modified_time) AS INTEGER) AS modified\n"
    "FROM conversation_summaries\n"
    "WHERE modified > ?\n"
    "ORDER BY modified DESC\n"
    "LIMIT 50";

AgentStatus rawStatus(const AntigravityRow& row) {
  if (row.killed) return AgentStatus::idle;
  if (row.notFullyIdle || (row.status && row.status->ends_with("_RUNNING"))) return AgentStatus::working;
  return AgentStatus::finished;
}

std::optional<std::string> firstWorkspace(std::optional<std::string_view> uris) {
  const auto list = uris ? parseJSON(*uris) : std::nullopt;
  if (!list || !list->is_array() || list->empty()) return std::nullopt;
  if (!std::all_of(list->begin(), list->end(), [](const JSON& uri) { return uri.is_string(); })) return std::nullopt;
  return list->front().get<std::string>();
}

}  // namespace

std::optional<AgentSession> antigravitySession(const AntigravityRow& row, Instant now) {
  if (!row.conversationId) return std::nullopt;
  constexpr std::int64_t limit = 9'000'000'000'000;  // what an Instant holds

  AgentSession session;
  session.id = "antigravity:" + repairedUTF8(*row.conversationId);
  session.kind = AgentKind::antigravity;
  session.updatedAt = Instant(std::chrono::seconds(std::clamp(row.modified, -limit, limit)));
  session.project = projectName(firstWorkspace(row.workspaceURIs));
  const std::string_view title = row.title.value_or("");
  session.title =
      title.empty() ? session.project.value_or(std::string(displayName(session.kind))) : repairedUTF8(title);
  session.detail = std::to_string(row.stepCount) + " steps";
  session.status = AgentTiming::aged(rawStatus(row), secondsBetween(session.updatedAt, now));
  return session;
}

std::vector<std::filesystem::path> AntigravityReader::stores(const std::filesystem::path& home) {
  std::vector<std::filesystem::path> paths;
  for (const char* name : storeNames) paths.push_back(home / name);
  return paths;
}

std::vector<AgentSession> AntigravityReader::sessions(const std::filesystem::path& home, Instant now) const {
  const std::array cutOff{static_cast<std::int64_t>(
      std::chrono::floor<std::chrono::seconds>(advanced(now, -AgentTiming::recentWindow)).time_since_epoch().count())};
  std::vector<AgentSession> sessions;
  for (const std::filesystem::path& path : stores(home)) {
    const auto rows = cache_->rows(path, query, cutOff);
    for (const StoreRow& row : *rows) {
      // A row that was kept may have grown too old meanwhile.
      if (row.integer(7) <= cutOff.front()) continue;
      auto session = antigravitySession({.conversationId = row.text(0),
                                         .title = row.text(1),
                                         .status = row.text(2),
                                         .notFullyIdle = row.integer(3) != 0,
                                         .killed = row.integer(4) != 0,
                                         .stepCount = row.integer(5),
                                         .workspaceURIs = row.text(6),
                                         .modified = row.integer(7)},
                                        now);
      if (session) sessions.push_back(std::move(*session));
    }
  }
  return sessions;
}

}  // namespace ambrel
