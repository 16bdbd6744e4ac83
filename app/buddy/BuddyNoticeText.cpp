#include "app/buddy/BuddyNoticeText.h"

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"
#include "core/buddy/BuddyText.h"

namespace ambrel {
BuddyNoticeText noticeText(const BuddyNotice& notice, const Calendar& calendar, Instant now) {
  const BuddyReason why = reason(notice, calendar);
  BuddyNoticeText text{.title = toQString(notice.title),
                       .detail = toQString(notice.detail),
                       .age = toQString(shortAge(calendar, notice.date, now)),
                       .symbol = toQString(symbol(notice.rule)),
                       .tone = toQString(tone(notice.rule)),
                       .why = toQString(why.rule),
                       .setting = toQString(why.setting)};
  for (const BuddyAction& action : notice.actions) text.actions << toQString(buttonText(action));
  text.spoken = text.detail.isEmpty() ? text.title : text.title + QStringLiteral(". ") + text.detail;
  return text;
}

}  // namespace ambrel
