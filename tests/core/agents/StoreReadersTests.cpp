#include <map>
#include <random>

#include "core/agents/AgentSessionJSON.h"
#include "core/agents/AntigravityReader.h"
#include "core/agents/CursorReader.h"
#include "core/base/Text.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/agents/AgentCases.h"
#include "tests/core/agents/StoreFixture.h"

namespace ambrel {
namespace {

const Instant noon = *parseISO8601("2026-11-21T12:00:00Z");

constexpr std::string_view cursorOriginal = "Library/Application Support/Cursor/User/globalStorage/state.vscdb";
constexpr std::string_view cursorStore = ".config/Cursor/User/globalStorage/state.vscdb";
constexpr std::string_view antigravityStore = ".gemini/antigravity/conversation_summaries.db";
constexpr std::string_view antigravityToolStore = ".gemini/antigravity-cli/conversation_summaries.db";

const std::string schema =
    "CREATE TABLE conversation_summaries (conversation_id TEXT PRIMARY KEY, title TEXT, status TEXT,"
    " not_fully_idle INTEGER, killed INTEGER, step_count INTEGER, workspace_uris TEXT, last_modified_time TEXT);";

std::string conversation(const std::string& id) {
  return "INSERT INTO conversation_summaries VALUES ('" + id +
         "', 'Title', 'X_IDLE', 0, 0, 3, '[]', '2026-11-21 11:59:00+00:00');";
}

std::string composer(const std::string& id) {
  return "CREATE TABLE composerHeaders (composerId, lastUpdatedAt, isArchived, isSubagent, value);"
         "INSERT INTO composerHeaders VALUES ('" +
         id + "', 1795262340000, 0, 0, '{\"lastUpdatedAt\":1795262340000}');";
}

std::vector<std::string> ids(const std::vector<AgentSession>& sessions) {
  std::vector<std::string> found;
  for (const auto& session : sessions) found.push_back(session.id);
  return found;
}

std::vector<std::string> antigravityIds(const std::filesystem::path& home) {
  return ids(AntigravityReader().sessions(home, noon));
}

// Everything below a folder, with its contents.
std::map<std::string, std::string> contents(const std::filesystem::path& root) {
  std::map<std::string, std::string> found;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
    found[entry.path().lexically_relative(root)] = entry.is_regular_file() ? readFile(entry.path()).value() : "";
  return found;
}

template <typename Reader>
void followCases(const std::string& kind, std::string_view store, std::string_view name) {
  const std::string usual = readFile(std::filesystem::path(AMBREL_CASES) / "agents" / (kind + ".sql")).value();
  for (const AgentCase& each : agentCases(kind, "store.sql")) {
    SCOPED_TRACE(each.name);
    TemporaryFolder home;
    // A case without tables of its own has the usual ones.
    writeStore(home / store, each.input.starts_with("CREATE") ? each.input : usual + each.input);
    JSON expected = each.expected;
    for (JSON& session : expected) session["kind"] = name;
    EXPECT_EQ(JSON(Reader().sessions(home.path(), noon)), expected);
  }
}

TEST(CursorReader, FollowsTheCases) { followCases<CursorReader>("cursor", cursorStore, "cursor"); }
TEST(AntigravityReader, FollowsTheCases) {
  followCases<AntigravityReader>("antigravity", antigravityStore, "antigravity");
}

TEST(CursorReader, PrefersTheOriginalPath) {
  TemporaryFolder home;
  writeStore(home / cursorStore, composer("config"));
  EXPECT_THAT(ids(CursorReader().sessions(home.path(), noon)), ElementsAre("cursor:config"));
  writeStore(home / cursorOriginal, composer("library"));
  EXPECT_THAT(ids(CursorReader().sessions(home.path(), noon)), ElementsAre("cursor:library"));
}

TEST(AntigravityReader, ReadsBothStoresAndListsAnIdentifierInBothTwice) {
  TemporaryFolder home;
  writeStore(home / antigravityToolStore, schema + conversation("a") + conversation("b"));
  EXPECT_THAT(antigravityIds(home.path()), ElementsAre("antigravity:a", "antigravity:b"));
  writeStore(home / antigravityStore, schema + conversation("b"));
  EXPECT_THAT(antigravityIds(home.path()), ElementsAre("antigravity:b", "antigravity:a", "antigravity:b"));
}

TEST(StoreReaders, TakeTheNewestFifty) {
  TemporaryFolder home;
  std::string sql = schema;
  for (int i = 0; i < 60; ++i)
    sql += "INSERT INTO conversation_summaries VALUES ('" + std::to_string(i) +
           "', '', '', 0, 0, 0, NULL, datetime(1795262400 - " + std::to_string(i) + ", 'unixepoch'));";
  writeStore(home / antigravityStore, sql);
  const auto found = antigravityIds(home.path());
  ASSERT_EQ(found.size(), 50u);
  EXPECT_EQ(found.front(), "antigravity:0");
  EXPECT_EQ(found.back(), "antigravity:49");
}

TEST(StoreReaders, CreateNothingWhereThereIsNoStore) {
  TemporaryFolder home;
  std::filesystem::create_directories((home / cursorStore).parent_path());
  std::filesystem::create_directories((home / antigravityStore).parent_path());
  const auto before = contents(home.path());
  EXPECT_THAT(CursorReader().sessions(home.path(), noon), IsEmpty());
  EXPECT_THAT(AntigravityReader().sessions(home.path(), noon), IsEmpty());
  EXPECT_EQ(contents(home.path()), before);
}

TEST(StoreReaders, PassOverWhatIsNoDatabase) {
  TemporaryFolder home;
  home.write(antigravityStore, "SQLite format 3");
  std::filesystem::create_directories(home / antigravityToolStore);
  home.write(cursorStore, std::string(10000, 'x'));
  EXPECT_THAT(AntigravityReader().sessions(home.path(), noon), IsEmpty());
  EXPECT_THAT(CursorReader().sessions(home.path(), noon), IsEmpty());
  std::filesystem::remove(home / antigravityStore);
  ASSERT_EQ(mkfifo((home / antigravityStore).c_str(), 0600), 0);
  EXPECT_THAT(AntigravityReader().sessions(home.path(), noon), IsEmpty());
}

TEST(StoreReaders, SeeWhatARunningToolHasWrittenAhead) {
  TemporaryFolder home;
  const auto store = home / antigravityStore;
  writeStore(store, "PRAGMA journal_mode = WAL;" + schema + conversation("a"));
  const OtherProcess tool(store, [](WritableStore& opened) { opened.run(conversation("b")); });
  const auto before = contents(home.path());
  EXPECT_THAT(antigravityIds(home.path()), ElementsAre("antigravity:a", "antigravity:b"));
  EXPECT_EQ(contents(home.path()), before);
}

TEST(StoreReaders, SeeWhatWasWrittenAheadWhenTheIndexOfItCannotBeRead) {
  for (const char* index : {"missing", "link", "zeros"}) {
    SCOPED_TRACE(index);
    TemporaryFolder home, running;
    const auto store = running / "store.db", copied = home / antigravityStore;
    writeStore(store, "PRAGMA journal_mode = WAL;" + schema + conversation("a"));
    std::filesystem::create_directories(copied.parent_path());
    {
      const OtherProcess tool(store, [](WritableStore& opened) { opened.run(conversation("b")); });
      std::filesystem::copy(store, copied);
      std::filesystem::copy(store.string() + "-wal", copied.string() + "-wal");
    }
    if (index == std::string_view("link")) std::filesystem::create_symlink("nowhere", copied.string() + "-shm");
    if (index == std::string_view("zeros"))
      home.write(std::string(antigravityStore) + "-shm", std::string(32768, '\0'));
    const auto before = contents(home.path());
    EXPECT_THAT(antigravityIds(home.path()), ElementsAre("antigravity:a", "antigravity:b"));
    EXPECT_EQ(contents(home.path()), before);
  }
}

TEST(StoreReaders, GiveNothingWhileTheToolHoldsTheStoreAndAllOfItAfterwards) {
  TemporaryFolder home;
  const auto store = home / antigravityStore;
  writeStore(store, schema + conversation("a"));
  {
    const OtherProcess tool(store, [](WritableStore& opened) { opened.run("BEGIN EXCLUSIVE;" + conversation("b")); });
    EXPECT_THAT(antigravityIds(home.path()), IsEmpty());
  }
  EXPECT_THAT(antigravityIds(home.path()), ElementsAre("antigravity:a"));
}

TEST(StoreReaders, LeaveTheToolFreeToWrite) {
  TemporaryFolder home;
  for (const char* mode : {"DELETE", "WAL"}) {
    SCOPED_TRACE(mode);
    const auto store = home / antigravityStore;
    std::filesystem::remove_all(store.parent_path());
    WritableStore tool(store);
    tool.run(std::string("PRAGMA journal_mode = ") + mode + ";" + schema + conversation("a"));
    EXPECT_THAT(antigravityIds(home.path()), ElementsAre("antigravity:a"));
    tool.run("BEGIN EXCLUSIVE;" + conversation("b") + "COMMIT;");
    EXPECT_EQ(antigravityIds(home.path()).size(), 2u);
  }
}

TEST(Readers, FindTheirFilesBelowAnyHome) {
  for (const char* name : {"plain", "O'Brien \"x\"", "50%", "%41", "a#b", "a?mode=rwc", "a&b=c;d", "new\nline", "ünï",
                           "\xff\xfe", "back\\slash", "a//b", "trailing/"}) {
    SCOPED_TRACE(name);
    TemporaryFolder root;
    const auto home = root / name;
    writeStore(home / cursorStore, composer("c"));
    writeStore(home / antigravityStore, "PRAGMA journal_mode = WAL;" + schema + conversation("a"));
    const auto prefix = std::string(name) + "/";
    root.write(prefix + ".claude/projects/-x/l.jsonl", "{\"type\":\"user\"}\n", noon);
    root.write(prefix + ".codex/sessions/2026/r.jsonl", "{}\n", noon);
    const auto before = contents(root.path());
    EXPECT_THAT(ids(mergedSessions(makeAgentReaders(), home, noon)),
                UnorderedElementsAre("claude:l", "codex:r", "cursor:c", "antigravity:a"));
    EXPECT_EQ(contents(root.path()), before);
  }
}

TEST(StoreSessions, AreWellFormedWhateverTheBytes) {
  std::mt19937 random(1);
  LineParser parser;
  const std::string header =
      "{\"name\":\"x\",\"lastUpdatedAt\":1795262340000,\"conversationCheckpointLastUpdatedAt\":1e300,"
      "\"workspaceIdentifier\":{\"uri\":{\"fsPath\":\"/home/mira/x\"}},\"filesChangedCount\":3,\"totalLinesAdded\":-1}";
  for (int round = 0; round < 3000; ++round) {
    std::string bytes = header;
    for (unsigned edits = random() % 6; edits > 0; --edits)
      bytes[random() % bytes.size()] = static_cast<char>(random());
    const std::string_view id = std::string_view(bytes).substr(random() % bytes.size());
    const std::string uris = "[\"" + std::string(id) + "\"]";
    const AntigravityRow row{.conversationId = id,
                             .title = std::string_view(bytes).substr(0, random() % 9),
                             .status = id,
                             .stepCount = static_cast<std::int64_t>(random()),
                             .workspaceURIs = uris,
                             .modified = static_cast<std::int64_t>((std::uint64_t(random()) << 32) | random())};
    for (const auto& session : {cursorSession(id, bytes, noon, parser), antigravitySession(row, noon)}) {
      if (!session) continue;
      ASSERT_FALSE(session->title.empty());
      ASSERT_TRUE(
          isValidUTF8(session->id + session->title + session->project.value_or("") + session->detail.value_or("")));
    }
  }
}

TEST(AgentSessionJSON, ReadsBackWhatItWrites) {
  AgentSession session{.id = "cursor:1", .kind = AgentKind::cursor, .title = "T", .status = AgentStatus::needsInput};
  session.updatedAt = noon;
  EXPECT_EQ(
      JSON(session).dump(),
      R"({"id":"cursor:1","kind":"cursor","status":"needsInput","title":"T","updatedAt":"2026-11-21T12:00:00Z"})");
  EXPECT_EQ(JSON(session).get<AgentSession>(), session);
  session.project = "p";
  session.detail = "d";
  EXPECT_EQ(JSON(session).get<AgentSession>(), session);
}

// What a store holds is changed under the date that it had: only a reader that opens it can know.
TEST(StoreReaders, OpenNoStoreThatHasNotChanged) {
  TemporaryFolder home;
  const auto store = home / antigravityStore;
  writeStore(store, schema + conversation("a"));
  const AntigravityReader reader;
  for (int i = 0; i < 2; ++i) EXPECT_THAT(ids(reader.sessions(home.path(), noon)), ElementsAre("antigravity:a"));

  const auto date = std::filesystem::last_write_time(store);
  writeStore(store, "UPDATE conversation_summaries SET conversation_id = 'b'");
  std::filesystem::last_write_time(store, date);
  EXPECT_THAT(ids(reader.sessions(home.path(), noon)), ElementsAre("antigravity:a"));

  std::filesystem::last_write_time(store, date + std::chrono::milliseconds(1));
  EXPECT_THAT(ids(reader.sessions(home.path(), noon)), ElementsAre("antigravity:b"));
}

TEST(StoreReaders, ReadAgainWhatMayHaveChangedWithinTheGrainOfADate) {
  TemporaryFolder home;
  const auto store = home / antigravityStore;
  writeStore(store, schema + conversation("a"));
  const AntigravityReader reader;
  EXPECT_THAT(ids(reader.sessions(home.path(), noon)), ElementsAre("antigravity:a"));
  const auto date = std::filesystem::last_write_time(store);
  writeStore(store, "UPDATE conversation_summaries SET conversation_id = 'b'");
  std::filesystem::last_write_time(store, date);
  EXPECT_THAT(ids(reader.sessions(home.path(), noon)), ElementsAre("antigravity:b"));
}

TEST(StoreReaders, SeeWhatIsInTheLogAlone) {
  TemporaryFolder home;
  const auto store = home / antigravityStore;
  WritableStore writer(store);
  writer.run("PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 0;" + schema + conversation("a"));
  const AntigravityReader reader;
  for (int i = 0; i < 3; ++i) EXPECT_THAT(ids(reader.sessions(home.path(), noon)), ElementsAre("antigravity:a"));
  writer.run(conversation("b"));
  EXPECT_THAT(ids(reader.sessions(home.path(), noon)), UnorderedElementsAre("antigravity:a", "antigravity:b"));
}

TEST(StoreReaders, LetWhatTheyKeptGrowOld) {
  TemporaryFolder home;
  writeStore(home / antigravityStore, schema + conversation("a"));
  const AntigravityReader reader;
  for (int i = 0; i < 2; ++i) EXPECT_THAT(ids(reader.sessions(home.path(), noon)), ElementsAre("antigravity:a"));
  const auto later = reader.sessions(home.path(), advanced(noon, Seconds(7300)));
  ASSERT_EQ(later.size(), 1u);
  EXPECT_EQ(later.front().status, AgentStatus::idle);
  EXPECT_THAT(reader.sessions(home.path(), advanced(noon, AgentTiming::recentWindow)), IsEmpty());
}

TEST(StoreReaders, KeepNothingOfAStoreThatCouldNotBeRead) {
  TemporaryFolder home;
  const auto store = home / antigravityStore;
  std::filesystem::create_directories(store.parent_path());
  writeAtomically(store, "no database");
  const AntigravityReader reader;
  for (int i = 0; i < 3; ++i) EXPECT_THAT(reader.sessions(home.path(), noon), IsEmpty());
  const auto date = std::filesystem::last_write_time(store);
  std::filesystem::remove(store);
  writeStore(store, schema + conversation("a"));
  std::filesystem::last_write_time(store, date);
  EXPECT_THAT(ids(reader.sessions(home.path(), noon)), ElementsAre("antigravity:a"));
}

TEST(AgentSessionJSON, SaysWhatIsMissing) {
  const struct {
    const char* text;
    const char* message;
  } cases[] = {
      {"[]", "a session is no JSON object"},
      {R"({"kind":"codex","title":"T","status":"idle"})", "a session has no \"id\""},
      {R"({"id":"1","kind":"Codex","title":"T","status":"idle"})", "\"Codex\" is no kind of a session"},
      {R"({"id":"1","kind":"codex","title":"T","status":3})", "a session has no \"status\""},
  };
  for (const auto& each : cases) {
    try {
      parseJSON(each.text)->get<AgentSession>();
      ADD_FAILURE() << each.text;
    } catch (const DecodingError& error) {
      EXPECT_STREQ(error.what(), each.message);
    }
  }
}

}  // namespace
}  // namespace ambrel
