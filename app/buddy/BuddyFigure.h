#pragma once
// The character as an item. It repaints when the pose changes, during the animation, and for a blink.

#include <QQuickPaintedItem>
#include <QTimer>
#include <QVariantAnimation>
#include <QtQml/qqmlregistration.h>
#include <memory>

#include "app/base/StoredValue.h"
#include "app/buddy/BuddyPose.h"

namespace ambrel {

class Theme;

// It draws in the colours of the engine's theme. With reduced motion it does not animate or blink.
class BuddyFigure : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  // The name of a pose; an unknown name means "idle".
  Q_PROPERTY(QString pose READ pose WRITE setPose NOTIFY poseChanged FINAL)
  // The size of his box in logical pixels. The item is larger, with room for the drawings around him.
  Q_PROPERTY(qreal boxSize MEMBER boxSize_ NOTIFY styleChanged FINAL)
  // On screen; only then does he move and blink.
  Q_PROPERTY(bool live MEMBER isLive_ NOTIFY styleChanged FINAL)

 public:
  // The margin around the box of 64, in its units.
  static constexpr qreal margin = 8;
  static constexpr int blinkLength = 140;
  static constexpr int shortestBlinkWait = 5000, longestBlinkWait = 9000;

  explicit BuddyFigure(QQuickItem* parent = nullptr);

  QString pose() const { return toQString(nameOf(pose_)); }
  void setPose(const QString& name);

  bool isMoving() const { return motion_ && motion_->state() == QAbstractAnimation::Running; }
  bool isBlinking() const { return isBlinking_; }
  // Whether a blink is scheduled, and after how many milliseconds.
  bool waitsToBlink() const { return blinkTimer_.isActive() && !isBlinking_; }
  int blinkWait() const { return blinkTimer_.interval(); }
  void blink();

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void poseChanged();
  void styleChanged();

 protected:
  void componentComplete() override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  bool isStill() const;
  bool isSeen() const;
  bool mayBlink() const;
  void waitForBlink();
  void rest();
  void followStyle();

  BuddyPose pose_;
  BuddyStance start_, stance_;
  std::unique_ptr<QVariantAnimation> motion_;
  QTimer blinkTimer_;
  bool isBlinking_ = false;
  qreal boxSize_ = 64;
  bool isLive_ = true;
  const Theme* theme_ = nullptr;
};

}  // namespace ambrel
