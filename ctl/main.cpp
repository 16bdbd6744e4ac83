// The commands of tilebayctl: what decides in Tilebay, without a desktop. Started by tilebayctl itself.

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <unistd.h>

#include "ctl/CommandLine.h"
#include "ctl/Context.h"
#include "ctl/Folders.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

enum ExitStatus { done = 0, failed = 1, wrongUsage = 2 };

std::vector<Command> allCommands() {
  return {agentsCommand(),  askCommand(),
          usageCommand(),   statusLineCommand(),
          clipsCommand(),   diskCommand(),
          doctorCommand(),  licenceCommand(),
          noticesCommand(), profilesCommand(),
          reviewCommand(),  settingsCommand(),
          toolCommand(),    weatherCommand(),
          widgetsCommand(), completionsCommand([] { return commandWords(allCommands()); })};
}

Instant clockTime() {
  using namespace std::chrono;
  return time_point_cast<microseconds>(system_clock::now());
}

bool wantsColors(const Output& out) {
  return out.isTerminal() && environmentVariable("NO_COLOR").empty() && environmentVariable("TERM") != "dumb";
}

void runCommand(int count, const char* const* words, Output& out) {
  const std::vector<Command> commands = allCommands();
  const ParsedCommandLine parsed = parseCommandLine(commands, count, words);
  if (parsed.answer) {
    out << *parsed.answer;
    return out.flush();
  }
  const GlobalOptions& global = parsed.global;
  Context context{.home = global.home ? std::filesystem::path(*global.home) : userHome(),
                  .data = global.data ? std::filesystem::path(*global.data) : dataFolder(),
                  .agentFolders = global.home ? AgentFolders() : AgentFolders::of(std::getenv),
                  .config = configFolder(),
                  .now = clockTime,
                  .calendar = Calendar::fromVariables(environmentVariable("TZ"), environmentVariable("LC_ALL"),
                                                      environmentVariable("LC_TIME"), environmentVariable("LANG")),
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
