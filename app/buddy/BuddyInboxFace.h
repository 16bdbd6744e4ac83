#pragma once
// What the inbox shows: the notices since the program started, and the digest of what happened while the user was away.

#include <QVariantList>

#include "app/base/Face.h"
#include "app/buddy/BuddyNoticeText.h"
#include "core/buddy/BuddySpeech.h"

namespace ambrel {

struct InboxRow {
  Q_GADGET
  QML_VALUE_TYPE(inboxRow)
 public:
  FACE_FIELDS(QString, key);
  FACE_FIELDS(ambrel::BuddyNoticeText, note);
  FACE_FIELDS(bool, isNew);
  FACE_FIELDS(QString, section);  // "New", "Earlier"

  bool operator==(const InboxRow&) const = default;
};
// Newest first.
std::vector<InboxRow> inboxRows(const BuddyInbox& inbox, const Calendar& calendar, Instant now);

struct BuddyInboxFace {
  Q_GADGET
  QML_VALUE_TYPE(buddyInboxFace)
 public:
  FACE_FIELDS(int, newCount);
  FACE_FIELDS(QString, keyToShow);    // of the newest unread notice with an action; empty if there is none
  FACE_FIELDS(QVariantList, digest);  // {"title": "Codex in web-shop", "text": "Finished after 12 min"}, in order
  FACE_FIELDS(QString, digestSince);  // "14:30"; empty without a digest
  FACE_FIELDS(QString, quietText);    // "Quiet from 22:00 to 08:00", "1 note waits for the break"

  bool operator==(const BuddyInboxFace&) const = default;
};
BuddyInboxFace buddyInboxFace(const BuddySpeech& speech, const BuddyPolicy& policy, const Calendar& calendar,
                              Instant now);

}  // namespace ambrel
