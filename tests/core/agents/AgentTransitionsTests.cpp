#include <gmock/gmock.h>

#include "core/agents/AgentTransitions.h"

namespace ambrel {
namespace {

using enum AgentStatus;

AgentSession session(const std::string& id, AgentStatus status) {
  return {.id = id,
          .kind = AgentKind::codex,
          .title = "t",
          .project = std::nullopt,
          .detail = std::nullopt,
          .status = status,
          .updatedAt = Instant{}};
}

TEST(AgentTransitions, OnlyWorkThatEndedOrWaitsIsNews) {
  const struct {
    AgentStatus before, after;
    bool isNews;
  } cases[] = {
      {working, finished, true},     {working, needsInput, true}, {working, idle, false},
      {working, working, false},     {idle, needsInput, false},   {finished, needsInput, false},
      {needsInput, finished, false}, {finished, finished, false},
  };
  for (const auto& c : cases)
    EXPECT_EQ(agentTransitions({session("a", c.before)}, {session("a", c.after)}).size(), c.isNews ? 1u : 0u)
        << nameOf(c.before) << " -> " << nameOf(c.after);
}

TEST(AgentTransitions, ATurnThatTheUserBrokeOffIsNoNews) {
  AgentSession broken = session("a", finished);
  broken.isInterrupted = true;
  EXPECT_TRUE(agentTransitions({session("a", working)}, {broken}).empty());
}

TEST(AgentTransitions, SessionsThatComeOrGoAreNoNews) {
  EXPECT_TRUE(agentTransitions({}, {session("new", finished)}).empty());
  EXPECT_TRUE(agentTransitions({session("gone", working)}, {}).empty());
}

TEST(AgentTransitions, AnAnnouncementNamesTheToolAndTheProject) {
  AgentSession waiting = session("codex:1", needsInput);
  waiting.project = "web-shop";
  EXPECT_EQ(announcement(waiting), (AgentAnnouncement{"codex:1", "Codex needs you", "web-shop"}));
  EXPECT_EQ(announcement(session("codex:2", finished)), (AgentAnnouncement{"codex:2", "Codex finished", "Codex"}));
}

TEST(AgentTransitions, CountsBySeparateStatus) {
  EXPECT_EQ(agentCounts({session("a", working), session("b", working), session("c", idle), session("d", needsInput)}),
            (AgentCounts{.needsInput = 1, .working = 2, .finished = 0, .idle = 1}));
}

}  // namespace
}  // namespace ambrel
