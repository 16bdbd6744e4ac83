#pragma once
// A notice as it is shown: its words, its symbol, and why it came.

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include "core/buddy.h"

namespace ambrel {

struct BuddyNoticeText {
  Q_GADGET
  QML_VALUE_TYPE(buddyNoticeText)
  Q_PROPERTY(QString title MEMBER title FINAL)
  Q_PROPERTY(QString detail MEMBER detail FINAL)
  Q_PROPERTY(QString age MEMBER age FINAL)
  Q_PROPERTY(QString symbol MEMBER symbol FINAL)
  Q_PROPERTY(QString tone MEMBER tone FINAL)
  Q_PROPERTY(QStringList actions MEMBER actions FINAL)
  Q_PROPERTY(QString why MEMBER why FINAL)
  Q_PROPERTY(QString setting MEMBER setting FINAL)
  Q_PROPERTY(QString spoken MEMBER spoken FINAL)

 public:
  QString title, detail;
  QString age;           // "2 min"
  QString symbol, tone;  // "hand.raised.fill", "orange"
  QStringList actions;   // the texts of its buttons
  QString why;           // "The battery is below 20% and not charging."
  QString setting;       // which setting turns it off
  QString spoken;        // the whole of it for a screen reader

  friend bool operator==(const BuddyNoticeText&, const BuddyNoticeText&) = default;
};

BuddyNoticeText noticeText(const BuddyNotice& notice, const Calendar& calendar, Instant now);

}  // namespace ambrel
