#include "core/agents/attention/HookEvent.h"

#include <array>
#include <cstdint>
#include <fmt/format.h>

#include "core/agents/SessionFiles.h"
#include "core/agents/attention/AskedText.h"
#include "core/base/JSON.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

using Name = HookEvent::Name;

constexpr std::array names{
    std::pair{Name::sessionStart, std::string_view("SessionStart")},
    std::pair{Name::sessionEnd, std::string_view("SessionEnd")},
    std::pair{Name::userPromptSubmit, std::string_view("UserPromptSubmit")},
    std::pair{Name::preToolUse, std::string_view("PreToolUse")},
    std::pair{Name::permissionRequest, std::string_view("PermissionRequest")},
    std::pair{Name::postToolUse, std::string_view("PostToolUse")},
    std::pair{Name::postToolUseFailure, std::string_view("PostToolUseFailure")},
    std::pair{Name::notification, std::string_view("Notification")},
    std::pair{Name::stop, std::string_view("Stop")},
    std::pair{Name::subagentStart, std::string_view("SubagentStart")},
    std::pair{Name::subagentStop, std::string_view("SubagentStop")},
    std::pair{Name::interrupt, std::string_view("Interrupt")},
};

std::optional<Name> named(std::string_view text) {
  for (const auto& [name, each] : names)
    if (each == text) return name;
  return std::nullopt;
}

// At most so many bytes of an identifier: a line of the store is bounded.
std::optional<std::string> bounded(std::optional<std::string_view> text) {
  constexpr std::size_t most = 200;
  if (!text || text->empty()) return std::nullopt;
  return repairedUTF8(text->substr(0, most));
}

// A request and the end of the call that it was for have the same input, and no other name in common. The description
// beside a command counts for nothing: Codex writes there, in the request alone, why it asks.
std::string callOf(const LineObject& input) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const std::string_view key : {"command", "file_path", "notebook_path", "url", "query", "pattern", "plan",
                                     "content", "old_string", "new_string", "prompt", "description"}) {
    if (key == "description" && input.text("command")) continue;
    const auto text = input.text(key);
    if (!text) continue;
    for (const std::string_view piece : {key, std::string_view("\0", 1), *text})
      for (const char c : piece) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
  }
  return fmt::format("{:016x}", hash);
}

}  // namespace

std::string_view toolName(HookEvent::Name name) {
  for (const auto& [each, text] : names)
    if (each == name) return text;
  return {};
}

std::optional<HookEvent> hookEvent(AgentKind kind, std::string_view input, Instant now, LineParser& parser) {
  const auto json = parser.parse(input);
  if (!json) return std::nullopt;
  const auto name = named(json->text("hook_event_name").value_or(""));
  if (!name) return std::nullopt;
  HookEvent event;
  event.name = *name;
  event.kind = kind;
  event.at = now;
  const auto log = json->text("transcript_path").value_or("");
  event.session =
      log.empty() ? bounded(json->text("session_id")).value_or("") : bounded(sessionIdentifier(log)).value_or("");
  if (event.session.empty()) return std::nullopt;
  event.agent = bounded(json->text("agent_id"));
  event.tool = bounded(json->text("tool_name"));
  if (const auto call = json->object("tool_input"); call && event.tool) {
    event.call = callOf(*call);
    if (*name == Name::permissionRequest || *name == Name::preToolUse) event.asks = askedText(*event.tool, call);
  }
  if (*name == Name::notification) {
    event.notice = bounded(json->text("notification_type"));
    event.asks = askedLine(json->text("message").value_or(""));
  }
  if (*name == Name::sessionStart) event.notice = bounded(json->text("source"));
  return event;
}

std::string storedLine(const HookEvent& event) {
  JSON line{
      {"event", toolName(event.name)}, {"kind", nameOf(event.kind)}, {"session", event.session}, {"at", event.at}};
  const auto add = [&](const char* key, const std::optional<std::string>& text) {
    if (text) line[key] = *text;
  };
  add("agent", event.agent);
  add("tool", event.tool);
  add("call", event.call);
  add("asks", event.asks);
  add("notice", event.notice);
  if (event.process.pid > 0) {
    line["pid"] = event.process.pid;
    line["processStart"] = event.process.start;
    line["ticks"] = event.process.ticks;
    line["space"] = event.process.space;
  }
  return compactJSON(line);
}

std::optional<HookEvent> storedEvent(std::string_view line, LineParser& parser) {
  const auto json = parser.parse(line);
  if (!json) return std::nullopt;
  const auto name = named(json->text("event").value_or(""));
  const auto kind = fromName<AgentKind>(json->text("kind").value_or(""));
  const auto at = parseISO8601(json->text("at").value_or(""));
  const auto session = json->text("session").value_or("");
  if (!name || !kind || !at || session.empty()) return std::nullopt;
  HookEvent event;
  event.name = *name;
  event.kind = *kind;
  event.session = session;
  event.at = *at;
  event.agent = json->text("agent");
  event.tool = json->text("tool");
  event.call = json->text("call");
  event.asks = json->text("asks");
  event.notice = json->text("notice");
  if (const auto pid = json->integer("pid"); pid && *pid > 0 && *pid < 1 << 30) {
    event.process.pid = static_cast<int>(*pid);
    event.process.start = json->text("processStart").value_or("");
    event.process.ticks = json->integer("ticks").value_or(0);
    event.process.space = json->text("space").value_or("");
  }
  return event;
}

}  // namespace ambrel
