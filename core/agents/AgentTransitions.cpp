#include "core/agents/AgentTransitions.h"

#include <map>

namespace ambrel {

std::vector<AgentSession> agentTransitions(const std::vector<AgentSession>& before,
                                           const std::vector<AgentSession>& after) {
  std::map<std::string_view, AgentStatus> statuses;
  for (const AgentSession& session : before) statuses[session.id] = session.status;
  std::vector<AgentSession> transitions;
  for (const AgentSession& session : after) {
    const auto earlier = statuses.find(session.id);
    if (earlier == statuses.end() || earlier->second != AgentStatus::working) continue;
    const bool hasFinished = session.status == AgentStatus::finished && !session.isInterrupted;
    if (hasFinished || session.status == AgentStatus::needsInput) transitions.push_back(session);
  }
  return transitions;
}

AgentAnnouncement announcement(const AgentSession& session) {
  const std::string name(displayName(session.kind));
  const bool waits = session.status == AgentStatus::needsInput;
  return {.identifier = session.id,
          .title = name + (waits ? " needs you" : " finished"),
          .body = session.project.value_or(name)};
}

AgentCounts agentCounts(const std::vector<AgentSession>& sessions) {
  AgentCounts counts;
  for (const AgentSession& session : sessions) {
    switch (session.status) {
      case AgentStatus::needsInput:
        ++counts.needsInput;
        break;
      case AgentStatus::working:
        ++counts.working;
        break;
      case AgentStatus::finished:
        ++counts.finished;
        break;
      case AgentStatus::idle:
        ++counts.idle;
        break;
    }
  }
  return counts;
}

}  // namespace ambrel
