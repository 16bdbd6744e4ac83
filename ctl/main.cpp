// tilebayctl: what decides in Tilebay, without a desktop.

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <pwd.h>
#include <unistd.h>

#include "ctl/CommandLine.h"
#include "ctl/Context.h"
#include "ctl/HookCall.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

enum ExitStatus { done = 0, failed = 1, wrongUsage = 2 };

std::vector<Command> allCommands() {
  return {agentsCommand(),   usageCommand(),  statusLineCommand(), clipsCommand(),   diskCommand(),   noticesCommand(),
          profilesCommand(), reviewCommand(), settingsCommand(),   weatherCommand(), widgetsCommand()};
}

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::filesystem::path userHome() {
  if (const std::string home = variable("HOME"); !home.empty()) return home;
  if (const passwd* user = getpwuid(getuid()); user && user->pw_dir) return user->pw_dir;
  throw CommandError("there is no home folder: HOME is not set");
}

// Our own folder below the one that a variable names, else below `fallback` in the home folder.
std::filesystem::path folder(const char* name, const char* fallback) {
  // A relative path there counts as none.
  if (const std::filesystem::path given = variable(name); given.is_absolute()) return given / "Ambrel";
  return userHome() / fallback / "Ambrel";
}

std::filesystem::path dataFolder() { return folder("XDG_DATA_HOME", ".local/share"); }

Instant clockTime() {
  using namespace std::chrono;
  return time_point_cast<microseconds>(system_clock::now());
}

bool wantsColors(const Output& out) {
  return out.isTerminal() && variable("NO_COLOR").empty() && variable("TERM") != "dumb";
}

void runCommand(int count, const char* const* words, Output& out) {
  const std::vector<Command> commands = allCommands();
  const ParsedCommandLine parsed = parseCommandLine(commands, count, words);
  if (parsed.answer) {
    out << *parsed.answer;
    return out.flush();
  }
  const GlobalOptions& global = parsed.global;
  Context context{
      .home = global.home ? std::filesystem::path(*global.home) : userHome(),
      .data = global.data ? std::filesystem::path(*global.data) : dataFolder(),
      .config = folder("XDG_CONFIG_HOME", ".config"),
      .now = clockTime,
      .calendar = Calendar::fromVariables(variable("TZ"), variable("LC_ALL"), variable("LC_TIME"), variable("LANG")),
      .json = global.json,
      .hasColors = wantsColors(out),
      .out = out};
  if (global.now) context.now = [now = *global.now] { return now; };
  parsed.command->run(parsed.arguments, context);
  out.flush();
}

int complain(ExitStatus status, const char* text) {
  std::fprintf(stderr, "tilebayctl: %s\n", text);
  return status;
}

}  // namespace
}  // namespace ambrel

int main(int count, char** words) {
  using namespace ambrel;
  if (const auto call = hookCall({words + 1, words + count})) {
    keepHookEvent(*call, [&] { return call->data.empty() ? dataFolder() : std::filesystem::path(call->data); });
    return done;
  }
  std::signal(SIGPIPE, SIG_IGN);
  Output out(STDOUT_FILENO);
  try {
    runCommand(count, words, out);
    return done;
  } catch (const ClosedPipe&) {
    return done;
  } catch (const UsageError& error) {
    return complain(wrongUsage, error.what());
  } catch (const std::exception& error) {
    return complain(failed, error.what());
  }
}
