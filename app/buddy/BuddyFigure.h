#pragma once
// The character as an item. He is painted when his pose changes and while he moves to it, and when he blinks.

#include <QColor>
#include <QQuickPaintedItem>
#include <QTimer>
#include <QVariantAnimation>
#include <QtQml/qqmlregistration.h>
#include <memory>

#include "app/buddy/BuddyPose.h"

namespace ambrel {

class BuddyFigure : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  // The name of a pose; an unknown name means "idle".
  Q_PROPERTY(QString pose READ pose WRITE setPose NOTIFY poseChanged FINAL)
  // Of the box around him, in logical pixels. The item is larger by what he waves about.
  Q_PROPERTY(qreal boxSize MEMBER boxSize_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(bool dark MEMBER isDark_ NOTIFY styleChanged FINAL)
  // Reduced motion: a pose is taken at once, and he does not blink.
  Q_PROPERTY(bool still MEMBER isStill_ NOTIFY styleChanged FINAL)
  // On screen: only then does he move and blink.
  Q_PROPERTY(bool live MEMBER isLive_ NOTIFY styleChanged FINAL)
  // Of strokes in the air, of what he thinks and looks over, and of what is on that.
  Q_PROPERTY(QColor lineColor MEMBER lineColor_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor boardColor MEMBER boardColor_ NOTIFY styleChanged FINAL)
  Q_PROPERTY(QColor inkColor MEMBER inkColor_ NOTIFY styleChanged FINAL)

 public:
  // Around the box of 64, in its units.
  static constexpr qreal margin = 8;
  static constexpr int blinkLength = 140;
  static constexpr int shortestBlinkWait = 5000, longestBlinkWait = 9000;

  explicit BuddyFigure(QQuickItem* parent = nullptr);

  QString pose() const;
  void setPose(const QString& name);

  bool isMoving() const { return motion_ && motion_->state() == QAbstractAnimation::Running; }
  bool isBlinking() const { return isBlinking_; }
  // Whether a blink is to come, and how long it is waited for.
  bool waitsToBlink() const { return blinkTimer_.isActive() && !isBlinking_; }
  int blinkWait() const { return blinkTimer_.interval(); }
  void blink();

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void poseChanged();
  void styleChanged();

 protected:
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  bool isSeen() const;
  bool mayBlink() const;
  void waitForBlink();
  void rest();
  void followStyle();

  BuddyPose pose_ = BuddyPose::idle;
  BuddyStance start_, stance_;
  std::unique_ptr<QVariantAnimation> motion_;
  QTimer blinkTimer_;
  bool isBlinking_ = false;
  qreal boxSize_ = 64;
  bool isDark_ = true, isStill_ = false, isLive_ = true;
  QColor lineColor_{0xBA, 0xC2, 0xCE}, boardColor_{0x33, 0x39, 0x45}, inkColor_{0xF3, 0xF5, 0xF8};
};

}  // namespace ambrel
