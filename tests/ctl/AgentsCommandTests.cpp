#include <cstdlib>
#include <memory>
#include <sys/stat.h>

#include "core/agents/attention/HookStore.h"
#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"
#include "tests/ctl/CommandRun.h"

namespace ambrel {
namespace {

const std::string noonText = "2026-11-21T12:00:00Z";
const Instant noon = *parseISO8601(noonText);
const std::string request =
    "{\"session_id\":\"s1\",\"transcript_path\":\"/home/mira/.claude/projects/-x/s1.jsonl\",\"cwd\":\"/x\","
    "\"hook_event_name\":\"PermissionRequest\",\"tool_name\":\"Bash\",\"tool_input\":{\"command\":\"make\\ntest\"}}";

class AgentsCommand : public testing::Test {
 protected:
  std::vector<HookEvent> events() {
    std::vector<HookEvent> all;
    HookStoreReader().readNew(HookStoreFiles(home / "data"), [&](HookEvent event) { all.push_back(std::move(event)); });
    return all;
  }
  CommandResult run(std::vector<std::string> arguments, const std::string& input = "/dev/null") {
    for (const std::string& each : {std::string("--home"), home.path().string(), std::string("--data"),
                                    (home / "data").string(), std::string("--now"), noonText})
      arguments.push_back(each);
    return runCommand(std::move(arguments), {}, input);
  }

  TemporaryFolder home;
};

TEST_F(AgentsCommand, TellsWhatASessionWaitsForSinceItsHookWasCalled) {
  home.write(".claude/projects/-x/s1.jsonl", "{\"type\":\"user\",\"cwd\":\"/home/mira/tilebay\"}\n", noon);
  EXPECT_EQ(run({"agents", "hook", "claudeCode"}, home.write("input.json", request)), CommandResult{});
  const auto sessions = parseJSON(run({"--json", "agents"}).out).value();
  EXPECT_EQ(sessions.at(0).at("status"), "needsInput");
  EXPECT_EQ(sessions.at(0).at("wait"), JSON::parse("{\"reason\":\"permission\",\"detail\":\"Bash: make\",\"since\":\"" +
                                                   noonText + "\",\"source\":\"hook\"}"));
  EXPECT_THAT(run({"agents"}).out, HasSubstr("Bash: make"));
}

TEST_F(AgentsCommand, HookEndsInSilenceWhateverItIsGiven) {
  const std::string huge =
      "{\"hook_event_name\":\"Stop\",\"session_id\":\"s\",\"x\":\"" + std::string(3 << 20, 'x') + "\"}";
  for (const std::string& input :
       {std::string(), std::string("[1]"), std::string("\xff\0{", 3), huge, request.substr(0, 60)}) {
    for (const char* kind : {"claudeCode", "codex", "cursor", "x"})
      EXPECT_EQ(run({"agents", "hook", kind}, home.write("input.json", input)), CommandResult{});
  }
  EXPECT_EQ(events().size(), 2U);
  // A tool that never closes its side, and a folder that cannot be written to.
  const auto pipe = home / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int held = open(pipe.c_str(), O_RDWR | O_CLOEXEC);
  EXPECT_EQ(run({"agents", "hook", "codex"}, pipe).status, 0);
  ASSERT_EQ(write(held, request.data(), request.size()), static_cast<ssize_t>(request.size()));
  EXPECT_EQ(run({"agents", "hook", "codex"}, pipe).status, 0);
  close(held);
  EXPECT_EQ(events().size(), 3U);
  EXPECT_EQ(runCommand({"agents", "hook", "codex", "--data", "/proc/none"}, {}, home / "input.json"), CommandResult{});
  EXPECT_EQ(runCommand({"agents", "hook", "codex"}).status, 0);  // no home folder at all
}

TEST_F(AgentsCommand, KeepsAHundredHooksAtOnce) {
  const std::string input = home.write("input.json", request);
  std::vector<std::unique_ptr<CommandRun>> runs;
  for (int i = 0; i < 100; ++i)
    runs.push_back(
        std::make_unique<CommandRun>(std::vector<std::string>{"agents", "hook", "codex", "--data", home / "data"},
                                     std::vector<std::string>{}, input));
  for (const auto& each : runs) EXPECT_EQ(each->wait(), 0);
  EXPECT_EQ(events().size(), 100U);
}

TEST_F(AgentsCommand, ConnectsAToolAndTakesItBack) {
  const auto settings = home.write(".claude/settings.json", "{\n  // mine\n  \"model\": \"opus\"\n}\n");
  EXPECT_EQ(run({"--json", "agents", "connected"}).out, "{\"claudeCode\":false,\"codex\":false}\n");
  EXPECT_EQ(run({"--json", "agents", "connect", "claudeCode"}).out, "{\"claudeCode\":true,\"codex\":false}\n");
  EXPECT_THAT(run({"agents", "connect", "codex"}).out, HasSubstr("Codex: connected."));

  // What the tool's shell would run keeps an event.
  const std::string codex = readFile(home / ".codex/hooks.json").value();
  const auto command = parseJSON(codex).value().at("hooks").at("Stop").at(0).at("hooks").at(0).at("command");
  const std::string call = command.get<std::string>() + " < " + home.write("input.json", request).string();
  EXPECT_EQ(std::system(call.c_str()), 0);
  EXPECT_EQ(events().size(), 1U);

  EXPECT_EQ(run({"--json", "agents", "disconnect", "claudeCode"}).out, "{\"claudeCode\":false,\"codex\":true}\n");
  EXPECT_EQ(readFile(settings), "{\n  // mine\n  \"model\": \"opus\"\n}\n");
  EXPECT_EQ(run({"agents", "connect", "cursor"}).status, 2);
  home.write(".claude/settings.json", "{");
  const auto bad = run({"agents", "connect", "claudeCode"});
  EXPECT_EQ(bad.status, 1);
  EXPECT_THAT(bad.error, HasSubstr("Could not change ~/.claude/settings.json. Check that it is valid JSON. ("));
  EXPECT_EQ(readFile(settings), "{");
}

}  // namespace
}  // namespace ambrel
