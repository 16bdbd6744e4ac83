#include <random>

#include "core/agents/ClaudeCodeReader.h"
#include "core/agents/CodexReader.h"
#include "core/base/Text.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/agents/AgentCases.h"

namespace ambrel {
namespace {

const Instant noon = *parseISO8601("2026-11-21T12:00:00Z");

constexpr std::string_view claudeLog = ".claude/projects/-home-mira-code-tilebay/0b54c9de.jsonl";
constexpr std::string_view codexLog = ".codex/sessions/2026/11/21/rollout-2026-11-21T11-00-00-019ab3c1.jsonl";
const std::string claudeWorking = "{\"type\":\"user\",\"cwd\":\"/home/mira/tilebay\"}\n";
const std::string claudeFinished =
    "{\"type\":\"assistant\",\"cwd\":\"/home/mira/tilebay\",\"message\":{\"stop_reason\":\"end_turn\"}}\n";

std::optional<AgentSession> parsedClaude(std::string bytes, bool isCut = false) {
  LineParser parser;
  return claudeSession("x", RecordTail(std::move(bytes), isCut), noon, noon, parser);
}

AgentSession parsedCodex(const std::string& bytes) {
  LineParser parser;
  const auto first = parser.parse(std::string_view(bytes).substr(0, bytes.find('\n')));
  const auto folder = first ? codexFolder(*first) : std::nullopt;
  return codexSession("x", folder, RecordTail(bytes, false), noon, noon, parser);
}

void expectSession(const std::optional<AgentSession>& session, const JSON& expected) {
  ASSERT_EQ(session.has_value(), !expected.is_null());
  if (!session) return;
  EXPECT_EQ(session->title, stringField(expected, "title"));
  EXPECT_EQ(session->project, stringField(expected, "project"));
  EXPECT_EQ(session->detail, stringField(expected, "detail"));
  EXPECT_EQ(nameOf(session->status), stringField(expected, "status"));
}

TEST(ClaudeSession, FollowsTheCases) {
  for (const AgentCase& each : agentCases("claude", "log.jsonl")) {
    SCOPED_TRACE(each.name);
    expectSession(parsedClaude(each.input), each.expected);
  }
}

TEST(CodexSession, FollowsTheCases) {
  for (const AgentCase& each : agentCases("codex", "log.jsonl")) {
    SCOPED_TRACE(each.name);
    expectSession(parsedCodex(each.input), each.expected);
  }
}

// A tool writes a line in pieces: at every instant the last whole line decides.
TEST(LogSessions, ThatGrowAreDecidedByTheirLastWholeLine) {
  const std::string log = claudeWorking + claudeFinished + claudeWorking;
  for (std::size_t length = 0; length <= log.size(); ++length) {
    const auto session = parsedClaude(log.substr(0, length));
    // The object is whole without its newline.
    const std::size_t first = claudeWorking.size() - 1, second = claudeWorking.size() + claudeFinished.size() - 1;
    ASSERT_EQ(session.has_value(), length >= first) << length;
    if (!session) continue;
    const bool isFinished = length >= second && length < log.size() - 1;
    EXPECT_EQ(session->status, isFinished ? AgentStatus::finished : AgentStatus::working) << length;
  }
}

TEST(LogSessions, AreWellFormedWhateverTheBytes) {
  std::mt19937 random(1);
  std::vector<std::string> inputs;
  for (const char* kind : {"claude", "codex"})
    for (const AgentCase& each : agentCases(kind, "log.jsonl")) inputs.push_back(each.input);
  for (int round = 0; round < 3000; ++round) {
    std::string bytes = inputs[random() % inputs.size()];
    for (unsigned edits = random() % 8; edits > 0 && !bytes.empty(); --edits) {
      const std::size_t at = random() % bytes.size();
      switch (random() % 3) {
        case 0:
          bytes[at] = static_cast<char>(random());
          break;
        case 1:
          bytes.erase(at, random() % 40);
          break;
        default:
          bytes.insert(at, bytes.substr(random() % bytes.size(), random() % 200));
      }
    }
    const auto claude = parsedClaude(bytes, random() % 2 == 0);
    for (const auto& session : {claude.value_or(parsedCodex(bytes)), parsedCodex(bytes)}) {
      ASSERT_FALSE(session.title.empty());
      ASSERT_TRUE(isValidUTF8(session.id + session.title + session.project.value_or("") + session.detail.value_or("")));
      ASSERT_NE(session.status, AgentStatus::needsInput);
    }
  }
}

TEST(ClaudeCodeReader, GivesOneSessionForEachRecentLogDirectlyInAProject) {
  TemporaryFolder home;
  home.write(claudeLog, claudeFinished, noon);
  home.write(".claude/projects/-home-mira-code-tilebay/0b54c9de/subagents/agent-1.jsonl", claudeWorking, noon);
  home.write(".claude/projects/stray.jsonl", claudeWorking, noon);
  home.write(".claude/projects/-old/old.jsonl", claudeWorking, advanced(noon, Seconds(-21600)));
  home.write(".claude/sessions/4711.json", "{}", noon);

  const auto sessions = ClaudeCodeReader().sessions(home.path(), noon);
  ASSERT_THAT(sessions, SizeIs(1));
  const AgentSession expected{.id = "claude:0b54c9de",
                              .kind = AgentKind::claudeCode,
                              .title = "tilebay",
                              .project = "tilebay",
                              .detail = "Done",
                              .status = AgentStatus::finished,
                              .updatedAt = noon};
  EXPECT_EQ(sessions[0], expected);
}

TEST(CodexReader, WalksTheFoldersOfDays) {
  TemporaryFolder home;
  home.write(codexLog,
             "{\"type\":\"session_meta\",\"payload\":{\"cwd\":\"/home/mira/weather\"}}\n"
             "{\"type\":\"event_msg\",\"payload\":{\"type\":\"task_complete\"}}\n",
             noon);
  home.write(".codex/archived_sessions/rollout-1.jsonl", "{}", noon);

  const auto sessions = CodexReader().sessions(home.path(), noon);
  ASSERT_THAT(sessions, SizeIs(1));
  const AgentSession expected{.id = "codex:rollout-2026-11-21T11-00-00-019ab3c1",
                              .kind = AgentKind::codex,
                              .title = "weather",
                              .project = "weather",
                              .detail = "Done",
                              .status = AgentStatus::finished,
                              .updatedAt = noon};
  EXPECT_EQ(sessions[0], expected);
}

TEST(ClaudeCodeReader, LooksForATitleInItsTailAlone) {
  const std::string title = "{\"type\":\"custom-title\",\"customTitle\":\"Mine\"}\n";
  // One line of exactly `size` bytes.
  const auto filler = [](std::size_t size) {
    return "{\"type\":\"attachment\",\"text\":\"" + std::string(size - 32, 'x') + "\"}\n";
  };
  ASSERT_EQ(filler(100).size(), 100u);
  const std::size_t room = 262144 - claudeWorking.size();
  const struct {
    std::size_t padding;
    const char* title;
  } cases[] = {
      {room - title.size() - 1, "Mine"},  // the whole file is shorter than the tail
      {room - title.size(), "Mine"},
      {room - title.size() + 1, "tilebay"},
      {5 << 20, "tilebay"},
  };
  for (const auto& each : cases) {
    TemporaryFolder home;
    home.write(claudeLog, title + filler(each.padding) + claudeWorking, noon);
    const auto sessions = ClaudeCodeReader().sessions(home.path(), noon);
    ASSERT_THAT(sessions, SizeIs(1));
    EXPECT_EQ(sessions[0].title, each.title) << each.padding;
  }
}

TEST(ClaudeCodeReader, GivesNothingWhenOneLineFillsTheTail) {
  TemporaryFolder home;
  home.write(claudeLog, claudeWorking + "{\"type\":\"user\",\"text\":\"" + std::string(4 << 20, 'x') + "\"}\n", noon);
  EXPECT_THAT(ClaudeCodeReader().sessions(home.path(), noon), IsEmpty());
}

TEST(CodexReader, KnowsNoProjectWhenTheFirstLineIsLongerThanTheHead) {
  TemporaryFolder home;
  home.write(codexLog,
             "{\"type\":\"session_meta\",\"payload\":{\"cwd\":\"/home/mira/weather\",\"base_instructions\":\"" +
                 std::string(70000, 'x') + "\"}}\n{\"type\":\"event_msg\",\"payload\":{\"type\":\"task_started\"}}\n",
             noon);
  const auto sessions = CodexReader().sessions(home.path(), noon);
  ASSERT_THAT(sessions, SizeIs(1));
  EXPECT_EQ(sessions[0].title, "Codex");
  EXPECT_EQ(sessions[0].project, std::nullopt);
  EXPECT_EQ(sessions[0].detail, "Working");
}

TEST(LogReaders, AgeASessionWithoutParsingItsFileAgain) {
  TemporaryFolder home;
  const auto working = home.write(claudeLog, claudeWorking, noon);
  const auto finished = home.write(".claude/projects/-b/b.jsonl", claudeFinished, noon);
  const ClaudeCodeReader reader;
  ASSERT_THAT(reader.sessions(home.path(), noon), SizeIs(2));
  // Nothing is opened again: what is in the files by now would give no session.
  for (const auto& file : {working, finished}) {
    std::ofstream(file) << "no log";
    TemporaryFolder::setModified(file, noon);
  }
  const struct {
    double since;
    AgentStatus working, finished;
  } cases[] = {
      {600, AgentStatus::working, AgentStatus::finished}, {600.001, AgentStatus::idle, AgentStatus::finished},
      {7200, AgentStatus::idle, AgentStatus::finished},   {7200.001, AgentStatus::idle, AgentStatus::idle},
      {21599, AgentStatus::idle, AgentStatus::idle},      {60, AgentStatus::working, AgentStatus::finished},
  };
  for (const auto& each : cases) {
    const auto sessions = reader.sessions(home.path(), advanced(noon, Seconds(each.since)));
    ASSERT_THAT(sessions, SizeIs(2));
    for (const auto& session : sessions) {
      const bool isWorking = session.id == "claude:0b54c9de";
      EXPECT_EQ(session.status, isWorking ? each.working : each.finished) << each.since;
      EXPECT_EQ(session.detail, isWorking ? "Thinking" : "Done");
      EXPECT_EQ(session.updatedAt, noon);
    }
  }
  EXPECT_THAT(reader.sessions(home.path(), advanced(noon, Seconds(21600))), IsEmpty());
  // Out of the window it was forgotten.
  EXPECT_THAT(reader.sessions(home.path(), noon), IsEmpty());
}

SessionFile file(std::string path, Instant modified, std::uint16_t rest = 0) {
  return {.path = std::move(path), .modified = modified, .modifiedRest = rest};
}

TEST(SessionCache, ParsesAFileAgainWhenItsDateDiffersInEitherDirection) {
  SessionCache cache;
  std::vector<std::string> parsed;
  const auto poll = [&](std::vector<SessionFile> files) {
    parsed.clear();
    return cache.sessions(files, noon, [&](const SessionFile& each, Instant now) {
      EXPECT_EQ(now, each.modified);
      parsed.push_back(each.path);
      std::optional<AgentSession> session;
      if (each.path != "empty") session = AgentSession{.id = each.path, .title = each.path};
      return session;
    });
  };
  const Instant earlier = advanced(noon, Seconds(-1));
  using Paths = std::vector<std::string>;
  EXPECT_THAT(poll({file("a", noon), file("empty", noon)}), SizeIs(1));
  EXPECT_EQ(parsed, (Paths{"a", "empty"}));
  EXPECT_THAT(poll({file("a", noon), file("empty", noon)}), SizeIs(1));
  EXPECT_EQ(parsed, Paths());
  EXPECT_THAT(poll({file("a", earlier), file("empty", noon, 1)}), SizeIs(1));
  EXPECT_EQ(parsed, (Paths{"a", "empty"}));
  EXPECT_THAT(poll({file("b", noon), file("a", earlier)}), SizeIs(2));
  EXPECT_EQ(parsed, Paths{"b"});
  poll({file("b", noon), file("a", earlier), file("empty", noon, 1)});
  EXPECT_EQ(parsed, Paths{"empty"});
}

TEST(SessionCache, KeepsTheOrderOfTheFilesAndTheStatusAsItStood) {
  SessionCache cache;
  const auto parse = [](const SessionFile& each, Instant) {
    return std::optional(AgentSession{.id = each.path, .title = "t", .status = AgentStatus::working});
  };
  const std::vector<SessionFile> files{file("b", noon), file("a", advanced(noon, Seconds(-700)))};
  for (int round = 0; round < 2; ++round) {
    const auto sessions = withoutLogs(cache.sessions(files, noon, parse));
    ASSERT_THAT(sessions, SizeIs(2));
    EXPECT_EQ(sessions[0].id, "b");
    EXPECT_EQ(sessions[0].status, AgentStatus::working);
    EXPECT_EQ(sessions[1].status, AgentStatus::idle);
  }
  // A clock that goes back finds the session working again.
  EXPECT_EQ(cache.sessions(files, advanced(noon, Seconds(-100)), parse)[1].session.status, AgentStatus::working);
}

}  // namespace
}  // namespace ambrel
