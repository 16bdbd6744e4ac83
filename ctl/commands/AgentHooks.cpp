#include "core/base/JSON.h"
#include "ctl/Context.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

constexpr AgentKind kinds[] = {AgentKind::claudeCode, AgentKind::codex};

// The command that the user knows; this is its other part. Both are in one folder where they were built.
std::filesystem::path toolPath() {
  const auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  std::error_code error;
  const auto installed = std::filesystem::canonical(folder / AMBREL_COMMANDS_TO_TOOL / "tilebayctl", error);
  return error ? folder / "tilebayctl" : installed;
}

HookConnection connection(AgentKind kind, const Context& context) { return {kind, hookPlaces(context)}; }

void printHooks(Context& context) {
  JSON connected = JSON::object();
  for (const AgentKind kind : kinds) {
    const bool isConnected = connection(kind, context).isConnected();
    connected[std::string(nameOf(kind))] = isConnected;
    if (!context.json)
      context.out << std::string(displayName(kind)) + (isConnected ? ": connected.\n" : ": not connected.\n");
  }
  if (context.json) context.print(connected);
}

Command change(std::string name, std::string summary, void (HookConnection::*action)() const) {
  const std::string verb = name;
  return {.name = std::move(name),
          .summary = std::move(summary),
          .options = {{.kind = CommandOption::Kind::positional,
                       .name = "TOOL",
                       .placeholder = "",
                       .help = "claudeCode or codex",
                       .choices = {"claudeCode", "codex"}}},
          .commands = {},
          .run = [action, verb](const Arguments& arguments, Context& context) {
            const std::string tool = arguments.value("TOOL").value_or("");
            const auto kind = fromName<AgentKind>(tool);
            if (kind != AgentKind::claudeCode && kind != AgentKind::codex)
              throw UsageError("'" + tool + "' has no hooks; TOOL is claudeCode or codex");
            const HookConnection hooks = connection(*kind, context);
            try {
              (hooks.*action)();
            } catch (const std::exception& error) {
              throw CommandError(hooks.cannotChange() + " (" + error.what() + ")");
            }
            printHooks(context);
            if (verb == "connect" && kind == AgentKind::codex && !context.json)
              context.out << "Codex runs the hooks once you have trusted them there: /hooks.\n";
          }};
}

}  // namespace

// The tools run the hook from folders of their own.
HookConnection::Places hookPlaces(const Context& context) {
  return {.home = std::filesystem::absolute(context.home),
          .data = std::filesystem::absolute(context.data),
          .tool = toolPath(),
          .folders = context.agentFolders};
}

std::vector<Command> agentHookCommands() {
  return {{.name = "hook",
           .summary = "What a tool's own hook runs: keeps the event on standard input",
           .options = {{.kind = CommandOption::Kind::positional,
                        .name = "TOOL",
                        .placeholder = "",
                        .help = "claudeCode or codex"}},
           .commands = {},
           // Carried out at the start of the program; what comes here was not told from other commands.
           .run = [](const Arguments&, Context&) {}},
          change("connect", "Put our hooks into the tool's settings, beside the user's own", &HookConnection::connect),
          change("disconnect", "Take exactly our hooks out again", &HookConnection::disconnect),
          {.name = "connected",
           .summary = "Which tools have our hooks",
           .options = {},
           .commands = {},
           .run = [](const Arguments&, Context& context) { printHooks(context); }}};
}

}  // namespace ambrel
