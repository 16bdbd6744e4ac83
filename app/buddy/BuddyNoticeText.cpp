#include "app/buddy/BuddyNoticeText.h"

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

struct Mark {
  BuddyRule rule;
  const char* symbol;
  const char* tone;
};

constexpr std::array marks = [] {
  using enum BuddyRule;
  return std::array{
      Mark{agentNeedsInput, "hand.raised.fill", "orange"},
      Mark{agentFinished, "checkmark.circle.fill", "green"},
      Mark{agentStopped, "stop.fill", "red"},
      Mark{agentStillWorking, "circle.dotted", "blue"},
      Mark{awayDigest, "list.bullet", "blue"},
      Mark{meetingSoon, "calendar.badge.clock", "blue"},
      Mark{meetingStart, "calendar.badge.clock", "orange"},
      Mark{claudeLimit, "sparkle", "orange"},
      Mark{codexSession, "chevron.left.forwardslash.chevron.right", "orange"},
      Mark{codexWeek, "chevron.left.forwardslash.chevron.right", "orange"},
      Mark{batteryLow, "battery.25percent", "orange"},
      Mark{batteryCritical, "battery.0percent", "red"},
      Mark{diskLow, "internaldrive", "orange"},
      Mark{cpuHigh, "cpu", "neutral"},
      Mark{water, "drop", "neutral"},
      Mark{focusEnded, "timer", "neutral"},
      Mark{breakOver, "timer", "neutral"},
      Mark{daySummary, "sunrise", "neutral"},
  };
}();

constexpr bool isInOrder() {
  for (std::size_t i = 0; i < marks.size(); ++i)
    if (marks[i].rule != static_cast<BuddyRule>(i)) return false;
  return marks.size() == EnumText<BuddyRule>::table.size();
}
static_assert(isInOrder());

}  // namespace

BuddyNoticeText noticeText(const BuddyNotice& notice, const Calendar& calendar, Instant now) {
  const Mark& mark = marks[static_cast<std::size_t>(notice.rule)];
  const BuddyReason why = reason(notice, calendar);
  BuddyNoticeText text{.title = toQString(notice.title),
                       .detail = toQString(notice.detail),
                       .age = toQString(shortAge(calendar, notice.date, now)),
                       .symbol = QString::fromLatin1(mark.symbol),
                       .tone = QString::fromLatin1(mark.tone),
                       .actions = {},
                       .why = toQString(why.rule),
                       .setting = toQString(why.setting),
                       .spoken = {}};
  for (const BuddyAction& action : notice.actions) text.actions << toQString(buttonText(action));
  text.spoken = text.detail.isEmpty() ? text.title : text.title + QStringLiteral(". ") + text.detail;
  return text;
}

}  // namespace ambrel
