#pragma once
// What one usage tile shows, as QML binds to it.

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "core/usage/UsageTile.h"

namespace ambrel {

class UsageTileText : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to AIUsageModel")
  Q_PROPERTY(QString caption READ caption NOTIFY changed FINAL)
  Q_PROPERTY(QString age READ age NOTIFY changed FINAL)
  Q_PROPERTY(bool isStale READ isStale NOTIFY changed FINAL)
  Q_PROPERTY(QString value READ value NOTIFY changed FINAL)
  Q_PROPERTY(QString unit READ unit NOTIFY changed FINAL)
  Q_PROPERTY(QString line READ line NOTIFY changed FINAL)
  // 0 to 100; not a number when there is no bar.
  Q_PROPERTY(qreal percent READ percent NOTIFY changed FINAL)
  Q_PROPERTY(qreal linePercent READ linePercent NOTIFY changed FINAL)
  Q_PROPERTY(bool isHigh READ isHigh NOTIFY changed FINAL)
  Q_PROPERTY(bool isLineHigh READ isLineHigh NOTIFY changed FINAL)
  Q_PROPERTY(QString help READ help NOTIFY changed FINAL)
  Q_PROPERTY(QString spoken READ spoken NOTIFY changed FINAL)

 public:
  explicit UsageTileText(UsageTile tile, QObject* parent = nullptr) : QObject(parent), tile_(std::move(tile)) {}

  const UsageTile& tile() const { return tile_; }
  void set(const UsageTile& tile) {
    if (tile == tile_) return;
    tile_ = tile;
    Q_EMIT changed();
  }

  QString caption() const { return QString::fromStdString(tile_.caption); }
  QString age() const { return QString::fromStdString(tile_.age); }
  bool isStale() const { return tile_.isStale; }
  QString value() const { return QString::fromStdString(tile_.value); }
  QString unit() const { return QString::fromStdString(tile_.unit); }
  QString line() const { return QString::fromStdString(tile_.line); }
  qreal percent() const { return percentOf(tile_.bar); }
  qreal linePercent() const { return percentOf(tile_.lineBar); }
  bool isHigh() const { return tile_.bar && tile_.bar->isHigh; }
  bool isLineHigh() const { return tile_.lineBar && tile_.lineBar->isHigh; }
  QString help() const { return QString::fromStdString(tile_.help); }
  QString spoken() const { return QString::fromStdString(tile_.spoken); }

 Q_SIGNALS:
  void changed();

 private:
  static qreal percentOf(const std::optional<UsageBar>& bar) { return bar ? bar->fraction * 100 : qQNaN(); }

  UsageTile tile_;
};

}  // namespace ambrel
