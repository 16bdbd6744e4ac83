#include "core/agents/AgentTransitions.h"
#include "tests/Matchers.h"
#include "tests/core/agents/Sessions.h"

namespace ambrel {
namespace {

using enum AgentStatus;

TEST(AgentTiming, AgesOnlyWorkAndFinishedAndOnlyBeyondTheLimit) {
  const struct {
    AgentStatus status;
    double since;
    AgentStatus expected;
  } cases[] = {
      {working, 0, working},           {working, 600, working},
      {working, 600.001, idle},        {finished, 600.001, finished},
      {finished, 7200, finished},      {finished, 7200.001, idle},
      {needsInput, 21600, needsInput}, {idle, 0, idle},
      {working, -5, working},
  };
  for (const auto& each : cases)
    EXPECT_EQ(AgentTiming::aged(each.status, Seconds(each.since)), each.expected)
        << nameOf(each.status) << " " << each.since;
}

TEST(ProjectName, IsTheLastComponentOfAPathOrURL) {
  const struct {
    std::optional<std::string_view> text;
    std::optional<std::string> expected;
  } cases[] = {
      {std::nullopt, std::nullopt},
      {"", std::nullopt},
      {"/home/u/tilebay", "tilebay"},
      {"/home/u/tilebay/", "tilebay"},
      {"/home/u/tilebay//", "tilebay"},
      {"/", "/"},
      {"///", "/"},
      {"relative", "relative"},
      {"/home/u/50% #1?", "50% #1?"},
      {"file:///home/u/tilebay", "tilebay"},
      {"file:///home/u/tilebay/", "tilebay"},
      {"file:///home/u/my%20caf%C3%A9", "my café"},
      {"file:///home/u/a%2Fb", "a/b"},
      {"file://host/home/u/x", "x"},
      {"file:///home/u/x?q=/y#/z", "x"},
      {"file:///", "/"},
      {"file://", std::nullopt},
      {"file://host", std::nullopt},
      {"file:///home/u/bad%zz", std::nullopt},
      {"/home/u/\xff\xfe", "\xef\xbf\xbd\xef\xbf\xbd"},
  };
  for (const auto& each : cases) EXPECT_EQ(projectName(each.text), each.expected) << each.text.value_or("(none)");
}

TEST(MergedSessions, OrdersByUrgencyThenNewestThenReader) {
  const auto session = [](std::string id, AgentStatus status, int second) {
    AgentSession one = agentSession(std::move(id), AgentKind::codex, status);
    one.updatedAt = instantFromUnixSeconds(second);
    return one;
  };
  const std::vector<AgentSession> lists[] = {
      {session("a", idle, 9), session("b", working, 5)},
      {session("c", working, 5), session("d", needsInput, 1), session("e", working, 6)},
      {session("f", finished, 8), session("g", working, 5)}};
  AgentReaders readers;
  for (const auto& list : lists) readers.push_back(std::make_unique<ListReader>(list));
  std::vector<std::string> ids;
  for (const auto& each : mergedSessions(readers, "/home/u", Instant{})) ids.push_back(each.id);
  EXPECT_THAT(ids, ElementsAre("d", "e", "b", "c", "g", "f", "a"));
}

AgentSession session(const std::string& id, AgentStatus status) { return agentSession(id, AgentKind::codex, status); }

TEST(AgentTransitions, OnlyWorkThatEndedOrWaitsIsNews) {
  const std::tuple<AgentStatus, AgentStatus, bool> rows[] = {
      {working, finished, true},     {working, needsInput, true}, {working, idle, false},
      {working, working, false},     {idle, needsInput, false},   {finished, needsInput, false},
      {needsInput, finished, false}, {finished, finished, false},
  };
  for (const auto& [before, after, isNews] : rows)
    EXPECT_EQ(agentTransitions({session("a", before)}, {session("a", after)}).size(), isNews ? 1u : 0u)
        << nameOf(before) << " -> " << nameOf(after);
  AgentSession brokenOff = session("a", finished);
  brokenOff.isInterrupted = true;
  EXPECT_TRUE(agentTransitions({session("a", working)}, {brokenOff}).empty());
  // Nor is it that a session comes or goes.
  EXPECT_TRUE(agentTransitions({session("gone", working)}, {session("new", finished)}).empty());
}

TEST(AgentTransitions, AnAnnouncementNamesTheToolAndTheProject) {
  EXPECT_EQ(announcement(session("codex:1", needsInput)),
            (AgentAnnouncement{"codex:1", "Codex needs you", "web-shop"}));
  AgentSession nowhere = session("codex:2", finished);
  nowhere.project.reset();
  EXPECT_EQ(announcement(nowhere), (AgentAnnouncement{"codex:2", "Codex finished", "Codex"}));
}

TEST(AgentTransitions, CountsBySeparateStatus) {
  EXPECT_EQ(agentCounts({session("a", working), session("b", working), session("c", idle), session("d", needsInput)}),
            (AgentCounts{.needsInput = 1, .working = 2, .finished = 0, .idle = 1}));
}

}  // namespace
}  // namespace ambrel
