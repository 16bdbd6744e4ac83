#include "app/buddy/BuddyInboxFace.h"

#include <algorithm>
#include <span>

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

QString quietText(const BuddyPolicy& policy, std::size_t heldCount, const Calendar& calendar, Instant now) {
  const auto time = [&](int hour) { return toQString(shortTime(calendar, calendar.instant(2000, 1, 3, hour))); };
  const auto& hours = policy.quietHours;
  if (policy.level == BuddyLevel::off) return QObject::tr("Buddy says nothing");
  if (heldCount == 1) return QObject::tr("1 note waits for the break");
  if (heldCount > 1) return QObject::tr("%1 notes wait for the break").arg(heldCount);
  if (!hours || hours->startHour == hours->endHour) return QObject::tr("No quiet hours");
  if (hours->contains(now, calendar)) return QObject::tr("Quiet until %1").arg(time(hours->endHour));
  return QObject::tr("Quiet from %1 to %2").arg(time(hours->startHour), time(hours->endHour));
}

}  // namespace

std::vector<InboxRow> inboxRows(const BuddyInbox& inbox, const Calendar& calendar, Instant now) {
  std::vector<InboxRow> rows;
  for (const BuddyNotice& notice : inbox.recent) {
    const bool isNew = rows.size() < inbox.newCount;
    rows.push_back({.key = toQString(inboxKey(notice)),
                    .note = noticeText(notice, calendar, now),
                    .isNew = isNew,
                    .section = isNew ? QObject::tr("New") : QObject::tr("Earlier")});
  }
  return rows;
}

BuddyInboxFace buddyInboxFace(const BuddySpeech& speech, const BuddyPolicy& policy, const Calendar& calendar,
                              Instant now) {
  BuddyInboxFace face;
  face.newCount = static_cast<int>(speech.inbox.newCount);
  const auto unread = std::span(speech.inbox.recent).first(speech.inbox.newCount);
  const auto toShow = std::ranges::find_if(unread, [](const BuddyNotice& notice) { return !notice.actions.empty(); });
  if (toShow != unread.end()) face.keyToShow = toQString(inboxKey(*toShow));
  for (const AgentWatch::DigestEntry& entry : speech.digest) {
    const QString kind = toQString(displayName(entry.kind));
    QStringList lines;
    for (const std::string& line : entry.lines) lines << toQString(line);
    face.digest << QVariantMap{
        {QStringLiteral("title"), entry.project ? QObject::tr("%1 in %2").arg(kind, toQString(*entry.project)) : kind},
        {QStringLiteral("text"), lines.join(u'\n')}};
  }
  if (speech.digestSince) face.digestSince = toQString(shortTime(calendar, *speech.digestSince));
  face.quietText = quietText(policy, speech.engine.held.size(), calendar, now);
  return face;
}

}  // namespace ambrel
