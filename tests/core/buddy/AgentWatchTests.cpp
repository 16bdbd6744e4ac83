#include "core/buddy/AgentWatch.h"
#include "tests/Matchers.h"
#include "tests/core/agents/Sessions.h"
#include "tests/core/buddy/Notices.h"

namespace ambrel {
namespace {

using enum AgentStatus;
using enum AgentKind;

AgentSession session(std::string id, AgentKind kind, AgentStatus status, std::optional<std::string> detail = {}) {
  AgentSession session = agentSession(std::move(id), kind, status);
  session.detail = std::move(detail);
  return session;
}

AgentWatch watch() { return {.lastLookAt = start}; }

TEST(AgentWatch, KnowsAReturnAfterTwoMinutesAway) {
  for (const auto& [away, isReturn] : {std::pair{0.0, false}, {119.999999, false}, {120.0, true}, {7200.0, true}}) {
    AgentWatch watch;
    EXPECT_FALSE(watch.setFront({codex}, after(0))) << "a first visit is no return";
    EXPECT_FALSE(watch.setFront({codex}, after(500))) << "nor is one that comes forward again";
    EXPECT_FALSE(watch.setFront({}, after(510)));
    EXPECT_EQ(watch.setFront({codex}, after(510 + away)), isReturn) << away;
  }
}

TEST(AgentWatch, CountsTheTimeAwayForEachAgent) {
  AgentWatch watch;
  watch.setFront({codex}, after(0));
  watch.setFront({cursor}, after(100));
  EXPECT_FALSE(watch.setFront({codex}, after(200)));
  watch.setFront({cursor}, after(210));
  EXPECT_FALSE(watch.setFront({}, after(400))) << "nobody came back to an agent";
  EXPECT_TRUE(watch.setFront({codex}, after(410)));
}

TEST(AgentWatch, KnowsSeveralAgentsInOneWindow) {
  AgentWatch watch;
  watch.setFront({codex, cursor}, after(0));
  EXPECT_THAT(watch.focused(after(0)), ElementsAre(codex, cursor));
  // One of them ends, or its pane is left: it was in view until then, however long ago the window came forward.
  watch.setFront({codex, cursor}, after(3600));
  watch.setFront({codex}, after(3610));
  EXPECT_THAT(watch.focused(after(3630)), ElementsAre(codex, cursor));
  EXPECT_THAT(watch.focused(after(3631)), ElementsAre(codex));
  EXPECT_TRUE(watch.setFront({codex, cursor}, after(3800))) << "it was away for three minutes";
}

TEST(AgentWatch, HasAnAgentInViewWhileItIsInFrontAnd20SecondsAfter) {
  AgentWatch watch;
  EXPECT_THAT(watch.focused(after(0)), IsEmpty());
  watch.setFront({codex}, after(0));
  EXPECT_THAT(watch.focused(after(9000)), ElementsAre(codex));
  watch.setFront({cursor}, after(9000));
  EXPECT_THAT(watch.focused(after(9020)), ElementsAre(codex, cursor));
  EXPECT_THAT(watch.focused(after(9020.001)), ElementsAre(cursor));
  watch.setFront({}, after(9100));
  EXPECT_THAT(watch.focused(after(9120)), ElementsAre(cursor));
  EXPECT_THAT(watch.focused(after(9121)), IsEmpty());
}

TEST(AgentWatch, LogsNothingAtFirstSight) {
  AgentWatch watch;
  watch.update({session("a", codex, finished), session("b", codex, working)}, after(0));
  EXPECT_THAT(watch.log, IsEmpty());
  watch.update({session("a", codex, finished, "Done"), session("b", codex, working, "Bash")}, after(10));
  EXPECT_THAT(watch.log, IsEmpty()) << "another detail is no change";
  EXPECT_EQ(watch.last.at("b").detail, "Bash");
}

TEST(AgentWatch, MeasuresARunFromItsFirstSightThroughEveryWait) {
  AgentWatch watch{.lastLookAt = after(-1)};
  watch.update({session("a", codex, idle)}, after(-10));
  watch.update({session("a", codex, needsInput, "Allow?")}, after(0));
  watch.update({session("a", codex, working, "Bash")}, after(60));
  watch.update({session("a", codex, finished)}, after(500));
  AgentWatch::Change end{.sessionID = "a",
                         .kind = codex,
                         .project = "web-shop",
                         .from = needsInput,
                         .to = working,
                         .detail = "Bash",
                         .ranFor = {},
                         .at = after(60)};
  ASSERT_THAT(watch.log, SizeIs(3));
  EXPECT_EQ(watch.log[1], end);
  end.from = working;
  end.to = finished;
  end.ranFor = Seconds(500);
  end.at = after(500);
  EXPECT_EQ(watch.log[2], end);
  EXPECT_THAT(
      watch.digest(after(900)),
      ElementsAre(AgentWatch::DigestEntry{
          "a", codex, "web-shop", {"Waiting for you · Allow?", "Started working · Bash", "Finished after 8 min"}}));
}

TEST(AgentWatch, BeginsANewRunAfterTheEndOfAnother) {
  AgentWatch watch;
  watch.update({session("a", codex, working)}, after(0));
  watch.update({session("a", codex, finished)}, after(600));
  watch.update({session("a", codex, idle)}, after(7800));
  watch.update({session("a", codex, working)}, after(8000));
  watch.update({session("a", codex, idle)}, after(8700));
  ASSERT_THAT(watch.log, SizeIs(4));
  EXPECT_EQ(watch.log[0].ranFor, Seconds(600));
  EXPECT_EQ(watch.log[1].ranFor, std::nullopt) << "a finished session that ages has no run";
  EXPECT_EQ(watch.log[3].ranFor, Seconds(700));
}

TEST(AgentWatch, KeepsChangesForSixHours) {
  AgentWatch watch;
  watch.update({session("a", codex, working), session("b", codex, working)}, after(0));
  watch.update({session("a", codex, finished), session("b", codex, working)}, after(10));
  watch.update({session("a", codex, finished), session("b", codex, finished)}, after(20));
  watch.update({}, after(21610));
  EXPECT_THAT(watch.log, SizeIs(2));
  watch.update({}, after(21610.5));
  ASSERT_THAT(watch.log, SizeIs(1));
  EXPECT_EQ(watch.log[0].sessionID, "b");
}

TEST(AgentWatch, KeepsTheNewestOfAFloodOfChanges) {
  AgentWatch watch;
  for (int round = 0; round < 13; ++round) {
    std::vector<AgentSession> sessions;
    for (int i = 0; i < 1000; ++i)
      sessions.push_back(session(std::to_string(i), codex, round % 2 == 0 ? working : needsInput));
    watch.update(sessions, after(round * 10));
  }
  ASSERT_THAT(watch.log, SizeIs(10'000));
  EXPECT_EQ(watch.log.front().at, after(30));
  EXPECT_EQ(watch.log.back().at, after(120));
  EXPECT_EQ(watch.log.back().sessionID, "999");
}

TEST(AgentWatch, WordsAChange) {
  using Text = std::optional<std::string>;
  using Row = std::tuple<AgentStatus, AgentStatus, Text, std::optional<Seconds>, Text>;
  for (const auto& [from, to, detail, ranFor, line] :
       {Row{working, needsInput, {}, {}, "Waiting for you"}, Row{finished, working, {}, {}, "Started working"},
        Row{working, finished, "Done", Seconds(725), "Finished after 12 min"},
        Row{working, finished, {}, Seconds(0), "Finished after 1 min"},
        Row{working, finished, {}, Seconds(119.9), "Finished after 1 min"}, Row{idle, finished, "Done", {}, "Finished"},
        Row{working, idle, "Bash", Seconds(1260), "Stopped after 21 min: no activity for 10 min"},
        Row{needsInput, idle, {}, {}, "Stopped: no activity for 10 min"}, Row{finished, idle, "Done", {}, {}},
        Row{idle, idle, {}, {}, {}}})
    EXPECT_EQ(AgentWatch::line({.sessionID = "a",
                                .kind = codex,
                                .project = {},
                                .from = from,
                                .to = to,
                                .detail = detail,
                                .ranFor = ranFor,
                                .at = start}),
              line)
        << nameOf(from) << " to " << nameOf(to);
}

TEST(AgentWatch, TellsOfTheOthersInTheOrderOfTheirFirstNews) {
  AgentWatch watch = ambrel::watch();
  watch.update({session("c", claudeCode, working), session("x", codex, working), session("y", cursor, working)},
               after(0));
  watch.update({session("c", claudeCode, working), session("x", codex, working), session("y", cursor, finished)},
               after(60));
  watch.update(
      {session("c", claudeCode, finished), session("x", codex, needsInput, "Allow?"), session("y", cursor, finished)},
      after(120));
  watch.update({session("c", claudeCode, finished), session("x", codex, needsInput, "Allow?"),
                session("y", cursor, working, "Read")},
               after(180));
  watch.setFront({claudeCode}, after(200));
  EXPECT_THAT(
      watch.digest(after(200)),
      ElementsAre(AgentWatch::DigestEntry{"y", cursor, "web-shop", {"Finished after 1 min", "Started working · Read"}},
                  AgentWatch::DigestEntry{"x", codex, "web-shop", {"Waiting for you · Allow?"}}));
}

TEST(AgentWatch, TellsOnlyOfWhatCameAfterTheLastLook) {
  AgentWatch watch = ambrel::watch();
  watch.update({session("a", codex, working), session("b", codex, working)}, after(0));
  watch.update({session("a", codex, finished), session("b", codex, working)}, after(60));
  watch.update({session("a", codex, finished), session("b", codex, finished)}, after(120));
  watch.lastLookAt = after(60);
  const auto digest = watch.digest(after(200));
  ASSERT_THAT(digest, SizeIs(1));
  EXPECT_EQ(digest[0].sessionID, "b");
  watch.lastLookAt = after(120);
  EXPECT_THAT(watch.digest(after(200)), IsEmpty());
  // Nor of agents in view, and for 20 seconds after.
  watch.lastLookAt = after(0);
  watch.setFront({codex}, after(250));
  watch.setFront({}, after(300));
  EXPECT_THAT(watch.digest(after(320)), IsEmpty());
  EXPECT_THAT(watch.digest(after(321)), SizeIs(2));
}

TEST(AgentWatch, SumsUpADigestInOneNotice) {
  using Entry = AgentWatch::DigestEntry;
  const Entry first{"a", codex, "web-shop", {"Started working", "Finished after 12 min"}};
  const Entry second{"b", claudeCode, {}, {"Waiting for you · Allow?"}};
  const Entry third{"c", cursor, {}, {"Finished"}};
  const Instant now = after(0.5);
  EXPECT_EQ(awayNotice({first}, now), BuddyNotice("away:1795251600.5", BuddyRule::awayDigest, "While you were away",
                                                  "Codex: Finished after 12 min", now, {BuddyActions::OpenInbox{}}));
  const std::string two = "Codex: Finished after 12 min · Claude Code: Waiting for you · Allow?";
  EXPECT_EQ(awayNotice({first, second}, now).detail, two);
  EXPECT_EQ(awayNotice({first, second, third}, now).detail, two + " · +1 more");
  EXPECT_EQ(awayNotice({first}, after(0)).id, "away:1795251600.0");
}

TEST(AgentWatch, MovesWithAClockThatIsSet) {
  for (const double by : {-7200.0, 86400.0}) {
    AgentWatch watch = ambrel::watch();
    watch.setFront({cursor}, after(0));
    watch.update({session("a", codex, working), session("b", codex, working)}, after(0));
    watch.update({session("a", codex, finished), session("b", codex, working)}, after(60));
    watch.lastLookAt = after(60);
    watch.setFront({}, after(100));
    watch.clockMoved(Seconds(by));

    EXPECT_THAT(watch.focused(after(by + 120)), ElementsAre(cursor));
    EXPECT_THAT(watch.focused(after(by + 121)), IsEmpty());
    watch.update({session("a", codex, finished), session("b", codex, finished)}, after(by + 600));
    EXPECT_THAT(watch.digest(after(by + 600)),
                ElementsAre(AgentWatch::DigestEntry{"b", codex, "web-shop", {"Finished after 10 min"}}));
    EXPECT_TRUE(watch.setFront({cursor}, after(by + 220)));
  }
}

}  // namespace
}  // namespace ambrel
