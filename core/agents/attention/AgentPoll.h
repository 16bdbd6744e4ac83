#pragma once
// One look after the other at everything that tells of the agents: the readers, Claude Code's registry, the hooks'
// store and the ends of the logs.

#include <filesystem>
#include <memory>
#include <vector>

#include "core/agents.h"

namespace ambrel {

// Stands in the place of all readers. It remembers what it has read: keep it between polls.
class AgentPoll : public AgentSessionReader {
 public:
  // data: the program's own folder; processes: the root of /proc.
  explicit AgentPoll(std::filesystem::path data, AgentFolders folders = {}, std::filesystem::path processes = "/proc");
  ~AgentPoll() override;

  // As mergedSessions orders them. In a home without a registry and without hooks the sessions are the readers'.
  // A log is read only when it changed.
  std::vector<AgentSession> sessions(const std::filesystem::path& home, Instant now) const override;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

// It alone: what the program polls.
AgentReaders makeAttentiveReaders(const std::filesystem::path& data, const AgentFolders& folders);

// Where a change may be one of the sessions.
struct AgentTrace {
  std::filesystem::path folder;
  int levels = 0;  // of folders below it that count, too
  Seconds pause;   // the least time between two looks for its sake
};
std::vector<AgentTrace> agentTraces(const std::filesystem::path& home, const std::filesystem::path& data,
                                    const AgentFolders& folders);

}  // namespace ambrel
