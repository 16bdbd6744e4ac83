#pragma once
// Sessions of agents, and a reader that lists what the test has in a list.

#include "core/agents.h"

namespace ambrel {

inline AgentSession agentSession(std::string id, AgentKind kind, AgentStatus status, std::string project = "web-shop") {
  return {.id = std::move(id),
          .kind = kind,
          .title = "Mend the build",
          .project = std::move(project),
          .detail = {},
          .status = status,
          .updatedAt = {}};
}

class ListReader : public AgentSessionReader {
 public:
  // The list may change from one look to the next.
  explicit ListReader(const std::vector<AgentSession>& list) : list_(list) {}
  std::vector<AgentSession> sessions(const std::filesystem::path&, Instant) const override { return list_; }

 private:
  const std::vector<AgentSession>& list_;
};

inline AgentReaders readersOf(const std::vector<AgentSession>& list) {
  AgentReaders readers;
  readers.push_back(std::make_unique<ListReader>(list));
  return readers;
}

}  // namespace ambrel
