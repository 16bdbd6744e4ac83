#include "core/usage.h"

#include "core/base/JSON.h"
#include "core/base/LocalText.h"
#include "core/usage/UsageJSON.h"
#include "core/usage/UsageTile.h"
#include "ctl/Table.h"
#include "ctl/commands/Commands.h"
#include "ctl/commands/Watch.h"

namespace ambrel {
namespace {

constexpr Seconds passInterval{60};

Cell valueOf(const UsageTile& tile) {
  return {tile.unit.empty() ? tile.value : tile.value + " " + tile.unit, tile.bar && tile.bar->isHigh ? "1;31" : "1"};
}

std::string reported(const UsageTile& tile) { return tile.age.empty() ? "" : "reported " + tile.age + " ago"; }

std::string asTable(const AIUsage& usage, const Context& context, Instant now) {
  const UsageTile claude = claudeUsageTile(usage.claude, usage.claudeLimits, true, now, context.calendar);
  const UsageTile codex = codexLimitsTile(usage.codex, true, now, context.calendar);
  const UsageTotal& today = usage.claude.today;
  const std::vector<std::vector<Cell>> rows{
      {{claude.caption}, valueOf(claude), {usage.claudeLimits ? claude.line : ""}, {reported(claude), "90"}},
      {{"Claude · today"},
       {compactCount(context.calendar, today.tokens, 1) + " tokens", "1"},
       {std::to_string(today.replies) + (today.replies == 1 ? " reply" : " replies")},
       {""}},
      {{codex.caption}, valueOf(codex), {codex.line}, {reported(codex), "90"}}};
  return table(rows, 2, context);
}

void runUsage(const Arguments& arguments, Context& context) {
  const auto interval = watchInterval(arguments, passInterval);
  AIUsageReader reader(context.home, context.data, context.agentFolders);
  if (!context.json)
    return printWatching(context, interval, [&] {
      const Instant now = context.now();
      return asTable(reader.read(now, context.calendar), context, now);
    });
  // One document a pass, whether anything has changed or not.
  for (;;) {
    context.print(JSON(reader.read(context.now(), context.calendar)));
    context.out.flush();
    if (!interval) return;
    context.out.wait(*interval);
  }
}

}  // namespace

Command usageCommand() {
  return {.name = "usage",
          .summary = "How much of the Claude and Codex plans is spent",
          .options = {watchOption("Look again and again"), everyOption("Time between two looks [60]")},
          .commands = {},
          .run = runUsage};
}

}  // namespace ambrel
