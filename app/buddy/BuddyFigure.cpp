#include "app/buddy/BuddyFigure.h"

#include <QPainter>
#include <QQuickWindow>
#include <QRandomGenerator>

#include "app/buddy/BuddyDrawing.h"
#include "app/buddy/BuddyMotion.h"

namespace ambrel {
namespace {

constexpr qreal box = 64;

bool hasOpenEyes(const BuddyLook& look) { return look.leftEye == BuddyEye::open || look.rightEye == BuddyEye::open; }

}  // namespace

BuddyFigure::BuddyFigure(QQuickItem* parent) : QQuickPaintedItem(parent), stance_(lookOf(pose_).stance) {
  setImplicitSize(box + 2 * margin, box + 2 * margin);
  connect(this, &BuddyFigure::styleChanged, this, &BuddyFigure::followStyle);
  blinkTimer_.setSingleShot(true);
  blinkTimer_.setTimerType(Qt::CoarseTimer);
  connect(&blinkTimer_, &QTimer::timeout, this, [this] {
    if (!isBlinking_) {
      blink();
      return;
    }
    isBlinking_ = false;
    update();
    waitForBlink();
  });
}

QString BuddyFigure::pose() const {
  const auto name = nameOf(pose_);
  return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

void BuddyFigure::setPose(const QString& name) {
  const BuddyPose pose = fromName<BuddyPose>(name.toStdString()).value_or(BuddyPose::idle);
  if (pose == pose_) return;
  pose_ = pose;
  const BuddyLook& look = lookOf(pose);
  if (isStill_ || !isSeen()) {
    rest();
  } else {
    start_ = stance_;
    if (!motion_) {
      motion_ = std::make_unique<QVariantAnimation>();
      connect(motion_.get(), &QVariantAnimation::valueChanged, this, [this](const QVariant& seconds) {
        stance_ = stanceAt(start_, lookOf(pose_), seconds.toReal());
        update();
      });
    }
    motion_->stop();
    motion_->setDuration(qRound(look.seconds * 1000));
    motion_->setStartValue(0.0);
    motion_->setEndValue(look.seconds);
    motion_->start();
    update();
  }
  isBlinking_ = false;
  blinkTimer_.stop();
  waitForBlink();
  Q_EMIT poseChanged();
}

// The pose is taken at once.
void BuddyFigure::rest() {
  if (motion_) motion_->stop();
  stance_ = lookOf(pose_).stance;
  update();
}

void BuddyFigure::followStyle() {
  const qreal whole = boxSize_ * (box + 2 * margin) / box;
  setImplicitSize(whole, whole);
  if (isStill_ || !isLive_) rest();
  waitForBlink();
  update();
}

bool BuddyFigure::isSeen() const { return isLive_ && isVisible() && window() && window()->isVisible(); }

bool BuddyFigure::mayBlink() const { return isSeen() && !isStill_ && hasOpenEyes(lookOf(pose_)); }

void BuddyFigure::waitForBlink() {
  if (!mayBlink()) {
    blinkTimer_.stop();
    if (std::exchange(isBlinking_, false)) update();
    return;
  }
  if (isBlinking_ || blinkTimer_.isActive()) return;
  blinkTimer_.start(QRandomGenerator::global()->bounded(shortestBlinkWait, longestBlinkWait + 1));
}

void BuddyFigure::blink() {
  if (!mayBlink()) return;
  isBlinking_ = true;
  update();
  blinkTimer_.start(blinkLength);
}

void BuddyFigure::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickPaintedItem::itemChange(change, data);
  if (change == ItemSceneChange && data.window) {
    connect(data.window, &QWindow::visibleChanged, this, &BuddyFigure::waitForBlink, Qt::UniqueConnection);
  }
  if (change != ItemVisibleHasChanged && change != ItemSceneChange) return;
  if (!isSeen()) rest();
  waitForBlink();
}

void BuddyFigure::paint(QPainter* painter) {
  const qreal scale = boxSize_ / box;
  painter->translate((width() - boxSize_) / 2, (height() - boxSize_) / 2);
  painter->scale(scale, scale);
  drawBuddy(*painter, lookOf(pose_), stance_, buddyColors(isDark_, lineColor_, boardColor_, inkColor_), isBlinking_);
}

}  // namespace ambrel
