#pragma once
// How far a scan has come, in words.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "app/disk/ScanNews.h"
#include "core/base/Calendar.h"

namespace ambrel {

struct DiskProgress {
  Q_GADGET
  QML_VALUE_TYPE(diskProgress)
 public:
  FACE_FIELDS(QString, title, detail);
  FACE_FIELDS(QString, figure);  // "71 %"; empty when the share is not known
  FACE_FIELDS(double, percent);
  friend bool operator==(const DiskProgress&, const DiskProgress&) = default;
};

// While folders are read, and while copies are looked for.
DiskProgress scanProgress(const ScanNews::Snapshot& news, const QString& source, const Calendar& calendar);
DiskProgress compareProgress(const CompareProgress& compared, const Calendar& calendar);

}  // namespace ambrel
