#include "core/buddy/NoticeReplay.h"
#include "tests/Matchers.h"
#include "tests/core/buddy/NoticeCases.h"

namespace ambrel {
namespace {

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
  const auto dated = [](const std::string& rest) { return R"({"now":"2026-11-21T09:00:00Z")" + rest + "}"; };
  const auto problem = [&](const std::string& rest) { return problemOf(dated("," + rest)); };
  const auto ofSignals = [&](const std::string& signals) { return problem(R"("signals":{)" + signals + "}"); };
  EXPECT_EQ(problemOf("{"), "this is no JSON");
  EXPECT_EQ(problemOf("[]"), "the line is no JSON object");
  EXPECT_THAT(problemOf("{}"), HasSubstr(R"(the line has no "now")"));
  EXPECT_THAT(problemOf(R"({"now":"yesterday"})"), HasSubstr(R"("now" of the line is no instant)"));
  EXPECT_THAT(problemOf(R"({"now":5})"), HasSubstr(R"("now" of the line is no text)"));
  const std::pair<const char*, const char*> signals[] = {
      {R"("agents":{})", R"("agents" of "signals" is no array)"},
      {R"("agents":[{"id":"a"}])", R"(a session has no "kind")"},
      {R"("agents":[5])", "a session is no JSON object"},
      {R"("focusedAgents":["vim"])", R"("vim" is no case of "focusedAgents" of "signals")"},
      {R"("focusedAgents":[1])", "is no array of names"},
      {R"("meetings":[{"id":"m","title":"M"}])", R"(a meeting has no "start")"},
      {R"("battery":{"isCharging":true})", R"("battery" has no "percent")"},
      {R"("battery":{"percent":101})", "no number from 0 to 100"},
      {R"("battery":{"percent":5,"isCharging":"no"})", R"("isCharging" of "battery" is no true or false)"},
      {R"("codex":{})", R"("codex" has no "session")"}};
  for (const auto& [fields, expected] : signals) EXPECT_THAT(ofSignals(fields), HasSubstr(expected)) << fields;
  const std::pair<const char*, const char*> lines[] = {
      {R"("signals":[])", R"("signals" is no JSON object)"},
      {R"("policy":{"level":"loud"})", R"("loud" is no case of "level" of "policy")"},
      {R"("policy":{"quietHours":{"startHour":22}})", R"("quietHours" has no "endHour")"},
      {R"("policy":{"quietHours":{"startHour":22,"endHour":70}})", R"("endHour" is no hour of the day)"},
      {R"("snooze":{"id":"a"})", R"("snooze" has no "minutes")"},
      {R"("snooze":{"id":"a","minutes":9e18})", "no number from 0 to 525600"},
      {R"("snooze":{"id":"a","minutes":5},"signals":{})", "and this is both"}};
  for (const auto& [fields, expected] : lines) EXPECT_THAT(problem(fields), HasSubstr(expected)) << fields;
  // Null, and what is left out, is absent.
  EXPECT_EQ(problemOf(dated("")), "");
  EXPECT_EQ(problem(R"("signals":null,"policy":{"quietHours":null,"categories":null},"snooze":null)"), "");
  EXPECT_EQ(ofSignals(R"("agents":null,"battery":null,"claudeLimits":{},"cpuUsage":null,"phaseEnded":null)"), "");
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
