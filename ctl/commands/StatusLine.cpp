#include "core/base/JSON.h"
#include "core/usage/ClaudeStatusLine.h"
#include "ctl/Context.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

using Action = void (*)(const ClaudeStatusLine::Files&);

// Claude Code runs the script from folders of its own.
ClaudeStatusLine::Files filesOf(const Context& context) {
  return {std::filesystem::absolute(context.home), std::filesystem::absolute(context.data), context.agentFolders};
}

void printStatusLine(Context& context) {
  const bool isConnected = ClaudeStatusLine::isConnected(filesOf(context));
  if (context.json)
    context.print(JSON{{"isConnected", isConnected}});
  else
    context.out << (isConnected ? "Connected.\n" : "Not connected.\n");
}

Command change(std::string name, std::string summary, Action action) {
  return {.name = std::move(name),
          .summary = std::move(summary),
          .options = {},
          .commands = {},
          .run = [action](const Arguments&, Context& context) {
            try {
              action(filesOf(context));
            } catch (const std::exception& error) {
              throw CommandError(std::string(ClaudeStatusLine::cannotChange) + " (" + error.what() + ")");
            }
            printStatusLine(context);
          }};
}

}  // namespace

Command statusLineCommand() {
  return {.name = "statusline",
          .summary = "The hook that saves Claude's own percentages",
          .options = {},
          .commands = {{.name = "status",
                        .summary = "Whether the hook is connected",
                        .options = {},
                        .commands = {},
                        .run = [](const Arguments&, Context& context) { printStatusLine(context); }},
                       change("install", "Connect the hook; the own status line goes on behind it",
                              ClaudeStatusLine::install),
                       change("remove", "Put the own status line back", ClaudeStatusLine::remove)},
          .run = {}};
}

}  // namespace ambrel
