#include <csignal>
#include <sys/resource.h>
#include <thread>

#include "core/agents/attention/HookStore.h"
#include "core/agents/connect/HookConnection.h"
#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

const Instant noon = *parseISO8601("2026-11-21T12:00:00Z");

HookEvent event(std::string session) {
  return {.name = HookEvent::Name::permissionRequest,
          .kind = AgentKind::codex,
          .session = std::move(session),
          .at = noon,
          .tool = "Bash",
          .asks = "Bash: \"ls\"\n\xc3\xa9"};
}

class Store {
 public:
  TemporaryFolder folder;
  HookStoreFiles files{folder / "Ambrel"};
  HookStoreReader reader;

  void append(std::string session, std::uint64_t largest = 1 << 20) { appendHookEvent(files, event(session), largest); }
  std::vector<std::string> read() {
    std::vector<std::string> sessions;
    reader.readNew(files, [&](const HookEvent& each) {
      EXPECT_EQ(each, event(each.session));
      sessions.push_back(each.session);
    });
    return sessions;
  }
};

TEST(HookStore, GivesEachEventOnce) {
  Store store;
  EXPECT_THAT(store.read(), SizeIs(0));
  EXPECT_FALSE(store.reader.exists());
  store.append("a");
  store.append("b");
  EXPECT_THAT(store.read(), ElementsAre("a", "b"));
  EXPECT_TRUE(store.reader.exists());
  EXPECT_THAT(store.read(), SizeIs(0));
  store.append("c");
  EXPECT_THAT(store.read(), ElementsAre("c"));
  const auto mode = std::filesystem::status(store.files.current).permissions();
  EXPECT_EQ(mode, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST(HookStore, LosesNothingWhereAFullFileIsMovedAway) {
  Store store;
  store.append("a");
  EXPECT_THAT(store.read(), ElementsAre("a"));
  store.append("b", 1);  // the file is full, and is moved away behind this one
  store.append("c");
  EXPECT_THAT(store.read(), ElementsAre("b", "c"));
  HookStoreReader other;
  std::swap(other, store.reader);
  EXPECT_THAT(store.read(), ElementsAre("a", "b", "c"));
}

TEST(HookStore, KeepsEveryEventOfManyAtOnce) {
  Store store;
  std::vector<std::thread> threads;
  for (int i = 0; i < 100; ++i)
    threads.emplace_back([&store, i] { store.append(std::to_string(i), i % 7 == 0 ? 2000 : 1 << 20); });
  for (std::thread& each : threads) each.join();
  // Rotated at least twice: what is left is whole, and the newest.
  EXPECT_THAT(store.read(), SizeIs(testing::Ge(10U)));
  Store calm;
  threads.clear();
  for (int i = 0; i < 100; ++i) threads.emplace_back([&calm, i] { calm.append(std::to_string(i)); });
  for (std::thread& each : threads) each.join();
  EXPECT_THAT(calm.read(), SizeIs(100));
}

TEST(HookStore, GoesOnBehindALineThatAFullDiskHasCut) {
  Store store;
  store.append("a");
  rlimit former{};
  getrlimit(RLIMIT_FSIZE, &former);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit full = former;
  full.rlim_cur = std::filesystem::file_size(store.files.current) + 20;
  setrlimit(RLIMIT_FSIZE, &full);
  store.append("b");
  store.append("c");
  setrlimit(RLIMIT_FSIZE, &former);
  std::signal(SIGXFSZ, handler);
  EXPECT_THAT(store.read(), ElementsAre("a"));
  store.append("d");
  EXPECT_THAT(store.read(), ElementsAre("d"));
}

const std::string command = "[ ! -x '/opt/tile bay/tilebayctl' ] || '/opt/tile bay/tilebayctl' agents hook claudeCode";
constexpr AgentKind claude = AgentKind::claudeCode;

// As their owners write them.
const std::string odd[] = {
    "{}",
    "{}\n",
    "{\n}\n",
    "",
    "{\"model\":\"opus\"}",
    "{\n  \"model\": \"opus\"\n}\n",
    "{\n\t\"permissions\": {\n\t\t\"allow\": [\"Bash(ls:*)\"] // safe\n\t}, // end\n}\n",
    "// mine\n{\n    /* first */ \"z\": 1e3, \"a\": 1.0 // last\n    // below\n}\n// behind\n",
    "{\"hooks\": {}}",
    "{\r\n  \"hooks\": {\r\n    \"Stop\": []\r\n  }\r\n}\r\n",
    "{\n  \"hooks\": {\n    \"Stop\": [\n      {\n        \"hooks\": [{\"type\": \"command\", \"command\": "
    "\"beep\"}]\n      }\n"
    "    ], // loud\n    \"PostToolUse\": [{\"matcher\": \"Edit\", \"hooks\": [{\"type\": \"command\", \"command\": "
    "\"fmt\"}]}]\n"
    "  },\n  \"$schema\": \"https://example.org\\/s\"\n}",
    "{\n  \"hooks\": {\n    // none yet\n  }\n}\n",
    "\xEF\xBB\xBF{\n  \"caf\\u00e9\": \"\\ud83d\\ude00\",\n  \"model\": \"a\", \"model\": \"b\"\n}\n",
};

TEST(HookConnection, AddsOurHooksBesideTheUsersOwnAndKeepsEveryOtherByte) {
  for (const std::string& settings : odd) {
    SCOPED_TRACE(settings);
    const std::string connected = connectedSettings(claude, settings, command);
    EXPECT_TRUE(isConnected(claude, connected, command)) << connected;
    EXPECT_EQ(connectedSettings(claude, connected, command), connected);
    // What was there is still there, in its order.
    std::size_t at = 0;
    for (const char c : settings) {
      at = connected.find(c, at);
      ASSERT_NE(at, std::string::npos) << connected;
      ++at;
    }
    for (const char* own : {"beep", "fmt", "// safe", "// loud", "// below", "// none yet"})
      EXPECT_EQ(connected.find(own) != connected.npos, settings.find(own) != settings.npos) << connected;
    const std::string removed = disconnectedSettings(claude, connected);
    EXPECT_FALSE(isConnected(claude, removed, command));
    EXPECT_EQ(removed.find("tilebayctl"), removed.npos) << removed;
    EXPECT_EQ(disconnectedSettings(claude, removed), removed);
  }
}

TEST(HookConnection, WritesWhatTheToolsRead) {
  const auto json = parseJSON(connectedSettings(claude, odd[5], command));
  ASSERT_TRUE(json);
  EXPECT_EQ(json->at("model"), "opus");
  EXPECT_EQ(json->at("hooks").at("PreToolUse"),
            JSON::parse("[{\"matcher\":\"AskUserQuestion|ExitPlanMode\",\"hooks\":[{\"type\":\"command\",\"command\":" +
                        compactJSON(JSON(command)) + ",\"timeout\":5}]}]"));
  EXPECT_FALSE(json->at("hooks").at("PermissionRequest").at(0).contains("matcher"));
  EXPECT_THAT(
      connectedSettings(claude, odd[5], command),
      HasSubstr("  \"model\": \"opus\",\n  \"hooks\": {\n    \"SessionStart\": [\n      {\n        \"hooks\": [\n"));
}

TEST(HookConnection, RefusesSettingsThatItCannotChangeAndReplacesThoseOfAnotherInstallation) {
  for (const char* bad :
       {"[]", "{\"hooks\": []}", "{\"hooks\": {\"Stop\": {}}}", "{\"a\": 1,, \"b\": 2}", "{\"a\": 01}", "{\"a\" 1}",
        "{\"a\": 1} x", "{ /* ", "{\"a\": \"\n\"}", "{\"a\": tru}", "\xff{}"})
    EXPECT_THROW(connectedSettings(claude, bad, command), std::exception) << bad;
  const std::string other = "/usr/bin/tilebayctl agents hook claudeCode";
  const std::string moved = connectedSettings(claude, connectedSettings(claude, odd[5], other), command);
  EXPECT_EQ(moved, connectedSettings(claude, odd[5], command));
}

TEST(HookConnection, IsTakenBackToTheByteAndFollowsALink) {
  for (const std::string& settings : odd) {
    SCOPED_TRACE(settings);
    TemporaryFolder home;
    const HookConnection hooks(claude, {.home = home.path(), .data = home / "data", .tool = "/opt/bin/tilebayctl"});
    const auto target = home.write("dotfiles/claude.json", settings);
    std::filesystem::permissions(target, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    std::filesystem::create_directories(home / ".claude");
    std::filesystem::create_symlink("../dotfiles/claude.json", home / ".claude/settings.json");
    EXPECT_FALSE(hooks.isConnected());
    hooks.connect();
    hooks.connect();
    EXPECT_TRUE(hooks.isConnected());
    EXPECT_THAT(readFile(target).value(), HasSubstr("--data"));
    EXPECT_EQ(readFile(home / ".claude/settings.json.ambrel-backup"), settings);
    hooks.disconnect();
    hooks.disconnect();
    EXPECT_FALSE(hooks.isConnected());
    EXPECT_EQ(readFile(target), settings);
    EXPECT_TRUE(std::filesystem::is_symlink(home / ".claude/settings.json"));
  }
}

TEST(HookConnection, WritesToTheFolderThatTheToolUses) {
  TemporaryFolder home;
  const HookConnection hooks(claude, {.home = home.path(),
                                      .data = home / "data",
                                      .tool = "/opt/tilebayctl",
                                      .folders = {.claude = home / "tools/claude"}});
  hooks.connect();
  EXPECT_TRUE(hooks.isConnected());
  EXPECT_EQ(hooks.settings(), home / "tools/claude/settings.json");
  EXPECT_FALSE(std::filesystem::exists(home / ".claude"));
  EXPECT_THAT(hooks.cannotChange(), HasSubstr(" ~/tools/claude/settings.json."));
}

TEST(HookConnection, KeepsWhatTheUserWroteWhileItWasConnected) {
  TemporaryFolder home;
  const HookConnection hooks(AgentKind::codex, {.home = home.path(), .data = home / "data", .tool = "/opt/tilebayctl"});
  hooks.connect();
  const auto file = home / ".codex/hooks.json";
  std::string text = readFile(file).value();
  text.replace(text.find("\"hooks\""), 0, "\"description\": \"mine\",\n  ");
  home.write(".codex/hooks.json", text);
  EXPECT_TRUE(hooks.isConnected());
  hooks.disconnect();
  EXPECT_EQ(parseJSON(readFile(file).value()), JSON::parse("{\"description\":\"mine\"}"));
  // A file that we made goes with our hooks.
  std::filesystem::remove(file);
  hooks.connect();
  hooks.disconnect();
  EXPECT_FALSE(std::filesystem::exists(file));
}

}  // namespace
}  // namespace ambrel
