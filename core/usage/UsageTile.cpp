#include "core/usage/UsageTile.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

#include "core/base/LocalText.h"
#include "core/usage/WindowName.h"

namespace ambrel {
namespace {

constexpr double highPercent = 85;
// A limit is reported with each turn of the agent; after this long without one the report is marked as old.
constexpr Seconds staleAge{3600};

std::string percentText(double percent) { return fmt::format("{:.0f}%", std::round(percent) + 0.0); }

UsageBar percentBar(double percent) { return {std::clamp(percent / 100, 0.0, 1.0), percent > highPercent}; }

void setSession(UsageTile& tile, const CodexUsage::Window& session, Instant now) {
  const double percent = usedPercent(session, now);
  tile.value = percentText(percent);
  tile.bar = percentBar(percent);
  if (now >= session.resetsAt) tile.unit = "since the reset";
}

void setWeek(UsageTile& tile, const std::optional<CodexUsage::Window>& week, Instant now) {
  if (!week) {
    tile.line = "week not reported";
    return;
  }
  const double percent = usedPercent(*week, now);
  tile.line = windowName(*week, "week") + " " + percentText(percent);
  tile.lineBar = percentBar(percent);
}

void setAge(UsageTile& tile, Instant asOf, Instant now, const Calendar& calendar) {
  const Seconds age = secondsBetween(asOf, now);
  if (age < Seconds(60)) return;
  tile.age = shortAge(calendar, asOf, now);
  tile.isStale = age > staleAge;
}

void setSpoken(UsageTile& tile) {
  tile.spoken = tile.caption + ": " + tile.value;
  if (!tile.unit.empty()) tile.spoken += " " + tile.unit;
  if (!tile.line.empty()) tile.spoken += ", " + tile.line;
  if (!tile.age.empty()) tile.spoken += ", reported " + tile.age + " ago";
}

std::string claudeLimitsHelp(const ClaudeLimits::Limits& limits, Instant now, const Calendar& calendar) {
  std::string help = "Claude plan usage as of " + shortTime(calendar, limits.asOf) + ".";
  if (limits.session)
    help += "\nSession: " + percentText(usedPercent(*limits.session, now)) + " used, resets " +
            shortTime(calendar, limits.session->resetsAt) + ".";
  if (limits.week)
    help += "\nThis week: " + percentText(usedPercent(*limits.week, now)) + " used, resets " +
            weekdayTime(calendar, limits.week->resetsAt) + ".";
  return help;
}

std::string codexHelp(const CodexUsage::Limits& limits, const Calendar& calendar) {
  const std::string name = isWeek(limits.session) ? "Weekly" : windowAdjective(limits.session, "5-hour");
  return "Codex limits as of " + formattedDate(calendar, limits.asOf, "yMMMdjmm") + ". " + name + " window resets " +
         resetTime(limits.session, calendar) + ".";
}

}  // namespace

double usedPercent(const CodexUsage::Window& window, Instant now) {
  return now < window.resetsAt ? window.usedPercent : 0;
}

UsageTile claudeUsageTile(const ClaudeUsageSnapshot& claude, const std::optional<ClaudeLimits::Limits>& limits,
                          bool hasLoaded, Instant now, const Calendar& calendar) {
  UsageTile tile;
  tile.help =
      "Claude Code tokens in the current 5-hour window, from your local logs. An estimate. For Claude's own "
      "percentages, connect the status line in Settings › Buddy.";
  if (limits) {
    tile.caption = "Claude · session";
    if (limits->session && now < limits->session->resetsAt)
      tile.caption = "Claude · resets " + shortTime(calendar, limits->session->resetsAt);
    if (limits->session) {
      setSession(tile, *limits->session, now);
    } else {
      tile.value = percentText(0);
      tile.unit = "not reported";
    }
    setWeek(tile, limits->week, now);
    setAge(tile, limits->asOf, now, calendar);
    tile.help = claudeLimitsHelp(*limits, now, calendar);
  } else if (claude.block) {
    tile.caption = "Claude · resets " + shortTime(calendar, claude.block->end);
    tile.value = compactCount(calendar, claude.block->tokens, 1);
    tile.unit = "tokens in 5 h";
    const double elapsed = secondsBetween(claude.block->start, now) / ClaudeUsage::blockLength;
    tile.bar = UsageBar{std::clamp(elapsed, 0.0, 1.0)};
  } else {
    tile.caption = "Claude";
    tile.value = hasLoaded ? "No open window" : "Reading logs…";
    tile.line = "Today " + compactCount(calendar, claude.today.tokens, 1) + " tokens";
  }
  setSpoken(tile);
  return tile;
}

UsageTile codexLimitsTile(const std::optional<CodexUsage::Limits>& limits, bool hasLoaded, Instant now,
                          const Calendar& calendar) {
  UsageTile tile;
  if (limits) {
    tile.caption = "Codex · " + windowName(limits->session, "5 h");
    setSession(tile, limits->session, now);
    if (!limits->week && isWeek(limits->session))
      tile.line = "5 h not reported";
    else
      setWeek(tile, limits->week, now);
    setAge(tile, limits->asOf, now, calendar);
    tile.help = codexHelp(*limits, calendar);
  } else {
    tile.caption = "Codex";
    tile.value = hasLoaded ? "No use this week" : "Reading logs…";
    tile.help = "Codex limits appear after your next Codex turn.";
  }
  setSpoken(tile);
  return tile;
}

}  // namespace ambrel
