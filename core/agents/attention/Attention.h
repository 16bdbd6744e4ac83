#pragma once
// Whether an agent works, waits or is done, from everything that tells of it. The rules are in docs/decisions.md,
// under "Agents that wait".

#include <optional>
#include <vector>

#include "core/agents.h"
#include "core/agents/attention/HookState.h"
#include "core/agents/attention/LiveRegistry.h"
#include "core/agents/attention/LogSigns.h"
#include "core/agents/attention/TitleSearch.h"

namespace ambrel {

// What is known of one conversation. What is absent says nothing.
struct AttentionSigns {
  const LogSigns* log = nullptr;
  LogTitles titles = {};              // which may be further back in the log than its signs
  std::vector<LiveRecord> live = {};  // those of this conversation
  const HookState* hook = nullptr;
  // There is a registry, so that a conversation in a terminal that is not in it has been left.
  bool hasRegistry = false;
  // The process that called the hooks; unknown where there are none, or they could not tell it.
  enum class ToolState { unknown, runs, ended };
  ToolState tool = ToolState::unknown;
  // It has started another process since the first open dialog came up: what was asked for has been allowed.
  bool hasToolGoneOn = false;
};

// The record that counts where several processes have taken the conversation up; null when none of them runs.
const LiveRecord* newestAlive(const std::vector<LiveRecord>& records);

// The reader's session with what the signs say in addition: status, wait, detail and title, and who said so.
AgentSession attended(AgentSession session, const AttentionSigns& signs, Instant now);

}  // namespace ambrel
