#pragma once
// A notice as it is shown: its words, its symbol, and why it came.

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "core/buddy.h"

namespace ambrel {

struct BuddyNoticeText {
  Q_GADGET
  QML_VALUE_TYPE(buddyNoticeText)
 public:
  FACE_FIELDS(QString, title, detail);
  FACE_FIELDS(QString, age);           // "2 min"
  FACE_FIELDS(QString, symbol, tone);  // "hand.raised.fill", "orange"
  FACE_FIELDS(QStringList, actions);   // the texts of its buttons
  FACE_FIELDS(QString, why);           // "The battery is below 20% and not charging."
  FACE_FIELDS(QString, setting);       // which setting turns it off
  FACE_FIELDS(QString, spoken);        // for screen readers

  friend bool operator==(const BuddyNoticeText&, const BuddyNoticeText&) = default;
};

BuddyNoticeText noticeText(const BuddyNotice& notice, const Calendar& calendar, Instant now);

}  // namespace ambrel
