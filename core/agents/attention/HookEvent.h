#pragma once
// What a tool's own hook told, and its line in our store.

#include <optional>
#include <string>
#include <string_view>

#include "core/agents.h"
#include "core/agents/attention/Processes.h"
#include "core/base/LineJSON.h"

namespace ambrel {

struct HookEvent {
  enum class Name {
    sessionStart,
    sessionEnd,
    userPromptSubmit,
    preToolUse,
    permissionRequest,
    postToolUse,
    postToolUseFailure,
    notification,
    stop,
    subagentStart,
    subagentStop,
    interrupt,
  };
  Name name = Name::stop;
  AgentKind kind = AgentKind::claudeCode;
  // The name of the conversation's log without its extension, else the tool's identifier.
  std::string session;
  Instant at = {};
  std::optional<std::string> agent = {};  // the sub-agent that it is about
  std::optional<std::string> tool = {};   // of a call
  std::optional<std::string> call = {};   // tells the calls of one tool apart: of their input
  std::optional<std::string> asks = {};   // what the call or the notification asks, in one line
  // Which notification ("permission_prompt"); how the conversation was begun ("resume").
  std::optional<std::string> notice = {};
  ToolProcess process = {};

  friend bool operator==(const HookEvent&, const HookEvent&) = default;
};

// As the tools write them: "PermissionRequest".
std::string_view toolName(HookEvent::Name name);

// The event that a tool hands to its hook; absent when it is not JSON, names no session, or no event that we know.
std::optional<HookEvent> hookEvent(AgentKind kind, std::string_view input, Instant now, LineParser& parser);

// One line without its newline. What cannot be read back gives no event.
std::string storedLine(const HookEvent& event);
std::optional<HookEvent> storedEvent(std::string_view line, LineParser& parser);

}  // namespace ambrel
