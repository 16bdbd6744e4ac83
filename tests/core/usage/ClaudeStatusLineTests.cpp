#include <algorithm>
#include <sys/wait.h>
#include <unistd.h>

#include "core/base/JSON.h"
#include "core/usage/ClaudeStatusLine.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/usage/UsageCases.h"

namespace ambrel {
namespace {

namespace fs = std::filesystem;
const fs::path scriptPath = "/d/Ambrel/claude-statusline.sh";

// Runs a command as Claude Code does: by the shell, with the input on its standard input.
struct Outcome {
  std::string output;
  int status;
};
Outcome runByShell(const std::string& command, const std::string& input, const TemporaryFolder& folder) {
  const fs::path in = folder.write("run/in", input), out = folder.write("run/out", "");
  const pid_t child = fork();
  if (child == 0) {
    const FileDescriptor from = openForReading(in);
    const FileDescriptor to(open(out.c_str(), O_WRONLY | O_CLOEXEC));
    if (dup2(from.get(), 0) == 0 && dup2(to.get(), 1) == 1)
      execl("/bin/sh", "sh", "-c", command.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return {readFile(out).value(), WIFEXITED(status) ? WEXITSTATUS(status) : -1};
}

TEST(ClaudeStatusLine, WritesTheScriptWithItsPathsInQuotes) {
  EXPECT_EQ(ClaudeStatusLine::script("/d/A b/claude-status.json", "/d/it's/original"),
            R"sh(#!/bin/sh
# Tilebay: saves Claude Code's plan limits for the Claude widget, then runs your own status line.
input=$(cat)
case "$input" in
  *'"rate_limits"'*)
    file='/d/A b/claude-status.json'
    printf '%s' "$input" > "$file.$$" && mv -f "$file.$$" "$file" ;;
esac
original='/d/it'\''s/original'
if [ -s "$original" ]; then printf '%s' "$input" | /bin/sh -c "$(cat "$original")"; fi
)sh");
}

TEST(ClaudeStatusLine, NamesTheScriptByItsPathUnlessTheShellWouldMisreadIt) {
  EXPECT_EQ(ClaudeStatusLine::command("/home/zoë/.local/share/Ambrel/claude-statusline.sh"),
            "/home/zoë/.local/share/Ambrel/claude-statusline.sh");
  for (const std::string path :
       {"/a b/s", "/a'b/s", "/a$b/s", "/a\nb/s", "/a;b/s", "/a*b/s", "/a~b/s", "/a(b/s", "/a\"b/s", "/a\\b/s"}) {
    EXPECT_EQ(ClaudeStatusLine::command(path).front(), '\'') << path;
    const auto settings = ForeignJSON::parse("{}");
    EXPECT_TRUE(ClaudeStatusLine::isConnected(ClaudeStatusLine::install(settings, path).settings, path)) << path;
  }
}

TEST(ClaudeStatusLine, IsConnectedByTheCommandAlone) {
  const auto isConnected = [](const char* settings) {
    return ClaudeStatusLine::isConnected(ForeignJSON::parse(settings), scriptPath);
  };
  EXPECT_TRUE(isConnected(R"({"statusLine":{"command":"\/d\/Ambrel\/claude-statusline.sh","type":7}})"));
  for (const char* other :
       {R"({"statusLine":{"command":"/d/Ambrel/claude-statusline.sh "}})",
        R"({"statusLine":{"command":["/d/Ambrel/claude-statusline.sh"]}})",
        R"({"statusLine":"/d/Ambrel/claude-statusline.sh"})", R"({"command":"/d/Ambrel/claude-statusline.sh"})", "{}"})
    EXPECT_FALSE(isConnected(other)) << other;
}

TEST(ClaudeStatusLine, ChangesTheStatusLineAloneAndPutsItBack) {
  const std::vector<std::pair<std::string, std::optional<std::string>>> cases{
      {"empty", std::nullopt},
      {"numbers", std::nullopt},
      {"own-line", "~/.claude/line.sh --color 'a b'"},
      {"twice", "third"},
      {"no-object", std::nullopt}};
  for (const auto& [name, earlier] : cases) {
    SCOPED_TRACE(name);
    const auto settings = ForeignJSON::parse(usageCase("settings/" + name + ".json"));
    const auto installed = ClaudeStatusLine::install(settings, scriptPath);
    EXPECT_EQ(installed.earlierCommand, earlier);
    EXPECT_EQ(installed.settings.pretty(), usageCase("settings/" + name + ".installed.json") + "\n");
    EXPECT_EQ(ClaudeStatusLine::install(installed.settings, scriptPath).earlierCommand, std::nullopt);
    EXPECT_EQ(ClaudeStatusLine::remove(installed.settings, scriptPath, earlier).pretty(),
              usageCase("settings/" + name + ".removed.json") + "\n");
    EXPECT_EQ(ClaudeStatusLine::remove(settings, scriptPath, earlier), settings);
  }
}

class ClaudeStatusLineFiles : public testing::Test {
 protected:
  void writeSettings(const std::string& text) { home.write(".claude/settings.json", text); }
  std::string settings() { return readFile(files.settings).value(); }
  std::optional<std::string> command() {
    const ForeignJSON parsed = ForeignJSON::parse(settings());
    const ForeignJSON* line = parsed.find("statusLine");
    return line ? line->find("command")->text() : std::nullopt;
  }
  static mode_t mode(const fs::path& path) { return static_cast<mode_t>(fs::symlink_status(path).permissions()); }
  std::vector<std::string> names(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

  TemporaryFolder home;
  ClaudeStatusLine::Files files{home.path(), home / "share/Ambrel"};
};

const std::string ownLine = R"({"model": "opus", "statusLine": {"type": "command", "command": "cat; echo '\"own\"'"}})";

TEST_F(ClaudeStatusLineFiles, InstallsWhereNothingIs) {
  EXPECT_FALSE(ClaudeStatusLine::isConnected(files));
  ClaudeStatusLine::install(files);
  EXPECT_TRUE(ClaudeStatusLine::isConnected(files));
  EXPECT_EQ(command(), files.script.string());
  EXPECT_EQ(mode(files.script), 0755u);
  EXPECT_THAT(names(home / ".claude"), ElementsAre("settings.json"));
  EXPECT_THAT(names(home / "share/Ambrel"), ElementsAre("claude-statusline.sh"));
  const auto script = readFile(files.script);
  fs::remove(files.script);
  ClaudeStatusLine::install(files);
  EXPECT_EQ(readFile(files.script), script) << "a lost script is repaired";
  EXPECT_EQ(mode(files.script), 0755u);
  writeSettings(R"({"model": "opus"})");
  ClaudeStatusLine::install(files);
  ClaudeStatusLine::remove(files);
  EXPECT_EQ(settings(), "{\n  \"model\": \"opus\"\n}\n") << "the key goes where no line was";
}

TEST_F(ClaudeStatusLineFiles, SavesTheOwnLineOnceAndPutsItBack) {
  writeSettings(ownLine);
  ClaudeStatusLine::install(files);
  EXPECT_EQ(readFile(files.original), "cat; echo '\"own\"'");
  const std::string installed = settings();
  ClaudeStatusLine::install(files);
  EXPECT_EQ(readFile(files.original), "cat; echo '\"own\"'");
  EXPECT_EQ(settings(), installed);
  home.write("share/Ambrel/claude-status.json", "{}");

  ClaudeStatusLine::remove(files);
  EXPECT_FALSE(ClaudeStatusLine::isConnected(files));
  EXPECT_EQ(command(), "cat; echo '\"own\"'");
  EXPECT_THAT(names(home / "share/Ambrel"), ElementsAre("claude-statusline-original", "claude-statusline.sh"));
}

TEST_F(ClaudeStatusLineFiles, NeverRunsTheScriptBehindItself) {
  writeSettings(ownLine);
  ClaudeStatusLine::install(files);
  for (const std::string& name : std::initializer_list<std::string>{
           files.script.string() + " | tr a b", std::string("~/share/Ambrel/claude-statusline.sh"),
           std::string("sh $HOME/share/Ambrel/claude-statusline.sh")}) {
    writeSettings(
        ForeignJSON::parse("{\"statusLine\":{\"command\":" + ForeignJSON::ofText(name).pretty() + "}}").pretty());
    EXPECT_FALSE(ClaudeStatusLine::isConnected(files)) << name;
    ClaudeStatusLine::install(files);
    EXPECT_EQ(readFile(files.original), "cat; echo '\"own\"'") << name;
  }
}

TEST_F(ClaudeStatusLineFiles, KeepsTheBackupFromBeforeTheFirstChange) {
  writeSettings(ownLine);
  fs::permissions(files.settings, fs::perms(0640));
  ClaudeStatusLine::install(files);
  ClaudeStatusLine::remove(files);
  writeSettings("{}");
  ClaudeStatusLine::install(files);
  EXPECT_FALSE(fs::exists(files.original)) << "the line of an earlier install";
  EXPECT_EQ(readFile(files.backup), ownLine);
  EXPECT_EQ(mode(files.backup), 0640u);
}

TEST_F(ClaudeStatusLineFiles, LeavesWhatIsNoObjectAsItWas) {
  for (const std::string text : {"", "[]", "{\"a\": 1,}", "\"text\"", "// comment\n{}"}) {
    writeSettings(text);
    EXPECT_THROW(ClaudeStatusLine::install(files), DecodingError) << text;
    EXPECT_THROW(ClaudeStatusLine::remove(files), DecodingError) << text;
    EXPECT_FALSE(ClaudeStatusLine::isConnected(files));
    EXPECT_EQ(settings(), text);
    EXPECT_THAT(names(home / ".claude"), ElementsAre("settings.json"));
    EXPECT_FALSE(fs::exists(files.script));
  }
}

TEST_F(ClaudeStatusLineFiles, RemovingWhatIsNotConnectedChangesNoSettings) {
  EXPECT_NO_THROW(ClaudeStatusLine::remove(files));
  EXPECT_FALSE(fs::exists(files.settings));
  writeSettings(ownLine);
  home.write("share/Ambrel/claude-status.json", "{}");
  ClaudeStatusLine::remove(files);
  EXPECT_EQ(settings(), ownLine);
  EXPECT_FALSE(fs::exists(files.backup));
  EXPECT_FALSE(fs::exists(files.snapshot));
}

TEST_F(ClaudeStatusLineFiles, WritesThroughALinkAndKeepsThePermissions) {
  const fs::path real = home.write("dotfiles/claude.json", ownLine);
  fs::permissions(real, fs::perms(0640));
  fs::create_directory(home / ".claude");
  fs::create_symlink("../dotfiles/link.json", files.settings);
  fs::create_symlink("claude.json", home / "dotfiles/link.json");
  ClaudeStatusLine::install(files);
  EXPECT_EQ(fs::read_symlink(files.settings), "../dotfiles/link.json");
  EXPECT_EQ(fs::read_symlink(home / "dotfiles/link.json"), "claude.json");
  EXPECT_TRUE(fs::symlink_status(real).type() == fs::file_type::regular);
  EXPECT_EQ(mode(real), 0640u);
  EXPECT_TRUE(ClaudeStatusLine::isConnected(files));
  EXPECT_THAT(names(home / "dotfiles"), ElementsAre("claude.json", "link.json"));
  EXPECT_THAT(names(home / ".claude"), ElementsAre("settings.json", "settings.json.ambrel-backup"));
}

TEST_F(ClaudeStatusLineFiles, FillsADanglingLinkAndRefusesALoop) {
  fs::create_directory(home / ".claude");
  fs::create_symlink(home / "later.json", files.settings);
  ClaudeStatusLine::install(files);
  EXPECT_TRUE(fs::is_symlink(files.settings));
  EXPECT_TRUE(fs::is_regular_file(home / "later.json"));
  fs::remove(files.settings);
  fs::create_symlink("settings.json", files.settings);
  EXPECT_THROW(ClaudeStatusLine::install(files), FileError);
  EXPECT_TRUE(fs::is_symlink(files.settings));
}

// Real runs of the hook, below folders with names that the shell has a meaning for.
class ClaudeStatusLineRun : public testing::TestWithParam<std::string> {
 protected:
  Outcome run(const std::string& input) {
    const ForeignJSON settings = ForeignJSON::parse(readFile(files.settings).value());
    return runByShell(settings.find("statusLine")->find("command")->text().value(), input, home);
  }
  void install(const std::string& ownCommand) {
    ForeignJSON line, settings;
    line.set("command", ForeignJSON::ofText(ownCommand));
    settings.set("statusLine", line);
    home.write(".claude/settings.json", settings.pretty());
    ClaudeStatusLine::install(files);
  }

  TemporaryFolder home;
  ClaudeStatusLine::Files files{home.path(), home / GetParam()};
  const std::string limits = usageCase("limits/both.json");
  const std::string noLimits = usageCase("limits/none.json");
};

TEST_P(ClaudeStatusLineRun, SavesLimitsAndPrintsNothingOfItsOwn) {
  ClaudeStatusLine::install(files);
  const Outcome first = run(limits);
  EXPECT_EQ(first.output, "");
  EXPECT_EQ(first.status, 0);
  EXPECT_EQ(readFile(files.snapshot), limits);
  EXPECT_TRUE(ClaudeLimits::read(files.snapshot));
  run(noLimits);
  EXPECT_EQ(readFile(files.snapshot), limits);
  std::vector<std::string> left;
  for (const auto& entry : fs::directory_iterator(home / GetParam())) left.push_back(entry.path().filename());
  EXPECT_THAT(left, UnorderedElementsAre("claude-status.json", "claude-statusline.sh"));
}

TEST_P(ClaudeStatusLineRun, HandsTheInputToTheOwnLineAndItsOutputAndStatusBack) {
  install("printf '<%s>' \"$(cat)\"; printf \" it's \\$5\\n\"; exit 3");
  for (const std::string& input : {limits, noLimits}) {
    const Outcome own = run(input);
    EXPECT_EQ(own.output, "<" + input + "> it's $5\n");
    EXPECT_EQ(own.status, 3);
  }
  EXPECT_EQ(readFile(files.snapshot), limits);
}

TEST_P(ClaudeStatusLineRun, PassesOnWhatTheShellWouldTakeApart) {
  install("cat");
  const std::string awkward = "{\"cwd\":\"/a b/$HOME/`id`/%s\\\\n/*\",\"rate_limits\":'\"\n\t\"-n\"}";
  EXPECT_EQ(run(awkward).output, awkward);
  EXPECT_EQ(readFile(files.snapshot), awkward);
}

INSTANTIATE_TEST_SUITE_P(Folders, ClaudeStatusLineRun,
                         testing::Values("share/Ambrel", "Application Support/Ambrel", "it's/Ambrel", "'/Ambrel",
                                         "a$HOME`id`/Ambrel", "line\nbreak/Ambrel", "a\\b\"c/Ambrel", "-n/Ambrel"),
                         [](const auto& test) { return "Folder" + std::to_string(test.index); });

}  // namespace
}  // namespace ambrel
