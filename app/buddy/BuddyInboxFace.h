#pragma once
// The inbox as it is shown: the notices of this session of the program, and what happened while the user was away.

#include <QVariantList>

#include "app/buddy/BuddyNoticeText.h"
#include "core/buddy/BuddySpeech.h"

namespace ambrel {

struct InboxRow {
  Q_GADGET
  Q_PROPERTY(QString key MEMBER key FINAL)
  Q_PROPERTY(ambrel::BuddyNoticeText note MEMBER note FINAL)
  Q_PROPERTY(bool isNew MEMBER isNew FINAL)
  Q_PROPERTY(QString section MEMBER section FINAL)

 public:
  QString key;
  BuddyNoticeText note;
  bool isNew = false;
  QString section;  // "New", "Earlier"

  bool operator==(const InboxRow&) const = default;
};
// Newest first.
std::vector<InboxRow> inboxRows(const BuddyInbox& inbox, const Calendar& calendar, Instant now);

struct BuddyInboxFace {
  Q_GADGET
  QML_VALUE_TYPE(buddyInboxFace)
  Q_PROPERTY(int newCount MEMBER newCount FINAL)
  Q_PROPERTY(QString keyToShow MEMBER keyToShow FINAL)
  Q_PROPERTY(QVariantList digest MEMBER digest FINAL)
  Q_PROPERTY(QString digestSince MEMBER digestSince FINAL)
  Q_PROPERTY(QString quietText MEMBER quietText FINAL)

 public:
  int newCount = 0;
  QString keyToShow;    // of the newest notice that is new and offers something; empty when there is none
  QVariantList digest;  // {"title": "Codex in web-shop", "text": "Finished after 12 min"}, in order
  QString digestSince;  // "14:30"; empty without a digest
  QString quietText;    // "Quiet from 22:00 to 08:00", "1 note waits for the break"

  bool operator==(const BuddyInboxFace&) const = default;
};
BuddyInboxFace buddyInboxFace(const BuddySpeech& speech, const BuddyPolicy& policy, const Calendar& calendar,
                              Instant now);

}  // namespace ambrel
