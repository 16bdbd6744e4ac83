#pragma once
// How far a scan has come, in words.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "app/disk/ScanNews.h"
#include "core/base/Calendar.h"

namespace ambrel {

struct DiskProgress {
  Q_GADGET
  QML_VALUE_TYPE(diskProgress)
  Q_PROPERTY(QString title MEMBER title FINAL)
  Q_PROPERTY(QString detail MEMBER detail FINAL)
  Q_PROPERTY(QString figure MEMBER figure FINAL)
  Q_PROPERTY(double percent MEMBER percent FINAL)

 public:
  QString title, detail;
  QString figure;  // "71 %"; empty when the share is not known
  double percent = 0;
  friend bool operator==(const DiskProgress&, const DiskProgress&) = default;
};

// While folders are read, and while copies are looked for.
DiskProgress scanProgress(const ScanNews::Snapshot& news, const QString& source, const Calendar& calendar);
DiskProgress compareProgress(const CompareProgress& compared, const Calendar& calendar);

}  // namespace ambrel
