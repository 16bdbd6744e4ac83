#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/buddy/NoticeReplay.h"
#include "tests/core/buddy/NoticeCases.h"

namespace ambrel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(NoticeReplay, GivesTheNoticesOfEachCase) {
  const auto cases = noticeCases();
  ASSERT_GE(cases.size(), 70u);
  for (const NoticeCase& one : cases) {
    SCOPED_TRACE(one.name);
    ASSERT_EQ(one.lines.size(), one.expected.size());
    NoticeReplay replay(Calendar(one.zone, one.locale));
    for (std::size_t i = 0; i < one.lines.size(); ++i) {
      SCOPED_TRACE("line " + std::to_string(i + 1));
      const auto answer = replay.play(one.lines[i]);
      EXPECT_EQ(difference(one.expected[i], JSON(answer.notices)), "");
      EXPECT_THAT(answer.remarks, IsEmpty());
    }
  }
}

TEST(NoticeReplay, HasACaseForEachRuleOfTheEngine) {
  std::set<std::string> rules;
  for (const NoticeCase& one : noticeCases())
    for (const JSON& line : one.expected)
      for (const JSON& notice : line)
        if (notice.contains("rule")) rules.insert(notice["rule"].get<std::string>());
  for (const BuddyRule rule : allCases<BuddyRule>())
    EXPECT_EQ(rules.count(std::string(nameOf(rule))), rule == BuddyRule::awayDigest ? 0u : 1u) << nameOf(rule);
}

std::string problemOf(std::string_view line) {
  NoticeReplay replay(Calendar("UTC", "en_US"));
  try {
    replay.play(line);
  } catch (const DecodingError& error) {
    return error.what();
  }
  return {};
}

TEST(NoticeReplay, SaysWhatIsWrongWithALine) {
  struct Row {
    std::string_view line, problem;
  };
  const Row rows[] = {
      {"", "this is no JSON"},
      {"{", "this is no JSON"},
      {"[]", "the line is no JSON object"},
      {"{}", R"(the line has no "now")"},
      {R"({"now":"yesterday"})", R"("now" of the line is no instant)"},
      {R"({"now":5})", R"("now" of the line is no text)"},
      {R"({"now":"2026-11-21T09:00:00Z","signals":[]})", R"("signals" is no JSON object)"},
      {R"({"now":"2026-11-21T09:00:00Z","signals":{"agents":{}}})", R"("agents" of "signals" is no array)"},
      {R"({"now":"2026-11-21T09:00:00Z","signals":{"agents":[{"id":"a"}]}})", R"(a session has no "kind")"},
      {R"({"now":"2026-11-21T09:00:00Z","signals":{"agents":[5]}})", "a session is no JSON object"},
      {R"({"now":"2026-11-21T09:00:00Z","signals":{"focusedAgents":["vim"]}})",
       R"("vim" is no case of "focusedAgents" of "signals")"},
      {R"({"now":"2026-11-21T09:00:00Z","signals":{"focusedAgents":[1]}})", "is no array of names"},
      {R"({"now":"2026-11-21T09:00:00Z","signals":{"meetings":[{"id":"m","title":"M"}]}})",
       R"(a meeting has no "start")"},
      {R"({"now":"2026-11-21T09:00:00Z","signals":{"battery":{"isCharging":true}}})", R"("battery" has no "percent")"},
      {R"({"now":"2026-11-21T09:00:00Z","signals":{"battery":{"percent":101}}})", "no number from 0 to 100"},
      {R"({"now":"2026-11-21T09:00:00Z","signals":{"battery":{"percent":5,"isCharging":"no"}}})",
       R"("isCharging" of "battery" is no true or false)"},
      {R"({"now":"2026-11-21T09:00:00Z","signals":{"codex":{}}})", R"("codex" has no "session")"},
      {R"({"now":"2026-11-21T09:00:00Z","signals":{"phaseEnded":"lunch"}})",
       R"("lunch" is no case of "phaseEnded" of "signals")"},
      {R"({"now":"2026-11-21T09:00:00Z","policy":{"level":"loud"}})", R"("loud" is no case of "level" of "policy")"},
      {R"({"now":"2026-11-21T09:00:00Z","policy":{"quietHours":{"startHour":22}}})",
       R"("quietHours" has no "endHour")"},
      {R"({"now":"2026-11-21T09:00:00Z","policy":{"quietHours":{"startHour":22,"endHour":70}}})",
       R"("endHour" is no hour of the day)"},
      {R"({"now":"2026-11-21T09:00:00Z","snooze":{"id":"a"}})", R"("snooze" has no "minutes")"},
      {R"({"now":"2026-11-21T09:00:00Z","snooze":{"id":"a","minutes":-1}})", "no number from 0 to 525600"},
      {R"({"now":"2026-11-21T09:00:00Z","snooze":{"id":"a","minutes":9e18}})", "no number from 0 to 525600"},
      {R"({"now":"2026-11-21T09:00:00Z","snooze":{"id":"a","minutes":5},"signals":{}})", "and this is both"},
  };
  for (const Row& row : rows) EXPECT_THAT(problemOf(row.line), HasSubstr(row.problem)) << row.line;
}

TEST(NoticeReplay, TakesNullAndWhatIsLeftOutAsAbsent) {
  EXPECT_EQ(problemOf(R"({"now":"2026-11-21T09:00:00Z"})"), "");
  EXPECT_EQ(problemOf(R"({"now":"2026-11-21T09:00:00Z","signals":null,"policy":null,"snooze":null})"), "");
  EXPECT_EQ(problemOf(R"({"now":"2026-11-21T09:00:00Z","signals":{"agents":null,"battery":null,"claudeLimits":{},
                          "cpuUsage":null,"phaseEnded":null},"policy":{"quietHours":null,"categories":null}})"),
            "");
}

TEST(NoticeReplay, RemarksOnFieldsThatNobodyReads) {
  NoticeReplay replay(Calendar("UTC", "en_US"));
  const auto answer = replay.play(
      R"({"now":"2026-11-21T09:00:00Z","polcy":{},"signals":{"batery":{"percent":5},"meetings":[{"id":"m","title":"M",
          "start":"2026-11-21T12:00:00Z","link":"x"}]},"policy":{"quietHours":{"startHour":1,"endHour":2,"on":true}}})");
  EXPECT_THAT(answer.notices, IsEmpty());
  EXPECT_THAT(answer.remarks,
              ElementsAre(R"(a meeting has an unknown field "link")", R"("signals" has an unknown field "batery")",
                          R"("quietHours" has an unknown field "on")", R"(the line has an unknown field "polcy")"));
}

TEST(NoticeReplay, RemarksOnASnoozeOfANoticeThatWasNotReturned) {
  NoticeReplay replay(Calendar("UTC", "en_US"));
  EXPECT_THAT(replay.play(R"({"now":"2026-11-21T09:00:00Z","snooze":{"id":"disk.low","minutes":15}})").remarks,
              ElementsAre(R"(no notice was returned under the id "disk.low")"));
}

TEST(NoticeReplay, ForgetsALineThatIsWrong) {
  NoticeReplay replay(Calendar("UTC", "en_US"));
  EXPECT_THROW(replay.play(R"({"now":"2026-11-21T09:00:00Z","signals":{"battery":{"percent":5}},"policy":5})"),
               DecodingError);
  EXPECT_EQ(replay.play(R"({"now":"2026-11-21T09:00:01Z","signals":{"battery":{"percent":5}}})").notices.size(), 1u);
}

}  // namespace
}  // namespace ambrel
