#include "core/buddy/RulePass.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

#include "core/base/LocalText.h"
#include "core/base/PlatformWords.h"
#include "core/buddy/BuddyText.h"
#include "core/buddy/Thresholds.h"
#include "core/usage/WindowName.h"

namespace ambrel {
namespace {

using namespace BuddyThresholds;
using namespace BuddyActions;

// As reported it may be any number.
std::int64_t wholePercent(double percent) {
  return static_cast<std::int64_t>(std::trunc(std::clamp(percent, -9e18, 9e18)));
}

std::string inProject(const AgentSession& session) { return session.project ? " in " + *session.project : ""; }

std::string counted(std::int64_t count, std::string_view one, std::string_view many) {
  return fmt::format("{} {}", count, count == 1 ? one : many);
}

}  // namespace

std::string stillWorkingID(std::string_view session, Instant since) {
  return fmt::format("stillWorking:{}:{}:", session, idTime(since));
}

RulePass::RulePass(BuddyNoticeEngine& engine, const BuddySignals& signals, bool onlyUnfocused, Instant now,
                   const Calendar& calendar)
    : engine_(engine),
      signals_(signals),
      onlyUnfocused_(onlyUnfocused),
      now_(now),
      calendar_(calendar),
      today_(calendar.dayKey(now)) {}

std::vector<BuddyNotice> RulePass::run() {
  if (engine_.finishedDay != today_) {
    engine_.finishedDay = today_;
    engine_.finishedToday.clear();
  }
  agents();
  meetings();
  claude();
  codex();
  battery();
  disk();
  processor();
  water();
  focusTimer();
  daySummary();
  return std::move(notices_);
}

void RulePass::agents() {
  engine_.waitingInView.clear();
  for (const AgentSession& session : signals_.agents) agent(session);
  forgetGoneAgents();
}

// The run's memory goes on for a session in view; only the notice is left out.
void RulePass::agent(const AgentSession& session) {
  auto& runs = engine_.workingSince;
  const auto found = runs.find(session.id);
  const std::optional<Instant> since = found == runs.end() ? std::nullopt : std::optional(found->second);
  const Seconds elapsed = since ? secondsBetween(*since, now_) : Seconds(0);
  const bool isSilent = onlyUnfocused_ && signals_.focusedAgents.count(session.kind) != 0;

  switch (session.status) {
    case AgentStatus::needsInput:
      if (isSilent)
        engine_.waitingInView.insert("needsInput:" + session.id);
      else
        raiseAgent(BuddyRule::agentNeedsInput, "needsInput:" + session.id, "needs you",
                   "Waiting for your answer" + inProject(session) + ".", session);
      if (!since) runs.emplace(session.id, now_);
      break;
    case AgentStatus::working:
      if (!isSilent && since && elapsed >= stillWorkingStep)
        raiseAgent(
            BuddyRule::agentStillWorking,
            stillWorkingID(session.id, *since) + std::to_string(static_cast<std::int64_t>(elapsed / stillWorkingStep)),
            "still working",
            fmt::format("{} min so far{}{}.", wholeMinutes(elapsed), inProject(session),
                        session.detail ? ", now " + *session.detail : ""),
            session);
      if (!since) runs.emplace(session.id, now_);
      break;
    case AgentStatus::finished:
      // The user who broke a run off needs no word of it.
      if (!session.isInterrupted && calendar_.dayKey(session.updatedAt) == today_)
        engine_.finishedToday.insert(session.id);
      if (!isSilent && !session.isInterrupted && since && elapsed >= shortestRun)
        raiseAgent(BuddyRule::agentFinished, fmt::format("finished:{}:{}", session.id, idTime(*since)), "finished",
                   fmt::format("A {}-minute run{}.", wholeMinutes(elapsed), inProject(session)), session);
      runs.erase(session.id);
      break;
    case AgentStatus::idle:
      if (!isSilent && since)
        raiseAgent(BuddyRule::agentStopped, fmt::format("stopped:{}:{}", session.id, idTime(*since)), "stopped",
                   fmt::format("No activity for 10 minutes{}, after {} min of work.", inProject(session),
                               wholeMinutes(elapsed)),
                   session);
      runs.erase(session.id);
      break;
  }
}

void RulePass::raiseAgent(BuddyRule rule, std::string id, std::string_view verb, std::string detail,
                          const AgentSession& session) {
  notices_.emplace_back(std::move(id), rule, fmt::format("{} {}", displayName(session.kind), verb), std::move(detail),
                        now_, std::vector<BuddyAction>{OpenAgent{session.kind}}, session.id);
}

void RulePass::forgetGoneAgents() {
  if (engine_.workingSince.empty()) return;
  std::unordered_set<std::string_view> ids;
  ids.reserve(signals_.agents.size());
  for (const AgentSession& session : signals_.agents) ids.insert(session.id);
  std::erase_if(engine_.workingSince, [&](const auto& run) { return ids.count(run.first) == 0; });
}

void RulePass::meetings() {
  for (const BuddySignals::Meeting& meeting : signals_.meetings) {
    const Seconds until = secondsBetween(now_, meeting.start);
    std::vector<BuddyAction> actions;
    if (meeting.url) actions.emplace_back(Join{*meeting.url});
    if (until > Seconds(0) && until <= meetingLead) {
      const auto minutes = std::max<std::int64_t>(1, static_cast<std::int64_t>(std::ceil(until.count() / 60)));
      notices_.emplace_back("meeting:" + meeting.id + ":soon", BuddyRule::meetingSoon, meeting.title,
                            fmt::format("Starts in {} min, at {}.", minutes, shortTime(calendar_, meeting.start)), now_,
                            std::move(actions), std::nullopt, meeting.start);
    } else if (until <= Seconds(0) && until > -meetingGrace) {
      notices_.emplace_back("meeting:" + meeting.id + ":start", BuddyRule::meetingStart, meeting.title, "Starts now.",
                            now_, std::move(actions), std::nullopt, advanced(meeting.start, meetingGrace));
    }
  }
}

void RulePass::raiseLimit(const LimitWords& words, const CodexUsage::Window& window) {
  if (now_ >= window.resetsAt || !(window.usedPercent >= limitPercent)) return;
  const std::string when =
      words.isLong ? weekdayTime(calendar_, window.resetsAt) : "at " + shortTime(calendar_, window.resetsAt);
  notices_.emplace_back(
      fmt::format("{}:{}", words.id, idTime(window.resetsAt)), words.rule,
      fmt::format("{} at {}% of the {} limit", words.tool, wholePercent(window.usedPercent), words.limit),
      "It resets " + when + ".", now_, std::vector<BuddyAction>{}, std::nullopt, window.resetsAt);
}

void RulePass::claude() {
  if (!signals_.claudeLimits) return claudeBudget();
  const auto& [session, week, asOf] = *signals_.claudeLimits;
  if (session) raiseLimit({BuddyRule::claudeLimit, "claude.session", "Claude", "session", false}, *session);
  if (week) raiseLimit({BuddyRule::claudeLimit, "claude.week", "Claude", "weekly", true}, *week);
}

void RulePass::claudeBudget() {
  if (!signals_.claudeBlock || !signals_.claudeBudgetTokens || *signals_.claudeBudgetTokens <= 0) return;
  const UsageBlock& block = *signals_.claudeBlock;
  const auto tokens = static_cast<double>(block.tokens), budget = static_cast<double>(*signals_.claudeBudgetTokens);
  if (now_ >= block.end || tokens / budget < budgetRatio) return;
  notices_.emplace_back("claude:" + idTime(block.end), BuddyRule::claudeLimit,
                        fmt::format("Claude at {}% of your 5-hour budget", wholePercent(tokens * 100 / budget)),
                        fmt::format("The window resets at {}.", shortTime(calendar_, block.end)), now_,
                        std::vector<BuddyAction>{}, std::nullopt, block.end);
}

// Either window may have any length, and the words follow it. Without one they are those of its usual length.
void RulePass::codex() {
  if (!signals_.codex) return;
  const auto raise = [this](BuddyRule rule, std::string_view id, const CodexUsage::Window& window, bool isUsuallyWeek) {
    const std::string limit = windowAdjective(window, isUsuallyWeek ? "weekly" : "5-hour");
    raiseLimit({rule, id, "Codex", limit, window.windowMinutes > 0 ? isLong(window) : isUsuallyWeek}, window);
  };
  const auto& [session, week, asOf] = *signals_.codex;
  raise(BuddyRule::codexSession, "codex.session", session, false);
  if (week) raise(BuddyRule::codexWeek, "codex.week", *week, true);
}

void RulePass::battery() {
  if (!signals_.battery || signals_.battery->isCharging || signals_.battery->percent >= lowBattery) return;
  const std::string title = fmt::format("Battery {}%", signals_.battery->percent);
  if (signals_.battery->percent < criticalBattery)
    notices_.emplace_back("battery.critical", BuddyRule::batteryCritical, title, "Plug in now to keep your work.",
                          now_);
  else
    notices_.emplace_back("battery.low", BuddyRule::batteryLow, title, "Time to find a charger.", now_,
                          std::vector<BuddyAction>{Snooze{15}});
}

void RulePass::disk() {
  if (!signals_.diskFreeBytes || *signals_.diskFreeBytes >= lowDisk) return;
  notices_.emplace_back("disk.low", BuddyRule::diskLow, "Disk almost full",
                        fileSize(calendar_, *signals_.diskFreeBytes) + " free. Caches can go.", now_,
                        std::vector<BuddyAction>{OpenDiskCleanup{}, Snooze{60}});
}

void RulePass::processor() {
  auto& since = engine_.cpuHighSince;
  if (!signals_.cpuUsage || !(*signals_.cpuUsage > highLoad)) {
    since.reset();
    return;
  }
  if (!since) since = now_;
  if (secondsBetween(*since, now_) < highLoadLasts) return;
  notices_.emplace_back(
      "cpu.high", BuddyRule::cpuHigh, std::string("Your {machine} is working hard"_local),
      "CPU above 90% for 2 minutes." + (signals_.topProcess ? " Mostly " + *signals_.topProcess + "." : ""), now_,
      std::vector<BuddyAction>{}, std::nullopt, advanced(now_, highLoadExpires));
}

void RulePass::water() {
  if (!signals_.waterDueAt || now_ < *signals_.waterDueAt) return;
  notices_.emplace_back("water:" + idTime(*signals_.waterDueAt), BuddyRule::water, "Time for some water",
                        counted(signals_.waterGlassesToday, "glass today.", "glasses today."), now_,
                        std::vector<BuddyAction>{Snooze{15}});
}

void RulePass::focusTimer() {
  if (!signals_.phaseEnded) return;
  switch (*signals_.phaseEnded) {
    case BuddySignals::PhaseEnd::focus:
      notices_.emplace_back("focusEnded:" + idTime(now_), BuddyRule::focusEnded, "Focus session done",
                            fmt::format("{} today. Take a break.", signals_.focusSessionsToday), now_);
      break;
    case BuddySignals::PhaseEnd::breakTime:
      notices_.emplace_back("breakOver:" + idTime(now_), BuddyRule::breakOver, "Break is over",
                            "Ready for the next focus session.", now_);
      break;
  }
}

// A day has one chance at it, whatever the policy makes of the notice.
void RulePass::daySummary() {
  if (calendar_.fields(now_).hour < summaryHour || engine_.lastSummaryDay == today_) return;
  engine_.lastSummaryDay = today_;
  const auto runs = static_cast<std::int64_t>(engine_.finishedToday.size());
  notices_.emplace_back(
      "summary:" + today_, BuddyRule::daySummary, "Your day so far",
      fmt::format("{} finished · {} focus · {} of water.", counted(runs, "agent run", "agent runs"),
                  signals_.focusSessionsToday, counted(signals_.waterGlassesToday, "glass", "glasses")),
      now_);
}

}  // namespace ambrel
