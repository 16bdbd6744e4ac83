#include "core/agents.h"

#include "core/agents/AgentSessionJSON.h"
#include "core/agents/attention/AgentPoll.h"
#include "core/base/JSON.h"
#include "core/base/LocalText.h"
#include "ctl/Table.h"
#include "ctl/commands/Commands.h"
#include "ctl/commands/Watch.h"

namespace ambrel {
namespace {

constexpr Seconds pollInterval{3};

std::string_view styleOf(AgentStatus status) {
  switch (status) {
    case AgentStatus::needsInput:
      return "1;33";
    case AgentStatus::working:
      return "34";
    case AgentStatus::finished:
      return "32";
    case AgentStatus::idle:
      return "90";
  }
  return {};
}

std::string asTable(const std::vector<AgentSession>& sessions, const Context& context, Instant now) {
  if (sessions.empty()) return "No agent activity\nSessions from the last 6 hours appear here.\n";
  std::vector<std::vector<Cell>> rows;
  for (const AgentSession& session : sessions) {
    const bool namesProject = session.project && *session.project != session.title;
    rows.push_back({{std::string(displayName(session.status)), std::string(styleOf(session.status))},
                    {session.title, "1"},
                    {namesProject ? *session.project : ""},
                    {std::string(displayName(session.kind))},
                    {session.detail.value_or("")},
                    {relativeAge(context.calendar, session.updatedAt, now), "90"}});
  }
  return table(rows, 1, context);
}

void runAgents(const Arguments& arguments, Context& context) {
  const auto interval = watchInterval(arguments, pollInterval);
  const AgentPoll poll(context.data, context.agentFolders);
  std::optional<std::vector<AgentSession>> last;
  std::string text;
  printWatching(context, interval, [&] {
    const Instant now = context.now();
    auto sessions = poll.sessions(context.home, now);
    // Between two changes only a terminal is kept up to date with the ages.
    if (last == sessions && !context.out.isTerminal()) return text;
    text = context.json ? compactJSON(JSON(sessions)) + "\n" : asTable(sessions, context, now);
    last = std::move(sessions);
    return text;
  });
}

}  // namespace

Command agentsCommand() {
  return {
      .name = "agents",
      .summary = "The sessions of the coding agents, the most urgent first",
      .options = {watchOption("Print the list again whenever it changes"), everyOption("Time between two looks [3]")},
      .commands = agentHookCommands(),
      .run = runAgents};
}

}  // namespace ambrel
