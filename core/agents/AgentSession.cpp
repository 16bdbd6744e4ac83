#include <algorithm>

#include "core/agents.h"
#include "core/agents/AntigravityReader.h"
#include "core/agents/ClaudeCodeReader.h"
#include "core/agents/CodexReader.h"
#include "core/agents/CursorReader.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

std::string_view lastComponent(std::string_view path) {
  const auto end = path.find_last_not_of('/');
  if (end == std::string_view::npos) return path.substr(0, 1);
  path = path.substr(0, end + 1);
  return path.substr(path.find_last_of('/') + 1);
}

}  // namespace

std::string_view displayName(AgentKind kind) {
  switch (kind) {
    case AgentKind::claudeCode:
      return "Claude Code";
    case AgentKind::codex:
      return "Codex";
    case AgentKind::cursor:
      return "Cursor";
    case AgentKind::antigravity:
      return "Antigravity";
  }
  return {};
}

std::string_view bundleIdentifier(AgentKind kind) {
  switch (kind) {
    case AgentKind::claudeCode:
      return "com.anthropic.claudefordesktop";
    case AgentKind::codex:
      return "com.openai.codex";
    case AgentKind::cursor:
      return "com.todesktop.230313mzl4w4u92";
    case AgentKind::antigravity:
      return "com.google.antigravity";
  }
  return {};
}

std::string_view displayName(AgentStatus status) {
  switch (status) {
    case AgentStatus::needsInput:
      return "Needs you";
    case AgentStatus::working:
      return "Working";
    case AgentStatus::finished:
      return "Done";
    case AgentStatus::idle:
      return "Idle";
  }
  return {};
}

AgentStatus AgentTiming::aged(AgentStatus status, Seconds since) {
  if (status == AgentStatus::working && since > workingTimeout) return AgentStatus::idle;
  if (status == AgentStatus::finished && since > finishedTimeout) return AgentStatus::idle;
  return status;
}

AgentReaders makeAgentReaders() {
  AgentReaders readers;
  readers.push_back(std::make_unique<ClaudeCodeReader>());
  readers.push_back(std::make_unique<CodexReader>());
  readers.push_back(std::make_unique<CursorReader>());
  readers.push_back(std::make_unique<AntigravityReader>());
  return readers;
}

std::vector<AgentSession> mergedSessions(const AgentReaders& readers, const std::filesystem::path& home, Instant now) {
  std::vector<std::vector<AgentSession>> found;
  for (const auto& reader : readers) found.push_back(reader->sessions(home, now));
  return mergedSessions(std::move(found));
}

std::vector<AgentSession> mergedSessions(std::vector<std::vector<AgentSession>> found) {
  std::vector<AgentSession*> order;
  for (auto& sessions : found)
    for (AgentSession& session : sessions) order.push_back(&session);
  // Records are heavy to move: only their positions are sorted.
  std::stable_sort(order.begin(), order.end(), [](const AgentSession* a, const AgentSession* b) {
    return a->status != b->status ? a->status < b->status : a->updatedAt > b->updatedAt;
  });
  std::vector<AgentSession> merged;
  merged.reserve(order.size());
  for (AgentSession* session : order) merged.push_back(std::move(*session));
  return merged;
}

std::optional<std::string> projectName(std::optional<std::string_view> pathOrURL) {
  if (!pathOrURL || pathOrURL->empty()) return std::nullopt;
  std::string_view path = *pathOrURL;
  std::string name;
  constexpr std::string_view scheme = "file://";
  if (path.starts_with(scheme)) {
    path.remove_prefix(scheme.size());
    path = path.substr(0, path.find_first_of("?#"));
    const auto slash = path.find('/');  // ends the host
    if (slash == std::string_view::npos) return std::nullopt;
    // Split before decoding: an encoded slash belongs to the name.
    auto decoded = percentDecoded(lastComponent(path.substr(slash)));
    if (!decoded) return std::nullopt;
    name = std::move(*decoded);
  } else {
    name = lastComponent(path);
  }
  return repairedUTF8(name);
}

}  // namespace ambrel
