#pragma once
// What Buddy says, and which signals make him say it: the words that the engine, the queue and the notice centre share.
//
// A rule looks at the signals and raises a notice; the policy is the user's filter. The decisions are in
// core/buddy/BuddyNoticeEngine.h, who is looked at in AgentWatch.h, what the one bubble shows in BuddyBubbleQueue.h.

#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "core/agents.h"
#include "core/base/Calendar.h"
#include "core/buddy/BuddyChoices.h"
#include "core/usage.h"

namespace ambrel {

// In ascending order.
enum class BuddyPriority { info, important, urgent };

// The character's one-shot reactions.
enum class BuddyTrigger {
  celebrate,
  wave,
  jump,
  spin,
  dance,
  nod,
  shake,
  stretch,
  wink,
  love,
  startle,
  peek,
  sip,
  typing,
  highFive,
  drink,
  sneeze,
  lookAround,
};

enum class BuddyRule {
  agentNeedsInput,
  agentFinished,
  agentStopped,
  agentStillWorking,
  awayDigest,
  meetingSoon,
  meetingStart,
  claudeLimit,
  codexSession,
  codexWeek,
  batteryLow,
  batteryCritical,
  diskLow,
  cpuHigh,
  water,
  focusEnded,
  breakOver,
  daySummary,
};

BuddyPriority priority(BuddyRule rule);
BuddyCategory category(BuddyRule rule);
BuddyTrigger trigger(BuddyRule rule);
// How long the same notice stays silent after it came.
Seconds cooldown(BuddyRule rule);
// A lasting rule describes a condition, and its notice is valid only while the engine still raises it. Any other
// describes an event that has happened, and its notice stays valid.
bool isLasting(BuddyRule rule);

// Why a notice came, in the user's words.
struct BuddyReason {
  std::string rule;     // "The battery is below 20% and not charging."
  std::string setting;  // "To turn this off, take System out of Speaks about in Settings › Buddy."
  friend bool operator==(const BuddyReason&, const BuddyReason&) = default;
};
BuddyReason reason(BuddyRule rule, const Calendar& calendar);

// What a notice offers as a button.
namespace BuddyActions {

struct Join {  // opens a meeting's link
  std::string url;
  friend bool operator==(const Join&, const Join&) = default;
};
struct OpenAgent {  // brings the agent's application forward
  AgentKind kind = AgentKind::claudeCode;
  friend bool operator==(const OpenAgent&, const OpenAgent&) = default;
};
struct Snooze {  // brings the notice back later
  std::int64_t minutes = 15;
  friend bool operator==(const Snooze&, const Snooze&) = default;
};
struct OpenDiskCleanup {
  friend bool operator==(const OpenDiskCleanup&, const OpenDiskCleanup&) = default;
};
struct OpenInbox {
  friend bool operator==(const OpenInbox&, const OpenInbox&) = default;
};

}  // namespace BuddyActions

using BuddyAction = std::variant<BuddyActions::Join, BuddyActions::OpenAgent, BuddyActions::Snooze,
                                 BuddyActions::OpenDiskCleanup, BuddyActions::OpenInbox>;

// "Join", "Show", "Snooze 15 min", "Clean Up", "Open"
std::string buttonText(const BuddyAction& action);
// Whether a link may be opened: http and https alone, with a host and without blanks or control characters.
bool isOpenableLink(std::string_view url);

struct BuddyNotice {
  static constexpr std::size_t mostActions = 2;

  // Of the actions the first two are kept.
  BuddyNotice(std::string id, BuddyRule rule, std::string title, std::string detail, Instant date,
              std::vector<BuddyAction> actions = {}, std::optional<std::string> sessionID = {},
              std::optional<Instant> expiresAt = {});

  std::string id;  // of this occurrence: "battery.low", "finished:claude:0b54c9de-...:1795262400.0"
  BuddyRule rule;
  std::string title;   // the bubble's first line
  std::string detail;  // its second
  std::vector<BuddyAction> actions;
  std::optional<std::string> sessionID;  // of the agent's session that it speaks of
  Instant date;                          // when it was raised
  std::optional<Instant> expiresAt;      // from then on it is not to be shown

  friend bool operator==(const BuddyNotice&, const BuddyNotice&) = default;
};

// "I found 5.6 GB you can free", after a scan. It goes under `diskLow`, however full the disk is.
BuddyNotice diskFoundNotice(std::int64_t bytes, std::string detail, Instant now, const Calendar& calendar);
// The one of its rule, except for what a scan found.
BuddyReason reason(const BuddyNotice& notice, const Calendar& calendar);

// Hours of the local day. From a later hour to an earlier one they last over midnight; two equal hours are none.
struct QuietHours {
  int startHour = 22;
  int endHour = 8;

  bool contains(Instant date, const Calendar& calendar) const;
  friend bool operator==(const QuietHours&, const QuietHours&) = default;
};

// The user's filter.
struct BuddyPolicy {
  BuddyLevel level = BuddyLevel::all;
  std::set<BuddyCategory> categories{BuddyCategory::agents, BuddyCategory::meetings, BuddyCategory::limits,
                                     BuddyCategory::system, BuddyCategory::health};
  std::optional<QuietHours> quietHours;  // absent while they are off
  bool onlyUnfocusedAgents = false;      // nothing is said of agents that the user is looking at

  bool allows(BuddyRule rule) const;
  friend bool operator==(const BuddyPolicy&, const BuddyPolicy&) = default;
};

// One snapshot of everything that the rules look at. Absent is unknown, and its rules do not apply.
struct BuddySignals {
  struct Meeting {
    std::string id;
    std::string title;
    Instant start;
    std::optional<std::string> url = {};
    friend bool operator==(const Meeting&, const Meeting&) = default;
  };
  struct Battery {
    int percent = 0;
    bool isCharging = false;
    friend bool operator==(const Battery&, const Battery&) = default;
  };
  enum class PhaseEnd { focus, breakTime };

  std::vector<AgentSession> agents;
  std::set<AgentKind> focusedAgents;  // in view now
  std::vector<Meeting> meetings;      // to come
  std::optional<UsageBlock> claudeBlock;
  std::optional<std::int64_t> claudeBudgetTokens;  // the user's own, for that block
  std::optional<ClaudeLimits::Limits> claudeLimits;
  std::optional<CodexUsage::Limits> codex;
  std::optional<Battery> battery;
  std::optional<std::int64_t> diskFreeBytes;  // on the start-up disk
  std::optional<double> cpuUsage;             // 0 to 1
  std::optional<std::string> topProcess;      // the name of the busiest process
  std::optional<Instant> waterDueAt;
  std::int64_t waterGlassesToday = 0;
  bool isFocusRunning = false;
  std::int64_t focusSessionsToday = 0;
  std::optional<PhaseEnd> phaseEnded;  // since the last evaluation

  friend bool operator==(const BuddySignals&, const BuddySignals&) = default;
};

}  // namespace ambrel
