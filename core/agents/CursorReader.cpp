#include "core/agents/CursorReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>

#include "core/base/Files.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr std::array<const char*, 2> storeNames{
    "Library/Application Support/Cursor/User/globalStorage/state.vscdb",
    ".config/Cursor/User/globalStorage/state.vscdb",
};

constexpr const char* query =
    "SELECT composerId, value, lastUpdatedAt FROM composerHeaders\n"
    "WHERE isArchived = 0 AND isSubagent = 0 AND lastUpdatedAt > ?\n"
    "ORDER BY lastUpdatedAt DESC\n"
    "LIMIT 50";

// The header carries no flag for a running turn: an update that is younger counts as work.
constexpr Seconds freshness{30};

Instant fromMilliseconds(double milliseconds) {
  constexpr double limit = 9.2e15;
  const double clamped = std::clamp(milliseconds, -limit, limit);
  return Instant(std::chrono::microseconds(std::llround(clamped * 1000)));
}

AgentStatus statusAt(Seconds age) {
  if (age < freshness) return AgentStatus::working;
  return age <= AgentTiming::finishedTimeout ? AgentStatus::finished : AgentStatus::idle;
}

std::optional<std::string> folderOf(const LineObject& header) {
  const auto workspace = header.object("workspaceIdentifier");
  const auto uri = workspace ? workspace->object("uri") : std::nullopt;
  return uri ? std::optional<std::string>(uri->text("fsPath")) : std::nullopt;
}

}  // namespace

std::optional<AgentSession> cursorSession(std::string_view composerId, std::string_view value, Instant now,
                                          LineParser& parser) {
  const auto header = parser.parse(value);
  if (!header) return std::nullopt;

  AgentSession session;
  session.id = "cursor:" + repairedUTF8(composerId);
  session.kind = AgentKind::cursor;
  session.updatedAt = fromMilliseconds(std::max(header->number("lastUpdatedAt").value_or(0),
                                                header->number("conversationCheckpointLastUpdatedAt").value_or(0)));
  session.status = header->boolean("hasBlockingPendingActions").value_or(false)
                       ? AgentStatus::needsInput
                       : statusAt(secondsBetween(session.updatedAt, now));
  session.project = projectName(folderOf(*header));
  const auto name = header->text("name").value_or("");
  session.title = name.empty() ? session.project.value_or(std::string(displayName(session.kind))) : std::string(name);
  const auto files = header->integer("filesChangedCount").value_or(0);
  if (files > 0)
    session.detail = fmt::format("+{} \u2212{} \u00b7 {} files", header->integer("totalLinesAdded").value_or(0),
                                 header->integer("totalLinesRemoved").value_or(0), files);
  return session;
}

std::vector<std::filesystem::path> CursorReader::stores(const std::filesystem::path& home) {
  std::vector<std::filesystem::path> paths;
  for (const char* name : storeNames) paths.push_back(home / name);
  return paths;
}

std::vector<AgentSession> CursorReader::sessions(const std::filesystem::path& home, Instant now) const {
  const std::array cutOff{static_cast<std::int64_t>(
      std::chrono::floor<std::chrono::milliseconds>(advanced(now, -AgentTiming::recentWindow)).time_since_epoch() /
      std::chrono::milliseconds(1))};
  for (const std::filesystem::path& path : stores(home)) {
    if (!fileStatus(path)) continue;
    LineParser parser;
    std::vector<AgentSession> sessions;
    const auto rows = cache_->rows(path, query, cutOff);
    for (const StoreRow& row : *rows) {
      const auto composerId = row.text(0), value = row.text(1);
      // A row that was kept may have grown too old meanwhile.
      if (!composerId || !value || row.integer(2) <= cutOff.front()) continue;
      if (auto session = cursorSession(*composerId, *value, now, parser)) sessions.push_back(std::move(*session));
    }
    return sessions;
  }
  return {};
}

}  // namespace ambrel
