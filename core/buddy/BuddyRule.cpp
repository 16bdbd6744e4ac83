#include <fmt/format.h>

#include "core/base/LocalText.h"
#include "core/buddy.h"
#include "core/buddy/BuddyText.h"
#include "core/buddy/Thresholds.h"

namespace ambrel {
namespace {

struct Row {
  BuddyRule rule;
  BuddyPriority priority;
  BuddyCategory category;
  BuddyTrigger trigger;
  double cooldown;
  bool isLasting;
  std::string_view symbol, tone;
};

const std::string diskFoundPrefix = "disk.found:";

constexpr bool lasting = true, oneShot = false;

constexpr std::array rows = [] {
  using enum BuddyRule;
  using enum BuddyPriority;
  using enum BuddyCategory;
  using T = BuddyTrigger;
  return std::array{
      Row{agentNeedsInput, urgent, agents, T::startle, 120, lasting, "hand.raised.fill", "orange"},
      Row{agentFinished, important, agents, T::highFive, 0, oneShot, "checkmark.circle.fill", "green"},
      Row{agentStopped, important, agents, T::shake, 0, oneShot, "stop.fill", "red"},
      Row{agentStillWorking, info, agents, T::typing, 0, lasting, "circle.dotted", "blue"},
      Row{awayDigest, important, agents, T::wave, 0, oneShot, "list.bullet", "blue"},
      Row{meetingSoon, important, meetings, T::lookAround, 0, lasting, "calendar.badge.clock", "blue"},
      Row{meetingStart, urgent, meetings, T::jump, 0, lasting, "calendar.badge.clock", "orange"},
      Row{claudeLimit, important, limits, T::peek, 0, lasting, "sparkle", "orange"},
      Row{codexSession, important, limits, T::peek, 0, lasting, "chevron.left.forwardslash.chevron.right", "orange"},
      Row{codexWeek, important, limits, T::peek, 0, lasting, "chevron.left.forwardslash.chevron.right", "orange"},
      Row{batteryLow, important, system, T::stretch, 1800, lasting, "battery.25percent", "orange"},
      Row{batteryCritical, urgent, system, T::sneeze, 1800, lasting, "battery.0percent", "red"},
      Row{diskLow, important, system, T::lookAround, 21600, lasting, "internaldrive", "orange"},
      Row{cpuHigh, info, system, T::typing, 1800, lasting, "cpu", "neutral"},
      Row{water, info, health, T::drink, 0, lasting, "drop", "neutral"},
      Row{focusEnded, info, health, T::dance, 0, oneShot, "timer", "neutral"},
      Row{breakOver, info, health, T::sip, 0, oneShot, "timer", "neutral"},
      Row{daySummary, info, health, T::love, 0, oneShot, "sunrise", "neutral"},
  };
}();

constexpr bool isInOrder() {
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (rows[i].rule != static_cast<BuddyRule>(i)) return false;
  return rows.size() == EnumText<BuddyRule>::table.size();
}
static_assert(isInOrder());

const Row& row(BuddyRule rule) { return rows[static_cast<std::size_t>(rule)]; }

// As the settings call it.
std::string_view settingsName(BuddyCategory category) {
  switch (category) {
    case BuddyCategory::agents:
      return "Agents";
    case BuddyCategory::meetings:
      return "Meetings";
    case BuddyCategory::limits:
      return "Limits";
    case BuddyCategory::system:
      return "System";
    case BuddyCategory::health:
      return "Health";
  }
  return {};
}

std::string ruleInWords(BuddyRule rule, const Calendar& calendar) {
  using namespace BuddyThresholds;
  const auto minutes = [](Seconds span) { return static_cast<int>(span.count()) / 60; };
  switch (rule) {
    case BuddyRule::agentNeedsInput:
      return "An agent waits for your answer.";
    case BuddyRule::agentFinished:
      return fmt::format("An agent finished after a run of {} minutes or more.", minutes(shortestRun));
    case BuddyRule::agentStopped:
      return fmt::format("An agent that was at work has not stirred for {} minutes.",
                         minutes(AgentTiming::workingTimeout));
    case BuddyRule::agentStillWorking:
      return fmt::format("An agent has worked for another {} minutes. This comes to the inbox only.",
                         minutes(stillWorkingStep));
    case BuddyRule::awayDigest:
      return fmt::format("You came back to an agent after {} minutes or more, and others had news.",
                         minutes(awayThreshold));
    case BuddyRule::meetingSoon:
      return fmt::format("A meeting starts within {} minutes.", minutes(meetingLead));
    case BuddyRule::meetingStart:
      return "A meeting starts.";
    case BuddyRule::claudeLimit:
      return fmt::format("{}% or more of a Claude limit, or of your own budget, is used.", limitPercent);
    case BuddyRule::codexSession:
    case BuddyRule::codexWeek:
      return fmt::format("{}% or more of a Codex limit is used.", limitPercent);
    case BuddyRule::batteryLow:
      return fmt::format("The battery is below {}% and not charging.", lowBattery);
    case BuddyRule::batteryCritical:
      return fmt::format("The battery is below {}% and not charging.", criticalBattery);
    case BuddyRule::diskLow:
      return fmt::format("Less than {} of the disk is free.", fileSize(calendar, lowDisk));
    case BuddyRule::cpuHigh:
      return fmt::format("The processor has been above {:.0f}% for {} minutes.", highLoad * 100,
                         minutes(highLoadLasts));
    case BuddyRule::water:
      return "The next glass of water is due.";
    case BuddyRule::focusEnded:
      return "A session of the focus timer ended.";
    case BuddyRule::breakOver:
      return "A break of the focus timer ended.";
    case BuddyRule::daySummary:
      return fmt::format("Once a day, from {} on.", shortTime(calendar, calendar.instant(2000, 1, 3, summaryHour)));
  }
  return {};
}

}  // namespace

BuddyPriority priority(BuddyRule rule) { return row(rule).priority; }
BuddyCategory category(BuddyRule rule) { return row(rule).category; }
BuddyTrigger trigger(BuddyRule rule) { return row(rule).trigger; }
Seconds cooldown(BuddyRule rule) { return Seconds(row(rule).cooldown); }
bool isLasting(BuddyRule rule) { return row(rule).isLasting; }
std::string_view symbol(BuddyRule rule) { return row(rule).symbol; }
std::string_view tone(BuddyRule rule) { return row(rule).tone; }

BuddyNotice diskFoundNotice(std::int64_t bytes, std::string detail, Instant now, const Calendar& calendar) {
  return BuddyNotice(diskFoundPrefix + idTime(now), BuddyRule::diskLow,
                     "I found " + fileSize(calendar, bytes) + " you can free", std::move(detail), now,
                     {BuddyActions::OpenDiskCleanup{}});
}

BuddyReason reason(const BuddyNotice& notice, const Calendar& calendar) {
  BuddyReason why = reason(notice.rule, calendar);
  if (notice.id.starts_with(diskFoundPrefix)) why.rule = "A scan of Disk Doctor found something that can go.";
  return why;
}

BuddyReason reason(BuddyRule rule, const Calendar& calendar) {
  const bool alsoByLevel = priority(rule) == BuddyPriority::info;
  return {.rule = ruleInWords(rule, calendar),
          .setting = fmt::format("To turn this off, take {} out of Speaks about in Settings › Buddy{}.",
                                 settingsName(category(rule)), alsoByLevel ? ", or choose If important there" : "")};
}

}  // namespace ambrel
