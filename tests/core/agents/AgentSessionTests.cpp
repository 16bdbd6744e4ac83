#include "core/agents.h"
#include "tests/Matchers.h"

namespace ambrel {
namespace {

TEST(AgentTiming, AgesOnlyWorkAndFinishedAndOnlyBeyondTheLimit) {
  using enum AgentStatus;
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

class ListReader : public AgentSessionReader {
 public:
  explicit ListReader(std::vector<AgentSession> list) : list_(std::move(list)) {}
  std::vector<AgentSession> sessions(const std::filesystem::path&, Instant) const override { return list_; }

 private:
  std::vector<AgentSession> list_;
};

AgentSession session(std::string id, AgentStatus status, int second) {
  AgentSession session;
  session.id = session.title = std::move(id);
  session.status = status;
  session.updatedAt = instantFromUnixSeconds(second);
  return session;
}

TEST(MergedSessions, OrdersByUrgencyThenNewestThenReader) {
  using enum AgentStatus;
  AgentReaders readers;
  readers.push_back(std::make_unique<ListReader>(std::vector{session("a", idle, 9), session("b", working, 5)}));
  readers.push_back(std::make_unique<ListReader>(
      std::vector{session("c", working, 5), session("d", needsInput, 1), session("e", working, 6)}));
  readers.push_back(std::make_unique<ListReader>(std::vector{session("f", finished, 8), session("g", working, 5)}));

  std::vector<std::string> ids;
  for (const auto& each : mergedSessions(readers, "/home/u", Instant{})) ids.push_back(each.id);
  EXPECT_THAT(ids, ElementsAre("d", "e", "b", "c", "g", "f", "a"));
}

}  // namespace
}  // namespace ambrel
