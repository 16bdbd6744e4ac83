#include "app/buddy/BuddyInboxFace.h"

#include <algorithm>
#include <span>

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"
#include "core/buddy/BuddyText.h"

namespace ambrel {
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
  face.quietText = toQString(quietText(policy, speech.engine.held.size(), now, calendar));
  return face;
}

}  // namespace ambrel
