#pragma once
// What one usage tile shows, as QML binds to it.

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "app/base/StoredValue.h"
#include "core/usage/UsageTile.h"

namespace ambrel {

// See UsageTile.
struct UsageFace {
  Q_GADGET
  QML_VALUE_TYPE(usageFace)
  Q_PROPERTY(QString caption MEMBER caption FINAL)
  Q_PROPERTY(QString age MEMBER age FINAL)
  Q_PROPERTY(bool isStale MEMBER isStale FINAL)
  Q_PROPERTY(QString value MEMBER value FINAL)
  Q_PROPERTY(QString unit MEMBER unit FINAL)
  Q_PROPERTY(QString line MEMBER line FINAL)
  // 0 to 100; below zero where there is no bar.
  Q_PROPERTY(qreal percent MEMBER percent FINAL)
  Q_PROPERTY(qreal linePercent MEMBER linePercent FINAL)
  Q_PROPERTY(bool isHigh MEMBER isHigh FINAL)
  Q_PROPERTY(bool isLineHigh MEMBER isLineHigh FINAL)
  Q_PROPERTY(QString help MEMBER help FINAL)
  Q_PROPERTY(QString spoken MEMBER spoken FINAL)

 public:
  QString caption, age, value, unit, line, help, spoken;
  qreal percent = -1, linePercent = -1;
  bool isStale = false, isHigh = false, isLineHigh = false;

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
