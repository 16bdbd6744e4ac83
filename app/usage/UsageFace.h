#pragma once
// What one usage tile shows, as QML binds to it.

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "app/base/StoredValue.h"
#include "core/usage/UsageTile.h"

namespace ambrel {

// See UsageTile.
struct UsageFace {
  Q_GADGET
  QML_VALUE_TYPE(usageFace)
 public:
  FACE_FIELDS(QString, caption, age, value, unit, line, help, spoken);
  // 0 to 100; below zero where there is no bar.
  FACE_FIELD(qreal, percent, -1);
  FACE_FIELD(qreal, linePercent, -1);
  FACE_FIELDS(bool, isStale, isHigh, isLineHigh);

  bool operator==(const UsageFace&) const = default;
};

inline UsageFace usageFace(const UsageTile& tile) {
  UsageFace face;
  face.caption = toQString(tile.caption);
  face.age = toQString(tile.age);
  face.isStale = tile.isStale;
  face.value = toQString(tile.value);
  face.unit = toQString(tile.unit);
  face.line = toQString(tile.line);
  face.help = toQString(tile.help);
  face.spoken = toQString(tile.spoken);
  if (tile.bar) {
    face.percent = tile.bar->fraction * 100;
    face.isHigh = tile.bar->isHigh;
  }
  if (tile.lineBar) {
    face.linePercent = tile.lineBar->fraction * 100;
    face.isLineHigh = tile.lineBar->isHigh;
  }
  return face;
}

}  // namespace ambrel
