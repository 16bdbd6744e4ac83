#pragma once
// What changed between two polls that the user may want to hear of.

#include <vector>

#include "core/agents.h"

namespace ambrel {

// A session that was working and is not any more: its new status is `finished` or `needsInput`. A working session
// that fell idle, was interrupted by the user or went away is no transition; nor is anything that was not working
// before.
std::vector<AgentSession> agentTransitions(const std::vector<AgentSession>& before,
                                           const std::vector<AgentSession>& after);

struct AgentAnnouncement {
  std::string identifier;  // the session's id: a later announcement replaces an earlier one
  std::string title;       // "Codex needs you", "Codex finished"
  std::string body;        // the project, else the tool's name
  friend bool operator==(const AgentAnnouncement&, const AgentAnnouncement&) = default;
};
AgentAnnouncement announcement(const AgentSession& session);

struct AgentCounts {
  int needsInput = 0;
  int working = 0;
  int finished = 0;
  int idle = 0;
  friend bool operator==(const AgentCounts&, const AgentCounts&) = default;
};
AgentCounts agentCounts(const std::vector<AgentSession>& sessions);

}  // namespace ambrel
