#include "app/dock/ContextPeeker.h"

#include "app/agents/AgentsModel.h"
#include "app/model/AppSettings.h"

namespace ambrel {

ContextPeeker::ContextPeeker(const AgentsModel& agents, const AppSettings& settings, std::function<void(Seconds)> peek)
    : agents_(agents), settings_(settings), peek_(std::move(peek)) {}

void ContextPeeker::check(Instant now) {
  if (mustWait && mustWait()) return;
  PeekSignals signals;
  for (const AgentSession& session : agents_.sessions())
    if (session.status == AgentStatus::needsInput) signals.waitingSessions.push_back(session.id);
  if (gatherMore) gatherMore(signals);
  if (memory_.check(peekReasons(signals, now), settings_.barPeeksForContext())) peek_(PeekMemory::peekLength);
}

}  // namespace ambrel
