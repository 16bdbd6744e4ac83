#pragma once
// What the hook events of one conversation come to.

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/agents.h"
#include "core/agents/attention/HookEvent.h"

namespace ambrel {

struct HookState {
  enum class Turn {
    unknown,
    opened,  // the conversation was begun or taken up again, and nothing was asked yet
    running,
    ended,
    interrupted,
    closed,  // the tool has left the conversation
  };
  // A dialog that the user has not answered, as far as hooks tell.
  struct Open {
    AgentWait::Reason reason;
    std::optional<std::string> asks, agent, tool, call;
    Instant since;
    std::int64_t ticks;  // the same by the clock of processes
    friend bool operator==(const Open&, const Open&) = default;
  };

  Turn turn = Turn::unknown;
  Instant turnAt = {};
  Instant lastAt = {};                         // the newest event of any kind
  std::vector<Open> open = {};                 // the first of them is on the screen
  std::optional<Instant> answeredAt = {};      // when the newest of the others ended
  std::optional<Instant> requestedAt = {};     // the newest request for a permission
  std::map<std::string, Instant> agents = {};  // sub-agents that run, and when each was heard of last
  ToolProcess process = {};

  // In the order of the store.
  void take(const HookEvent& event);

 private:
  void set(Turn next, Instant at);
  void ask(AgentWait::Reason reason, const HookEvent& event);
  template <typename Which>
  void end(Instant at, Which which);
  void takeNotice(const HookEvent& event);
};

}  // namespace ambrel
